// The optic cone's time file (.tim): the depth of the cone against the field system's clock.
#pragma once

#include <string_view>
#include <vector>

namespace marlview {

inline constexpr int kMaxVideoRows = 10000;

// Rows 1..Count(); index 0 is present and empty.
struct TimeFileRows {
  // Metres.
  std::vector<float> VideoRowDepth{0};
  // Seconds of the field system's clock since the first row.
  std::vector<float> VideoRowTime{0};
  int Count() const { return static_cast<int>(VideoRowDepth.size()) - 1; }
};

// Reads a time file: line 1 is a free header, then "depth time" lines, parted at the first blank.
// A field that is not a number fails with "Type mismatch", more than 10000 rows with "Subscript
// out of range".
TimeFileRows ReadTimeFile(std::string_view bytes);

}  // namespace marlview
