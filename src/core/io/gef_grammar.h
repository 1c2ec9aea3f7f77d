// The GEF exchange grammar shared by the sounding and dissipation readers: the "#KEY= VALUE" header
// up to #EOH, the column declarations, and the data records with their separators and voids.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace marlview {

enum class GefReport { kSounding, kDissipation };

struct GefHeaderLine {
  // Upper case, trimmed: "#columninfo =" and "#COLUMNINFO=" are one key.
  std::string key;
  std::string value;
  std::vector<std::string> fields;
  int line = 0;
};

// A #COLUMNINFO line: column, unit, name, quantity (0 when none is given).
struct GefColumnInfo {
  int column = 0;
  std::string unit, name;
  int quantity = 0;
  int line = 0;
};

struct GefDocument {
  // The file name without its folder, for the messages.
  std::string name;
  GefReport report = GefReport::kSounding;
  std::vector<GefHeaderLine> header;
  // The first #COLUMNINFO of each column, in file order.
  std::vector<GefColumnInfo> columns;
  int column_count = 0;
  // 0: fields part at runs of blanks and tabs; the record mark 0: none.
  char column_separator = 0;
  char record_separator = 0;
  // Every line of the file and the index of the first after #EOH.
  std::vector<std::string_view> lines;
  size_t data_start = 0;

  // The first line of a key, nullptr when absent.
  const GefHeaderLine* First(std::string_view key) const;
  // Field i (0-based) of the first line of a key, empty when absent.
  std::string_view Field(std::string_view key, size_t i) const;
  const GefColumnInfo* Column(int column) const;
  // The value of a #MEASUREMENTVAR number (its first line), when it is a number.
  std::optional<double> MeasurementVar(int number) const;
  std::optional<double> Void(int column) const;
  // Whether value is the column's void, compared as 32-bit floats.
  bool IsVoid(int column, double value) const;

  std::vector<std::pair<int, double>> voids;
  // By column number: 1 + the index of its declaration in columns, 0 for none; a lookup per column
  // stays quick however many columns a file declares.
  std::vector<size_t> column_index;
};

// The header of bytes, or the refusal text when it is not a GEF file of either report.
struct GefParse {
  GefDocument doc;
  std::string refusal;
};
GefParse ParseGefHeader(std::string_view bytes, std::string_view name);

// The unit field of a column up to its first blank ("MPa (megaPascal)" gives "MPa").
std::string_view GefUnitWord(std::string_view unit);
// The factor from a pressure unit to kPa, nothing for a unit that is not a pressure.
std::optional<double> GefKpaFactor(std::string_view unit);
// The refusal of a pressure column in another unit.
std::string GefUnitRefusal(const GefDocument& doc, const GefColumnInfo& column);

// One data record: its line number, each declared column's number by column from 1 (values[0]
// unused), and the fields as written from column 1 at fields[0].
struct GefRecordView {
  int line = 0;
  std::span<const double> values;
  std::span<const std::string_view> fields;
};
// Reads every data record in file order and hands each to on_record; returns the refusal text of
// a record that is not one, or "" when all are.
std::string ReadGefRecords(const GefDocument& doc,
                           const std::function<void(const GefRecordView&)>& on_record);

}  // namespace marlview
