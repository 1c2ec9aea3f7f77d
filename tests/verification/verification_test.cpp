// Verification files: the reader's fields and deviations, the table the window shows, the graph's
// scales, and the files that end in a run-time error.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/common/runtime_failure.h"
#include "core/verification/verification.h"
#include "support/test_support.h"

namespace marlview {
namespace {

std::string Field(double value) {
  std::string text = std::to_string(value);
  return std::string(18 - text.size(), ' ') + text;
}

// A channel of the file: title, units, five and five coefficients, range, offset, two scale lines
// and the rows of applied load, applied, measured load and measured.
std::vector<std::string> ChannelLines(const std::string& title, const std::vector<std::vector<double>>& rows) {
  std::vector<std::string> lines = {title, "psi", "0.1", "1.002", "0", "0", "0", "0", "1", "0", "0", "0",
                                    "20000", "0.0012", "1.5", "1.0031"};
  for (const auto& row : rows) lines.push_back(Field(row[0]) + Field(row[1]) + Field(row[2]) + Field(row[3]));
  lines.push_back("end channel");
  return lines;
}

std::string File(std::vector<std::vector<double>> tip, std::vector<std::vector<double>> sleeve = {},
                 std::vector<std::vector<double>> pore = {}) {
  std::vector<std::string> lines = {"DSC1042", "2026-10-14", "J. Ferreira", "anything",   "Interface Inc.",
                                    "LC-448213", "20000 lb", "2.0032 mV/V", "Druck",      "PTX-61083",
                                    "500 psi",   "4.0011 mV/V"};
  for (const auto& part : {ChannelLines("TIP", tip), ChannelLines("SLEEVE", sleeve), ChannelLines("U2", pore)}) {
    lines.insert(lines.end(), part.begin(), part.end());
  }
  std::string bytes;
  for (const auto& line : lines) bytes += line + "\r\n";
  return bytes;
}

int FailureOf(const std::string& bytes) {
  try {
    ReadVerificationFile(bytes, "BAD.vrf");
  } catch (const RuntimeFailure& failure) {
    EXPECT_EQ(failure.source, "OpenVerificationFile");
    return failure.number;
  }
  return 0;
}

TEST(Verification, ReadsTheHeadTheChannelsAndTheDeviations) {
  const VerificationRecord r =
      ReadVerificationFile(File({{0, 0, 0.9, 0.58}, {2000, 1290.3, 2001.8, 1291.5}}, {}, {{0, 50, 0, 49.5}}),
                           "CONE.vrf");
  EXPECT_EQ(r.Family, "FIELDBOX");
  EXPECT_EQ(r.ConeId, "DSC1042");
  EXPECT_EQ(r.OperatorName, "J. Ferreira");
  EXPECT_EQ(r.CellCapacity, "20000 lb");
  EXPECT_EQ(r.TransducerSensitivity, "4.0011 mV/V");
  const VerificationChannel& tip = r.Channel[1];
  EXPECT_EQ(tip.ChannelTitle, "TIP");
  EXPECT_FLOAT_EQ(tip.ChannelCoefficientsA[1], 1.002f);
  EXPECT_FLOAT_EQ(tip.ChannelRange, 20000);
  // The second scale line overwrites the first.
  EXPECT_FLOAT_EQ(tip.ChannelScale, 1.0031f);
  ASSERT_EQ(tip.RowCount, 2);
  EXPECT_FLOAT_EQ(tip.RowMeasuredLoad[2], 2001.8f);
  // Applied 0 marks the row; (1291.5 - 1290.3) / 1290.3 x 100 = 0.0930 %.
  EXPECT_EQ(tip.RowDeviation[1], kNoDeviation);
  EXPECT_NEAR(tip.RowDeviation[2], 0.0930, 1e-4);
  EXPECT_EQ(r.Channel[2].RowCount, 0);
  EXPECT_NEAR(r.Channel[3].RowDeviation[1], -1.0, 1e-6);

  const auto table = VerificationTable(tip);
  EXPECT_EQ(table[0].applied, "0.000");
  EXPECT_EQ(table[0].deviation, "N/A");
  EXPECT_EQ(table[1].measured, "1291.500");
  EXPECT_EQ(table[1].deviation, "0.09");
  EXPECT_EQ(table[2].applied, "NOT MEASURED");
  EXPECT_EQ(table[9].deviation, "NOT MEASURED");

  EXPECT_EQ(ReadVerificationFile("q3mtl\r\n" + File({}).substr(9), "PX.vrf").Family, "Q3MTL");
}

TEST(Verification, TenRowsFillTheTableAndAnEleventhFails) {
  std::vector<std::vector<double>> rows;
  for (int n = 1; n <= 10; ++n) rows.push_back({n * 100.0, n * 10.0, n * 100.0, n * 10.1});
  const VerificationRecord r = ReadVerificationFile(File(rows), "FULL.vrf");
  for (const auto& row : VerificationTable(r.Channel[1])) EXPECT_NE(row.applied, "NOT MEASURED");
  // The graph spans the applied and the measured values on the dissipation plot's steps.
  const VerificationAxes axes = VerificationChartAxes(r.Channel[1]);
  EXPECT_LE(axes.x.min, 10);
  EXPECT_GE(axes.x.max, 100);
  EXPECT_GE(axes.y.max, 101);
  EXPECT_EQ(VerificationChartAxes(r.Channel[2]).x.min, 0) << "a channel without rows";

  rows.push_back({1100, 110, 1100, 111});
  EXPECT_EQ(FailureOf(File(rows)), kErrSubscript);
}

TEST(Verification, MalformedFilesEndInTheirRunTimeError) {
  const std::string good = File({{0, 0, 0.9, 0.58}});
  EXPECT_EQ(FailureOf(""), kErrPastEndOfFile);
  EXPECT_EQ(FailureOf(good.substr(0, good.find("end channel"))), kErrPastEndOfFile) << "no END CHANNEL";
  std::string text = good;
  text.replace(text.find("\r\n20000\r\n"), 9, "\r\n20k00\r\n");
  EXPECT_EQ(FailureOf(text), kErrTypeMismatch);
  // A short row leaves its last field empty, which is not a number.
  text = good;
  const size_t end_of_row = text.find("\r\nend channel");
  text.erase(end_of_row - 18, 18);
  EXPECT_EQ(FailureOf(text), kErrTypeMismatch);
}

TEST(Verification, TheDemoFilesOpenIntoTheSession) {
  test::TestSession t;
  ScriptedPrompts& prompts = t.prompts;
  ASSERT_TRUE(OpenVerificationPath(*t.session, prompts, test::SamplesDirectory() + "/PXC-2277.vrf"));
  EXPECT_EQ(t.session->Verification.Family, "Q3MTL");
  EXPECT_EQ(t.session->Verification.Channel[3].RowCount, 10);
  // A file that cannot be read is told and leaves the record on show as it was.
  EXPECT_FALSE(OpenVerificationPath(*t.session, prompts, test::SamplesDirectory() + "/CPT-A01.DAT"));
  EXPECT_EQ(t.session->Verification.FileName, "PXC-2277.vrf");
  ASSERT_EQ(prompts.Log().size(), 1u);
  EXPECT_NE(prompts.Log()[0].find("from 'OpenVerificationFile'"), std::string::npos) << prompts.Log()[0];
}

}  // namespace
}  // namespace marlview
