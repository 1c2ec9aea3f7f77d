// The time file reader.
#include "core/video/time_file.h"

#include "core/common/line_cursor.h"
#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"

namespace marlview {

// Optic Cone Time File.  Column 1 = depth (m), Column 2 = system time
// 0.005 1190686997
// 0.010 1190686998
//
// The clock is a large count of seconds: it is read in 64 bits and made relative to the first row
// before it is kept in 32, which would otherwise merge neighbouring seconds. A time below the
// first row's means the clock wrapped round: the row lies that far past the row before it.
TimeFileRows ReadTimeFile(std::string_view bytes) {
  TimeFileRows rows;
  LineCursor lines(bytes);
  if (!lines.AtEnd()) lines.Skip(1);
  double first = 0;
  while (!lines.AtEnd()) {
    const std::string_view line = lines.Next();
    const int n = rows.Count() + 1;
    if (n > kMaxVideoRows) Fail(kErrSubscript);
    const size_t blank = line.find(' ');
    const std::string_view left = line.substr(0, blank);
    const std::string_view right = blank == std::string_view::npos ? std::string_view() : line.substr(blank + 1);
    const float depth = ToSingle(StrictNumber(left));
    const double t = StrictNumber(right);
    if (n == 1) first = t;
    const double relative = t >= first ? t - first : static_cast<double>(rows.VideoRowTime[static_cast<size_t>(n - 1)]) + t;
    rows.VideoRowDepth.push_back(depth);
    rows.VideoRowTime.push_back(ToSingle(relative));
  }
  return rows;
}

}  // namespace marlview
