// Comparisons as JSON.
#ifndef MEASDATA_KIT_WRITE_COMPARISON_JSON_H
#define MEASDATA_KIT_WRITE_COMPARISON_JSON_H

#include "kit/compare/tolerances.h"

#include <span>
#include <string>

namespace measkit {

/// One comparison: an object with all figures and colours. Several: an object with the list
/// "samples" of such objects.
std::string comparison_json_of(std::span<const JudgedComparison> samples);

}  // namespace measkit

#endif  // MEASDATA_KIT_WRITE_COMPARISON_JSON_H
