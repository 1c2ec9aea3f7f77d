// The small dialogs of seismic mode.
#include "ui/seismic/seismic_dialogs.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <functional>

#include "core/common/number_format.h"
#include "core/common/number_read.h"
#include "ui/common/event_guard.h"
#include "ui/common/named.h"
#include "ui/common/qt_prompts.h"

namespace marlview {
namespace {

QRadioButton* Option(QWidget* parent, QLayout* layout, const char* name, const QString& caption) {
  auto* option = Named(new QRadioButton(caption, parent), name);
  layout->addWidget(option);
  return option;
}

QLineEdit* Field(QWidget* parent, QFormLayout* form, const char* name, const QString& label, const QString& text) {
  auto* field = Named(new QLineEdit(text, parent), name);
  form->addRow(label, field);
  return field;
}

std::string Text(const QLineEdit* field) { return field->text().toStdString(); }

// The trim dialogs' one time box in mS with OK and CANCEL; OK closes the dialog once trim takes the
// time. A box without a number reads 0, which the trim refuses as "Invalid time.".
QLineEdit* TrimTimeBox(QDialog* dialog, UserPrompts& prompts, const char* name, double initial_ms,
                       std::function<bool(double)> trim, QPushButton*& ok, QPushButton*& cancel) {
  auto* form = new QFormLayout(dialog);
  QLineEdit* box = Field(dialog, form, name, "TRIM TIME (mS)", ToQString(FormatNumber(initial_ms, "####0.##")));
  form->addRow(OkCancelRow(dialog, ok, cancel));
  QObject::connect(ok, &QPushButton::clicked, dialog, [dialog, &prompts, box, trim = std::move(trim)] {
    RunGuarded(prompts, "cmdOK_Click", [&] {
      if (trim(LenientNumber(Text(box)))) dialog->accept();
    });
  });
  return box;
}

}  // namespace

FrmDelayWarning::FrmDelayWarning(QWidget* parent) : QDialog(parent) {
  setObjectName("frmDelayWarning");
  setWindowTitle("WARNING");
  auto* layout = new QVBoxLayout(this);
  lblDelayWarning = Named(new QLabel(kDelayWarningText, this), "lblDelayWarning");
  lblDelayWarning->setWordWrap(true);
  layout->addWidget(lblDelayWarning);
  optSWave = Option(this, layout, "optSWave", "USE S WAVE DELAYS (ALL PICKS ARE CLEARED)");
  optPWave = Option(this, layout, "optPWave", "USE P WAVE DELAYS");
  auto* row = new QHBoxLayout;
  cmdOK = NamedButton(row, this, "cmdOK", "OK");
  cmdOK->setEnabled(false);
  layout->addLayout(row);
  connect(optSWave, &QRadioButton::clicked, cmdOK, [this] { cmdOK->setEnabled(true); });
  connect(optPWave, &QRadioButton::clicked, cmdOK, [this] { cmdOK->setEnabled(true); });
  connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

FrmArrivalError::FrmArrivalError(const ArrivalErrorChoice& choice, QWidget* parent) : QDialog(parent) {
  setObjectName("frmArrivalError");
  setWindowTitle(kArrivalErrorCaption);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(new QLabel(kArrivalErrorCaption, this));
  optAStrike = Option(this, layout, "optAStrike", "S(A) WAVE");
  optBStrike = Option(this, layout, "optBStrike", "S(B) WAVE");
  optPStrike = Option(this, layout, "optPStrike", "P WAVE");
  optNoStrike = Option(this, layout, "optNoStrike", "NO WAVE");
  optAStrike->setEnabled(choice.a_enabled);
  optBStrike->setEnabled(choice.b_enabled);
  optPStrike->setEnabled(choice.p_enabled);
  optAStrike->setChecked(choice.initial == kStrikeA);
  optBStrike->setChecked(choice.initial == kStrikeB);
  optPStrike->setChecked(choice.initial == kStrikeP);
  auto* row = new QHBoxLayout;
  cmdOK = NamedButton(row, this, "cmdOK", "OK");
  layout->addLayout(row);
  connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

int16_t FrmArrivalError::Chosen() const {
  if (optAStrike->isChecked()) return kStrikeA;
  if (optBStrike->isChecked()) return kStrikeB;
  if (optPStrike->isChecked()) return kStrikeP;
  return kNoStrike;
}

bool QtSeismicDialogs::AskDelayWarning() {
  FrmDelayWarning dialog(parent_);
  // The dialog has no way out but a choice: closing it keeps the S waves, its first option.
  dialog.exec();
  return !dialog.optPWave->isChecked();
}

int16_t QtSeismicDialogs::AskArrivalError(const ArrivalErrorChoice& choice) {
  FrmArrivalError dialog(choice, parent_);
  dialog.exec();
  return dialog.Chosen();
}

FrmTrimSeismicGraphs::FrmTrimSeismicGraphs(SeismicController& controller, UserPrompts& prompts, QWidget* parent)
    : QDialog(parent) {
  setObjectName("frmTrimSeismicGraphs");
  setWindowTitle("TRIM GRAPHS");
  txtTrimTime = TrimTimeBox(this, prompts, "txtTrimTime", controller.View().SeismicTimeAxisMax,
                            [&controller](double ms) { return controller.TrimAll(ms); }, cmdOK, cmdCancel);
}

FrmTrimSeismicGraph::FrmTrimSeismicGraph(SeismicController& controller, UserPrompts& prompts, QWidget* parent)
    : QDialog(parent) {
  setObjectName("frmTrimSeismicGraph");
  setWindowTitle("TRIM STRIKE");
  Text12 = TrimTimeBox(this, prompts, "Text12", controller.TrimShownTestDefault(),
                       [&controller](double ms) { return controller.TrimShownTest(ms); }, cmdOK, cmdCancel);
}

FrmTrimSeismicLog::FrmTrimSeismicLog(SeismicController& controller, UserPrompts& prompts, QWidget* parent)
    : QDialog(parent) {
  setObjectName("frmTrimSeismicLog");
  setWindowTitle("TRIM LOG");
  auto* form = new QFormLayout(this);
  cmbTrimSeconds = Named(new QComboBox(this), "cmbTrimSeconds");
  for (int n = 1; n <= controller.Store().LogSeconds; ++n) cmbTrimSeconds->addItem(QString::number(n));
  cmbTrimSeconds->setCurrentIndex(cmbTrimSeconds->count() - 1);
  form->addRow("SECONDS TO KEEP", cmbTrimSeconds);
  auto* row = new QHBoxLayout;
  cmdOK = NamedButton(row, this, "cmdOK", "OK");
  form->addRow(row);
  connect(cmdOK, &QPushButton::clicked, this, [this, &controller, &prompts] {
    RunGuarded(prompts, "cmdOK_Click", [&] {
      if (cmbTrimSeconds->currentIndex() >= 0) controller.TrimLogSeconds(cmbTrimSeconds->currentIndex() + 1);
    });
    accept();
  });
}

FrmShiftStrikeUpDown::FrmShiftStrikeUpDown(SeismicController& controller, UserPrompts& prompts, QWidget* parent)
    : QDialog(parent) {
  setObjectName("frmShiftStrikeUpDown");
  setWindowTitle("SHIFT WAVE");
  auto* layout = new QVBoxLayout(this);
  optShiftAStrike = Option(this, layout, "optShiftAStrike", "S(A) WAVE");
  optShiftBStrike = Option(this, layout, "optShiftBStrike", "S(B) WAVE");
  optShiftPStrike = Option(this, layout, "optShiftPStrike", "P WAVE");
  const SeismicStore& s = controller.Store();
  optShiftAStrike->setEnabled(s.HasStrike(kStrikeA, 1));
  optShiftBStrike->setEnabled(s.HasStrike(kStrikeB, 1));
  optShiftPStrike->setEnabled(s.HasStrike(kStrikeP, 1));
  // The last available of P, B, A is selected first.
  for (QRadioButton* option : {optShiftPStrike, optShiftBStrike, optShiftAStrike}) {
    if (option->isEnabled()) {
      option->setChecked(true);
      break;
    }
  }
  auto* row = new QHBoxLayout;
  cmdShiftUp = NamedButton(row, this, "cmdShiftUp", "UP");
  cmdShiftDown = NamedButton(row, this, "cmdShiftDown", "DOWN");
  cmdOK = NamedButton(row, this, "cmdOK", "OK");
  layout->addLayout(row);
  connect(cmdShiftUp, &QPushButton::clicked, this, [this, &controller, &prompts] {
    RunGuarded(prompts, "cmdShiftUp_Click", [&] { controller.ShiftLog(Kind(), true); });
  });
  connect(cmdShiftDown, &QPushButton::clicked, this, [this, &controller, &prompts] {
    RunGuarded(prompts, "cmdShiftDown_Click", [&] { controller.ShiftLog(Kind(), false); });
  });
  connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

int16_t FrmShiftStrikeUpDown::Kind() const {
  if (optShiftAStrike->isChecked()) return kStrikeA;
  if (optShiftBStrike->isChecked()) return kStrikeB;
  if (optShiftPStrike->isChecked()) return kStrikeP;
  return kNoStrike;
}

FrmScaleEnlargedSeismicGraph::FrmScaleEnlargedSeismicGraph(SeismicController& controller, UserPrompts& prompts,
                                                           QWidget* parent)
    : QDialog(parent) {
  setObjectName("frmScaleEnlargedSeismicGraph");
  setWindowTitle("SCALE");
  const SeismicViewState& v = controller.View();
  auto* form = new QFormLayout(this);
  txtXmin = Field(this, form, "txtXmin", "Xmin (mS)", QString::number(static_cast<int>(v.TimeStart)));
  txtXmax = Field(this, form, "txtXmax", "Xmax (mS)", QString::number(static_cast<int>(v.TimeEnd)));
  auto* row = new QHBoxLayout;
  cmdSetScale = NamedButton(row, this, "cmdSetScale", "SET SCALE");
  cmdResetScale = NamedButton(row, this, "cmdResetScale", "RESET SCALE");
  form->addRow(row);
  connect(cmdSetScale, &QPushButton::clicked, this, [this, &controller, &prompts] {
    RunGuarded(prompts, "cmdSetScale_Click", [&] {
      if (controller.SetScale(Text(txtXmin), Text(txtXmax))) accept();
    });
  });
  connect(cmdResetScale, &QPushButton::clicked, this, [this, &controller, &prompts] {
    RunGuarded(prompts, "cmdResetScale_Click", [&] { controller.ResetScale(); });
    accept();
  });
}

FrmAdjustSeismicDepth::FrmAdjustSeismicDepth(SeismicController& controller, UserPrompts& prompts, QWidget* parent)
    : QDialog(parent) {
  setObjectName("frmAdjustSeismicDepth");
  setWindowTitle("ADJUST DEPTHS");
  const QString unit = controller.Feet() ? "(ft)" : "(m)";
  auto* form = new QFormLayout(this);
  txtMeasuredDepth = Field(this, form, "txtMeasuredDepth", "MEASURED DEPTH " + unit, "0");
  txtTotalDepth = Field(this, form, "txtTotalDepth", "OBSERVED DEPTH " + unit, "0");
  form->addRow(OkCancelRow(this, cmdOK, cmdCancel));
  connect(cmdOK, &QPushButton::clicked, this, [this, &controller, &prompts] {
    RunGuarded(prompts, "cmdOK_Click", [&] {
      if (controller.AdjustDepth(Text(txtMeasuredDepth), Text(txtTotalDepth))) accept();
    });
  });
}

FrmSeismicChangeDepth::FrmSeismicChangeDepth(SeismicController& controller, UserPrompts& prompts, QWidget* parent)
    : QDialog(parent) {
  setObjectName("frmSeismicChangeDepth");
  setWindowTitle("CHANGE DEPTH");
  const SeismicController::DepthChangeTexts texts = controller.ChangeDepthTexts();
  auto* form = new QFormLayout(this);
  txtNewDepth = Field(this, form, "txtNewDepth", ToQString(texts.label), ToQString(texts.depth));
  lblGreaterThan = Named(new QLabel(ToQString(texts.more_than), this), "lblGreaterThan");
  lblLessThan = Named(new QLabel(ToQString(texts.less_than), this), "lblLessThan");
  form->addRow(lblGreaterThan);
  form->addRow(lblLessThan);
  form->addRow(OkCancelRow(this, cmdOK, cmdCancel));
  connect(cmdOK, &QPushButton::clicked, this, [this, &controller, &prompts] {
    RunGuarded(prompts, "cmdOK_Click", [&] {
      if (controller.ChangeDepth(Text(txtNewDepth))) accept();
    });
  });
}

FrmAppendOffset::FrmAppendOffset(bool sei, bool feet, QWidget* parent) : QDialog(parent) {
  setObjectName(sei ? "frmTYRAppendSEIOffset" : "frmAppendSMCOffset");
  setWindowTitle("DEPTH OFFSET");
  auto* form = new QFormLayout(this);
  txtOffset = Field(this, form, "txtOffset", feet ? "DEPTH OFFSET (ft)" : "DEPTH OFFSET (m)", "0");
  form->addRow(OkCancelRow(this, cmdOK, cmdCancel));
  connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
  connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

std::string QtAppendOffsetDialog::AskOffset(bool sei, bool feet) {
  FrmAppendOffset dialog(sei, feet, parent_);
  if (dialog.exec() != QDialog::Accepted) return {};
  return Text(dialog.txtOffset);
}

}  // namespace marlview
