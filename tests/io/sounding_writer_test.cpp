// The sounding writer: each layout line by line, save and reopen through the reader, and saves that
// cannot finish.
#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <unistd.h>

#include "core/common/file_access.h"
#include "core/common/number_read.h"
#include "core/common/text_rules.h"
#include "core/io/cpt_reader.h"
#include "core/io/dat_reader.h"
#include "core/io/sounding_writer.h"
#include "core/model/catalogue.h"
#include "support/test_support.h"

namespace marlview {
namespace {

using test::DatChannel;
using test::DatFile;

std::vector<std::string> LinesOf(const std::string& bytes) {
  std::vector<std::string> lines;
  for (std::string_view line : SplitLines(bytes)) lines.emplace_back(line);
  return lines;
}

std::string BytesOf(const std::vector<std::string>& lines) {
  std::string bytes;
  for (const auto& line : lines) bytes += line + "\r\n";
  return bytes;
}

// A KORVAN sounding with what a writer can lose: a start depth, an acquisition extra, a temperature
// and an excitation channel, a clock behind each reading and a closing baseline.
std::string KorvanBytes() {
  DatFile file = test::SimpleDat(0);
  file.channels.push_back({.sensor = "Temperature", .cal = {10, 50, 1, 0, 0}, .default_units = "C",
                           .display_units = "C"});
  file.channels.push_back({.sensor = "Exc Sense", .cal = {2, 1, 1, 0, 0}, .default_units = "V", .display_units = "V"});
  file.extra_header = {"R 2.1 RESET COUNT 3", "Cal 2026-09-30"};
  file.test_depth = "1.50 => Test Depth (m)";
  file.rows = {{0.02, 0.4274271, 0.0125, -0.0347, 0.6462, 2.0013},
               {0.04, 0.4210347, 0.0131, -0.0362, 0.6456, 2.0011},
               {0.06, 0.4087852, 0.0128, -0.0351, 0.6452, 2.0009}};
  file.end_baseline = {-0.01234, 0.008421, -0.02056, 0.6025, 2.0012};
  std::vector<std::string> lines = file.Lines();
  const std::vector<std::string> clocks = {" 35000 09:42:52", " 35964 09:42:53", " 36894 09:42:54"};
  for (size_t i = 0; i < clocks.size(); ++i) lines[lines.size() - 4 + i] += clocks[i];
  return BytesOf(lines);
}

// The older layout: no version line, depths from the rod.
DatFile PlainDat() {
  DatFile file = test::SimpleDat(0);
  file.family = 2;
  file.channels.push_back({.sensor = "Rod Depth", .baseline = 0.01f, .cal = {4000, 1, 0.5f, 0, 0}});
  file.rows = {{0.11, 0.002, 0.01, 0.05}, {0.12, 0.0021, 0.011, 0.1}, {0.13, 0.0022, 0.012, 0.15}};
  return file;
}

class SoundingWriterTest : public ::testing::Test {
 protected:
  Session& session() { return *t.session; }
  SoundingStore& current() { return session().Sounding(); }
  SoundingStore& reopened() { return session().SpareStore(); }

  void Open(const std::string& bytes, const std::string& name = "CPT-T01.DAT") {
    session().RemoveSpikesAnswer = 0;
    ASSERT_EQ(ReadDatSounding(bytes, "/field/" + name, session(), session().SpareStore(), t.prompts),
              ReadOutcome::kLoaded);
    session().CommitSounding();
  }
  // Reads what was saved into the spare store, beside the sounding it came from.
  void Reopen(const std::string& path) {
    ASSERT_EQ(ReadDatSounding(ReadWholeFile(path), path, session(), reopened(), t.prompts), ReadOutcome::kLoaded);
  }
  std::string Save(const std::string& name, bool dat_compatible = false) {
    const std::string path = folder.File(name);
    EXPECT_TRUE(SaveSounding(session(), t.prompts, path, dat_compatible));
    return path;
  }

  test::TestSession t;
  test::TempDirectory folder;
};

// Everything a reopen must give back: the raw numbers, depths, tails, baselines, the channel table
// and the header, and so every engineering value and derived channel recomputed from them.
void ExpectSameSounding(const SoundingStore& a, const SoundingStore& b, int channels) {
  ASSERT_EQ(a.ReadingCount, b.ReadingCount);
  ASSERT_EQ(b.ChannelCount, channels);
  EXPECT_EQ(a.TotalChannels - a.ChannelCount, b.TotalChannels - b.ChannelCount);
  EXPECT_EQ(a.StartDepth, b.StartDepth);
  EXPECT_EQ(a.WaterTableDepth, b.WaterTableDepth);
  EXPECT_EQ(a.BallTip, b.BallTip);
  EXPECT_EQ(a.BallArea, b.BallArea);
  EXPECT_EQ(a.SampleRate + a.DepthIncrement, b.SampleRate + b.DepthIncrement);
  EXPECT_EQ(a.EndBaselinePresent, b.EndBaselinePresent);
  EXPECT_EQ(a.ExtraHeaderLine1 + a.ExtraHeaderLine2, b.ExtraHeaderLine1 + b.ExtraHeaderLine2);
  EXPECT_EQ("Version " + a.DasVersion, b.DasVersion);
  const auto a_header = HeaderFields(a, a, a.AcquisitionFamily);
  const auto b_header = HeaderFields(b, b, b.AcquisitionFamily);
  for (size_t i = 0; i < a_header.size(); ++i) {
    const std::string name = a_header[i].name;
    if (name == "DasVersion" || name == "GpsLine" || name.starts_with("File")) continue;
    EXPECT_EQ(*a_header[i].value, *b_header[i].value) << name;
  }
  // The aligned values below carry the baselines, offsets and factors; the unused rows do not.
  for (int c = 1; c <= channels; ++c) {
    EXPECT_EQ(a.ChannelSensor[c], b.ChannelSensor[c]);
    EXPECT_EQ(a.ChannelCalRows[c], b.ChannelCalRows[c]) << c;
    EXPECT_EQ(a.ChannelUnitFactorRows[c], b.ChannelUnitFactorRows[c]) << c;
    EXPECT_EQ(a.ChannelEndBaseline[c], b.ChannelEndBaseline[c]) << c;
  }
  for (int r = 0; r <= a.ReadingCount; ++r) {
    ASSERT_EQ(a.DepthTable(r, 1), b.DepthTable(r, 1)) << "reading " << r;
    ASSERT_EQ(a.RowTail[r], b.RowTail[r]) << "reading " << r;
    for (int c = 1; c <= channels; ++c) ASSERT_EQ(a.RawReadings(r, c), b.RawReadings(r, c)) << r << ", " << c;
    for (int c = 1; c <= a.TotalChannels; ++c) {
      ASSERT_EQ(a.AlignedReadings(r, KindColumn(c, kCsvOutput)), b.AlignedReadings(r, KindColumn(c, kCsvOutput)))
          << a.ChannelName[c] << " at reading " << r;
    }
  }
}

// The header and channel table as the field system wrote them, but for what the writer renders
// its own way: the unpadded excitation cell, the word "Version" again, GPS text without a
// hemisphere letter (kept as zeros), depths in their shortest digits ("2.4" for "2.40") and the
// unit the open settled on, the last of its group the cell names ("DEG" for "deg"). The readings
// themselves are 32-bit numbers and read back equal, not digit for digit.
void ExpectSameTableBesidesTheKeptOddities(const std::string& original_bytes, const std::string& saved_bytes) {
  const auto original = LinesOf(original_bytes);
  const auto saved = LinesOf(saved_bytes);
  ASSERT_EQ(original.size(), saved.size());
  for (size_t i = 0; i < original.size() && !original[i].starts_with("Dig. Sensor"); ++i) {
    const std::string& line = original[i];
    if (line.starts_with("Excitation") || line.starts_with("Version") || line.starts_with("Default Units") ||
        line.starts_with("Display Units") || line.find("GPS Data") != std::string::npos ||
        line.find("=> Water Table Depth") != std::string::npos || line.find("=> Test Depth") != std::string::npos) {
      continue;
    }
    EXPECT_EQ(line, saved[i]) << "line " << i + 1;
  }
}

TEST_F(SoundingWriterTest, DemoSoundingsSaveAndReopenWithTheSameReadings) {
  for (const char* name : {"CPT-A01.DAT", "CPT-B07.DAT", "CPT-C12.DAT"}) {
    SCOPED_TRACE(name);
    const std::string sample = test::ReadSample(name);
    Open(sample, name);
    Reopen(Save(name));
    ExpectSameSounding(current(), reopened(), current().ChannelCount);
    ExpectSameTableBesidesTheKeptOddities(sample, ReadWholeFile(folder.File(name)));
  }
  EXPECT_EQ(reopened().AcquisitionFamily, kPlainDatFamily);
  EXPECT_TRUE(t.prompts.Log().empty());
}

TEST_F(SoundingWriterTest, FilesBuiltLineByLineReopenTheSame) {
  Open(KorvanBytes());
  Reopen(Save("CPT-T01.DAT"));
  ExpectSameSounding(current(), reopened(), 5);
  EXPECT_EQ(reopened().RowTail[3], " 36894 09:42:54");
  EXPECT_FLOAT_EQ(reopened().DepthTable(1, 1), 1.52f);

  Open(PlainDat().Bytes());
  Reopen(Save("CPT-T02.DAT"));
  ExpectSameSounding(current(), reopened(), 4);
  EXPECT_GT(reopened().DepthTable(3, 1), reopened().DepthTable(1, 1)) << "depths come from the rod again";
}

TEST_F(SoundingWriterTest, KorvanLayoutAndItsOddities) {
  Open(KorvanBytes());
  SoundingStore& s = current();
  test::ExpectGolden(SaveDatFamily1(s, session().units), "io/korvan_family1.expected.dat");

  s.Crew.clear();
  s.GpsLon.clear();
  s.GpsQual.clear();
  s.FileVersionLine = "KORVAN FILE VER: 10.12.2012";
  s.BallTip = true;
  s.BallDiameter = 7.6f;
  s.DepthIncrementMode = false;
  s.SampleRate = "2 Hz";
  auto lines = LinesOf(SaveDatFamily1(s, session().units));
  EXPECT_EQ(lines[5], "J. Ferreira |  => Operator / Crew");
  EXPECT_EQ(lines[12], "49.2031N,0,4.2,9,0  => GPS Data (Lat, Lon, Elev, NSat, Qual)");
  EXPECT_EQ(lines[16], " ") << "no water table line without the 2015 version";
  EXPECT_EQ(lines[17], "Version Version 4.12.7") << "the word is written whether or not the line has it";
  EXPECT_EQ(lines[22], "Ball Dia mm  8 => Tip Configuration");
  EXPECT_EQ(lines[28], "2 Hz => Sample Rate");
  // The first excitation cell goes out without its padding, the others with it.
  EXPECT_EQ(lines[36], "Excitation    4.0             4.0             4.0             4.0             4.0");

  s.DasVersion = "5.2.1";
  s.GpsLat.clear();
  s.GpsElev.clear();
  s.GpsNSat.clear();
  lines = LinesOf(SaveDatFamily1(s, session().units));
  EXPECT_EQ(lines[12], "0,0,0,0,0  => GPS Data (Lat, Lon, Elev, NSat, Qual)");
  EXPECT_EQ(lines[17], "Version 5.2.1");
}

TEST_F(SoundingWriterTest, OnlyTheFilesOwnChannelsAreWritten) {
  Open(KorvanBytes());
  SoundingStore& s = current();
  ASSERT_GT(s.TotalChannels, s.ChannelCount) << "the derivation appended its channels";
  // A channel registered after the file's own, as the add data flow does.
  const int added = ++s.TotalChannels;
  s.ChannelSensor[added] = "       Added Aux";
  RegisterChannel(s, session().units, session().choices, added, kVoltageGroup, 13);
  s.RawReadings(1, added) = 9;
  const auto lines = LinesOf(SaveDatFamily1(s, session().units));
  EXPECT_EQ(lines[32].size(), 14u + 16u * 5u);
  EXPECT_EQ(lines[33].find("Added"), std::string::npos);
  EXPECT_EQ(lines.back().size(), 10u + 19u * 5u) << "the closing baseline of the five channels";
  for (int r = 1; r <= 3; ++r) EXPECT_EQ(lines[lines.size() - 5 + r].size(), 10u + 19u * 5u + 15u);
}

TEST_F(SoundingWriterTest, ColourProbeChipsStayInTheirCompanionFile) {
  const std::string main = test::ReadSample("CPT-D03.DAT");
  t.data.Write("CPT-D03.DAT", main);
  t.data.Write("CPT-D03(MUNSELL).DAT", test::ReadSample("CPT-D03(MUNSELL).DAT"));
  t.prompts.Script({"Yes"});
  session().RemoveSpikesAnswer = 0;
  ASSERT_EQ(OpenDatSounding(session(), t.prompts, t.data.File("CPT-D03.DAT")), ReadOutcome::kLoaded);
  ASSERT_EQ(current().MunsellChannel, 8);
  t.prompts.Script({"No"});
  Reopen(Save("CPT-D03.DAT"));
  EXPECT_EQ(reopened().ChannelCount, 7);
  ExpectSameTableBesidesTheKeptOddities(main, ReadWholeFile(folder.File("CPT-D03.DAT")));
}

TEST_F(SoundingWriterTest, DatCompatibleExportOfAKorvanSounding) {
  Open(KorvanBytes());
  const std::string path = Save("CPT-T01 DAT.DAT", true);
  const std::string bytes = ReadWholeFile(path);
  test::ExpectGolden(bytes, "io/plain_family2.expected.dat");
  EXPECT_EQ(current().SoundingFileName, "CPT-T01.DAT") << "an export leaves the sounding's own name";
  EXPECT_EQ(current().AcquisitionFamily, kKorvanDatFamily);

  // The older layout states no unit for its start depth, so its reader asks.
  t.prompts.Script({"Yes"});
  Reopen(path);
  EXPECT_EQ(t.prompts.Log(),
            std::vector<std::string>{"? Start Depth of 1.5 is detected. Is this value in meters? -> Yes"});
  const SoundingStore& a = current();
  const SoundingStore& b = reopened();
  EXPECT_EQ(b.AcquisitionFamily, kPlainDatFamily);
  EXPECT_EQ(b.FileVersionLine, a.FileProductLine);
  ASSERT_EQ(b.ReadingCount, a.ReadingCount);
  for (int r = 1; r <= a.ReadingCount; ++r) {
    for (int c = 1; c <= a.ChannelCount; ++c) EXPECT_EQ(b.RawReadings(r, c), a.RawReadings(r, c));
  }
  for (int c = 1; c <= a.ChannelCount; ++c) EXPECT_EQ(b.ChannelEndBaseline[c], a.ChannelEndBaseline[c]);
}

// A PX DAS sounding as its reader leaves it.
void FillPxDas(SoundingStore& s, int depth_decimals) {
  s.ResetSounding();
  s.AcquisitionFamily = kPxDasFamily;
  static_cast<CptHeader&>(s) = {"PX DAS CPT", "Harbourline Water District", "R. Castellanos", "PX15-0412",
                                 "North abutment, 12 m east of BH-03", "P-2318", "CPT-07", "14/06/2023 09:42",
                                 "Predrilled 0.5 m", "", "Refusal not reached", "49.2031,-122.9157,4.2",
                                 static_cast<int16_t>(depth_decimals)};
  s.WaterTableDepth = 2.4f;
  s.ChannelCount = 4;
  const struct {
    const char *number, *name;
    float sensitivity, zero, range;
    const char *unit, *text;
    float number_b;
  } table[] = {{"1", "TIP", 2.534f, 0.0125f, 50, "MPa", "CONE", 10},
               {"2", "FRICTION", 1.062f, -0.004f, 1, "MPa", "SLEEVE", 150},
               {"3", "U2", 0.5f, 0, 2000, "kPa", "PORE", 0.25f},
               {"4", "X Incl", 1.0f / 3, 0, 20, "deg", "", 0}};
  for (int c = 1; c <= 4; ++c) {
    const auto& row = table[c - 1];
    s.CptChannelNumber[c] = row.number;
    s.CptChannelName[c] = row.name;
    s.ChannelSensitivity[c] = row.sensitivity;
    s.ChannelZero[c] = row.zero;
    s.ChannelRange[c] = row.range;
    s.CptUnitText[c] = row.unit;
    s.CptRowTextA[c] = row.text;
    s.CptRowNumberB[c] = row.number_b;
  }
  const float raw[3][4] = {{12345, 678.5f, -12, 0.125f}, {12400, 690, -32768, 0.25f}, {12990, 702.25f, 15, 1e-7f}};
  for (int r = 1; r <= 3; ++r) {
    s.DepthTable(r, 1) = 0.02f * static_cast<float>(r) + (r == 3 ? 100 : 0);
    s.PushSpeed[r] = 1.95f + 0.05f * static_cast<float>(r);
    for (int c = 1; c <= 4; ++c) s.CptRawReadings(r, c) = raw[r - 1][c - 1];
  }
  s.ReadingCount = 3;
}

// The file read back by column, as the PX DAS reader goes: a table cell i from 14 + 20(i-1) and a
// data cell from 15 + 20(i-1), 1-based, 20 characters each.
void ExpectReadsBackByColumn(const std::string& bytes, const SoundingStore& s) {
  const auto lines = LinesOf(bytes);
  ASSERT_EQ(lines.size(), 23u + static_cast<size_t>(s.ReadingCount));
  EXPECT_EQ(static_cast<float>(LenientNumber(lines[12])), s.WaterTableDepth);
  EXPECT_EQ(static_cast<int>(lines[15].size() / 20), s.ChannelCount);
  auto table_cell = [&](size_t line, int c) { return TrimBlanks(Columns(lines[line], 13 + 20 * static_cast<size_t>(c - 1), 20)); };
  for (int c = 1; c <= s.ChannelCount; ++c) {
    EXPECT_EQ(table_cell(15, c), s.CptChannelNumber[c]);
    EXPECT_EQ(table_cell(16, c), s.CptChannelName[c]);
    EXPECT_EQ(static_cast<float>(ParseNumber(table_cell(17, c))), s.ChannelSensitivity[c]) << table_cell(17, c);
    EXPECT_NEAR(ParseNumber(table_cell(18, c)), s.ChannelZero[c], 5e-6);
    const std::string_view range_cell = table_cell(19, c);
    const size_t blank = range_cell.rfind(' ');
    EXPECT_EQ(static_cast<float>(ParseNumber(range_cell.substr(0, blank))), s.ChannelRange[c]);
    EXPECT_EQ(range_cell.substr(blank + 1), s.CptUnitText[c]);
    EXPECT_EQ(table_cell(20, c), s.CptRowTextA[c]);
    EXPECT_EQ(static_cast<float>(ParseNumber(table_cell(21, c))), s.CptRowNumberB[c]);
  }
  const bool centimetres = s.CptDepthDecimals < 3;
  EXPECT_EQ(lines[22], centimetres ? "   (m) (cm/s)" : "    (m)(cm/s)");
  for (int r = 1; r <= s.ReadingCount; ++r) {
    const std::string& line = lines[22 + static_cast<size_t>(r)];
    const size_t depth_width = centimetres ? 6 : 7;
    // The depth's layout is told by the blank that opens the speed: the 7th character, or the 8th.
    EXPECT_EQ(line[depth_width], ' ') << line;
    if (!centimetres) {
      EXPECT_NE(line[6], ' ') << line;
    }
    EXPECT_NEAR(ParseNumber(Columns(line, 0, depth_width)), s.DepthTable(r, 1), 0.0051);
    EXPECT_NEAR(ParseNumber(Columns(line, depth_width, 13 - depth_width)), s.PushSpeed[r], 0.0051);
    for (int c = 1; c <= s.ChannelCount; ++c) {
      const std::string_view cell = Columns(line, 14 + 20 * static_cast<size_t>(c - 1), 20);
      EXPECT_EQ(static_cast<float>(ParseNumber(cell)), s.CptRawReadings(r, c)) << "reading " << r << ": " << cell;
    }
  }
}

TEST_F(SoundingWriterTest, PxDasLayout) {
  FillPxDas(current(), 2);
  const std::string bytes = SaveCpt(current());
  test::ExpectGolden(bytes, "io/px_das.expected.cpt");
  ExpectReadsBackByColumn(bytes, current());
  EXPECT_NE(bytes.find("              -32768"), std::string::npos);

  FillPxDas(current(), 3);
  current().WaterTableDepth = -99;
  const std::string millimetres = SaveCpt(current());
  EXPECT_EQ(LinesOf(millimetres)[12], " 0") << "an undefined water table";
  current().WaterTableDepth = 0;
  ExpectReadsBackByColumn(millimetres, current());
  EXPECT_TRUE(LinesOf(millimetres)[23].starts_with("  0.020  2.00")) << LinesOf(millimetres)[23];
}

TEST_F(SoundingWriterTest, SavePicksTheLayoutOfTheFamily) {
  FillPxDas(current(), 2);
  EXPECT_EQ(ReadWholeFile(Save("CPT-07.CPT")), SaveCpt(current()));
  EXPECT_EQ(current().SoundingPath, folder.File("CPT-07.CPT"));
  // The export names itself on its Filename line and writes the family 2 layout of whatever it holds.
  const std::string dat = ReadWholeFile(Save("CPT-07.DAT", true));
  EXPECT_TRUE(dat.starts_with("\r\nCone Penetrometer Test\r\nCPT-07.DAT => Filename\r\n"));
  EXPECT_EQ(dat.size(), SaveDatFamily2(current()).size());

  Open(KorvanBytes());
  const std::string path = Save("Renamed.DAT");
  EXPECT_EQ(current().SoundingFileName, "Renamed.DAT");
  EXPECT_EQ(current().SoundingFolder, folder.Path() + "/");
  EXPECT_EQ(LinesOf(ReadWholeFile(path))[3], "Renamed.DAT => Filename");

  current().AcquisitionFamily = kNoSounding;
  EXPECT_FALSE(SaveSounding(session(), t.prompts, folder.File("none.DAT"), false));
  EXPECT_EQ(t.prompts.Log(), std::vector<std::string>{"! Marlview has encountered an error: Error #5: 'Invalid "
                                                      "procedure call or argument' from 'SaveSounding'"});
  EXPECT_FALSE(FileExists(folder.File("none.DAT")));
}

// Saves that cannot finish leave the file that was there as it was, and say why.
class FailedSaveTest : public SoundingWriterTest {
 protected:
  void SetUp() override {
    Open(KorvanBytes());
    target = folder.File("CPT-T01.DAT");
    folder.Write("CPT-T01.DAT", "the crew's own file\r\n");
  }
  void ExpectFileKept() {
    EXPECT_EQ(ReadWholeFile(target), "the crew's own file\r\n");
    EXPECT_FALSE(FileExists(target + ".marlview-tmp"));
    EXPECT_EQ(current().SoundingPath, "/field/CPT-T01.DAT") << "the sounding keeps its own file";
    EXPECT_EQ(current().SoundingFileName, "CPT-T01.DAT");
  }
  std::vector<std::string> Error(int number, const std::string& description) {
    return {"! Marlview has encountered an error: Error #" + std::to_string(number) + ": '" + description +
            "' from 'SaveSounding'"};
  }

  std::string target;
};

TEST_F(FailedSaveTest, DiskFullHalfWay) {
  size_t offered = 0;
  const FileWriteFunction half = [&](std::FILE* file, std::string_view bytes) {
    offered = bytes.size();
    const size_t put = std::fwrite(bytes.data(), 1, bytes.size() / 2, file);
    errno = ENOSPC;
    return put;
  };
  EXPECT_FALSE(SaveSounding(session(), t.prompts, target, false, half));
  EXPECT_GT(offered, 1000u);
  EXPECT_EQ(t.prompts.Log(), Error(61, "Disk full"));
  ExpectFileKept();
}

TEST_F(FailedSaveTest, FolderThatCannotBeWritten) {
  // The save's temporary file cannot be made where a folder of that name stands: as with a
  // read-only folder, and whoever runs the test.
  std::filesystem::create_directory(target + ".marlview-tmp");
  EXPECT_FALSE(SaveSounding(session(), t.prompts, target, false));
  EXPECT_EQ(t.prompts.Log(), Error(75, "Path/File access error"));
  EXPECT_EQ(ReadWholeFile(target), "the crew's own file\r\n");
  std::filesystem::remove(target + ".marlview-tmp");

  t.prompts.ClearLog();
  EXPECT_FALSE(SaveSounding(session(), t.prompts, folder.File("gone/CPT-T01.DAT"), false));
  EXPECT_EQ(t.prompts.Log(), Error(76, "Path not found"));
  ExpectFileKept();
}

TEST_F(FailedSaveTest, ReadOnlyFolder) {
  if (::geteuid() == 0) GTEST_SKIP() << "the superuser writes into read-only folders";
  std::filesystem::permissions(folder.Path(), std::filesystem::perms::owner_write, std::filesystem::perm_options::remove);
  const bool saved = SaveSounding(session(), t.prompts, target, false);
  std::filesystem::permissions(folder.Path(), std::filesystem::perms::owner_write, std::filesystem::perm_options::add);
  EXPECT_FALSE(saved);
  EXPECT_EQ(t.prompts.Log(), Error(75, "Path/File access error"));
  ExpectFileKept();
}

}  // namespace
}  // namespace marlview

namespace marlview {
namespace {

// A PX DAS sounding saved in its own layout reads back through the PX DAS reader with the same
// numbers, depths and speeds, so every engineering value follows.
TEST_F(SoundingWriterTest, PxDasDemoSoundingsSaveAndReopenWithTheSameReadings) {
  for (const std::string name : {"PXC-E05.CPT", "PXC-F02.CPT"}) {
    SCOPED_TRACE(name);
    ASSERT_EQ(ReadCptSounding(test::ReadSample(name), "/field/" + name, session(), session().SpareStore(), t.prompts),
              ReadOutcome::kLoaded);
    session().CommitSounding();
    const std::string path = Save(name);
    t.prompts.Script({"1000"});
    ASSERT_EQ(ReadCptSounding(ReadWholeFile(path), path, session(), reopened(), t.prompts), ReadOutcome::kLoaded);
    const SoundingStore& a = current();
    const SoundingStore& b = reopened();
    ASSERT_EQ(b.ReadingCount, a.ReadingCount);
    ASSERT_EQ(b.ChannelCount, a.ChannelCount);
    EXPECT_EQ(b.CptDepthDecimals, a.CptDepthDecimals);
    EXPECT_EQ(b.WaterTableDepth, a.WaterTableDepth);
    for (int r = 1; r <= a.ReadingCount; ++r) {
      ASSERT_EQ(b.DepthTable(r, 1), a.DepthTable(r, 1)) << r;
      ASSERT_EQ(b.PushSpeed[r], a.PushSpeed[r]) << r;
      for (int c = 1; c <= a.ChannelCount; ++c) {
        ASSERT_EQ(b.CptRawReadings(r, c), a.CptRawReadings(r, c)) << r << " " << c;
        if (!a.BallTip) {
          ASSERT_EQ(b.AlignedReadings(r, c), a.AlignedReadings(r, c)) << r << " " << c;
        }
      }
    }
  }
}

}  // namespace
}  // namespace marlview
