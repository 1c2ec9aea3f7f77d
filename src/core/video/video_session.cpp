// The video session.
#include "core/video/video_session.h"

#include <cmath>
#include <cstdio>
#include <limits>

#include "core/common/file_access.h"
#include "core/common/number_format.h"
#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"
#include "core/io/cpt_reader.h"
#include "core/io/dat_reader.h"
#include "core/video/bmp_file.h"

namespace marlview {
namespace {

constexpr const char* kSoundingFilter =
    "PX DAS (*.CPT)|*.CPT|QRD FIELDBOX (*.DAT)|*.DAT|ALL SYSTEMS (*.CPT;*.DAT)|*.CPT;*.DAT";
constexpr const char* kBmpFilter = "BMP Files (*.bmp)|*.bmp";
// A log of steps far outside the pushed depths would run on without end; no printed log is longer.
constexpr int kMaxLogCells = 100000;

// An item of the configuration: a whole number within first..last.
std::optional<int> ConfigurationItem(std::string_view line, int first, int last) {
  try {
    const double value = StrictNumber(line);
    if (value != std::floor(value) || value < first || value > last) return std::nullopt;
    return static_cast<int>(value);
  } catch (const RuntimeFailure&) {
    return std::nullopt;
  }
}

std::string WithoutLast(const std::string& text, size_t count) {
  return text.size() > count ? text.substr(0, text.size() - count) : std::string();
}

// The video's name less its extension, as the extraction's dialog offers it.
std::string WithoutExtension(const std::string& path) {
  const size_t name = path.size() - FileNamePart(path).size();
  const size_t dot = path.rfind('.');
  return dot != std::string::npos && dot >= name ? path.substr(0, dot) : path;
}

// A save dialog opens in the folder of the name it offers, the name alone in its box.
void OfferName(FileDialogRequest& request, const std::string& path) {
  request.default_name = std::string(FileNamePart(path));
  std::string folder(FolderPart(path));
  if (folder.size() > 1) folder.pop_back();
  request.start_directory = folder;
}

}  // namespace

VideoConfiguration ReadVideoConfiguration(const std::optional<std::string>& bytes) {
  VideoConfiguration defaults;
  if (!bytes) return defaults;
  const std::vector<std::string_view> lines = SplitLines(*bytes);
  if (lines.size() < 5) return defaults;
  const auto interval = ConfigurationItem(lines[0], 0, 2);
  const auto unit = ConfigurationItem(lines[1], -32768, 32767);
  const auto columns = ConfigurationItem(lines[2], 1, 3);
  const auto cropping = ConfigurationItem(lines[3], 0, 100);
  const auto cover = ConfigurationItem(lines[4], -32768, 32767);
  if (!interval || !unit || !columns || !cropping || !cover) return defaults;
  return {true, *interval, *unit, *columns, *cropping, *cover != 0};
}

std::string WriteVideoConfiguration(const VideoConfiguration& c) {
  return FormatNumber(c.depth_interval, "#.000") + "\r\n" + std::to_string(c.depth_unit) + "\r\n" +
         std::to_string(c.columns) + "\r\n" + std::to_string(c.cropping) + "\r\n" + (c.cover_sheet ? "1" : "0") + "\r\n";
}

std::string SavedPictureName(const std::string& prefix, double depth, bool feet) {
  return prefix + "(" + FormatNumber(depth, "000.000") + (feet ? "ft).bmp" : "m).bmp");
}

VideoSession::VideoSession(Session& session, UserPrompts& prompts, ProcessRunner& runner)
    : session_(session), prompts_(prompts), runner_(runner) {}

// ---- Opening -------------------------------------------------------------------------------

void VideoSession::WriteLocationFile() {
  WriteFileAtomically(session_.SettingsPath(kFfmpegLocationFile), FfmpegPath + "\r\n" + FfprobePath + "\r\n");
}

// A program that is not where the location file says is searched for by the user, from the
// programs on the search path.
bool VideoSession::LocateProgram(std::string& path, const char* name, const char* upper) {
  if (FileExists(path)) return true;
  const std::string u(upper);
  const Answer answer = prompts_.Ask(u + " directory has not been specified. If " + u +
                                         " has been previously installed, press OK to search for " + u,
                                     Buttons::kOkCancel);
  std::string chosen;
  if (answer == Answer::kOk) {
    FileDialogRequest request;
    request.title = std::string("Search for ") + u;
    request.filter = std::string(name) + "|" + name;
    const std::string found = FindProgramOnPath(name);
    if (!found.empty()) request.start_directory = std::string(FolderPart(found));
    chosen = prompts_.OpenFile(request);
  }
  if (chosen.empty() || !FileExists(chosen)) {
    prompts_.Tell(u + " directory has not been set.  Cannot continue");
    return false;
  }
  prompts_.Tell(u + " directory has been set");
  path = chosen;
  if (std::string_view(name) == "ffmpeg") {
    const std::string probe = std::string(FolderPart(chosen)) + "ffprobe";
    if (FileExists(probe)) FfprobePath = probe;
  }
  WriteLocationFile();
  return true;
}

bool VideoSession::LocatePrograms() {
  if (const auto location = TryReadWholeFile(session_.SettingsPath(kFfmpegLocationFile))) {
    const std::vector<std::string_view> lines = SplitLines(*location);
    FfmpegPath = lines.size() > 0 ? std::string(lines[0]) : std::string();
    FfprobePath = lines.size() > 1 ? std::string(lines[1]) : std::string();
  } else {
    FfmpegPath = session_.SettingsPath("ffmpeg");
    FfprobePath = session_.SettingsPath("ffprobe");
  }
  return LocateProgram(FfmpegPath, "ffmpeg", "FFMPEG") && LocateProgram(FfprobePath, "ffprobe", "FFPROBE");
}

bool VideoSession::OpenVideoSession() {
  bool open = false;
  TellFailures(prompts_, "OpenVideoSession", [&] {
    if (!LocatePrograms()) return;
    FileDialogRequest request;
    request.title = "Open Video File";
    request.filter = "OCPT Files (*.mp4)|*.mp4";
    if (DirectoryExists(session_.SoundingDirectory)) request.start_directory = session_.SoundingDirectory;
    const std::string video = prompts_.OpenFile(request);
    if (video.empty()) return;
    request.title = "Open Time File";
    request.filter = "TIM Files (*.tim)|*.tim";
    request.start_directory = std::string(FolderPart(video));
    const std::string time_file = prompts_.OpenFile(request);
    if (time_file.empty()) return;
    rows = ReadTimeFile(ReadWholeFile(time_file));
    VideoPath = video;
    VideoTitle = std::string(FileNamePart(video));
    TimeFilePath = time_file;
    TimeFileTitle = std::string(FileNamePart(time_file));
    session_.SoundingDirectory = std::string(FolderPart(time_file));
    open = true;
  });
  return open;
}

std::string VideoSession::Run(const std::string& program, const std::vector<std::string>& arguments, bool out,
                              bool err) {
  const ProcessResult result = runner_.Run(program, arguments, out, err);
  if (!result.started) {
    prompts_.Tell(kFailedToCreateProcessText);
    return {};
  }
  return result.output;
}

void VideoSession::Load() {
  const int count = rows.Count();
  VideoStartDepth = count >= 1 ? rows.VideoRowDepth[1] : 0;
  FrameTempPath = session_.SettingsPath("temp.bmp");
  VideoDuration = DurationFromProbe(Run(FfprobePath, DurationArguments(VideoPath), true, true));
  VideoRowCount = count;
  for (int n = 1; n <= count; ++n) {
    if (rows.VideoRowTime[static_cast<size_t>(n)] > static_cast<float>(VideoDuration)) {
      VideoRowCount = n - 1;
      break;
    }
  }
  configuration = ReadVideoConfiguration(TryReadWholeFile(session_.SettingsPath(kVideoConfigurationFile)));
  if (!configuration.present) prompts_.Tell(kConfigurationMissingText);
  VideoDepthInterval = configuration.depth_interval;
  VideoDepthUnit = configuration.depth_unit == 1 ? 1 : 2;
  VideoColumns = configuration.columns;
  VideoCropping = configuration.cropping;
  VideoCoverSheet = configuration.cover_sheet;
  ScrollMin = 1;
  Position = 1;
  crop = SetOutputImageSize(VideoCropping);
  frame_ = VideoRowCount >= 1 ? FetchFrame(1) : std::nullopt;
  output_ = frame_ ? std::make_shared<const RgbImage>(CopyImage(*frame_, crop, VideoCropping)) : nullptr;
  start_label_ = FormatNumber(Shown(VideoStartDepth), "###0.000");
}

// ---- Frames --------------------------------------------------------------------------------

std::optional<RgbImage> VideoSession::FetchFrame(int row) {
  if (row < 1 || row > rows.Count()) return std::nullopt;
  // A fetch that writes nothing must not show the frame of another depth.
  std::remove(FrameTempPath.c_str());
  const ProcessResult result =
      runner_.Run(FfmpegPath, FrameArguments(SeekText(rows.VideoRowTime[static_cast<size_t>(row)]), VideoPath,
                                             FrameTempPath),
                  false, false);
  // ffmpeg ends with an error once the first frame is written, as the file name holds no number
  // for the next one; the frame it wrote is the one wanted, whatever the exit status says.
  if (!result.started) {
    prompts_.Tell(kFailedToCreateProcessText);
    return std::nullopt;
  }
  const auto bytes = TryReadWholeFile(FrameTempPath);
  return bytes ? ReadBmp(*bytes) : std::nullopt;
}

void VideoSession::SetPosition(int n, bool fetch) {
  Position = n;
  if (!fetch) return;
  frame_ = FetchFrame(n);
  output_ = frame_ ? std::make_shared<const RgbImage>(CopyImage(*frame_, crop, VideoCropping)) : nullptr;
}

void VideoSession::SetCropping(int cropping) {
  VideoCropping = cropping;
  crop = SetOutputImageSize(cropping);
  output_ = frame_ ? std::make_shared<const RgbImage>(CopyImage(*frame_, crop, VideoCropping)) : nullptr;
}

std::shared_ptr<const RgbImage> VideoSession::PictureOfRow(int row) {
  const auto frame = FetchFrame(row);
  if (!frame) Fail(kErrFileNotFound);
  return std::make_shared<const RgbImage>(CopyImage(*frame, crop, VideoCropping));
}

// ---- Depths --------------------------------------------------------------------------------

double VideoSession::Shown(double metres) const {
  return Feet() ? static_cast<float>(metres) * session_.FeetPerMetre : metres;
}

std::string VideoSession::DepthLabel(int row) const {
  if (row < 1 || row > rows.Count()) return {};
  return FormatNumber(Shown(rows.VideoRowDepth[static_cast<size_t>(row)]), "###0.000") + (Feet() ? " ft" : " m");
}

std::string VideoSession::MaxDepthLabel() const { return DepthLabel(VideoRowCount); }

void VideoSession::SetFeet(bool feet) {
  VideoDepthUnit = feet ? 2 : 1;
  start_label_ = FormatNumber(Shown(VideoStartDepth), "###0.000");
}

void VideoSession::SaveConfiguration() {
  const VideoConfiguration c{true, VideoDepthInterval, VideoDepthUnit, VideoColumns, VideoCropping, VideoCoverSheet};
  WriteFileAtomically(session_.SettingsPath(kVideoConfigurationFile), WriteVideoConfiguration(c));
}

int VideoSession::FirstRowAtOrBelow(float depth) const {
  for (int n = ScrollMin; n <= VideoRowCount; ++n) {
    if (rows.VideoRowDepth[static_cast<size_t>(n)] >= depth) return n;
  }
  return 0;
}

// The start depth bounds the rows the scroll bar offers. The refusals name metres whatever the
// unit shown, as the field crews know them.
bool VideoSession::ChangeStartDepth(const std::string& text) {
  float value = ToSingle(StrictNumber(text));
  if (Feet()) value = value / session_.FeetPerMetre;
  const float first = rows.Count() >= 1 ? rows.VideoRowDepth[1] : 0;
  const float last = rows.VideoRowDepth[static_cast<size_t>(VideoRowCount)];
  if (value < first) {
    prompts_.Tell("START DEPTH MUST BE GREATER THAN " + FormatNumber(Shown(first), "###0.000") + " METERS");
    return false;
  }
  if (value > last) {
    prompts_.Tell("START DEPTH MUST BE LESS THAN " + FormatNumber(Shown(last), "###0.000") + " METERS");
    return false;
  }
  VideoStartDepth = value;
  start_label_ = ShortestText(static_cast<float>(Shown(value)));
  ScrollMin = 1;
  const int n = FirstRowAtOrBelow(value);
  ScrollMin = n > 0 ? n : 1;
  Position = ScrollMin;
  return true;
}

// ---- Pictures ------------------------------------------------------------------------------

bool VideoSession::RefusedEmpty() {
  if (!PictureEmpty()) return false;
  prompts_.Tell(kEmptyPictureText);
  return true;
}

bool VideoSession::SavePicture(const std::string& name) {
  if (RefusedEmpty()) return false;
  if (!output_) Fail(kErrFileNotFound);
  WriteFileAtomically(name, WriteBmp24(*output_));
  return true;
}

std::string VideoSession::CurrentImageName() const {
  const float depth = rows.VideoRowDepth[static_cast<size_t>(Position)];
  const float shown = Feet() ? depth * session_.FeetPerMetre : depth;
  return SavedPictureName(WithoutLast(VideoPath, 4), shown, Feet());
}

void VideoSession::ExtractCurrentImage() {
  if (RefusedEmpty()) return;
  FileDialogRequest request;
  request.title = "Save Current Image";
  request.filter = kBmpFilter;
  OfferName(request, CurrentImageName());
  const std::string path = prompts_.SaveFile(request);
  if (!path.empty()) SavePicture(path);
}

void VideoSession::ExtractImages(const std::function<bool(int, const std::string&)>& each_row) {
  if (RefusedEmpty()) return;
  FileDialogRequest request;
  request.title = "Extract Images";
  request.filter = kBmpFilter;
  OfferName(request, WithoutExtension(VideoPath));
  const std::string path = prompts_.SaveFile(request);
  if (!path.empty()) ExtractImagesAs(path, each_row);
}

// The names use 3.2808 feet to the metre, the constant the crews' earlier picture sets were named with.
void VideoSession::ExtractImagesAs(std::string prefix, const std::function<bool(int, const std::string&)>& each_row) {
  if (RefusedEmpty()) return;
  if (prefix.ends_with(".bmp") || prefix.ends_with(".BMP")) prefix.resize(prefix.size() - 4);
  Position = ScrollMin;
  for (int row = ScrollMin + 1; row <= VideoRowCount; ++row) {
    SetPosition(row);
    const double depth = rows.VideoRowDepth[static_cast<size_t>(row)];
    const std::string name = SavedPictureName(prefix, Feet() ? depth * kLogFeetPerMetre : depth, Feet());
    SavePicture(name);
    if (each_row && !each_row(row, name)) break;
  }
}

// ---- The sounding beside the video ---------------------------------------------------------

void VideoSession::ToggleSounding() {
  if (SoundingLoaded) {
    UnloadSounding();
    return;
  }
  FileDialogRequest request;
  request.title = "Open";
  request.filter = kSoundingFilter;
  request.filter_index = 3;
  if (DirectoryExists(session_.SoundingDirectory)) request.start_directory = session_.SoundingDirectory;
  const std::string path = prompts_.OpenFile(request);
  if (!path.empty()) LoadSounding(path);
}

bool VideoSession::LoadSounding(const std::string& path) {
  const bool dat = EndsWithNoCase(path, ".dat");
  if (!dat && !EndsWithNoCase(path, ".cpt")) return false;
  ReadOutcome outcome = ReadOutcome::kRefused;
  if (!TellFailures(prompts_, dat ? "OpenDatSounding" : "OpenCptSounding", [&] {
        outcome = dat ? OpenDatSounding(session_, prompts_, path) : OpenCptSounding(session_, prompts_, path);
      })) {
    return false;
  }
  if (outcome != ReadOutcome::kLoaded) return false;
  const SoundingStore& s = session_.Sounding();
  SoundingLoaded = true;
  AssociatedFile = std::string(FileNamePart(path));
  available_rows.clear();
  for (int c = 1; c <= s.TotalChannels; ++c) available_rows.push_back(s.ChannelName[static_cast<size_t>(c)]);
  SelectedChannels.clear();
  InterpolateChannels();
  return true;
}

void VideoSession::UnloadSounding() {
  session_.Sounding().ReadingCount = 0;
  SoundingLoaded = false;
  AssociatedFile.clear();
  available_rows.assign(1, kNoSoundingLoadedText);
  SelectedChannels.clear();
  channel_values_.clear();
  value_channels_ = 0;
}

void VideoSession::ClickAvailableChannel(int index) {
  if (!SoundingLoaded || index < 0 || index >= static_cast<int>(available_rows.size())) return;
  const int channel = index + 1;
  for (auto it = SelectedChannels.begin(); it != SelectedChannels.end(); ++it) {
    if (*it == channel) {
      SelectedChannels.erase(it);
      return;
    }
  }
  if (static_cast<int>(SelectedChannels.size()) >= kMaxVideoChannels) {
    prompts_.Tell(kOnlyFourChannelsText);
    return;
  }
  SelectedChannels.push_back(channel);
}

// Each row's depth is bracketed by successive readings k - 1 and k; a pair at one depth brackets
// nothing, and where the push went back over a depth the deepest bracket in the file stands.
void VideoSession::InterpolateChannels() {
  const SoundingStore& s = session_.Sounding();
  const int count = rows.Count();
  value_channels_ = s.TotalChannels;
  const size_t width = static_cast<size_t>(value_channels_) + 1;
  channel_values_.assign((static_cast<size_t>(count) + 1) * width, std::numeric_limits<float>::quiet_NaN());
  for (int r = 1; r <= count; ++r) {
    const float depth = rows.VideoRowDepth[static_cast<size_t>(r)];
    if (depth <= 0) continue;
    for (int k = s.ReadingCount; k >= 2; --k) {
      const float d0 = s.DepthTable(k - 1, 1), d1 = s.DepthTable(k, 1);
      if (d0 == d1 || !(d0 <= depth && depth <= d1)) continue;
      for (int c = 1; c <= value_channels_; ++c) {
        const float v0 = s.AlignedReadings(k - 1, c), v1 = s.AlignedReadings(k, c);
        channel_values_[static_cast<size_t>(r) * width + static_cast<size_t>(c)] = (depth - d0) / (d1 - d0) * (v1 - v0) + v0;
      }
      break;
    }
  }
}

std::optional<float> VideoSession::ChannelValue(int row, int channel) const {
  if (row < 1 || row > rows.Count() || channel < 1 || channel > value_channels_) return std::nullopt;
  const float v = channel_values_[static_cast<size_t>(row) * (static_cast<size_t>(value_channels_) + 1) +
                                  static_cast<size_t>(channel)];
  if (std::isnan(v)) return std::nullopt;
  return v;
}

std::string VideoSession::ChannelCellText(int row, int channel) const {
  const auto value = ChannelValue(row, channel);
  if (!value) return "N/A ";
  const std::string& format = session_.Sounding().ChannelFormat[static_cast<size_t>(channel)][kGraphOutput];
  return FormatNumber(*value, format.find('.') == std::string::npos ? "########0" : "########0.000");
}

// ---- The log -------------------------------------------------------------------------------

std::pair<std::string, std::string> VideoSession::LogIntervalTexts() const {
  const double factor = Feet() ? kLogFeetPerMetre : 1.0;
  return {FormatNumber(rows.VideoRowDepth[static_cast<size_t>(Position)] * factor, "##0.000"),
          FormatNumber(rows.VideoRowDepth[static_cast<size_t>(VideoRowCount)] * factor, "##0.000")};
}

// The steps "5" and "10" are hundredths of the window's unit.
std::vector<int> VideoSession::LogRows(const std::string& from_text, const std::string& to_text) const {
  const double factor = Feet() ? kLogFeetPerMetre : 1.0;
  const float start = ToSingle(StrictNumber(from_text) / factor);
  const float end = ToSingle(StrictNumber(to_text) / factor);
  std::vector<int> cells;
  if (VideoDepthInterval == kIntervalFromFile) {
    const int first = FirstRowAtOrBelow(start);
    if (first == 0) return cells;
    cells.push_back(first);
    for (int n = first + 1; n <= VideoRowCount && rows.VideoRowDepth[static_cast<size_t>(n)] <= end; ++n) {
      cells.push_back(n);
    }
    return cells;
  }
  const double step = (VideoDepthInterval == kInterval5 ? 0.05 : 0.10) / factor;
  for (int k = 0; k < kMaxLogCells; ++k) {
    const double depth = start + k * step;
    if (depth > end) break;
    int row = 0;
    for (int n = ScrollMin; n <= VideoRowCount; ++n) {
      if (rows.VideoRowDepth[static_cast<size_t>(n)] >= depth) {
        row = n;
        break;
      }
    }
    if (row == 0) break;
    cells.push_back(row);
  }
  return cells;
}

}  // namespace marlview
