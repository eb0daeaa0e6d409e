// The forms that a chart is written in.
#ifndef MEASDATA_KIT_CONVERT_FORM_H
#define MEASDATA_KIT_CONVERT_FORM_H

#include <optional>
#include <string>
#include <string_view>

namespace measkit {

enum class Form {
  iso28178,
  cgats,
  seven_characters,  ///< the text form of old programs
  csv,
  tsv,
  json,
  json_lines,
  cxf,
  ti3,
};

/// The form with a name such as "cgats" or "jsonl".
std::optional<Form> form_named(std::string_view name);
/// The form that the ending of a file name means, in small or capital letters.
std::optional<Form> form_of_ending(std::string_view path);
/// The usual ending, such as ".csv".
std::string_view ending_of(Form form);
/// All names, for sentences.
std::string form_names();

}  // namespace measkit

#endif  // MEASDATA_KIT_CONVERT_FORM_H
