// The AGS4 standard dictionaries of the editions the export writes, for the groups and headings
// a cone sounding, its dissipation tests and its seismic tests fill: order, status, type and unit.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace marlview {

enum class AgsVersion { k403, k404, k41, k411, k42 };

inline constexpr AgsVersion kDefaultAgsVersion = AgsVersion::k411;

// "4.0.3", "4.0.4", "4.1", "4.1.1", "4.2": the edition as TRAN_AGS names it.
std::string_view AgsVersionText(AgsVersion version);
std::optional<AgsVersion> AgsVersionFromText(std::string_view text);
// Every edition, oldest first.
const std::vector<AgsVersion>& AgsVersions();
// 4.2 replaced the static cone groups (SCPG, SCPT, SCDG, SCDT) by CPTG, CPTT, CPDG and CPDT and
// added the in situ seismic groups ISTG and ISTA.
bool HasConeGroupsOf42(AgsVersion version);

enum class AgsStatus { kOther, kKey, kRequired, kKeyRequired };

struct AgsHeading {
  std::string name;
  AgsStatus status = AgsStatus::kOther;
  // The data type: "X", "ID", "PA", "DT", "0DP".."4DP", "2SCI".
  std::string type;
  std::string unit;

  // The standard wants a value in a key or required field.
  bool NeedsValue() const { return status != AgsStatus::kOther; }
  bool IsKey() const { return status == AgsStatus::kKey || status == AgsStatus::kKeyRequired; }
};

struct AgsGroupDictionary {
  std::string name;
  // In the edition's order.
  std::vector<AgsHeading> headings;

  const AgsHeading* Find(std::string_view heading) const;
};

// The group of the edition, or nullptr when the edition has no such group.
const AgsGroupDictionary* FindAgsGroup(AgsVersion version, std::string_view group);

// Decimal places of an "nDP" type, or of the mantissa of an "nSCI" type; -1 for a text type.
int AgsDecimals(std::string_view type);
bool IsAgsScientific(std::string_view type);

// TYPE_DESC of a data type and UNIT_DESC of a unit, as the standard's TYPE and UNIT groups word them.
std::string AgsTypeDescription(std::string_view type);
std::string AgsUnitDescription(std::string_view unit);

}  // namespace marlview
