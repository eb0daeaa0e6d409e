// Parts that all JSON answers are made of.
#ifndef MEASDATA_KIT_WRITE_JSON_PARTS_H
#define MEASDATA_KIT_WRITE_JSON_PARTS_H

#include "kit/chart/chart.h"
#include "kit/finding.h"

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace measkit {

using Json = nlohmann::ordered_json;

/// Text of a file, as UTF-8.
Json text_json(std::string_view text);
Json row_json(const Values& values, std::size_t row);
Json findings_json(const std::vector<Finding>& findings);

}  // namespace measkit

#endif  // MEASDATA_KIT_WRITE_JSON_PARTS_H
