// The printed sounding report: header lines of both families, the layout a blank entry keeps, the
// list's rows over page breaks and where the logo goes.
#include <gtest/gtest.h>

#include <algorithm>
#include <deque>

#include "core/common/file_access.h"
#include "core/presentation/print_job.h"
#include "core/presentation/recording_surface.h"
#include "core/presentation/sounding_list.h"
#include "core/presentation/sounding_plot.h"
#include "core/presentation/sounding_report.h"
#include "support/test_support.h"

namespace marlview {
namespace {

// US Letter pages, each recorded on a printer surface of its own.
struct RecordingJob : PrintJob {
  DrawingSurface& NewPage() override { return pages.emplace_back(612, 792, true); }
  bool EndDoc() override { return true; }
  double PageWidthPoints() const override { return 612; }
  double PageHeightPoints() const override { return 792; }
  std::deque<RecordingSurface> pages;
};

class ReportTest : public ::testing::Test {
 protected:
  void Open(const test::DatFile& file) { ASSERT_EQ(test::OpenSounding(t, file), ReadOutcome::kLoaded); }
  SoundingStore& s() { return t.session->Sounding(); }
  ReportSettings& Settings(ReportFamily family = ReportFamily::kQrdFieldbox) {
    return t.session->Report(family, ReportKind::kSounding);
  }
  // The line of the named entry of the family's list.
  std::string Line(ReportFamily family, const std::string& name, int depth_unit = 1, bool list_pages = false) {
    const auto list = HeaderSourceList(family, ReportKind::kSounding, list_pages);
    const auto found = std::find(list.begin(), list.end(), name);
    EXPECT_NE(found, list.end()) << name;
    return ResolveHeaderSource(*t.session, list_pages, static_cast<int>(found - list.begin()), depth_unit);
  }

  test::TestSession t;
};

double TopOf(const RecordingSurface& page, const std::string& text) {
  for (const auto& call : page.Texts()) {
    if (call.text == text) return call.y1;
  }
  ADD_FAILURE() << "no text " << text;
  return -1;
}

TEST_F(ReportTest, HeaderSourcesResolveForBothFamilies) {
  Open(test::SimpleDat(50));
  const auto qrd = ReportFamily::kQrdFieldbox;
  s().Weather = "  ";
  t.session->general.CompanyGraphTitle = "Marl Geotechnical";
  t.session->custom_headers.label[0][0] = "";
  t.session->custom_headers.value[0][0] = "Rig 4";
  t.session->custom_headers.label[1][0] = "PERMIT";
  t.session->custom_headers.value[1][0] = "";
  EXPECT_EQ(ResolveHeaderSource(*t.session, false, 0, 1), "");
  EXPECT_EQ(ResolveHeaderSource(*t.session, false, 1, 1), "SOUNDING PLOT");
  EXPECT_EQ(ResolveHeaderSource(*t.session, true, 1, 1), "SOUNDING DATA");
  EXPECT_EQ(Line(qrd, "FILENAME"), "FILENAME: CPT-T01.DAT");
  EXPECT_EQ(Line(qrd, "WEATHER"), "WEATHER: N/A");
  EXPECT_EQ(Line(qrd, "GPS"), "GPS (LAT,LON,ALT): 49.2031N,122.9157W,4.2");
  EXPECT_EQ(Line(qrd, "COMPANY(SETTINGS)"), "COMPANY: Marl Geotechnical");
  EXPECT_EQ(Line(qrd, "CUSTOM HEADER 1"), "Rig 4") << "no label: the value alone";
  EXPECT_EQ(Line(qrd, "CUSTOM HEADER 2"), "PERMIT: N/A");
  EXPECT_EQ(Line(qrd, "TOTAL DEPTH"), "TOTAL DEPTH: 1.00 (m)");
  // Readings 2 cm apart: an interval in metres would print 0.0.
  EXPECT_EQ(Line(qrd, "DEPTH INTERVAL"), "DEPTH INTERVAL: 2.0 (cm)");
  EXPECT_EQ(Line(qrd, "DEPTH INTERVAL", 2), "DEPTH INTERVAL: 0.8 (in)");

  ASSERT_EQ(test::OpenSounding(t, test::SimpleCpt(20)), ReadOutcome::kLoaded);
  const auto px = ReportFamily::kPxDas;
  EXPECT_EQ(Line(px, "CUSTOMER(DATAFILE)"), "CUSTOMER: Delta Bridge Partners");
  EXPECT_EQ(Line(px, "HEADER"), "COMMENT: Pushed beside BH-3");
  EXPECT_EQ(Line(px, "FOOTER2"), "COMMENT: Predrilled 0.5 m");
  EXPECT_EQ(Line(px, "FILENAME"), "FILENAME: CPT-T01.CPT");
  EXPECT_EQ(ReportUnitsLine(*t.session, 1), "KPA WT: 2.35 (m)");
}

TEST_F(ReportTest, ABlankMainHeaderKeepsTheLayout) {
  Open(test::SimpleDat(50));
  PlotState plot;
  SetupPlot(plot, *t.session, {s().TipChannel, s().Sbt83Channel}, 1);
  auto draw = [&](RecordingSurface& page) {
    DrawPlotReportPage(page, 612, 792, 72, plot, *t.session, SetHeadersAndOptions(*t.session, false, 1));
  };
  RecordingSurface titled(612, 792, true), blank(612, 792, true);
  draw(titled);
  Settings().Plot.MainHeaderSource[0] = 0;
  draw(blank);
  EXPECT_TRUE(titled.HasText("SOUNDING PLOT"));
  EXPECT_FALSE(blank.HasText("SOUNDING PLOT"));
  EXPECT_EQ(TopOf(blank, "FILENAME: CPT-T01.DAT"), TopOf(titled, "FILENAME: CPT-T01.DAT"));
  EXPECT_EQ(TopOf(blank, "PSI WT: 2.40 (m)"), TopOf(titled, "PSI WT: 2.40 (m)"));
  EXPECT_TRUE(blank.HasText("*SBT: Robertson and Campanella (1983); **Overconsolidated or Cemented; "
                            "*SBT/SPT CORRELATION: Robertson and Campanella (1983)"));
  EXPECT_TRUE(blank.HasText("COMMENTS"));
  EXPECT_TRUE(blank.HasText("REMARKS"));

  auto red_lines = [](const RecordingSurface& page) {
    const auto lines = page.Lines();
    return std::count_if(lines.begin(), lines.end(), [](const auto& l) { return l.colour == kRed; });
  };
  EXPECT_GT(red_lines(blank), 0);
  Settings().Plot.PrintInColor = kWordNo;
  RecordingSurface grey(612, 792, true);
  draw(grey);
  EXPECT_EQ(red_lines(grey), 0) << "curves in black without colour";
}

TEST_F(ReportTest, ListRowsRunOverPagesWholeAndOnce) {
  Open(test::SimpleDat(150));
  ListView view;
  view.channels = {s().TipChannel, s().SleeveChannel};
  std::vector<std::string> rows;
  for (int r : ListRows(*t.session, view)) rows.push_back(ListPrintRow(*t.session, view, r));
  const std::string heads = ListPrintHeads(*t.session, view).front();

  for (const int16_t every : {kPrintHeaderFirstPage, kPrintHeaderAllPages}) {
    Settings().List.PrintHeader = every;
    RecordingJob job;
    PrintList(job, *t.session, view);
    ASSERT_GE(job.pages.size(), 3u);
    std::vector<std::string> printed;
    for (size_t p = 0; p < job.pages.size(); ++p) {
      const RecordingSurface& page = job.pages[p];
      EXPECT_TRUE(page.HasText(heads)) << "page " << p;
      EXPECT_EQ(page.HasText("FILENAME: CPT-T01.DAT"), p == 0 || every == kPrintHeaderAllPages) << "page " << p;
      EXPECT_EQ(page.HasText("TIP CONFIGURATION: Conventional"), p + 1 == job.pages.size()) << "page " << p;
      for (const auto& call : page.Texts()) {
        if (std::find(rows.begin(), rows.end(), call.text) == rows.end()) continue;
        printed.push_back(call.text);
        EXPECT_LE(call.y2, 792 - 36 + 1e-9) << "a row inside the bottom margin, page " << p;
      }
    }
    EXPECT_EQ(printed, rows) << "every row once, in order";
  }
}

TEST_F(ReportTest, TheLogoHeadsTheFirstOrEveryPage) {
  Open(test::SimpleDat(150));
  ListView view;
  view.channels = {s().TipChannel};
  RecordingJob none;
  PrintList(none, *t.session, view);
  EXPECT_TRUE(none.pages[0].Pictures().empty()) << "no logo file";

  t.data.Write("logo.jpg", "a picture");
  // Which pages have the logo: a header logo takes room, so the number of pages may differ.
  auto pages_with_logo = [&](int16_t placement) {
    Settings().List.PrintLogo = placement;
    RecordingJob job;
    PrintList(job, *t.session, view);
    EXPECT_GE(job.pages.size(), 3u);
    std::string with;
    for (const auto& page : job.pages) with += page.Pictures().empty() ? '-' : 'L';
    return with;
  };
  EXPECT_EQ(pages_with_logo(kLogoFirstPageHeader), "L---");
  EXPECT_EQ(pages_with_logo(kLogoAllPagesHeader), "LLLLL");
  EXPECT_EQ(pages_with_logo(kLogoAllPagesWatermark), "LLLL");
  EXPECT_EQ(pages_with_logo(kLogoNone), "----");

  // On the plot page: the longer side 3.5 inches at 100 %, the proportions kept, moved by the
  // offsets, with the header block beside it.
  t.session->logo.LogoScale[0] = 50;
  t.session->logo.LogoOffsetX[0] = 1440;
  PlotState plot;
  SetupPlot(plot, *t.session, {s().TipChannel}, 1);
  RecordingJob job;
  PrintSounding(job, plot, *t.session);
  ASSERT_EQ(job.pages.size(), 1u);
  const auto pictures = job.pages[0].Pictures();
  ASSERT_EQ(pictures.size(), 1u);
  EXPECT_EQ(pictures[0].text, t.data.File("logo.jpg"));
  EXPECT_DOUBLE_EQ(pictures[0].x1, 36 + 72);
  EXPECT_DOUBLE_EQ(pictures[0].x2 - pictures[0].x1, 126);
  EXPECT_DOUBLE_EQ(pictures[0].y2 - pictures[0].y1, 63);
  for (const auto& text : job.pages[0].Texts()) {
    if (text.text == "FILENAME: CPT-T01.DAT") {
      EXPECT_GT(text.x1, 36 + 72 + 126);
    }
  }
}

}  // namespace
}  // namespace marlview
