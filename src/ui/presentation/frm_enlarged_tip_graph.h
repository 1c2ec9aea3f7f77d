// frmEnlargedTipGraph, the rod break tool: tip and friction large with the whole sounding small
// beside them; the mouse and the Delete key remove readings, cmdUndo puts them back.
#pragma once

#include <QDialog>
#include <functional>

#include "core/common/user_prompts.h"
#include "core/presentation/tip_graph.h"

class QLabel;
class QPushButton;

namespace marlview {

class Session;

// A picture of the tool: its owner draws it and hears the mouse over it.
class TipGraphPicture : public QWidget {
  Q_OBJECT

 public:
  explicit TipGraphPicture(QWidget* parent);

  std::function<void()> on_paint;
  std::function<void(QPointF)> on_mouse_move;
  std::function<void(QPointF, Qt::MouseButton)> on_mouse_down;
  std::function<void()> on_mouse_leave;
  // Whole notches of the wheel, positive towards the user (deeper).
  std::function<void(int)> on_wheel;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  // Eighths of a degree not yet a whole notch, from wheels that turn finely.
  int wheel_rest_ = 0;
};

class FrmEnlargedTipGraph : public QDialog {
  Q_OBJECT

 public:
  // depth_unit: 1 metres, otherwise feet, as in the window that opens the tool.
  FrmEnlargedTipGraph(Session& session, UserPrompts& prompts, int depth_unit, QWidget* parent = nullptr);

  TipGraph& Tool() { return tool_; }

  TipGraphPicture* pctEnlargedTip;
  TipGraphPicture* pctEnlargedFriction;
  TipGraphPicture* pctTip;
  TipGraphPicture* pctFriction;
  QLabel* lblTipCaption;
  QLabel* lblTipValue;
  QLabel* lblDepthCaption;
  QLabel* lblYMin;
  QLabel* lblYMax;
  QLabel* lblXMin;
  QLabel* lblXMax;
  QPushButton* cmdUndo;
  QPushButton* cmdDONE;

 protected:
  // The pictures and cmdUndo leave their keys to this one handler.
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void BuildControls();
  void Connect();
  // Runs a handler through the guard, then shows the tool's state; after a change to the sounding
  // every window that shows it draws it again.
  void Handle(const char* source, const std::function<bool()>& handler);
  void ShowLabels();
  void Paint(TipGraphPicture* picture, const std::function<void(DrawingSurface&)>& draw);

  Session& session_;
  UserPrompts& prompts_;
  TipGraph tool_;
  // A failure while painting is reported once, after the paint, never from inside it.
  bool paint_failed_ = false;
};

// Opens the rod break tool over parent and returns once the user is done with it. A depth_unit
// of 0 takes the session's; the plot and the lists pass their own.
void OpenEnlargedTipGraph(Session& session, UserPrompts& prompts, QWidget* parent = nullptr, int depth_unit = 0);

}  // namespace marlview
