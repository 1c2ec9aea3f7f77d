// The dissipation list, its printed form, its exports and the editors' whole-file exports.
#include "core/dissipation/dissipation_list.h"

#include <algorithm>

#include "core/common/file_access.h"
#include "core/common/number_format.h"
#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"
#include "core/model/unit_tables.h"
#include "core/presentation/drawing_surface.h"
#include "core/presentation/print_job.h"
#include "core/presentation/sounding_exports.h"
#include "core/session/session.h"

namespace marlview {
namespace {

constexpr const char* kLineEnd = "\r\n";
constexpr const char* kTimeFormat = "####0.0";
constexpr const char* kPressureFormat = "##########0.000";
constexpr const char* kPercentFormat = "###0.00";
// The value column of the whole-file exports: time in ten characters, pressure in fourteen.
constexpr const char* kWholeTimeFormat = "#####0.000";
constexpr const char* kWholePressureFormat = "#####0.000";
constexpr int kWholeTimeWidth = 10;
constexpr int kWholePressureWidth = 14;
constexpr double kPageMarginPoints = 36;
constexpr double kPrintFontPoints = 8;
constexpr double kLogoWidthPoints = 86, kLogoHeightPoints = 43;

std::string Pad(const std::string& text, int width) {
  return FormatText(text, std::string(static_cast<size_t>(std::max(width, 0)), '@'));
}

bool Metric(const Session& session) { return session.DepthUnitIsMetric == 1; }
double InDepthUnit(const Session& session, double metres) {
  return Metric(session) ? metres : metres * session.FeetPerMetre;
}

const DissipationSet& Set(const Session& session) { return session.Dissipation(); }

// The test's index into the row tables; past the tables is "Subscript out of range".
size_t TestIndex(const DissipationSet& set, int test) {
  if (test < 1 || test > kMaxDissipations || test > set.DissipationCount) Fail(kErrSubscript);
  return static_cast<size_t>(test);
}

bool ShowHead(const DissipationSet& set, const DissipationListView& view) {
  return view.show_percent_head && PercentHeadAvailable(set, view.test);
}

std::string GpsText(const DissipationSet& set) {
  return set.GpsLatitude + "," + set.GpsLongitude + "," + set.GpsElevation + "," + set.GpsSatellites + "," +
         set.GpsQuality;
}

// The pressure column is as wide as its format, or as its title with the lead of three blanks.
int PressureColumnWidth(const DissipationSet& set) {
  return std::max<int>(static_cast<int>(std::string_view(kPressureFormat).size()),
                       3 + static_cast<int>(DissipationChannelName(set).size()));
}

bool FieldboxHeader(const DissipationSet& set) { return set.FileKind == kFieldboxDissipation; }

void Line(std::string& out, const std::string& text) {
  out += text;
  out += kLineEnd;
}

std::string WaterTableText(const Session& session) {
  const float water_table = Set(session).WaterTableDepth;
  if (water_table == kUndefinedWaterTable) return "UNDEFINED";
  return FormatNumber(InDepthUnit(session, water_table), "##0.00");
}

// The pressure cell of the whole-file exports: a "+" in front of a value that is not negative.
std::string SignedPressure(float value) {
  const std::string digits = FormatNumber(value, kWholePressureFormat);
  return Pad(value < 0 ? digits : "+" + digits, kWholePressureWidth);
}

void WholeFileHeader(std::string& out, const Session& session, bool csv) {
  const DissipationSet& set = Set(session);
  const bool px = set.FileKind == kPxDasDissipation;
  if (px) {
    Line(out, csv ? "KORVAN PX CSV FILE VER: DIS.05.31.2015" : "Kestrelmoor Dissipation File");
  } else {
    Line(out, csv ? "KORVAN CSV FILE VER: DIS.10.03.2013" : "KORVAN TEXT FILE VER: DIS.10.03.2013");
  }
  Line(out, "Dissipation Test");
  auto field = [&](const char* label, const std::string& value) {
    Line(out, std::string(label) + (csv ? "," : "") + value);
  };
  if (px) {
    field("CUSTOMER:", set.Customer);
    field("FILENAME:", set.DissipationFileName);
    field("OPERATOR:", set.OperatorName);
    field("CONE ID:", set.ConeId);
    field("LOCATION:", set.PxLocation);
    field("JOB NUMBER:", set.JobNumber);
    field("HOLE NUMBER:", set.HoleNumber);
    field("TEST DATE:", set.TestDateText);
    field("GPS DATA:", GpsText(set));
    field("HEADER:", set.Comment1);
    field("FOOTER 1:", set.Comment2);
    field("FOOTER 2:", set.Comment3);
  } else {
    field("COMPANY:", set.SectionMarker);
    field("FILENAME:", set.DissipationFileName);
    field("TEST ID:", set.TestId);
    field("OPERATOR:", set.Operator);
    field("CREW:", set.Crew);
    field("PROJECT:", set.Project);
    field("SITE:", set.Site);
    field("LOCATION:", set.Location);
    field("COMMENTS:", set.Comments);
    field("TEST DATE:", set.TestDate);
    field("TEST TIME:", set.StartTime);
    field("GPS DATA:", GpsText(set));
    field("CLIENT:", set.Client);
    field("CLIENT REPRESENTATIVE:", set.ClientRepresentative);
    field("WEATHER:", set.Weather);
    field("DAS SOFTWARE VERSION:", set.DasVersion);
    field("DAS SERIAL NUMBER:", set.DasSystem);
    field("PROBE SERIAL NUMBER:", set.ProbeSerialNumber);
    field("TIP STYLE:", "Conventional");
  }
  Line(out, "");
}

void WholeFileTest(std::string& out, const Session& session, bool csv, int test) {
  const DissipationSet& set = Set(session);
  const size_t i = TestIndex(set, test);
  const std::string unit = DissipationUnitName(set, session.units);
  Line(out, std::string(Metric(session) ? "DISSIPATION DEPTH (m):" : "DISSIPATION DEPTH (ft):") +
                (csv ? "," : "") + FormatNumber(InDepthUnit(session, set.TestDepth[i]), "##0.00"));
  Line(out, csv ? "TIME (S),PRESSURE (" + unit + ")" : "TIME (S)    PRESSURE (" + unit + ")");
  for (int k = 1; k <= set.RowCount[i]; ++k) {
    std::string row = Pad(FormatNumber(set.RowTime(test, k), kWholeTimeFormat), kWholeTimeWidth);
    if (csv) row += ",";
    row += SignedPressure(set.RowPressure(test, k));
    Line(out, row);
  }
}

void PrintLineAt(DrawingSurface& page, double x, double y, const std::string& text) {
  page.SetCurrentXY(x, y);
  page.Print(text.empty() ? " " : text);
}

}  // namespace

bool PercentHeadAvailable(const DissipationSet& set, int test) {
  return test >= 1 && test <= kMaxDissipations && set.HydrostaticPressure[static_cast<size_t>(test)] != 0;
}

// The caption is the file name run together with the window's title, as the field program shows it.
std::string DissipationListCaption(const DissipationSet& set) {
  return set.DissipationFileName + "DISSIPATION D";
}

std::string DissipationUnitName(const DissipationSet& set, const UnitTables& units) {
  switch (set.FileKind) {
    case kPxDasDissipation:
    case kGefDissipation:
      return set.PressureUnitName;
    case kFieldboxDissipation:
      return units.Name(set.PressureUnitIndex, kPressureGroup);
    default:
      return "PSI";
  }
}

std::string DissipationChannelName(const DissipationSet& set) {
  if (set.FileKind == kPxDasDissipation) return std::string(TrimBlanks(set.PressureChannelName));
  const int channel = set.PorePressureChannel;
  if (channel >= 1 && channel <= kMaxDissipationChannels) {
    return std::string(TrimBlanks(set.ChannelName[static_cast<size_t>(channel)]));
  }
  return "Pressure";
}

std::vector<DissipationColumn> DissipationListColumns(const Session& session,
                                                      const DissipationListView& view) {
  const DissipationSet& set = Set(session);
  std::vector<DissipationColumn> columns;
  columns.push_back({"   Time", "    (S)", 7});
  const int width = PressureColumnWidth(set);
  columns.push_back({Pad("   " + DissipationChannelName(set), width),
                     Pad("(" + DissipationUnitName(set, session.units) + ")", width), width});
  if (view.show_percent_max) columns.push_back({"   % Max Pressure", "                %", 17});
  if (ShowHead(set, view)) columns.push_back({"   % Over Head Pressure", "                      %", 23});
  return columns;
}

std::string DissipationListCell(const DissipationSet& set, const DissipationListView& view, int row,
                                int column) {
  const int test = view.test;
  TestIndex(set, test);
  if (column == 0) return Pad(FormatNumber(set.RowTime(test, row), kTimeFormat), 7);
  if (column == 1)
    return Pad(FormatNumber(set.RowPressure(test, row), kPressureFormat), PressureColumnWidth(set));
  if (column == 2 && view.show_percent_max)
    return Pad(FormatNumber(set.PercentMax(test, row), kPercentFormat), 17);
  return Pad(FormatNumber(set.PercentHead(test, row), kPercentFormat), 23);
}

std::vector<std::string> DissipationListLines(const Session& session, const DissipationListView& view) {
  const DissipationSet& set = Set(session);
  const size_t i = TestIndex(set, view.test);
  const std::vector<DissipationColumn> columns = DissipationListColumns(session, view);
  std::string headings, units;
  for (const DissipationColumn& column : columns) {
    headings += column.heading;
    units += column.unit_line;
  }
  std::vector<std::string> lines{headings, units};
  lines.reserve(static_cast<size_t>(set.RowCount[i]) + 2);
  for (int k = 1; k <= set.RowCount[i]; ++k) {
    std::string line;
    for (int c = 0; c < static_cast<int>(columns.size()); ++c) line += DissipationListCell(set, view, k, c);
    lines.push_back(std::move(line));
  }
  return lines;
}

std::vector<std::string> DissipationPrintHeader(const Session& session, const DissipationListView& view) {
  const DissipationSet& set = Set(session);
  const size_t i = TestIndex(set, view.test);
  const std::string unit = DissipationUnitName(set, session.units);
  const std::string metric = Metric(session) ? "(m): " : "(ft): ";
  const bool px = set.FileKind == kPxDasDissipation;
  std::vector<std::string> lines;
  if (!session.general.CompanyGraphTitle.empty()) lines.push_back(session.general.CompanyGraphTitle);
  lines.push_back("PORE PRESSURE DISSIPATION DATA: " + set.DissipationFileName);
  lines.push_back("LOCATION: " + (px ? set.PxLocation : set.Location));
  lines.push_back("DATE: " + (px ? set.TestDateText : set.TestDate));
  lines.push_back("");
  lines.push_back("DISSIPATION DEPTH " + metric +
                  FormatNumber(InDepthUnit(session, set.TestDepth[i]), "##0.00"));
  lines.push_back("MAXIMUM PRESSURE (" + unit + "): " + FormatNumber(set.MaxPressure[i], "#######0.000"));
  lines.push_back("WATER TABLE DEPTH " + metric + WaterTableText(session));
  lines.push_back("HEAD PRESSURE (" + unit +
                  "): " + FormatNumber(set.HydrostaticPressure[i], "#######0.000"));
  return lines;
}

void PrintDissipationList(PrintJob& job, const Session& session, const DissipationListView& view) {
  const std::vector<std::string> header = DissipationPrintHeader(session, view);
  const std::vector<DissipationColumn> columns = DissipationListColumns(session, view);
  const DissipationSet& set = Set(session);
  const int rows = set.RowCount[TestIndex(set, view.test)];
  const double width = job.PageWidthPoints(), height = job.PageHeightPoints();
  DrawingSurface* page = &job.NewPage();
  page->SetScale(0, 0, width, height);
  page->SetFont("arial", kPrintFontPoints, false, false);
  const std::string logo = session.SettingsPath("logo.jpg");
  if (FileExists(logo)) {
    page->PaintPicture(Picture{logo}, width - kPageMarginPoints - kLogoWidthPoints, kPageMarginPoints,
                       kLogoWidthPoints, kLogoHeightPoints);
  }
  double y = kPageMarginPoints;
  const double line = page->TextHeight("Ag");
  for (const std::string& text : header) {
    PrintLineAt(*page, kPageMarginPoints, y, text);
    y += line;
  }
  y += line;
  // Arial is not fixed-pitch, so each cell is set right-aligned at its column's right edge, the
  // edges spaced by the width of the columns' characters.
  const double char_width = page->TextWidth("0");
  auto print_row = [&](auto cell) {
    if (y + line > height - kPageMarginPoints) {
      page = &job.NewPage();
      page->SetScale(0, 0, width, height);
      page->SetFont("arial", kPrintFontPoints, false, false);
      y = kPageMarginPoints;
    }
    double right = kPageMarginPoints;
    for (size_t c = 0; c < columns.size(); ++c) {
      right += columns[c].width * char_width;
      const std::string text(TrimBlanks(cell(c)));
      PrintLineAt(*page, right - page->TextWidth(text), y, text);
    }
    y += line;
  };
  print_row([&](size_t c) { return columns[c].heading; });
  print_row([&](size_t c) { return columns[c].unit_line; });
  for (int k = 1; k <= rows; ++k) {
    print_row([&](size_t c) { return DissipationListCell(set, view, k, static_cast<int>(c)); });
  }
}

std::string DissipationTxtExport(const Session& session, const DissipationListView& view) {
  const DissipationSet& set = Set(session);
  std::string out;
  if (FieldboxHeader(set)) {
    Line(out, "CPT PORE PRESSURE DATA");
    Line(out, set.SectionMarker);
    Line(out, "FILENAME: " + set.DissipationFileName);
    Line(out, "TEST ID: " + set.TestId);
    Line(out, "OPERATOR | CREW: " + set.Operator + " | " + set.Crew);
    Line(out, "PROJECT: " + set.Project);
    Line(out, "SITE: " + set.Site);
    Line(out, "LOCATION: " + set.Location);
    Line(out, "COMMENTS: " + set.Comments);
    Line(out, "DATE: " + set.TestDate);
    Line(out, "START TIME: " + set.StartTime);
    Line(out, "GPS Data (Lat, Lon, Elev, NSat, Qual): " + GpsText(set));
    Line(out, "CLIENT: " + set.Client);
    Line(out, "CLIENT REPRESENTATIVE: " + set.ClientRepresentative);
    Line(out, "WEATHER: " + set.Weather);
    Line(out, "SOFTWARE VERSION: " + set.DasVersion);
    Line(out, "DAS SYSTEM: " + set.DasSystem);
    Line(out, "PROBE SERIAL NUMBER: " + set.ProbeSerialNumber);
  } else {
    // FLDACQ files too take the PX DAS header set, as the field program writes them.
    Line(out, "CPT PORE PRESSURE DATA");
    Line(out, "FILE: " + set.DissipationFileName);
    Line(out, "TEST DATE / TIME: " + set.TestDateText);
    Line(out, "JOB #: " + set.JobNumber);
    Line(out, "HOLE #: " + set.HoleNumber);
    Line(out, "CUSTOMER: " + set.Customer);
    Line(out, "CONE ID: " + set.ConeId);
    Line(out, "OPERATOR: " + set.OperatorName);
    Line(out, "GPS: " + GpsText(set));
    Line(out, "HEADER: " + set.Comment1);
    Line(out, "FOOTER 1: " + set.Comment2);
    Line(out, "FOOTER 2: " + set.Comment3);
  }
  for (const std::string& line : DissipationListLines(session, view)) Line(out, line);
  return out;
}

std::string DissipationCsvExport(const Session& session, const DissipationListView& view) {
  const DissipationSet& set = Set(session);
  const size_t i = TestIndex(set, view.test);
  std::string out;
  if (FieldboxHeader(set)) {
    Line(out, "CPT DATA");
    Line(out, "FILENAME," + set.DissipationFileName);
    Line(out, "TEST ID," + set.TestId);
    Line(out, "OPERATOR,CREW," + set.Operator + "," + set.Crew);
    Line(out, "PROJECT," + set.Project);
    Line(out, "SITE," + set.Site);
    Line(out, "LOCATION," + set.Location);
    Line(out, "COMMENTS," + set.Comments);
    Line(out, "DATE," + set.TestDate);
    Line(out, "START TIME," + set.StartTime);
    Line(out, "GPS Data," + GpsText(set));
    Line(out, "CLIENT," + set.Client);
    Line(out, "CLIENT REPRESENTATIVE," + set.ClientRepresentative);
    Line(out, "WEATHER," + set.Weather);
    // The field program writes this one label in the text form.
    Line(out, "SOFTWARE VERSION: " + set.DasVersion);
    Line(out, "DAS SYSTEM," + set.DasSystem);
    Line(out, "PROBE SERIAL NUMBER," + set.ProbeSerialNumber);
    Line(out, "TIP CONFIGURATION,Conventional");
  } else {
    Line(out, "CPT PORE PRESSURE DATA");
    Line(out, "FILE, " + set.DissipationFileName);
    Line(out, "TEST DATE / TIME," + set.TestDateText);
    Line(out, "JOB #," + set.JobNumber);
    Line(out, "HOLE #," + set.HoleNumber);
    Line(out, "CUSTOMER," + set.Customer);
    Line(out, "CONE ID," + set.ConeId);
    Line(out, "OPERATOR," + set.OperatorName);
    Line(out, "GPS," + GpsText(set));
    Line(out, "HEADER," + set.Comment1);
    Line(out, "FOOTER 1," + set.Comment2);
    Line(out, "FOOTER 2," + set.Comment3);
  }
  const std::string metric = Metric(session) ? "(m)," : "(ft),";
  if (set.WaterTableDepth == kUndefinedWaterTable) {
    Line(out, "WATER TABLE DEPTH " + metric + " UNDEFINED");
  } else {
    Line(out, "WATER TABLE DEPTH " + metric + WaterTableText(session));
  }
  Line(out, "PP TEST DEPTH " + metric + FormatNumber(InDepthUnit(session, set.TestDepth[i]), "##0.00"));
  const bool head = ShowHead(set, view);
  // The column line keeps its comma after the pressure even when no percentage follows.
  std::string columns =
      "Time (S)," + DissipationChannelName(set) + " (" + DissipationUnitName(set, session.units) + "),";
  if (view.show_percent_max && head) {
    columns += "Percent Max Pressure (%),Percent Over Hydrostatic (%)";
  } else if (view.show_percent_max) {
    columns += "Percent Max Pressure (%)";
  } else if (head) {
    columns += "Percent Over Hydrostatic (%)";
  }
  Line(out, columns);
  for (int k = 1; k <= set.RowCount[i]; ++k) {
    std::string row = FormatNumber(set.RowTime(view.test, k), kTimeFormat) + "," +
                      FormatNumber(set.RowPressure(view.test, k), kPressureFormat);
    if (view.show_percent_max) row += "," + FormatNumber(set.PercentMax(view.test, k), kPercentFormat);
    if (head) row += "," + FormatNumber(set.PercentHead(view.test, k), kPercentFormat);
    Line(out, row);
  }
  return out;
}

bool SaveDissipationList(Session& session, UserPrompts& prompts, const DissipationListView& view, bool csv) {
  const char* source = csv ? "mnuExportcsvFile_Click" : "mnuSaveFile_Click";
  return InProcedure(source, [&] {
    FileDialogRequest request;
    request.title = "Save As";
    request.filter = csv ? "CSV Files (*.csv)|*.csv" : "TXT Files (*.txt)|*.txt";
    request.start_directory = session.DissipationDirectory;
    const std::string chosen = prompts.SaveFile(request);
    if (chosen.empty()) return false;
    const std::string path = WithExtension(chosen, csv ? "csv" : "txt");
    // The bytes are made before the question, so a failing render leaves any file as it was.
    const std::string bytes = csv ? DissipationCsvExport(session, view) : DissipationTxtExport(session, view);
    return WriteExportAsking(prompts, path, bytes);
  });
}

std::string DissipationWholeFileExport(const Session& session, bool csv, const std::vector<int>& tests) {
  std::string out;
  WholeFileHeader(out, session, csv);
  if (tests.empty()) {
    for (int i = 1; i <= Set(session).DissipationCount; ++i) WholeFileTest(out, session, csv, i);
  } else {
    for (int i : tests) WholeFileTest(out, session, csv, i);
  }
  return out;
}

std::string PerTestExportPath(const Session& session, const std::string& path, int test) {
  const DissipationSet& set = Set(session);
  const std::string depth = FormatNumber(InDepthUnit(session, set.TestDepth[TestIndex(set, test)]), "##0.00");
  const size_t name_start = path.size() - FileNamePart(path).size();
  const size_t dot = path.rfind('.');
  if (dot == std::string::npos || dot < name_start) return path + "_" + depth;
  return path.substr(0, dot) + "_" + depth + path.substr(dot);
}

bool WriteExportAsking(UserPrompts& prompts, const std::string& path, const std::string& bytes) {
  if (FileExists(path) && prompts.Ask(std::string(FileNamePart(path)) + " already exists. Overwrite?",
                                      Buttons::kYesNo) != Answer::kYes) {
    return false;
  }
  WriteFileAtomically(path, bytes);
  return true;
}

void ExportWholeDissipationFile(const Session& session, UserPrompts& prompts, const std::string& path,
                                bool csv, bool each) {
  const char* source = each ? (csv ? "mnuCSVFiles_Click" : "mnuTextFiles_Click")
                            : (csv ? "mnuCSVFile_Click" : "mnuTextFile_Click");
  InProcedure(source, [&] {
    if (!each) {
      WriteExportAsking(prompts, path, DissipationWholeFileExport(session, csv));
      return;
    }
    for (int i = 1; i <= Set(session).DissipationCount; ++i) {
      WriteExportAsking(prompts, PerTestExportPath(session, path, i),
                        DissipationWholeFileExport(session, csv, {i}));
    }
  });
}

}  // namespace marlview
