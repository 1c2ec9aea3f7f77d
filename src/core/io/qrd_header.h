// The "value => label" header lines the QRD FIELDBOX systems write at the top of every file they
// leave: soundings, seismic tests and logs alike.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace marlview {

// The value of a QRD FIELDBOX "value => label" header line: what stands before " =>", or before
// "=>" when " =>" is missing or opens the line; the whole line when there is no arrow.
std::string_view HeaderValue(std::string_view line);

// The GPS pieces of "49.2031N,122.9157W,4.2,9,2 => GPS Data (Lat, Lon, Elev, NSat, Qual)": split at
// the commas only when the value carries a hemisphere letter and a comma, the last piece taking
// what remains; every piece left empty is "0". The pieces are the file's text as it stands, blanks
// included: the blank before " =>" ends the last one ("2 "), and the exports print it so. Returns
// the value itself.
struct GpsPieces {
  std::string *lat, *lon, *elev, *nsat, *qual;
};
std::string_view SplitQrdGps(std::string_view line, const GpsPieces& pieces);
// The GPS header line the QRD FIELDBOX writers put down: the pieces joined by commas, an empty one
// as "0", then two blanks and the label. The blank a read leaves at the end of the quality is the
// first of those two, so it is not written twice: a file saved again and again keeps its line.
std::string QrdGpsLine(std::string_view lat, std::string_view lon, std::string_view elev, std::string_view nsat,
                       std::string_view qual);

// Splits a GPS text at its commas into the pieces in order, blanks kept, the last taking
// what remains; a piece left empty is "0". The PX DAS header's GPS line is split this way whatever
// it holds.
void SplitGpsText(std::string_view gps, std::span<std::string* const> pieces);

}  // namespace marlview
