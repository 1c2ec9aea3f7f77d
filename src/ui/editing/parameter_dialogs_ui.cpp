// The water table and wet density dialogs.
#include "ui/editing/parameter_dialogs_ui.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "core/editing/parameter_dialogs.h"
#include "core/session/session.h"
#include "ui/common/event_guard.h"
#include "ui/common/named.h"
#include "ui/common/qt_prompts.h"

namespace marlview {
FrmChangeWaterTableDepth::FrmChangeWaterTableDepth(Session& session, UserPrompts& prompts, QWidget* parent,
                                                   WaterTableOf of)
    : QDialog(parent), session_(session), prompts_(prompts), of_(of) {
  setObjectName("frmChangeWaterTableDepth");
  setWindowTitle("WATER TABLE DEPTH");
  auto* layout = new QGridLayout(this);
  layout->addWidget(new QLabel("WATER TABLE DEPTH", this), 0, 0);
  txtWaterTableDepth =
      Named(new QLineEdit(ToQString(WaterTableDialogText(session_, of_)), this), "txtWaterTableDepth");
  layout->addWidget(txtWaterTableDepth, 0, 1);
  lblDepthUnits = Named(new QLabel(session_.DepthUnitIsMetric == 1 ? "(m)" : "(ft)", this), "lblDepthUnits");
  layout->addWidget(lblDepthUnits, 0, 2);
  QHBoxLayout* buttons = OkCancelRow(this, cmdOK, cmdCancel);
  cmdUndefined = Named(new QPushButton("UNDEFINED", this), "cmdUndefined");
  buttons->insertWidget(1, cmdUndefined);
  layout->addLayout(buttons, 1, 0, 1, 3);

  connect(cmdOK, &QPushButton::clicked, this, [this] {
    bool changed = false;
    RunGuarded(prompts_, "cmdOK_Click", [&] {
      changed = ChangeWaterTableDepth(session_, txtWaterTableDepth->text().toStdString(), prompts_, of_);
    });
    if (changed) accept();
  });
  connect(cmdUndefined, &QPushButton::clicked, this, [this] {
    bool changed = false;
    RunGuarded(prompts_, "cmdUndefined_Click", [&] {
      SetWaterTableUndefined(session_, of_);
      changed = true;
    });
    if (changed) accept();
  });
}

FrmWetDensity::FrmWetDensity(Session& session, UserPrompts& prompts, QWidget* parent)
    : QDialog(parent), session_(session), prompts_(prompts) {
  setObjectName("frmWetDensity");
  setWindowTitle("WET DENSITY");
  auto* layout = new QGridLayout(this);
  layout->addWidget(new QLabel("SOIL WET DENSITY", this), 0, 0);
  txtWetDensity = Named(new QLineEdit(ToQString(WetDensityDialogText(session_)), this), "txtWetDensity");
  layout->addWidget(txtWetDensity, 0, 1);
  lblWetDensityUnits = Named(new QLabel(ToQString(WetDensityUnitText(session_)), this), "lblWetDensityUnits");
  layout->addWidget(lblWetDensityUnits, 0, 2);
  layout->addLayout(OkCancelRow(this, cmdOK, cmdCancel), 1, 0, 1, 3);

  connect(cmdOK, &QPushButton::clicked, this, [this] {
    bool changed = false;
    RunGuarded(prompts_, "cmdOK_Click",
               [&] { changed = ChangeWetDensity(session_, txtWetDensity->text().toStdString(), prompts_); });
    if (changed) accept();
  });
}

}  // namespace marlview
