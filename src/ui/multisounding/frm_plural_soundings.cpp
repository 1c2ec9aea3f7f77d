// The several-soundings windows.
#include "ui/multisounding/frm_plural_soundings.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeView>
#include <QVBoxLayout>

#include "core/common/file_access.h"
#include "core/common/number_read.h"
#include "core/common/text_rules.h"
#include "core/multisounding/combined_list.h"
#include "core/multisounding/last_data_directory.h"
#include "core/presentation/sounding_exports.h"
#include "core/presentation/sounding_list.h"
#include "core/presentation/sounding_plot.h"
#include "core/presentation/sounding_report.h"
#include "core/session/session.h"
#include "core/settings/templates.h"
#include "render/pdf_print_job.h"
#include "ui/common/event_guard.h"
#include "ui/common/named.h"
#include "ui/common/qt_prompts.h"
#include "ui/editing/frm_edit.h"
#include "ui/editing/parameter_dialogs_ui.h"
#include "ui/presentation/ecp_window.h"
#include "ui/presentation/form4.h"
#include "ui/presentation/frm_enlarged_tip_graph.h"
#include "ui/presentation/printer_print_job.h"
#include "ui/presentation/widget_surface.h"
#include "ui/settings/settings_windows.h"

namespace marlview {
namespace {

constexpr const char* kSoundingFilter =
    "PX DAS (*.CPT)|*.CPT|QRD FIELDBOX (*.DAT)|*.DAT|ALL SYSTEMS (*.CPT;*.DAT)|*.CPT;*.DAT|GEF (*.GEF)|*.GEF";

// Channel names are kept in the files' Latin-1; paths go to the file system as they are.
std::string Latin1Of(const QString& text) { return text.toLatin1().toStdString(); }
std::string PathOf(const QString& text) { return text.toStdString(); }

}  // namespace

// --- frmLoadMultipleSoundings ---

FrmLoadMultipleSoundings::FrmLoadMultipleSoundings(Session& session, UserPrompts& prompts, QWidget* parent)
    : QDialog(parent), session_(session), prompts_(prompts) {
  setObjectName("frmLoadMultipleSoundings");
  setWindowTitle("LOAD MULTIPLE SOUNDINGS");
  auto* layout = new QVBoxLayout(this);
  Drive1 = Named(new QComboBox(this), "Drive1");
  for (const QFileInfo& drive : QDir::drives()) Drive1->addItem(drive.absoluteFilePath());
  folders_ = new QFileSystemModel(this);
  folders_->setFilter(QDir::AllDirs | QDir::NoDotAndDotDot);
  folders_->setRootPath(QString());
  Dir1 = Named(new QTreeView(this), "Dir1");
  Dir1->setModel(folders_);
  for (int column = 1; column < folders_->columnCount(); ++column) Dir1->hideColumn(column);
  File1 = Named(new QListWidget(this), "File1");
  File1->setSelectionMode(QAbstractItemView::ExtendedSelection);
  lblNumberOfSelectedTests = Named(new QLabel(this), "lblNumberOfSelectedTests");
  lblLoading = Named(new QLabel(this), "lblLoading");
  auto* lists = new QHBoxLayout;
  auto* left = new QVBoxLayout;
  left->addWidget(Drive1);
  left->addWidget(Dir1);
  lists->addLayout(left, 1);
  lists->addWidget(File1, 1);
  layout->addLayout(lists);
  layout->addWidget(lblNumberOfSelectedTests);
  layout->addWidget(lblLoading);
  layout->addLayout(OkCancelRow(this, cmdOK, cmdCancel));
  resize(640, 420);

  connect(Drive1, &QComboBox::currentTextChanged, this, [this](const QString& drive) {
    RunGuarded(prompts_, "Drive1_Change", [&] {
      if (!QDir(drive).exists()) {
        prompts_.Tell("Drive not available. Select a local hard disk or flash drive");
        return;
      }
      ShowFolder(drive);
    });
  });
  connect(Dir1, &QTreeView::clicked, this,
          [this](const QModelIndex& index) { ShowFolder(folders_->filePath(index)); });
  connect(File1, &QListWidget::itemSelectionChanged, this, [this] {
    const int sum = static_cast<int>(session_.set.tests.size()) + static_cast<int>(File1->selectedItems().size());
    lblNumberOfSelectedTests->setText("NUMBER OF LOADED + CURRENTLY SELECTED TESTS: " + QString::number(sum));
  });
  connect(cmdOK, &QPushButton::clicked, this, [this] { RunGuarded(prompts_, "cmdOK_Click", [&] { Accept(); }); });

  // The folder a set was last loaded from, kept between runs.
  const QFileInfoList drives = QDir::drives();
  const std::string first_drive = drives.isEmpty() ? std::string("/") : PathOf(drives.front().absoluteFilePath());
  const DataDirectory last = ReadLastDataDirectory(session_, prompts_, first_drive);
  ShowFolder(ToQString(last.folder));
}

void FrmLoadMultipleSoundings::ShowFolder(const QString& folder) {
  folder_ = folder;
  const QModelIndex index = folders_->index(folder);
  Dir1->setCurrentIndex(index);
  Dir1->scrollTo(index);
  File1->clear();
  const QStringList names = QDir(folder).entryList({"*.cpt", "*.dat", "*.gef", "*.CPT", "*.DAT", "*.GEF"}, QDir::Files, QDir::Name);
  QStringList seen;
  for (const QString& name : names) {
    if (seen.contains(name)) continue;
    seen << name;
    File1->addItem(name);
  }
}

void FrmLoadMultipleSoundings::Accept() {
  const auto selected = File1->selectedItems();
  if (selected.isEmpty()) {
    prompts_.Tell("NO TESTS HAVE BEEN SELECTED");
    return;
  }
  if (session_.set.tests.size() + static_cast<size_t>(selected.size()) > static_cast<size_t>(kMaxSetTests)) {
    prompts_.Tell("MORE THAN 30 TESTS HAVE BEEN LOADED AND SELECTED");
    return;
  }
  chosen_.clear();
  for (int row = 0; row < File1->count(); ++row) {
    if (File1->item(row)->isSelected()) chosen_.push_back(PathOf(QDir(folder_).filePath(File1->item(row)->text())));
  }
  session_.SoundingDirectory = PathOf(folder_);
  accept();
}

// --- frmCombinedPlotsData ---

FrmCombinedPlotsData::FrmCombinedPlotsData(Session& session, UserPrompts& prompts, const SetPlotLayout& layout,
                                           std::function<void()> on_shift, QWidget* parent)
    : QMainWindow(parent), session_(session), prompts_(prompts), on_shift_(std::move(on_shift)) {
  setObjectName("frmCombinedPlotsData");
  const bool adjust = layout.view == SetView::kSideBySide;
  setWindowTitle(adjust ? "ADJUST DEPTH" : "COMBINED DATA");
  setFont(QFont("Arial"));
  auto* central = new QWidget(this);
  auto* grid = new QGridLayout(central);
  grid->addWidget(new QLabel(ToQString(layout.depth_label), central), 0, 0);
  lblGraphYData = Named(new QLabel(central), "lblGraphYData");
  grid->addWidget(lblGraphYData, 0, 1);
  for (size_t i = 0; i < layout.panels.size(); ++i) {
    const std::string name = "lblGraph" + std::to_string(i + 1) + "Data";
    grid->addWidget(new QLabel(ToQString(layout.panels[i].channel), central), static_cast<int>(i) + 1, 0);
    lblGraphData.push_back(Named(new QLabel(central), name.c_str()));
    grid->addWidget(lblGraphData.back(), static_cast<int>(i) + 1, 1);
  }
  const int row = static_cast<int>(layout.panels.size()) + 1;
  cmbAdjustTest = Named(new QComboBox(central), "cmbAdjustTest");
  for (const SetLegendEntry& e : layout.legend) {
    cmbAdjustTest->addItem(ToQString("TEST #" + std::to_string(e.number) + " " + e.name));
    slots_.push_back(e.slot);
  }
  grid->addWidget(cmbAdjustTest, row, 0, 1, 2);
  grid->addWidget(new QLabel("DEPTH OFFSET", central), row + 1, 0);
  lblDepthOffset = Named(new QLabel(central), "lblDepthOffset");
  lblDepthUnits = Named(new QLabel(central), "lblDepthUnits");
  auto* offset = new QHBoxLayout;
  offset->addWidget(lblDepthOffset);
  offset->addWidget(lblDepthUnits);
  grid->addLayout(offset, row + 1, 1);
  auto* buttons = new QHBoxLayout;
  cmdUp = NamedButton(buttons, central, "cmdUp", "UP");
  cmdDown = NamedButton(buttons, central, "cmdDown", "DOWN");
  grid->addLayout(buttons, row + 2, 0, 1, 2);
  setCentralWidget(central);
  mnuHideDataScreen = Named(menuBar()->addAction(adjust ? "Hide Adjust Screen" : "Hide Data Screen"),
                            "mnuHideDataScreen");
  connect(mnuHideDataScreen, &QAction::triggered, this, &QWidget::close);
  connect(cmdUp, &QPushButton::clicked, this, [this] { Shift(-1); });
  connect(cmdDown, &QPushButton::clicked, this, [this] { Shift(1); });
  connect(cmbAdjustTest, &QComboBox::currentIndexChanged, this, [this] { ShowOffset(); });
  ShowOffset();
}

int FrmCombinedPlotsData::AdjustedSlot() const {
  const int index = cmbAdjustTest->currentIndex();
  return index >= 0 && index < static_cast<int>(slots_.size()) ? slots_[static_cast<size_t>(index)] : 0;
}

void FrmCombinedPlotsData::Shift(int steps) {
  RunGuarded(prompts_, steps < 0 ? "cmdUp_Click" : "cmdDown_Click", [&] {
    if (AdjustedSlot() == 0) return;
    ShiftTestDepth(session_, AdjustedSlot(), steps);
    ShowOffset();
    if (on_shift_) on_shift_();
  });
}

void FrmCombinedPlotsData::ShowOffset() {
  lblDepthOffset->setText(ToQString(DepthOffsetText(session_, AdjustedSlot())));
  lblDepthUnits->setText(SetDepthColumn(session_) == 1 ? "m" : "ft");
}

void FrmCombinedPlotsData::ShowReadout(const std::optional<SetReadout>& readout) {
  lblGraphYData->setText(readout ? ToQString(readout->depth) : QString());
  for (size_t i = 0; i < lblGraphData.size(); ++i) {
    QStringList texts;
    if (readout && i < readout->values.size()) {
      for (const std::string& text : readout->values[i]) texts << ToQString(text);
    }
    lblGraphData[i]->setText(texts.join("  "));
  }
  ShowOffset();
}

// --- frmCombinedPlots / frmSideBySidePlots ---

FrmSetPlot::FrmSetPlot(Session& session, UserPrompts& prompts, SetPlotLayout layout, QWidget* parent)
    : QMainWindow(parent), session_(session), prompts_(prompts), layout_(std::move(layout)) {
  const bool combined = layout_.view == SetView::kCombined;
  setObjectName(combined ? "frmCombinedPlots" : "frmSideBySidePlots");
  setWindowTitle(ToQString(layout_.title));
  auto* central = new QWidget(this);
  auto* rows = new QVBoxLayout(central);
  picPlot = Named(new PlotPicture(central), "picPlot");
  rows->addWidget(picPlot, 1);
  auto* readout = new QHBoxLayout;
  lblDepth = Named(new QLabel(central), "lblDepth");
  readout->addWidget(lblDepth);
  for (size_t i = 0; i < layout_.panels.size(); ++i) {
    lblChannelValue.push_back(Named(new QLabel(central), "lblChannelValue"));
    readout->addWidget(lblChannelValue.back(), 1);
  }
  rows->addLayout(readout);
  setCentralWidget(central);
  picPlot->on_paint = [this] {
    WidgetSurface surface(picPlot);
    RunGuarded(prompts_, "GraphData",
               [&] { area_ = DrawSetPlot(surface, picPlot->width(), picPlot->height(), layout_, session_); });
  };
  // The read-out follows the cursor down the panels: the depth, and each test's value in each panel.
  picPlot->on_mouse_move = [this](QPointF at) {
    RunGuarded(prompts_, "Form_MouseMove", [&] {
      const auto values = SetReadoutAt(layout_, area_, session_, at.y());
      lblDepth->setText(values ? ToQString(values->depth) : QString());
      for (size_t i = 0; i < lblChannelValue.size(); ++i) {
        QStringList texts;
        if (values) {
          for (const std::string& text : values->values[i]) texts << ToQString(text);
        }
        lblChannelValue[i]->setText(texts.join("  "));
      }
      if (data_window_ != nullptr && data_window_->isVisible()) data_window_->ShowReadout(values);
    });
  };
  QMenu* file = menuBar()->addMenu("&File");
  mnuPrintNoCoverSheet = NamedAction(file, "mnuPrintNoCoverSheet", "Print (No Cover Sheet)...");
  mnuPrintWithCoverSheet = NamedAction(file, "mnuPrintWithCoverSheet", "Print With Cover Sheet...");
  QMenu* view = menuBar()->addMenu("&View");
  mnuDepth = NamedAction(view, "mnuDepth", "&Depth");
  mnuElevation = NamedAction(view, "mnuElevation", "&Elevation");
  view->addSeparator();
  mnuGridOn = NamedAction(view, "mnuGridOn", "Grid &On");
  mnuGridOff = NamedAction(view, "mnuGridOff", "Grid O&ff");
  view->addSeparator();
  mnuMeters = NamedAction(view, "mnuMeters", "&Meters");
  mnuFeet = NamedAction(view, "mnuFeet", "&Feet");
  for (QAction* action : {mnuDepth, mnuElevation, mnuGridOn, mnuGridOff, mnuMeters, mnuFeet}) {
    action->setCheckable(true);
  }
  QMenu* data_menu = menuBar()->addMenu("&Data");
  mnuDisplayDataScreen = NamedAction(data_menu, "mnuDisplayDataScreen", "Show Data Window");
  mnuReturn = Named(menuBar()->addAction("&Return"), "mnuReturn");
  const auto print = [this](bool cover) {
    RunGuarded(prompts_, cover ? "mnuPrintWithCoverSheet_Click" : "mnuPrintNoCoverSheet_Click", [&] {
      PrintWithDialog(this, [this, cover](PrintJob& job) { PrintSetPlot(job, layout_, session_, cover); });
    });
  };
  connect(mnuPrintNoCoverSheet, &QAction::triggered, this, [print] { print(false); });
  connect(mnuPrintWithCoverSheet, &QAction::triggered, this, [print] { print(true); });
  const auto on = [this](QAction* action, const char* source, std::function<void()> change) {
    connect(action, &QAction::triggered, this, [this, source, change = std::move(change)] {
      RunGuarded(prompts_, source, [&] {
        change();
        Relayout();
      });
      UpdateChecks();
    });
  };
  on(mnuDepth, "mnuDepth_Click", [this] { layout_.elevation = false; });
  on(mnuElevation, "mnuElevation_Click", [this] { layout_.elevation = true; });
  on(mnuGridOn, "mnuGridOn_Click", [this] { layout_.grid_on = true; });
  on(mnuGridOff, "mnuGridOff_Click", [this] { layout_.grid_on = false; });
  on(mnuMeters, "mnuMeters_Click", [this] { session_.DepthUnitIsMetric = 1; });
  on(mnuFeet, "mnuFeet_Click", [this] { session_.DepthUnitIsMetric = 0; });
  connect(mnuDisplayDataScreen, &QAction::triggered, this,
          [this] { RunGuarded(prompts_, "mnuDisplayDataScreen_Click", [&] { ToggleDataWindow(); }); });
  connect(mnuReturn, &QAction::triggered, this, &QWidget::close);
  UpdateChecks();
  resize(1000, 760);
}

FrmSetPlot::~FrmSetPlot() = default;

void FrmSetPlot::Relayout() {
  std::vector<std::string> channels;
  for (const SetPlotPanel& panel : layout_.panels) channels.push_back(panel.channel);
  const bool grid_on = layout_.grid_on;
  layout_ = LayoutSetPlot(session_, layout_.view, channels, layout_.elevation);
  layout_.grid_on = grid_on;
  picPlot->update();
  if (data_window_ != nullptr) data_window_->ShowReadout(std::nullopt);
}

void FrmSetPlot::UpdateChecks() {
  mnuDepth->setChecked(!layout_.elevation);
  mnuElevation->setChecked(layout_.elevation);
  mnuGridOn->setChecked(layout_.grid_on);
  mnuGridOff->setChecked(!layout_.grid_on);
  mnuMeters->setChecked(SetDepthColumn(session_) == 1);
  mnuFeet->setChecked(SetDepthColumn(session_) != 1);
  const bool shown = data_window_ != nullptr && data_window_->isVisible();
  mnuDisplayDataScreen->setText(shown ? "Hide Data Window" : "Show Data Window");
}

void FrmSetPlot::ToggleDataWindow() {
  if (data_window_ != nullptr && data_window_->isVisible()) {
    data_window_->close();
  } else {
    data_window_ = std::make_unique<FrmCombinedPlotsData>(session_, prompts_, layout_,
                                                   [this] {
                                                     Relayout();
                                                     if (depths_shifted) depths_shifted();
                                                   },
                                                   this);
    data_window_->setWindowFlag(Qt::Tool);
    // Hidden from its own menu, the plot's menu offers to show it again.
    connect(data_window_->mnuHideDataScreen, &QAction::triggered, this, [this] { UpdateChecks(); });
    data_window_->show();
  }
  UpdateChecks();
}

// --- frmCombinedSoundingData ---

FrmCombinedSoundingData::FrmCombinedSoundingData(Session& session, UserPrompts& prompts,
                                                 std::vector<std::string> channels, QWidget* parent)
    : QMainWindow(parent), session_(session), prompts_(prompts), channels_(std::move(channels)) {
  setObjectName("frmCombinedSoundingData");
  setWindowTitle("COMBINED SOUNDING DATA");
  Picture1 = Named(new QPlainTextEdit(this), "Picture1");
  Picture1->setReadOnly(true);
  Picture1->setLineWrapMode(QPlainTextEdit::NoWrap);
  QFont font("courier new");
  font.setStyleHint(QFont::Monospace);
  Picture1->setFont(font);
  Refill();
  setCentralWidget(Picture1);

  QMenu* file = menuBar()->addMenu("&File");
  mnuSavetxtIncludeHeader = NamedAction(file, "mnuSavetxtIncludeHeader", "Save TXT File (Include Header)...");
  mnuSavetxtDiscardHeader = NamedAction(file, "mnuSavetxtDiscardHeader", "Save TXT File (Discard Header)...");
  mnuExportCSVFileIncludeHeader =
      NamedAction(file, "mnuExportCSVFileIncludeHeader", "Export CSV File (Include Header)...");
  mnuExportCSVFileDiscardHeader =
      NamedAction(file, "mnuExportCSVFileDiscardHeader", "Export CSV File (Discard Header)...");
  mnuExportCorFileIncludeHeader =
      NamedAction(file, "mnuExportCorFileIncludeHeader", "Export COR File (Include Header)...");
  mnuExportCorFileDiscardHeader =
      NamedAction(file, "mnuExportCorFileDiscardHeader", "Export COR File (Discard Header)...");
  file->addSeparator();
  mnuPrintNoCoverSheet = NamedAction(file, "mnuPrintNoCoverSheet", "Print (No Cover Sheet)...");
  mnuPrintWithCoverSheet = NamedAction(file, "mnuPrintWithCoverSheet", "Print With Cover Sheet...");
  QMenu* edit = menuBar()->addMenu("&Edit");
  mnuRemoveRodBreaks = NamedAction(edit, "mnuRemoveRodBreaks", kRemoveRodBreaksMenuCaption);
  mnuWetDensity = NamedAction(edit, "mnuWetDensity", "Wet &Density...");
  mnuReturn = Named(menuBar()->addAction("&Return"), "mnuReturn");
  connect(mnuRemoveRodBreaks, &QAction::triggered, this, [this] {
    RunGuarded(prompts_, "mnuRemoveRodBreaks_Click", [&] {
      OnEachTest("mnuRemoveRodBreaks_Click", [this] { OpenEnlargedTipGraph(session_, prompts_, this); });
    });
  });
  connect(mnuWetDensity, &QAction::triggered, this, [this] {
    RunGuarded(prompts_, "mnuWetDensity_Click", [&] {
      OnEachTest("mnuWetDensity_Click", [this] { FrmWetDensity(session_, prompts_, this).exec(); });
    });
  });
  const auto save = [this](QAction* action, const char* source, CombinedForm form, bool header) {
    connect(action, &QAction::triggered, this,
            [this, source, form, header] { RunGuarded(prompts_, source, [&] { SaveTo(form, header); }); });
  };
  save(mnuSavetxtIncludeHeader, "mnuSavetxtIncludeHeader_Click", CombinedForm::kTxt, true);
  save(mnuSavetxtDiscardHeader, "mnuSavetxtDiscardHeader_Click", CombinedForm::kTxt, false);
  save(mnuExportCSVFileIncludeHeader, "mnuExportCSVFileIncludeHeader_Click", CombinedForm::kCsv, true);
  save(mnuExportCSVFileDiscardHeader, "mnuExportCSVFileDiscardHeader_Click", CombinedForm::kCsv, false);
  save(mnuExportCorFileIncludeHeader, "mnuExportCorFileIncludeHeader_Click", CombinedForm::kCor, true);
  save(mnuExportCorFileDiscardHeader, "mnuExportCorFileDiscardHeader_Click", CombinedForm::kCor, false);
  connect(mnuPrintNoCoverSheet, &QAction::triggered, this, [this] { Print(false); });
  connect(mnuPrintWithCoverSheet, &QAction::triggered, this, [this] { Print(true); });
  connect(mnuReturn, &QAction::triggered, this, &QWidget::close);
  resize(900, 600);
}

void FrmCombinedSoundingData::Refill() {
  QStringList text;
  for (const std::string& line : CombinedListLines(session_, channels_)) text << ToQString(line);
  Picture1->setPlainText(text.join('\n'));
}

void FrmCombinedSoundingData::OnEachTest(const char* source, const std::function<void()>& dialog) {
  if (put_back_current_test) put_back_current_test();
  // The list is rebuilt even when a dialog fails part way, from whatever the tests hold.
  TellFailures(prompts_, source, [&] { ForEachSelectedTest(session_, dialog); });
  Refill();
  if (tests_changed) tests_changed();
}

void FrmCombinedSoundingData::SaveTo(CombinedForm form, bool include_header) {
  SaveExport(session_, prompts_, CombinedExtension(form),
             [&] { return CombinedListExport(session_, {channels_, form, include_header}); });
}

void FrmCombinedSoundingData::Print(bool cover_sheets) {
  RunGuarded(prompts_, cover_sheets ? "mnuPrintWithCoverSheet_Click" : "mnuPrintNoCoverSheet_Click", [&] {
    PrintWithDialog(this, [this, cover_sheets](PrintJob& job) {
      if (cover_sheets) {
        int k = 0;
        for (int slot : SelectedTests(session_)) PrintTextLines(job, CoverSheetLines(session_, slot, ++k));
      }
      PrintTextLines(job, CombinedListLines(session_, channels_));
    });
  });
}

// --- frmBatchExport ---

FrmBatchExport::FrmBatchExport(Session& session, UserPrompts& prompts, std::vector<std::string> channels,
                               QWidget* parent)
    : QDialog(parent), session_(session), prompts_(prompts), channels_(std::move(channels)) {
  setObjectName("frmBatchExport");
  setWindowTitle("BATCH EXPORT / PRINT");
  auto* layout = new QVBoxLayout(this);
  auto box = [this, layout](const char* name, const char* caption) {
    auto* check = Named(new QCheckBox(caption, this), name);
    layout->addWidget(check);
    return check;
  };
  auto pair = [this, layout](const char* name, const char* caption, const char* header_name) {
    auto* row = new QHBoxLayout;
    auto* check = Named(new QCheckBox(caption, this), name);
    auto* header = Named(new QCheckBox("Include Header", this), header_name);
    row->addWidget(check);
    row->addWidget(header);
    layout->addLayout(row);
    return std::pair{check, header};
  };
  chkPrintDepthPlots = box("chkPrintDepthPlots", "Print Depth Plots");
  chkPrintList = box("chkPrintList", "Print Lists");
  std::tie(chkListTXT, chkIncludeHeaderTXT) = pair("chkListTXT", "TXT File", "chkIncludeHeaderTXT");
  std::tie(chkListCSV, chkIncludeHeaderCSV) = pair("chkListCSV", "CSV File", "chkIncludeHeaderCSV");
  std::tie(chkListCOR, chkIncludeHeaderCOR) = pair("chkListCOR", "COR File", "chkIncludeHeaderCOR");
  auto units = [this, layout](const char* name, const char* caption, std::array<QRadioButton**, 4> options,
                              std::array<const char*, 4> names) {
    auto* group = new QGroupBox(this);
    auto* row = new QHBoxLayout(group);
    auto* check = Named(new QCheckBox(caption, group), name);
    row->addWidget(check);
    const char* captions[] = {"PSI", "TSF", "MPA", "KPA"};
    for (size_t i = 0; i < 4; ++i) {
      *options[i] = Named(new QRadioButton(captions[i], group), names[i]);
      row->addWidget(*options[i]);
    }
    layout->addWidget(group);
    return check;
  };
  chkListECP = units("chkListECP", "ECP File", {&optECPPSI, &optECPTSF, &optECPMPA, &optECPKPA},
                     {"optECPPSI", "optECPTSF", "optECPMPA", "optECPKPA"});
  chkListgIN = units("chkListgIN", "gIN File", {&optgINPSI, &optgINTSF, &optgINMPA, &optgINKPA},
                     {"optgINPSI", "optgINTSF", "optgINMPA", "optgINKPA"});
  {
    auto* row = new QHBoxLayout;
    chkListAGS = Named(new QCheckBox("AGS4 File", this), "chkListAGS");
    cmbAgsVersion = Named(new QComboBox(this), "cmbAgsVersion");
    for (AgsVersion version : AgsVersions()) cmbAgsVersion->addItem(ToQString(AgsVersionText(version)));
    row->addWidget(chkListAGS);
    row->addWidget(cmbAgsVersion);
    row->addStretch(1);
    layout->addLayout(row);
  }
  chkAutoFilenaming = box("chkAutoFilenaming", "Automatic File Naming");
  auto* folder_row = new QHBoxLayout;
  folder_row->addWidget(new QLabel("Folder:", this));
  txtExportFolder = Named(new QLineEdit(this), "txtExportFolder");
  cmdBrowseFolder = Named(new QPushButton("...", this), "cmdBrowseFolder");
  folder_row->addWidget(txtExportFolder, 1);
  folder_row->addWidget(cmdBrowseFolder);
  layout->addLayout(folder_row);
  prgExport = Named(new QProgressBar(this), "prgExport");
  layout->addWidget(prgExport);
  auto* buttons = new QHBoxLayout;
  cmdExportPrint = NamedButton(buttons, this, "cmdExportPrint", "EXPORT / PRINT");
  cmdCancel = NamedButton(buttons, this, "cmdCancel", "CANCEL");
  layout->addLayout(buttons);

  const BatchSettings b = ReadBatchSettings(session_);
  chkPrintDepthPlots->setChecked(b.PrintDepthPlots);
  chkPrintList->setChecked(b.PrintList);
  chkListTXT->setChecked(b.ListTxt);
  chkIncludeHeaderTXT->setChecked(b.IncludeHeaderTxt);
  chkListCSV->setChecked(b.ListCsv);
  chkIncludeHeaderCSV->setChecked(b.IncludeHeaderCsv);
  chkListCOR->setChecked(b.ListCor);
  chkIncludeHeaderCOR->setChecked(b.IncludeHeaderCor);
  chkListECP->setChecked(b.ListEcp);
  (b.EcpUnit == 2 ? optECPTSF : b.EcpUnit == 3 ? optECPMPA : b.EcpUnit == 4 ? optECPKPA : optECPPSI)->setChecked(true);
  chkListgIN->setChecked(b.ListGin);
  (b.GinUnit == 2 ? optgINTSF : b.GinUnit == 3 ? optgINMPA : b.GinUnit == 4 ? optgINKPA : optgINPSI)->setChecked(true);
  chkListAGS->setChecked(b.ListAgs);
  cmbAgsVersion->setCurrentText(ToQString(AgsVersionText(b.AgsEdition)));
  chkAutoFilenaming->setChecked(b.AutoFilenaming);
  // The exports go beside the first ticked sounding unless another folder is chosen.
  const std::vector<int> tests = SelectedTests(session_);
  if (!tests.empty()) {
    txtExportFolder->setText(ToQString(SetStore(session_, tests.front()).SoundingFolder));
  }

  connect(cmdBrowseFolder, &QPushButton::clicked, this, [this] {
    const QString folder = QFileDialog::getExistingDirectory(this, "Export Folder", txtExportFolder->text());
    if (!folder.isEmpty()) txtExportFolder->setText(folder);
  });
  connect(cmdExportPrint, &QPushButton::clicked, this,
          [this] { RunGuarded(prompts_, "cmdExportPrint_Click", [&] { Run(); }); });
  // Cancel stops a run between two files, or closes the window when none is running.
  connect(cmdCancel, &QPushButton::clicked, this, [this] {
    if (running_) {
      cancel_ = true;
    } else {
      reject();
    }
  });
}

BatchSettings FrmBatchExport::Settings() const {
  BatchSettings b;
  b.PrintDepthPlots = chkPrintDepthPlots->isChecked();
  b.PrintList = chkPrintList->isChecked();
  b.ListTxt = chkListTXT->isChecked();
  b.IncludeHeaderTxt = chkIncludeHeaderTXT->isChecked();
  b.ListCsv = chkListCSV->isChecked();
  b.IncludeHeaderCsv = chkIncludeHeaderCSV->isChecked();
  b.ListCor = chkListCOR->isChecked();
  b.IncludeHeaderCor = chkIncludeHeaderCOR->isChecked();
  b.ListEcp = chkListECP->isChecked();
  b.EcpUnit = optECPTSF->isChecked() ? 2 : optECPMPA->isChecked() ? 3 : optECPKPA->isChecked() ? 4 : 1;
  b.ListGin = chkListgIN->isChecked();
  b.GinUnit = optgINTSF->isChecked() ? 2 : optgINMPA->isChecked() ? 3 : optgINKPA->isChecked() ? 4 : 1;
  b.ListAgs = chkListAGS->isChecked();
  b.AgsEdition = AgsVersionFromText(cmbAgsVersion->currentText().toStdString()).value_or(kDefaultAgsVersion);
  b.AutoFilenaming = chkAutoFilenaming->isChecked();
  return b;
}

void FrmBatchExport::Run() {
  if (running_) return;
  BatchRun run;
  run.directory = PathOf(txtExportFolder->text());
  run.channels = channels_;
  run.print = [this](BatchPrint what, const std::vector<int>& channels, const std::string& path) {
    // Each sounding's print goes to its own PDF beside the exports.
    PdfPrintJob job(path, PaperSize::kLetter);
    PrintBatchPages(job, session_, what, channels);
    return job.EndDoc();
  };
  run.progress = [this](int done, int total) {
    prgExport->setMaximum(std::max(total, 1));
    prgExport->setValue(done);
    // The window yields to the display between files, so Cancel is seen.
    QApplication::processEvents();
    return cancel_;
  };
  running_ = true;
  cancel_ = false;
  cmdExportPrint->setEnabled(false);
  RunBatchExport(session_, prompts_, Settings(), run);
  running_ = false;
  cmdExportPrint->setEnabled(true);
}

// --- frmPluralSoundings ---

FrmPluralSoundings::FrmPluralSoundings(Session& session, UserPrompts& prompts, std::function<void()> on_return,
                                       QWidget* parent)
    : QMainWindow(parent), session_(session), prompts_(prompts), on_return_(std::move(on_return)) {
  setObjectName("frmPluralSoundings");
  setWindowTitle("PROCESS MULTIPLE SOUNDINGS");
  auto* central = new QWidget(this);
  auto* layout = new QHBoxLayout(central);

  auto* left = new QVBoxLayout;
  auto* modes = new QGroupBox("MODE", central);
  auto* mode_layout = new QVBoxLayout(modes);
  optBatchSelection = Named(new QRadioButton("BATCH", modes), "optBatchSelection");
  optCombinedSelection = Named(new QRadioButton("COMBINED", modes), "optCombinedSelection");
  optSideBySideSelection = Named(new QRadioButton("SIDE BY SIDE", modes), "optSideBySideSelection");
  for (QRadioButton* option : {optBatchSelection, optCombinedSelection, optSideBySideSelection}) {
    mode_layout->addWidget(option);
  }
  left->addWidget(modes);
  auto* scaling = new QGroupBox("SCALING", central);
  auto* scaling_layout = new QVBoxLayout(scaling);
  optCommonScaling = Named(new QRadioButton("COMMON", scaling), "optCommonScaling");
  optIndividualScaling = Named(new QRadioButton("INDIVIDUAL", scaling), "optIndividualScaling");
  scaling_layout->addWidget(optCommonScaling);
  scaling_layout->addWidget(optIndividualScaling);
  left->addWidget(scaling);
  left->addWidget(new QLabel("DEPTH INTERVAL", central));
  txtDepthInterval = Named(new QLineEdit(central), "txtDepthInterval");
  left->addWidget(txtDepthInterval);
  auto* tests = new QGroupBox("TESTS", central);
  auto* test_grid = new QGridLayout(tests);
  for (int t = 0; t < kMaxSetTests; ++t) {
    auto* check = Named(new QCheckBox(tests), "chkSelectTest");
    check->hide();
    test_grid->addWidget(check, t % 15, t / 15);
    chkSelectTest.push_back(check);
  }
  left->addWidget(tests, 1);
  layout->addLayout(left, 1);

  auto* lists = new QVBoxLayout;
  lists->addWidget(new QLabel("AVAILABLE CHANNELS", central));
  lstAvailableChannels = Named(new QListWidget(central), "lstAvailableChannels");
  lists->addWidget(lstAvailableChannels, 2);
  lists->addWidget(new QLabel("SELECTED CHANNELS", central));
  lstSelectedChannels = Named(new QListWidget(central), "lstSelectedChannels");
  lists->addWidget(lstSelectedChannels, 1);
  layout->addLayout(lists, 1);

  auto* buttons = new QVBoxLayout;
  cmdLoadIndividualTest = NamedButton(buttons, central, "cmdLoadIndividualTest", "LOAD TEST");
  cmdLoadMultipleTests = NamedButton(buttons, central, "cmdLoadMultipleTests", "LOAD MULTIPLE TESTS");
  cmdPlotSounding = NamedButton(buttons, central, "cmdPlotSounding", "PLOT");
  cmdListSounding = NamedButton(buttons, central, "cmdListSounding", "LIST");
  cmdListECP = NamedButton(buttons, central, "cmdListECP", "LIST ECP");
  cmdEdit = NamedButton(buttons, central, "cmdEdit", "EDIT");
  cmdBatchExport = NamedButton(buttons, central, "cmdBatchExport", "BATCH EXPORT / PRINT");
  cmdSelectDeselectAll = NamedButton(buttons, central, "cmdSelectDeselectAll", "SELECT / DESELECT ALL");
  cmdClearSelection = NamedButton(buttons, central, "cmdClearSelection", "CLEAR SELECTION");
  cmdClearAll = NamedButton(buttons, central, "cmdClearAll", "CLEAR ALL");
  buttons->addStretch(1);
  layout->addLayout(buttons);
  setCentralWidget(central);

  QMenu* templates = menuBar()->addMenu("&Templates");
  mnuSelectTemplate = NamedAction(templates, "mnuSelectTemplate", "&Select Template...");
  mnuSaveTemplate = NamedAction(templates, "mnuSaveTemplate", "Sa&ve Template...");
  mnuReturn = Named(menuBar()->addAction("&Return"), "mnuReturn");

  // The mode and scaling of last time, else batch and common scaling.
  const int mode = session_.MultipleSoundingMode;
  (mode == 1 ? optCombinedSelection : mode == 2 ? optSideBySideSelection : optBatchSelection)->setChecked(true);
  const bool preferences = FileExists(session_.SettingsPath("Multiple Sounding Preferences.txt"));
  session_.set.ScalingMode = preferences ? session_.MultipleSoundingScaling : 1;
  (session_.set.ScalingMode == 1 ? optCommonScaling : optIndividualScaling)->setChecked(true);
  selected_ = ReadDefaultTemplateSelection(session_.Paths().data_directory);

  SetSelectionMode(session_, mode == 1 || mode == 2 ? mode : 0);
  for (QRadioButton* option : {optBatchSelection, optCombinedSelection, optSideBySideSelection}) {
    connect(option, &QRadioButton::clicked, this, [this] {
      Handle("optSelection_Click", [&] {
        selected_.clear();
        SetSelectionMode(session_, optCombinedSelection->isChecked() ? 1 : optSideBySideSelection->isChecked() ? 2 : 0);
      });
    });
  }
  connect(optCommonScaling, &QRadioButton::clicked, this, [this] { session_.set.ScalingMode = 1; });
  connect(optIndividualScaling, &QRadioButton::clicked, this, [this] { session_.set.ScalingMode = 0; });
  for (size_t t = 0; t < chkSelectTest.size(); ++t) {
    connect(chkSelectTest[t], &QCheckBox::clicked, this, [this, t](bool checked) {
      Handle("chkSelectTest_Click", [&] {
        if (t < session_.set.tests.size()) session_.set.tests[t].selected = checked;
      });
    });
  }
  connect(lstAvailableChannels, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
    const std::string name = Latin1Of(item->text());
    Handle("lstAvailableChannels_Click", [&] { ToggleSetChannel(selected_, name, prompts_); });
  });
  connect(lstSelectedChannels, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
    const std::string name = Latin1Of(item->text());
    Handle("lstSelectedChannels_Click", [&] { ToggleSetChannel(selected_, name, prompts_); });
  });
  connect(cmdLoadIndividualTest, &QPushButton::clicked, this, [this] {
    Handle("cmdLoadIndividualTest_Click", [&] {
      FileDialogRequest request;
      request.title = "Open";
      request.filter = kSoundingFilter;
      request.filter_index = 3;
      if (DirectoryExists(session_.SoundingDirectory)) request.start_directory = session_.SoundingDirectory;
      const std::string path = prompts_.OpenFile(request);
      if (!path.empty()) LoadFiles({path});
    });
  });
  connect(cmdLoadMultipleTests, &QPushButton::clicked, this, [this] {
    Handle("cmdLoadMultipleTests_Click", [&] {
      FrmLoadMultipleSoundings dialog(session_, prompts_, this);
      if (dialog.exec() == QDialog::Accepted) {
        dialog.lblLoading->setText(".........");
        LoadFiles(dialog.Chosen());
        WriteLastDataDirectory(session_, PathOf(dialog.Folder()));
      }
    });
  });
  connect(cmdPlotSounding, &QPushButton::clicked, this, [this] { Handle("cmdPlotSounding_Click", [&] { PlotSounding(); }); });
  connect(cmdListSounding, &QPushButton::clicked, this, [this] { Handle("cmdListSounding_Click", [&] { ListSounding(); }); });
  connect(cmdListECP, &QPushButton::clicked, this, [this] { Handle("cmdListECP_Click", [&] { ListEcp(); }); });
  connect(cmdEdit, &QPushButton::clicked, this, [this] { Handle("cmdEdit_Click", [&] { EditTest(); }); });
  connect(cmdBatchExport, &QPushButton::clicked, this, [this] {
    Handle("cmdBatchExport_Click", [&] {
      if (SelectedTests(session_).empty()) {
        prompts_.Tell("PLEASE SELECT AT LEAST ONE TEST");
        return;
      }
      // The batch makes each test current in turn: the batch plot's test goes back to its slot.
      PutBackCurrentTest();
      FrmBatchExport(session_, prompts_, selected_, this).exec();
    });
  });
  connect(cmdSelectDeselectAll, &QPushButton::clicked, this, [this] {
    Handle("cmdSelectDeselectAll_Click", [&] {
      const bool all = !SelectedTests(session_).empty() && SelectedTests(session_).size() == session_.set.tests.size();
      for (SetTest& test : session_.set.tests) test.selected = !all;
    });
  });
  connect(cmdClearSelection, &QPushButton::clicked, this, [this] {
    Handle("cmdClearSelection_Click", [&] {
      for (SetTest& test : session_.set.tests) test.selected = false;
    });
  });
  connect(cmdClearAll, &QPushButton::clicked, this, [this] {
    Handle("cmdClearAll_Click", [&] {
      PutBackCurrentTest();
      ClearSet(session_);
      selected_.clear();
    });
  });
  connect(mnuSelectTemplate, &QAction::triggered, this, [this] {
    Handle("mnuSelectTemplate_Click", [&] {
      FrmSoundingTemplate(session_, prompts_, [this](const std::vector<std::string>& names) {
        const std::vector<std::string> available = SetChannelNames(session_);
        selected_.clear();
        for (int position : UseSoundingTemplate(available, names)) {
          if (selected_.size() < static_cast<size_t>(kMaxSetSelection)) selected_.push_back(available[static_cast<size_t>(position)]);
        }
      }, this).exec();
    });
  });
  connect(mnuSaveTemplate, &QAction::triggered, this, [this] {
    Handle("mnuSaveTemplate_Click", [&] { FrmSoundingSaveTemplate(session_, prompts_, selected_, this).exec(); });
  });
  connect(mnuReturn, &QAction::triggered, this, [this] { Handle("mnuReturn_Click", [&] { Return(); }); });
  ScaleFormControls(this, 1, 1, 1);
  resize(900, 620);
  LoadSoundings();
}

FrmPluralSoundings::~FrmPluralSoundings() {
  if (edit_window_ != nullptr) edit_window_->CloseWithoutAsking();
  ecp_window_.reset();
  edit_window_.reset();
  batch_plot_.reset();
  current_.reset();
  EndSelectionMode(session_);
}

void FrmPluralSoundings::PutBackCurrentTest() {
  if (edit_window_ != nullptr) edit_window_->CloseWithoutAsking();
  edit_window_.reset();
  ecp_window_.reset();
  batch_plot_.reset();
  current_.reset();
}

void FrmPluralSoundings::Handle(const char* source, const std::function<void()>& handler) {
  RunGuarded(prompts_, source, handler);
  LoadSoundings();
}

SetView FrmPluralSoundings::View() const {
  return optSideBySideSelection->isChecked() ? SetView::kSideBySide : SetView::kCombined;
}

void FrmPluralSoundings::LoadFiles(const std::vector<std::string>& paths) {
  // A test made current for the batch plot goes back to its slot before the set grows.
  PutBackCurrentTest();
  LoadSetFiles(session_, prompts_, paths);
  if (!paths.empty()) session_.SoundingDirectory = std::string(FolderPart(paths.back()));
  LoadSoundings();
}

void FrmPluralSoundings::LoadSoundings() {
  for (size_t t = 0; t < chkSelectTest.size(); ++t) {
    QCheckBox* check = chkSelectTest[t];
    const bool loaded = t < session_.set.tests.size();
    check->setVisible(loaded);
    if (!loaded) continue;
    const QSignalBlocker block(check);
    check->setText(ToQString(std::to_string(t + 1) + ": " + TestName(session_, static_cast<int>(t) + 1)));
    check->setChecked(session_.set.tests[t].selected);
  }
  PopulatePluralChannelList();
  SetSelectOptions();
}

void FrmPluralSoundings::PopulatePluralChannelList() {
  const std::vector<std::string> names = SetChannelNames(session_);
  // A chosen channel the first ticked test no longer offers leaves the selection.
  if (!names.empty()) {
    std::erase_if(selected_, [&names](const std::string& n) { return std::find(names.begin(), names.end(), n) == names.end(); });
  }
  lstAvailableChannels->clear();
  for (const std::string& name : names) lstAvailableChannels->addItem(ToQString(name));
  lstSelectedChannels->clear();
  for (const std::string& name : selected_) lstSelectedChannels->addItem(ToQString(name));
}

void FrmPluralSoundings::SetSelectOptions() {
  const bool loaded = !session_.set.tests.empty();
  for (QPushButton* button : {cmdPlotSounding, cmdListSounding, cmdListECP, cmdEdit, cmdBatchExport, cmdClearAll,
                              cmdClearSelection, cmdSelectDeselectAll}) {
    button->setEnabled(loaded);
  }
  txtDepthInterval->setEnabled(!optBatchSelection->isChecked());
}

void FrmPluralSoundings::ReadEntries() {
  session_.set.CommonDepthInterval = static_cast<float>(LenientNumber(txtDepthInterval->text().toStdString()));
}

void FrmPluralSoundings::PlotSounding() {
  ReadEntries();
  if (optBatchSelection->isChecked()) {
    BatchPlot();
    return;
  }
  if (!CheckSetPlot(session_, View(), selected_, prompts_)) return;
  plot_window_ = std::make_unique<FrmSetPlot>(session_, prompts_, LayoutSetPlot(session_, View(), selected_), this);
  plot_window_->depths_shifted = [this] {
    if (list_window_ != nullptr && list_window_->isVisible()) list_window_->Refill();
  };
  plot_window_->setWindowFlag(Qt::Window);
  plot_window_->show();
}

void FrmPluralSoundings::ListSounding() {
  ReadEntries();
  if (!CheckSetList(session_, View(), selected_, prompts_)) return;
  list_window_ = std::make_unique<FrmCombinedSoundingData>(session_, prompts_, selected_, this);
  list_window_->put_back_current_test = [this] { PutBackCurrentTest(); };
  list_window_->tests_changed = [this] {
    if (plot_window_ != nullptr) plot_window_->Relayout();
  };
  list_window_->setWindowFlag(Qt::Window);
  list_window_->show();
}

std::vector<int> FrmPluralSoundings::MakeTestCurrent(int index) {
  const std::vector<int> tests = SelectedTests(session_);
  if (index < 0 || index >= static_cast<int>(tests.size())) return {};
  // The list and editor of the test on show would go on working on the next one: they close first.
  if (edit_window_ != nullptr) edit_window_->CloseWithoutAsking();
  edit_window_.reset();
  ecp_window_.reset();
  current_.reset();
  current_.emplace(session_, tests[static_cast<size_t>(index)]);
  current_index_ = index;
  return CurrentChannels();
}

std::vector<int> FrmPluralSoundings::CurrentChannels() const {
  std::vector<int> channels;
  for (const std::string& name : selected_) {
    if (const int c = ChannelNamed(session_.Sounding(), name); c != 0) channels.push_back(c);
  }
  if (channels.empty()) channels = DefaultListSelection(session_.Sounding());
  if (channels.size() > static_cast<size_t>(kMaxPlotColumns)) channels.resize(kMaxPlotColumns);
  return channels;
}

// Batch: the sounding plot window on the first ticked test, stepping through the others.
void FrmPluralSoundings::BatchPlot() {
  if (SelectedTests(session_).empty()) {
    prompts_.Tell("PLEASE SELECT AT LEAST ONE TEST");
    return;
  }
  if (selected_.empty()) {
    prompts_.Tell("Please select at least one channel to plot");
    return;
  }
  PutBackCurrentTest();
  const std::vector<int> channels = MakeTestCurrent(0);
  batch_plot_ = std::make_unique<Form4>(session_, prompts_, channels, 1, [this] {
    if (batch_plot_ != nullptr) batch_plot_.release()->deleteLater();
    PutBackCurrentTest();
  }, this);
  batch_plot_->setWindowFlag(Qt::Window);
  batch_plot_->SetTestStepper([this](int step) { return MakeTestCurrent(current_index_ + step); });
  batch_plot_->show();
}

std::optional<std::vector<int>> FrmPluralSoundings::TestForWindow() {
  if (SelectedTests(session_).empty()) {
    prompts_.Tell("PLEASE SELECT AT LEAST ONE TEST");
    return std::nullopt;
  }
  // The test on show in the batch plot stays current; otherwise the first ticked test is made so.
  if (current_.has_value() && batch_plot_ != nullptr) return CurrentChannels();
  PutBackCurrentTest();
  return MakeTestCurrent(0);
}

void FrmPluralSoundings::ListEcp() {
  const auto channels = TestForWindow();
  if (!channels) return;
  ecp_window_.reset();
  ecp_window_ = std::make_unique<FrmSoundingECPData>(session_, prompts_, *channels, this);
  ecp_window_->setWindowFlag(Qt::Window);
  ecp_window_->show();
}

// The editor works on the test's own store, lent to the session, so what it changes stays in the
// slot when the test goes back.
void FrmPluralSoundings::EditTest() {
  if (!TestForWindow()) return;
  if (edit_window_ != nullptr) edit_window_->CloseWithoutAsking();
  edit_window_ = std::make_unique<FrmEdit>(session_, prompts_, [this] { LoadSoundings(); }, this);
  edit_window_->setWindowFlag(Qt::Window);
  edit_window_->show();
}

void FrmPluralSoundings::Return() {
  const auto close_open = [this](QWidget* window, const char* question) {
    if (window == nullptr || !window->isVisible()) return true;
    if (prompts_.Ask(question, Buttons::kYesNo) != Answer::kYes) return false;
    // The editor may still keep the user from leaving it.
    window->close();
    return !window->isVisible();
  };
  if (!close_open(plot_window_.get(), "Plot window is open. Close window and continue?")) return;
  if (!close_open(batch_plot_.get(), "Plot window is open. Close window and continue?")) return;
  if (!close_open(list_window_.get(), "List window is open. Close window and continue?")) return;
  if (!close_open(ecp_window_.get(), "ECP window is open. Close window and continue?")) return;
  if (!close_open(edit_window_.get(), "Edit window is open. Close window and continue?")) return;
  session_.MultipleSoundingMode = optCombinedSelection->isChecked() ? 1 : optSideBySideSelection->isChecked() ? 2 : 0;
  session_.MultipleSoundingScaling = session_.set.ScalingMode;
  WriteFileAtomically(session_.SettingsPath("Multiple Sounding Preferences.txt"),
                      std::to_string(session_.MultipleSoundingMode) + "\r\n" +
                          std::to_string(session_.MultipleSoundingScaling) + "\r\n");
  if (batch_plot_ != nullptr) batch_plot_.release()->deleteLater();
  ecp_window_.reset();
  edit_window_.reset();
  current_.reset();
  ClearSet(session_);
  EndSelectionMode(session_);
  selected_.clear();
  if (on_return_) on_return_();
}

}  // namespace marlview
