// marlview-cli settings show|set and template save|select|delete|apply.
#include "app/cli_settings.h"

#include <cmath>
#include <filesystem>
#include <functional>
#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <set>

#include "app/cli_globals.h"
#include "app/cli_prompts.h"
#include "core/common/file_access.h"
#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"
#include "core/session/session.h"
#include "core/settings/sbt_colors.h"
#include "core/settings/templates.h"
#include "core/shell/settings_dialogs.h"
#include "core/shell/shell_controller.h"

namespace marlview {
namespace {

using Json = nlohmann::ordered_json;

constexpr const char* kSettingsUsage =
    "usage: marlview-cli [--data-dir DIR] settings show\n"
    "       marlview-cli [--data-dir DIR] settings set KEY=VALUE...\n";
constexpr const char* kTemplateUsage =
    "usage: marlview-cli [--data-dir DIR] [--yes] template save NAME [--channel NAME]... [--default]\n"
    "       marlview-cli [--data-dir DIR] template select NAME (--default | --no-default)\n"
    "       marlview-cli [--data-dir DIR] template delete NAME\n"
    "       marlview-cli [global options] template apply FILE [NAME]\n";

constexpr const char* kColumns[] = {"sounding", "dissipation", "seismic", "video"};
constexpr ReportFamily kFamilies[] = {ReportFamily::kQrdFieldbox, ReportFamily::kPxDas};
constexpr ReportKind kKinds[] = {ReportKind::kSounding, ReportKind::kDissipation, ReportKind::kSeismic,
                                 ReportKind::kVideo};

// A 32-bit value in the shortest form that reads back to it: "120", "0.8".
Json FloatJson(float value) {
  if (std::trunc(value) == value && std::fabs(value) < 1e15f) return Json(static_cast<int64_t>(value));
  return Json(std::stod(ShortestText(value)));
}

Json ReportJson(ReportSettings settings, ReportKind kind) {
  Json json = Json::object();
  for (const ReportField& field : ReportFieldsOf(settings, kind)) {
    if (auto* word = std::get_if<int16_t*>(&field.value)) json[field.name] = **word;
    else if (auto* number = std::get_if<float*>(&field.value)) json[field.name] = FloatJson(**number);
    else json[field.name] = *std::get<std::string*>(field.value);
  }
  return json;
}

Json ColoursJson(int zones, float brightness) {
  Json json = Json::array();
  for (const ZoneRgb& rgb : SbtZoneColors(zones, brightness)) json.push_back({rgb[0], rgb[1], rgb[2]});
  return json;
}

Json SettingsJson(Session& s) {
  Json j;
  j["selectionMode"] = s.SoundingSelectionMode;
  j["columnWidth"] = s.ColumnWidth;
  j["sbtBrightness"] = FloatJson(s.SbtBrightnessFactor);
  j["rodBreak"] = {{"threshold", FloatJson(s.rod_break.Threshold)}, {"remove", s.rod_break.RemoveOnOpen}};
  j["logoScaleFactor"] = FloatJson(s.LogoScaleFactor);
  j["ballTipAreaCalculation"] = s.BallAreaDoubled;
  j["defaultPPFormat"] = s.DefaultPPFormat;
  j["defaultEcpUnits"] = s.DefaultEcpUnits;
  j["printSeismicTxtHeader"] = s.PrintSeismicTxtHeader;
  j["multipleSoundingPreferences"] = {{"mode", s.MultipleSoundingMode}, {"scaling", s.MultipleSoundingScaling}};
  j["normalisedClassification"] = s.NormalisedClassification;
  const GeneralSettings& g = s.general;
  j["general"] = {{"company", g.CompanyGraphTitle},
                  {"customer", g.Customer},
                  {"defaultSystem", g.DefaultSystem},
                  {"depthUnits", g.DefaultDepthUnits},
                  {"units2", g.SecondUnitsWord},
                  {"soilDensity", FloatJson(g.SoilDensity)},
                  {"soilDensityUnits", g.SoilDensityUnits},
                  {"netAreaRatio", FloatJson(g.NetAreaRatio)},
                  {"suppressDuplicateDepths", g.SuppressDuplicateDepths},
                  {"duplicateDepthTolerance", FloatJson(g.DuplicateDepthTolerance)},
                  {"suppressNotConnected", g.SuppressNotConnected}};
  j["lastPrint"] = s.LastPrintSettings;
  Json custom = Json::array();
  for (int r = 0; r < kCustomHeaderRows; ++r) {
    Json row = Json::array();
    for (int c = 0; c < kCustomHeaderColumns; ++c) {
      row.push_back({{"label", s.custom_headers.label[r][c]}, {"value", s.custom_headers.value[r][c]}});
    }
    custom.push_back(row);
  }
  j["customHeaders"] = custom;
  Json scales = Json::array();
  for (float scale : s.logo.LogoScale) scales.push_back(FloatJson(scale));
  j["logo"] = {{"present", FileExists(LogoPath(s))},
               {"scale", scales},
               {"offsetX", s.logo.LogoOffsetX},
               {"offsetY", s.logo.LogoOffsetY}};
  j["defaultTemplate"] = s.DefaultTemplate.empty() ? Json(nullptr) : Json(s.DefaultTemplate);
  Json print;
  for (ReportFamily family : kFamilies) {
    Json kinds;
    for (ReportKind kind : kKinds) kinds[std::string(ReportKindName(kind))] = ReportJson(s.Report(family, kind), kind);
    print[std::string(ReportFamilyName(family))] = kinds;
  }
  j["printSettings"] = print;
  j["sbtColors"] = {{"nine", ColoursJson(9, s.SbtBrightnessFactor)}, {"twelve", ColoursJson(12, s.SbtBrightnessFactor)}};
  return j;
}

std::vector<std::string> Split(const std::string& text, char separator) {
  std::vector<std::string> parts;
  size_t begin = 0;
  for (size_t at; (at = text.find(separator, begin)) != std::string::npos; begin = at + 1) {
    parts.push_back(text.substr(begin, at - begin));
  }
  parts.push_back(text.substr(begin));
  return parts;
}

double Number(const std::string& key, const std::string& value) {
  try {
    return StrictNumber(value);
  } catch (const RuntimeFailure&) {
    throw UsageError(key + " takes a number, not '" + value + "'");
  }
}

int16_t Word(const std::string& key, const std::string& value) {
  const double rounded = std::round(Number(key, value));
  if (!(rounded >= -32768 && rounded <= 32767)) throw UsageError(key + " takes a 16-bit whole number");
  return static_cast<int16_t>(rounded);
}

float Single(const std::string& key, const std::string& value) { return static_cast<float>(Number(key, value)); }

// 1-based index text within 1..count.
size_t Index(const std::string& key, const std::string& text, size_t count) {
  for (size_t i = 1; i <= count; ++i) {
    if (text == std::to_string(i)) return i - 1;
  }
  throw UsageError("unknown key " + key);
}

// The dialogs a settings set presses OK in, each once, after every change is applied.
struct Presses {
  bool general = false;
  bool custom = false;
  bool logo = false;
  std::set<std::pair<int, int>> print;
  std::map<std::string, std::function<std::string()>> single_files;
};

// Applies one KEY=VALUE to the session's values and notes which dialog saves it; throws a usage
// error for an unknown key or a bad value.
void ApplySetting(Session& s, GeneralSettingsForm& form, const std::string& key, const std::string& value,
                  Presses& presses) {
  const auto parts = Split(key, '.');
  const std::string& head = parts[0];
  auto unknown = [&] { return UsageError("unknown key " + key); };
  if (parts.size() == 2 && head == "general") {
    GeneralSettings& g = form.general;
    const std::string& name = parts[1];
    if (name == "company") g.CompanyGraphTitle = value;
    else if (name == "customer") g.Customer = value;
    else if (name == "defaultSystem") g.DefaultSystem = Word(key, value);
    else if (name == "depthUnits") g.DefaultDepthUnits = Word(key, value);
    else if (name == "units2") g.SecondUnitsWord = Word(key, value);
    else if (name == "soilDensity") g.SoilDensity = Single(key, value);
    else if (name == "soilDensityUnits") g.SoilDensityUnits = Word(key, value);
    else if (name == "netAreaRatio") g.NetAreaRatio = Single(key, value);
    else if (name == "suppressDuplicateDepths") g.SuppressDuplicateDepths = Word(key, value);
    else if (name == "duplicateDepthTolerance") g.DuplicateDepthTolerance = Single(key, value);
    else if (name == "suppressNotConnected") g.SuppressNotConnected = Word(key, value);
    else throw unknown();
    presses.general = true;
  } else if (key == "sbtBrightness") {
    form.sbt_brightness = Single(key, value);
    presses.general = true;
  } else if (key == "rodBreak.threshold") {
    form.rod_break.Threshold = Single(key, value);
    presses.general = true;
  } else if (key == "rodBreak.remove") {
    form.rod_break.RemoveOnOpen = Word(key, value);
    presses.general = true;
  } else if (key == "logoScaleFactor") {
    form.logo_scale_factor = Single(key, value);
    presses.general = true;
  } else if (key == "ballTipAreaCalculation") {
    form.ball_tip_area_calculation = Word(key, value);
    presses.general = true;
  } else if (head == "customHeaders" && parts.size() == 4) {
    const size_t row = Index(key, parts[1], kCustomHeaderRows);
    size_t column = kCustomHeaderColumns;
    for (size_t c = 0; c < kCustomHeaderColumns; ++c) {
      if (parts[2] == kColumns[c]) column = c;
    }
    if (column == kCustomHeaderColumns) throw unknown();
    if (parts[3] == "label") s.custom_headers.label[row][column] = value;
    else if (parts[3] == "value") s.custom_headers.value[row][column] = value;
    else throw unknown();
    presses.custom = true;
  } else if (head == "logo" && parts.size() == 3) {
    const size_t k = Index(key, parts[2], kLogoReportKinds);
    if (parts[1] == "scale") s.logo.LogoScale[k] = Single(key, value);
    else if (parts[1] == "offsetX") s.logo.LogoOffsetX[k] = Word(key, value);
    else if (parts[1] == "offsetY") s.logo.LogoOffsetY[k] = Word(key, value);
    else throw unknown();
    presses.logo = true;
  } else if (head == "printSettings" && parts.size() == 4) {
    std::optional<ReportFamily> family;
    std::optional<ReportKind> kind;
    for (ReportFamily f : kFamilies) {
      if (parts[1] == ReportFamilyName(f)) family = f;
    }
    for (ReportKind k : kKinds) {
      if (parts[2] == ReportKindName(k)) kind = k;
    }
    if (!family || !kind) throw unknown();
    bool found = false;
    for (ReportField& field : ReportFieldsOf(s.Report(*family, *kind), *kind)) {
      if (field.name != parts[3]) continue;
      found = true;
      if (auto* word = std::get_if<int16_t*>(&field.value)) **word = Word(key, value);
      else if (auto* number = std::get_if<float*>(&field.value)) **number = Single(key, value);
      else *std::get<std::string*>(field.value) = value;
    }
    if (!found) throw unknown();
    presses.print.insert({static_cast<int>(*family), static_cast<int>(*kind)});
  } else if (head == "lastPrint" && parts.size() == 2) {
    s.LastPrintSettings[Index(key, parts[1], s.LastPrintSettings.size())] = Word(key, value);
    presses.single_files["LAST PRINT SETTINGS.txt"] = [&s] {
      std::string bytes;
      for (int16_t word : s.LastPrintSettings) bytes += NumberLine(int{word});
      return bytes;
    };
  } else if (key == "columnWidth") {
    const double width = std::round(Number(key, value));
    if (!(width >= -2147483648.0 && width <= 2147483647.0)) throw UsageError(key + " takes a 32-bit whole number");
    s.ColumnWidth = static_cast<int32_t>(width);
    presses.single_files["Column Widths"] = [&s] { return NumberLine(static_cast<int>(s.ColumnWidth)); };
  } else {
    struct OneWord {
      const char* key;
      const char* file;
      int16_t Session::*member;
    };
    static const OneWord kWords[] = {
        {"selectionMode", "Sounding Selection Settings", &Session::SoundingSelectionMode},
        {"defaultPPFormat", "DefaultPPFormat.txt", &Session::DefaultPPFormat},
        {"defaultEcpUnits", "Default ECP Units.txt", &Session::DefaultEcpUnits},
        {"printSeismicTxtHeader", "Print Seismic TXT Export Header.txt", &Session::PrintSeismicTxtHeader},
        {"normalisedClassification", kNormalisedClassificationFile, &Session::NormalisedClassification},
    };
    for (const OneWord& one : kWords) {
      if (key != one.key) continue;
      s.*one.member = Word(key, value);
      const auto member = one.member;
      presses.single_files[one.file] = [&s, member] { return NumberLine(int{s.*member}); };
      return;
    }
    if (key == "multipleSoundingPreferences.mode" || key == "multipleSoundingPreferences.scaling") {
      (key.ends_with("mode") ? s.MultipleSoundingMode : s.MultipleSoundingScaling) = Word(key, value);
      presses.single_files["Multiple Sounding Preferences.txt"] = [&s] {
        return NumberLine(int{s.MultipleSoundingMode}) + NumberLine(int{s.MultipleSoundingScaling});
      };
      return;
    }
    throw unknown();
  }
}

struct Command {
  GlobalOptions globals;
  std::vector<std::string> words;
  std::vector<std::string> channels;
  bool set_default = false;
  bool no_default = false;
};

Command ParseCommand(const std::vector<std::string>& args, bool template_options) {
  Command c;
  for (size_t i = 0; i < args.size(); ++i) {
    const std::string& a = args[i];
    auto value = [&]() -> const std::string& { return OptionValue(args, i); };
    if (ParseGlobalOption(a, value, c.globals)) continue;
    if (template_options && a == "--channel") c.channels.push_back(value());
    else if (template_options && a == "--default") c.set_default = true;
    else if (template_options && a == "--no-default") c.no_default = true;
    else if (a.starts_with("--")) throw UsageError("unknown option " + a);
    else c.words.push_back(a);
  }
  return c;
}

std::unique_ptr<Session> StartSession(const Command& c, CliPrompts& prompts, const std::string& program_directory) {
  auto session = StartCliSession(c.globals, program_directory, prompts);
  prompts.ForgetErrors();
  if (c.globals.feet) session->DepthUnitIsMetric = 0;
  return session;
}

int Show(Session& session, std::ostream& out) {
  out << SettingsJson(session).dump(2) << '\n';
  return 0;
}

int Set(Session& session, CliPrompts& prompts, const std::vector<std::string>& pairs) {
  GeneralSettingsForm form = LoadGeneralSettingsForm(session);
  Presses presses;
  for (const std::string& pair : pairs) {
    const size_t equals = pair.find('=');
    if (equals == std::string::npos) throw UsageError("settings set takes KEY=VALUE, not '" + pair + "'");
    ApplySetting(session, form, pair.substr(0, equals), pair.substr(equals + 1), presses);
  }
  const bool written = TellFailures(prompts, "cmdOK_Click", [&] {
    if (presses.general) ApplyGeneralSettings(session, prompts, form);
    if (presses.custom) ApplyCustomHeaders(session, session.custom_headers);
    if (presses.logo) SaveLogoSettings(session);
    for (const auto& [family, kind] : presses.print) {
      SavePrintSettings(session, static_cast<ReportFamily>(family), static_cast<ReportKind>(kind));
    }
    for (const auto& [file, bytes] : presses.single_files) WriteSettingsFile(session, file, bytes());
  });
  return written ? 0 : 1;
}

}  // namespace

int RunSettings(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
                const std::string& program_directory) {
  Command c;
  try {
    c = ParseCommand(args, false);
    // words: "settings", then show or set and its pairs.
    if (c.words.size() < 2 || (c.words[1] != "show" && c.words[1] != "set")) {
      throw UsageError("settings takes show or set");
    }
    if (c.words[1] == "show" && c.words.size() != 2) throw UsageError("settings show takes nothing more");
    if (c.words[1] == "set" && c.words.size() < 3) throw UsageError("settings set takes KEY=VALUE...");
  } catch (const UsageError& error) {
    return TellUsage(err, error, kSettingsUsage);
  }
  CliPrompts prompts(c.globals.answers, err);
  auto session = StartSession(c, prompts, program_directory);
  if (c.words[1] == "show") return Show(*session, out);
  try {
    return Set(*session, prompts, {c.words.begin() + 2, c.words.end()});
  } catch (const UsageError& error) {
    return TellUsage(err, error, kSettingsUsage);
  }
}

int RunTemplate(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
                const std::string& program_directory) {
  Command c;
  try {
    c = ParseCommand(args, true);
    const std::string action = c.words.size() >= 2 ? c.words[1] : "";
    const size_t count = c.words.size();
    const bool ok = (action == "save" && count == 3) || (action == "select" && count == 3) ||
                    (action == "delete" && count == 3) || (action == "apply" && (count == 3 || count == 4));
    if (!ok) throw UsageError("template takes save NAME, select NAME, delete NAME or apply FILE [NAME]");
    if ((!c.channels.empty() || c.set_default) && action != "save" && action != "select") {
      throw UsageError(action + " takes no --channel or --default");
    }
    if (!c.channels.empty() && action != "save") throw UsageError("only save takes --channel");
    if (c.no_default && action != "select") throw UsageError("only select takes --no-default");
    if (action == "select" && c.set_default == c.no_default) throw UsageError("select takes --default or --no-default");
  } catch (const UsageError& error) {
    return TellUsage(err, error, kTemplateUsage);
  }
  const std::string& action = c.words[1];
  if (action == "apply") c.globals.answers.file = c.words[2];
  CliPrompts prompts(c.globals.answers, err);
  auto session = StartSession(c, prompts, program_directory);
  const std::string& data = session->Paths().data_directory;
  if (action == "save") {
    const bool done = TellFailures(prompts, "cmdOK_Click",
                                   [&] { SaveSoundingTemplate(data, c.words[2], c.channels, c.set_default, prompts); });
    return done ? 0 : 1;
  }
  if (action == "select") {
    const bool done =
        TellFailures(prompts, "cmdOK_Click", [&] { SelectSoundingTemplate(data, TemplateFileName(c.words[2]), c.set_default); });
    return done ? 0 : 1;
  }
  if (action == "delete") {
    DeleteSoundingTemplate(data, TemplateFileName(c.words[2]));
    return 0;
  }
  ShellController controller(*session, prompts);
  controller.ChooseMode(ProcessingMode::kSounding);
  if (!session->SoundingOpen || prompts.ErrorShown()) return 1;
  if (c.words.size() == 4) {
    const bool applied = TellFailures(prompts, "cmdOK_Click", [&] {
      const std::string path = data + "/" + TemplateFileName(c.words[3]);
      const auto bytes = TryReadWholeFile(path);
      if (!bytes) Fail(kErrFileNotFound, "ReadSoundingTemplate");
      controller.UseSoundingTemplate(ReadSoundingTemplate(*bytes));
    });
    if (!applied) return 1;
  }
  for (const std::string& name : controller.View().selected_rows) out << name << '\n';
  return 0;
}

}  // namespace marlview
