// The four seismic readers on good and bad files, and the open flow around them.
#include <gtest/gtest.h>

#include <cmath>

#include "core/common/file_access.h"
#include "core/seismic/seismic_open.h"
#include "core/seismic/seismic_readers.h"
#include "seismic_files.h"
#include "support/test_support.h"

namespace marlview::test {
namespace {

SeismicStore& Fresh() {
  static SeismicStore store;
  return store;
}

TEST(SeiReader, ReadsHeaderRecordsAndTheVersionedStrikeList) {
  SeiRecord first = SeiTest("001.50 m", "A(SGEO1)B(SGEO2)", 4);
  first.raws = {{32768, 49152, 16384, 32768}, {32768, 40960, 24576, 32768}};
  first.arrival = "    3A";
  first.start = 2;
  first.end = 6;
  SeiRecord second = SeiTest("003.00 m", "B(SGEO1)Z(PGEO)", 3, 32768);
  second.arrival = "   12N";
  SeismicStore& s = Fresh();
  ReadSeiFile(SeiFile({first, second}, "KORVAN FILE VER: SEI.2014"), "/d/SCPT.SEI", "SCPT.SEI", s);
  EXPECT_EQ(s.AcquisitionFamily, kSeiFamily);
  ASSERT_EQ(s.TestCount, 2);
  EXPECT_EQ(s.header.FileVersionLine, "KORVAN FILE VER: SEI.08.11.2015");
  EXPECT_EQ(s.header.Operator, "J. Ferreira");
  EXPECT_EQ(s.header.Crew, "D. Okafor");
  EXPECT_EQ(s.header.GpsLat, "49.2031N");
  EXPECT_EQ(s.header.GpsQual, "2 ");
  EXPECT_EQ(s.header.Version, "QRD 4.2.7");
  EXPECT_EQ(s.header.ProbeSerial, "DSC1042");
  EXPECT_EQ(s.header.ChannelCountLine, "3 => Channels");
  EXPECT_FLOAT_EQ(s.TestDepth[1], 1.5f);
  EXPECT_FLOAT_EQ(s.SampleInterval[1], 0.1f);
  EXPECT_EQ(s.SampleCount[StrikeSlot(kStrikeA, 1)], 4);
  EXPECT_EQ(s.ArrivalFromFile[1], 3);
  EXPECT_EQ(s.ArrivalKind[1], kStrikeA);
  EXPECT_EQ(s.ArrivalKind[2], kNoStrike);
  EXPECT_EQ(s.GeophoneOf[kStrikeA][1], kGeophoneSgeo1);
  EXPECT_EQ(s.GeophoneOf[kStrikeB][1], kGeophoneSgeo2);
  EXPECT_EQ(s.GeophoneOf[kStrikeP][1], kGeophoneUnknown);
  EXPECT_EQ(s.GeophoneOf[kStrikeP][2], kGeophonePgeo);
  EXPECT_FALSE(s.HasStrike(kStrikeA, 2));
  // Time counts from the start index; the mean of each strike is gone.
  EXPECT_FLOAT_EQ(s.StrikeTime(StrikeSlot(kStrikeA, 1), 1), 0.3f);
  EXPECT_FLOAT_EQ(s.StrikeAmplitude(StrikeSlot(kStrikeA, 1), 2), 0.25f);
  EXPECT_FLOAT_EQ(s.StrikeAmplitude(StrikeSlot(kStrikeB, 1), 3), -0.125f);
  EXPECT_EQ(s.HeaderLine(1, 4), "SCPT-T01 => Test Id");
}

TEST(SeiReader, SamplePositionsFollowTheLettersInFront) {
  SeismicStore& s = Fresh();
  // P alone stands at 5k + 2, as an A strike would.
  SeiRecord p_only = SeiTest("002.00 m", "Z", 3);
  p_only.raws = {{32768, 32768 + 6553, 32768 - 6553}};
  ReadSeiFile(SeiFile({p_only}), "x.SEI", "x.SEI", s);
  EXPECT_TRUE(s.HasStrike(kStrikeP, 1));
  EXPECT_NEAR(s.StrikeAmplitude(StrikeSlot(kStrikeP, 1), 2), 0.1, 1e-4);
  EXPECT_NEAR(s.StrikeAmplitude(StrikeSlot(kStrikeP, 1), 3), -0.1, 1e-4);
  // Old files name strikes in either case; negative signs in the text are dropped first.
  SeiRecord lower = SeiTest("002.00 m", "abz", 2);
  lower.text_override = "A32768-36044B3-2768-29492Z3276832768";
  ReadSeiFile(SeiFile({lower}, "KORVAN FILE VER: SEI.2014"), "x.SEI", "x.SEI", s);
  EXPECT_TRUE(s.HasStrike(kStrikeA, 1) && s.HasStrike(kStrikeB, 1) && s.HasStrike(kStrikeP, 1));
  EXPECT_NEAR(s.StrikeAmplitude(StrikeSlot(kStrikeA, 1), 2) - s.StrikeAmplitude(StrikeSlot(kStrikeA, 1), 1),
              3276 / 65536.0, 1e-6);
  EXPECT_NEAR(s.StrikeAmplitude(StrikeSlot(kStrikeB, 1), 2) - s.StrikeAmplitude(StrikeSlot(kStrikeB, 1), 1),
              -3276 / 65536.0, 1e-6);
}

TEST(SeiReader, FirstSampleGuardHoldsForBAndPButNotForA) {
  SeiRecord r = SeiTest("002.00 m", "A(SGEO1)B(SGEO2)", 3);
  r.raws = {{30000, 40000, 32768}, {30000, 40000, 32768}};
  SeismicStore& s = Fresh();
  ReadSeiFile(SeiFile({r}), "x.SEI", "x.SEI", s);
  const int a = StrikeSlot(kStrikeA, 1), b = StrikeSlot(kStrikeB, 1);
  EXPECT_NEAR(s.StrikeAmplitude(b, 2) - s.StrikeAmplitude(b, 1), (40000 - 32768) / 65536.0, 1e-6);
  EXPECT_NEAR(s.StrikeAmplitude(a, 2) - s.StrikeAmplitude(a, 1), (40000 - 30000) / 65536.0, 1e-6);
}

TEST(SeiReader, BadFilesEndInTheirRunTimeFailure) {
  SeismicStore& s = Fresh();
  EXPECT_FAILURE(ReadSeiFile("", "x.SEI", "x.SEI", s), kErrPastEndOfFile, "ReadSeiFile");
  std::string truncated = SeiFile({SeiTest("001.00 m", "A", 3)});
  truncated = truncated.substr(0, truncated.rfind("    0N"));
  EXPECT_FAILURE(ReadSeiFile(truncated, "x.SEI", "x.SEI", s), kErrPastEndOfFile, "ReadSeiFile");
  std::vector<SeiRecord> many(181, SeiTest("001.00 m", "A", 1));
  EXPECT_FAILURE(ReadSeiFile(SeiFile(many), "x.SEI", "x.SEI", s), kErrSubscript, "ReadSeiFile");
  many.pop_back();
  ReadSeiFile(SeiFile(many), "x.SEI", "x.SEI", s);
  EXPECT_EQ(s.TestCount, 180);
  SeiRecord long_one = SeiTest("001.00 m", "A", 30001);
  EXPECT_FAILURE(ReadSeiFile(SeiFile({long_one}), "x.SEI", "x.SEI", s), kErrSubscript, "ReadSeiFile");
  SeiRecord huge = SeiTest("001.00 m", "A", 3);
  huge.arrival = "35326000000000000000000000000000000000A";
  EXPECT_FAILURE(ReadSeiFile(SeiFile({huge}), "x.SEI", "x.SEI", s), kErrOverflow, "ReadSeiFile");
  // A sample text shorter than the counts reads its missing fields as raw 0.
  SeiRecord short_text = SeiTest("001.00 m", "A", 4);
  short_text.text_override = "A3276832768";
  ReadSeiFile(SeiFile({short_text}), "x.SEI", "x.SEI", s);
  EXPECT_NEAR(s.StrikeAmplitude(1, 3) - s.StrikeAmplitude(1, 1), -0.5, 1e-6);
}

TEST(SmcReader, CurrentRecordsDivideTheTextByTheStrikes) {
  SmcRecord r;
  r.strikes = "ABZ";
  r.arrival = "   25N";
  r.text = "A" + std::string(400, '2') + "B" + std::string(400, '2') + "Z" + std::string(400, '2');
  SmcRecord picked = r;
  picked.arrival = "   30P";
  SmcRecord z = r;
  z.arrival = "   31Z";
  SeismicStore& s = Fresh();
  ReadSmcFile(SmcFile({r, picked, z}, "PX DAS Seismic File 11-20-2011"), "x.SMC", "x.SMC", s);
  ASSERT_EQ(s.TestCount, 3);
  EXPECT_EQ(s.AmplitudeBias, 2048);
  EXPECT_EQ(s.AmplitudeScale, 2048);
  EXPECT_EQ(s.header.PXTitle, "TITLE");
  EXPECT_EQ(s.header.GpsLat, "4916.744N");
  EXPECT_EQ(s.header.GpsLon, "12307.112W");
  EXPECT_EQ(s.header.GpsElev, "3.8");
  for (int16_t kind : kStrikeKinds) EXPECT_EQ(s.SampleCount[StrikeSlot(kind, 1)], 100);
  EXPECT_EQ(s.ArrivalKind[1], kNoStrike);
  // The writer's "P" is not a letter the reader knows; "Z" is.
  EXPECT_EQ(s.ArrivalKind[2], kNoStrike);
  EXPECT_EQ(s.ArrivalKind[3], kStrikeP);
  EXPECT_EQ(s.GeophoneOf[kStrikeA][1], kGeophoneUnknown);
}

TEST(SmcReader, VersionedStrikeListsAndAFileWithoutStrikes) {
  SmcRecord r;
  r.strikes = "A(SGEO2)Z(PGEO)";
  r.text = "A30723072B" "Z10241024";
  SeismicStore& s = Fresh();
  ReadSmcFile(SmcFile({r}), "x.SMC", "x.SMC", s);
  EXPECT_EQ(s.SampleCount[StrikeSlot(kStrikeA, 1)], 2);
  EXPECT_EQ(s.GeophoneOf[kStrikeA][1], kGeophoneSgeo2);
  EXPECT_EQ(s.GeophoneOf[kStrikeP][1], kGeophonePgeo);
  EXPECT_FALSE(s.HasStrike(kStrikeB, 1));
  r.strikes = "none";
  EXPECT_FAILURE(ReadSmcFile(SmcFile({r}), "x.SMC", "x.SMC", s), kErrDivisionByZero, "ReadSmcFile");
}

TEST(SmcReader, LegacyRecordsAndTheHalfRateB) {
  // Three strikes of 4 samples: B's run holds 4 fields of which every second is taken.
  const std::string text = "2048307220481024" "3072307210241024" "1024102410241024";
  SeismicStore& s = Fresh();
  ReadSmcFile(LegacySmcFile({{"003.00", "0", "4", "2", "3", text}, {"004.00", "0", "2", "0", "7", "30723072"}}),
              "x.SMC", "x.SMC", s);
  ASSERT_EQ(s.TestCount, 2);
  EXPECT_FLOAT_EQ(s.SampleInterval[1], 0.2f);
  EXPECT_TRUE(s.LegacyHalfRateB);
  EXPECT_EQ(s.header.Customer, "CUSTOMER");
  EXPECT_EQ(s.ArrivalKind[1], kStrikeA);
  EXPECT_EQ(s.SampleCount[StrikeSlot(kStrikeA, 1)], 4);
  EXPECT_EQ(s.SampleCount[StrikeSlot(kStrikeB, 1)], 2);
  EXPECT_EQ(s.SampleCount[StrikeSlot(kStrikeP, 1)], 4);
  const int b = StrikeSlot(kStrikeB, 1);
  // Fields 5 and 7 give 3072 and 1024, and the last one taken repeats it.
  EXPECT_FLOAT_EQ(s.StrikeAmplitude(b, 1), s.StrikeAmplitude(b, 2));
  EXPECT_TRUE(s.HasStrike(kStrikeA, 2) && !s.HasStrike(kStrikeB, 2));
}

TEST(SmcReader, MiddleVersionTakesTheEndsFromColumns) {
  const std::string text = "3072307230721024" "10241024" "2048";
  SeismicStore& s = Fresh();
  ReadSmcFile(LegacySmcFile({{"003.00", "0", "    4    2    1", "2", "3", text}},
                            "Kestrelmoor Seismic File ver. 8-9-2011"),
              "x.SMC", "x.SMC", s);
  EXPECT_EQ(s.SampleCount[StrikeSlot(kStrikeA, 1)], 4);
  EXPECT_EQ(s.SampleCount[StrikeSlot(kStrikeB, 1)], 2);
  EXPECT_EQ(s.SampleCount[StrikeSlot(kStrikeP, 1)], 1);
  EXPECT_EQ(s.ArrivalFromFile[1], 2);
}

TEST(SlgReader, SecondsGainAndNoMeanRemoval) {
  std::vector<int> a(2000, 32768 + 6554), b(2000, 32768);
  SeismicStore& s = Fresh();
  ReadSlgFile(SlgFile("AB", {a, b}, ".00100000", true), "/d/x.SLG", "x.SLG", s);
  EXPECT_EQ(s.AcquisitionFamily, kSlgFamily);
  EXPECT_EQ(s.TestCount, 1);
  EXPECT_TRUE(s.LogHasGainLine);
  EXPECT_FLOAT_EQ(s.LogGain, 10);
  EXPECT_EQ(s.SampleCount[1], 2000);
  EXPECT_EQ(s.LogSeconds, 2);
  EXPECT_EQ(s.LogSecondStart[1], 0);
  EXPECT_EQ(s.LogSecondEnd[1], 1000);
  EXPECT_EQ(s.LogSecondStart[2], 1000);
  EXPECT_EQ(s.LogSecondEnd[2], 2000);
  EXPECT_FLOAT_EQ(s.LogTime(1), 1.0f);
  EXPECT_NEAR(s.LogAmplitude(5, 0), 0.1, 1e-4);
  EXPECT_EQ(s.header.Version, "QRD 4.2.7 => Version");
  EXPECT_EQ(s.header.DasSystem, "FB-2208");
  EXPECT_EQ(s.header.Crew, "D. Okafor ");
  // 61 seconds is past the log's bound.
  EXPECT_FAILURE(ReadSlgFile(SlgFile("A", {std::vector<int>(610, 32768)}, ".10000000", false), "x.SLG", "x.SLG", s),
                 kErrSubscript, "ReadSlgFile");
}

std::vector<std::vector<double>> Rows(int count, double a, double b, double p) {
  std::vector<std::vector<double>> rows;
  for (int k = 1; k <= count; ++k) rows.push_back({k * 0.0001, p, a + (k % 2 ? 0.1 : -0.1), b});
  return rows;
}

TEST(FldacqReader, OrdersByDepthDropsTheLastLineAndTakesOffMeans) {
  std::vector<marlview::FldacqFile> files = {{"S006", FldacqText(6, Rows(5, 1, 0, 0))},
                                   {"S002a", FldacqText(2, Rows(5, 1, 0.5, 0))},
                                   {"S004", FldacqText(4, Rows(5, 1, 0, 0))},
                                   {"S002b", FldacqText(2, Rows(101, 1, 0, 0))}};
  SeismicStore& s = Fresh();
  ScriptedPrompts prompts;
  ASSERT_TRUE(ReadFldacqFiles(files, "S006", kFeetPerMetre, s, prompts));
  ASSERT_EQ(s.TestCount, 4);
  EXPECT_EQ(s.TestFile[1], "S002a");
  EXPECT_EQ(s.TestFile[2], "S002b");
  EXPECT_EQ(s.TestFile[3], "S004");
  EXPECT_EQ(s.TestFile[4], "S006");
  EXPECT_EQ(s.TestTitle[1], "S006");
  EXPECT_EQ(s.TestTitle[2], "SCPTD03_001 ");
  EXPECT_NEAR(s.TestDepth[1], 2 / kFeetPerMetre, 1e-5);
  EXPECT_EQ(s.SampleCount[StrikeSlot(kStrikeA, 1)], 4);
  EXPECT_EQ(s.SampleCount[StrikeSlot(kStrikeA, 2)], 100);
  EXPECT_FLOAT_EQ(s.SampleInterval[2], 0.1f);
  EXPECT_FLOAT_EQ(s.StrikeTime(StrikeSlot(kStrikeB, 2), 3), 0.3f);
  EXPECT_TRUE(s.HasStrike(kStrikeA, 1) && s.HasStrike(kStrikeB, 1));
  EXPECT_FALSE(s.HasStrike(kStrikeP, 1));
  EXPECT_FLOAT_EQ(s.StrikeMeanRemoved[kStrikeB][1], 0.5f);
  EXPECT_NEAR(s.StrikeAmplitude(StrikeSlot(kStrikeB, 1), 1), 0, 1e-6);
  EXPECT_NEAR(s.StrikeAmplitude(StrikeSlot(kStrikeA, 2), 1), 0.1, 1e-6);
  EXPECT_EQ(s.ArrivalKind[1], kNoStrike);
  EXPECT_EQ(s.header.Operator, "J. Ferreira");
}

TEST(FldacqReader, RefusesAFileThatIsNotAConeTestAndCutsShortDepthLines) {
  SeismicStore& s = Fresh();
  ScriptedPrompts prompts;
  EXPECT_FALSE(ReadFldacqFiles({{"/d/S001", FldacqText(2, Rows(3, 1, 0, 0), "Pressure log")}}, "S001",
                               kFeetPerMetre, s, prompts));
  EXPECT_EQ(prompts.Texts(), std::vector<std::string>{"! /d/S001 is not a valid seismic file"});
  EXPECT_NEAR(FldacqDepth("19.69=>ft", 1.0f), 19, 1e-6);
  EXPECT_NEAR(FldacqDepth("19.69 => Depth (ft)", 1.0f), 19.69, 1e-5);
  std::string long_file = FldacqText(2, Rows(30002, 1, 0, 0));
  EXPECT_FAILURE(ReadFldacqFiles({{"S", long_file}}, "S", 1.0f, s, prompts), kErrSubscript, "ReadFldacqFiles");
}

class SeismicOpen : public ::testing::Test {
 protected:
  TestSession t;
  TempDirectory files;
};

TEST_F(SeismicOpen, DemoFilesOfEveryFamilyOpen) {
  struct Case {
    const char* name;
    int16_t family;
    int tests;
  } cases[] = {{"SCPT-A01.SEI", kSeiFamily, 12}, {"SCPT-B07.SMC", kSmcFamily, 14}, {"SCPT-C12.SLG", kSlgFamily, 1}};
  for (const Case& c : cases) {
    EXPECT_EQ(OpenSeismicPath(*t.session, t.prompts, SamplesDirectory() + "/" + c.name), SeismicOpenOutcome::kLoaded) << c.name;
    EXPECT_EQ(t.session->Seismic().AcquisitionFamily, c.family);
    EXPECT_EQ(t.session->Seismic().TestCount, c.tests);
  }
  t.prompts.Script({"Yes"});
  EXPECT_EQ(OpenSeismicPath(*t.session, t.prompts, SamplesDirectory() + "/SCPTD03_004"), SeismicOpenOutcome::kLoaded);
  const SeismicStore& s = t.session->Seismic();
  ASSERT_EQ(s.TestCount, 8);
  for (int i = 2; i <= 8; ++i) EXPECT_GT(s.TestDepth[i], s.TestDepth[i - 1]);
  EXPECT_EQ(t.prompts.Texts(), std::vector<std::string>{"? LOAD ALL ASSOCIATED SEISMIC TESTS? -> Yes"});
}

TEST_F(SeismicOpen, RefusalsLeaveTheCurrentStore) {
  ASSERT_EQ(OpenSeismicPath(*t.session, t.prompts, SamplesDirectory() + "/SCPT-A01.SEI"), SeismicOpenOutcome::kLoaded);
  files.Write("bad.sei", "just a note\r\n");
  EXPECT_EQ(OpenSeismicPath(*t.session, t.prompts, files.File("bad.sei")), SeismicOpenOutcome::kRefused);
  EXPECT_EQ(t.session->Seismic().TestCount, 12);
  files.Write("empty.SMC", "");
  EXPECT_EQ(OpenSeismicPath(*t.session, t.prompts, files.File("empty.SMC")), SeismicOpenOutcome::kRefused);
  files.Write("SERIESABC", FldacqText(2, Rows(3, 1, 0, 0)));
  t.prompts.Script({"Yes", "No"});
  EXPECT_EQ(OpenSeismicPath(*t.session, t.prompts, files.File("SERIESABC")), SeismicOpenOutcome::kRefused);
  EXPECT_EQ(OpenSeismicPath(*t.session, t.prompts, files.File("SERIESABC")), SeismicOpenOutcome::kLoaded);
  EXPECT_EQ(t.session->Seismic().TestCount, 1);
  EXPECT_EQ(t.prompts.Texts(),
            (std::vector<std::string>{
                "! Marlview has encountered an error: Error #62: 'Input past end of file' from 'ReadSeiFile'",
                "! Marlview has encountered an error: Error #62: 'Input past end of file' from 'ReadSmcFile'",
                "? LOAD ALL ASSOCIATED SEISMIC TESTS? -> Yes", "! ERROR: NO SEISMIC FILES FOUND",
                "? LOAD ALL ASSOCIATED SEISMIC TESTS? -> No"}));
  EXPECT_EQ(SeismicFamilyOfPath("a.sMc"), kSmcFamily);
  EXPECT_EQ(SeismicFamilyOfPath("a.Slg"), kSlgFamily);
  EXPECT_EQ(SeismicFamilyOfPath("D03SEIS001"), kFldacqFamily);
}

}  // namespace
}  // namespace marlview::test
