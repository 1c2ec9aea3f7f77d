// The video session: a cone camera's video bound to its time file, moved through by depth, its
// frames fetched through ffmpeg, cropped, saved, and shown beside the channels of a sounding.
// frmVideoProcessor and the command line drive it and mirror its state.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/common/user_prompts.h"
#include "core/presentation/rgb_image.h"
#include "core/session/session.h"
#include "core/video/process_runner.h"
#include "core/video/time_file.h"
#include "core/video/video_frames.h"

namespace marlview {

inline constexpr const char* kVideoConfigurationFile = "OCPT Configuration.txt";
inline constexpr const char* kFfmpegLocationFile = "ffmpeg location.txt";
inline constexpr const char* kConfigurationMissingText =
    "Configuration file corrupted or missing. Please setup configuration.";
inline constexpr const char* kFailedToCreateProcessText =
    "Failed to create process, check the path of the command line.";
inline constexpr const char* kOnlyFourChannelsText = "Only four channels can be selected";
inline constexpr const char* kNoSoundingLoadedText = "NO SOUNDING LOADED";
inline constexpr const char* kEmptyPictureText = "THE PICTURE IS EMPTY. SET THE CROPPING BELOW 100%.";
// The constant of the extraction's file names and of the log's depth range, kept beside FeetPerMetre.
inline constexpr double kLogFeetPerMetre = 3.2808;
inline constexpr int kMaxVideoChannels = 4;

// cmbDepthInterval: "FROM FILE", "5", "10".
enum VideoDepthIntervalIndex : int { kIntervalFromFile = 0, kInterval5 = 1, kInterval10 = 2 };

// The five items of the configuration file.
struct VideoConfiguration {
  bool present = false;
  int depth_interval = kIntervalFromFile;
  int depth_unit = 1;
  int columns = 3;
  int cropping = 0;
  bool cover_sheet = false;
};

// Reads the file's bytes; nothing, fewer than five lines or a value outside its control's list
// gives the defaults with present false.
VideoConfiguration ReadVideoConfiguration(const std::optional<std::string>& bytes);
std::string WriteVideoConfiguration(const VideoConfiguration& configuration);

// "CONE-A(012.345m).bmp": prefix, the depth in "000.000" and the unit.
std::string SavedPictureName(const std::string& prefix, double depth, bool feet);

class VideoSession {
 public:
  VideoSession(Session& session, UserPrompts& prompts, ProcessRunner& runner);

  // OpenVideoSession: locates ffmpeg and ffprobe, asks for the video and its time file and reads
  // the time file. False when the session ends there; a failure has then been told.
  bool OpenVideoSession();
  // Form_Load: the duration, the rows within it, the configuration, the first frame.
  void Load();

  // scrVideoPosition_Change: the depth of row n and, with fetch, its frame.
  void SetPosition(int n, bool fetch = true);
  // scrCropping_Change.
  void SetCropping(int cropping);
  // optMeters and optFeet.
  void SetFeet(bool feet);
  void SetDepthInterval(int index) { VideoDepthInterval = index; }
  void SetColumns(int columns) { VideoColumns = columns; }
  void SetCoverSheet(bool on) { VideoCoverSheet = on; }
  // cmdSave.
  void SaveConfiguration();
  // cmdOkStartDepthChange with the text of txtNewStartDepth, in the window's unit; false when refused.
  bool ChangeStartDepth(const std::string& text);
  // The first row from the scroll bar's minimum at or below depth (metres); 0 when none.
  int FirstRowAtOrBelow(float depth) const;

  // cmdExtractCurrentImage: the save dialog, then the output picture.
  void ExtractCurrentImage();
  // cmdExtractImages: the save dialog, then the picture of every row after the minimum. each_row
  // runs after each picture is saved (the window yields to its events there) and gives false to stop.
  void ExtractImages(const std::function<bool(int row, const std::string& file)>& each_row = {});
  // Saves the output picture of the position under name; false when the picture is empty.
  bool SavePicture(const std::string& name);
  // The name cmdExtractCurrentImage offers.
  std::string CurrentImageName() const;
  // The picture of every row after the minimum, saved as prefix(depth unit).bmp, as the extraction
  // does after its dialog; a final ".bmp" of prefix is cut.
  void ExtractImagesAs(std::string prefix, const std::function<bool(int row, const std::string& file)>& each_row = {});

  // cmdSounding: loads a sounding with the open dialog, or unloads the one loaded.
  void ToggleSounding();
  // Loads the sounding at path through the reader of its kind; false when refused or failed.
  bool LoadSounding(const std::string& path);
  void UnloadSounding();
  // A click on row index of lstAvailableChannels.
  void ClickAvailableChannel(int index);
  // Fills VideoChannelValue from the loaded sounding.
  void InterpolateChannels();
  // A channel's value at a row's depth; nothing when no pair of readings brackets it.
  std::optional<float> ChannelValue(int row, int channel) const;
  // The value of a log cell, "N/A " when there is none.
  std::string ChannelCellText(int row, int channel) const;

  // cmdPrintTestLog: the texts of txtStartDepth and txtEndDepth.
  std::pair<std::string, std::string> LogIntervalTexts() const;
  // The rows the log takes for the texts of txtStartDepth and txtEndDepth.
  std::vector<int> LogRows(const std::string& from_text, const std::string& to_text) const;
  // The output picture of a row's frame, fetched as the position's is, with the cropping in force.
  std::shared_ptr<const RgbImage> PictureOfRow(int row);

  bool Feet() const { return VideoDepthUnit != 1; }
  // A depth in metres in the window's unit.
  double Shown(double metres) const;
  std::string DepthLabel(int row) const;
  std::string MaxDepthLabel() const;
  const std::string& StartDepthLabel() const { return start_label_; }
  bool PictureEmpty() const { return crop.width <= 0 || crop.height <= 0; }
  // Tells that an empty picture cannot be saved or printed; true when it is empty.
  bool RefusedEmpty();
  const std::shared_ptr<const RgbImage>& OutputPicture() const { return output_; }
  Session& Owner() { return session_; }
  const Session& Owner() const { return session_; }

  std::string FfmpegPath, FfprobePath;
  std::string VideoPath, VideoTitle;
  std::string TimeFilePath, TimeFileTitle;
  std::string FrameTempPath;
  TimeFileRows rows;
  int VideoRowCount = 0;
  int VideoDuration = 0;
  float VideoStartDepth = 0;
  int VideoDepthInterval = kIntervalFromFile;
  int VideoDepthUnit = 1;
  int VideoColumns = 3;
  int VideoCropping = 0;
  CropRectangle crop;
  bool VideoCoverSheet = false;
  VideoConfiguration configuration;
  // scrVideoPosition.
  int ScrollMin = 1;
  int Position = 1;
  // The sounding beside the video, its channels by name and the chosen ones.
  bool SoundingLoaded = false;
  std::string AssociatedFile;
  std::vector<std::string> available_rows{kNoSoundingLoadedText};
  std::vector<int> SelectedChannels;

 private:
  bool LocatePrograms();
  bool LocateProgram(std::string& path, const char* name, const char* upper);
  void WriteLocationFile();
  std::string Run(const std::string& program, const std::vector<std::string>& arguments, bool out, bool err);
  // Writes the frame of a row's seek position to FrameTempPath and reads it back.
  std::optional<RgbImage> FetchFrame(int row);

  Session& session_;
  UserPrompts& prompts_;
  ProcessRunner& runner_;
  std::optional<RgbImage> frame_;
  std::shared_ptr<const RgbImage> output_;
  // [row][channel], NaN where no pair of readings brackets the row.
  std::vector<float> channel_values_;
  int value_channels_ = 0;
  // lblVideoFileStartDepth.
  std::string start_label_;
};

}  // namespace marlview
