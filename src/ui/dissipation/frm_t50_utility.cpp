// The T50 utility's window: the held buttons run a timer whose ticks move the lines.
#include "ui/dissipation/frm_t50_utility.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QVBoxLayout>

#include "core/dissipation/consolidation.h"
#include "core/session/session.h"
#include "ui/common/event_guard.h"
#include "ui/common/named.h"
#include "ui/common/qt_prompts.h"
#include "ui/dissipation/form2.h"
#include "ui/presentation/form4.h"

namespace marlview {

FrmT50Utility::FrmT50Utility(Form2& plot_window, QWidget* parent)
    : QDialog(parent, Qt::Tool), form_(plot_window) {
  setObjectName("frmT50Utility");
  setWindowTitle("T50 UTILITY");
  setModal(false);
  BuildControls();
  t50_ = StartT50(form_.Plot(), optStraightLineApproximation->isChecked() ? kU0StraightLine : kU0Manual);
  ShowScale();
  Connect();
  DrawLines();
}

FrmT50Utility::~FrmT50Utility() = default;

void FrmT50Utility::BuildControls() {
  auto* layout = new QVBoxLayout(this);
  auto* u0 = new QGroupBox("U0", this);
  auto* u0_layout = new QVBoxLayout(u0);
  optStraightLineApproximation =
      Named(new QRadioButton("STRAIGHT LINE APPROXIMATION", u0), "optStraightLineApproximation");
  optManualAdjustment = Named(new QRadioButton("MANUAL ADJUSTMENT", u0), "optManualAdjustment");
  optStraightLineApproximation->setChecked(true);
  u0_layout->addWidget(optStraightLineApproximation);
  u0_layout->addWidget(optManualAdjustment);
  layout->addWidget(u0);

  auto* moves = new QGridLayout;
  auto button = [&](const char* name, const QString& caption, int row, int column) {
    auto* created = Named(new QPushButton(caption, this), name);
    created->setAutoDefault(false);
    moves->addWidget(created, row, column);
    return created;
  };
  moves->addWidget(new QLabel("SLOPE LINE", this), 0, 0, 1, 2);
  cmdLeft = button("cmdLeft", "<< LEFT", 1, 0);
  cmdRight = button("cmdRight", "RIGHT >>", 1, 1);
  cmdCounterClockwise = button("cmdCounterClockwise", "ROTATE CCW", 2, 0);
  cmdClockwise = button("cmdClockwise", "ROTATE CW", 2, 1);
  moves->addWidget(new QLabel("U0 LINE", this), 3, 0);
  moves->addWidget(new QLabel("U100 LINE", this), 3, 1);
  cmdUpU0 = button("cmdUpU0", "UP", 4, 0);
  cmdUpU100 = button("cmdUpU100", "UP", 4, 1);
  cmdDownU0 = button("cmdDownU0", "DOWN", 5, 0);
  cmdDownU100 = button("cmdDownU100", "DOWN", 5, 1);
  layout->addLayout(moves);

  auto* values = new QGridLayout;
  auto value = [&](const char* name, int row) {
    auto* label = Named(new QLabel(this), name);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    values->addWidget(label, row, 0);
    return label;
  };
  lblU0 = value("lblU0", 0);
  lblU50 = value("lblU50", 1);
  lblU100 = value("lblU100", 2);
  lblT50 = value("lblT50", 3);
  layout->addLayout(values);

  auto* scale = new QGroupBox("PRESSURE AXIS", this);
  auto* scale_layout = new QGridLayout(scale);
  scale_layout->addWidget(new QLabel("MIN", scale), 0, 0);
  txtYmin = Named(new QLineEdit(scale), "txtYmin");
  scale_layout->addWidget(txtYmin, 0, 1);
  scale_layout->addWidget(new QLabel("MAX", scale), 1, 0);
  txtYmax = Named(new QLineEdit(scale), "txtYmax");
  scale_layout->addWidget(txtYmax, 1, 1);
  cmdSetScale = Named(new QPushButton("SET SCALE", scale), "cmdSetScale");
  cmdResetScale = Named(new QPushButton("RESET SCALE", scale), "cmdResetScale");
  scale_layout->addWidget(cmdSetScale, 2, 0);
  scale_layout->addWidget(cmdResetScale, 2, 1);
  layout->addWidget(scale);

  chkIncludeLinesOnPrintout =
      Named(new QCheckBox("INCLUDE LINES ON PRINTOUT", this), "chkIncludeLinesOnPrintout");
  chkIncludeLinesOnPrintout->setChecked(true);
  layout->addWidget(chkIncludeLinesOnPrintout);
  BuildChFrame(layout);
  auto* buttons = new QHBoxLayout;
  cmdPrint = NamedButton(buttons, this, "cmdPrint", "PRINT");
  cmdReturn = NamedButton(buttons, this, "cmdReturn", "RETURN");
  layout->addLayout(buttons);
  tmrRepeat = Named(new QTimer(this), "tmrRepeat");
  tmrRepeat->setInterval(kRepeatMilliseconds);
}

void FrmT50Utility::BuildChFrame(QLayout* layout) {
  auto* frame = Named(new QGroupBox("ch (Teh and Houlsby 1991)", this), "fraCh");
  auto* grid = new QGridLayout(frame);
  grid->addWidget(new QLabel("Rigidity index Ir", frame), 0, 0);
  txtRigidityIndex = Named(new QLineEdit("100", frame), "txtRigidityIndex");
  grid->addWidget(txtRigidityIndex, 0, 1);
  grid->addWidget(new QLabel("Cone area (cm\u00b2)", frame), 1, 0);
  txtConeArea = Named(new QLineEdit("10", frame), "txtConeArea");
  grid->addWidget(txtConeArea, 1, 1);
  grid->addWidget(new QLabel("Filter position", frame), 2, 0);
  cmbFilterPosition = Named(new QComboBox(frame), "cmbFilterPosition");
  // Entries in the order of FilterPosition.
  cmbFilterPosition->addItem("u2 (shoulder)");
  cmbFilterPosition->addItem("u1 (face)");
  grid->addWidget(cmbFilterPosition, 2, 1);
  chkRootTime = Named(new QCheckBox("square-root-time start correction", frame), "chkRootTime");
  grid->addWidget(chkRootTime, 3, 0, 1, 2);
  cmdCalculateCh = Named(new QPushButton("CALCULATE ch", frame), "cmdCalculateCh");
  cmdCalculateCh->setAutoDefault(false);
  grid->addWidget(cmdCalculateCh, 4, 0, 1, 2);
  lblChCm2PerSecond = Named(new QLabel(frame), "lblChCm2PerSecond");
  grid->addWidget(lblChCm2PerSecond, 5, 0);
  grid->addWidget(new QLabel("cm\u00b2/s", frame), 5, 1);
  lblChM2PerYear = Named(new QLabel(frame), "lblChM2PerYear");
  grid->addWidget(lblChM2PerYear, 6, 0);
  grid->addWidget(new QLabel("m\u00b2/year", frame), 6, 1);
  for (QLabel* value : {lblChCm2PerSecond, lblChM2PerYear}) {
    value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    value->setTextInteractionFlags(Qt::TextSelectableByMouse);
  }
  layout->addWidget(frame);
}

void FrmT50Utility::CalculateCh() {
  UserPrompts& prompts = form_.Prompts();
  ChRequest request;
  if (!ReadChInputs(txtRigidityIndex->text().toStdString(), txtConeArea->text().toStdString(),
                    cmbFilterPosition->currentIndex(), request.Inputs, prompts)) {
    return;
  }
  request.Test = form_.Plot().selection.LastSelected;
  request.U0 = t50_.U0;
  request.U100 = t50_.U100;
  request.RootTime = chkRootTime->isChecked();
  ComputeCh(form_.SessionOf().Dissipation(), request, prompts);
  ShowCh();
}

void FrmT50Utility::ShowCh() {
  const int test = form_.Plot().selection.LastSelected;
  if (test < 1 || test > kMaxDissipations) return;
  const ChTexts texts = ChResultTexts(form_.SessionOf().Dissipation().LastConsolidation[static_cast<size_t>(test)]);
  lblChCm2PerSecond->setText(ToQString(texts.PerSecondCm2));
  lblChM2PerYear->setText(ToQString(texts.PerYearM2));
}

void FrmT50Utility::Connect() {
  UserPrompts& prompts = form_.Prompts();
  const std::pair<QPushButton*, int> held[] = {
      {cmdLeft, kMoveLeft},       {cmdRight, kMoveRight}, {cmdCounterClockwise, kCounterClockwise},
      {cmdClockwise, kClockwise}, {cmdUpU100, kUpU100},   {cmdDownU100, kDownU100},
      {cmdUpU0, kUpU0},           {cmdDownU0, kDownU0},
  };
  for (const auto& [button, code] : held) {
    connect(button, &QPushButton::pressed, this, [this, code = code] {
      PressRepeat(t50_, code);
      tmrRepeat->start();
    });
    connect(button, &QPushButton::released, this, [this] {
      tmrRepeat->stop();
      ReleaseRepeat(t50_);
    });
  }
  connect(tmrRepeat, &QTimer::timeout, this, [this, &prompts] {
    RunGuarded(prompts, "tmrRepeat_Timer", [&] {
      RepeatTick(t50_, form_.Plot());
      DrawLines();
    });
  });
  auto mode = [this, &prompts](int16_t which) {
    RunGuarded(prompts, "optU0Mode_Click", [&] {
      t50_.U0Mode = which;
      DrawLines();
    });
  };
  connect(optStraightLineApproximation, &QRadioButton::clicked, this, [mode] { mode(kU0StraightLine); });
  connect(optManualAdjustment, &QRadioButton::clicked, this, [mode] { mode(kU0Manual); });
  connect(cmdSetScale, &QPushButton::clicked, this, [this, &prompts] {
    RunGuarded(prompts, "cmdSetScale_Click", [&] {
      if (SetT50Scale(form_.Plot(), txtYmin->text().toStdString(), txtYmax->text().toStdString(), prompts)) {
        form_.Repaint();
      }
      ShowScale();
    });
  });
  connect(cmdResetScale, &QPushButton::clicked, this, [this, &prompts] {
    RunGuarded(prompts, "cmdResetScale_Click", [&] {
      form_.Plot().ManualScale = false;
      form_.Repaint();
      ShowScale();
    });
  });
  connect(cmdPrint, &QPushButton::clicked, this, [this, &prompts] {
    RunGuarded(prompts, "cmdPrint_Click", [&] {
      t50_.IncludeLines = chkIncludeLinesOnPrintout->isChecked();
      form_.PrintPlot(t50_.IncludeLines);
    });
  });
  connect(cmdReturn, &QPushButton::clicked, this, [this] { close(); });
  connect(cmdCalculateCh, &QPushButton::clicked, this,
          [this, &prompts] { RunGuarded(prompts, "cmdCalculateCh_Click", [&] { CalculateCh(); }); });
}

void FrmT50Utility::closeEvent(QCloseEvent* event) {
  tmrRepeat->stop();
  if (!returned_) {
    returned_ = true;
    // cmdReturn: the plot goes back to its autoscale without the lines.
    DissipationPlotState& plot = form_.Plot();
    plot.ManualScale = false;
    plot.overlay.reset();
    form_.picPlot->update();
  }
  QDialog::closeEvent(event);
}

void FrmT50Utility::FollowPlot() {
  if (returned_) return;
  RescaleT50(t50_, form_.Plot(), form_.SessionOf().Dissipation());
  DrawLines();
}

void FrmT50Utility::DrawLines() {
  DissipationSet& set = form_.SessionOf().Dissipation();
  DrawSlopeLine(t50_, form_.Plot(), set);
  NoteT50(t50_, set, form_.Plot().selection.LastSelected);
  ShowCh();
  const T50Lines& lines = t50_.lines;
  lblU0->setText(ToQString(lines.u0_text));
  lblU50->setText(ToQString(lines.u50_text));
  lblU100->setText(ToQString(lines.u100_text));
  lblT50->setText(ToQString(lines.t50_text));
  form_.picPlot->update();
}

void FrmT50Utility::ShowScale() {
  txtYmin->setText(ToQString(T50ScaleText(form_.Plot().PressureMin)));
  txtYmax->setText(ToQString(T50ScaleText(form_.Plot().PressureMax)));
}

}  // namespace marlview
