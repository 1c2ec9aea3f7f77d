// marlview-cli video: opens a video session as the video window does, applies the window's
// settings, moves the scroll bar and runs one action, headless.
#include "app/cli_video.h"

#include <charconv>
#include <optional>

#include "app/cli_globals.h"
#include "app/cli_json.h"
#include "app/cli_prompts.h"
#include "core/common/file_access.h"
#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"
#include "core/session/session.h"
#include "core/video/video_report.h"
#include "core/video/video_session.h"
#include "render/pdf_print_job.h"

namespace marlview {
namespace {

constexpr const char* kVideoUsage =
    "usage: marlview-cli [global options] video VIDEO TIMEFILE [--ffmpeg PATH] [--ffprobe PATH]\n"
    "                    [--sounding FILE] [--channel NAME]... [--interval file|5|10] [--columns 1|2|3]\n"
    "                    [--crop C] [--cover-sheet no|yes] [--save-config] [--start-depth D]\n"
    "                    [--row N | --frame-at D]\n"
    "                    [--save-frame [-o OUT] | --extract [-o NAME] | --log [--from D] [--to D] |\n"
    "                     --report -o OUT.pdf [--from D] [--to D] | --print-frame -o OUT.pdf]\n";

enum class Action { kNone, kSaveFrame, kExtract, kLog, kReport, kPrintFrame };

struct VideoOptions : GlobalOptions {
  std::string video, time_file;
  std::string ffmpeg, ffprobe;
  std::string sounding;
  std::vector<std::string> channels;
  std::optional<int> interval, columns, crop, row;
  std::optional<bool> cover_sheet;
  bool save_config = false;
  std::optional<std::string> start_depth, frame_at, from, to, output;
  Action action = Action::kNone;
};

double Number(const std::string& text, const std::string& option) {
  try {
    return StrictNumber(text);
  } catch (const RuntimeFailure&) {
    throw UsageError(option + " takes a number where '" + text + "' stands");
  }
}

int WholeNumber(const std::string& text, const std::string& option, int first, int last) {
  int value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  if (result.ec != std::errc() || result.ptr != text.data() + text.size() || value < first || value > last) {
    throw UsageError(option + " takes a whole number " + std::to_string(first) + ".." + std::to_string(last));
  }
  return value;
}

VideoOptions Parse(const std::vector<std::string>& args) {
  VideoOptions o;
  bool seen_command = false;
  const auto act = [&o](Action action) {
    if (o.action != Action::kNone) throw UsageError("video runs at most one action");
    o.action = action;
  };
  for (size_t i = 0; i < args.size(); ++i) {
    const std::string& a = args[i];
    auto value = [&]() -> const std::string& { return OptionValue(args, i); };
    if (ParseGlobalOption(a, value, o)) continue;
    if (a == "--ffmpeg") {
      o.ffmpeg = value();
    } else if (a == "--ffprobe") {
      o.ffprobe = value();
    } else if (a == "--sounding") {
      o.sounding = value();
      if (!EndsWithNoCase(o.sounding, ".dat") && !EndsWithNoCase(o.sounding, ".cpt")) {
        throw UsageError("--sounding takes a .DAT or .CPT file");
      }
    } else if (a == "--channel") {
      o.channels.push_back(value());
    } else if (a == "--interval") {
      const std::string& v = value();
      if (v != "file" && v != "5" && v != "10") throw UsageError("--interval is file, 5 or 10");
      o.interval = v == "file" ? kIntervalFromFile : v == "5" ? kInterval5 : kInterval10;
    } else if (a == "--columns") {
      o.columns = WholeNumber(value(), a, 1, 3);
    } else if (a == "--crop") {
      o.crop = WholeNumber(value(), a, 0, 100);
    } else if (a == "--cover-sheet") {
      const std::string& v = value();
      if (v != "no" && v != "yes") throw UsageError("--cover-sheet is no or yes");
      o.cover_sheet = v == "yes";
    } else if (a == "--save-config") {
      o.save_config = true;
    } else if (a == "--start-depth" || a == "--frame-at" || a == "--from" || a == "--to") {
      const std::string& v = value();
      Number(v, a);
      (a == "--start-depth" ? o.start_depth : a == "--frame-at" ? o.frame_at : a == "--from" ? o.from : o.to) = v;
    } else if (a == "--row") {
      o.row = WholeNumber(value(), a, 0, kMaxVideoRows);
    } else if (a == "-o") {
      o.output = value();
    } else if (a == "--save-frame") {
      act(Action::kSaveFrame);
    } else if (a == "--extract") {
      act(Action::kExtract);
    } else if (a == "--log") {
      act(Action::kLog);
    } else if (a == "--report") {
      act(Action::kReport);
    } else if (a == "--print-frame") {
      act(Action::kPrintFrame);
    } else if (a.starts_with("-")) {
      throw UsageError("unknown option " + a);
    } else if (!seen_command) {
      if (a != "video") throw UsageError("unknown subcommand '" + a + "'");
      seen_command = true;
    } else if (o.video.empty()) {
      o.video = a;
    } else if (o.time_file.empty()) {
      o.time_file = a;
    } else {
      throw UsageError("video takes one VIDEO and one TIMEFILE");
    }
  }
  if (o.time_file.empty()) throw UsageError("video takes one VIDEO and one TIMEFILE");
  if (!FileExists(o.video)) throw UsageError("no video file '" + o.video + "'");
  if (!FileExists(o.time_file)) throw UsageError("no time file '" + o.time_file + "'");
  if (!o.channels.empty() && o.sounding.empty()) throw UsageError("--channel needs --sounding");
  if (o.row && o.frame_at) throw UsageError("--row and --frame-at both set the position");
  if ((o.from || o.to) && o.action != Action::kLog && o.action != Action::kReport) {
    throw UsageError("--from and --to are for --log and --report");
  }
  const bool optional_output = o.action == Action::kSaveFrame || o.action == Action::kExtract;
  const bool needs_output = o.action == Action::kReport || o.action == Action::kPrintFrame;
  if (o.output && !optional_output && !needs_output) throw UsageError("-o is for --save-frame, --extract, --report and --print-frame");
  if (needs_output && !o.output) throw UsageError("--report and --print-frame need -o OUT.pdf");
  return o;
}

// The dialogs of the session answered from the command line; the search for a missing program is
// always accepted, and its file dialog answered by --ffmpeg or --ffprobe, else by the search path.
class VideoCliPrompts : public CliPrompts {
 public:
  VideoCliPrompts(const VideoOptions& options, std::ostream& err)
      : CliPrompts(options.answers, err), options_(options), err_(err) {}
  Answer Ask(std::string_view text, Buttons buttons) override {
    if (text.find("directory has not been specified") != std::string_view::npos) {
      err_ << "? " << text << " -> OK\n";
      return Answer::kOk;
    }
    return CliPrompts::Ask(text, buttons);
  }
  std::string OpenFile(const FileDialogRequest& request) override {
    if (request.title == "Open Video File") return options_.video;
    if (request.title == "Open Time File") return options_.time_file;
    if (request.title == "Search for FFMPEG") return options_.ffmpeg.empty() ? FindProgramOnPath("ffmpeg") : options_.ffmpeg;
    if (request.title == "Search for FFPROBE") return options_.ffprobe.empty() ? FindProgramOnPath("ffprobe") : options_.ffprobe;
    return {};
  }

 private:
  const VideoOptions& options_;
  std::ostream& err_;
};

// A failure the session has told: the command ends with status 1.
struct Told {};

Json ViewJson(const VideoSession& v) {
  Json j;
  j["video"] = ToUtf8(v.VideoTitle);
  j["timeFile"] = ToUtf8(v.TimeFileTitle);
  j["duration"] = v.VideoDuration;
  j["fileRows"] = v.rows.Count();
  j["rowCount"] = v.VideoRowCount;
  j["startDepth"] = FloatJson(v.VideoStartDepth);
  j["scrollMin"] = v.ScrollMin;
  j["position"] = v.Position;
  j["feet"] = v.Feet();
  const VideoConfiguration& c = v.configuration;
  j["configuration"] = {{"present", c.present}, {"depthInterval", c.depth_interval}, {"depthUnit", c.depth_unit},
                        {"columns", c.columns},  {"cropping", c.cropping},           {"coverSheet", c.cover_sheet}};
  j["depthInterval"] = v.VideoDepthInterval;
  j["columns"] = v.VideoColumns;
  j["cropping"] = v.VideoCropping;
  j["coverSheet"] = v.VideoCoverSheet;
  j["crop"] = {{"left", v.crop.CropLeft}, {"widthRest", v.crop.CropWidthRest}, {"top", v.crop.CropTop},
               {"heightRest", v.crop.CropHeightRest}, {"width", v.crop.width}, {"height", v.crop.height}};
  j["sounding"] = v.SoundingLoaded ? Json(ToUtf8(v.AssociatedFile)) : Json(nullptr);
  Json selected = Json::array();
  for (int channel : v.SelectedChannels) selected.push_back(ToUtf8(v.Owner().Sounding().ChannelName[static_cast<size_t>(channel)]));
  j["selectedChannels"] = selected;
  Json rows = Json::array();
  for (int n = 1; n <= v.rows.Count(); ++n) {
    const float time = v.rows.VideoRowTime[static_cast<size_t>(n)];
    rows.push_back({{"row", n},
                    {"depth", FloatJson(v.rows.VideoRowDepth[static_cast<size_t>(n)])},
                    {"time", FloatJson(time)},
                    {"seek", SeekText(time)},
                    {"kept", n <= v.VideoRowCount}});
  }
  j["rows"] = rows;
  return j;
}

// One JSON object on one line, with a blank after each colon and comma.
std::string OneLine(const Json& object) {
  std::string line = "{";
  for (auto it = object.begin(); it != object.end(); ++it) {
    if (it != object.begin()) line += ", ";
    line += Json(it.key()).dump() + ": " + it.value().dump();
  }
  return line + "}";
}

void ApplySettings(VideoSession& video, const VideoOptions& o) {
  if (!o.sounding.empty()) {
    if (!FileExists(o.sounding)) throw UsageError("no sounding file '" + o.sounding + "'");
    if (!video.LoadSounding(o.sounding)) throw Told{};
  }
  for (const std::string& name : o.channels) {
    int index = -1;
    for (size_t k = 0; k < video.available_rows.size(); ++k) {
      if (video.available_rows[k] == name) {
        index = static_cast<int>(k);
        break;
      }
    }
    if (index < 0) throw UsageError("no channel named '" + name + "'");
    video.ClickAvailableChannel(index);
  }
  if (o.interval) video.SetDepthInterval(*o.interval);
  if (o.columns) video.SetColumns(*o.columns);
  if (o.crop) video.SetCropping(*o.crop);
  if (o.cover_sheet) video.SetCoverSheet(*o.cover_sheet);
  if (o.start_depth) video.ChangeStartDepth(*o.start_depth);
}

void SetPosition(VideoSession& video, const VideoOptions& o) {
  int position = video.ScrollMin;
  if (o.row) {
    if (*o.row < video.ScrollMin || *o.row > video.VideoRowCount) {
      throw UsageError("--row takes " + std::to_string(video.ScrollMin) + ".." + std::to_string(video.VideoRowCount));
    }
    position = *o.row;
  } else if (o.frame_at) {
    float depth = ToSingle(StrictNumber(*o.frame_at));
    if (video.Feet()) depth = depth / video.Owner().FeetPerMetre;
    position = video.FirstRowAtOrBelow(depth);
    if (position == 0) throw UsageError("--frame-at: no row at or below " + *o.frame_at);
  }
  video.SetPosition(position, false);
}

void RunAction(VideoSession& video, const VideoOptions& o, std::ostream& out) {
  const auto check_picture = [&] {
    if (video.PictureEmpty()) throw UsageError("the output picture is empty at cropping 100");
  };
  switch (o.action) {
    case Action::kNone:
      out << ViewJson(video).dump(2) << '\n';
      return;
    case Action::kSaveFrame: {
      check_picture();
      video.SetPosition(video.Position);
      const std::string file = o.output.value_or(video.CurrentImageName());
      video.SavePicture(file);
      const int row = video.Position;
      Json line;
      line["row"] = row;
      line["depth"] = FloatJson(video.rows.VideoRowDepth[static_cast<size_t>(row)]);
      line["seek"] = SeekText(video.rows.VideoRowTime[static_cast<size_t>(row)]);
      line["file"] = file;
      line["width"] = video.crop.width;
      line["height"] = video.crop.height;
      out << OneLine(line) << '\n';
      return;
    }
    case Action::kExtract: {
      check_picture();
      std::string prefix = o.output.value_or(std::string());
      if (!o.output) {
        const size_t name = o.video.size() - FileNamePart(o.video).size();
        const size_t dot = o.video.rfind('.');
        prefix = dot != std::string::npos && dot >= name ? o.video.substr(0, dot) : o.video;
      }
      std::string lines = "row,depth,seek,file\n";
      video.ExtractImagesAs(prefix, [&](int row, const std::string& file) {
        lines += std::to_string(row) + ',' + ShortestText(video.rows.VideoRowDepth[static_cast<size_t>(row)]) + ',' +
                 SeekText(video.rows.VideoRowTime[static_cast<size_t>(row)]) + ',' + CsvField(file) + '\n';
        return true;
      });
      out << lines;
      return;
    }
    case Action::kLog:
    case Action::kReport: {
      const auto [from, to] = video.LogIntervalTexts();
      const std::vector<int> rows = video.LogRows(o.from.value_or(from), o.to.value_or(to));
      if (o.action == Action::kReport) {
        check_picture();
        EnsureGuiApplication();
        PdfPrintJob job(*o.output, PaperSize::kLetter);
        PrintVideoLog(job, video, rows);
        if (!job.EndDoc()) Fail(kErrPathAccess, "cmdPrint_Click");
        return;
      }
      const SoundingStore& s = video.Owner().Sounding();
      std::string text = "row,depth,seek";
      for (int c : video.SelectedChannels) text += ',' + CsvField(ToUtf8(s.ChannelName[static_cast<size_t>(c)]));
      text += '\n';
      for (int row : rows) {
        text += std::to_string(row) + ',' + ShortestText(video.rows.VideoRowDepth[static_cast<size_t>(row)]) + ',' +
                SeekText(video.rows.VideoRowTime[static_cast<size_t>(row)]);
        for (int c : video.SelectedChannels) {
          const auto value = video.ChannelValue(row, c);
          text += ',' + (value ? ShortestText(*value) : std::string("N/A"));
        }
        text += '\n';
      }
      out << text;
      return;
    }
    case Action::kPrintFrame: {
      check_picture();
      EnsureGuiApplication();
      video.SetPosition(video.Position);
      PdfPrintJob job(*o.output, PaperSize::kLetter);
      PrintCurrentImage(job, video);
      if (!job.EndDoc()) Fail(kErrPathAccess, "cmdPrintCurrentImage_Click");
      return;
    }
  }
}

}  // namespace

int RunVideo(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
             const std::string& program_directory) {
  VideoOptions options;
  try {
    options = Parse(args);
  } catch (const UsageError& error) {
    return TellUsage(err, error, kVideoUsage);
  }
  VideoCliPrompts prompts(options, err);
  const std::unique_ptr<Session> started = StartCliSession(options, program_directory, prompts);
  Session& session = *started;
  PosixProcessRunner runner;
  VideoSession video(session, prompts, runner);
  if (!video.OpenVideoSession()) return 1;
  try {
    video.Load();
    video.SetFeet(options.feet);
    if (options.crop == 100 && options.action != Action::kNone && options.action != Action::kLog) {
      throw UsageError("the output picture is empty at cropping 100");
    }
    ApplySettings(video, options);
    SetPosition(video, options);
    // Written once the whole command line is known to be good; the start depth changes nothing it holds.
    if (options.save_config) video.SaveConfiguration();
    RunAction(video, options, out);
  } catch (const UsageError& error) {
    return TellUsage(err, error, kVideoUsage);
  } catch (const RuntimeFailure& failure) {
    prompts.Tell(GeneralErrorText(failure));
    return 1;
  } catch (const Told&) {
    return 1;
  }
  return 0;
}

}  // namespace marlview
