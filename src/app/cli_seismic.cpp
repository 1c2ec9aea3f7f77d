// marlview-cli seismic: opens a seismic file as the seismic open flow does, loads the log window,
// applies the operations in command-line order as the windows would and writes one output.
#include "app/cli_seismic.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <functional>
#include <optional>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "app/cli_globals.h"
#include "app/cli_json.h"
#include "app/cli_prompts.h"
#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"
#include "core/seismic/conditioning.h"
#include "core/seismic/seismic_controller.h"
#include "core/seismic/seismic_exports.h"
#include "core/seismic/seismic_open.h"
#include "core/seismic/seismic_writers.h"
#include "core/seismic/xcorr.h"
#include "core/session/session.h"

namespace marlview {
namespace {

constexpr const char* kSeismicUsage =
    "usage: marlview-cli [global options] seismic FILE [--delay-warning S|P] [--arrival-error A|B|P|NONE]\n"
    "                    [--filter] [--enhance] [--attenuate] [--trim MS] [--remove-strikes KIND]\n"
    "                    [--trim-log SECONDS] [--gain G] [--shift-log KIND:up|down]\n"
    "                    [--smooth TEST:KIND:TICKS] [--enhance-step TEST:KIND:plus|minus]\n"
    "                    [--shift TEST:KIND:up|down] [--nudge TEST:KIND:left|right|left-gross|right-gross]\n"
    "                    [--trim-test TEST:MS] [--pick TEST:KIND:SAMPLE] [--snap TEST:KIND:SAMPLE]\n"
    "                    [--arrival TEST:left|right] [--reset TEST] [--hammer-distance METRES]\n"
    "                    [--dly OUT] [--vss OUT] [--save OUT] [--combine FILE2:OFFSET]\n"
    "                    [--export txt|csv|grf:DIR] [--export-test TEST:txt|csv:DIR] [--sounding TEXT]\n"
    "                    [--file-name TEXT] [--txt-header yes|no] [--grf-strikes A|B|P|AB]\n"
    "                    [--grf-points all|alternating]\n"
    "                    [--waves | --velocities | --xcorr [--xcorr-kind A|B|P] [--xcorr-skip MS]]\n";

// A save whose failure has been told: the command ends with status 1.
struct SaveFailed {};


struct Operation {
  std::string name;
  std::vector<std::string> parts;
};

struct SeismicOptions : GlobalOptions {
  std::string file;
  std::optional<bool> delay_warning_s;
  std::optional<std::string> arrival_error;
  std::vector<Operation> operations;
  // The boxes of the export dialogs, the same for every export of the command.
  std::string sounding, file_name;
  std::optional<bool> txt_header;
  GrfStrikes grf_strikes = GrfStrikes::kA;
  std::optional<bool> grf_alternating;
  enum class Output { kJson, kWaves, kVelocities, kXcorr } output = Output::kJson;
  // The cross-correlation's strike (kNoStrike: the first of A, B both tests have) and skipped start.
  std::optional<int16_t> xcorr_kind;
  std::optional<double> xcorr_skip_ms;
};

std::vector<std::string> Split(const std::string& text, size_t count, const std::string& option) {
  std::vector<std::string> parts;
  size_t begin = 0;
  for (;;) {
    const size_t colon = text.find(':', begin);
    parts.push_back(text.substr(begin, colon == std::string::npos ? std::string::npos : colon - begin));
    if (colon == std::string::npos) break;
    begin = colon + 1;
  }
  if (parts.size() != count) throw UsageError(option + " takes " + std::to_string(count) + " parts parted by ':'");
  return parts;
}

int WholeNumber(const std::string& text, const std::string& option) {
  int value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  if (result.ec != std::errc() || result.ptr != text.data() + text.size()) {
    throw UsageError(option + " takes a whole number where '" + text + "' stands");
  }
  return value;
}

double Number(const std::string& text, const std::string& option) {
  try {
    return StrictNumber(text);
  } catch (const RuntimeFailure&) {
    throw UsageError(option + " takes a number where '" + text + "' stands");
  }
}

int16_t KindOf(const std::string& text, const std::string& option) {
  if (text == "A") return kStrikeA;
  if (text == "B") return kStrikeB;
  if (text == "P") return kStrikeP;
  throw UsageError(option + " takes a strike kind A, B or P");
}

void OneOf(const std::string& text, std::initializer_list<const char*> words, const std::string& option) {
  for (const char* word : words) {
    if (text == word) return;
  }
  throw UsageError(option + " takes an answer it does not know: '" + text + "'");
}

SeismicOptions Parse(const std::vector<std::string>& args) {
  SeismicOptions o;
  bool seen_command = false;
  bool output_given = false;
  for (size_t i = 0; i < args.size(); ++i) {
    const std::string& a = args[i];
    auto value = [&]() -> const std::string& { return OptionValue(args, i); };
    if (ParseGlobalOption(a, value, o)) continue;
    if (a == "--delay-warning") {
      const std::string& answer = value();
      OneOf(answer, {"S", "P"}, a);
      o.delay_warning_s = answer == "S";
    } else if (a == "--arrival-error") {
      const std::string& answer = value();
      OneOf(answer, {"A", "B", "P", "NONE"}, a);
      o.arrival_error = answer;
    } else if (a == "--waves" || a == "--velocities" || a == "--xcorr") {
      if (output_given) throw UsageError("seismic writes one output");
      output_given = true;
      o.output = a == "--waves"        ? SeismicOptions::Output::kWaves
                 : a == "--velocities" ? SeismicOptions::Output::kVelocities
                                       : SeismicOptions::Output::kXcorr;
    } else if (a == "--xcorr-kind") {
      o.xcorr_kind = KindOf(value(), a);
    } else if (a == "--xcorr-skip") {
      const double skip = Number(value(), a);
      if (!(skip >= 0)) throw UsageError("--xcorr-skip takes 0 or more milliseconds");
      o.xcorr_skip_ms = skip;
    } else if (a == "--filter" || a == "--enhance" || a == "--attenuate") {
      o.operations.push_back({a, {}});
    } else if (a == "--trim" || a == "--hammer-distance") {
      const std::string& v = value();
      Number(v, a);
      o.operations.push_back({a, {v}});
    } else if (a == "--trim-log" || a == "--reset") {
      const std::string& v = value();
      WholeNumber(v, a);
      o.operations.push_back({a, {v}});
    } else if (a == "--gain") {
      const std::string& v = value();
      const double gain = Number(v, a);
      bool known = false;
      for (float g : kLogGains) known = known || g == static_cast<float>(gain);
      if (!known) throw UsageError("--gain is one of 1, 2.5, 5, 10, 25, 50, 100, 250, 500, 1000, 2500, 5000");
      o.operations.push_back({a, {v}});
    } else if (a == "--remove-strikes") {
      const std::string& v = value();
      KindOf(v, a);
      o.operations.push_back({a, {v}});
    } else if (a == "--shift-log") {
      auto parts = Split(value(), 2, a);
      KindOf(parts[0], a);
      OneOf(parts[1], {"up", "down"}, a);
      o.operations.push_back({a, parts});
    } else if (a == "--smooth" || a == "--pick" || a == "--snap") {
      auto parts = Split(value(), 3, a);
      WholeNumber(parts[0], a);
      KindOf(parts[1], a);
      if (WholeNumber(parts[2], a) < 0) throw UsageError(a + " takes a count of 0 or more");
      o.operations.push_back({a, parts});
    } else if (a == "--enhance-step" || a == "--shift" || a == "--nudge") {
      auto parts = Split(value(), 3, a);
      WholeNumber(parts[0], a);
      KindOf(parts[1], a);
      if (a == "--enhance-step") OneOf(parts[2], {"plus", "minus"}, a);
      if (a == "--shift") OneOf(parts[2], {"up", "down"}, a);
      if (a == "--nudge") OneOf(parts[2], {"left", "right", "left-gross", "right-gross"}, a);
      o.operations.push_back({a, parts});
    } else if (a == "--trim-test") {
      auto parts = Split(value(), 2, a);
      WholeNumber(parts[0], a);
      Number(parts[1], a);
      o.operations.push_back({a, parts});
    } else if (a == "--arrival") {
      auto parts = Split(value(), 2, a);
      WholeNumber(parts[0], a);
      OneOf(parts[1], {"left", "right"}, a);
      o.operations.push_back({a, parts});
    } else if (a == "--dly" || a == "--vss" || a == "--save") {
      o.operations.push_back({a, {value()}});
    } else if (a == "--combine") {
      // FILE2 may hold a colon of its own; the offset is behind the last one.
      const std::string& text = value();
      const size_t colon = text.rfind(':');
      if (colon == std::string::npos || colon == 0) throw UsageError("--combine takes FILE2:OFFSET");
      o.operations.push_back({a, {text.substr(0, colon), text.substr(colon + 1)}});
    } else if (a == "--export") {
      // DIR may hold a colon of its own; the kind is in front of the first one.
      const std::string& text = value();
      const size_t colon = text.find(':');
      if (colon == std::string::npos) throw UsageError("--export takes txt|csv|grf:DIR");
      OneOf(text.substr(0, colon), {"txt", "csv", "grf"}, a);
      o.operations.push_back({a, {text.substr(0, colon), text.substr(colon + 1)}});
    } else if (a == "--export-test") {
      const std::string& text = value();
      const size_t first = text.find(':');
      const size_t second = first == std::string::npos ? first : text.find(':', first + 1);
      if (second == std::string::npos) throw UsageError("--export-test takes TEST:txt|csv:DIR");
      const std::string test = text.substr(0, first), kind = text.substr(first + 1, second - first - 1);
      WholeNumber(test, a);
      OneOf(kind, {"txt", "csv"}, a);
      o.operations.push_back({a, {test, kind, text.substr(second + 1)}});
    } else if (a == "--sounding") {
      o.sounding = value();
    } else if (a == "--file-name") {
      o.file_name = value();
    } else if (a == "--txt-header") {
      const std::string& answer = value();
      OneOf(answer, {"yes", "no"}, a);
      o.txt_header = answer == "yes";
    } else if (a == "--grf-strikes") {
      const std::string& answer = value();
      OneOf(answer, {"A", "B", "P", "AB"}, a);
      o.grf_strikes = answer == "A"   ? GrfStrikes::kA
                      : answer == "B" ? GrfStrikes::kB
                      : answer == "P" ? GrfStrikes::kP
                                      : GrfStrikes::kAB;
    } else if (a == "--grf-points") {
      const std::string& answer = value();
      OneOf(answer, {"all", "alternating"}, a);
      o.grf_alternating = answer == "alternating";
    } else if (a.starts_with("--")) {
      throw UsageError("unknown option " + a);
    } else if (!seen_command) {
      if (a != "seismic") throw UsageError("unknown subcommand '" + a + "'");
      seen_command = true;
    } else if (o.file.empty()) {
      o.file = a;
    } else {
      throw UsageError("seismic takes one FILE");
    }
  }
  if (o.file.empty()) throw UsageError("seismic takes one FILE");
  if ((o.xcorr_kind || o.xcorr_skip_ms) && o.output != SeismicOptions::Output::kXcorr) {
    throw UsageError("--xcorr-kind and --xcorr-skip go with --xcorr");
  }
  return o;
}

// The two dialogs of the loading checks, answered from the options and echoed.
class OptionDialogs : public SeismicDialogs {
 public:
  OptionDialogs(const SeismicOptions& options, std::ostream& err) : options_(options), err_(err) {}
  bool AskDelayWarning() override {
    const bool s_wave = options_.delay_warning_s.value_or(true);
    err_ << "? " << kDelayWarningText << " -> " << (s_wave ? "S" : "P") << '\n';
    return s_wave;
  }
  int16_t AskArrivalError(const ArrivalErrorChoice& choice) override {
    std::string answer = options_.arrival_error.value_or(
        choice.initial == kStrikeA ? "A" : choice.initial == kStrikeB ? "B" : choice.initial == kStrikeP ? "P" : "NONE");
    if ((answer == "A" && !choice.a_enabled) || (answer == "B" && !choice.b_enabled) || (answer == "P" && !choice.p_enabled)) {
      throw UsageError("--arrival-error names the " + answer + " option, which the dialog has disabled");
    }
    err_ << "? " << kArrivalErrorCaption << " -> " << answer << '\n';
    return answer == "A" ? kStrikeA : answer == "B" ? kStrikeB : answer == "P" ? kStrikeP : kNoStrike;
  }

 private:
  const SeismicOptions& options_;
  std::ostream& err_;
};

// The save dialog of --dly and --vss returns the option's path once; asked again after a No to the
// overwrite question, it is cancelled.
class SeismicCliPrompts : public CliPrompts {
 public:
  SeismicCliPrompts(CliAnswers answers, std::ostream& err) : CliPrompts(std::move(answers), err), echo_(err) {}
  std::string SaveFile(const FileDialogRequest&) override { return std::exchange(save_path, {}); }
  std::string save_path;
  // The caution of a combine, answered OK as the command line asks it.
  void EchoOk(std::string_view text) { echo_ << "? " << text << " -> OK\n"; }

 private:
  std::ostream& echo_;
};

std::string FloatText(float value) {
  std::string text = ShortestText(value);
  if (text.find_first_of(".eEin") == std::string::npos) text += ".0";
  return text;
}

const char* KindLetter(int kind) { return kind == kStrikeA ? "A" : kind == kStrikeB ? "B" : "P"; }

Json HeaderJson(const SeismicStore& s) {
  const SeismicHeader& h = s.header;
  Json header = Json::object();
  const auto put = [&](const char* name, const std::string& value) { header[name] = ToUtf8(value); };
  if (s.AcquisitionFamily == kSmcFamily) {
    put("FileVersionLine", h.FileVersionLine);
    if (h.Customer.empty()) put("PXTitle", h.PXTitle); else put("Customer", h.Customer);
    put("Operator", h.Operator);
    put("ConeId", h.ConeId);
    put("Location", h.Location);
    put("JobNumber", h.JobNumber);
    put("HoleNumber", h.HoleNumber);
    put("TestDate", h.TestDate);
    put("Comment1", h.Comment1);
    put("Comment2", h.Comment2);
    put("Comment3", h.Comment3);
    put("GpsLine", h.GpsLine);
    put("GpsLat", h.GpsLat);
    put("GpsLon", h.GpsLon);
    put("GpsElev", h.GpsElev);
    return header;
  }
  if (s.AcquisitionFamily != kFldacqFamily) put("FileVersionLine", h.FileVersionLine);
  put("FileSecondLine", h.FileSecondLine);
  put("TestId", h.TestId);
  put("Operator", h.Operator);
  put("Crew", h.Crew);
  put("Project", h.Project);
  put("Site", h.Site);
  put("Location", h.Location);
  put("Comments", h.Comments);
  put("TestDate", h.TestDate);
  put("StartTime", h.StartTime);
  put("Client", h.Client);
  put("ClientRepresentative", h.ClientRepresentative);
  put("Weather", h.Weather);
  put("Version", h.Version);
  put("DasSystem", h.DasSystem);
  put("ProbeSerial", h.ProbeSerial);
  put("GpsLat", h.GpsLat);
  put("GpsLon", h.GpsLon);
  put("GpsElev", h.GpsElev);
  put("GpsNSat", h.GpsNSat);
  put("GpsQual", h.GpsQual);
  if (s.AcquisitionFamily == kSeiFamily) put("ChannelCountLine", h.ChannelCountLine);
  return header;
}

Json ViewJson(const SeismicController& c, const std::string& file) {
  const SeismicStore& s = c.Store();
  const SeismicViewState& v = c.View();
  Json j;
  j["file"] = ToUtf8(FileNamePart(file));
  j["title"] = ToUtf8(s.TestTitle[1]);
  j["family"] = s.AcquisitionFamily;
  j["testCount"] = s.TestCount;
  j["amplitudeBias"] = s.AmplitudeBias;
  j["amplitudeScale"] = s.AmplitudeScale;
  j["header"] = HeaderJson(s);
  j["hammerDistance"] = FloatJson(s.HammerDistance);
  j["askHammerDistance"] = s.AskHammerDistance;
  const float step = v.TimeAxisStep;
  j["timeAxis"] = {{"max", FloatJson(v.SeismicTimeAxisMax)},
                   {"step", step == std::trunc(step) ? Json(static_cast<int64_t>(step)) : FloatJson(step)},
                   {"divisions", v.TimeAxisDivisions}};
  j["shownTest"] = v.ShownTest;
  Json shift = Json::object();
  for (int16_t kind : kStrikeKinds) {
    shift[KindLetter(kind)] = {{"samples", v.DisplayShift[static_cast<size_t>(kind)]},
                               {"time", FloatJson(v.DisplayShiftTime[static_cast<size_t>(kind)])}};
  }
  j["displayShift"] = shift;
  if (c.IsLog()) {
    Json starts = Json::array(), ends = Json::array();
    for (int n = 1; n <= s.LogSeconds; ++n) starts.push_back(s.LogSecondStart[n]), ends.push_back(s.LogSecondEnd[n]);
    j["log"] = {{"seconds", s.LogSeconds}, {"sampleCount", s.SampleCount[1]}, {"secondStart", starts},
                {"secondEnd", ends},        {"hasGainLine", s.LogHasGainLine}, {"gain", FloatJson(s.LogGain)}};
  } else {
    j["log"] = nullptr;
  }
  Json tests = Json::array();
  for (int i = 1; i <= s.TestCount; ++i) {
    Json strikes = Json::object();
    for (int16_t kind : kStrikeKinds) {
      if (!s.HasStrike(kind, i)) continue;
      strikes[KindLetter(kind)] = {{"sampleCount", c.IsLog() ? s.SampleCount[1] : s.SampleCount[StrikeSlot(kind, i)]},
                                   {"geophone", s.GeophoneOf[static_cast<size_t>(kind)][i]},
                                   {"mean", FloatJson(s.StrikeMeanRemoved[static_cast<size_t>(kind)][i])}};
    }
    tests.push_back({{"test", i},
                     {"file", ToUtf8(FileNamePart(s.TestFile[i]))},
                     {"title", ToUtf8(s.TestTitle[i])},
                     {"depth", FloatJson(s.TestDepth[i])},
                     {"sampleInterval", FloatJson(s.SampleInterval[i])},
                     {"startIndex", s.StartIndex[i]},
                     {"endIndex", s.EndIndex[i]},
                     {"arrivalFromFile", s.ArrivalFromFile[i]},
                     {"arrivalSample", static_cast<int64_t>(s.ArrivalSample[i])},
                     {"arrivalKind", s.ArrivalKind[i]},
                     {"delayTime", FloatJson(s.DelayTime[i])},
                     {"referenceTest", s.ReferenceTest[i]},
                     {"intervalVelocity", FloatJson(s.IntervalVelocity[i])},
                     {"strikes", strikes}});
  }
  j["tests"] = tests;
  return j;
}

void WriteWaves(const SeismicController& c, std::ostream& out) {
  const SeismicStore& s = c.Store();
  out << "test,kind,sample,time,amplitude\n";
  if (c.IsLog()) {
    for (int16_t kind : kStrikeKinds) {
      if (!s.HasStrike(kind, 1)) continue;
      for (int k = 1; k <= std::min(s.SampleCount[1], kMaxLogSamples); ++k) {
        out << "1," << KindLetter(kind) << ',' << k << ',' << FloatText(s.LogTime(k)) << ','
            << FloatText(s.LogAmplitude(k, LogColumn(kind))) << '\n';
      }
    }
    return;
  }
  for (int i = 1; i <= s.TestCount; ++i) {
    for (int16_t kind : kStrikeKinds) {
      if (!s.HasStrike(kind, i)) continue;
      const int slot = StrikeSlot(kind, i);
      for (int k = 1; k <= std::min(s.SampleCount[slot], kMaxStrikeSamples); ++k) {
        out << i << ',' << KindLetter(kind) << ',' << k << ',' << FloatText(s.StrikeTime(slot, k)) << ','
            << FloatText(s.StrikeAmplitude(slot, k)) << '\n';
      }
    }
  }
}

void WriteVelocities(const SeismicStore& s, std::ostream& out) {
  out << "test,depth,arrivalKind,arrivalSample,delayTime,referenceTest,intervalVelocity\n";
  for (int i = 1; i <= s.TestCount; ++i) {
    out << i << ',' << FloatText(s.TestDepth[i]) << ',' << s.ArrivalKind[i] << ','
        << static_cast<int64_t>(s.ArrivalSample[i]) << ',' << FloatText(s.DelayTime[i]) << ',' << s.ReferenceTest[i]
        << ',' << FloatText(s.IntervalVelocity[i]) << '\n';
  }
}

// The true-interval velocities of the velocity menu, one line per test from the second on.
void WriteXcorr(SeismicController& c, const SeismicOptions& options, std::ostream& out) {
  SeismicViewState& view = c.View();
  view.XcorrKind = options.xcorr_kind.value_or(kNoStrike);
  view.XcorrSkipMs = static_cast<float>(options.xcorr_skip_ms.value_or(kDefaultXcorrSkipMs));
  c.TrueIntervalVelocities();
  const SeismicStore& s = c.Store();
  out << "test,depth,referenceTest,kind,lagSamples,lagTime,coefficient,trueVelocity\n";
  for (int i = 2; i <= s.TestCount; ++i) {
    const int16_t kind = XcorrKindOf(s, i - 1, i, view.XcorrKind);
    const float lag_time = s.XcorrLagSamples[i] * s.SampleInterval[i];
    out << i << ',' << FloatText(s.TestDepth[i]) << ',' << i - 1 << ',' << (kind == kNoStrike ? "" : KindLetter(kind))
        << ',' << FloatText(s.XcorrLagSamples[i]) << ',' << FloatText(lag_time) << ','
        << FloatText(s.XcorrCoefficient[i]) << ',' << FloatText(s.XcorrVelocity[i]) << '\n';
  }
}

// One operation, as its control or menu entry does it; a test, strike or sample the controls
// would not offer is bad usage. With check_only the operation is only checked against the
// sounding as loaded, so that bad usage anywhere on the line applies nothing.
void Apply(Session& session, SeismicController& c, SeismicCliPrompts& prompts, const SeismicOptions& options,
           const Operation& op, bool check_only) {
  const SeismicStore& s = c.Store();
  const bool log = c.IsLog();
  const std::string& name = op.name;
  const auto test_of = [&](const std::string& text) {
    const int test = WholeNumber(text, name);
    if (test < 1 || test > s.TestCount) throw UsageError(name + " names test " + text + ", outside 1.." + std::to_string(s.TestCount));
    return test;
  };
  // The workbench's controls: TEST is opened first, which clears the display shifts of another.
  const auto workbench = [&](const std::string& text) {
    if (log) throw UsageError(name + " is not for a seismic log");
    const int test = test_of(text);
    if (!check_only && (c.View().ShownTest != test || !c.View().WorkbenchOpen)) c.OpenTest(test);
    return test;
  };
  const auto log_only = [&] {
    if (!log) throw UsageError(name + " is for a seismic log (.SLG) only");
  };
  if (name == "--filter" || name == "--enhance" || name == "--attenuate") {
    if (check_only) return;
    if (name == "--filter") c.FilterAll();
    if (name == "--enhance") c.EnhanceAll();
    if (name == "--attenuate") c.AttenuateAll();
  } else if (name == "--trim") {
    if (log) throw UsageError("--trim is not for a seismic log; --trim-log is");
    if (!check_only) c.TrimAll(StrictNumber(op.parts[0]));
  } else if (name == "--remove-strikes") {
    const int16_t kind = KindOf(op.parts[0], name);
    const SeismicMenus menus = c.Menus();
    if ((kind == kStrikeA && !menus.remove_a) || (kind == kStrikeB && !menus.remove_b) || (kind == kStrikeP && !menus.remove_p)) {
      throw UsageError("--remove-strikes " + op.parts[0] + ": no test has that strike");
    }
    if (!check_only) c.RemoveStrikes(kind);
  } else if (name == "--trim-log") {
    log_only();
    const int seconds = WholeNumber(op.parts[0], name);
    if (seconds < 1 || seconds > s.LogSeconds) throw UsageError("--trim-log takes 1.." + std::to_string(s.LogSeconds));
    if (!check_only) c.TrimLogSeconds(seconds);
  } else if (name == "--gain") {
    log_only();
    if (!s.LogHasGainLine) throw UsageError("--gain needs a log with a gain line");
    if (!check_only) c.SetGain(static_cast<float>(StrictNumber(op.parts[0])));
  } else if (name == "--shift-log") {
    log_only();
    const int16_t kind = KindOf(op.parts[0], name);
    if (!s.HasStrike(kind, 1)) throw UsageError("--shift-log " + op.parts[0] + ": the log has no such strike");
    if (!check_only) c.ShiftLog(kind, op.parts[1] == "up");
  } else if (name == "--smooth" || name == "--enhance-step" || name == "--shift" || name == "--nudge") {
    workbench(op.parts[0]);
    if (check_only) return;
    c.SelectStrike(KindOf(op.parts[1], name));
    const std::string& how = op.parts[2];
    if (name == "--smooth" && c.StrikePresent(c.View().SelectedStrike)) {
      for (int tick = WholeNumber(how, name); tick > 0; --tick) c.FilterTick();
    }
    if (name == "--enhance-step") c.EnhanceStep(how == "plus");
    if (name == "--shift") c.ShiftUpDown(how == "up");
    if (name == "--nudge") c.Nudge(how == "left" ? -1 : how == "right" ? 1 : how == "left-gross" ? -20 : 20);
  } else if (name == "--trim-test") {
    workbench(op.parts[0]);
    if (!check_only) c.TrimShownTest(StrictNumber(op.parts[1]));
  } else if (name == "--pick" || name == "--snap") {
    if (log) return;
    const int test = test_of(op.parts[0]);
    const int16_t kind = KindOf(op.parts[1], name);
    if (!s.HasStrike(kind, test)) throw UsageError(name + ": test " + op.parts[0] + " has no " + op.parts[1] + " strike");
    const int sample = WholeNumber(op.parts[2], name);
    const int count = s.SampleCount[StrikeSlot(kind, test)];
    if (sample < 1 || sample > count) throw UsageError(name + " takes a sample 1.." + std::to_string(count));
    workbench(op.parts[0]);
    if (check_only) return;
    c.PickOnStrike(kind, sample, name == "--snap");
  } else if (name == "--arrival") {
    const int test = workbench(op.parts[0]);
    // Whether a pick stands depends on the operations before this one.
    if (check_only) return;
    if (!(s.ArrivalSample[test] > 0)) throw UsageError("--arrival: test " + op.parts[0] + " has no pick");
    if (op.parts[1] == "left") c.ArrivalLeft(); else c.ArrivalRight();
  } else if (name == "--reset") {
    workbench(op.parts[0]);
    if (!check_only) c.ResetWave();
  } else if (name == "--hammer-distance") {
    if (!check_only) c.ApplyHammerDistance(op.parts[0], s.AskHammerDistance == 0);
  } else if (name == "--dly" || name == "--vss") {
    if (check_only) return;
    prompts.save_path = op.parts[0];
    if (name == "--dly") c.GenDelayFile(); else c.GenVelocityFile();
  } else if (name == "--save") {
    if (check_only) return;
    prompts.save_path = op.parts[0];
    const std::string folder = s.AcquisitionFamily == kFldacqFamily ? op.parts[0] : std::string();
    if (SaveSeismicData(s, s.TestFile[1], prompts, folder) == SeismicSaveOutcome::kFailed) throw SaveFailed{};
  } else if (name == "--combine") {
    const bool sei = s.AcquisitionFamily == kSeiFamily;
    if (!sei && s.AcquisitionFamily != kSmcFamily) throw UsageError("--combine is for .SEI and .SMC files only");
    if (check_only) return;
    prompts.EchoOk(CombineCaution(sei));
    if (CombineSeismicFile(session, prompts, sei, op.parts[0], op.parts[1])) c.Load();
  } else if (name == "--export" || name == "--export-test") {
    const bool single = name == "--export-test";
    const std::string& kind = op.parts[single ? 1 : 0];
    if (log && kind != "grf") throw UsageError(name + " " + kind + " is not for a seismic log");
    const int test = single ? workbench(op.parts[0]) : 0;
    if (check_only) return;
    const SeismicExportBoxes boxes{options.sounding, options.file_name, op.parts.back()};
    std::error_code ignored;
    std::filesystem::create_directories(boxes.directory, ignored);
    if (single) {
      if (kind == "txt") ExportSingleSeismicText(s, test, boxes, prompts); else ExportSingleSeismicCsv(s, test, boxes, prompts);
    } else if (kind == "txt") {
      const std::string& data = session.Paths().data_directory;
      const bool header = options.txt_header.value_or(ReadTxtHeaderSetting(data));
      if (ExportSeismicText(s, boxes, header, prompts)) WriteTxtHeaderSetting(data, header);
    } else if (kind == "csv") {
      ExportSeismicCsv(s, boxes, prompts);
    } else {
      const GrfOptions grf{options.grf_strikes, options.grf_alternating.value_or(false), options.feet,
                           session.FeetPerMetre};
      ExportSeismicGrf(s, boxes, grf, prompts);
    }
  }
}

}  // namespace

int RunSeismic(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
               const std::string& program_directory) {
  SeismicOptions options;
  try {
    options = Parse(args);
  } catch (const UsageError& error) {
    return TellUsage(err, error, kSeismicUsage);
  }
  options.answers.file = options.file;
  SeismicCliPrompts prompts(options.answers, err);
  const std::unique_ptr<Session> started = StartCliSession(options, program_directory, prompts);
  Session& session = *started;
  if (OpenSeismicPath(session, prompts, options.file) != SeismicOpenOutcome::kLoaded) return 1;
  OptionDialogs dialogs(options, err);
  SeismicController controller(session, prompts, dialogs);
  try {
    controller.Load();
    if (options.grf_alternating && !controller.IsLog()) throw UsageError("--grf-points is for a seismic log (.SLG) only");
    if (options.output == SeismicOptions::Output::kXcorr && controller.IsLog()) {
      throw UsageError("--xcorr is not for a seismic log (.SLG): it holds no tests to correlate");
    }
    for (const Operation& op : options.operations) Apply(session, controller, prompts, options, op, true);
    for (const Operation& op : options.operations) Apply(session, controller, prompts, options, op, false);
  } catch (const UsageError& error) {
    return TellUsage(err, error, kSeismicUsage);
  } catch (const RuntimeFailure& failure) {
    prompts.Tell(GeneralErrorText(failure));
    return 1;
  } catch (const SaveFailed&) {
    return 1;
  }
  switch (options.output) {
    case SeismicOptions::Output::kJson: out << ViewJson(controller, options.file).dump(2) << '\n'; break;
    case SeismicOptions::Output::kWaves: WriteWaves(controller, out); break;
    case SeismicOptions::Output::kVelocities: WriteVelocities(controller.Store(), out); break;
    case SeismicOptions::Output::kXcorr: WriteXcorr(controller, options, out); break;
  }
  return 0;
}

}  // namespace marlview
