#include "kit/write/json_parts.h"

#include "kit/write/printable_text.h"
#include "kit/write/words.h"

namespace measkit {

Json text_json(std::string_view text) { return utf8_of(text); }

Json row_json(const Values& values, std::size_t row) {
  const std::span<const double> numbers = values.row(row);
  return std::vector<double>(numbers.begin(), numbers.end());
}

Json findings_json(const std::vector<Finding>& findings) {
  Json json = Json::array();
  for (const Finding& finding : findings) {
    json.push_back({{"code", finding.code},
                    {"severity", word_of(finding.severity)},
                    {"sentence", text_json(finding.sentence)},
                    {"line", finding.line == 0 ? Json(nullptr) : Json(finding.line)}});
  }
  return json;
}

}  // namespace measkit
