// Channels added from text files of the field crews and of the seismic velocity writer.
#include "core/shell/add_data.h"

#include "core/common/input_fields.h"
#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"

namespace marlview {
namespace {

constexpr float kMissingValue = -32768;

// Depths and values are 32-bit, as the sounding's own depths, so that a boundary read from the
// file equals the depth of the reading it names.
float Single(InputFields& fields) { return static_cast<float>(fields.Number()); }

void SetAllKinds(SoundingStore& s, int r, int c, float value) {
  for (int k = 0; k < kOutputKinds; ++k) {
    s.ChannelReadings(r, KindColumn(c, k)) = value;
    s.AlignedReadings(r, KindColumn(c, k)) = value;
  }
}

// Pairs of depth and value, interpolated between successive pairs.
void ReadInterpolatedChannel(SoundingStore& s, InputFields& fields, int c) {
  fields.Text();  // a field the crews' files carry and nothing reads
  const int n = s.ReadingCount;
  bool first = true;
  float d1 = 0, v1 = 0;
  while (!fields.AtEnd()) {
    const float d2 = Single(fields);
    const float v2 = Single(fields);
    if (first) {
      s.ChannelDataStart[c] = d2;
      first = false;
    } else if (d2 != d1) {
      for (int r = 1; r <= n; ++r) {
        const float depth = s.DepthTable(r, 1);
        if (depth >= d1 && depth < d2) {
          SetAllKinds(s, r, c, static_cast<float>((depth - d1) * (double{v2} - v1) / (d2 - d1) + v1));
        }
      }
    }
    d1 = d2;
    v1 = v2;
  }
  s.ChannelDataEnd[c] = d1;
  for (int r = 1; r <= n; ++r) {
    if (s.DepthTable(r, 1) > d1 + s.DepthInterval) SetAllKinds(s, r, c, kMissingValue);
  }
}

// Ranges of depth "from", "to" and a value; a later range wins at a shared boundary.
void ReadStepChannel(Session& session, InputFields& fields, int c, const std::string& path) {
  SoundingStore& s = session.Sounding();
  s.ChannelCurveStyle[c] = 1;
  const int n = s.ReadingCount;
  for (int r = 1; r <= n; ++r) SetAllKinds(s, r, c, 0);
  fields.SkipLine();
  // Seismic velocities are written in metres per second; a display in feet shows feet per second.
  const bool velocities_in_feet = EndsWithNoCase(path, "vss") && session.DepthUnitIsMetric != 1;
  if (velocities_in_feet) s.ChannelUnitLabel[c].fill("(ft/s)");
  bool first = true;
  float last_to = 0;
  while (!fields.AtEnd()) {
    const float from = Single(fields);
    const float to = Single(fields);
    float value = Single(fields);
    if (velocities_in_feet) value *= session.FeetPerMetre;
    if (first) s.ChannelDataStart[c] = from;
    first = false;
    for (int r = 1; r <= n; ++r) {
      const float depth = s.DepthTable(r, 1);
      if (depth >= from && depth <= to) SetAllKinds(s, r, c, value);
    }
    last_to = to;
  }
  s.ChannelDataEnd[c] = last_to;
  for (int r = 1; r <= n; ++r) {
    if (s.DepthTable(r, 1) > last_to) SetAllKinds(s, r, c, kMissingValue);
  }
}

}  // namespace

int AddChannelFromText(Session& session, std::string_view bytes, const std::string& path,
                       UserPrompts& prompts) {
  return InProcedure("mnuAddData_Click", [&] {
    InputFields fields(bytes);
    const std::string tag = fields.AtEnd() ? std::string() : fields.Text();
    const bool step = ContainsNoCase(tag, "step");
    if (!step && !ContainsNoCase(tag, "str")) {
      prompts.Tell("Not a valid file.");
      return 0;
    }
    SoundingStore& s = session.Sounding();
    if (s.TotalChannels >= kMaxChannels) Fail(kErrSubscript);
    const std::string name = fields.Text();
    const std::string short_name = fields.Text();
    const std::string unit = fields.Text();
    // The channel is built aside and only appended once the whole file has been read.
    const int c = s.TotalChannels + 1;
    s.ChannelName[c] = name;
    s.ChannelShortName[c] = short_name;
    s.ChannelUnitLabel[c].fill(unit);
    s.ChannelEnabled[c] = true;
    s.ChannelCurveStyle[c] = 0;
    s.ChannelUnitFactor[c].fill(1);
    for (int r = 1; r <= s.ReadingCount; ++r) SetAllKinds(s, r, c, 0);
    if (step) {
      ReadStepChannel(session, fields, c, path);
    } else {
      ReadInterpolatedChannel(s, fields, c);
    }
    s.TotalChannels = static_cast<int16_t>(c);
    return c;
  });
}

}  // namespace marlview
