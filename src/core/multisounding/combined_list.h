// The combined data list: the ticked tests side by side on the common depth grid, with its three
// export forms (txt, csv, cor), each with or without the tests' header blocks.
#pragma once

#include <string>
#include <vector>

namespace marlview {

class Session;

enum class CombinedForm { kTxt, kCsv, kCor };

struct CombinedListOptions {
  // Channel names, matched in every test.
  std::vector<std::string> channels;
  CombinedForm form = CombinedForm::kCsv;
  bool include_header = true;
};

// The header block of one test, numbered k among the ticked tests.
std::vector<std::string> CombinedHeaderBlock(const Session& session, int slot, int k);
// The whole file, every line ended by CR LF, over the ticked tests in slot order.
std::string CombinedListExport(const Session& session, const CombinedListOptions& options);
// The rows as the window shows them: the heading, the unit line, then a line per grid row, in the
// fixed-width text form.
std::vector<std::string> CombinedListLines(const Session& session, const std::vector<std::string>& channels);
// The extension of a form: "txt", "csv" or "cor".
const char* CombinedExtension(CombinedForm form);

}  // namespace marlview
