// What is said of many differences at once.
#ifndef MEASDATA_KIT_COMPARE_FIGURES_H
#define MEASDATA_KIT_COMPARE_FIGURES_H

#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

namespace measkit {

struct Figures {
  std::size_t count = 0;
  double mean = 0.0;
  double median = 0.0;  ///< of an even count, the mean of the middle two
  double p90 = 0.0;     ///< the smallest value that at least 90 % of all do not exceed
  double p95 = 0.0;
  double max = 0.0;     ///< of signed values, the one with the largest magnitude
  double std = 0.0;     ///< standard deviation of a sample (count - 1); 0 for one value
  double best90 = 0.0;  ///< the mean of the smallest 90 %, at least one
};

/// Values that are not numbers do not count.
Figures figures_of(std::vector<double> values);

struct NamedFigure {
  std::string_view name;
  double Figures::*value;
};
inline constexpr std::array<NamedFigure, 7> kFigures = {{{"mean", &Figures::mean},
                                                         {"median", &Figures::median},
                                                         {"p90", &Figures::p90},
                                                         {"p95", &Figures::p95},
                                                         {"max", &Figures::max},
                                                         {"std", &Figures::std},
                                                         {"best90", &Figures::best90}}};

}  // namespace measkit

#endif  // MEASDATA_KIT_COMPARE_FIGURES_H
