// The main window: widgets named as the controls they are, each event handed to the controller.
#include "ui/shell/form1.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "ui/common/event_guard.h"
#include "ui/common/named.h"
#include "ui/common/qt_prompts.h"
#include "ui/dissipation/dissipation_panel.h"
#include "ui/editing/frm_edit.h"
#include "ui/multisounding/frm_plural_soundings.h"
#include "ui/editing/parameter_dialogs_ui.h"
#include "ui/presentation/ecp_window.h"
#include "ui/presentation/form4.h"
#include "ui/presentation/form6.h"
#include "ui/presentation/sounding_data_window.h"
#include "ui/seismic/seisform.h"
#include "ui/settings/frm_display_units.h"
#include "ui/settings/frm_print_settings.h"
#include "ui/settings/settings_windows.h"
#include "ui/verification/frm_verification.h"
#include "ui/video/frm_video_processor.h"

namespace marlview {
namespace {

void FillList(QListWidget* list, const std::vector<std::string>& rows) {
  QStringList texts;
  for (const auto& row : rows) texts << ToQString(row);
  QStringList current;
  for (int i = 0; i < list->count(); ++i) current << list->item(i)->text();
  if (current == texts) return;
  list->clear();
  list->addItems(texts);
}

}  // namespace

Form1::Form1(Session& session, UserPrompts& prompts, QWidget* parent)
    : QMainWindow(parent), session_(session), prompts_(prompts), controller_(session, prompts) {
  setObjectName("Form1");
  setWindowTitle(kProgramTitle);
  BuildControls();
  BuildMenus();
  Connect();
  Refresh();
  resize(760, 560);
}

Form1::~Form1() = default;

void Form1::BuildControls() {
  auto* central = new QWidget(this);
  auto* layout = new QVBoxLayout(central);

  frmSelectTestType = Named(new QGroupBox("SELECT PROCESSING OPTION", central), "frmSelectTestType");
  auto* modes_layout = new QVBoxLayout(frmSelectTestType);
  modes_ = new QButtonGroup(this);
  auto option = [&](const char* name, const QString& caption) {
    auto* button = Named(new QRadioButton(caption, frmSelectTestType), name);
    modes_layout->addWidget(button);
    modes_->addButton(button);
    return button;
  };
  optProcessSounding = option("optProcessSounding", "PROCESS SOUNDING");
  optProcessSoundingsBatch = option("optProcessSoundingsBatch", "PROCESS MULTIPLE SOUNDINGS");
  optProcessDissipations = option("optProcessDissipations", "PROCESS DISSIPATIONS");
  optProcessSeismic = option("optProcessSeismic", "PROCESS SEISMIC");
  optProcessVideo = option("optProcessVideo", "PROCESS VIDEO");
  optProcessVerification = option("optProcessVerification", "PROCESS VERIFICATION");
  modes_layout->addStretch(1);
  layout->addWidget(frmSelectTestType);

  frmSelectSoundingChannels =
      Named(new QGroupBox("SELECT CHANNELS", central), "frmSelectSoundingChannels");
  auto* channels_layout = new QVBoxLayout(frmSelectSoundingChannels);
  lblSoundingInfo = Named(new QLabel(frmSelectSoundingChannels), "lblSoundingInfo");
  lblSoundingInfo->setTextInteractionFlags(Qt::TextSelectableByMouse);
  channels_layout->addWidget(lblSoundingInfo);
  auto* lists = new QHBoxLayout;
  auto* available_box = new QVBoxLayout;
  available_box->addWidget(new QLabel("AVAILABLE CHANNELS"));
  lstAvailableChannels = Named(new QListWidget(frmSelectSoundingChannels), "lstAvailableChannels");
  available_box->addWidget(lstAvailableChannels);
  auto* selected_box = new QVBoxLayout;
  selected_box->addWidget(new QLabel("SELECTED CHANNELS"));
  lstSelectedChannels = Named(new QListWidget(frmSelectSoundingChannels), "lstSelectedChannels");
  selected_box->addWidget(lstSelectedChannels);
  lists->addLayout(available_box);
  lists->addLayout(selected_box);
  channels_layout->addLayout(lists);
  chkPiezoFilterPresent = Named(new QCheckBox("PIEZO FILTER PRESENT", frmSelectSoundingChannels),
                                "chkPiezoFilterPresent");
  channels_layout->addWidget(chkPiezoFilterPresent);
  auto* buttons = new QHBoxLayout;
  auto button = [&](const char* name, const QString& caption) { return NamedButton(buttons, frmSelectSoundingChannels, name, caption); };
  cmdPlotSounding = button("cmdPlotSounding", "PLOT");
  cmdListSounding = button("cmdListSounding", "LIST");
  cmdListECP = button("cmdListECP", "ECP LIST");
  cmdEditSounding = button("cmdEditSounding", "EDIT");
  cmdSetWaterTableDepth = button("cmdSetWaterTableDepth", "WATER TABLE");
  cmdClearSelection = button("cmdClearSelection", "CLEAR SELECTION");
  cmdSoundingDone = button("cmdSoundingDone", "DONE");
  channels_layout->addLayout(buttons);
  layout->addWidget(frmSelectSoundingChannels);
  frmDissipations = new DissipationPanel(session_, prompts_, controller_, [this] { Refresh(); }, central);
  layout->addWidget(frmDissipations);
  setCentralWidget(central);
}

void Form1::BuildMenus() {
  QMenu* file = menuBar()->addMenu("&File");
  file->setObjectName("mnuFile");
  mnuAddData = NamedAction(file, "mnuAddData", "&Add Data...");
  file->addSeparator();
  mnuExit = NamedAction(file, "mnuExit", "E&xit");

  QMenu* settings = menuBar()->addMenu("&Settings");
  settings->setObjectName("mnuSettings");
  QMenu* selection = settings->addMenu("Sounding &Selection");
  selection->setObjectName("mnuSoundingSelection");
  mnuSingleTest = NamedAction(selection, "mnuSingleTest", "&Single Test");
  mnuMultipleTests = NamedAction(selection, "mnuMultipleTests", "&Multiple Tests");
  mnuSingleTest->setCheckable(true);
  mnuMultipleTests->setCheckable(true);
  mnuChannelUnitsFormats = NamedAction(settings, "mnuChannelUnitsFormats", "Channel &Units and Formats...");
  mnuGeneralSettings = NamedAction(settings, "mnuGeneralSettings", "&General Settings...");
  mnuNormalisedClassification = NamedAction(settings, "mnuNormalisedClassification", "&Normalised classification");
  mnuNormalisedClassification->setCheckable(true);
  QMenu* print = settings->addMenu("&Print Settings");
  print->setObjectName("mnuPrintSettings");
  mnuSoundingPrintSettings = NamedAction(print, "mnuSoundingPrintSettings", "&Sounding...");
  mnuDissipationPrintSettings = NamedAction(print, "mnuDissipationPrintSettings", "&Dissipation...");
  mnuSeismicPrintSettings = NamedAction(print, "mnuSeismicPrintSettings", "S&eismic...");
  QMenu* templates = settings->addMenu("&Templates");
  templates->setObjectName("mnuTemplates");
  mnuSelectTemplate = NamedAction(templates, "mnuSelectTemplate", "&Select Template...");
  mnuSaveTemplate = NamedAction(templates, "mnuSaveTemplate", "Sa&ve Template...");

  QMenu* view = menuBar()->addMenu("&View");
  view->setObjectName("mnuView");
  mnuClassificationChart = NamedAction(view, "mnuClassificationChart", "&Classification Chart");

  QMenu* help = menuBar()->addMenu("&Help");
  help->setObjectName("mnuHelp");
  mnuAbout = NamedAction(help, "mnuAbout", "&About Marlview");
}

void Form1::Handle(const char* source, const std::function<void()>& handler) {
  RunGuarded(prompts_, source, handler);
  Refresh();
  // An event here may have derived the sounding again; an open plot shows it at once.
  RefreshViews();
}

void Form1::RefreshViews() {
  if (plot_window_ != nullptr && session_.flags.PlotWindowOpen) plot_window_->Repaint();
  if (list_window_ != nullptr && session_.flags.ListWindowOpen) list_window_->Refill();
  if (ecp_window_ != nullptr && session_.flags.EcpWindowOpen) ecp_window_->Refill();
}

void Form1::Connect() {
  auto mode = [this](QRadioButton* button, ProcessingMode which, const char* source) {
    connect(button, &QRadioButton::clicked, this,
            [this, which, source] { Handle(source, [&] { controller_.ChooseMode(which); }); });
  };
  mode(optProcessSounding, ProcessingMode::kSounding, "optProcessSounding_Click");
  mode(optProcessSoundingsBatch, ProcessingMode::kSoundingsBatch, "optProcessSoundingsBatch_Click");
  mode(optProcessDissipations, ProcessingMode::kDissipations, "optProcessDissipations_Click");
  mode(optProcessSeismic, ProcessingMode::kSeismic, "optProcessSeismic_Click");
  mode(optProcessVideo, ProcessingMode::kVideo, "optProcessVideo_Click");
  mode(optProcessVerification, ProcessingMode::kVerification, "optProcessVerification_Click");

  connect(lstAvailableChannels, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
    const int row = lstAvailableChannels->row(item);
    Handle("lstAvailableChannels_Click", [&] { controller_.ClickAvailableChannel(row); });
  });
  connect(cmdClearSelection, &QPushButton::clicked, this,
          [this] { Handle("cmdClearSelection_Click", [&] { controller_.ClearSelection(); }); });
  connect(cmdPlotSounding, &QPushButton::clicked, this,
          [this] { Handle("cmdPlotSounding_Click", [&] { OpenPlotWindow(); }); });
  connect(cmdListSounding, &QPushButton::clicked, this,
          [this] { Handle("cmdListSounding_Click", [&] { OpenListWindow(); }); });
  connect(cmdListECP, &QPushButton::clicked, this,
          [this] { Handle("cmdListECP_Click", [&] { OpenEcpWindow(); }); });
  connect(cmdEditSounding, &QPushButton::clicked, this,
          [this] { Handle("cmdEditSounding_Click", [&] { OpenEditWindow(); }); });
  connect(cmdSetWaterTableDepth, &QPushButton::clicked, this, [this] {
    Handle("cmdSetWaterTableDepth_Click", [&] {
      FrmChangeWaterTableDepth(session_, prompts_, this).exec();
      if (edit_window_ != nullptr && session_.flags.EditWindowOpen) edit_window_->Refill();
    });
  });
  connect(cmdSoundingDone, &QPushButton::clicked, this, [this] {
    Handle("cmdSoundingDone_Click",
           [&] { controller_.SoundingDone([this](ViewWindow window) { CloseViewWindow(window); }); });
  });
  connect(chkPiezoFilterPresent, &QCheckBox::clicked, this, [this](bool checked) {
    Handle("chkPiezoFilterPresent_Click", [&] { controller_.SetPiezoFilterPresent(checked); });
  });

  connect(mnuAddData, &QAction::triggered, this,
          [this] { Handle("mnuAddData_Click", [&] { controller_.AddData(); }); });
  connect(mnuExit, &QAction::triggered, this, &QMainWindow::close);
  connect(mnuSingleTest, &QAction::triggered, this,
          [this] { Handle("mnuSingleTest_Click", [&] { controller_.SetSingleTest(); }); });
  connect(mnuMultipleTests, &QAction::triggered, this,
          [this] { Handle("mnuMultipleTests_Click", [&] { controller_.SetMultipleTests(); }); });
  connect(mnuNormalisedClassification, &QAction::triggered, this, [this](bool checked) {
    RunGuarded(prompts_, "mnuNormalisedClassification_Click",
               [&] { controller_.SetNormalisedClassification(checked); });
    Refresh();
    RefreshViews();
    if (auto* chart = findChild<Form6*>(QString(), Qt::FindDirectChildrenOnly)) chart->picChart->update();
  });
  const auto plot_changed = [this] {
    if (plot_window_ != nullptr && session_.flags.PlotWindowOpen) plot_window_->SettingsChanged();
  };
  connect(mnuChannelUnitsFormats, &QAction::triggered, this, [this] {
    Handle("mnuChannelUnitsFormats_Click", [&] { FrmDisplayUnits(session_, prompts_, this).exec(); });
  });
  connect(mnuGeneralSettings, &QAction::triggered, this, [this, plot_changed] {
    Handle("mnuGeneralSettings_Click", [&] { FrmGeneralSettings(session_, prompts_, plot_changed, this).exec(); });
  });
  const auto print_settings = [this, plot_changed](QAction* action, const char* source, ReportKind kind) {
    connect(action, &QAction::triggered, this, [this, plot_changed, source, kind] {
      Handle(source, [&] {
        const ReportFamily family = kind == ReportKind::kSounding      ? SoundingReportFamily(session_)
                                    : kind == ReportKind::kDissipation ? DissipationReportFamily(session_)
                                    : controller_.View().seismic_open  ? SeismicReportFamily(session_)
                                                                       : ReportFamily::kQrdFieldbox;
        FrmPrintSettings(session_, prompts_, kind, family, plot_changed, this).exec();
      });
    });
  };
  print_settings(mnuSoundingPrintSettings, "mnuSoundingPrintSettings_Click", ReportKind::kSounding);
  print_settings(mnuDissipationPrintSettings, "mnuDissipationPrintSettings_Click", ReportKind::kDissipation);
  print_settings(mnuSeismicPrintSettings, "mnuSeismicPrintSettings_Click", ReportKind::kSeismic);
  connect(mnuSelectTemplate, &QAction::triggered, this, [this] {
    Handle("mnuSelectTemplate_Click", [&] {
      FrmSoundingTemplate(session_, prompts_,
                          [this](const std::vector<std::string>& names) { controller_.UseSoundingTemplate(names); },
                          this)
          .exec();
    });
  });
  connect(mnuSaveTemplate, &QAction::triggered, this, [this] {
    Handle("mnuSaveTemplate_Click",
           [&] { FrmSoundingSaveTemplate(session_, prompts_, controller_.View().selected_rows, this).exec(); });
  });
  connect(mnuClassificationChart, &QAction::triggered, this, [this] {
    Handle("mnuClassificationChart_Click", [&] { OpenClassificationChart(session_, prompts_, this); });
  });
  connect(mnuAbout, &QAction::triggered, this,
          [this] { Handle("mnuAbout_Click", [&] { prompts_.Tell(kProgramTitle); }); });
}

void Form1::OpenPlotWindow() {
  if (!controller_.PlotSounding()) return;
  ClosePlotWindow();
  plot_window_ = std::make_unique<Form4>(session_, prompts_, controller_.SelectedChannels(),
                                         controller_.SbtChartChoice(), [this] { ReturnFromPlot(); }, this);
  plot_window_->SetEditOpener([this] { OpenEditWindow(); });
  plot_window_->show();
}

void Form1::ClosePlotWindow() {
  if (plot_window_ == nullptr) return;
  plot_window_->close();
  // The close may come from one of the window's own menus, which is still running.
  plot_window_.release()->deleteLater();
}

void Form1::OpenListWindow() {
  if (!controller_.ListSounding()) return;
  CloseListWindow();
  list_window_ = std::make_unique<FrmSoundingData>(session_, prompts_, controller_.SelectedChannels(), this);
  list_window_->SetEditOpener([this] { OpenEditWindow(); });
  list_window_->show();
}

void Form1::CloseListWindow() {
  if (list_window_ == nullptr) return;
  list_window_->close();
  list_window_.release()->deleteLater();
}

void Form1::OpenEcpWindow() {
  if (!controller_.ListEcp()) return;
  CloseEcpWindow();
  ecp_window_ = std::make_unique<FrmSoundingECPData>(session_, prompts_, controller_.SelectedChannels(), this);
  ecp_window_->show();
}

void Form1::CloseEcpWindow() {
  if (ecp_window_ == nullptr) return;
  ecp_window_->close();
  ecp_window_.release()->deleteLater();
}

void Form1::OpenEditWindow() {
  if (!controller_.EditSounding()) return;
  if (edit_window_ != nullptr && session_.flags.EditWindowOpen) {
    edit_window_->raise();
    edit_window_->activateWindow();
    return;
  }
  CloseEditWindow();
  edit_window_ = std::make_unique<FrmEdit>(session_, prompts_, [this] { SoundingEdited(); }, this);
  edit_window_->show();
}

void Form1::CloseEditWindow() {
  if (edit_window_ == nullptr) return;
  edit_window_->CloseWithoutAsking();
  edit_window_.release()->deleteLater();
}

void Form1::SoundingEdited() {
  controller_.SoundingEdited();
  Refresh();
  RefreshViews();
}

void Form1::CloseViewWindow(ViewWindow window) {
  if (window == ViewWindow::kPlot) ClosePlotWindow();
  if (window == ViewWindow::kList) CloseListWindow();
  if (window == ViewWindow::kEcp) CloseEcpWindow();
  if (window == ViewWindow::kEdit) CloseEditWindow();
}

void Form1::OpenSeismicWindow() {
  seismic_window_ = std::make_unique<Seisform>(session_, prompts_, [this] { ReturnFromSeismic(); }, this);
  seismic_window_->show();
  seismic_window_->LoadForm();
}

void Form1::ReturnFromSeismic() {
  controller_.SeismicDone();
  if (seismic_window_ != nullptr) seismic_window_.release()->deleteLater();
  Refresh();
}

void Form1::OpenVerificationWindow() {
  verification_window_ = std::make_unique<FrmVerification>(session_, prompts_, [this] { ReturnFromVerification(); }, this);
  verification_window_->show();
}

void Form1::ReturnFromVerification() {
  controller_.VerificationDone();
  if (verification_window_ != nullptr) verification_window_.release()->deleteLater();
  Refresh();
}

void Form1::OpenVideoWindow() {
  video_window_ =
      std::make_unique<FrmVideoProcessor>(*controller_.Video(), prompts_, [this] { ReturnFromVideo(); }, this);
  video_window_->show();
  video_window_->LoadForm();
}

void Form1::ReturnFromVideo() {
  controller_.VideoDone();
  if (video_window_ != nullptr) video_window_.release()->deleteLater();
  Refresh();
}

void Form1::OpenPluralWindow() {
  plural_window_ = std::make_unique<FrmPluralSoundings>(session_, prompts_, [this] { ReturnFromPlural(); }, this);
  plural_window_->setWindowFlag(Qt::Window);
  plural_window_->show();
}

void Form1::ReturnFromPlural() {
  controller_.PluralDone();
  if (plural_window_ != nullptr) {
    plural_window_->hide();
    plural_window_.release()->deleteLater();
  }
  Refresh();
}

void Form1::ReturnFromPlot() {
  ClosePlotWindow();
  Handle("mnuReturn_Click",
         [&] { controller_.SoundingDone([this](ViewWindow window) { CloseViewWindow(window); }); });
}

void Form1::Refresh() {
  const ShellView& view = controller_.View();
  frmSelectTestType->setVisible(view.test_type_visible);
  frmSelectSoundingChannels->setVisible(view.sounding_frame_visible);
  lstAvailableChannels->setVisible(view.available_list_visible);
  FillList(lstAvailableChannels, view.available_rows);
  FillList(lstSelectedChannels, view.selected_rows);
  cmdPlotSounding->setEnabled(view.plot_enabled);
  cmdListSounding->setEnabled(view.list_enabled);
  cmdEditSounding->setVisible(view.edit_visible);
  lblSoundingInfo->setText(ToQString(view.sounding_info));
  {
    const QSignalBlocker block(chkPiezoFilterPresent);
    chkPiezoFilterPresent->setChecked(view.piezo_checked);
  }
  const std::pair<QRadioButton*, ProcessingMode> options[] = {
      {optProcessSounding, ProcessingMode::kSounding},
      {optProcessSoundingsBatch, ProcessingMode::kSoundingsBatch},
      {optProcessDissipations, ProcessingMode::kDissipations},
      {optProcessSeismic, ProcessingMode::kSeismic},
      {optProcessVideo, ProcessingMode::kVideo},
      {optProcessVerification, ProcessingMode::kVerification},
  };
  modes_->setExclusive(false);
  for (const auto& [button, which] : options) button->setChecked(view.checked_mode == which);
  modes_->setExclusive(true);
  mnuAddData->setEnabled(session_.SoundingOpen);
  frmDissipations->Refresh();
  frmSelectTestType->setEnabled(!view.seismic_open && !view.verification_open && !view.video_open &&
                                !view.plural_open);
  if (view.plural_open && plural_window_ == nullptr) OpenPluralWindow();
  if (view.seismic_open && seismic_window_ == nullptr) OpenSeismicWindow();
  if (view.verification_open && verification_window_ == nullptr) OpenVerificationWindow();
  if (view.video_open && video_window_ == nullptr && controller_.Video() != nullptr) OpenVideoWindow();
  mnuSingleTest->setChecked(session_.SoundingSelectionMode == 0);
  mnuMultipleTests->setChecked(session_.SoundingSelectionMode == 1);
  mnuNormalisedClassification->setChecked(session_.NormalisedClassification == 1);
}

}  // namespace marlview
