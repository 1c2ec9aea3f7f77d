// The seismic writers against reference files and their readers, the save flow and the combines.
#include "core/seismic/seismic_writers.h"

#include <gtest/gtest.h>

#include <cmath>

#include "core/common/file_access.h"
#include "core/seismic/seismic_readers.h"
#include "seismic_builders.h"
#include "seismic_files.h"
#include "support/test_support.h"

namespace marlview::test {
namespace {

SeismicStore& Written() {
  static SeismicStore store;
  return store;
}
SeismicStore& Reread() {
  static SeismicStore store;
  return store;
}

// Amplitudes of whole raw steps whose mean is 0, so that a reread gives them back exactly.
const std::vector<float> kWaveA = {0.0f, 0.25f, -0.25f, 0.125f, -0.125f};
const std::vector<float> kWaveB = {0.0f, -0.375f, 0.375f, 0.0625f, -0.0625f};
const std::vector<float> kWaveP = {0.0f, 0.125f, 0.125f, -0.125f, -0.125f};

void SetPick(SeismicStore& s, int test, float sample, int16_t kind) {
  s.ArrivalSample[test] = sample;
  s.ArrivalKind[test] = kind;
}

// Two QRD tests: A and B at 1.50 m with a pick on B, A, B and P at 3.25 m with a pick on P.
void FillSeiStore(SeismicStore& s) {
  s.Reset();
  s.AcquisitionFamily = kSeiFamily;
  s.AmplitudeBias = 32768;
  s.AmplitudeScale = 65536;
  s.header.FileVersionLine = "KORVAN FILE VER: SEI.08.11.2015";
  s.header.ChannelCountLine = "3 => Channels";
  for (int k = 0; k <= 54; ++k)
    s.HeaderLine(1, k) = k == 32 ? "3 => Channels" : "header line " + std::to_string(k + 1);
  s.HeaderLine(1, 0) = s.header.FileVersionLine;
  s.TestCount = 2;
  s.TestDepth[1] = 1.5f;
  s.TestDepth[2] = 3.25f;
  for (int i = 1; i <= 2; ++i) {
    for (auto& row : s.GeophoneOf) row[i] = kGeophoneUnknown;
    SetStrike(s, i, kStrikeA, kWaveA, 0.05f);
    SetStrike(s, i, kStrikeB, kWaveB, 0.05f);
  }
  SetStrike(s, 2, kStrikeP, kWaveP, 0.05f);
  s.GeophoneOf[kStrikeA][2] = kGeophoneSgeo2;
  s.GeophoneOf[kStrikeB][2] = kGeophoneSgeo1;
  SetPick(s, 1, 3, kStrikeB);
  SetPick(s, 2, 4, kStrikeP);
}

void ExpectSameWaves(const SeismicStore& a, const SeismicStore& b, int test, float tolerance) {
  for (int16_t kind : kStrikeKinds) {
    ASSERT_EQ(a.HasStrike(kind, test), b.HasStrike(kind, test)) << "test " << test << " kind " << kind;
    if (!a.HasStrike(kind, test)) continue;
    const std::vector<float> wa = Amplitudes(a, test, kind), wb = Amplitudes(b, test, kind);
    ASSERT_EQ(wa.size(), wb.size()) << "test " << test << " kind " << kind;
    for (size_t k = 0; k < wa.size(); ++k)
      EXPECT_NEAR(wa[k], wb[k], tolerance) << "test " << test << " kind " << kind << " sample " << k + 1;
  }
}

TEST(SeiWriter, MatchesTheReferenceAndReadsBackToTheSameTests) {
  SeismicStore& s = Written();
  FillSeiStore(s);
  const std::string bytes = RenderSeiFile(s);
  ExpectGolden(bytes, "seismic/two_tests.expected.sei");
  // The last sample text has no line end after it.
  EXPECT_NE(bytes.substr(bytes.size() - 2), "\r\n");

  SeismicStore& r = Reread();
  ReadSeiFile(bytes, "/d/OUT.SEI", "OUT.SEI", r);
  ASSERT_EQ(r.TestCount, 2);
  EXPECT_EQ(r.header.ChannelCountLine, "3 => Channels");
  for (int i = 1; i <= 2; ++i) {
    EXPECT_FLOAT_EQ(r.TestDepth[i], s.TestDepth[i]);
    EXPECT_FLOAT_EQ(r.SampleInterval[i], s.SampleInterval[i]);
    EXPECT_EQ(r.ArrivalFromFile[i], static_cast<int32_t>(s.ArrivalSample[i]));
    EXPECT_EQ(r.ArrivalKind[i], s.ArrivalKind[i]);
    ExpectSameWaves(s, r, i, 0);
  }
  EXPECT_EQ(r.GeophoneOf[kStrikeA][1], kGeophoneSgeo1);
  EXPECT_EQ(r.GeophoneOf[kStrikeB][1], kGeophoneSgeo2);
  EXPECT_EQ(r.GeophoneOf[kStrikeA][2], kGeophoneSgeo2);
  EXPECT_EQ(r.GeophoneOf[kStrikeB][2], kGeophoneSgeo1);
  EXPECT_EQ(r.GeophoneOf[kStrikeP][2], kGeophonePgeo);
}

TEST(SeiWriter, ScalesAWaveBeyondFullScaleDownAndNamesBareLettersInOldFiles) {
  SeismicStore& s = Written();
  FillSeiStore(s);
  s.header.FileVersionLine = s.HeaderLine(1, 0) = "KORVAN FILE VER: SEI.2014";
  s.TestCount = 1;
  // A peak of 1.0 is 65536 steps: the whole wave goes out at half size, the trough held at 1.
  SetStrike(s, 1, kStrikeA, {0.0f, 1.0f, -1.0f, 0.5f, -0.5f}, 0.05f);
  const std::string bytes = RenderSeiFile(s);
  EXPECT_NE(bytes.find("\r\nAB\r\nA3276865536000014915216384B"), std::string::npos);
  ReadSeiFile(bytes, "/d/OUT.SEI", "OUT.SEI", Reread());
  const std::vector<float> a = Amplitudes(Reread(), 1, kStrikeA);
  ASSERT_EQ(a.size(), 5u);
  EXPECT_NEAR(a[1], 0.5f, 1e-4);
  EXPECT_NEAR(a[3], 0.25f, 1e-4);
}

TEST(SeiWriter, AStartIndexShortensTheReread) {
  // The end line carries the count, and the reader takes end less start.
  SeismicStore& s = Written();
  FillSeiStore(s);
  s.StartIndex[1] = 2;
  ReadSeiFile(RenderSeiFile(s), "/d/OUT.SEI", "OUT.SEI", Reread());
  EXPECT_EQ(Reread().SampleCount[StrikeSlot(kStrikeA, 1)], 3);
  EXPECT_EQ(Reread().SampleCount[StrikeSlot(kStrikeA, 2)], 5);
}

// PX DAS tests with the fields of the legacy and the current layouts.
void FillSmcStore(SeismicStore& s, const std::string& first_line) {
  s.Reset();
  s.AcquisitionFamily = kSmcFamily;
  s.AmplitudeBias = 2048;
  s.AmplitudeScale = 2048;
  SeismicHeader& h = s.header;
  h.FileVersionLine = s.HeaderLine(1, 0) = first_line;
  h.Customer = "CUSTOMER";
  h.PXTitle = "TITLE";
  h.Operator = "Operator";
  h.ConeId = "Cone 7";
  h.Location = "Location";
  h.JobNumber = "Job 1";
  h.HoleNumber = "Hole 2";
  h.TestDate = "02/06/2026";
  h.Comment1 = "c1";
  h.Comment2 = "c2";
  h.Comment3 = "c3";
  h.GpsLine = "$GPGGA,152301.00,4916.744,N,12307.112,W,1,08,1.1,3.8,M";
  s.TestCount = 2;
  s.TestDepth[1] = 2.0f;
  s.TestDepth[2] = 12.75f;
  SetStrike(s, 1, kStrikeA, kWaveA, 0.2f);
  SetStrike(s, 1, kStrikeB, kWaveB, 0.2f);
  SetStrike(s, 2, kStrikeA, kWaveA, 0.2f);
  SetStrike(s, 2, kStrikeP, kWaveP, 0.2f);
  SetPick(s, 1, 2, kStrikeA);
  SetPick(s, 2, 3, kStrikeA);
}

TEST(SmcWriter, LegacyFileMatchesTheReferenceAndReadsBack) {
  SeismicStore& s = Written();
  FillSmcStore(s, "Kestrelmoor Seismic File");
  const std::string bytes = RenderSmcFile(s);
  ExpectGolden(bytes, "seismic/legacy.expected.smc");
  SeismicStore& r = Reread();
  ReadSmcFile(bytes, "/d/OUT.SMC", "OUT.SMC", r);
  ASSERT_EQ(r.TestCount, 2);
  EXPECT_EQ(r.header.Customer, "CUSTOMER");
  for (int i = 1; i <= 2; ++i) {
    EXPECT_FLOAT_EQ(r.TestDepth[i], s.TestDepth[i]);
    EXPECT_FLOAT_EQ(r.SampleInterval[i], 0.2f);
    EXPECT_EQ(r.ArrivalFromFile[i], static_cast<int32_t>(s.ArrivalSample[i]));
    ExpectSameWaves(s, r, i, 0);
  }
}

TEST(SmcWriter, CurrentFileMatchesTheReferenceAndAPPickComesBackUnnamed) {
  SeismicStore& s = Written();
  FillSmcStore(s, "PX DAS Seismic File 2015.08.07.1");
  SetPick(s, 2, 3, kStrikeP);
  s.GeophoneOf[kStrikeA][1] = kGeophoneSgeo2;
  const std::string bytes = RenderSmcFile(s);
  ExpectGolden(bytes, "seismic/current.expected.smc");
  SeismicStore& r = Reread();
  ReadSmcFile(bytes, "/d/OUT.SMC", "OUT.SMC", r);
  ASSERT_EQ(r.TestCount, 2);
  EXPECT_EQ(r.header.PXTitle, "TITLE");
  EXPECT_EQ(r.GeophoneOf[kStrikeA][1], kGeophoneSgeo2);
  for (int i = 1; i <= 2; ++i) {
    EXPECT_FLOAT_EQ(r.TestDepth[i], s.TestDepth[i]);
    EXPECT_EQ(r.ArrivalFromFile[i], static_cast<int32_t>(s.ArrivalSample[i]));
    ExpectSameWaves(s, r, i, 0);
  }
  EXPECT_EQ(r.ArrivalKind[1], kStrikeA);
  // The writer calls a P pick "P", which the reader does not know.
  EXPECT_EQ(r.ArrivalKind[2], kNoStrike);
}

TEST(SmcWriter, ShortDatesAreCurrentForTheWriterOnly) {
  EXPECT_TRUE(IsCurrentSmcForWriting("PX DAS Seismic File 8-22-11"));
  EXPECT_TRUE(IsCurrentSmcForWriting("PX DAS Seismic File 11-20-2011"));
  EXPECT_FALSE(IsCurrentSmcForWriting("Kestrelmoor Seismic File ver. 8-9-2011"));
  SeismicStore& s = Written();
  FillSmcStore(s, "PX DAS Seismic File 8-22-11");
  // Kept as it stands and laid out as a current file, which the reader then takes for a legacy one.
  const std::string bytes = RenderSmcFile(s);
  EXPECT_EQ(bytes.substr(0, 34), "PX DAS Seismic File 8-22-11\r\nTITLE");
  EXPECT_NE(bytes.find("\r\n.00020000\r\n    0\r\n    5\r\n    2A\r\nAB\r\nA2048"), std::string::npos);
}

TEST(SmcWriter, HalfRateRecordsKeepTheirCountsAndMiddleFilesReadBHalvedOnReopening) {
  SeismicStore& s = Written();
  FillSmcStore(s, "Kestrelmoor Seismic File");
  s.TestCount = 1;
  SetStrike(s, 1, kStrikeA, {0.0f, 0.25f, -0.25f, 0.125f, -0.125f, 0.0f}, 0.2f);
  SetStrike(s, 1, kStrikeB, {0.0f, 0.5f, -0.5f}, 0.2f);
  SetStrike(s, 1, kStrikeP, {0.0f, 0.125f, 0.125f, -0.125f, -0.125f, 0.0f}, 0.2f);
  s.EndIndex[1] = 6;
  s.LegacyHalfRateB = true;
  std::string bytes = RenderSmcFile(s);
  EXPECT_EQ(bytes.substr(0, 40), "Kestrelmoor Seismic File ver. 8-9-2011\r\n");
  EXPECT_NE(bytes.find("\r\n    0\r\n    6    3    6\r\n    2\r\n3\r\n"), std::string::npos);
  SeismicStore& r = Reread();
  ReadSmcFile(bytes, "/d/OUT.SMC", "OUT.SMC", r);
  ExpectSameWaves(s, r, 1, 0);

  // A middle-version file goes out as a plain legacy file: its full-rate B strike reads back at
  // half rate, every second sample, on reopening.
  s.LegacyHalfRateB = false;
  SetStrike(s, 1, kStrikeB, {0.0f, 0.5f, -0.5f, 0.25f, -0.25f, 0.0f}, 0.2f);
  bytes = RenderSmcFile(s);
  EXPECT_EQ(bytes.substr(0, 26), "Kestrelmoor Seismic File\r\n");
  ReadSmcFile(bytes, "/d/OUT.SMC", "OUT.SMC", r);
  EXPECT_TRUE(r.LegacyHalfRateB);
  EXPECT_EQ(Amplitudes(r, 1, kStrikeA), Amplitudes(s, 1, kStrikeA));
  EXPECT_EQ(Amplitudes(r, 1, kStrikeP), Amplitudes(s, 1, kStrikeP));
  // Samples 1 and 3 of B, the last taken once more, less their mean of -1/3.
  const std::vector<float> b = Amplitudes(r, 1, kStrikeB);
  ASSERT_EQ(b.size(), 3u);
  EXPECT_NEAR(b[0], 1.0f / 3, 1e-6);
  EXPECT_NEAR(b[1], -1.0f / 6, 1e-6);
  EXPECT_NEAR(b[2], -1.0f / 6, 1e-6);
}

// Two FLDACQ depths; the second has no B strike, and the means taken off at reading go back in.
void FillFldacqStore(SeismicStore& s) {
  s.Reset();
  s.AcquisitionFamily = kFldacqFamily;
  s.TestCount = 2;
  for (int i = 1; i <= 2; ++i) {
    s.TestFile[i] = "/d/SCPTD03_00" + std::to_string(i);
    for (int n = 1; n <= 51; ++n)
      s.HeaderLine(i, n) = n == 2 ? "Seismic Cone Test" : "line " + std::to_string(n);
    s.HeaderLine(i, 52) = i == 1 ? "6.56 => Depth (ft)" : "13.12 => Depth (ft)";
    s.TestDepth[i] = i == 1 ? 2.0f : 4.0f;
    SetStrike(s, i, kStrikeA, {0.001f, -0.002f, 0.003f, -0.002f}, 0.05f);
    SetStrike(s, i, kStrikeP, {0.0005f, 0.0f, -0.0005f, 0.0f}, 0.05f);
    s.StrikeMeanRemoved[kStrikeA][i] = 0.01f;
    s.StrikeMeanRemoved[kStrikeP][i] = -0.02f;
  }
  SetStrike(s, 1, kStrikeB, {-0.001f, 0.002f, 0.0f, -0.001f}, 0.05f);
}

TEST(FldacqWriter, MatchesTheReferenceAndReadsBackWithoutItsLastLine) {
  SeismicStore& s = Written();
  FillFldacqStore(s);
  const std::vector<RenderedFile> files = RenderFldacqFiles(s);
  ASSERT_EQ(files.size(), 2u);
  EXPECT_EQ(files[0].name, "/d/SCPTD03(a)_001");
  ExpectGolden(files[0].bytes, "seismic/fldacq.expected.txt");
  EXPECT_NE(files[1].bytes.find(" +0.000000E+000\r\n"), std::string::npos);

  SeismicStore& r = Reread();
  ScriptedPrompts prompts;
  ASSERT_TRUE(ReadFldacqFiles({{files[0].name, files[0].bytes}, {files[1].name, files[1].bytes}}, "SCPT",
                              kFeetPerMetre, r, prompts));
  ASSERT_EQ(r.TestCount, 2);
  for (int i = 1; i <= 2; ++i) {
    EXPECT_NEAR(r.TestDepth[i], s.TestDepth[i], 2e-3);
    EXPECT_EQ(r.HasStrike(kStrikeB, i), s.HasStrike(kStrikeB, i));
    // The field files end with a line that is never data, so the last sample written is lost.
    ASSERT_EQ(r.SampleCount[StrikeSlot(kStrikeA, i)], 3);
    for (int16_t kind : kStrikeKinds) {
      if (!s.HasStrike(kind, i)) continue;
      const int slot = StrikeSlot(kind, i);
      for (int k = 1; k <= 3; ++k) {
        EXPECT_NEAR(r.StrikeTime(slot, k), s.StrikeTime(slot, k), 1e-4);
        // What was written is the volts of the field file: the wave with its mean.
        EXPECT_NEAR(r.StrikeAmplitude(slot, k) + r.StrikeMeanRemoved[static_cast<size_t>(kind)][i],
                    s.StrikeAmplitude(slot, k) + s.StrikeMeanRemoved[static_cast<size_t>(kind)][i], 1e-6)
            << "test " << i << " kind " << kind << " sample " << k;
      }
    }
  }
}

class SaveFlow : public ::testing::Test {
 protected:
  TempDirectory folder;
  ScriptedPrompts prompts;
};

TEST_F(SaveFlow, AddsTheExtensionAndAsksBeforeReplacingAFile) {
  SeismicStore& s = Written();
  FillSeiStore(s);
  const std::string target = folder.File("OUT.sei");
  prompts.Script({folder.File("OUT")});
  EXPECT_EQ(SaveSeismicData(s, "SCPT.SEI", prompts), SeismicSaveOutcome::kSaved);
  EXPECT_EQ(prompts.LastFileRequest().filter, "*.sei|*.sei");
  EXPECT_EQ(prompts.LastFileRequest().default_name, "SCPT.SEI");
  EXPECT_EQ(ReadWholeFile(target), RenderSeiFile(s));

  // No returns to the dialog; a cancel there leaves the file as it was.
  folder.Write("OUT.sei", "old");
  prompts.Script({target, "No", ""});
  EXPECT_EQ(SaveSeismicData(s, "SCPT.SEI", prompts), SeismicSaveOutcome::kCancelled);
  EXPECT_EQ(ReadWholeFile(target), "old");
  prompts.Script({target, "Yes"});
  EXPECT_EQ(SaveSeismicData(s, "SCPT.SEI", prompts), SeismicSaveOutcome::kSaved);
  EXPECT_EQ(ReadWholeFile(target), RenderSeiFile(s));
  EXPECT_EQ(prompts.Texts(), (std::vector<std::string>{"? File already exists!  Overwrite? -> No",
                                                       "? File already exists!  Overwrite? -> Yes"}));
}

TEST_F(SaveFlow, AFailedSaveIsToldAndLogsAndFldacqSeriesGoBesideTheirTests) {
  SeismicStore& s = Written();
  FillSmcStore(s, "Kestrelmoor Seismic File");
  prompts.Script({folder.File("missing/OUT.SMC")});
  EXPECT_EQ(SaveSeismicData(s, "OUT.SMC", prompts), SeismicSaveOutcome::kFailed);
  EXPECT_EQ(prompts.Texts(),
            std::vector<std::string>{
                "! Marlview has encountered an error: Error #76: 'Path not found' from 'SaveSeismicData'"});

  prompts.ClearLog();
  s.AcquisitionFamily = kSlgFamily;
  EXPECT_EQ(SaveSeismicData(s, "LOG.SLG", prompts), SeismicSaveOutcome::kNothingToSave);
  EXPECT_TRUE(prompts.Log().empty());

  FillFldacqStore(s);
  s.TestFile[1] = folder.File("SCPT-001");
  s.TestFile[2] = folder.File("SCPT-002");
  EXPECT_EQ(SaveSeismicData(s, "SCPT-001", prompts), SeismicSaveOutcome::kSaved);
  EXPECT_EQ(prompts.Texts(), std::vector<std::string>{std::string("! ") + kFldacqSaveNotice});
  EXPECT_TRUE(FileExists(folder.File("SCPT(a)-001")));
  EXPECT_TRUE(FileExists(folder.File("SCPT(a)-002")));
}

class Combine : public ::testing::Test {
 protected:
  void SetUp() override {
    std::vector<SeiRecord> records = {SeiTest("001.00 m", "A(SGEO1)B(SGEO2)", 4),
                                      SeiTest("002.00 m", "A(SGEO1)", 4)};
    records[1].arrival = "    2A";
    t.data.Write("FIRST.SEI", SeiFile(records));
    ReadSeiFile(SeiFile(records), t.data.File("FIRST.SEI"), "FIRST.SEI", t.session->Seismic());
    SeiRecord second = SeiTest("000.50 m", "B(SGEO2)Z(PGEO)", 3);
    second.raws[0] = {32768, 36864, 28672};
    second.arrival = "    1B";
    t.data.Write("SECOND.SEI", SeiFile({second, SeiTest("001.50 m", "A(SGEO1)", 3)}));
  }
  TestSession t;
};

TEST_F(Combine, AddsTheSecondFilesTestsBelowTheOffset) {
  ASSERT_TRUE(CombineSeismicFile(*t.session, t.prompts, true, t.data.File("SECOND.SEI"), "10"));
  const SeismicStore& s = t.session->Seismic();
  ASSERT_EQ(s.TestCount, 4);
  EXPECT_FLOAT_EQ(s.TestDepth[3], 10.5f);
  EXPECT_FLOAT_EQ(s.TestDepth[4], 11.5f);
  EXPECT_EQ(s.TestFile[3], t.data.File("SECOND.SEI"));
  EXPECT_EQ(s.ArrivalFromFile[2], 2);
  EXPECT_EQ(s.ArrivalFromFile[3], 1);
  EXPECT_EQ(s.ArrivalKind[3], kStrikeB);
  EXPECT_TRUE(s.HasStrike(kStrikeP, 3));
  EXPECT_FALSE(s.HasStrike(kStrikeA, 3));
  EXPECT_NEAR(s.StrikeAmplitude(StrikeSlot(kStrikeB, 3), 2), 0.0625f, 1e-6);
  EXPECT_TRUE(t.prompts.Log().empty());
}

TEST_F(Combine, RefusalsChangeNothing) {
  SeismicStore& s = t.session->Seismic();
  EXPECT_FALSE(CombineSeismicFile(*t.session, t.prompts, true, t.data.File("SECOND.SEI"), "-1"));
  std::string other = SeiFile({SeiTest("001.00 m", "A", 3)});
  other.replace(other.find("3 => Channels"), 1, "4");
  t.data.Write("OTHER.SEI", other);
  EXPECT_FALSE(CombineSeismicFile(*t.session, t.prompts, true, t.data.File("OTHER.SEI"), "1"));
  EXPECT_EQ(s.TestCount, 2);
  EXPECT_EQ(t.prompts.Texts(),
            (std::vector<std::string>{
                "! OFFSET CANNOT BE NEGATIVE",
                "! The number of channels in the two files do not match. The two files cannot be combined"}));
  EXPECT_FAILURE(CombineSeismicFile(*t.session, t.prompts, true, t.data.File("NONE.SEI"), "1"),
                 kErrFileNotFound, "AppendSeiFile");
}

TEST_F(Combine, TheOffsetIsInFeetInFeetModeAndA181stTestIsRefusedOnRange) {
  t.session->DepthUnitIsMetric = 0;
  ASSERT_TRUE(CombineSeismicFile(*t.session, t.prompts, true, t.data.File("SECOND.SEI"), "10"));
  SeismicStore& s = t.session->Seismic();
  EXPECT_NEAR(s.TestDepth[3], 0.5 + 10 / kFeetPerMetre, 1e-4);
  // 4 tests and 177 more reach test 181, past the store's bound: the store keeps its 4.
  t.data.Write("MANY.SEI", SeiFile(std::vector<SeiRecord>(177, SeiTest("005.00 m", "A", 2))));
  EXPECT_FAILURE(CombineSeismicFile(*t.session, t.prompts, true, t.data.File("MANY.SEI"), "0"), kErrSubscript,
                 "AppendSeiFile");
  EXPECT_EQ(s.TestCount, 4);
  t.data.Write("FULL.SEI", SeiFile(std::vector<SeiRecord>(176, SeiTest("005.00 m", "A", 2))));
  ASSERT_TRUE(CombineSeismicFile(*t.session, t.prompts, true, t.data.File("FULL.SEI"), "0"));
  EXPECT_EQ(s.TestCount, 180);
}

TEST(CombineSmc, TheSecondFileReadsWithItsOwnVersionBiasAndScale) {
  TestSession t;
  SmcRecord first;
  first.text = "A2048204820482048B2048204820482048";
  first.end = 5;
  ReadSmcFile(SmcFile({first}), "/d/FIRST.SMC", "FIRST.SMC", t.session->Seismic());
  // A legacy file whose table says bias 1000 and scale 500: raw 1500 is 1.0 before the mean goes.
  std::string legacy = LegacySmcFile({{"001.00 m", "0", "4", "3", "0", "1000150010005000"}});
  legacy.replace(legacy.find("2048"), 4, "1000");
  legacy.replace(legacy.find("2048"), 4, " 500");
  t.data.Write("SECOND.SMC", legacy);
  ASSERT_TRUE(CombineSeismicFile(*t.session, t.prompts, false, t.data.File("SECOND.SMC"), "3"));
  const SeismicStore& s = t.session->Seismic();
  ASSERT_EQ(s.TestCount, 2);
  EXPECT_EQ(s.AmplitudeBias, 2048);
  EXPECT_EQ(s.header.PXTitle, "TITLE");
  EXPECT_FLOAT_EQ(s.TestDepth[2], 4.0f);
  EXPECT_FLOAT_EQ(s.SampleInterval[2], 0.2f);
  EXPECT_EQ(s.ArrivalFromFile[2], 3);
  const std::vector<float> a = Amplitudes(s, 2, kStrikeA);
  ASSERT_EQ(a.size(), 4u);
  EXPECT_NEAR(a[1] - a[0], 1.0f, 1e-6);
  EXPECT_NEAR(a[3] - a[0], 8.0f, 1e-6);
}

}  // namespace
}  // namespace marlview::test
