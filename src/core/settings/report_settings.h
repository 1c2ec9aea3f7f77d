// The furniture of every printed report (page style, header boxes, logo, pens, margins), one set for
// each acquisition family and report kind, and the family header files that keep it.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace marlview {

// The family whose files a report prints. The .CPT files of PX DAS keep their furniture in the
// "Q3MTL ..." files, the .DAT files of QRD FIELDBOX in the "FIELDBOX ..." files.
enum class ReportFamily { kQrdFieldbox = 0, kPxDas = 1 };
inline constexpr int kReportFamilies = 2;
// The report kinds that have a family header file: sounding plot and list, dissipation plot and
// list, the seismic cover sheet and graph pages, the video cover sheet and log pages.
enum class ReportKind { kSounding = 0, kDissipation = 1, kSeismic = 2, kVideo = 3 };
inline constexpr int kReportKinds = 4;
// The page layouts "STYLE 1" to "STYLE 3"; each has its own main header, boxes and footnotes.
inline constexpr int kReportStyles = 3;
inline constexpr int kHeaderBoxes = 16;

// The family of a sounding's AcquisitionFamily: 0 is PX DAS, every .DAT variant QRD FIELDBOX.
ReportFamily ReportFamilyOf(int acquisition_family);

// Word values of the combo boxes, as their lists stand.
inline constexpr int16_t kPrintHeaderFirstPage = 0;
inline constexpr int16_t kPrintHeaderAllPages = 1;
inline constexpr int16_t kWordYes = 0;
inline constexpr int16_t kWordNo = 1;
// Sounding and dissipation plots and lists.
inline constexpr int16_t kLogoFirstPageHeader = 0;
inline constexpr int16_t kLogoAllPagesHeader = 1;
inline constexpr int16_t kLogoAllPagesWatermark = 2;
inline constexpr int16_t kLogoNone = 3;

// One page kind of a report: the plot page, the list pages, a cover sheet or the graph pages.
// Sources are positions in the family's header source list (0 "(BLANK)", 1 the report's title).
struct ReportPage {
  int16_t Style = 0;
  std::array<int16_t, kReportStyles> MainHeaderSource{1, 1, 1};
  std::array<std::array<int16_t, kHeaderBoxes>, kReportStyles> HeaderSource{};
  std::array<int16_t, kReportStyles> FootnoteSource{};
  std::array<int16_t, kReportStyles> Footnote2Source{};
  // "First Page" 0, "All Pages" 1.
  int16_t PrintHeader = 0;
  // Position in the logo placement list of the report.
  int16_t PrintLogo = 0;
  // "Yes" 0, "No" 1.
  int16_t PrintInColor = 0;
  // In surface pens.
  int16_t BorderLineWidth = 1;
  int16_t DataLineWidth = 1;
  int16_t GridLineWidth = 1;
  int16_t PrintOutStyle = 0;
  // Inches.
  float LeftMargin = 0.5f;
  float RightMargin = 0.5f;
  float TopMargin = 0.5f;
  float BottomMargin = 0.5f;
};

struct ReportSettings {
  // Sounding and dissipation: the plot page and the list pages.
  ReportPage Plot;
  ReportPage List;
  // Seismic and video: the cover sheet. Its logo, colour and pens serve the whole seismic report.
  ReportPage Cover;
  // Seismic: the margins of the graph pages.
  ReportPage Graph;
  // Seismic and video graph pages: header and footer sources.
  int16_t GraphHeader = 0;
  int16_t GraphFooter = 0;

  // Sounding options, words of their combos.
  int16_t PlotHydrostaticPress = 0;
  int16_t PrintValuesOnStepGraphs = 0;
  int16_t SoilBehaviorGraphStyle = 0;
  int16_t TipPlotAlignment = 0;
  int16_t FsPlotAlignment = 0;
  int16_t FrPlotAlignment = 0;
  int16_t EnlargedTipGraph = 0;
  int16_t SBTRollingAverage = 0;
  int16_t IncludeFinalBaselines = 0;
  int16_t ListIncludeFinalBaselines = 0;

  // Dissipation options: "Yes" 0, "No" 1.
  int16_t PrintHydrostatic = 0;
  int16_t PrintMaxPressure = 0;
  int16_t ListPrintHydrostatic = 0;
  int16_t ListPrintMaxPressure = 0;

  // Two free lines at the end of the file, kept as read.
  std::string Text1;
  std::string Text2;

  // Sounding files only: the colours of the tests of a set on its combined and side-by-side plots,
  // kept after the two free lines as a row of 30 reds, one of 30 greens and one of 30 blues.
  // Empty when the file has none, and the plots then take their own.
  std::vector<std::array<int16_t, 3>> SetTestColours;
};

inline constexpr int kSetColourSlots = 30;

// The defaults of a first start: main headers on the title, box b on source b + 1 where the list
// has it, pens 1, margins half an inch, everything else the first entry.
ReportSettings DefaultReportSettings(ReportFamily family, ReportKind kind);

// Every setting of every family and kind, as the session holds them.
struct PrintSettings {
  std::array<std::array<ReportSettings, kReportKinds>, kReportFamilies> sets;
  PrintSettings();
  ReportSettings& Of(ReportFamily family, ReportKind kind) {
    return sets[static_cast<size_t>(family)][static_cast<size_t>(kind)];
  }
  const ReportSettings& Of(ReportFamily family, ReportKind kind) const {
    return sets[static_cast<size_t>(family)][static_cast<size_t>(kind)];
  }
};

// One line of a family header file: its name ("PlotStyle", "List2Header16", "Text1") and the value
// it stands for.
struct ReportField {
  std::string name;
  std::variant<int16_t*, float*, std::string*> value;
};
// The lines of a kind's file in order (147, 141, 75 and 67 lines).
std::vector<ReportField> ReportFieldsOf(ReportSettings& settings, ReportKind kind);

// "FIELDBOX SOUNDING HEADERS.txt", "Q3MTL PP HEADERS.txt" and so on.
std::string ReportSettingsFileName(ReportFamily family, ReportKind kind);
// The reading routine a failure of that file names: "ReadFieldBoxSoundingHeaders", "ReadQ3mtlPPHeaders"...
std::string ReportSettingsReader(ReportFamily family, ReportKind kind);
// "QRD FIELDBOX" or "PX DAS".
std::string_view ReportFamilyName(ReportFamily family);
// "sounding", "dissipation", "seismic", "video".
std::string_view ReportKindName(ReportKind kind);

// A whole file; a file that ends before its last line fails with "Input past end of file" and
// nothing of it is kept. Lines after the last are ignored.
ReportSettings ReadReportSettings(std::string_view bytes, ReportFamily family, ReportKind kind);
std::string WriteReportSettings(const ReportSettings& settings, ReportKind kind);

// The entries of a header box combo: "(BLANK)", the report's title, then the family's fields.
// list_pages picks the list's title ("SOUNDING DATA") over the plot's.
std::vector<std::string> HeaderSourceList(ReportFamily family, ReportKind kind, bool list_pages = false);
// The logo placements of a report kind's combo.
std::vector<std::string> LogoPlacementList(ReportKind kind);

// A custom header as a report prints it: "LABEL: value", "N/A" standing for an empty value; a
// header without a label prints its value alone.
std::string ResolveCustomHeader(std::string_view label, std::string_view value);

}  // namespace marlview
