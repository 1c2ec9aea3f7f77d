// Reading and writing of the start-up settings files.
#include "core/settings/settings_files.h"

#include <charconv>
#include <cmath>

#include "core/common/line_cursor.h"
#include "core/common/number_read.h"
#include "core/common/text_rules.h"

namespace marlview {

int16_t ToSetting16(double value) { return ToInteger16(std::round(value)); }

std::string NumberLine(int value) { return std::to_string(value) + "\r\n"; }

std::string NumberLine(float value) {
  char buffer[64];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed).ptr;
  return std::string(buffer, end) + "\r\n";
}

std::string NumberLine(double value) {
  char buffer[400];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed).ptr;
  return std::string(buffer, end) + "\r\n";
}

std::vector<double> ReadNumberLines(std::string_view bytes, int count) {
  LineCursor lines(bytes);
  std::vector<double> numbers;
  for (int i = 0; i < count; ++i) numbers.push_back(LenientNumber(lines.Next()));
  return numbers;
}

std::vector<std::string> ReadTextLines(std::string_view bytes, int count) {
  LineCursor lines(bytes);
  std::vector<std::string> texts;
  for (int i = 0; i < count; ++i) texts.emplace_back(lines.Next());
  return texts;
}

CustomHeaders ReadCustomHeaders(std::string_view bytes) {
  LineCursor lines(bytes);
  CustomHeaders headers;
  for (int row = 0; row < kCustomHeaderRows; ++row) {
    for (int column = 0; column < kCustomHeaderColumns; ++column) {
      headers.label[row][column] = std::string(lines.Next());
      headers.value[row][column] = std::string(lines.Next());
    }
  }
  return headers;
}

LogoSettings ReadLogoSettings(std::string_view bytes) {
  const auto numbers = ReadNumberLines(bytes, 3 * kLogoReportKinds);
  LogoSettings logo;
  for (size_t k = 0; k < kLogoReportKinds; ++k) {
    logo.LogoScale[k] = ToSingle(numbers[k]);
    logo.LogoOffsetX[k] = ToSetting16(numbers[kLogoReportKinds + 2 * k]);
    logo.LogoOffsetY[k] = ToSetting16(numbers[kLogoReportKinds + 2 * k + 1]);
  }
  return logo;
}

std::string WriteLogoSettings(const LogoSettings& logo) {
  std::string bytes;
  for (float scale : logo.LogoScale) bytes += NumberLine(scale);
  for (size_t k = 0; k < kLogoReportKinds; ++k) {
    bytes += NumberLine(logo.LogoOffsetX[k]);
    bytes += NumberLine(logo.LogoOffsetY[k]);
  }
  return bytes;
}

std::string WriteCustomHeaders(const CustomHeaders& headers) {
  std::string bytes;
  for (int row = 0; row < kCustomHeaderRows; ++row) {
    for (int column = 0; column < kCustomHeaderColumns; ++column) {
      bytes += headers.label[row][column] + "\r\n" + headers.value[row][column] + "\r\n";
    }
  }
  return bytes;
}

GeneralSettings ReadGeneralSettings(std::string_view bytes) {
  LineCursor lines(bytes);
  GeneralSettings s;
  s.CompanyGraphTitle = std::string(lines.Next());
  s.Customer = std::string(lines.Next());
  s.DefaultSystem = ToSetting16(LenientNumber(lines.Next()));
  s.DefaultDepthUnits = ToSetting16(LenientNumber(lines.Next()));
  s.SecondUnitsWord = ToSetting16(LenientNumber(lines.Next()));
  s.SoilDensity = ToSingle(LenientNumber(lines.Next()));
  s.SoilDensityUnits = ToSetting16(LenientNumber(lines.Next()));
  s.NetAreaRatio = ToSingle(LenientNumber(lines.Next()));
  s.SuppressDuplicateDepths = ToSetting16(LenientNumber(lines.Next()));
  s.DuplicateDepthTolerance = ToSingle(LenientNumber(lines.Next()));
  s.SuppressNotConnected = ToSetting16(LenientNumber(lines.Next()));
  return s;
}

std::string WriteGeneralSettings(const GeneralSettings& s) {
  return s.CompanyGraphTitle + "\r\n" + s.Customer + "\r\n" + NumberLine(int{s.DefaultSystem}) +
         NumberLine(int{s.DefaultDepthUnits}) + NumberLine(int{s.SecondUnitsWord}) +
         NumberLine(s.SoilDensity) + NumberLine(s.SoilDensityUnits) + NumberLine(s.NetAreaRatio) +
         NumberLine(s.SuppressDuplicateDepths) + NumberLine(s.DuplicateDepthTolerance) +
         NumberLine(s.SuppressNotConnected);
}

RodBreakSettings ReadRodBreakSettings(std::string_view bytes) {
  const auto numbers = ReadNumberLines(bytes, 2);
  return {ToSingle(numbers[0]), ToSetting16(numbers[1])};
}

std::string WriteRodBreakSettings(const RodBreakSettings& s) {
  return NumberLine(s.Threshold) + NumberLine(s.RemoveOnOpen);
}

std::vector<ProbeDimensions> ReadProbeDimensions(std::string_view bytes, float feet_per_metre) {
  LineCursor lines(bytes);
  std::vector<ProbeDimensions> rows;
  for (int i = 0; i < 3 && !lines.AtEnd(); ++i) lines.Next();
  while (!lines.AtEnd() && static_cast<int>(rows.size()) < kMaxProbeDimensionRows) {
    const std::string_view line = lines.Next();
    if (TrimBlanks(line).empty()) continue;
    std::vector<std::string_view> fields;
    size_t begin = 0;
    for (size_t comma; (comma = line.find(',', begin)) != std::string_view::npos; begin = comma + 1) {
      fields.push_back(line.substr(begin, comma - begin));
    }
    fields.push_back(line.substr(begin));
    ProbeDimensions row;
    row.model = std::string(TrimBlanks(fields[0]));
    if (fields.size() > 1) row.description = std::string(TrimBlanks(fields[1]));
    for (size_t n = 0; n < row.lengths_m.size() && n + 2 < fields.size(); ++n) {
      row.lengths_m[n] = ToSingle(LenientNumber(fields[n + 2]) / 12 / feet_per_metre);
    }
    rows.push_back(std::move(row));
  }
  return rows;
}

}  // namespace marlview
