// Reads the measuring conditions that a header states, in whatever words.
#ifndef MEASDATA_KIT_PREFLIGHT_CONDITIONS_H
#define MEASDATA_KIT_PREFLIGHT_CONDITIONS_H

#include "kit/preflight/table.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace measkit {

/// An answer with the words of the file that gave it.
struct Stated {
  std::string value;    ///< plain, such as "M1", "D50", "2"
  std::string keyword;  ///< where the file says it
  std::string words;    ///< the keyword's whole value
  std::size_t line;     ///< counted from 1; 0 for a line that the kit made
};

struct Conditions {
  std::optional<Stated> m;           ///< "M0" to "M3" of ISO 13655
  std::optional<Stated> illuminant;  ///< such as "D50"
  std::optional<Stated> observer;    ///< "2" or "10", degrees
  std::optional<Stated> other_m;     ///< another M condition that the file states as well
};

Conditions conditions_of(const std::vector<HeaderLine>& header);

/// "2" or "10" for the words by which files name an observer; empty for others.
std::string_view observer_in(std::string_view text);
/// The illuminant that a text names, such as "D50", "A", "F11"; empty when it names none.
std::string_view illuminant_in(std::string_view text);

/// Words that stand for no value: "Unknown", "Not specified", "none", "-", only punctuation.
bool is_placeholder(std::string_view value);

/// Writes illuminant and observer so that the library reads what the file means.
void make_conditions_plain(Table& table);

}  // namespace measkit

#endif  // MEASDATA_KIT_PREFLIGHT_CONDITIONS_H
