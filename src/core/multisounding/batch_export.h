// The batch export: the single-sounding exports and prints run over every ticked test of the set,
// one file at a time, each named after its sounding.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/common/user_prompts.h"
#include "core/presentation/ags_dictionary.h"

namespace marlview {

class PrintJob;
class Session;

// The controls of the batch window, in the order its settings file keeps them.
struct BatchSettings {
  bool PrintDepthPlots = false;
  bool PrintList = false;
  bool ListTxt = false;
  bool IncludeHeaderTxt = true;
  bool ListCsv = false;
  bool IncludeHeaderCsv = true;
  bool ListCor = false;
  bool IncludeHeaderCor = true;
  bool ListEcp = false;
  // 1 PSI, 2 TSF, 3 MPA, 4 KPA.
  int EcpUnit = 1;
  bool ListGin = false;
  int GinUnit = 1;
  bool AutoFilenaming = true;
  // The AGS4 file of each sounding, in the chosen edition; kept after the older words of the file.
  bool ListAgs = false;
  AgsVersion AgsEdition = kDefaultAgsVersion;
};

// "batch export settings.txt": one word a control; a file that cannot be read leaves the defaults.
BatchSettings ReadBatchSettings(const Session& session);
void WriteBatchSettings(const Session& session, const BatchSettings& settings);

// The printed forms, drawn by whoever can print.
enum class BatchPrint { kPlot, kList };
// The current sounding's print of a batch, as the plot and list windows print it: the report's
// plot page of the channels, or its list pages.
void PrintBatchPages(PrintJob& job, const Session& session, BatchPrint what, const std::vector<int>& channels);

struct BatchRun {
  std::string directory;
  // Channel names; each test exports those it has, or its default list when none are named.
  std::vector<std::string> channels;
  // Prints the current sounding's channels into path; false when the print could not be made.
  std::function<bool(BatchPrint, const std::vector<int>& channels, const std::string& path)> print;
  // Told after each file with the files done and the files in all; true stops before the next file.
  std::function<bool(int done, int total)> progress;
};

struct BatchReport {
  int written = 0;
  int skipped = 0;
  int failed = 0;
  bool cancelled = false;
};

// The target of a step for a sounding: the folder, the file name's stem and the step's ending.
std::string BatchTarget(const std::string& directory, const std::string& sounding_path, const std::string& ending);

// Runs the ticked steps over the ticked tests, each step over all tests before the next. A file that
// fails is told and the run goes on; an existing file is replaced only when the overwrite question is
// answered Yes. Ends with "EXPORT/PRINT COMPLETE" and the settings written, unless cancelled.
BatchReport RunBatchExport(Session& session, UserPrompts& prompts, const BatchSettings& settings,
                           const BatchRun& run);

}  // namespace marlview
