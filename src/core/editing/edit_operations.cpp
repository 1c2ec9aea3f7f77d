// The sounding's edit operations. Each ends as a read does: engineering values from the raw
// readings, every channel aligned to the tip, and the derived channels computed again.
#include "core/editing/edit_operations.h"

#include <unistd.h>

#include <algorithm>
#include <cmath>

#include "core/common/file_access.h"
#include "core/common/line_cursor.h"
#include "core/common/number_format.h"
#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"
#include "core/derivation/artefacts.h"
#include "core/derivation/derived_channels.h"
#include "core/derivation/push_speed.h"
#include "core/io/dat_reader.h"
#include "core/io/sounding_writer.h"
#include "core/model/conversion.h"
#include "core/session/session.h"

namespace marlview {
namespace {

// The value of readings that were below zero: just above it, so the reading still counts.
constexpr float kRemovedNegative = 0.0001f;
// The pi of the field systems' ball area, deliberately short so areas match their reports.
constexpr double kBallPi = 3.14159;

bool ReadEntry(std::string_view entry, double& value) {
  try {
    value = StrictNumber(entry);
    return true;
  } catch (const RuntimeFailure&) {
    return false;
  }
}

bool IsRodDepth(const SoundingStore& s, int c) { return ContainsNoCase(s.ChannelName[c], "Rod Depth"); }

void Derive(Session& session) {
  SoundingStore& s = session.Sounding();
  ComputeDerivedChannels(session, s.ChannelCount);
  s.MaxDepth = s.ReadingCount > 0 ? s.DepthTable(s.ReadingCount, 1) : 0;
  if (s.ReadingCount >= 2) s.DepthInterval = s.DepthTable(2, 1) - s.DepthTable(1, 1);
}

// The end of an edit of some channels' values: those channels aligned, then the derivation with
// the file's channels, the deepest reading and the step between the first two.
void RecomputeChannels(Session& session, const std::vector<int>& channels) {
  SoundingStore& s = session.Sounding();
  if (s.AcquisitionFamily != kPxDasFamily) {
    for (int c : channels) {
      if (c >= 1 && c <= s.ChannelCount) AlignChannel(s, c);
    }
  }
  Derive(session);
}

// The end of an edit of depths or of the whole table: every channel aligned again.
void Recompute(Session& session) {
  std::vector<int> all;
  for (int c = 1; c <= session.Sounding().ChannelCount; ++c) all.push_back(c);
  RecomputeChannels(session, all);
}

// Every raw channel converted again from its raw readings.
void ConvertAll(Session& session) {
  SoundingStore& s = session.Sounding();
  for (int c = 1; c <= s.ChannelCount; ++c) ConvertChannel(s, session.units, c);
}

// An edited engineering value (graph output) carried to the raw reading and back to every kind.
void InvertAndConvert(Session& session, int c, int r) {
  SoundingStore& s = session.Sounding();
  InvertReading(s, c, r);
  ConvertReading(s, session.units, c, r);
}

// The metres and feet depths of a row.
void SetDepth(Session& session, int r, double metres) {
  SoundingStore& s = session.Sounding();
  s.DepthTable(r, 1) = ToSingle(metres);
  s.DepthTable(r, 2) = ToSingle(s.DepthTable(r, 1) * session.FeetPerMetre);
}

// Moves every per-channel table entry of channel from+1 into from, up to last, and empties last.
template <typename Table>
void MoveDown(Table& table, int from, int last) {
  for (int c = from; c < last; ++c) table[c] = table[c + 1];
  table[last] = typename Table::value_type{};
}

}  // namespace

std::vector<int> EditableChannels(const Session& session, UserPrompts& prompts) {
  const SoundingStore& s = session.Sounding();
  if (s.ChannelCount > kMaxListedEditChannels) prompts.Tell("MORE THAN 30 CHANNELS PRESENT. CANNOT LIST ALL CHANNELS");
  std::vector<int> channels;
  for (int c = 1; c <= std::min<int>(s.ChannelCount, kMaxListedEditChannels); ++c) channels.push_back(c);
  return channels;
}

std::string DepthUnitText(const Session& session) { return session.DepthUnitIsMetric == 1 ? "(m)" : "(ft)"; }

std::string StartDepthDialogText(const Session& session) {
  const double start = session.Sounding().StartDepth;
  return FormatNumber(session.DepthUnitIsMetric == 1 ? start : start * session.FeetPerMetre, "000.00");
}

bool ChangeStartDepth(Session& session, std::string_view entry, UserPrompts& prompts) {
  double start = 0;
  if (!ReadEntry(entry, start)) {
    prompts.Tell("Please enter a valid depth");
    return false;
  }
  if (session.DepthUnitIsMetric != 1) start /= session.FeetPerMetre;
  SoundingStore& s = session.Sounding();
  const double shift = start - s.StartDepth;
  s.StartDepth = ToSingle(start);
  for (int r = 1; r <= s.ReadingCount; ++r) SetDepth(session, r, s.DepthTable(r, 1) + shift);
  Recompute(session);
  return true;
}

void RemoveNegatives(Session& session, const std::vector<int>& channels) {
  SoundingStore& s = session.Sounding();
  for (int c : channels) {
    if (c < 1 || c > s.ChannelCount) continue;
    for (int r = 1; r <= s.ReadingCount; ++r) {
      if (s.ChannelReadings(r, KindColumn(c, kGraphOutput)) >= 0) continue;
      s.ChannelReadings(r, KindColumn(c, kGraphOutput)) = kRemovedNegative;
      InvertAndConvert(session, c, r);
    }
  }
  RecomputeChannels(session, channels);
}

void ShiftChannels(Session& session, const std::vector<std::pair<int, double>>& amounts) {
  SoundingStore& s = session.Sounding();
  for (const auto& [c, amount] : amounts) {
    if (c < 1 || c > s.ChannelCount || amount == 0) continue;
    for (int r = 1; r <= s.ReadingCount; ++r) {
      s.ChannelReadings(r, KindColumn(c, kGraphOutput)) =
          ToSingle(s.ChannelReadings(r, KindColumn(c, kGraphOutput)) + amount);
      InvertAndConvert(session, c, r);
    }
  }
  std::vector<int> shifted;
  for (const auto& amount : amounts) shifted.push_back(amount.first);
  RecomputeChannels(session, shifted);
}

bool AdjustDepth(Session& session, std::string_view old_depth, std::string_view new_depth, UserPrompts& prompts) {
  double old_total = 0, new_total = 0;
  if (!ReadEntry(old_depth, old_total) || !ReadEntry(new_depth, new_total) || old_total == 0) {
    prompts.Tell("Please enter a valid depth");
    return false;
  }
  SoundingStore& s = session.Sounding();
  const double ratio = new_total / old_total;
  for (int r = 1; r <= s.ReadingCount; ++r) {
    s.DepthTable(r, 1) = ToSingle(s.DepthTable(r, 1) * ratio);
    s.DepthTable(r, 2) = ToSingle(s.DepthTable(r, 2) * ratio);
    for (int c = 1; c <= s.ChannelCount; ++c) {
      if (IsRodDepth(s, c)) s.RawReadings(r, c) = ToSingle(s.RawReadings(r, c) * ratio);
    }
  }
  if (s.AcquisitionFamily != kPxDasFamily) ConvertAll(session);
  Recompute(session);
  return true;
}

bool NormalizeDepthIntervals(Session& session, std::string_view interval_mm, UserPrompts& prompts) {
  double interval = 0;
  if (!ReadEntry(interval_mm, interval) || interval <= 0) {
    prompts.Tell("Please enter a valid interval");
    return false;
  }
  SoundingStore& s = session.Sounding();
  // The resampling reads from a copy of the present readings, so the edits made before it stay.
  const ColumnTable<float> depths = s.DepthTable;
  const ColumnTable<float> raw = s.RawReadings;
  const ReadingList<std::string> tails = s.RowTail;
  const ReadingList<std::string> chips = s.MunsellChips;
  const int rows = s.ReadingCount;
  const double step = interval / 1000;
  const double start = s.StartDepth;
  const double last = rows > 0 ? depths(rows, 1) : start;
  const double span = (last - start) / step;
  if (rows < 1 || !(span >= 0) || span + 1 > kMaxReadings) {
    prompts.Tell("Please enter a valid interval");
    return false;
  }
  const int n = static_cast<int>(span) + 1;
  s.DepthIncrementMode = true;
  s.DepthIncrement = ShortestText(static_cast<float>(interval));
  s.SampleRate = "N/A";
  // Each target depth lies between two readings of the file; before the first or past the last
  // it takes the nearest one.
  int j = 1;
  for (int i = 1; i <= n; ++i) {
    const double target = (i - 1) * step + start;
    while (j < rows && depths(j, 1) < target) ++j;
    const int below = j, above = std::max(1, j - 1);
    const double d0 = depths(above, 1), d1 = depths(below, 1);
    const double weight = d1 > d0 ? std::clamp((target - d0) / (d1 - d0), 0.0, 1.0) : 1.0;
    SetDepth(session, i, target);
    for (int c = 1; c <= s.ChannelCount; ++c) {
      double value;
      if (IsRodDepth(s, c)) {
        value = ContainsNoCase(s.RodDefaultUnit, "m") ? target : target * session.FeetPerMetre;
      } else {
        const double v0 = raw(above, c), v1 = raw(below, c);
        value = v0 + (v1 - v0) * weight;
      }
      s.RawReadings(i, c) = ToSingle(value);
    }
    s.RowTail[i] = tails[below];
    s.MunsellChips[i] = chips[below];
  }
  for (int r = n + 1; r <= s.ReadingCount; ++r) {
    for (int c = 1; c <= s.ChannelCount; ++c) s.RawReadings(r, c) = 0;
    SetDepth(session, r, 0);
    s.RowTail[r].clear();
    s.MunsellChips[r].clear();
  }
  s.ReadingCount = n;
  // A target past the deepest reading is dropped.
  while (s.ReadingCount > 1 && s.DepthTable(s.ReadingCount, 1) > last) --s.ReadingCount;
  ConvertAll(session);
  Recompute(session);
  return true;
}

bool ChangeTipConfiguration(Session& session, bool ball, std::string_view diameter_mm, UserPrompts& prompts) {
  SoundingStore& s = session.Sounding();
  if (ball) {
    double diameter = 0;
    if (!ReadEntry(diameter_mm, diameter) || diameter <= 0) {
      prompts.Tell("BALL TIP DIAMETER cannot be less than or equal to 0");
      return false;
    }
    const double radius_m = diameter / 2 / 1000;
    const double area = kBallPi * radius_m * radius_m;
    s.BallTip = true;
    s.BallDiameter = ToSingle(diameter);
    s.BallArea = ToSingle(session.BallAreaDoubled == 1 ? 2 * area : area);
  } else {
    s.BallTip = false;
  }
  if (s.TipChannel != 0) ConvertChannel(s, session.units, s.TipChannel);
  RecomputeChannels(session, {s.TipChannel});
  return true;
}

std::string TipConfigurationText(const Session& session) {
  const SoundingStore& s = session.Sounding();
  if (!s.BallTip) return "CONVENTIONAL";
  return FormatText(FormatNumber(s.BallDiameter, "##0"), "@@@") + "mm BALL";
}

void ApplyConeDimensions(Session& session) {
  SoundingStore& s = session.Sounding();
  for (int c = 1; c <= s.ChannelCount; ++c) AlignChannel(s, c);
  ComputeDerivedChannels(session, s.TotalChannels);
}

bool SetReading(Session& session, int row, int channel, std::string_view entry, bool raw_view, UserPrompts& prompts) {
  SoundingStore& s = session.Sounding();
  if (row < 1 || row > s.ReadingCount || channel < 1 || channel > s.ChannelCount) Fail(kErrSubscript);
  double value = 0;
  if (!ReadEntry(TrimBlanks(entry), value)) {
    prompts.Tell("Please enter a valid number");
    return false;
  }
  if (raw_view) {
    s.RawReadings(row, channel) = ToSingle(value);
    ConvertReading(s, session.units, channel, row);
  } else {
    s.ChannelReadings(row, KindColumn(channel, kGraphOutput)) = ToSingle(value);
    InvertAndConvert(session, channel, row);
  }
  RecomputeChannels(session, {channel});
  return true;
}

std::string ChannelBoxText(const Session& session, int channel, ChannelBox box) {
  const SoundingStore& s = session.Sounding();
  switch (box) {
    case ChannelBox::kInitialBaseline:
      return FormatNumber(s.ChannelBaseline[channel], "0.000000E+000");
    case ChannelBox::kFinalBaseline:
      return FormatNumber(s.ChannelEndBaseline[channel], "0.000000E+000");
    case ChannelBox::kOffset:
      return FormatNumber(s.ChannelOffset[channel], "##0.0000");
    case ChannelBox::kUnit:
      return FormatNumber(s.ChannelUnitFactorRows[channel][2], "0.000000E+000");
    case ChannelBox::kCal:
      return FormatNumber(s.ChannelCalRows[channel][2], "0.000000E+000");
  }
  return {};
}

bool SetChannelBox(Session& session, int channel, ChannelBox box, std::string_view entry, UserPrompts& prompts) {
  SoundingStore& s = session.Sounding();
  if (channel < 1 || channel > s.ChannelCount) Fail(kErrSubscript);
  double value = 0;
  if (!ReadEntry(TrimBlanks(entry), value)) {
    prompts.Tell("Please enter a valid number");
    return false;
  }
  const float single = ToSingle(value);
  switch (box) {
    case ChannelBox::kInitialBaseline:
      s.ChannelBaseline[channel] = single;
      break;
    case ChannelBox::kFinalBaseline:
      s.ChannelEndBaseline[channel] = single;
      break;
    case ChannelBox::kOffset:
      s.ChannelOffset[channel] = single;
      break;
    case ChannelBox::kUnit:
      // Row 2 of the unit factors: the area a tip or sleeve force is divided by.
      s.ChannelUnitFactorRows[channel][2] = single;
      break;
    case ChannelBox::kCal:
      // Row 2 of the calibration rows: the sensor's calibration factor.
      s.ChannelCalRows[channel][2] = single;
      break;
  }
  ConvertChannel(s, session.units, channel);
  if (s.EndBaselinePresent) ComputeEndBaselines(s, session.units);
  RecomputeChannels(session, {channel});
  return true;
}

bool DeleteReading(Session& session, int row, bool adjusted_view, UserPrompts& prompts) {
  SoundingStore& s = session.Sounding();
  if (adjusted_view) {
    prompts.Tell("CURRENT CHANNEL VIEW: ADJUSTED FOR OFFSET (READINGS CANNOT BE DELETED)");
    return false;
  }
  if (row < 1 || row > s.ReadingCount) Fail(kErrSubscript);
  const int n = s.ReadingCount;
  for (int r = row; r < n; ++r) {
    for (int c = 1; c <= s.ChannelCount; ++c) {
      s.RawReadings(r, c) = s.RawReadings(r + 1, c);
      for (int k = 0; k < kOutputKinds; ++k) s.ChannelReadings(r, KindColumn(c, k)) = s.ChannelReadings(r + 1, KindColumn(c, k));
    }
    s.DepthTable(r, 1) = s.DepthTable(r + 1, 1);
    s.DepthTable(r, 2) = s.DepthTable(r + 1, 2);
    s.RowTail[r] = s.RowTail[r + 1];
    s.MunsellChips[r] = s.MunsellChips[r + 1];
  }
  for (int c = 1; c <= s.ChannelCount; ++c) {
    s.RawReadings(n, c) = 0;
    for (int k = 0; k < kOutputKinds; ++k) s.ChannelReadings(n, KindColumn(c, k)) = 0;
  }
  s.DepthTable(n, 1) = 0;
  s.DepthTable(n, 2) = 0;
  s.RowTail[n].clear();
  s.MunsellChips[n].clear();
  --s.ReadingCount;
  ConvertAll(session);
  Recompute(session);
  return true;
}

bool RemoveChannel(Session& session, int channel, UserPrompts& prompts) {
  SoundingStore& s = session.Sounding();
  if (channel < 1 || channel > s.ChannelCount) Fail(kErrSubscript);
  if (channel == s.RodDepthChannel && s.AcquisitionFamily == kPlainDatFamily) {
    prompts.Tell("CANNOT REMOVE ROD DEPTH");
    return false;
  }
  if (channel == s.TipChannel) {
    prompts.Tell("CANNOT REMOVE TIP CHANNEL");
    return false;
  }
  if (channel == s.SleeveChannel) {
    prompts.Tell("CANNOT REMOVE FRICTION CHANNEL");
    return false;
  }
  if (channel == s.RodDepthChannel &&
      prompts.Ask("SELECTED CHANNEL IS ROD DEPTH. ARE YOU SURE YOU WANT TO REMOVE?", Buttons::kYesNo) != Answer::kYes) {
    return false;
  }
  if (channel == s.PorePressureChannel &&
      prompts.Ask("SELECTED CHANNEL IS PORE PRESSURE. ARE YOU SURE YOU WANT TO REMOVE?", Buttons::kYesNo) !=
          Answer::kYes) {
    return false;
  }
  const int last = s.ChannelCount;
  ChannelTables& t = s;
  auto move = [&](auto& table) { MoveDown(table, channel, last); };
  move(t.ChannelName), move(t.ChannelSensor), move(t.ChannelShortName), move(t.ChannelLegend);
  move(t.ChannelShortLegend), move(t.ChannelLabel), move(t.ChannelUnitLabel), move(t.ChannelFormat);
  move(t.ChannelDisplayUnit), move(t.ChannelUnitFactor), move(t.ChannelCatalogueId), move(t.ChannelUnitGroup);
  move(t.ChannelDefaultUnit), move(t.ChannelEnabled), move(t.ChannelCurveStyle), move(t.ChannelPascalFactor);
  move(t.ChannelBaseline), move(t.ChannelCalRows), move(t.ChannelUnitFactorRows), move(t.ChannelOffset);
  move(t.ChannelEndBaseline), move(t.EndBaselineValues), move(t.ChannelZero), move(t.ChannelSensitivity);
  move(t.ChannelRange), move(t.ChannelBaseFactor), move(t.ChannelUnitName), move(t.FinalBaselineValue);
  move(t.ChannelDataStart), move(t.ChannelDataEnd), move(t.CptChannelNumber), move(t.CptChannelName);
  move(t.CptUnitText), move(t.CptRowTextA), move(t.CptRowNumberB), move(t.CptEndBaseline);
  for (int r = 0; r <= s.ReadingCount; ++r) {
    for (int c = channel; c < last; ++c) {
      s.RawReadings(r, c) = s.RawReadings(r, c + 1);
      for (int k = 0; k < kOutputKinds; ++k) s.ChannelReadings(r, KindColumn(c, k)) = s.ChannelReadings(r, KindColumn(c + 1, k));
    }
    s.RawReadings(r, last) = 0;
    for (int k = 0; k < kOutputKinds; ++k) s.ChannelReadings(r, KindColumn(last, k)) = 0;
  }
  // The roles follow their channels; the removed one's role is gone.
  for (const RoleField& role : RoleFields()) {
    int16_t& c = s.*(role.member);
    if (c == channel) {
      c = 0;
    } else if (c > channel) {
      --c;
    }
  }
  // The sensor row loses the channel's cell, so a file appended later is checked against the rest.
  constexpr size_t kCaption = 14, kCell = 16;
  const size_t at = kCaption + kCell * static_cast<size_t>(channel - 1);
  if (at < s.SensorRowText.size()) s.SensorRowText.erase(at, kCell);
  s.ChannelCount = static_cast<int16_t>(last - 1);
  ConvertAll(session);
  Recompute(session);
  return true;
}

int RemoveRodBreaksAtPauses(Session& session) {
  SoundingStore& s = session.Sounding();
  RemovalUndo undo;
  int removed = 0;
  // The pauses are found first: each removal derives the sounding again, the time stamps stay.
  std::vector<int> rows;
  for (int r = 3; r <= s.ReadingCount - 2; ++r) {
    if (TailSeconds(s.RowTail[r]) - TailSeconds(s.RowTail[r - 1]) >= session.rod_break.Threshold) rows.push_back(r);
  }
  for (int r : rows) {
    RemoveReadings(session, r, r, undo);
    ++removed;
  }
  return removed;
}

bool CombineCaution(UserPrompts& prompts) {
  return prompts.Ask(
             "CAUTION: DAT files should be combined ONLY if they comprise portions of the same sounding and are "
             "saved in the same format. The headers and baselines of the currently loaded file will be used for the "
             "combined file. Combining files from multiple soundings or file types will result in incorrect data. "
             "Press OK to combine files or CANCEL to return to the EDIT DAT FILE screen",
             Buttons::kOkCancel) == Answer::kOk;
}

bool AppendFamilyMatches(const Session& session, UserPrompts& prompts, std::string_view bytes) {
  LineCursor lines(bytes);
  const std::string_view first = lines.AtEnd() ? std::string_view() : lines.Next();
  const bool versioned = ContainsNoCase(first, "KORVAN FILE VER:");
  const int family = session.Sounding().AcquisitionFamily;
  if (family == kKorvanDatFamily && !versioned) {
    prompts.Tell("First file is a FLDACQ compatible file and cannot be combined with a FLDREC compatible file.");
    return false;
  }
  if (family == kPlainDatFamily && versioned) {
    prompts.Tell("First file is a FLDREC compatible file cannot be combined with a FLDACQ compatible file.");
    return false;
  }
  return true;
}

bool AppendDatFile(Session& session, UserPrompts& prompts, const std::string& path, std::string_view offset_entry) {
  SoundingStore& s = session.Sounding();
  const std::string bytes = InProcedure("AppendDatFile", [&] { return ReadWholeFile(path); });
  if (!AppendFamilyMatches(session, prompts, bytes)) return false;
  LineCursor lines(bytes);
  const std::string_view first = lines.Next();
  const bool versioned = ContainsNoCase(first, "KORVAN FILE VER:");
  double offset = 0;
  if (!ReadEntry(offset_entry, offset) || offset < 0) {
    prompts.Tell("Please enter a valid depth");
    return false;
  }
  if (session.DepthUnitIsMetric != 1) offset /= session.FeetPerMetre;
  // After its first line the header is skipped by its length in lines, which takes the file's
  // first reading with it: the field systems' own combine does the same, and combined soundings
  // are compared with theirs.
  int skip = 49, sensor_line = 31;
  if (versioned && first.find("08.05.2015") != std::string_view::npos) {
    skip = 60, sensor_line = 34;
  } else if (versioned) {
    skip = 59, sensor_line = 33;
  }
  const std::string_view sensor_row = InProcedure("AppendDatFile", [&] {
    lines.Skip(sensor_line - 2);
    return lines.Next();
  });
  if (TrimRightBlanks(sensor_row) != TrimRightBlanks(s.SensorRowText)) {
    prompts.Tell("The number of channels in the two files do not match. The two files cannot be combined");
    return false;
  }
  const float base = ToSingle(s.DepthTable(s.ReadingCount, 1) + offset);
  ReadAppendedDatReadings(bytes, skip + 1, base, session, s, prompts);
  ConvertAll(session);
  Recompute(session);
  if (s.EndBaselinePresent) ComputeEndBaselines(s, session.units);
  return true;
}

bool SaveSoundingAs(Session& session, UserPrompts& prompts, const std::string& path, bool dat_compatible) {
  if (FileExists(path)) {
    // A file that is write-protected is not replaced behind the user's back.
    if (::access(path.c_str(), W_OK) != 0) {
      prompts.Tell(path + " already exists. Cannot Overwrite");
      return false;
    }
    if (prompts.Ask(path + " already exists. Overwrite?", Buttons::kYesNo) != Answer::kYes) return false;
  }
  return SaveSounding(session, prompts, path, dat_compatible);
}

bool SoundingSaveOffered(const SoundingStore& store) { return store.AcquisitionFamily != kGefFamily; }

bool ChooseAndSaveSounding(Session& session, UserPrompts& prompts, bool dat_compatible) {
  const SoundingStore& s = session.Sounding();
  if (!SoundingSaveOffered(s)) return false;
  FileDialogRequest request;
  request.title = "Save As";
  request.filter = s.AcquisitionFamily == kPxDasFamily && !dat_compatible
                       ? "CPT Files (*.cpt)|*.cpt|All Files (*.*)|*.*"
                       : "DAT Files (*.dat)|*.dat|All Files (*.*)|*.*";
  request.start_directory = s.SoundingFolder;
  request.default_name = s.SoundingFileName;
  const std::string path = prompts.SaveFile(request);
  if (path.empty()) return false;
  return SaveSoundingAs(session, prompts, path, dat_compatible);
}

}  // namespace marlview
