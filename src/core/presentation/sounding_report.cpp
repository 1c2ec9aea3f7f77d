// The sounding report's pages: furniture resolved from the print settings, the header block with
// the logo, the plot page around the plot engine and the list pages around the list's rows.
#include "core/presentation/sounding_report.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "core/common/file_access.h"
#include "core/common/number_format.h"
#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"
#include "core/derivation/normalised_sbt.h"
#include "core/presentation/print_job.h"
#include "core/presentation/sounding_exports.h"
#include "core/presentation/sounding_list.h"
#include "core/presentation/sounding_plot.h"
#include "core/session/session.h"

namespace marlview {
namespace {

constexpr double kPointsPerInch = 72;
// Logo offsets and its size are kept in twentieths of a point.
constexpr double kSurfaceUnitsPerInch = 1440;
// The longer side of a logo at 100 %.
constexpr double kLogoSideSurfaceUnits = 5040;
// The window stands for a sheet of this width, so its header and logo keep the page's proportions.
constexpr double kSheetWidthInches = 8.5;
constexpr double kListFontPoints = 8;
// Logo settings of each report kind, in their order.
constexpr size_t kPlotLogo = 0, kListLogo = 1;
// Header boxes in columns per style.
constexpr int kStyleColumns[] = {2, 3, 4};

struct Frame {
  double left = 0, top = 0, right = 0, bottom = 0;
};

std::string LabelValue(const std::string& label, std::string_view value) {
  const std::string_view trimmed = TrimBlanks(value);
  return label + (trimmed.empty() ? std::string("N/A") : std::string(trimmed));
}

// A file field of a header source: the label printed and the member of the store it shows.
struct FieldSource {
  const char* name;
  const char* label;
  std::string SoundingStore::*value;
};

constexpr FieldSource kPxDasFields[] = {
    {"CUSTOMER(DATAFILE)", "CUSTOMER: ", &SoundingStore::Customer},
    {"OPERATOR", "OPERATOR: ", &SoundingStore::OperatorName},
    {"CONE ID", "CONE ID: ", &SoundingStore::ConeId},
    {"LOCATION", "LOCATION: ", &SoundingStore::LocationName},
    {"JOB NUMBER", "JOB NUMBER: ", &SoundingStore::JobNumber},
    {"HOLE NUMBER", "HOLE NUMBER: ", &SoundingStore::HoleNumber},
    {"TEST DATE", "TEST DATE: ", &SoundingStore::TestDateText},
    // The file's three comment lines stand under the names of the heading they came from.
    {"HEADER", "COMMENT: ", &SoundingStore::CommentLine1},
    {"FOOTER1", "COMMENT: ", &SoundingStore::CommentLine2},
    {"FOOTER2", "COMMENT: ", &SoundingStore::CommentLine3},
    {"FILENAME", "FILENAME: ", &SoundingStore::SoundingFileName},
};

constexpr FieldSource kQrdFields[] = {
    {"COMPANY(DATAFILE)", "COMPANY: ", &SoundingStore::FileProductLine},
    {"FILENAME", "FILENAME: ", &SoundingStore::SoundingFileName},
    {"PROBE ID", "PROBE ID: ", &SoundingStore::ProbeSerial},
    {"TEST ID", "TEST ID: ", &SoundingStore::TestId},
    {"PROJECT", "PROJECT: ", &SoundingStore::Project},
    {"SITE", "SITE: ", &SoundingStore::Site},
    {"LOCATION", "LOCATION: ", &SoundingStore::Location},
    {"OPERATOR", "OPERATOR: ", &SoundingStore::Operator},
    {"CREW", "CREW: ", &SoundingStore::Crew},
    {"CLIENT", "CLIENT: ", &SoundingStore::Client},
    {"CLIENT REP", "CLIENT REP: ", &SoundingStore::ClientRepresentative},
    {"TEST DATE", "TEST DATE: ", &SoundingStore::TestDate},
    {"START TIME", "START TIME: ", &SoundingStore::StartTime},
    {"WEATHER", "WEATHER: ", &SoundingStore::Weather},
    {"COMMENT", "COMMENTS: ", &SoundingStore::Comments},
};

bool IsSbt(const SoundingStore& s, int c) {
  return c != 0 && (c == s.Sbt83Channel || c == s.Sbt86FrChannel || c == s.Sbt86PpChannel ||
                    c == s.Sbt90QtChannel || c == s.Sbt90BqChannel || IsSbtnChannel(s, c));
}

int ChartOf(const SoundingStore& s, int c) {
  if (c == s.Sbt86FrChannel || c == s.Sbt86PpChannel) return kChart1986;
  if (c == s.Sbt90QtChannel || c == s.Sbt90BqChannel) return kChart1990;
  return kChart1983;
}

// The pressure unit of the header as the tip's unit calls for.
std::string PressureWord(const SoundingStore& s) {
  const int tip = s.TipQtChannel != 0 ? s.TipQtChannel : s.TipChannel;
  const std::string label = tip != 0 ? s.ChannelUnitLabel[tip][kGraphOutput] : std::string();
  const std::string_view unit = TrimBlanks(label);
  auto is = [&](std::string_view word) { return unit.size() == word.size() && ContainsNoCase(unit, word); };
  if (ContainsNoCase(unit, "h2o") || ContainsNoCase(unit, "h20")) {
    return ContainsNoCase(unit, "ft") ? "Ft-H20" : "M-H20";
  }
  if (is("psi")) return "PSI";
  if (is("kpa") || is("kn/m^2")) return "KPA";
  if (is("mpa")) return "MPA";
  if (is("tsf")) return "TSF";
  if (is("bar")) return "BAR";
  if (ContainsNoCase(unit, "kg/cm") || ContainsNoCase(unit, "kgf/cm") || is("ksc")) return "KSC";
  if (is("v") || ContainsNoCase(unit, "volt")) return "VOLTS";
  return IsKpaFamily(s.AcquisitionFamily) ? "KPA" : "PSI";
}

// Cuts text to fit width, for a header box that would run into the next.
std::string Fit(DrawingSurface& g, std::string text, double width) {
  while (!text.empty() && g.TextWidth(text) > width) text.pop_back();
  return text;
}

class PageLayout {
 public:
  PageLayout(DrawingSurface& g, double width, double height, double units_per_inch, const ReportFurniture& f)
      : g_(g), units_per_inch_(units_per_inch), f_(f) {
    g_.SetScale(0, 0, width, height);
    g_.Cls();
    frame_ = {f.left_margin * units_per_inch, f.top_margin * units_per_inch, width - f.right_margin * units_per_inch,
              height - f.bottom_margin * units_per_inch};
    if (frame_.right <= frame_.left || frame_.bottom <= frame_.top) frame_ = {0, 0, width, height};
    LogoSize();
  }

  const Frame& Area() const { return frame_; }
  // The logo as this page has it, painted before anything else; the top of the page's contents.
  double Logo(bool first_page);
  // The header block from top; returns the y below it.
  double HeaderBlock(double top, const std::string& units_line, const std::string& tip_line);
  void Text(double x, double y, const std::string& text) {
    if (text.empty()) return;
    g_.SetCurrentXY(x, y);
    g_.Print(text);
  }

 private:
  void LogoSize();

  DrawingSurface& g_;
  double units_per_inch_;
  const ReportFurniture& f_;
  Frame frame_;
  double logo_width_ = 0, logo_height_ = 0;
  // The width the header logo takes beside the header block on this page.
  double header_logo_width_ = 0, header_logo_bottom_ = 0;
};

void PageLayout::LogoSize() {
  if (f_.logo_path.empty() || f_.logo_placement == kLogoNone) return;
  const PictureSize size = g_.SizeOfPicture(Picture{f_.logo_path});
  if (size.width <= 0 || size.height <= 0) return;
  const double longer = f_.logo_scale / 100 * kLogoSideSurfaceUnits / kSurfaceUnitsPerInch * units_per_inch_;
  if (size.width >= size.height) {
    logo_width_ = longer;
    logo_height_ = longer * size.height / size.width;
  } else {
    logo_height_ = longer;
    logo_width_ = longer * size.width / size.height;
  }
}

double PageLayout::Logo(bool first_page) {
  header_logo_width_ = 0;
  header_logo_bottom_ = frame_.top;
  if (logo_width_ <= 0) return frame_.top;
  const double dx = f_.logo_offset_x / kSurfaceUnitsPerInch * units_per_inch_;
  const double dy = f_.logo_offset_y / kSurfaceUnitsPerInch * units_per_inch_;
  const Picture logo{f_.logo_path};
  if (f_.logo_placement == kLogoAllPagesWatermark) {
    g_.PaintPicture(logo, (frame_.left + frame_.right - logo_width_) / 2 + dx,
                    (frame_.top + frame_.bottom - logo_height_) / 2 + dy, logo_width_, logo_height_);
    return frame_.top;
  }
  if (f_.logo_placement == kLogoAllPagesHeader || (f_.logo_placement == kLogoFirstPageHeader && first_page)) {
    g_.PaintPicture(logo, frame_.left + dx, frame_.top + dy, logo_width_, logo_height_);
    header_logo_width_ = std::max(0.0, dx + logo_width_ + units_per_inch_ / 8);
    header_logo_bottom_ = frame_.top + std::max(0.0, dy + logo_height_);
    return header_logo_bottom_ + units_per_inch_ / 16;
  }
  return frame_.top;
}

// The main header over the boxes of the style, a blank entry keeping its place, then the units and
// tip lines; beside the logo when the logo heads this page.
double PageLayout::HeaderBlock(double top, const std::string& units_line, const std::string& tip_line) {
  const double left = frame_.left + header_logo_width_;
  double y = frame_.top;
  g_.SetFont("Arial", 10, true, false);
  Text(left, y, Fit(g_, f_.main_header, frame_.right - left));
  y += g_.TextHeight("Ag");
  g_.SetFont("Arial", 8, false, false);
  const double line = g_.TextHeight("Ag");
  const int columns = kStyleColumns[std::clamp(f_.style, 0, 2)];
  const int rows = (kHeaderBoxes + columns - 1) / columns;
  const double column_width = (frame_.right - left) / columns;
  for (int b = 0; b < kHeaderBoxes; ++b) {
    Text(left + (b / rows) * column_width, y + (b % rows) * line,
         Fit(g_, f_.boxes[static_cast<size_t>(b)], column_width - line / 2));
  }
  y += rows * line;
  Text(left, y, units_line);
  y += line;
  Text(left, y, tip_line);
  y += line;
  return std::max({y, header_logo_bottom_, top}) + line / 2;
}

// Notes, footnotes and, on paper, room for the crew's comments and remarks, from the bottom up.
double FooterHeight(DrawingSurface& g, size_t lines, bool printer) {
  g.SetFont("Arial", 8, false, false);
  double height = g.TextHeight("Ag") * (static_cast<double>(lines) + 0.5);
  if (printer) {
    g.SetFont("courier new", 9, false, false);
    height += g.TextHeight("Ag") * 4.5;
  }
  return height;
}

void Footer(PageLayout& page, DrawingSurface& g, double top, const std::vector<std::string>& lines, bool printer) {
  const Frame& frame = page.Area();
  g.SetFont("Arial", 8, false, false);
  double y = top + g.TextHeight("Ag") / 2;
  for (const std::string& text : lines) {
    page.Text(frame.left, y, text);
    y += g.TextHeight("Ag");
  }
  if (!printer) return;
  g.SetFont("courier new", 9, false, false);
  const double line = g.TextHeight("Ag");
  for (const char* heading : {"COMMENTS", "REMARKS"}) {
    page.Text(frame.left, y, heading);
    g.Line(frame.left, y + line * 2, frame.right, y + line * 2, kBlack);
    y += line * 2.25;
  }
}

std::vector<std::string> FooterLines(const Session& session, const std::vector<int>& channels,
                                     const ReportFurniture& f) {
  std::vector<std::string> lines = ReportNotes(session, channels);
  lines.push_back(f.footnote);
  lines.push_back(f.footnote2);
  return lines;
}

std::vector<int> PlotChannelsOf(const PlotState& plot) {
  std::vector<int> channels;
  for (int i = 1; i <= plot.PlotChannelCount; ++i) channels.push_back(plot.PlotChannels[i]);
  return channels;
}

}  // namespace

std::string ResolveHeaderSource(const Session& session, bool list_pages, int position, int depth_unit) {
  const SoundingStore& s = session.Sounding();
  const ReportFamily family = ReportFamilyOf(s.AcquisitionFamily);
  const std::vector<std::string> list = HeaderSourceList(family, ReportKind::kSounding, list_pages);
  if (position <= 0 || position >= static_cast<int>(list.size())) return {};
  const std::string& name = list[static_cast<size_t>(position)];
  if (position == 1) return name;
  const bool metres = depth_unit == 1;
  if (name == "TOTAL DEPTH") {
    const double depth = metres ? s.MaxDepth : s.MaxDepth * session.FeetPerMetre;
    return "TOTAL DEPTH: " + FormatNumber(depth, "####0.00") + (metres ? " (m)" : " (ft)");
  }
  if (name == "DEPTH INTERVAL") {
    // Readings lie centimetres apart: the interval prints in centimetres, or inches with feet.
    const double interval = metres ? s.DepthInterval * 100.0 : s.DepthInterval * session.FeetPerMetre * 12.0;
    return "DEPTH INTERVAL: " + FormatNumber(interval, "####0.0") + (metres ? " (cm)" : " (in)");
  }
  if (name == "COMPANY(SETTINGS)") return LabelValue("COMPANY: ", session.general.CompanyGraphTitle);
  if (name.starts_with("CUSTOM HEADER ")) {
    const size_t row = static_cast<size_t>(std::clamp(name.back() - '1', 0, kCustomHeaderRows - 1));
    return ResolveCustomHeader(TrimBlanks(session.custom_headers.label[row][0]),
                               TrimBlanks(session.custom_headers.value[row][0]));
  }
  if (name == "GPS DATA" || name == "GPS") {
    const std::string gps = std::string(TrimBlanks(s.GpsLat)) + "," + std::string(TrimBlanks(s.GpsLon)) + "," +
                            std::string(TrimBlanks(s.GpsElev));
    return LabelValue("GPS (LAT,LON,ALT): ", gps == ",," ? std::string() : gps);
  }
  for (const FieldSource& field : family == ReportFamily::kPxDas ? std::span<const FieldSource>(kPxDasFields)
                                                                 : std::span<const FieldSource>(kQrdFields)) {
    if (name == field.name) return LabelValue(field.label, s.*field.value);
  }
  return {};
}

ReportFurniture SetHeadersAndOptions(const Session& session, bool list_pages, int depth_unit) {
  const ReportFamily family = ReportFamilyOf(session.Sounding().AcquisitionFamily);
  const ReportSettings& settings = session.Report(family, ReportKind::kSounding);
  const marlview::ReportPage& page = list_pages ? settings.List : settings.Plot;
  ReportFurniture f;
  f.style = std::clamp<int>(page.Style, 0, kReportStyles - 1);
  const auto style = static_cast<size_t>(f.style);
  auto line = [&](int position) { return ResolveHeaderSource(session, list_pages, position, depth_unit); };
  f.main_header = line(page.MainHeaderSource[style]);
  for (size_t b = 0; b < kHeaderBoxes; ++b) f.boxes[b] = line(page.HeaderSource[style][b]);
  f.footnote = line(page.FootnoteSource[style]);
  f.footnote2 = line(page.Footnote2Source[style]);
  f.header_every_page = page.PrintHeader == kPrintHeaderAllPages;
  f.logo_placement = page.PrintLogo;
  f.left_margin = page.LeftMargin, f.right_margin = page.RightMargin;
  f.top_margin = page.TopMargin, f.bottom_margin = page.BottomMargin;
  f.final_baseline = (list_pages ? settings.ListIncludeFinalBaselines : settings.IncludeFinalBaselines) == kWordYes;
  f.pens = {std::max<int>(page.BorderLineWidth, 1), std::max<int>(page.DataLineWidth, 1),
            std::max<int>(page.GridLineWidth, 1), page.PrintInColor == kWordYes};
  const std::string logo = session.SettingsPath("logo.jpg");
  if (FileExists(logo)) f.logo_path = logo;
  const size_t kind = list_pages ? kListLogo : kPlotLogo;
  f.logo_scale = session.logo.LogoScale[kind];
  f.logo_offset_x = session.logo.LogoOffsetX[kind];
  f.logo_offset_y = session.logo.LogoOffsetY[kind];
  return f;
}

std::string ReportUnitsLine(const Session& session, int depth_unit) {
  const SoundingStore& s = session.Sounding();
  std::string line = PressureWord(s);
  if (s.WaterTableDepth == -99) return line + " WT: UNDEF.";
  const bool metres = depth_unit == 1;
  const double depth = metres ? s.WaterTableDepth : s.WaterTableDepth * session.FeetPerMetre;
  return line + " WT: " + FormatNumber(depth, "###0.00") + (metres ? " (m)" : " (ft)");
}

std::string ReportTipLine(const Session& session, bool final_baseline) {
  const SoundingStore& s = session.Sounding();
  std::string line;
  if (s.BallTip) line = ShortestText(s.BallDiameter) + "mm ball";
  if (final_baseline) {
    const int tip = s.TipQtChannel != 0 ? s.TipQtChannel : s.TipChannel;
    const double value = s.EndBaselinePresent && tip != 0 ? s.FinalBaselineValue[tip][kGraphOutput] : 0.0;
    if (!line.empty()) line += "   ";
    line += value == 0 ? std::string("FINAL BASELINE: 0 or N/A") : "FINAL BASELINE: " + FormatNumber(value, "##0.00");
  }
  return line;
}

std::vector<std::string> ReportNotes(const Session& session, const std::vector<int>& channels) {
  const SoundingStore& s = session.Sounding();
  std::vector<std::string> notes;
  std::array<bool, 3> charts{};
  bool spt = false;
  for (int c : channels) {
    if (IsSbt(s, c)) charts[static_cast<size_t>(ChartOf(s, c))] = true;
    else if (c > 0 && ContainsNoCase(s.ChannelName[c], "SPT")) spt = true;
  }
  for (int chart : {kChart1983, kChart1986, kChart1990}) {
    if (!charts[static_cast<size_t>(chart)]) continue;
    const std::string& title = session.chart.ChartTitle[static_cast<size_t>(chart)];
    notes.push_back("*SBT: " + title + "; **Overconsolidated or Cemented; *SBT/SPT CORRELATION: " + title);
  }
  // SPT N rides on the 1983 chart.
  if (spt && !charts[kChart1983]) notes.push_back("*SBT/SPT CORRELATION: " + session.chart.ChartTitle[kChart1983]);
  if (s.BallTip) notes.push_back("*BALL TIP USED: " + ShortestText(s.BallDiameter) + "mm DIAMETER");
  return notes;
}

void DrawPlotReportPage(DrawingSurface& g, double width, double height, double units_per_inch, PlotState& plot,
                        const Session& session, const ReportFurniture& f) {
  PageLayout page(g, width, height, units_per_inch, f);
  const int depth_unit = plot.DepthUnit;
  const double top = page.Logo(true);
  const double header_bottom =
      page.HeaderBlock(top, ReportUnitsLine(session, depth_unit), ReportTipLine(session, f.final_baseline));
  const std::vector<std::string> footer = FooterLines(session, PlotChannelsOf(plot), f);
  const bool printer = g.IsPrinter();
  const double footer_top = page.Area().bottom - FooterHeight(g, footer.size(), printer);
  DrawPlotArea(g, page.Area().left, header_bottom, page.Area().right, footer_top, plot, session, f.pens);
  Footer(page, g, footer_top, footer, printer);
}

void DrawPlotWindowPage(DrawingSurface& surface, double width, double height, PlotState& plot,
                        const Session& session) {
  ReportFurniture furniture = SetHeadersAndOptions(session, false, plot.DepthUnit);
  // The window keeps a narrow edge instead of the sheet's margins.
  furniture.left_margin = furniture.right_margin = furniture.top_margin = furniture.bottom_margin = 0.1;
  DrawPlotReportPage(surface, width, height, width / kSheetWidthInches, plot, session, furniture);
}

void PrintSounding(PrintJob& job, const PlotState& plot, const Session& session) {
  InProcedure("PrintSounding", [&] {
    PlotState page_plot = plot;
    const ReportFurniture furniture = SetHeadersAndOptions(session, false, plot.DepthUnit);
    DrawPlotReportPage(job.NewPage(), job.PageWidthPoints(), job.PageHeightPoints(), kPointsPerInch, page_plot,
                       session, furniture);
  });
}

void PrintList(PrintJob& job, const Session& session, const ListView& view) {
  InProcedure("mnuPrint_Click", [&] {
    const ReportFurniture f = SetHeadersAndOptions(session, true, view.depth_unit);
    const std::vector<int> rows = ListRows(session, view);
    const std::vector<std::string> heads = ListPrintHeads(session, view);
    std::vector<std::string> notes = FooterLines(session, view.channels, f);
    notes.insert(notes.begin(), TipConfigurationLine(session.Sounding()));
    const std::string units_line = ReportUnitsLine(session, view.depth_unit);
    const std::string tip_line = ReportTipLine(session, f.final_baseline);
    const double width = job.PageWidthPoints(), height = job.PageHeightPoints();
    size_t next = 0;
    for (int page_number = 0;; ++page_number) {
      DrawingSurface& g = job.NewPage();
      PageLayout page(g, width, height, kPointsPerInch, f);
      const bool first = page_number == 0;
      double y = page.Logo(first);
      if (first || f.header_every_page) y = page.HeaderBlock(y, units_line, tip_line);
      g.SetFont("courier new", kListFontPoints, false, false);
      const double line = g.TextHeight("Ag");
      const double left = page.Area().left, bottom = page.Area().bottom;
      for (const std::string& head : heads) {
        page.Text(left, y, head);
        y += line;
      }
      y += line;
      // Whole rows only; a page too short for any still takes one, so the report always ends.
      const size_t first_row = next;
      while (next < rows.size() && (y + line <= bottom || next == first_row)) {
        page.Text(left, y, ListPrintRow(session, view, rows[next]));
        y += line;
        ++next;
      }
      if (next < rows.size()) continue;
      const double notes_height = line * static_cast<double>(notes.size() + 1);
      if (y + notes_height > bottom && next > first_row) continue;
      y += line;
      for (const std::string& note : notes) {
        page.Text(left, y, note);
        y += line;
      }
      break;
    }
  });
}

}  // namespace marlview
