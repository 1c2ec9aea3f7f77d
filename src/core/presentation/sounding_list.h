// The sounding's list: which rows it shows, the depth and heading of each column, the column
// width setting, the depth interval entry, and saving an export chosen from the list's menus.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/common/user_prompts.h"

namespace marlview {

class PrintJob;
class Session;
class SoundingStore;
struct ExportOptions;

// The main window's list of channels to choose from: the main roles first (tip, corrected tip,
// sleeve, pore pressure, the two friction ratios around the inclinations, SBT 1983, SPT), then
// every other channel in table order, less those named "Not Connected".
std::vector<int> AvailableChannelList(const SoundingStore& s);
// The selection a list or an export takes when none is made: the available list, at most 30.
std::vector<int> DefaultListSelection(const SoundingStore& s);

struct ListView {
  // The columns after the depth, in order.
  std::vector<int> channels;
  // Values not adjusted for the channels' offsets behind the tip.
  bool raw = false;
  bool elevation = false;
  // 1: metres; otherwise feet.
  int depth_unit = 1;
  // Metres between the rows shown (the interval is entered in millimetres whatever the depth
  // unit); 0 shows every row. It thins the list only, never the exports.
  double depth_interval = 0;
};

// The sounding's rows (1-based) the list shows: all, or the first at or past each multiple of the
// depth interval.
std::vector<int> ListRows(const Session& session, const ListView& view);
// The depth of a row as the list's first column shows it.
std::string ListDepthText(const Session& session, const ListView& view, int row);
// A channel's cell, without the blanks the fixed-width forms pad it with.
std::string ListCellText(const Session& session, const ListView& view, int row, int channel);
// Per column, the depth's first: the short name and the unit label on two lines.
std::vector<std::string> ListHeading(const Session& session, const ListView& view);

// The export options of what the list shows.
ExportOptions ListExportOptions(const ListView& view, bool include_header);
// The printed list's two lines of column heads (short names, then units) and the line of a row,
// each column as wide as the column width setting; the pages around them are the report's.
std::vector<std::string> ListPrintHeads(const Session& session, const ListView& view);
std::string ListPrintRow(const Session& session, const ListView& view, int row);
// Prints text lines as the list is printed: a fixed-width font, top to bottom, page after page.
void PrintTextLines(PrintJob& job, const std::vector<std::string>& lines);

// The interval box's text: the current interval in millimetres.
std::string ListIntervalEntry(const ListView& view);

// Keeps the width (in characters) of the list's columns in "Column Widths"; false for a width
// that is not a positive whole number of at most 200.
bool ChangeColumnWidth(Session& session, int width);
// The column width box's entry: empty when cancelled (false, nothing said), else checked and kept.
bool ChangeColumnWidth(Session& session, UserPrompts& prompts, const std::string& entry);
// The depth interval box's entry in millimetres: empty when cancelled (false, nothing said),
// "Please enter a valid interval" for anything but a number of zero or more.
bool ChangeListInterval(ListView& view, UserPrompts& prompts, const std::string& entry);

// Asks where to save an export of the given extension, whether to overwrite a file that is there,
// and writes what render makes. False when the user stopped at either question.
bool SaveExport(Session& session, UserPrompts& prompts, const std::string& extension,
                const std::function<std::string()>& render);

}  // namespace marlview
