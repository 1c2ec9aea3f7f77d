// frmPPData: widgets named as the controls they are; rows, texts and exports come from the core's
// dissipation list.
#include "ui/dissipation/frm_pp_data.h"

#include <QAction>
#include <QFontDatabase>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QVBoxLayout>

#include "core/session/session.h"
#include "core/shell/settings_dialogs.h"
#include "ui/common/event_guard.h"
#include "ui/common/named.h"
#include "ui/common/qt_prompts.h"
#include "ui/presentation/data_table.h"
#include "ui/presentation/printer_print_job.h"
#include "ui/settings/frm_print_settings.h"

namespace marlview {
namespace {

constexpr int kPixelsPerCharacter = 8;

QFont ListFont() {
  QFont font("Courier New");
  font.setStyleHint(QFont::TypeWriter);
  return font;
}

}  // namespace

FrmPPData::FrmPPData(Session& session, UserPrompts& prompts, int test, std::function<void()> on_return,
                     QWidget* parent)
    : QMainWindow(parent), session_(session), prompts_(prompts), on_return_(std::move(on_return)) {
  setObjectName("frmPPData");
  view_.test = test;
  setWindowTitle(ToQString(DissipationListCaption(session_.Dissipation())));
  BuildControls();
  BuildMenus();
  Connect();
  Refill();
  resize(760, 640);
}

FrmPPData::~FrmPPData() = default;

void FrmPPData::BuildControls() {
  auto* central = new QWidget(this);
  auto* layout = new QVBoxLayout(central);
  lblHeader = NewHeaderBox(central);
  layout->addWidget(lblHeader);
  grdData = new DataGrid(central);
  grdData->setFont(ListFont());
  VScroll1 = Named(grdData->verticalScrollBar(), "VScroll1");
  layout->addWidget(grdData, 1);
  setCentralWidget(central);
}

void FrmPPData::BuildMenus() {
  QMenu* file = menuBar()->addMenu("&File");
  file->setObjectName("mnuFile");
  mnuPrint = NamedAction(file, "mnuPrint", "&Print...");
  mnuSaveFile = NamedAction(file, "mnuSaveFile", "&Save .txt File...");
  mnuExportcsvFile = NamedAction(file, "mnuExportcsvFile", "&Export .csv File...");
  mnuPrintSettings = NamedAction(file, "mnuPrintSettings", "Print Se&ttings...");
  file->addSeparator();
  mnuReturn = NamedAction(file, "mnuReturn", "&Return to Main Form");

  QMenu* edit = menuBar()->addMenu("&Edit");
  edit->setObjectName("mnuEditMenu");
  mnuEdit = NamedAction(edit, "mnuEdit", "&Edit Dissipation...");

  QMenu* view = menuBar()->addMenu("&View");
  view->setObjectName("mnuView");
  mnuShowPercentageMaxPressure = NamedAction(view, "mnuShowPercentageMaxPressure", "Show % &Max Pressure");
  mnuShowPercentageOverPressure =
      NamedAction(view, "mnuShowPercentageOverPressure", "Show % &Over Head Pressure");
  mnuShowPercentageMaxPressure->setCheckable(true);
  mnuShowPercentageOverPressure->setCheckable(true);
}

void FrmPPData::On(QAction* action, const char* source, std::function<void()> handler) {
  connect(action, &QAction::triggered, this,
          [this, source, handler = std::move(handler)] { RunGuarded(prompts_, source, handler); });
}

void FrmPPData::Connect() {
  On(mnuShowPercentageMaxPressure, "mnuShowPercentageMaxPressure_Click", [this] {
    view_.show_percent_max = mnuShowPercentageMaxPressure->isChecked();
    Refill();
  });
  On(mnuShowPercentageOverPressure, "mnuShowPercentageOverPressure_Click", [this] {
    view_.show_percent_head = mnuShowPercentageOverPressure->isChecked();
    Refill();
  });
  On(mnuPrint, "mnuPrint_Click", [this] {
    PrintWithDialog(this, [this](PrintJob& job) {
      RunGuarded(prompts_, "mnuPrint_Click", [&] { PrintDissipationList(job, session_, view_); });
    });
  });
  On(mnuSaveFile, "mnuSaveFile_Click", [this] { SaveDissipationList(session_, prompts_, view_, false); });
  On(mnuExportcsvFile, "mnuExportcsvFile_Click",
     [this] { SaveDissipationList(session_, prompts_, view_, true); });
  On(mnuEdit, "mnuEdit_Click", [this] { TellNotAvailable(prompts_, "The dissipation editor"); });
  On(mnuPrintSettings, "mnuPrintSettings_Click", [this] {
    FrmPrintSettings settings(session_, prompts_, ReportKind::kDissipation, DissipationReportFamily(session_), {}, this);
    settings.list_window_open = true;
    settings.exec();
  });
  // Returning may close and delete this window, so nothing of it is touched afterwards.
  connect(mnuReturn, &QAction::triggered, this, [this] {
    RunGuarded(prompts_, "mnuReturn_Click", [&] {
      if (on_return_) on_return_();
    });
  });
}

void FrmPPData::Refill() {
  const DissipationSet& set = session_.Dissipation();
  // The head column is offered only while the water table lies above the test.
  const bool head = PercentHeadAvailable(set, view_.test);
  if (!head) view_.show_percent_head = false;
  mnuShowPercentageOverPressure->setEnabled(head);
  mnuShowPercentageMaxPressure->setChecked(view_.show_percent_max);
  mnuShowPercentageOverPressure->setChecked(view_.show_percent_head);
  ShowHeaderBlock(lblHeader, DissipationPrintHeader(session_, view_));
  std::vector<std::string> heading;
  int widest = 0;
  for (const DissipationColumn& column : DissipationListColumns(session_, view_)) {
    heading.push_back(column.heading + "\n" + column.unit_line);
    widest = std::max(widest, column.width);
  }
  std::vector<int> rows(static_cast<size_t>(set.RowCount[static_cast<size_t>(view_.test)]));
  for (size_t k = 0; k < rows.size(); ++k) rows[k] = static_cast<int>(k) + 1;
  // Cells are formatted by the grid only as they come into view.
  grdData->Fill(
      heading, rows, [this](int row) { return DissipationListCell(session_.Dissipation(), view_, row, 0); },
      [this](int row, int column) {
        return DissipationListCell(session_.Dissipation(), view_, row, column + 1);
      },
      (widest + 2) * kPixelsPerCharacter);
}

}  // namespace marlview
