// Spikes, rod breaks in the push speed, and removal of readings.
#include "core/derivation/artefacts.h"

#include <cmath>

#include "core/common/number_format.h"
#include "core/derivation/derived_channels.h"
#include "core/model/conversion.h"
#include "core/session/session.h"

namespace marlview {
namespace {

struct SpikeRule {
  int16_t ChannelRoles::*role;
  double threshold;
  int first_row;
  // Tip, sleeve and pore pressure are tested in their own unit, upward only; inclinations as they
  // stand, either way.
  bool in_default_unit;
};

constexpr SpikeRule kSpikeRules[] = {
    {&ChannelRoles::TipChannel, 13000, 2, true},
    {&ChannelRoles::SleeveChannel, 200, 2, true},
    {&ChannelRoles::PorePressureChannel, 250, 2, true},
    {&ChannelRoles::InclXChannel, 2, 3, false},
    {&ChannelRoles::InclYChannel, 2, 3, false},
};

double SpikeValue(const SoundingStore& s, const SpikeRule& rule, int c, int r) {
  const double value = s.ChannelReadings(r, KindColumn(c, kGraphOutput));
  if (!rule.in_default_unit) return value;
  const double factor = s.ChannelUnitFactor[c][kGraphOutput];
  return factor == 0 ? value : value / factor;
}

bool IsSpike(const SoundingStore& s, const SpikeRule& rule, int c, int r) {
  auto difference = [&](int other) {
    const double d = SpikeValue(s, rule, c, r) - SpikeValue(s, rule, c, other);
    return rule.in_default_unit ? d : std::fabs(d);
  };
  return difference(r - 1) > rule.threshold &&
         (difference(r + 1) > rule.threshold || difference(r + 2) > rule.threshold);
}

// Runs visit for each spike row of each channel, top down.
template <typename Visit>
void ForEachSpike(const SoundingStore& s, Visit visit) {
  for (const SpikeRule& rule : kSpikeRules) {
    const int c = s.*(rule.role);
    if (c == 0) continue;
    for (int r = rule.first_row; r <= s.ReadingCount - 2; ++r) {
      if (IsSpike(s, rule, c, r)) visit(c, r);
    }
  }
}

}  // namespace

int CountSpikes(const SoundingStore& s) {
  int count = 0;
  ForEachSpike(s, [&](int, int) { ++count; });
  return count;
}

void RemoveSpikes(SoundingStore& s) {
  ForEachSpike(s, [&](int c, int r) {
    s.RawReadings(r, c) = s.RawReadings(r - 1, c);
    s.ChannelReadings(r, KindColumn(c, kGraphOutput)) = s.ChannelReadings(r - 1, KindColumn(c, kGraphOutput));
  });
}

void SmoothRodBreaks(std::vector<double>& speed, const std::vector<double>& seconds, int n, double threshold_s) {
  const auto threshold = static_cast<float>(std::floor(threshold_s));
  for (int i = 4; i <= n - 2; ++i) {
    if (static_cast<float>(seconds[i] - seconds[i - 1]) < threshold) continue;
    const double mean = (speed[i - 4] + speed[i - 3] + speed[i - 2]) / 3;
    for (int j = i - 1; j <= i + 2; ++j) {
      if (speed[j] < mean) speed[j] = mean;
    }
  }
}

void RemoveReadings(Session& session, int first, int last, RemovalUndo& undo) {
  SoundingStore& s = session.Sounding();
  if (first > last) std::swap(first, last);
  if (first < 1 || last > s.ReadingCount) Fail(kErrSubscript);
  // The PX DAS family keeps its engineering values aligned; the others recompute from the table.
  const bool aligned = s.AcquisitionFamily == kPxDasFamily;
  ColumnTable<float>& table = aligned ? s.AlignedReadings : s.ChannelReadings;
  const int channels = aligned ? s.TotalChannels : s.ChannelCount;
  RemovedRows removed{first, last, {}};
  for (int r = first; r <= last; ++r) {
    std::vector<std::array<float, kOutputKinds>> row(static_cast<size_t>(channels) + 1);
    for (int c = 1; c <= channels; ++c) {
      for (int k = 0; k < kOutputKinds; ++k) row[c][k] = table(r, KindColumn(c, k));
    }
    removed.values.push_back(std::move(row));
  }
  undo.push_back(std::move(removed));
  for (int c = 1; c <= channels; ++c) {
    for (int k = 0; k < kOutputKinds; ++k) {
      const int col = KindColumn(c, k);
      if (first == last) {
        // The neighbours of a rod break are not trusted: the readings two rows away are.
        if (first < 3 || first + 2 > s.ReadingCount) continue;
        table(first, col) = (table(first - 2, col) + table(first + 2, col)) / 2;
        continue;
      }
      const float end = aligned && k == 0 ? s.ChannelReadings(last, col) : table(last, col);
      const float level = (table(first, col) + end) / 2;
      for (int r = first + 1; r < last; ++r) table(r, col) = level;
    }
  }
  if (!aligned) {
    for (int c = 1; c <= s.ChannelCount; ++c) AlignChannel(s, c);
  }
  ComputeDerivedChannels(session, s.ChannelCount);
}

bool UndoRemoveReadings(Session& session, RemovalUndo& undo) {
  if (undo.empty()) return false;
  SoundingStore& s = session.Sounding();
  const RemovedRows removed = std::move(undo.back());
  undo.pop_back();
  const bool aligned = s.AcquisitionFamily == kPxDasFamily;
  ColumnTable<float>& table = aligned ? s.AlignedReadings : s.ChannelReadings;
  for (int r = removed.first; r <= removed.last; ++r) {
    const auto& row = removed.values[static_cast<size_t>(r - removed.first)];
    for (size_t c = 1; c < row.size(); ++c) {
      for (int k = 0; k < kOutputKinds; ++k) table(r, KindColumn(static_cast<int>(c), k)) = row[c][k];
    }
  }
  if (!aligned) {
    for (int c = 1; c <= s.ChannelCount; ++c) AlignChannel(s, c);
  }
  ComputeDerivedChannels(session, s.ChannelCount);
  return true;
}

std::optional<std::string> DrilloutMessage(const Session& session) {
  const SoundingStore& s = session.Sounding();
  if (s.DrilloutFlag != 1) return std::nullopt;
  // The depth is kept in metres; shown to the centimetre or the hundredth of a foot.
  if (session.DepthUnitIsMetric == 1) return "DRILLOUT detected in file at " + FormatNumber(s.DrilloutDepth, "##0.00") + " m";
  return "DRILLOUT detected in file at " + FormatNumber(s.DrilloutDepth * session.FeetPerMetre, "##0.00") + " ft";
}

}  // namespace marlview
