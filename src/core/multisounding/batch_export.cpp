// The batch export over the set's ticked tests.
#include "core/multisounding/batch_export.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <sstream>

#include "core/common/file_access.h"
#include "core/common/runtime_failure.h"
#include "core/multisounding/set_model.h"
#include "core/presentation/ags_export.h"
#include "core/presentation/ecp_list.h"
#include "core/presentation/sounding_exports.h"
#include "core/presentation/sounding_list.h"
#include "core/presentation/sounding_plot.h"
#include "core/presentation/sounding_report.h"
#include "core/session/session.h"

namespace marlview {
namespace {

constexpr const char* kSettingsFile = "batch export settings.txt";

enum class Step { kPlot, kList, kTxt, kCsv, kCor, kEcp, kGin, kAgs };

struct StepOf {
  Step step;
  const char* ending;
};

// The extension of a step's file, without its dot: "pdf" for the prints.
std::string ExtensionOf(const StepOf& step) {
  const std::string ending = step.ending;
  return ending.substr(ending.rfind('.') + 1);
}

// With automatic naming off each file is named in the save dialog, offered the automatic name;
// an empty answer skips the file.
std::string AskTarget(UserPrompts& prompts, const StepOf& step, const std::string& automatic) {
  const std::string extension = ExtensionOf(step);
  FileDialogRequest request;
  request.title = "Save As";
  request.filter = extension == "pdf" ? "PDF Files (*.pdf)|*.pdf" : ExportFilter(extension);
  request.start_directory = std::filesystem::path(automatic).parent_path().string();
  request.default_name = std::filesystem::path(automatic).filename().string();
  request.asks_overwrite = true;
  const std::string chosen = prompts.SaveFile(request);
  return chosen.empty() ? chosen : WithExtension(chosen, extension);
}

std::vector<StepOf> TickedSteps(const BatchSettings& b) {
  std::vector<StepOf> steps;
  if (b.PrintDepthPlots) steps.push_back({Step::kPlot, "-plot.pdf"});
  if (b.PrintList) steps.push_back({Step::kList, "-list.pdf"});
  if (b.ListTxt) steps.push_back({Step::kTxt, ".txt"});
  if (b.ListCsv) steps.push_back({Step::kCsv, ".csv"});
  if (b.ListCor) steps.push_back({Step::kCor, ".cor"});
  if (b.ListEcp) steps.push_back({Step::kEcp, ".ecp"});
  if (b.ListGin) steps.push_back({Step::kGin, ".gIN"});
  if (b.ListAgs) steps.push_back({Step::kAgs, ".ags"});
  return steps;
}

// The channels a test exports: the named ones it has, in order, or its default list.
std::vector<int> TestChannels(const SoundingStore& s, const std::vector<std::string>& names) {
  if (names.empty()) return DefaultListSelection(s);
  std::vector<int> channels;
  for (const std::string& name : names) {
    if (const int c = ChannelNamed(s, name); c != 0) channels.push_back(c);
  }
  return channels;
}

// The file's bytes for an export step over the current sounding.
std::string Render(const Session& session, const BatchSettings& b, Step step, const std::vector<int>& channels) {
  ExportOptions o;
  o.channels = channels;
  o.depth_unit = session.DepthUnitIsMetric == 1 ? 1 : 2;
  switch (step) {
    case Step::kTxt:
      o.include_header = b.IncludeHeaderTxt;
      return TxtExport(session, o);
    case Step::kCsv:
      o.include_header = b.IncludeHeaderCsv;
      return CsvExport(session, o, "csv");
    case Step::kCor:
      o.include_header = b.IncludeHeaderCor;
      return CsvExport(session, o, "cor");
    case Step::kEcp: {
      EcpView view;
      static constexpr int kEcpUnits[] = {kEcpPsi, kEcpTsf, kEcpMpa, kEcpKpa};
      view.unit = kEcpUnits[std::clamp(b.EcpUnit, 1, 4) - 1];
      view.selection = channels;
      ChooseEcpColumns(session, view);
      return EcpExport(session, view);
    }
    case Step::kGin: {
      static constexpr GinUnit kGinUnits[] = {GinUnit::kPsi, GinUnit::kTsf, GinUnit::kMpa, GinUnit::kKpa};
      return GinExport(session, kGinUnits[std::clamp(b.GinUnit, 1, 4) - 1]);
    }
    default:
      return {};
  }
}

}  // namespace

BatchSettings ReadBatchSettings(const Session& session) {
  BatchSettings b;
  const auto bytes = TryReadWholeFile(session.SettingsPath(kSettingsFile));
  if (!bytes) return b;
  std::istringstream in(*bytes);
  int words[13];
  for (int& word : words) {
    if (!(in >> word)) return b;
  }
  b = {words[0] != 0, words[1] != 0, words[2] != 0,  words[3] != 0, words[4] != 0,
       words[5] != 0, words[6] != 0, words[7] != 0,  words[8] != 0, std::clamp(words[9], 1, 4),
       words[10] != 0, std::clamp(words[11], 1, 4), words[12] != 0, false, kDefaultAgsVersion};
  // A file written before the AGS4 step ends here and leaves it unticked.
  int ags = 0, edition = 0;
  if (in >> ags >> edition) {
    const auto& editions = AgsVersions();
    b.ListAgs = ags != 0;
    b.AgsEdition = editions[static_cast<size_t>(std::clamp(edition, 0, static_cast<int>(editions.size()) - 1))];
  }
  return b;
}

void WriteBatchSettings(const Session& session, const BatchSettings& b) {
  const int words[] = {b.PrintDepthPlots, b.PrintList, b.ListTxt, b.IncludeHeaderTxt, b.ListCsv,
                       b.IncludeHeaderCsv, b.ListCor, b.IncludeHeaderCor, b.ListEcp, b.EcpUnit,
                       b.ListGin, b.GinUnit, b.AutoFilenaming};
  std::string text;
  for (int word : words) text += std::to_string(word) + "\r\n";
  // The AGS4 step's two words follow only when it was used, so the file stays as earlier versions
  // wrote it for everyone else.
  if (b.ListAgs || b.AgsEdition != kDefaultAgsVersion) {
    const auto& editions = AgsVersions();
    const auto edition = std::find(editions.begin(), editions.end(), b.AgsEdition) - editions.begin();
    text += std::to_string(b.ListAgs ? 1 : 0) + "\r\n" + std::to_string(edition) + "\r\n";
  }
  WriteFileAtomically(session.SettingsPath(kSettingsFile), text);
}

std::string BatchTarget(const std::string& directory, const std::string& sounding_path, const std::string& ending) {
  const std::string stem = std::filesystem::path(sounding_path).stem().string();
  return (std::filesystem::path(directory) / (stem + ending)).string();
}

BatchReport RunBatchExport(Session& session, UserPrompts& prompts, const BatchSettings& settings,
                           const BatchRun& run) {
  BatchReport report;
  const std::vector<int> tests = SelectedTests(session);
  const std::vector<StepOf> steps = TickedSteps(settings);
  const int total = static_cast<int>(tests.size() * steps.size());
  const int16_t depth_unit = session.DepthUnitIsMetric;
  // Each file is the single sounding's export, whichever view of the set was last used.
  DeriveSpeedsLeftEmpty(session);
  TellFailures(prompts, "cmdExportPrint_Click", [&] { std::filesystem::create_directories(run.directory); });
  int done = 0;
  for (const StepOf& step : steps) {
    for (int slot : tests) {
      if (run.progress && run.progress(done, total)) {
        report.cancelled = true;
        session.DepthUnitIsMetric = depth_unit;
        return report;
      }
      ++done;
      CurrentTest current(session, slot);
      const SoundingStore& s = session.Sounding();
      const std::vector<int> channels = TestChannels(s, run.channels);
      if (channels.empty() && step.step != Step::kGin && step.step != Step::kAgs) {
        prompts.Tell("Select parameter(s) first !");
        ++report.skipped;
        continue;
      }
      std::string target = BatchTarget(run.directory, s.SoundingPath, step.ending);
      if (!settings.AutoFilenaming) target = AskTarget(prompts, step, target);
      if (target.empty()) {
        ++report.skipped;
        continue;
      }
      if (FileExists(target) && prompts.Ask("File exists. Overwrite?", Buttons::kYesNo) != Answer::kYes) {
        ++report.skipped;
        continue;
      }
      bool ok = false;
      const bool ran = TellFailures(prompts, "cmdExportPrint_Click", [&] {
        if (step.step == Step::kPlot || step.step == Step::kList) {
          ok = run.print && run.print(step.step == Step::kPlot ? BatchPrint::kPlot : BatchPrint::kList, channels, target);
          if (!ok) Fail(kErrPathAccess, "mnuPrint");
        } else if (step.step == Step::kAgs) {
          AgsInputs inputs;
          inputs.version = settings.AgsEdition;
          inputs.date = TodayIso();
          const AgsRendering rendering = RenderAgs(session, inputs);
          for (const std::string& note : rendering.notes) prompts.Tell(note);
          WriteFileAtomically(target, rendering.bytes);
          ok = true;
        } else {
          WriteFileAtomically(target, Render(session, settings, step.step, channels));
          ok = true;
        }
      });
      if (ran && ok) {
        ++report.written;
      } else {
        ++report.failed;
      }
    }
  }
  if (run.progress) run.progress(done, total);
  session.DepthUnitIsMetric = depth_unit;
  TellFailures(prompts, "cmdExportPrint_Click", [&] { WriteBatchSettings(session, settings); });
  prompts.Tell("EXPORT/PRINT COMPLETE");
  return report;
}

void PrintBatchPages(PrintJob& job, const Session& session, BatchPrint what, const std::vector<int>& channels) {
  if (what == BatchPrint::kPlot) {
    PlotState plot;
    SetupPlot(plot, session, channels, 1);
    PrintSounding(job, plot, session);
    return;
  }
  ListView view;
  view.channels = channels;
  view.depth_unit = session.DepthUnitIsMetric == 1 ? 1 : 2;
  PrintList(job, session, view);
}

}  // namespace marlview
