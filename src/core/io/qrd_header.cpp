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
  const std::string_view gps = HeaderValue(line);
  std::string* const fields[] = {pieces.lat, pieces.lon, pieces.elev, pieces.nsat, pieces.qual};
  const bool split = (ContainsNoCase(gps, "S") || ContainsNoCase(gps, "N")) && gps.find(',') != std::string_view::npos;
  SplitGpsText(split ? gps : std::string_view(), fields);
  return gps;
}

std::string QrdGpsLine(std::string_view lat, std::string_view lon, std::string_view elev, std::string_view nsat,
                       std::string_view qual) {
  std::string line;
  for (std::string_view piece : {lat, lon, elev, nsat, qual}) {
    if (!line.empty()) line += ',';
    line += piece.empty() ? std::string_view("0") : piece;
  }
  line.resize(TrimRightBlanks(line).size());
  return line + "  => GPS Data (Lat, Lon, Elev, NSat, Qual)";
}

void SplitGpsText(std::string_view gps, std::span<std::string* const> pieces) {
  std::string_view rest = gps;
  for (size_t i = 0; i < pieces.size(); ++i) {
    const size_t comma = i + 1 < pieces.size() ? rest.find(',') : std::string_view::npos;
    *pieces[i] = std::string(rest.substr(0, comma));
    rest = comma == std::string_view::npos ? std::string_view() : rest.substr(comma + 1);
    if (pieces[i]->empty()) *pieces[i] = "0";
  }
}

}  // namespace marlview
