// The GEF dissipation reader: elapsed time and pore pressure columns by their quantity numbers,
// the test depth from the #PARENT sounding line.
#include "core/dissipation/gef_dissipation_reader.h"

#include <cmath>
#include <limits>
#include <optional>

#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"
#include "core/io/gef_grammar.h"

namespace marlview {
namespace {

constexpr int kConeResistance = 2;
constexpr int kElapsedTime = 12;
// u2 is the filter a dissipation is read at; u1 and u3 stand in when it is absent.
constexpr int kPressureQuantities[] = {6, 5, 7};
constexpr int kGroundwaterVar = 14;
constexpr float kKpaPerMetreOfWater = 9.804f;

int FirstColumnOf(const GefDocument& doc, int quantity) {
  for (int column = 1; column <= doc.column_count; ++column) {
    const GefColumnInfo* info = doc.Column(column);
    if (info != nullptr && info->quantity == quantity) return column;
  }
  return 0;
}

// Seconds as whole seconds, half away from zero.
int32_t RoundedSeconds(double seconds) {
  const double rounded = std::round(seconds);
  if (!(std::fabs(rounded) <= std::numeric_limits<int32_t>::max())) Fail(kErrOverflow);
  return static_cast<int32_t>(rounded);
}

}  // namespace

//   #PARENT= CPT000000036524A.gef, 39.980, m (meter), sondeertrajectlengte, 1, conuspenetratietest
//   0.0;36.721;0.390;0.388;!
std::string ReadGefDissipation(std::string_view bytes, std::string_view name, DissipationSet& set,
                               UserPrompts& prompts) {
  return InProcedure("ReadGefDissipation", [&]() -> std::string {
    const GefParse parse = ParseGefHeader(bytes, name);
    if (!parse.refusal.empty()) return parse.refusal;
    const GefDocument& doc = parse.doc;
    if (doc.report == GefReport::kSounding) return doc.name + " is a sounding file";
    const int time = FirstColumnOf(doc, kElapsedTime);
    if (time == 0) return doc.name + ": no elapsed time column (quantity 12)";
    int pressure = 0;
    for (int quantity : kPressureQuantities) {
      if (pressure == 0) pressure = FirstColumnOf(doc, quantity);
    }
    if (pressure == 0) return doc.name + ": no pore pressure column (quantity 5, 6 or 7)";
    const std::optional<double> to_kpa = GefKpaFactor(doc.Column(pressure)->unit);
    if (!to_kpa) return GefUnitRefusal(doc, *doc.Column(pressure));
    const int cone = FirstColumnOf(doc, kConeResistance);
    const std::optional<double> cone_to_kpa =
        cone == 0 ? std::optional<double>(1.0) : GefKpaFactor(doc.Column(cone)->unit);
    if (!cone_to_kpa) return GefUnitRefusal(doc, *doc.Column(cone));

    set.FileKind = kGefDissipation;
    set.DissipationCount = 1;
    const std::optional<double> depth = StrictNumberOrNone(doc.Field("PARENT", 1));
    set.TestDepth[1] = depth ? ToSingle(*depth) : 0.0f;
    set.ParentFile = doc.Field("PARENT", 0);
    set.TestId = doc.Field("TESTID", 0);
    const std::optional<double> groundwater = doc.MeasurementVar(kGroundwaterVar);
    if (groundwater && *groundwater > 0) set.WaterTableDepth = ToSingle(*groundwater);
    set.PressureUnitName = "kPa";
    set.PressurePerMetreHead = kKpaPerMetreOfWater;
    set.PressureColumn = static_cast<int16_t>(pressure);
    int skipped = 0;
    const std::string refusal = ReadGefRecords(doc, [&](const GefRecordView& record) {
      const double t = record.values[static_cast<size_t>(time)];
      const double u = record.values[static_cast<size_t>(pressure)];
      // A dissipation row needs both its time and its pressure.
      if (doc.IsVoid(time, t) || doc.IsVoid(pressure, u)) {
        ++skipped;
        return;
      }
      const int k = DissipationRows::Append(set, 1);
      set.RowTime(1, k) = RoundedSeconds(t);
      set.RowPressure(1, k) = ToSingle(u * *to_kpa);
      set.RowChannelB(1, k) = ToSingle(u);
      if (cone != 0) {
        const double qc = record.values[static_cast<size_t>(cone)];
        set.RowChannelA(1, k) = doc.IsVoid(cone, qc) ? 0.0f : ToSingle(qc * *cone_to_kpa);
      }
    });
    if (!refusal.empty()) return refusal;
    if (set.RowCount[1] == 0) return doc.name + ": no data lines after #EOH";
    if (!depth) prompts.Tell(doc.name + ": no #PARENT depth; the test depth is set to 0");
    if (skipped > 0) {
      prompts.Tell(doc.name + ": " + std::to_string(skipped) +
                   " rows without time or pressure were left out");
    }
    return {};
  });
}

}  // namespace marlview
