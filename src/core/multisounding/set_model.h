// The set of soundings: loading files into its slots, the ticked tests, making a test current,
// channels matched across tests by name, the selection checks and the common depth grid.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/common/user_prompts.h"
#include "core/session/session.h"

namespace marlview {

inline constexpr int kMaxSetSelection = 6;

// What every open of the run answers the same way, given once.
struct SetLoadAnswers {
  // A water table depth (metres) put on every test, its derived channels computed again.
  std::optional<double> water_table;
};

enum class SetLoadOutcome { kLoaded, kRefused, kFailed };

// Reads the files in order into the next slots, each through the reader its extension names. More
// than 30 tests in all are refused before any file is read; a file that fails is told, and the tests
// loaded before it stay.
SetLoadOutcome LoadSetFiles(Session& session, UserPrompts& prompts, const std::vector<std::string>& paths,
                            const SetLoadAnswers& answers = {});

// The slots (1-based) of the ticked tests, in slot order.
std::vector<int> SelectedTests(const Session& session);
// cmdClearAll: the set emptied.
void ClearSet(Session& session);
// The store of a slot's test, wherever it is: in its slot, or lent to the session as current.
const SoundingStore& SetStore(const Session& session, int slot);
SoundingStore& SetStore(Session& session, int slot);
// The test's file name as the checkbox shows it.
std::string TestName(const Session& session, int slot);

// Makes the test of a slot the session's current sounding for as long as it lives, so the
// single-sounding writers and plots work on it; the sounding that was current comes back after.
class CurrentTest {
 public:
  CurrentTest(Session& session, int slot);
  ~CurrentTest();
  CurrentTest(const CurrentTest&) = delete;
  CurrentTest& operator=(const CurrentTest&) = delete;

 private:
  Session& session_;
  int slot_;
};

// Runs body with each ticked test made current in turn, as the list's rod break and density
// commands do; no test may be lent already.
void ForEachSelectedTest(Session& session, const std::function<void()>& body);

// The channel of a name in a test, 0 when the test lacks it.
int ChannelNamed(const SoundingStore& store, const std::string& name);
// The channel names to choose from: the main window's list of the first ticked test.
std::vector<std::string> SetChannelNames(const Session& session);
// Adds a name to the selected channels, or takes it out when already there; a seventh is refused
// with its message.
bool ToggleSetChannel(std::vector<std::string>& selected, const std::string& name, UserPrompts& prompts);

enum class SetView { kCombined, kSideBySide };

// The list command's checks, each told and false when it fails.
bool CheckSetList(const Session& session, SetView view, const std::vector<std::string>& channels,
                  UserPrompts& prompts);
// The plot command's checks.
bool CheckSetPlot(const Session& session, SetView view, const std::vector<std::string>& channels,
                  UserPrompts& prompts);

// The mode of the set window: 0 batch, 1 combined, 2 side by side. A combined or side-by-side mode
// works on the common grid, where a test's rows are no longer its file's: the sounding pipeline
// derives no push speed there. Back in batch mode, a test derived meanwhile gets its push speed
// again, so it is the sounding it would be opened alone.
void SetSelectionMode(Session& session, int mode);
// The set left: the several-soundings modes end with it.
void EndSelectionMode(Session& session);
// Derives again, with the single-sounding rules, every test whose push speed a combined view left
// empty; the batch export runs on tests as they would be opened alone.
void DeriveSpeedsLeftEmpty(Session& session);
// Derives every test of the set again under the session's settings now, after a setting that
// changes which channels are derived (the normalised classification).
void DeriveSetAgain(Session& session);

// cmdUp (steps -1) and cmdDown (steps +1): every depth of a slot's test moves by the common depth
// interval, shallower or deeper, and its offset with it.
void ShiftTestDepth(Session& session, int slot, int steps);
// lblDepthOffset: the slot's offset in the session's depth unit, "##0.00".
std::string DepthOffsetText(const Session& session, int slot);

// The depth unit's column of the depth table: 1 metres, 2 feet.
int SetDepthColumn(const Session& session);

// A test on the common grid of interval (in the depth unit of column): for grid row j (1-based)
// the test's reading at index j-1, 0 where the test has none there.
std::vector<int> CommonGridRows(const SoundingStore& store, float interval, int depth_column);
// The depth of grid row j.
inline float GridDepth(float interval, int j) { return interval * static_cast<float>(j); }

}  // namespace marlview
