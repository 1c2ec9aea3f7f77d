// The store of one downhole seismic sounding: up to 180 tests, each with its A, B and P strikes of
// up to 30000 samples, and the continuous record of a seismic log.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/common/runtime_failure.h"
#include "core/model/fixed_table.h"

namespace marlview {

inline constexpr int kMaxSeismicTests = 180;
inline constexpr int kMaxStrikeSamples = 30000;
inline constexpr int kStrikeSlots = 540;
inline constexpr int kMaxLogSamples = 1000000;
inline constexpr int kMaxLogSeconds = 60;
inline constexpr int kMaxSeismicHeaderLines = 100;

// Strike kinds as the files and the pick fields number them; 2 is never used.
inline constexpr int16_t kStrikeA = 0;
inline constexpr int16_t kStrikeB = 1;
inline constexpr int16_t kStrikeP = 3;
inline constexpr int16_t kNoStrike = 4;
inline constexpr int16_t kStrikeKinds[] = {kStrikeA, kStrikeB, kStrikeP};

// Geophones named by the strike lists of the newer files.
inline constexpr int16_t kGeophoneSgeo1 = 0;
inline constexpr int16_t kGeophoneSgeo2 = 1;
inline constexpr int16_t kGeophonePgeo = 3;
inline constexpr int16_t kGeophoneUnknown = -1;

// Which reader filled the store.
inline constexpr int16_t kSmcFamily = 0;
inline constexpr int16_t kSeiFamily = 1;
inline constexpr int16_t kFldacqFamily = 2;
inline constexpr int16_t kSlgFamily = 4;

inline constexpr int16_t kTrue16 = -1;

// An array of indices 0..kMax; an index past the bound is "Subscript out of range".
template <typename T, int kMax>
class Bounded {
 public:
  T& operator[](int i) {
    if (i < 0 || i > kMax) Fail(kErrSubscript);
    return cells_[static_cast<size_t>(i)];
  }
  const T& operator[](int i) const {
    if (i < 0 || i > kMax) Fail(kErrSubscript);
    return cells_[static_cast<size_t>(i)];
  }
  void Fill(const T& value) { cells_.fill(value); }
  static constexpr int Max() { return kMax; }

 private:
  std::array<T, kMax + 1> cells_{};
};

// The header strings of the two acquisition families, under their data-model names.
struct SeismicHeader {
  std::string FileVersionLine, FileSecondLine, TestId, Operator, Crew, Project, Site, Location, Comments,
      TestDate, StartTime, Client, ClientRepresentative, Weather, Version, DasSystem, ProbeSerial;
  std::string GpsLat, GpsLon, GpsElev, GpsNSat, GpsQual;
  std::string ChannelCountLine;
  // PX DAS
  std::string Customer, PXTitle, ConeId, JobNumber, HoleNumber, Comment1, Comment2, Comment3, GpsLine;
};

// The slot of a strike in the wave tables: A of test i is slot i, B i + 180, P i + 360.
inline int StrikeSlot(int kind, int test) {
  switch (kind) {
    case kStrikeA: return test;
    case kStrikeB: return test + kMaxSeismicTests;
    case kStrikeP: return test + 2 * kMaxSeismicTests;
    default: Fail(kErrSubscript);
  }
}

// Row of the log's amplitude table for a strike kind: 0 A, 1 B, 2 P.
inline int LogColumn(int kind) { return kind == kStrikeP ? 2 : kind; }

class SeismicStore {
 public:
  SeismicStore();

  // Empties the store, touching only what the last file used.
  void Reset();

  int16_t AcquisitionFamily = -1;
  int16_t TestCount = 0;
  Bounded<std::string, kMaxSeismicTests> TestFile;
  Bounded<std::string, 200> TestTitle;
  Bounded<float, kStrikeSlots> TestDepth;
  Bounded<float, kMaxSeismicTests> SampleInterval;
  Bounded<int32_t, kMaxSeismicTests> StartIndex, EndIndex;
  Bounded<int32_t, kMaxSeismicTests> ArrivalFromFile;
  Bounded<float, kMaxSeismicTests> ArrivalSample;
  Bounded<int16_t, 500> ArrivalKind;
  Bounded<int16_t, kStrikeSlots> HasStrikeA, HasStrikeB, HasStrikeP;
  // Rows by kind 0..3; -1 when the file does not tell.
  std::array<Bounded<int16_t, kStrikeSlots>, 4> GeophoneOf;
  // FLDACQ only: the mean taken off each column at reading.
  std::array<Bounded<float, kStrikeSlots>, 4> StrikeMeanRemoved;
  Bounded<int32_t, kStrikeSlots> SampleCount;

  // Picks, delays and velocities.
  Bounded<float, kMaxSeismicTests> DelayTime;
  Bounded<int16_t, kMaxSeismicTests + 1> ReferenceTest;
  Bounded<float, kMaxSeismicTests> IntervalVelocity;
  // True-interval velocity by cross-correlation with the test above, m/s (0 where none), with its
  // refined lag in samples and the correlation coefficient; filled only when asked for.
  Bounded<float, kMaxSeismicTests> XcorrVelocity, XcorrLagSamples, XcorrCoefficient;
  bool XcorrComputed = false;
  float HammerDistance = 0;
  int16_t AskHammerDistance = 1;
  float PathDifference = 0;

  int32_t AmplitudeBias = 0;
  int32_t AmplitudeScale = 0;
  // A legacy .SMC record of three strikes carries B at half the sampling rate.
  bool LegacyHalfRateB = false;
  SeismicHeader header;

  // The log of an .SLG file.
  int16_t LogSeconds = 0;
  Bounded<int32_t, kMaxLogSeconds> LogSecondStart, LogSecondEnd;
  int16_t LogHasGainLine = 0;
  float LogGain = 1;

  std::string& HeaderLine(int test, int k);
  const std::string& HeaderLine(int test, int k) const;

  float& StrikeTime(int slot, int s) { return Touch(slot, s), time_(slot, s); }
  float StrikeTime(int slot, int s) const { return time_(slot, s); }
  float& StrikeAmplitude(int slot, int s) { return Touch(slot, s), amplitude_(slot, s); }
  float StrikeAmplitude(int slot, int s) const { return amplitude_(slot, s); }
  // Samples 0..kMaxStrikeSamples of a slot, for passes along a whole strike. The caller notes how
  // far it writes with MarkUsed.
  float* TimeRow(int slot) { return time_.Row(slot); }
  const float* TimeRow(int slot) const { return const_cast<FixedTable<float>&>(time_).Row(slot); }
  float* AmplitudeRow(int slot) { return amplitude_.Row(slot); }
  const float* AmplitudeRow(int slot) const { return const_cast<FixedTable<float>&>(amplitude_).Row(slot); }
  void MarkUsed(int slot, int last_sample);

  float& LogTime(int s) { return Touch(-1, s), log_time_(s, 0); }
  float LogTime(int s) const { return log_time_(s, 0); }
  float& LogAmplitude(int s, int column) { return Touch(-1, s), log_amplitude_(s, column); }
  float LogAmplitude(int s, int column) const { return log_amplitude_(s, column); }

  bool HasStrike(int kind, int test) const;
  void SetHasStrike(int kind, int test, bool present);
  int StrikeCountOf(int test) const;

  // Mean of the strike's amplitudes, summed in single precision in sample order.
  float StrikeMean(int test, int kind) const;
  // Takes each present strike's mean off its samples.
  void RemoveStrikeMeans();
  // Drops test i: every later test moves one place down with its fields and waves.
  void DropTest(int test);
  // Room for samples 0..samples of working values, such as the smoothing passes write between
  // rounds; kept with the store, so a run of filters allocates it once.
  float* Scratch(int samples);

 private:
  void Touch(int slot, int s) {
    if (slot < 0) {
      if (s > log_high_water_ && s <= kMaxLogSamples) log_high_water_ = s;
    } else if (slot <= kStrikeSlots && s <= kMaxStrikeSamples && s > high_water_[static_cast<size_t>(slot)]) {
      high_water_[static_cast<size_t>(slot)] = s;
    }
  }
  void CopyTest(int from, int to);

  FixedTable<float> time_;
  FixedTable<float> amplitude_;
  FixedTable<float> log_time_;
  FixedTable<float> log_amplitude_;
  std::vector<std::array<std::string, kMaxSeismicHeaderLines + 1>> header_lines_;
  std::vector<float> scratch_;
  std::array<int32_t, kStrikeSlots + 1> high_water_{};
  int32_t log_high_water_ = 0;
};

}  // namespace marlview
