// The AGS4 export's files: the added dissipation and seismic files, then the save.
#include "core/shell/ags_export_flow.h"

#include "core/common/file_access.h"
#include "core/common/number_read.h"
#include "core/common/text_rules.h"
#include "core/common/runtime_failure.h"
#include "core/dissipation/dissipation_readers.h"
#include "core/dissipation/export_consolidation.h"
#include "core/presentation/sounding_exports.h"
#include "core/seismic/seismic_controller.h"
#include "core/seismic/seismic_open.h"
#include "core/session/session.h"

namespace marlview {

namespace {

// A number above 0 typed in a box; nothing otherwise.
std::optional<double> PositiveNumber(const std::string& text) {
  try {
    const double value = ParseNumber(TrimBlanks(text));
    if (value > 0) return value;
  } catch (const RuntimeFailure&) {
  }
  return std::nullopt;
}

}  // namespace

std::optional<AgsExportChoice> AgsChoiceFromBoxes(const std::string& version, const std::vector<std::string>& dissipations,
                                                  const std::string& seismic, const std::string& rigidity_index,
                                                  const std::string& cone_area, UserPrompts& prompts) {
  AgsExportChoice choice;
  choice.version = AgsVersionFromText(version).value_or(kDefaultAgsVersion);
  const std::optional<double> ir = PositiveNumber(rigidity_index);
  if (!ir) {
    prompts.Tell("Please enter a valid rigidity index");
    return std::nullopt;
  }
  const std::optional<double> area = PositiveNumber(cone_area);
  if (!area) {
    prompts.Tell("Please enter a valid cone area");
    return std::nullopt;
  }
  choice.ch.RigidityIndex = *ir;
  choice.ch.ConeAreaCm2 = *area;
  for (const std::string& path : dissipations) choice.dissipations.push_back({path, 0});
  choice.seismic_path = std::string(TrimBlanks(seismic));
  return choice;
}

std::optional<AgsInputs> GatherAgsInputs(Session& session, UserPrompts& prompts, SeismicDialogs& dialogs,
                                         const AgsExportChoice& choice) {
  AgsInputs inputs;
  inputs.version = choice.version;
  inputs.date = TodayIso();
  for (const AgsDissipationChoice& added : choice.dissipations) {
    const bool current = session.Dissipation().DissipationCount > 0 &&
                         session.Dissipation().DissipationPath == added.path;
    if (!current) {
      if (!OpenDissipationPath(session, prompts, added.path)) return std::nullopt;
      DissipationSet& set = session.Dissipation();
      for (int test = 1; test <= set.DissipationCount; ++test) ConsolidateForExport(set, test, choice.ch);
    }
    const DissipationSet& set = session.Dissipation();
    std::vector<int> tests;
    // A test the file does not hold is an index past its bound.
    if (added.test < 0 || added.test > set.DissipationCount) Fail(kErrSubscript, "ExportAgsFile");
    if (added.test != 0) tests.push_back(added.test);
    const auto found = AgsDissipationTests(set, tests, DissipationKilopascalsPerUnit(set, session.units));
    inputs.dissipations.insert(inputs.dissipations.end(), found.begin(), found.end());
  }
  if (!choice.seismic_path.empty()) {
    inputs.with_seismic = true;
    // The older editions have no seismic groups; the file is not opened for nothing.
    if (HasConeGroupsOf42(choice.version)) {
      if (OpenSeismicPath(session, prompts, choice.seismic_path) != SeismicOpenOutcome::kLoaded) return std::nullopt;
      SeismicController controller(session, prompts, dialogs);
      controller.Load();
      inputs.seismic = AgsSeismicOf(session.Seismic());
    }
  }
  return inputs;
}

void WriteAgsFile(const Session& session, UserPrompts& prompts, const AgsInputs& inputs, const std::string& path) {
  const AgsRendering rendering = RenderAgs(session, inputs);
  for (const std::string& note : rendering.notes) prompts.Tell(note);
  InProcedure("ExportFile", [&] { WriteFileAtomically(path, rendering.bytes); });
}

bool SaveAgsFile(Session& session, UserPrompts& prompts, SeismicDialogs& dialogs, const AgsExportChoice& choice) {
  FileDialogRequest request;
  request.title = "Save As";
  request.filter = kAgsFilter;
  request.start_directory = session.SoundingDirectory;
  const std::string& name = session.Sounding().SoundingFileName;
  request.default_name = name.substr(0, name.rfind('.')) + ".ags";
  request.asks_overwrite = true;
  const std::string chosen = prompts.SaveFile(request);
  if (chosen.empty()) return false;
  const std::string path = WithExtension(chosen, "ags");
  if (FileExists(path) && prompts.Ask("File exists. Overwrite?", Buttons::kYesNo) != Answer::kYes) return false;
  const std::optional<AgsInputs> inputs = GatherAgsInputs(session, prompts, dialogs, choice);
  if (!inputs) return false;
  WriteAgsFile(session, prompts, *inputs, path);
  return true;
}

}  // namespace marlview
