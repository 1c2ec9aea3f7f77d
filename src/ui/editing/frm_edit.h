// frmEdit, the sounding editor: the header of a DAT sounding, its channels ten at a time with each
// channel's baselines, offset, unit and calibration, and its readings in a grid to correct one by
// one, with the menus of the edit operations.
#pragma once

#include <QMainWindow>
#include <array>
#include <functional>
#include <utility>

#include "core/common/user_prompts.h"
#include "core/editing/editor.h"

class QAction;
class QComboBox;
class QGridLayout;
class QKeyEvent;
class QLabel;
class QLineEdit;
class QListView;
class QPushButton;
class QScrollBar;

namespace marlview {

class EditorGridModel;
class Session;

class FrmEdit : public QMainWindow {
  Q_OBJECT

 public:
  // on_changed runs after every change to the sounding and when the user leaves the editor, so
  // the windows that show the sounding follow.
  FrmEdit(Session& session, UserPrompts& prompts, std::function<void()> on_changed,
          QWidget* parent = nullptr);
  ~FrmEdit() override;

  SoundingEditor& Editor() { return editor_; }
  // Everything shown again from the sounding: header, slots, grid, view texts.
  void Refill();
  // Closed by the main window, which has asked its own question already.
  void CloseWithoutAsking();

  QLineEdit* txtFilename;
  QLineEdit* txtDate;
  QLineEdit* txtTime;
  QLineEdit* txtCompany;
  QLineEdit* txtCrew;
  QLineEdit* txtDASID;
  QLineEdit* txtClient;
  QLineEdit* txtClientRep;
  QLineEdit* txtComments;
  QLineEdit* txtGPSLat;
  QLineEdit* txtGPSLon;
  QLineEdit* txtGPSElev;
  QLineEdit* txtGPSNSat;
  QLineEdit* txtStartDepth;
  QComboBox* cmbWeather;

  // Slot N is element N - 1, its controls named with N: txtColumn1, txtColumn1FinalBaseline, ...
  std::array<QLabel*, kEditorSlots> lblColumn{};
  std::array<QListView*, kEditorSlots> txtColumn{};
  std::array<QLineEdit*, kEditorSlots> txtColumnFinalBaseline{};
  std::array<QLineEdit*, kEditorSlots> txtColumnInitialBaseline{};
  std::array<QLineEdit*, kEditorSlots> txtColumnOffset{};
  std::array<QLineEdit*, kEditorSlots> txtColumnUnit{};
  std::array<QLineEdit*, kEditorSlots> txtColumnCal{};
  QListView* txtDepth;
  QLabel* lblDepth;
  QLabel* lblReadingNumber;
  QLabel* lblUnits;
  QLabel* lblStatus;
  // The readings' scroll bar, shared by the depth and the ten columns, and the slots' own.
  QScrollBar* scrReadings;
  QScrollBar* scrColumns;
  QPushButton* cmdRemoveColumn;

  QAction* mnuSave;
  QAction* mnuSaveAs;
  QAction* mnuExportTextFile;
  QAction* mnuExportEcpFile;
  QAction* mnuExportLogDATCompatibleDATFile;
  QAction* mnuPrint;
  QAction* mnuReturn;
  QAction* mnuAdjustDepth;
  QAction* mnuChangeStartDepth;
  QAction* mnuNormalizeDepthIntervals;
  QAction* mnuRemoveNegatives;
  QAction* mnuRemoveRodBreaks;
  QAction* mnuShiftChannels;
  QAction* mnuTipConfiguration;
  QAction* mnuConeDimensions;
  QAction* mnuCombine;
  QAction* mnuShowDataUnits;
  QAction* mnuAdjustedForOffset;
  QAction* mnuUnAdjusted;
  QAction* mnuFeet;
  QAction* mnuMeters;

 public slots:
  // Save, save as and the DAT file for the log programs, once the sounding writer is in.
  void SaveAs(bool dat_compatible);
  // The rod break tool.
  void RemoveRodBreaks();

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildHeader(QGridLayout* layout);
  void BuildGrid(QGridLayout* layout);
  void BuildMenus();
  void Connect();
  // Runs a handler through the guard; afterwards the window shows the sounding and view again.
  void Handle(const char* source, const std::function<void()>& handler);
  // Runs an operation dialog; when it changed the sounding, the editor and the other windows follow.
  template <typename Dialog>
  void RunDialog(const char* source);
  void Combine();
  // After a change to the sounding: the editor counts it, the grid and the other windows follow.
  void SoundingChanged();
  // The caption and the header boxes from the sounding.
  // Each header box with the field it shows.
  std::array<std::pair<QLineEdit*, HeaderBox>, 14> HeaderBoxes() const;
  void FillHeader();
  // The texts around the grid, the slots and the menus' checks, without rebuilding the grid.
  void ShowView();
  // The cursor's cell in view, with the keyboard's focus in its column or in the depth column.
  void FollowCursor(bool in_depth);
  // A key in the depth column or a value column; true when it was the editor's.
  bool GridKey(int slot, QKeyEvent* key);

  Session& session_;
  UserPrompts& prompts_;
  SoundingEditor editor_;
  std::function<void()> on_changed_;
  EditorGridModel* model_;
  // Until the window is closed; a window closed and deleted later leaves the flag of the next one be.
  bool open_ = true;
  // Closing from the main window or after the question has been answered.
  bool leaving_ = false;
  // While the widgets are filled from the sounding, their change signals are not the user's.
  bool filling_ = false;
};

}  // namespace marlview
