// The report on a measurement file, as text for a terminal.
#ifndef MEASDATA_TOOLS_TEXT_REPORT_H
#define MEASDATA_TOOLS_TEXT_REPORT_H

#include "tools/loaded_file.h"

#include <iosfwd>
#include <string>

namespace tools {

/// Prints the messages of a load, indented. Long lists are cut.
void print_messages(std::ostream& out, const std::string& messages);

/// Prints the contents of the file, with at most `most_patches` patches.
void print_report(std::ostream& out, const LoadedFile& file, int most_patches);

}  // namespace tools

#endif  // MEASDATA_TOOLS_TEXT_REPORT_H
