// Channels added from text files of the field crews and of the seismic velocity writer.
#include "core/shell/add_data.h"

#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"

namespace marlview {
namespace {

constexpr float kMissingValue = -32768;

// Fields as a classic "Input #" reads them: text fields end at a comma or the line end, number
// fields also at a blank; a quoted text may hold commas.
class FieldReader {
 public:
  explicit FieldReader(std::string_view bytes) : bytes_(bytes) {}

  bool AtEnd() {
    while (at_ < bytes_.size() && IsSeparatorSpace(bytes_[at_])) ++at_;
    return at_ >= bytes_.size();
  }

  std::string Text() {
    SkipBlanks();
    if (at_ >= bytes_.size()) Fail(kErrPastEndOfFile);
    std::string field;
    if (bytes_[at_] == '"') {
      const size_t close = bytes_.find('"', at_ + 1);
      const size_t end = close == std::string_view::npos ? bytes_.size() : close;
      field = std::string(bytes_.substr(at_ + 1, end - at_ - 1));
      at_ = std::min(bytes_.size(), end + 1);
      EndField(false);
      return field;
    }
    const size_t start = at_;
    while (at_ < bytes_.size() && bytes_[at_] != ',' && !IsLineEnd(bytes_[at_])) ++at_;
    field = std::string(TrimRightBlanks(bytes_.substr(start, at_ - start)));
    EndField(false);
    return field;
  }

  // Depths and values are 32-bit, as the sounding's own depths, so that a boundary read from the
  // file equals the depth of the reading it names.
  float Number() {
    SkipBlanks();
    if (at_ >= bytes_.size()) Fail(kErrPastEndOfFile);
    const size_t start = at_;
    while (at_ < bytes_.size() && bytes_[at_] != ',' && bytes_[at_] != ' ' && bytes_[at_] != '\t' &&
           !IsLineEnd(bytes_[at_])) {
      ++at_;
    }
    const std::string_view token = bytes_.substr(start, at_ - start);
    EndField(true);
    return token.empty() ? 0.0f : static_cast<float>(StrictNumber(token));
  }

  // The rest of the current line, as a "Line Input" takes it.
  void SkipLine() {
    if (at_ >= bytes_.size()) Fail(kErrPastEndOfFile);
    while (at_ < bytes_.size() && !IsLineEnd(bytes_[at_])) ++at_;
    ConsumeLineEnd();
  }

 private:
  static bool IsLineEnd(char c) { return c == '\r' || c == '\n'; }
  static bool IsSeparatorSpace(char c) { return c == ' ' || c == '\t' || IsLineEnd(c); }

  void SkipBlanks() {
    while (at_ < bytes_.size() && (bytes_[at_] == ' ' || bytes_[at_] == '\t')) ++at_;
  }
  void ConsumeLineEnd() {
    if (at_ < bytes_.size() && bytes_[at_] == '\r') ++at_;
    if (at_ < bytes_.size() && bytes_[at_] == '\n') ++at_;
  }
  // After a field: blanks, then one comma or one line end.
  void EndField(bool number) {
    SkipBlanks();
    if (at_ >= bytes_.size()) return;
    if (bytes_[at_] == ',') {
      ++at_;
    } else if (IsLineEnd(bytes_[at_])) {
      ConsumeLineEnd();
    } else if (!number) {
      ++at_;
    }
  }

  std::string_view bytes_;
  size_t at_ = 0;
};

void SetAllKinds(SoundingStore& s, int r, int c, float value) {
  for (int k = 0; k < kOutputKinds; ++k) {
    s.ChannelReadings(r, KindColumn(c, k)) = value;
    s.AlignedReadings(r, KindColumn(c, k)) = value;
  }
}

// Pairs of depth and value, interpolated between successive pairs.
void ReadInterpolatedChannel(SoundingStore& s, FieldReader& fields, int c) {
  fields.Text();  // a field the crews' files carry and nothing reads
  const int n = s.ReadingCount;
  bool first = true;
  float d1 = 0, v1 = 0;
  while (!fields.AtEnd()) {
    const float d2 = fields.Number();
    const float v2 = fields.Number();
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
void ReadStepChannel(Session& session, FieldReader& fields, int c, const std::string& path) {
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
    const float from = fields.Number();
    const float to = fields.Number();
    float value = fields.Number();
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
    FieldReader fields(bytes);
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
