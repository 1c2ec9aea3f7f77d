// The ECP data window and its template dialog: widgets named as the controls they are; the
// columns, texts, settings files and export belong to the core's ECP list.
#include "ui/presentation/ecp_window.h"

#include <QAction>
#include <QCheckBox>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>
#include <algorithm>
#include <string>
#include <utility>

#include "core/presentation/sounding_exports.h"
#include "core/presentation/sounding_list.h"
#include "core/session/session.h"
#include "ui/common/event_guard.h"
#include "ui/common/named.h"
#include "ui/common/qt_prompts.h"
#include "ui/presentation/data_table.h"

namespace marlview {
namespace {

constexpr int kColumnPixels = 110;

}  // namespace

FrmSetOrderedECPTemplate::FrmSetOrderedECPTemplate(Session& session, UserPrompts& prompts, QWidget* parent)
    : QDialog(parent), session_(session), prompts_(prompts) {
  setObjectName("frmSetOrderedECPTemplate");
  setWindowTitle("SET ORDERED ECP TEMPLATE");
  auto* layout = new QVBoxLayout(this);
  auto* area = new QScrollArea(this);
  auto* boxes = new QWidget(area);
  auto* boxes_layout = new QVBoxLayout(boxes);
  const SoundingStore& s = session_.Sounding();
  const std::vector<std::string> names = EcpTemplateNames(session_);
  for (int c = 1; c <= s.TotalChannels; ++c) {
    auto* box = Named(new QCheckBox(ToQString(s.ChannelName[c]), boxes), "chkChannel");
    box->setChecked(std::find(names.begin(), names.end(), s.ChannelName[c]) != names.end());
    boxes_layout->addWidget(box);
    chkChannel.push_back(box);
  }
  area->setWidget(boxes);
  layout->addWidget(area, 1);
  auto* buttons = new QHBoxLayout;
  cmdOK = Named(new QPushButton("OK", this), "cmdOK");
  cmdCancel = Named(new QPushButton("Cancel", this), "cmdCancel");
  buttons->addWidget(cmdOK);
  buttons->addWidget(cmdCancel);
  layout->addLayout(buttons);
  connect(cmdOK, &QPushButton::clicked, this, [this] {
    RunGuarded(prompts_, "cmdOK_Click", [&] {
      // The names from the sounding itself: a caption's text may carry an added accelerator mark.
      std::vector<std::string> chosen;
      for (size_t i = 0; i < chkChannel.size(); ++i) {
        if (chkChannel[i]->isChecked()) chosen.push_back(session_.Sounding().ChannelName[i + 1]);
      }
      SaveEcpTemplate(session_, chosen);
      accept();
    });
  });
  connect(cmdCancel, &QPushButton::clicked, this,
          [this] { RunGuarded(prompts_, "cmdCancel_Click", [&] { reject(); }); });
}

FrmSoundingECPData::FrmSoundingECPData(Session& session, UserPrompts& prompts, std::vector<int> selection,
                                       QWidget* parent)
    : QMainWindow(parent), session_(session), prompts_(prompts) {
  view_.selection = std::move(selection);
  setObjectName("frmSoundingECPData");
  setWindowTitle(ToQString("ECP DATA: " + session_.Sounding().SoundingFileName));
  session_.flags.EcpWindowOpen = true;
  view_.unit = ReadDefaultEcpUnit(session_);
  ChooseEcpColumns(session_, view_);
  BuildControls();
  BuildMenus();
  Connect();
  Refill();
  resize(1000, 700);
}

FrmSoundingECPData::~FrmSoundingECPData() {
  if (open_) session_.flags.EcpWindowOpen = false;
}

void FrmSoundingECPData::closeEvent(QCloseEvent* event) {
  open_ = false;
  session_.flags.EcpWindowOpen = false;
  QMainWindow::closeEvent(event);
}

void FrmSoundingECPData::BuildControls() {
  auto* central = new QWidget(this);
  auto* layout = new QVBoxLayout(central);
  lblHeader = NewHeaderBox(central);
  layout->addWidget(lblHeader);
  auto* buttons = new QHBoxLayout;
  auto button = [&](const char* name, const QString& caption) { return NamedButton(buttons, central, name, caption); };
  cmdShowPSIECP = button("cmdShowPSIECP", "psi");
  cmdShowTSFECP = button("cmdShowTSFECP", "tsf");
  cmdShowKPAECP = button("cmdShowKPAECP", "kPa");
  cmdShowMPAECP = button("cmdShowMPAECP", "MPa");
  cmdShowECPData = button("cmdShowECPData", "ECP ORDER");
  cmdShowOrderedECPData = button("cmdShowOrderedECPData", "TEMPLATE ORDER");
  cmdSetOrderedECPTemplate = button("cmdSetOrderedECPTemplate", "SET TEMPLATE...");
  layout->addLayout(buttons);
  grdData = new DataGrid(central);
  layout->addWidget(grdData, 1);
  setCentralWidget(central);
}

void FrmSoundingECPData::BuildMenus() {
  QMenu* file = menuBar()->addMenu("&File");
  file->setObjectName("mnuFile");
  mnuExportEcpFile = NamedAction(file, "mnuExportEcpFile", "&Export .ecp File");
  file->addSeparator();
  mnuReturn = NamedAction(file, "mnuReturn", "&Return to Main Form");
}

void FrmSoundingECPData::OnClick(QPushButton* button, const char* source, std::function<void()> handler) {
  connect(button, &QPushButton::clicked, this, [this, source, handler = std::move(handler)] {
    RunGuarded(prompts_, source, [&] {
      handler();
      Refill();
    });
  });
}

void FrmSoundingECPData::Connect() {
  const std::pair<QPushButton*, const char*> units[] = {{cmdShowPSIECP, "cmdShowPSIECP_Click"},
                                                        {cmdShowTSFECP, "cmdShowTSFECP_Click"},
                                                        {cmdShowKPAECP, "cmdShowKPAECP_Click"},
                                                        {cmdShowMPAECP, "cmdShowMPAECP_Click"}};
  for (int unit = kEcpPsi; unit <= kEcpMpa; ++unit) {
    const auto& [button, source] = units[unit];
    OnClick(button, source, [this, unit] {
      view_.unit = unit;
      WriteDefaultEcpUnit(session_, unit);
    });
  }
  OnClick(cmdShowECPData, "cmdShowECPData_Click", [this] {
    view_.ordered = false;
    ChooseEcpColumns(session_, view_);
  });
  OnClick(cmdShowOrderedECPData, "cmdShowOrderedECPData_Click", [this] {
    view_.ordered = true;
    ChooseEcpColumns(session_, view_);
  });
  OnClick(cmdSetOrderedECPTemplate, "cmdSetOrderedECPTemplate_Click", [this] {
    if (FrmSetOrderedECPTemplate(session_, prompts_, this).exec() != QDialog::Accepted) return;
    view_.ordered = true;
    ChooseEcpColumns(session_, view_);
  });
  connect(mnuExportEcpFile, &QAction::triggered, this, [this] {
    RunGuarded(prompts_, "mnuExportEcpFile_Click",
               [&] { SaveExport(session_, prompts_, "ecp", [this] { return EcpExport(session_, view_); }); });
  });
  // Closing may lead the main window to delete this one later, so nothing of it is touched afterwards.
  connect(mnuReturn, &QAction::triggered, this,
          [this] { RunGuarded(prompts_, "mnuReturn_Click", [&] { close(); }); });
}

void FrmSoundingECPData::Refill() {
  ExportOptions options;
  options.depth_unit = session_.DepthUnitIsMetric == 1 ? 1 : 2;
  ShowHeaderBlock(lblHeader, TextHeaderBlock(session_, options));
  std::vector<int> rows(static_cast<size_t>(session_.Sounding().ReadingCount));
  for (size_t i = 0; i < rows.size(); ++i) rows[i] = static_cast<int>(i) + 1;
  grdData->Fill(
      EcpHeading(session_, view_), rows, [this](int r) { return EcpDepthText(session_, r); },
      [this](int r, int column) { return EcpCellText(session_, view_, r, view_.channels[static_cast<size_t>(column)]); },
      kColumnPixels);
}

}  // namespace marlview
