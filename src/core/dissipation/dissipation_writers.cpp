// The QRD FIELDBOX and PX DAS dissipation writers.
#include "core/dissipation/dissipation_writers.h"

#include <cmath>

#include "core/common/number_format.h"
#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"
#include "core/io/qrd_header.h"
#include "core/model/unit_tables.h"
#include "core/session/dissipation_set.h"
#include "core/session/session.h"

namespace marlview {
namespace {

constexpr const char* kField16 = "@@@@@@@@@@@@@@@@";
constexpr const char* kField14 = "@@@@@@@@@@@@@@";
constexpr const char* kField10 = "@@@@@@@@@@";
constexpr const char* kField20 = "@@@@@@@@@@@@@@@@@@@@";
constexpr size_t kPxFieldWidth = 20;

void Line(std::string& out, std::string_view text) {
  out += text;
  out += "\r\n";
}

// A block row: its 14-character label, then one right-aligned 16-character field per channel.
template <typename Field>
void BlockRow(std::string& out, const char* label, int channels, Field field) {
  std::string line = FormatText(label, "!@@@@@@@@@@@@@@");
  for (int c = 1; c <= channels; ++c) AppendText(line, field(c), kField16);
  Line(out, line);
}

// A stored 32-bit value as the decimal it was read from, so 98.41 prints as 98.410000 and not as
// the 98.410004 of its binary neighbour.
double Decimal(float value) { return ParseNumber(ShortestText(value)); }

// A calibration number; a channel whose factor was undefined in the field system keeps its mark.
std::string BlockNumber(float value) {
  return std::isnan(value) ? std::string("-1.#IND") : FormatNumber(Decimal(value), "0.000000");
}

// "+1.599567": the sign in front when not negative, right-aligned with a blank before it.
void AppendRowValue(std::string& out, float value) {
  out += ' ';
  AppendText(out, (value >= 0 ? "+" : "") + FormatNumber(Decimal(value), "0.000000"), kField14);
}

}  // namespace

std::string WithPxField(const std::string& line, int column, const std::string& text) {
  if (column < 1) Fail(kErrInvalidCall);
  const auto start = static_cast<size_t>(column - 1);
  std::string out(Columns(line, 0, start));
  out.resize(start, ' ');
  AppendText(out, text, kField20);
  out += ColumnsFrom(line, start + kPxFieldWidth);
  return out;
}

double PxField(const DissipationSet& set, int header_line, int width) {
  if (set.PressureColumn < 1) Fail(kErrInvalidCall);
  return ParseLocalNumber(Columns(set.PXHeaderLine[static_cast<size_t>(header_line)],
                                  static_cast<size_t>(set.PressureColumn - 1), static_cast<size_t>(width)));
}

// KORVAN FILE VER: DIS.10.12.2012
// ...the header, the channel block with its fixed range, gain, filter and excitation rows, then
//    6.5000000000000 => Test Depth (m)
//    time(s)    pressure(V)  pressure(PSI)  pressure(kPa)
//      1.000      +1.599567     +59.659944    +411.340830
std::string FieldboxDissipationBytes(const DissipationSet& set, const UnitTables& units,
                                     const std::string& file_name) {
  std::string out;
  Line(out, "KORVAN FILE VER: DIS.10.12.2012");
  Line(out, set.SectionMarker);
  Line(out, "Dissipation Test");
  Line(out, file_name + " => Filename");
  Line(out, set.TestId + " => Test Id");
  Line(out, set.Operator + " | " + set.Crew + " => Operator / Crew");
  Line(out, set.Project + " => Project");
  Line(out, set.Site + " => Site");
  Line(out, set.Location + " => Location");
  Line(out, set.Comments + " => Comments");
  Line(out, set.TestDate + " => Date");
  Line(out, set.StartTime + " => Start Time");
  Line(out, QrdGpsLine(set.GpsLatitude, set.GpsLongitude, set.GpsElevation, set.GpsSatellites, set.GpsQuality));
  Line(out, set.Client + " => Client");
  Line(out, set.ClientRepresentative + " => Client Representative");
  Line(out, set.Weather + " => Weather");
  Line(out, " ");
  Line(out, "Version " + set.DasVersion);
  Line(out, " ");
  Line(out, set.DasSystem + " => DAS System");
  Line(out, "Enabled => Digital Cone");
  Line(out, set.ProbeSerialNumber + " => Probe Serial Number");
  Line(out, "Conventional => Tip Configuration");
  for (int i = 0; i < 5; ++i) Line(out, " => ");
  Line(out, set.SampleRateLine.empty() ? std::string("1 => Sample Rate") : set.SampleRateLine);
  Line(out, "");

  const int channels = set.ChannelCount;
  auto at = [](int c) { return static_cast<size_t>(c); };
  BlockRow(out, "Channel", channels, [&](int c) { return set.ChannelName[at(c)]; });
  BlockRow(out, "Sensor", channels, [&](int c) { return set.ChannelSensor[at(c)]; });
  // What the field system set for the amplifier is not kept; these are the values it runs at.
  BlockRow(out, "Range", channels, [](int) { return std::string("1.000000"); });
  BlockRow(out, "Gain", channels, [](int) { return std::string("1"); });
  BlockRow(out, "Filter", channels, [](int) { return std::string("1"); });
  {
    std::string line = FormatText("Excitation", "!@@@@@@@@@@@@@@");
    for (int c = 1; c <= channels; ++c) {
      if (c == 1)
        line += "4.0";
      else
        AppendText(line, "4.0", kField16);
    }
    Line(out, line);
  }
  BlockRow(out, "Baseline", channels, [&](int c) { return BlockNumber(set.ChannelBaseline[at(c)]); });
  for (size_t k = 0; k < 5; ++k) {
    BlockRow(out, "Cal Factor", channels, [&](int c) { return BlockNumber(set.ChannelCal[at(c)][k]); });
  }
  if (set.ChannelBlockTail.size() == 9) {
    for (const std::string& line : set.ChannelBlockTail) Line(out, line);
  } else {
    for (int i = 0; i < 5; ++i) BlockRow(out, "Unit Factors", channels, [](int) { return std::string("1.000000"); });
    BlockRow(out, "Chan Offset", channels, [](int) { return std::string("0.000000"); });
    BlockRow(out, "Default Units", channels, [](int) { return std::string("psi"); });
    BlockRow(out, "Display Units", channels, [](int) { return std::string("psi"); });
    BlockRow(out, "Conv Factor", channels, [](int) { return std::string("1.000000E+000"); });
  }
  Line(out, "");
  Line(out, "");
  Line(out, "Dig. Sensor         Digital NC");
  Line(out, "");

  const std::string heading =
      "   time(s)    pressure(V)  pressure(PSI)  pressure(" + units.Name(set.PressureUnitIndex, kPressureGroup) + ")";
  for (int i = 1; i <= set.DissipationCount; ++i) {
    if (i > kMaxDissipations) Fail(kErrSubscript);
    Line(out, FormatNumber(Decimal(set.TestDepth[at(i)]), "###0.0000000000000") + " => Test Depth (m)");
    Line(out, heading);
    for (int k = 1; k <= set.RowCount[at(i)]; ++k) {
      AppendText(out, FormatNumber(set.RowTime(i, k), "#####0.000"), kField10);
      AppendRowValue(out, set.RowChannelA(i, k));
      AppendRowValue(out, set.RowChannelB(i, k));
      AppendRowValue(out, set.RowPressure(i, k));
      out += "\r\n";
    }
  }
  return out;
}

// Kestrelmoor Dissipation File
// <customer> ... <comment 3>, the GPS sentence, the water table, two empty lines, the kept header
// with the unit and its factor in the pressure field, an empty line, then per test:
// 5.25 m
//      1    2039.9     412.6                        2202.84500
std::string PxDissipationBytes(const DissipationSet& set, const std::string& second_identifier) {
  std::string out;
  Line(out, "Kestrelmoor Dissipation File");
  for (const std::string* field : {&set.Customer, &set.OperatorName, &set.ConeId, &set.PxLocation, &set.JobNumber}) {
    Line(out, *field);
  }
  Line(out, second_identifier);
  for (const std::string* field : {&set.TestDateText, &set.Comment1, &set.Comment2, &set.Comment3, &set.PxGpsSentence}) {
    Line(out, *field);
  }
  Line(out, FormatNumber(Decimal(set.WaterTableDepth), "##0.00"));
  Line(out, "");
  Line(out, "");
  for (size_t j = 1; j <= 5; ++j) Line(out, set.PXHeaderLine[j]);
  Line(out, WithPxField(set.PXHeaderLine[6], set.PressureColumn, set.PressureUnitName));
  // Only the units the editor offers have a factor of their own; another keeps the file's.
  std::string factor_line = set.PXHeaderLine[7];
  for (const PxPressureUnit& unit : kPxPressureUnits) {
    if (EqualsNoCase(unit.name, set.PressureUnitName)) {
      factor_line = WithPxField(factor_line, set.PressureColumn, FormatNumber(unit.per_kilopascal, "0.000####"));
    }
  }
  Line(out, factor_line);
  Line(out, "");
  const auto column = static_cast<size_t>(set.PressureColumn - 1);
  for (int i = 1; i <= set.DissipationCount; ++i) {
    if (i > kMaxDissipations) Fail(kErrSubscript);
    const auto at = static_cast<size_t>(i);
    Line(out, FormatNumber(Decimal(set.TestDepth[at]), "####0.00") + " m");
    const std::vector<std::string>& texts = set.RowText[at];
    for (int k = 1; k <= set.RowCount[at]; ++k) {
      const std::string& text = static_cast<size_t>(k) < texts.size() ? texts[static_cast<size_t>(k)] : std::string();
      std::string row(Columns(text, 0, column));
      row.resize(column, ' ');
      AppendText(row, FormatNumber(Decimal(set.RowChannelA(i, k)), "#####0.00000"), kField20);
      row += ColumnsFrom(text, column + kPxFieldWidth);
      Line(out, row);
    }
  }
  return out;
}

void WriteDissipationFile(const Session& session, const std::string& path, const FileWriteFunction& write) {
  const DissipationSet& set = session.Dissipation();
  std::string bytes;
  if (set.FileKind == kPxDasDissipation) {
    if (set.PressureColumn < 1) Fail(kErrInvalidCall);
    bytes = PxDissipationBytes(set, session.Sounding().HoleNumber);
  } else if (set.FileKind == kFieldboxDissipation) {
    bytes = FieldboxDissipationBytes(set, session.units, std::string(FileNamePart(path)));
  } else {
    // An FLDACQ file has no writer of its own.
    Fail(kErrInvalidCall);
  }
  WriteFileAtomically(path, bytes, write);
}

}  // namespace marlview
