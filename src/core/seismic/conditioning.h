// Conditioning of the waves before picking: smoothing, attenuation of overdriven strikes,
// normalising, shifts, trims, the removal of a kind of strike, and the gain and trim of a log.
// Every operation rewrites the amplitudes in place; only opening the file again brings the raw
// wave back.
#pragma once

#include <string_view>

#include "core/common/user_prompts.h"
#include "core/session/seismic_store.h"

namespace marlview {

inline constexpr int kFilterRounds = 15;
inline constexpr int kFilterTickPasses = 14;
inline constexpr float kEnhancePlus = 1.1f;
inline constexpr float kEnhanceMinus = 0.90909f;
inline constexpr float kShiftStep = 0.05f;
// Attenuation smooths until no sample stands at or beyond full scale; a wave that smoothing can
// never bring inside (a flat overdriven record, or one holding no numbers) stops after this many rounds.
inline constexpr int kMaxAttenuateRounds = 10000;
inline constexpr const char* kInvalidTime = "Invalid time.";

// One pass of the three-point running mean over a[1..n], ends averaged with their one neighbour.
// scratch holds at least n + 1 values; every output is computed from inputs only.
void SmoothOnce(float* a, int n, float* scratch);

void FilterAllGraphs(SeismicStore& store);
// The hold-to-filter button's passes on one strike; a strike the test lacks is left alone.
void FilterStrike(SeismicStore& store, int test, int kind, int passes);
void AttenuateAllGraphs(SeismicStore& store);
void EnhanceAllGraphs(SeismicStore& store);
// cmdEnhancePlus, cmdEnhanceMinus: scales the strike about its mean.
void EnhanceStep(SeismicStore& store, int test, int kind, bool plus);
// cmdShiftUp, cmdShiftDown.
void ShiftStrike(SeismicStore& store, int test, int kind, bool up);

struct TimeAxis {
  float step = 0;
  int divisions = 0;
};
TimeAxis NiceTimeStep(double max, double min);

// The greatest last sample time of every slot of every test; 1 for a log.
float SeismicTimeAxisMaxOf(const SeismicStore& store);
// frmTrimSeismicGraphs: false after "Invalid time.". The caller sets the time axis to time_ms.
bool TrimAllGraphs(SeismicStore& store, double time_ms, UserPrompts& prompts);
// frmTrimSeismicGraph on one test.
bool TrimTest(SeismicStore& store, int test, double time_ms, UserPrompts& prompts);
// The time frmTrimSeismicGraph opens with: the last sample of the first strike present.
float TrimTestDefault(const SeismicStore& store, int test);

// mnuRemoveAStrikes and its like; tests left without a strike are dropped.
void RemoveStrikeKind(SeismicStore& store, int kind);

inline constexpr float kLogGains[] = {1, 2.5f, 5, 10, 25, 50, 100, 250, 500, 1000, 2500, 5000};
void SetLogGain(SeismicStore& store, float gain);
// frmTrimSeismicLog: keeps the first seconds of the log.
void TrimLog(SeismicStore& store, int seconds);
// frmShiftStrikeUpDown: one press on a column of the log.
void ShiftLogStrike(SeismicStore& store, int kind, bool up);

}  // namespace marlview
