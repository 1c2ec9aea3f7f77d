// Verification records: the .vrf reader, the open flow, the channel table, the graph of applied
// against measured values and the printed page of a channel.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/session/verification_record.h"

namespace marlview {

class DrawingSurface;
class PrintJob;
class Session;
class UserPrompts;

// Reads a .vrf file. A number that is not one is "Type mismatch", an eleventh row of a channel
// "Subscript out of range", a file that ends early "Input past end of file", all from
// 'OpenVerificationFile'.
VerificationRecord ReadVerificationFile(std::string_view bytes, std::string_view file_name);

// optProcessVerification: "Open Verification File", then the read. The record becomes the
// session's only when the whole file was read; a failure is told. False when cancelled or refused.
bool OpenVerificationFile(Session& session, UserPrompts& prompts);
bool OpenVerificationPath(Session& session, UserPrompts& prompts, const std::string& path);

// One row of the channel table: applied, measured and deviation as the window shows them.
struct VerificationTableRow {
  std::string applied, measured, deviation;
};
std::array<VerificationTableRow, kMaxVerificationRows> VerificationTable(const VerificationChannel& channel);

// The reference block above a channel's table: the load cell for channel 1, the pressure
// transducer for the others, with their manufacturer, serial number, capacity and sensitivity lines.
struct VerificationReference {
  std::string title;
  std::array<std::string, 4> lines;
};
VerificationReference ReferenceBlock(const VerificationRecord& record, int channel);

// One axis of the graph, from the dissipation plot's scale rule.
struct VerificationAxis {
  float min = 0, max = 0, step = 0;
  int16_t major = 0, minor = 0;
};
struct VerificationAxes {
  // Applied values across, measured values up.
  VerificationAxis x, y;
};
// Over the least and greatest applied and measured values of the rows (0 and 0 without rows).
VerificationAxes VerificationChartAxes(const VerificationChannel& channel);

// ShowVerificationChart: frame, divisions, labels, axis titles and the points joined in row order,
// in the box (left, top, width, height) of the surface's logical coordinates.
void DrawVerificationChart(DrawingSurface& surface, double left, double top, double width, double height,
                           const VerificationChannel& channel);

// PrintVerification: each channel from first to last on a page of its own.
void PrintVerification(PrintJob& job, const VerificationRecord& record, int first_channel, int last_channel);

}  // namespace marlview
