// The printed sounding report: the plot page and the list pages with the company logo, the header
// block of the print settings and the notes, laid out once for the window, the printer and the PDF.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/presentation/drawing_surface.h"
#include "core/presentation/sounding_plot.h"
#include "core/settings/report_settings.h"

namespace marlview {

class PrintJob;
class Session;
struct ListView;

// What one page kind of the report takes from the print settings, resolved for the current
// sounding: each header entry is one line of text, "" for a blank one.
struct ReportFurniture {
  int style = 0;
  std::string main_header;
  std::array<std::string, kHeaderBoxes> boxes;
  std::string footnote;
  std::string footnote2;
  bool header_every_page = false;
  int16_t logo_placement = kLogoFirstPageHeader;
  // Inches.
  double left_margin = 0.5, right_margin = 0.5, top_margin = 0.5, bottom_margin = 0.5;
  bool final_baseline = false;
  // Pen widths and colour of the plot page.
  PlotPens pens;
  // The logo's file when there is one, its scale in percent and its offset from its place in
  // surface units (twentieths of a point).
  std::string logo_path;
  double logo_scale = 100;
  double logo_offset_x = 0, logo_offset_y = 0;
};

// The line that header source position of the sounding family's list prints on the plot page or
// on the list pages; depth_unit 1 gives metres and centimetres, any other feet and inches.
std::string ResolveHeaderSource(const Session& session, bool list_pages, int position, int depth_unit);
// SetHeadersAndOptions: the furniture of the plot page or of the list pages from the print settings
// of the sounding's family.
ReportFurniture SetHeadersAndOptions(const Session& session, bool list_pages, int depth_unit);

// The pressure unit and water table line: "PSI WT: 2.40 (m)", "KPA WT: UNDEF.".
std::string ReportUnitsLine(const Session& session, int depth_unit);
// The ball tip and final baseline line, empty when it has neither.
std::string ReportTipLine(const Session& session, bool final_baseline);
// The notes for the channels shown: the soil behaviour charts' sources and the ball tip.
std::vector<std::string> ReportNotes(const Session& session, const std::vector<int>& channels);

// The plot page on a surface of logical size width x height, of which units_per_inch make an inch.
void DrawPlotReportPage(DrawingSurface& surface, double width, double height, double units_per_inch,
                        PlotState& plot, const Session& session, const ReportFurniture& furniture);
// The plot window's picture: the plot page as wide as the window, as if the window were a sheet.
void DrawPlotWindowPage(DrawingSurface& surface, double width, double height, PlotState& plot,
                        const Session& session);

// PrintSounding: the plot page on one page of job; the window's plot state is left as it is.
void PrintSounding(PrintJob& job, const PlotState& plot, const Session& session);
// The list pages: the header block on the first or every page, the column heads on every page, as
// many whole rows as fit, and the notes on the last page.
void PrintList(PrintJob& job, const Session& session, const ListView& view);

}  // namespace marlview
