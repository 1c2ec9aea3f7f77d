// The sounding editor: widgets named as the controls they are; the slots, the grid's texts, the
// cursor and every change to the sounding belong to the core's editor and edit operations.
#include "ui/editing/frm_edit.h"

#include <QAbstractTableModel>
#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QPalette>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "core/editing/edit_operations.h"
#include "core/presentation/ecp_list.h"
#include "core/presentation/sounding_exports.h"
#include "core/presentation/sounding_list.h"
#include "core/session/session.h"
#include "ui/common/event_guard.h"
#include "ui/common/named.h"
#include "ui/common/qt_prompts.h"
#include "ui/editing/edit_dialogs.h"
#include "ui/presentation/frm_enlarged_tip_graph.h"
#include "ui/presentation/printer_print_job.h"

namespace marlview {
namespace {

constexpr int kColumnPixels = 118;
constexpr int kDepthPixels = 90;
// A list or export holds at most 30 channels.
constexpr int kMaxExportChannels = 30;

// The boxes under each slot's heading, top to bottom, with their captions and name endings.
struct SlotBox {
  ChannelBox box;
  const char* caption;
  const char* suffix;
  std::array<QLineEdit*, kEditorSlots> FrmEdit::*member;
};
constexpr SlotBox kSlotBoxes[] = {
    {ChannelBox::kFinalBaseline, "FINAL BASELINE", "FinalBaseline", &FrmEdit::txtColumnFinalBaseline},
    {ChannelBox::kInitialBaseline, "BASELINE", "InitialBaseline", &FrmEdit::txtColumnInitialBaseline},
    {ChannelBox::kOffset, "OFFSET", "Offset", &FrmEdit::txtColumnOffset},
    {ChannelBox::kUnit, "UNIT", "Unit", &FrmEdit::txtColumnUnit},
    {ChannelBox::kCal, "CAL", "Cal", &FrmEdit::txtColumnCal},
};

void SetTextIfChanged(QLineEdit* box, const QString& text) {
  if (box->text() != text) box->setText(text);
}

}  // namespace

// The grid as a model over the editor: column 0 the depth, columns 1..10 the slots. A cell is
// formatted only when a view shows it, so a sounding of 10000 readings opens at once.
class EditorGridModel : public QAbstractTableModel {
 public:
  EditorGridModel(SoundingEditor& editor, QObject* parent) : QAbstractTableModel(parent), editor_(editor) {}

  // The window's handler of a value entered in a slot's cell; true when the sounding took it.
  std::function<bool(int row, int slot, const std::string& entry)> on_set_value;

  // After a change: the rows again when their number changed, else every cell's text.
  void Refresh() {
    if (rows_ != editor_.RowCount()) {
      beginResetModel();
      rows_ = editor_.RowCount();
      endResetModel();
      return;
    }
    if (rows_ > 0) emit dataChanged(index(0, 0), index(rows_ - 1, kEditorSlots));
  }

  int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : rows_; }
  int columnCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : kEditorSlots + 1;
  }

  QVariant data(const QModelIndex& index, int role) const override {
    const int row = index.row() + 1, slot = index.column();
    if (!index.isValid() || row > editor_.RowCount()) return {};
    const int channel = editor_.SlotChannel(slot);
    if (slot > 0 && channel == 0) return {};
    switch (role) {
      case Qt::DisplayRole:
      case Qt::EditRole:
        return ToQString(slot == 0 ? editor_.DepthText(row) : editor_.ValueText(row, channel));
      case Qt::TextAlignmentRole:
        return QVariant::fromValue(Qt::Alignment(Qt::AlignRight | Qt::AlignVCenter));
      case Qt::BackgroundRole:
        if (row != editor_.CurrentRow()) return {};
        return QApplication::palette().brush(
            slot > 0 && channel == editor_.CurrentChannel() ? QPalette::Highlight : QPalette::AlternateBase);
      case Qt::ForegroundRole:
        if (row != editor_.CurrentRow() || slot == 0 || channel != editor_.CurrentChannel()) return {};
        return QApplication::palette().brush(QPalette::HighlightedText);
      default:
        return {};
    }
  }

  Qt::ItemFlags flags(const QModelIndex& index) const override {
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (index.column() > 0 && editor_.SlotChannel(index.column()) != 0) flags |= Qt::ItemIsEditable;
    return flags;
  }

  bool setData(const QModelIndex& index, const QVariant& value, int role) override {
    if (role != Qt::EditRole || index.column() == 0 || !on_set_value) return false;
    return on_set_value(index.row() + 1, index.column(), value.toString().toStdString());
  }

 private:
  SoundingEditor& editor_;
  int rows_ = 0;
};

FrmEdit::FrmEdit(Session& session, UserPrompts& prompts, std::function<void()> on_changed, QWidget* parent)
    : QMainWindow(parent),
      session_(session),
      prompts_(prompts),
      editor_(session, prompts),
      on_changed_(std::move(on_changed)),
      model_(new EditorGridModel(editor_, this)) {
  setObjectName("frmEdit");
  session_.flags.EditWindowOpen = true;
  setCentralWidget(new QWidget(this));
  auto* layout = new QVBoxLayout(centralWidget());
  auto* header = new QGridLayout;
  layout->addLayout(header);
  BuildHeader(header);
  auto* grid = new QGridLayout;
  layout->addLayout(grid, 1);
  BuildGrid(grid);
  BuildMenus();
  Connect();
  Refill();
  resize(1400, 820);
}

FrmEdit::~FrmEdit() {
  if (open_) session_.flags.EditWindowOpen = false;
}

void FrmEdit::BuildHeader(QGridLayout* layout) {
  QWidget* parent = centralWidget();
  int at = 0;
  auto box = [&](const char* name, const char* caption) {
    auto* edit = Named(new QLineEdit(parent), name);
    layout->addWidget(new QLabel(caption, parent), at / 5, (at % 5) * 2);
    layout->addWidget(edit, at / 5, (at % 5) * 2 + 1);
    ++at;
    return edit;
  };
  txtFilename = box("txtFilename", "FILENAME");
  txtDate = box("txtDate", "DATE");
  txtTime = box("txtTime", "TIME");
  txtCompany = box("txtCompany", "COMPANY");
  txtCrew = box("txtCrew", "CREW");
  txtDASID = box("txtDASID", "DAS ID");
  txtClient = box("txtClient", "CLIENT");
  txtClientRep = box("txtClientRep", "CLIENT REP");
  txtComments = box("txtComments", "COMMENTS");
  txtStartDepth = box("txtStartDepth", "START DEPTH (m)");
  txtGPSLat = box("txtGPSLat", "GPS LAT");
  txtGPSLon = box("txtGPSLon", "GPS LON");
  txtGPSElev = box("txtGPSElev", "GPS ELEV");
  txtGPSNSat = box("txtGPSNSat", "GPS NSAT");
  cmbWeather = Named(new QComboBox(parent), "cmbWeather");
  cmbWeather->setEditable(true);
  layout->addWidget(new QLabel("WEATHER", parent), at / 5, (at % 5) * 2);
  layout->addWidget(cmbWeather, at / 5, (at % 5) * 2 + 1);
}

void FrmEdit::BuildGrid(QGridLayout* layout) {
  QWidget* parent = centralWidget();
  auto view = [&](const QString& name, int column) {
    auto* list = new QListView(parent);
    list->setObjectName(name);
    list->setModel(model_);
    list->setModelColumn(column);
    // Every row as high as the font: the view need not measure 10000 rows to lay them out.
    list->setUniformItemSizes(true);
    list->setSelectionMode(QAbstractItemView::NoSelection);
    list->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    list->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setEditTriggers(column == 0 ? QAbstractItemView::NoEditTriggers
                                      : QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                                            QAbstractItemView::AnyKeyPressed);
    list->setMinimumWidth(column == 0 ? kDepthPixels : kColumnPixels);
    list->installEventFilter(this);
    return list;
  };

  auto* status = new QHBoxLayout;
  lblStatus = Named(new QLabel(parent), "lblStatus");
  status->addWidget(lblStatus, 1);
  status->addWidget(new QLabel("READING:", parent));
  lblReadingNumber = Named(new QLabel(parent), "lblReadingNumber");
  status->addWidget(lblReadingNumber);
  status->addWidget(new QLabel("UNITS:", parent));
  lblUnits = Named(new QLabel(parent), "lblUnits");
  status->addWidget(lblUnits);
  cmdRemoveColumn = NamedButton(status, parent, "cmdRemoveColumn", "REMOVE CHANNEL");
  layout->addLayout(status, 0, 0, 1, kEditorSlots + 2);

  lblDepth = Named(new QLabel(parent), "lblDepth");
  layout->addWidget(lblDepth, 1, 0, Qt::AlignBottom);
  int row = 2;
  for (const SlotBox& box : kSlotBoxes) layout->addWidget(new QLabel(box.caption, parent), row++, 0);
  txtDepth = view("txtDepth", 0);
  layout->addWidget(txtDepth, row, 0);
  for (int slot = 1; slot <= kEditorSlots; ++slot) {
    const QString n = QString::number(slot);
    const size_t i = static_cast<size_t>(slot - 1);
    lblColumn[i] = new QLabel(parent);
    lblColumn[i]->setObjectName("lblColumn" + n);
    lblColumn[i]->setAlignment(Qt::AlignCenter);
    layout->addWidget(lblColumn[i], 1, slot);
    int box_row = 2;
    for (const SlotBox& box : kSlotBoxes) {
      QLineEdit* edit = new QLineEdit(parent);
      edit->setObjectName("txtColumn" + n + box.suffix);
      (this->*box.member)[i] = edit;
      layout->addWidget(edit, box_row++, slot);
    }
    txtColumn[i] = view("txtColumn" + n, slot);
    layout->addWidget(txtColumn[i], row, slot);
  }
  scrReadings = Named(new QScrollBar(Qt::Vertical, parent), "scrReadings");
  layout->addWidget(scrReadings, row, kEditorSlots + 1);
  layout->setRowStretch(row, 1);
  scrColumns = Named(new QScrollBar(Qt::Horizontal, parent), "scrColumns");
  layout->addWidget(scrColumns, row + 1, 1, 1, kEditorSlots);
}

void FrmEdit::BuildMenus() {
  QMenu* file = menuBar()->addMenu("&File");
  file->setObjectName("mnuFile");
  mnuSave = NamedAction(file, "mnuSave", "&Save");
  mnuSaveAs = NamedAction(file, "mnuSaveAs", "Save &As...");
  file->addSeparator();
  mnuExportTextFile = NamedAction(file, "mnuExportTextFile", "Export &Text File...");
  mnuExportEcpFile = NamedAction(file, "mnuExportEcpFile", "Export &ECP File...");
  mnuExportLogDATCompatibleDATFile =
      NamedAction(file, "mnuExportLogDATCompatibleDATFile", "Export Log&DAT Compatible DAT File...");
  file->addSeparator();
  mnuPrint = NamedAction(file, "mnuPrint", "&Print...");
  file->addSeparator();
  mnuReturn = NamedAction(file, "mnuReturn", "&Return");

  QMenu* edit = menuBar()->addMenu("&Edit");
  edit->setObjectName("mnuEdit");
  mnuAdjustDepth = NamedAction(edit, "mnuAdjustDepth", "&Adjust Depth...");
  mnuChangeStartDepth = NamedAction(edit, "mnuChangeStartDepth", "Change &Start Depth...");
  mnuNormalizeDepthIntervals =
      NamedAction(edit, "mnuNormalizeDepthIntervals", "&Normalize Depth Intervals...");
  mnuRemoveNegatives = NamedAction(edit, "mnuRemoveNegatives", "Remove &Negatives...");
  mnuRemoveRodBreaks = NamedAction(edit, "mnuRemoveRodBreaks", "Remove &Rod Breaks...");
  mnuShiftChannels = NamedAction(edit, "mnuShiftChannels", "S&hift Channels...");
  mnuTipConfiguration = NamedAction(edit, "mnuTipConfiguration", "&Tip Configuration...");
  mnuConeDimensions = NamedAction(edit, "mnuConeDimensions", "C&one Dimensions...");
  edit->addSeparator();
  mnuCombine = NamedAction(edit, "mnuCombine", "&Combine DAT Files...");

  QMenu* view = menuBar()->addMenu("&View");
  view->setObjectName("mnuView");
  mnuShowDataUnits = NamedAction(view, "mnuShowDataUnits", QString());
  view->addSeparator();
  mnuAdjustedForOffset = NamedAction(view, "mnuAdjustedForOffset", "&Adjusted for Offset");
  mnuUnAdjusted = NamedAction(view, "mnuUnAdjusted", "&Un-Adjusted");
  view->addSeparator();
  mnuMeters = NamedAction(view, "mnuMeters", "&Meters");
  mnuFeet = NamedAction(view, "mnuFeet", "&Feet");
  for (QAction* action : {mnuAdjustedForOffset, mnuUnAdjusted, mnuMeters, mnuFeet})
    action->setCheckable(true);
}

void FrmEdit::Handle(const char* source, const std::function<void()>& handler) {
  RunGuarded(prompts_, source, handler);
  ShowView();
}

template <typename Dialog>
void FrmEdit::RunDialog(const char* source) {
  Handle(source, [this] {
    Dialog dialog(session_, prompts_, this);
    if (dialog.exec() == QDialog::Accepted) SoundingChanged();
  });
}

void FrmEdit::Connect() {
  model_->on_set_value = [this](int row, int slot, const std::string& entry) {
    bool taken = false;
    RunGuarded(prompts_, "txtColumn_KeyPress", [&] {
      taken = editor_.SetValue(row, editor_.SlotChannel(slot), entry);
      if (taken) SoundingChanged();
    });
    return taken;
  };

  // The depth and the ten columns scroll as one.
  std::vector<QListView*> views{txtDepth};
  views.insert(views.end(), txtColumn.begin(), txtColumn.end());
  for (QListView* view : views) {
    // A hidden slot's view keeps the range it had and would pull the others back to it.
    connect(view->verticalScrollBar(), &QScrollBar::valueChanged, this, [this, view](int value) {
      if (view->isVisible()) scrReadings->setValue(value);
    });
    const int slot =
        view == txtDepth
            ? 0
            : static_cast<int>(std::find(txtColumn.begin(), txtColumn.end(), view) - txtColumn.begin()) + 1;
    connect(view, &QAbstractItemView::pressed, this, [this, slot](const QModelIndex& index) {
      Handle("txtColumn_Click", [&] {
        const int channel = slot == 0 ? editor_.CurrentChannel() : editor_.SlotChannel(slot);
        editor_.SetCurrent(index.row() + 1, channel);
      });
    });
  }
  connect(scrReadings, &QScrollBar::valueChanged, this, [views](int value) {
    for (QListView* view : views) view->verticalScrollBar()->setValue(value);
  });
  connect(txtDepth->verticalScrollBar(), &QScrollBar::rangeChanged, this, [this](int low, int high) {
    scrReadings->setRange(low, high);
    scrReadings->setPageStep(txtDepth->verticalScrollBar()->pageStep());
  });
  connect(scrColumns, &QScrollBar::valueChanged, this, [this](int first) {
    if (filling_) return;
    Handle("scrColumns_Change", [&] { editor_.SetFirstColumn(first); });
  });

  for (const auto& [edit, field] : HeaderBoxes()) {
    connect(edit, &QLineEdit::textEdited, this, [this, field = field](const QString& text) {
      if (filling_) return;
      RunGuarded(prompts_, "txtHeader_Change", [&] { editor_.SetHeaderText(field, text.toStdString()); });
      setWindowTitle(ToQString(editor_.Caption()));
    });
  }
  auto weather = [this] {
    if (filling_) return;
    RunGuarded(prompts_, "cmbWeather_Change",
               [&] { editor_.SetHeaderText(HeaderBox::kWeather, cmbWeather->currentText().toStdString()); });
  };
  connect(cmbWeather->lineEdit(), &QLineEdit::textEdited, this, weather);
  connect(cmbWeather, &QComboBox::activated, this, weather);

  for (int slot = 1; slot <= kEditorSlots; ++slot) {
    for (const SlotBox& box : kSlotBoxes) {
      QLineEdit* edit = (this->*box.member)[static_cast<size_t>(slot - 1)];
      connect(edit, &QLineEdit::returnPressed, this, [this, edit, slot, which = box.box] {
        Handle("txtColumn_KeyPress", [&] {
          if (editor_.SetSlotBox(slot, which, edit->text().toStdString())) SoundingChanged();
        });
      });
    }
  }
  connect(cmdRemoveColumn, &QPushButton::clicked, this, [this] {
    Handle("cmdRemoveColumn_Click", [&] {
      if (editor_.RemoveCurrentChannel()) SoundingChanged();
    });
  });

  connect(mnuSave, &QAction::triggered, this,
          [this] { Handle("mnuSave_Click", [&] { editor_.Save(false, false); }); });
  connect(mnuSaveAs, &QAction::triggered, this, [this] { SaveAs(false); });
  connect(mnuExportLogDATCompatibleDATFile, &QAction::triggered, this, [this] { SaveAs(true); });
  connect(mnuRemoveRodBreaks, &QAction::triggered, this, &FrmEdit::RemoveRodBreaks);
  connect(mnuExportTextFile, &QAction::triggered, this, [this] {
    Handle("mnuExportTextFile_Click", [&] {
      // The file's channels as the grid shows them, in the editor's depth unit and offset view.
      ExportOptions options;
      for (int c = 1; c <= std::min(editor_.ChannelCount(), kMaxExportChannels); ++c)
        options.channels.push_back(c);
      options.raw = !editor_.ViewAdjustedForOffset();
      options.depth_unit = editor_.EditDepthInFeet() ? 2 : 1;
      SaveExport(session_, prompts_, "txt", [this, options] { return TxtExport(session_, options); });
    });
  });
  connect(mnuExportEcpFile, &QAction::triggered, this, [this] {
    Handle("mnuExportEcpFile_Click", [&] {
      EcpView view;
      view.unit = ReadDefaultEcpUnit(session_);
      ChooseEcpColumns(session_, view);
      SaveExport(session_, prompts_, "ecp", [this, view] { return EcpExport(session_, view); });
    });
  });
  connect(mnuPrint, &QAction::triggered, this, [this] {
    Handle("mnuPrint_Click", [&] {
      PrintWithDialog(this, [this](PrintJob& job) { PrintTextLines(job, editor_.PrintLines()); });
    });
  });
  // Closing may lead the main window to delete this one later, so nothing of it is touched afterwards.
  connect(mnuReturn, &QAction::triggered, this, [this] { close(); });

  connect(mnuAdjustDepth, &QAction::triggered, this,
          [this] { RunDialog<FrmAdjustDepth>("mnuAdjustDepth_Click"); });
  connect(mnuChangeStartDepth, &QAction::triggered, this,
          [this] { RunDialog<FrmChangeStartDepth>("mnuChangeStartDepth_Click"); });
  connect(mnuNormalizeDepthIntervals, &QAction::triggered, this,
          [this] { RunDialog<FrmNormalizeDepthIntervals>("mnuNormalizeDepthIntervals_Click"); });
  connect(mnuRemoveNegatives, &QAction::triggered, this,
          [this] { RunDialog<FrmRemoveNegatives>("mnuRemoveNegatives_Click"); });
  connect(mnuShiftChannels, &QAction::triggered, this,
          [this] { RunDialog<FrmShiftChannels>("mnuShiftChannels_Click"); });
  connect(mnuTipConfiguration, &QAction::triggered, this,
          [this] { RunDialog<FrmTipConfiguration>("mnuTipConfiguration_Click"); });
  connect(mnuConeDimensions, &QAction::triggered, this,
          [this] { RunDialog<FrmTYRConeDimensions>("mnuConeDimensions_Click"); });
  connect(mnuCombine, &QAction::triggered, this, [this] { Handle("mnuCombine_Click", [&] { Combine(); }); });

  connect(mnuShowDataUnits, &QAction::triggered, this, [this] {
    Handle("mnuShowDataUnits_Click", [&] { editor_.SetShowRawVolts(!editor_.ShowRawVolts()); });
  });
  connect(mnuAdjustedForOffset, &QAction::triggered, this,
          [this] { Handle("mnuAdjustedForOffset_Click", [&] { editor_.SetViewAdjustedForOffset(true); }); });
  connect(mnuUnAdjusted, &QAction::triggered, this,
          [this] { Handle("mnuUnAdjusted_Click", [&] { editor_.SetViewAdjustedForOffset(false); }); });
  connect(mnuFeet, &QAction::triggered, this,
          [this] { Handle("mnuFeet_Click", [&] { editor_.SetEditDepthInFeet(true); }); });
  connect(mnuMeters, &QAction::triggered, this,
          [this] { Handle("mnuMeters_Click", [&] { editor_.SetEditDepthInFeet(false); }); });
}

void FrmEdit::SaveAs(bool dat_compatible) {
  Handle(dat_compatible ? "mnuExportLogDATCompatibleDATFile_Click" : "mnuSaveAs_Click",
         [&] { editor_.Save(true, dat_compatible); });
}

void FrmEdit::RemoveRodBreaks() {
  Handle("mnuRemoveRodBreaks_Click", [&] {
    OpenEnlargedTipGraph(session_, prompts_, this, editor_.EditDepthInFeet() ? 2 : 1);
    SoundingChanged();
  });
}

void FrmEdit::Combine() {
  const std::string path = ChooseDatToAppend(session_, prompts_);
  if (path.empty()) return;
  FrmTYRAppendOffset offset(session_, prompts_, this);
  if (offset.exec() != QDialog::Accepted) return;
  if (AppendDatFile(session_, prompts_, path, offset.Offset().toStdString())) SoundingChanged();
}

void FrmEdit::SoundingChanged() {
  editor_.Changed();
  FillHeader();
  model_->Refresh();
  if (on_changed_) on_changed_();
}

void FrmEdit::Refill() {
  FillHeader();
  ShowView();
}

std::array<std::pair<QLineEdit*, HeaderBox>, 14> FrmEdit::HeaderBoxes() const {
  return {{{txtFilename, HeaderBox::kFilename},   {txtDate, HeaderBox::kDate},
           {txtTime, HeaderBox::kTime},           {txtCompany, HeaderBox::kCompany},
           {txtCrew, HeaderBox::kCrew},           {txtDASID, HeaderBox::kDasId},
           {txtClient, HeaderBox::kClient},       {txtClientRep, HeaderBox::kClientRep},
           {txtComments, HeaderBox::kComments},   {txtGPSLat, HeaderBox::kGpsLat},
           {txtGPSLon, HeaderBox::kGpsLon},       {txtGPSElev, HeaderBox::kGpsElev},
           {txtGPSNSat, HeaderBox::kGpsNSat},     {txtStartDepth, HeaderBox::kStartDepth}}};
}

void FrmEdit::FillHeader() {
  filling_ = true;
  setWindowTitle(ToQString(editor_.Caption()));
  for (const auto& [edit, field] : HeaderBoxes()) SetTextIfChanged(edit, ToQString(editor_.HeaderText(field)));
  const QString weather = ToQString(editor_.HeaderText(HeaderBox::kWeather));
  if (cmbWeather->count() != 1 || cmbWeather->currentText() != weather) {
    cmbWeather->clear();
    cmbWeather->addItem(weather);
  }
  filling_ = false;
}

void FrmEdit::ShowView() {
  filling_ = true;
  lblStatus->setText(ToQString(editor_.StatusText()));
  lblDepth->setText(ToQString(editor_.DepthCaption()));
  lblReadingNumber->setText(ToQString(editor_.ReadingNumberText()));
  lblUnits->setText(ToQString(editor_.UnitsText()));
  mnuShowDataUnits->setText(ToQString(editor_.DataUnitsMenuCaption()));
  mnuAdjustedForOffset->setChecked(editor_.ViewAdjustedForOffset());
  mnuUnAdjusted->setChecked(!editor_.ViewAdjustedForOffset());
  mnuFeet->setChecked(editor_.EditDepthInFeet());
  mnuMeters->setChecked(!editor_.EditDepthInFeet());
  for (int slot = 1; slot <= kEditorSlots; ++slot) {
    const size_t i = static_cast<size_t>(slot - 1);
    const bool used = editor_.SlotChannel(slot) != 0;
    lblColumn[i]->setVisible(used);
    txtColumn[i]->setVisible(used);
    lblColumn[i]->setText(ToQString(editor_.SlotHeading(slot)));
    for (const SlotBox& box : kSlotBoxes) {
      QLineEdit* edit = (this->*box.member)[i];
      edit->setVisible(used);
      SetTextIfChanged(edit, ToQString(editor_.SlotBoxText(slot, box.box)));
    }
  }
  scrColumns->setRange(1, editor_.LastFirstColumn());
  scrColumns->setPageStep(kEditorSlots);
  scrColumns->setValue(editor_.FirstColumn());
  scrColumns->setEnabled(editor_.LastFirstColumn() > 1);
  filling_ = false;
  model_->Refresh();
}

void FrmEdit::FollowCursor(bool in_depth) {
  const int row = editor_.CurrentRow();
  if (row < 1) return;
  const int slot = editor_.CurrentChannel() - editor_.FirstColumn() + 1;
  if (!in_depth && (slot < 1 || slot > kEditorSlots)) return;
  QListView* view = in_depth ? txtDepth : txtColumn[static_cast<size_t>(slot - 1)];
  const QModelIndex index = model_->index(row - 1, in_depth ? 0 : slot);
  view->setCurrentIndex(index);
  view->scrollTo(index);
  view->setFocus();
}

bool FrmEdit::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    if (watched == txtDepth) return GridKey(0, static_cast<QKeyEvent*>(event));
    const auto found = std::find(txtColumn.begin(), txtColumn.end(), watched);
    if (found != txtColumn.end())
      return GridKey(static_cast<int>(found - txtColumn.begin()) + 1, static_cast<QKeyEvent*>(event));
  }
  return QMainWindow::eventFilter(watched, event);
}

bool FrmEdit::GridKey(int slot, QKeyEvent* key) {
  const bool in_depth = slot == 0;
  // A key the cell's entry box did not take comes on to its column; while a cell is being edited
  // it neither moves the cursor nor starts another edit.
  QListView* view = in_depth ? txtDepth : txtColumn[static_cast<size_t>(slot - 1)];
  if (view->indexWidget(view->currentIndex()) != nullptr) return true;
  const int page = std::max(1, scrReadings->pageStep());
  switch (key->key()) {
    case Qt::Key_Up:
      Handle("txtColumn_KeyDown", [&] { editor_.MoveRow(-1); });
      break;
    case Qt::Key_Down:
      Handle("txtColumn_KeyDown", [&] { editor_.MoveRow(1); });
      break;
    case Qt::Key_PageUp:
      Handle("txtColumn_KeyDown", [&] { editor_.MoveRow(-page); });
      break;
    case Qt::Key_PageDown:
      Handle("txtColumn_KeyDown", [&] { editor_.MoveRow(page); });
      break;
    case Qt::Key_Right:
    case Qt::Key_Left:
      if (in_depth) return true;
      Handle("txtColumn_KeyDown", [&] { editor_.MoveChannel(key->key() == Qt::Key_Right ? 1 : -1); });
      break;
    case Qt::Key_Delete:
      if (!in_depth) return false;
      Handle("txtDepth_KeyDown", [&] {
        if (editor_.DeleteCurrentReading()) SoundingChanged();
      });
      break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (!in_depth) view->edit(view->currentIndex());
      return true;
    default:
      return false;
  }
  FollowCursor(in_depth);
  return true;
}

void FrmEdit::CloseWithoutAsking() {
  leaving_ = true;
  close();
}

void FrmEdit::closeEvent(QCloseEvent* event) {
  if (!leaving_) {
    bool leave = false;
    RunGuarded(prompts_, "mnuReturn_Click", [&] {
      if (!editor_.ConfirmLeave()) return;
      editor_.Leave();
      leave = true;
    });
    if (!leave) {
      event->ignore();
      return;
    }
    leaving_ = true;
    if (on_changed_) on_changed_();
  }
  open_ = false;
  session_.flags.EditWindowOpen = false;
  QMainWindow::closeEvent(event);
}

}  // namespace marlview
