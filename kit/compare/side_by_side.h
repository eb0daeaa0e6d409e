// What to know of two charts before their figures.
#ifndef MEASDATA_KIT_COMPARE_SIDE_BY_SIDE_H
#define MEASDATA_KIT_COMPARE_SIDE_BY_SIDE_H

#include "kit/compare/comparison.h"
#include "kit/finding.h"

#include <string>
#include <vector>

namespace measkit {

/// How the charts were measured differently, and what their patches have against the matching.
/// `spectra_reason` says why spectra are not compared; it may be empty.
std::vector<Finding> findings_about(const Comparison& comparison, const Matching& matching,
                                    const std::string& spectra_reason);

}  // namespace measkit

#endif  // MEASDATA_KIT_COMPARE_SIDE_BY_SIDE_H
