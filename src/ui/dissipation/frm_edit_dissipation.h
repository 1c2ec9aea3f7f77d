// The dissipation editors, frmEditTYRDissipation for QRD FIELDBOX files and frmEditPXDissipation
// for PX DAS files: the header boxes, the tests by depth, the rows of the chosen test in parallel
// columns to correct cell by cell, and the menus of the operations, saving and exports.
#pragma once

#include <QMainWindow>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "core/common/user_prompts.h"
#include "core/dissipation/dissipation_editor.h"

class QAction;
class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QPushButton;

namespace marlview {

class Session;

class DissipationEditWindow : public QMainWindow {
  Q_OBJECT

 public:
  // on_changed runs after every change to the file (structural when tests came or went, so a
  // view of chosen tests starts again); on_return when the user has left the editor.
  DissipationEditWindow(Session& session, UserPrompts& prompts, std::function<void(bool structural)> on_changed,
                        std::function<void()> on_return, QWidget* parent);
  ~DissipationEditWindow() override;

  DissipationEditor& Editor() { return editor_; }
  // Everything shown again from the store: caption, header boxes, tests, units and the grid.
  void Refill();

  // The header boxes by the names of the header strings (cmbWeather stands for Weather).
  std::map<std::string, QLineEdit*> txtHeader;
  QComboBox* cmbWeather = nullptr;
  QComboBox* cmbTipConfiguration = nullptr;
  QLabel* lblDepthUnits;
  QComboBox* cmbDissipationDepth;
  QComboBox* cmbPressureUnits;
  QPushButton* cmdEditDepth;
  QPushButton* Command1;
  QLabel* lblReadingNumber;
  QListWidget* txtTime;
  QListWidget* txtVoltage;
  // QRD FIELDBOX only.
  QListWidget* txtPressurePSI = nullptr;
  QListWidget* txtPressureUnits;
  QLabel* lblPressureUnits;

  QAction* mnuSave;
  QAction* mnuSaveAs;
  QAction* mnuTextFile;
  QAction* mnuCSVFile;
  QAction* mnuTextFiles;
  QAction* mnuCSVFiles;
  QAction* mnuReturn;
  QAction* mnuAdjustDepth;
  // QRD FIELDBOX only.
  QAction* mnuCombineDissipations = nullptr;
  QAction* mnuSetHeaders;
  QAction* mnuMeters;
  QAction* mnuFeet;

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildHeader(QGridLayout* layout);
  void BuildGrid(QGridLayout* layout);
  void BuildMenus();
  void Connect();
  void Handle(const char* source, const std::function<void()>& handler);
  // After a change: the views follow, the other windows too.
  void Changed(bool structural);
  void FillGrid();
  void ShowRow(int row);
  void CellEdited(QListWidgetItem* item, DissipationCell cell);
  void SetHeaders();
  void Combine();
  // The grid's columns, left to right, with the cell each shows.
  std::vector<std::pair<QListWidget*, DissipationCell>> Columns() const;

  Session& session_;
  UserPrompts& prompts_;
  DissipationEditor editor_;
  std::function<void(bool)> on_changed_;
  std::function<void()> on_return_;
  bool filling_ = false;
  bool leaving_ = false;
};

// QRD FIELDBOX files.
class FrmEditTYRDissipation : public DissipationEditWindow {
  Q_OBJECT

 public:
  FrmEditTYRDissipation(Session& session, UserPrompts& prompts, std::function<void(bool)> on_changed,
                        std::function<void()> on_return, QWidget* parent = nullptr);
};

// PX DAS files.
class FrmEditPXDissipation : public DissipationEditWindow {
  Q_OBJECT

 public:
  FrmEditPXDissipation(Session& session, UserPrompts& prompts, std::function<void(bool)> on_changed,
                       std::function<void()> on_return, QWidget* parent = nullptr);
};

// The editor of the current file's family; nothing for an FLDACQ file, which has none.
std::unique_ptr<DissipationEditWindow> MakeDissipationEditor(Session& session, UserPrompts& prompts,
                                                             std::function<void(bool)> on_changed,
                                                             std::function<void()> on_return, QWidget* parent);

}  // namespace marlview
