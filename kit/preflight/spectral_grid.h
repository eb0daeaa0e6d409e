// Brings spectra to a grid that the library takes.
#ifndef MEASDATA_KIT_PREFLIGHT_SPECTRAL_GRID_H
#define MEASDATA_KIT_PREFLIGHT_SPECTRAL_GRID_H

#include "kit/preflight/table.h"

#include <cstddef>
#include <utility>
#include <vector>

namespace measkit {

/// Spectra on a grid that the library refuses, such as one of 3.33 nm, are averaged to 5 or 10 nm.
/// Where samples are too far apart for that, they are set aside; false then.
bool use_regular_grid(Table& table);

/// How the values of a new grid are made of the old ones.
class GridAverage {
 public:
  /// Each value at a multiple of `step` nm is the mean of the samples within `step` nm, with
  /// weights that fall linearly to 0 there. At the ends of the range the weights of the samples
  /// that exist count alone. `wavelengths` are in nm, ascending.
  GridAverage(const std::vector<double>& wavelengths, double step);

  std::size_t size() const { return rows_.size(); }
  double nm(std::size_t i) const { return rows_[i].nm; }
  /// The value at nm(i) of a spectrum, which `sample` gives by position.
  template <typename Sample>
  double value(std::size_t i, Sample sample) const {
    double sum = 0.0;
    for (const auto& [position, weight] : rows_[i].weights) sum += weight * sample(position);
    return sum;
  }

 private:
  struct Row {
    double nm;
    std::vector<std::pair<std::size_t, double>> weights;
  };
  std::vector<Row> rows_;
};

}  // namespace measkit

#endif  // MEASDATA_KIT_PREFLIGHT_SPECTRAL_GRID_H
