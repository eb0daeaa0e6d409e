// Findings as a list, each with a sign for its severity.
#ifndef MEASDATA_KIT_WRITE_HTML_FINDINGS_LIST_H
#define MEASDATA_KIT_WRITE_HTML_FINDINGS_LIST_H

#include "kit/write/html/view.h"

#include <cstddef>
#include <span>
#include <string>

namespace measkit::html {

/// The first findings stand open, the rest behind a line to click at. Empty without findings.
std::string findings_list(std::span<const FindingView> findings, std::size_t not_listed);

}  // namespace measkit::html

#endif  // MEASDATA_KIT_WRITE_HTML_FINDINGS_LIST_H
