// Helpers shared by the core tests.
#include "support/test_support.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "core/common/file_access.h"
#include "core/common/number_format.h"
#include "core/common/number_read.h"
#include "core/shell/startup.h"

namespace marlview::test {
namespace fs = std::filesystem;

namespace {

std::string EnvironmentOr(const char* name, const std::string& fallback) {
  const char* value = std::getenv(name);
  return value != nullptr ? std::string(value) : fallback;
}

std::string NumberCell(double value) { return Cell(FormatNumber(value, "0.000000E+000")); }

}  // namespace

TempDirectory::TempDirectory() {
  std::string pattern = (fs::temp_directory_path() / "marlview-test-XXXXXX").string();
  if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("mkdtemp failed");
  path_ = pattern;
}

TempDirectory::~TempDirectory() {
  std::error_code error;
  fs::remove_all(path_, error);
}

void TempDirectory::Write(const std::string& name, const std::string& bytes) const {
  std::ofstream out(File(name), std::ios::binary);
  out << bytes;
}

std::string DefaultsDirectory() {
  return EnvironmentOr("MARLVIEW_DEFAULTS_DIR", MARLVIEW_SOURCE_DATA_DIR "/defaults");
}
std::string SamplesDirectory() {
  return EnvironmentOr("MARLVIEW_SAMPLES_DIR", MARLVIEW_SOURCE_DATA_DIR "/samples");
}
std::string ReadSample(const std::string& name) { return ReadWholeFile(SamplesDirectory() + "/" + name); }

TestSession::TestSession()
    : session(std::make_unique<Session>(SessionPaths{data.Path(), DefaultsDirectory()})) {
  RunStartup(*session, prompts);
}

std::string Cell(const std::string& text) { return FormatText(text, "@@@@@@@@@@@@@@@@"); }

std::string RawField(double value) {
  const std::string digits = FormatNumber(value, "0.0000000000E+000");
  return FormatText(value >= 0 ? "+" + digits : digits, "@@@@@@@@@@@@@@@@@@");
}

std::string DataLine(const DatFile& file, const std::vector<double>& row) {
  std::string line;
  size_t first = 0;
  if (file.family == 1) {
    line = FormatText(FormatNumber(row[0], "###0.0000"), "@@@@@@@@@") + " ";
    first = 1;
  }
  for (size_t i = first; i < row.size(); ++i) line += RawField(row[i]) + " ";
  return line;
}

std::vector<std::string> DatFile::Lines() const {
  std::vector<std::string> lines;
  auto add = [&lines](std::string line) { lines.push_back(std::move(line)); };
  if (family == 1) add(version);
  add(product);
  add("Cone Penetrometer Test");
  add("CPT-T01.DAT => Filename");
  add("T01 => Test Id");
  add(operator_crew);
  add("Fraser River Crossing => Project");
  add("North Approach => Site");
  add("Richmond, BC => Location");
  add("Pushed beside BH-3 => Comments");
  add("2026-10-14 => Date");
  add("09:42:10 => Start Time");
  add(gps);
  add("Delta Bridge Partners => Client");
  add("M. Lindqvist => Client Representative");
  add("Overcast, 9 C => Weather");
  if (HasWaterTableLine()) add(water_table);
  add(" ");
  add("Version 4.12.7");
  add(" ");
  add("FIELDBOX 2 => DAS System");
  add("Enabled => Digital Cone");
  add("CN15-2291 => Probe Serial Number");
  if (family == 1) add(tip);
  for (int i = 0; i < 5; ++i) add(" => ");
  add(sample);
  add(test_depth);
  add(" ");
  std::string row = "Channel       ";
  for (size_t c = 0; c < channels.size(); ++c) row += Cell(std::to_string(c + 1));
  add(row);
  auto table_row = [&](const std::string& caption, auto cell_of) {
    std::string line = caption;
    for (const DatChannel& channel : channels) line += cell_of(channel);
    add(line);
  };
  table_row("Sensor        ", [](const DatChannel& c) { return Cell(c.sensor); });
  table_row("Range         ", [](const DatChannel&) { return std::string("        1.000000"); });
  table_row("Gain          ", [](const DatChannel&) { return Cell("1"); });
  table_row("Filter        ", [](const DatChannel&) { return Cell("1"); });
  table_row("Excitation    ", [](const DatChannel&) { return Cell("4.0"); });
  table_row("Baseline      ", [](const DatChannel& c) { return NumberCell(c.baseline); });
  for (size_t i = 0; i < 5; ++i) {
    table_row("Cal Factor    ", [i](const DatChannel& c) { return NumberCell(c.cal[i]); });
  }
  for (size_t i = 0; i < 5; ++i) {
    table_row("Unit Factors  ", [i](const DatChannel& c) { return NumberCell(c.unit_factors[i]); });
  }
  if (family == 1) {
    table_row("Chan Offset   ", [](const DatChannel& c) { return NumberCell(c.offset); });
    table_row("Default Units ", [](const DatChannel& c) { return Cell(c.default_units); });
    table_row("Display Units ", [](const DatChannel& c) { return Cell(c.display_units); });
    table_row("Conv Factor   ", [](const DatChannel& c) { return Cell(c.conv_factor); });
    for (const auto& line : extra_header) add(line);
    add(" ");
    add(" ");
    add("Dig. Sensor         Digital NC");
    add(" ");
    add("DEPTH (m)");
  } else {
    add(" ");
    add(" ");
    add("Dig. Sensor         Digital NC");
  }
  for (const auto& values : rows) add(DataLine(*this, values));
  if (!end_baseline.empty()) {
    std::string line = "BASELINE  ";
    for (double value : end_baseline) line += RawField(value) + " ";
    add(line);
  }
  return lines;
}

std::string DatFile::Bytes() const {
  std::string bytes;
  for (const auto& line : Lines()) bytes += line + "\r\n";
  return bytes;
}

ReadOutcome OpenSounding(TestSession& t, const DatFile& file) {
  const ReadOutcome outcome =
      ReadDatSounding(file.Bytes(), "/field/CPT-T01.DAT", *t.session, t.session->SpareStore(), t.prompts);
  if (outcome == ReadOutcome::kLoaded) t.session->CommitSounding();
  return outcome;
}

DatFile SimpleDat(int readings) {
  DatFile file;
  DatChannel tip{.sensor = "Tip", .cal = {1000, 1, 1, 0, 0}, .unit_factors = {0, 0, 1, 0, 0}};
  DatChannel sleeve{.sensor = "Sleeve", .cal = {1000, 1, 1, 0, 0}, .unit_factors = {6, 0, 1, 0, 0}};
  DatChannel pore{.sensor = "Pore Pressure", .cal = {1000, 1, 1, 0, 0}};
  file.channels = {tip, sleeve, pore};
  for (int r = 1; r <= readings; ++r) {
    file.rows.push_back({0.02 * r, 0.1 + 0.001 * r, 0.002, 0.01 * r});
  }
  return file;
}

std::string CptTableRow(const std::vector<std::string>& cells) {
  std::string line(13, ' ');
  for (const auto& cell : cells) line += FormatText(cell, "@@@@@@@@@@@@@@@@@@@@");
  return line;
}

std::string CptDataLine(const CptFile& file, const std::vector<double>& row) {
  const bool two = file.depth_decimals == 2;
  std::string line = FormatText(FormatNumber(row[0], two ? "##0.00" : "##0.000"), two ? "@@@@@@" : "@@@@@@@");
  line += FormatText(FormatNumber(row[1], "##0.00"), two ? "@@@@@@@" : "@@@@@@");
  for (size_t i = 2; i < row.size(); ++i) line += FormatText(ShortestText(row[i]), "@@@@@@@@@@@@@@@@@@@@");
  return line;
}

std::vector<std::string> CptFile::Lines() const {
  std::vector<std::string> lines = header;
  lines.push_back(water_table);
  lines.push_back("");
  lines.push_back("");
  auto table_row = [&](auto cell_of) {
    std::vector<std::string> cells;
    for (size_t c = 0; c < channels.size(); ++c) cells.push_back(cell_of(c, channels[c]));
    lines.push_back(CptTableRow(cells));
  };
  table_row([](size_t c, const CptChannel&) { return std::to_string(c + 1); });
  table_row([](size_t, const CptChannel& c) { return c.name; });
  table_row([](size_t, const CptChannel& c) { return ShortestText(c.sensitivity); });
  table_row([](size_t, const CptChannel& c) { return FormatNumber(c.zero, "####0.00000"); });
  table_row([](size_t, const CptChannel& c) { return c.range; });
  table_row([](size_t, const CptChannel& c) { return c.text; });
  table_row([](size_t, const CptChannel& c) { return ShortestText(c.number); });
  lines.push_back(heading);
  for (const auto& row : rows) lines.push_back(CptDataLine(*this, row));
  return lines;
}

std::string CptFile::Bytes() const {
  std::string bytes;
  for (const auto& line : Lines()) bytes += line + "\r\n";
  return bytes;
}

ReadOutcome OpenSounding(TestSession& t, const CptFile& file) {
  const ReadOutcome outcome =
      ReadCptSounding(file.Bytes(), "/field/CPT-T01.CPT", *t.session, t.session->SpareStore(), t.prompts);
  if (outcome == ReadOutcome::kLoaded) t.session->CommitSounding();
  return outcome;
}

CptFile SimpleCpt(int readings) {
  CptFile file;
  file.channels = {{.name = "TIP", .range = "1000 kPa", .text = "A1"},
                   {.name = "FRICTION", .range = "1000 kPa", .text = "A2"},
                   {.name = "U2", .range = "1000 kPa", .text = "A3"}};
  for (int r = 1; r <= readings; ++r) file.rows.push_back({0.02 * r, 1.9, 1000.0 + 10 * r, 20.0 + r, 5.0 * r});
  return file;
}

std::string TestDataPath(const std::string& relative) {
  return EnvironmentOr("MARLVIEW_TEST_DATA", MARLVIEW_TEST_DATA_DIR) + "/" + relative;
}

void ExpectGolden(const std::string& actual, const std::string& relative) {
  const std::string path = EnvironmentOr("MARLVIEW_TEST_DATA", MARLVIEW_TEST_DATA_DIR) + "/" + relative;
  if (std::getenv("MARLVIEW_UPDATE_GOLDEN") != nullptr) {
    WriteFileAtomically(path, actual);
    ADD_FAILURE() << "rewrote " << path << ": review the change and run again without MARLVIEW_UPDATE_GOLDEN";
    return;
  }
  const auto expected = TryReadWholeFile(path);
  ASSERT_TRUE(expected.has_value()) << "missing golden file " << path;
  if (*expected == actual) return;
  size_t line = 1, at = 0;
  while (at < expected->size() && at < actual.size() && (*expected)[at] == actual[at]) {
    if (actual[at] == '\n') ++line;
    ++at;
  }
  ADD_FAILURE() << path << " differs first at line " << line << ", byte " << at;
}

}  // namespace marlview::test
