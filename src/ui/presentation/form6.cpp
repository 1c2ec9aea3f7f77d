// The classification chart windows: widgets named as their controls; the chart itself is the
// core's, drawn on the window, the fixed picture and the printed page alike.
#include "ui/presentation/form6.h"

#include <QActionGroup>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPixmap>
#include <QScrollBar>
#include <QTimer>
#include <algorithm>

#include "core/common/runtime_failure.h"
#include "core/session/session.h"
#include "render/image_surface.h"
#include "ui/common/event_guard.h"
#include "ui/common/named.h"
#include "ui/common/qt_prompts.h"
#include "ui/presentation/form4.h"
#include "ui/presentation/printer_print_job.h"
#include "ui/presentation/widget_surface.h"

namespace marlview {
namespace {

// The fixed picture of frmClassification, in pixels.
constexpr int kPictureSize = 640;

}  // namespace

Form6::Form6(Session& session, UserPrompts& prompts, QWidget* parent)
    : QMainWindow(parent), session_(session), prompts_(prompts) {
  setObjectName("Form6");
  setWindowTitle("SOIL CLASSIFICATION CHART");
  view_.depth_unit = session_.DepthUnitIsMetric == 1 ? 1 : 2;

  auto* central = new QWidget(this);
  auto* layout = new QHBoxLayout(central);
  picChart = Named(new PlotPicture(central), "picChart");
  layout->addWidget(picChart, 1);
  VScroll1 = Named(new QScrollBar(Qt::Vertical, central), "VScroll1");
  layout->addWidget(VScroll1);
  setCentralWidget(central);

  QMenu* file = menuBar()->addMenu("&File");
  file->setObjectName("mnuFile");
  PrintChart = NamedAction(file, "PrintChart", "&Print...");
  file->addSeparator();
  CloseChart = NamedAction(file, "CloseChart", "&Close");
  QMenu* chart = menuBar()->addMenu("&Chart");
  chart->setObjectName("mnuChart");
  auto* charts = new QActionGroup(this);
  mnuChartUbc1983 = NamedAction(chart, "mnuChartUbc1983", "Qt-Fr (UBC-1983)");
  mnuChartNormalised = NamedAction(chart, "mnuChartNormalised", QString::fromUtf8("Qtn\u2013Fr (normalised)"));
  for (QAction* action : {mnuChartUbc1983, mnuChartNormalised}) {
    action->setCheckable(true);
    charts->addAction(action);
  }
  mnuChartUbc1983->setChecked(true);

  FollowSounding();
  picChart->on_paint = [this] { PaintChart(); };
  connect(VScroll1, &QScrollBar::valueChanged, this, [this](int row) {
    Handle("VScroll1_Change", [&] { view_.first_row = row; });
  });
  connect(PrintChart, &QAction::triggered, this, [this] {
    Handle("PrintChart", [&] {
      FollowSounding();
      PrintWithDialog(this, [this](PrintJob& job) { marlview::PrintChart(job, session_, view_); });
    });
  });
  connect(CloseChart, &QAction::triggered, this, &QWidget::close);
  const auto choose = [this](QAction* action, ChartKind kind, const char* source) {
    connect(action, &QAction::triggered, this, [this, kind, source] { Handle(source, [&] { view_.kind = kind; }); });
  };
  choose(mnuChartUbc1983, ChartKind::kUbc1983, "mnuChartUbc1983_Click");
  choose(mnuChartNormalised, ChartKind::kNormalised, "mnuChartNormalised_Click");
  resize(760, 820);
}

void Form6::Handle(const char* source, const std::function<void()>& handler) {
  RunGuarded(prompts_, source, handler);
  picChart->update();
}

void Form6::FollowSounding() {
  const int count = session_.SoundingOpen ? session_.Sounding().ReadingCount : 0;
  const QSignalBlocker quiet(VScroll1);
  VScroll1->setRange(1, std::max(count, 1));
  VScroll1->setPageStep(std::max(count / 20, 1));
  view_.first_row = std::clamp(view_.first_row, 1, std::max(count, 1));
  VScroll1->setValue(view_.first_row);
}

void Form6::PaintChart() {
  FollowSounding();
  try {
    WidgetSurface surface(picChart);
    DrawClassificationChart(surface, picChart->width(), picChart->height(), session_, view_);
    paint_failed_ = false;
  } catch (const RuntimeFailure& failure) {
    // Reported once, after the paint, never from inside it.
    if (paint_failed_) return;
    paint_failed_ = true;
    QTimer::singleShot(0, this, [this, text = GeneralErrorText(failure)] { prompts_.Tell(text); });
  }
}

FrmClassification::FrmClassification(Session& session, UserPrompts& prompts, QWidget* parent)
    : QMainWindow(parent), session_(session), prompts_(prompts) {
  setObjectName("frmClassification");
  setWindowTitle("SOIL CLASSIFICATION CHART");
  Picture1 = Named(new QLabel(this), "Picture1");
  Picture1->setAlignment(Qt::AlignCenter);
  setCentralWidget(Picture1);
  QMenu* file = menuBar()->addMenu("&File");
  file->setObjectName("mnuFile");
  mnuPrint = NamedAction(file, "mnuPrint", "&Print...");
  file->addSeparator();
  mnuReturn = NamedAction(file, "mnuReturn", "&Return");

  ChartView chart_alone;
  chart_alone.readings = false;
  RunGuarded(prompts_, "Form_Load", [&] {
    ImageSurface image(kPictureSize, kPictureSize);
    DrawClassificationChart(image, kPictureSize, kPictureSize, session_, chart_alone);
    Picture1->setPixmap(QPixmap::fromImage(image.Image()));
  });
  connect(mnuPrint, &QAction::triggered, this, [this, chart_alone] {
    RunGuarded(prompts_, "mnuPrint_Click", [&] {
      PrintWithDialog(this, [&](PrintJob& job) { PrintChart(job, session_, chart_alone); });
    });
  });
  connect(mnuReturn, &QAction::triggered, this, &QWidget::close);
}

void OpenClassificationChart(Session& session, UserPrompts& prompts, QWidget* parent) {
  QMainWindow* window = parent->findChild<Form6*>(QString(), Qt::FindDirectChildrenOnly);
  if (window == nullptr) window = parent->findChild<FrmClassification*>(QString(), Qt::FindDirectChildrenOnly);
  if (window == nullptr) {
    if (session.SoundingOpen) window = new Form6(session, prompts, parent);
    else window = new FrmClassification(session, prompts, parent);
    window->setAttribute(Qt::WA_DeleteOnClose);
    // A window of its own, not a part of the main window.
    window->setWindowFlag(Qt::Window);
  }
  window->show();
  window->raise();
  window->activateWindow();
}

}  // namespace marlview
