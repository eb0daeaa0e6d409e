#include "kit/preflight/spreadsheet.h"

namespace measkit {

std::vector<Table> read_spreadsheet(std::string_view, Findings& findings) {
  findings.add(Severity::lost, "no-table", "No table was found.");
  return {};
}

}  // namespace measkit
