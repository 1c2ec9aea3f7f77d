// Text rules shared by the seismic readers.
#include "core/seismic/seismic_text.h"

#include <cmath>
#include <iterator>

#include "core/common/number_read.h"
#include "core/common/text_rules.h"
#include "core/io/qrd_header.h"

namespace marlview {

std::string CleanSampleText(std::string_view text, bool drop_strike_letters) {
  std::string clean;
  clean.reserve(text.size());
  for (char c : text) {
    if (c == '-') continue;
    if (drop_strike_letters && (c == 'A' || c == 'B' || c == 'Z')) continue;
    clean.push_back(c);
  }
  return clean;
}

double FieldValue(std::string_view text, size_t pos, size_t width) {
  if (pos >= text.size()) return 0;
  const std::string_view field = text.substr(pos, width);
  size_t i = 0;
  while (i < field.size() && field[i] == ' ') ++i;
  int64_t value = 0;
  size_t digits = 0;
  for (; i < field.size(); ++i, ++digits) {
    const char c = field[i];
    if (c < '0' || c > '9') return LenientNumber(field);
    value = value * 10 + (c - '0');
  }
  return digits == 0 ? 0.0 : static_cast<double>(value);
}

bool ReadQrdIdentityLine(int index, std::string_view line, SeismicHeader& h, bool log_style) {
  std::string* const plain[] = {&h.TestId, nullptr,   &h.Project,   &h.Site,   &h.Location, &h.Comments,
                                &h.TestDate, &h.StartTime, nullptr, &h.Client, &h.ClientRepresentative,
                                &h.Weather};
  if (index < 0 || index >= static_cast<int>(std::size(plain))) return false;
  if (index == 1) {
    ReadOperatorAndCrew(line, h, log_style);
  } else if (index == 8) {
    SplitQrdGps(line, {&h.GpsLat, &h.GpsLon, &h.GpsElev, &h.GpsNSat, &h.GpsQual});
  } else {
    *plain[index] = QrdValue(line);
  }
  return true;
}

void SplitPxGps(std::string_view line, SeismicHeader& header) {
  header.GpsLat.clear();
  header.GpsLon.clear();
  header.GpsElev.clear();
  int field = 0;
  for (char c : line) {
    if (c == ',') {
      ++field;
      continue;
    }
    if (field == 2 || field == 3) header.GpsLat.push_back(c);
    if (field == 4 || field == 5) header.GpsLon.push_back(c);
    if (field == 9) header.GpsElev.push_back(c);
  }
  for (std::string* piece : {&header.GpsLat, &header.GpsLon, &header.GpsElev}) {
    if (piece->empty()) *piece = "0";
  }
}

void ReadOperatorAndCrew(std::string_view line, SeismicHeader& header, bool log_style) {
  const size_t arrow = line.find("=>");
  const size_t bar = line.find(" | ");
  if (bar == std::string_view::npos) {
    header.Operator = std::string(arrow == std::string_view::npos ? line : line.substr(0, arrow));
    header.Crew.clear();
    return;
  }
  header.Operator = std::string(line.substr(0, bar));
  const size_t crew_start = bar + 3;
  if (line.find("|  =>") != std::string_view::npos || arrow == std::string_view::npos || arrow < crew_start) {
    header.Crew.clear();
    return;
  }
  size_t crew_end = log_style ? arrow : arrow - 1;
  if (crew_end < crew_start) crew_end = crew_start;
  header.Crew = std::string(line.substr(crew_start, crew_end - crew_start));
}

int32_t ToInteger32(double value) {
  const double rounded = std::nearbyint(value);
  if (!(rounded >= -2147483648.0 && rounded <= 2147483647.0)) Fail(kErrOverflow);
  return static_cast<int32_t>(rounded);
}

std::string QrdValue(std::string_view line) { return std::string(HeaderValue(line)); }

std::string_view ItemReader::Line() {
  if (has_pending_) {
    has_pending_ = false;
    return pending_;
  }
  return lines_.Next();
}

std::string_view ItemReader::Item() {
  const std::string_view line = Line();
  const size_t comma = line.find(',');
  if (comma == std::string_view::npos) return line;
  pending_ = line.substr(comma + 1);
  has_pending_ = true;
  return line.substr(0, comma);
}

void ItemReader::SkipLines(int count) {
  for (int i = 0; i < count; ++i) Line();
}

}  // namespace marlview
