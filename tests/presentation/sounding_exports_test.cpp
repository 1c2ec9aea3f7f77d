// The export files: header blocks, the text and comma separated tables, and gIN.
#include <gtest/gtest.h>

#include <algorithm>

#include "core/common/text_rules.h"
#include "core/io/dat_reader.h"
#include "core/presentation/sounding_exports.h"
#include "support/test_support.h"

namespace marlview {
namespace {

class ExportTest : public ::testing::Test {
 protected:
  void Open(const test::DatFile& file) { ASSERT_EQ(test::OpenSounding(t, file), ReadOutcome::kLoaded); }
  SoundingStore& s() { return t.session->Sounding(); }
  static std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    for (auto line : SplitLines(text)) lines.emplace_back(line);
    return lines;
  }

  test::TestSession t;
};

TEST_F(ExportTest, HeaderBlocksFollowTheWaterTableTheDepthUnitAndTheTip) {
  test::DatFile file = test::SimpleDat(3);
  file.tip = "Ball Dia mm 44 => Tip Configuration";
  Open(file);
  ExportOptions o{.channels = {s().TipChannel}, .depth_unit = 2};
  s().WaterTableDepth = -99;
  const auto text = TextHeaderBlock(*t.session, o);
  EXPECT_EQ(text.front(), "CPT DATA");
  EXPECT_EQ(text[3], "OPERATOR | CREW: J. Ferreira | D. Okafor");
  EXPECT_EQ(text[text.size() - 2], "WATER TABLE (ft): UNDEFINED");
  EXPECT_EQ(text.back(), "TIP CONFIGURATION: BALL TIP 44mm DIAMETER");
  const auto csv = CsvHeaderBlock(*t.session, o);
  EXPECT_EQ(csv[3], "OPERATOR,CREW,J. Ferreira,D. Okafor");
  EXPECT_EQ(csv[csv.size() - 2], "WATER TABLE (ft), UNDEFINED");
  // The software line keeps its colon in the comma separated forms.
  EXPECT_NE(std::find(csv.begin(), csv.end(), "SOFTWARE VERSION: Version 4.12.7"), csv.end());
  s().WaterTableDepth = 2.4f;
  o.depth_unit = 1;
  o.raw = true;
  const auto raw = TextHeaderBlock(*t.session, o);
  EXPECT_EQ(raw.front(), "DATA NOT ADJUSTED FOR CHANNEL OFFSETS");
  EXPECT_EQ(raw[raw.size() - 2], "WATER TABLE (m): 2.40");
}

TEST_F(ExportTest, TablesWriteTheDepthFirstAndEachCellAsTheListShowsIt) {
  Open(test::SimpleDat(3));
  ExportOptions o{.channels = {s().Sbt90QtChannel}, .include_header = false};
  const auto txt = Lines(TxtExport(*t.session, o));
  ASSERT_EQ(txt.size(), 6u);
  EXPECT_EQ(txt[0], "   Depth             Soil Behavior Type     ");
  EXPECT_EQ(txt[1], "       m    Zone");
  EXPECT_TRUE(txt[3].starts_with("   0.020 ")) << "a selection of zones only still has its depth";
  EXPECT_NE(txt[3].find("<out of range>"), std::string::npos);

  o.channels = {s().TipChannel, s().SptChannel};
  o.elevation = true;
  const auto csv = Lines(CsvExport(*t.session, o, "csv"));
  EXPECT_EQ(csv[0], "Depth,Tip (Qc),SPT N*");
  EXPECT_EQ(csv[1], "(m),(psi),(blows/ft)");
  EXPECT_EQ(csv[2], "-0.020,0.101,0.000");
  o.include_header = true;
  o.elevation = false;
  const auto with_header = Lines(CsvExport(*t.session, o, "csv"));
  const auto cor = Lines(CsvExport(*t.session, o, "cor"));
  ASSERT_EQ(cor.size(), with_header.size() + 2);
  const size_t block = CsvHeaderBlock(*t.session, o).size();
  EXPECT_EQ(cor[block], "");
  EXPECT_EQ(cor[block + 1], "");
  EXPECT_EQ(cor[block + 2], "Depth,Tip (Qc),SPT N*");
}

TEST_F(ExportTest, GinSectionsAndTheFieldsThatHaveTheirChannels) {
  Open(test::SimpleDat(3));
  test::ExpectGolden(GinExport(*t.session, GinUnit::kKpa), "presentation/simple_kpa.expected.gin");
  // Every data row has as many fields as its field line names, in each unit.
  for (GinUnit unit : {GinUnit::kPsi, GinUnit::kTsf, GinUnit::kKpa, GinUnit::kMpa}) {
    const auto lines = Lines(GinExport(*t.session, unit));
    const auto data = std::find(lines.begin(), lines.end(), "**CPTDATA");
    ASSERT_NE(data, lines.end());
    const auto fields = std::count(data[1].begin(), data[1].end(), ',');
    int rows = 0;
    for (auto row = data + 2; row != lines.end() && !row->empty(); ++row, ++rows) {
      EXPECT_EQ(std::count(row->begin(), row->end(), ','), fields) << *row;
    }
    EXPECT_EQ(rows, s().ReadingCount);
  }
  // Without pore pressure there is neither a PWP nor an effective overburden field.
  test::DatFile dry = test::SimpleDat(3);
  dry.channels.pop_back();
  for (auto& row : dry.rows) row.pop_back();
  Open(dry);
  const std::string gin = GinExport(*t.session, GinUnit::kPsi);
  EXPECT_NE(gin.find("PointID,DEPTH,SleveStress,UNCTipResist,COR_TipResist,COR_FR,OVBDN_PR,WET_DENSITY,RD_SBT_FR,"
                     "EQV_BPF,PHI,SU\r\n"),
            std::string::npos);
  EXPECT_EQ(WithExtension("/out/cpt", "gIN"), "/out/cpt.gIN");
  EXPECT_EQ(WithExtension("/out/CPT.GIN", "gIN"), "/out/CPT.GIN");
  EXPECT_EQ(ExportFilter("cor"), " Files (*.cor)|*.cor");
}

}  // namespace
}  // namespace marlview
