// The small dialogs of seismic mode: the loading checks, the trims, the log strike shift, the
// workbench's scale and the two depth dialogs. Each copies its controls into a core call.
#pragma once

#include <QDialog>

#include "core/seismic/seismic_controller.h"
#include "core/seismic/seismic_writers.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace marlview {

// frmDelayWarning: S or P waves for the velocities; cmdOK waits for a choice.
class FrmDelayWarning : public QDialog {
  Q_OBJECT
 public:
  explicit FrmDelayWarning(QWidget* parent = nullptr);
  QLabel* lblDelayWarning;
  QRadioButton* optSWave;
  QRadioButton* optPWave;
  QPushButton* cmdOK;
};

// frmArrivalError ("SET ARRIVAL WAVE(S)").
class FrmArrivalError : public QDialog {
  Q_OBJECT
 public:
  FrmArrivalError(const ArrivalErrorChoice& choice, QWidget* parent = nullptr);
  int16_t Chosen() const;
  QRadioButton* optAStrike;
  QRadioButton* optBStrike;
  QRadioButton* optPStrike;
  QRadioButton* optNoStrike;
  QPushButton* cmdOK;
};

// The two loading dialogs, shown modally over the log window.
class QtSeismicDialogs : public SeismicDialogs {
 public:
  explicit QtSeismicDialogs(QWidget* parent) : parent_(parent) {}
  bool AskDelayWarning() override;
  int16_t AskArrivalError(const ArrivalErrorChoice& choice) override;

 private:
  QWidget* parent_;
};

// frmTrimSeismicGraphs: a time in milliseconds for every test.
class FrmTrimSeismicGraphs : public QDialog {
  Q_OBJECT
 public:
  FrmTrimSeismicGraphs(SeismicController& controller, UserPrompts& prompts, QWidget* parent = nullptr);
  QLineEdit* txtTrimTime;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;
};

// frmTrimSeismicGraph: the workbench's test alone, the time in Text12.
class FrmTrimSeismicGraph : public QDialog {
  Q_OBJECT
 public:
  FrmTrimSeismicGraph(SeismicController& controller, UserPrompts& prompts, QWidget* parent = nullptr);
  QLineEdit* Text12;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;
};

// frmTrimSeismicLog: the seconds of the log to keep.
class FrmTrimSeismicLog : public QDialog {
  Q_OBJECT
 public:
  FrmTrimSeismicLog(SeismicController& controller, UserPrompts& prompts, QWidget* parent = nullptr);
  QComboBox* cmbTrimSeconds;
  QPushButton* cmdOK;
};

// frmShiftStrikeUpDown: one column of the log up or down by 0.05 a press.
class FrmShiftStrikeUpDown : public QDialog {
  Q_OBJECT
 public:
  FrmShiftStrikeUpDown(SeismicController& controller, UserPrompts& prompts, QWidget* parent = nullptr);
  QRadioButton* optShiftAStrike;
  QRadioButton* optShiftBStrike;
  QRadioButton* optShiftPStrike;
  QPushButton* cmdShiftUp;
  QPushButton* cmdShiftDown;
  QPushButton* cmdOK;

 private:
  int16_t Kind() const;
};

// frmScaleEnlargedSeismicGraph: the workbench's time range.
class FrmScaleEnlargedSeismicGraph : public QDialog {
  Q_OBJECT
 public:
  FrmScaleEnlargedSeismicGraph(SeismicController& controller, UserPrompts& prompts, QWidget* parent = nullptr);
  QLineEdit* txtXmin;
  QLineEdit* txtXmax;
  QPushButton* cmdSetScale;
  QPushButton* cmdResetScale;
};

// frmAdjustSeismicDepth: scales every depth by observed over measured.
class FrmAdjustSeismicDepth : public QDialog {
  Q_OBJECT
 public:
  FrmAdjustSeismicDepth(SeismicController& controller, UserPrompts& prompts, QWidget* parent = nullptr);
  QLineEdit* txtMeasuredDepth;
  QLineEdit* txtTotalDepth;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;
};

// frmSeismicChangeDepth: the depth of the workbench's test, between its neighbours.
class FrmSeismicChangeDepth : public QDialog {
  Q_OBJECT
 public:
  FrmSeismicChangeDepth(SeismicController& controller, UserPrompts& prompts, QWidget* parent = nullptr);
  QLineEdit* txtNewDepth;
  QLabel* lblLessThan;
  QLabel* lblGreaterThan;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;
};

// frmTYRAppendSEIOffset and frmAppendSMCOffset: the depth to add to the tests of the file being
// combined, in txtOffset, in the display unit.
class FrmAppendOffset : public QDialog {
  Q_OBJECT
 public:
  FrmAppendOffset(bool sei, bool feet, QWidget* parent = nullptr);
  QLineEdit* txtOffset;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;
};

// The offset dialogs shown modally over the log window; a cancel gives an empty text.
class QtAppendOffsetDialog : public AppendOffsetDialog {
 public:
  explicit QtAppendOffsetDialog(QWidget* parent) : parent_(parent) {}
  std::string AskOffset(bool sei, bool feet) override;

 private:
  QWidget* parent_;
};

}  // namespace marlview
