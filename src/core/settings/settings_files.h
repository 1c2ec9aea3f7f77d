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
  int16_t DefaultSystem = 0;
  // 1: metres; also the depth unit the program starts in.
  int16_t DefaultDepthUnits = 1;
  int16_t SecondUnitsWord = 1;
  // Pounds per cubic foot.
  float SoilDensity = 120;
  int16_t SoilDensityUnits = 0;
  float NetAreaRatio = 0.8f;
  int16_t SuppressDuplicateDepths = 0;
  float DuplicateDepthTolerance = 0.001f;
  int16_t SuppressNotConnected = 0;
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

// A cone model of "Dimensio.csv" with its nine lengths, stored in metres.
struct ProbeDimensions {
  std::string model;
  std::string description;
  std::array<float, 9> lengths_m{};
};
inline constexpr int kMaxProbeDimensionRows = 1000;
// Three heading lines, then rows of two texts and nine lengths in inches.
std::vector<ProbeDimensions> ReadProbeDimensions(std::string_view bytes, float feet_per_metre);

// A file of one number a line; missing lines fail with "Input past end of file".
std::vector<double> ReadNumberLines(std::string_view bytes, int count);
// A 16-bit setting read leniently and rounded.
int16_t ToSetting16(double value);

// One number as a settings file holds it, with the line end of the field systems.
std::string NumberLine(double value);

}  // namespace marlview
