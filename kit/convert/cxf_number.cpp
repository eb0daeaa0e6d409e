#include "kit/convert/cxf_number.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>

namespace measkit {
namespace {

// A cell by its characters: a number as XML writes it, something that begins with a number, or
// something else.
enum class CellForm { plain, other_number, none };

CellForm form_of(std::string_view cell) {
  std::size_t i = 0, digits = 0;
  if (i < cell.size() && (cell[i] == '-' || cell[i] == '+')) ++i;
  const auto skip_digits = [&] {
    for (; i < cell.size() && cell[i] >= '0' && cell[i] <= '9'; ++i) ++digits;
  };
  skip_digits();
  if (i < cell.size() && cell[i] == '.') {
    ++i;
    skip_digits();
  }
  if (digits != 0) return i == cell.size() ? CellForm::plain : CellForm::other_number;
  return CellForm::none;
}

}  // namespace

CxfNumber CxfNumbers::read(std::string_view cell) const {
  while (!cell.empty() && (cell.front() == ' ' || cell.front() == '\t')) cell.remove_prefix(1);
  const CellForm form = form_of(cell);
  if (form == CellForm::none) return {};
  const double value = reader_.read(cell, vantor::MeasData::Comma::is_decimal_point);
  if (!std::isfinite(value)) return {};
  return {value, form == CellForm::plain ? cell : pool_.add(decimal_text(value))};
}

std::string decimal_text(double value) {
  std::array<char, 400> digits{};  // the smallest doubles have 324 zeros
  const auto end =
      std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed)
          .ptr;
  return {digits.data(), end};
}

}  // namespace measkit
