// The sounding plot window: widgets named as the controls they are; the plot, the read-out and
// every dialog's logic belong to the plot engine.
#include "ui/presentation/form4.h"

#include <QAction>
#include <QCloseEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "core/common/number_format.h"
#include "core/common/runtime_failure.h"
#include "core/editing/edit_operations.h"
#include "core/presentation/sounding_report.h"
#include "core/session/session.h"
#include "ui/common/event_guard.h"
#include "ui/common/named.h"
#include "ui/common/qt_prompts.h"
#include "ui/editing/parameter_dialogs_ui.h"
#include "ui/presentation/frm_enlarged_tip_graph.h"
#include "ui/presentation/plot_dialogs.h"
#include "ui/presentation/printer_print_job.h"
#include "ui/presentation/widget_surface.h"
#include "ui/settings/frm_print_settings.h"
#include "ui/settings/settings_windows.h"

namespace marlview {
namespace {

constexpr double kCentimetresPerInch = 2.54;

}  // namespace

PlotPicture::PlotPicture(QWidget* parent) : QWidget(parent) {
  setMouseTracking(true);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setMinimumSize(320, 240);
}

void PlotPicture::paintEvent(QPaintEvent*) {
  if (on_paint) on_paint();
}

void PlotPicture::mouseMoveEvent(QMouseEvent* event) {
  if (on_mouse_move) on_mouse_move(event->position());
}

void PlotPicture::leaveEvent(QEvent*) {
  if (on_mouse_leave) on_mouse_leave();
}

Form4::Form4(Session& session, UserPrompts& prompts, std::vector<int> channels, int sbt_chart_choice,
             std::function<void()> on_return, QWidget* parent)
    : QMainWindow(parent), session_(session), prompts_(prompts), on_return_(std::move(on_return)) {
  setObjectName("Form4");
  setWindowTitle(ToQString("SOUNDING PLOT: " + session_.Sounding().SoundingFileName));
  SetupPlot(plot_, session_, channels, sbt_chart_choice);
  session_.flags.PlotWindowOpen = true;
  BuildControls();
  BuildMenus();
  Connect();
  UpdateControls();
  resize(900, 700);
}

Form4::~Form4() {
  if (open_) session_.flags.PlotWindowOpen = false;
}

void Form4::closeEvent(QCloseEvent* event) {
  open_ = false;
  session_.flags.PlotWindowOpen = false;
  QMainWindow::closeEvent(event);
}

void Form4::BuildControls() {
  auto* central = new QWidget(this);
  auto* layout = new QVBoxLayout(central);
  picPlot = Named(new PlotPicture(central), "picPlot");
  layout->addWidget(picPlot, 1);

  auto* readout = new QGridLayout;
  readout->addWidget(new QLabel("DEPTH", central), 0, 0);
  lblDepth = Named(new QLabel(central), "lblDepth");
  readout->addWidget(lblDepth, 1, 0);
  const SoundingStore& store = session_.Sounding();
  for (int i = 1; i <= plot_.PlotChannelCount; ++i) {
    readout->addWidget(new QLabel(ToQString(store.ChannelShortName[plot_.PlotChannels[i]]), central), 0, i);
    lblChannelValue.push_back(Named(new QLabel(central), "lblChannelValue"));
    readout->addWidget(lblChannelValue.back(), 1, i);
  }
  for (int column = 0; column <= plot_.PlotChannelCount; ++column) readout->setColumnStretch(column, 1);
  layout->addLayout(readout);

  auto* bottom = new QHBoxLayout;
  bottom->addWidget(new QLabel("SLEEVE OFFSET (cm):", central));
  lblFrictionOffsetCM = Named(new QLabel(central), "lblFrictionOffsetCM");
  bottom->addWidget(lblFrictionOffsetCM);
  bottom->addWidget(new QLabel("(in):", central));
  lblFrictionOffsetIn = Named(new QLabel(central), "lblFrictionOffsetIn");
  bottom->addWidget(lblFrictionOffsetIn);
  bottom->addStretch(1);
  // The instructions of the plot's own rod break mode, which this version leaves to the rod break
  // tool: kept with the window, not shown.
  lblRodBreakInstructions = Named(new QLabel(kRodBreakInstructions, central), "lblRodBreakInstructions");
  lblRodBreakInstructions->setWordWrap(true);
  lblRodBreakInstructions->hide();
  bottom->addWidget(lblRodBreakInstructions);
  // For sets of soundings, which this version does not plot.
  cmdPreviousTest = Named(new QPushButton("<< PREVIOUS", central), "cmdPreviousTest");
  cmdNextTest = Named(new QPushButton("NEXT >>", central), "cmdNextTest");
  cmdPreviousTest->hide();
  cmdNextTest->hide();
  bottom->addWidget(cmdPreviousTest);
  bottom->addWidget(cmdNextTest);
  layout->addLayout(bottom);
  setCentralWidget(central);
}

void Form4::BuildMenus() {
  QMenu* file = menuBar()->addMenu("&File");
  file->setObjectName("mnuFile");
  mnuPrint = NamedAction(file, "mnuPrint", "&Print...");
  mnuPrintPreview = NamedAction(file, "mnuPrintPreview", "Print Pre&view...");
  mnuPrintSettings = NamedAction(file, "mnuPrintSettings", "Print &Settings...");
  mnuSaveAs = NamedAction(file, "mnuSaveAs", "Save &As...");
  mnuSaveAs->setVisible(SoundingSaveOffered(session_.Sounding()));
  file->addSeparator();
  mnuReturn = NamedAction(file, "mnuReturn", "&Return to Main Form");

  QMenu* edit = menuBar()->addMenu("&Edit");
  edit->setObjectName("mnuEditMenu");
  mnuEdit = NamedAction(edit, "mnuEdit", "&Edit Sounding...");
  mnuRemoveRodBreaks = NamedAction(edit, "mnuRemoveRodBreaks", kRemoveRodBreaksMenuCaption);
  mnuAddComments = NamedAction(edit, "mnuAddComments", "Add &Comments...");
  mnuWaterTable = NamedAction(edit, "mnuWaterTable", "&Water Table Depth...");
  mnuWetDensity = NamedAction(edit, "mnuWetDensity", "Wet &Density...");

  QMenu* scale = menuBar()->addMenu("&Scale");
  scale->setObjectName("mnuScaleMenu");
  mnuScale = NamedAction(scale, "mnuScale", "&Scale Sounding...");

  QMenu* view = menuBar()->addMenu("&View");
  view->setObjectName("mnuView");
  mnuGridOn = NamedAction(view, "mnuGridOn", "Grid &On");
  mnuGridOff = NamedAction(view, "mnuGridOff", "Grid O&ff");
  view->addSeparator();
  mnuMeters = NamedAction(view, "mnuMeters", "&Meters");
  mnuFeet = NamedAction(view, "mnuFeet", "&Feet");
  view->addSeparator();
  mnuDepth = NamedAction(view, "mnuDepth", "&Depth");
  mnuElevation = NamedAction(view, "mnuElevation", "&Elevation");
  view->addSeparator();
  mnuAdjustLogo = NamedAction(view, "mnuAdjustLogo", "Adjust &Logo...");
  for (QAction* action : {mnuGridOn, mnuGridOff, mnuMeters, mnuFeet, mnuDepth, mnuElevation}) {
    action->setCheckable(true);
  }
}

void Form4::Handle(const char* source, const std::function<void()>& handler) {
  RunGuarded(prompts_, source, handler);
  UpdateControls();
  Repaint();
}

void Form4::Connect() {
  picPlot->on_paint = [this] { PaintPlot(); };
  picPlot->on_mouse_move = [this](QPointF at) {
    RunGuarded(prompts_, "picPlot_MouseMove", [&] { ShowReadout(at); });
  };
  picPlot->on_mouse_leave = [this] { RunGuarded(prompts_, "picPlot_MouseLeave", [&] { ClearReadout(); }); };

  auto on = [this](QAction* action, const char* source, std::function<void()> handler) {
    connect(action, &QAction::triggered, this,
            [this, source, handler = std::move(handler)] { Handle(source, handler); });
  };
  on(mnuScale, "mnuScale_Click", [this] { FrmScaleSounding(plot_, session_, prompts_, this).exec(); });
  on(mnuAddComments, "mnuAddComments_Click", [this] { FrmComments(plot_, session_, prompts_, this).exec(); });
  on(mnuWaterTable, "mnuWaterTable_Click",
     [this] { FrmChangeWaterTableDepth(session_, prompts_, this).exec(); });
  on(mnuWetDensity, "mnuWetDensity_Click", [this] { FrmWetDensity(session_, prompts_, this).exec(); });
  on(mnuPrint, "mnuPrint_Click",
     [this] { PrintWithDialog(this, [this](PrintJob& job) { PrintPages(job); }); });
  on(mnuPrintPreview, "mnuPrintPreview_Click",
     [this] { PrintPreview(this, [this](PrintJob& job) { PrintPages(job); }); });
  on(mnuGridOn, "mnuGridOn_Click", [this] { plot_.GridOn = true; });
  on(mnuGridOff, "mnuGridOff_Click", [this] { plot_.GridOn = false; });
  on(mnuMeters, "mnuMeters_Click", [this] { SetDepthUnit(1); });
  on(mnuFeet, "mnuFeet_Click", [this] { SetDepthUnit(2); });
  on(mnuElevation, "mnuElevation_Click", [this] { plot_.ElevationMode = true; });
  on(mnuDepth, "mnuDepth_Click", [this] { plot_.ElevationMode = false; });
  on(mnuAdjustLogo, "mnuAdjustLogo_Click", [this] {
    FrmAdjustLogo(session_, prompts_, ReportFamilyOf(session_.Sounding().AcquisitionFamily), LogoReport::kSoundingPlot,
                  [this] { SettingsChanged(); }, this)
        .exec();
  });
  on(mnuEdit, "mnuEdit_Click", [this] {
    if (open_editor_) open_editor_();
  });
  on(mnuPrintSettings, "mnuPrintSettings_Click", [this] {
    FrmPrintSettings(session_, prompts_, ReportKind::kSounding, ReportFamilyOf(session_.Sounding().AcquisitionFamily),
                     [this] { SettingsChanged(); }, this)
        .exec();
  });
  on(mnuRemoveRodBreaks, "mnuRemoveRodBreaks_Click",
     [this] { OpenEnlargedTipGraph(session_, prompts_, this, plot_.DepthUnit); });
  on(mnuSaveAs, "mnuSaveAs_Click", [this] { ChooseAndSaveSounding(session_, prompts_, false); });

  // Returning may close and delete this window, so nothing of it is touched afterwards.
  connect(mnuReturn, &QAction::triggered, this, [this] {
    RunGuarded(prompts_, "mnuReturn_Click", [&] {
      if (prompts_.Ask("THIS WILL CLOSE ALL OPEN WINDOWS AND RETURN TO THE MAIN FORM. CONTINUE?",
                       Buttons::kYesNo) == Answer::kYes &&
          on_return_) {
        on_return_();
      }
    });
  });
}

void Form4::UpdateControls() {
  mnuGridOn->setChecked(plot_.GridOn);
  mnuGridOff->setChecked(!plot_.GridOn);
  mnuMeters->setChecked(plot_.DepthUnit == 1);
  mnuFeet->setChecked(plot_.DepthUnit != 1);
  mnuElevation->setChecked(plot_.ElevationMode);
  mnuDepth->setChecked(!plot_.ElevationMode);
  const SoundingStore& store = session_.Sounding();
  const double offset_cm = store.ChannelOffset[store.SleeveChannel] * 100.0;
  lblFrictionOffsetCM->setText(ToQString(FormatNumber(offset_cm, "00.000")));
  lblFrictionOffsetIn->setText(ToQString(FormatNumber(offset_cm / kCentimetresPerInch, "00.000")));
}

void Form4::Repaint() { picPlot->update(); }

void Form4::SetTestStepper(std::function<std::vector<int>(int step)> step) {
  step_test_ = std::move(step);
  cmdPreviousTest->show();
  cmdNextTest->show();
  const auto go = [this](int delta, const char* source) {
    RunGuarded(prompts_, source, [&] {
      const std::vector<int> channels = step_test_(delta);
      if (channels.empty()) return;
      SetupPlot(plot_, session_, channels, plot_.SbtChartChoice);
      Repaint();
    });
  };
  connect(cmdPreviousTest, &QPushButton::clicked, this, [go] { go(-1, "cmdPreviousTest_Click"); });
  connect(cmdNextTest, &QPushButton::clicked, this, [go] { go(1, "cmdNextTest_Click"); });
}

void Form4::PaintPlot() {
  try {
    WidgetSurface surface(picPlot);
    GraphData(surface, picPlot->width(), picPlot->height(), plot_, session_);
    paint_failed_ = false;
  } catch (const RuntimeFailure& failure) {
    if (paint_failed_) return;
    paint_failed_ = true;
    QTimer::singleShot(0, this, [this, text = GeneralErrorText(failure)] { prompts_.Tell(text); });
  }
}

void Form4::ShowReadout(QPointF at) {
  const std::optional<Readout> readout = ReadoutAt(plot_, session_, at.x(), at.y());
  if (!readout) {
    ClearReadout();
    return;
  }
  lblDepth->setText(ToQString(readout->depth));
  for (size_t i = 0; i < lblChannelValue.size(); ++i) {
    lblChannelValue[i]->setText(i < readout->values.size() ? ToQString(readout->values[i]) : QString());
  }
}

void Form4::ClearReadout() {
  lblDepth->clear();
  for (QLabel* label : lblChannelValue) label->clear();
}

// The report's plot page; the window's plot area, which the read-out follows, stays as it is.
void Form4::PrintPages(PrintJob& job) {
  RunGuarded(prompts_, "PrintSounding", [&] { PrintSounding(job, plot_, session_); });
}

void Form4::SetDepthUnit(int unit) {
  plot_.DepthUnit = unit;
  AutoScale(plot_, session_);
}

}  // namespace marlview
