// Reads charts back that the converter wrote as JSON or as CSV.
#ifndef MEASDATA_KIT_PREFLIGHT_CONVERTED_TEXT_H
#define MEASDATA_KIT_PREFLIGHT_CONVERTED_TEXT_H

#include "kit/preflight/table.h"

#include <optional>
#include <string_view>
#include <vector>

namespace measkit {

/// The values of "format" and "version" of such a JSON object.
inline constexpr std::string_view kJsonFormat = "measurement-charts";
inline constexpr int kJsonVersion = 1;

/// What the first line of such a CSV or TSV file begins with; the identifier follows. The header of
/// the measurement file stands below it, each line behind "# ".
inline constexpr std::string_view kDelimitedMark = "# Measurement data, fields of ";

/// None for a text that is no JSON object. An object of another kind has no tables, but a finding.
std::optional<std::vector<Table>> read_json(std::string_view text, Findings& findings);

/// None for a text that does not begin with the mark. `text` must outlive the table.
std::optional<Table> read_marked_csv(std::string_view text, Findings& findings);

}  // namespace measkit

#endif  // MEASDATA_KIT_PREFLIGHT_CONVERTED_TEXT_H
