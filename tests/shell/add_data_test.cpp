// Channels added from text files.
#include <gtest/gtest.h>

#include "core/shell/add_data.h"
#include "support/test_support.h"

namespace marlview {
namespace {

class AddDataTest : public ::testing::Test {
 protected:
  // A sounding of 10 readings, 0.1 m to 1.0 m.
  AddDataTest() {
    SoundingStore& s = t.session->Sounding();
    s.ReadingCount = 10;
    s.ChannelCount = s.TotalChannels = 3;
    s.DepthInterval = 0.1f;
    for (int r = 1; r <= 10; ++r) s.DepthTable(r, 1) = 0.1f * static_cast<float>(r);
  }
  float Value(int r, int c, int kind = kGraphOutput) {
    return t.session->Sounding().AlignedReadings(r, KindColumn(c, kind));
  }

  test::TestSession t;
};

TEST_F(AddDataTest, StrFilesAreInterpolatedBetweenSuccessivePairs) {
  const std::string file = "str,Moisture Content,MC,(%),lab\r\n0.15, 20\r\n0.55, 40\r\n0.75,30\r\n";
  ASSERT_EQ(AddChannelFromText(*t.session, file, "/lab/mc.txt", t.prompts), 4);
  const SoundingStore& s = t.session->Sounding();
  EXPECT_EQ(s.TotalChannels, 4);
  EXPECT_EQ(s.ChannelName[4], "Moisture Content");
  EXPECT_EQ(s.ChannelUnitLabel[4][kCorOutput], "(%)");
  EXPECT_EQ(Value(1, 4), 0) << "above the first depth";
  EXPECT_NEAR(Value(2, 4), 22.5, 1e-4);
  EXPECT_NEAR(Value(5, 4, kCsvOutput), 37.5, 1e-4);
  EXPECT_NEAR(Value(7, 4), 32.5, 1e-4);
  EXPECT_EQ(Value(8, 4), 0) << "within one interval past the last depth";
  EXPECT_EQ(Value(9, 4), -32768);
  EXPECT_FLOAT_EQ(s.ChannelDataStart[4], 0.15f);
  EXPECT_FLOAT_EQ(s.ChannelDataEnd[4], 0.75f);
}

TEST_F(AddDataTest, StepFilesHoldAValueOverEachRangeAndTheLaterRangeWins) {
  const std::string file =
      "step\r\nSeismic Velocity\r\nSeismic Velocity\r\n(m/s)\r\nDepth1(m) Depth2(m) velocity(m/s)\r\n"
      "     0.20      0.40        150.00\r\n     0.40      0.60        210.00\r\n";
  ASSERT_EQ(AddChannelFromText(*t.session, file, "/seis/SCPT-A01.vss", t.prompts), 4);
  EXPECT_EQ(t.session->Sounding().ChannelCurveStyle[4], 1);
  EXPECT_EQ(Value(1, 4), 0);
  EXPECT_FLOAT_EQ(Value(2, 4), 150);
  EXPECT_FLOAT_EQ(Value(4, 4), 210);
  EXPECT_FLOAT_EQ(Value(6, 4), 210);
  EXPECT_EQ(Value(7, 4), -32768);

  t.session->DepthUnitIsMetric = 0;
  ASSERT_EQ(AddChannelFromText(*t.session, file, "/seis/SCPT-A01.VSS", t.prompts), 5);
  EXPECT_EQ(t.session->Sounding().ChannelUnitLabel[5][kGraphOutput], "(ft/s)");
  EXPECT_NEAR(Value(2, 5), 150 * kFeetPerMetre, 1e-3);
}

TEST_F(AddDataTest, OtherFilesAreRefusedOrFail) {
  EXPECT_EQ(AddChannelFromText(*t.session, "depth,value\r\n1,2\r\n", "/x.csv", t.prompts), 0);
  EXPECT_EQ(AddChannelFromText(*t.session, "", "/empty.txt", t.prompts), 0);
  EXPECT_EQ(t.prompts.Log(), (std::vector<std::string>{"! Not a valid file.", "! Not a valid file."}));
  EXPECT_FAILURE(AddChannelFromText(*t.session, "str,A,A,(m),x\r\n0.1,abc\r\n", "/a.txt", t.prompts),
                 kErrTypeMismatch, "mnuAddData_Click");
  EXPECT_FAILURE(AddChannelFromText(*t.session, "str,A,A,(m),x\r\n0.1\r\n", "/a.txt", t.prompts),
                 kErrPastEndOfFile, "mnuAddData_Click");
  EXPECT_EQ(t.session->Sounding().TotalChannels, 3) << "a file that fails adds nothing";
  t.session->Sounding().TotalChannels = kMaxChannels;
  EXPECT_FAILURE(AddChannelFromText(*t.session, "str,A,A,(m),x\r\n", "/a.txt", t.prompts), kErrSubscript,
                 "mnuAddData_Click");
}

}  // namespace
}  // namespace marlview
