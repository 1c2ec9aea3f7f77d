// The sounding data window: widgets named as the controls they are; the rows, the texts, the
// settings and the saving of exports belong to the core's list.
#include "ui/presentation/sounding_data_window.h"

#include <QAction>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>
#include <string>

#include "core/editing/edit_operations.h"
#include "core/presentation/sounding_exports.h"
#include "core/presentation/sounding_report.h"
#include "core/session/session.h"
#include "ui/common/event_guard.h"
#include "ui/common/named.h"
#include "ui/common/qt_prompts.h"
#include "ui/editing/parameter_dialogs_ui.h"
#include "ui/presentation/ags_export_dialog.h"
#include "ui/presentation/data_table.h"
#include "ui/presentation/frm_enlarged_tip_graph.h"
#include "ui/presentation/list_dialogs.h"
#include "ui/presentation/printer_print_job.h"
#include "ui/seismic/seismic_dialogs.h"

namespace marlview {
namespace {

constexpr int kPixelsPerCharacter = 7;

}  // namespace

FrmSoundingData::FrmSoundingData(Session& session, UserPrompts& prompts, std::vector<int> channels,
                                 QWidget* parent)
    : QMainWindow(parent), session_(session), prompts_(prompts) {
  setObjectName("frmSoundingData");
  setWindowTitle(ToQString("SOUNDING DATA: " + session_.Sounding().SoundingFileName));
  view_.channels = std::move(channels);
  view_.depth_unit = session_.DepthUnitIsMetric == 1 ? 1 : 2;
  session_.flags.ListWindowOpen = true;
  BuildControls();
  BuildMenus();
  Connect();
  UpdateChecks();
  Refill();
  resize(900, 700);
}

FrmSoundingData::~FrmSoundingData() {
  if (open_) session_.flags.ListWindowOpen = false;
}

void FrmSoundingData::closeEvent(QCloseEvent* event) {
  open_ = false;
  session_.flags.ListWindowOpen = false;
  QMainWindow::closeEvent(event);
}

void FrmSoundingData::BuildControls() {
  auto* central = new QWidget(this);
  auto* layout = new QVBoxLayout(central);
  lblHeader = NewHeaderBox(central);
  layout->addWidget(lblHeader);
  auto* previews = new QHBoxLayout;
  cmdShowTXTData = NamedButton(previews, central, "cmdShowTXTData", "SHOW .TXT DATA");
  cmdShowCSVData = NamedButton(previews, central, "cmdShowCSVData", "SHOW .CSV DATA");
  cmdShowCorData = NamedButton(previews, central, "cmdShowCorData", "SHOW .COR DATA");
  previews->addStretch(1);
  layout->addLayout(previews);
  grdData = new DataGrid(central);
  VScroll1 = Named(grdData->verticalScrollBar(), "VScroll1");
  HScroll1 = Named(grdData->horizontalScrollBar(), "HScroll1");
  layout->addWidget(grdData, 1);
  setCentralWidget(central);
}

void FrmSoundingData::BuildMenus() {
  QMenu* file = menuBar()->addMenu("&File");
  file->setObjectName("mnuFile");
  mnuPrint = NamedAction(file, "mnuPrint", "&Print...");
  mnuPrintPreview = NamedAction(file, "mnuPrintPreview", "Print Pre&view...");
  file->addSeparator();
  QMenu* save = file->addMenu("&Save / Export");
  save->setObjectName("mnuSave");
  mnuSavetxtIncludeHeader = NamedAction(save, "mnuSavetxtIncludeHeader", "Save .txt File (Include Header)");
  mnuSavetxtDiscardHeader = NamedAction(save, "mnuSavetxtDiscardHeader", "Save .txt File (Discard Header)");
  mnuExportCSVFileIncludeHeader =
      NamedAction(save, "mnuExportCSVFileIncludeHeader", "Export .csv File (Include Header)");
  mnuExportCSVFileDiscardHeader =
      NamedAction(save, "mnuExportCSVFileDiscardHeader", "Export .csv File (Discard Header)");
  mnuExportCorFileIncludeHeader =
      NamedAction(save, "mnuExportCorFileIncludeHeader", "Export .cor File (Include Header)");
  mnuExportCorFileDiscardHeader =
      NamedAction(save, "mnuExportCorFileDiscardHeader", "Export .cor File (Discard Header)");
  QMenu* gin = save->addMenu("Export &gIN File");
  gin->setObjectName("mnuExportGin");
  mnuExportGinPSI = NamedAction(gin, "mnuExportGinPSI", "psi");
  mnuExportGinTSF = NamedAction(gin, "mnuExportGinTSF", "tsf");
  mnuExportGinKPA = NamedAction(gin, "mnuExportGinKPA", "kPa");
  mnuExportGinMPA = NamedAction(gin, "mnuExportGinMPA", "MPa");
  mnuExportAgs4 = NamedAction(save, "mnuExportAgs4", "AGS4 File...");
  mnuSaveSedimaxtxtFile = NamedAction(save, "mnuSaveSedimaxtxtFile", "Save Sedimax .txt File");
  file->addSeparator();
  mnuSaveAs = NamedAction(file, "mnuSaveAs", "Save Sounding &As...");
  mnuExportLogDATCompatibleDATFile =
      NamedAction(file, "mnuExportLogDATCompatibleDATFile", "Export LOG DAT Compatible DAT File...");
  // A GEF sounding is read only: it is not written back in another layout.
  mnuSaveAs->setVisible(SoundingSaveOffered(session_.Sounding()));
  mnuExportLogDATCompatibleDATFile->setVisible(SoundingSaveOffered(session_.Sounding()));
  mnuReturn = NamedAction(file, "mnuReturn", "&Return to Main Form");

  QMenu* edit = menuBar()->addMenu("&Edit");
  edit->setObjectName("mnuEdit");
  mnuEditData = NamedAction(edit, "mnuEditData", "&Edit Data...");
  mnuRemoveRodBreaks = NamedAction(edit, "mnuRemoveRodBreaks", kRemoveRodBreaksMenuCaption);
  mnuWaterTable = NamedAction(edit, "mnuWaterTable", "&Water Table Depth...");
  mnuWetDensity = NamedAction(edit, "mnuWetDensity", "Wet &Density...");

  QMenu* view = menuBar()->addMenu("&View");
  view->setObjectName("mnuView");
  mnuMeters = NamedAction(view, "mnuMeters", "&Meters");
  mnuFeet = NamedAction(view, "mnuFeet", "&Feet");
  view->addSeparator();
  mnuAdjustedForOffsetDepth = NamedAction(view, "mnuAdjustedForOffsetDepth", "Adjusted for Offset - &Depth");
  mnuAdjustedForOffsetElev = NamedAction(view, "mnuAdjustedForOffsetElev", "Adjusted for Offset - &Elevation");
  mnuRawData = NamedAction(view, "mnuRawData", "&Raw Data");
  view->addSeparator();
  mnuDepthInterval = NamedAction(view, "mnuDepthInterval", "Depth &Interval...");
  mnuColumnWidths = NamedAction(view, "mnuColumnWidths", "&Column Widths...");
  for (QAction* action : {mnuMeters, mnuFeet, mnuAdjustedForOffsetDepth, mnuAdjustedForOffsetElev, mnuRawData}) {
    action->setCheckable(true);
  }
}

void FrmSoundingData::Handle(QAction* action, const char* source, std::function<void()> handler, bool refill) {
  connect(action, &QAction::triggered, this, [this, source, handler = std::move(handler), refill] {
    RunGuarded(prompts_, source, [&] {
      handler();
      if (refill) Refill();
    });
    UpdateChecks();
  });
}

void FrmSoundingData::Connect() {
  Handle(mnuMeters, "mnuMeters_Click", [this] { view_.depth_unit = 1; }, true);
  Handle(mnuFeet, "mnuFeet_Click", [this] { view_.depth_unit = 2; }, true);
  Handle(mnuAdjustedForOffsetDepth, "mnuAdjustedForOffsetDepth_Click", [this] {
    view_.raw = false;
    view_.elevation = false;
  }, true);
  Handle(mnuAdjustedForOffsetElev, "mnuAdjustedForOffsetElev_Click", [this] {
    view_.raw = false;
    view_.elevation = true;
  }, true);
  Handle(mnuRawData, "mnuRawData_Click", [this] { view_.raw = true; }, true);
  Handle(mnuDepthInterval, "mnuDepthInterval_Click", [this] {
    if (FrmNormalizeDepthIntervalDisplayOnly(view_, prompts_, this).exec() == QDialog::Accepted) Refill();
  }, false);
  Handle(mnuColumnWidths, "mnuColumnWidths_Click", [this] {
    if (FrmColumnWidths(session_, prompts_, this).exec() == QDialog::Accepted) Refill();
  }, false);
  Handle(mnuWaterTable, "mnuWaterTable_Click", [this] { FrmChangeWaterTableDepth(session_, prompts_, this).exec(); },
         true);
  Handle(mnuWetDensity, "mnuWetDensity_Click", [this] { FrmWetDensity(session_, prompts_, this).exec(); }, true);
  Handle(mnuPrint, "mnuPrint_Click", [this] {
    PrintWithDialog(this, [this](PrintJob& job) { PrintList(job, session_, view_); });
  }, false);
  Handle(mnuPrintPreview, "mnuPrintPreview_Click", [this] {
    PrintPreview(this, [this](PrintJob& job) {
      RunGuarded(prompts_, "mnuPrint_Click", [&] { PrintList(job, session_, view_); });
    });
  }, false);

  auto save = [this](QAction* action, const char* source, const char* extension, std::function<std::string()> render) {
    Handle(action, source, [this, extension, render = std::move(render)] {
      SaveExport(session_, prompts_, extension, render);
    }, false);
  };
  auto txt = [this](bool header) { return TxtExport(session_, ListExportOptions(view_, header)); };
  auto preview = [this](QPushButton* button, const char* source, const char* title,
                        std::function<std::string()> render) {
    connect(button, &QPushButton::clicked, this, [this, source, title, render = std::move(render)] {
      RunGuarded(prompts_, source, [&] {
        auto* shown = new FrmExportPreview(title + session_.Sounding().SoundingFileName, render(), this);
        shown->setAttribute(Qt::WA_DeleteOnClose);
        shown->show();
      });
    });
  };
  auto csv = [this](bool header, const char* extension) {
    return CsvExport(session_, ListExportOptions(view_, header), extension);
  };
  save(mnuSavetxtIncludeHeader, "mnuSavetxtIncludeHeader_Click", "txt", [txt] { return txt(true); });
  save(mnuSavetxtDiscardHeader, "mnuSavetxtDiscardHeader_Click", "txt", [txt] { return txt(false); });
  save(mnuExportCSVFileIncludeHeader, "mnuExportCSVFileIncludeHeader_Click", "csv", [csv] { return csv(true, "csv"); });
  save(mnuExportCSVFileDiscardHeader, "mnuExportCSVFileDiscardHeader_Click", "csv", [csv] { return csv(false, "csv"); });
  save(mnuExportCorFileIncludeHeader, "mnuExportCorFileIncludeHeader_Click", "cor", [csv] { return csv(true, "cor"); });
  save(mnuExportCorFileDiscardHeader, "mnuExportCorFileDiscardHeader_Click", "cor", [csv] { return csv(false, "cor"); });
  preview(cmdShowTXTData, "cmdShowTXTData_Click", "TXT DATA: ", [txt] { return txt(true); });
  preview(cmdShowCSVData, "cmdShowCSVData_Click", "CSV DATA: ", [csv] { return csv(true, "csv"); });
  preview(cmdShowCorData, "cmdShowCorData_Click", "COR DATA: ", [csv] { return csv(true, "cor"); });
  const std::pair<QAction*, GinUnit> gins[] = {{mnuExportGinPSI, GinUnit::kPsi},
                                               {mnuExportGinTSF, GinUnit::kTsf},
                                               {mnuExportGinKPA, GinUnit::kKpa},
                                               {mnuExportGinMPA, GinUnit::kMpa}};
  for (const auto& [action, unit] : gins) {
    save(action, "mnuExportGin_Click", "gIN", [this, unit = unit] { return GinExport(session_, unit); });
  }
  Handle(mnuExportAgs4, "mnuExportAgs4_Click", [this] {
    FrmAgsExport dialog(session_, prompts_, this);
    if (dialog.exec() != QDialog::Accepted || !dialog.Choice()) return;
    QtSeismicDialogs dialogs(this);
    SaveAgsFile(session_, prompts_, dialogs, *dialog.Choice());
  }, false);
  Handle(mnuSaveSedimaxtxtFile, "mnuSaveSedimaxtxtFile_Click", [] {}, false);
  Handle(mnuSaveAs, "mnuSaveAs_Click", [this] { ChooseAndSaveSounding(session_, prompts_, false); }, false);
  Handle(mnuExportLogDATCompatibleDATFile, "mnuExportLogDATCompatibleDATFile_Click",
         [this] { ChooseAndSaveSounding(session_, prompts_, true); }, false);
  Handle(mnuEditData, "mnuEditData_Click", [this] {
    if (open_editor_) open_editor_();
  }, false);
  Handle(mnuRemoveRodBreaks, "mnuRemoveRodBreaks_Click",
         [this] { OpenEnlargedTipGraph(session_, prompts_, this, view_.depth_unit); }, true);
  // Closing may lead the main window to delete this one later, so nothing of it is touched afterwards.
  connect(mnuReturn, &QAction::triggered, this,
          [this] { RunGuarded(prompts_, "mnuReturn_Click", [&] { close(); }); });
}

void FrmSoundingData::UpdateChecks() {
  mnuMeters->setChecked(view_.depth_unit == 1);
  mnuFeet->setChecked(view_.depth_unit != 1);
  mnuAdjustedForOffsetDepth->setChecked(!view_.raw && !view_.elevation);
  mnuAdjustedForOffsetElev->setChecked(!view_.raw && view_.elevation);
  mnuRawData->setChecked(view_.raw);
}

void FrmSoundingData::Refill() {
  ShowHeaderBlock(lblHeader, TextHeaderBlock(session_, ListExportOptions(view_, true)));
  grdData->Fill(
      ListHeading(session_, view_), ListRows(session_, view_),
      [this](int r) { return ListDepthText(session_, view_, r); },
      [this](int r, int column) { return ListCellText(session_, view_, r, view_.channels[static_cast<size_t>(column)]); },
      session_.ColumnWidth * kPixelsPerCharacter);
}

}  // namespace marlview
