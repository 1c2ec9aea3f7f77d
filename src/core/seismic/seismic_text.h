// Text rules shared by the seismic readers: sample texts walked by position, header values, the
// GPS lines of both families, the operator and crew line, and items that end at a comma.
#pragma once

#include <string>
#include <string_view>

#include <vector>
#include "core/common/line_cursor.h"
#include "core/session/seismic_store.h"

namespace marlview {

// The sample text with every "-" deleted and, for the newer PX DAS files, every "A", "B" and "Z".
std::string CleanSampleText(std::string_view text, bool drop_strike_letters);

// The leading number of the width characters at 0-based position pos; characters past the end of
// the text are missing and a field with no number reads 0. Walked without allocating for plain
// digit fields, which is what every sample is.
double FieldValue(std::string_view text, size_t pos, size_t width);

// The identity lines every QRD seismic file writes in the same order, from "T01 => Test ID"
// (index 0) through the operator and crew, project, site, location, comments, date, start time,
// GPS, client and client representative to the weather (index 11). False for any other index.
bool ReadQrdIdentityLine(int index, std::string_view line, SeismicHeader& header, bool log_style);
// PX DAS: an NMEA-like line; comma fields 2 and 3 are the latitude, 4 and 5 the longitude, 9 the
// elevation.
void SplitPxGps(std::string_view line, SeismicHeader& header);

// "J. Ferreira | D. Okafor => Operator / Crew". The log files keep the blank before the arrow in
// the crew; the test files do not.
void ReadOperatorAndCrew(std::string_view line, SeismicHeader& header, bool log_style);

// Lines of a file read either whole or as items that end at a comma, as the field systems'
// "Input #" reads a text item.
class ItemReader {
 public:
  explicit ItemReader(std::string_view bytes) : lines_(bytes) {}
  // True when only blank lines are left.
  bool AtEnd() const { return !has_pending_ && lines_.OnlyBlankLinesLeft(); }
  std::string_view Line();
  std::string_view Item();
  void SkipLines(int count);

 private:
  LineCursor lines_;
  std::string_view pending_;
  bool has_pending_ = false;
};

// A count or index of a record stored in a 32-bit field, rounded to the nearest whole number; a
// value beyond the field's range is "Overflow".
int32_t ToInteger32(double value);

// The value of a QRD FIELDBOX header line, blanks kept.
std::string QrdValue(std::string_view line);

}  // namespace marlview
