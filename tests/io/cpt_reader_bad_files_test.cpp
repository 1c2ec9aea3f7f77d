// The PX DAS reader on files it cannot read: each ends in the program's own words, and the
// sounding that was open stays open and whole.
#include <gtest/gtest.h>

#include "core/io/cpt_reader.h"
#include "core/shell/shell_controller.h"
#include "support/test_support.h"

namespace marlview {
namespace {

using test::CptFile;
using test::SimpleCpt;

std::string Join(const std::vector<std::string>& lines, size_t count = std::string::npos) {
  std::string bytes;
  for (size_t i = 0; i < lines.size() && i < count; ++i) bytes += lines[i] + "\r\n";
  return bytes;
}

class BadCptFileTest : public ::testing::Test {
 protected:
  BadCptFileTest() {
    t.data.Write("GOOD.CPT", SimpleCpt(5).Bytes());
    EXPECT_EQ(Open("GOOD.CPT"), ReadOutcome::kLoaded);
  }

  ReadOutcome Open(const std::string& name) { return OpenCptSounding(*t.session, t.prompts, t.data.File(name)); }
  ReadOutcome OpenBytes(const std::string& bytes) {
    t.data.Write("BAD.CPT", bytes);
    return Open("BAD.CPT");
  }
  void ExpectGoodSoundingStillOpen() {
    const SoundingStore& s = t.session->Sounding();
    EXPECT_EQ(s.SoundingFileName, "GOOD.CPT");
    EXPECT_EQ(s.ReadingCount, 5);
    EXPECT_EQ(s.TipChannel, 1);
    EXPECT_FLOAT_EQ(s.CptRawReadings(5, 1), 1050);
  }

  test::TestSession t;
};

TEST_F(BadCptFileTest, FailuresEndTheReadAndKeepTheOpenSounding) {
  const std::vector<std::string> good = SimpleCpt(3).Lines();
  auto changed = [&good](size_t line, size_t at, const std::string& text) {
    std::vector<std::string> lines = good;
    lines[line].replace(at, text.size(), text);
    return Join(lines);
  };
  CptFile wide = SimpleCpt(1);
  wide.channels.resize(21, {.name = "SPARE"});
  wide.rows[0].resize(2 + 21, 0.0);
  CptFile flat = SimpleCpt(2);
  flat.channels[1].sensitivity = 0;
  CptFile tip_ball = SimpleCpt(1);
  tip_ball.channels[0].name = "TIP BALL";

  const struct {
    const char* what;
    std::string bytes;
    int number;
  } cases[] = {
      {"empty file", "", kErrPastEndOfFile},
      {"truncated inside the header text", Join(good, 10), kErrPastEndOfFile},
      {"truncated inside the channel table", Join(good, 19), kErrPastEndOfFile},
      {"water table that is no number", changed(12, 0, "n/a"), kErrTypeMismatch},
      {"sensitivity that is no number", changed(17, 30, "x"), kErrTypeMismatch},
      {"range without its number", changed(19, 13, std::string(16, ' ') + "kPa "), kErrTypeMismatch},
      {"depth that is no number", changed(23, 2, "O"), kErrTypeMismatch},
      {"reading that is no number", changed(24, 30, "1O"), kErrTypeMismatch},
      {"reading beyond a 32-bit float", changed(25, 14, "1E+39" + std::string(14, ' ')), kErrOverflow},
      {"ball tip without its diameter", tip_ball.Bytes(), kErrTypeMismatch},
      {"channel past the twentieth", wide.Bytes(), kErrSubscript},
      {"sensitivity of zero", flat.Bytes(), kErrDivisionByZero},
      {"a 10001st reading", SimpleCpt(kMaxReadings + 1).Bytes(), kErrSubscript},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    EXPECT_FAILURE(OpenBytes(c.bytes), c.number, "OpenCptSounding");
    ExpectGoodSoundingStillOpen();
  }
  EXPECT_FAILURE(Open("MISSING.CPT"), kErrFileNotFound, "OpenCptSounding");
  EXPECT_TRUE(t.prompts.Log().empty());
}

TEST_F(BadCptFileTest, AnAnswerThatIsNoAreaEndsTheRead) {
  CptFile file = SimpleCpt(1);
  file.channels[0].name = "TIP BALL mm 36";
  t.prompts.Script({"ten"});
  EXPECT_FAILURE(OpenBytes(file.Bytes()), kErrTypeMismatch, "OpenCptSounding");
  ExpectGoodSoundingStillOpen();
}

// Through the main window: the general error text, then the choice of processing mode again.
TEST_F(BadCptFileTest, TheMainWindowShowsTheGeneralErrorAndStaysUsable) {
  ShellController controller(*t.session, t.prompts);
  std::vector<std::string> lines = SimpleCpt(3).Lines();
  lines[24].replace(30, 2, "1O");
  t.data.Write("BAD.CPT", Join(lines));
  t.prompts.Script({t.data.File("BAD.CPT")});
  controller.ChooseMode(ProcessingMode::kSounding);
  EXPECT_EQ(t.prompts.Texts(), std::vector<std::string>{"! Marlview has encountered an error: Error #13: "
                                                        "'Type mismatch' from 'OpenCptSounding'"});
  EXPECT_TRUE(controller.View().test_type_visible);
  EXPECT_FALSE(t.session->SoundingOpen);
  ExpectGoodSoundingStillOpen();

  t.prompts.ClearLog();
  t.prompts.Script({t.data.File("GOOD.CPT")});
  controller.ChooseMode(ProcessingMode::kSounding);
  EXPECT_TRUE(t.prompts.Texts().empty());
  EXPECT_TRUE(t.session->SoundingOpen);
}

}  // namespace
}  // namespace marlview
