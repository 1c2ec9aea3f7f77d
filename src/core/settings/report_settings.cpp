// The print settings of each family and report kind, and their header files.
#include "core/settings/report_settings.h"

#include <algorithm>

#include "core/common/line_cursor.h"
#include "core/common/number_read.h"
#include "core/settings/settings_files.h"

namespace marlview {
namespace {

// The fields of a file after "(BLANK)" and the title, for the sounding plot; the other kinds drop
// or rename a few of them.
const std::vector<std::string> kPxDasSources = {
    "CUSTOMER(DATAFILE)", "OPERATOR",        "CONE ID",         "LOCATION",        "JOB NUMBER",
    "HOLE NUMBER",        "TEST DATE",       "HEADER",          "FOOTER1",         "FOOTER2",
    "GPS DATA",           "FILENAME",        "TOTAL DEPTH",     "COMPANY(SETTINGS)", "CUSTOM HEADER 1",
    "CUSTOM HEADER 2",    "CUSTOM HEADER 3", "CUSTOM HEADER 4", "DEPTH INTERVAL"};
const std::vector<std::string> kQrdSources = {
    "COMPANY(DATAFILE)", "FILENAME",        "PROBE ID",        "TEST ID",         "PROJECT",
    "SITE",              "LOCATION",        "OPERATOR",        "CREW",            "CLIENT",
    "CLIENT REP",        "TEST DATE",       "START TIME",      "GPS",             "WEATHER",
    "COMMENT",           "TOTAL DEPTH",     "COMPANY(SETTINGS)", "CUSTOM HEADER 1", "CUSTOM HEADER 2",
    "CUSTOM HEADER 3",   "CUSTOM HEADER 4", "DEPTH INTERVAL"};

// The 58 lines of one page kind: its style, then per style the main header, sixteen boxes and two
// footnotes. prefix is "Plot", "List" or "Cover".
void AddPageBlock(std::vector<ReportField>& fields, ReportPage& page, const std::string& prefix) {
  fields.push_back({prefix + "Style", &page.Style});
  for (int s = 0; s < kReportStyles; ++s) {
    const std::string style = prefix + std::to_string(s + 1);
    const auto i = static_cast<size_t>(s);
    fields.push_back({style + "MainHeader", &page.MainHeaderSource[i]});
    for (int b = 0; b < kHeaderBoxes; ++b) {
      fields.push_back({style + "Header" + std::to_string(b + 1), &page.HeaderSource[i][static_cast<size_t>(b)]});
    }
    fields.push_back({style + "Footnote", &page.FootnoteSource[i]});
    fields.push_back({style + "Footnote2", &page.Footnote2Source[i]});
  }
}

void AddMargins(std::vector<ReportField>& fields, ReportPage& page, const std::string& prefix) {
  fields.push_back({prefix + "LeftMargin", &page.LeftMargin});
  fields.push_back({prefix + "RightMargin", &page.RightMargin});
  fields.push_back({prefix + "TopMargin", &page.TopMargin});
  fields.push_back({prefix + "BottomMargin", &page.BottomMargin});
}

// The lines that sounding and dissipation files share after their two blocks.
void AddPlotAndListPens(std::vector<ReportField>& fields, ReportSettings& s) {
  fields.push_back({"PlotPrintHeader", &s.Plot.PrintHeader});
  fields.push_back({"ListPrintHeader", &s.List.PrintHeader});
  fields.push_back({"PlotPrintLogo", &s.Plot.PrintLogo});
  fields.push_back({"ListPrintLogo", &s.List.PrintLogo});
  fields.push_back({"PlotPrintInColor", &s.Plot.PrintInColor});
  fields.push_back({"ListPrintInColor", &s.List.PrintInColor});
  fields.push_back({"PlotBorderLineWidth", &s.Plot.BorderLineWidth});
  fields.push_back({"PlotDataLineWidth", &s.Plot.DataLineWidth});
  fields.push_back({"PlotGridLineWidth", &s.Plot.GridLineWidth});
  fields.push_back({"ListBorderLineWidth", &s.List.BorderLineWidth});
  fields.push_back({"PlotPrintOutStyle", &s.Plot.PrintOutStyle});
}

}  // namespace

ReportFamily ReportFamilyOf(int acquisition_family) {
  return acquisition_family == 0 ? ReportFamily::kPxDas : ReportFamily::kQrdFieldbox;
}

std::string_view ReportFamilyName(ReportFamily family) {
  return family == ReportFamily::kPxDas ? "PX DAS" : "QRD FIELDBOX";
}

std::string_view ReportKindName(ReportKind kind) {
  switch (kind) {
    case ReportKind::kSounding: return "sounding";
    case ReportKind::kDissipation: return "dissipation";
    case ReportKind::kSeismic: return "seismic";
    case ReportKind::kVideo: return "video";
  }
  return "";
}

std::string ReportSettingsFileName(ReportFamily family, ReportKind kind) {
  static constexpr const char* kGroups[] = {"SOUNDING", "PP", "SEISMIC", "OCPT"};
  return std::string(family == ReportFamily::kPxDas ? "Q3MTL " : "FIELDBOX ") + kGroups[static_cast<int>(kind)] +
         " HEADERS.txt";
}

std::string ReportSettingsReader(ReportFamily family, ReportKind kind) {
  static constexpr const char* kGroups[] = {"Sounding", "PP", "Seismic", "Ocpt"};
  return std::string(family == ReportFamily::kPxDas ? "ReadQ3mtl" : "ReadFieldBox") + kGroups[static_cast<int>(kind)] +
         "Headers";
}

std::vector<std::string> HeaderSourceList(ReportFamily family, ReportKind kind, bool list_pages) {
  const bool px = family == ReportFamily::kPxDas;
  std::vector<std::string> list = {"(BLANK)"};
  switch (kind) {
    case ReportKind::kSounding: list.push_back(list_pages ? "SOUNDING DATA" : "SOUNDING PLOT"); break;
    case ReportKind::kDissipation: list.push_back(list_pages ? "DISSIPATION DATA" : "DISSIPATION PLOT"); break;
    case ReportKind::kSeismic: list.push_back("SEISMIC PLOT"); break;
    case ReportKind::kVideo: list.push_back("OCPT IMAGE"); break;
  }
  for (const std::string& entry : px ? kPxDasSources : kQrdSources) {
    if (kind != ReportKind::kSounding && (entry == "TOTAL DEPTH" || entry == "DEPTH INTERVAL")) continue;
    if (px && kind == ReportKind::kDissipation && entry == "CUSTOMER(DATAFILE)") {
      list.push_back("CUSTOMER");
    } else if (px && (kind == ReportKind::kSeismic || kind == ReportKind::kVideo) && entry == "COMPANY(SETTINGS)") {
      list.push_back("CUSTOMER(SETTINGS)");
    } else {
      list.push_back(entry);
    }
  }
  return list;
}

std::vector<std::string> LogoPlacementList(ReportKind kind) {
  switch (kind) {
    case ReportKind::kSeismic:
      return {"Cover Page", "Cover Page (watermark)", "Cover Page then watermark (all)", "All Pages (watermark)",
              "Graph Pages (watermark)", "No Logo"};
    case ReportKind::kVideo:
      return {"Cover Page", "Cover Page (watermark) ", "All Pages (cover page watermark)", "All Pages", "No Logo"};
    default:
      return {"First Page (header)", "All Pages (header)", "All Pages (watermark)", "No Logo"};
  }
}

ReportSettings DefaultReportSettings(ReportFamily family, ReportKind kind) {
  ReportSettings s;
  const auto entries = static_cast<int>(HeaderSourceList(family, kind).size());
  for (ReportPage* page : {&s.Plot, &s.List, &s.Cover, &s.Graph}) {
    for (auto& boxes : page->HeaderSource) {
      for (int b = 0; b < kHeaderBoxes; ++b) {
        boxes[static_cast<size_t>(b)] = static_cast<int16_t>(b + 2 < entries ? b + 2 : 0);
      }
    }
  }
  return s;
}

PrintSettings::PrintSettings() {
  for (int f = 0; f < kReportFamilies; ++f) {
    for (int k = 0; k < kReportKinds; ++k) {
      Of(static_cast<ReportFamily>(f), static_cast<ReportKind>(k)) =
          DefaultReportSettings(static_cast<ReportFamily>(f), static_cast<ReportKind>(k));
    }
  }
}

std::vector<ReportField> ReportFieldsOf(ReportSettings& s, ReportKind kind) {
  std::vector<ReportField> fields;
  switch (kind) {
    case ReportKind::kSounding:
      AddPageBlock(fields, s.Plot, "Plot");
      AddPageBlock(fields, s.List, "List");
      AddPlotAndListPens(fields, s);
      fields.push_back({"PlotHydrostaticPress", &s.PlotHydrostaticPress});
      fields.push_back({"PrintValuesOnStepGraphs", &s.PrintValuesOnStepGraphs});
      fields.push_back({"SoilBehaviorGraphStyle", &s.SoilBehaviorGraphStyle});
      fields.push_back({"TipPlotAlignment", &s.TipPlotAlignment});
      fields.push_back({"FsPlotAlignment", &s.FsPlotAlignment});
      fields.push_back({"FrPlotAlignment", &s.FrPlotAlignment});
      fields.push_back({"EnlargedTipGraph", &s.EnlargedTipGraph});
      fields.push_back({"SBTRollingAverage", &s.SBTRollingAverage});
      fields.push_back({"IncludeFinalBaselines", &s.IncludeFinalBaselines});
      fields.push_back({"ListIncludeFinalBaselines", &s.ListIncludeFinalBaselines});
      AddMargins(fields, s.Plot, "Plot");
      AddMargins(fields, s.List, "List");
      break;
    case ReportKind::kDissipation:
      AddPageBlock(fields, s.Plot, "Plot");
      AddPageBlock(fields, s.List, "List");
      AddPlotAndListPens(fields, s);
      fields.push_back({"PrintHydrostatic", &s.PrintHydrostatic});
      fields.push_back({"PrintMaxPressure", &s.PrintMaxPressure});
      fields.push_back({"ListPrintHydrostatic", &s.ListPrintHydrostatic});
      fields.push_back({"ListPrintMaxPressure", &s.ListPrintMaxPressure});
      AddMargins(fields, s.Plot, "Plot");
      AddMargins(fields, s.List, "List");
      break;
    case ReportKind::kSeismic:
      AddPageBlock(fields, s.Cover, "Cover");
      fields.push_back({"GraphHeader", &s.GraphHeader});
      fields.push_back({"GraphFooter", &s.GraphFooter});
      fields.push_back({"PrintLogo", &s.Cover.PrintLogo});
      fields.push_back({"PrintInColor", &s.Cover.PrintInColor});
      fields.push_back({"BorderLineWidth", &s.Cover.BorderLineWidth});
      fields.push_back({"DataLineWidth", &s.Cover.DataLineWidth});
      fields.push_back({"GridLineWidth", &s.Cover.GridLineWidth});
      AddMargins(fields, s.Cover, "Cover");
      AddMargins(fields, s.Graph, "");
      break;
    case ReportKind::kVideo:
      AddPageBlock(fields, s.Cover, "Cover");
      fields.push_back({"GraphHeader", &s.GraphHeader});
      fields.push_back({"GraphFooter", &s.GraphFooter});
      fields.push_back({"PrintLogo", &s.Cover.PrintLogo});
      AddMargins(fields, s.Cover, "Cover");
      break;
  }
  fields.push_back({"Text1", &s.Text1});
  fields.push_back({"Text2", &s.Text2});
  return fields;
}

ReportSettings ReadReportSettings(std::string_view bytes, ReportFamily family, ReportKind kind) {
  ReportSettings s = DefaultReportSettings(family, kind);
  LineCursor lines(bytes);
  for (ReportField& field : ReportFieldsOf(s, kind)) {
    const std::string_view line = lines.Next();
    if (auto* word = std::get_if<int16_t*>(&field.value)) {
      **word = ToSetting16(LenientNumber(line));
    } else if (auto* number = std::get_if<float*>(&field.value)) {
      **number = ToSingle(LenientNumber(line));
    } else {
      *std::get<std::string*>(field.value) = std::string(line);
    }
  }
  // The set colours are taken whole or not at all: an older file ends at the free lines.
  if (kind == ReportKind::kSounding) {
    std::vector<std::array<int16_t, 3>> colours(kSetColourSlots);
    for (size_t component = 0; component < 3; ++component) {
      for (auto& colour : colours) {
        if (lines.AtEnd()) return s;
        const double value = LenientNumber(lines.Next());
        colour[component] = ToSetting16(std::clamp(value, 0.0, 255.0));
      }
    }
    s.SetTestColours = std::move(colours);
  }
  return s;
}

std::string WriteReportSettings(const ReportSettings& settings, ReportKind kind) {
  ReportSettings copy = settings;
  std::string bytes;
  for (const ReportField& field : ReportFieldsOf(copy, kind)) {
    if (auto* word = std::get_if<int16_t*>(&field.value)) {
      bytes += NumberLine(static_cast<int>(**word));
    } else if (auto* number = std::get_if<float*>(&field.value)) {
      bytes += NumberLine(**number);
    } else {
      bytes += *std::get<std::string*>(field.value) + "\r\n";
    }
  }
  if (kind == ReportKind::kSounding && settings.SetTestColours.size() == kSetColourSlots) {
    for (size_t component = 0; component < 3; ++component) {
      for (const auto& colour : settings.SetTestColours) bytes += NumberLine(static_cast<int>(colour[component]));
    }
  }
  return bytes;
}

std::string ResolveCustomHeader(std::string_view label, std::string_view value) {
  if (label.empty()) return std::string(value);
  return std::string(label) + ": " + (value.empty() ? std::string("N/A") : std::string(value));
}

}  // namespace marlview
