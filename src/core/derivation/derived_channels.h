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

}  // namespace marlview
