// The horizontal coefficient of consolidation of a dissipation test, from its T50 by the
// strain path solution of Teh and Houlsby (1991), with the square-root-time start correction for
// tests whose pressure first rises (a dilatant soil, or a filter not yet saturated).
#pragma once

#include <optional>
#include <string>

#include "core/common/user_prompts.h"
#include "core/session/dissipation_set.h"

namespace marlview {

enum FilterPosition : int { kFilterU2 = 0, kFilterU1 = 1 };

struct ChInputs {
  double RigidityIndex = 100;
  // Projected cone area, cm2; a standard cone is 10.
  double ConeAreaCm2 = 10;
  int Filter = kFilterU2;
};

inline constexpr double kSecondsPerYear = 31557600.0;

inline constexpr const char* kInvalidRigidityIndex = "Please enter a valid rigidity index";
inline constexpr const char* kInvalidConeArea = "Please enter a valid cone area";
inline constexpr const char* kTooFewRootTimeRows = "TOO FEW ROWS FOR THE SQUARE-ROOT-TIME FIT";
inline constexpr const char* kT50NotReached = "T50 NOT REACHED";
// The fit keeps the rows of the first 40 % of the dissipation, where the root-time curve is straight.
inline constexpr double kRootTimeFitShare = 0.6;
inline constexpr int kRootTimeMinimumRows = 3;

// The modified time factor T* at 50 % dissipation for the filter position.
double TimeFactor50(int filter);
// ch in m2/s for a T50 in seconds (above 0).
double ChFromT50(double t50_seconds, const ChInputs& inputs);

// The straight line p = a + b * sqrt(t - t_m) through the early dissipation, counted from the
// row of the largest pressure; a is the corrected initial pressure.
struct RootTimeFit {
  int StartRow = 0;
  int32_t StartTime = 0;
  float StartPressure = 0;
  int FitRows = 0;
  double CorrectedU0 = 0;
  double Slope = 0;
};
// The fit of a test for its U100; the rows are counted even when they are too few for a line.
RootTimeFit FitRootTime(const DissipationSet& set, int test, float u100);

struct ChRequest {
  int Test = 0;
  // U0 is the user's start pressure; the root-time correction works out its own.
  float U0 = 0, U100 = 0;
  bool RootTime = false;
  ChInputs Inputs;
};

// What a computation found; an empty value is one it could not reach.
struct ChResult {
  float U0 = 0, U100 = 0;
  std::optional<float> U50, Ui, T50;
  // m2/s
  std::optional<double> Ch;
};

// T50 and ch of a test, telling why there is none, kept as the test's last computation.
ChResult ComputeCh(DissipationSet& set, const ChRequest& request, UserPrompts& prompts);

// The inputs' own check: a rigidity index and a cone area above 0; false after telling the first bad one.
bool CheckChInputs(const ChInputs& inputs, UserPrompts& prompts);
// The frame's boxes and filter read into inputs; false after telling the first bad box.
bool ReadChInputs(const std::string& rigidity_index, const std::string& cone_area_cm2, int filter,
                  ChInputs& inputs, UserPrompts& prompts);

// ch of a computation as shown: cm2/s in "0.0000E+00" and m2/year in "##0.00#"; empty without one.
struct ChTexts {
  std::string PerSecondCm2, PerYearM2;
};
ChTexts ChResultTexts(const ConsolidationResult& last);

}  // namespace marlview
