// Form4, the sounding plot window: the plot of the chosen channels, the read-out under the mouse,
// and the menus that scale, annotate, print and change the water table and wet density.
#pragma once

#include <QMainWindow>
#include <functional>
#include <utility>
#include <vector>

#include "core/common/user_prompts.h"
#include "core/presentation/sounding_plot.h"

class QAction;
class QLabel;
class QMenu;
class QPushButton;

namespace marlview {

class PrintJob;
class Session;

// The picture box the plot is drawn in; its owner draws it and follows the mouse over it.
class PlotPicture : public QWidget {
  Q_OBJECT

 public:
  explicit PlotPicture(QWidget* parent);

  std::function<void()> on_paint;
  std::function<void(QPointF)> on_mouse_move;
  std::function<void()> on_mouse_leave;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
};

class Form4 : public QMainWindow {
  Q_OBJECT

 public:
  // on_return runs when the user chooses to go back to the main window.
  Form4(Session& session, UserPrompts& prompts, std::vector<int> channels, int sbt_chart_choice,
        std::function<void()> on_return, QWidget* parent = nullptr);
  ~Form4() override;

  PlotState& Plot() { return plot_; }
  // What mnuEdit opens: the main window's editor of the sounding.
  void SetEditOpener(std::function<void()> open_editor) { open_editor_ = std::move(open_editor); }
  // A set's plot steps through its tests: step(-1) or step(+1) makes the test before or after current
  // and gives its channels to plot, none when there is no test that way. Shows the two buttons.
  void SetTestStepper(std::function<std::vector<int>(int step)> step);
  // Draws the plot again, after a change to the sounding or the plot's state.
  void Repaint();
  // The report furniture or the logo changed: the plot is drawn again at once.
  void SettingsChanged() { Repaint(); }

  PlotPicture* picPlot;
  QLabel* lblDepth;
  std::vector<QLabel*> lblChannelValue;
  QLabel* lblFrictionOffsetCM;
  QLabel* lblFrictionOffsetIn;
  QLabel* lblRodBreakInstructions;
  QPushButton* cmdPreviousTest;
  QPushButton* cmdNextTest;
  QAction* mnuPrint;
  QAction* mnuPrintPreview;
  QAction* mnuPrintSettings;
  QAction* mnuSaveAs;
  QAction* mnuReturn;
  QAction* mnuEdit;
  QAction* mnuRemoveRodBreaks;
  QAction* mnuAddComments;
  QAction* mnuWaterTable;
  QAction* mnuWetDensity;
  QAction* mnuScale;
  QAction* mnuGridOn;
  QAction* mnuGridOff;
  QAction* mnuMeters;
  QAction* mnuFeet;
  QAction* mnuElevation;
  QAction* mnuDepth;
  QAction* mnuAdjustLogo;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void BuildControls();
  void BuildMenus();
  void Connect();
  // Runs a handler through the guard, then mirrors the plot's state in the menus and repaints.
  void Handle(const char* source, const std::function<void()>& handler);
  // The menus' checks and the sleeve offset, from the plot and the sounding.
  void UpdateControls();
  void PaintPlot();
  void ShowReadout(QPointF at);
  void ClearReadout();
  void PrintPages(PrintJob& job);
  void SetDepthUnit(int unit);

  Session& session_;
  UserPrompts& prompts_;
  PlotState plot_;
  std::function<void()> on_return_;
  std::function<void()> open_editor_;
  std::function<std::vector<int>(int)> step_test_;
  // Until the window is closed; a window closed and deleted later leaves the flag of the next one be.
  bool open_ = true;
  // A failure while painting is reported once, after the paint, never from inside it; again only
  // after a paint that went well.
  bool paint_failed_ = false;
};

}  // namespace marlview
