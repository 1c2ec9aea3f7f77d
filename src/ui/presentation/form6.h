// Form6, the 1983 or the normalised classification chart with the sounding's readings over it, and
// frmClassification, the plain window with the chart's fixed picture.
#pragma once

#include <QMainWindow>
#include <functional>

#include "core/common/user_prompts.h"
#include "core/presentation/classification_chart.h"

class QAction;
class QLabel;
class QScrollBar;

namespace marlview {

class PlotPicture;
class Session;

class Form6 : public QMainWindow {
  Q_OBJECT

 public:
  Form6(Session& session, UserPrompts& prompts, QWidget* parent = nullptr);

  const ChartView& View() const { return view_; }

  PlotPicture* picChart;
  QScrollBar* VScroll1;
  QAction* PrintChart;
  QAction* CloseChart;
  // The chart menu: the 1983 chart of the zone table, or the normalised 1990 chart.
  QAction* mnuChartUbc1983;
  QAction* mnuChartNormalised;

 private:
  void Handle(const char* source, const std::function<void()>& handler);
  void PaintChart();
  // The scroll bar's range follows the sounding, which may have changed since the last paint.
  void FollowSounding();

  Session& session_;
  UserPrompts& prompts_;
  ChartView view_;
  bool paint_failed_ = false;
};

class FrmClassification : public QMainWindow {
  Q_OBJECT

 public:
  FrmClassification(Session& session, UserPrompts& prompts, QWidget* parent = nullptr);

  QLabel* Picture1;
  QAction* mnuPrint;
  QAction* mnuReturn;

 private:
  Session& session_;
  UserPrompts& prompts_;
};

// The main window's chart menu: the chart with the readings while a sounding is open, else the
// chart's picture alone; a chart window already open comes to the front.
void OpenClassificationChart(Session& session, UserPrompts& prompts, QWidget* parent);

}  // namespace marlview
