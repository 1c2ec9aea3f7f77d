// marlview-cli run in process: the JSON and CSV outputs, the exit statuses and the echoed prompts.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "cli/cli_fixture.h"
#include "core/common/file_access.h"
#include "core/model/catalogue.h"
#include "support/test_support.h"

namespace marlview {
namespace {

using test::CliRun;
using test::DatFile;
using test::SimpleDat;

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

using CliTest = test::CliFixture;

TEST_F(CliTest, InfoPrintsTheWholeSounding) {
  const CliRun run = Run({"info", Write("SMALL.DAT", SimpleDat(3).Bytes())});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "");
  test::ExpectGolden(run.out, "cli/info_simple.expected.json");
}

// The first n fields of a CSV line: the measured channels, before the derived ones.
std::string Head(const std::string& line, int n) {
  size_t at = 0;
  for (int i = 0; i < n && at != std::string::npos; ++i) at = line.find(',', at + 1);
  return line.substr(0, at);
}

TEST_F(CliTest, ChannelsWritesTheTableInEachView) {
  const std::string file = Write("SMALL.DAT", SimpleDat(3).Bytes());
  const CliRun aligned = Run({"channels", file});
  ASSERT_EQ(aligned.status, 0) << aligned.err;
  const auto lines = Lines(aligned.out);
  ASSERT_EQ(lines.size(), 4u);
  EXPECT_EQ(Head(lines[0], 4), "Depth (m),Tip Resistance (Qc),Sleeve Friction,Pore Pressure U2");
  EXPECT_TRUE(lines[0].ends_with(",Wet Density,Time,Push Speed")) << lines[0];
  // Psi as read; the sleeve sits 3 in behind the tip, past the last of these readings once aligned.
  EXPECT_EQ(Head(lines[1], 4), "0.02,0.101,0,0.01");
  EXPECT_EQ(Head(lines[3], 4), "0.06,0.103,0,0.03");
  EXPECT_EQ(Head(Lines(Run({"channels", "--raw", file}).out).at(1), 4), "0.02,0.101,0.002,0.01");
  // The fixed-unit copies in kPa: the tip at 0.101 psi.
  EXPECT_EQ(Head(Lines(Run({"channels", "--mirror", "2", file}).out).at(1), 2), "0.02,0.6963705");

  // The text output (kind 1) of the tip in kPa, every other output in psi.
  ChannelChoices choices;
  choices.UseUnitsFromFile = 0;
  choices.UnitChoice[kTxtOutput][1] = 2;
  settings_.Write("Display Units.txt", WriteDisplayUnits(choices));
  EXPECT_EQ(Head(Lines(Run({"channels", file}).out).at(1), 4), "0.02,0.101,0,0.01");
  EXPECT_EQ(Head(Lines(Run({"channels", "--kind", "1", file}).out).at(1), 4), "0.02,0.6963705,0,0.01");

  // The normalised classification for this run only: its six channels follow Push Speed.
  EXPECT_TRUE(Lines(Run({"--sbtn", "channels", file}).out).at(0).ends_with(
      ",Push Speed,Stress Exponent n,Qtn,Fr (Normalised),Ic,SBTn(2009)*,Bq"));
  EXPECT_FALSE(FileExists(settings_.File("Normalised Classification.txt")));

  const auto feet = Lines(Run({"--feet", "channels", file}).out);
  EXPECT_EQ(Head(feet.at(0), 4), "Depth (ft),Tip Resistance (Qc),Sleeve Friction,Pore Pressure U2");
  EXPECT_NEAR(std::stod(feet.at(1)), 0.02 / 0.3048, 1e-6);
}

TEST_F(CliTest, PlotDrawsAPictureOrAPageWithThePlotButtonsChecks) {
  const std::string file = Write("SMALL.DAT", SimpleDat(30).Bytes());
  const std::string png = files_.File("plot.png"), pdf = files_.File("plot.pdf");
  const CliRun picture = Run({"plot", file, "-o", png, "--width", "400", "--height", "300", "--grid"});
  EXPECT_EQ(picture.status, 0) << picture.err;
  EXPECT_EQ(picture.err, "");
  EXPECT_EQ(ReadWholeFile(png).substr(1, 3), "PNG");
  const CliRun page = Run({"plot", file, "-o", pdf, "--channel", "Tip Resistance (Qc)", "--channel", "SBT(QT)(1990)*"});
  EXPECT_EQ(page.status, 0) << page.err;
  EXPECT_EQ(ReadWholeFile(pdf).substr(0, 4), "%PDF");
  const CliRun time = Run({"plot", file, "-o", png, "--channel", "Time"});
  EXPECT_EQ(time.status, 1);
  EXPECT_EQ(time.err, "! CANNOT PLOT TIME DATA\n");
  EXPECT_EQ(Run({"plot", file, "-o", png, "--channel", "Cone Bearing"}).status, 2);
  EXPECT_EQ(Run({"plot", file, "-o", files_.File("plot.jpg")}).status, 2);
  EXPECT_EQ(Run({"info", file, "--grid"}).status, 2);
}

TEST_F(CliTest, ExportWritesTheListsFiles) {
  const std::string file = Write("SMALL.DAT", SimpleDat(3).Bytes());
  const std::string csv = files_.File("small.csv");
  const CliRun run = Run({"export", file, "--format", "csv", "-o", csv, "--no-header", "--channel", "Sleeve Friction",
                          "--channel", "Tip Resistance (Qc)"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(ReadWholeFile(csv).substr(0, 43), "Depth,Sleeve (Fs),Tip (Qc)\r\n(m),(psi),(psi)");
  const std::string gin = files_.File("small.gIN");
  EXPECT_EQ(Run({"export", file, "--format", "gin", "--unit", "tsf", "-o", gin}).status, 0);
  EXPECT_EQ(ReadWholeFile(gin).substr(0, 9), "**PROJECT");
  const std::string ecp = files_.File("small.ecp");
  EXPECT_EQ(Run({"export", file, "--format", "ecp", "--unit", "kpa", "-o", ecp}).status, 0);
  const std::string fixed = ReadWholeFile(ecp);
  EXPECT_TRUE(fixed.starts_with("CPT DATA\r\n"));
  EXPECT_NE(fixed.find("Tip (Qt)"), std::string::npos) << "the main window's list";
  EXPECT_NE(fixed.find("(kPa)"), std::string::npos);
  // An existing file stays unless the question is answered Yes.
  const CliRun kept = Run({"export", file, "--format", "ecp", "-o", ecp, "--channel", "Sleeve Friction"});
  EXPECT_EQ(kept.status, 0);
  EXPECT_EQ(kept.err, "? File exists. Overwrite? -> No\n");
  EXPECT_EQ(ReadWholeFile(ecp), fixed);
  EXPECT_EQ(Run({"export", file, "--format", "ecp", "-o", ecp, "--channel", "Sleeve Friction", "--yes"}).status, 0);
  const std::string chosen = ReadWholeFile(ecp);
  EXPECT_EQ(chosen.find("Tip (Qt)"), std::string::npos) << "only the named channel";
  EXPECT_NE(chosen.find("(psi)"), std::string::npos);
  EXPECT_EQ(Run({"export", file, "--format", "txt"}).status, 2) << "no -o";
  EXPECT_EQ(Run({"export", file, "--format", "gin", "--unit", "bar", "-o", gin}).status, 2);
}

TEST_F(CliTest, BadUsageExitsWithTwoAndTheUsage) {
  const std::string file = Write("SMALL.DAT", SimpleDat(3).Bytes());
  const std::vector<std::vector<std::string>> cases = {{"--colour", "info", file},
                                                       {"info"},
                                                       {"plot", file},
                                                       {"info", "--raw", file},
                                                       {"channels", "--kind", "5", file}};
  for (const auto& args : cases) {
    const CliRun run = Run(args);
    EXPECT_EQ(run.status, 2) << args.front();
    EXPECT_EQ(run.out, "");
    EXPECT_TRUE(run.err.starts_with("marlview-cli: ")) << run.err;
    EXPECT_NE(run.err.find("\nusage: marlview-cli "), std::string::npos) << run.err;
  }
}

TEST_F(CliTest, AFileThatCannotBeReadExitsWithOne) {
  const CliRun text = Run({"info", Write("NOTES.DAT", "Borehole notes\r\nno readings here\r\n")});
  EXPECT_EQ(text.status, 1);
  EXPECT_EQ(text.out, "");
  EXPECT_EQ(text.err, "! NOTES.DAT is not a valid DAT file\n");

  const CliRun missing = Run({"channels", files_.File("GONE.DAT")});
  EXPECT_EQ(missing.status, 1);
  EXPECT_EQ(missing.out, "");
  EXPECT_EQ(missing.err,
            "! Marlview has encountered an error: Error #53: 'File not found' from 'OpenDatSounding'\n");
}

// Field i (from 0) of a CSV line without quotes.
std::string Field(const std::string& line, int i) {
  size_t begin = 0;
  for (int k = 0; k < i; ++k) begin = line.find(',', begin) + 1;
  return line.substr(begin, line.find(',', begin) - begin);
}

// A ball cone's PX DAS sounding whose file does not give the standard cone's area, drilled out
// after its second reading.
std::string BallTipCpt() {
  test::CptFile file = test::SimpleCpt(3);
  file.channels[0].name = "TIP BALL mm 87";
  std::vector<std::string> lines = file.Lines();
  lines.insert(lines.begin() + 25, "DRILLOUT");
  std::string bytes;
  for (const auto& line : lines) bytes += line + "\r\n";
  return bytes;
}

constexpr const char* kTipAreaQuestion =
    "? File indicates a ball tip was used, but the file does not contain the standard conical tip area which "
    "is needed to calculate tip pressure. Please enter the standard tip area in mm^2 (e.g. 1000) -> ";

TEST_F(CliTest, APxDasSoundingAnswersInfoAndChannels) {
  const std::string file = Write("BALL.CPT", BallTipCpt());
  const CliRun info = Run({"--tip-area", "1500", "info", file});
  ASSERT_EQ(info.status, 0) << info.err;
  EXPECT_EQ(info.err, std::string(kTipAreaQuestion) + "1500\n! DRILLOUT detected in file at 0.04 m\n");
  test::ExpectGolden(info.out, "cli/info_px_das.expected.json");

  // The file's own numbers with --raw; the ball's tip scaled to the standard cone, in psi.
  const auto raw = Lines(Run({"channels", "--raw", file}).out);
  ASSERT_EQ(raw.size(), 4u);
  EXPECT_EQ(Head(raw[0], 4), "Depth (m),Tip Resistance (Qc),Sleeve Friction,Pore Pressure U2");
  EXPECT_EQ(Head(raw[3], 4), "0.06,1030,23,15");
  const CliRun standard = Run({"channels", file});
  EXPECT_EQ(standard.err, std::string(kTipAreaQuestion) + "1000\n! DRILLOUT detected in file at 0.04 m\n");
  const double ball_mm2 = 3.14159 * 43.5 * 43.5;
  EXPECT_NEAR(std::stod(Field(Lines(standard.out).at(1), 1)), 1010 * 1000 / ball_mm2 / 6.894757, 1e-4);
  // The fixed kPa copies: the sleeve and pore pressure as the file's ranges give them.
  const std::string kpa = Lines(Run({"channels", "--mirror", "2", file}).out).at(1);
  EXPECT_NEAR(std::stod(Field(kpa, 1)), 1010 * 1000 / ball_mm2, 1e-3);
  EXPECT_EQ(Field(kpa, 2), "21");
  EXPECT_EQ(Field(kpa, 3), "5");

  const CliRun bad_answer = Run({"--tip-area", "ten", "info", file});
  EXPECT_EQ(bad_answer.status, 1);
  EXPECT_EQ(bad_answer.out, "");
  EXPECT_EQ(bad_answer.err, std::string(kTipAreaQuestion) +
                                "ten\n! Marlview has encountered an error: Error #13: 'Type mismatch' from "
                                "'OpenCptSounding'\n");
  const CliRun missing = Run({"info", files_.File("GONE.CPT")});
  EXPECT_EQ(missing.status, 1);
  EXPECT_EQ(missing.err,
            "! Marlview has encountered an error: Error #53: 'File not found' from 'OpenCptSounding'\n");
}

TEST_F(CliTest, StartDepthWithoutAUnitIsAnsweredFromTheOption) {
  DatFile dat = SimpleDat(3);
  dat.test_depth = "1.50 => Test Depth";
  const std::string file = Write("DEEP.DAT", dat.Bytes());

  const CliRun feet = Run({"--start-depth-unit", "ft", "info", file});
  ASSERT_EQ(feet.status, 0) << feet.err;
  EXPECT_EQ(feet.err, "? Start Depth of 1.5 is detected. Is this value in meters? -> No\n");
  EXPECT_FLOAT_EQ(nlohmann::json::parse(feet.out)["startDepth"].get<float>(), 1.5f / kFeetPerMetre);

  const CliRun metres = Run({"info", file});
  EXPECT_EQ(metres.err, "? Start Depth of 1.5 is detected. Is this value in meters? -> Yes\n");
  EXPECT_EQ(nlohmann::json::parse(metres.out)["startDepth"].get<double>(), 1.5);
}

}  // namespace
}  // namespace marlview
