// Form2, the dissipation plot window: the selected tests against time, its value, time and grid
// menus, the scale dialog, printing, the water table and the T50 utility.
#pragma once

#include <QMainWindow>
#include <functional>

#include "core/common/user_prompts.h"
#include "core/dissipation/dissipation_plot.h"

class QAction;

namespace marlview {

class FrmT50Utility;
class PlotPicture;
class PrintJob;
class Session;

class Form2 : public QMainWindow {
  Q_OBJECT

 public:
  // on_water_table runs after the water table dialog changed the file's water table; on_return
  // when the user goes back to the main window.
  Form2(Session& session, UserPrompts& prompts, DissipationPlotState plot,
        std::function<void()> on_water_table, std::function<void()> on_return, QWidget* parent = nullptr);
  ~Form2() override;

  DissipationPlotState& Plot() { return plot_; }
  const Session& SessionOf() const { return session_; }
  Session& SessionOf() { return session_; }
  UserPrompts& Prompts() { return prompts_; }
  // Draws the plot again after a change of its state; the T50 lines follow the new axes.
  void Repaint();
  // The report furniture or the logo changed: the plot is drawn again at once.
  void SettingsChanged() { Repaint(); }
  // PrintPlot_Click: the plot on a printer chosen in the print dialog, with the T50 lines or not.
  void PrintPlot(bool include_lines);
  // The same page written to a PDF file.
  void PrintPlotToPdf(const std::string& path, bool include_lines);
  // What mnuEdit opens: the editor of the file, kept by the main window.
  void SetEditHandler(std::function<void()> on_edit) { on_edit_ = std::move(on_edit); }
  // The T50 utility's window while it is open.
  FrmT50Utility* T50Window() const { return t50_; }

  PlotPicture* picPlot;
  QAction* mnuPrint;
  QAction* mnuPrintPreview;
  QAction* mnuPrintToPdf;
  QAction* mnuPrintSettings;
  QAction* mnuReturn;
  QAction* mnuEdit;
  QAction* mnuWaterTable;
  QAction* mnuScale;
  QAction* mnuDissipationVsTime;
  QAction* mnuPercentMaxDissipationVsTime;
  QAction* mnuPercentOverHeadDissipationVsTime;
  QAction* mnuLinearTime;
  QAction* mnuLogTime;
  QAction* mnuSquareRoot;
  QAction* mnuGridOff;
  QAction* mnuGridMajor;
  QAction* mnuGridMajorAndMinor;
  QAction* mnuAdjustLogo;
  QAction* mnuT50Util;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void BuildMenus();
  void Connect();
  void Handle(const char* source, const std::function<void()>& handler);
  void UpdateControls();
  void PaintPlot();
  void PrintPage(PrintJob& job, bool include_lines);
  void ChooseTimeFormat(int16_t format);
  void OpenT50Utility();
  void ReturnPlotControl();

  Session& session_;
  UserPrompts& prompts_;
  DissipationPlotState plot_;
  std::function<void()> on_water_table_;
  std::function<void()> on_return_;
  std::function<void()> on_edit_;
  FrmT50Utility* t50_ = nullptr;
  bool paint_failed_ = false;
};

}  // namespace marlview
