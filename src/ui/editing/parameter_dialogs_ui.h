// The water table and wet density dialogs of the plot and the main window: each box is filled from
// the session, and OK hands the entry to the core, which checks it and derives the sounding again.
#pragma once

#include <QDialog>

#include "core/common/user_prompts.h"
#include "core/editing/parameter_dialogs.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace marlview {

class Session;

class FrmChangeWaterTableDepth : public QDialog {
  Q_OBJECT

 public:
  FrmChangeWaterTableDepth(Session& session, UserPrompts& prompts, QWidget* parent = nullptr,
                           WaterTableOf of = WaterTableOf::kSounding);

  QLineEdit* txtWaterTableDepth;
  QLabel* lblDepthUnits;
  QPushButton* cmdOK;
  QPushButton* cmdUndefined;
  QPushButton* cmdCancel;

 private:
  Session& session_;
  UserPrompts& prompts_;
  WaterTableOf of_;
};

class FrmWetDensity : public QDialog {
  Q_OBJECT

 public:
  FrmWetDensity(Session& session, UserPrompts& prompts, QWidget* parent = nullptr);

  QLineEdit* txtWetDensity;
  QLabel* lblWetDensityUnits;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;

 private:
  Session& session_;
  UserPrompts& prompts_;
};

}  // namespace marlview
