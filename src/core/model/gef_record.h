// What a GEF sounding file says besides its readings: every header key as written,
// the dissipations taken in the push, and how each column of the file was read.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace marlview {

// A dissipation named by a #CHILD line: the file and the depth (m) it was taken at.
struct GefChild {
  std::string file;
  std::optional<double> depth;
};

// One column of the data records as the file declares it and as it was read.
struct GefColumnRecord {
  int column = 0;
  int quantity = 0;
  std::string unit, name;
  std::optional<double> void_value;
  // The store channel it became; 0 for the depth and for a column without #COLUMNINFO.
  int channel = 0;
  int missing_count = 0;
};

struct GefRecord {
  // Key (upper case) and value as written, in file order.
  std::vector<std::pair<std::string, std::string>> GefHeader;
  std::vector<GefChild> GefChildren;
  std::vector<GefColumnRecord> GefColumns;
  int GefDepthColumn = 0;
  int GefDepthQuantity = 0;
  // The cone's own net area ratio, used for Qt in place of the general setting.
  std::optional<double> GefNetAreaRatio;
  std::optional<double> GefPreDrilledDepth;
};

}  // namespace marlview
