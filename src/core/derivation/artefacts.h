// The artefacts of a sounding: spikes in single readings, pauses of the push at rod breaks, and
// the rod break tool's removal of readings with its undo.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/model/sounding_store.h"
#include "core/model/unit_tables.h"

namespace marlview {

class Session;

// Upward spikes on tip, sleeve and pore pressure and spikes either way on the inclinations.
int CountSpikes(const SoundingStore& store);
// Each spike reading takes the reading before it, in the raw and the engineering tables, top down,
// so a repaired reading feeds the test of the next.
void RemoveSpikes(SoundingStore& store);

// Where the time between two readings reaches the threshold, the push stopped for a rod: the
// speeds around it are raised to the mean of the three before. speed and seconds are by row.
void SmoothRodBreaks(std::vector<double>& speed, const std::vector<double>& seconds, int reading_count,
                     double threshold_s);

// The rod break tool's undo store: every removal keeps the rows it changed.
struct RemovedRows {
  int first = 0, last = 0;
  // [row - first][channel][kind]
  std::vector<std::vector<std::array<float, kOutputKinds>>> values;
};
using RemovalUndo = std::vector<RemovedRows>;

// One reading (first == last, from row 3) becomes the mean of the readings two rows away on each
// side; a range is filled level with the mean of its two ends. The sounding is then derived again.
void RemoveReadings(Session& session, int first, int last, RemovalUndo& undo);
// Puts back the rows of the last removal.
bool UndoRemoveReadings(Session& session, RemovalUndo& undo);

// "DRILLOUT detected in file at ..." in the session's depth unit, when the sounding ended in a
// drilled-out stretch; nothing otherwise.
std::optional<std::string> DrilloutMessage(const Session& session);

}  // namespace marlview
