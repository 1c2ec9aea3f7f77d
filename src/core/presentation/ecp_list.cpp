// The ECP list: its columns, cells and headings, its settings files and its export.
#include "core/presentation/ecp_list.h"

#include <algorithm>
#include <cmath>

#include "core/common/file_access.h"
#include "core/common/number_format.h"
#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"
#include "core/presentation/sounding_exports.h"
#include "core/presentation/sounding_list.h"
#include "core/session/session.h"
#include "core/settings/settings_files.h"

namespace marlview {
namespace {

constexpr const char* kLineEnd = "\r\n";
constexpr const char* kColumnMask = "@@@@@@@@@@@@@@@";
constexpr const char* kDepthMask = "@@@@@@@@";
constexpr const char* kUnitFile = "Default ECP Units.txt";
constexpr const char* kTemplateFile = "Ordered ECP Channels.txt";
constexpr size_t kEcpTemplateLines = 52;
constexpr const char* kUnitLabels[] = {"(psi)", "(tsf)", "(kPa)", "(MPa)"};

int ValidUnit(int unit) { return unit >= kEcpPsi && unit <= kEcpMpa ? unit : kEcpPsi; }

}  // namespace

std::vector<int> OrderedEcpChannels(const SoundingStore& s, const std::vector<std::string>& names) {
  std::vector<int> channels;
  for (int c = 1; c <= s.TotalChannels; ++c) {
    if (std::find(names.begin(), names.end(), s.ChannelName[c]) != names.end()) channels.push_back(c);
  }
  return channels;
}

void ChooseEcpColumns(const Session& session, EcpView& view) {
  const SoundingStore& s = session.Sounding();
  if (view.ordered) {
    view.channels = OrderedEcpChannels(s, EcpTemplateNames(session));
  } else {
    view.channels = view.selection.empty() ? DefaultListSelection(s) : view.selection;
  }
}

bool IsEcpPressure(const SoundingStore& s, int c) { return c >= 1 && s.ChannelUnitGroup[c] == kPressureGroup; }

std::string EcpUnitLabel(const Session& session, const EcpView& view, int c) {
  const SoundingStore& s = session.Sounding();
  const int unit = ValidUnit(view.unit);
  if (IsEcpPressure(s, c)) return kUnitLabels[unit];
  return s.ChannelUnitLabel[c][kEcpOutput];
}

namespace {

void AppendEcpDepth(std::string& out, const Session& session, int row) {
  AppendNumber(out, session.Sounding().DepthTable(row, session.DepthUnitIsMetric == 1 ? 1 : 2), "##0.000");
}

// The cell untrimmed: a pressure in the view's unit, or the list's cell of the ECP output.
void AppendEcpCell(std::string& out, const Session& session, const EcpView& view, int row, int c) {
  const SoundingStore& s = session.Sounding();
  if (s.IsMissing(row, c)) return;
  if (IsEcpPressure(s, c)) {
    const int unit = ValidUnit(view.unit);
    AppendNumber(out, s.AlignedFixedPressure[unit](row, c), NumberPattern(s, c, kEcpOutput));
  } else {
    AppendCellText(out, session, row, c, kEcpOutput, false);
  }
}

}  // namespace

std::string EcpDepthText(const Session& session, int row) {
  std::string out;
  AppendEcpDepth(out, session, row);
  return out;
}

std::string EcpCellText(const Session& session, const EcpView& view, int row, int c) {
  std::string out;
  AppendEcpCell(out, session, view, row, c);
  return std::string(TrimBlanks(out));
}

std::vector<std::string> EcpHeading(const Session& session, const EcpView& view) {
  const SoundingStore& s = session.Sounding();
  std::vector<std::string> heading{std::string("Depth\n") + (session.DepthUnitIsMetric == 1 ? "(m)" : "(ft)")};
  for (int c : view.channels) heading.push_back(s.ChannelShortName[c] + "\n" + EcpUnitLabel(session, view, c));
  return heading;
}

int ReadDefaultEcpUnit(const Session& session) {
  const auto bytes = TryReadWholeFile(session.SettingsPath(kUnitFile));
  if (!bytes) return kEcpPsi;
  const std::vector<std::string_view> lines = SplitLines(*bytes);
  if (lines.empty()) return kEcpPsi;
  const double unit = LenientNumber(lines.front());
  return unit >= kEcpPsi && unit <= kEcpMpa && unit == std::floor(unit) ? static_cast<int>(unit) : kEcpPsi;
}

void WriteDefaultEcpUnit(const Session& session, int unit) {
  InProcedure("WriteDefaultEcpUnits",
              [&] { WriteFileAtomically(session.SettingsPath(kUnitFile), NumberLine(ValidUnit(unit))); });
}

std::vector<std::string> EcpTemplateNames(const Session& session) {
  if (!session.OrderedEcpNames.empty()) return session.OrderedEcpNames;
  std::vector<std::string> names;
  const auto bytes = TryReadWholeFile(session.SettingsPath(kTemplateFile));
  if (!bytes) return names;
  for (std::string_view line : SplitLines(*bytes)) {
    if (!TrimBlanks(line).empty()) names.emplace_back(TrimBlanks(line));
  }
  return names;
}

void SaveEcpTemplate(Session& session, const std::vector<std::string>& names) {
  std::string bytes;
  for (const std::string& name : names) bytes += name + kLineEnd;
  // The file always holds its 52 lines, as the start-up reads it; unused lines stay empty.
  for (size_t line = names.size(); line < kEcpTemplateLines; ++line) bytes += kLineEnd;
  InProcedure("cmdOK_Click", [&] { WriteFileAtomically(session.SettingsPath(kTemplateFile), bytes); });
  session.OrderedEcpNames = names;
}

std::string EcpExport(const Session& session, const EcpView& view) {
  const SoundingStore& s = session.Sounding();
  std::string out;
  auto line = [&out](const std::string& text) { out += text + kLineEnd; };
  ExportOptions options;
  options.channels = view.channels;
  options.depth_unit = session.DepthUnitIsMetric == 1 ? 1 : 2;
  for (const std::string& text : TextHeaderBlock(session, options)) line(text);
  line("");
  std::string names = FormatText("Depth", kDepthMask);
  std::string units = FormatText(session.DepthUnitIsMetric == 1 ? "(m)" : "(ft)", kDepthMask);
  std::string rule = FormatText("____", kDepthMask);
  for (int c : view.channels) {
    names += FormatText(s.ChannelShortName[c], kColumnMask);
    units += FormatText(EcpUnitLabel(session, view, c), kColumnMask);
    rule += std::string(std::string_view(kColumnMask).size(), '_');
  }
  line(names);
  line(units);
  line(rule);
  // Each cell is formatted into one scratch text and aligned onto the end of the file's text.
  std::string cell;
  for (int r = 1; r <= s.ReadingCount; ++r) {
    cell.clear();
    AppendEcpDepth(cell, session, r);
    AppendText(out, cell, kDepthMask);
    for (int c : view.channels) {
      cell.clear();
      AppendEcpCell(cell, session, view, r, c);
      AppendText(out, TrimBlanks(cell), kColumnMask);
    }
    out += kLineEnd;
  }
  return out;
}

}  // namespace marlview
