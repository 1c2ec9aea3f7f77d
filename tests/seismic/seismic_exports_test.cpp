// The seismic exports: text, CSV and graph-file layouts against reference files, the file names,
// the questions of a missing strike, and the kept header setting.
#include "core/seismic/seismic_exports.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "core/common/file_access.h"
#include "seismic_builders.h"
#include "support/test_support.h"

namespace marlview::test {
namespace {

SeismicStore& Store() {
  static SeismicStore store;
  return store;
}

std::vector<float> Ramp(int n, float step) {
  std::vector<float> out;
  for (int k = 1; k <= n; ++k) out.push_back(step * static_cast<float>(k % 7 - 3));
  return out;
}

// Two QRD tests: 4.5 m with a 12-sample A and a 5-sample P strike, 12.25 m with A and B.
SeismicStore& FillExportStore() {
  SeismicStore& s = Store();
  s.Reset();
  s.AcquisitionFamily = kSeiFamily;
  s.TestCount = 2;
  s.TestTitle[1] = "SCPT01.SEI";
  s.TestTitle[2] = "other";
  s.header.TestDate = "11/24/2026";
  s.header.StartTime = "10:30:15";
  s.TestDepth[1] = 4.5f;
  s.TestDepth[2] = 12.25f;
  SetStrike(s, 1, kStrikeA, Ramp(12, 0.125f), 0.05f);
  SetStrike(s, 1, kStrikeP, Ramp(5, -0.0625f), 0.05f);
  SetStrike(s, 2, kStrikeA, Ramp(6, 0.25f), 0.2f);
  SetStrike(s, 2, kStrikeB, Ramp(6, -0.5f), 0.2f);
  return s;
}

std::vector<std::string> FilesIn(const std::string& dir) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(dir))
    names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

TEST(StrikeExports, TextAndCsvLayoutsMatchTheReferences) {
  const SeismicStore& s = FillExportStore();
  ExpectGolden(RenderStrikeText(s, 1, kStrikeA, "Harbour Road SCPT-1", true, kSoundingWidthAll),
               "seismic/strike_header.expected.txt");
  ExpectGolden(RenderStrikeText(s, 2, kStrikeB, "ignored without a header", false, kSoundingWidthAll),
               "seismic/strike_plain.expected.txt");
  ExpectGolden(RenderStrikeCsv(s, 1, kStrikeP, "Harbour Road SCPT-1", kSoundingWidthAll),
               "seismic/strike.expected.csv");
  // The workbench's export cuts the sounding name at 20 characters.
  const std::string single =
      RenderStrikeCsv(s, 1, kStrikeP, "A sounding name longer than twenty", kSoundingWidthSingle);
  EXPECT_EQ(single.substr(0, single.find("\r\n")), "Sounding,A sounding name long");
}

TEST(StrikeExports, ATrimmedStrikeEndsAtItsCount) {
  SeismicStore& s = FillExportStore();
  s.SampleCount[StrikeSlot(kStrikeA, 1)] = 3;
  const std::string text = RenderStrikeText(s, 1, kStrikeA, "S", false, kSoundingWidthAll);
  EXPECT_EQ(text,
            "   Depth:    4.5 meter(s)\r\n"
            "   0.050    -0.2500\r\n"
            "   0.100    -0.1250\r\n"
            "   0.150     0.0000\r\n");
  const std::string csv = RenderStrikeCsv(s, 1, kStrikeA, "S", kSoundingWidthAll);
  EXPECT_EQ(csv.substr(csv.find("TIME")),
            "TIME (ms),AMPLITUDE\r\n"
            "   0.050,    -0.2500\r\n"
            "   0.100,    -0.1250\r\n"
            "   0.150,     0.0000\r\n");
}

TEST(StrikeExports, OneFilePerStrikeNamedByDepthStrikeAndTest) {
  SeismicStore& s = FillExportStore();
  TempDirectory dir;
  ScriptedPrompts prompts;
  ASSERT_TRUE(ExportSeismicText(s, {"Site", "SCPT.TXT", dir.Path()}, true, prompts));
  EXPECT_EQ(FilesIn(dir.Path()),
            (std::vector<std::string>{"SCPT_004.50m_L_strike(001).txt", "SCPT_004.50m_P_strike(001).txt",
                                      "SCPT_012.25m_L_strike(002).txt", "SCPT_012.25m_R_strike(002).txt"}));
  EXPECT_EQ(ReadWholeFile(dir.File("SCPT_004.50m_L_strike(001).txt")),
            RenderStrikeText(s, 1, kStrikeA, "Site", true, kSoundingWidthAll));

  // The workbench exports its test alone, always with the header and a 20-character name.
  TempDirectory single;
  ASSERT_TRUE(ExportSingleSeismicCsv(s, 2, {"Site", "one.csv", single.Path()}, prompts));
  EXPECT_EQ(FilesIn(single.Path()),
            (std::vector<std::string>{"one_012.25m_L_strike(002).csv", "one_012.25m_R_strike(002).csv"}));
  EXPECT_EQ(ReadWholeFile(single.File("one_012.25m_R_strike(002).csv")),
            RenderStrikeCsv(s, 2, kStrikeB, "Site", kSoundingWidthSingle));
  EXPECT_TRUE(prompts.Log().empty());

  FillTests(s, {1, 2, 3, 4, 5, 6, 7}, 3);
  TempDirectory seven;
  ASSERT_TRUE(ExportSeismicCsv(s, {"Site", "x", seven.Path()}, prompts));
  EXPECT_TRUE(FileExists(seven.File("x_007.00m_R_strike(007).csv")));
}

TEST(StrikeExports, EmptyBoxesWriteNothingAndSayWhich) {
  const SeismicStore& s = FillExportStore();
  TempDirectory dir;
  ScriptedPrompts prompts;
  EXPECT_FALSE(ExportSeismicText(s, {"", "", dir.Path()}, true, prompts));
  EXPECT_FALSE(ExportSeismicCsv(s, {"", "f", dir.Path()}, prompts));
  EXPECT_FALSE(ExportSingleSeismicText(s, 1, {"s", "", dir.Path()}, prompts));
  EXPECT_EQ(ExportSeismicGrf(s, {"", "f", dir.Path()}, {}, prompts), GrfExportOutcome::kEmptyBox);
  EXPECT_EQ(prompts.Log(),
            (std::vector<std::string>{"! Please enter a sounding name and a filename.",
                                      "! Please enter a sounding name", "! Please enter a filename.",
                                      "! Please enter a sounding name"}));
  EXPECT_TRUE(FilesIn(dir.Path()).empty());
}

TEST(StrikeExports, TheHeaderChoiceIsKeptInTheDataDirectory) {
  TempDirectory data;
  EXPECT_TRUE(ReadTxtHeaderSetting(data.Path()));
  WriteTxtHeaderSetting(data.Path(), false);
  EXPECT_FALSE(ReadTxtHeaderSetting(data.Path()));
  WriteTxtHeaderSetting(data.Path(), true);
  EXPECT_TRUE(ReadTxtHeaderSetting(data.Path()));
}

TEST(GrfExport, LayoutsMatchTheReferences) {
  SeismicStore& s = FillExportStore();
  // Twelve samples give three lines of five, the last reaching to sample 15.
  ExpectGolden(RenderGrfFile(s, 1, {GrfStrikes::kA}), "seismic/strike_a.expected.grf");
  ExpectGolden(RenderGrfFile(s, 2, {GrfStrikes::kAB, false, true, kFeetPerMetre}),
               "seismic/strikes_ab_feet.expected.grf");
  // A PX date carries its time behind the year.
  s.AcquisitionFamily = kSmcFamily;
  s.header.TestDate = "11/24/2026 10:30:15";
  const std::string px = RenderGrfFile(s, 1, {GrfStrikes::kP});
  EXPECT_NE(px.find("Depth: 4.50m\\n\r\n11/24/2026\\n10:30:15\r\nPointSizes"), std::string::npos) << px;
}

TEST(GrfExport, ALogInAlternatingPointsHalvesTheRecord) {
  SeismicStore& s = Store();
  s.Reset();
  s.AcquisitionFamily = kSlgFamily;
  s.TestCount = 1;
  s.TestTitle[1] = "LOG.SLG";
  s.TestDepth[1] = 2;
  s.SetHasStrike(kStrikeA, 1, true);
  s.SampleCount[1] = 12;
  for (int k = 1; k <= 12; ++k) {
    s.LogTime(k) = 0.5f * static_cast<float>(k);
    s.LogAmplitude(k, 0) = 0.001f * static_cast<float>(k);
  }
  ExpectGolden(RenderGrfFile(s, 1, {GrfStrikes::kA, true}), "seismic/log_alternating.expected.grf");
  const std::string all = RenderGrfFile(s, 1, {GrfStrikes::kA, false});
  EXPECT_NE(all.find("1\r\n12\r\n0.001000,0.002000,0.003000,0.004000,0.005000\r\n"), std::string::npos)
      << all;
}

TEST(GrfExport, AMissingStrikeAsksAndCancelStops) {
  SeismicStore& s = FillExportStore();
  TempDirectory dir;
  ScriptedPrompts go_on({"OK"});
  EXPECT_EQ(ExportSeismicGrf(s, {"Site", "SCPT", dir.Path()}, {GrfStrikes::kAB}, go_on),
            GrfExportOutcome::kCompleted);
  EXPECT_EQ(go_on.Log(),
            (std::vector<std::string>{
                "? TEST #: 1 at 4.50 (m) DOES NOT HAVE (A + B) STRIKES. CANNOT CONVERT. PRESS OK "
                "TO CONTINUE TO NEXT TEST OR CANCEL TO STOP CONVERSION -> OK",
                "! CONVERSION COMPLETED"}));
  EXPECT_EQ(FilesIn(dir.Path()), (std::vector<std::string>{"SCPT(A+B)012.25m.grf"}));

  TempDirectory feet;
  ScriptedPrompts stop({"Cancel"});
  EXPECT_EQ(
      ExportSeismicGrf(s, {"Site", "SCPT", feet.Path()}, {GrfStrikes::kP, false, true, kFeetPerMetre}, stop),
      GrfExportOutcome::kCanceled);
  EXPECT_EQ(stop.Log(),
            (std::vector<std::string>{"? TEST #: 2 at 40.19 (ft) DOES NOT HAVE (P) STRIKE. CANNOT CONVERT "
                                      "-> Cancel",
                                      "! CONVERSION CANCELED"}));
  // The file of the test before the cancel stays.
  EXPECT_EQ(FilesIn(feet.Path()), (std::vector<std::string>{"SCPT(P)014.76ft.grf"}));
  EXPECT_EQ(ReadWholeFile(feet.File("SCPT(P)014.76ft.grf")),
            RenderGrfFile(s, 1, {GrfStrikes::kP, false, true, kFeetPerMetre}));
}

}  // namespace
}  // namespace marlview::test
