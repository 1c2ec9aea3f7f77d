// ch by Teh and Houlsby (1991), and the square-root-time start correction of Sully and others (1999).
#include "core/dissipation/consolidation.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "core/common/number_format.h"
#include "core/common/number_read.h"
#include "core/dissipation/t50_utility.h"

namespace marlview {

double TimeFactor50(int filter) { return filter == kFilterU1 ? 0.118 : 0.245; }

double ChFromT50(double t50_seconds, const ChInputs& inputs) {
  // The cone radius from its area, cm to m.
  const double radius = std::sqrt(inputs.ConeAreaCm2 / std::numbers::pi) / 100.0;
  return TimeFactor50(inputs.Filter) * radius * radius * std::sqrt(inputs.RigidityIndex) / t50_seconds;
}

RootTimeFit FitRootTime(const DissipationSet& set, int test, float u100) {
  RootTimeFit fit;
  if (test < 1 || test > kMaxDissipations) Fail(kErrSubscript);
  const int rows = set.RowCount[static_cast<size_t>(test)];
  // The rows before the largest pressure are the rising start the correction leaves out.
  for (int k = 1; k <= rows; ++k) {
    if (fit.StartRow == 0 || set.RowPressure(test, k) > fit.StartPressure) {
      fit.StartRow = k;
      fit.StartPressure = set.RowPressure(test, k);
    }
  }
  if (fit.StartRow == 0) return fit;
  fit.StartTime = set.RowTime(test, fit.StartRow);
  const double floor = u100 + kRootTimeFitShare * (static_cast<double>(fit.StartPressure) - u100);
  double sx = 0, sy = 0, sxx = 0, sxy = 0;
  for (int k = fit.StartRow; k <= rows && set.RowPressure(test, k) >= floor; ++k) {
    const double x = std::sqrt(std::max(0.0, static_cast<double>(set.RowTime(test, k)) - fit.StartTime));
    const double y = set.RowPressure(test, k);
    sx += x, sy += y, sxx += x * x, sxy += x * y;
    ++fit.FitRows;
  }
  if (fit.FitRows < kRootTimeMinimumRows) return fit;
  const double n = fit.FitRows;
  const double spread = sxx - sx * sx / n;
  fit.Slope = spread == 0 ? 0 : (sxy - sx * sy / n) / spread;
  fit.CorrectedU0 = (sy - fit.Slope * sx) / n;
  return fit;
}

ChResult ComputeCh(DissipationSet& set, const ChRequest& request, UserPrompts& prompts) {
  if (request.Test < 1 || request.Test > kMaxDissipations) Fail(kErrSubscript);
  ChResult result;
  ConsolidationResult& last = set.LastConsolidation[static_cast<size_t>(request.Test)];
  // A computation that finds nothing is still the last one made: the test's record empties.
  last = ConsolidationResult{};
  result.U0 = request.U0;
  result.U100 = request.U100;
  std::optional<float> t50;
  if (request.RootTime) {
    const RootTimeFit fit = FitRootTime(set, request.Test, request.U100);
    result.U0 = fit.StartPressure;
    if (fit.FitRows < kRootTimeMinimumRows) {
      prompts.Tell(kTooFewRootTimeRows);
      return result;
    }
    result.Ui = static_cast<float>(fit.CorrectedU0);
    result.U50 = request.U100 + (*result.Ui - request.U100) / 2;
    if (const auto found = FindT50(set, request.Test, *result.U50, fit.StartRow)) {
      t50 = *found - static_cast<float>(fit.StartTime);
    }
  } else {
    result.Ui = request.U0;
    result.U50 = request.U0 + (request.U100 - request.U0) * 0.5f;
    t50 = FindT50(set, request.Test, *result.U50);
  }
  if (!t50) {
    prompts.Tell(kT50NotReached);
    return result;
  }
  result.T50 = t50;
  // A T50 of 0 (U50 met on the first row) gives no finite ch.
  if (*t50 > 0) result.Ch = ChFromT50(*t50, request.Inputs);

  last.HasT50 = true;
  last.U0 = *result.Ui;
  last.U100 = result.U100;
  last.T50 = *t50;
  last.HasCh = result.Ch.has_value();
  last.Ch = result.Ch.value_or(0);
  last.RigidityIndex = static_cast<float>(request.Inputs.RigidityIndex);
  return result;
}

bool CheckChInputs(const ChInputs& inputs, UserPrompts& prompts) {
  if (!(inputs.RigidityIndex > 0)) {
    prompts.Tell(kInvalidRigidityIndex);
    return false;
  }
  if (!(inputs.ConeAreaCm2 > 0)) {
    prompts.Tell(kInvalidConeArea);
    return false;
  }
  return true;
}

bool ReadChInputs(const std::string& rigidity_index, const std::string& cone_area_cm2, int filter,
                  ChInputs& inputs, UserPrompts& prompts) {
  // A box that is no number is as bad as one of 0.
  auto read = [](const std::string& text) {
    try {
      return ParseNumber(text);
    } catch (const RuntimeFailure&) {
      return 0.0;
    }
  };
  ChInputs read_inputs{read(rigidity_index), read(cone_area_cm2),
                       filter == kFilterU1 ? kFilterU1 : kFilterU2};
  if (!CheckChInputs(read_inputs, prompts)) return false;
  inputs = read_inputs;
  return true;
}

ChTexts ChResultTexts(const ConsolidationResult& last) {
  if (!last.HasCh) return {};
  // cm2/s is the unit of the published tables; m2/year that of settlement calculations.
  return {FormatNumber(last.Ch * 1e4, "0.0000E+00"), FormatNumber(last.Ch * kSecondsPerYear, "##0.00#")};
}

}  // namespace marlview
