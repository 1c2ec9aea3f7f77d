// Dissipation files built line by line in the tests, in the layouts the field systems write.
#pragma once

#include <string>
#include <vector>

namespace marlview::test {

struct DissipationRow {
  int time_s;
  double volts, psi, pressure;
};

struct DissipationTest {
  double depth;
  std::vector<DissipationRow> rows;
};

// A QRD FIELDBOX .DIS file of three channels whose pressure column is in unit (a row name of the
// pressure unit file).
std::vector<std::string> FieldboxLines(const std::vector<DissipationTest>& tests,
                                       const std::string& unit = "kPa");
// A data row of exactly 55 characters.
std::string FieldboxRow(const DissipationRow& row);

// A PX DAS .DIS file: raw counts in the pressure column, kPa = (raw - 1000) / 2 x 0.5 x 1.
std::vector<std::string> PxLines(const std::vector<DissipationTest>& tests,
                                 const std::string& water_table = "2.10");
std::string PxRow(int time_s, double raw);

// An FLDACQ file; depths in feet; each row gives time and pressure in psi.
std::vector<std::string> FldacqLines(const std::vector<DissipationTest>& tests, const std::string& marker);
std::string FldacqRow(int time_s, double psi);

std::string Join(const std::vector<std::string>& lines);

}  // namespace marlview::test
