// frmPPData, the dissipation list window: the rows of one test in a fixed-pitch grid under its
// header lines, with the percentage menus, printing and the TXT and CSV exports.
#pragma once

#include <QMainWindow>
#include <functional>

#include "core/common/user_prompts.h"
#include "core/dissipation/dissipation_list.h"

class QAction;
class QPlainTextEdit;
class QScrollBar;

namespace marlview {

class DataGrid;
class Session;

class FrmPPData : public QMainWindow {
  Q_OBJECT

 public:
  // on_return runs when the user goes back to the main window.
  FrmPPData(Session& session, UserPrompts& prompts, int test, std::function<void()> on_return,
            QWidget* parent = nullptr);
  ~FrmPPData() override;

  const DissipationListView& View() const { return view_; }
  // What mnuEdit opens: the editor of the file, kept by the main window.
  void SetEditHandler(std::function<void()> on_edit) { on_edit_ = std::move(on_edit); }
  // SetHeadersAndOptions and UpdateText: the header, the menus' states and the grid again.
  void Refill();

  QPlainTextEdit* lblHeader;
  DataGrid* grdData;
  QScrollBar* VScroll1;
  QAction* mnuPrint;
  QAction* mnuSaveFile;
  QAction* mnuExportcsvFile;
  QAction* mnuPrintSettings;
  QAction* mnuReturn;
  QAction* mnuEdit;
  QAction* mnuShowPercentageMaxPressure;
  QAction* mnuShowPercentageOverPressure;

 private:
  void BuildControls();
  void BuildMenus();
  void Connect();
  void On(QAction* action, const char* source, std::function<void()> handler);

  Session& session_;
  UserPrompts& prompts_;
  DissipationListView view_;
  std::function<void()> on_return_;
  std::function<void()> on_edit_;
};

}  // namespace marlview
