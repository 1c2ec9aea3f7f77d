// The sounding editor's slots, views, cursor, header boxes and change tracking.
#include "core/editing/editor.h"

#include <algorithm>

#include "core/common/file_access.h"
#include "core/common/number_format.h"
#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"
#include "core/editing/edit_operations.h"
#include "core/io/sounding_writer.h"
#include "core/model/sounding_slots.h"
#include "core/session/session.h"

namespace marlview {
namespace {

// The grid's fixed-width line: a depth column, then one cell per slot as wide as a DAT file's cell.
constexpr const char* kDepthColumn = "@@@@@@@@@@";
constexpr const char* kValueColumn = "@@@@@@@@@@@@@@@@";
constexpr const char* kRawFormat = "0.000000E+000";
constexpr const char* kEngineeringFormat = "######0.0000";
constexpr double kInchesPerFoot = 12;

// The lengths of a dimensions row the cone dialog shows: tip length, filter (the shoulder behind
// the cone where a u2 filter sits), sleeve length, and tip to filter (the pore pressure element).
constexpr int kTipLength = 1, kFilterLength = 2, kSleeveLength = 3, kTipToFilter = 6;

bool IsNumber(std::string_view entry, double& value) {
  try {
    value = StrictNumber(entry);
    return true;
  } catch (const RuntimeFailure&) {
    return false;
  }
}

}  // namespace

SoundingEditor::SoundingEditor(Session& session, UserPrompts& prompts)
    : session_(session), prompts_(prompts), depth_in_feet_(session.DepthUnitIsMetric != 1) {
  Clamp();
}

std::string SoundingEditor::Caption() const {
  return "EDIT SOUNDING FILE: " + session_.Sounding().SoundingFileName;
}

std::string SoundingEditor::DataUnitsMenuCaption() const {
  return show_raw_volts_ ? "Display Eng. Unit Data" : "Display Voltage Data";
}

std::string SoundingEditor::DepthCaption() const { return depth_in_feet_ ? "DEPTH(ft)" : "DEPTH(m)"; }

std::string SoundingEditor::UnitsText() const {
  if (show_raw_volts_) return "RAW VOLTS";
  const int c = current_channel_;
  if (c < 1 || c > ChannelCount()) return {};
  return session_.Sounding().ChannelUnitLabel[c][kGraphOutput];
}

std::string SoundingEditor::StatusText() const {
  return adjusted_for_offset_ ? "CURRENT CHANNEL VIEW: ADJUSTED FOR OFFSET (READINGS CANNOT BE DELETED)"
                              : "CURRENT CHANNEL VIEW: UN-ADJUSTED FOR OFFSET (READINGS CAN BE DELETED)";
}

std::string SoundingEditor::ReadingNumberText() const {
  return RowCount() == 0 ? std::string() : std::to_string(current_row_);
}

std::string SoundingEditor::HeaderText(HeaderBox box) const {
  const SoundingStore& s = session_.Sounding();
  switch (box) {
    case HeaderBox::kFilename:
      return s.SoundingFileName;
    case HeaderBox::kDate:
      return s.TestDate;
    case HeaderBox::kTime:
      return s.StartTime;
    case HeaderBox::kCompany:
      return s.FileProductLine;
    case HeaderBox::kCrew:
      return s.Crew;
    case HeaderBox::kDasId:
      return s.DasSystem;
    case HeaderBox::kClient:
      return s.Client;
    case HeaderBox::kClientRep:
      return s.ClientRepresentative;
    case HeaderBox::kComments:
      return s.Comments;
    case HeaderBox::kGpsLat:
      return s.GpsLat;
    case HeaderBox::kGpsLon:
      return s.GpsLon;
    case HeaderBox::kGpsElev:
      return s.GpsElev;
    case HeaderBox::kGpsNSat:
      return s.GpsNSat;
    case HeaderBox::kStartDepth:
      return FormatNumber(s.StartDepth, "##0.00");
    case HeaderBox::kWeather:
      return s.Weather;
  }
  return {};
}

void SoundingEditor::SetHeaderText(HeaderBox box, std::string_view text) {
  SoundingStore& s = session_.Sounding();
  std::string value(text);
  switch (box) {
    case HeaderBox::kFilename:
      s.SoundingFileName = value;
      break;
    case HeaderBox::kDate:
      s.TestDate = value;
      break;
    case HeaderBox::kTime:
      s.StartTime = value;
      break;
    case HeaderBox::kCompany:
      // The contractor's line under the version line; a file without a version line has one
      // first line for both.
      s.FileProductLine = value;
      if (s.AcquisitionFamily == kPlainDatFamily) s.FileVersionLine = value;
      break;
    case HeaderBox::kCrew:
      s.Crew = value;
      break;
    case HeaderBox::kDasId:
      s.DasSystem = value;
      break;
    case HeaderBox::kClient:
      s.Client = value;
      break;
    case HeaderBox::kClientRep:
      s.ClientRepresentative = value;
      break;
    case HeaderBox::kComments:
      s.Comments = value;
      break;
    case HeaderBox::kGpsLat:
      s.GpsLat = value;
      break;
    case HeaderBox::kGpsLon:
      s.GpsLon = value;
      break;
    case HeaderBox::kGpsElev:
      s.GpsElev = value;
      break;
    case HeaderBox::kGpsNSat:
      s.GpsNSat = value;
      break;
    // The header's test depth in metres, read as the header line is; the readings stay where they
    // are (mnuChangeStartDepth moves them).
    case HeaderBox::kStartDepth:
      s.StartDepth = ToSingle(LenientNumber(value));
      break;
    case HeaderBox::kWeather:
      s.Weather = value;
      break;
  }
  dirty_ = true;
}

int SoundingEditor::ChannelCount() const { return session_.Sounding().ChannelCount; }

int SoundingEditor::LastFirstColumn() const { return std::max(1, ChannelCount() - kEditorSlots + 1); }

void SoundingEditor::SetFirstColumn(int first) {
  first_column_ = std::clamp(first, 1, LastFirstColumn());
  current_channel_ = std::clamp(current_channel_, first_column_, first_column_ + kEditorSlots - 1);
  current_channel_ = std::min(current_channel_, std::max(1, ChannelCount()));
}

int SoundingEditor::SlotChannel(int slot) const {
  if (slot < 1 || slot > kEditorSlots) return 0;
  const int c = first_column_ + slot - 1;
  return c <= ChannelCount() ? c : 0;
}

std::string SoundingEditor::SlotHeading(int slot) const {
  const int c = SlotChannel(slot);
  if (c == 0) return {};
  const SoundingStore& s = session_.Sounding();
  return s.ChannelName[c] + "\n" +
         (show_raw_volts_ ? std::string("RAW VOLTS") : s.ChannelUnitLabel[c][kGraphOutput]);
}

std::string SoundingEditor::SlotBoxText(int slot, ChannelBox box) const {
  const int c = SlotChannel(slot);
  return c == 0 ? std::string() : ChannelBoxText(session_, c, box);
}

bool SoundingEditor::SetSlotBox(int slot, ChannelBox box, std::string_view entry) {
  const int c = SlotChannel(slot);
  if (c == 0 || TrimBlanks(entry) == TrimBlanks(ChannelBoxText(session_, c, box))) return false;
  if (!SetChannelBox(session_, c, box, entry, prompts_)) return false;
  dirty_ = true;
  return true;
}

int SoundingEditor::RowCount() const { return session_.Sounding().ReadingCount; }

std::string SoundingEditor::DepthText(int row) const {
  return FormatNumber(session_.Sounding().DepthTable(row, depth_in_feet_ ? 2 : 1), "##0.000");
}

std::string SoundingEditor::ValueText(int row, int channel) const {
  const SoundingStore& s = session_.Sounding();
  if (show_raw_volts_) return FormatNumber(s.RawReadings(row, channel), kRawFormat);
  const int column = KindColumn(channel, kGraphOutput);
  const float value = adjusted_for_offset_ ? s.AlignedReadings(row, column) : s.ChannelReadings(row, column);
  return FormatNumber(value, kEngineeringFormat);
}

std::string SoundingEditor::RowLine(int row) const {
  std::string line = FormatText(DepthText(row), kDepthColumn);
  for (int slot = 1; slot <= kEditorSlots; ++slot) {
    const int c = SlotChannel(slot);
    if (c != 0) line += FormatText(ValueText(row, c), kValueColumn);
  }
  return line;
}

std::vector<std::string> SoundingEditor::PrintLines() const {
  std::vector<std::string> lines{Caption(), StatusText(), std::string()};
  std::string names = FormatText(DepthCaption(), kDepthColumn), units = FormatText("", kDepthColumn);
  for (int slot = 1; slot <= kEditorSlots; ++slot) {
    const std::string heading = SlotHeading(slot);
    if (heading.empty()) continue;
    const size_t split = heading.find('\n');
    names += FormatText(heading.substr(0, split), kValueColumn);
    units += FormatText(heading.substr(split + 1), kValueColumn);
  }
  lines.push_back(names);
  lines.push_back(units);
  for (int r = 1; r <= RowCount(); ++r) lines.push_back(RowLine(r));
  return lines;
}

void SoundingEditor::SetCurrent(int row, int channel) {
  current_row_ = row;
  current_channel_ = channel;
  Clamp();
  ShowChannel(current_channel_);
}

void SoundingEditor::MoveRow(int delta) {
  current_row_ += delta;
  Clamp();
}

void SoundingEditor::MoveChannel(int delta) {
  current_channel_ += delta;
  Clamp();
  ShowChannel(current_channel_);
}

void SoundingEditor::ShowChannel(int channel) {
  if (channel < first_column_) first_column_ = channel;
  if (channel > first_column_ + kEditorSlots - 1) first_column_ = channel - kEditorSlots + 1;
  first_column_ = std::clamp(first_column_, 1, LastFirstColumn());
}

void SoundingEditor::Clamp() {
  current_row_ = std::clamp(current_row_, std::min(1, RowCount()), RowCount());
  current_channel_ = std::clamp(current_channel_, 1, std::max(1, ChannelCount()));
  first_column_ = std::clamp(first_column_, 1, LastFirstColumn());
  ShowChannel(current_channel_);
}

bool SoundingEditor::SetValue(int row, int channel, std::string_view entry) {
  if (TrimBlanks(entry) == TrimBlanks(ValueText(row, channel))) return false;
  if (!SetReading(session_, row, channel, entry, show_raw_volts_, prompts_)) return false;
  dirty_ = true;
  return true;
}

bool SoundingEditor::DeleteCurrentReading() {
  if (RowCount() == 0) return false;
  if (!DeleteReading(session_, current_row_, adjusted_for_offset_, prompts_)) return false;
  Changed();
  return true;
}

bool SoundingEditor::RemoveCurrentChannel() {
  if (ChannelCount() == 0) return false;
  if (!RemoveChannel(session_, current_channel_, prompts_)) return false;
  Changed();
  return true;
}

void SoundingEditor::Changed() {
  dirty_ = true;
  Clamp();
}

bool SoundingEditor::ConfirmLeave() {
  return !dirty_ || prompts_.Ask(
                        "Data has been modified but not saved. Changes will be temporary and discarded after "
                        "processing is finished. Are you sure you want to exit?",
                        Buttons::kYesNo) == Answer::kYes;
}

void SoundingEditor::Leave() { SaveToSlot(session_.Sounding(), session_.Slots(), session_.CurrentSlot); }

bool ShiftChannelEntries(Session& session, const std::vector<std::pair<int, std::string>>& entries,
                         UserPrompts& prompts) {
  std::vector<std::pair<int, double>> amounts;
  for (const auto& [channel, entry] : entries) {
    double amount = 0;
    if (!TrimBlanks(entry).empty() && !IsNumber(entry, amount)) {
      prompts.Tell("Please enter a valid number");
      return false;
    }
    amounts.emplace_back(channel, amount);
  }
  ShiftChannels(session, amounts);
  return true;
}

std::string AdjustDepthDialogText(const Session& session) {
  const SoundingStore& s = session.Sounding();
  const int last = s.ReadingCount;
  if (last < 1) return FormatNumber(0, "##0.000");
  return FormatNumber(s.DepthTable(last, session.DepthUnitIsMetric == 1 ? 1 : 2), "##0.000");
}

std::string BallDiameterText(const Session& session) {
  const SoundingStore& s = session.Sounding();
  return s.BallTip ? FormatNumber(s.BallDiameter, "##0") : std::string();
}

std::vector<std::string> ConeNames(const Session& session) {
  std::vector<std::string> names;
  for (const ProbeDimensions& cone : session.probe_dimensions)
    names.push_back(cone.model + " " + cone.description);
  return names;
}

int ConeOfSounding(const Session& session) {
  const std::string& probe = session.Sounding().ProbeSerial;
  for (size_t i = 0; i < session.probe_dimensions.size(); ++i) {
    const std::string& model = session.probe_dimensions[i].model;
    if (!model.empty() && ContainsNoCase(probe, model)) return static_cast<int>(i);
  }
  return 0;
}

ConeDimensionTexts ConeDimensionsText(const Session& session, int cone) {
  if (cone < 0 || cone >= static_cast<int>(session.probe_dimensions.size())) return {};
  const auto& lengths = session.probe_dimensions[static_cast<size_t>(cone)].lengths_m;
  const bool metric = session.DepthUnitIsMetric == 1;
  auto text = [&](int i) {
    const double metres = lengths[static_cast<size_t>(i)];
    return metric ? FormatNumber(metres, "0.0000")
                  : FormatNumber(metres * session.FeetPerMetre * kInchesPerFoot, "0.000");
  };
  return {text(kTipLength), text(kFilterLength), text(kSleeveLength), text(kTipToFilter),
          metric ? "(m)" : "(in)"};
}

std::string ChooseDatToAppend(Session& session, UserPrompts& prompts) {
  if (!CombineCaution(prompts)) return {};
  FileDialogRequest request;
  request.title = "Select DAT to add";
  request.filter = "DAT Files (*.dat)|*.dat";
  if (DirectoryExists(session.SoundingDirectory)) request.start_directory = session.SoundingDirectory;
  const std::string path = prompts.OpenFile(request);
  if (path.empty()) return {};
  const std::string bytes = InProcedure("AppendDatFile", [&] { return ReadWholeFile(path); });
  return AppendFamilyMatches(session, prompts, bytes) ? path : std::string();
}

bool CheckAppendOffset(std::string_view entry, UserPrompts& prompts) {
  double offset = 0;
  if (!IsNumber(entry, offset) || offset < 0) {
    prompts.Tell("Please enter a valid depth");
    return false;
  }
  return true;
}

bool SoundingEditor::Save(bool choose_file, bool dat_compatible) {
  const SoundingStore& s = session_.Sounding();
  bool saved;
  if (choose_file) {
    saved = ChooseAndSaveSounding(session_, prompts_, dat_compatible);
  } else {
    saved = SaveSounding(session_, prompts_, s.SoundingPath, false);
  }
  if (saved && !dat_compatible) dirty_ = false;
  return saved;
}

}  // namespace marlview
