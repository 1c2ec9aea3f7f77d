// frmEnlargedSeismicGraph, the enlarged waveform workbench.
#include "ui/seismic/frm_enlarged_seismic_graph.h"

#include <QAction>
#include <QButtonGroup>
#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "core/seismic/seismic_plots.h"
#include "ui/common/event_guard.h"
#include "ui/common/named.h"
#include "ui/common/qt_prompts.h"
#include "ui/presentation/printer_print_job.h"
#include "ui/presentation/widget_surface.h"
#include "ui/seismic/seismic_dialogs.h"
#include "ui/seismic/seismic_export_dialogs.h"
#include "ui/seismic/seisform.h"

namespace marlview {
namespace {

// The interval of the hold-to-filter timer: fast enough to watch the wave settle.
constexpr int kFilterTimerMs = 120;

QLabel* DataLabel(QGridLayout* grid, QWidget* parent, int row, const char* caption, const char* name) {
  grid->addWidget(new QLabel(caption, parent), row, 0);
  auto* label = Named(new QLabel(parent), name);
  grid->addWidget(label, row, 1);
  return label;
}

}  // namespace

FrmEnlargedSeismicGraph::FrmEnlargedSeismicGraph(Session& session, UserPrompts& prompts, SeismicController& controller,
                                                 QWidget* parent)
    : QMainWindow(parent), session_(session), prompts_(prompts), controller_(controller) {
  setObjectName("frmEnlargedSeismicGraph");
  setWindowTitle("SEISMIC WAVE");
  setWindowFlag(Qt::Window);
  BuildControls();
  BuildMenus();
  Connect();
  resize(1100, 720);
}

void FrmEnlargedSeismicGraph::BuildControls() {
  auto* central = new QWidget(this);
  auto* layout = new QHBoxLayout(central);
  auto* left = new QVBoxLayout;
  auto* heading = new QHBoxLayout;
  lblFileName = Named(new QLabel(central), "lblFileName");
  lblDepth = Named(new QLabel(central), "lblDepth");
  heading->addWidget(lblFileName);
  heading->addStretch(1);
  heading->addWidget(lblDepth);
  left->addLayout(heading);
  Picture1 = Named(new SeismicPicture(central), "Picture1");
  Picture1->setMouseTracking(true);
  Picture1->setMinimumSize(600, 380);
  left->addWidget(Picture1, 1);
  lblXUnits = Named(new QLabel("Time (mS)", central), "lblXUnits");
  lblXUnits->setAlignment(Qt::AlignCenter);
  left->addWidget(lblXUnits);

  auto* shifts = new QHBoxLayout;
  cmdShiftLeftGross = NamedButton(shifts, central, "cmdShiftLeftGross", "<<");
  cmdShiftLeftFine = NamedButton(shifts, central, "cmdShiftLeftFine", "<");
  cmdShiftRightFine = NamedButton(shifts, central, "cmdShiftRightFine", ">");
  cmdShiftRightGross = NamedButton(shifts, central, "cmdShiftRightGross", ">>");
  shifts->addSpacing(20);
  cmdShiftUp = NamedButton(shifts, central, "cmdShiftUp", "UP");
  cmdShiftDown = NamedButton(shifts, central, "cmdShiftDown", "DOWN");
  shifts->addSpacing(20);
  cmdFilter = NamedButton(shifts, central, "cmdFilter", "FILTER (HOLD)");
  cmdEnhancePlus = NamedButton(shifts, central, "cmdEnhancePlus", "ENHANCE +");
  cmdEnhanceMinus = NamedButton(shifts, central, "cmdEnhanceMinus", "ENHANCE -");
  left->addLayout(shifts);

  auto* navigation = new QHBoxLayout;
  cmdPreviousGraph = NamedButton(navigation, central, "cmdPreviousGraph", "PREVIOUS");
  cmdNextGraph = NamedButton(navigation, central, "cmdNextGraph", "NEXT");
  cmdShowHideReference = NamedButton(navigation, central, "cmdShowHideReference", "SHOW/HIDE REFERENCE");
  navigation->addStretch(1);
  cmdArrivalLeft = NamedButton(navigation, central, "cmdArrivalLeft", "ARRIVAL <");
  cmdArrivalRight = NamedButton(navigation, central, "cmdArrivalRight", "ARRIVAL >");
  cmdResetWave = NamedButton(navigation, central, "cmdResetWave", "RESET ARRIVAL");
  left->addLayout(navigation);
  layout->addLayout(left, 1);

  auto* side = new QVBoxLayout;
  auto* strikes = Named(new QGroupBox("WAVE TO EDIT", central), "fraSelectStrike");
  auto* strikes_layout = new QVBoxLayout(strikes);
  auto* strike_group = new QButtonGroup(this);
  auto option = [](QWidget* parent, QVBoxLayout* into, QButtonGroup* group, const char* name, const char* caption) {
    auto* button = Named(new QRadioButton(caption, parent), name);
    into->addWidget(button);
    group->addButton(button);
    return button;
  };
  optAStrike = option(strikes, strikes_layout, strike_group, "optAStrike", "S(A)");
  optBStrike = option(strikes, strikes_layout, strike_group, "optBStrike", "S(B)");
  optPStrike = option(strikes, strikes_layout, strike_group, "optPStrike", "P");
  side->addWidget(strikes);
  auto* arrivals = Named(new QGroupBox("ARRIVAL ON", central), "fraArrivalStrike");
  auto* arrivals_layout = new QVBoxLayout(arrivals);
  auto* arrival_group = new QButtonGroup(this);
  optArrivalAStrike = option(arrivals, arrivals_layout, arrival_group, "optArrivalAStrike", "S(A)");
  optArrivalBStrike = option(arrivals, arrivals_layout, arrival_group, "optArrivalBStrike", "S(B)");
  optArrivalPStrike = option(arrivals, arrivals_layout, arrival_group, "optArrivalPStrike", "P");
  side->addWidget(arrivals);

  auto* data_box = new QGroupBox("DATA", central);
  auto* grid = new QGridLayout(data_box);
  lblTestDepthData = DataLabel(grid, data_box, 0, "Depth", "lblTestDepthData");
  lblRefTestDepthData = DataLabel(grid, data_box, 1, "Reference depth", "lblRefTestDepthData");
  lblRefTestDelayData = DataLabel(grid, data_box, 2, "Reference delay (mS)", "lblRefTestDelayData");
  lblDelayData = DataLabel(grid, data_box, 3, "Delay (mS)", "lblDelayData");
  lblAmplitudeData = DataLabel(grid, data_box, 4, "Amplitude", "lblAmplitudeData");
  lblVelocityData = DataLabel(grid, data_box, 5, "Velocity", "lblVelocityData");
  side->addWidget(data_box);
  for (QLabel** label : {&lblSAGeophone, &lblSBGeophone, &lblPGeophone, &lblSAOffset, &lblSBOffset, &lblPOffset}) {
    *label = new QLabel(central);
    side->addWidget(*label);
  }
  lblSAGeophone->setObjectName("lblSAGeophone");
  lblSBGeophone->setObjectName("lblSBGeophone");
  lblPGeophone->setObjectName("lblPGeophone");
  lblSAOffset->setObjectName("lblSAOffset");
  lblSBOffset->setObjectName("lblSBOffset");
  lblPOffset->setObjectName("lblPOffset");
  pctZoom = Named(new SeismicPicture(central), "pctZoom");
  pctZoom->setFixedSize(240, 160);
  side->addWidget(pctZoom);
  side->addStretch(1);
  layout->addLayout(side);
  setCentralWidget(central);

  tmrFilter = Named(new QTimer(this), "tmrFilter");
  tmrFilter->setInterval(kFilterTimerMs);

  Picture1->on_paint = [this] {
    WidgetSurface g(Picture1);
    controller_.UpdateWorkbenchRange();
    marlview::GraphStrike(g, Picture1->width(), Picture1->height(), controller_);
  };
  pctZoom->on_paint = [this] {
    WidgetSurface g(pctZoom);
    const SeismicStore& s = controller_.Store();
    const int test = controller_.View().ShownTest;
    const bool picked = !controller_.IsLog() && test >= 1 && test <= s.TestCount && s.ArrivalSample[test] > 0;
    const int center = picked ? static_cast<int>(s.ArrivalSample[test]) : controller_.View().CursorSample;
    ShowZoom(g, pctZoom->width(), pctZoom->height(), controller_, center);
  };
}

void FrmEnlargedSeismicGraph::BuildMenus() {
  QMenu* file = menuBar()->addMenu("&File");
  file->setObjectName("mnuFile");
  mnuIncludeCoverSheet = NamedAction(file, "mnuIncludeCoverSheet", "Print with &Cover Sheet...");
  mnuNoCoverSheet = NamedAction(file, "mnuNoCoverSheet", "&Print without Cover Sheet...");
  file->addSeparator();
  mnuExportASCII = NamedAction(file, "mnuExportASCII", "Export as &Text...");
  mnuExportCSV = NamedAction(file, "mnuExportCSV", "Export as CS&V...");
  file->addSeparator();
  mnuReturnToMainSeismic = NamedAction(file, "mnuReturnToMainSeismic", "&Return to Seismic Log");
  QMenu* edit = menuBar()->addMenu("&Edit");
  edit->setObjectName("mnuEdit");
  mnuScale = NamedAction(edit, "mnuScale", "&Scale...");
  mnuTrimStrike = NamedAction(edit, "mnuTrimStrike", "&Trim...");
  mnuEditDepth = NamedAction(edit, "mnuEditDepth", "Change &Depth...");
  edit->addSeparator();
  mnuSwitchSAtoSB = NamedAction(edit, "mnuSwitchSAtoSB", "Switch S(A) to S(B)");
  mnuSwitchSBtoSA = NamedAction(edit, "mnuSwitchSBtoSA", "Switch S(B) to S(A)");
  mnuSwitchSAandSB = NamedAction(edit, "mnuSwitchSAandSB", "Swap S(A) and S(B)");
  mnuCloneSAtoSB = NamedAction(edit, "mnuCloneSAtoSB", "Clone S(A) to S(B)");
  mnuCloneSBtoSA = NamedAction(edit, "mnuCloneSBtoSA", "Clone S(B) to S(A)");
  edit->addSeparator();
  mnuRemoveAStrike = NamedAction(edit, "mnuRemoveAStrike", "Remove S(A) Wave");
  mnuRemoveBStrike = NamedAction(edit, "mnuRemoveBStrike", "Remove S(B) Wave");
  mnuRemovePStrike = NamedAction(edit, "mnuRemovePStrike", "Remove P Wave");
  mnuRemoveAllStrikes = NamedAction(edit, "mnuRemoveAllStrikes", "Remove This Test");
}

void FrmEnlargedSeismicGraph::Handle(const char* source, const std::function<void()>& handler) {
  RunGuarded(prompts_, source, handler);
  if (auto* log = qobject_cast<Seisform*>(parent())) {
    log->Refresh();
  } else {
    Refresh();
  }
}

// Closing the window hides it; the log window keeps it for the next double click.
void FrmEnlargedSeismicGraph::closeEvent(QCloseEvent* event) {
  tmrFilter->stop();
  controller_.CloseWorkbench();
  event->accept();
}

int FrmEnlargedSeismicGraph::SampleAtX(double x) const {
  const SeismicViewState& v = controller_.View();
  const double time = v.TimeStart + x / std::max(1, Picture1->width()) * (v.TimeEnd - v.TimeStart);
  return controller_.SampleAtTime(time);
}

void FrmEnlargedSeismicGraph::Connect() {
  auto click = [this](QPushButton* button, const char* source, std::function<void()> handler) {
    connect(button, &QPushButton::clicked, this, [this, source, handler] { Handle(source, handler); });
  };
  auto menu = [this](QAction* action, const char* source, std::function<void()> handler) {
    connect(action, &QAction::triggered, this, [this, source, handler] { Handle(source, handler); });
  };
  auto select = [this](QRadioButton* option, const char* source, int16_t kind) {
    connect(option, &QRadioButton::clicked, this, [this, source, kind] {
      Handle(source, [this, kind] { controller_.SelectStrike(kind); });
    });
  };
  select(optAStrike, "optAStrike_Click", kStrikeA);
  select(optBStrike, "optBStrike_Click", kStrikeB);
  select(optPStrike, "optPStrike_Click", kStrikeP);
  auto arrival = [this](QRadioButton* option, const char* source, int16_t kind) {
    connect(option, &QRadioButton::clicked, this, [this, source, kind] {
      Handle(source, [this, kind] { controller_.ChooseArrivalStrike(kind); });
    });
  };
  arrival(optArrivalAStrike, "optArrivalAStrike_Click", kStrikeA);
  arrival(optArrivalBStrike, "optArrivalBStrike_Click", kStrikeB);
  arrival(optArrivalPStrike, "optArrivalPStrike_Click", kStrikeP);

  // Held down, the filter smooths further at each tick of the timer; a click smooths once.
  connect(cmdFilter, &QPushButton::pressed, this, [this] {
    ticks_while_held_ = 0;
    tmrFilter->start();
  });
  connect(cmdFilter, &QPushButton::released, this, [this] {
    tmrFilter->stop();
    if (ticks_while_held_ == 0) Handle("tmrFilter_Timer", [this] { controller_.FilterTick(); });
  });
  connect(tmrFilter, &QTimer::timeout, this, [this] {
    ++ticks_while_held_;
    Handle("tmrFilter_Timer", [this] { controller_.FilterTick(); });
  });
  click(cmdEnhancePlus, "cmdEnhancePlus_Click", [this] { controller_.EnhanceStep(true); });
  click(cmdEnhanceMinus, "cmdEnhanceMinus_Click", [this] { controller_.EnhanceStep(false); });
  click(cmdShiftUp, "cmdShiftUp_Click", [this] { controller_.ShiftUpDown(true); });
  click(cmdShiftDown, "cmdShiftDown_Click", [this] { controller_.ShiftUpDown(false); });
  click(cmdShiftLeftFine, "cmdShiftLeftFine_Click", [this] { controller_.Nudge(-1); });
  click(cmdShiftRightFine, "cmdShiftRightFine_Click", [this] { controller_.Nudge(1); });
  click(cmdShiftLeftGross, "cmdShiftLeftGross_Click", [this] { controller_.Nudge(-20); });
  click(cmdShiftRightGross, "cmdShiftRightGross_Click", [this] { controller_.Nudge(20); });
  click(cmdArrivalLeft, "cmdArrivalLeft_Click", [this] { controller_.ArrivalLeft(); });
  click(cmdArrivalRight, "cmdArrivalRight_Click", [this] { controller_.ArrivalRight(); });
  click(cmdResetWave, "cmdResetWave_Click", [this] { controller_.ResetWave(); });
  click(cmdPreviousGraph, "cmdPreviousGraph_Click", [this] { controller_.PreviousTest(); });
  click(cmdNextGraph, "cmdNextGraph_Click", [this] { controller_.NextTest(); });
  click(cmdShowHideReference, "cmdShowHideReference_Click", [this] { controller_.ToggleReference(); });

  menu(mnuExportASCII, "mnuExportASCII_Click", [this] {
    FrmExportSingleSeismicTXT(controller_.Store(), controller_.View().ShownTest, prompts_, this).exec();
  });
  menu(mnuExportCSV, "mnuExportCSV_Click", [this] {
    FrmExportSingleSeismicCSV(controller_.Store(), controller_.View().ShownTest, prompts_, this).exec();
  });
  menu(mnuScale, "mnuScale_Click", [this] { FrmScaleEnlargedSeismicGraph(controller_, prompts_, this).exec(); });
  menu(mnuTrimStrike, "mnuTrimStrike_Click", [this] { FrmTrimSeismicGraph(controller_, prompts_, this).exec(); });
  menu(mnuEditDepth, "mnuEditDepth_Click", [this] { FrmSeismicChangeDepth(controller_, prompts_, this).exec(); });
  menu(mnuSwitchSAtoSB, "mnuSwitchSAtoSB_Click", [this] { controller_.SwitchAtoB(); });
  menu(mnuSwitchSBtoSA, "mnuSwitchSBtoSA_Click", [this] { controller_.SwitchBtoA(); });
  menu(mnuSwitchSAandSB, "mnuSwitchSAandSB_Click", [this] { controller_.SwapAandB(); });
  menu(mnuCloneSAtoSB, "mnuCloneSAtoSB_Click", [this] { controller_.CloneAtoB(); });
  menu(mnuCloneSBtoSA, "mnuCloneSBtoSA_Click", [this] { controller_.CloneBtoA(); });
  menu(mnuRemoveAStrike, "mnuRemoveAStrike_Click", [this] { controller_.RemoveStrikeOfTest(kStrikeA); });
  menu(mnuRemoveBStrike, "mnuRemoveBStrike_Click", [this] { controller_.RemoveStrikeOfTest(kStrikeB); });
  menu(mnuRemovePStrike, "mnuRemovePStrike_Click", [this] { controller_.RemoveStrikeOfTest(kStrikeP); });
  menu(mnuRemoveAllStrikes, "mnuRemoveAllStrikes_Click", [this] { controller_.RemoveAllStrikesOfTest(); });
  const auto print = [this](bool cover) {
    controller_.View().CoverSheet = cover;
    PrintWithDialog(this, [this](PrintJob& job) { PrintWorkbench(job, session_, controller_); });
  };
  menu(mnuIncludeCoverSheet, "mnuIncludeCoverSheet_Click", [print] { print(true); });
  menu(mnuNoCoverSheet, "mnuNoCoverSheet_Click", [print] { print(false); });
  menu(mnuReturnToMainSeismic, "mnuReturnToMainSeismic_Click", [this] {
    controller_.CloseWorkbench();
    hide();
  });

  Picture1->on_mouse_move = [this](QPointF at) {
    controller_.View().CursorSample = SampleAtX(at.x());
    pctZoom->update();
  };
  Picture1->on_mouse_down = [this](QPointF at, Qt::MouseButton button, Qt::KeyboardModifiers modifiers) {
    Handle("Picture1_MouseDown", [&] {
      const int sample = SampleAtX(at.x());
      controller_.Click(sample, modifiers == Qt::ShiftModifier, button == Qt::RightButton);
    });
  };
}

void FrmEnlargedSeismicGraph::Refresh() {
  const SeismicStore& s = controller_.Store();
  const SeismicViewState& v = controller_.View();
  const bool log = controller_.IsLog();
  const WorkbenchCaptions c = controller_.Captions();
  lblFileName->setText(ToQString(c.heading_file));
  lblDepth->setText(ToQString(c.heading_depth));
  lblXUnits->setText(ToQString(c.x_units));
  lblSAGeophone->setText(ToQString(c.sa_geophone));
  lblSBGeophone->setText(ToQString(c.sb_geophone));
  lblPGeophone->setText(ToQString(c.p_geophone));
  lblSAOffset->setText(ToQString(c.sa_offset));
  lblSBOffset->setText(ToQString(c.sb_offset));
  lblPOffset->setText(ToQString(c.p_offset));
  lblTestDepthData->setText(ToQString(c.test_depth));
  lblRefTestDepthData->setText(ToQString(c.ref_depth));
  lblRefTestDelayData->setText(ToQString(c.ref_delay));
  lblDelayData->setText(ToQString(c.delay));
  lblAmplitudeData->setText(ToQString(c.amplitude));
  lblVelocityData->setText(ToQString(c.velocity));
  const bool a = controller_.StrikePresent(kStrikeA), b = controller_.StrikePresent(kStrikeB),
             p = controller_.StrikePresent(kStrikeP);
  const std::pair<QRadioButton*, bool> options[] = {{optAStrike, a}, {optBStrike, b}, {optPStrike, p},
                                                    {optArrivalAStrike, a && !log}, {optArrivalBStrike, b && !log},
                                                    {optArrivalPStrike, p && !log}};
  for (const auto& [option, enabled] : options) option->setEnabled(enabled);
  optAStrike->setChecked(v.SelectedStrike == kStrikeA);
  optBStrike->setChecked(v.SelectedStrike == kStrikeB);
  optPStrike->setChecked(v.SelectedStrike == kStrikeP);
  const int test = v.ShownTest;
  const int kind = !log && test >= 1 && test <= s.TestCount ? s.ArrivalKind[test] : kNoStrike;
  for (QRadioButton* option : {optArrivalAStrike, optArrivalBStrike, optArrivalPStrike}) {
    option->setAutoExclusive(false);
    option->setChecked(false);
    option->setAutoExclusive(true);
  }
  if (kind == kStrikeA) optArrivalAStrike->setChecked(true);
  if (kind == kStrikeB) optArrivalBStrike->setChecked(true);
  if (kind == kStrikeP) optArrivalPStrike->setChecked(true);
  cmdArrivalLeft->setVisible(v.ArrivalControlsVisible && !log);
  cmdArrivalRight->setVisible(v.ArrivalControlsVisible && !log);
  cmdArrivalLeft->setEnabled(v.ArrivalLeftEnabled);
  cmdArrivalRight->setEnabled(v.ArrivalRightEnabled);
  cmdResetWave->setEnabled(!log);
  cmdPreviousGraph->setEnabled(controller_.PreviousEnabled());
  cmdNextGraph->setEnabled(controller_.NextEnabled());
  for (QPushButton* button : {cmdFilter, cmdEnhancePlus, cmdEnhanceMinus, cmdShiftUp, cmdShiftDown, cmdShiftLeftFine,
                              cmdShiftRightFine, cmdShiftLeftGross, cmdShiftRightGross, cmdShowHideReference}) {
    button->setEnabled(!log);
  }
  const int strikes = (a ? 1 : 0) + (b ? 1 : 0) + (p ? 1 : 0);
  mnuSwitchSAtoSB->setEnabled(a && !log);
  mnuSwitchSBtoSA->setEnabled(b && !log);
  mnuSwitchSAandSB->setEnabled(a && b && !log);
  mnuCloneSAtoSB->setEnabled(a && !log);
  mnuCloneSBtoSA->setEnabled(b && !log);
  mnuRemoveAStrike->setEnabled(a && strikes > 1 && !log);
  mnuRemoveBStrike->setEnabled(b && strikes > 1 && !log);
  mnuRemovePStrike->setEnabled(p && strikes > 1 && !log);
  mnuRemoveAllStrikes->setEnabled(!log);
  mnuScale->setEnabled(!log);
  mnuTrimStrike->setEnabled(!log);
  mnuEditDepth->setEnabled(!log);
  setWindowTitle(ToQString("SEISMIC WAVE: " + c.heading_file.substr(c.heading_file.find(' ') + 1)));
  Picture1->update();
  pctZoom->update();
}

}  // namespace marlview
