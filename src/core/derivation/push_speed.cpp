// Push speed from the file or from depth and time, with the repairs of slow and missing readings.
#include "core/derivation/push_speed.h"

#include <vector>

#include "core/common/number_read.h"
#include "core/derivation/artefacts.h"

namespace marlview {
namespace {

// A reading slower than this is a stop or a glitch and takes the mean of its neighbours.
constexpr double kSlowestSpeed = 0.5;

// Rows 1 and last stay; a slow row between them takes the mean of its neighbours as they were.
void RepairSlowRows(std::vector<double>& speed, int n) {
  std::vector<double> repaired = speed;
  for (int r = 2; r < n; ++r) {
    if (speed[r] < kSlowestSpeed) repaired[r] = (speed[r - 1] + speed[r + 1]) / 2;
  }
  speed = std::move(repaired);
}

std::vector<double> SpeedFromDepthAndTime(const SoundingStore& s, const std::vector<double>& time) {
  const int n = s.ReadingCount;
  std::vector<double> speed(static_cast<size_t>(n) + 2, 0.0);
  std::vector<double> depth(static_cast<size_t>(n) + 2, 0.0);
  for (int r = 1; r <= n; ++r) depth[r] = s.DepthTable(r, 1);
  // The latest time and the greatest depth from each row on, so a row with nothing later is
  // passed over without a scan.
  std::vector<double> latest(static_cast<size_t>(n) + 2, -1e300), deepest(static_cast<size_t>(n) + 2, -1e300);
  for (int r = n; r >= 1; --r) {
    latest[r] = std::max(time[r], latest[r + 1]);
    deepest[r] = std::max(depth[r], deepest[r + 1]);
  }
  for (int i = 2; i <= n; ++i) {
    const double t1 = time[i - 1], d1 = depth[i - 1];
    if (latest[i] - t1 <= 0 || deepest[i] - d1 <= 0) continue;
    for (int j = i; j <= n; ++j) {
      if (time[j] - t1 > 0 && depth[j] - d1 > 0) {
        // The speed over the step to the next later reading, scaled back to this row's own step.
        speed[i] = ((depth[j] - d1) / (time[j] - t1) * 100) * (depth[i] - d1) / (depth[j] - d1);
        break;
      }
    }
  }
  return speed;
}

}  // namespace

double TailSeconds(std::string_view tail) {
  const long before = static_cast<long>(tail.size()) - 9;
  if (before < 1) return 0;
  const size_t blank = tail.rfind(' ', static_cast<size_t>(before - 1));
  if (blank == std::string_view::npos) return 0;
  const size_t next = tail.find(' ', blank + 1);
  return LenientNumber(tail.substr(blank, next == std::string_view::npos ? std::string_view::npos : next - blank)) /
         1000;
}

void CalculatePushSpeed(ChannelValues& v, int c, const PushSpeedSettings& settings) {
  const SoundingStore& s = v.s;
  const int n = s.ReadingCount;
  std::vector<double> speed;
  // PX DAS and GEF files give a speed per reading; the QRD families' is worked from the clock.
  if (IsKpaFamily(s.AcquisitionFamily)) {
    speed.assign(static_cast<size_t>(n) + 2, 0.0);
    for (int r = 1; r <= n; ++r) speed[r] = s.PushSpeed[r];
    RepairSlowRows(speed, n);
  } else {
    std::vector<double> seconds(static_cast<size_t>(n) + 2, 0.0);
    for (int r = 1; r <= n; ++r) seconds[r] = TailSeconds(s.RowTail[r]);
    speed = SpeedFromDepthAndTime(s, seconds);
    RepairSlowRows(speed, n);
    if (settings.remove_rod_breaks) SmoothRodBreaks(speed, seconds, n, settings.rod_break_threshold_s);
    // The last moving reading and the stopped ones after it take the speed of the reading before.
    int k = n;
    while (k >= 1 && speed[k] <= 0) --k;
    if (k >= 1) {
      for (int r = k; r <= n; ++r) speed[r] = speed[k - 1];
    }
  }
  for (int r = 1; r <= n; ++r) v.SetKinds(r, c, speed[r]);
}

}  // namespace marlview
