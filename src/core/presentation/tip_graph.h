// The rod break tool (frmEnlargedTipGraph): tip and friction large over a short window of depth,
// with the whole sounding small beside them; the pointer picks a reading, clicks choose the
// readings on either side of a break and remove what lies between, and every step can be undone.
#pragma once

#include <string>

#include "core/derivation/artefacts.h"
#include "core/presentation/drawing_surface.h"
#include "core/presentation/sounding_plot.h"

namespace marlview {

class Session;

// Removals kept for undo; the oldest is let go to make room for a new one.
inline constexpr int kMaxRemovalUndoSteps = 400;
// Where both x axes start, so that a channel of zeros still has an axis to divide by.
inline constexpr double kTipGraphMaximumStart = 0.00001;
// The window of depth the tool opens on: the top of the sounding at a large scale.
inline constexpr double kTipGraphWindowMetres = 1;
inline constexpr double kTipGraphWindowFeet = 3;

inline constexpr const char* kTipGraphCaption = "REMOVE ROD BREAKS";
// The entry that opens the tool in the plot, the lists and the editor.
inline constexpr const char* kRemoveRodBreaksMenuCaption =
    "REMOVE ROD BREAKS (CLICK ON POINTS BEFORE AND AFTER BREAK AND THEN PRESS 'DEL' BUTTON)";
// The plot window's lblRodBreakInstructions.
inline constexpr const char* kRodBreakInstructions =
    "MOVE MOUSE TO HIGHLIGHT ROD BREAK. LEFT CLICK TO REMOVE HIGHLIGHTED BREAK. RIGHT CLICK TO EXIT MODE";

enum class TipGraphChannel { kTip, kFriction };

// The texts of the window's labels.
struct TipGraphLabels {
  std::string tip_caption;    // lblTipCaption: "TIP " or "FRICTION ", by the graph under the pointer
  std::string tip_value;      // lblTipValue: that channel at the highlighted reading, or "N/A"
  std::string depth_caption;  // lblDepthCaption: "DEPTH (m): " and the reading's depth, or "N/A"
  std::string y_min, y_max;   // lblYMin, lblYMax: the window of depth
  std::string x_min, x_max;   // lblXMin, lblXMax: the value axis of the graph under the pointer
};

class TipGraph {
 public:
  // Opens on the current sounding with depths in depth_unit (1 metres, otherwise feet): sets the
  // window-open flag and takes the channels' maxima afresh.
  TipGraph(Session& session, int depth_unit);
  // Closing clears the window-open flag.
  ~TipGraph();
  TipGraph(const TipGraph&) = delete;
  TipGraph& operator=(const TipGraph&) = delete;

  int FirstPoint() const { return first_point_; }
  int SecondPoint() const { return second_point_; }
  int HighlightRow() const { return highlight_row_; }
  double TipMaximum() const { return tip_maximum_; }
  double FrictionMaximum() const { return friction_maximum_; }
  double YMin() const { return y_min_; }
  double YMax() const { return y_max_; }
  int UndoSteps() const { return static_cast<int>(undo_.size()); }
  int DepthUnit() const { return depth_unit_; }

  // The pointer at y on a large graph of the given height: the first reading at or below the
  // depth there becomes HighlightRow, 0 when the sounding ends above it.
  void PointerMove(TipGraphChannel graph, double y, double picture_height);
  // The pointer left the graphs: nothing is highlighted.
  void PointerLeave();

  // A left click chooses the points on either side of a break, or clears them.
  void LeftClick();
  // A right click with no point chosen removes the highlighted reading alone; any right click
  // clears the points. True when the sounding changed.
  bool RightClick();
  // The Delete key levels the readings between the two chosen points. True when the sounding changed.
  bool DeleteKey();
  // cmdUndo: puts back the readings of the last removal; false when there is none.
  bool Undo();

  // The window of depth moves by notches of a quarter of its height (the mouse wheel, the arrow
  // keys), or by pages of its whole height; positive is deeper. It stays on the sounding.
  void Scroll(int notches);
  void ScrollPages(int pages);
  // A click on an overview at y of the given height centres the window on the depth there.
  void CentreOn(double y, double picture_height);

  TipGraphLabels Labels() const;

  // The large graph of one channel over the window of depth, with the highlighted reading and the
  // chosen points marked.
  void GraphData(DrawingSurface& surface, TipGraphChannel graph, double width, double height) const;
  // The small picture of one channel over the whole sounding, with the window of depth boxed.
  void GraphOverview(DrawingSurface& surface, TipGraphChannel graph, double width, double height) const;

 private:
  int Channel(TipGraphChannel graph) const;
  double Maximum(TipGraphChannel graph) const;
  // The table the tool reads and removes from: aligned for PX DAS, engineering values otherwise.
  const ColumnTable<float>& Table() const;
  double RowDepth(int row) const;
  void FindMaxima();
  // Keeps the window on the sounding after a move.
  void ClampWindow();
  // Whole-sounding depth bounds in the depth unit.
  double SoundingTop() const;
  double SoundingBottom() const;
  PlotState Frame(TipGraphChannel graph, double width, double height, double depth_min, double depth_max) const;
  void MarkRow(DrawingSurface& g, const PlotState& plot, int row, TipGraphChannel graph, Colour colour) const;
  void Remove(int first, int last);

  Session& session_;
  int depth_unit_;
  RemovalUndo undo_;
  int first_point_ = 0, second_point_ = 0, highlight_row_ = 0;
  TipGraphChannel pointer_graph_ = TipGraphChannel::kTip;
  double tip_maximum_ = kTipGraphMaximumStart, friction_maximum_ = kTipGraphMaximumStart;
  double y_min_ = 0, y_max_ = kTipGraphWindowMetres;
};

}  // namespace marlview
