// The AGS4 file of one sounding, with the dissipation tests and seismic velocities the user adds.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/presentation/ags_dictionary.h"
#include "core/session/dissipation_set.h"

namespace marlview {

class Session;
class SeismicStore;
class SoundingStore;
struct UnitTables;

// One dissipation test as the export writes it: pressures already in kPa.
struct AgsDissipationTest {
  float depth_m = 0;
  std::vector<double> seconds;
  std::vector<double> pressure_kpa;
  // The filter of the file's pressure channel: 1 face (u1), 2 shoulder (u2), 3 top of sleeve (u3).
  int filter = 2;
  // The last T50 and ch worked out for the test; U0 and U100 in kPa.
  ConsolidationResult result;
};

// One seismic velocity: from the reference test's depth to the test's depth.
struct AgsVelocity {
  float top_m = 0;
  float base_m = 0;
  // Picked arrivals (a pseudo interval) or the cross-correlation of two tests (a true interval).
  bool cross_correlated = false;
  float velocity_m_s = 0;
};

struct AgsSeismic {
  float hammer_distance_m = 0;
  std::vector<AgsVelocity> velocities;
};

struct AgsInputs {
  AgsVersion version = kDefaultAgsVersion;
  // yyyy-mm-dd, the day of the transfer.
  std::string date;
  std::vector<AgsDissipationTest> dissipations;
  // Seismic tests are written only by 4.2; with an older edition they are left out with a message.
  bool with_seismic = false;
  AgsSeismic seismic;
};

struct AgsRendering {
  std::string bytes;
  // Messages for the user, in order.
  std::vector<std::string> notes;
};

// The file of the current sounding.
AgsRendering RenderAgs(const Session& session, const AgsInputs& inputs);

// The tests of a dissipation file as the export writes them; tests empty means all. kpa_per_unit
// brings the file's pressures to kPa.
std::vector<AgsDissipationTest> AgsDissipationTests(const DissipationSet& set, const std::vector<int>& tests,
                                                    double kpa_per_unit);
// The velocities of a seismic store as they stand: the picked ones, and the cross-correlated ones
// when they were worked out.
AgsSeismic AgsSeismicOf(const SeismicStore& store);

// A pressure reading in kPa: the channel's graph value brought back to its file unit, then to kPa.
double KilopascalValue(const SoundingStore& s, const UnitTables& units, int row, int channel);
// A 32-bit value as the decimal number its shortest text says, so that rounding follows the value
// the user sees and not the binary fraction behind it.
double DecimalValue(float value);

// Today as TRAN_DATE wants it, yyyy-mm-dd.
std::string TodayIso();

// "AGS4 Files (*.ags)|*.ags"
inline constexpr const char* kAgsFilter = "AGS4 Files (*.ags)|*.ags";
// "SEISMIC TESTS ARE NOT PART OF AGS 4.1.1; CHOOSE 4.2 TO INCLUDE THEM"
std::string SeismicNotInVersionText(AgsVersion version);

}  // namespace marlview
