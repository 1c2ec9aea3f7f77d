// The sounding data window: the list of the chosen channels under the sounding's header block,
// with the menus that change the view, print it and save it in the export forms.
#pragma once

#include <QMainWindow>
#include <functional>
#include <utility>
#include <vector>

#include "core/common/user_prompts.h"
#include "core/presentation/sounding_list.h"

class QAction;
class QMenu;
class QPlainTextEdit;
class QPushButton;
class QScrollBar;

namespace marlview {

class DataGrid;
class Session;

class FrmSoundingData : public QMainWindow {
  Q_OBJECT

 public:
  FrmSoundingData(Session& session, UserPrompts& prompts, std::vector<int> channels, QWidget* parent = nullptr);
  ~FrmSoundingData() override;

  const ListView& View() const { return view_; }
  // What mnuEditData opens: the main window's editor of the sounding.
  void SetEditOpener(std::function<void()> open_editor) { open_editor_ = std::move(open_editor); }
  // Fills the header and the table again, after a change to the sounding or the view.
  void Refill();

  QPlainTextEdit* lblHeader;
  DataGrid* grdData;
  QPushButton* cmdShowTXTData;
  QPushButton* cmdShowCSVData;
  QPushButton* cmdShowCorData;
  QScrollBar* VScroll1;
  QScrollBar* HScroll1;
  QAction* mnuPrint;
  QAction* mnuPrintPreview;
  QAction* mnuSavetxtIncludeHeader;
  QAction* mnuSavetxtDiscardHeader;
  QAction* mnuExportCSVFileIncludeHeader;
  QAction* mnuExportCSVFileDiscardHeader;
  QAction* mnuExportCorFileIncludeHeader;
  QAction* mnuExportCorFileDiscardHeader;
  QAction* mnuExportGinPSI;
  QAction* mnuExportGinTSF;
  QAction* mnuExportGinKPA;
  QAction* mnuExportGinMPA;
  QAction* mnuExportAgs4;
  QAction* mnuSaveSedimaxtxtFile;
  QAction* mnuSaveAs;
  QAction* mnuExportLogDATCompatibleDATFile;
  QAction* mnuReturn;
  QAction* mnuEditData;
  QAction* mnuRemoveRodBreaks;
  QAction* mnuWaterTable;
  QAction* mnuWetDensity;
  QAction* mnuMeters;
  QAction* mnuFeet;
  QAction* mnuAdjustedForOffsetDepth;
  QAction* mnuAdjustedForOffsetElev;
  QAction* mnuRawData;
  QAction* mnuDepthInterval;
  QAction* mnuColumnWidths;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void BuildControls();
  void BuildMenus();
  void Connect();
  // Runs a handler through the guard; refill afterwards when asked.
  void Handle(QAction* action, const char* source, std::function<void()> handler, bool refill);
  void UpdateChecks();

  Session& session_;
  UserPrompts& prompts_;
  ListView view_;
  std::function<void()> open_editor_;
  // Until the window is closed; a window closed and deleted later leaves the flag of the next one be.
  bool open_ = true;
};

}  // namespace marlview
