// marlview-cli edit: the sounding editor without its window. Every operation is checked against
// the opened sounding before any runs, so bad usage anywhere on the line changes and saves nothing;
// then each runs as its dialog or the grid does, its refusals told and the run going on.
#include "app/cli_edit.h"

#include <charconv>
#include <optional>

#include "app/cli_commands.h"
#include "app/cli_globals.h"
#include "app/cli_prompts.h"
#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"
#include "core/derivation/derived_channels.h"
#include "core/editing/edit_operations.h"
#include "core/editing/parameter_dialogs.h"
#include "core/session/session.h"
#include "core/shell/shell_controller.h"

namespace marlview {
namespace {

constexpr const char* kEditUsage =
    "usage: marlview-cli [global options] edit FILE [OPERATION]... (-o OUT [--dat-compatible] | --channels [--kind K])\n"
    "  operations: --start-depth D  --change-water-table D  --remove-negatives NAME  --shift-channel NAME=AMOUNT\n"
    "              --adjust-depth OLD:NEW  --normalize-interval MM  --tip conventional|ball:DIAMETER\n"
    "              --wet-density V  --append FILE2:OFFSET  --set ROW:NAME:VALUE  --set-raw ROW:NAME:VALUE\n"
    "              --delete-row ROW  --remove-channel NAME  --remove-rod-breaks\n";

struct EditOperation {
  std::string name;
  std::string value;
};

struct EditOptions : GlobalOptions {
  std::string file;
  std::vector<EditOperation> operations;
  std::string out;
  bool dat_compatible = false;
  bool channels = false;
  std::optional<int> kind;
};

bool TakesValue(const std::string& option) {
  for (const char* name : {"--start-depth", "--change-water-table", "--remove-negatives", "--shift-channel",
                           "--adjust-depth", "--normalize-interval", "--tip", "--wet-density", "--append", "--set",
                           "--set-raw", "--delete-row", "--remove-channel"}) {
    if (option == name) return true;
  }
  return false;
}

EditOptions Parse(const std::vector<std::string>& args) {
  EditOptions o;
  bool command_seen = false;
  for (size_t i = 0; i < args.size(); ++i) {
    const std::string& a = args[i];
    auto value = [&]() -> const std::string& { return OptionValue(args, i); };
    if (ParseGlobalOption(a, value, o)) continue;
    if (TakesValue(a)) {
      o.operations.push_back({a, value()});
    } else if (a == "--remove-rod-breaks") {
      o.operations.push_back({a, ""});
    } else if (a == "-o") {
      o.out = value();
    } else if (a == "--dat-compatible") {
      o.dat_compatible = true;
    } else if (a == "--channels") {
      o.channels = true;
    } else if (a == "--kind") {
      const std::string& text = value();
      int kind = -1;
      const auto result = std::from_chars(text.data(), text.data() + text.size(), kind);
      if (result.ec != std::errc() || result.ptr != text.data() + text.size() || kind < 0 || kind >= kOutputKinds) {
        throw UsageError("--kind takes a whole number from 0 to 4");
      }
      o.kind = kind;
    } else if (a.starts_with("--")) {
      throw UsageError("unknown option " + a);
    } else if (!command_seen) {
      if (a != "edit") throw UsageError("unknown subcommand '" + a + "'");
      command_seen = true;
    } else if (o.file.empty()) {
      o.file = a;
    } else {
      throw UsageError("edit takes one FILE");
    }
  }
  if (o.file.empty()) throw UsageError("edit takes one FILE");
  if (o.out.empty() == !o.channels) throw UsageError("edit writes -o OUT or prints --channels");
  if (o.dat_compatible && o.out.empty()) throw UsageError("--dat-compatible goes with -o OUT");
  if (o.kind && !o.channels) throw UsageError("--kind goes with --channels");
  return o;
}

// The channel of a ChannelName among the file's own channels.
int ChannelNamed(const SoundingStore& s, std::string_view name) {
  for (int c = 1; c <= s.ChannelCount; ++c) {
    if (s.ChannelName[c] == name) return c;
  }
  throw UsageError("no channel named '" + std::string(name) + "'");
}

int Row(const SoundingStore& s, std::string_view text) {
  int row = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), row);
  if (result.ec != std::errc() || result.ptr != text.data() + text.size() || row < 1 || row > s.ReadingCount) {
    throw UsageError("row " + std::string(text) + " is not a reading from 1 to " + std::to_string(s.ReadingCount));
  }
  return row;
}

// ROW:NAME:VALUE, the name being anything between the first and the last colon.
struct CellEntry {
  int row;
  int channel;
  std::string value;
};
CellEntry Cell(const SoundingStore& s, const std::string& text, const std::string& option) {
  const size_t first = text.find(':'), last = text.rfind(':');
  if (first == std::string::npos || first == last) throw UsageError(option + " takes ROW:NAME:VALUE");
  return {Row(s, std::string_view(text).substr(0, first)), ChannelNamed(s, text.substr(first + 1, last - first - 1)),
          text.substr(last + 1)};
}

std::pair<std::string, std::string> SplitAt(const std::string& text, size_t at, const std::string& usage) {
  if (at == std::string::npos) throw UsageError(usage);
  return {text.substr(0, at), text.substr(at + 1)};
}

// Runs one operation, or with check only tells whether the sounding offers it as written.
void Apply(Session& session, CliPrompts& prompts, const EditOperation& op, bool check) {
  SoundingStore& s = session.Sounding();
  const bool dat = s.AcquisitionFamily != kPxDasFamily;
  const std::string& v = op.value;
  auto dat_only = [&] {
    if (!dat) throw UsageError(op.name + " is for .DAT soundings only");
  };
  if (op.name == "--start-depth") {
    if (!check) ChangeStartDepth(session, v, prompts);
  } else if (op.name == "--change-water-table") {
    if (!check) ChangeWaterTableDepth(session, v, prompts);
  } else if (op.name == "--remove-negatives") {
    dat_only();
    const int c = ChannelNamed(s, v);
    if (c > kMaxListedEditChannels) throw UsageError("'" + v + "' is not listed by the dialog");
    if (!check) RemoveNegatives(session, {c});
  } else if (op.name == "--shift-channel") {
    dat_only();
    const auto [name, amount] = SplitAt(v, v.rfind('='), "--shift-channel takes NAME=AMOUNT");
    const int c = ChannelNamed(s, name);
    if (c > kMaxListedEditChannels) throw UsageError("'" + name + "' is not listed by the dialog");
    double number = 0;
    const auto result = std::from_chars(amount.data(), amount.data() + amount.size(), number);
    if (result.ec != std::errc() || result.ptr != amount.data() + amount.size()) {
      throw UsageError("--shift-channel takes a number as its AMOUNT");
    }
    if (!check) ShiftChannels(session, {{c, number}});
  } else if (op.name == "--adjust-depth") {
    const auto [old_depth, new_depth] = SplitAt(v, v.find(':'), "--adjust-depth takes OLD:NEW");
    if (!check) AdjustDepth(session, old_depth, new_depth, prompts);
  } else if (op.name == "--normalize-interval") {
    dat_only();
    if (!check) NormalizeDepthIntervals(session, v, prompts);
  } else if (op.name == "--tip") {
    dat_only();
    if (v != "conventional" && !v.starts_with("ball:")) throw UsageError("--tip takes conventional or ball:DIAMETER");
    if (!check) ChangeTipConfiguration(session, v != "conventional", v == "conventional" ? "" : v.substr(5), prompts);
  } else if (op.name == "--wet-density") {
    if (!check) ChangeWetDensity(session, v, prompts);
  } else if (op.name == "--append") {
    dat_only();
    const auto [path, offset] = SplitAt(v, v.rfind(':'), "--append takes FILE2:OFFSET");
    if (!check) AppendDatFile(session, prompts, path, offset);
  } else if (op.name == "--set" || op.name == "--set-raw") {
    dat_only();
    const CellEntry cell = Cell(s, v, op.name);
    if (!check) SetReading(session, cell.row, cell.channel, cell.value, op.name == "--set-raw", prompts);
  } else if (op.name == "--delete-row") {
    dat_only();
    const int row = Row(s, v);
    if (!check) DeleteReading(session, row, false, prompts);
  } else if (op.name == "--remove-channel") {
    dat_only();
    const int c = ChannelNamed(s, v);
    if (!check) RemoveChannel(session, c, prompts);
  } else if (op.name == "--remove-rod-breaks") {
    if (!check) RemoveRodBreaksAtPauses(session);
  }
}

}  // namespace

int RunEdit(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
            const std::string& program_directory) {
  EditOptions options;
  try {
    options = Parse(args);
  } catch (const UsageError& error) {
    return TellUsage(err, error, kEditUsage);
  }
  options.answers.file = options.file;
  CliPrompts prompts(options.answers, err);
  const std::unique_ptr<Session> started = StartCliSession(options, program_directory, prompts);
  Session& session = *started;
  if (options.feet) session.DepthUnitIsMetric = 0;
  ShellController controller(session, prompts);
  controller.ChooseMode(ProcessingMode::kSounding);
  if (!session.SoundingOpen) return 1;
  try {
    if (options.water_table) {
      session.Sounding().WaterTableDepth = static_cast<float>(*options.water_table);
      ComputeDerivedChannels(session, session.Sounding().ChannelCount);
    }
    for (const EditOperation& op : options.operations) Apply(session, prompts, op, true);
    for (const EditOperation& op : options.operations) Apply(session, prompts, op, false);
  } catch (const UsageError& error) {
    return TellUsage(err, error, kEditUsage);
  } catch (const RuntimeFailure& failure) {
    prompts.Tell(GeneralErrorText(failure));
    return 1;
  }
  if (options.channels) {
    WriteChannelsCsv(session.Sounding(), {options.feet, options.kind, {}, false, false}, out);
    return 0;
  }
  SaveSoundingAs(session, prompts, options.out, options.dat_compatible);
  return prompts.ErrorShown() ? 1 : 0;
}

}  // namespace marlview
