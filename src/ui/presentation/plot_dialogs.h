// The dialogs of the sounding plot: a comment at a depth, and the scales of the depth axis and of
// each column, kept in scale files.
#pragma once

#include <QDialog>
#include <vector>

#include "core/common/user_prompts.h"
#include "core/presentation/sounding_plot.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace marlview {

class Session;

class FrmComments : public QDialog {
  Q_OBJECT

 public:
  FrmComments(PlotState& plot, const Session& session, UserPrompts& prompts, QWidget* parent = nullptr);

  QLineEdit* txtComment;
  QLineEdit* txtDepth;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;

 private:
  PlotState& plot_;
  const Session& session_;
  UserPrompts& prompts_;
};

class FrmScaleSounding : public QDialog {
  Q_OBJECT

 public:
  FrmScaleSounding(PlotState& plot, const Session& session, UserPrompts& prompts, QWidget* parent = nullptr);

  QLineEdit* txtDepthMin;
  QLineEdit* txtDepthMax;
  // One row per plot column.
  std::vector<QLabel*> lblChannelName;
  std::vector<QLineEdit*> txtMin;
  std::vector<QLineEdit*> txtMax;
  std::vector<QCheckBox*> chkMinorTicks;
  QPushButton* cmdOK;
  QPushButton* cmdReset;
  QPushButton* cmdSaveScale;
  QPushButton* cmdLoadScale;
  QPushButton* cmdCancel;

 private:
  void FillBoxes();
  // What the boxes say, applied to plot; false (and the message) when a minimum is not below its maximum.
  bool ApplyBoxes(PlotState& plot);
  void SaveScale();
  void LoadScale();
  void Handle(const char* source, const std::function<void()>& handler);

  PlotState& plot_;
  const Session& session_;
  UserPrompts& prompts_;
};

}  // namespace marlview
