// The rod break tool: pointer, click and key rules, removal and undo, the window of depth, the
// labels, and its graphs on the recording surface.
#include "core/presentation/tip_graph.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>

#include "core/common/number_format.h"
#include "core/presentation/recording_surface.h"
#include "support/test_support.h"

namespace marlview {
namespace {

// The large graphs are drawn 400 x 500 here: in the opening window of 1 m, a reading every 0.02 m
// is 10 pixels below the one before.
constexpr double kWidth = 400, kHeight = 500;

// Readings every 0.02 m with a rising tip and sleeve; tips given by row replace the rise.
test::DatFile Sounding(int readings, const std::map<int, double>& tips = {}) {
  test::DatFile file = test::SimpleDat(0);
  for (int r = 1; r <= readings; ++r) {
    const auto tip = tips.find(r);
    file.rows.push_back({0.02 * r, tip != tips.end() ? tip->second : 10 + 0.5 * r, 0.002 + 0.0001 * r, 0.01});
  }
  return file;
}

class TipGraphTest : public ::testing::Test {
 protected:
  void Open(const test::DatFile& file) {
    t.session->RemoveSpikesAnswer = 0;
    ASSERT_EQ(test::OpenSounding(t, file), ReadOutcome::kLoaded);
  }
  SoundingStore& s() { return t.session->Sounding(); }
  // The QRD families are worked on in their engineering values.
  float Tip(int r) { return s().ChannelReadings(r, KindColumn(s().TipChannel, kGraphOutput)); }
  float Friction(int r) { return s().ChannelReadings(r, KindColumn(s().SleeveChannel, kGraphOutput)); }
  // Every kind of tip and sleeve, row by row: what a removal may change.
  std::vector<float> Readings() {
    std::vector<float> all;
    for (int r = 1; r <= s().ReadingCount; ++r) {
      for (int k = 0; k < kOutputKinds; ++k) {
        all.push_back(s().ChannelReadings(r, KindColumn(s().TipChannel, k)));
        all.push_back(s().ChannelReadings(r, KindColumn(s().SleeveChannel, k)));
      }
    }
    return all;
  }
  // The pointer just above reading row, in metres, on the tip graph.
  void PointAt(TipGraph& graph, int row) {
    const double depth = 0.02 * row - 0.005;
    graph.PointerMove(TipGraphChannel::kTip, (depth - graph.YMin()) / (graph.YMax() - graph.YMin()) * kHeight, kHeight);
    ASSERT_EQ(graph.HighlightRow(), row);
  }

  test::TestSession t;
};

TEST_F(TipGraphTest, OpensOnTheTopOfTheSoundingWithTheChannelsLargestValues) {
  Open(Sounding(60, {{30, 400}}));
  {
    TipGraph graph(*t.session, 1);
    EXPECT_TRUE(t.session->flags.TipGraphWindowOpen);
    EXPECT_EQ(graph.YMin(), 0);
    EXPECT_EQ(graph.YMax(), 1);
    EXPECT_DOUBLE_EQ(graph.TipMaximum(), Tip(30));
    EXPECT_DOUBLE_EQ(graph.FrictionMaximum(), Friction(60));
    EXPECT_EQ(graph.FirstPoint() + graph.SecondPoint() + graph.HighlightRow() + graph.UndoSteps(), 0);
  }
  EXPECT_FALSE(t.session->flags.TipGraphWindowOpen) << "closing clears the flag";
  EXPECT_EQ(TipGraph(*t.session, 2).YMax(), 3) << "three feet";

  // PX DAS soundings are read in their aligned values, the others in their engineering values.
  const int tip = KindColumn(s().TipChannel, kGraphOutput);
  s().AlignedReadings(12, tip) = 900;
  EXPECT_DOUBLE_EQ(TipGraph(*t.session, 1).TipMaximum(), Tip(30));
  s().AcquisitionFamily = kPxDasFamily;
  EXPECT_DOUBLE_EQ(TipGraph(*t.session, 1).TipMaximum(), 900);
}

TEST_F(TipGraphTest, AChannelOfZerosKeepsTheSmallestAxis) {
  test::DatFile file = Sounding(10);
  for (auto& row : file.rows) row[2] = 0;
  Open(file);
  ASSERT_EQ(Friction(5), 0);
  EXPECT_EQ(TipGraph(*t.session, 1).FrictionMaximum(), kTipGraphMaximumStart);
}

TEST_F(TipGraphTest, ThePointerPicksTheFirstReadingAtOrBelowItsDepthInTheDepthUnit) {
  Open(Sounding(30));  // 0.02 to 0.60 m
  TipGraph metres(*t.session, 1);
  metres.PointerMove(TipGraphChannel::kTip, 0, kHeight);
  EXPECT_EQ(metres.HighlightRow(), 1);
  metres.PointerMove(TipGraphChannel::kTip, 250, kHeight);  // 0.5 m
  EXPECT_EQ(metres.HighlightRow(), 25) << "a reading at the very depth";
  metres.PointerMove(TipGraphChannel::kTip, 151, kHeight);  // 0.302 m
  EXPECT_EQ(metres.HighlightRow(), 16);
  TipGraphLabels labels = metres.Labels();
  EXPECT_EQ(labels.tip_caption, "TIP ");
  EXPECT_EQ(labels.tip_value, FormatNumber(Tip(16), "##0.00"));
  EXPECT_EQ(labels.depth_caption, "DEPTH (m): 0.32");
  EXPECT_EQ(labels.y_min + " " + labels.y_max, "0.00 1.00");
  EXPECT_EQ(labels.x_min + " " + labels.x_max, "0.00 " + FormatNumber(Tip(30), "##0.00"));
  metres.PointerMove(TipGraphChannel::kFriction, 151, kHeight);
  labels = metres.Labels();
  EXPECT_EQ(labels.tip_caption, "FRICTION ");
  EXPECT_EQ(labels.tip_value, FormatNumber(Friction(16), "##0.00"));
  EXPECT_EQ(labels.x_max, FormatNumber(Friction(30), "##0.00"));
  metres.PointerMove(TipGraphChannel::kTip, 450, kHeight);
  EXPECT_EQ(metres.HighlightRow(), 0) << "past the last reading";
  EXPECT_EQ(metres.Labels().tip_value, "N/A");
  EXPECT_EQ(metres.Labels().depth_caption, "DEPTH (m): N/A");

  // One foot is 0.3048 m: the reading at 0.30 m lies above it, the one at 0.32 m below.
  TipGraph feet(*t.session, 2);
  feet.PointerMove(TipGraphChannel::kTip, 1.0 / 3 * kHeight, kHeight);
  EXPECT_EQ(feet.HighlightRow(), 16);
  labels = feet.Labels();
  EXPECT_EQ(labels.depth_caption, "DEPTH (ft): 1.05");
  EXPECT_EQ(labels.y_max, "3.00");
  feet.PointerLeave();
  EXPECT_EQ(feet.HighlightRow(), 0);
  EXPECT_EQ(feet.Labels().depth_caption, "DEPTH (ft): N/A");
}

TEST_F(TipGraphTest, LeftClicksChooseTheTwoPointsAndClearThem) {
  Open(Sounding(40));
  TipGraph graph(*t.session, 1);
  auto click_at = [&](int row) {
    PointAt(graph, row);
    graph.LeftClick();
    return std::pair(graph.FirstPoint(), graph.SecondPoint());
  };
  EXPECT_EQ(click_at(10), std::pair(10, 0)) << "no first point: the highlighted row";
  EXPECT_EQ(click_at(10), std::pair(0, 0)) << "the first point again clears it";
  EXPECT_EQ(click_at(10), std::pair(10, 0));
  EXPECT_EQ(click_at(20), std::pair(10, 20)) << "another row is the second point";
  EXPECT_EQ(click_at(30), std::pair(0, 0)) << "with both set, any click clears both";
  EXPECT_EQ(graph.UndoSteps(), 0);
}

TEST_F(TipGraphTest, ARightClickRemovesTheHighlightedReadingOnlyWhenNoPointIsChosen) {
  Open(Sounding(40, {{10, 300}}));
  TipGraph graph(*t.session, 1);
  const double spike = Tip(10);
  const float tip8 = Tip(8), tip12 = Tip(12), friction8 = Friction(8), friction12 = Friction(12);
  PointAt(graph, 10);
  EXPECT_TRUE(graph.RightClick());
  EXPECT_FLOAT_EQ(Tip(10), (tip8 + tip12) / 2) << "from the readings two rows away";
  EXPECT_FLOAT_EQ(Friction(10), (friction8 + friction12) / 2);
  EXPECT_EQ(graph.UndoSteps(), 1);
  EXPECT_LT(graph.TipMaximum(), spike) << "the maximum follows the removal";

  const std::vector<float> before = Readings();
  PointAt(graph, 5);
  graph.LeftClick();
  PointAt(graph, 20);
  EXPECT_FALSE(graph.RightClick()) << "a first point is chosen";
  EXPECT_EQ(graph.FirstPoint() + graph.SecondPoint(), 0) << "and is cleared";
  EXPECT_EQ(Readings(), before);
  EXPECT_EQ(graph.UndoSteps(), 1);

  // The first two readings have no reading two rows above them.
  for (int row : {1, 2}) {
    PointAt(graph, row);
    graph.RightClick();
    EXPECT_EQ(Readings(), before) << row;
  }
}

TEST_F(TipGraphTest, DeleteLevelsTheReadingsBetweenTheTwoPoints) {
  Open(Sounding(40, {{15, 300}, {16, 2}}));
  TipGraph graph(*t.session, 1);
  EXPECT_FALSE(graph.DeleteKey()) << "no points";
  PointAt(graph, 20);
  graph.LeftClick();
  EXPECT_FALSE(graph.DeleteKey()) << "one point";
  EXPECT_EQ(graph.FirstPoint(), 20);
  const float tip12 = Tip(12), tip20 = Tip(20), friction12 = Friction(12), friction20 = Friction(20);
  PointAt(graph, 12);  // the points in either order
  graph.LeftClick();
  EXPECT_TRUE(graph.DeleteKey());
  for (int r = 13; r <= 19; ++r) {
    EXPECT_FLOAT_EQ(Tip(r), (tip12 + tip20) / 2) << r;
    EXPECT_FLOAT_EQ(Friction(r), (friction12 + friction20) / 2) << r;
  }
  EXPECT_FLOAT_EQ(Tip(12), tip12);
  EXPECT_FLOAT_EQ(Tip(20), tip20);
  EXPECT_EQ(graph.FirstPoint() + graph.SecondPoint(), 0);
  EXPECT_EQ(graph.UndoSteps(), 1);
}

TEST_F(TipGraphTest, UndoPutsBackEachStepThenHasNothingToDo) {
  Open(Sounding(40, {{10, 300}}));
  const std::vector<float> original = Readings();
  const double maximum = Tip(10);
  TipGraph graph(*t.session, 1);
  PointAt(graph, 10);
  graph.RightClick();
  const std::vector<float> after_first = Readings();
  PointAt(graph, 5);
  graph.LeftClick();
  PointAt(graph, 25);
  graph.LeftClick();
  graph.DeleteKey();
  ASSERT_EQ(graph.UndoSteps(), 2);
  EXPECT_TRUE(graph.Undo());
  EXPECT_EQ(Readings(), after_first);
  EXPECT_TRUE(graph.Undo());
  EXPECT_EQ(Readings(), original);
  EXPECT_DOUBLE_EQ(graph.TipMaximum(), maximum) << "the maximum comes back with the reading";
  EXPECT_FALSE(graph.Undo());
  EXPECT_EQ(Readings(), original);
}

TEST_F(TipGraphTest, TheUndoStoreKeepsTheLatestSteps) {
  Open(Sounding(12));
  TipGraph graph(*t.session, 1);
  for (int i = 0; i < kMaxRemovalUndoSteps + 1; ++i) {
    PointAt(graph, 6);
    graph.RightClick();
  }
  EXPECT_EQ(graph.UndoSteps(), kMaxRemovalUndoSteps);
}

TEST_F(TipGraphTest, TheWindowScrollsOverTheSoundingAndNoFurther) {
  Open(Sounding(100));  // to 2 m
  TipGraph graph(*t.session, 1);
  graph.Scroll(1);
  EXPECT_DOUBLE_EQ(graph.YMin(), 0.25);
  EXPECT_DOUBLE_EQ(graph.YMax(), 1.25);
  graph.Scroll(-10);
  EXPECT_EQ(graph.YMin(), 0) << "the top of the sounding";
  graph.ScrollPages(10);
  EXPECT_NEAR(graph.YMin(), 1.5, 1e-6) << "the last reading stays in the upper half";
  EXPECT_NEAR(graph.YMax(), 2.5, 1e-6);
  graph.CentreOn(kHeight / 4, kHeight);  // a quarter down the overview: 0.5 m
  EXPECT_NEAR(graph.YMin(), 0, 1e-6);
  graph.CentreOn(kHeight / 2, kHeight);
  EXPECT_NEAR(graph.YMin(), 0.5, 1e-6);
  PointAt(graph, 60);
  EXPECT_EQ(graph.Labels().y_min + " " + graph.Labels().y_max, "0.50 1.50");
}

TEST_F(TipGraphTest, TheLargeGraphShowsTheWindowWithTheRowsMarked) {
  Open(Sounding(100));
  TipGraph graph(*t.session, 1);
  graph.Scroll(2);  // 0.5 to 1.5 m
  PointAt(graph, 40);
  graph.LeftClick();
  PointAt(graph, 50);
  RecordingSurface surface(400, 500);
  graph.GraphData(surface, TipGraphChannel::kTip, kWidth, kHeight);
  auto x_of = [&](int r) { return Tip(r) / graph.TipMaximum() * kWidth; };
  auto y_of = [&](int r) { return (0.02 * r - 0.5) * kHeight; };
  bool segment = false, above = false, first = false, highlight = false;
  for (const RecordedCall& line : surface.Lines()) {
    if (line.colour == kRed) {
      // The trace keeps to the window: nothing above 0.5 m or below 1.5 m.
      above = above || line.y1 < -1e-6 || line.y2 > kHeight + 1e-6;
      segment = segment || (std::abs(line.x1 - x_of(44)) < 1e-3 && std::abs(line.y1 - y_of(44)) < 1e-3 &&
                            std::abs(line.x2 - x_of(45)) < 1e-3 && std::abs(line.y2 - y_of(45)) < 1e-3);
    }
    const bool across = line.x1 == 0 && line.x2 == kWidth && line.y1 == line.y2;
    first = first || (across && line.colour == Colour{0, 160, 0} && std::abs(line.y1 - y_of(40)) < 1e-3);
    highlight = highlight || (across && line.colour == kBlue && std::abs(line.y1 - y_of(50)) < 1e-3);
  }
  EXPECT_TRUE(segment) << "rows 44 to 45 on the sounding plot's mapping";
  EXPECT_FALSE(above);
  EXPECT_TRUE(first) << "the first point";
  EXPECT_TRUE(highlight) << "the row under the pointer";
  EXPECT_TRUE(surface.HasText(FormatNumber(graph.TipMaximum(), "##0.00"))) << "the graph's own scale";

  // The overview holds the whole sounding, with the window boxed.
  RecordingSurface overview(90, 500);
  graph.GraphOverview(overview, TipGraphChannel::kFriction, 90, 500);
  bool window = false;
  for (const RecordedCall& call : overview.Calls()) {
    window = window || (call.kind == RecordedCall::kBox && call.colour == kBlue &&
                        std::abs(call.y1 - 0.5 / 2 * 500) < 1e-6 && std::abs(call.y2 - 1.5 / 2 * 500) < 1e-6);
  }
  EXPECT_TRUE(window);
}

}  // namespace
}  // namespace marlview
