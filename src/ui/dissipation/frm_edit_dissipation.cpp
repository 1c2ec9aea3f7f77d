// The dissipation editors: widgets named as the controls they are; every change goes to the
// core's dissipation editor, and the windows showing the file follow.
#include "ui/dissipation/frm_edit_dissipation.h"

#include <QAction>
#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>

#include "core/session/dissipation_set.h"
#include "core/session/session.h"
#include "ui/common/event_guard.h"
#include "ui/common/named.h"
#include "ui/common/qt_prompts.h"
#include "ui/dissipation/dissipation_edit_dialogs.h"

namespace marlview {
namespace {

// The captions of the header boxes, by the names of the header strings.
const std::map<std::string, const char*> kHeaderCaptions = {
    {"TestId", "TEST ID"},
    {"Operator", "OPERATOR"},
    {"Crew", "CREW"},
    {"Project", "PROJECT"},
    {"Site", "SITE"},
    {"Location", "LOCATION"},
    {"Comments", "COMMENTS"},
    {"TestDate", "DATE"},
    {"StartTime", "START TIME"},
    {"Client", "CLIENT"},
    {"ClientRepresentative", "CLIENT REP"},
    {"Weather", "WEATHER"},
    {"DasVersion", "DAS VERSION"},
    {"DasSystem", "DAS SYSTEM"},
    {"ProbeSerialNumber", "PROBE SERIAL #"},
    {"Customer", "CUSTOMER"},
    {"OperatorName", "OPERATOR"},
    {"ConeId", "CONE ID"},
    {"JobNumber", "JOB #"},
    {"HoleNumber", "HOLE #"},
    {"TestDateText", "TEST DATE / TIME"},
    {"Comment1", "HEADER"},
    {"Comment2", "FOOTER 1"},
    {"Comment3", "FOOTER 2"},
};

constexpr const char* kWeathers[] = {"Sunny", "Overcast", "Rain", "Snow", "Windy", "Fog"};

}  // namespace

DissipationEditWindow::DissipationEditWindow(Session& session, UserPrompts& prompts,
                                             std::function<void(bool)> on_changed, std::function<void()> on_return,
                                             QWidget* parent)
    : QMainWindow(parent),
      session_(session),
      prompts_(prompts),
      editor_(session, prompts),
      on_changed_(std::move(on_changed)),
      on_return_(std::move(on_return)) {
  auto* central = new QWidget(this);
  auto* layout = new QGridLayout(central);
  BuildHeader(layout);
  BuildGrid(layout);
  setCentralWidget(central);
  BuildMenus();
  Connect();
  Refill();
  resize(1000, 760);
}

DissipationEditWindow::~DissipationEditWindow() = default;

void DissipationEditWindow::BuildHeader(QGridLayout* layout) {
  const bool fieldbox = session_.Dissipation().FileKind != kPxDasDissipation;
  int at = 0;
  auto place = [&](const char* caption, QWidget* box) {
    const int row = at / 3, column = (at % 3) * 2;
    layout->addWidget(new QLabel(caption, box->parentWidget()), row, column);
    layout->addWidget(box, row, column + 1);
    ++at;
  };
  for (const std::string& name : DissipationHeaderNames(session_.Dissipation())) {
    const char* caption = kHeaderCaptions.at(name);
    if (fieldbox && name == "Weather") {
      cmbWeather = Named(new QComboBox(this), "cmbWeather");
      cmbWeather->setEditable(true);
      for (const char* weather : kWeathers) cmbWeather->addItem(weather);
      place(caption, cmbWeather);
      continue;
    }
    auto* box = new QLineEdit(this);
    box->setObjectName(QString::fromStdString("txt" + name));
    txtHeader[name] = box;
    place(caption, box);
  }
  if (fieldbox) {
    cmbTipConfiguration = Named(new QComboBox(this), "cmbTipConfiguration");
    // The writer records the conventional tip; the only configuration these files take.
    cmbTipConfiguration->addItem("Conventional");
    place("TIP CONFIGURATION", cmbTipConfiguration);
  }
}

void DissipationEditWindow::BuildGrid(QGridLayout* layout) {
  const bool fieldbox = session_.Dissipation().FileKind != kPxDasDissipation;
  const int top = layout->rowCount();
  auto* tests = new QHBoxLayout;
  tests->addWidget(new QLabel("DISSIPATION DEPTH", this));
  lblDepthUnits = Named(new QLabel(this), "lblDepthUnits");
  tests->addWidget(lblDepthUnits);
  cmbDissipationDepth = Named(new QComboBox(this), "cmbDissipationDepth");
  tests->addWidget(cmbDissipationDepth);
  cmdEditDepth = NamedButton(tests, this, "cmdEditDepth", "CHANGE DEPTH");
  Command1 = NamedButton(tests, this, "Command1", "DELETE TEST");
  tests->addSpacing(24);
  tests->addWidget(new QLabel("PRESSURE UNITS", this));
  cmbPressureUnits = Named(new QComboBox(this), "cmbPressureUnits");
  tests->addWidget(cmbPressureUnits);
  tests->addStretch();
  layout->addLayout(tests, top, 0, 1, 6);

  auto* grid = new QGridLayout;
  auto column = [&](const char* name, const QString& caption, int at) {
    auto* label = new QLabel(caption, this);
    grid->addWidget(label, 0, at);
    auto* list = Named(new QListWidget(this), name);
    list->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                          QAbstractItemView::AnyKeyPressed);
    list->installEventFilter(this);
    grid->addWidget(list, 1, at);
    return std::pair{list, label};
  };
  lblReadingNumber = Named(new QLabel(this), "lblReadingNumber");
  grid->addWidget(lblReadingNumber, 2, 0, 1, 4);
  txtTime = column("txtTime", "TIME (S)", 0).first;
  txtVoltage = column("txtVoltage", fieldbox ? "VOLTAGE (V)" : "RAW READING", 1).first;
  if (fieldbox) txtPressurePSI = column("txtPressurePSI", "PRESS (PSI)", 2).first;
  auto pressure = column("txtPressureUnits", "", fieldbox ? 3 : 2);
  txtPressureUnits = pressure.first;
  lblPressureUnits = Named(pressure.second, "lblPressureUnits");
  layout->addLayout(grid, top + 1, 0, 1, 6);
  layout->setRowStretch(top + 1, 1);
}

void DissipationEditWindow::BuildMenus() {
  const bool fieldbox = session_.Dissipation().FileKind != kPxDasDissipation;
  QMenu* file = menuBar()->addMenu("&File");
  file->setObjectName("mnuFile");
  mnuSave = NamedAction(file, "mnuSave", "&Save");
  mnuSaveAs = NamedAction(file, "mnuSaveAs", "Save &As...");
  QMenu* exports = file->addMenu("&Export");
  exports->setObjectName("mnuExport");
  mnuTextFile = NamedAction(exports, "mnuTextFile", "&Text File (all tests)...");
  mnuCSVFile = NamedAction(exports, "mnuCSVFile", "&CSV File (all tests)...");
  mnuTextFiles = NamedAction(exports, "mnuTextFiles", "Text Files (one per test)...");
  mnuCSVFiles = NamedAction(exports, "mnuCSVFiles", "CSV Files (one per test)...");
  file->addSeparator();
  mnuReturn = NamedAction(file, "mnuReturn", "&Return");
  QMenu* edit = menuBar()->addMenu("&Edit");
  edit->setObjectName("mnuEditMenu");
  mnuAdjustDepth = NamedAction(edit, "mnuAdjustDepth", "&Adjust Depths...");
  if (fieldbox) mnuCombineDissipations = NamedAction(edit, "mnuCombineDissipations", "&Combine Files...");
  mnuSetHeaders = NamedAction(edit, "mnuSetHeaders", "Set &Headers");
  QMenu* units = menuBar()->addMenu("&Units");
  units->setObjectName("mnuUnits");
  mnuMeters = NamedAction(units, "mnuMeters", "&Meters");
  mnuFeet = NamedAction(units, "mnuFeet", "&Feet");
  mnuMeters->setCheckable(true);
  mnuFeet->setCheckable(true);
}

void DissipationEditWindow::Handle(const char* source, const std::function<void()>& handler) {
  RunGuarded(prompts_, source, handler);
}

void DissipationEditWindow::Connect() {
  auto on = [this](QAction* action, const char* source, std::function<void()> handler) {
    connect(action, &QAction::triggered, this, [this, source, handler = std::move(handler)] { Handle(source, handler); });
  };
  for (auto& [name, box] : txtHeader) {
    connect(box, &QLineEdit::editingFinished, this, [this, name = name, box = box] {
      Handle("txtHeader_Change", [&] {
        const bool was = editor_.Changed();
        editor_.SetHeader(name, box->text().toStdString());
        if (editor_.Changed() != was) Changed(false);
      });
    });
  }
  if (cmbWeather != nullptr) {
    connect(cmbWeather, &QComboBox::currentTextChanged, this, [this](const QString& text) {
      if (filling_) return;
      Handle("cmbWeather_Change", [&] { editor_.SetHeader("Weather", text.toStdString()); });
    });
  }
  connect(cmbDissipationDepth, &QComboBox::activated, this, [this](int index) {
    Handle("cmbDissipationDepth_Click", [&] {
      editor_.SelectTest(index + 1);
      FillGrid();
    });
  });
  connect(cmbPressureUnits, &QComboBox::activated, this, [this](int index) {
    Handle("cmbPressureUnits_Click", [&] {
      if (index == editor_.PressureUnitChoice()) return;
      editor_.ChangePressureUnit(index);
      Changed(false);
    });
  });
  connect(cmdEditDepth, &QPushButton::clicked, this, [this] {
    Handle("cmdEditDepth_Click", [&] {
      if (FrmChangeDissipationDepth(editor_, editor_.SelectedTest(), this).exec() == QDialog::Accepted) Changed(false);
    });
  });
  connect(Command1, &QPushButton::clicked, this, [this] {
    Handle("Command1_Click", [&] {
      if (editor_.DeleteTest(editor_.SelectedTest())) Changed(true);
    });
  });
  on(mnuAdjustDepth, "mnuAdjustDepth_Click", [this] {
    if (FrmAdjustDissipationDepth(editor_, this).exec() == QDialog::Accepted) Changed(false);
  });
  if (mnuCombineDissipations != nullptr) on(mnuCombineDissipations, "mnuCombineDissipations_Click", [this] { Combine(); });
  on(mnuSetHeaders, "mnuSetHeaders_Click", [this] { SetHeaders(); });
  on(mnuSave, "mnuSave_Click", [this] {
    SetHeaders();
    editor_.Save();
  });
  on(mnuSaveAs, "mnuSaveAs_Click", [this] {
    SetHeaders();
    if (editor_.SaveAsAsking()) Refill();
  });
  on(mnuTextFile, "mnuTextFile_Click", [this] { editor_.ExportAsking(false, false); });
  on(mnuCSVFile, "mnuCSVFile_Click", [this] { editor_.ExportAsking(true, false); });
  on(mnuTextFiles, "mnuTextFiles_Click", [this] { editor_.ExportAsking(false, true); });
  on(mnuCSVFiles, "mnuCSVFiles_Click", [this] { editor_.ExportAsking(true, true); });
  on(mnuMeters, "mnuMeters_Click", [this] {
    editor_.SetDepthInFeet(false);
    Changed(false);
  });
  on(mnuFeet, "mnuFeet_Click", [this] {
    editor_.SetDepthInFeet(true);
    Changed(false);
  });
  // Leaving may close and delete this window, so nothing of it is touched afterwards.
  connect(mnuReturn, &QAction::triggered, this, [this] { close(); });

  for (const auto& [list, cell] : Columns()) {
    connect(list, &QListWidget::itemChanged, this, [this, cell = cell](QListWidgetItem* item) {
      if (!filling_) CellEdited(item, cell);
    });
    connect(list, &QListWidget::currentRowChanged, this, [this](int row) {
      if (!filling_) ShowRow(row);
    });
    connect(list->verticalScrollBar(), &QScrollBar::valueChanged, this, [this](int value) {
      for (const auto& [other, other_cell] : Columns()) other->verticalScrollBar()->setValue(value);
    });
  }
}

std::vector<std::pair<QListWidget*, DissipationCell>> DissipationEditWindow::Columns() const {
  if (txtPressurePSI != nullptr) {
    return {{txtTime, DissipationCell::kTime},
            {txtVoltage, DissipationCell::kVolts},
            {txtPressurePSI, DissipationCell::kPsi},
            {txtPressureUnits, DissipationCell::kPressure}};
  }
  return {{txtTime, DissipationCell::kTime},
          {txtVoltage, DissipationCell::kRaw},
          {txtPressureUnits, DissipationCell::kPressure}};
}

void DissipationEditWindow::Changed(bool structural) {
  Refill();
  if (on_changed_) on_changed_(structural);
}

void DissipationEditWindow::Refill() {
  filling_ = true;
  const DissipationSet& set = editor_.Set();
  setWindowTitle(ToQString(editor_.Caption()));
  for (auto& [name, box] : txtHeader) {
    const std::string* field = DissipationHeaderField(session_.Dissipation(), name);
    if (field != nullptr && !box->hasFocus()) box->setText(ToQString(*field));
  }
  if (cmbWeather != nullptr) cmbWeather->setCurrentText(ToQString(set.Weather));
  lblDepthUnits->setText(ToQString(editor_.DepthUnitCaption()));
  mnuMeters->setChecked(!editor_.DepthInFeet());
  mnuFeet->setChecked(editor_.DepthInFeet());
  cmbDissipationDepth->clear();
  for (const std::string& depth : editor_.DepthEntries()) cmbDissipationDepth->addItem(ToQString(depth));
  cmbDissipationDepth->setCurrentIndex(editor_.SelectedTest() - 1);
  cmbPressureUnits->clear();
  for (const DissipationPressureUnit& unit : editor_.PressureUnits()) cmbPressureUnits->addItem(ToQString(unit.name));
  cmbPressureUnits->setCurrentIndex(editor_.PressureUnitChoice());
  lblPressureUnits->setText(ToQString(editor_.PressureHeading()));
  filling_ = false;
  FillGrid();
}

void DissipationEditWindow::FillGrid() {
  filling_ = true;
  const int test = editor_.SelectedTest();
  const int rows = test <= editor_.Set().DissipationCount ? editor_.Set().RowCount[static_cast<size_t>(test)] : 0;
  const int current = std::max(txtTime->currentRow(), 0);
  for (const auto& [list, cell] : Columns()) {
    const int scrolled = list->verticalScrollBar()->value();
    list->clear();
    for (int k = 1; k <= rows; ++k) {
      auto* item = new QListWidgetItem(ToQString(editor_.CellText(test, k, cell)), list);
      item->setFlags(item->flags() | Qt::ItemIsEditable);
      item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
    if (rows > 0) list->setCurrentRow(std::min(current, rows - 1));
    list->verticalScrollBar()->setValue(scrolled);
  }
  filling_ = false;
  ShowRow(rows > 0 ? std::min(current, rows - 1) : -1);
}

// HighLightRow: the same row current in every column, its number shown.
void DissipationEditWindow::ShowRow(int row) {
  filling_ = true;
  for (const auto& [list, cell] : Columns()) {
    if (list->currentRow() != row) list->setCurrentRow(row);
  }
  filling_ = false;
  lblReadingNumber->setText(row < 0 ? QString() : QString("READING %1").arg(row + 1));
}

void DissipationEditWindow::CellEdited(QListWidgetItem* item, DissipationCell cell) {
  const int row = item->listWidget()->row(item) + 1;
  const int test = editor_.SelectedTest();
  bool edited = false;
  Handle("txtCell_Change", [&] { edited = editor_.EditCell(test, row, cell, item->text().toStdString()); });
  // The row shows the store again: a refused entry is restored, a recomputed column follows.
  filling_ = true;
  for (const auto& [list, shown] : Columns()) {
    const bool restored = !edited && shown == cell;
    if (QListWidgetItem* at = list->item(row - 1)) at->setText(ToQString(editor_.CellText(test, row, shown, restored)));
  }
  filling_ = false;
  if (edited && on_changed_) on_changed_(false);
}

void DissipationEditWindow::SetHeaders() {
  for (auto& [name, box] : txtHeader) editor_.SetHeader(name, box->text().toStdString());
  if (cmbWeather != nullptr) editor_.SetHeader("Weather", cmbWeather->currentText().toStdString());
}

void DissipationEditWindow::Combine() {
  if (prompts_.Ask(kCombineCaution, Buttons::kOkCancel) != Answer::kOk) return;
  FileDialogRequest request;
  request.title = "Select DIS to add";
  request.filter = "DIS Files (*.dis)|*.dis";
  request.start_directory = session_.DissipationDirectory;
  const std::string path = prompts_.OpenFile(request);
  if (path.empty()) return;
  if (FrmTYRAppendDISOffset(editor_, path, this).exec() == QDialog::Accepted) Changed(true);
}

bool DissipationEditWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const auto* key = static_cast<QKeyEvent*>(event);
    const auto columns = Columns();
    for (size_t c = 0; c < columns.size(); ++c) {
      QListWidget* list = columns[c].first;
      // While a cell is being typed into, its keys go to the cell's own box, not here.
      if (watched != list) continue;
      // Right and Delete go on to the next column of the same row.
      if (key->key() == Qt::Key_Right || key->key() == Qt::Key_Delete) {
        QListWidget* next = columns[(c + 1) % columns.size()].first;
        next->setFocus();
        next->setCurrentRow(list->currentRow());
        return true;
      }
    }
  }
  return QMainWindow::eventFilter(watched, event);
}

void DissipationEditWindow::closeEvent(QCloseEvent* event) {
  if (leaving_) {
    event->accept();
    return;
  }
  bool leave = true;
  RunGuarded(prompts_, "mnuReturn_Click", [&] {
    SetHeaders();
    leave = editor_.MayLeave();
  });
  if (!leave) {
    event->ignore();
    return;
  }
  leaving_ = true;
  event->accept();
  if (on_return_) on_return_();
}

FrmEditTYRDissipation::FrmEditTYRDissipation(Session& session, UserPrompts& prompts,
                                             std::function<void(bool)> on_changed, std::function<void()> on_return,
                                             QWidget* parent)
    : DissipationEditWindow(session, prompts, std::move(on_changed), std::move(on_return), parent) {
  setObjectName("frmEditTYRDissipation");
}

FrmEditPXDissipation::FrmEditPXDissipation(Session& session, UserPrompts& prompts,
                                           std::function<void(bool)> on_changed, std::function<void()> on_return,
                                           QWidget* parent)
    : DissipationEditWindow(session, prompts, std::move(on_changed), std::move(on_return), parent) {
  setObjectName("frmEditPXDissipation");
}

std::unique_ptr<DissipationEditWindow> MakeDissipationEditor(Session& session, UserPrompts& prompts,
                                                             std::function<void(bool)> on_changed,
                                                             std::function<void()> on_return, QWidget* parent) {
  switch (session.Dissipation().FileKind) {
    case kFieldboxDissipation:
      return std::make_unique<FrmEditTYRDissipation>(session, prompts, std::move(on_changed), std::move(on_return),
                                                     parent);
    case kPxDasDissipation:
      return std::make_unique<FrmEditPXDissipation>(session, prompts, std::move(on_changed), std::move(on_return),
                                                    parent);
    default:
      return nullptr;
  }
}

}  // namespace marlview
