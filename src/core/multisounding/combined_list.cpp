// The combined data list and its export forms.
#include "core/multisounding/combined_list.h"

#include <algorithm>

#include "core/common/number_format.h"
#include "core/common/number_read.h"
#include "core/common/text_rules.h"
#include "core/multisounding/set_model.h"
#include "core/presentation/sounding_exports.h"

namespace marlview {
namespace {

constexpr const char* kLineEnd = "\r\n";

struct Column {
  const SoundingStore* store;
  // 0 where the test lacks the channel.
  int channel;
  // Where the heading comes from: the test's own channel, else the first test's.
  const SoundingStore* label_store;
  int label_channel;
  const std::vector<int>* rows;
};

int KindOf(CombinedForm form) {
  return form == CombinedForm::kTxt ? kTxtOutput : form == CombinedForm::kCsv ? kCsvOutput : kCorOutput;
}

// A text in a column of the list's width: right-aligned and kept whole when longer, or left-aligned
// where its pattern asks for it.
void AppendField(std::string& out, std::string_view text, int width, bool left) {
  const int pad = std::max(0, width - static_cast<int>(text.size()));
  if (!left) out.append(static_cast<size_t>(pad), ' ');
  out += text;
  if (left) out.append(static_cast<size_t>(pad), ' ');
}

std::string Text(std::string_view text) { return std::string(text); }

std::string FullText(const Session& session, const CombinedListOptions& o) {
  const std::vector<int> tests = SelectedTests(session);
  const int kind = KindOf(o.form);
  const int depth_column = SetDepthColumn(session);
  const float interval = session.set.CommonDepthInterval;
  std::vector<std::vector<int>> grid;
  for (int slot : tests) grid.push_back(CommonGridRows(SetStore(session, slot),
                                                       interval, depth_column));
  std::string out;
  auto line = [&out](const std::string& text) { out += text + kLineEnd; };
  if (o.include_header) {
    int k = 0;
    for (int slot : tests) {
      for (const std::string& text : CombinedHeaderBlock(session, slot, ++k)) line(text);
    }
    if (o.form == CombinedForm::kCor) {
      line("");
      line("");
    }
  }
  const SoundingStore& first = SetStore(session, tests.front());
  std::vector<Column> columns;
  for (size_t t = 0; t < tests.size(); ++t) {
    const SoundingStore& s = SetStore(session, tests[t]);
    for (const std::string& name : o.channels) {
      const int c = ChannelNamed(s, name);
      columns.push_back({&s, c, c != 0 ? &s : &first, c != 0 ? c : ChannelNamed(first, name), &grid[t]});
    }
  }
  const bool txt = o.form == CombinedForm::kTxt;
  const int width = static_cast<int>(session.ColumnWidth);
  auto left_aligned = [kind](const Column& col) {
    const std::string_view pattern = col.channel != 0 ? NumberPattern(*col.store, col.channel, kind) : "";
    return !pattern.empty() && pattern.back() == '!';
  };
  std::string heading, units;
  if (txt) {
    AppendField(heading, "Depth", 8, false);
    AppendField(units, depth_column == 1 ? "(m)" : "(ft)", 8, false);
  } else {
    heading = "Depth";
    units = depth_column == 1 ? "(m)" : "(ft)";
  }
  for (const Column& col : columns) {
    std::string label, unit;
    if (col.label_channel != 0) {
      label = col.label_store->ChannelLabel[col.label_channel][kind];
      if (label.empty()) label = col.label_store->ChannelShortName[col.label_channel];
      unit = col.label_store->ChannelUnitLabel[col.label_channel][kind];
    }
    if (txt) {
      AppendField(heading, label, width, left_aligned(col));
      AppendField(units, unit, width, left_aligned(col));
    } else {
      heading += ',' + label;
      units += ',' + unit;
    }
  }
  line(heading);
  line(units);
  size_t rows = 0;
  for (const auto& g : grid) rows = std::max(rows, g.size());
  std::string cell;
  for (size_t j = 1; j <= rows; ++j) {
    cell.clear();
    AppendNumber(cell, GridDepth(interval, static_cast<int>(j)), "##0.000");
    if (txt) {
      AppendField(out, cell, 8, false);
    } else {
      out += cell;
    }
    for (const Column& col : columns) {
      cell.clear();
      const int r = j <= col.rows->size() ? (*col.rows)[j - 1] : 0;
      // A reading the file did not give stays an empty cell.
      if (col.channel != 0 && r != 0 && !col.store->IsMissing(r, col.channel)) {
        AppendNumber(cell, col.store->AlignedReadings(r, KindColumn(col.channel, kind)),
                     NumberPattern(*col.store, col.channel, kind));
      }
      if (txt) {
        AppendField(out, TrimBlanks(cell), width, left_aligned(col));
      } else {
        out += ',';
        out += TrimBlanks(cell);
      }
    }
    out += kLineEnd;
  }
  return out;
}

}  // namespace

const char* CombinedExtension(CombinedForm form) {
  return form == CombinedForm::kTxt ? "txt" : form == CombinedForm::kCsv ? "csv" : "cor";
}

std::vector<std::string> CombinedHeaderBlock(const Session& session, int slot, int k) {
  const SoundingStore& s = SetStore(session, slot);
  std::vector<std::string> lines{"CPT DATA,TEST #" + std::to_string(k)};
  const bool px_das = s.AcquisitionFamily == kPxDasFamily;
  if (px_das) {
    lines.insert(lines.end(), {"FILE," + s.SoundingFileName, "TEST DATE / TIME," + s.TestDateText,
                               "JOB #," + s.JobNumber, "HOLE #," + s.HoleNumber, "CUSTOMER," + s.Customer,
                               "CONE ID," + s.ConeId, "OPERATOR," + s.OperatorName,
                               "GPS (Lat Lon Elev)," + s.GpsLat + "," + s.GpsLon + "," + s.GpsElev});
  } else {
    lines.insert(lines.end(),
                 {"FILENAME," + s.SoundingFileName, "TEST ID," + s.TestId,
                  "OPERATOR,CREW," + s.Operator + "," + s.Crew, "PROJECT," + s.Project, "SITE," + s.Site,
                  "LOCATION," + s.Location, "COMMENTS," + s.Comments, "DATE," + s.TestDate,
                  "START TIME," + s.StartTime,
                  "GPS Data," + s.GpsLat + "," + s.GpsLon + "," + s.GpsElev + "," + s.GpsNSat + "," + s.GpsQual,
                  "CLIENT," + s.Client, "CLIENT REPRESENTATIVE," + s.ClientRepresentative, "WEATHER," + s.Weather,
                  "SOFTWARE VERSION: " + s.DasVersion, "DAS SYSTEM," + s.DasSystem,
                  "PROBE SERIAL NUMBER," + s.ProbeSerial,
                  s.BallTip ? "TIP CONFIGURATION: BALL TIP " + ShortestText(s.BallDiameter) + "mm DIAMETER"
                            : std::string("TIP CONFIGURATION: Conventional")});
  }
  const bool metric = session.DepthUnitIsMetric == 1;
  const std::string label = metric ? "WATER TABLE (m)," : "WATER TABLE (ft),";
  if (s.WaterTableDepth == -99) {
    lines.push_back(label + " UNDEFINED");
  } else {
    lines.push_back(label + FormatNumber(metric ? s.WaterTableDepth : s.WaterTableDepth * session.FeetPerMetre,
                                         "####0.00"));
  }
  // Only a PX DAS sounding carries the three lines of its own.
  lines.push_back("HEADER: " + (px_das ? s.CommentLine1 : std::string()));
  lines.push_back("FOOTNOTE 1: " + (px_das ? s.CommentLine2 : std::string()));
  lines.push_back("FOOTNOTE 2: " + (px_das ? s.CommentLine3 : std::string()));
  return lines;
}

std::string CombinedListExport(const Session& session, const CombinedListOptions& options) {
  if (SelectedTests(session).empty()) return {};
  return FullText(session, options);
}

std::vector<std::string> CombinedListLines(const Session& session, const std::vector<std::string>& channels) {
  std::vector<std::string> lines;
  if (SelectedTests(session).empty()) return lines;
  const std::string text = FullText(session, {channels, CombinedForm::kTxt, false});
  size_t start = 0;
  while (start < text.size()) {
    const size_t end = text.find(kLineEnd, start);
    lines.push_back(Text(std::string_view(text).substr(start, end - start)));
    start = end + 2;
  }
  return lines;
}

}  // namespace marlview
