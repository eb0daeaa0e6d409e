// The report on a measurement file, as JSON.
#ifndef MEASDATA_TOOLS_JSON_REPORT_H
#define MEASDATA_TOOLS_JSON_REPORT_H

#include <string>
#include <vector>

namespace tools {

/// Returns valid JSON in UTF-8: an array with one object for each file. Text that is not UTF-8 is
/// read as Latin-1; infinities and not-a-number become null. `failures` receives the number of
/// files that could not be read; their objects contain the messages.
std::string json_report(const std::vector<std::string>& paths, int& failures);

}  // namespace tools

#endif  // MEASDATA_TOOLS_JSON_REPORT_H
