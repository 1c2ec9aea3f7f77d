// The export files of a sounding's list: plain text, comma separated (csv and cor) and gIN.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace marlview {

class Session;
class SoundingStore;

struct ExportOptions {
  // The list's columns, in order (at most 30).
  std::vector<int> channels;
  bool include_header = true;
  // Values not adjusted for the channels' offsets behind the tip.
  bool raw = false;
  bool elevation = false;
  // 1: metres; otherwise feet.
  int depth_unit = 1;
};

enum class GinUnit { kPsi = 1, kTsf = 2, kKpa = 3, kMpa = 4 };

// "TIP CONFIGURATION: Conventional" or the ball tip with its diameter.
std::string TipConfigurationLine(const SoundingStore& store);
// The header block of the text form, one line each.
std::vector<std::string> TextHeaderBlock(const Session& session, const ExportOptions& options);
// The header block of the csv and cor forms.
std::vector<std::string> CsvHeaderBlock(const Session& session, const ExportOptions& options);

std::string TxtExport(const Session& session, const ExportOptions& options);
// extension "csv" or "cor": the cor file has two empty lines after its header block.
std::string CsvExport(const Session& session, const ExportOptions& options, const std::string& extension);
std::string GinExport(const Session& session, GinUnit unit);

// The channel's number pattern for an output kind; a channel without one shows three decimals.
std::string_view NumberPattern(const SoundingStore& s, int channel, int kind);

// A cell as the list shows it: a zone with its label, SPT as a whole number, the Munsell chip,
// the time of the reading, or the value in the channel's format for the output kind.
std::string CellText(const Session& session, int row, int channel, int kind, bool raw);
// CellText onto the end of out.
void AppendCellText(std::string& out, const Session& session, int row, int channel, int kind, bool raw);

// The save dialog's filter of each export and the extension rule.
std::string ExportFilter(const std::string& extension);
std::string WithExtension(const std::string& path, const std::string& extension);

}  // namespace marlview
