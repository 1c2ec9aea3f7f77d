// Verification records: reading, the table, the graph and the printed page.
#include "core/verification/verification.h"

#include <algorithm>
#include <cmath>

#include "core/common/file_access.h"
#include "core/common/line_cursor.h"
#include "core/common/number_format.h"
#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"
#include "core/common/user_prompts.h"
#include "core/presentation/axis_scale.h"
#include "core/presentation/drawing_surface.h"
#include "core/presentation/print_job.h"
#include "core/session/session.h"

namespace marlview {
namespace {

constexpr size_t kRowFieldWidth = 18;
constexpr const char* kPressureFormat = "#######0.000";
constexpr const char* kDeviationFormat = "##0.00";
constexpr Colour kGridColour{200, 200, 200};
constexpr Colour kCurveColour{0, 0, 192};

float Number(std::string_view line) { return ToSingle(StrictNumber(line)); }

// One of the four 18-character fields of a row line; a short line leaves a field empty, which is
// not a number.
float RowField(std::string_view line, size_t index) {
  const size_t at = index * kRowFieldWidth;
  return Number(at < line.size() ? line.substr(at, kRowFieldWidth) : std::string_view());
}

void ReadChannel(LineCursor& lines, VerificationChannel& ch) {
  ch.ChannelTitle = std::string(lines.Next());
  ch.ChannelUnits = std::string(lines.Next());
  for (float& a : ch.ChannelCoefficientsA) a = Number(lines.Next());
  for (float& b : ch.ChannelCoefficientsB) b = Number(lines.Next());
  ch.ChannelRange = Number(lines.Next());
  ch.ChannelOffset = Number(lines.Next());
  // Both scale lines go to the one field: the second overwrites the first, as the files have
  // always been read.
  ch.ChannelScale = Number(lines.Next());
  ch.ChannelScale = Number(lines.Next());
  for (;;) {
    const std::string_view line = lines.Next();
    if (ContainsNoCase(line, "END CHANNEL")) break;
    if (ch.RowCount == kMaxVerificationRows) Fail(kErrSubscript);
    const int n = ++ch.RowCount;
    ch.RowAppliedLoad[n] = RowField(line, 0);
    ch.RowApplied[n] = RowField(line, 1);
    ch.RowMeasuredLoad[n] = RowField(line, 2);
    ch.RowMeasured[n] = RowField(line, 3);
    ch.RowDeviation[n] = ch.RowApplied[n] == 0
                             ? kNoDeviation
                             : ToSingle((static_cast<double>(ch.RowMeasured[n]) - ch.RowApplied[n]) / ch.RowApplied[n] * 100);
  }
}

VerificationAxis ScaledAxis(float least, float greatest) {
  VerificationAxis axis{least, greatest};
  SetAxisScale(axis.max, axis.min, axis.step, axis.major, axis.minor);
  return axis;
}

std::string UnitTitle(const std::string& words, const VerificationChannel& ch) {
  return words + " (" + ch.ChannelUnits + ")";
}

}  // namespace

VerificationRecord ReadVerificationFile(std::string_view bytes, std::string_view file_name) {
  return InProcedure("OpenVerificationFile", [&] {
    VerificationRecord r;
    r.FileName = std::string(file_name);
    r.Family = ContainsNoCase(bytes, "Q3MTL") ? "Q3MTL" : "FIELDBOX";
    LineCursor lines(bytes);
    for (std::string* text : {&r.ConeId, &r.TestDate, &r.OperatorName}) *text = std::string(lines.Next());
    lines.Skip(1);
    for (std::string* text : {&r.CellManufacturer, &r.CellSerialNumber, &r.CellCapacity, &r.CellSensitivity,
                              &r.TransducerManufacturer, &r.TransducerSerialNumber, &r.TransducerCapacity,
                              &r.TransducerSensitivity}) {
      *text = std::string(lines.Next());
    }
    for (int c = 1; c <= kVerificationChannels; ++c) ReadChannel(lines, r.Channel[static_cast<size_t>(c)]);
    return r;
  });
}

bool OpenVerificationFile(Session& session, UserPrompts& prompts) {
  FileDialogRequest request;
  request.title = "Open Verification File";
  request.filter = "Verification Files (*.vrf)|*.vrf";
  if (DirectoryExists(session.SoundingDirectory)) request.start_directory = session.SoundingDirectory;
  const std::string path = prompts.OpenFile(request);
  if (path.empty()) return false;
  return OpenVerificationPath(session, prompts, path);
}

bool OpenVerificationPath(Session& session, UserPrompts& prompts, const std::string& path) {
  return TellFailures(prompts, "OpenVerificationFile", [&] {
    session.Verification = ReadVerificationFile(ReadWholeFile(path), FileNamePart(path));
  });
}

std::array<VerificationTableRow, kMaxVerificationRows> VerificationTable(const VerificationChannel& ch) {
  std::array<VerificationTableRow, kMaxVerificationRows> table;
  for (int n = 1; n <= kMaxVerificationRows; ++n) {
    VerificationTableRow& row = table[static_cast<size_t>(n - 1)];
    if (n > ch.RowCount) {
      row = {"NOT MEASURED", "NOT MEASURED", "NOT MEASURED"};
      continue;
    }
    const auto i = static_cast<size_t>(n);
    row.applied = FormatNumber(ch.RowApplied[i], kPressureFormat);
    row.measured = FormatNumber(ch.RowMeasured[i], kPressureFormat);
    row.deviation = ch.RowApplied[i] == 0 ? "N/A" : FormatNumber(ch.RowDeviation[i], kDeviationFormat);
  }
  return table;
}

VerificationReference ReferenceBlock(const VerificationRecord& r, int channel) {
  const bool cell = channel == 1;
  return {cell ? "VERIFICATION LOAD CELL" : "VERIFICATION PRESSURE TRANSDUCER",
          {"MANUFACTURER: " + (cell ? r.CellManufacturer : r.TransducerManufacturer),
           "SERIAL NUMBER: " + (cell ? r.CellSerialNumber : r.TransducerSerialNumber),
           "CAPACITY: " + (cell ? r.CellCapacity : r.TransducerCapacity),
           "SENSITIVITY: " + (cell ? r.CellSensitivity : r.TransducerSensitivity)}};
}

VerificationAxes VerificationChartAxes(const VerificationChannel& ch) {
  if (ch.RowCount <= 0) return {ScaledAxis(0, 0), ScaledAxis(0, 0)};
  const auto first = ch.RowApplied.begin() + 1, applied_end = first + ch.RowCount;
  const auto measured = ch.RowMeasured.begin() + 1, measured_end = measured + ch.RowCount;
  return {ScaledAxis(*std::min_element(first, applied_end), *std::max_element(first, applied_end)),
          ScaledAxis(*std::min_element(measured, measured_end), *std::max_element(measured, measured_end))};
}

void DrawVerificationChart(DrawingSurface& g, double left, double top, double width, double height,
                           const VerificationChannel& ch) {
  const VerificationAxes axes = VerificationChartAxes(ch);
  const double line = g.TextHeight("0");
  // Room for the value labels and the titles on the left and below.
  const double plot_left = left + g.TextWidth("00000000") + line * 1.5;
  const double plot_right = left + width - g.TextWidth("0000");
  const double plot_top = top + line;
  const double plot_bottom = top + height - line * 3;
  if (plot_right <= plot_left || plot_bottom <= plot_top) return;
  auto x_of = [&](double v) {
    const double span = axes.x.max - axes.x.min;
    return plot_left + (span > 0 ? (v - axes.x.min) / span : 0) * (plot_right - plot_left);
  };
  auto y_of = [&](double v) {
    const double span = axes.y.max - axes.y.min;
    return plot_bottom - (span > 0 ? (v - axes.y.min) / span : 0) * (plot_bottom - plot_top);
  };
  auto text = [&](double x, double y, const std::string& words) {
    g.SetCurrentXY(x, y);
    g.Print(words);
  };
  for (int j = 0; j <= axes.x.major && axes.x.step > 0; ++j) {
    const double value = axes.x.min + j * static_cast<double>(axes.x.step);
    if (value > axes.x.max + 1e-6 * std::fabs(axes.x.max)) break;
    const double x = x_of(value);
    g.Line(x, plot_top, x, plot_bottom, kGridColour);
    const std::string label = AxisLabel(value);
    text(x - g.TextWidth(label) / 2, plot_bottom + line * 0.3, label);
  }
  for (int j = 0; j <= axes.y.major && axes.y.step > 0; ++j) {
    const double value = axes.y.min + j * static_cast<double>(axes.y.step);
    if (value > axes.y.max + 1e-6 * std::fabs(axes.y.max)) break;
    const double y = y_of(value);
    g.Line(plot_left, y, plot_right, y, kGridColour);
    const std::string label = AxisLabel(value);
    text(plot_left - line * 0.4 - g.TextWidth(label), y - line / 2, label);
  }
  g.Box(plot_left, plot_top, plot_right, plot_bottom, kBlack, false);
  const std::string x_title = UnitTitle("APPLIED PRESSURE", ch);
  text((plot_left + plot_right - g.TextWidth(x_title)) / 2, plot_bottom + line * 1.6, x_title);
  text(left, top - line * 0.2, UnitTitle("MEASURED PRESSURE", ch));
  g.SetDrawWidth(2);
  for (int n = 2; n <= ch.RowCount; ++n) {
    const auto a = static_cast<size_t>(n - 1), b = static_cast<size_t>(n);
    g.Line(x_of(ch.RowApplied[a]), y_of(ch.RowMeasured[a]), x_of(ch.RowApplied[b]), y_of(ch.RowMeasured[b]),
           kCurveColour);
  }
  const double mark = line * 0.2;
  for (int n = 1; n <= ch.RowCount; ++n) {
    const auto i = static_cast<size_t>(n);
    const double x = x_of(ch.RowApplied[i]), y = y_of(ch.RowMeasured[i]);
    g.Box(x - mark, y - mark, x + mark, y + mark, kCurveColour, true);
  }
  g.SetDrawWidth(1);
}

void PrintVerification(PrintJob& job, const VerificationRecord& r, int first_channel, int last_channel) {
  for (int c = std::max(1, first_channel); c <= std::min(kVerificationChannels, last_channel); ++c) {
    const VerificationChannel& ch = r.Channel[static_cast<size_t>(c)];
    DrawingSurface& g = job.NewPage();
    const double width = job.PageWidthPoints(), height = job.PageHeightPoints();
    g.SetScale(0, 0, width, height);
    const double margin = 54;
    double y = margin;
    auto line = [&](double x, const std::string& text) {
      g.SetCurrentXY(x, y);
      g.Print(text);
      y += g.TextHeight(text) * 1.25;
    };
    g.SetFont("Arial", 14, true, false);
    line(margin, "VERIFICATION (" + ch.ChannelTitle + ")");
    y += 6;
    g.SetFont("Arial", 10, false, false);
    line(margin, "CONE ID: " + r.ConeId);
    line(margin, "DATE: " + r.TestDate);
    line(margin, "OPERATOR: " + r.OperatorName);
    y += 6;
    const VerificationReference reference = ReferenceBlock(r, c);
    g.SetFont("Arial", 10, true, false);
    line(margin, reference.title);
    g.SetFont("Arial", 10, false, false);
    for (const std::string& text : reference.lines) line(margin, text);
    y += 10;

    // The table: three right-aligned columns under their heads.
    const double columns[] = {margin + 150, margin + 300, margin + 430};
    auto right = [&](double x_right, double at_y, const std::string& text) {
      g.SetCurrentXY(x_right - g.TextWidth(text), at_y);
      g.Print(text);
    };
    g.SetFont("Arial", 10, true, false);
    const double row_height = g.TextHeight("0") * 1.25;
    right(columns[0], y + row_height, UnitTitle("APPLIED PRESSURE", ch));
    right(columns[1], y, "MEASURED ");
    right(columns[1], y + row_height, UnitTitle("PRESSURE", ch));
    right(columns[2], y + row_height, "DEVIATION (%)");
    y += row_height * 2.4;
    g.SetFont("Arial", 10, false, false);
    for (const VerificationTableRow& row : VerificationTable(ch)) {
      right(columns[0], y, row.applied);
      right(columns[1], y, row.measured);
      right(columns[2], y, row.deviation);
      y += row_height;
    }
    y += row_height * 1.5;
    const double graph_bottom = height - margin - row_height * 2.5;
    DrawVerificationChart(g, margin, y, width - 2 * margin, graph_bottom - y, ch);
    g.SetCurrentXY(margin, height - margin - row_height);
    g.Print("CLIENT REP");
    g.Line(margin + g.TextWidth("CLIENT REP "), height - margin, margin + 260, height - margin, kBlack);
  }
}

}  // namespace marlview
