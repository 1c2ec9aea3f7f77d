// The small settings dialogs.
#include "ui/settings/settings_windows.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPixmap>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollBar>
#include <QVBoxLayout>

#include "core/common/file_access.h"
#include "core/common/number_read.h"
#include "core/session/session.h"
#include "core/settings/templates.h"
#include "ui/common/event_guard.h"
#include "ui/common/named.h"

namespace marlview {
namespace {

QString Q(const std::string& text) { return QString::fromStdString(text); }
std::string S(const QString& text) { return text.toStdString(); }

QLineEdit* NamedEdit(QWidget* parent, const char* name) { return Named(new QLineEdit(parent), name); }

QScrollBar* NamedScroll(QWidget* parent, const char* name, int low, int high) {
  auto* scroll = Named(new QScrollBar(Qt::Horizontal, parent), name);
  scroll->setRange(low, high);
  scroll->setMinimumWidth(200);
  return scroll;
}

// A pair of Yes and No options in a group of their own.
QWidget* YesNo(QWidget* parent, QRadioButton*& yes, const char* yes_name, QRadioButton*& no, const char* no_name) {
  auto* box = new QWidget(parent);
  auto* row = new QHBoxLayout(box);
  row->setContentsMargins(0, 0, 0, 0);
  yes = Named(new QRadioButton("Yes", box), yes_name);
  no = Named(new QRadioButton("No", box), no_name);
  row->addWidget(yes);
  row->addWidget(no);
  row->addStretch();
  return box;
}

}  // namespace

void CenterForm32(QWidget* form) {
  const QScreen* screen = QGuiApplication::primaryScreen();
  if (screen == nullptr) return;
  form->adjustSize();
  const QRect area = screen->availableGeometry();
  form->move(area.center() - QPoint(form->width() / 2, form->height() / 2));
}

void ScaleFormControls(QWidget* form, double width_ratio, double height_ratio, double font_ratio) {
  for (QWidget* control : form->findChildren<QWidget*>()) {
    if (!control->property("designRect").isValid()) {
      control->setProperty("designRect", control->geometry());
      control->setProperty("designFontSize", control->font().pointSizeF());
    }
    const QRect r = control->property("designRect").toRect();
    control->setGeometry(static_cast<int>(r.left() * width_ratio), static_cast<int>(r.top() * height_ratio),
                         static_cast<int>(r.width() * width_ratio), static_cast<int>(r.height() * height_ratio));
    const double size = control->property("designFontSize").toDouble();
    if (size > 0) {
      QFont font = control->font();
      font.setPointSizeF(size * font_ratio);
      control->setFont(font);
    }
  }
}

bool SelectLogo(Session& session, UserPrompts& prompts) {
  FileDialogRequest request;
  request.title = "Select Logo";
  request.filter = "JPEG(*.JPG)|*.JPG";
  const std::string path = prompts.OpenFile(request);
  if (path.empty()) return false;
  QImage picture;
  if (!picture.load(Q(path)) || picture.isNull()) {
    prompts.Tell("Invalid Logo format or size. Cannot load");
    return false;
  }
  StoreLogo(session, path);
  return true;
}

// --- frmGeneralSettings

FrmGeneralSettings::FrmGeneralSettings(Session& session, UserPrompts& prompts, std::function<void()> on_changed,
                                       QWidget* parent)
    : QDialog(parent), session_(session), prompts_(prompts), on_changed_(std::move(on_changed)),
      form_(LoadGeneralSettingsForm(session)) {
  setObjectName("frmGeneralSettings");
  setWindowTitle("GENERAL SETTINGS");
  auto* layout = new QVBoxLayout(this);
  auto* form = new QFormLayout;
  cmbCompanyGraphTitle = Named(new QComboBox(this), "cmbCompanyGraphTitle");
  cmbCompanyGraphTitle->setEditable(true);
  form->addRow("COMPANY NAME (GRAPH TITLES)", cmbCompanyGraphTitle);
  txtCustomer = NamedEdit(this, "txtCustomer");
  form->addRow("CUSTOMER", txtCustomer);
  cmbDefaultSystem = Named(new QComboBox(this), "cmbDefaultSystem");
  cmbDefaultSystem->addItems({"PX DAS (*.CPT)", "QRD FIELDBOX (*.DAT)", "ALL SYSTEMS (*.CPT;*.DAT)"});
  form->addRow("DEFAULT SYSTEM", cmbDefaultSystem);
  cmbDefaultDepthUnits = Named(new QComboBox(this), "cmbDefaultDepthUnits");
  cmbDefaultDepthUnits->addItems({"FEET", "METERS"});
  form->addRow("DEFAULT DEPTH UNITS", cmbDefaultDepthUnits);
  auto* density = new QHBoxLayout;
  txtSoilDensity = NamedEdit(this, "txtSoilDensity");
  cmbSoilDensityUnits = Named(new QComboBox(this), "cmbSoilDensityUnits");
  cmbSoilDensityUnits->addItems({"pcf", "kg/m3"});
  density->addWidget(txtSoilDensity);
  density->addWidget(cmbSoilDensityUnits);
  form->addRow("SOIL DENSITY", density);
  txtNetAreaRatio = NamedEdit(this, "txtNetAreaRatio");
  form->addRow("NET AREA RATIO", txtNetAreaRatio);
  form->addRow("SUPPRESS DUPLICATE DEPTHS", YesNo(this, optSuppressDuplicateDepthYes, "optSuppressDuplicateDepthYes",
                                                  optSuppressDuplicateDepthNo, "optSuppressDuplicateDepthNo"));
  txtDuplicateDepthTolerance = NamedEdit(this, "txtDuplicateDepthTolerance");
  form->addRow("DUPLICATE DEPTH TOLERANCE (m)", txtDuplicateDepthTolerance);
  form->addRow("SUPPRESS NOT CONNECTED CHANNELS",
               YesNo(this, optSuppressNotConnectedYes, "optSuppressNotConnectedYes", optSuppressNotConnectedNo,
                     "optSuppressNotConnectedNo"));
  form->addRow("REMOVE ROD BREAKS ON OPEN", YesNo(this, optRemoveRodBreaksYes, "optRemoveRodBreaksYes",
                                                  optRemoveRodBreaksNo, "optRemoveRodBreaksNo"));
  auto scroll_row = [&](const char* caption, QScrollBar* scroll, QLabel*& label, const char* label_name) {
    auto* row = new QHBoxLayout;
    label = Named(new QLabel(this), label_name);
    label->setMinimumWidth(50);
    row->addWidget(scroll);
    row->addWidget(label);
    form->addRow(caption, row);
  };
  scrRodBreakThreshold = NamedScroll(this, "scrRodBreakThreshold", 1, 100);
  scroll_row("ROD BREAK THRESHOLD", scrRodBreakThreshold, lblRodBreakThreshold, "lblRodBreakThreshold");
  scrSBTBrightness = NamedScroll(this, "scrSBTBrightness", 0, 100);
  scroll_row("SBT BRIGHTNESS", scrSBTBrightness, lblSBTBrightness, "lblSBTBrightness");
  scrLogoScaleFactor = NamedScroll(this, "scrLogoScaleFactor", 10, 300);
  scroll_row("LOGO SCALE FACTOR", scrLogoScaleFactor, lblLogoScaleFactor, "lblLogoScaleFactor");
  cmbBallTipAreaCalculation = Named(new QComboBox(this), "cmbBallTipAreaCalculation");
  cmbBallTipAreaCalculation->addItems({"PROJECTED AREA", "DOUBLE PROJECTED AREA"});
  form->addRow("BALL TIP AREA CALCULATION", cmbBallTipAreaCalculation);
  layout->addLayout(form);

  auto* logo = new QGroupBox("LOGO", this);
  auto* logo_row = new QHBoxLayout(logo);
  imgLogo = Named(new QLabel(logo), "imgLogo");
  imgLogo->setFixedSize(160, 80);
  imgLogo->setFrameShape(QFrame::Box);
  logo_row->addWidget(imgLogo);
  cmdSelectLogo = NamedButton(logo_row, logo, "cmdSelectLogo", "SELECT LOGO");
  cmdRemoveLogo = NamedButton(logo_row, logo, "cmdRemoveLogo", "REMOVE LOGO");
  layout->addWidget(logo);
  layout->addLayout(OkCancelRow(this, cmdOK, cmdCancel));

  connect(scrRodBreakThreshold, &QScrollBar::valueChanged, this,
          [this](int value) { lblRodBreakThreshold->setText(QString::number(value)); });
  connect(scrSBTBrightness, &QScrollBar::valueChanged, this,
          [this](int value) { lblSBTBrightness->setText(QString::number(value)); });
  connect(scrLogoScaleFactor, &QScrollBar::valueChanged, this,
          [this](int value) { lblLogoScaleFactor->setText(QString::number(value) + "%"); });
  connect(cmbSoilDensityUnits, &QComboBox::activated, this, [this](int units) {
    Handle("cmbSoilDensityUnits_Click", [&] {
      const float pcf = StoredSoilDensity(LenientNumber(S(txtSoilDensity->text())), shown_density_units_);
      shown_density_units_ = static_cast<int16_t>(units);
      txtSoilDensity->setText(Q(ShortestText(ShownSoilDensity(pcf, shown_density_units_))));
    });
  });
  connect(cmdSelectLogo, &QPushButton::clicked, this, [this] {
    Handle("cmdSelectLogo_Click", [&] {
      if (SelectLogo(session_, prompts_)) ShowLogo();
    });
  });
  connect(cmdRemoveLogo, &QPushButton::clicked, this, [this] {
    Handle("cmdRemoveLogo_Click", [&] {
      RemoveLogo(session_);
      ShowLogo();
    });
  });
  connect(cmdOK, &QPushButton::clicked, this, [this] { Handle("cmdOK_Click", [&] { Ok(); }); });
  Fill();
  CenterForm32(this);
}

void FrmGeneralSettings::Fill() {
  const GeneralSettings& g = form_.general;
  cmbCompanyGraphTitle->setEditText(Q(g.CompanyGraphTitle));
  txtCustomer->setText(Q(g.Customer));
  cmbDefaultSystem->setCurrentIndex(g.DefaultSystem >= 1 && g.DefaultSystem <= 3 ? g.DefaultSystem - 1 : 2);
  cmbDefaultDepthUnits->setCurrentIndex(g.DefaultDepthUnits == 1 ? 1 : 0);
  shown_density_units_ = g.SoilDensityUnits == 1 ? 1 : 0;
  cmbSoilDensityUnits->setCurrentIndex(shown_density_units_);
  txtSoilDensity->setText(Q(ShortestText(ShownSoilDensity(g.SoilDensity, shown_density_units_))));
  txtNetAreaRatio->setText(Q(ShortestText(g.NetAreaRatio)));
  (g.SuppressDuplicateDepths != 0 ? optSuppressDuplicateDepthYes : optSuppressDuplicateDepthNo)->setChecked(true);
  txtDuplicateDepthTolerance->setText(Q(ShortestText(g.DuplicateDepthTolerance)));
  (g.SuppressNotConnected != 0 ? optSuppressNotConnectedYes : optSuppressNotConnectedNo)->setChecked(true);
  (form_.rod_break.RemoveOnOpen == 1 ? optRemoveRodBreaksYes : optRemoveRodBreaksNo)->setChecked(true);
  scrRodBreakThreshold->setValue(static_cast<int>(form_.rod_break.Threshold));
  lblRodBreakThreshold->setText(QString::number(scrRodBreakThreshold->value()));
  scrSBTBrightness->setValue(static_cast<int>(form_.sbt_brightness));
  lblSBTBrightness->setText(QString::number(scrSBTBrightness->value()));
  scrLogoScaleFactor->setValue(static_cast<int>(form_.logo_scale_factor));
  lblLogoScaleFactor->setText(QString::number(scrLogoScaleFactor->value()) + "%");
  cmbBallTipAreaCalculation->setCurrentIndex(form_.ball_tip_area_calculation == 1 ? 1 : 0);
  ShowLogo();
}

void FrmGeneralSettings::ShowLogo() {
  const QImage picture(Q(LogoPath(session_)));
  if (picture.isNull()) {
    imgLogo->clear();
  } else {
    imgLogo->setPixmap(QPixmap::fromImage(picture.scaled(imgLogo->size(), Qt::KeepAspectRatio)));
  }
}

void FrmGeneralSettings::Ok() {
  GeneralSettingsForm f = form_;
  GeneralSettings& g = f.general;
  g.CompanyGraphTitle = S(cmbCompanyGraphTitle->currentText());
  g.Customer = S(txtCustomer->text());
  g.DefaultSystem = static_cast<int16_t>(cmbDefaultSystem->currentIndex() + 1);
  g.DefaultDepthUnits = static_cast<int16_t>(cmbDefaultDepthUnits->currentIndex() == 1 ? 1 : 0);
  g.SoilDensityUnits = shown_density_units_;
  g.SoilDensity = StoredSoilDensity(LenientNumber(S(txtSoilDensity->text())), shown_density_units_);
  g.NetAreaRatio = ToSingle(LenientNumber(S(txtNetAreaRatio->text())));
  g.SuppressDuplicateDepths = static_cast<int16_t>(optSuppressDuplicateDepthYes->isChecked() ? 1 : 0);
  g.DuplicateDepthTolerance = ToSingle(LenientNumber(S(txtDuplicateDepthTolerance->text())));
  g.SuppressNotConnected = static_cast<int16_t>(optSuppressNotConnectedYes->isChecked() ? 1 : 0);
  f.rod_break.Threshold = static_cast<float>(scrRodBreakThreshold->value());
  f.rod_break.RemoveOnOpen = static_cast<int16_t>(optRemoveRodBreaksYes->isChecked() ? 1 : 0);
  f.sbt_brightness = static_cast<float>(scrSBTBrightness->value());
  f.logo_scale_factor = static_cast<float>(scrLogoScaleFactor->value());
  f.ball_tip_area_calculation = static_cast<int16_t>(cmbBallTipAreaCalculation->currentIndex());
  if (!ApplyGeneralSettings(session_, prompts_, f)) return;
  if (on_changed_) on_changed_();
  accept();
}

void FrmGeneralSettings::Handle(const char* source, const std::function<void()>& handler) {
  RunGuarded(prompts_, source, handler);
}

// --- frmSetSoundingCustomHeaders

FrmSetSoundingCustomHeaders::FrmSetSoundingCustomHeaders(Session& session, UserPrompts& prompts, QWidget* parent)
    : QDialog(parent), session_(session), prompts_(prompts) {
  setObjectName("frmSetSoundingCustomHeaders");
  setWindowTitle("CUSTOM HEADERS");
  auto* layout = new QVBoxLayout(this);
  auto* grid = new QGridLayout;
  const char* columns[] = {"SOUNDING", "DISSIPATION", "SEISMIC", "OCPT"};
  std::vector<QLineEdit*>* labels[] = {&txtCustomSoundingHeader, &txtCustomDissipationHeader,
                                       &txtCustomSeismicHeader, &txtCustomOCPTHeader};
  std::vector<QLineEdit*>* values[] = {&txtCustomSoundingHeaderData, &txtCustomDissipationHeaderData,
                                       &txtCustomSeismicHeaderData, &txtCustomOCPTHeaderData};
  const char* label_names[] = {"txtCustomSoundingHeader", "txtCustomDissipationHeader", "txtCustomSeismicHeader",
                               "txtCustomOCPTHeader"};
  const char* value_names[] = {"txtCustomSoundingHeaderData", "txtCustomDissipationHeaderData",
                               "txtCustomSeismicHeaderData", "txtCustomOCPTHeaderData"};
  for (int c = 0; c < kCustomHeaderColumns; ++c) {
    grid->addWidget(new QLabel(QString(columns[c]) + " LABEL"), 0, 1 + 2 * c);
    grid->addWidget(new QLabel(QString(columns[c]) + " VALUE"), 0, 2 + 2 * c);
  }
  for (int r = 0; r < kCustomHeaderRows; ++r) {
    grid->addWidget(new QLabel(QString("CUSTOM HEADER %1").arg(r + 1)), 1 + r, 0);
    for (int c = 0; c < kCustomHeaderColumns; ++c) {
      auto* label = NamedEdit(this, label_names[c]);
      auto* value = NamedEdit(this, value_names[c]);
      label->setText(Q(session.custom_headers.label[r][c]));
      value->setText(Q(session.custom_headers.value[r][c]));
      labels[c]->push_back(label);
      values[c]->push_back(value);
      grid->addWidget(label, 1 + r, 1 + 2 * c);
      grid->addWidget(value, 1 + r, 2 + 2 * c);
    }
  }
  layout->addLayout(grid);
  layout->addLayout(OkCancelRow(this, cmdOK, cmdCancel));
  connect(cmdOK, &QPushButton::clicked, this, [this, labels, values] {
    RunGuarded(prompts_, "cmdOK_Click", [&] {
      CustomHeaders headers;
      for (int r = 0; r < kCustomHeaderRows; ++r) {
        for (int c = 0; c < kCustomHeaderColumns; ++c) {
          headers.label[r][c] = S((*labels[c])[static_cast<size_t>(r)]->text());
          headers.value[r][c] = S((*values[c])[static_cast<size_t>(r)]->text());
        }
      }
      ApplyCustomHeaders(session_, headers);
      accept();
    });
  });
  CenterForm32(this);
}

// --- frmAdjustLogo

FrmAdjustLogo::FrmAdjustLogo(Session& session, UserPrompts& prompts, ReportFamily family, LogoReport report,
                             std::function<void()> on_changed, QWidget* parent)
    : QDialog(parent), session_(session), prompts_(prompts), family_(family), report_(report),
      on_changed_(std::move(on_changed)) {
  setObjectName("frmAdjustLogo");
  setWindowTitle(Q(AdjustLogoCaption(family, report)));
  auto* layout = new QVBoxLayout(this);
  cmbPlotPrintLogo = Named(new QComboBox(this), "cmbPlotPrintLogo");
  if (report == LogoReport::kSeismicGraph) {
    cmbPlotPrintLogo->addItems({"Cover Page", "Cover Page(watermark)", "Cover Page then watermark (all)",
                                "All Pages(watermark)", "Graph Pages(watermark)", "No Logo"});
  } else {
    QStringList items;
    for (const auto& item : LogoPlacementList(ReportKind::kSounding)) items << Q(item);
    cmbPlotPrintLogo->addItems(items);
  }
  cmbPlotPrintLogo->setCurrentIndex(*Placement() >= 0 && *Placement() < cmbPlotPrintLogo->count() ? *Placement() : -1);
  layout->addWidget(cmbPlotPrintLogo);

  auto* checks = new QGroupBox("APPLY TO", this);
  auto* check_row = new QVBoxLayout(checks);
  const std::pair<const char*, const char*> names[] = {{"chkSoundingPlot", "Sounding Plot"},
                                                       {"chkSoundingList", "Sounding List"},
                                                       {"chkDissipationPlot", "Dissipation Plot"},
                                                       {"chkDissipationList", "Dissipation List"},
                                                       {"chkSeismicPlot", "Seismic Graph"}};
  for (size_t k = 0; k < kLogoReportKinds; ++k) {
    checks_[k] = Named(new QCheckBox(names[k].second, checks), names[k].first);
    check_row->addWidget(checks_[k]);
  }
  chkSoundingPlot = checks_[0];
  chkSoundingList = checks_[1];
  chkDissipationPlot = checks_[2];
  chkDissipationList = checks_[3];
  chkSeismicPlot = checks_[4];
  chkAllPlotsLists = Named(new QCheckBox("All Plots and Lists", checks), "chkAllPlotsLists");
  check_row->addWidget(chkAllPlotsLists);
  // The report the window came from is always adjusted.
  checks_[static_cast<size_t>(report)]->setChecked(true);
  checks_[static_cast<size_t>(report)]->setEnabled(false);
  layout->addWidget(checks);

  auto* scale_row = new QHBoxLayout;
  scrLogoScaleFactor = NamedScroll(this, "scrLogoScaleFactor", 10, 300);
  lblLogoScaleFactor = Named(new QLabel(this), "lblLogoScaleFactor");
  const float scale = session.logo.LogoScale[static_cast<size_t>(report)];
  scrLogoScaleFactor->setValue(static_cast<int>(scale));
  lblLogoScaleFactor->setText(QString::number(static_cast<int>(scale)) + "%");
  scale_row->addWidget(scrLogoScaleFactor);
  scale_row->addWidget(lblLogoScaleFactor);
  layout->addLayout(scale_row);

  auto* arrows = new QHBoxLayout;
  cmdUp = NamedButton(arrows, this, "cmdUp", "UP");
  cmdDown = NamedButton(arrows, this, "cmdDown", "DOWN");
  cmdLeft = NamedButton(arrows, this, "cmdLeft", "LEFT");
  cmdRight = NamedButton(arrows, this, "cmdRight", "RIGHT");
  layout->addLayout(arrows);
  auto* buttons = new QHBoxLayout;
  cmdResetToDefault = NamedButton(buttons, this, "cmdResetToDefault", "RESET TO DEFAULT");
  cmdSelectLogo = NamedButton(buttons, this, "cmdSelectLogo", "SELECT LOGO");
  cmdRemoveLogo = NamedButton(buttons, this, "cmdRemoveLogo", "REMOVE LOGO");
  cmdSaveSettings = NamedButton(buttons, this, "cmdSaveSettings", "SAVE SETTINGS");
  layout->addLayout(buttons);

  connect(chkAllPlotsLists, &QCheckBox::clicked, this, [this](bool all) {
    for (QCheckBox* check : checks_) {
      if (check->isEnabled()) check->setChecked(all);
    }
  });
  struct Move {
    QPushButton* button;
    int dx, dy;
  };
  for (const Move& move : {Move{cmdUp, 0, -kLogoStep}, Move{cmdDown, 0, kLogoStep}, Move{cmdLeft, -kLogoStep, 0},
                           Move{cmdRight, kLogoStep, 0}}) {
    const int dx = move.dx, dy = move.dy;
    connect(move.button, &QPushButton::clicked, this, [this, dx, dy] {
      Handle("cmdMove_Click", [&] {
        MoveLogo(session_.logo, Ticked(), dx, dy);
        Changed();
      });
    });
  }
  connect(scrLogoScaleFactor, &QScrollBar::valueChanged, this, [this](int value) {
    Handle("scrLogoScaleFactor_Change", [&] {
      lblLogoScaleFactor->setText(QString::number(value) + "%");
      ScaleLogo(session_.logo, Ticked(), static_cast<float>(value));
      Changed();
    });
  });
  connect(cmdResetToDefault, &QPushButton::clicked, this, [this] {
    Handle("cmdResetToDefault_Click", [&] {
      ResetLogo(session_.logo, Ticked());
      const QSignalBlocker block(scrLogoScaleFactor);
      scrLogoScaleFactor->setValue(100);
      lblLogoScaleFactor->setText("100%");
      Changed();
    });
  });
  connect(cmbPlotPrintLogo, &QComboBox::activated, this, [this](int index) {
    Handle("cmbPlotPrintLogo_Click", [&] {
      *Placement() = static_cast<int16_t>(index);
      Changed();
    });
  });
  connect(cmdSaveSettings, &QPushButton::clicked, this, [this] {
    Handle("cmdSaveSettings_Click", [&] {
      SaveLogoSettings(session_);
      const bool dissipation =
          report_ == LogoReport::kDissipationPlot || report_ == LogoReport::kDissipationList;
      const ReportKind kind = report_ == LogoReport::kSeismicGraph ? ReportKind::kSeismic
                              : dissipation                         ? ReportKind::kDissipation
                                                                    : ReportKind::kSounding;
      SavePrintSettings(session_, family_, kind);
    });
  });
  connect(cmdSelectLogo, &QPushButton::clicked, this, [this] {
    Handle("cmdSelectLogo_Click", [&] {
      if (SelectLogo(session_, prompts_)) Changed();
    });
  });
  connect(cmdRemoveLogo, &QPushButton::clicked, this, [this] {
    Handle("cmdRemoveLogo_Click", [&] {
      RemoveLogo(session_);
      Changed();
    });
  });
  CenterForm32(this);
}

std::array<bool, kLogoReportKinds> FrmAdjustLogo::Ticked() const {
  std::array<bool, kLogoReportKinds> ticked{};
  for (size_t k = 0; k < kLogoReportKinds; ++k) ticked[k] = checks_[k]->isChecked();
  return ticked;
}

// The placement word of the report the window came from.
int16_t* FrmAdjustLogo::Placement() {
  switch (report_) {
    case LogoReport::kSoundingPlot: return &session_.Report(family_, ReportKind::kSounding).Plot.PrintLogo;
    case LogoReport::kSoundingList: return &session_.Report(family_, ReportKind::kSounding).List.PrintLogo;
    case LogoReport::kDissipationPlot: return &session_.Report(family_, ReportKind::kDissipation).Plot.PrintLogo;
    case LogoReport::kDissipationList: return &session_.Report(family_, ReportKind::kDissipation).List.PrintLogo;
    case LogoReport::kSeismicGraph: return &session_.Report(family_, ReportKind::kSeismic).Cover.PrintLogo;
  }
  return nullptr;
}

void FrmAdjustLogo::Changed() {
  if (on_changed_) on_changed_();
}

void FrmAdjustLogo::Handle(const char* source, const std::function<void()>& handler) {
  RunGuarded(prompts_, source, handler);
}

// --- frmSoundingSaveTemplate

FrmSoundingSaveTemplate::FrmSoundingSaveTemplate(Session& session, UserPrompts& prompts,
                                                 std::vector<std::string> channels, QWidget* parent)
    : QDialog(parent), session_(session), prompts_(prompts), channels_(std::move(channels)) {
  setObjectName("frmSoundingSaveTemplate");
  setWindowTitle("SAVE TEMPLATE");
  auto* layout = new QVBoxLayout(this);
  File1 = Named(new QListWidget(this), "File1");
  for (const auto& name : ListTemplates(session.Paths().data_directory)) File1->addItem(Q(name));
  layout->addWidget(File1);
  txtTemplateName = NamedEdit(this, "txtTemplateName");
  layout->addWidget(new QLabel("TEMPLATE NAME", this));
  layout->addWidget(txtTemplateName);
  chkSetAsDefault = Named(new QCheckBox("SET AS DEFAULT", this), "chkSetAsDefault");
  layout->addWidget(chkSetAsDefault);
  layout->addLayout(OkCancelRow(this, cmdOK, cmdCancel));
  connect(File1, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
    QString name = item->text();
    name.chop(4);
    txtTemplateName->setText(name);
  });
  connect(cmdOK, &QPushButton::clicked, this, [this] {
    RunGuarded(prompts_, "cmdOK_Click", [&] {
      const std::string name = S(txtTemplateName->text());
      if (!SaveSoundingTemplate(session_.Paths().data_directory, name, channels_, chkSetAsDefault->isChecked(),
                                prompts_)) {
        return;
      }
      if (chkSetAsDefault->isChecked()) session_.DefaultTemplate = TemplateFileName(name);
      accept();
    });
  });
  CenterForm32(this);
}

// --- frmSoundingTemplate

FrmSoundingTemplate::FrmSoundingTemplate(Session& session, UserPrompts& prompts,
                                         std::function<void(const std::vector<std::string>&)> apply, QWidget* parent)
    : QDialog(parent), session_(session), prompts_(prompts), apply_(std::move(apply)) {
  setObjectName("frmSoundingTemplate");
  setWindowTitle("SELECT TEMPLATE");
  auto* layout = new QVBoxLayout(this);
  auto* lists = new QHBoxLayout;
  File1 = Named(new QListWidget(this), "File1");
  lstTemplateChannels = Named(new QListWidget(this), "lstTemplateChannels");
  lists->addWidget(File1);
  lists->addWidget(lstTemplateChannels);
  layout->addLayout(lists);
  chkSetAsDefault = Named(new QCheckBox("SET AS DEFAULT", this), "chkSetAsDefault");
  layout->addWidget(chkSetAsDefault);
  auto* row = OkCancelRow(this, cmdOK, cmdCancel);
  cmdDeleteTemplate = NamedButton(row, this, "cmdDeleteTemplate", "DELETE TEMPLATE");
  layout->addLayout(row);
  RefreshFiles();
  connect(File1, &QListWidget::currentRowChanged, this,
          [this] { RunGuarded(prompts_, "File1_Click", [&] { ShowTemplate(); }); });
  connect(cmdDeleteTemplate, &QPushButton::clicked, this, [this] {
    RunGuarded(prompts_, "cmdDeleteTemplate_Click", [&] {
      if (Chosen().empty()) return;
      DeleteSoundingTemplate(session_.Paths().data_directory, Chosen());
      chkSetAsDefault->setChecked(false);
      RefreshFiles();
    });
  });
  connect(cmdOK, &QPushButton::clicked, this, [this] {
    RunGuarded(prompts_, "cmdOK_Click", [&] {
      if (Chosen().empty()) return;
      const auto names =
          SelectSoundingTemplate(session_.Paths().data_directory, Chosen(), chkSetAsDefault->isChecked());
      session_.DefaultTemplate = ReadDefaultTemplateName(session_.Paths().data_directory);
      if (apply_) apply_(names);
      accept();
    });
  });
  CenterForm32(this);
}

std::string FrmSoundingTemplate::Chosen() const {
  const QListWidgetItem* item = File1->currentItem();
  return item == nullptr ? std::string() : S(item->text());
}

void FrmSoundingTemplate::RefreshFiles() {
  const QSignalBlocker block(File1);
  File1->clear();
  lstTemplateChannels->clear();
  const std::string current_default = ReadDefaultTemplateName(session_.Paths().data_directory);
  for (const auto& name : ListTemplates(session_.Paths().data_directory)) {
    File1->addItem(Q(name));
    // The current default is highlighted and ticked when the window opens.
    if (name == current_default) {
      File1->setCurrentRow(File1->count() - 1);
      chkSetAsDefault->setChecked(true);
    }
  }
  if (File1->currentItem() != nullptr) ShowTemplate();
}

void FrmSoundingTemplate::ShowTemplate() {
  lstTemplateChannels->clear();
  const std::string chosen = Chosen();
  if (chosen.empty()) return;
  chkSetAsDefault->setChecked(chosen == ReadDefaultTemplateName(session_.Paths().data_directory));
  const auto bytes = TryReadWholeFile(session_.Paths().data_directory + "/" + chosen);
  if (!bytes) return;
  for (const auto& name : ReadSoundingTemplate(*bytes)) lstTemplateChannels->addItem(Q(name));
}

}  // namespace marlview
