// The editor's operation dialogs: each fills its boxes from the session, and OK hands the entries to
// the core, which checks them, changes the sounding and derives it again. A refused entry is told
// and the dialog stays open.
#pragma once

#include <QDialog>
#include <vector>

#include "core/common/user_prompts.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace marlview {

class Session;

class FrmChangeStartDepth : public QDialog {
  Q_OBJECT

 public:
  FrmChangeStartDepth(Session& session, UserPrompts& prompts, QWidget* parent = nullptr);

  QLabel* lblOldStartDepth;
  QLineEdit* txtStartDepth;
  QLabel* lblDepthUnits;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;

 private:
  Session& session_;
  UserPrompts& prompts_;
};

class FrmRemoveNegatives : public QDialog {
  Q_OBJECT

 public:
  FrmRemoveNegatives(Session& session, UserPrompts& prompts, QWidget* parent = nullptr);

  // One checkable row per channel, the channel's number kept with it.
  QListWidget* lstChannels;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;

 private:
  Session& session_;
  UserPrompts& prompts_;
};

class FrmShiftChannels : public QDialog {
  Q_OBJECT

 public:
  FrmShiftChannels(Session& session, UserPrompts& prompts, QWidget* parent = nullptr);

  // Per listed channel: its check box and the amount to add, in the channel's unit.
  std::vector<QCheckBox*> chkChannel;
  std::vector<QLineEdit*> txtShift;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;

 private:
  Session& session_;
  UserPrompts& prompts_;
  std::vector<int> channels_;
};

class FrmAdjustDepth : public QDialog {
  Q_OBJECT

 public:
  FrmAdjustDepth(Session& session, UserPrompts& prompts, QWidget* parent = nullptr);

  QLineEdit* txtOldDepth;
  QLineEdit* txtNewDepth;
  QLabel* lblDepthUnits;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;

 private:
  Session& session_;
  UserPrompts& prompts_;
};

class FrmNormalizeDepthIntervals : public QDialog {
  Q_OBJECT

 public:
  FrmNormalizeDepthIntervals(Session& session, UserPrompts& prompts, QWidget* parent = nullptr);

  QLineEdit* txtInterval;
  QLabel* lblUnits;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;

 private:
  Session& session_;
  UserPrompts& prompts_;
};

class FrmTipConfiguration : public QDialog {
  Q_OBJECT

 public:
  FrmTipConfiguration(Session& session, UserPrompts& prompts, QWidget* parent = nullptr);

  // "CONVENTIONAL" or "BALL".
  QComboBox* cmbTipConfiguration;
  QLineEdit* txtBallTipDiameter;
  QLabel* lblTipConfiguration;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;

 private:
  Session& session_;
  UserPrompts& prompts_;
};

class FrmTYRConeDimensions : public QDialog {
  Q_OBJECT

 public:
  FrmTYRConeDimensions(Session& session, UserPrompts& prompts, QWidget* parent = nullptr);

  QComboBox* cmbCone;
  QLineEdit* txtTipLength;
  QLineEdit* txtTipShoulderLength;
  QLineEdit* txtSleeveLength;
  QLineEdit* txtPPLength;
  QLabel* lblUnits;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;

 private:
  void ShowCone(int cone);

  Session& session_;
  UserPrompts& prompts_;
};

// The depth left between the end of the current file and the start of the one appended.
class FrmTYRAppendOffset : public QDialog {
  Q_OBJECT

 public:
  FrmTYRAppendOffset(Session& session, UserPrompts& prompts, QWidget* parent = nullptr);

  QString Offset() const;

  QLineEdit* txtOffset;
  QLabel* lblDepthUnits;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;

 private:
  UserPrompts& prompts_;
};

}  // namespace marlview
