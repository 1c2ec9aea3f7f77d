// Seisform, the log window of seismic mode: one small graph per test stacked by depth (one per
// second of a log), their labels, the hammer distance frame, and the menus that condition all
// waves, write the delays and velocities and print.
#pragma once

#include <QMainWindow>
#include <functional>
#include <memory>
#include <vector>

#include "core/seismic/seismic_controller.h"
#include "ui/seismic/seismic_dialogs.h"

class QAction;
class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;
class QScrollBar;
class QTableWidget;
class QVBoxLayout;

namespace marlview {

class FrmEnlargedSeismicGraph;
class PrintJob;

// A picture box that draws through a callback and reports double clicks.
class SeismicPicture : public QWidget {
  Q_OBJECT
 public:
  explicit SeismicPicture(QWidget* parent);
  std::function<void()> on_paint;
  std::function<void()> on_double_click;
  std::function<void(QPointF)> on_mouse_move;
  std::function<void(QPointF, Qt::MouseButton, Qt::KeyboardModifiers)> on_mouse_down;
  bool raised = false;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
};

inline constexpr int kSeismicRowsShown = 10;

class Seisform : public QMainWindow, private SeismicListener {
  Q_OBJECT

 public:
  // on_return runs when the user goes back to the main window.
  Seisform(Session& session, UserPrompts& prompts, std::function<void()> on_return, QWidget* parent = nullptr);
  ~Seisform() override;

  // Form_Load: run once the window shows, as its checks may open dialogs over it.
  void LoadForm();
  SeismicController& Controller() { return controller_; }
  FrmEnlargedSeismicGraph* Workbench() const { return workbench_.get(); }
  // Mirrors the controller's state into the controls.
  void Refresh();

  QLabel* lblPrintLine;
  QLabel* frmLoading;
  QLabel* lblUpdatingSeismicGain;
  // Control arrays, index 1 = test (or second) 1; index 0 is unused.
  std::vector<SeismicPicture*> pctSeisGraph;
  std::vector<QLabel*> lblLeftLabel;
  std::vector<QLabel*> lblRightLabel;
  QScrollBar* VScroll1;
  QLabel* lblTime;
  SeismicPicture* pctTimeAxis;
  QGroupBox* Frame3;
  QLineEdit* Text6;
  QCheckBox* Check1;
  QPushButton* Command10;
  // The velocities of the tests: pick-based beside cross-correlated, with the coefficient.
  QTableWidget* grdVelocities;

  QMenu* mnuFile;
  QMenu* mnuEdit;
  QMenu* mnuRemoveStrikes;
  QMenu* mnuGain;
  QMenu* mnuVelocity;
  QAction* mnuSaveData;
  QAction* mnuCombineSEIFiles;
  QAction* mnuCombineSMCFiles;
  QAction* mnuExportTXT;
  QAction* mnuExportCSV;
  QAction* mnuExportGRF;
  QAction* mnuPrintGraph;
  QAction* mnuSaveAsPdf;
  QAction* mnuIncludeCoverSheet;
  QAction* mnuNoCoverSheet;
  QAction* mnuReturn;
  QAction* mnuFilterAllGraphs;
  QAction* mnuEnhanceAllGraphs;
  QAction* mnuAttenuateAllGraphs;
  QAction* mnuAttenuateAndEnhanceAllGraphs;
  QAction* mnuFilterandEnhanceAllGraphs;
  QAction* mnuTrimGraphs;
  QAction* mnuRemoveAStrikes;
  QAction* mnuRemoveBStrikes;
  QAction* mnuRemovePStrikes;
  QAction* mnuShiftLogStrike;
  std::vector<QAction*> mnuGainEntries;
  QAction* mnuAdjustDepth;
  QAction* mnuHammerDistance;
  QAction* mnuGenDelay;
  QAction* mnuGenVelocity;
  QAction* mnuTrueIntervalVelocities;
  QMenu* mnuXcorrStrike;
  // The strike for correlation: the first of A, B both tests have, or A, B, P.
  QAction* mnuXcorrStrikeAuto;
  QAction* mnuXcorrStrikeA;
  QAction* mnuXcorrStrikeB;
  QAction* mnuXcorrStrikeP;
  QAction* mnuHelp;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  // SeismicListener
  void GraphWaves(int test) override;
  void GraphAllWaves() override;
  void GraphStrike() override;
  void OpenWorkbench() override;

  void BuildControls();
  void BuildMenus();
  void Connect();
  void BuildRows();
  void ShowRows();
  void UpdateLabels(int row);
  void ShowVelocityTable();
  void Handle(const char* source, const std::function<void()>& handler);
  void PrintTo(PrintJob& job);

  Session& session_;
  UserPrompts& prompts_;
  std::function<void()> on_return_;
  QtSeismicDialogs dialogs_;
  QtAppendOffsetDialog offset_dialog_;
  SeismicController controller_;
  std::unique_ptr<FrmEnlargedSeismicGraph> workbench_;
  QVBoxLayout* rows_layout_ = nullptr;
  QWidget* rows_ = nullptr;
  bool returning_ = false;
};

}  // namespace marlview
