// The print settings window of a report kind.
#include "ui/settings/frm_print_settings.h"

#include <QAction>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QRadioButton>
#include <QScrollArea>
#include <QTabWidget>
#include <QVBoxLayout>
#include <regex>

#include "core/common/number_read.h"
#include "core/session/session.h"
#include "core/shell/settings_dialogs.h"
#include "ui/common/event_guard.h"
#include "ui/common/named.h"
#include "ui/settings/settings_windows.h"

namespace marlview {
namespace {

const std::regex kBoxField("^(Plot|List|Cover)([123])(MainHeader|Header([0-9]+)|Footnote2?)$");
const std::regex kStyleField("^(Plot|List|Cover)Style$");

QStringList Strings(const std::vector<std::string>& items) {
  QStringList list;
  for (const auto& item : items) list << QString::fromStdString(item);
  return list;
}

bool IsLineWidth(const std::string& field) { return field.ends_with("LineWidth"); }

// The page of the window a line of the file is edited on.
std::string PageOf(const std::string& field, ReportKind kind) {
  for (const char* prefix : {"List", "Cover"}) {
    if (field.starts_with(prefix)) return prefix;
  }
  return kind == ReportKind::kSeismic || kind == ReportKind::kVideo ? "Graph" : "Plot";
}

// "PlotPrintInColor" as its label: "PRINT IN COLOR"; the page's tab already names the page.
QString Caption(const std::string& field) {
  std::string caption;
  for (size_t i = 0; i < field.size(); ++i) {
    const char c = field[i];
    const auto upper = [&](size_t at) { return field[at] >= 'A' && field[at] <= 'Z'; };
    if (i > 0 && upper(i) && (!upper(i - 1) || (i + 1 < field.size() && !upper(i + 1)))) caption += ' ';
    caption += static_cast<char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
  }
  for (const char* page : {"PLOT ", "LIST ", "COVER "}) {
    if (caption.starts_with(page) && caption != std::string(page) + "HYDROSTATIC PRESS") {
      caption.erase(0, std::string(page).size());
    }
  }
  return QString::fromStdString(caption);
}

const char* ObjectPrefix(const ReportField& field) {
  return std::holds_alternative<float*>(field.value) ? "txt" : "cmb";
}

}  // namespace

FrmPrintSettings::FrmPrintSettings(Session& session, UserPrompts& prompts, ReportKind kind, ReportFamily family,
                                   std::function<void()> on_changed, QWidget* parent)
    : QDialog(parent), session_(session), prompts_(prompts), kind_(kind), family_(family),
      on_changed_(std::move(on_changed)) {
  static constexpr const char* kNames[] = {"frmPrintSettingsSounding", "frmPrintSettingsDissipation",
                                           "frmPrintSettingsSeismic", "frmPrintSettingsOcpt"};
  setObjectName(kNames[static_cast<int>(kind)]);
  auto* layout = new QVBoxLayout(this);
  BuildMenus(this, layout);
  pages = Named(new QTabWidget(this), "tabPages");
  layout->addWidget(pages);

  ReportSettings scratch;
  const auto fields = ReportFieldsOf(scratch, kind);
  const bool two_pages = kind == ReportKind::kSounding || kind == ReportKind::kDissipation;
  const std::vector<std::pair<std::string, QString>> tabs =
      two_pages ? std::vector<std::pair<std::string, QString>>{{"Plot", "PLOT"}, {"List", "LIST"}}
                : std::vector<std::pair<std::string, QString>>{{"Cover", "COVER SHEET"}, {"Graph", "GRAPH PAGES"}};
  for (const auto& [prefix, title] : tabs) {
    auto* scroll = new QScrollArea(pages);
    scroll->setWidget(BuildPage(prefix, fields));
    scroll->setWidgetResizable(true);
    pages->addTab(scroll, title);
  }
  connect(pages, &QTabWidget::currentChanged, this, [this] { SetHeaderData(); });
  setInitialScreen();
  CenterForm32(this);
}

void FrmPrintSettings::BuildMenus(QWidget* host, QVBoxLayout* layout) {
  auto* bar = new QMenuBar(host);
  QMenu* file = bar->addMenu("&File");
  mnuSaveSettings = NamedAction(file, "mnuSaveSettings", "");
  mnuSetCustomHeaders = NamedAction(file, "mnuSetCustomHeaders", "Set &Custom Headers...");
  file->addSeparator();
  mnuReturn = NamedAction(file, "mnuReturn", "&Return");
  QMenu* family = bar->addMenu("F&amily");
  mnuFieldbox = NamedAction(family, "mnuFieldbox", "QRD FIELDBOX");
  mnuQ3MTL = NamedAction(family, "mnuQ3MTL", "PX DAS");
  for (QAction* action : {mnuFieldbox, mnuQ3MTL}) action->setCheckable(true);
  layout->setMenuBar(bar);

  connect(mnuSaveSettings, &QAction::triggered, this, [this] { Handle("mnuSaveSettings_Click", [&] { Save(); }); });
  connect(mnuFieldbox, &QAction::triggered, this,
          [this] { Handle("mnuFieldbox_Click", [&] { SwitchFamily(ReportFamily::kQrdFieldbox); }); });
  connect(mnuQ3MTL, &QAction::triggered, this,
          [this] { Handle("mnuQ3MTL_Click", [&] { SwitchFamily(ReportFamily::kPxDas); }); });
  connect(mnuSetCustomHeaders, &QAction::triggered, this, [this] {
    Handle("mnuSetCustomHeaders_Click", [&] {
      FrmSetSoundingCustomHeaders(session_, prompts_, this).exec();
      if (on_changed_) on_changed_();
    });
  });
  connect(mnuReturn, &QAction::triggered, this, [this] {
    Handle("mnuReturn_Click", [&] {
      if (Return()) accept();
    });
  });
}

QComboBox* FrmPrintSettings::AddCombo(const std::string& field) {
  auto* combo = new QComboBox;
  std::smatch match;
  std::string object = "cmb" + field;
  if (std::regex_match(field, match, kBoxField) && match[4].matched) object = "cmb" + match[1].str() + match[2].str() + "Header";
  combo->setObjectName(QString::fromStdString(object));
  combos[field] = combo;
  connect(combo, &QComboBox::activated, this,
          [this, field] { Handle("cmb_Click", [&] { FieldChanged(field); }); });
  return combo;
}

QWidget* FrmPrintSettings::BuildPage(const std::string& prefix, const std::vector<ReportField>& fields) {
  auto* page = new QWidget;
  auto* layout = new QVBoxLayout(page);
  const bool has_block = prefix != "Graph";
  if (has_block) {
    auto* style_row = new QHBoxLayout;
    auto& options = styles[prefix];
    for (int s = 0; s < kReportStyles; ++s) {
      const std::string name = "opt" + prefix + "Style" + std::to_string(s + 1);
      options[static_cast<size_t>(s)] = Named(new QRadioButton(QString("STYLE %1").arg(s + 1), page), name.c_str());
      style_row->addWidget(options[static_cast<size_t>(s)]);
      connect(options[static_cast<size_t>(s)], &QRadioButton::clicked, this,
              [this, prefix] { Handle("optStyle_Click", [&] { FieldChanged(prefix + "Style"); }); });
    }
    style_row->addStretch();
    layout->addLayout(style_row);
    auto* style_tabs = new QTabWidget(page);
    for (int s = 1; s <= kReportStyles; ++s) {
      auto* block = new QWidget;
      auto* grid = new QGridLayout(block);
      const std::string style = prefix + std::to_string(s);
      grid->addWidget(new QLabel("MAIN HEADER"), 0, 0);
      grid->addWidget(AddCombo(style + "MainHeader"), 0, 1, 1, 3);
      for (int b = 0; b < kHeaderBoxes; ++b) {
        auto* box = new QVBoxLayout;
        box->addWidget(new QLabel(QString("HEADER %1").arg(b + 1)));
        box->addWidget(AddCombo(style + "Header" + std::to_string(b + 1)));
        grid->addLayout(box, 1 + b / 4, b % 4);
      }
      grid->addWidget(new QLabel("FOOTNOTE"), 5, 0);
      grid->addWidget(AddCombo(style + "Footnote"), 5, 1);
      grid->addWidget(new QLabel("FOOTNOTE 2"), 5, 2);
      grid->addWidget(AddCombo(style + "Footnote2"), 5, 3);
      style_tabs->addTab(block, QString("STYLE %1").arg(s));
    }
    layout->addWidget(style_tabs);
  }
  auto* form = new QFormLayout;
  for (const ReportField& field : fields) {
    if (field.name == "Text1" || field.name == "Text2" || std::regex_match(field.name, kBoxField) ||
        std::regex_match(field.name, kStyleField) || PageOf(field.name, kind_) != prefix) {
      continue;
    }
    const QString object = QString::fromStdString(ObjectPrefix(field) + field.name);
    if (std::holds_alternative<float*>(field.value)) {
      auto* text = new QLineEdit(page);
      text->setObjectName(object);
      texts[field.name] = text;
      const std::string name = field.name;
      connect(text, &QLineEdit::editingFinished, this,
              [this, name] { Handle("txtMargin_LostFocus", [&] { FieldChanged(name); }); });
      form->addRow(Caption(field.name), text);
    } else {
      form->addRow(Caption(field.name), AddCombo(field.name));
    }
  }
  layout->addLayout(form);
  layout->addStretch();
  return page;
}

ReportField* FrmPrintSettings::Field(std::vector<ReportField>& fields, const std::string& name) {
  for (ReportField& field : fields) {
    if (field.name == name) return &field;
  }
  return nullptr;
}

void FrmPrintSettings::SetHeaders() {
  for (auto& [name, combo] : combos) {
    std::vector<std::string> items;
    std::smatch match;
    if (std::regex_match(name, match, kBoxField) || name == "GraphHeader" || name == "GraphFooter") {
      items = HeaderSourceList(family_, kind_, name.starts_with("List"));
    } else if (name.ends_with("PrintHeader")) {
      items = {"First Page", "All Pages"};
    } else if (name.ends_with("PrintLogo")) {
      items = LogoPlacementList(kind_);
    } else if (IsLineWidth(name)) {
      for (int w = 1; w <= 10; ++w) items.push_back(std::to_string(w));
    } else if (name == "PlotPrintOutStyle") {
      items = {"Single Page", "Continuous Pages"};
    } else if (name == "SoilBehaviorGraphStyle") {
      items = {"Zone Bars", "Step Line", "Trace"};
    } else if (name.ends_with("PlotAlignment")) {
      items = {"Left", "Centre", "Right"};
    } else if (name == "SBTRollingAverage") {
      items = {"None", "3 Readings", "5 Readings", "7 Readings"};
    } else {
      items = {"Yes", "No"};
    }
    combo->clear();
    combo->addItems(Strings(items));
  }
}

void FrmPrintSettings::setInitialScreen() {
  filling_ = true;
  SetHeaders();
  auto fields = ReportFieldsOf(session_.Report(family_, kind_), kind_);
  for (auto& [name, combo] : combos) {
    if (ReportField* field = Field(fields, name)) {
      const int word = *std::get<int16_t*>(field->value);
      const int index = IsLineWidth(name) ? word - 1 : word;
      combo->setCurrentIndex(index >= 0 && index < combo->count() ? index : -1);
    }
  }
  for (auto& [name, text] : texts) {
    if (ReportField* field = Field(fields, name)) {
      text->setText(QString::fromStdString(ShortestText(*std::get<float*>(field->value))));
    }
  }
  for (auto& [prefix, options] : styles) {
    if (ReportField* field = Field(fields, prefix + "Style")) {
      const int style = *std::get<int16_t*>(field->value);
      for (int s = 0; s < kReportStyles; ++s) options[static_cast<size_t>(s)]->setChecked(s == style);
    }
  }
  mnuFieldbox->setChecked(family_ == ReportFamily::kQrdFieldbox);
  mnuQ3MTL->setChecked(family_ == ReportFamily::kPxDas);
  filling_ = false;
  SetHeaderData();
}

void FrmPrintSettings::SetHeaderData() {
  const bool list = pages->tabText(pages->currentIndex()) == "LIST";
  setWindowTitle(QString::fromStdString(PrintSettingsCaption(family_, kind_, list)));
  mnuSaveSettings->setText(QString::fromStdString(SaveSettingsMenuText(family_)));
}

void FrmPrintSettings::SwitchFamily(ReportFamily family) {
  // Changes of the other family stay in memory until saved or the window returns.
  family_ = family;
  setInitialScreen();
}

void FrmPrintSettings::FieldChanged(const std::string& name) {
  if (filling_) return;
  auto fields = ReportFieldsOf(session_.Report(family_, kind_), kind_);
  ReportField* field = Field(fields, name);
  if (field == nullptr) return;
  if (auto* word = std::get_if<int16_t*>(&field->value)) {
    if (name.ends_with("Style") && styles.count(name.substr(0, name.size() - 5)) != 0) {
      const auto& options = styles[name.substr(0, name.size() - 5)];
      for (int s = 0; s < kReportStyles; ++s) {
        if (options[static_cast<size_t>(s)]->isChecked()) **word = static_cast<int16_t>(s);
      }
    } else {
      const int index = combos[name]->currentIndex();
      if (index < 0) return;
      **word = static_cast<int16_t>(IsLineWidth(name) ? index + 1 : index);
    }
  } else if (auto* number = std::get_if<float*>(&field->value)) {
    const float value = ToSingle(LenientNumber(texts[name]->text().toStdString()));
    if (value == **number) return;
    **number = value;
  }
  changed_[static_cast<size_t>(family_)] = true;
  SetHeaderData();
  const bool list_open = list_window_open || (kind_ == ReportKind::kSounding && session_.flags.ListWindowOpen);
  if (name.starts_with("List") && list_open) {
    prompts_.Tell(kListReloadMessage);
  }
  if (on_changed_) on_changed_();
}

void FrmPrintSettings::Save() {
  SavePrintSettings(session_, family_, kind_);
  changed_[static_cast<size_t>(family_)] = false;
}

bool FrmPrintSettings::Return() {
  if (!Changed()) return true;
  const Answer answer = prompts_.Ask(kSettingsChangedQuestion, Buttons::kYesNo);
  if (answer == Answer::kYes) {
    for (ReportFamily family : {ReportFamily::kQrdFieldbox, ReportFamily::kPxDas}) {
      if (changed_[static_cast<size_t>(family)]) SavePrintSettings(session_, family, kind_);
    }
  }
  changed_ = {};
  SaveLastPrintSettings(session_);
  return true;
}

void FrmPrintSettings::reject() {
  Handle("Form_Unload", [&] { Return(); });
  QDialog::reject();
}

void FrmPrintSettings::Handle(const char* source, const std::function<void()>& handler) {
  RunGuarded(prompts_, source, handler);
}

}  // namespace marlview
