// The 1983 classification chart: where readings and zone numbers fall, and the chart alone.
#include <gtest/gtest.h>

#include <cmath>

#include "core/presentation/classification_chart.h"
#include "core/presentation/recording_surface.h"
#include "support/test_support.h"

namespace marlview {
namespace {

constexpr double kPsiPerBar = 1 / 0.0689476;

// The chart's frame: the one unfilled black box drawn.
RecordedCall Frame(const RecordingSurface& surface) {
  for (const auto& call : surface.Calls()) {
    if (call.kind == RecordedCall::kBox && !call.filled && call.colour == kBlack) return call;
  }
  ADD_FAILURE() << "no chart frame";
  return {};
}

std::vector<RecordedCall> Marks(const RecordingSurface& surface) {
  std::vector<RecordedCall> marks;
  for (const auto& call : surface.Calls()) {
    if (call.kind == RecordedCall::kBox && call.filled) marks.push_back(call);
  }
  return marks;
}

TEST(ClassificationChart, ReadingsFallByFrictionRatioAndDecadesOfTip) {
  test::TestSession t;
  // Tip in psi with no pore pressure, so the corrected tip is the tip: 100 bar at 2 %, 10 bar at
  // 4.5 %, then no sleeve and then no tip, neither of which is drawn. Blocks of ten readings keep
  // each block's sleeve, which lies 7.62 cm behind the tip, with its own tip.
  test::DatFile file = test::SimpleDat(0);
  const double blocks[][2] = {{100, 2}, {10, 4.5}, {50, 0}, {0, 1}};
  for (int r = 1; r <= 40; ++r) {
    const auto [tip_bar, ratio] = blocks[(r - 1) / 10];
    file.rows.push_back({0.02 * r, tip_bar * kPsiPerBar, tip_bar * ratio / 100 * kPsiPerBar, 0});
  }
  ASSERT_EQ(test::OpenSounding(t, file), ReadOutcome::kLoaded);
  const Session& session = *t.session;
  const ChartPoint a = ChartPointOf(session, 2, 1);
  EXPECT_NEAR(a.tip_bar, 100, 1e-3);
  EXPECT_NEAR(a.friction_ratio, 2, 1e-4);
  ASSERT_TRUE(a.place.has_value());
  EXPECT_NEAR(a.place->x, 2 * 10 / 60.0, 1e-5) << "column i stands for i / 10 % of 60 columns";
  EXPECT_NEAR(a.place->y, 1 - 2 / 3.0, 1e-5) << "two of three decades up";
  EXPECT_EQ(a.zone, 5) << "sandy silts and silts, as the lookup found";
  const ChartPoint b = ChartPointOf(session, 12, 2);
  EXPECT_NEAR(b.depth, 0.24 * kFeetPerMetre, 1e-5);
  ASSERT_TRUE(b.place.has_value());
  EXPECT_NEAR(b.place->x, 0.75, 1e-5);
  EXPECT_NEAR(b.place->y, 1 - 1 / 3.0, 1e-5);
  EXPECT_FALSE(ChartPointOf(session, 22, 1).place.has_value());
  EXPECT_EQ(ChartPointOf(session, 22, 1).zone, 0);
  EXPECT_FALSE(ChartPointOf(session, 32, 1).place.has_value());

  // Drawn from the scroll position on: the reading there stands out, the others as small marks.
  RecordingSurface surface(1000, 1000);
  DrawClassificationChart(surface, 1000, 1000, session, ChartView{.first_row = 2});
  const RecordedCall frame = Frame(surface);
  std::vector<RecordedCall> marks = Marks(surface);
  auto placed_from = [&](int first) {
    size_t placed = 0;
    for (int r = first; r <= 40; ++r) placed += ChartPointOf(session, r, 1).place.has_value() ? 1 : 0;
    return placed;
  };
  ASSERT_EQ(marks.size(), placed_from(2));
  EXPECT_EQ(marks.back().colour, kBlue);
  EXPECT_NEAR((marks.back().x1 + marks.back().x2) / 2, frame.x1 + (frame.x2 - frame.x1) / 3, 1e-2);
  EXPECT_NEAR((marks.back().y1 + marks.back().y2) / 2, frame.y1 + (frame.y2 - frame.y1) / 3, 1e-2);
  EXPECT_TRUE(surface.HasText("Depth (m): 0.04    Fs/Qt (%): 2.00    Tip (Qt)  (Bars): 100.00"));
  DrawClassificationChart(surface, 1000, 1000, session, ChartView{.first_row = 15});
  EXPECT_EQ(Marks(surface).size(), placed_from(15)) << "rows above the scroll position are left out";
  EXPECT_LT(placed_from(15), placed_from(2));
}

TEST(ClassificationChart, WithoutASoundingTheChartStandsAlone) {
  test::TestSession t;
  RecordingSurface surface(800, 800);
  DrawClassificationChart(surface, 800, 800, *t.session, ChartView{});
  EXPECT_TRUE(Marks(surface).empty());
  EXPECT_TRUE(surface.HasText("Classification Data:"));
  EXPECT_TRUE(surface.HasText("Robertson and Campanella UBC-1983"));
  EXPECT_TRUE(surface.HasText("Robertson and Campanella (1983)"));
  EXPECT_TRUE(surface.HasText("Tip (Qt)"));
  EXPECT_TRUE(surface.HasText("Fs/Qt (%)"));
  EXPECT_FALSE(surface.HasText("Depth"));
  // Every boundary stays inside the frame.
  const RecordedCall frame = Frame(surface);
  size_t boundaries = 0;
  for (const auto& line : surface.Lines()) {
    if (line.colour != kBlack) continue;
    ++boundaries;
    EXPECT_GE(std::min(line.y1, line.y2), frame.y1 - 1e-9);
    EXPECT_LE(std::max(line.y1, line.y2), frame.y2 + 1e-9);
  }
  EXPECT_GT(boundaries, 300u) << "seven zones over 61 columns";

  const std::vector<ChartZoneLabel> zones = ZoneLabelPlaces(t.session->chart);
  ASSERT_EQ(zones.size(), 7u);
  ASSERT_TRUE(zones[0].place.has_value());
  EXPECT_NEAR(zones[0].place->x, 5.5 * 10 / 60, 1e-6);
  EXPECT_NEAR(zones[0].place->y, 1 - std::log10(2.0) / 3, 1e-6);
  for (int zone = 1; zone <= 7; ++zone) EXPECT_TRUE(surface.HasText(std::to_string(zone)));
}

}  // namespace
}  // namespace marlview
