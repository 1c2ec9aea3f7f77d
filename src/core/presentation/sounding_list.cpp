// The sounding's list: the rows and texts the list window shows, and its settings.
#include "core/presentation/sounding_list.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "core/common/file_access.h"
#include "core/common/number_format.h"
#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"
#include "core/presentation/print_job.h"
#include "core/presentation/sounding_exports.h"
#include "core/session/session.h"
#include "core/settings/settings_files.h"

namespace marlview {
namespace {

constexpr int kMaxColumnWidth = 200;
// A list shows at most this many channels.
constexpr size_t kMaxListedChannels = 30;
constexpr int kDepthColumnWidth = 10;
constexpr double kPageMarginPoints = 36;
constexpr double kPrintFontPoints = 8;
// Depths are stored as floats: a row a hair short of a multiple still counts as reaching it.
constexpr double kIntervalSlack = 1e-4;

// A number typed into a box, or nothing when it is not one.
std::optional<double> EntryNumber(const std::string& entry) {
  try {
    return StrictNumber(entry);
  } catch (const RuntimeFailure&) {
    return std::nullopt;
  }
}

// Right-aligned in width columns; a longer text is kept whole.
std::string Column(const std::string& text, int width) {
  return FormatText(text, std::string(static_cast<size_t>(std::max(width, 1)), '@'));
}

}  // namespace

std::vector<int> AvailableChannelList(const SoundingStore& s) {
  const int16_t roles[] = {s.TipChannel,    s.TipQtChannel,           s.SleeveChannel, s.PorePressureChannel,
                           s.FrictionRatioQtChannel, s.InclXChannel, s.InclYChannel,  s.Sbt83Channel,
                           s.FrictionRatioQcChannel, s.SptChannel};
  std::vector<int> channels;
  for (int16_t channel : roles) {
    if (channel != 0 && std::find(channels.begin(), channels.end(), channel) == channels.end()) {
      channels.push_back(channel);
    }
  }
  const size_t listed_roles = channels.size();
  for (int c = 1; c <= s.TotalChannels; ++c) {
    const auto roles_end = channels.begin() + static_cast<long>(listed_roles);
    if (std::find(channels.begin(), roles_end, c) != roles_end) continue;
    if (ContainsNoCase(s.ChannelName[c], "Not Connected")) continue;
    channels.push_back(c);
  }
  return channels;
}

std::vector<int> DefaultListSelection(const SoundingStore& s) {
  std::vector<int> channels = AvailableChannelList(s);
  if (channels.size() > kMaxListedChannels) channels.resize(kMaxListedChannels);
  return channels;
}

std::vector<int> ListRows(const Session& session, const ListView& view) {
  const SoundingStore& s = session.Sounding();
  std::vector<int> rows;
  const double step = view.depth_interval;
  double next = -INFINITY;
  for (int r = 1; r <= s.ReadingCount; ++r) {
    if (step <= 0) {
      rows.push_back(r);
      continue;
    }
    const double depth = s.DepthTable(r, 1);
    if (depth < next - step * kIntervalSlack) continue;
    rows.push_back(r);
    next = (std::floor(depth / step + kIntervalSlack) + 1) * step;
  }
  return rows;
}

std::string ListDepthText(const Session& session, const ListView& view, int row) {
  const double depth = session.Sounding().DepthTable(row, view.depth_unit == 1 ? 1 : 2);
  return FormatNumber(view.elevation ? -depth : depth, "##0.000");
}

std::string ListCellText(const Session& session, const ListView& view, int row, int channel) {
  return std::string(TrimBlanks(CellText(session, row, channel, kGraphOutput, view.raw)));
}

std::vector<std::string> ListHeading(const Session& session, const ListView& view) {
  const SoundingStore& s = session.Sounding();
  std::vector<std::string> heading;
  const std::string depth = view.raw ? (view.elevation ? "ELEV." : "DEPTH") : (view.elevation ? "Elev." : "Depth");
  heading.push_back(depth + "\n(" + (view.depth_unit == 1 ? "m" : "ft") + ")");
  for (int c : view.channels) heading.push_back(s.ChannelShortName[c] + "\n" + s.ChannelUnitLabel[c][kGraphOutput]);
  return heading;
}

ExportOptions ListExportOptions(const ListView& view, bool include_header) {
  return ExportOptions{.channels = view.channels,
                       .include_header = include_header,
                       .raw = view.raw,
                       .elevation = view.elevation,
                       .depth_unit = view.depth_unit};
}

std::vector<std::string> ListPrintHeads(const Session& session, const ListView& view) {
  const int width = session.ColumnWidth;
  std::string names, units;
  const std::vector<std::string> heading = ListHeading(session, view);
  for (size_t i = 0; i < heading.size(); ++i) {
    const size_t split = heading[i].find('\n');
    const int w = i == 0 ? kDepthColumnWidth : width;
    names += Column(heading[i].substr(0, split), w);
    units += Column(heading[i].substr(split + 1), w);
  }
  return {names, units};
}

std::string ListPrintRow(const Session& session, const ListView& view, int row) {
  std::string line = Column(ListDepthText(session, view, row), kDepthColumnWidth);
  for (int c : view.channels) line += Column(ListCellText(session, view, row, c), session.ColumnWidth);
  return line;
}

void PrintTextLines(PrintJob& job, const std::vector<std::string>& lines) {
  const double width = job.PageWidthPoints(), height = job.PageHeightPoints();
  DrawingSurface* page = nullptr;
  for (const std::string& line : lines) {
    const std::string text = line.empty() ? " " : line;
    if (page == nullptr || page->CurrentY() + page->TextHeight(text) > height - kPageMarginPoints) {
      page = &job.NewPage();
      page->SetScale(0, 0, width, height);
      page->SetFont("courier new", kPrintFontPoints, false, false);
      page->SetCurrentXY(kPageMarginPoints, kPageMarginPoints);
    }
    page->SetCurrentXY(kPageMarginPoints, page->CurrentY());
    page->Print(text);
  }
}

std::string ListIntervalEntry(const ListView& view) { return ShortestText(view.depth_interval * 1000.0); }

bool ChangeColumnWidth(Session& session, int width) {
  if (width < 1 || width > kMaxColumnWidth) return false;
  InProcedure("mnuColumnWidths_Click",
              [&] { WriteFileAtomically(session.SettingsPath("Column Widths"), NumberLine(width)); });
  session.ColumnWidth = width;
  return true;
}

bool ChangeColumnWidth(Session& session, UserPrompts& prompts, const std::string& entry) {
  if (TrimBlanks(entry).empty()) return false;
  const std::optional<double> width = EntryNumber(entry);
  if (!width || *width != std::floor(*width) || !ChangeColumnWidth(session, static_cast<int>(*width))) {
    prompts.Tell("Please enter a valid column width");
    return false;
  }
  return true;
}

bool ChangeListInterval(ListView& view, UserPrompts& prompts, const std::string& entry) {
  if (TrimBlanks(entry).empty()) return false;
  const std::optional<double> millimetres = EntryNumber(entry);
  if (!millimetres || *millimetres < 0) {
    prompts.Tell("Please enter a valid interval");
    return false;
  }
  view.depth_interval = *millimetres / 1000.0;
  return true;
}

bool SaveExport(Session& session, UserPrompts& prompts, const std::string& extension,
                const std::function<std::string()>& render) {
  FileDialogRequest request;
  request.title = "Save As";
  request.filter = ExportFilter(extension);
  request.start_directory = session.SoundingDirectory;
  const std::string chosen = prompts.SaveFile(request);
  if (chosen.empty()) return false;
  const std::string path = WithExtension(chosen, extension);
  if (FileExists(path) && prompts.Ask("File exists. Overwrite?", Buttons::kYesNo) != Answer::kYes) return false;
  const std::string bytes = render();
  InProcedure("ExportFile", [&] { WriteFileAtomically(path, bytes); });
  return true;
}

}  // namespace marlview
