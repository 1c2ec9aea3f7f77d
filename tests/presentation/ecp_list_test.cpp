// The ECP list: the fixed columns, the pressure unit of its cells and headings, the unit kept in
// its settings file, the template order, and the export's heading lines.
#include <gtest/gtest.h>

#include <algorithm>

#include "core/common/file_access.h"
#include "core/io/dat_reader.h"
#include "core/presentation/ecp_list.h"
#include "core/presentation/sounding_list.h"
#include "core/session/session.h"
#include "support/test_support.h"

namespace marlview {
namespace {

class EcpListTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(test::OpenSounding(t, test::SimpleDat(50)), ReadOutcome::kLoaded);
    ChooseEcpColumns(*t.session, view);
  }
  const SoundingStore& S() const { return t.session->Sounding(); }
  double Cell(int row, int channel) { return std::stod(EcpCellText(*t.session, view, row, channel)); }

  test::TestSession t;
  EcpView view;
};

TEST_F(EcpListTest, ColumnsAreTheSelectionInItsOwnOrder) {
  const SoundingStore& s = S();
  // None chosen: the main window's available list, roles first.
  ASSERT_GE(view.channels.size(), 5u);
  EXPECT_EQ(view.channels, DefaultListSelection(s));
  EXPECT_EQ(view.channels[0], s.TipChannel);
  EXPECT_EQ(view.channels[4], s.FrictionRatioQtChannel);
  view.selection = {s.HeadPressureChannel, s.SleeveChannel, s.TipChannel};
  ChooseEcpColumns(*t.session, view);
  EXPECT_EQ(view.channels, view.selection);
}

TEST_F(EcpListTest, PressuresComeFromTheChosenUnitsCopy) {
  const int tip = S().TipChannel;
  view.unit = kEcpPsi;
  const double psi = Cell(20, tip);
  EXPECT_EQ(EcpHeading(*t.session, view)[1], S().ChannelShortName[tip] + "\n(psi)");
  view.unit = kEcpKpa;
  EXPECT_NEAR(Cell(20, tip) / psi, 6.895, 0.01);
  EXPECT_EQ(EcpUnitLabel(*t.session, view, tip), "(kPa)");
  view.unit = kEcpMpa;  // in the channel's own pattern whatever the unit: three decimals here
  const std::string mpa = EcpCellText(*t.session, view, 20, tip);
  EXPECT_EQ(mpa.size() - mpa.find('.'), 4u) << mpa;
  // Head pressure is a pressure too; a channel outside the group keeps its own unit label.
  EXPECT_EQ(EcpUnitLabel(*t.session, view, S().HeadPressureChannel), "(MPa)");
  const int ratio = S().FrictionRatioQtChannel;
  EXPECT_EQ(EcpUnitLabel(*t.session, view, ratio), S().ChannelUnitLabel[ratio][kEcpOutput]);
}

TEST_F(EcpListTest, DefaultUnitFileRoundTripsAndFallsBackToPsi) {
  EXPECT_EQ(ReadDefaultEcpUnit(*t.session), kEcpPsi);
  WriteDefaultEcpUnit(*t.session, kEcpKpa);
  EXPECT_EQ(ReadDefaultEcpUnit(*t.session), kEcpKpa);
  EXPECT_EQ(ReadWholeFile(t.session->SettingsPath("Default ECP Units.txt")), "2\r\n");
  for (const char* bad : {"7\r\n", "1.5\r\n", "-1\r\n", ""}) {
    t.data.Write("Default ECP Units.txt", bad);
    EXPECT_EQ(ReadDefaultEcpUnit(*t.session), kEcpPsi) << bad;
  }
}

TEST_F(EcpListTest, TemplateKeepsTheNamesAndTheSoundingsOrder) {
  const SoundingStore& s = S();
  // Chosen in reverse, listed in channel order; an unknown name is passed over.
  SaveEcpTemplate(*t.session, {s.ChannelName[s.PorePressureChannel], "No Such Channel", s.ChannelName[s.TipChannel]});
  // The names first, then empty lines to the file's 52, so the start-up still reads it whole.
  const std::string saved = ReadWholeFile(t.session->SettingsPath("Ordered ECP Channels.txt"));
  EXPECT_TRUE(saved.starts_with(s.ChannelName[s.PorePressureChannel] + "\r\nNo Such Channel\r\n" +
                                s.ChannelName[s.TipChannel] + "\r\n\r\n"));
  EXPECT_EQ(std::count(saved.begin(), saved.end(), '\n'), 52);
  view.ordered = true;
  ChooseEcpColumns(*t.session, view);
  EXPECT_EQ(view.channels, (std::vector<int>{s.TipChannel, s.PorePressureChannel}));
}

TEST_F(EcpListTest, ExportHasTheHeaderThenThreeHeadingLinesAndTheRows) {
  view.unit = kEcpTsf;
  view.channels = {S().TipChannel, S().SleeveChannel};
  const std::string out = EcpExport(*t.session, view);
  EXPECT_TRUE(out.starts_with("CPT DATA\r\nFILENAME: CPT-T01.DAT\r\n"));
  const size_t blank = out.find("\r\n\r\n");
  ASSERT_NE(blank, std::string::npos);
  std::vector<std::string> lines;
  for (size_t at = blank + 4, end; (end = out.find("\r\n", at)) != std::string::npos; at = end + 2) {
    lines.push_back(out.substr(at, end - at));
  }
  ASSERT_EQ(lines.size(), 3u + 50u);
  EXPECT_EQ(lines[0].substr(0, 8), "   Depth");
  EXPECT_EQ(lines[1], "     (m)" + std::string(10, ' ') + "(tsf)" + std::string(10, ' ') + "(tsf)");
  EXPECT_EQ(lines[2], "    ____" + std::string(30, '_'));
  EXPECT_EQ(lines[3].size(), 38u);
  EXPECT_EQ(lines[3].substr(0, 8), "   0.020");
}

}  // namespace
}  // namespace marlview
