// The print settings files: layout, defaults, round trips and the custom header text.
#include "core/settings/report_settings.h"

#include <gtest/gtest.h>

#include "core/common/runtime_failure.h"
#include "core/settings/settings_files.h"
#include "support/test_support.h"

namespace marlview {
namespace {

constexpr ReportKind kKinds[] = {ReportKind::kSounding, ReportKind::kDissipation, ReportKind::kSeismic,
                                 ReportKind::kVideo};

size_t LineCount(const std::string& bytes) {
  size_t count = 0;
  for (size_t at = 0; (at = bytes.find("\r\n", at)) != std::string::npos; at += 2) ++count;
  return count;
}

TEST(ReportSettings, EachKindsFileHasItsLinesInOrderAndDefaults) {
  const size_t lines[] = {147, 141, 75, 67};
  for (ReportKind kind : kKinds) {
    const ReportSettings defaults = DefaultReportSettings(ReportFamily::kPxDas, kind);
    const std::string bytes = WriteReportSettings(defaults, kind);
    EXPECT_EQ(LineCount(bytes), lines[static_cast<int>(kind)]) << ReportKindName(kind);
  }
  const std::string sounding =
      WriteReportSettings(DefaultReportSettings(ReportFamily::kQrdFieldbox, ReportKind::kSounding), ReportKind::kSounding);
  // Style, main header on the title, boxes on sources 2..17, no footnotes.
  EXPECT_TRUE(sounding.starts_with("0\r\n1\r\n2\r\n3\r\n4\r\n")) << sounding.substr(0, 40);
  EXPECT_TRUE(sounding.ends_with("0.5\r\n0.5\r\n\r\n\r\n"));

  ReportSettings s;
  auto fields = ReportFieldsOf(s, ReportKind::kSounding);
  EXPECT_EQ(fields[0].name, "PlotStyle");
  EXPECT_EQ(fields[58].name, "ListStyle");
  EXPECT_EQ(fields[58 + 1 + 19 + 16].name, "List2Header16");
  EXPECT_EQ(fields[116].name, "PlotPrintHeader");
  EXPECT_EQ(fields[126].name, "PlotPrintOutStyle");
  auto seismic = ReportFieldsOf(s, ReportKind::kSeismic);
  EXPECT_EQ(seismic[69].name, "LeftMargin");
  EXPECT_EQ(seismic[65].name, "CoverLeftMargin");
}

TEST(ReportSettings, AFileReadsAndWritesBackByteForByte) {
  for (ReportKind kind : kKinds) {
    ReportSettings s = DefaultReportSettings(ReportFamily::kQrdFieldbox, kind);
    int n = 0;
    for (ReportField& field : ReportFieldsOf(s, kind)) {
      ++n;
      if (auto* word = std::get_if<int16_t*>(&field.value)) **word = static_cast<int16_t>(n % 7 - 2);
      if (auto* number = std::get_if<float*>(&field.value)) **number = 0.1f * static_cast<float>(n);
    }
    s.Text1 = "Bridge job, north abutment";
    const std::string bytes = WriteReportSettings(s, kind);
    EXPECT_EQ(WriteReportSettings(ReadReportSettings(bytes, ReportFamily::kQrdFieldbox, kind), kind), bytes);
    // Lines past the last field are ignored.
    EXPECT_EQ(WriteReportSettings(ReadReportSettings(bytes + "extra\r\n", ReportFamily::kQrdFieldbox, kind), kind),
              bytes);
  }
  // Margins are written plain, never with an exponent, and words round half away from zero.
  ReportSettings tiny;
  tiny.Plot.LeftMargin = 0.00001f;
  tiny.Plot.RightMargin = 1e20f;
  const std::string bytes = WriteReportSettings(tiny, ReportKind::kSounding);
  EXPECT_EQ(bytes.find('e'), std::string::npos);
  EXPECT_EQ(ReadReportSettings(bytes, ReportFamily::kPxDas, ReportKind::kSounding).Plot.LeftMargin, 0.00001f);
  EXPECT_EQ(ToSetting16(2.5), 3);
  EXPECT_EQ(ToSetting16(-2.5), -3);
}

TEST(ReportSettings, AShortFileFailsPastTheEnd) {
  const std::string bytes = WriteReportSettings(ReportSettings{}, ReportKind::kVideo);
  const std::string short_file = bytes.substr(0, bytes.size() - 2 * 2);  // without Text1 and Text2
  EXPECT_FAILURE(ReadReportSettings(short_file, ReportFamily::kPxDas, ReportKind::kVideo), kErrPastEndOfFile, "");
}

TEST(ReportSettings, HeaderSourceListsOfEachFamilyAndKind) {
  const auto px_sounding = HeaderSourceList(ReportFamily::kPxDas, ReportKind::kSounding);
  EXPECT_EQ(px_sounding.size(), 21u);
  EXPECT_EQ(px_sounding[1], "SOUNDING PLOT");
  EXPECT_EQ(px_sounding[2], "CUSTOMER(DATAFILE)");
  EXPECT_EQ(px_sounding.back(), "DEPTH INTERVAL");
  EXPECT_EQ(HeaderSourceList(ReportFamily::kQrdFieldbox, ReportKind::kSounding, true)[1], "SOUNDING DATA");
  const auto px_pp = HeaderSourceList(ReportFamily::kPxDas, ReportKind::kDissipation);
  EXPECT_EQ(px_pp[2], "CUSTOMER");
  EXPECT_EQ(px_pp.size(), 19u);
  const auto px_seismic = HeaderSourceList(ReportFamily::kPxDas, ReportKind::kSeismic);
  EXPECT_EQ(px_seismic[14], "CUSTOMER(SETTINGS)");
  EXPECT_EQ(HeaderSourceList(ReportFamily::kQrdFieldbox, ReportKind::kVideo)[1], "OCPT IMAGE");
  EXPECT_EQ(ReportSettingsFileName(ReportFamily::kPxDas, ReportKind::kDissipation), "Q3MTL PP HEADERS.txt");
  EXPECT_EQ(ReportSettingsReader(ReportFamily::kQrdFieldbox, ReportKind::kVideo), "ReadFieldBoxOcptHeaders");
}

TEST(ReportSettings, CustomHeaderText) {
  EXPECT_EQ(ResolveCustomHeader("RIG", "Truck 4"), "RIG: Truck 4");
  EXPECT_EQ(ResolveCustomHeader("RIG", ""), "RIG: N/A");
  EXPECT_EQ(ResolveCustomHeader("", "Truck 4"), "Truck 4");
}

}  // namespace
}  // namespace marlview
