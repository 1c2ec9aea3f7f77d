// The AGS4 export: every edition checked by a validator of the format's rules, values read back
// against the store, the repeated depth rule, the seismic message and conversions worked by hand.
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

#include "core/dissipation/export_consolidation.h"
#include "core/common/file_access.h"
#include "core/io/dat_reader.h"
#include "core/io/gef_reader.h"
#include "core/multisounding/batch_export.h"
#include "core/multisounding/set_model.h"
#include "core/presentation/ags_export.h"
#include "support/test_support.h"

namespace marlview {
namespace {

struct AgsGroup {
  std::string name;
  std::vector<std::string> headings, units, types;
  std::vector<std::vector<std::string>> rows;

  size_t Column(const std::string& heading) const {
    return static_cast<size_t>(std::find(headings.begin(), headings.end(), heading) - headings.begin());
  }
  std::string At(size_t row, const std::string& heading) const {
    const size_t column = Column(heading);
    return row < rows.size() && column < headings.size() ? rows[row][column] : "<absent>";
  }
};

// One line of quoted fields joined by commas, a quote inside doubled; anything else fails.
std::vector<std::string> Fields(const std::string& line) {
  std::vector<std::string> fields;
  size_t i = 0;
  while (true) {
    if (i >= line.size() || line[i] != '"') {
      ADD_FAILURE() << "an unquoted field in: " << line;
      return fields;
    }
    std::string field;
    for (++i; i < line.size(); ++i) {
      if (line[i] == '"' && i + 1 < line.size() && line[i + 1] == '"') {
        field += '"';
        ++i;
      } else if (line[i] == '"') {
        break;
      } else {
        field += line[i];
      }
    }
    fields.push_back(field);
    if (++i >= line.size()) return fields;
    if (line[i] != ',') {
      ADD_FAILURE() << "a field not followed by a comma in: " << line;
      return fields;
    }
    ++i;
  }
}

// Parses the file: CR LF line ends, one empty line between groups, GROUP, HEADING, UNIT and TYPE
// lines of one width, then DATA lines of the same width.
std::vector<AgsGroup> ParseAgs(const std::string& bytes) {
  std::vector<AgsGroup> groups;
  EXPECT_TRUE(bytes.ends_with("\r\n"));
  std::vector<std::string> lines;
  size_t start = 0;
  for (size_t end; (end = bytes.find("\r\n", start)) != std::string::npos; start = end + 2) {
    lines.push_back(bytes.substr(start, end - start));
    EXPECT_EQ(lines.back().find_first_of("\r\n"), std::string::npos) << "a bare line end in " << lines.back();
  }
  for (size_t i = 0; i < lines.size();) {
    if (!groups.empty()) {
      EXPECT_EQ(lines[i], "") << "groups are parted by one empty line";
      ++i;
    }
    AgsGroup group;
    const auto title = Fields(lines[i++]);
    if (title.size() != 2 || title[0] != "GROUP") {
      ADD_FAILURE() << "no GROUP line at line " << i;
      return groups;
    }
    group.name = title[1];
    const std::pair<const char*, std::vector<std::string>*> parts[] = {
        {"HEADING", &group.headings}, {"UNIT", &group.units}, {"TYPE", &group.types}};
    for (const auto& part : parts) {
      auto fields = i < lines.size() ? Fields(lines[i++]) : std::vector<std::string>{};
      EXPECT_TRUE(!fields.empty() && fields[0] == part.first) << group.name << " lacks its " << part.first << " line";
      if (!fields.empty()) fields.erase(fields.begin());
      *part.second = fields;
    }
    EXPECT_EQ(group.units.size(), group.headings.size()) << group.name;
    EXPECT_EQ(group.types.size(), group.headings.size()) << group.name;
    while (i < lines.size() && !lines[i].empty()) {
      auto fields = Fields(lines[i++]);
      EXPECT_EQ(fields.size(), group.headings.size() + 1) << group.name;
      EXPECT_EQ(fields.front(), "DATA");
      fields.erase(fields.begin());
      group.rows.push_back(fields);
    }
    groups.push_back(group);
  }
  return groups;
}

const AgsGroup* Find(const std::vector<AgsGroup>& groups, const std::string& name) {
  for (const auto& g : groups) {
    if (g.name == name) return &g;
  }
  return nullptr;
}

// Whether a value has the text its type asks for: "2DP" -?d+.dd, "0DP" -?d+, "2SCI" -?d.ddE+xx,
// a date yyyy-mm-dd; other types take any text.
bool MatchesType(const std::string& value, const std::string& type, const std::string& unit) {
  size_t i = 0;
  const auto eat = [&](char c) { return i < value.size() && value[i] == c ? (++i, true) : false; };
  const auto digits = [&](size_t at_least, size_t at_most) {
    size_t n = 0;
    while (i < value.size() && n < at_most && value[i] >= '0' && value[i] <= '9') {
      ++i;
      ++n;
    }
    return n >= at_least;
  };
  const size_t decimals = static_cast<size_t>(std::max(AgsDecimals(type), 0));
  const size_t any = value.size();
  bool ok = true;
  if (IsAgsScientific(type)) {
    eat('-');
    ok = digits(1, 1) && eat('.') && digits(decimals, decimals) && eat('E') && (eat('+') || eat('-')) && digits(2, 3);
  } else if (AgsDecimals(type) == 0) {
    eat('-');
    ok = digits(1, any);
  } else if (AgsDecimals(type) > 0) {
    eat('-');
    ok = digits(1, any) && eat('.') && digits(decimals, decimals);
  } else if (type == "DT" && unit == "yyyy-mm-dd") {
    ok = digits(4, 4) && eat('-') && digits(2, 2) && eat('-') && digits(2, 2);
  } else {
    return true;
  }
  return ok && i == value.size();
}

// The rules of the format against the edition's dictionary.
std::vector<AgsGroup> ExpectValidAgs(const std::string& bytes, AgsVersion version) {
  const std::vector<AgsGroup> groups = ParseAgs(bytes);
  std::vector<std::string> order;
  std::set<std::string> units, types;
  std::set<std::pair<std::string, std::string>> abbreviations;
  for (const AgsGroup& g : groups) {
    order.push_back(g.name);
    const AgsGroupDictionary* dictionary = FindAgsGroup(version, g.name);
    if (dictionary == nullptr) {
      ADD_FAILURE() << g.name << " is not a group of AGS " << AgsVersionText(version);
      continue;
    }
    int last = -1;
    std::vector<const AgsHeading*> headings;
    for (size_t c = 0; c < g.headings.size(); ++c) {
      const AgsHeading* h = dictionary->Find(g.headings[c]);
      headings.push_back(h);
      if (h == nullptr) {
        ADD_FAILURE() << g.headings[c] << " is not a heading of " << g.name;
        continue;
      }
      const int at = static_cast<int>(h - dictionary->headings.data());
      EXPECT_GT(at, last) << g.headings[c] << " out of the dictionary's order";
      last = at;
      EXPECT_EQ(g.units[c], h->unit) << g.headings[c];
      EXPECT_EQ(g.types[c], h->type) << g.headings[c];
      if (!h->unit.empty()) units.insert(h->unit);
      types.insert(h->type);
    }
    // Every key and required heading of the dictionary stands in the group.
    for (const AgsHeading& h : dictionary->headings) {
      if (h.NeedsValue()) {
        EXPECT_NE(std::find(g.headings.begin(), g.headings.end(), h.name), g.headings.end()) << h.name;
      }
    }
    std::set<std::vector<std::string>> keys;
    for (const auto& row : g.rows) {
      std::vector<std::string> key;
      for (size_t c = 0; c < row.size() && c < headings.size(); ++c) {
        const AgsHeading* h = headings[c];
        if (h == nullptr) continue;
        if (h->NeedsValue()) {
          EXPECT_FALSE(row[c].empty()) << g.name << "." << h->name << " needs a value";
        }
        if (!row[c].empty()) {
          EXPECT_TRUE(MatchesType(row[c], h->type, h->unit)) << h->name << " = " << row[c];
        }
        if (h->IsKey()) key.push_back(row[c]);
        if (h->type == "PA" && !row[c].empty()) abbreviations.insert({h->name, row[c]});
      }
      EXPECT_TRUE(keys.insert(key).second) << g.name << " repeats a key";
    }
  }
  if (order.size() < 6) {
    ADD_FAILURE() << "too few groups";
    return groups;
  }
  EXPECT_EQ(std::vector<std::string>(order.begin(), order.begin() + 3),
            (std::vector<std::string>{"PROJ", "TRAN", "LOCA"}));
  EXPECT_EQ(std::vector<std::string>(order.end() - 3, order.end()), (std::vector<std::string>{"ABBR", "TYPE", "UNIT"}));
  auto column = [&](const char* group, const char* heading) {
    std::set<std::string> listed;
    if (const AgsGroup* g = Find(groups, group)) {
      for (size_t r = 0; r < g->rows.size(); ++r) listed.insert(g->At(r, heading));
    }
    return listed;
  };
  EXPECT_EQ(column("UNIT", "UNIT_UNIT"), units) << "UNIT lists exactly the units used";
  EXPECT_EQ(column("TYPE", "TYPE_TYPE"), types) << "TYPE lists exactly the types used";
  std::set<std::pair<std::string, std::string>> listed;
  if (const AgsGroup* abbr = Find(groups, "ABBR")) {
    for (size_t r = 0; r < abbr->rows.size(); ++r) listed.insert({abbr->At(r, "ABBR_HDNG"), abbr->At(r, "ABBR_CODE")});
  }
  EXPECT_EQ(listed, abbreviations) << "ABBR lists exactly the abbreviations used";
  return groups;
}

class AgsExportTest : public ::testing::Test {
 protected:
  SoundingStore& s() { return t.session->Sounding(); }
  void OpenDemo() {
    ASSERT_EQ(ReadDatSounding(test::ReadSample("CPT-A01.DAT"), "/field/CPT-A01.DAT", *t.session,
                              t.session->SpareStore(), t.prompts),
              ReadOutcome::kLoaded);
    t.session->CommitSounding();
  }
  // A dissipation test of four rows with its T50 and ch.
  static AgsDissipationTest Dissipation() {
    AgsDissipationTest test;
    test.depth_m = 5.2f;
    test.seconds = {0, 10, 20, 30};
    test.pressure_kpa = {300, 240, 180, 120};
    test.result = {.HasT50 = true, .HasCh = true, .U0 = 300, .U100 = 27.5f, .T50 = 25, .Ch = 1e-6, .RigidityIndex = 100};
    return test;
  }
  static AgsInputs Plain(AgsVersion version) {
    AgsInputs inputs;
    inputs.version = version;
    inputs.date = "2026-11-25";
    return inputs;
  }
  AgsInputs Inputs(AgsVersion version) {
    AgsInputs inputs = Plain(version);
    inputs.dissipations = {Dissipation()};
    inputs.with_seismic = true;
    inputs.seismic = {1.5f, {{2.0f, 3.0f, false, 181.25f}, {2.0f, 3.0f, true, 190.04f}}};
    return inputs;
  }

  test::TestSession t;
};

TEST_F(AgsExportTest, EveryEditionFollowsItsDictionary) {
  OpenDemo();
  for (AgsVersion version : AgsVersions()) {
    SCOPED_TRACE(std::string(AgsVersionText(version)));
    const AgsRendering out = RenderAgs(*t.session, Inputs(version));
    const auto groups = ExpectValidAgs(out.bytes, version);
    const bool edition42 = version == AgsVersion::k42;
    const AgsGroup* tran = Find(groups, "TRAN");
    ASSERT_NE(tran, nullptr);
    EXPECT_EQ(tran->At(0, "TRAN_AGS"), AgsVersionText(version));
    EXPECT_EQ(tran->At(0, "TRAN_RCON"), ",");
    for (const char* name : {"SCPG", "SCPT", "SCDG", "SCDT"}) EXPECT_EQ(Find(groups, name) == nullptr, edition42) << name;
    for (const char* name : {"CPTG", "CPTT", "CPDG", "CPDT", "ISTG", "ISTA"}) {
      EXPECT_EQ(Find(groups, name) != nullptr, edition42) << name;
    }
    EXPECT_EQ(out.notes.empty(), edition42);
  }
}

// The validator itself: a file spoilt in one place fails with the rule it breaks.
std::string broken_file;
TEST_F(AgsExportTest, TheValidatorCatchesASpoiltFile) {
  OpenDemo();
  const std::string good = RenderAgs(*t.session, Inputs(AgsVersion::k411)).bytes;
  auto spoil = [&good](const std::string& from, const std::string& to) {
    broken_file = good;
    const size_t at = broken_file.find(from);
    if (at != std::string::npos) broken_file.replace(at, from.size(), to);
  };
  spoil("\"0.800\"", "\"0.8\"");
  EXPECT_NONFATAL_FAILURE(ExpectValidAgs(broken_file, AgsVersion::k411), "SCPG_CAR = 0.8");
  spoil("\"DATA\",\"m\",\"metre\"\r\n", "");
  EXPECT_NONFATAL_FAILURE(ExpectValidAgs(broken_file, AgsVersion::k411), "UNIT lists exactly the units used");
  spoil("\"SCPT_SLP1\",\"SCPT_SLP2\"", "\"SCPT_SLP2\",\"SCPT_SLP1\"");
  EXPECT_NONFATAL_FAILURE(ExpectValidAgs(broken_file, AgsVersion::k411), "out of the dictionary's order");
  spoil("\"Final\"", "\"\"");
  EXPECT_NONFATAL_FAILURE(ExpectValidAgs(broken_file, AgsVersion::k411), "TRAN.TRAN_STAT needs a value");
}

TEST_F(AgsExportTest, ValuesReadBackAtTheirTypesPrecisionAndAMissingReadingIsEmpty) {
  OpenDemo();
  s().MissingReading(7, s().SleeveChannel) = 1;
  const auto groups = ExpectValidAgs(RenderAgs(*t.session, Inputs(AgsVersion::k411)).bytes, AgsVersion::k411);
  const AgsGroup* scpt = Find(groups, "SCPT");
  ASSERT_NE(scpt, nullptr);
  ASSERT_EQ(scpt->rows.size(), static_cast<size_t>(s().ReadingCount));
  for (int r = 1; r <= s().ReadingCount; ++r) {
    const size_t row = static_cast<size_t>(r - 1);
    EXPECT_NEAR(std::stod(scpt->At(row, "SCPT_DPTH")), s().DepthTable(r, 1), 0.005 + 1e-6);
    EXPECT_NEAR(std::stod(scpt->At(row, "SCPT_RES")),
                KilopascalValue(s(), t.session->units, r, s().TipChannel) / 1000, 0.0005 + 1e-9);
    if (r == 7) continue;
    EXPECT_NEAR(std::stod(scpt->At(row, "SCPT_FRES")),
                KilopascalValue(s(), t.session->units, r, s().SleeveChannel) / 1000, 0.00005 + 1e-9);
  }
  EXPECT_EQ(scpt->At(6, "SCPT_FRES"), "");
  const AgsGroup* scdt = Find(groups, "SCDT");
  ASSERT_NE(scdt, nullptr);
  EXPECT_EQ(scdt->At(3, "SCDT_SECS"), "30.0");
  EXPECT_EQ(scdt->At(3, "SCDT_PWP2"), "0.1200");
}

TEST_F(AgsExportTest, ReadingsSharingATwoDecimalDepthAreLeftOutOfScptOnly) {
  test::CptFile file = test::SimpleCpt(4);
  file.depth_decimals = 3;
  file.heading = "    (m)(cm/s)";
  file.rows[1][0] = 0.021;
  file.rows[2][0] = 0.024;
  ASSERT_EQ(test::OpenSounding(t, file), ReadOutcome::kLoaded);
  const AgsRendering old = RenderAgs(*t.session, Plain(AgsVersion::k404));
  EXPECT_EQ(old.notes, std::vector<std::string>{"2 READINGS SHARE A DEPTH AT 2 DECIMALS AND WERE LEFT OUT OF SCPT"});
  EXPECT_EQ(Find(ExpectValidAgs(old.bytes, AgsVersion::k404), "SCPT")->rows.size(), 2u);
  const AgsRendering newer = RenderAgs(*t.session, Plain(AgsVersion::k42));
  EXPECT_TRUE(newer.notes.empty());
  const auto groups = ExpectValidAgs(newer.bytes, AgsVersion::k42);
  const AgsGroup* cptt = Find(groups, "CPTT");
  ASSERT_NE(cptt, nullptr);
  ASSERT_EQ(cptt->rows.size(), 4u);
  EXPECT_EQ(cptt->At(3, "CPTT_REDN"), "4");
}

TEST_F(AgsExportTest, SeismicTestsNeedTheEditionOf2024) {
  OpenDemo();
  const AgsRendering old = RenderAgs(*t.session, Inputs(AgsVersion::k403));
  EXPECT_EQ(old.notes,
            std::vector<std::string>{"SEISMIC TESTS ARE NOT PART OF AGS 4.0.3; CHOOSE 4.2 TO INCLUDE THEM"});
  EXPECT_EQ(old.bytes.find("\"ISTA\""), std::string::npos);
  const auto groups = ExpectValidAgs(RenderAgs(*t.session, Inputs(AgsVersion::k42)).bytes, AgsVersion::k42);
  const AgsGroup* ista = Find(groups, "ISTA");
  ASSERT_NE(ista, nullptr);
  EXPECT_EQ(ista->rows[0], (std::vector<std::string>{"CPT-A01", "1", "2.00", "3.00", "PICK", "2.50", "PSEUDO", "181.3"}))
      << "half away from zero from 181.25";
  EXPECT_EQ(ista->At(1, "ISTA_MIVL"), "TRUE");
  EXPECT_EQ(Find(groups, "ISTG")->At(0, "ISTG_SHOF"), "1.50");
}

// Worked by hand: 1234.5 kPa is 1.2345 MPa, "1.235" at three decimals; 100 psi of 6894.7573 Pa is
// 0.68947573 MPa; ch 1e-6 m2/s is 31.5576 m2/yr ("3.16E+01", or "31.6" in 4.0.x); 0.0015 m2 is
// 15 cm2 and 1500 mm2.
// A GEF cone states its own ratio (0.80) and tip area (1000 mm2): those go out, not the setting.
TEST_F(AgsExportTest, AGefConeGivesItsOwnRatioAndArea) {
  t.session->general.NetAreaRatio = 0.85f;
  ASSERT_EQ(ReadGefSounding(test::ReadSample("CPT-G01.gef"), "/field/CPT-G01.gef", *t.session,
                            t.session->SpareStore(), t.prompts),
            ReadOutcome::kLoaded);
  t.session->CommitSounding();
  const auto groups = ExpectValidAgs(RenderAgs(*t.session, Plain(AgsVersion::k411)).bytes, AgsVersion::k411);
  const AgsGroup* general = Find(groups, "SCPG");
  ASSERT_NE(general, nullptr);
  EXPECT_EQ(general->At(0, "SCPG_CAR"), "0.800");
  EXPECT_EQ(general->At(0, "SCPG_CSA"), "10");
}

TEST_F(AgsExportTest, ConversionsWorkedByHand) {
  test::CptFile file = test::SimpleCpt(1);
  ASSERT_EQ(test::OpenSounding(t, file), ReadOutcome::kLoaded);
  const int tip = s().TipChannel, sleeve = s().SleeveChannel;
  s().ChannelUnitFactor[tip][kGraphOutput] = 1;
  s().ChannelDefaultUnit[tip] = kKpaUnit;
  s().AlignedReadings(1, tip) = 1234.5f;
  s().ChannelUnitFactor[sleeve][kGraphOutput] = 1;
  s().ChannelDefaultUnit[sleeve] = kPsiUnit;
  s().AlignedReadings(1, sleeve) = 100;
  s().ConicalTipArea = 0.0015f;
  EXPECT_DOUBLE_EQ(KilopascalValue(s(), t.session->units, 1, sleeve), 689.47573);
  AgsInputs inputs = Plain(AgsVersion::k411);
  inputs.dissipations = {Dissipation()};
  auto groups = ExpectValidAgs(RenderAgs(*t.session, inputs).bytes, AgsVersion::k411);
  EXPECT_EQ(Find(groups, "SCPT")->At(0, "SCPT_RES"), "1.235");
  EXPECT_EQ(Find(groups, "SCPT")->At(0, "SCPT_FRES"), "0.6895");
  EXPECT_EQ(Find(groups, "SCPG")->At(0, "SCPG_CSA"), "15");
  EXPECT_EQ(Find(groups, "SCDG")->rows[0],
            (std::vector<std::string>{"CPT-T01", "1", "5.20", "0.028", "50", "25.0", "3.16E+01", "Teh and Houlsby (1991)"}));
  // 4.0.x keeps whole seconds for T50, one decimal for ch and for the net area ratio.
  inputs.version = AgsVersion::k404;
  groups = ExpectValidAgs(RenderAgs(*t.session, inputs).bytes, AgsVersion::k404);
  EXPECT_EQ(Find(groups, "SCDG")->At(0, "SCDG_T"), "25");
  EXPECT_EQ(Find(groups, "SCDG")->At(0, "SCDG_CH"), "31.6");
  EXPECT_EQ(Find(groups, "SCPG")->At(0, "SCPG_CAR"), "0.8");
  inputs.version = AgsVersion::k42;
  groups = ExpectValidAgs(RenderAgs(*t.session, inputs).bytes, AgsVersion::k42);
  EXPECT_EQ(Find(groups, "CPTG")->At(0, "CPTG_CSA"), "1500.0");
  EXPECT_EQ(Find(groups, "CPDG")->At(0, "CPDG_IR"), "100.0");
}

TEST_F(AgsExportTest, TheBatchWritesOneFilePerSoundingAndKeepsTheEdition) {
  test::TempDirectory in, out;
  in.Write("A.DAT", test::SimpleDat(5).Bytes());
  in.Write("P.CPT", test::SimpleCpt(4).Bytes());
  ASSERT_EQ(LoadSetFiles(*t.session, t.prompts, {in.File("A.DAT"), in.File("P.CPT")}), SetLoadOutcome::kLoaded);
  BatchSettings b;
  b.ListAgs = true;
  b.AgsEdition = AgsVersion::k42;
  EXPECT_EQ(RunBatchExport(*t.session, t.prompts, b, {out.Path(), {}, {}, {}}).written, 2);
  ExpectValidAgs(ReadWholeFile(out.File("A.ags")), AgsVersion::k42);
  ExpectValidAgs(ReadWholeFile(out.File("P.ags")), AgsVersion::k42);
  const BatchSettings kept = ReadBatchSettings(*t.session);
  EXPECT_TRUE(kept.ListAgs);
  EXPECT_EQ(kept.AgsEdition, AgsVersion::k42);
}

// 100, 80, 60, 40 at 0, 10, 20, 30 s without a water table: U50 = 50 is crossed at 25 s, and ch =
// 0.245 x (10/pi cm2 in m2) x sqrt(100) / 25 = 3.1194e-5 m2/s.
TEST_F(AgsExportTest, ExportedTestsTakeT50FromTheirLargestAndHydrostaticPressures) {
  auto set = std::make_unique<DissipationSet>();
  set->DissipationCount = 1;
  set->TestDepth[1] = 5.2f;
  const std::pair<int, float> rows[] = {{0, 100}, {10, 80}, {20, 60}, {30, 40}};
  for (const auto& row : rows) {
    const int k = DissipationRows::Append(*set, 1);
    set->RowTime(1, k) = row.first;
    set->RowPressure(1, k) = row.second;
  }
  ComputeMaxPercent(*set, 1);
  ComputeHeadPercent(*set, 1);
  ConsolidateForExport(*set, 1, ChInputs{});
  const ConsolidationResult& result = set->LastConsolidation[1];
  ASSERT_TRUE(result.HasT50 && result.HasCh);
  EXPECT_FLOAT_EQ(result.U100, 0);
  EXPECT_FLOAT_EQ(result.T50, 25);
  EXPECT_NEAR(result.Ch, 3.1194e-5, 1e-8);
  set->FileKind = kFldacqDissipation;
  const auto tests = AgsDissipationTests(*set, {}, DissipationKilopascalsPerUnit(*set, t.session->units));
  ASSERT_EQ(tests.size(), 1u);
  EXPECT_NEAR(tests[0].pressure_kpa[0], 689.47573, 1e-3) << "100 psi";
}

}  // namespace
}  // namespace marlview
