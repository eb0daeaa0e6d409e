// Tells in a sentence what a text holds that no table can be made of, and what would help.
#ifndef MEASDATA_KIT_PREFLIGHT_UNREADABLE_TEXT_H
#define MEASDATA_KIT_PREFLIGHT_UNREADABLE_TEXT_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace measkit {

struct Refusal {
  std::string_view code;
  std::string sentence;
  std::size_t line = 0;
};

/// For files that are no tables of text at all: empty ones, XML, images, archives and so on.
std::optional<Refusal> refusal_of_kind(std::string_view text);

/// For tables whose columns nothing names.
Refusal refusal_without_names(std::string_view text);

}  // namespace measkit

#endif  // MEASDATA_KIT_PREFLIGHT_UNREADABLE_TEXT_H
