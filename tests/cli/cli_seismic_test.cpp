// marlview-cli seismic run in process: the three outputs, operations in order, dialogs answered
// from options, refusals and bad usage.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "cli/cli_fixture.h"
#include "core/common/file_access.h"
#include "core/seismic/seismic_readers.h"
#include "seismic/seismic_files.h"
#include "support/test_support.h"

namespace marlview {
namespace {

using test::CliRun;

class CliSeismicTest : public test::CliFixture {
 protected:
  // Three tests at 2, 3 and 4 m with a ramp on A and B; picks on A from the file.
  std::string SmallSei() {
    std::vector<test::SeiRecord> records;
    for (int i = 0; i < 3; ++i) {
      test::SeiRecord r = test::SeiTest("00" + std::to_string(2 + i) + ".00 m", "A(SGEO1)B(SGEO2)", 20);
      for (auto& raws : r.raws) {
        for (size_t k = 0; k < raws.size(); ++k) raws[k] = 32768 + static_cast<int>(k) * 300 * (i + 1);
      }
      r.arrival = "   " + std::to_string(10 + 2 * i) + "A";
      records.push_back(r);
    }
    return Write("SMALL.SEI", test::SeiFile(records));
  }
};

TEST_F(CliSeismicTest, JsonViewOfASmallSounding) {
  const CliRun run = Run({"seismic", SmallSei()});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "");
  test::ExpectGolden(run.out, "cli/seismic_small.expected.json");
}

TEST_F(CliSeismicTest, CrossCorrelatedVelocitiesAsCsvButNotForALog) {
  // Records of 2 ms hold nothing past the 5 ms the correlation skips by default.
  CliRun run = Run({"seismic", SmallSei(), "--xcorr"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "test,depth,referenceTest,kind,lagSamples,lagTime,coefficient,trueVelocity\n"
                     "2,3.0,1,A,0.0,0.0,0.0,0.0\n3,4.0,2,A,0.0,0.0,0.0,0.0\n");
  EXPECT_EQ(run.err, "! NO CORRELATION BETWEEN TESTS 1 AND 2\n! NO CORRELATION BETWEEN TESTS 2 AND 3\n");
  run = Run({"seismic", SmallSei(), "--xcorr", "--xcorr-kind", "B", "--xcorr-skip", "0"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "");
  // Rising ramps match best at the shortest lag: 1 m of depth in 0.1 ms.
  EXPECT_NE(run.out.find("\n2,3.0,1,B,1.0,0.1,"), std::string::npos) << run.out;
  EXPECT_EQ(Run({"seismic", test::SamplesDirectory() + "/SCPT-C12.SLG", "--xcorr"}).status, 2);
  EXPECT_EQ(Run({"seismic", SmallSei(), "--xcorr-skip", "2"}).status, 2);
}

TEST_F(CliSeismicTest, OperationsRunInOrderAndTheVelocitiesFollow) {
  const std::string file = SmallSei();
  const CliRun run = Run({"--yes", "seismic", file, "--hammer-distance", "1", "--reset", "2", "--pick", "2:B:11",
                          "--arrival", "2:right", "--nudge", "2:B:left-gross", "--dly", files_.File("out"),
                          "--velocities"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out,
            "test,depth,arrivalKind,arrivalSample,delayTime,referenceTest,intervalVelocity\n"
            "1,2.0,0,10,1.0,0,0.0\n"
            "2,3.0,1,12,1.2,1,4631.0474\n"
            "3,4.0,0,14,1.4,2,4804.1416\n");
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(ReadWholeFile(settings_.File("Hammer Distance.txt")), "1\r\n1\r\n");
  EXPECT_TRUE(FileExists(files_.File("out.dly")));
  // The file's overwrite question takes --yes.
  const CliRun again = Run({"--yes", "seismic", file, "--dly", files_.File("out.dly"), "--velocities"});
  EXPECT_NE(again.err.find("? File exits.  Overwrite? -> Yes"), std::string::npos);
}

TEST_F(CliSeismicTest, WavesOfAStrikeAfterFilteringAndEnhancing) {
  const CliRun run = Run({"seismic", SmallSei(), "--enhance", "--filter", "--waves"});
  EXPECT_EQ(run.status, 0);
  std::istringstream lines(run.out);
  std::string header, first;
  std::getline(lines, header);
  std::getline(lines, first);
  EXPECT_EQ(header, "test,kind,sample,time,amplitude");
  EXPECT_EQ(first.substr(0, 10), "1,A,1,0.1,");
  EXPECT_EQ(std::count(run.out.begin(), run.out.end(), '\n'), 1 + 3 * 2 * 20);
}

TEST_F(CliSeismicTest, AnExistingDelayOrVelocityFileIsReplacedOnlyOnYes) {
  const std::string file = SmallSei();
  files_.Write("log.dly", "old delays");
  files_.Write("log.vss", "old velocities");
  settings_.Write("Hammer Distance.txt", "1\r\n0\r\n");
  // Without --yes the questions are answered No and nothing is written.
  CliRun run = Run({"seismic", file, "--dly", files_.File("log"), "--vss", files_.File("log.vss"), "--velocities"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "? File exits.  Overwrite? -> No\n"
                     "? Not all velocities have been determined. Continue? -> No\n");
  EXPECT_EQ(ReadWholeFile(files_.File("log.dly")), "old delays");
  run = Run({"--yes", "seismic", file, "--dly", files_.File("log"), "--vss", files_.File("log.vss"), "--velocities"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "? File exits.  Overwrite? -> Yes\n"
                     "? Not all velocities have been determined. Continue? -> Yes\n"
                     "? File exists.  Overwrite? -> Yes\n");
  EXPECT_TRUE(ReadWholeFile(files_.File("log.dly")).starts_with("step\r\nSeismic Arrival\r\n"));
  EXPECT_TRUE(ReadWholeFile(files_.File("log.vss")).starts_with("step\r\nSeismic Velocity\r\n"));
}

TEST_F(CliSeismicTest, RemovingTheStrikesOfEachKind) {
  std::vector<test::SeiRecord> records = {test::SeiTest("002.00 m", "A(SGEO1)B(SGEO2)Z(PGEO)", 20),
                                          test::SeiTest("003.00 m", "A(SGEO1)Z(PGEO)", 20),
                                          test::SeiTest("004.00 m", "Z(PGEO)", 20)};
  const std::string file = Write("APZ.SEI", test::SeiFile(records));
  CliRun run = Run({"seismic", file, "--remove-strikes", "P"});
  ASSERT_EQ(run.status, 0) << run.err;
  nlohmann::json j = nlohmann::json::parse(run.out);
  // The test left without a strike goes, as the menu entry drops it.
  ASSERT_EQ(j["testCount"], 2);
  EXPECT_FALSE(j["tests"][0]["strikes"].contains("P"));
  EXPECT_TRUE(j["tests"][0]["strikes"].contains("B"));
  EXPECT_FALSE(j["tests"][1]["strikes"].contains("P"));
  run = Run({"seismic", file, "--remove-strikes", "B", "--remove-strikes", "A"});
  ASSERT_EQ(run.status, 0) << run.err;
  j = nlohmann::json::parse(run.out);
  ASSERT_EQ(j["testCount"], 3);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(j["tests"][i]["strikes"].size(), 1u) << i;
  // A kind no test has is refused, as its menu entry is disabled.
  run = Run({"seismic", file, "--remove-strikes", "P", "--remove-strikes", "P"});
  EXPECT_EQ(run.status, 2);
}

// Neighbouring tests that share a delay are told once per operation, each a box in the window.
TEST_F(CliSeismicTest, EqualDelaysAreToldOncePerOperation) {
  std::vector<test::SeiRecord> records;
  for (int i = 0; i < 3; ++i) {
    test::SeiRecord r = test::SeiTest("00" + std::to_string(2 + i) + ".00 m", "A(SGEO1)B(SGEO2)", 20);
    r.arrival = "   10A";
    records.push_back(r);
  }
  const std::string file = Write("SAME.SEI", test::SeiFile(records));
  settings_.Write("Hammer Distance.txt", "1\r\n0\r\n");
  const std::string pair21 = "! STRIKES 2 AND 1 HAVE THE SAME DELAY TIME. CANNOT CALCULATE VELOCITY\n";
  const std::string pair32 = "! STRIKES 3 AND 2 HAVE THE SAME DELAY TIME. CANNOT CALCULATE VELOCITY\n";
  const CliRun run = Run({"seismic", file, "--hammer-distance", "1.5", "--arrival", "3:left", "--reset", "3",
                          "--pick", "2:B:10", "--arrival", "2:right", "--velocities"});
  ASSERT_EQ(run.status, 0) << run.err;
  // The load and --hammer-distance tell both pairs; --arrival 3:left sets 3 apart and --reset 3
  // clears it, leaving the pair 2-1; --pick 2:B:10 lands at the same time on the B strike;
  // --arrival 2:right leaves no pair.
  EXPECT_EQ(run.err, pair21 + pair32 + pair21 + pair32 + pair21 + pair21 + pair21);
}

TEST_F(CliSeismicTest, LoadingDialogsAreAnsweredFromOptions) {
  std::vector<test::SeiRecord> records = {test::SeiTest("002.00 m", "A(SGEO1)B(SGEO2)", 20),
                                          test::SeiTest("003.00 m", "A(SGEO1)B(SGEO2)", 20),
                                          test::SeiTest("004.00 m", "A(SGEO1)Z(PGEO)", 20)};
  records[0].arrival = "    5N";
  records[1].arrival = "    6N";
  const std::string file = Write("UNSET.SEI", test::SeiFile(records));
  CliRun run = Run({"seismic", file, "--velocities"});
  EXPECT_EQ(run.err, "? SET ARRIVAL WAVE(S) -> A\n");
  run = Run({"seismic", file, "--arrival-error", "B", "--velocities"});
  EXPECT_EQ(run.err, "? SET ARRIVAL WAVE(S) -> B\n");
  EXPECT_NE(run.out.find("\n1,2.0,1,5,"), std::string::npos);
  run = Run({"seismic", file, "--arrival-error", "P"});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.out, "");
}

TEST_F(CliSeismicTest, JsonOfALogAndOfAnFldacqSeries) {
  CliRun run = Run({"seismic", test::SamplesDirectory() + "/SCPT-C12.SLG", "--gain", "25", "--trim-log", "3"});
  ASSERT_EQ(run.status, 0) << run.err;
  nlohmann::json j = nlohmann::json::parse(run.out);
  EXPECT_EQ(j["family"], 4);
  EXPECT_EQ(j["timeAxis"]["max"], 1.0);
  EXPECT_EQ(j["log"]["seconds"], 3);
  EXPECT_EQ(j["log"]["sampleCount"], 12000);
  EXPECT_EQ(j["log"]["secondEnd"], nlohmann::json::parse("[4000, 8000, 12000]"));
  EXPECT_EQ(j["log"]["hasGainLine"], -1);
  EXPECT_EQ(j["log"]["gain"], 25.0);
  EXPECT_EQ(j["tests"][0]["strikes"]["B"]["sampleCount"], 12000);
  EXPECT_FALSE(j["tests"][0]["strikes"].contains("P"));

  run = Run({"--yes", "seismic", test::SamplesDirectory() + "/SCPTD03_002"});
  ASSERT_EQ(run.status, 0) << run.err;
  j = nlohmann::json::parse(run.out);
  EXPECT_EQ(j["family"], 2);
  EXPECT_EQ(j["testCount"], 8);
  EXPECT_EQ(j["amplitudeBias"], 0);
  EXPECT_FALSE(j["header"].contains("FileVersionLine"));
  EXPECT_EQ(j["header"]["TestId"], "SCPT-D03");
  EXPECT_EQ(j["tests"][0]["file"], "SCPTD03_002");
  EXPECT_EQ(j["tests"][7]["file"], "SCPTD03_008");
  EXPECT_EQ(j["tests"][0]["arrivalKind"], 4);
  EXPECT_EQ(j["tests"][0]["strikes"]["A"]["geophone"], -1);
  EXPECT_NE(j["tests"][0]["strikes"]["A"]["mean"], 0.0);
}

TEST_F(CliSeismicTest, RefusalsAndBadUsage) {
  CliRun run = Run({"seismic", Write("NOTES.SEI", "a note\n")});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err, "! Marlview has encountered an error: Error #62: 'Input past end of file' from 'ReadSeiFile'\n");
  run = Run({"--yes", "seismic", files_.File("SERIES9XY")});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "? LOAD ALL ASSOCIATED SEISMIC TESTS? -> Yes\n! ERROR: NO SEISMIC FILES FOUND\n");
  const std::string file = SmallSei();
  for (const std::vector<std::string>& bad :
       {std::vector<std::string>{"seismic", file, "--pick", "4:A:3"}, {"seismic", file, "--pick", "1:P:3"},
        {"seismic", file, "--pick", "1:A:21"}, {"seismic", file, "--trim-log", "1"}, {"seismic", file, "--gain", "10"},
        {"seismic", file, "--arrival", "x:left"}, {"seismic", file, "--waves", "--velocities"},
        {"seismic", file, "--remove-strikes", "P"}, {"seismic"}}) {
    run = Run(bad);
    EXPECT_EQ(run.status, 2) << bad.back();
    EXPECT_EQ(run.out, "");
    EXPECT_NE(run.err.find("usage: marlview-cli"), std::string::npos);
  }
  // Bad usage anywhere on the line applies nothing, not even the operations before it.
  run = Run({"seismic", file, "--hammer-distance", "2", "--pick", "9:A:3"});
  EXPECT_EQ(run.status, 2);
  EXPECT_FALSE(FileExists(settings_.File("Hammer Distance.txt")));
  // A message of an operation leaves the status alone.
  run = Run({"seismic", file, "--trim", "-5", "--velocities"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "! Invalid time.\n");
}

TEST_F(CliSeismicTest, SaveWritesTheStoreWithItsPicksAndAsksBeforeReplacing) {
  const std::string file = SmallSei();
  const std::string out = files_.File("SAVED");
  CliRun run = Run({"seismic", file, "--reset", "2", "--pick", "2:B:7", "--save", out, "--velocities"});
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.err, "");
  SeismicStore saved;
  ReadSeiFile(ReadWholeFile(out + ".sei"), out + ".sei", "SAVED.sei", saved);
  ASSERT_EQ(saved.TestCount, 3);
  EXPECT_FLOAT_EQ(saved.TestDepth[3], 4.0f);
  EXPECT_EQ(saved.ArrivalFromFile[1], 10);
  EXPECT_EQ(saved.ArrivalFromFile[2], 7);
  EXPECT_EQ(saved.ArrivalKind[2], kStrikeB);

  // Without --yes the existing file stays; the extension is not doubled.
  run = Run({"seismic", file, "--save", out + ".sei", "--velocities"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "? File already exists!  Overwrite? -> No\n");
  ReadSeiFile(ReadWholeFile(out + ".sei"), out + ".sei", "SAVED.sei", saved);
  EXPECT_EQ(saved.ArrivalFromFile[2], 7);
  run = Run({"--yes", "seismic", file, "--save", out, "--velocities"});
  EXPECT_EQ(run.err, "? File already exists!  Overwrite? -> Yes\n");
  ReadSeiFile(ReadWholeFile(out + ".sei"), out + ".sei", "SAVED.sei", saved);
  EXPECT_EQ(saved.ArrivalFromFile[2], 12);

  // An FLDACQ series goes into a folder, one file per test with "(a)" in its name.
  run = Run({"--yes", "seismic", test::SamplesDirectory() + "/SCPTD03_002", "--save", files_.File("series"), "--velocities"});
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_NE(run.err.find("! DATA WILL BE WRITTEN TO SIMILARLY NAMED FILES WITH '(a)' APPENDED TO THE FILENAME\n"),
            std::string::npos);
  EXPECT_TRUE(FileExists(files_.File("series/SCPTD03(a)_002")));
  EXPECT_TRUE(FileExists(files_.File("series/SCPTD03(a)_008")));
}

TEST_F(CliSeismicTest, CombineAddsTheSecondFileBelowItsOffset) {
  const std::string file = SmallSei();
  const std::string second = Write("SECOND.SEI", test::SeiFile({test::SeiTest("000.50 m", "A(SGEO1)B(SGEO2)", 20)}));
  CliRun run = Run({"seismic", file, "--combine", second + ":10", "--velocities"});
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.err, "? CAUTION: SEI files should be combined ONLY if they comprise portions of the same sounding and are "
                     "saved in the same format. The headers of the currently loaded file will be used for the combined "
                     "file. Combining files from seismic tests from different tests will result in incorrect data. "
                     "Press OK to combine files or CANCEL to return to the seismic screen -> OK\n");
  EXPECT_NE(run.out.find("\n4,10.5,"), std::string::npos) << run.out;

  run = Run({"seismic", file, "--combine", second + ":-1", "--velocities"});
  EXPECT_EQ(run.status, 0);
  EXPECT_NE(run.err.find("! OFFSET CANNOT BE NEGATIVE\n"), std::string::npos);
  EXPECT_EQ(run.out.find("\n4,"), std::string::npos);

  run = Run({"seismic", file, "--combine", files_.File("NONE.SEI") + ":1"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_NE(run.err.find("! Marlview has encountered an error: Error #53: 'File not found' from 'AppendSeiFile'\n"),
            std::string::npos);

  run = Run({"seismic", test::SamplesDirectory() + "/SCPT-C12.SLG", "--combine", second + ":1"});
  EXPECT_EQ(run.status, 2);
  EXPECT_NE(run.err.find("usage: marlview-cli"), std::string::npos);
}

TEST_F(CliSeismicTest, ExportsOfAllTestsGoIntoTheFolderMadeForThem) {
  const std::string file = SmallSei();
  const std::string dir = files_.Path() + "/out/txt";
  CliRun run = Run({"seismic", file, "--sounding", "Harbour", "--file-name", "site.txt", "--txt-header", "no",
                    "--export", "txt:" + dir, "--export", "csv:" + files_.Path() + "/csv", "--velocities"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(ReadWholeFile(dir + "/site_003.00m_R_strike(002).txt").substr(0, 27), "   Depth:      3 meter(s)\r\n");
  EXPECT_TRUE(FileExists(dir + "/site_004.00m_L_strike(003).txt"));
  EXPECT_EQ(ReadWholeFile(files_.Path() + "/csv/site.txt_002.00m_L_strike(001).csv").substr(0, 17), "Sounding,Harbour ");
  // The header choice is kept and is the default of the next export.
  EXPECT_EQ(ReadWholeFile(settings_.File("Print Seismic TXT Export Header.txt")), "0\r\n");
  run = Run({"seismic", file, "--sounding", "H", "--file-name", "again", "--export", "txt:" + dir});
  EXPECT_EQ(ReadWholeFile(dir + "/again_002.00m_L_strike(001).txt").substr(0, 11), "   Depth:  ");

  // The workbench's export: the shown test alone, always with its header.
  run = Run({"seismic", file, "--sounding", "H", "--file-name", "one", "--export-test", "2:txt:" + files_.Path() + "/one"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_TRUE(FileExists(files_.Path() + "/one/one_003.00m_L_strike(002).txt"));
  EXPECT_FALSE(FileExists(files_.Path() + "/one/one_002.00m_L_strike(001).txt"));
  EXPECT_EQ(ReadWholeFile(files_.Path() + "/one/one_003.00m_R_strike(002).txt").substr(0, 12), "Sounding: H ");
}

TEST_F(CliSeismicTest, GraphExportAsksForAMissingStrikeAndStopsWithoutYes) {
  const std::string file = SmallSei();
  const std::string dir = files_.Path() + "/grf";
  CliRun run = Run({"seismic", file, "--sounding", "S", "--file-name", "site", "--grf-strikes", "P", "--export",
                    "grf:" + dir, "--velocities"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err,
            "? TEST #: 1 at 2.00 (m) DOES NOT HAVE (P) STRIKE. CANNOT CONVERT -> Cancel\n! CONVERSION CANCELED\n");
  run = Run({"--yes", "--feet", "seismic", file, "--sounding", "S", "--file-name", "site", "--grf-strikes", "AB",
             "--export", "grf:" + dir});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.err, "! CONVERSION COMPLETED\n");
  const std::string grf = ReadWholeFile(dir + "/site(A+B)009.84ft.grf");
  EXPECT_EQ(grf.substr(0, 25), "DPLOT/W v1.2\r\ndx\r\n2\r\n20\r\n");
  EXPECT_NE(grf.find("Depth: 9.84ft\\n\r\n"), std::string::npos);
  // An empty box writes nothing and is no failure.
  run = Run({"seismic", file, "--file-name", "x", "--export", "grf:" + files_.Path() + "/none", "--velocities"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "! Please enter a sounding name\n");
}

TEST_F(CliSeismicTest, ExportOptionsOutsideTheirFamilyOrListsAreBadUsage) {
  const std::string file = SmallSei();
  const std::string log = test::SamplesDirectory() + "/SCPT-C12.SLG";
  const std::string dir = files_.Path() + "/bad";
  EXPECT_EQ(Run({"seismic", log, "--export", "txt:" + dir}).status, 2);
  EXPECT_EQ(Run({"seismic", log, "--export-test", "1:csv:" + dir}).status, 2);
  EXPECT_EQ(Run({"seismic", file, "--grf-points", "all", "--export", "grf:" + dir}).status, 2);
  EXPECT_EQ(Run({"seismic", file, "--export-test", "4:txt:" + dir}).status, 2);
  EXPECT_EQ(Run({"seismic", file, "--export", "pdf:" + dir}).status, 2);
  EXPECT_EQ(Run({"seismic", file, "--grf-strikes", "Z"}).status, 2);
  EXPECT_EQ(Run({"seismic", file, "--txt-header", "maybe"}).status, 2);
  EXPECT_FALSE(DirectoryExists(dir));
  // A log's graph file in alternating points is one file for the whole record.
  const CliRun run = Run({"seismic", log, "--sounding", "S", "--file-name", "log", "--grf-points", "alternating",
                          "--export", "grf:" + dir, "--velocities"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_NE(run.err.find("! CONVERSION COMPLETED"), std::string::npos);
}

}  // namespace
}  // namespace marlview
