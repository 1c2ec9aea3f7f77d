// Opening soundings one after another in the same session: each holds memory for its own readings
// only, and nothing of a larger sounding before it shows in the tables, lists or exports.
#include <gtest/gtest.h>

#include "core/presentation/ecp_list.h"
#include "core/presentation/sounding_exports.h"
#include "core/presentation/sounding_list.h"
#include "support/test_support.h"

namespace marlview {
namespace {

using test::DatChannel;
using test::DatFile;

// The bound: 10000 readings of twenty sensors, each behind the tip, with a clock on every line.
DatFile LargeSounding() {
  DatFile file = test::SimpleDat(0);
  for (int c = 4; c <= 20; ++c) {
    file.channels.push_back(DatChannel{.sensor = c == 4 ? "Incl X" : c == 5 ? "Incl Y" : "Pore Pressure " + std::to_string(c),
                                       .offset = 0.01f * static_cast<float>(c)});
  }
  for (int r = 1; r <= kMaxReadings; ++r) {
    std::vector<double> row{0.02 * r};
    for (int c = 1; c <= 20; ++c) row.push_back(0.5 + 0.001 * ((r * c) % 997));
    file.rows.push_back(std::move(row));
  }
  return file;
}

std::string EveryView(const Session& session) {
  const SoundingStore& s = session.Sounding();
  ExportOptions options;
  for (int c = 1; c <= s.TotalChannels; ++c) options.channels.push_back(c);
  std::string all = TxtExport(session, options) + CsvExport(session, options, "csv") +
                    CsvExport(session, options, "cor") + GinExport(session, GinUnit::kKpa);
  options.raw = true;
  options.depth_unit = 2;
  all += TxtExport(session, options);
  EcpView ecp;
  ChooseEcpColumns(session, ecp);
  all += EcpExport(session, ecp);
  ListView list;
  list.channels = options.channels;
  for (int r : ListRows(session, list)) {
    for (int c : list.channels) all += ListCellText(session, list, r, c) + "|";
  }
  return all;
}

void ExpectSameTable(const ColumnTable<float>& actual, const ColumnTable<float>& expected, const char* name) {
  for (int c = 0; c <= expected.MaxColumn(); ++c) {
    const int rows = std::max(actual.RowsHeld(c), expected.RowsHeld(c));
    for (int r = 0; r < rows; ++r) {
      ASSERT_EQ(actual(r, c), expected(r, c)) << name << " row " << r << " column " << c;
    }
  }
}

TEST(StoreReuse, ASmallSoundingAfterTheBoundLeavesNothingOfItBehind) {
  const DatFile small = test::SimpleDat(30);
  test::TestSession fresh;
  ASSERT_EQ(test::OpenSounding(fresh, small), ReadOutcome::kLoaded);

  test::TestSession t;
  t.session->Sounding().WaterTableDepth = 3;
  ASSERT_EQ(test::OpenSounding(t, LargeSounding()), ReadOutcome::kLoaded);
  const SoundingStore& large = t.session->Sounding();
  ASSERT_EQ(large.ReadingCount, kMaxReadings);
  const size_t large_bytes = large.ReadingBytesHeld();
  // Five outputs, four fixed copies and their aligned twins for 40 channels or so: well under the
  // hundreds of megabytes the declared bounds would take.
  EXPECT_LT(large_bytes, 60u << 20);

  ASSERT_EQ(test::OpenSounding(t, small), ReadOutcome::kLoaded);
  EXPECT_EQ(t.session->SpareStore().ReadingBytesHeld(), 0u) << "the large sounding's memory is given back";
  // The session reads into its spare store and swaps, so the third open fills the store that held
  // the large sounding.
  ASSERT_EQ(test::OpenSounding(t, small), ReadOutcome::kLoaded);
  const SoundingStore& s = t.session->Sounding();
  const SoundingStore& expected = fresh.session->Sounding();
  ASSERT_EQ(s.ReadingCount, 30);
  EXPECT_EQ(s.TotalChannels, expected.TotalChannels);
  EXPECT_LT(s.ReadingBytesHeld() * 100, large_bytes);

  ExpectSameTable(s.DepthTable, expected.DepthTable, "DepthTable");
  ExpectSameTable(s.RawReadings, expected.RawReadings, "RawReadings");
  ExpectSameTable(s.ChannelReadings, expected.ChannelReadings, "ChannelReadings");
  ExpectSameTable(s.AlignedReadings, expected.AlignedReadings, "AlignedReadings");
  ExpectSameTable(s.RawAlignedReadings, expected.RawAlignedReadings, "RawAlignedReadings");
  for (int i = 0; i < kFixedPressureTables; ++i) {
    ExpectSameTable(s.FixedPressureReadings[i], expected.FixedPressureReadings[i], "FixedPressureReadings");
    ExpectSameTable(s.AlignedFixedPressure[i], expected.AlignedFixedPressure[i], "AlignedFixedPressure");
  }
  ExpectSameTable(s.HydrostaticPressure, expected.HydrostaticPressure, "HydrostaticPressure");
  for (int r = 0; r <= kMaxReadings; r += r < 40 ? 1 : 997) {
    EXPECT_EQ(s.RowTail[r], expected.RowTail[r]) << r;
    EXPECT_EQ(s.PushSpeed[r], expected.PushSpeed[r]) << r;
  }
  EXPECT_EQ(EveryView(*t.session), EveryView(*fresh.session));
}

TEST(StoreReuse, ARereadOfTheSameFileGivesTheSameTables) {
  // The derived channels of the second read start from emptied columns, not from the first's.
  test::TestSession t;
  const DatFile file = test::SimpleDat(200);
  ASSERT_EQ(test::OpenSounding(t, file), ReadOutcome::kLoaded);
  const std::string first = EveryView(*t.session);
  const size_t bytes = t.session->Sounding().ReadingBytesHeld();
  ASSERT_EQ(test::OpenSounding(t, file), ReadOutcome::kLoaded);
  EXPECT_EQ(EveryView(*t.session), first);
  EXPECT_EQ(t.session->Sounding().ReadingBytesHeld(), bytes);
}

}  // namespace
}  // namespace marlview
