// The export files of a sounding: text with fixed columns, comma separated (csv, cor) and gIN.
#include "core/presentation/sounding_exports.h"

#include <algorithm>
#include <cmath>

#include "core/common/number_format.h"
#include "core/common/number_read.h"
#include "core/common/text_rules.h"
#include "core/derivation/normalised_sbt.h"
#include "core/derivation/sbt1983.h"
#include "core/session/session.h"

namespace marlview {
namespace {

constexpr const char* kLineEnd = "\r\n";
constexpr const char* kColumnMask = "@@@@@@@@@@@@@@@";
constexpr const char* kDepthMask = "@@@@@@@@";
constexpr double kKgPerCubicMetreInPcf = 16.0184634;
// A list shows at most 30 channels, and so does an export.
constexpr size_t kMaxExportColumns = 30;

// The chart whose labels a zone channel shows, or -1 for any other channel.
int ZoneChart(const SoundingStore& s, int c) {
  if (c == 0) return -1;
  if (c == s.Sbt83Channel) return kChart1983;
  if (c == s.Sbt86FrChannel || c == s.Sbt86PpChannel) return kChart1986;
  if (c == s.Sbt90QtChannel || c == s.Sbt90BqChannel || IsSbtnChannel(s, c)) return kChart1990;
  return -1;
}

bool IsColour(const SoundingStore& s, int c) {
  return c != 0 && (c == s.RedChannel || c == s.GreenChannel || c == s.BlueChannel || c == s.ClearChannel);
}

double Depth(const Session& session, int r, const ExportOptions& o) {
  const double depth = session.Sounding().DepthTable(r, o.depth_unit == 1 ? 1 : 2);
  return o.elevation ? -depth : depth;
}

std::string UnitWord(const ExportOptions& o) { return o.depth_unit == 1 ? "m" : "ft"; }

std::string WaterTableLine(const Session& session, const ExportOptions& o, const char* separator) {
  const SoundingStore& s = session.Sounding();
  const std::string label = "WATER TABLE (" + UnitWord(o) + ")" + separator;
  // The comma separated form writes "(m), UNDEFINED" but "(m),2.40".
  if (s.WaterTableDepth == -99) return label + (std::string_view(separator) == "," ? " UNDEFINED" : "UNDEFINED");
  const double depth = o.depth_unit == 1 ? s.WaterTableDepth : s.WaterTableDepth * session.FeetPerMetre;
  return label + FormatNumber(depth, "####0.00");
}

// The time of a reading: the clock that ends its data line.
std::string TailClock(const std::string& tail) {
  const std::string_view trimmed = TrimRightBlanks(tail);
  const size_t blank = trimmed.find_last_of(' ');
  return std::string(blank == std::string_view::npos ? trimmed : trimmed.substr(blank + 1));
}

std::vector<int> WrittenChannels(const Session& session, const ExportOptions& o, bool skip_munsell) {
  const SoundingStore& s = session.Sounding();
  std::vector<int> channels;
  for (int c : o.channels) {
    if (c < 1 || c > s.TotalChannels) continue;
    if (skip_munsell && c == s.MunsellChannel) continue;
    channels.push_back(c);
    if (channels.size() == kMaxExportColumns) break;
  }
  return channels;
}

double CellValue(const SoundingStore& s, int r, int c, int kind, bool raw) {
  // Derived channels exist only aligned.
  const bool unaligned = raw && c <= s.ChannelCount;
  return unaligned ? s.ChannelReadings(r, KindColumn(c, kind)) : s.AlignedReadings(r, KindColumn(c, kind));
}

// A cell of the csv and cor rows: the value in its kind's pattern. The list's texts (zones with
// their chart labels, "<out of range>", SPT as a whole number) belong to the text form, and two
// of the 1990 labels hold a comma that would split the row. Time has no value of its own, only
// the clock of the reading.
void AppendCommaCell(std::string& out, const Session& session, int r, int c, int kind, bool raw) {
  const SoundingStore& s = session.Sounding();
  // A reading the file did not give is an empty cell.
  if (s.IsMissing(r, c)) return;
  if (c == s.TimeChannel && c != 0) {
    out += TailClock(s.RowTail[r]);
  } else {
    AppendNumber(out, CellValue(s, r, c, kind, raw), NumberPattern(s, c, kind));
  }
}

}  // namespace

std::string_view NumberPattern(const SoundingStore& s, int channel, int kind) {
  const std::string& pattern = s.ChannelFormat[channel][kind];
  return pattern.empty() ? std::string_view("######0.000") : std::string_view(pattern);
}

void AppendCellText(std::string& out, const Session& session, int r, int c, int kind, bool raw) {
  const SoundingStore& s = session.Sounding();
  if (s.IsMissing(r, c)) return;
  const double v = CellValue(s, r, c, kind, raw);
  const int chart = ZoneChart(s, c);
  if (chart >= 0) {
    const auto& labels = session.chart.SbtLabels[chart];
    if (!(v >= 1 && v < static_cast<double>(labels.size())) || std::floor(v) != v) {
      out += chart == kChart1986 ? session.chart.OutOfRange1986 : session.chart.OutOfRange1990;
      return;
    }
    // The zone number right-aligned in three columns, then its label.
    const int zone = static_cast<int>(v);
    out.append(zone < 10 ? 2 : zone < 100 ? 1 : 0, ' ');
    AppendNumber(out, v, "##0");
    out += ' ';
    out += labels[static_cast<size_t>(v)];
    return;
  }
  if (c == s.MunsellChannel && c != 0) {
    out += s.MunsellChips[r];
  } else if (c == s.TimeChannel && c != 0) {
    out += TailClock(s.RowTail[r]);
  } else if (s.ChannelName[c].find("SPT") != std::string::npos) {
    AppendNumber(out, v, "####0");
  } else if (IsColour(s, c)) {
    AppendNumber(out, v, "#####0");
  } else {
    AppendNumber(out, v, NumberPattern(s, c, kind));
  }
}

std::string CellText(const Session& session, int r, int c, int kind, bool raw) {
  std::string out;
  AppendCellText(out, session, r, c, kind, raw);
  return out;
}

std::string TipConfigurationLine(const SoundingStore& s) {
  if (!s.BallTip) return "TIP CONFIGURATION: Conventional";
  return "TIP CONFIGURATION: BALL TIP " + ShortestText(s.BallDiameter) + "mm DIAMETER";
}

std::vector<std::string> TextHeaderBlock(const Session& session, const ExportOptions& o) {
  const SoundingStore& s = session.Sounding();
  std::vector<std::string> lines;
  if (o.raw) lines.push_back("DATA NOT ADJUSTED FOR CHANNEL OFFSETS");
  if (s.AcquisitionFamily == kPxDasFamily) {
    lines.insert(lines.end(), {"FILE: " + s.SoundingFileName, "TEST DATE / TIME: " + s.TestDateText,
                               "LOCATION: " + s.LocationName, "JOB #: " + s.JobNumber, "HOLE #: " + s.HoleNumber,
                               "CUSTOMER: " + s.Customer, "CONE ID: " + s.ConeId, "OPERATOR: " + s.OperatorName});
    lines.push_back(WaterTableLine(session, o, ": "));
    lines.push_back("GPS (Lat, Lon, Elev): " + s.GpsLat + ", " + s.GpsLon + ", " + s.GpsElev);
  } else {
    lines.insert(lines.end(),
                 {"CPT DATA", "FILENAME: " + s.SoundingFileName, "TEST ID: " + s.TestId,
                  "OPERATOR | CREW: " + s.Operator + " | " + s.Crew, "PROJECT: " + s.Project, "SITE: " + s.Site,
                  "LOCATION: " + s.Location, "COMMENTS: " + s.Comments, "DATE: " + s.TestDate,
                  "START TIME: " + s.StartTime,
                  "GPS (Lat, Lon, Elev, NSat, Qual): " + s.GpsLat + ", " + s.GpsLon + ", " + s.GpsElev + ", " +
                      s.GpsNSat + ", " + s.GpsQual,
                  "CLIENT: " + s.Client, "CLIENT REPRESENTATIVE: " + s.ClientRepresentative,
                  "WEATHER: " + s.Weather, "SOFTWARE VERSION: " + s.DasVersion, "DAS SYSTEM: " + s.DasSystem,
                  "PROBE SERIAL NUMBER: " + s.ProbeSerial});
    lines.push_back(WaterTableLine(session, o, ": "));
  }
  lines.push_back(TipConfigurationLine(s));
  return lines;
}

std::vector<std::string> CsvHeaderBlock(const Session& session, const ExportOptions& o) {
  const SoundingStore& s = session.Sounding();
  std::vector<std::string> lines;
  if (o.raw) lines.push_back("DATA NOT ADJUSTED FOR CHANNEL OFFSETS");
  if (s.AcquisitionFamily == kPxDasFamily) {
    lines.insert(lines.end(), {"FILE," + s.SoundingFileName, "TEST DATE / TIME," + s.TestDateText,
                               "LOCATION," + s.LocationName, "JOB #," + s.JobNumber, "HOLE #," + s.HoleNumber,
                               "CUSTOMER," + s.Customer, "CONE ID," + s.ConeId, "OPERATOR," + s.OperatorName});
    lines.push_back(WaterTableLine(session, o, ","));
    lines.push_back("GPS (Lat Lon Elev)," + s.GpsLat + "," + s.GpsLon + "," + s.GpsElev);
  } else {
    lines.insert(lines.end(),
                 {"CPT DATA", "FILENAME," + s.SoundingFileName, "TEST ID," + s.TestId,
                  "OPERATOR,CREW," + s.Operator + "," + s.Crew, "PROJECT," + s.Project, "SITE," + s.Site,
                  "LOCATION," + s.Location, "COMMENTS," + s.Comments, "DATE," + s.TestDate,
                  "START TIME," + s.StartTime,
                  "GPS Data," + s.GpsLat + "," + s.GpsLon + "," + s.GpsElev + "," + s.GpsNSat + "," + s.GpsQual,
                  "CLIENT," + s.Client, "CLIENT REPRESENTATIVE," + s.ClientRepresentative, "WEATHER," + s.Weather,
                  // The software line keeps its colon in the comma separated forms too.
                  "SOFTWARE VERSION: " + s.DasVersion, "DAS SYSTEM," + s.DasSystem,
                  "PROBE SERIAL NUMBER," + s.ProbeSerial});
    lines.push_back(WaterTableLine(session, o, ","));
  }
  lines.push_back(TipConfigurationLine(s));
  return lines;
}

std::string TxtExport(const Session& session, const ExportOptions& o) {
  const SoundingStore& s = session.Sounding();
  const std::vector<int> channels = WrittenChannels(session, o, false);
  std::string out;
  auto line = [&out](const std::string& text) { out += text + kLineEnd; };
  if (o.include_header) {
    for (const auto& text : TextHeaderBlock(session, o)) line(text);
    line("");
  }
  std::string heading = o.raw ? (o.elevation ? "   ELEV." : "   DEPTH") : (o.elevation ? "   Elev." : "   Depth");
  std::string units = o.depth_unit == 1 ? "       m" : "      ft";
  for (int c : channels) {
    if (ZoneChart(s, c) >= 0) {
      heading += "             Soil Behavior Type     ";
      units += "    Zone";
    } else if (c == s.TimeChannel) {
      heading += "           Time";
      units += FormatText("", kColumnMask);
    } else {
      heading += FormatText(s.ChannelShortName[c], kColumnMask);
      units += FormatText(s.ChannelUnitLabel[c][kTxtOutput], kColumnMask);
    }
  }
  line(heading);
  line(units);
  line("");
  // Each cell is formatted into one scratch text and aligned onto the end of the file's text.
  std::string cell;
  const char* depth_format = o.elevation ? "###0.000" : "##0.000";
  for (int r = 1; r <= s.ReadingCount; ++r) {
    cell.clear();
    AppendNumber(cell, Depth(session, r, o), depth_format);
    AppendText(out, cell, kDepthMask);
    for (int c : channels) {
      cell.clear();
      AppendCellText(cell, session, r, c, kTxtOutput, o.raw);
      if (ZoneChart(s, c) >= 0) {
        out += ' ';
        out += cell;
      } else {
        AppendText(out, cell, kColumnMask);
      }
    }
    out += kLineEnd;
  }
  return out;
}

std::string CsvExport(const Session& session, const ExportOptions& o, const std::string& extension) {
  const SoundingStore& s = session.Sounding();
  const bool cor = EqualsNoCase(extension, "cor");
  const int kind = cor ? kCorOutput : kCsvOutput;
  const std::vector<int> channels = WrittenChannels(session, o, true);
  std::string out;
  auto line = [&out](const std::string& text) { out += text + kLineEnd; };
  if (o.include_header) {
    for (const auto& text : CsvHeaderBlock(session, o)) line(text);
    if (cor) {
      line("");
      line("");
    }
  }
  std::string heading = o.raw ? "DEPTH" : "Depth";
  std::string units = "(" + UnitWord(o) + ")";
  for (int c : channels) {
    const std::string& label = s.ChannelLabel[c][kind];
    heading += "," + (label.empty() ? s.ChannelShortName[c] : label);
    units += "," + s.ChannelUnitLabel[c][kind];
  }
  line(heading);
  line(units);
  std::string cell;
  for (int r = 1; r <= s.ReadingCount; ++r) {
    AppendNumber(out, Depth(session, r, o), "##0.000");
    for (int c : channels) {
      cell.clear();
      AppendCommaCell(cell, session, r, c, kind, o.raw);
      out += ',';
      out += TrimBlanks(cell);
    }
    out += kLineEnd;
  }
  return out;
}

std::string GinExport(const Session& session, GinUnit unit) {
  const SoundingStore& s = session.Sounding();
  const bool feet = unit == GinUnit::kPsi || unit == GinUnit::kTsf;
  const int mode_unit = unit == GinUnit::kPsi ? kPsiUnit : unit == GinUnit::kTsf ? kTsfUnit
                        : unit == GinUnit::kKpa ? kKpaUnit : kMpaUnit;
  const bool fine = unit == GinUnit::kTsf || unit == GinUnit::kMpa;
  const bool korvan = s.AcquisitionFamily != kPxDasFamily;
  const std::string point = korvan ? s.TestId : s.HoleNumber;
  const int n = s.ReadingCount;
  auto depth_of = [&](int r) { return static_cast<double>(s.DepthTable(r, feet ? 2 : 1)); };
  // A pressure in the file's unit brought to the unit of the export.
  auto pressure = [&](int r, int c) {
    if (c == 0) return 0.0;
    const double factor = s.ChannelUnitFactor[c][kGraphOutput];
    const double in_default = factor == 0 ? 0 : s.AlignedReadings(r, KindColumn(c, kGraphOutput)) / factor;
    const double to = session.units.ConversionFactor(mode_unit, kPressureGroup);
    return to == 0 ? 0 : in_default * session.units.ConversionFactor(s.ChannelDefaultUnit[c], kPressureGroup) / to;
  };
  const char* pressure_format = fine ? "###0.0000" : "#######0.0000";
  const double density = session.general.SoilDensity * (feet ? 1 : kKgPerCubicMetreInPcf);
  const double water = s.WaterTableDepth == -99 ? -99 : s.WaterTableDepth * (feet ? session.FeetPerMetre : 1);

  std::string out;
  auto section = [&out](const std::string& name, const std::string& fields, const std::vector<std::string>& rows) {
    out += name + kLineEnd + fields + kLineEnd;
    for (const auto& row : rows) out += row + kLineEnd;
    out += kLineEnd;
  };
  section("**PROJECT", "State_proj_number", {korvan ? s.Client : s.JobNumber});
  section("**POINT", "PointID,HoleDepth,Elevation,Structure_Type",
          {point + "," + FormatNumber(n > 0 ? depth_of(n) : 0, "##0.0000") + ",,"});
  section("**LABIN", "PointID,Bridge_Number_or_Desc,Date_End",
          {point + "," + (korvan ? s.Site : s.LocationName) + "," + (korvan ? s.TestDate : s.TestDateText)});
  section("**EDITIN", "PointID,Survey_Method,UTM_X,UTM_Y", {point + ",CPT-GPS,,"});
  section("**CPT", "PointID,Probe_ID,Software,Int_Stat_H20_Level,ASM_DNSTY",
          {point + "," + (korvan ? s.ProbeSerial : s.ConeId) + ",Marlview V3.1.6," + FormatNumber(water, "###0.00") +
           "," + FormatNumber(density, "###0.00")});

  std::string fields = "PointID,DEPTH";
  if (s.SleeveChannel != 0) fields += ",SleveStress";
  if (s.TipChannel != 0) fields += ",UNCTipResist,COR_TipResist";
  if (s.TipChannel != 0 && s.SleeveChannel != 0) fields += ",COR_FR";
  if (s.PorePressureChannel != 0) fields += ",PWP";
  if (s.OverburdenChannel != 0) fields += ",OVBDN_PR";
  if (s.EffOverburdenChannel != 0) fields += ",EFF_OVBDN_PR";
  fields += ",WET_DENSITY";
  if (s.Sbt83Channel != 0) fields += ",RD_SBT_FR";
  if (s.Sbt90BqChannel != 0) fields += ",RC_SBT_PWP";
  if (s.SptChannel != 0) fields += ",EQV_BPF";
  if (s.FrictionAngleChannel != 0) fields += ",PHI";
  if (s.ShearStrengthChannel != 0) fields += ",SU";

  auto value = [&](int r, int c) { return static_cast<double>(s.AlignedReadings(r, KindColumn(c, kGraphOutput))); };
  auto field = [&out](double number, const char* format) {
    out += ',';
    AppendNumber(out, number, format);
  };
  // A reading the file did not give is an empty field.
  auto reading = [&](int r, int c, const char* format) {
    if (s.IsMissing(r, c)) {
      out += ',';
    } else {
      field(pressure(r, c), format);
    }
  };
  auto zone = [&](int r, int c) {
    const double z = value(r, c);
    if (z == 0) {
      out += ",-99.";
    } else {
      field(z, "##0.");
    }
  };
  out += "**CPTDATA";
  out += kLineEnd;
  out += fields;
  out += kLineEnd;
  for (int r = 1; r <= n; ++r) {
    out += point;
    field(depth_of(r), "##0.0000");
    if (s.SleeveChannel != 0) reading(r, s.SleeveChannel, pressure_format);
    if (s.TipChannel != 0) {
      reading(r, s.TipChannel, unit == GinUnit::kMpa ? "###0.00000" : pressure_format);
      field(pressure(r, s.TipQtChannel != 0 ? s.TipQtChannel : s.TipChannel), pressure_format);
    }
    if (s.TipChannel != 0 && s.SleeveChannel != 0) {
      field(value(r, s.FrictionRatioQtChannel != 0 ? s.FrictionRatioQtChannel : s.FrictionRatioQcChannel), "###0.000");
    }
    if (s.PorePressureChannel != 0) {
      reading(r, s.PorePressureChannel, unit == GinUnit::kMpa ? "###0.00000" : fine ? "###0.0000" : "#######0.0000");
    }
    // One field each: "0" then the mantissa pattern, so 12.34 reads 0.1234E+02.
    if (s.OverburdenChannel != 0) {
      out += ",0";
      AppendNumber(out, pressure(r, s.OverburdenChannel), ".0000E+00");
    }
    if (s.EffOverburdenChannel != 0) {
      out += ",0";
      AppendNumber(out, pressure(r, s.EffOverburdenChannel), ".0000E+00");
    }
    field(density, "###0.00");
    // The zone columns are written from the 1986 charts, whatever the field line names.
    if (s.Sbt86FrChannel != 0) zone(r, s.Sbt86FrChannel);
    if (s.Sbt86PpChannel != 0) zone(r, s.Sbt86PpChannel);
    if (s.SptChannel != 0) zone(r, s.SptChannel);
    if (s.FrictionAngleChannel != 0) field(value(r, s.FrictionAngleChannel), "###0.00");
    if (s.ShearStrengthChannel != 0) field(pressure(r, s.ShearStrengthChannel), pressure_format);
    out += kLineEnd;
  }
  out += kLineEnd;
  return out;
}

std::string ExportFilter(const std::string& extension) {
  if (EqualsNoCase(extension, "txt")) return "TXT Files (*.txt)|*.txt";
  if (EqualsNoCase(extension, "gIN")) return "gIN Files (*.gIN)|*.gIN";
  if (EqualsNoCase(extension, "ecp")) return "ECP Files (*.ecp)|*.ecp";
  return " Files (*." + extension + ")|*." + extension;
}

std::string WithExtension(const std::string& path, const std::string& extension) {
  return EndsWithNoCase(path, "." + extension) ? path : path + "." + extension;
}

}  // namespace marlview
