// The derived channel pipeline: corrected tip, ratios, stresses, the soil behaviour charts, the
// correlations, wet density and push speed, appended behind the measured channels.
#pragma once

namespace marlview {

class Session;
class SoundingStore;

// Rebuilds every derived channel of store from its channel_count measured channels, with the
// session's settings. Any change of measured data, water table, wet density or tip calls it
// again and gets exactly what a fresh open gives.
void ComputeDerivedChannels(Session& session, SoundingStore& store, int channel_count);
// The same for the current sounding.
void ComputeDerivedChannels(Session& session, int channel_count);

// The cone's net area ratio that corrects the tip: a GEF file's own when it states one, else the
// general setting.
double NetAreaRatioUsed(const Session& session, const SoundingStore& store);

// A reading as the 1983 chart takes it: the tip in bar (the corrected tip where the sounding has
// one) and the friction ratio in percent that goes with that tip.
struct Sbt1983Input {
  double tip_bar = 0;
  double friction_ratio = 0;
};
Sbt1983Input ReadSbt1983Input(const SoundingStore& store, int row);

}  // namespace marlview
