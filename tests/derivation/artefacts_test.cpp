// Spikes, rod breaks in the push speed, and the removal of readings with its undo.
#include <gtest/gtest.h>

#include "core/derivation/artefacts.h"
#include "core/io/dat_reader.h"
#include "support/test_support.h"

namespace marlview {
namespace {

// A sounding whose tips in psi are given; sleeve and pore pressure stay flat.
test::DatFile WithTips(const std::vector<double>& tips) {
  test::DatFile file = test::SimpleDat(0);
  for (size_t r = 0; r < tips.size(); ++r) file.rows.push_back({0.02 * static_cast<double>(r + 1), tips[r], 0.002, 0.01});
  return file;
}

class ArtefactTest : public ::testing::Test {
 protected:
  int Spikes(const std::vector<double>& tips) {
    EXPECT_EQ(Read(WithTips(tips)), ReadOutcome::kLoaded);
    return CountSpikes(t.session->SpareStore());
  }
  ReadOutcome Read(const test::DatFile& file) {
    return ReadDatSounding(file.Bytes(), "/field/CPT-S01.DAT", *t.session, t.session->SpareStore(), t.prompts);
  }
  test::TestSession t;
};

TEST_F(ArtefactTest, OnlyUpwardPeaksAboveTheThresholdAreTipSpikes) {
  t.session->RemoveSpikesAnswer = 0;  // counted, not asked
  EXPECT_EQ(Spikes({100, 100, 13100, 100, 100, 100}), 0) << "a rise of exactly 13000";
  EXPECT_EQ(Spikes({100, 100, 13101, 100, 100, 100}), 1);
  EXPECT_EQ(Spikes({20000, 20000, 100, 20000, 20000, 20000}), 0) << "a dip";
  EXPECT_EQ(Spikes({100, 100, 20000, 20000, 20000, 20000}), 0) << "a rise that stays";
  // Two high rows and a fall: the first is a spike by the row two after it.
  EXPECT_EQ(Spikes({100, 100, 20000, 20000, 100, 100}), 1);
  EXPECT_EQ(Spikes({100, 20000, 100}), 0) << "fewer than four readings are not tested";
}

TEST_F(ArtefactTest, TheReaderAsksOnceAndRemovesWhenToldTo) {
  const test::DatFile file = WithTips({100, 100, 20000, 100, 100, 100});
  t.prompts.Script({"Yes"});
  ASSERT_EQ(Read(file), ReadOutcome::kLoaded);
  EXPECT_EQ(t.prompts.Texts(),
            std::vector<std::string>{"? ONE OR MORE SPIKES HAVE BEEN DETECTED IN CPT-S01.DAT. REMOVE? -> Yes"});
  const SoundingStore& s = t.session->SpareStore();
  EXPECT_FLOAT_EQ(s.RawReadings(3, s.TipChannel), 100);
  EXPECT_FLOAT_EQ(s.AlignedReadings(3, KindColumn(s.TipChannel, kCorOutput)), 100);
  ASSERT_EQ(Read(file), ReadOutcome::kLoaded);
  EXPECT_EQ(t.prompts.Texts().size(), 1u) << "one question for a run of opens";

  t.session->RemoveSpikesAnswer = -1;
  t.prompts.Script({"No"});
  ASSERT_EQ(Read(file), ReadOutcome::kLoaded);
  EXPECT_FLOAT_EQ(t.session->SpareStore().RawReadings(3, 1), 20000);
}

TEST_F(ArtefactTest, RemovalWorksTopDownSoARepairedRowFeedsTheNext) {
  t.session->RemoveSpikesAnswer = 1;
  ASSERT_EQ(Read(WithTips({100, 100, 20000, 20000, 100, 100, 100})), ReadOutcome::kLoaded);
  const SoundingStore& s = t.session->SpareStore();
  // Counted on the file, only row 3 is a spike; once it is repaired row 4 stands alone and goes too.
  for (int r = 1; r <= 7; ++r) EXPECT_FLOAT_EQ(s.RawReadings(r, s.TipChannel), 100) << r;
  EXPECT_EQ(CountSpikes(s), 0);
}

TEST_F(ArtefactTest, DrilloutIsReportedInTheSessionsDepthUnit) {
  SoundingStore& s = t.session->Sounding();
  EXPECT_EQ(DrilloutMessage(*t.session), std::nullopt);
  s.DrilloutFlag = 1;
  s.DrilloutDepth = 12.5f;
  t.session->DepthUnitIsMetric = 1;
  EXPECT_EQ(DrilloutMessage(*t.session), "DRILLOUT detected in file at 12.50 m");
  t.session->DepthUnitIsMetric = 0;
  EXPECT_EQ(DrilloutMessage(*t.session), "DRILLOUT detected in file at 41.01 ft");
}

TEST_F(ArtefactTest, InclinationSpikesCountEitherWayFromTheThirdRow) {
  test::DatFile file = test::SimpleDat(0);
  file.channels.push_back({.sensor = "Incl X", .cal = {1000, 1, 1, 0, 0}, .default_units = "deg", .display_units = "deg"});
  const double incl[] = {5, 0, 5, 5, 5, 5};
  for (int r = 0; r < 6; ++r) file.rows.push_back({0.02 * (r + 1), 100, 0.002, 0.01, incl[r]});
  t.session->RemoveSpikesAnswer = 0;
  ASSERT_EQ(Read(file), ReadOutcome::kLoaded);
  EXPECT_EQ(CountSpikes(t.session->SpareStore()), 0) << "row 2 is not tested on inclinations";
  file.rows[2][4] = -5;  // row 3 dips by 10 degrees
  ASSERT_EQ(Read(file), ReadOutcome::kLoaded);
  EXPECT_EQ(CountSpikes(t.session->SpareStore()), 1);
}

TEST(RodBreaks, AGapOfTheThresholdRaisesTheSpeedsAroundIt) {
  const std::vector<double> seconds = {0, 1, 2, 3, 4, 14, 15, 16, 17};
  std::vector<double> speed = {0, 2, 2, 2, 2, 0.1, 0.2, 2.5, 2, 0};
  speed.resize(seconds.size() + 1);
  std::vector<double> smoothed = speed;
  SmoothRodBreaks(smoothed, seconds, 8, 10);
  // The 10 s gap before row 5: rows 4 to 7 rise to the mean of rows 1 to 3, none falls.
  EXPECT_DOUBLE_EQ(smoothed[5], 2);
  EXPECT_DOUBLE_EQ(smoothed[6], 2);
  EXPECT_DOUBLE_EQ(smoothed[7], 2.5);
  std::vector<double> unchanged = speed;
  SmoothRodBreaks(unchanged, seconds, 8, 11);
  EXPECT_EQ(unchanged, speed) << "one second short of the threshold";
}

TEST_F(ArtefactTest, RemovingReadingsFillsAndUndoes) {
  t.data.Write("R.DAT", WithTips({100, 200, 300, 5000, 500, 600, 700, 800}).Bytes());
  t.session->RemoveSpikesAnswer = 0;
  ASSERT_EQ(OpenDatSounding(*t.session, t.prompts, t.data.File("R.DAT")), ReadOutcome::kLoaded);
  const SoundingStore& s = t.session->Sounding();
  auto tip = [&](int r) { return s.AlignedReadings(r, KindColumn(s.TipChannel, kGraphOutput)); };
  RemovalUndo undo;
  RemoveReadings(*t.session, 4, 4, undo);
  EXPECT_FLOAT_EQ(tip(4), (200 + 600) / 2.0f) << "from the readings two rows away";
  RemoveReadings(*t.session, 7, 2, undo);
  for (int r = 3; r <= 6; ++r) EXPECT_FLOAT_EQ(tip(r), (200 + 700) / 2.0f) << r;
  EXPECT_FLOAT_EQ(tip(7), 700);
  RemoveReadings(*t.session, 2, 2, undo);
  EXPECT_FLOAT_EQ(tip(2), 200) << "a single reading at row 2 stays";
  ASSERT_TRUE(UndoRemoveReadings(*t.session, undo));
  ASSERT_TRUE(UndoRemoveReadings(*t.session, undo));
  EXPECT_FLOAT_EQ(tip(5), 500);
  ASSERT_TRUE(UndoRemoveReadings(*t.session, undo));
  EXPECT_FLOAT_EQ(tip(4), 5000);
  EXPECT_FALSE(UndoRemoveReadings(*t.session, undo));
}

}  // namespace
}  // namespace marlview
