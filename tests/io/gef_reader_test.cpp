// The GEF sounding reader: the public field files, the column layout and voids, the refusals, and
// a derived channel that must not read a missing reading.
#include "core/io/gef_reader.h"

#include <gtest/gtest.h>

#include "core/common/file_access.h"
#include "support/test_support.h"

namespace marlview {
namespace {

std::string Gef(const std::vector<std::string>& header, const std::vector<std::string>& records) {
  std::string bytes;
  for (const auto& line : header) bytes += line + "\r\n";
  bytes += "#EOH=\r\n";
  for (const auto& line : records) bytes += line + "\r\n";
  return bytes;
}

class GefReaderTest : public ::testing::Test {
 protected:
  SoundingStore& store() { return t.session->SpareStore(); }
  ReadOutcome Read(const std::string& bytes, const std::string& name = "S01.gef") {
    return ReadGefSounding(bytes, "/field/" + name, *t.session, store(), t.prompts);
  }
  ReadOutcome ReadPublic(const std::string& name) {
    return Read(ReadWholeFile(test::TestDataPath("gef/" + name)), name);
  }
  float Kpa(int r, int c) { return store().AlignedFixedPressure[2](r, c); }

  test::TestSession t;
};

TEST_F(GefReaderTest, PublicSoundingsOpenWithTheirChannelsAndVoids) {
  struct Case {
    const char* file;
    int readings, channels;
    float start_depth, max_depth;
  };
  const Case cases[] = {{"cpt.gef", 1004, 9, 0, 20.05f},
                        {"cpt3.gef", 5939, 2, 0.005f, 29.695f},
                        {"example.gef", 1484, 8, 0, 29.66f},
                        {"test-artf52193cpt.gef", 586, 24, 0.3f, 12},
                        {"20151020vbCPT1.GEF", 586, 24, 0.3f, 12}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.file);
    ASSERT_EQ(ReadPublic(c.file), ReadOutcome::kLoaded) << testing::PrintToString(t.prompts.Texts());
    EXPECT_EQ(store().AcquisitionFamily, kGefFamily);
    EXPECT_EQ(store().ReadingCount, c.readings);
    EXPECT_EQ(store().ChannelCount, c.channels);
    EXPECT_FLOAT_EQ(store().StartDepth, c.start_depth);
    EXPECT_FLOAT_EQ(store().MaxDepth, c.max_depth);
    EXPECT_EQ(store().ChannelName[store().TipChannel], "Tip Resistance (Qc)");
  }
  EXPECT_TRUE(t.prompts.Texts().empty());

  // cpt.gef: the first record is void but for its depths; its tip of 0.013 MPa is 13 kPa.
  ASSERT_EQ(ReadPublic("cpt.gef"), ReadOutcome::kLoaded);
  EXPECT_TRUE(store().IsMissing(1, store().TipChannel));
  EXPECT_FLOAT_EQ(store().AlignedReadings(1, store().TipChannel), 0);
  EXPECT_FLOAT_EQ(Kpa(2, store().TipChannel), 13);
  EXPECT_EQ(store().GefNetAreaRatio, 0.8);
  EXPECT_EQ(store().TestDate, "2019-01-29");
  EXPECT_EQ(store().StartTime, "10:43:50");
  EXPECT_EQ(store().GpsLon, "79578.38");

  // cpt3.gef counts its length negative downwards.
  ASSERT_EQ(ReadPublic("cpt3.gef"), ReadOutcome::kLoaded);
  EXPECT_TRUE(store().DepthReversed);
  EXPECT_NEAR(store().DepthInterval, 0.005, 1e-6);

  ASSERT_EQ(ReadPublic("test-artf52193cpt.gef"), ReadOutcome::kLoaded);
  ASSERT_EQ(store().GefChildren.size(), 1u);
  EXPECT_EQ(store().GefChildren[0].file, "test-artf52193dis.gef");
  EXPECT_EQ(store().GefChildren[0].depth, 5.99);
}

TEST_F(GefReaderTest, PublicFilesThatAreNoSoundingAreRefused) {
  EXPECT_EQ(ReadPublic("cpt_pre_excavated.gef"), ReadOutcome::kRefused);
  EXPECT_EQ(ReadPublic("example_diss.gef"), ReadOutcome::kRefused);
  EXPECT_EQ(
      t.prompts.Texts(),
      (std::vector<std::string>{"! cpt_pre_excavated.gef: line 4: unit \"kN\" of column 2 is not a pressure "
                                "unit (MPa, kPa, MN/m2, kN/m2)",
                                "! example_diss.gef is a dissipation file"}));
}

// Columns in an order of their own, voids that are plausible numbers, and a void depth.
TEST_F(GefReaderTest, ColumnsAreTakenByQuantityAndVoidsByValue) {
  const std::string bytes = Gef(
      {"#REPORTCODE= GEF-CPT-Report, 1, 1, 2", "#COLUMN= 4", "#COLUMNSEPARATOR= ;", "#RECORDSEPARATOR= !",
       "#COLUMNINFO= 1, kPa, u2, 6", "#COLUMNINFO= 2, m, length, 1", "#COLUMNINFO= 4, MPa, qc, 2",
       "#COLUMNVOID= 1, 0.000", "#COLUMNVOID= 2, 9.9990e+003", "#MEASUREMENTVAR= 14, 1.20, m, groundwater"},
      {"15.5;0.50;7;1.25;!", "0.0;0.52;7;1.50;! remark", "16.0;9999.000000;7;1.75;!", "17.0;0.54;7;2.00;!"});
  ASSERT_EQ(Read(bytes), ReadOutcome::kLoaded) << testing::PrintToString(t.prompts.Texts());
  const SoundingStore& s = store();
  // Column 3 has no declaration: no channel. The void depth's record is gone.
  EXPECT_EQ(s.ChannelCount, 2);
  EXPECT_EQ(s.ReadingCount, 3);
  EXPECT_EQ(s.PorePressureChannel, 1);
  EXPECT_EQ(s.TipChannel, 2);
  EXPECT_FLOAT_EQ(s.DepthTable(3, 1), 0.54f);
  EXPECT_FLOAT_EQ(Kpa(3, 2), 2000);
  EXPECT_TRUE(s.IsMissing(2, 1));
  EXPECT_FALSE(s.IsMissing(1, 1));
  EXPECT_FLOAT_EQ(Kpa(1, 1), 15.5f);
  EXPECT_FLOAT_EQ(s.RawReadings(2, 1), 0);
  EXPECT_FLOAT_EQ(s.WaterTableDepth, 1.2f);
  EXPECT_EQ(s.GefColumns[1].missing_count, 1);
}

// qc 2, 3, 4 MPa; fs 20 kPa, void, 40 kPa; u2 100, 200 kPa, void; the cone's own ratio 0.75.
TEST_F(GefReaderTest, ADerivedChannelIsZeroWhereAnInputIsMissing) {
  const std::string bytes =
      Gef({"#REPORTCODE= GEF-CPT-Report", "#COLUMN= 4", "#COLUMNINFO= 1, m, length, 1",
           "#COLUMNINFO= 2, MPa, qc, 2", "#COLUMNINFO= 3, kPa, fs, 3", "#COLUMNINFO= 4, kPa, u2, 6",
           "#COLUMNVOID= 3, -9999", "#COLUMNVOID= 4, -9999", "#MEASUREMENTVAR= 3, 0.75, -, net area ratio"},
          {"1.00 2.000 20 100", "1.02 3.000 -9999 200", "1.04\t4.000\t40\t-9999"});
  ASSERT_EQ(Read(bytes), ReadOutcome::kLoaded);
  const SoundingStore& s = store();
  const int qt = s.TipQtChannel, ratio = s.FrictionRatioQcChannel, zone = s.Sbt90QtChannel;
  // Qt = qc + (1 - 0.75) u2: 2025 and 3050 kPa; nothing where u2 is missing.
  EXPECT_FLOAT_EQ(Kpa(1, qt), 2025);
  EXPECT_FLOAT_EQ(Kpa(2, qt), 3050);
  EXPECT_FLOAT_EQ(Kpa(3, qt), 0);
  EXPECT_FLOAT_EQ(s.AlignedReadings(3, KindColumn(qt, kCsvOutput)), 0);
  // Fs/Qc = 100 x 40 / 4000 = 1 %, and 0 without its sleeve reading.
  EXPECT_FLOAT_EQ(s.AlignedReadings(3, ratio), 1);
  EXPECT_FLOAT_EQ(s.AlignedReadings(2, ratio), 0);
  EXPECT_FLOAT_EQ(s.AlignedReadings(2, zone), 0);
  EXPECT_FLOAT_EQ(s.AlignedFixedPressure[0](2, zone), -99);
  // The missing reading itself is not a derived value: the mask says so, not a number.
  EXPECT_FALSE(s.IsMissing(2, qt));
  EXPECT_FLOAT_EQ(t.session->general.NetAreaRatio, 0.8f);
}

// 2 cm in 2 s is 1 cm/s; a clock that stands or a missing time gives no speed, and the slow row
// takes the mean of its neighbours as the PX DAS speeds do.
TEST_F(GefReaderTest, PushSpeedComesFromTheTimeColumn) {
  const std::string bytes =
      Gef({"#REPORTCODE= GEF-CPT-Report", "#COLUMNINFO= 1, m, length, 1", "#COLUMNINFO= 2, MPa, qc, 2",
           "#COLUMNINFO= 3, s, time, 12", "#COLUMNVOID= 3, -1"},
          {"1.00 2 10", "1.02 2 12", "1.04 2 12", "1.06 2 -1"});
  ASSERT_EQ(Read(bytes), ReadOutcome::kLoaded);
  const SoundingStore& s = store();
  // Depths are 32-bit: a thousandth of a millimetre per second is the tolerance.
  EXPECT_NEAR(s.PushSpeed[1], 1, 1e-5);
  EXPECT_NEAR(s.PushSpeed[2], 1, 1e-5);
  EXPECT_FLOAT_EQ(s.PushSpeed[3], 0);
  EXPECT_FLOAT_EQ(s.PushSpeed[4], 0);
  const int speed = s.TotalChannels;
  ASSERT_EQ(s.ChannelName[speed], "Push Speed");
  EXPECT_NE(s.ChannelName[speed - 1], "Time");
  EXPECT_NEAR(s.AlignedReadings(3, speed), 0.5, 1e-5);
}

TEST_F(GefReaderTest, RefusalsNameTheFileAndLine) {
  const std::vector<std::string> columns = {"#COLUMN= 2", "#COLUMNINFO= 1, m, length, 1",
                                            "#COLUMNINFO= 2, MPa, qc, 2"};
  auto with = [&columns](std::vector<std::string> extra) {
    extra.insert(extra.end(), columns.begin(), columns.end());
    return extra;
  };
  const std::string code = "#REPORTCODE= GEF-CPT-Report";
  struct Case {
    std::string bytes, message;
  };
  const Case cases[] = {
      {"#REPORTCODE= GEF-CPT-Report\r\n0.1 1\r\n", "S01.gef: no #EOH line: not a GEF file"},
      {Gef(columns, {"0.1 1"}), "S01.gef: no #REPORTCODE or #PROCEDURECODE line"},
      {Gef(with({"#PROCEDURECODE= GEF-BORE-Report"}), {"0.1 1"}),
       "S01.gef: line 1: report code \"GEF-BORE-Report\" is neither a CPT nor a DISS report"},
      {Gef({code, "#COLUMNVOID= two, 999"}, {"0.1 1"}),
       "S01.gef: line 2: column number \"two\" is not a number"},
      {Gef({code, "#COLUMNINFO= 1, MPa, qc, 2"}, {"1"}),
       "S01.gef: no penetration length column (quantity 1)"},
      {Gef({code, "#COLUMNINFO= 1, m, length, 1"}, {"0.1"}),
       "S01.gef: no cone resistance column (quantity 2)"},
      {Gef({code, "#COLUMNINFO= 1, m, length, 1", "#COLUMNINFO= 2, bar, qc, 2"}, {"0.1 1"}),
       "S01.gef: line 3: unit \"bar\" of column 2 is not a pressure unit (MPa, kPa, MN/m2, kN/m2)"},
      {Gef(with({code}), {"0.1 1", "0.2 1 3"}), "S01.gef: line 7: 3 values where #COLUMN declares 2"},
      {Gef(with({code}), {"0.1 1,5"}), "S01.gef: line 6, column 2: \"1,5\" is not a number"},
      {Gef(with({code}), {"  ", "\t"}), "S01.gef: no data lines after #EOH"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Read(c.bytes), ReadOutcome::kRefused) << c.message;
    EXPECT_EQ(t.prompts.Texts().back(), "! " + c.message);
  }
}

TEST_F(GefReaderTest, TooManyRecordsIsTheStoresBound) {
  std::vector<std::string> records;
  for (int r = 0; r <= kMaxReadings; ++r) records.push_back(std::to_string(r) + " 1");
  const std::string bytes =
      Gef({"#REPORTCODE= GEF-CPT-Report", "#COLUMNINFO= 1, m, l, 1", "#COLUMNINFO= 2, MPa, q, 2"}, records);
  EXPECT_FAILURE(Read(bytes), kErrSubscript, "ReadGefSounding");
}

TEST_F(GefReaderTest, CorrectedDepthTakesQuantityEleven) {
  t.session->GefCorrectedDepth = true;
  ASSERT_EQ(ReadPublic("example.gef"), ReadOutcome::kLoaded);
  EXPECT_EQ(store().GefDepthColumn, 8);
  EXPECT_EQ(store().ChannelName[1], "Penetration Length");
  EXPECT_EQ(ReadPublic("cpt3.gef"), ReadOutcome::kRefused);
  EXPECT_EQ(t.prompts.Texts().back(), "! cpt3.gef: no corrected depth column (quantity 11)");
}

}  // namespace
}  // namespace marlview
