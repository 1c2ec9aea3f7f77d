// Seismic files built in code for the tests.
#include "seismic_files.h"

#include <cstdio>

namespace marlview::test {

std::string Digits(int value, int width) {
  char text[32];
  std::snprintf(text, sizeof text, "%0*d", width, value);
  return text;
}

namespace {

std::string Right(const std::string& text, size_t width) {
  return text.size() >= width ? text : std::string(width - text.size(), ' ') + text;
}

std::string Join(const std::vector<std::string>& lines) {
  std::string out;
  for (size_t i = 0; i < lines.size(); ++i) out += lines[i] + (i + 1 < lines.size() ? "\r\n" : "");
  return out;
}

std::vector<std::string> QrdHeader(const std::string& version) {
  std::vector<std::string> lines = {version,
                                    "ACME GEOTECHNICAL LTD.",
                                    "QRD FIELDBOX SEISMIC",
                                    " ",
                                    "SCPT-T01 => Test Id",
                                    "J. Ferreira | D. Okafor => Operator / Crew",
                                    "Harbour => Project",
                                    "Pier 4 => Site",
                                    "Sta 1+200 => Location",
                                    "Test file => Comments",
                                    "14/05/2026 => Test Date",
                                    "09:42 => Start Time",
                                    "49.2031N,122.9157W,4.2,9,2  => GPS Data",
                                    "Ministry => Client",
                                    "R. Lindqvist => Client Representative",
                                    "Overcast => Weather",
                                    " ",
                                    "QRD 4.2.7 => Version",
                                    " ",
                                    "FB-2208 => DAS System",
                                    " ",
                                    "DSC1042 => Probe Serial"};
  return lines;
}

}  // namespace

SeiRecord SeiTest(const std::string& depth, const std::string& strikes, int count, int raw) {
  SeiRecord r;
  r.depth = depth;
  r.strikes = strikes;
  r.end = count;
  int present = 0;
  for (char c : strikes) present += (c == 'A' || c == 'B' || c == 'Z' || c == 'a' || c == 'b' || c == 'z') ? 1 : 0;
  for (int k = 0; k < present; ++k) r.raws.push_back(std::vector<int>(static_cast<size_t>(count), raw));
  return r;
}

std::string SeiFile(const std::vector<SeiRecord>& records, const std::string& version) {
  std::vector<std::string> lines = QrdHeader(version);
  while (lines.size() < 55) lines.push_back(lines.size() == 32 ? "3 => Channels" : " ");
  lines.push_back("");
  for (const SeiRecord& r : records) {
    lines.push_back(r.depth);
    lines.push_back(r.interval);
    lines.push_back(Right(std::to_string(r.start), 5));
    lines.push_back(Right(std::to_string(r.end), 5));
    lines.push_back(r.arrival);
    lines.push_back(r.strikes);
    if (!r.text_override.empty()) {
      lines.push_back(r.text_override);
      continue;
    }
    std::string text;
    const char* letters[] = {"A", "B", "Z"};
    size_t strike = 0;
    for (size_t k = 0; k < 3 && strike < r.raws.size(); ++k) {
      const char letter = letters[k][0];
      if (r.strikes.find(letter) == std::string::npos &&
          r.strikes.find(static_cast<char>(letter + 32)) == std::string::npos) {
        continue;
      }
      text += letters[k];
      for (int raw : r.raws[strike]) text += Digits(raw, 5);
      ++strike;
    }
    lines.push_back(text);
  }
  return Join(lines);
}

std::string SmcFile(const std::vector<SmcRecord>& records, const std::string& magic) {
  std::vector<std::string> lines = {magic, "TITLE", "Operator", "Cone 7", "Location", "Job 1", "Hole 2",
                                    "02/06/2026", "c1", "c2", "c3",
                                    "$GPGGA,152301.00,4916.744,N,12307.112,W,1,08,1.1,3.8,M", ""};
  for (const char* row : {"1", "POS SEISMIC", "2048", "1 g", "g", "1", "2048"}) {
    lines.push_back(std::string(12, ' ') + Right(row, 20));
  }
  lines.push_back("");
  for (const SmcRecord& r : records) {
    lines.push_back(r.depth);
    lines.push_back(r.interval);
    lines.push_back(Right(std::to_string(r.start), 5));
    lines.push_back(Right(std::to_string(r.end), 5));
    lines.push_back(r.arrival);
    lines.push_back(r.strikes);
    lines.push_back(r.text);
  }
  return Join(lines);
}

std::string LegacySmcFile(const std::vector<std::vector<std::string>>& records, const std::string& magic) {
  std::vector<std::string> lines = {magic, "CUSTOMER", "Operator", "Cone 7", "Location", "Job 1", "Hole 2",
                                    "02/06/2026", "c1", "c2", "c3", "gps", ".0002", ""};
  for (const char* row : {"1", "POS SEISMIC", "2048", "1 g", "g", "1", "2048"}) {
    lines.push_back(std::string(12, ' ') + Right(row, 20));
  }
  lines.push_back("");
  for (const auto& record : records) lines.insert(lines.end(), record.begin(), record.end());
  return Join(lines);
}

std::string SlgFile(const std::string& strikes, const std::vector<std::vector<int>>& columns, const std::string& interval,
                    bool gain_line, const std::string& gain) {
  std::vector<std::string> lines = QrdHeader(gain_line ? "KORVAN FILE VER: SLG.01.01.2015" : "KORVAN FILE VER: SLG.2014");
  lines.erase(lines.begin() + 16);
  lines.erase(lines.begin() + 17);
  while (lines.size() < 23) lines.push_back(" ");
  if (gain_line) lines.push_back(gain);
  lines.push_back("009.00 m");
  lines.push_back(interval);
  lines.push_back("    0");
  lines.push_back(Right(std::to_string(columns.empty() ? 0 : columns[0].size()), 5));
  lines.push_back(strikes);
  const char* names[] = {"A", "B", "Z"};
  for (size_t c = 0; c < columns.size(); ++c) {
    lines.push_back(names[c]);
    std::string text;
    for (int raw : columns[c]) text += Digits(raw, 5);
    lines.push_back(text);
  }
  return Join(lines);
}

std::string FldacqText(double depth_ft, const std::vector<std::vector<double>>& rows, const std::string& second_line) {
  std::vector<std::string> lines = {"ACME GEOTECHNICAL LTD.", second_line, "SCPTD03_001 => Filename",
                                    "SCPT-D03 => Test Id", "J. Ferreira | D. Okafor => Operator / Crew"};
  while (lines.size() < 51) lines.push_back(" ");
  char depth[64];
  std::snprintf(depth, sizeof depth, "%.2f => Depth (ft)", depth_ft);
  lines.push_back(depth);
  lines.push_back("   Time(s)       P(V)           SA(V)          SB(V)");
  for (const auto& row : rows) {
    char line[128];
    std::snprintf(line, sizeof line, "%12.6f%15.6E%15.6E%15.6E", row[0], row[1], row[2], row[3]);
    lines.push_back(line);
  }
  return Join(lines) + "\r\n";
}

}  // namespace marlview::test
