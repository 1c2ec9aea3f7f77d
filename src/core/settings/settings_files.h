// The small settings files of the data directory that the program reads at start.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace marlview {

// "GENERAL SETTINGS.txt": eleven lines.
struct GeneralSettings {
  std::string CompanyGraphTitle;
  std::string Customer;
  // The first file filter of the open dialogs.
  int16_t DefaultSystem = 3;
  // 1: metres; also the depth unit the program starts in.
  int16_t DefaultDepthUnits = 1;
  int16_t SecondUnitsWord = 1;
  // Pounds per cubic foot.
  float SoilDensity = 120;
  int16_t SoilDensityUnits = 0;
  float NetAreaRatio = 0.8f;
  int16_t SuppressDuplicateDepths = 1;
  // Metres.
  float DuplicateDepthTolerance = 0.005f;
  int16_t SuppressNotConnected = 1;
};

GeneralSettings ReadGeneralSettings(std::string_view bytes);
std::string WriteGeneralSettings(const GeneralSettings& settings);

// "Rod Break Threshold.txt": the threshold, then 1 when rod breaks are removed as a file opens.
struct RodBreakSettings {
  float Threshold = 10;
  int16_t RemoveOnOpen = 1;
};
RodBreakSettings ReadRodBreakSettings(std::string_view bytes);
std::string WriteRodBreakSettings(const RodBreakSettings& settings);

// One line, "1" or "0": whether the derived channels include the normalised soil behaviour type.
inline constexpr const char* kNormalisedClassificationFile = "Normalised Classification.txt";

// A cone model of "Dimensio.csv" with its nine lengths, stored in metres.
struct ProbeDimensions {
  std::string model;
  std::string description;
  std::array<float, 9> lengths_m{};
};
inline constexpr int kMaxProbeDimensionRows = 1000;
// Three heading lines, then rows of two texts and nine lengths in inches.
std::vector<ProbeDimensions> ReadProbeDimensions(std::string_view bytes, float feet_per_metre);

// "CUSTOM HEADERS.txt": four custom header rows, each with a label and a value for the sounding,
// dissipation, seismic and video reports, written row by row, a label line then a value line.
inline constexpr int kCustomHeaderRows = 4;
inline constexpr int kCustomHeaderColumns = 4;
struct CustomHeaders {
  // [row][column]
  std::array<std::array<std::string, kCustomHeaderColumns>, kCustomHeaderRows> label;
  std::array<std::array<std::string, kCustomHeaderColumns>, kCustomHeaderRows> value;
};
CustomHeaders ReadCustomHeaders(std::string_view bytes);
std::string WriteCustomHeaders(const CustomHeaders& headers);

// "Logo Settings.txt": the logo's scale in percent for each of the five report kinds (sounding
// plot, sounding list, dissipation plot, dissipation list, seismic graph), then its offset from the
// report's own place, x and y for each kind in turn, in surface units.
inline constexpr int kLogoReportKinds = 5;
struct LogoSettings {
  std::array<float, kLogoReportKinds> LogoScale{100, 100, 100, 100, 100};
  std::array<int16_t, kLogoReportKinds> LogoOffsetX{};
  std::array<int16_t, kLogoReportKinds> LogoOffsetY{};
};
LogoSettings ReadLogoSettings(std::string_view bytes);
std::string WriteLogoSettings(const LogoSettings& logo);

// The first count lines of a file; a shorter file fails with "Input past end of file".
std::vector<std::string> ReadTextLines(std::string_view bytes, int count);

// A file of one number a line; missing lines fail with "Input past end of file".
std::vector<double> ReadNumberLines(std::string_view bytes, int count);
// A 16-bit setting read leniently, rounded half away from zero.
int16_t ToSetting16(double value);

// One number as a settings file holds it, with the line end of the field systems: a word as a whole
// number, a 32-bit float as the shortest plain decimal that reads back to it ("0.8", never "8e-1").
std::string NumberLine(int value);
std::string NumberLine(float value);
std::string NumberLine(double value);

}  // namespace marlview
