// The QRD FIELDBOX header line rules shared by the sounding and seismic readers.
#include "core/io/qrd_header.h"

#include "core/common/text_rules.h"

namespace marlview {

std::string_view HeaderValue(std::string_view line) {
  size_t arrow = line.find(" =>");
  if (arrow == std::string_view::npos || arrow == 0) arrow = line.find("=>");
  return arrow == std::string_view::npos ? line : line.substr(0, arrow);
}

std::string_view SplitQrdGps(std::string_view line, const GpsPieces& pieces) {
  const std::string_view gps = TrimRightBlanks(HeaderValue(line));
  std::string* const fields[] = {pieces.lat, pieces.lon, pieces.elev, pieces.nsat, pieces.qual};
  for (std::string* field : fields) field->clear();
  if ((ContainsNoCase(gps, "S") || ContainsNoCase(gps, "N")) && gps.find(',') != std::string_view::npos) {
    std::string_view rest = gps;
    for (int i = 0; i < 4; ++i) {
      const size_t comma = rest.find(',');
      if (comma == std::string_view::npos) {
        *fields[i] = std::string(TrimBlanks(rest));
        rest = {};
        break;
      }
      *fields[i] = std::string(TrimBlanks(rest.substr(0, comma)));
      rest = rest.substr(comma + 1);
    }
    *fields[4] = std::string(TrimBlanks(rest));
  }
  for (std::string* field : fields) {
    if (field->empty()) *field = "0";
  }
  return gps;
}

}  // namespace marlview
