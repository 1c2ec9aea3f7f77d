// The AGS4 writer: groups of quoted fields, each heading in its edition's dictionary order with
// its unit and type, numbers to the type's decimals, and the lists of what the file uses.
#include "core/presentation/ags_export.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <set>
#include <utility>

#include "core/common/number_format.h"
#include "core/common/number_read.h"
#include "core/common/text_rules.h"
#include "core/derivation/derived_channels.h"
#include "core/session/seismic_store.h"
#include "core/session/session.h"

namespace marlview {
namespace {

constexpr const char* kCrLf = "\r\n";
// ch is reported per Julian year.
constexpr double kAgsSecondsPerYear = 31557600.0;
constexpr const char* kChMethod = "Teh and Houlsby (1991)";

// A field before formatting: nothing, a number written to its heading's type, or a text.
struct Cell {
  enum Kind { kEmpty, kNumber, kText } kind = kEmpty;
  double number = 0;
  std::string text;
};

Cell Empty() { return {}; }
Cell Number(double value) { return {Cell::kNumber, value, {}}; }
Cell Text(std::string text) { return {Cell::kText, 0, std::move(text)}; }

// The rows of one group, with its headings in the order the writer fills them.
struct GroupTable {
  std::string name;
  std::vector<std::string> headings;
  std::vector<std::vector<Cell>> rows;

  size_t Column(const std::string& heading) {
    const auto found = std::find(headings.begin(), headings.end(), heading);
    if (found != headings.end()) return static_cast<size_t>(found - headings.begin());
    headings.push_back(heading);
    return headings.size() - 1;
  }
  // A new row; its cells are set by heading.
  void NewRow() { rows.emplace_back(); }
  void Set(const std::string& heading, Cell cell) {
    const size_t column = Column(heading);
    auto& row = rows.back();
    if (row.size() <= column) row.resize(column + 1);
    row[column] = std::move(cell);
  }
};

std::string Quoted(std::string_view field) {
  std::string out = "\"";
  for (char c : field) {
    if (c == '"') out += '"';
    out += c;
  }
  out += '"';
  return out;
}

// The pattern of a numeric type: "2DP" is "0.00", "2SCI" is "0.00E+00".
std::string PatternOf(std::string_view type) {
  const int decimals = AgsDecimals(type);
  std::string pattern = "0";
  if (decimals > 0) pattern += "." + std::string(static_cast<size_t>(decimals), '0');
  if (IsAgsScientific(type)) pattern += "E+00";
  return pattern;
}

// The abbreviations the export writes in PA fields, with their meaning.
std::string AbbreviationText(std::string_view heading, std::string_view code) {
  if (heading == "LOCA_TYPE") return "Cone penetration test";
  if (heading == "ISTG_TYPE") return "Seismic cone penetration test";
  if (heading == "ISTA_MIVL") return code == "TRUE" ? "True interval velocity" : "Pseudo interval velocity";
  return code == "CPTU" ? "Cone penetration test with pore pressure measurement" : "Cone penetration test";
}

class AgsWriter {
 public:
  explicit AgsWriter(AgsVersion version) : version_(version) {}

  void Write(const GroupTable& table) {
    const AgsGroupDictionary* group = FindAgsGroup(version_, table.name);
    if (group == nullptr) return;
    // Columns of the table in dictionary order; a heading the edition lacks is left out.
    std::vector<std::pair<const AgsHeading*, size_t>> columns;
    for (const AgsHeading& heading : group->headings) {
      const auto found = std::find(table.headings.begin(), table.headings.end(), heading.name);
      if (found != table.headings.end()) columns.emplace_back(&heading, found - table.headings.begin());
    }
    if (!out_.empty()) out_ += kCrLf;
    Line({"GROUP", table.name});
    std::vector<std::string> headings{"HEADING"}, units{"UNIT"}, types{"TYPE"};
    for (const auto& column : columns) {
      headings.push_back(column.first->name);
      units.push_back(column.first->unit);
      types.push_back(column.first->type);
      Use(units_, column.first->unit);
      Use(types_, column.first->type);
    }
    Line(headings);
    Line(units);
    Line(types);
    for (const auto& row : table.rows) {
      std::vector<std::string> fields{"DATA"};
      for (const auto& column : columns) {
        const Cell cell = column.second < row.size() ? row[column.second] : Cell{};
        fields.push_back(FieldText(*column.first, cell));
      }
      Line(fields);
    }
  }

  // ABBR, TYPE and UNIT: exactly the abbreviations, data types and units the file holds.
  std::string Finish() {
    // The three lists are text themselves.
    Use(types_, "X");
    if (!abbreviations_.empty()) {
      GroupTable abbr{"ABBR", {}, {}};
      for (const auto& entry : abbreviations_) {
        abbr.NewRow();
        abbr.Set("ABBR_HDNG", Text(entry.first));
        abbr.Set("ABBR_CODE", Text(entry.second));
        abbr.Set("ABBR_DESC", Text(AbbreviationText(entry.first, entry.second)));
      }
      Write(abbr);
    }
    GroupTable type{"TYPE", {}, {}};
    for (const auto& t : types_) {
      type.NewRow();
      type.Set("TYPE_TYPE", Text(t));
      type.Set("TYPE_DESC", Text(AgsTypeDescription(t)));
    }
    GroupTable unit{"UNIT", {}, {}};
    const std::vector<std::string> units = units_;
    for (const auto& u : units) {
      unit.NewRow();
      unit.Set("UNIT_UNIT", Text(u));
      unit.Set("UNIT_DESC", Text(AgsUnitDescription(u)));
    }
    Write(type);
    if (!units.empty()) Write(unit);
    return std::move(out_);
  }

 private:
  static void Use(std::vector<std::string>& list, const std::string& item) {
    if (!item.empty() && std::find(list.begin(), list.end(), item) == list.end()) list.push_back(item);
  }

  std::string FieldText(const AgsHeading& heading, const Cell& cell) {
    std::string text;
    if (cell.kind == Cell::kNumber) {
      text = AgsDecimals(heading.type) >= 0 ? FormatNumber(cell.number, PatternOf(heading.type))
                                             : ShortestText(cell.number);
    } else if (cell.kind == Cell::kText) {
      text = cell.text;
    }
    // The standard wants data in key and required fields.
    if (text.empty() && heading.NeedsValue()) text = "Unknown";
    if (heading.type == "PA" && !text.empty()) {
      const std::pair<std::string, std::string> entry{heading.name, text};
      if (std::find(abbreviations_.begin(), abbreviations_.end(), entry) == abbreviations_.end()) {
        abbreviations_.push_back(entry);
      }
    }
    return text;
  }

  void Line(const std::vector<std::string>& fields) {
    for (size_t i = 0; i < fields.size(); ++i) {
      if (i > 0) out_ += ',';
      out_ += Quoted(fields[i]);
    }
    out_ += kCrLf;
  }

  AgsVersion version_;
  std::string out_;
  std::vector<std::string> units_, types_;
  std::vector<std::pair<std::string, std::string>> abbreviations_;
};

std::string FileStem(const std::string& name) {
  const size_t dot = name.rfind('.');
  return dot == std::string::npos ? name : name.substr(0, dot);
}

const std::string& FirstOf(std::initializer_list<const std::string*> texts) {
  static const std::string none;
  for (const std::string* text : texts) {
    if (!TrimBlanks(*text).empty()) return *text;
  }
  return none;
}

// The first channel whose name holds text, 0 when none does.
int ChannelNamed(const SoundingStore& s, std::string_view text, bool exact) {
  for (int c = 1; c <= s.TotalChannels; ++c) {
    if (exact ? s.ChannelName[c] == text : ContainsNoCase(s.ChannelName[c], text)) return c;
  }
  return 0;
}

// A heading with the channel that fills it; pressures go through kPa into the heading's unit.
struct ConeColumn {
  std::string heading;
  int channel = 0;
  bool pressure = false;
};

std::vector<ConeColumn> ConeColumns(const SoundingStore& s, bool edition42) {
  const int u1 = ChannelNamed(s, "Pore Pressure U1", false);
  const int u3 = ChannelNamed(s, "Pore Pressure U3", false);
  const int bq = ChannelNamed(s, "Bq", true);
  const int qtn = ChannelNamed(s, "Qtn", true);
  const int fr = ChannelNamed(s, "Fr (Normalised)", true);
  std::vector<ConeColumn> columns;
  auto add = [&columns](const char* heading, int channel, bool pressure) {
    if (channel != 0) columns.push_back({heading, channel, pressure});
  };
  if (edition42) {
    add("CPTT_QC", s.TipChannel, true);
    add("CPTT_FS", s.SleeveChannel, true);
    add("CPTT_U1", u1, true);
    add("CPTT_U2", s.PorePressureChannel, true);
    add("CPTT_U3", u3, true);
    add("CPTT_INCX", s.InclXChannel, false);
    add("CPTT_INCY", s.InclYChannel, false);
    add("CPTT_QT", s.TipQtChannel, true);
    add("CPTT_RF", s.FrictionRatioQcChannel, false);
    add("CPTT_CPO", s.OverburdenChannel, true);
    add("CPTT_CPOD", s.EffOverburdenChannel, true);
    add("CPTT_ISPP", s.HeadPressureChannel, true);
    add("CPTT_BQ", bq, false);
    add("CPTT_NQT", qtn, false);
    add("CPTT_NFR", fr, false);
  } else {
    add("SCPT_RES", s.TipChannel, true);
    add("SCPT_FRES", s.SleeveChannel, true);
    add("SCPT_PWP1", u1, true);
    add("SCPT_PWP2", s.PorePressureChannel, true);
    add("SCPT_PWP3", u3, true);
    add("SCPT_SLP1", s.InclXChannel, false);
    add("SCPT_SLP2", s.InclYChannel, false);
    add("SCPT_TEMP", s.TemperatureChannel, false);
    add("SCPT_QT", s.TipQtChannel, true);
    add("SCPT_FRR", s.FrictionRatioQcChannel, false);
    add("SCPT_CPO", s.OverburdenChannel, true);
    add("SCPT_CPOD", s.EffOverburdenChannel, true);
    add("SCPT_ISPP", s.HeadPressureChannel, true);
    add("SCPT_BQ", bq, false);
    add("SCPT_NQT", qtn, false);
    add("SCPT_NFR", fr, false);
  }
  return columns;
}

// A kPa value in the unit of the heading.
double InUnit(double kpa, std::string_view unit) { return unit == "MPa" ? kpa / 1000 : kpa; }

std::string DepthKey(double depth_m) { return FormatNumber(depth_m, "0.00"); }

class AgsBuilder {
 public:
  AgsBuilder(const Session& session, const AgsInputs& inputs)
      : session_(session), s_(session.Sounding()), inputs_(inputs), edition42_(HasConeGroupsOf42(inputs.version)),
        writer_(inputs.version) {}

  AgsRendering Build() {
    WriteProject();
    WriteTransmission();
    WriteLocation();
    WriteConeGeneral();
    WriteConeData();
    if (!inputs_.dissipations.empty()) WriteDissipations();
    if (inputs_.with_seismic) {
      if (edition42_) {
        WriteSeismic();
      } else {
        rendering_.notes.push_back(SeismicNotInVersionText(inputs_.version));
      }
    }
    rendering_.bytes = writer_.Finish();
    return std::move(rendering_);
  }

 private:
  bool PxDas() const { return s_.AcquisitionFamily == kPxDasFamily; }
  const char* TestNumberHeading() const { return edition42_ ? "CPTG_TESN" : "SCPG_TESN"; }

  std::string LocationId() const {
    const std::string& id = FirstOf({&s_.TestId, &s_.HoleNumber});
    return id.empty() ? FileStem(s_.SoundingFileName) : id;
  }

  void WriteProject() {
    const std::string& project = FirstOf({&s_.JobNumber, &s_.Project});
    GroupTable proj{"PROJ", {}, {}};
    proj.NewRow();
    proj.Set("PROJ_ID", Text(project.empty() ? FileStem(s_.SoundingFileName) : project));
    proj.Set("PROJ_NAME", Text(s_.Project));
    proj.Set("PROJ_LOC", Text(PxDas() ? s_.LocationName : s_.Location));
    proj.Set("PROJ_CLNT", Text(PxDas() ? s_.Customer : s_.Client));
    writer_.Write(proj);
  }

  void WriteTransmission() {
    const std::string& client = PxDas() ? s_.Customer : s_.Client;
    GroupTable tran{"TRAN", {}, {}};
    tran.NewRow();
    tran.Set("TRAN_ISNO", Text("1"));
    tran.Set("TRAN_DATE", Text(inputs_.date));
    tran.Set("TRAN_PROD", Text("Marlview"));
    tran.Set("TRAN_STAT", Text("Final"));
    tran.Set("TRAN_AGS", Text(std::string(AgsVersionText(inputs_.version))));
    tran.Set("TRAN_RCON", Text(","));
    tran.Set("TRAN_DLIM", Text("|"));
    tran.Set("TRAN_RECV", Text(TrimBlanks(client).empty() ? "Unknown" : client));
    tran.Set("TRAN_REM", Empty());
    writer_.Write(tran);
  }

  void WriteLocation() {
    GroupTable loca{"LOCA", {}, {}};
    loca.NewRow();
    loca.Set("LOCA_ID", Text(LocationId()));
    loca.Set("LOCA_TYPE", Text("CPT"));
    loca.Set("LOCA_GL", GroundLevel());
    loca.Set("LOCA_REM", Text(PxDas() ? s_.CommentLine1 : s_.Comments));
    writer_.Write(loca);
  }

  Cell GroundLevel() const {
    const std::string_view text = TrimBlanks(s_.GpsElev);
    double value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || result.ec != std::errc() || result.ptr != text.data() + text.size()) return Empty();
    return Number(value);
  }

  // The cone's tip area in cm2: the DAT families keep it in m2, a GEF file in mm2.
  Cell TipAreaCm2() const {
    if (!(s_.ConicalTipArea > 0)) return Empty();
    const double area = DecimalValue(s_.ConicalTipArea);
    return Number(s_.AcquisitionFamily == kGefFamily ? area / 100 : area * 10000);
  }

  bool HasPorePressure() const {
    return s_.PorePressureChannel != 0 || ChannelNamed(s_, "Pore Pressure U1", false) != 0 ||
           ChannelNamed(s_, "Pore Pressure U3", false) != 0;
  }

  void WriteConeGeneral() {
    const std::string prefix = edition42_ ? "CPTG" : "SCPG";
    GroupTable general{prefix, {}, {}};
    general.NewRow();
    general.Set("LOCA_ID", Text(LocationId()));
    general.Set(TestNumberHeading(), Text("1"));
    general.Set(prefix + "_TYPE", Text(HasPorePressure() ? "CPTU" : "CPT"));
    Cell area = TipAreaCm2();
    if (edition42_ && area.kind == Cell::kNumber) area.number *= 100;
    general.Set(prefix + "_CSA", area);
    general.Set(prefix + "_WAT", s_.WaterTableDepth == -99 ? Empty() : Number(DecimalValue(s_.WaterTableDepth)));
    general.Set(prefix + "_CAR", Number(DecimalValue(static_cast<float>(NetAreaRatioUsed(session_, s_)))));
    writer_.Write(general);
  }

  double NonPressureValue(int r, int c) const {
    double value = DecimalValue(s_.AlignedReadings(r, KindColumn(c, kGraphOutput)));
    if (c == s_.TemperatureChannel && s_.TemperatureInFahrenheit[kGraphOutput]) value = (value - 32) * 5 / 9;
    return value;
  }

  void WriteConeData() {
    const std::string name = edition42_ ? "CPTT" : "SCPT";
    const AgsGroupDictionary* dictionary = FindAgsGroup(inputs_.version, name);
    const std::vector<ConeColumn> columns = ConeColumns(s_, edition42_);
    GroupTable data{name, {}, {}};
    std::set<std::string> depths;
    int left_out = 0;
    const std::string location = LocationId();
    for (int r = 1; r <= s_.ReadingCount; ++r) {
      const double depth = DecimalValue(s_.DepthTable(r, 1));
      // The static cone key is the depth at two decimals; CPTT has its own sequence number.
      if (!edition42_ && !depths.insert(DepthKey(depth)).second) {
        ++left_out;
        continue;
      }
      data.NewRow();
      data.Set("LOCA_ID", Text(location));
      data.Set(TestNumberHeading(), Text("1"));
      if (edition42_) data.Set("CPTT_REDN", Number(r));
      data.Set(edition42_ ? "CPTT_DPTH" : "SCPT_DPTH", Number(depth));
      for (const ConeColumn& column : columns) {
        if (s_.IsMissing(r, column.channel)) {
          data.Set(column.heading, Empty());
          continue;
        }
        const AgsHeading* heading = dictionary->Find(column.heading);
        const double value = column.pressure ? InUnit(KilopascalValue(s_, session_.units, r, column.channel),
                                                      heading == nullptr ? "" : heading->unit)
                                             : NonPressureValue(r, column.channel);
        data.Set(column.heading, Number(value));
      }
    }
    if (data.rows.empty()) {
      // A sounding without readings still names its columns.
      for (const ConeColumn& column : columns) data.Column(column.heading);
    }
    writer_.Write(data);
    if (left_out > 0) {
      rendering_.notes.push_back(std::to_string(left_out) + " READINGS SHARE A DEPTH AT 2 DECIMALS AND WERE LEFT OUT OF SCPT");
    }
  }

  void WriteDissipations() {
    const std::string general_name = edition42_ ? "CPDG" : "SCDG";
    const std::string data_name = edition42_ ? "CPDT" : "SCDT";
    const std::string depth_heading = edition42_ ? "CPDG_DPTH" : "SCDG_DPTH";
    const std::string time_heading = edition42_ ? "CPDT_TIME" : "SCDT_SECS";
    const AgsGroupDictionary* data_dictionary = FindAgsGroup(inputs_.version, data_name);
    const AgsHeading* time = data_dictionary->Find(time_heading);
    const std::string location = LocationId();
    GroupTable general{general_name, {}, {}};
    GroupTable data{data_name, {}, {}};
    std::set<std::string> depths;
    for (const AgsDissipationTest& test : inputs_.dissipations) {
      const double depth = DecimalValue(test.depth_m);
      // Two tests at one depth would repeat the key; the first stands.
      if (!depths.insert(DepthKey(depth)).second) continue;
      const ConsolidationResult& result = test.result;
      general.NewRow();
      general.Set("LOCA_ID", Text(location));
      general.Set(TestNumberHeading(), Text("1"));
      general.Set(depth_heading, Number(depth));
      if (edition42_) general.Set("CPDG_IR", result.HasCh ? Number(DecimalValue(result.RigidityIndex)) : Empty());
      general.Set(edition42_ ? "CPDG_UEQ" : "SCDG_PWPE",
                  result.HasT50 ? Number(DecimalValue(result.U100) / 1000) : Empty());
      general.Set(general_name + "_DDIS", Number(50));
      general.Set(general_name + "_T", result.HasT50 ? Number(DecimalValue(result.T50)) : Empty());
      general.Set(general_name + "_CH", result.HasCh ? Number(result.Ch * kAgsSecondsPerYear) : Empty());
      general.Set(general_name + "_CHMT", Text(kChMethod));

      const std::string pressure_heading =
          (edition42_ ? "CPDT_U" : "SCDT_PWP") + std::to_string(std::clamp(test.filter, 1, 3));
      std::set<std::string> times;
      for (size_t k = 0; k < test.seconds.size() && k < test.pressure_kpa.size(); ++k) {
        if (!times.insert(FormatNumber(test.seconds[k], PatternOf(time->type))).second) continue;
        data.NewRow();
        data.Set("LOCA_ID", Text(location));
        data.Set(TestNumberHeading(), Text("1"));
        data.Set(depth_heading, Number(depth));
        data.Set(time_heading, Number(test.seconds[k]));
        data.Set(pressure_heading, Number(test.pressure_kpa[k] / 1000));
      }
    }
    writer_.Write(general);
    if (!data.rows.empty()) writer_.Write(data);
  }

  void WriteSeismic() {
    const std::string location = LocationId();
    GroupTable general{"ISTG", {}, {}};
    general.NewRow();
    general.Set("LOCA_ID", Text(location));
    general.Set("ISTG_TESN", Text("1"));
    general.Set("ISTG_TYPE", Text("SCPT"));
    general.Set("ISTG_SHOF", Number(DecimalValue(inputs_.seismic.hammer_distance_m)));
    writer_.Write(general);
    GroupTable analysis{"ISTA", {}, {}};
    for (const AgsVelocity& v : inputs_.seismic.velocities) {
      const double top = DecimalValue(v.top_m), base = DecimalValue(v.base_m);
      analysis.NewRow();
      analysis.Set("LOCA_ID", Text(location));
      analysis.Set("ISTG_TESN", Text("1"));
      analysis.Set("ISTA_TOP", Number(top));
      analysis.Set("ISTA_BASE", Number(base));
      analysis.Set("ISTA_ANYN", Text(v.cross_correlated ? "XCORR" : "PICK"));
      analysis.Set("ISTA_DPTH", Number((top + base) / 2));
      analysis.Set("ISTA_MIVL", Text(v.cross_correlated ? "TRUE" : "PSEUDO"));
      analysis.Set("ISTA_WVL", Number(DecimalValue(v.velocity_m_s)));
    }
    if (!analysis.rows.empty()) writer_.Write(analysis);
  }

  const Session& session_;
  const SoundingStore& s_;
  const AgsInputs& inputs_;
  const bool edition42_;
  AgsWriter writer_;
  AgsRendering rendering_;
};

}  // namespace

double DecimalValue(float value) {
  const std::string text = ShortestText(value);
  double decimal = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), decimal);
  return result.ec == std::errc() ? decimal : static_cast<double>(value);
}

double KilopascalValue(const SoundingStore& s, const UnitTables& units, int row, int channel) {
  const double factor = DecimalValue(s.ChannelUnitFactor[channel][kGraphOutput]);
  const double kpa_factor = DecimalValue(units.UnitFactors[kKpaUnit][kPressureGroup]);
  if (factor == 0 || kpa_factor == 0) return 0;
  const int unit = s.ChannelDefaultUnit[channel];
  const double file_factor =
      unit >= 0 && unit <= kMaxUnitsInGroup ? DecimalValue(units.UnitFactors[static_cast<size_t>(unit)][kPressureGroup]) : 0;
  return DecimalValue(s.AlignedReadings(row, KindColumn(channel, kGraphOutput))) / factor * file_factor / kpa_factor;
}

AgsRendering RenderAgs(const Session& session, const AgsInputs& inputs) { return AgsBuilder(session, inputs).Build(); }

std::vector<AgsDissipationTest> AgsDissipationTests(const DissipationSet& set, const std::vector<int>& tests,
                                                    double kpa_per_unit) {
  std::vector<int> chosen = tests;
  if (chosen.empty()) {
    for (int i = 1; i <= set.DissipationCount; ++i) chosen.push_back(i);
  }
  const std::string channel = set.FileKind == kPxDasDissipation
                                  ? set.PressureChannelName
                                  : set.ChannelName[static_cast<size_t>(std::max<int>(set.PorePressureChannel, 0))];
  const int filter = ContainsNoCase(channel, "U1") ? 1 : ContainsNoCase(channel, "U3") ? 3 : 2;
  std::vector<AgsDissipationTest> out;
  for (int i : chosen) {
    if (i < 1 || i > set.DissipationCount || i > kMaxDissipations) continue;
    const auto at = static_cast<size_t>(i);
    AgsDissipationTest test;
    test.depth_m = set.TestDepth[at];
    test.filter = filter;
    for (int k = 1; k <= set.RowCount[at]; ++k) {
      test.seconds.push_back(set.RowTime(i, k));
      test.pressure_kpa.push_back(DecimalValue(set.RowPressure(i, k)) * kpa_per_unit);
    }
    test.result = set.LastConsolidation[at];
    test.result.U0 = static_cast<float>(DecimalValue(test.result.U0) * kpa_per_unit);
    test.result.U100 = static_cast<float>(DecimalValue(test.result.U100) * kpa_per_unit);
    out.push_back(std::move(test));
  }
  return out;
}

AgsSeismic AgsSeismicOf(const SeismicStore& store) {
  AgsSeismic seismic;
  seismic.hammer_distance_m = store.HammerDistance;
  for (int t = 1; t <= store.TestCount && t <= kMaxSeismicTests; ++t) {
    if (store.IntervalVelocity[t] > 0) {
      seismic.velocities.push_back(
          {store.TestDepth[store.ReferenceTest[t]], store.TestDepth[t], false, store.IntervalVelocity[t]});
    }
    if (store.XcorrComputed && t >= 2 && store.XcorrVelocity[t] > 0) {
      seismic.velocities.push_back({store.TestDepth[t - 1], store.TestDepth[t], true, store.XcorrVelocity[t]});
    }
  }
  return seismic;
}

std::string TodayIso() {
  const auto today = std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now());
  const std::chrono::year_month_day date{today};
  return FormatNumber(static_cast<int>(date.year()), "0000") + "-" +
         FormatNumber(static_cast<unsigned>(date.month()), "00") + "-" +
         FormatNumber(static_cast<unsigned>(date.day()), "00");
}

std::string SeismicNotInVersionText(AgsVersion version) {
  return "SEISMIC TESTS ARE NOT PART OF AGS " + std::string(AgsVersionText(version)) + "; CHOOSE 4.2 TO INCLUDE THEM";
}

}  // namespace marlview
