// Helpers shared by the core tests: a fresh data directory, sessions, DAT files built in code,
// failure expectations and golden files.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "core/common/runtime_failure.h"
#include "core/common/user_prompts.h"
#include "core/io/cpt_reader.h"
#include "core/io/dat_reader.h"
#include "core/session/session.h"

namespace marlview::test {

// A data directory of its own for each test, removed afterwards.
class TempDirectory {
 public:
  TempDirectory();
  ~TempDirectory();
  TempDirectory(const TempDirectory&) = delete;
  TempDirectory& operator=(const TempDirectory&) = delete;
  const std::string& Path() const { return path_; }
  std::string File(const std::string& name) const { return path_ + "/" + name; }
  void Write(const std::string& name, const std::string& bytes) const;

 private:
  std::string path_;
};

std::string DefaultsDirectory();
std::string SamplesDirectory();
std::string ReadSample(const std::string& name);
// The path of a file under tests/data.
std::string TestDataPath(const std::string& relative);

// A session on a fresh data directory, started as the program starts.
struct TestSession {
  TestSession();
  TempDirectory data;
  std::unique_ptr<Session> session;
  ScriptedPrompts prompts;
};

// One channel of a DAT file built in a test.
struct DatChannel {
  std::string sensor;
  float baseline = 0;
  std::vector<float> cal{5000, 1, 1, 0, 0};
  std::vector<float> unit_factors{0, 0, 1, 0, 0};
  float offset = 0;
  std::string default_units = "psi";
  std::string display_units = "psi";
  std::string conv_factor = "1.000000E+000";
};

// Writes the DAT layouts the way the field systems do, line by line; tests then change lines.
struct DatFile {
  int family = 1;
  std::string version = "KORVAN FILE VER: 08.05.2015";
  std::string product = "QRD FIELDBOX CPT ACQUISITION";
  std::string operator_crew = "J. Ferreira | D. Okafor => Operator / Crew";
  std::string gps = "49.2031N,122.9157W,4.2,9,2  => GPS Data (Lat, Lon, Elev, NSat, Qual)";
  std::string water_table = "2.40 => Water Table Depth (m)";
  std::string tip = "Conventional => Tip Configuration";
  std::string sample = "20(mm) => Depth Increment";
  std::string test_depth = "0.00 => Test Depth (m)";
  std::vector<std::string> extra_header{" ", " "};
  std::vector<DatChannel> channels;
  // Depth (family 1) then one raw value per channel.
  std::vector<std::vector<double>> rows;
  std::vector<double> end_baseline;

  bool HasWaterTableLine() const { return family == 1 && version.find("08.05.2015") != std::string::npos; }
  std::vector<std::string> Lines() const;
  std::string Bytes() const;
};

// Reads file as the sounding of a field crew's "CPT-T01.DAT" and makes it the current sounding.
ReadOutcome OpenSounding(TestSession& t, const DatFile& file);

// A family 1 file of tip, sleeve and pore pressure with unit calibrations: each pressure in psi
// equals its raw value.
DatFile SimpleDat(int readings);
std::string DataLine(const DatFile& file, const std::vector<double>& row);
std::string RawField(double value);
std::string Cell(const std::string& text);

// One channel of a PX DAS file built in a test.
struct CptChannel {
  std::string name;
  double sensitivity = 1000;
  double zero = 0;
  // The range and its unit, as the cell holds them.
  std::string range = "1000 kPa";
  std::string text = "A";
  double number = 0;
};

// Writes the PX DAS layout the way the field computers do, line by line; tests then change lines.
struct CptFile {
  std::vector<std::string> header{"FRASER RIVER CROSSING - PIEZOCONE", "Delta Bridge Partners", "J. Ferreira",
                                  "PX15-0412",  "North Approach, Richmond BC",       "J-2291",
                                  "CPT-T01",    "14/10/2026 09:42",                   "Pushed beside BH-3",
                                  "Refusal on gravel", "Predrilled 0.5 m",           "49.2031,-122.9157,4.2"};
  std::string water_table = "2.35";
  // Depths with two decimals ("   (m) (cm/s)") or three ("    (m)(cm/s)").
  int depth_decimals = 2;
  std::string heading = "   (m) (cm/s)";
  std::vector<CptChannel> channels;
  // Depth, speed, then one number per channel; -32768 marks a missing number.
  std::vector<std::vector<double>> rows;

  std::vector<std::string> Lines() const;
  std::string Bytes() const;
};

// A table row: 13 blanks, then each text right-aligned in 20 characters.
std::string CptTableRow(const std::vector<std::string>& cells);
std::string CptDataLine(const CptFile& file, const std::vector<double>& row);
// Reads file as the sounding of a field crew's "CPT-T01.CPT" and makes it the current sounding.
ReadOutcome OpenSounding(TestSession& t, const CptFile& file);
// Tip, sleeve and u2 whose numbers are kPa as they stand, a reading every 2 cm at 1.9 cm/s.
CptFile SimpleCpt(int readings);

// Compares actual with tests/data/<relative>; MARLVIEW_UPDATE_GOLDEN=1 rewrites it and fails.
void ExpectGolden(const std::string& actual, const std::string& relative);

}  // namespace marlview::test

// Expects statement to throw the run-time failure number from source.
#define EXPECT_FAILURE(statement, expected_number, expected_source)                         \
  do {                                                                                      \
    try {                                                                                   \
      statement;                                                                            \
      ADD_FAILURE() << "no run-time failure from " #statement;                             \
    } catch (const ::marlview::RuntimeFailure& failure_) {                                   \
      EXPECT_EQ(failure_.number, (expected_number)) << ::marlview::GeneralErrorText(failure_); \
      EXPECT_EQ(failure_.source, (expected_source));                                        \
    }                                                                                       \
  } while (false)
