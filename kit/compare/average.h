// Several measurements of one chart as one.
#ifndef MEASDATA_KIT_COMPARE_AVERAGE_H
#define MEASDATA_KIT_COMPARE_AVERAGE_H

#include "kit/chart/chart.h"
#include "kit/compare/averaged_side.h"
#include "kit/compare/matching.h"
#include "kit/finding.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace measkit {

struct AverageOptions {
  std::optional<MatchBy> match;
  Averaging averaging = Averaging::mean;
  bool leaves_out_outliers = false;
};

struct AveragedChart {
  Chart chart;  ///< ids, names, locations, device values, Lab and spectra only
  std::vector<Finding> findings;
  std::string refusal;  ///< why there is no chart; empty when there is
};

/// One colour for each that the first chart holds, averaged over all repeats in all charts. Spectra
/// are averaged where all charts have them at the same wavelengths.
///
/// A measurement is an outlier when its distance from the median Lab of its colour is more than 3.5
/// times 1.4826 times the median of these distances (the median absolute deviation, scaled to the
/// standard deviation of a normal distribution) and more than 0.5. It takes four measurements to
/// tell one.
AveragedChart average_charts(std::span<const Chart* const> charts, const AverageOptions& options);

}  // namespace measkit

#endif  // MEASDATA_KIT_COMPARE_AVERAGE_H
