// The combined and side-by-side plots.
#include "core/multisounding/set_plot.h"

#include <algorithm>
#include <cmath>

#include "core/common/number_format.h"
#include "core/common/number_read.h"
#include "core/presentation/sounding_exports.h"
#include "core/presentation/sounding_list.h"
#include "core/presentation/sounding_plot.h"
#include "core/session/session.h"

namespace marlview {
namespace {

const SoundingStore& Store(const Session& session, int slot) {
  return SetStore(session, slot);
}

int ChartOf(const SoundingStore& s, int c) {
  if (c == 0) return 0;
  if (c == s.Sbt83Channel) return 83;
  if (c == s.Sbt86FrChannel || c == s.Sbt86PpChannel) return 86;
  if (c == s.Sbt90QtChannel || c == s.Sbt90BqChannel) return 90;
  return 0;
}

int ChartIndex(int chart) { return chart == 83 ? kChart1983 : chart == 86 ? kChart1986 : kChart1990; }

double Value(const SoundingStore& s, int r, int c) {
  return static_cast<double>(s.AlignedReadings(r, KindColumn(c, kGraphOutput)));
}

// An axis label: whole numbers bare, others to two decimals at most.
std::string AxisText(double value) {
  return FormatNumber(value, std::floor(value) == value ? "##0" : "##0.0#");
}

struct Frame {
  double left, top, width, height;
};

void Label(DrawingSurface& g, double x, double y, const std::string& text) {
  g.SetCurrentXY(x, y);
  g.Print(text);
}

void CentredLabel(DrawingSurface& g, double centre, double y, const std::string& text) {
  Label(g, centre - g.TextWidth(text) / 2, y, text);
}

// One test's curve, or its zone fills, in a frame over the grid rows.
void DrawTest(DrawingSurface& g, const Frame& f, const SetPlotLayout& layout, const SetPlotAxis& axis, int chart,
              const std::string& channel, Colour colour, const Session& session) {
  const SoundingStore& s = Store(session, axis.slot);
  const int c = ChannelNamed(s, channel);
  if (c == 0 || !axis.present) return;
  const float interval = session.set.CommonDepthInterval;
  const std::vector<int> rows = CommonGridRows(s, interval, SetDepthColumn(session));
  const double depth_span = layout.depth_max - layout.depth_min;
  auto y_of = [&](double depth) { return f.top + (depth - layout.depth_min) / depth_span * f.height; };
  auto x_of = [&](double v) {
    const double span = axis.max - axis.min;
    return span == 0 ? f.left : std::clamp(f.left + (v - axis.min) / span * f.width, f.left, f.left + f.width);
  };
  double last_x = 0, last_y = 0;
  bool have_last = false;
  for (size_t j = 1; j <= rows.size(); ++j) {
    const int r = rows[j - 1];
    if (r == 0) {
      have_last = false;
      continue;
    }
    const double depth = GridDepth(interval, static_cast<int>(j));
    const double v = Value(s, r, c);
    if (chart != 0) {
      const double half = interval / 2.0;
      const double y0 = y_of(std::max(layout.depth_min, depth - half)), y1 = y_of(std::min(layout.depth_max, depth + half));
      const int zone = static_cast<int>(v);
      if (zone >= 1) g.Box(f.left, y0, x_of(v), y1, ZoneColour(zone, static_cast<int>(session.SbtBrightnessFactor)), true);
      continue;
    }
    const double x = x_of(v), y = y_of(depth);
    if (have_last) g.Line(last_x, last_y, x, y, colour);
    last_x = x, last_y = y, have_last = true;
  }
}

void DrawFrame(DrawingSurface& g, const Frame& f, const SetPlotLayout& layout, double min, double max) {
  g.Box(f.left, f.top, f.left + f.width, f.top + f.height, kBlack, false);
  if (!layout.grid_on) {
    g.SetFont("Arial", 6, false, false);
    Label(g, f.left, f.top + f.height + 2, AxisText(min));
    const std::string high = AxisText(max);
    Label(g, f.left + f.width - g.TextWidth(high), f.top + f.height + 2, high);
    return;
  }
  const AxisSteps depth = FindAxisSteps(layout.depth_max - layout.depth_min, 0);
  const double depth_span = layout.depth_max - layout.depth_min;
  for (double d = layout.depth_min + depth.step; d < layout.depth_max; d += depth.step) {
    const double y = f.top + (d - layout.depth_min) / depth_span * f.height;
    g.Line(f.left, y, f.left + f.width, y, Colour{200, 200, 200});
  }
  g.SetFont("Arial", 6, false, false);
  Label(g, f.left, f.top + f.height + 2, AxisText(min));
  const std::string high = AxisText(max);
  Label(g, f.left + f.width - g.TextWidth(high), f.top + f.height + 2, high);
}

}  // namespace

Colour SetTestColour(int k) {
  // Thirty hues round the colour circle, taken seven apart so neighbouring tests stand apart.
  const int index = ((k - 1) * 7) % kMaxSetTests;
  const double hue = index * 360.0 / kMaxSetTests;
  const double x = 1 - std::abs(std::fmod(hue / 60.0, 2.0) - 1);
  double r = 0, g = 0, b = 0;
  switch (static_cast<int>(hue / 60.0)) {
    case 0: r = 1, g = x; break;
    case 1: r = x, g = 1; break;
    case 2: g = 1, b = x; break;
    case 3: g = x, b = 1; break;
    case 4: r = x, b = 1; break;
    default: r = 1, b = x; break;
  }
  // A darker shade on pure green and yellow keeps them readable on white.
  const double shade = (g > 0.8 && b < 0.2) ? 0.75 : 1.0;
  return {static_cast<uint8_t>(std::lround(255 * r * shade)), static_cast<uint8_t>(std::lround(255 * g * shade)),
          static_cast<uint8_t>(std::lround(255 * b * shade))};
}

Colour SetPlotColour(const Session& session, int slot) {
  const std::vector<int> tests = SelectedTests(session);
  const int family = tests.empty() ? 0 : Store(session, tests.front()).AcquisitionFamily;
  const auto& table = session.Report(ReportFamilyOf(family), ReportKind::kSounding).SetTestColours;
  if (slot < 1 || slot > static_cast<int>(table.size())) return SetTestColour(slot);
  const auto& rgb = table[static_cast<size_t>(slot - 1)];
  return {static_cast<uint8_t>(rgb[0]), static_cast<uint8_t>(rgb[1]), static_cast<uint8_t>(rgb[2])};
}

SetPlotLayout LayoutSetPlot(const Session& session, SetView view, const std::vector<std::string>& channels,
                            bool elevation) {
  SetPlotLayout layout;
  layout.view = view;
  layout.title = view == SetView::kCombined ? "COMBINED SOUNDING PLOT" : "SIDE-BY-SIDE CHANNEL PLOT";
  layout.common_scaling = session.set.ScalingMode == 1;
  layout.elevation = elevation;
  const int depth_column = SetDepthColumn(session);
  layout.depth_label = std::string(elevation ? "Elev." : "Depth") + (depth_column == 1 ? " (m)" : " (ft)");
  const float interval = session.set.CommonDepthInterval;
  const std::vector<int> tests = SelectedTests(session);
  if (tests.empty()) return layout;
  std::vector<std::vector<int>> grid;
  layout.depth_max = 0;
  int k = 0;
  for (int slot : tests) {
    grid.push_back(CommonGridRows(Store(session, slot), interval, depth_column));
    const double deepest = GridDepth(interval, static_cast<int>(grid.back().size()));
    layout.legend.push_back({++k, slot, Store(session, slot).SoundingFileName, deepest, SetPlotColour(session, slot)});
    layout.depth_max = std::max(layout.depth_max, deepest);
  }
  if (layout.depth_max <= layout.depth_min) layout.depth_max = layout.depth_min + 1;
  const SoundingStore& first = Store(session, tests.front());
  for (const std::string& name : channels) {
    SetPlotPanel panel;
    panel.channel = name;
    const int first_channel = ChannelNamed(first, name);
    panel.unit = first_channel != 0 ? first.ChannelUnitLabel[first_channel][kGraphOutput] : std::string();
    panel.chart = ChartOf(first, first_channel);
    for (size_t t = 0; t < tests.size(); ++t) {
      const SoundingStore& s = Store(session, tests[t]);
      SetPlotAxis axis;
      axis.slot = tests[t];
      axis.number = static_cast<int>(t) + 1;
      if (view == SetView::kSideBySide) axis.caption = "TEST " + s.SoundingFileName;
      const int c = ChannelNamed(s, name);
      axis.present = c != 0;
      if (c != 0) {
        if (panel.chart != 0) {
          axis.min = 0, axis.max = panel.chart == 90 ? 9 : 12;
        } else {
          double low = 0, high = 0;
          bool any = false;
          for (int r : grid[t]) {
            if (r == 0) continue;
            const double v = Value(s, r, c);
            low = any ? std::min(low, v) : v, high = any ? std::max(high, v) : v, any = true;
          }
          const bool inclination = c == s.InclXChannel || c == s.InclYChannel;
          axis.min = inclination && low < -15 ? -15 : 0;
          axis.max = high == 0 ? 1 : high;
        }
      }
      panel.tests.push_back(axis);
    }
    if (layout.common_scaling) {
      double low = 0, high = 0;
      bool any = false;
      for (const SetPlotAxis& a : panel.tests) {
        if (!a.present) continue;
        low = any ? std::min(low, a.min) : a.min, high = any ? std::max(high, a.max) : a.max, any = true;
      }
      for (SetPlotAxis& a : panel.tests) {
        if (a.present) a.min = low, a.max = high;
      }
    }
    layout.panels.push_back(std::move(panel));
  }
  if (view == SetView::kSideBySide) {
    for (const SetPlotPanel& panel : layout.panels) {
      if (panel.chart == 0) continue;
      const int chart = ChartIndex(panel.chart);
      layout.footnote = std::string(panel.chart == 83 ? "*SBT: " : "*SBT/SPT CORRELATION: ") +
                        session.chart.ChartTitle[chart] +
                        (panel.chart == 90 ? "; **Overconsolidated or Cemented" : "");
      break;
    }
  }
  return layout;
}

SetPlotArea DrawSetPlot(DrawingSurface& g, double width, double height, const SetPlotLayout& layout,
                        const Session& session) {
  g.SetScale(0, 0, width, height);
  g.Cls();
  g.SetFont("Arial", 12, true, false);
  CentredLabel(g, width / 2, height * 0.01, layout.title);
  // The legend: a colour sample, the running number, the test and its depth.
  g.SetFont("Arial", 7, false, false);
  const bool metric = SetDepthColumn(session) == 1;
  double y = height * 0.01 + g.TextHeight(layout.title) * 1.8;
  const double line = g.TextHeight("TEST #") * 1.2;
  const double legend_column = width / 3;
  for (size_t i = 0; i < layout.legend.size(); ++i) {
    const SetLegendEntry& e = layout.legend[i];
    const double x = width * 0.05 + legend_column * static_cast<double>(i % 3);
    const double row_y = y + line * static_cast<double>(i / 3);
    g.Box(x, row_y + line * 0.2, x + line, row_y + line * 0.8, e.colour, true);
    Label(g, x + line * 1.5, row_y, "TEST #" + std::to_string(e.number) + " " + e.name + "  " +
                                        FormatNumber(e.max_depth, "##0.00") + (metric ? " m" : " ft"));
  }
  y += line * (static_cast<double>((layout.legend.size() + 2) / 3) + 1);
  const double left = width * 0.08, right = width * 0.98;
  const double bottom = height * (layout.footnote ? 0.93 : 0.95);
  const double top = y + line * 3;
  const double area = right - left;
  // Depth axis along the left edge.
  const double depth_span = layout.depth_max - layout.depth_min;
  const AxisSteps depth = FindAxisSteps(depth_span, 0);
  g.SetFont("Arial", 7, false, false);
  for (double d = layout.depth_min; d <= layout.depth_max + 1e-9; d += depth.step) {
    const double ty = top + (d - layout.depth_min) / depth_span * (bottom - top);
    // Elevation counts down from the surface, so the same depths read as negative numbers.
    const std::string text = AxisText(layout.elevation && d != 0 ? -d : d);
    Label(g, left - g.TextWidth(text) - 4, ty - g.TextHeight(text) / 2, text);
  }
  Label(g, width * 0.005, top - line * 2, layout.depth_label);
  const size_t panels = layout.panels.size();
  const SetPlotArea drawn{left, top, right, bottom};
  if (panels == 0) return drawn;
  const double gap = area * 0.015;
  const double panel_width = (area - gap * static_cast<double>(panels - 1)) / static_cast<double>(panels);
  for (size_t p = 0; p < panels; ++p) {
    const SetPlotPanel& panel = layout.panels[p];
    const double panel_left = left + (panel_width + gap) * static_cast<double>(p);
    g.SetFont("Arial", 8, true, false);
    CentredLabel(g, panel_left + panel_width / 2, top - line * 2.6, panel.channel);
    g.SetFont("Arial", 7, false, false);
    CentredLabel(g, panel_left + panel_width / 2, top - line * 1.6, panel.unit.empty() ? "UNITLESS" : panel.unit);
    if (layout.view == SetView::kCombined) {
      const Frame f{panel_left, top, panel_width, bottom - top};
      const SetPlotAxis* shown = nullptr;
      for (const SetPlotAxis& a : panel.tests) if (a.present && !shown) shown = &a;
      DrawFrame(g, f, layout, shown ? shown->min : 0, shown ? shown->max : 1);
      for (const SetPlotAxis& a : panel.tests) {
        DrawTest(g, f, layout, a, 0, panel.channel, layout.legend[static_cast<size_t>(a.number - 1)].colour, session);
      }
    } else {
      const double sub = panel_width / static_cast<double>(panel.tests.size());
      for (size_t t = 0; t < panel.tests.size(); ++t) {
        const SetPlotAxis& a = panel.tests[t];
        const Frame f{panel_left + sub * static_cast<double>(t), top, sub, bottom - top};
        DrawFrame(g, f, layout, a.min, a.max);
        g.SetFont("Arial", 6, false, false);
        CentredLabel(g, f.left + sub / 2, top - line * 0.8, a.caption);
        DrawTest(g, f, layout, a, panel.chart, panel.channel, layout.legend[t].colour, session);
      }
    }
  }
  if (layout.footnote) {
    g.SetFont("Arial", 7, false, false);
    Label(g, left, height * 0.96, *layout.footnote);
  }
  return drawn;
}

std::optional<SetReadout> SetReadoutAt(const SetPlotLayout& layout, const SetPlotArea& area, const Session& session,
                                       double y) {
  if (y < area.top || y > area.bottom || area.bottom <= area.top) return std::nullopt;
  const float interval = session.set.CommonDepthInterval;
  if (!(interval > 0)) return std::nullopt;
  const double depth = layout.depth_min + (y - area.top) / (area.bottom - area.top) * (layout.depth_max - layout.depth_min);
  const int j = static_cast<int>(std::lround(depth / interval));
  SetReadout readout;
  readout.depth = FormatNumber(depth, "##0.00");
  for (const SetPlotPanel& panel : layout.panels) {
    std::vector<std::string> values;
    for (const SetPlotAxis& axis : panel.tests) {
      const SoundingStore& s = Store(session, axis.slot);
      const int c = ChannelNamed(s, panel.channel);
      const std::vector<int> rows = CommonGridRows(s, interval, SetDepthColumn(session));
      const int r = c != 0 && j >= 1 && j <= static_cast<int>(rows.size()) ? rows[static_cast<size_t>(j - 1)] : 0;
      values.push_back(r == 0 ? std::string("No Data") : FormatNumber(Value(s, r, c), "##0.00"));
    }
    readout.values.push_back(std::move(values));
  }
  return readout;
}

std::vector<std::string> CoverSheetLines(const Session& session, int slot, int k) {
  const SoundingStore& s = Store(session, slot);
  std::vector<std::string> lines{"CPT DATA: TEST #" + std::to_string(k)};
  const bool px_das = s.AcquisitionFamily == kPxDasFamily;
  if (px_das) {
    lines.insert(lines.end(), {"FILE: " + s.SoundingFileName, "TEST DATE / TIME: " + s.TestDateText,
                               "JOB #: " + s.JobNumber, "HOLE #: " + s.HoleNumber, "CUSTOMER: " + s.Customer,
                               "CONE ID: " + s.ConeId, "OPERATOR: " + s.OperatorName,
                               "LOCATION: " + s.LocationName,
                               "GPS (Lat, Lon, Elev): " + s.GpsLat + ", " + s.GpsLon + ", " + s.GpsElev});
  } else {
    lines.insert(lines.end(),
                 {"FILENAME: " + s.SoundingFileName, "TEST ID: " + s.TestId,
                  "OPERATOR | CREW: " + s.Operator + " | " + s.Crew, "PROJECT: " + s.Project, "SITE: " + s.Site,
                  "LOCATION: " + s.Location, "COMMENTS: " + s.Comments, "DATE: " + s.TestDate,
                  "START TIME: " + s.StartTime,
                  "GPS (Lat, Lon, Elev, NSat, Qual): " + s.GpsLat + ", " + s.GpsLon + ", " + s.GpsElev + ", " +
                      s.GpsNSat + ", " + s.GpsQual,
                  "CLIENT: " + s.Client, "CLIENT REPRESENTATIVE: " + s.ClientRepresentative,
                  "WEATHER: " + s.Weather, "SOFTWARE VERSION: " + s.DasVersion, "DAS SYSTEM: " + s.DasSystem,
                  "PROBE SERIAL NUMBER: " + s.ProbeSerial,
                  s.BallTip ? "TIP CONFIGURATION: BALL TIP " + ShortestText(s.BallDiameter) + "mm DIAMETER"
                            : std::string("TIP CONFIGURATION: Conventional")});
  }
  const bool metric = session.DepthUnitIsMetric == 1;
  const std::string label = metric ? "WATER TABLE (m): " : "WATER TABLE (ft): ";
  lines.push_back(s.WaterTableDepth == -99 ? label + "UNDEFINED"
                                           : label + FormatNumber(metric ? s.WaterTableDepth
                                                                         : s.WaterTableDepth * session.FeetPerMetre,
                                                                  "####0.00"));
  lines.push_back("HEADER: " + (px_das ? s.CommentLine1 : std::string()));
  lines.push_back("FOOTNOTE 1: " + (px_das ? s.CommentLine2 : std::string()));
  lines.push_back("FOOTNOTE 2: " + (px_das ? s.CommentLine3 : std::string()));
  return lines;
}

void PrintSetPlot(PrintJob& job, const SetPlotLayout& layout, const Session& session, bool cover_sheets) {
  // The printed report's furniture (logo, header block, page frame) joins here when the report
  // pages are shared; until then the set's pages print plainly.
  if (cover_sheets) {
    for (const SetLegendEntry& e : layout.legend) PrintTextLines(job, CoverSheetLines(session, e.slot, e.number));
  }
  DrawingSurface& page = job.NewPage();
  DrawSetPlot(page, job.PageWidthPoints(), job.PageHeightPoints(), layout, session);
}

}  // namespace marlview
