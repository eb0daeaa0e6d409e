// How much the spectra of repeated patches scatter.
#ifndef MEASDATA_KIT_WRITE_HTML_REPEAT_BANDS_H
#define MEASDATA_KIT_WRITE_HTML_REPEAT_BANDS_H

#include "kit/write/html/view.h"

#include <cstddef>
#include <vector>

namespace measkit::html {

/// Mean and standard deviation of the readings of a patch, a number each band.
struct RepeatBand {
  std::size_t index;     ///< of the merged patch
  std::size_t readings;  ///< at least 2
  std::vector<double> mean, deviation;
};

/// Of all merged patches with several readings whose spectra are numbers, at most `most` of them,
/// those that scatter most first.
std::vector<RepeatBand> repeat_bands(const View& chart, std::size_t most);

/// The standard deviation of all repeats taken together, a number each band; empty without repeats.
std::vector<double> pooled_deviation(const View& chart);

}  // namespace measkit::html

#endif  // MEASDATA_KIT_WRITE_HTML_REPEAT_BANDS_H
