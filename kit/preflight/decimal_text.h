// Numbers as text.
#ifndef MEASDATA_KIT_PREFLIGHT_DECIMAL_TEXT_H
#define MEASDATA_KIT_PREFLIGHT_DECIMAL_TEXT_H

#include "kit/preflight/text_pool.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace measkit {

/// The number times ten to the power of `places`, by moving its decimal point: every digit stays.
/// What stands behind the number stays; a text without a decimal number is returned unchanged.
std::string_view move_point(std::string_view number, int places, TextPool& pool);

/// The most bytes by which that text is longer.
constexpr std::size_t room_for_moved_point(int places) {
  return static_cast<std::size_t>(places < 0 ? -places : places) + 16;
}
/// The same, written to `out`; the end of the text.
char* write_moved_point(std::string_view number, int places, char* out);

/// Reads the number at the start of a text, with a decimal point in every locale. Returns how many
/// bytes it takes; 0 for none.
std::size_t read_decimal(std::string_view text, double& value);

/// The shortest text that reads back as the same number.
std::string_view text_of(double value, TextPool& pool);
std::string text_of(double value);

/// For sentences: at most four significant digits.
std::string rounded(double value);

}  // namespace measkit

#endif  // MEASDATA_KIT_PREFLIGHT_DECIMAL_TEXT_H
