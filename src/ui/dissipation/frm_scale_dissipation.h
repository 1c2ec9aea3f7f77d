// frmScaleDissipation: the plot's time and pressure limits, checked by the plot engine on OK.
#pragma once

#include <QDialog>

#include "core/common/user_prompts.h"
#include "core/dissipation/dissipation_plot.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace marlview {

class FrmScaleDissipation : public QDialog {
  Q_OBJECT

 public:
  FrmScaleDissipation(DissipationPlotState& plot, UserPrompts& prompts, QWidget* parent = nullptr);

  QLineEdit* txtTimeMin;
  QLineEdit* txtTimeMax;
  QLineEdit* txtPressureMin;
  QLineEdit* txtPressureMax;
  // "PRESSURE", "% MAX PRESSURE" or "% HEAD PRESSURE".
  QLabel* lblPressure;
  QPushButton* cmdOK;
  QPushButton* cmdReturn;

 private:
  DissipationPlotState& plot_;
  UserPrompts& prompts_;
};

}  // namespace marlview
