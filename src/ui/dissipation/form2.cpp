// The dissipation plot window: named controls, each menu handed to the plot engine.
#include "ui/dissipation/form2.h"

#include <QActionGroup>
#include <QCloseEvent>
#include <QMenu>
#include <QMenuBar>
#include <QTimer>
#include <QVBoxLayout>

#include "core/common/runtime_failure.h"
#include "core/session/session.h"
#include "render/pdf_print_job.h"
#include "ui/common/event_guard.h"
#include "ui/common/named.h"
#include "ui/common/qt_prompts.h"
#include "ui/dissipation/frm_scale_dissipation.h"
#include "ui/dissipation/frm_t50_utility.h"
#include "ui/editing/parameter_dialogs_ui.h"
#include "ui/presentation/form4.h"
#include "ui/presentation/printer_print_job.h"
#include "ui/presentation/widget_surface.h"
#include "ui/settings/frm_print_settings.h"
#include "ui/settings/settings_windows.h"

namespace marlview {

Form2::Form2(Session& session, UserPrompts& prompts, DissipationPlotState plot,
             std::function<void()> on_water_table, std::function<void()> on_return, QWidget* parent)
    : QMainWindow(parent),
      session_(session),
      prompts_(prompts),
      plot_(std::move(plot)),
      on_water_table_(std::move(on_water_table)),
      on_return_(std::move(on_return)) {
  setObjectName("Form2");
  setWindowTitle(ToQString(DissipationPlotCaption(session_.Dissipation())));
  auto* central = new QWidget(this);
  auto* layout = new QVBoxLayout(central);
  layout->setContentsMargins(0, 0, 0, 0);
  picPlot = Named(new PlotPicture(central), "picPlot");
  layout->addWidget(picPlot);
  setCentralWidget(central);
  BuildMenus();
  Connect();
  UpdateControls();
  resize(960, 720);
}

Form2::~Form2() = default;

void Form2::closeEvent(QCloseEvent* event) {
  if (t50_ != nullptr) t50_->close();
  QMainWindow::closeEvent(event);
}

void Form2::BuildMenus() {
  QMenu* file = menuBar()->addMenu("&File");
  file->setObjectName("mnuFile");
  mnuPrint = NamedAction(file, "mnuPrint", "&Print...");
  mnuPrintPreview = NamedAction(file, "mnuPrintPreview", "Print Pre&view...");
  mnuPrintToPdf = NamedAction(file, "mnuPrintToPdf", "Print to P&DF...");
  mnuPrintSettings = NamedAction(file, "mnuPrintSettings", "Print &Settings...");
  file->addSeparator();
  mnuReturn = NamedAction(file, "mnuReturn", "&Return to Main Form");

  QMenu* edit = menuBar()->addMenu("&Edit");
  edit->setObjectName("mnuEditMenu");
  mnuEdit = NamedAction(edit, "mnuEdit", "&Edit Dissipation...");
  mnuWaterTable = NamedAction(edit, "mnuWaterTable", "&Water Table Depth...");

  QMenu* scale = menuBar()->addMenu("&Scale");
  scale->setObjectName("mnuScaleMenu");
  mnuScale = NamedAction(scale, "mnuScale", "&Scale Plot...");

  QMenu* view = menuBar()->addMenu("&View");
  view->setObjectName("mnuView");
  mnuDissipationVsTime = NamedAction(view, "mnuDissipationVsTime", "&Pressure vs Time");
  mnuPercentMaxDissipationVsTime =
      NamedAction(view, "mnuPercentMaxDissipationVsTime", "% &Max Pressure vs Time");
  mnuPercentOverHeadDissipationVsTime =
      NamedAction(view, "mnuPercentOverHeadDissipationVsTime", "% &Head Pressure vs Time");
  view->addSeparator();
  mnuLinearTime = NamedAction(view, "mnuLinearTime", "&Linear Time");
  mnuLogTime = NamedAction(view, "mnuLogTime", "L&ogarithmic Time");
  mnuSquareRoot = NamedAction(view, "mnuSquareRoot", "S&quare Root Time");
  view->addSeparator();
  mnuGridOff = NamedAction(view, "mnuGridOff", "Grid O&ff");
  mnuGridMajor = NamedAction(view, "mnuGridMajor", "Grid M&ajor");
  mnuGridMajorAndMinor = NamedAction(view, "mnuGridMajorAndMinor", "Grid Major a&nd Minor");
  view->addSeparator();
  mnuAdjustLogo = NamedAction(view, "mnuAdjustLogo", "Adjust &Logo...");
  for (QAction* action :
       {mnuDissipationVsTime, mnuPercentMaxDissipationVsTime, mnuPercentOverHeadDissipationVsTime,
        mnuLinearTime, mnuLogTime, mnuSquareRoot, mnuGridOff, mnuGridMajor, mnuGridMajorAndMinor}) {
    action->setCheckable(true);
  }

  QMenu* tools = menuBar()->addMenu("&Tools");
  tools->setObjectName("mnuTools");
  mnuT50Util = NamedAction(tools, "mnuT50Util", "&T50 Utility...");
}

void Form2::Handle(const char* source, const std::function<void()>& handler) {
  RunGuarded(prompts_, source, handler);
  UpdateControls();
  Repaint();
}

void Form2::Connect() {
  picPlot->on_paint = [this] { PaintPlot(); };
  auto on = [this](QAction* action, const char* source, std::function<void()> handler) {
    connect(action, &QAction::triggered, this,
            [this, source, handler = std::move(handler)] { Handle(source, handler); });
  };
  auto mode = [this](int16_t which) {
    return [this, which] { SetPressureDisplayMode(plot_, session_.Dissipation(), which, prompts_); };
  };
  on(mnuDissipationVsTime, "mnuDissipationVsTime_Click", mode(kPressureValues));
  on(mnuPercentMaxDissipationVsTime, "mnuPercentMaxDissipationVsTime_Click", mode(kPercentOfMax));
  on(mnuPercentOverHeadDissipationVsTime, "mnuPercentOverHeadDissipationVsTime_Click",
     mode(kPercentOverHead));
  // The time menus draw first, then ask about the default.
  connect(mnuLinearTime, &QAction::triggered, this, [this] { ChooseTimeFormat(kLinearTime); });
  connect(mnuLogTime, &QAction::triggered, this, [this] { ChooseTimeFormat(kLogTime); });
  connect(mnuSquareRoot, &QAction::triggered, this, [this] { ChooseTimeFormat(kSquareRootTime); });
  on(mnuGridOff, "mnuGridOff_Click", [this] { plot_.GridMode = 0; });
  on(mnuGridMajor, "mnuGridMajor_Click", [this] { plot_.GridMode = 1; });
  on(mnuGridMajorAndMinor, "mnuGridMajorAndMinor_Click", [this] { plot_.GridMode = 2; });
  on(mnuScale, "ScalePlot", [this] { FrmScaleDissipation(plot_, prompts_, this).exec(); });
  on(mnuWaterTable, "mnuWaterTable_Click", [this] {
    if (FrmChangeWaterTableDepth(session_, prompts_, this, WaterTableOf::kDissipation).exec() ==
            QDialog::Accepted &&
        on_water_table_) {
      on_water_table_();
    }
  });
  on(mnuPrint, "PrintPlot_Click", [this] { PrintPlot(false); });
  on(mnuPrintPreview, "mnuPrintPreview_Click", [this] {
    PrintPreview(this, [this](PrintJob& job) {
      RunGuarded(prompts_, "PrintPlot_Click", [&] { PrintPage(job, plot_.overlay.has_value()); });
    });
  });
  on(mnuPrintToPdf, "PrintPlot_Click", [this] {
    FileDialogRequest request;
    request.title = "Print to PDF";
    request.filter = "PDF (*.pdf)|*.pdf";
    request.start_directory = session_.DissipationDirectory;
    const std::string path = prompts_.SaveFile(request);
    if (!path.empty()) PrintPlotToPdf(path, false);
  });
  on(mnuT50Util, "mnuT50Util_Click", [this] { OpenT50Utility(); });
  on(mnuEdit, "mnuEdit_Click", [this] { TellNotAvailable(prompts_, "The dissipation editor"); });
  on(mnuPrintSettings, "mnuPrintSettings_Click", [this] {
    FrmPrintSettings(session_, prompts_, ReportKind::kDissipation, DissipationReportFamily(session_),
                     [this] { SettingsChanged(); }, this)
        .exec();
  });
  on(mnuAdjustLogo, "mnuAdjustLogo_Click", [this] {
    FrmAdjustLogo(session_, prompts_, DissipationReportFamily(session_), LogoReport::kDissipationPlot,
                  [this] { SettingsChanged(); }, this)
        .exec();
  });
  // Returning may close and delete this window, so nothing of it is touched afterwards.
  connect(mnuReturn, &QAction::triggered, this,
          [this] { RunGuarded(prompts_, "ReturnPlotControl", [&] { ReturnPlotControl(); }); });
}

void Form2::ChooseTimeFormat(int16_t format) {
  static constexpr const char* kSources[] = {"mnuLinearTime_Click", "mnuLogTime_Click",
                                             "mnuSquareRoot_Click"};
  const char* source = kSources[format];
  Handle(source, [&] { SetTimeFormat(plot_, format); });
  picPlot->repaint();
  RunGuarded(prompts_, source, [&] { AskDefaultTimeFormat(session_, format, prompts_); });
}

void Form2::UpdateControls() {
  mnuDissipationVsTime->setChecked(plot_.PressureDisplayMode == kPressureValues);
  mnuPercentMaxDissipationVsTime->setChecked(plot_.PressureDisplayMode == kPercentOfMax);
  mnuPercentOverHeadDissipationVsTime->setChecked(plot_.PressureDisplayMode == kPercentOverHead);
  mnuLinearTime->setChecked(plot_.TimeFormat == kLinearTime);
  mnuLogTime->setChecked(plot_.TimeFormat == kLogTime);
  mnuSquareRoot->setChecked(plot_.TimeFormat == kSquareRootTime);
  mnuGridOff->setChecked(plot_.GridMode == 0);
  mnuGridMajor->setChecked(plot_.GridMode == 1);
  mnuGridMajorAndMinor->setChecked(plot_.GridMode == 2);
}

void Form2::Repaint() {
  if (t50_ != nullptr) t50_->FollowPlot();
  picPlot->update();
}

void Form2::PaintPlot() {
  try {
    WidgetSurface surface(picPlot);
    GraphDissipation(surface, picPlot->width() * kPlotUnitsPerPixel, picPlot->height() * kPlotUnitsPerPixel,
                     plot_, session_);
    paint_failed_ = false;
  } catch (const RuntimeFailure& failure) {
    // A failure while painting is told once, after the paint, never from inside it.
    if (paint_failed_) return;
    paint_failed_ = true;
    QTimer::singleShot(0, this, [this, text = GeneralErrorText(failure)] { prompts_.Tell(text); });
  }
}

// The page has its own rectangle; the T50 lines follow it, being kept as fractions of the plot.
void Form2::PrintPage(PrintJob& job, bool include_lines) {
  DissipationPlotState page = plot_;
  if (!include_lines) page.overlay.reset();
  GraphDissipation(job.NewPage(), job.PageWidthPoints() * kPlotUnitsPerPoint,
                   job.PageHeightPoints() * kPlotUnitsPerPoint, page, session_);
}

void Form2::PrintPlot(bool include_lines) {
  PrintWithDialog(this, [&](PrintJob& job) {
    RunGuarded(prompts_, "PrintPlot_Click", [&] { PrintPage(job, include_lines); });
  });
}

void Form2::PrintPlotToPdf(const std::string& path, bool include_lines) {
  PdfPrintJob job(path, PaperSize::kLetter);
  PrintPage(job, include_lines);
  if (!job.EndDoc()) Fail(kErrPathAccess, "PrintPlot_Click");
}

void Form2::OpenT50Utility() {
  if (t50_ == nullptr) {
    // The utility starts on the plot's rectangle as last drawn.
    picPlot->repaint();
    t50_ = new FrmT50Utility(*this, this);
    t50_->setAttribute(Qt::WA_DeleteOnClose);
    connect(t50_, &QObject::destroyed, this, [this] { t50_ = nullptr; });
  }
  t50_->show();
  t50_->raise();
}

void Form2::ReturnPlotControl() {
  if (t50_ != nullptr) {
    if (prompts_.Ask("THIS WILL CLOSE ALL OPEN WINDOWS AND RETURN TO THE MAIN FORM. CONTINUE?",
                     Buttons::kYesNo) != Answer::kYes) {
      return;
    }
    t50_->close();
  }
  plot_.ManualScale = false;
  if (on_return_) on_return_();
}

}  // namespace marlview
