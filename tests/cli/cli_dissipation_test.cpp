// marlview-cli's dissipation subcommand: the information, T50 for given U0 and U100, the plot,
// the list's exports of one test, the whole-file exports and the refusals.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <map>
#include <sstream>

#include "cli/cli_fixture.h"
#include "core/common/file_access.h"
#include "support/test_support.h"

namespace marlview {
namespace {

using test::CliRun;

class CliDissipationTest : public test::CliFixture {
 protected:
  static std::string Sample(const std::string& name) { return test::SamplesDirectory() + "/" + name; }
};

TEST_F(CliDissipationTest, InformationOfEachKind) {
  const CliRun fieldbox = Run({"--water-table", "2.4", "dissipation", Sample("DIS-A01.DIS")});
  ASSERT_EQ(fieldbox.status, 0) << fieldbox.err;
  EXPECT_EQ(fieldbox.err, "");
  const auto info = nlohmann::json::parse(fieldbox.out);
  EXPECT_EQ(info["fileKind"], 1);
  EXPECT_EQ(info["pressureUnit"], "(kPa)");
  EXPECT_EQ(info["waterTableDepth"].get<double>(), 2.4);
  EXPECT_EQ(info["header"]["Operator"], "M. Lindqvist");
  ASSERT_EQ(info["tests"].size(), 2u);
  EXPECT_EQ(info["tests"][1]["depth"].get<double>(), 12.8);
  EXPECT_EQ(info["tests"][1]["rowCount"], 228);
  EXPECT_NEAR(info["pressurePerMetreHead"].get<double>(), 9.806, 1e-6);
  EXPECT_NEAR(info["tests"][0]["hydrostaticPressure"].get<double>(), (6.5 - 2.4) * 9.806, 1e-3);
  EXPECT_NEAR(info["tests"][1]["hydrostaticPressure"].get<double>(), (12.8 - 2.4) * 9.806, 1e-3);

  const CliRun fldacq = Run({"dissipation", Sample("FLDACQ-C02-001")});
  ASSERT_EQ(fldacq.status, 0) << fldacq.err;
  const auto acq = nlohmann::json::parse(fldacq.out);
  EXPECT_EQ(acq["fileKind"], 2);
  EXPECT_EQ(acq["pressureUnit"], "(PSI)");
  EXPECT_EQ(acq["tests"][0]["hydrostaticPressure"].get<double>(), 0);
}

// A data directory of an earlier version holds the pressure table in kilopascals per unit; the
// heads stay those of a metre of water.
TEST_F(CliDissipationTest, AnOldKilopascalUnitTableGivesTheSameHeads) {
  settings_.Write("PressureUnits.txt", "Pa\r\n0.001\r\nkPa\r\n1\r\nbar\r\n100\r\n");
  const CliRun run = Run({"--water-table", "2.4", "dissipation", Sample("DIS-A01.DIS")});
  ASSERT_EQ(run.status, 0) << run.err;
  const auto info = nlohmann::json::parse(run.out);
  EXPECT_EQ(info["pressureUnit"], "(kPa)");
  EXPECT_NEAR(info["pressurePerMetreHead"].get<double>(), 9.806, 1e-6);
  EXPECT_NEAR(info["tests"][1]["hydrostaticPressure"].get<double>(), (12.8 - 2.4) * 9.806, 1e-3);
}

TEST_F(CliDissipationTest, T50ForGivenU0AndU100) {
  const CliRun found =
      Run({"dissipation", Sample("PXD-B04.DIS"), "--test", "1", "--t50", "--u0", "300", "--u100", "30"});
  ASSERT_EQ(found.status, 0) << found.err;
  ASSERT_TRUE(found.out.starts_with("U50: 165\nT50: ")) << found.out;
  const double t50 = std::stod(found.out.substr(found.out.find("T50: ") + 5));
  EXPECT_GT(t50, 30);
  EXPECT_LT(t50, 120);
  const CliRun none =
      Run({"dissipation", Sample("PXD-B04.DIS"), "--test", "1", "--t50", "--u0", "5000", "--u100", "4000"});
  EXPECT_EQ(none.status, 0);
  EXPECT_EQ(none.out, "U50: 4500\nT50: none\n");
}

TEST_F(CliDissipationTest, ChLinesWithAndWithoutTheRootTimeStart) {
  const std::string file = Sample("DIS-A01.DIS");
  CliRun run = Run({"dissipation", file, "--test", "1", "--ch", "--u100", "10", "--root-time", "--ir", "400"});
  ASSERT_EQ(run.status, 0) << run.err;
  std::istringstream lines(run.out);
  std::map<std::string, double> values;
  std::vector<std::string> names;
  for (std::string line; std::getline(lines, line);) {
    const size_t colon = line.find(": ");
    names.push_back(line.substr(0, colon));
    values[names.back()] = std::stod(line.substr(colon + 2));
  }
  EXPECT_EQ(names, (std::vector<std::string>{"U0", "U100", "U50", "T50", "Ui", "ch", "chPerYear"}));
  EXPECT_NEAR(values["U50"], 10 + (values["Ui"] - 10) / 2, 1e-3);
  // 0.245 * (10 / pi) cm2 * sqrt(400) / T50, in m2/s.
  EXPECT_NEAR(values["ch"], 0.245 * 10 / 3.14159265 * 1e-4 * 20 / values["T50"], 1e-9);
  EXPECT_NEAR(values["chPerYear"], values["ch"] * 31557600, 1e-3);

  run = Run({"dissipation", file, "--test", "1", "--ch", "--u0", "60", "--u100", "10", "--filter", "u1"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "U0: 60\nU100: 10\nU50: 35\nT50: none\nUi: 60\nch: none\nchPerYear: none\n");
  EXPECT_EQ(run.err, "! T50 NOT REACHED\n");
  EXPECT_EQ(Run({"dissipation", file, "--test", "1", "--ch", "--u100", "10"}).status, 2) << "--u0 is needed";
  EXPECT_EQ(Run({"dissipation", file, "--test", "1", "--ch", "--u100", "10", "--root-time", "--filter", "u3"}).status,
            2);
  run = Run({"dissipation", file, "--test", "1", "--ch", "--u100", "10", "--root-time", "--cone-area", "0"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "! Please enter a valid cone area\n");
}

TEST_F(CliDissipationTest, PlotsAPictureOrAPage) {
  const std::string png = files_.File("plot.png"), pdf = files_.File("plot.pdf");
  const CliRun picture = Run({"dissipation", Sample("DIS-A01.DIS"), "--plot", "-o", png, "--time", "sqrt"});
  ASSERT_EQ(picture.status, 0) << picture.err;
  EXPECT_TRUE(ReadWholeFile(png).starts_with("\x89PNG"));
  const CliRun page = Run({"dissipation", Sample("PXD-B04.DIS"), "--plot", "-o", pdf, "--test", "2", "--mode",
                           "percent-max", "--time", "log"});
  ASSERT_EQ(page.status, 0) << page.err;
  EXPECT_TRUE(ReadWholeFile(pdf).starts_with("%PDF"));
  // Percent over head below the water table is refused, and nothing is drawn.
  const std::string refused = files_.File("refused.png");
  const CliRun gate = Run({"--water-table", "20", "dissipation", Sample("DIS-A01.DIS"), "--plot", "-o",
                           refused, "--mode", "percent-head"});
  EXPECT_EQ(gate.status, 1);
  EXPECT_EQ(gate.err,
            "! WATER TABLE DEPTH IS GREATER THAN DISSIPATION DEPTH. CANNOT DISPLAY PERCENT HEAD PRESSURE\n");
  EXPECT_FALSE(FileExists(refused));
}

TEST_F(CliDissipationTest, RefusalsAndBadUsage) {
  const CliRun sounding = Run({"dissipation", Sample("CPT-A01.DAT")});
  EXPECT_EQ(sounding.status, 1);
  EXPECT_EQ(sounding.err, "! CPT-A01.DAT is a sounding file\n");
  const CliRun beyond =
      Run({"dissipation", Sample("DIS-A01.DIS"), "--test", "3", "--t50", "--u0", "1", "--u100", "0"});
  EXPECT_EQ(beyond.status, 1);
  EXPECT_EQ(beyond.err,
            "! Marlview has encountered an error: Error #9: 'Subscript out of range' from "
            "'cmdPlotDissipation_Click'\n");
  for (const std::vector<std::string>& args : std::vector<std::vector<std::string>>{
           {"dissipation", Sample("DIS-A01.DIS"), "--csv", "-o", files_.File("x.csv")},
           {"dissipation", Sample("DIS-A01.DIS"), "--test", "1", "--txt"},
           {"dissipation", Sample("DIS-A01.DIS"), "--test", "1", "--csv", "--txt", "-o",
            files_.File("x.csv")},
           {"dissipation", Sample("DIS-A01.DIS"), "--percent-max"},
           {"dissipation", Sample("DIS-A01.DIS"), "--export", "csv"},
           {"dissipation", Sample("DIS-A01.DIS"), "--export", "pdf", "-o", files_.File("x.pdf")},
           {"dissipation", Sample("DIS-A01.DIS"), "--export", "csv", "--csv", "--test", "1", "-o",
            files_.File("x")},
           {"dissipation", Sample("DIS-A01.DIS"), "--export", "txt", "--t50", "-o", files_.File("x")},
           {"dissipation", Sample("FLDACQ-C02-001"), "--export", "txt", "-o", files_.File("x.txt")},
           {"dissipation", Sample("DIS-A01.DIS"), "--t50", "--u0", "1", "--u100", "0"},
           {"dissipation", Sample("DIS-A01.DIS"), "--plot", "-o", files_.File("x.svg")},
           {"dissipation", Sample("DIS-A01.DIS"), "--channel", "Tip"},
           {"info", Sample("DIS-A01.DIS"), "--t50"},
       }) {
    const CliRun run = Run(args);
    EXPECT_EQ(run.status, 2) << args[2];
    EXPECT_TRUE(run.err.starts_with("marlview-cli: ")) << run.err;
    EXPECT_FALSE(FileExists(files_.File("x.csv")) || FileExists(files_.File("x.txt")));
  }
}

TEST_F(CliDissipationTest, ListExportsOfOneTestWithTheirPercentColumns) {
  const std::string csv = files_.File("a01.csv");
  const CliRun plain =
      Run({"dissipation", Sample("DIS-A01.DIS"), "--test", "1", "--csv", "-o", csv, "--percent-head"});
  ASSERT_EQ(plain.status, 0) << plain.err;
  EXPECT_EQ(plain.out, "");
  std::string bytes = ReadWholeFile(csv);
  EXPECT_TRUE(bytes.starts_with("CPT DATA\r\nFILENAME,DIS-A01.DIS\r\nTEST ID,A01\r\n")) << bytes;
  // No water table: no head column, whatever was asked.
  EXPECT_NE(bytes.find("WATER TABLE DEPTH (m), UNDEFINED\r\nPP TEST DEPTH (m),6.50\r\n"
                       "Time (S),Pore Pressure (kPa),\r\n1.0,411.341\r\n"),
            std::string::npos)
      << bytes;

  // An existing file is replaced only when --yes answers the question.
  const CliRun kept = Run({"--water-table", "2.4", "dissipation", Sample("DIS-A01.DIS"), "--test", "1",
                           "--csv", "-o", csv, "--percent-head", "--percent-max"});
  EXPECT_EQ(kept.status, 0);
  EXPECT_EQ(kept.err, "? a01.csv already exists. Overwrite? -> No\n");
  EXPECT_EQ(ReadWholeFile(csv), bytes);
  const CliRun both = Run({"--yes", "--feet", "--water-table", "2.4", "dissipation", Sample("DIS-A01.DIS"),
                           "--test", "1", "--csv", "-o", csv, "--percent-head", "--percent-max"});
  ASSERT_EQ(both.status, 0) << both.err;
  bytes = ReadWholeFile(csv);
  EXPECT_NE(bytes.find("WATER TABLE DEPTH (ft),7.87\r\nPP TEST DEPTH (ft),21.33\r\nTime (S),Pore Pressure "
                       "(kPa),Percent Max Pressure (%),Percent Over Hydrostatic (%)\r\n"),
            std::string::npos)
      << bytes;

  const std::string txt = files_.File("b04.txt");
  const CliRun px =
      Run({"dissipation", Sample("PXD-B04.DIS"), "--test", "2", "--txt", "-o", txt, "--percent-max"});
  ASSERT_EQ(px.status, 0) << px.err;
  bytes = ReadWholeFile(txt);
  EXPECT_TRUE(bytes.starts_with("CPT PORE PRESSURE DATA\r\nFILE: PXD-B04.DIS\r\n")) << bytes;
  EXPECT_NE(bytes.find(
                "\r\n   Time    PRESSURE U2   % Max Pressure\r\n    (S)          (kPa)                %\r\n"),
            std::string::npos)
      << bytes;
  const CliRun beyond = Run({"dissipation", Sample("PXD-B04.DIS"), "--test", "9", "--txt", "-o", txt});
  EXPECT_EQ(beyond.status, 1);
}

TEST_F(CliDissipationTest, WholeFileExportsInOneFileOrOnePerTest) {
  const std::string all = files_.File("all.csv");
  const CliRun one = Run({"dissipation", Sample("DIS-A01.DIS"), "--export", "csv", "-o", all});
  ASSERT_EQ(one.status, 0) << one.err;
  const std::string bytes = ReadWholeFile(all);
  EXPECT_TRUE(
      bytes.starts_with("KORVAN CSV FILE VER: DIS.10.03.2013\r\nDissipation Test\r\nCOMPANY:,HARBOURLINE "
                        "GEOTECHNICAL LTD.\r\n"))
      << bytes;
  EXPECT_NE(
      bytes.find("TIP STYLE:,Conventional\r\n\r\nDISSIPATION DEPTH (m):,6.50\r\nTIME (S),PRESSURE (kPa)\r\n"
                 "     1.000,      +411.341\r\n"),
      std::string::npos);
  EXPECT_NE(bytes.find("DISSIPATION DEPTH (m):,12.80\r\n"), std::string::npos);

  const CliRun px =
      Run({"dissipation", Sample("PXD-B04.DIS"), "--export", "txt", "-o", files_.File("px.txt")});
  ASSERT_EQ(px.status, 0) << px.err;
  EXPECT_TRUE(ReadWholeFile(files_.File("px.txt"))
                  .starts_with("Kestrelmoor Dissipation File\r\nDissipation Test\r\n"));

  // One file per test, named by depth in feet; an existing one answered No is left alone.
  WriteFileAtomically(files_.File("each_21.33.txt"), "kept");
  const CliRun each = Run({"--feet", "dissipation", Sample("DIS-A01.DIS"), "--export", "txt-each", "-o",
                           files_.File("each.txt")});
  ASSERT_EQ(each.status, 0) << each.err;
  EXPECT_EQ(each.err, "? each_21.33.txt already exists. Overwrite? -> No\n");
  EXPECT_EQ(ReadWholeFile(files_.File("each_21.33.txt")), "kept");
  const std::string deep = ReadWholeFile(files_.File("each_41.99.txt"));
  EXPECT_TRUE(deep.starts_with("KORVAN TEXT FILE VER: DIS.10.03.2013\r\n"));
  EXPECT_NE(deep.find("\r\n\r\nDISSIPATION DEPTH (ft):41.99\r\nTIME (S)    PRESSURE (kPa)\r\n     1.000      "
                      "+635.802\r\n"),
            std::string::npos)
      << deep;
  EXPECT_EQ(deep.find("DISSIPATION DEPTH (ft):21.33"), std::string::npos);
  EXPECT_FALSE(FileExists(files_.File("each.txt")));
}

TEST_F(CliDissipationTest, EditorOperationsThenSaveAs) {
  const std::string out = files_.File("EDITED.DIS");
  const CliRun edit = Run({"dissipation", Sample("DIS-A01.DIS"), "--set", "1:1:pressure:500", "--set",
                           "1:2:pressure:4x", "--pressure-unit", "psi", "--depth", "2:abc", "--depth", "2:13",
                           "--adjust-depths", "0:1", "--header", "Site=Berth 9", "--delete-test", "1", "-o", out});
  ASSERT_EQ(edit.status, 0) << edit.err;
  // The QRD FIELDBOX grid refuses the bad cell silently; the dialogs say why.
  EXPECT_EQ(edit.err,
            "! Please enter a valid depth\n"
            "! Invalid measured depth. Value must be greater than 0\n"
            "? Are you sure you want to delete the currently selected test -> No\n");
  const CliRun reread = Run({"dissipation", out});
  ASSERT_EQ(reread.status, 0) << reread.err;
  const auto info = nlohmann::json::parse(reread.out);
  EXPECT_EQ(info["pressureUnit"], "(psi)");
  EXPECT_EQ(info["header"]["Site"], "Berth 9");
  ASSERT_EQ(info["tests"].size(), 2u);
  EXPECT_EQ(info["tests"][1]["depth"].get<double>(), 13);
  // 500 kPa = 500000 Pa / 6894.7573 Pa per psi.
  EXPECT_NEAR(info["tests"][0]["maxPressure"].get<double>(), 72.5189, 1e-3);
  EXPECT_NEAR(info["pressurePerMetreHead"].get<double>(), 9806 / 6894.7573, 1e-5);

  const CliRun again = Run({"dissipation", Sample("DIS-A01.DIS"), "-o", out});
  EXPECT_EQ(again.status, 1);
  EXPECT_EQ(again.err, "! EDITED.DIS already exists. Cannot overwrite.\n");

  // The feet of the command line are the dialogs' unit; a deletion renumbers the tests after it.
  const CliRun feet = Run({"--yes", "--feet", "dissipation", Sample("PXD-B04.DIS"), "--delete-test", "1",
                           "--depth", "2:10", "--set", "1:1:raw:2200", "--set", "1:2:raw:z"});
  ASSERT_EQ(feet.status, 0) << feet.err;
  EXPECT_EQ(feet.err, "? Are you sure you want to delete the currently selected test -> Yes\n"
                      "! Please enter a valid number\n");
  const auto px = nlohmann::json::parse(feet.out);
  ASSERT_EQ(px["tests"].size(), 2u);
  EXPECT_NEAR(px["tests"][1]["depth"].get<double>(), 3.048, 1e-5);
}

TEST_F(CliDissipationTest, AppendingAFile) {
  const CliRun twice = Run({"dissipation", Sample("DIS-A01.DIS"), "--append", Sample("DIS-A01.DIS") + ":1.5"});
  ASSERT_EQ(twice.status, 0) << twice.err;
  EXPECT_TRUE(twice.err.starts_with("? CAUTION: DIS files should be combined ONLY if they comprise portions"));
  EXPECT_TRUE(twice.err.ends_with("EDIT DISSIPATION screen -> OK\n"));
  const auto info = nlohmann::json::parse(twice.out);
  ASSERT_EQ(info["tests"].size(), 4u);
  EXPECT_NEAR(info["tests"][3]["depth"].get<double>(), 12.8 + 1.5, 1e-5);

  const std::string out = files_.File("x.DIS");
  const CliRun other = Run({"dissipation", Sample("DIS-A01.DIS"), "--append", Sample("PXD-B04.DIS") + ":0", "-o", out});
  EXPECT_EQ(other.status, 0);
  EXPECT_TRUE(other.err.ends_with(
      "! The number of channels in the two files do not match. The two files cannot be combined\n"));
  const CliRun missing =
      Run({"dissipation", Sample("DIS-A01.DIS"), "--append", files_.File("GONE.DIS") + ":0", "-o", files_.File("y.DIS")});
  EXPECT_EQ(missing.status, 1);
  EXPECT_TRUE(missing.err.ends_with(
      "! Marlview has encountered an error: Error #53: 'File not found' from 'AppendDissipationFile'\n"));
  EXPECT_FALSE(FileExists(files_.File("y.DIS")));
}

TEST_F(CliDissipationTest, OperationsThatDoNotFitTheFileAreBadUsage) {
  const std::string out = files_.File("x.DIS");
  for (const std::vector<std::string>& args : std::vector<std::vector<std::string>>{
           {"dissipation", Sample("DIS-A01.DIS"), "--set", "3:1:time:1", "-o", out},
           {"dissipation", Sample("DIS-A01.DIS"), "--set", "1:1:raw:1", "-o", out},
           {"dissipation", Sample("DIS-A01.DIS"), "--set", "1:229:time:1", "-o", out},
           {"dissipation", Sample("DIS-A01.DIS"), "--set", "1:1", "-o", out},
           {"dissipation", Sample("DIS-A01.DIS"), "--pressure-unit", "furlongs", "-o", out},
           {"dissipation", Sample("DIS-A01.DIS"), "--header", "Customer=x", "-o", out},
           {"--yes", "dissipation", Sample("DIS-A01.DIS"), "--delete-test", "1", "--depth", "2:1", "-o", out},
           {"dissipation", Sample("PXD-B04.DIS"), "--set", "1:1:volts:1", "-o", out},
           {"dissipation", Sample("PXD-B04.DIS"), "--append", Sample("DIS-A01.DIS") + ":0", "-o", out},
           {"dissipation", Sample("FLDACQ-C02-001"), "--depth", "1:2"},
           {"dissipation", Sample("FLDACQ-C02-001"), "-o", out},
       }) {
    const CliRun run = Run(args);
    EXPECT_EQ(run.status, 2) << args[2] << " " << args[3] << "\n" << run.err;
    EXPECT_TRUE(run.err.starts_with("marlview-cli: ")) << run.err;
    EXPECT_FALSE(FileExists(out));
  }
}

}  // namespace
}  // namespace marlview
