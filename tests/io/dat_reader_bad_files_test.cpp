// The DAT reader on the files a field crew can also produce: each ends in the program's own words,
// and a read that fails leaves the sounding that was open as it was.
#include <gtest/gtest.h>

#include "core/io/dat_reader.h"
#include "support/test_support.h"

namespace marlview {
namespace {

using test::SimpleDat;

std::string Join(const std::vector<std::string>& lines, size_t count = std::string::npos) {
  std::string bytes;
  for (size_t i = 0; i < lines.size() && i < count; ++i) bytes += lines[i] + "\r\n";
  return bytes;
}

class BadDatFileTest : public ::testing::Test {
 protected:
  BadDatFileTest() {
    t.data.Write("GOOD.DAT", SimpleDat(5).Bytes());
    EXPECT_EQ(Open("GOOD.DAT"), ReadOutcome::kLoaded);
  }

  ReadOutcome Open(const std::string& name) {
    return OpenDatSounding(*t.session, t.prompts, t.data.File(name));
  }
  ReadOutcome OpenBytes(const std::string& bytes) {
    t.data.Write("BAD.DAT", bytes);
    return Open("BAD.DAT");
  }
  void ExpectGoodSoundingStillOpen() {
    const SoundingStore& s = t.session->Sounding();
    EXPECT_EQ(s.SoundingFileName, "GOOD.DAT");
    EXPECT_EQ(s.ReadingCount, 5);
    EXPECT_EQ(s.TipChannel, 1);
  }

  test::TestSession t;
};

TEST_F(BadDatFileTest, AFileWithoutTheTestLineIsRefused) {
  EXPECT_EQ(OpenBytes("Survey notes\r\nNothing to see here\r\nat all\r\n"), ReadOutcome::kRefused);
  EXPECT_EQ(t.prompts.Log(), std::vector<std::string>{"! BAD.DAT is not a valid DAT file"});
  ExpectGoodSoundingStillOpen();
}

TEST_F(BadDatFileTest, AShortDataLineIsDiscardedAndReadingGoesOn) {
  std::vector<std::string> lines = SimpleDat(4).Lines();
  lines[lines.size() - 3].resize(40);
  EXPECT_EQ(OpenBytes(Join(lines)), ReadOutcome::kLoaded);
  EXPECT_EQ(t.prompts.Log(),
            std::vector<std::string>{"! An invalid dataline has been detected. This line will be discarded."});
  const SoundingStore& s = t.session->Sounding();
  EXPECT_EQ(s.ReadingCount, 3);
  EXPECT_FLOAT_EQ(s.DepthTable(2, 1), 0.06f) << "the reading after the bad line takes its place";
}

TEST_F(BadDatFileTest, FailuresEndTheReadWithTheGeneralErrorAndKeepTheOpenSounding) {
  const std::vector<std::string> good = SimpleDat(3).Lines();
  const size_t baseline_row = 39;  // "Baseline      " in a file with the water table line
  ASSERT_TRUE(good[baseline_row - 1].starts_with("Baseline"));

  std::vector<std::string> letters = good;
  letters[letters.size() - 2].replace(20, 5, "x.y.z");
  std::vector<std::string> bad_depth = good;
  bad_depth.back().replace(0, 9, "   1.2O00");
  std::vector<std::string> bad_cell = good;
  bad_cell[baseline_row - 1].replace(20, 3, "N/A");
  std::vector<std::string> overflow = good;
  overflow.back().replace(10, 18, "+1.0000000000E+099");

  const struct {
    const char* what;
    std::string bytes;
    int number;
  } cases[] = {
      {"non-numeric field", Join(letters), kErrTypeMismatch},
      {"non-numeric depth", Join(bad_depth), kErrTypeMismatch},
      {"non-numeric table cell", Join(bad_cell), kErrTypeMismatch},
      {"value beyond a 32-bit float", Join(overflow), kErrOverflow},
      {"truncated inside the header", Join(good, 20), kErrPastEndOfFile},
      {"truncated inside the channel table", Join(good, baseline_row + 3), kErrPastEndOfFile},
      {"empty file", "", kErrPastEndOfFile},
      {"a 10001st reading", SimpleDat(kMaxReadings + 1).Bytes(), kErrSubscript},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    EXPECT_FAILURE(OpenBytes(c.bytes), c.number, "OpenDatSounding");
    ExpectGoodSoundingStillOpen();
  }
  EXPECT_FAILURE(Open("MISSING.DAT"), kErrFileNotFound, "OpenDatSounding");
  EXPECT_TRUE(t.prompts.Log().empty());
}

TEST_F(BadDatFileTest, ChannelsBeyondAHundredFail) {
  test::DatFile file = SimpleDat(0);
  file.channels.resize(101, test::DatChannel{.sensor = "Spare"});
  EXPECT_FAILURE(OpenBytes(file.Bytes()), kErrSubscript, "OpenDatSounding");
  // A hundred measured channels fit the table but leave no room for the derived ones.
  file.channels.resize(100);
  EXPECT_FAILURE(OpenBytes(file.Bytes()), kErrSubscript, "ComputeDerivedChannels");
  ExpectGoodSoundingStillOpen();
  file.channels.resize(80);
  EXPECT_EQ(OpenBytes(file.Bytes()), ReadOutcome::kLoaded);
  EXPECT_EQ(t.session->Sounding().TotalChannels, 80 + 18);
}

}  // namespace
}  // namespace marlview
