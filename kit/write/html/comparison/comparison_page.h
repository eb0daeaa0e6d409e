// Samples compared with a reference, as one HTML page that needs nothing else.
#ifndef MEASDATA_KIT_WRITE_HTML_COMPARISON_COMPARISON_PAGE_H
#define MEASDATA_KIT_WRITE_HTML_COMPARISON_COMPARISON_PAGE_H

#include "kit/compare/comparison.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace measkit::html {

/// A tolerance and what became of it.
struct VerdictLine {
  std::string figure;  ///< such as "all.de00.p95"
  double limit;
  std::optional<double> value;  ///< none when the charts have no such figure
  bool passed;
};

struct ComparedSample {
  const Comparison* comparison;
  std::vector<VerdictLine> verdicts;  ///< empty without tolerances
};

/// The page. All samples have the same reference and stand side by side, on the same scales. It
/// shows the first eight.
std::string comparison_page_of(std::span<const ComparedSample> samples);

}  // namespace measkit::html

#endif  // MEASDATA_KIT_WRITE_HTML_COMPARISON_COMPARISON_PAGE_H
