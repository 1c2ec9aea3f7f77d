// The GEF grammar: header keys, column declarations, separators and voids, read once for every
// GEF report.
#include "core/io/gef_grammar.h"

#include <algorithm>
#include <cmath>

#include "core/common/number_read.h"
#include "core/common/text_rules.h"

namespace marlview {
namespace {

// A column number past this declares nothing a record could hold.
constexpr double kMaxColumnNumber = 100000;

std::string Quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

std::string UpperAscii(std::string_view text) {
  std::string upper(text);
  for (char& c : upper) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return upper;
}

std::vector<std::string> SplitFields(std::string_view value) {
  std::vector<std::string> fields;
  size_t begin = 0;
  while (true) {
    const size_t comma = value.find(',', begin);
    fields.emplace_back(
        TrimBlanks(value.substr(begin, comma == std::string_view::npos ? comma : comma - begin)));
    if (comma == std::string_view::npos) break;
    begin = comma + 1;
  }
  return fields;
}

// A whole column or quantity number, nothing for a fraction or a number out of reach.
std::optional<int> WholeNumber(std::optional<double> value) {
  if (!value || *value < 1 || *value > kMaxColumnNumber || std::floor(*value) != *value) return std::nullopt;
  return static_cast<int>(*value);
}

//   #COLUMNINFO= 2, MPa, Conusweerstand, 2
// KEY is what stands between "#" and the first "="; a line without "=" is a key without value.
GefHeaderLine ReadHeaderLine(std::string_view line, int number) {
  GefHeaderLine header;
  header.line = number;
  const std::string_view rest = line.substr(1);
  const size_t equals = rest.find('=');
  header.key = UpperAscii(TrimBlanks(rest.substr(0, equals)));
  if (equals != std::string_view::npos) {
    header.value = std::string(TrimBlanks(rest.substr(equals + 1)));
    header.fields = SplitFields(header.value);
  }
  return header;
}

std::string ColumnNumberRefusal(const GefDocument& doc, const GefHeaderLine& line) {
  const std::string_view field = line.fields.empty() ? std::string_view() : line.fields[0];
  return doc.name + ": line " + std::to_string(line.line) + ": column number " + Quoted(field) +
         " is not a number";
}

// Reads the column declarations; the refusal text of one whose column is not a number.
std::string ReadColumns(GefDocument& doc) {
  int highest = 0;
  for (const GefHeaderLine& line : doc.header) {
    const bool info = line.key == "COLUMNINFO";
    if (!info && line.key != "COLUMNVOID") continue;
    const std::optional<double> number =
        line.fields.empty() ? std::nullopt : StrictNumberOrNone(line.fields[0]);
    if (!number) return ColumnNumberRefusal(doc, line);
    const std::optional<int> column = WholeNumber(number);
    if (!column) continue;
    auto field = [&line](size_t i) {
      return i < line.fields.size() ? std::string_view(line.fields[i]) : std::string_view();
    };
    if (info) {
      if (doc.Column(*column) != nullptr) continue;
      const std::optional<int> quantity = WholeNumber(StrictNumberOrNone(field(3)));
      doc.columns.push_back(
          {*column, std::string(field(1)), std::string(field(2)), quantity.value_or(0), line.line});
      if (doc.column_index.size() <= static_cast<size_t>(*column))
        doc.column_index.resize(static_cast<size_t>(*column) + 1);
      doc.column_index[static_cast<size_t>(*column)] = doc.columns.size();
      highest = std::max(highest, *column);
    } else if (const std::optional<double> void_value = StrictNumberOrNone(field(1));
               void_value && !doc.Void(*column)) {
      doc.voids.emplace_back(*column, *void_value);
    }
  }
  const std::optional<int> declared = WholeNumber(StrictNumberOrNone(doc.Field("COLUMN", 0)));
  doc.column_count = declared.value_or(highest);
  return {};
}

// The one character of a separator key; none when the key is absent or empty.
char SeparatorOf(const GefDocument& doc, std::string_view key) {
  const GefHeaderLine* line = doc.First(key);
  return line == nullptr || line->value.empty() ? '\0' : line->value[0];
}

std::string ReadReportCode(GefDocument& doc) {
  const GefHeaderLine* code = doc.First("REPORTCODE");
  if (code == nullptr) code = doc.First("PROCEDURECODE");
  if (code == nullptr) return doc.name + ": no #REPORTCODE or #PROCEDURECODE line";
  const std::string_view field = code->fields.empty() ? std::string_view() : code->fields[0];
  if (ContainsNoCase(field, "CPT-REPORT")) {
    doc.report = GefReport::kSounding;
  } else if (ContainsNoCase(field, "DISS-REPORT")) {
    doc.report = GefReport::kDissipation;
  } else {
    return doc.name + ": line " + std::to_string(code->line) + ": report code " + Quoted(field) +
           " is neither a CPT nor a DISS report";
  }
  return {};
}

// Splits a record at its separator, or at runs of blanks and tabs; an empty last field (a separator
// closing the line) is no field.
void SplitRecord(std::string_view line, char separator, std::vector<std::string_view>& fields) {
  fields.clear();
  if (separator == '\0') {
    size_t i = 0;
    while (i < line.size()) {
      while (i < line.size() && (line[i] == ' ' || line[i] == '\t')) ++i;
      const size_t begin = i;
      while (i < line.size() && line[i] != ' ' && line[i] != '\t') ++i;
      if (i > begin) fields.push_back(line.substr(begin, i - begin));
    }
    return;
  }
  size_t begin = 0;
  while (true) {
    const size_t end = line.find(separator, begin);
    fields.push_back(TrimBlanks(line.substr(begin, end == std::string_view::npos ? end : end - begin)));
    if (end == std::string_view::npos) break;
    begin = end + 1;
  }
  if (fields.size() > 1 && fields.back().empty()) fields.pop_back();
}

}  // namespace

const GefHeaderLine* GefDocument::First(std::string_view key) const {
  for (const GefHeaderLine& line : header) {
    if (line.key == key) return &line;
  }
  return nullptr;
}

std::string_view GefDocument::Field(std::string_view key, size_t i) const {
  const GefHeaderLine* line = First(key);
  return line == nullptr || i >= line->fields.size() ? std::string_view() : std::string_view(line->fields[i]);
}

const GefColumnInfo* GefDocument::Column(int column) const {
  if (column < 0 || static_cast<size_t>(column) >= column_index.size()) return nullptr;
  const size_t index = column_index[static_cast<size_t>(column)];
  return index == 0 ? nullptr : &columns[index - 1];
}

std::optional<double> GefDocument::MeasurementVar(int number) const {
  for (const GefHeaderLine& line : header) {
    if (line.key != "MEASUREMENTVAR" || line.fields.size() < 2) continue;
    if (WholeNumber(StrictNumberOrNone(line.fields[0])) != number) continue;
    return StrictNumberOrNone(line.fields[1]);
  }
  return std::nullopt;
}

std::optional<double> GefDocument::Void(int column) const {
  for (const auto& [number, value] : voids) {
    if (number == column) return value;
  }
  return std::nullopt;
}

bool GefDocument::IsVoid(int column, double value) const {
  const std::optional<double> void_value = Void(column);
  return void_value && static_cast<float>(*void_value) == static_cast<float>(value);
}

GefParse ParseGefHeader(std::string_view bytes, std::string_view name) {
  GefParse parse;
  GefDocument& doc = parse.doc;
  doc.name = std::string(name);
  doc.lines = SplitLines(bytes);
  bool end_of_header = false;
  for (size_t i = 0; i < doc.lines.size() && !end_of_header; ++i) {
    const std::string_view line = doc.lines[i];
    if (line.empty() || line[0] != '#') continue;
    GefHeaderLine header = ReadHeaderLine(line, static_cast<int>(i + 1));
    if (header.key == "EOH") {
      end_of_header = true;
      doc.data_start = i + 1;
      continue;
    }
    doc.header.push_back(std::move(header));
  }
  if (!end_of_header) {
    parse.refusal = doc.name + ": no #EOH line: not a GEF file";
    return parse;
  }
  parse.refusal = ReadReportCode(doc);
  if (parse.refusal.empty()) parse.refusal = ReadColumns(doc);
  doc.column_separator = SeparatorOf(doc, "COLUMNSEPARATOR");
  doc.record_separator = SeparatorOf(doc, "RECORDSEPARATOR");
  return parse;
}

std::string_view GefUnitWord(std::string_view unit) {
  unit = TrimBlanks(unit);
  return unit.substr(0, std::min(unit.size(), unit.find_first_of(" \t")));
}

std::optional<double> GefKpaFactor(std::string_view unit) {
  const std::string_view word = GefUnitWord(unit);
  if (EqualsNoCase(word, "MPa") || EqualsNoCase(word, "MN/m2")) return 1000.0;
  if (EqualsNoCase(word, "kPa") || EqualsNoCase(word, "kN/m2")) return 1.0;
  return std::nullopt;
}

std::string GefUnitRefusal(const GefDocument& doc, const GefColumnInfo& column) {
  return doc.name + ": line " + std::to_string(column.line) + ": unit " + Quoted(GefUnitWord(column.unit)) +
         " of column " + std::to_string(column.column) + " is not a pressure unit (MPa, kPa, MN/m2, kN/m2)";
}

//   00.01;  0.013;  0.013;  0.002;  0.647;!
//   -5.0000E-03  2.0000E-02  2.0000E-04
std::string ReadGefRecords(const GefDocument& doc,
                           const std::function<void(const GefRecordView&)>& on_record) {
  const size_t count = static_cast<size_t>(doc.column_count);
  std::vector<std::string_view> fields;
  std::vector<double> values(count + 1);
  for (size_t i = doc.data_start; i < doc.lines.size(); ++i) {
    std::string_view line = doc.lines[i];
    if (doc.record_separator != '\0') line = line.substr(0, line.find(doc.record_separator));
    if (TrimBlanks(line).empty()) continue;
    const int number = static_cast<int>(i + 1);
    SplitRecord(line, doc.column_separator, fields);
    // A remark behind the last column ("voorbeeld vermelding") is no value.
    if (fields.size() > count) {
      const auto remark = std::remove_if(fields.begin() + static_cast<std::ptrdiff_t>(count), fields.end(),
                                         [](std::string_view field) { return !StrictNumberOrNone(field); });
      fields.erase(remark, fields.end());
    }
    if (fields.size() != count) {
      return doc.name + ": line " + std::to_string(number) + ": " + std::to_string(fields.size()) +
             " values where #COLUMN declares " + std::to_string(count);
    }
    for (size_t c = 0; c < count; ++c) {
      const std::optional<double> value = StrictNumberOrNone(fields[c]);
      if (!value) {
        return doc.name + ": line " + std::to_string(number) + ", column " + std::to_string(c + 1) + ": " +
               Quoted(fields[c]) + " is not a number";
      }
      values[c + 1] = *value;
    }
    on_record({number, values, fields});
  }
  return {};
}

}  // namespace marlview
