// Seisform, the log window of seismic mode.
#include "ui/seismic/seisform.h"

#include <QAction>
#include <QActionGroup>
#include <QCheckBox>
#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTableWidget>
#include <QHeaderView>
#include <QVBoxLayout>

#include "core/common/number_format.h"
#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"
#include "core/seismic/conditioning.h"
#include "core/seismic/seismic_plots.h"
#include "core/seismic/seismic_writers.h"
#include "render/pdf_print_job.h"
#include "ui/common/event_guard.h"
#include "ui/common/named.h"
#include "ui/common/qt_prompts.h"
#include "ui/presentation/printer_print_job.h"
#include "ui/presentation/widget_surface.h"
#include "ui/seismic/frm_enlarged_seismic_graph.h"
#include "ui/seismic/seismic_export_dialogs.h"

namespace marlview {
namespace {

constexpr int kRowHeight = 64;

QString GainCaption(float gain) { return ToQString(FormatNumber(gain, "####0.#")).remove(QRegularExpression("\\.$")); }

}  // namespace

SeismicPicture::SeismicPicture(QWidget* parent) : QWidget(parent) {
  setFocusPolicy(Qt::ClickFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void SeismicPicture::paintEvent(QPaintEvent*) {
  if (on_paint) on_paint();
}

void SeismicPicture::mouseDoubleClickEvent(QMouseEvent*) {
  if (on_double_click) on_double_click();
}

void SeismicPicture::mouseMoveEvent(QMouseEvent* event) {
  if (on_mouse_move) on_mouse_move(event->position());
}

void SeismicPicture::mousePressEvent(QMouseEvent* event) {
  if (on_mouse_down) on_mouse_down(event->position(), event->button(), event->modifiers());
}

Seisform::Seisform(Session& session, UserPrompts& prompts, std::function<void()> on_return, QWidget* parent)
    : QMainWindow(parent),
      session_(session),
      prompts_(prompts),
      on_return_(std::move(on_return)),
      dialogs_(this),
      offset_dialog_(this),
      controller_(session, prompts, dialogs_) {
  setObjectName("Seisform");
  controller_.SetListener(this);
  BuildControls();
  BuildMenus();
  Connect();
  setWindowTitle(ToQString(controller_.Caption()));
  resize(900, 820);
}

Seisform::~Seisform() { controller_.SetListener(nullptr); }

void Seisform::BuildControls() {
  auto* central = new QWidget(this);
  auto* layout = new QVBoxLayout(central);
  lblPrintLine = Named(new QLabel("DOUBLE CLICK ON INDIVIDUAL GRAPHS TO EDIT", central), "lblPrintLine");
  lblPrintLine->setAlignment(Qt::AlignCenter);
  layout->addWidget(lblPrintLine);
  frmLoading = Named(new QLabel("LOADING SEISMIC FILES.  PLEASE WAIT", central), "frmLoading");
  frmLoading->setAlignment(Qt::AlignCenter);
  frmLoading->hide();
  layout->addWidget(frmLoading);
  lblUpdatingSeismicGain = Named(new QLabel("UPDATING GAIN.  PLEASE WAIT", central), "lblUpdatingSeismicGain");
  lblUpdatingSeismicGain->hide();
  layout->addWidget(lblUpdatingSeismicGain);

  auto* middle = new QHBoxLayout;
  rows_ = new QWidget(central);
  rows_layout_ = new QVBoxLayout(rows_);
  rows_layout_->setContentsMargins(0, 0, 0, 0);
  rows_layout_->setSpacing(2);
  middle->addWidget(rows_, 1);
  VScroll1 = Named(new QScrollBar(Qt::Vertical, central), "VScroll1");
  middle->addWidget(VScroll1);
  grdVelocities = Named(new QTableWidget(central), "grdVelocities");
  grdVelocities->setEditTriggers(QAbstractItemView::NoEditTriggers);
  grdVelocities->verticalHeader()->hide();
  grdVelocities->setFixedWidth(330);
  middle->addWidget(grdVelocities);
  layout->addLayout(middle, 1);

  pctTimeAxis = Named(new SeismicPicture(central), "pctTimeAxis");
  pctTimeAxis->setFixedHeight(30);
  layout->addWidget(pctTimeAxis);
  lblTime = Named(new QLabel("TIME (mS)", central), "lblTime");
  lblTime->setAlignment(Qt::AlignCenter);
  layout->addWidget(lblTime);

  Frame3 = Named(new QGroupBox("Hammer to Rod String Distance", central), "Frame3");
  auto* frame = new QHBoxLayout(Frame3);
  frame->addWidget(new QLabel("Hammer to Rod String Distance (m)", Frame3));
  Text6 = Named(new QLineEdit(Frame3), "Text6");
  frame->addWidget(Text6);
  Check1 = Named(new QCheckBox("Do Not Ask Again", Frame3), "Check1");
  frame->addWidget(Check1);
  Command10 = NamedButton(frame, Frame3, "Command10", "OK");
  Frame3->hide();
  layout->addWidget(Frame3);
  setCentralWidget(central);

  pctTimeAxis->on_paint = [this] {
    WidgetSurface g(pctTimeAxis);
    g.SetScale(0, 0, pctTimeAxis->width(), pctTimeAxis->height());
    g.Cls();
    g.SetFont("Arial", 8, false, false);
    const SeismicViewState& v = controller_.View();
    // The axis lies under the graphs, wherever the layout has put them.
    if (pctSeisGraph.size() < 2) return;
    const SeismicPicture* graph = pctSeisGraph[1];
    const double left = graph->mapTo(this, QPoint(0, 0)).x() - pctTimeAxis->mapTo(this, QPoint(0, 0)).x();
    if (controller_.IsLog()) {
      DrawTimeAxis(g, left, 0, graph->width(), 0, 1, 0.2, 2);
    } else {
      DrawTimeAxis(g, left, 0, graph->width(), v.SeismicTimeAxisMin, v.SeismicTimeAxisMax, v.TimeAxisStep,
                   v.TimeAxisDivisions);
    }
  };
}

void Seisform::BuildMenus() {
  mnuFile = menuBar()->addMenu("&File");
  mnuFile->setObjectName("mnuFile");
  mnuSaveData = NamedAction(mnuFile, "mnuSaveData", "&Save Data...");
  mnuCombineSEIFiles = NamedAction(mnuFile, "mnuCombineSEIFiles", "&Combine SEI Files...");
  mnuCombineSMCFiles = NamedAction(mnuFile, "mnuCombineSMCFiles", "&Combine SMC Files...");
  mnuFile->addSeparator();
  mnuExportTXT = NamedAction(mnuFile, "mnuExportTXT", "Export &Text Files...");
  mnuExportCSV = NamedAction(mnuFile, "mnuExportCSV", "Export CS&V Files...");
  mnuExportGRF = NamedAction(mnuFile, "mnuExportGRF", "Export &GRF Files...");
  mnuFile->addSeparator();
  mnuPrintGraph = NamedAction(mnuFile, "mnuPrintGraph", "&Print...");
  mnuSaveAsPdf = NamedAction(mnuFile, "mnuSaveAsPdf", "Print to P&DF...");
  mnuFile->addSeparator();
  auto* cover = new QActionGroup(this);
  mnuIncludeCoverSheet = NamedAction(mnuFile, "mnuIncludeCoverSheet", "&Include Cover Sheet");
  mnuNoCoverSheet = NamedAction(mnuFile, "mnuNoCoverSheet", "&No Cover Sheet");
  for (QAction* entry : {mnuIncludeCoverSheet, mnuNoCoverSheet}) {
    entry->setCheckable(true);
    cover->addAction(entry);
  }
  mnuNoCoverSheet->setChecked(true);
  mnuFile->addSeparator();
  mnuReturn = NamedAction(mnuFile, "mnuReturn", "&Return to Main Menu");

  mnuEdit = menuBar()->addMenu("&Edit All Graphs");
  mnuEdit->setObjectName("mnuEdit");
  mnuFilterAllGraphs = NamedAction(mnuEdit, "mnuFilterAllGraphs", "&Filter All Graphs");
  mnuEnhanceAllGraphs = NamedAction(mnuEdit, "mnuEnhanceAllGraphs", "&Enhance All Graphs");
  mnuAttenuateAllGraphs = NamedAction(mnuEdit, "mnuAttenuateAllGraphs", "&Attenuate All Graphs");
  mnuAttenuateAndEnhanceAllGraphs =
      NamedAction(mnuEdit, "mnuAttenuateAndEnhanceAllGraphs", "Attenuate and Enhance All Graphs");
  mnuFilterandEnhanceAllGraphs = NamedAction(mnuEdit, "mnuFilterandEnhanceAllGraphs", "Enhance and Filter All Graphs");
  mnuTrimGraphs = NamedAction(mnuEdit, "mnuTrimGraphs", "&Trim Graphs...");
  mnuRemoveStrikes = mnuEdit->addMenu("&Remove Strikes");
  mnuRemoveStrikes->setObjectName("mnuRemoveStrikes");
  mnuRemoveAStrikes = NamedAction(mnuRemoveStrikes, "mnuRemoveAStrikes", "Remove &A Strikes");
  mnuRemoveBStrikes = NamedAction(mnuRemoveStrikes, "mnuRemoveBStrikes", "Remove &B Strikes");
  mnuRemovePStrikes = NamedAction(mnuRemoveStrikes, "mnuRemovePStrikes", "Remove &P Strikes");
  mnuShiftLogStrike = NamedAction(mnuEdit, "mnuShiftLogStrike", "&Shift Wave Up or Down...");
  mnuGain = mnuEdit->addMenu("&Gain");
  mnuGain->setObjectName("mnuGain");
  static const char* kGainNames[] = {"mnuGain1",   "mnuGain2point5", "mnuGain5",    "mnuGain10",
                                     "mnuGain25",  "mnuGain50",      "mnuGain100",  "mnuGain250",
                                     "mnuGain500", "mnuGain1000",    "mnuGain2500", "mnuGain5000"};
  auto* gains = new QActionGroup(this);
  for (size_t k = 0; k < std::size(kLogGains); ++k) {
    QAction* entry = NamedAction(mnuGain, kGainNames[k], GainCaption(kLogGains[k]));
    entry->setCheckable(true);
    gains->addAction(entry);
    mnuGainEntries.push_back(entry);
  }
  mnuEdit->addSeparator();
  mnuAdjustDepth = NamedAction(mnuEdit, "mnuAdjustDepth", "Adjust &Depths...");

  mnuVelocity = menuBar()->addMenu("&Velocity");
  mnuVelocity->setObjectName("mnuVelocity");
  mnuHammerDistance = NamedAction(mnuVelocity, "mnuHammerDistance", "&Hammer Distance...");
  mnuGenDelay = NamedAction(mnuVelocity, "mnuGenDelay", "Write &Delays (.dly)...");
  mnuGenVelocity = NamedAction(mnuVelocity, "mnuGenVelocity", "Write &Velocities (.vss)...");
  mnuVelocity->addSeparator();
  mnuTrueIntervalVelocities =
      NamedAction(mnuVelocity, "mnuTrueIntervalVelocities", "True-Interval Velocities (Cross-Correlation)");
  mnuXcorrStrike = mnuVelocity->addMenu("&Strike for Correlation");
  mnuXcorrStrike->setObjectName("mnuXcorrStrike");
  mnuXcorrStrikeAuto = NamedAction(mnuXcorrStrike, "mnuXcorrStrikeAuto", "First of A, B in Both Tests");
  mnuXcorrStrikeA = NamedAction(mnuXcorrStrike, "mnuXcorrStrikeA", "&A");
  mnuXcorrStrikeB = NamedAction(mnuXcorrStrike, "mnuXcorrStrikeB", "&B");
  mnuXcorrStrikeP = NamedAction(mnuXcorrStrike, "mnuXcorrStrikeP", "&P");
  auto* strikes = new QActionGroup(this);
  for (QAction* entry : {mnuXcorrStrikeAuto, mnuXcorrStrikeA, mnuXcorrStrikeB, mnuXcorrStrikeP}) {
    entry->setCheckable(true);
    strikes->addAction(entry);
  }
  mnuXcorrStrikeAuto->setChecked(true);

  QMenu* help = menuBar()->addMenu("&Help");
  help->setObjectName("mnuHelpMenu");
  mnuHelp = NamedAction(help, "mnuHelp", "&Help");
}

void Seisform::Handle(const char* source, const std::function<void()>& handler) {
  RunGuarded(prompts_, source, handler);
  Refresh();
}

void Seisform::PrintTo(PrintJob& job) {
  controller_.View().CoverSheet = mnuIncludeCoverSheet->isChecked();
  PrintSeismicLog(job, session_, controller_);
}

void Seisform::Connect() {
  auto on = [this](QAction* action, const char* source, std::function<void()> handler) {
    connect(action, &QAction::triggered, this, [this, source, handler] { Handle(source, handler); });
  };
  on(mnuPrintGraph, "mnuPrintGraph_Click", [this] { PrintWithDialog(this, [this](PrintJob& job) { PrintTo(job); }); });
  on(mnuSaveAsPdf, "mnuSaveAsPdf_Click", [this] {
    FileDialogRequest request;
    request.title = "Print to PDF";
    request.filter = "PDF (*.pdf)|*.pdf";
    request.start_directory = session_.SoundingDirectory;
    std::string path = prompts_.SaveFile(request);
    if (path.empty()) return;
    if (!EndsWithNoCase(path, ".pdf")) path += ".pdf";
    PdfPrintJob job(path, PaperSize::kLetter);
    PrintTo(job);
    if (!job.EndDoc()) Fail(kErrPathAccess, "mnuPrintGraph");
  });
  on(mnuSaveData, "mnuSaveData_Click",
     [this] { SaveSeismicData(controller_.Store(), controller_.Store().TestFile[1], prompts_); });
  // A combine adds tests: the window loads again with its checks, as after opening.
  on(mnuCombineSEIFiles, "mnuCombineSEIFiles_Click", [this] {
    if (CombineSeiFile(session_, prompts_, offset_dialog_)) LoadForm();
  });
  on(mnuCombineSMCFiles, "mnuCombineSMCFiles_Click", [this] {
    if (CombineSmcFile(session_, prompts_, offset_dialog_)) LoadForm();
  });
  on(mnuExportTXT, "mnuExportTXT_Click",
     [this] { FrmExportSeismicTXT(session_, controller_.Store(), prompts_, this).exec(); });
  on(mnuExportCSV, "mnuExportCSV_Click", [this] { FrmExportSeismicCSV(controller_.Store(), prompts_, this).exec(); });
  on(mnuExportGRF, "mnuExportGRF_Click",
     [this] { FrmExportSeismicGRF(session_, controller_.Store(), prompts_, this).exec(); });
  on(mnuReturn, "mnuReturn_Click", [this] { close(); });
  on(mnuFilterAllGraphs, "mnuFilterAllGraphs_Click", [this] { controller_.FilterAll(); });
  on(mnuEnhanceAllGraphs, "mnuEnhanceAllGraphs_Click", [this] { controller_.EnhanceAll(); });
  on(mnuAttenuateAllGraphs, "mnuAttenuateAllGraphs_Click", [this] { controller_.AttenuateAll(); });
  on(mnuAttenuateAndEnhanceAllGraphs, "mnuAttenuateAndEnhanceAllGraphs_Click",
     [this] { controller_.AttenuateAndEnhanceAll(); });
  on(mnuFilterandEnhanceAllGraphs, "mnuFilterandEnhanceAllGraphs_Click", [this] { controller_.EnhanceAndFilterAll(); });
  on(mnuTrimGraphs, "mnuTrimGraphs_Click", [this] {
    if (controller_.IsLog()) {
      FrmTrimSeismicLog(controller_, prompts_, this).exec();
    } else {
      FrmTrimSeismicGraphs(controller_, prompts_, this).exec();
    }
  });
  on(mnuRemoveAStrikes, "mnuRemoveAStrikes_Click", [this] { controller_.RemoveStrikes(kStrikeA); });
  on(mnuRemoveBStrikes, "mnuRemoveBStrikes_Click", [this] { controller_.RemoveStrikes(kStrikeB); });
  on(mnuRemovePStrikes, "mnuRemovePStrikes_Click", [this] { controller_.RemoveStrikes(kStrikeP); });
  on(mnuShiftLogStrike, "mnuShiftLogStrike_Click", [this] { FrmShiftStrikeUpDown(controller_, prompts_, this).exec(); });
  for (size_t k = 0; k < mnuGainEntries.size(); ++k) {
    on(mnuGainEntries[k], "mnuGain_Click", [this, k] {
      lblUpdatingSeismicGain->show();
      lblUpdatingSeismicGain->repaint();
      controller_.SetGain(kLogGains[k]);
      lblUpdatingSeismicGain->hide();
    });
  }
  on(mnuAdjustDepth, "mnuAdjustDepth_Click", [this] { FrmAdjustSeismicDepth(controller_, prompts_, this).exec(); });
  on(mnuHammerDistance, "mnuHammerDistance_Click", [this] {
    Text6->setText(ToQString(ShortestText(controller_.Store().HammerDistance)));
    Check1->setChecked(controller_.Store().AskHammerDistance == 0);
    controller_.ShowHammerDistance();
  });
  connect(Command10, &QPushButton::clicked, this, [this] {
    Handle("Command10_Click", [this] { controller_.ApplyHammerDistance(Text6->text().toStdString(), Check1->isChecked()); });
  });
  on(mnuGenDelay, "GenDelay", [this] { controller_.GenDelayFile(); });
  on(mnuGenVelocity, "GenVelocity", [this] { controller_.GenVelocityFile(); });
  on(mnuTrueIntervalVelocities, "mnuTrueIntervalVelocities_Click", [this] { controller_.TrueIntervalVelocities(); });
  const std::pair<QAction*, int16_t> strike_entries[] = {
      {mnuXcorrStrikeAuto, kNoStrike}, {mnuXcorrStrikeA, kStrikeA}, {mnuXcorrStrikeB, kStrikeB}, {mnuXcorrStrikeP, kStrikeP}};
  for (const auto& entry : strike_entries) {
    const int16_t kind = entry.second;
    on(entry.first, "mnuXcorrStrike_Click", [this, kind] { controller_.View().XcorrKind = kind; });
  }
  on(mnuHelp, "mnuHelp_Click", [this] { QMessageBox::information(this, "Marlview Help", kSeismicHelpText); });
  connect(VScroll1, &QScrollBar::valueChanged, this, [this] { Handle("VScroll1_Change", [this] { ShowRows(); }); });
}

void Seisform::LoadForm() {
  frmLoading->show();
  frmLoading->repaint();
  RunGuarded(prompts_, "Form_Load", [this] {
    BuildRows();
    controller_.Load();
  });
  frmLoading->hide();
  if (controller_.View().HammerFrameVisible) {
    Text6->setText(ToQString(ShortestText(controller_.Store().HammerDistance)));
    Check1->setChecked(false);
  }
  Refresh();
}

void Seisform::BuildRows() {
  const int count = controller_.RowCount();
  if (static_cast<int>(pctSeisGraph.size()) == count + 1) return;
  while (QLayoutItem* item = rows_layout_->takeAt(0)) {
    delete item->widget();
    delete item;
  }
  pctSeisGraph.assign(1, nullptr);
  lblLeftLabel.assign(1, nullptr);
  lblRightLabel.assign(1, nullptr);
  for (int n = 1; n <= count; ++n) {
    auto* row = new QWidget(rows_);
    row->setObjectName("rowSeisGraph");
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    auto* left = Named(new QLabel(row), "lblLeftLabel");
    left->setFixedWidth(36);
    left->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    auto* graph = Named(new SeismicPicture(row), "pctSeisGraph");
    graph->setProperty("index", n);
    graph->setFixedHeight(kRowHeight);
    auto* right = Named(new QLabel(row), "lblRightLabel");
    right->setFixedWidth(136);
    QFont small = right->font();
    small.setPointSizeF(7.5);
    right->setFont(small);
    line->addWidget(left);
    line->addWidget(graph, 1);
    line->addWidget(right);
    rows_layout_->addWidget(row);
    pctSeisGraph.push_back(graph);
    lblLeftLabel.push_back(left);
    lblRightLabel.push_back(right);
    graph->on_paint = [this, graph, n] {
      WidgetSurface g(graph);
      if (controller_.IsLog()) {
        marlview::GraphLogWaves(g, graph->width(), graph->height(), controller_.Store(), n);
      } else {
        marlview::GraphWaves(g, graph->width(), graph->height(), controller_.Store(), controller_.View(), n);
      }
      g.Box(0, 0, graph->width() - 1, graph->height() - 1, graph->raised ? kBlack : Colour{170, 170, 170}, false);
    };
    graph->on_double_click = [this, n] {
      Handle("pctSeisGraph_DblClick", [this, n] {
        for (size_t k = 1; k < pctSeisGraph.size(); ++k) pctSeisGraph[k]->raised = static_cast<int>(k) == n;
        controller_.OpenTest(n);
      });
    };
  }
  rows_layout_->addStretch(1);
  ShowRows();
}

void Seisform::ShowRows() {
  const int count = controller_.RowCount();
  const int first = std::clamp(VScroll1->value(), 1, std::max(1, count));
  for (int n = 1; n <= count && n < static_cast<int>(pctSeisGraph.size()); ++n) {
    pctSeisGraph[static_cast<size_t>(n)]->parentWidget()->setVisible(n >= first && n < first + kSeismicRowsShown);
  }
}

void Seisform::UpdateLabels(int row) {
  if (row < 1 || row >= static_cast<int>(lblLeftLabel.size())) return;
  lblLeftLabel[static_cast<size_t>(row)]->setText(ToQString(LeftLabelText(row)));
  lblRightLabel[static_cast<size_t>(row)]->setText(ToQString(RightLabelText(controller_, row)));
}

void Seisform::Refresh() {
  const SeismicMenus menus = controller_.Menus();
  const bool log = controller_.IsLog();
  const int count = controller_.RowCount();
  mnuRemoveAStrikes->setEnabled(menus.remove_a);
  mnuRemoveBStrikes->setEnabled(menus.remove_b);
  mnuRemovePStrikes->setEnabled(menus.remove_p);
  mnuShiftLogStrike->setVisible(menus.shift_log_visible);
  mnuCombineSEIFiles->setVisible(menus.combine_sei && controller_.Store().AcquisitionFamily == kSeiFamily);
  mnuCombineSMCFiles->setVisible(menus.combine_smc);
  mnuSaveData->setEnabled(!log);
  // A log holds one record, not strikes: it leaves only as a graph file.
  mnuExportTXT->setEnabled(!log);
  mnuExportCSV->setEnabled(!log);
  mnuGain->menuAction()->setVisible(menus.gain_visible);
  mnuAdjustDepth->setVisible(!log);
  mnuVelocity->menuAction()->setVisible(!log);
  const float gain = controller_.Store().LogGain;
  for (size_t k = 0; k < mnuGainEntries.size(); ++k) mnuGainEntries[k]->setChecked(kLogGains[k] == gain);
  mnuGain->setTitle(gain != 1 ? "&Gain (x" + GainCaption(gain) + ")" : QString("&Gain"));
  if (log) {
    mnuEdit->setTitle("Edit");
    mnuEnhanceAllGraphs->setText("Enhance");
    mnuFilterAllGraphs->setText("Filter");
    mnuFilterandEnhanceAllGraphs->setText("Filter and Enhance");
    mnuTrimGraphs->setText("Trim");
    mnuRemoveStrikes->setTitle("Remove Wave");
    mnuRemoveAStrikes->setText("Remove A Wave");
    mnuRemoveBStrikes->setText("Remove B Wave");
    mnuRemovePStrikes->setText("Remove P Wave");
    lblTime->setText("TIME (S)");
  }
  setWindowTitle(ToQString(controller_.Caption()));
  if (static_cast<int>(pctSeisGraph.size()) != count + 1) BuildRows();
  {
    const QSignalBlocker block(VScroll1);
    VScroll1->setRange(1, std::max(1, count - kSeismicRowsShown + 1));
    VScroll1->setPageStep(kSeismicRowsShown);
  }
  VScroll1->setVisible(count >= kSeismicRowsShown + 1);
  ShowRows();
  for (int n = 1; n <= count; ++n) UpdateLabels(n);
  Frame3->setVisible(controller_.View().HammerFrameVisible);
  grdVelocities->setVisible(!log);
  ShowVelocityTable();
  const int16_t xcorr_kind = controller_.View().XcorrKind;
  mnuXcorrStrikeAuto->setChecked(xcorr_kind == kNoStrike);
  mnuXcorrStrikeA->setChecked(xcorr_kind == kStrikeA);
  mnuXcorrStrikeB->setChecked(xcorr_kind == kStrikeB);
  mnuXcorrStrikeP->setChecked(xcorr_kind == kStrikeP);
  if (workbench_ != nullptr && workbench_->isVisible()) workbench_->Refresh();
}

void Seisform::ShowVelocityTable() {
  const std::vector<std::string> headers = VelocityTableHeaders(controller_);
  const std::vector<VelocityTableRow> rows = VelocityTable(controller_);
  grdVelocities->setColumnCount(static_cast<int>(headers.size()));
  QStringList titles;
  for (const std::string& header : headers) titles << ToQString(header);
  grdVelocities->setHorizontalHeaderLabels(titles);
  grdVelocities->setRowCount(static_cast<int>(rows.size()));
  for (size_t r = 0; r < rows.size(); ++r) {
    const VelocityTableRow& row = rows[r];
    const std::string* cells[] = {&row.test, &row.depth, &row.velocity, &row.xcorr_velocity, &row.coefficient};
    for (int column = 0; column < static_cast<int>(std::size(cells)); ++column) {
      auto* item = new QTableWidgetItem(ToQString(*cells[column]));
      item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
      grdVelocities->setItem(static_cast<int>(r), column, item);
    }
  }
  grdVelocities->resizeColumnsToContents();
}

void Seisform::GraphWaves(int test) {
  if (test >= 1 && test < static_cast<int>(pctSeisGraph.size())) {
    pctSeisGraph[static_cast<size_t>(test)]->update();
    UpdateLabels(test);
  }
  ShowVelocityTable();
}

void Seisform::GraphAllWaves() {
  if (static_cast<int>(pctSeisGraph.size()) != controller_.RowCount() + 1) BuildRows();
  for (size_t n = 1; n < pctSeisGraph.size(); ++n) {
    pctSeisGraph[n]->update();
    UpdateLabels(static_cast<int>(n));
  }
  ShowVelocityTable();
  pctTimeAxis->update();
}

void Seisform::GraphStrike() {
  if (workbench_ != nullptr) workbench_->Refresh();
}

void Seisform::OpenWorkbench() {
  if (workbench_ == nullptr) {
    workbench_ = std::make_unique<FrmEnlargedSeismicGraph>(session_, prompts_, controller_, this);
  }
  workbench_->show();
  workbench_->raise();
  workbench_->Refresh();
}

void Seisform::closeEvent(QCloseEvent* event) {
  if (workbench_ != nullptr) workbench_->hide();
  controller_.CloseWorkbench();
  event->accept();
  if (!returning_ && on_return_) {
    returning_ = true;
    on_return_();
  }
}

}  // namespace marlview
