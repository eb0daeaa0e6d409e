// Numbers of measurement files as numbers of JSON.
#ifndef MEASDATA_KIT_CONVERT_JSON_NUMBER_H
#define MEASDATA_KIT_CONVERT_JSON_NUMBER_H

#include <string_view>

namespace measkit {

/// Writes a decimal number as JSON spells it: no plus sign, no zeros in front, digits on both sides
/// of the point; at most two bytes more. Returns the end, or null for a text that is no number or
/// may be out of the range of a double.
char* write_json_number(std::string_view text, char* out);

}  // namespace measkit

#endif  // MEASDATA_KIT_CONVERT_JSON_NUMBER_H
