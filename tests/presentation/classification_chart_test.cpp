// The 1983 classification chart: where readings and zone numbers fall, and the chart alone.
#include <gtest/gtest.h>

#include <cmath>

#include "core/derivation/derived_channels.h"
#include "core/derivation/normalised_sbt.h"
#include "core/derivation/sbt1990.h"
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


TEST(NormalisedChart, PlacesAndTheIcContours) {
  ASSERT_TRUE(PlaceOnNormalisedChart(1, 10).has_value());
  EXPECT_NEAR(PlaceOnNormalisedChart(1, 10)->x, 0.5, 1e-12) << "1 % halfway along two decades";
  EXPECT_NEAR(PlaceOnNormalisedChart(1, 10)->y, 1 - 1 / 3.0, 1e-12) << "Qtn 10 one decade up";
  EXPECT_FALSE(PlaceOnNormalisedChart(0, 10).has_value());

  // Ic 2.60 misses the bottom (3.47 > 2.60) and the top right; it meets the left edge where
  // (3.47 - log Qtn)^2 = 2.60^2 - 0.22^2, log Qtn = 0.8793, and the right edge where
  // (3.47 - log Qtn)^2 = 2.60^2 - 2.22^2, log Qtn = 2.1166.
  const std::vector<ChartPolyline> contour = IcContour(2.60);
  ASSERT_EQ(contour.size(), 1u);
  const ChartPlace a = contour[0].front(), b = contour[0].back();
  const ChartPlace left = a.x < b.x ? a : b, right = a.x < b.x ? b : a;
  EXPECT_NEAR(left.x, 0, 1e-9);
  EXPECT_NEAR(left.y, 1 - 0.8793 / 3, 1e-4);
  EXPECT_NEAR(right.x, 1, 1e-9);
  EXPECT_NEAR(right.y, 1 - 2.1166 / 3, 1e-4);
  // Every point on its circle; the ends cut at the frame lie on a chord of 1/720 of a turn.
  for (double ic : kIcContours) {
    for (const ChartPolyline& piece : IcContour(ic)) {
      for (const ChartPlace& p : piece) {
        EXPECT_NEAR(SbtIndex(std::pow(10.0, 3 * (1 - p.y)), std::pow(10.0, 2 * p.x - 1)), ic, 1e-4);
      }
    }
  }
}

TEST(NormalisedChart, BoundariesPartTheZonesOfThe1990Chart) {
  // At Fr 1 % the curve C11 = 3.034 parts zone 1 below it from zone 3 above (C7 = 0.74 < Qtn < C10).
  const ChartPlace c11 = *PlaceOnNormalisedChart(1, 3.034);
  bool found = false;
  for (const ChartPolyline& line : NormalisedChartBoundaries()) {
    for (const ChartPlace& p : line) found = found || std::hypot(p.x - c11.x, p.y - c11.y) < 0.005;
  }
  EXPECT_TRUE(found);
  const std::vector<ChartZoneLabel> labels = NormalisedZoneLabels();
  ASSERT_EQ(labels.size(), 9u);
  for (const ChartZoneLabel& label : labels) {
    const double fr = std::pow(10.0, 2 * label.place->x - 1), qtn = std::pow(10.0, 3 * (1 - label.place->y));
    EXPECT_EQ(Zone1990Qt(qtn, fr), label.zone);
  }
}

TEST(NormalisedChart, ReadingsOfTheNormalisedChannels) {
  test::TestSession t;
  t.session->NormalisedClassification = 1;
  // 362.6 psi (2500 kPa) of tip and 5.8 psi (40 kPa) of sleeve from 5.02 m, water at 2.40 m; the
  // sleeve 7.62 cm behind the tip leaves the last readings without friction, so they are not
  // normalised and not drawn.
  test::DatFile file = test::SimpleDat(0);
  for (int r = 1; r <= 30; ++r) file.rows.push_back({5 + 0.02 * r, 362.6, 5.8, 0});
  ASSERT_EQ(test::OpenSounding(t, file), ReadOutcome::kLoaded);
  const Session& session = *t.session;
  RecordingSurface surface(1000, 1000);
  DrawClassificationChart(surface, 1000, 1000, session, ChartView{.kind = ChartKind::kNormalised, .first_row = 1});
  size_t placed = 0;
  for (int r = 1; r <= 30; ++r) placed += NormalisedChartPointOf(session, r, 1).place.has_value() ? 1 : 0;
  EXPECT_GT(placed, 20u);
  EXPECT_LT(placed, 30u);
  EXPECT_EQ(Marks(surface).size(), placed);
  const NormalisedChartPoint first = NormalisedChartPointOf(session, 1, 1);
  // sigma_v0 = 94.63 kPa, u0 = 2.62 m x 1.4218 psi/m = 25.68 kPa, sigma'_v0 = 68.95 kPa, net 2405.4:
  // Fr 1.6625 %, n 1 -> 0.8013 -> 0.8111 -> 0.8106; Qtn 32.516, Ic 2.4309.
  EXPECT_NEAR(first.fr, 1.6625, 1e-3);
  EXPECT_NEAR(first.qtn, 32.516, 2e-3);
  EXPECT_NEAR(first.ic, 2.4309, 1e-4);
  EXPECT_EQ(first.zone, 5);
  EXPECT_TRUE(surface.HasText("Depth (m): 5.02    Fr (%): "));
  EXPECT_TRUE(surface.HasText("    SBTn: 5"));
  EXPECT_TRUE(surface.HasText("Qtn"));
  EXPECT_TRUE(surface.HasText("Fr (%)"));

  // Derived without the setting, the chart stands alone with nothing read out.
  t.session->NormalisedClassification = 0;
  ComputeDerivedChannels(*t.session, t.session->Sounding().ChannelCount);
  RecordingSurface alone(1000, 1000);
  DrawClassificationChart(alone, 1000, 1000, session, ChartView{.kind = ChartKind::kNormalised});
  EXPECT_TRUE(Marks(alone).empty());
  EXPECT_FALSE(alone.HasText("Depth"));
  EXPECT_TRUE(alone.HasText("Ic contours 1.31, 2.05, 2.60, 2.95, 3.60"));
}

}  // namespace
}  // namespace marlview
