// export --format ags: the added dissipation tests with T50 and ch worked out from their own
// pressures, the seismic file's velocities as loading leaves them, then the file.
#include "app/cli_ags.h"

#include <algorithm>
#include <charconv>

#include "app/cli_globals.h"
#include "app/cli_prompts.h"
#include "core/common/file_access.h"
#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"
#include "core/seismic/arrival_picking.h"
#include "core/seismic/seismic_controller.h"
#include "core/shell/ags_export_flow.h"

namespace marlview {
namespace {

// The loading dialogs of the seismic file, answered as they start and echoed.
class DefaultSeismicDialogs : public SeismicDialogs {
 public:
  explicit DefaultSeismicDialogs(CliPrompts& prompts) : prompts_(prompts) {}
  bool AskDelayWarning() override {
    prompts_.Echo(std::string("? ") + kDelayWarningText + " -> S");
    return true;
  }
  int16_t AskArrivalError(const ArrivalErrorChoice& choice) override {
    const char* answer = choice.initial == kStrikeA   ? "A"
                         : choice.initial == kStrikeB ? "B"
                         : choice.initial == kStrikeP ? "P"
                                                      : "NONE";
    prompts_.Echo(std::string("? ") + kArrivalErrorCaption + " -> " + answer);
    return choice.initial;
  }

 private:
  CliPrompts& prompts_;
};

std::optional<double> Number(const std::string& text) {
  try {
    return ParseNumber(text);
  } catch (const RuntimeFailure&) {
    return std::nullopt;
  }
}

// "DIS-A01.DIS:2" names test 2; a colon not followed by a whole number belongs to the path.
AgsDissipationChoice DissipationChoiceOf(const std::string& text) {
  const size_t colon = text.rfind(':');
  if (colon == std::string::npos || colon + 1 == text.size()) return {text, 0};
  const std::string_view digits = std::string_view(text).substr(colon + 1);
  int test = 0;
  const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), test);
  if (result.ec != std::errc() || result.ptr != digits.data() + digits.size()) return {text, 0};
  return {text.substr(0, colon), test};
}

}  // namespace

bool ParseAgsOption(const std::string& a, const std::function<const std::string&()>& value, AgsCliOptions& options) {
  auto number = [&](std::optional<double>& field) {
    const std::string& text = value();
    field = Number(text);
    if (!field || !(*field > 0)) throw UsageError(a + " takes a number above 0");
  };
  if (a == "--ags-version") options.version = value();
  else if (a == "--with-dissipation") options.dissipations.push_back(value());
  else if (a == "--with-seismic") options.seismic = value();
  else if (a == "--ir") number(options.rigidity_index);
  else if (a == "--cone-area") number(options.cone_area);
  else return false;
  return true;
}

std::string AgsUsageError(const AgsCliOptions& options) {
  if (!options.version.empty() && !AgsVersionFromText(options.version)) {
    return "--ags-version is 4.0.3, 4.0.4, 4.1, 4.1.1 or 4.2";
  }
  for (const std::string& text : options.dissipations) {
    const AgsDissipationChoice choice = DissipationChoiceOf(text);
    if (choice.path.empty() || choice.test < 0) return "--with-dissipation takes DFILE or DFILE:TEST";
  }
  return {};
}

int RunAgsExport(Session& session, CliPrompts& prompts, const AgsCliOptions& options, const std::string& out,
                 std::ostream& err, std::string_view usage) {
  AgsExportChoice choice;
  choice.version = AgsVersionFromText(options.version).value_or(kDefaultAgsVersion);
  for (const std::string& text : options.dissipations) choice.dissipations.push_back(DissipationChoiceOf(text));
  choice.seismic_path = options.seismic;
  choice.ch.RigidityIndex = options.rigidity_index.value_or(100);
  choice.ch.ConeAreaCm2 = options.cone_area.value_or(10);
  // As the list's save: an existing file is kept unless the question is answered Yes (--yes).
  if (FileExists(out) && prompts.Ask("File exists. Overwrite?", Buttons::kYesNo) != Answer::kYes) return 0;
  DefaultSeismicDialogs dialogs(prompts);
  try {
    const std::optional<AgsInputs> inputs = GatherAgsInputs(session, prompts, dialogs, choice);
    if (!inputs) return 1;
    WriteAgsFile(session, prompts, *inputs, out);
  } catch (const UsageError& error) {
    return TellUsage(err, error, usage);
  } catch (const RuntimeFailure& failure) {
    prompts.Tell(GeneralErrorText(failure));
    return 1;
  }
  return prompts.ErrorShown() ? 1 : 0;
}

}  // namespace marlview
