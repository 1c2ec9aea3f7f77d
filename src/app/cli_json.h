// What the subcommands' JSON views share: the ordered object and the number rule.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "core/common/number_read.h"

namespace marlview {

using Json = nlohmann::ordered_json;

// A 32-bit value as the shortest decimal that reads back to it.
inline Json FloatJson(float value) { return Json(std::stod(ShortestText(value))); }

}  // namespace marlview
