#include "kit/cxf/number_cells.h"

#include "kit/cxf/counted_names.h"
#include "kit/cxf/numbers.h"
#include "kit/preflight/decimal_text.h"

#include <optional>

namespace measkit::cxf {
namespace {

constexpr std::size_t kLongestNumber = 64;

bool is_not_a_number(std::string_view text) { return text == "NaN" || text == "nan"; }

}  // namespace

void NumberCells::remember(Told& told, std::string_view text, std::size_t offset) const {
  if (told.count++ != 0) return;
  told.text = text.substr(0, kLongestNumber);
  told.line = lines_.line_at(offset);
}

std::string_view NumberCells::cell(std::string_view text, std::size_t offset) {
  if (text.size() <= kLongestNumber && is_decimal(text)) return text;
  if (text.empty() || is_not_a_number(text)) return {};
  const std::size_t comma = text.find(',');
  if (comma != std::string_view::npos && text.size() <= kLongestNumber) {
    std::string with_point(text);
    with_point[comma] = '.';
    if (is_decimal(with_point)) {
      remember(commas_, text, offset);
      return pool_.add(with_point);
    }
  }
  remember(no_numbers_, text, offset);
  return {};
}

std::string_view NumberCells::rgb_cell(std::string_view text, std::string_view range,
                                       std::size_t offset) {
  const std::string_view number = cell(text, offset);
  if (number.empty() || range.empty()) return number;
  constexpr double kFull = 255.0, kHundredths = 25500.0;
  const std::optional<double> full = number_of(range);
  if (full == kFull) return number;
  if (full == kHundredths) return move_point(number, -2, pool_);
  const std::optional<double> value = number_of(number);
  if (full && *full > 0.0 && value) return text_of(*value * kFull / *full, pool_);
  remember(no_numbers_, range, offset);
  return {};
}

void NumberCells::tell(Findings& findings) const {
  if (commas_.count != 0) {
    findings.add(Severity::repaired, "cxf-decimal-commas",
                 "Read with a point: " + counted(commas_.count, "number") +
                     " with a decimal comma, the first \"" + commas_.text + "\".",
                 commas_.line);
  }
  if (no_numbers_.count != 0) {
    findings.add(Severity::lost, "cxf-no-numbers",
                 "Left out: " + counted(no_numbers_.count, "text") +
                     " in place of a number, the first \"" + no_numbers_.text + "\".",
                 no_numbers_.line);
  }
}

}  // namespace measkit::cxf
