// Builders of the three dissipation layouts.
#include "dissipation_files.h"

#include <cstdio>

namespace marlview::test {
namespace {

std::string Block(const std::string& label, const std::vector<std::string>& values) {
  std::string line = label;
  line.resize(14, ' ');
  for (std::string value : values) {
    value.resize(16, ' ');
    line += value;
  }
  return line;
}

std::string Format(const char* pattern, double a, double b = 0, double c = 0, double d = 0) {
  char buffer[200];
  std::snprintf(buffer, sizeof buffer, pattern, a, b, c, d);
  return buffer;
}

void ChannelBlock(std::vector<std::string>& lines, int spare_rows_after_sensor) {
  lines.push_back(Block("Channel", {"Tip", "Sleeve", "Pore Pressure"}));
  lines.push_back(Block("Sensor", {"TIP-15T", "SLV-15T", "PP-500"}));
  for (int i = 0; i < spare_rows_after_sensor; ++i)
    lines.push_back(Block("Range", {"1.000000", "1.000000", "1.000000"}));
  lines.push_back(Block("Baseline", {"0.012450", "-1.#IND", "0.008720"}));
  for (int i = 0; i < 5; ++i)
    lines.push_back(Block("Cal Factor", {"0.000000", i == 1 ? "98.4100" : "0.0", "37.5020"}));
}

const std::vector<std::string> kHeaderValues = {
    "A01 => Test Id",
    "M. Lindqvist | R. Osei => Operator / Crew",
    "Fraser Wharf => Project",
    "Berth 3 => Site",
    "CPT-A01 east => Location",
    "two depths => Comments",
    "14/06/2024 => Date",
    "09:42:17 => Start Time",
    "49.2031N,122.9157W,4.2,9,2  => GPS Data (Lat, Lon, Elev, NSat, Qual)",
    "Port Authority => Client",
    "A. Novak => Client Representative",
    "Overcast => Weather",
};

}  // namespace

std::string FieldboxRow(const DissipationRow& row) {
  return Format("%10.0f %14.6f %14.6f %14.5f", row.time_s, row.volts, row.psi, row.pressure);
}

std::vector<std::string> FieldboxLines(const std::vector<DissipationTest>& tests, const std::string& unit) {
  std::vector<std::string> lines = {"KORVAN FILE VER: DIS.10.12.2012", "HARBOURLINE GEOTECHNICAL LTD.",
                                    "Dissipation Test", "DIS-T01.DIS => Filename"};
  lines.insert(lines.end(), kHeaderValues.begin(), kHeaderValues.end());
  for (const char* line : {" ", "Version 4.2.1", " ", "FIELDBOX-II => DAS System", "Enabled => Digital Cone",
                           "DC-15T-0417 => Probe Serial Number", "Conventional => Tip Configuration", " => ",
                           " => ", " => ", " => ", " => ", "1 => Sample Rate", ""}) {
    lines.push_back(line);
  }
  ChannelBlock(lines, 4);
  for (int i = 0; i < 9; ++i) lines.push_back(Block("Unit Factors", {"1", "1", "1"}));
  for (const char* line : {"", "", "Dig. Sensor         Digital NC", ""}) lines.push_back(line);
  for (const DissipationTest& test : tests) {
    lines.push_back(Format("%.13f => Test Depth (m)", test.depth));
    lines.push_back("   time(s)    pressure(V)  pressure(PSI)  pressure(" + unit + ")");
    for (const DissipationRow& row : test.rows) lines.push_back(FieldboxRow(row));
  }
  return lines;
}

// The pressure field starts at column 41.
std::string PxRow(int time_s, double raw) {
  std::string line = Format("%6.0f%10.1f%10.1f", time_s, 2040.0, 412.0);
  line.resize(40, ' ');
  return line + Format("%20.3f", raw);
}

std::vector<std::string> PxLines(const std::vector<DissipationTest>& tests, const std::string& water_table) {
  auto at = [](const std::string& label, const std::string& value, int width) {
    std::string line = label;
    line.resize(40, ' ');
    std::string field = value;
    if (static_cast<int>(field.size()) < width)
      field.insert(0, static_cast<size_t>(width) - field.size(), ' ');
    return line + field;
  };
  std::vector<std::string> lines = {"PX Dissipation File",
                                    "Northfield Drilling",
                                    "K. Baptiste",
                                    "PX-10-2291",
                                    "Pier 7",
                                    "NDT-24-118",
                                    "BH-07",
                                    "22/08/2024",
                                    "comment one",
                                    "comment two",
                                    "comment three",
                                    "$GPGGA,153012.00,4912.1860,N,12254.9420,W,1,09,0.9,4.2,M,-16.3,M,,*5C",
                                    water_table,
                                    "",
                                    "",
                                    "PX DAS DISSIPATION RECORD"};
  std::string titles = "  TIME     TIP RAW    SLEEVE RAW";
  titles.resize(48, ' ');
  lines.push_back(titles + "PRESSURE U2 RAW");
  lines.push_back(at("CAL DIVISOR", "2,000", 20));
  lines.push_back(at("ZERO OFFSET", "1000.000", 20));
  lines.push_back(at("SCALE", "0.5", 15));
  lines.push_back(at("UNIT", "k P a", 20));
  lines.push_back(at("CONVERSION", "1.000", 20));
  for (const DissipationTest& test : tests) {
    lines.push_back(Format("%8.2f m", test.depth));
    for (const DissipationRow& row : test.rows) lines.push_back(PxRow(row.time_s, row.pressure));
    lines.push_back("");
  }
  return lines;
}

std::string FldacqRow(int time_s, double psi) { return Format("%10.0f %14.6f", time_s, psi); }

std::vector<std::string> FldacqLines(const std::vector<DissipationTest>& tests, const std::string& marker) {
  std::vector<std::string> lines;
  for (size_t n = 0; n < tests.size(); ++n) {
    const bool first = n == 0;
    lines.push_back(marker);
    if (first) lines.push_back("Dissipation Test");
    lines.push_back("C02 => Filename");
    lines.insert(lines.end(), kHeaderValues.begin(), kHeaderValues.end());
    for (const char* line :
         {" ", "Version 3.9.0", " ", "FIELDBOX-FLDACQ => DAS System", "Enabled => Digital Cone",
          "DC-10T-0288 => Probe Serial Number", "Conventional => Tip Configuration", " => ", " => ", " => ",
          " => ", " => ", "1 => Sample Rate"}) {
      lines.push_back(line);
    }
    lines.push_back(Format("%.2f => Test Depth (ft)", tests[n].depth));
    lines.push_back("");
    ChannelBlock(lines, 5);
    if (first) {
      for (int i = 0; i < 15; ++i) lines.push_back(Block("Unit Factors", {"1", "1", "1"}));
      for (const char* line : {"", "Dig. Sensor         Digital NC", ""}) lines.push_back(line);
    } else {
      for (int i = 0; i < 5; ++i) lines.push_back(Block("Unit Factors", {"1", "1", "1"}));
      lines.push_back("");
      lines.push_back("");
    }
    for (const DissipationRow& row : tests[n].rows) lines.push_back(FldacqRow(row.time_s, row.pressure));
  }
  return lines;
}

std::string Join(const std::vector<std::string>& lines) {
  std::string bytes;
  for (const std::string& line : lines) bytes += line + "\r\n";
  return bytes;
}

}  // namespace marlview::test
