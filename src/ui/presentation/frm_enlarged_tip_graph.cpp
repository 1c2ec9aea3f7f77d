// The rod break tool's window: widgets named as the controls they are; the rules, the removals and
// the drawing belong to the core's tip graph.
#include "ui/presentation/frm_enlarged_tip_graph.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <QWheelEvent>

#include "core/common/runtime_failure.h"
#include "core/session/session.h"
#include "ui/common/event_guard.h"
#include "ui/common/named.h"
#include "ui/common/qt_prompts.h"
#include "ui/presentation/sounding_windows.h"
#include "ui/presentation/widget_surface.h"

namespace marlview {
namespace {

// A wheel's notch, in eighths of a degree.
constexpr int kWheelNotch = 120;
constexpr int kOverviewWidth = 90;

}  // namespace

TipGraphPicture::TipGraphPicture(QWidget* parent) : QWidget(parent) {
  setMouseTracking(true);
  setAttribute(Qt::WA_OpaquePaintEvent);
  // Focus lets the Delete key reach the window after a click on a graph.
  setFocusPolicy(Qt::ClickFocus);
}

void TipGraphPicture::paintEvent(QPaintEvent*) {
  if (on_paint) on_paint();
}

void TipGraphPicture::mouseMoveEvent(QMouseEvent* event) {
  if (on_mouse_move) on_mouse_move(event->position());
}

void TipGraphPicture::mousePressEvent(QMouseEvent* event) {
  setFocus(Qt::MouseFocusReason);
  if (on_mouse_down) on_mouse_down(event->position(), event->button());
}

void TipGraphPicture::leaveEvent(QEvent*) {
  if (on_mouse_leave) on_mouse_leave();
}

void TipGraphPicture::wheelEvent(QWheelEvent* event) {
  wheel_rest_ -= event->angleDelta().y();
  const int notches = wheel_rest_ / kWheelNotch;
  wheel_rest_ -= notches * kWheelNotch;
  if (notches != 0 && on_wheel) on_wheel(notches);
  event->accept();
}

FrmEnlargedTipGraph::FrmEnlargedTipGraph(Session& session, UserPrompts& prompts, int depth_unit, QWidget* parent)
    : QDialog(parent), session_(session), prompts_(prompts), tool_(session, depth_unit) {
  setObjectName("frmEnlargedTipGraph");
  setWindowTitle(kTipGraphCaption);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  BuildControls();
  Connect();
  ShowLabels();
  resize(1000, 720);
}

void FrmEnlargedTipGraph::BuildControls() {
  auto* layout = new QVBoxLayout(this);
  auto* graphs = new QGridLayout;
  auto* depth_axis = new QVBoxLayout;
  lblYMin = Named(new QLabel(this), "lblYMin");
  lblYMax = Named(new QLabel(this), "lblYMax");
  depth_axis->addWidget(lblYMin);
  depth_axis->addStretch(1);
  depth_axis->addWidget(lblYMax);
  graphs->addLayout(depth_axis, 0, 0);
  pctTip = Named(new TipGraphPicture(this), "pctTip");
  pctEnlargedTip = Named(new TipGraphPicture(this), "pctEnlargedTip");
  pctEnlargedFriction = Named(new TipGraphPicture(this), "pctEnlargedFriction");
  pctFriction = Named(new TipGraphPicture(this), "pctFriction");
  for (TipGraphPicture* overview : {pctTip, pctFriction}) overview->setFixedWidth(kOverviewWidth);
  for (TipGraphPicture* large : {pctEnlargedTip, pctEnlargedFriction}) large->setMinimumSize(240, 360);
  graphs->addWidget(pctTip, 0, 1);
  graphs->addWidget(pctEnlargedTip, 0, 2);
  graphs->addWidget(pctEnlargedFriction, 0, 3);
  graphs->addWidget(pctFriction, 0, 4);
  graphs->setColumnStretch(2, 1);
  graphs->setColumnStretch(3, 1);
  graphs->setRowStretch(0, 1);
  auto* value_axis = new QHBoxLayout;
  lblXMin = Named(new QLabel(this), "lblXMin");
  lblXMax = Named(new QLabel(this), "lblXMax");
  value_axis->addWidget(lblXMin);
  value_axis->addStretch(1);
  value_axis->addWidget(lblXMax);
  graphs->addLayout(value_axis, 1, 2, 1, 2);
  graphs->addWidget(new QLabel("TIP", this), 2, 2, Qt::AlignHCenter);
  graphs->addWidget(new QLabel("FRICTION", this), 2, 3, Qt::AlignHCenter);
  layout->addLayout(graphs, 1);

  auto* bottom = new QHBoxLayout;
  lblTipCaption = Named(new QLabel(this), "lblTipCaption");
  lblTipValue = Named(new QLabel(this), "lblTipValue");
  lblDepthCaption = Named(new QLabel(this), "lblDepthCaption");
  bottom->addWidget(lblTipCaption);
  bottom->addWidget(lblTipValue);
  bottom->addSpacing(24);
  bottom->addWidget(lblDepthCaption);
  bottom->addStretch(1);
  cmdUndo = NamedButton(bottom, this, "cmdUndo", "UNDO");
  cmdDONE = NamedButton(bottom, this, "cmdDONE", "DONE");
  // Enter must not close the tool while the user works with the keys.
  for (QPushButton* button : {cmdUndo, cmdDONE}) button->setAutoDefault(false);
  layout->addLayout(bottom);
}

void FrmEnlargedTipGraph::Handle(const char* source, const std::function<bool()>& handler) {
  bool changed = false;
  RunGuarded(prompts_, source, [&] { changed = handler(); });
  ShowLabels();
  for (TipGraphPicture* picture : {pctEnlargedTip, pctEnlargedFriction, pctTip, pctFriction}) picture->update();
  if (changed) RunGuarded(prompts_, source, [&] { RepaintSoundingWindows(session_); });
}

void FrmEnlargedTipGraph::ShowLabels() {
  const TipGraphLabels labels = tool_.Labels();
  lblTipCaption->setText(ToQString(labels.tip_caption));
  lblTipValue->setText(ToQString(labels.tip_value));
  lblDepthCaption->setText(ToQString(labels.depth_caption));
  lblYMin->setText(ToQString(labels.y_min));
  lblYMax->setText(ToQString(labels.y_max));
  lblXMin->setText(ToQString(labels.x_min));
  lblXMax->setText(ToQString(labels.x_max));
}

void FrmEnlargedTipGraph::Paint(TipGraphPicture* picture, const std::function<void(DrawingSurface&)>& draw) {
  try {
    WidgetSurface surface(picture);
    draw(surface);
    paint_failed_ = false;
  } catch (const RuntimeFailure& failure) {
    if (paint_failed_) return;
    paint_failed_ = true;
    QTimer::singleShot(0, this, [this, text = GeneralErrorText(failure)] { prompts_.Tell(text); });
  }
}

void FrmEnlargedTipGraph::Connect() {
  const std::pair<TipGraphPicture*, TipGraphChannel> large[] = {{pctEnlargedTip, TipGraphChannel::kTip},
                                                                {pctEnlargedFriction, TipGraphChannel::kFriction}};
  // Each picture and its graph by value: the handlers below keep their own copies.
  for (const auto& entry : large) {
    TipGraphPicture* picture = entry.first;
    const TipGraphChannel graph = entry.second;
    const bool tip = graph == TipGraphChannel::kTip;
    picture->on_paint = [this, picture, graph] {
      Paint(picture, [&](DrawingSurface& g) { tool_.GraphData(g, graph, picture->width(), picture->height()); });
    };
    picture->on_mouse_move = [this, picture, graph, tip](QPointF at) {
      Handle(tip ? "pctEnlargedTip_MouseMove" : "pctEnlargedFriction_MouseMove", [&] {
        tool_.PointerMove(graph, at.y(), picture->height());
        return false;
      });
    };
    // The reading under the pointer at the press is the one the click works on.
    picture->on_mouse_down = [this, picture, graph, tip](QPointF at, Qt::MouseButton button) {
      Handle(tip ? "pctEnlargedTip_MouseDown" : "pctEnlargedFriction_MouseDown", [&] {
        tool_.PointerMove(graph, at.y(), picture->height());
        if (button == Qt::LeftButton) tool_.LeftClick();
        return button == Qt::RightButton && tool_.RightClick();
      });
    };
    picture->on_mouse_leave = [this, tip] {
      Handle(tip ? "pctEnlargedTip_MouseLeave" : "pctEnlargedFriction_MouseLeave", [&] {
        tool_.PointerLeave();
        return false;
      });
    };
  }
  const std::pair<TipGraphPicture*, TipGraphChannel> overviews[] = {{pctTip, TipGraphChannel::kTip},
                                                                    {pctFriction, TipGraphChannel::kFriction}};
  for (const auto& entry : overviews) {
    TipGraphPicture* picture = entry.first;
    const TipGraphChannel graph = entry.second;
    picture->on_paint = [this, picture, graph] {
      Paint(picture, [&](DrawingSurface& g) { tool_.GraphOverview(g, graph, picture->width(), picture->height()); });
    };
    picture->on_mouse_down = [this, picture](QPointF at, Qt::MouseButton) {
      Handle(picture == pctTip ? "pctTip_MouseDown" : "pctFriction_MouseDown", [&] {
        tool_.CentreOn(at.y(), picture->height());
        return false;
      });
    };
  }
  for (TipGraphPicture* picture : {pctEnlargedTip, pctEnlargedFriction, pctTip, pctFriction}) {
    picture->on_wheel = [this](int notches) {
      Handle("pctEnlargedTip_MouseWheel", [&] {
        tool_.Scroll(notches);
        return false;
      });
    };
  }
  connect(cmdUndo, &QPushButton::clicked, this, [this] { Handle("cmdUndo_Click", [&] { return tool_.Undo(); }); });
  connect(cmdDONE, &QPushButton::clicked, this, [this] { RunGuarded(prompts_, "cmdDONE_Click", [&] { accept(); }); });
}

void FrmEnlargedTipGraph::keyPressEvent(QKeyEvent* event) {
  const auto move = [this](const std::function<void()>& scroll) {
    Handle("KeyDown", [&] {
      scroll();
      return false;
    });
  };
  switch (event->key()) {
    case Qt::Key_Delete:
      Handle("KeyDown", [this] { return tool_.DeleteKey(); });
      break;
    case Qt::Key_PageDown:
      move([this] { tool_.ScrollPages(1); });
      break;
    case Qt::Key_PageUp:
      move([this] { tool_.ScrollPages(-1); });
      break;
    case Qt::Key_Down:
      move([this] { tool_.Scroll(1); });
      break;
    case Qt::Key_Up:
      move([this] { tool_.Scroll(-1); });
      break;
    default:
      QDialog::keyPressEvent(event);
  }
}

void OpenEnlargedTipGraph(Session& session, UserPrompts& prompts, QWidget* parent, int depth_unit) {
  if (depth_unit == 0) depth_unit = session.DepthUnitIsMetric == 1 ? 1 : 2;
  FrmEnlargedTipGraph tool(session, prompts, depth_unit, parent);
  tool.exec();
}

}  // namespace marlview
