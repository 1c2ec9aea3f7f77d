// The set of soundings: loading, the ticked tests, channels by name, checks and the common grid.
#include "core/multisounding/set_model.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "core/common/file_access.h"
#include "core/common/number_format.h"
#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"
#include "core/derivation/artefacts.h"
#include "core/derivation/derived_channels.h"
#include "core/io/cpt_reader.h"
#include "core/io/dat_reader.h"
#include "core/io/gef_reader.h"
#include "core/presentation/sounding_list.h"

namespace marlview {
namespace {

// The classification chart of a channel: 83, 86 or 90, or 0 for any other channel.
int ChartOf(const SoundingStore& s, int c) {
  if (c == 0) return 0;
  if (c == s.Sbt83Channel) return 83;
  if (c == s.Sbt86FrChannel || c == s.Sbt86PpChannel) return 86;
  if (c == s.Sbt90QtChannel || c == s.Sbt90BqChannel) return 90;
  return 0;
}

bool AnyNameContains(const std::vector<std::string>& names, std::string_view word) {
  return std::any_of(names.begin(), names.end(), [word](const std::string& n) { return ContainsNoCase(n, word); });
}

// The checks both commands start with.
bool CheckCommon(const Session& session, const std::vector<std::string>& channels, UserPrompts& prompts) {
  if (channels.empty()) {
    prompts.Tell("Please select at least one channel to plot");
    return false;
  }
  const size_t tests = SelectedTests(session).size();
  if (tests == 0) {
    prompts.Tell("PLEASE SELECT AT LEAST ONE TEST");
    return false;
  }
  if (tests > kMaxSetSelection) {
    prompts.Tell("A MAXIMUM OF 6 TESTS CAN BE SELECTED");
    return false;
  }
  return true;
}

// While it lives the pipeline derives as for a sounding opened alone; the set's view comes back
// after, also when a read fails.
class SingleSoundingRules {
 public:
  explicit SingleSoundingRules(Session& session)
      : session_(session), combined_(std::exchange(session.CombinedModeActive, false)) {}
  ~SingleSoundingRules() { session_.CombinedModeActive = combined_; }
  SingleSoundingRules(const SingleSoundingRules&) = delete;
  SingleSoundingRules& operator=(const SingleSoundingRules&) = delete;

 private:
  Session& session_;
  bool combined_;
};

bool CheckInterval(const Session& session, UserPrompts& prompts) {
  if (session.set.CommonDepthInterval > 0) return true;
  prompts.Tell("DEPTH INTERVAL MUST BE GREATER THAN 0");
  return false;
}

}  // namespace

SetLoadOutcome LoadSetFiles(Session& session, UserPrompts& prompts, const std::vector<std::string>& paths,
                            const SetLoadAnswers& answers) {
  if (session.set.tests.size() + paths.size() > static_cast<size_t>(kMaxSetTests)) {
    prompts.Tell("MORE THAN 30 TESTS HAVE BEEN LOADED AND SELECTED");
    return SetLoadOutcome::kRefused;
  }
  // The start depth and spike questions are asked once for the whole load.
  session.StartDepthAnswer = -1;
  session.RemoveSpikesAnswer = -1;
  // A file is read as its own sounding, rows and time stamps intact, whatever the set's mode: its
  // push speed is derived here once, so its batch exports are those of the sounding opened alone.
  const SingleSoundingRules read_alone(session);
  for (const std::string& path : paths) {
    auto store = std::make_unique<SoundingStore>();
    ReadOutcome outcome = ReadOutcome::kRefused;
    const bool read = TellFailures(prompts, "LoadSoundings", [&] {
      const std::string bytes = ReadWholeFile(path);
      outcome = EndsWithNoCase(path, ".cpt")   ? ReadCptSounding(bytes, path, session, *store, prompts)
                : EndsWithNoCase(path, ".gef") ? ReadGefSounding(bytes, path, session, *store, prompts)
                                               : ReadDatSounding(bytes, path, session, *store, prompts);
      if (outcome == ReadOutcome::kLoaded && answers.water_table) {
        store->WaterTableDepth = static_cast<float>(*answers.water_table);
        ComputeDerivedChannels(session, *store, store->ChannelCount);
      }
    });
    if (!read || outcome != ReadOutcome::kLoaded) return SetLoadOutcome::kFailed;
    session.set.tests.push_back({std::move(store), true});
    CurrentTest current(session, static_cast<int>(session.set.tests.size()));
    if (const auto drillout = DrilloutMessage(session)) prompts.Tell(*drillout);
  }
  return SetLoadOutcome::kLoaded;
}

std::vector<int> SelectedTests(const Session& session) {
  std::vector<int> slots;
  for (size_t t = 0; t < session.set.tests.size(); ++t) {
    if (session.set.tests[t].selected) slots.push_back(static_cast<int>(t) + 1);
  }
  return slots;
}

void ClearSet(Session& session) {
  session.set.tests.clear();
  session.set.LentSlot = 0;
}

std::string TestName(const Session& session, int slot) {
  return SetStore(session, slot).SoundingFileName;
}

const SoundingStore& SetStore(const Session& session, int slot) {
  if (slot == session.set.LentSlot) return session.Sounding();
  return *session.set.tests[static_cast<size_t>(slot - 1)].store;
}

SoundingStore& SetStore(Session& session, int slot) {
  if (slot == session.set.LentSlot) return session.Sounding();
  return *session.set.tests[static_cast<size_t>(slot - 1)].store;
}

void SetSelectionMode(Session& session, int mode) {
  session.MultipleSoundingMode = static_cast<int16_t>(mode);
  session.CombinedModeActive = mode == 1 || mode == 2;
  if (!session.CombinedModeActive) DeriveSpeedsLeftEmpty(session);
}

void EndSelectionMode(Session& session) { session.CombinedModeActive = false; }

void DeriveSpeedsLeftEmpty(Session& session) {
  const SingleSoundingRules alone(session);
  for (size_t t = 0; t < session.set.tests.size(); ++t) {
    const int slot = static_cast<int>(t) + 1;
    SoundingStore& s = SetStore(session, slot);
    if (s.PushSpeedDerived) continue;
    ComputeDerivedChannels(session, s, s.ChannelCount);
  }
}

void DeriveSetAgain(Session& session) {
  for (size_t t = 0; t < session.set.tests.size(); ++t) {
    SoundingStore& s = SetStore(session, static_cast<int>(t) + 1);
    ComputeDerivedChannels(session, s, s.ChannelCount);
  }
}

void ShiftTestDepth(Session& session, int slot, int steps) {
  if (slot < 1 || slot > static_cast<int>(session.set.tests.size())) Fail(kErrSubscript, "cmdUp_Click");
  const float interval = session.set.CommonDepthInterval;
  if (!(interval > 0)) return;
  // The interval is in the session's depth unit; both columns of the depth table move together.
  const bool metric = SetDepthColumn(session) == 1;
  const float step = interval * static_cast<float>(steps);
  const float step_m = metric ? step : step / session.FeetPerMetre;
  const float step_ft = metric ? step * session.FeetPerMetre : step;
  SoundingStore& s = SetStore(session, slot);
  for (int r = 1; r <= s.ReadingCount; ++r) {
    s.DepthTable(r, 1) += step_m;
    s.DepthTable(r, 2) += step_ft;
  }
  session.set.tests[static_cast<size_t>(slot - 1)].DepthOffset += step_m;
}

std::string DepthOffsetText(const Session& session, int slot) {
  if (slot < 1 || slot > static_cast<int>(session.set.tests.size())) return FormatNumber(0.0, "##0.00");
  const double offset_m = session.set.tests[static_cast<size_t>(slot - 1)].DepthOffset;
  return FormatNumber(SetDepthColumn(session) == 1 ? offset_m : offset_m * session.FeetPerMetre, "##0.00");
}

CurrentTest::CurrentTest(Session& session, int slot) : session_(session), slot_(slot) {
  auto& store = session_.set.tests[static_cast<size_t>(slot_ - 1)].store;
  store = session_.ExchangeSounding(std::move(store));
  session_.set.LentSlot = slot_;
}

CurrentTest::~CurrentTest() {
  auto& store = session_.set.tests[static_cast<size_t>(slot_ - 1)].store;
  store = session_.ExchangeSounding(std::move(store));
  session_.set.LentSlot = 0;
}

void ForEachSelectedTest(Session& session, const std::function<void()>& body) {
  if (session.set.LentSlot != 0) Fail(kErrInvalidCall, "ForEachSelectedTest");
  for (int slot : SelectedTests(session)) {
    CurrentTest current(session, slot);
    body();
  }
}

int ChannelNamed(const SoundingStore& store, const std::string& name) {
  for (int c = 1; c <= store.TotalChannels; ++c) {
    if (store.ChannelName[c] == name) return c;
  }
  return 0;
}

std::vector<std::string> SetChannelNames(const Session& session) {
  const std::vector<int> tests = SelectedTests(session);
  if (tests.empty()) return {};
  const SoundingStore& first = SetStore(session, tests.front());
  std::vector<std::string> names;
  for (int c : AvailableChannelList(first)) names.push_back(first.ChannelName[c]);
  return names;
}

bool ToggleSetChannel(std::vector<std::string>& selected, const std::string& name, UserPrompts& prompts) {
  const auto found = std::find(selected.begin(), selected.end(), name);
  if (found != selected.end()) {
    selected.erase(found);
    return true;
  }
  if (selected.size() >= static_cast<size_t>(kMaxSetSelection)) {
    prompts.Tell("A maximum of 6 channels can be graphed at a time.");
    return false;
  }
  selected.push_back(name);
  return true;
}

bool CheckSetList(const Session& session, SetView view, const std::vector<std::string>& channels,
                  UserPrompts& prompts) {
  if (!CheckCommon(session, channels, prompts)) return false;
  if (view == SetView::kSideBySide && AnyNameContains(channels, "time")) {
    prompts.Tell("Cannot list time data in Side-By-Side data mode");
    return false;
  }
  if (view == SetView::kCombined && AnyNameContains(channels, "speed")) {
    prompts.Tell("Cannot list speed data in Combined data mode");
    return false;
  }
  return CheckInterval(session, prompts);
}

bool CheckSetPlot(const Session& session, SetView view, const std::vector<std::string>& channels,
                  UserPrompts& prompts) {
  if (!CheckCommon(session, channels, prompts)) return false;
  if (AnyNameContains(channels, "time")) {
    prompts.Tell("CANNOT PLOT TIME DATA");
    return false;
  }
  if (AnyNameContains(channels, "munsell")) {
    prompts.Tell("CANNOT PLOT MUNSELL (TEXT) DATA");
    return false;
  }
  const SoundingStore& first = SetStore(session, SelectedTests(session).front());
  int chart = 0;
  for (const std::string& name : channels) {
    const int of = ChartOf(first, ChannelNamed(first, name));
    if (of == 0) continue;
    if (chart != 0 && of != chart) {
      prompts.Tell("CANNOT PLOT SBT(83), SBT(86) and SBT(90) TOGETHER");
      return false;
    }
    if (chart == 0) chart = of;
  }
  if (view == SetView::kCombined && chart != 0) {
    prompts.Tell("CANNOT PLOT SBT(" + std::to_string(chart) + ") ON COMBINED PLOT");
    return false;
  }
  return CheckInterval(session, prompts);
}

int SetDepthColumn(const Session& session) { return session.DepthUnitIsMetric == 1 ? 1 : 2; }

std::vector<int> CommonGridRows(const SoundingStore& store, float interval, int depth_column) {
  const int readings = store.ReadingCount;
  if (readings < 1 || !(interval > 0)) return {};
  auto depth = [&](int r) { return static_cast<double>(store.DepthTable(r, depth_column)); };
  const int n = static_cast<int>(std::floor(depth(readings) / interval + 0.5));
  const double top = depth(1) - interval / 2.0;
  std::vector<int> rows(static_cast<size_t>(std::max(n, 0)), 0);
  // The depths rise down the test, so the nearest reading only moves on as the grid goes down.
  int r = 1;
  for (int j = 1; j <= n; ++j) {
    const double at = GridDepth(interval, j);
    if (at < top) continue;
    while (r < readings && std::abs(depth(r + 1) - at) < std::abs(depth(r) - at)) ++r;
    rows[static_cast<size_t>(j - 1)] = r;
  }
  return rows;
}

}  // namespace marlview
