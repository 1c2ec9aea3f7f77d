// The dissipation plot's scale dialog.
#include "ui/dissipation/frm_scale_dissipation.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "ui/common/event_guard.h"
#include "ui/common/named.h"
#include "ui/common/qt_prompts.h"

namespace marlview {

FrmScaleDissipation::FrmScaleDissipation(DissipationPlotState& plot, UserPrompts& prompts, QWidget* parent)
    : QDialog(parent), plot_(plot), prompts_(prompts) {
  setObjectName("frmScaleDissipation");
  setWindowTitle("SCALE DISSIPATION PLOT");
  const DissipationScaleEntry shown = DissipationScaleTexts(plot_);
  const QString value = ToQString(DissipationScaleLabel(plot_));
  const bool linear = plot_.TimeFormat == kLinearTime;
  auto* layout = new QGridLayout(this);
  auto row = [&](int at, const QString& caption, QLineEdit** box, const char* name, const std::string& text) {
    layout->addWidget(new QLabel(caption, this), at, 1);
    *box = Named(new QLineEdit(ToQString(text), this), name);
    layout->addWidget(*box, at, 2);
  };
  layout->addWidget(new QLabel("TIME", this), 0, 0, 2, 1);
  row(0, "MIN", &txtTimeMin, "txtTimeMin", shown.time_min);
  row(1, "MAX", &txtTimeMax, "txtTimeMax", shown.time_max);
  lblPressure = Named(new QLabel(value, this), "lblPressure");
  layout->addWidget(lblPressure, 2, 0, 2, 1);
  row(2, "MIN", &txtPressureMin, "txtPressureMin", shown.pressure_min);
  row(3, "MAX", &txtPressureMax, "txtPressureMax", shown.pressure_max);
  // The log and square-root axes are scaled by their data; their boxes only say so.
  txtTimeMin->setEnabled(linear);
  txtTimeMax->setEnabled(linear);
  auto* buttons = new QHBoxLayout;
  cmdOK = NamedButton(buttons, this, "cmdOK", "OK");
  cmdReturn = NamedButton(buttons, this, "cmdReturn", "RETURN");
  layout->addLayout(buttons, 4, 0, 1, 3);
  cmdOK->setDefault(true);

  connect(cmdOK, &QPushButton::clicked, this, [this, shown] {
    bool applied = false;
    RunGuarded(prompts_, "cmdOK_Click", [&] {
      const DissipationScaleEntry entry{txtTimeMin->text().toStdString(), txtTimeMax->text().toStdString(),
                                        txtPressureMin->text().toStdString(),
                                        txtPressureMax->text().toStdString()};
      ScaleBox bad = ScaleBox::kNone;
      applied = ApplyDissipationScale(plot_, entry, prompts_, bad);
      if (bad == ScaleBox::kTimeMin) txtTimeMin->setText(ToQString(shown.time_min));
      if (bad == ScaleBox::kTimeMax) txtTimeMax->setText(ToQString(shown.time_max));
      if (bad == ScaleBox::kPressureMax) txtPressureMax->setText(ToQString(shown.pressure_max));
    });
    if (applied) accept();
  });
  connect(cmdReturn, &QPushButton::clicked, this, [this] { reject(); });
}

}  // namespace marlview
