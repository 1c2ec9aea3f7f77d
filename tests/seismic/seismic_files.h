// Seismic files built in code for the tests: each builder writes the layout the field systems
// write, and a test then changes what it needs.
#pragma once

#include <string>
#include <vector>

namespace marlview::test {

struct SeiRecord {
  std::string depth = "001.50 m";
  std::string interval = ".00010000";
  int start = 0;
  int end = 10;
  std::string arrival = "    0N";
  std::string strikes = "A(SGEO1)B(SGEO2)";
  // Raw values per strike present, in the order A, B, P.
  std::vector<std::vector<int>> raws;
  std::string text_override;
};

// A .SEI file: the 55 header lines, the blank line 56 and the records.
std::string SeiFile(const std::vector<SeiRecord>& records, const std::string& version = "KORVAN FILE VER: SEI.08.11.2015");
// A record of a strikes string and the same count of samples in each.
SeiRecord SeiTest(const std::string& depth, const std::string& strikes, int count, int raw = 32768);

struct SmcRecord {
  std::string depth = "002.00 m";
  std::string interval = ".00010000";
  int start = 0;
  int end = 11;
  std::string arrival = "    0N";
  std::string strikes = "AB";
  std::string text;
};
// A current .SMC file of the given first line.
std::string SmcFile(const std::vector<SmcRecord>& records, const std::string& magic = "PX DAS Seismic File 2015.08.07.1");
// A legacy .SMC file: lines of depth, start, end, arrival, code, text per record.
std::string LegacySmcFile(const std::vector<std::vector<std::string>>& records, const std::string& magic = "Kestrelmoor Seismic File");

// An .SLG file of the strikes and raw columns.
std::string SlgFile(const std::string& strikes, const std::vector<std::vector<int>>& columns, const std::string& interval,
                    bool gain_line, const std::string& gain = "Gain: 10");

// An FLDACQ file of a depth in feet and rows of time (s), P, A and B.
std::string FldacqText(double depth_ft, const std::vector<std::vector<double>>& rows, const std::string& second_line = "Seismic Cone Test");

std::string Digits(int value, int width);

}  // namespace marlview::test
