// The report on a measurement file, as JSON.
#ifndef MEASDATA_TOOLS_JSON_REPORT_H
#define MEASDATA_TOOLS_JSON_REPORT_H

#include <string>
#include <vector>

namespace tools {

/// Valid JSON in UTF-8: an array with all that the library answers about each file. Text that is
/// not UTF-8 is taken for Latin-1; numbers that are none are null. `failures` receives the number
/// of files that could not be read, which say so in "messages".
std::string json_report(const std::vector<std::string>& paths, int& failures);

}  // namespace tools

#endif  // MEASDATA_TOOLS_JSON_REPORT_H
