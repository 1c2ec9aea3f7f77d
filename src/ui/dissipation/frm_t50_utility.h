// frmT50Utility: floats over the dissipation plot and moves the slope, U0 and U100 lines by
// held buttons, showing U0, U50, U100 and T50.
#pragma once

#include <QDialog>

#include "core/dissipation/t50_utility.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTimer;

namespace marlview {

class Form2;

class FrmT50Utility : public QDialog {
  Q_OBJECT

 public:
  // The period of the held buttons' timer.
  static constexpr int kRepeatMilliseconds = 30;

  FrmT50Utility(Form2& plot_window, QWidget* parent = nullptr);
  ~FrmT50Utility() override;

  const T50State& State() const { return t50_; }
  // After the plot changed its axes: the pivot kept on its pressure and the lines drawn anew.
  void FollowPlot();

  QRadioButton* optStraightLineApproximation;
  QRadioButton* optManualAdjustment;
  QPushButton* cmdLeft;
  QPushButton* cmdRight;
  QPushButton* cmdClockwise;
  QPushButton* cmdCounterClockwise;
  QPushButton* cmdUpU0;
  QPushButton* cmdDownU0;
  QPushButton* cmdUpU100;
  QPushButton* cmdDownU100;
  QLineEdit* txtYmin;
  QLineEdit* txtYmax;
  QPushButton* cmdSetScale;
  QPushButton* cmdResetScale;
  QCheckBox* chkIncludeLinesOnPrintout;
  QPushButton* cmdPrint;
  QPushButton* cmdReturn;
  QLabel* lblU0;
  QLabel* lblU50;
  QLabel* lblU100;
  QLabel* lblT50;
  QTimer* tmrRepeat;
  // The frame "ch (Teh and Houlsby 1991)".
  QLineEdit* txtRigidityIndex;
  QLineEdit* txtConeArea;
  QComboBox* cmbFilterPosition;
  QCheckBox* chkRootTime;
  QPushButton* cmdCalculateCh;
  QLabel* lblChCm2PerSecond;
  QLabel* lblChM2PerYear;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void BuildControls();
  void Connect();
  // DrawSlopeLine, then the labels and the plot.
  void DrawLines();
  void ShowScale();
  void BuildChFrame(QLayout* layout);
  void CalculateCh();
  // The test's last ch, or blanks when its T50 has moved since.
  void ShowCh();

  Form2& form_;
  T50State t50_;
  bool returned_ = false;
};

}  // namespace marlview
