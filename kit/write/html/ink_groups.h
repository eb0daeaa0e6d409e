// Sorts patches by what they are printed or shown with.
#ifndef MEASDATA_KIT_WRITE_HTML_INK_GROUPS_H
#define MEASDATA_KIT_WRITE_HTML_INK_GROUPS_H

#include "kit/write/html/view.h"

#include <cstddef>
#include <string>
#include <vector>

namespace measkit::html {

struct InkGroup {
  std::string name;  ///< safe to stand in HTML
  std::vector<std::size_t> patches;
};

/// Inks: paper, each ink alone, mixtures. RGB: greys, each light alone, mixtures. Only groups with
/// patches among the first `patches`; a single one without a name when the chart has no device
/// values.
std::vector<InkGroup> ink_groups(const View& chart, std::size_t patches);

}  // namespace measkit::html

#endif  // MEASDATA_KIT_WRITE_HTML_INK_GROUPS_H
