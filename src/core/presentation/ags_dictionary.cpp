// The AGS4 dictionaries of the groups the export writes, edition by edition. Only the headings the
// export can fill are held, in the relative order the standard dictionary gives them.
#include "core/presentation/ags_dictionary.h"

#include <charconv>
#include <map>

namespace marlview {
namespace {

constexpr AgsStatus kOther = AgsStatus::kOther;
constexpr AgsStatus kKey = AgsStatus::kKey;
constexpr AgsStatus kRequired = AgsStatus::kRequired;
constexpr AgsStatus kKeyRequired = AgsStatus::kKeyRequired;

using Dictionary = std::map<std::string, AgsGroupDictionary, std::less<>>;

void Add(Dictionary& d, const std::string& group, std::vector<AgsHeading> headings) {
  d[group] = AgsGroupDictionary{group, std::move(headings)};
}

void Change(Dictionary& d, const std::string& group, const std::string& heading, const std::string& type,
            const std::string& unit) {
  for (AgsHeading& h : d[group].headings) {
    if (h.name != heading) continue;
    h.type = type;
    h.unit = unit;
  }
}

void ChangeStatus(Dictionary& d, const std::string& group, const std::string& heading, AgsStatus status) {
  for (AgsHeading& h : d[group].headings) {
    if (h.name == heading) h.status = status;
  }
}

// The groups every edition shares: project, transmission, location and the three lists.
void AddCommonGroups(Dictionary& d) {
  Add(d, "PROJ", {{"PROJ_ID", kKeyRequired, "ID", ""}, {"PROJ_NAME", kOther, "X", ""},
                  {"PROJ_LOC", kOther, "X", ""}, {"PROJ_CLNT", kOther, "X", ""}});
  Add(d, "TRAN", {{"TRAN_ISNO", kKeyRequired, "X", ""},
                  {"TRAN_DATE", kRequired, "DT", "yyyy-mm-dd"},
                  {"TRAN_PROD", kRequired, "X", ""},
                  {"TRAN_STAT", kRequired, "X", ""},
                  {"TRAN_AGS", kRequired, "X", ""},
                  {"TRAN_RECV", kRequired, "X", ""},
                  {"TRAN_DLIM", kOther, "X", ""},
                  {"TRAN_RCON", kOther, "X", ""},
                  {"TRAN_REM", kOther, "X", ""}});
  Add(d, "LOCA", {{"LOCA_ID", kKeyRequired, "ID", ""}, {"LOCA_TYPE", kOther, "PA", ""},
                  {"LOCA_GL", kOther, "2DP", "m"}, {"LOCA_REM", kOther, "X", ""}});
  Add(d, "ABBR", {{"ABBR_HDNG", kKeyRequired, "X", ""}, {"ABBR_CODE", kKeyRequired, "X", ""},
                  {"ABBR_DESC", kRequired, "X", ""}});
  Add(d, "TYPE", {{"TYPE_TYPE", kKeyRequired, "X", ""}, {"TYPE_DESC", kRequired, "X", ""}});
  Add(d, "UNIT", {{"UNIT_UNIT", kKeyRequired, "X", ""}, {"UNIT_DESC", kRequired, "X", ""}});
}

// The static cone groups as 4.1 and 4.1.1 give them.
void AddStaticConeGroups(Dictionary& d) {
  Add(d, "SCPG", {{"LOCA_ID", kKey, "ID", ""}, {"SCPG_TESN", kKey, "X", ""}, {"SCPG_TYPE", kOther, "PA", ""},
                  {"SCPG_CSA", kOther, "0DP", "cm2"}, {"SCPG_WAT", kOther, "2DP", "m"},
                  {"SCPG_CAR", kOther, "3DP", ""}});
  Add(d, "SCPT", {{"LOCA_ID", kKey, "ID", ""},          {"SCPG_TESN", kKey, "X", ""},
                  {"SCPT_DPTH", kKey, "2DP", "m"},      {"SCPT_RES", kOther, "3DP", "MPa"},
                  {"SCPT_FRES", kOther, "4DP", "MPa"},  {"SCPT_PWP1", kOther, "4DP", "MPa"},
                  {"SCPT_PWP2", kOther, "4DP", "MPa"},  {"SCPT_PWP3", kOther, "4DP", "MPa"},
                  {"SCPT_TEMP", kOther, "4DP", "DegC"}, {"SCPT_SLP1", kOther, "4DP", "deg"},
                  {"SCPT_SLP2", kOther, "4DP", "deg"},  {"SCPT_FRR", kOther, "2DP", "%"},
                  {"SCPT_QT", kOther, "4DP", "MPa"},    {"SCPT_CPO", kOther, "2DP", "kPa"},
                  {"SCPT_CPOD", kOther, "2DP", "kPa"},  {"SCPT_BQ", kOther, "4DP", ""},
                  {"SCPT_ISPP", kOther, "4DP", "MPa"},  {"SCPT_NQT", kOther, "4DP", ""},
                  {"SCPT_NFR", kOther, "4DP", "%"}});
  Add(d, "SCDG", {{"LOCA_ID", kKey, "ID", ""},       {"SCPG_TESN", kKey, "X", ""},
                  {"SCDG_DPTH", kKey, "2DP", "m"},   {"SCDG_PWPE", kOther, "3DP", "MPa"},
                  {"SCDG_DDIS", kOther, "0DP", "%"}, {"SCDG_T", kOther, "1DP", "s"},
                  {"SCDG_CH", kOther, "2SCI", "m2/yr"}, {"SCDG_CHMT", kOther, "X", ""}});
  Add(d, "SCDT", {{"LOCA_ID", kKey, "ID", ""},          {"SCPG_TESN", kKey, "X", ""},
                  {"SCDG_DPTH", kKey, "2DP", "m"},      {"SCDT_SECS", kKey, "1DP", "s"},
                  {"SCDT_PWP1", kOther, "4DP", "MPa"},  {"SCDT_PWP2", kOther, "4DP", "MPa"},
                  {"SCDT_PWP3", kOther, "4DP", "MPa"}});
}

// The cone and seismic groups that 4.2 brought.
void AddGroupsOf42(Dictionary& d) {
  Add(d, "CPTG", {{"LOCA_ID", kKey, "ID", ""}, {"CPTG_TESN", kKey, "X", ""}, {"CPTG_TYPE", kOther, "PA", ""},
                  {"CPTG_WAT", kOther, "2DP", "m"}, {"CPTG_CSA", kOther, "1DP", "mm2"},
                  {"CPTG_CAR", kOther, "3DP", ""}});
  Add(d, "CPTT", {{"LOCA_ID", kKey, "ID", ""},         {"CPTG_TESN", kKey, "X", ""},
                  {"CPTT_REDN", kKey, "0DP", ""},      {"CPTT_DPTH", kOther, "2DP", "m"},
                  {"CPTT_QC", kOther, "3DP", "MPa"},   {"CPTT_FS", kOther, "4DP", "MPa"},
                  {"CPTT_U1", kOther, "4DP", "MPa"},   {"CPTT_U2", kOther, "4DP", "MPa"},
                  {"CPTT_U3", kOther, "4DP", "MPa"},   {"CPTT_INCX", kOther, "1DP", "deg"},
                  {"CPTT_INCY", kOther, "1DP", "deg"}, {"CPTT_RF", kOther, "2DP", "%"},
                  {"CPTT_CPO", kOther, "4DP", "MPa"},  {"CPTT_ISPP", kOther, "4DP", "MPa"},
                  {"CPTT_CPOD", kOther, "4DP", "MPa"}, {"CPTT_QT", kOther, "3DP", "MPa"},
                  {"CPTT_BQ", kOther, "4DP", ""},      {"CPTT_NQT", kOther, "2DP", ""},
                  {"CPTT_NFR", kOther, "2DP", "%"}});
  Add(d, "CPDG", {{"LOCA_ID", kKey, "ID", ""},       {"CPTG_TESN", kKey, "X", ""},
                  {"CPDG_DPTH", kKey, "2DP", "m"},   {"CPDG_IR", kOther, "1DP", ""},
                  {"CPDG_UEQ", kOther, "3DP", "MPa"}, {"CPDG_DDIS", kOther, "0DP", "%"},
                  {"CPDG_T", kOther, "1DP", "s"},    {"CPDG_CH", kOther, "2SCI", "m2/yr"},
                  {"CPDG_CHMT", kOther, "X", ""}});
  Add(d, "CPDT", {{"LOCA_ID", kKey, "ID", ""},        {"CPTG_TESN", kKey, "X", ""},
                  {"CPDG_DPTH", kKey, "2DP", "m"},    {"CPDT_TIME", kKey, "1DP", "s"},
                  {"CPDT_U1", kOther, "4DP", "MPa"},  {"CPDT_U2", kOther, "4DP", "MPa"},
                  {"CPDT_U3", kOther, "4DP", "MPa"}});
  Add(d, "ISTG", {{"LOCA_ID", kKey, "ID", ""}, {"ISTG_TESN", kKey, "X", ""}, {"ISTG_TYPE", kOther, "PA", ""},
                  {"ISTG_SHOF", kOther, "2DP", "m"}});
  Add(d, "ISTA", {{"LOCA_ID", kKey, "ID", ""},      {"ISTG_TESN", kKey, "X", ""},
                  {"ISTA_TOP", kKey, "2DP", "m"},   {"ISTA_BASE", kKey, "2DP", "m"},
                  {"ISTA_ANYN", kKey, "X", ""},     {"ISTA_DPTH", kOther, "2DP", "m"},
                  {"ISTA_MIVL", kOther, "PA", ""},  {"ISTA_WVL", kOther, "1DP", "m/s"}});
}

Dictionary Build(AgsVersion version) {
  Dictionary d;
  AddCommonGroups(d);
  if (version == AgsVersion::k42) {
    AddGroupsOf42(d);
    // 4.2 no longer marks LOCA_ID of LOCA as required, only as its key.
    ChangeStatus(d, "LOCA", "LOCA_ID", kKey);
    return d;
  }
  AddStaticConeGroups(d);
  if (version == AgsVersion::k403 || version == AgsVersion::k404) {
    // 4.0.x: one decimal for the net area ratio and for ch, whole seconds for T50 and in the
    // dissipation data, and "degC" as the temperature unit.
    Change(d, "SCPG", "SCPG_CAR", "1DP", "");
    Change(d, "SCDG", "SCDG_T", "0DP", "s");
    Change(d, "SCDG", "SCDG_CH", "1DP", "m2/yr");
    Change(d, "SCDT", "SCDT_SECS", "0DP", "s");
    Change(d, "SCPT", "SCPT_TEMP", "4DP", "degC");
  }
  return d;
}

const Dictionary& DictionaryOf(AgsVersion version) {
  static const std::map<AgsVersion, Dictionary> all = [] {
    std::map<AgsVersion, Dictionary> built;
    for (AgsVersion v : AgsVersions()) built[v] = Build(v);
    return built;
  }();
  return all.at(version);
}

}  // namespace

std::string_view AgsVersionText(AgsVersion version) {
  switch (version) {
    case AgsVersion::k403: return "4.0.3";
    case AgsVersion::k404: return "4.0.4";
    case AgsVersion::k41: return "4.1";
    case AgsVersion::k411: return "4.1.1";
    case AgsVersion::k42: return "4.2";
  }
  return "4.1.1";
}

std::optional<AgsVersion> AgsVersionFromText(std::string_view text) {
  for (AgsVersion v : AgsVersions()) {
    if (AgsVersionText(v) == text) return v;
  }
  return std::nullopt;
}

const std::vector<AgsVersion>& AgsVersions() {
  static const std::vector<AgsVersion> all = {AgsVersion::k403, AgsVersion::k404, AgsVersion::k41,
                                              AgsVersion::k411, AgsVersion::k42};
  return all;
}

bool HasConeGroupsOf42(AgsVersion version) { return version == AgsVersion::k42; }

const AgsHeading* AgsGroupDictionary::Find(std::string_view heading) const {
  for (const AgsHeading& h : headings) {
    if (h.name == heading) return &h;
  }
  return nullptr;
}

const AgsGroupDictionary* FindAgsGroup(AgsVersion version, std::string_view group) {
  const Dictionary& d = DictionaryOf(version);
  const auto found = d.find(group);
  return found == d.end() ? nullptr : &found->second;
}

int AgsDecimals(std::string_view type) {
  const size_t tail = type.ends_with("DP") ? 2 : type.ends_with("SCI") ? 3 : 0;
  if (tail == 0 || type.size() <= tail) return -1;
  int decimals = -1;
  const auto [end, error] = std::from_chars(type.data(), type.data() + type.size() - tail, decimals);
  return error == std::errc() && end == type.data() + type.size() - tail ? decimals : -1;
}

bool IsAgsScientific(std::string_view type) { return type.ends_with("SCI") && AgsDecimals(type) >= 0; }

std::string AgsTypeDescription(std::string_view type) {
  if (type == "ID") return "Unique identifier";
  if (type == "X") return "Text";
  if (type == "PA") return "Text listed in ABBR Group";
  if (type == "DT") return "Date time in international format";
  const int decimals = AgsDecimals(type);
  if (IsAgsScientific(type)) {
    return "Scientific Notation; " + std::to_string(decimals) + " decimal places";
  }
  if (decimals >= 0) return "Value; " + std::to_string(decimals) + " decimal places";
  return "Text";
}

std::string AgsUnitDescription(std::string_view unit) {
  static const std::map<std::string, std::string, std::less<>> descriptions = {
      {"m", "metre"},
      {"MPa", "megapascal"},
      {"kPa", "kilopascal"},
      {"%", "percentage"},
      {"deg", "degree (angle)"},
      {"DegC", "degree Celsius"},
      {"degC", "degree Celsius"},
      {"cm2", "square centimetre"},
      {"mm2", "square millimetre"},
      {"s", "second"},
      {"m2/yr", "square metre per year"},
      {"m/s", "metre per second"},
      {"yyyy-mm-dd", "year month day"},
  };
  const auto found = descriptions.find(unit);
  return found == descriptions.end() ? std::string(unit) : found->second;
}

}  // namespace marlview
