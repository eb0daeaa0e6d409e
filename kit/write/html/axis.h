// The scale of a plot: a range that begins and ends at round numbers.
#ifndef MEASDATA_KIT_WRITE_HTML_AXIS_H
#define MEASDATA_KIT_WRITE_HTML_AXIS_H

#include <optional>
#include <string>
#include <vector>

namespace measkit::html {

struct Axis {
  double first = 0.0, last = 1.0;
  double step = 1.0;  ///< of the ticks
};

/// The smallest axis that contains both values, with at most `most_steps` steps of 1, 2 or 5 times
/// a power of ten.
Axis axis_over(double low, double high, int most_steps);

/// The ticks from the first to the last.
std::vector<double> ticks_of(const Axis& axis);

/// The label of a tick, with the decimals that the axis needs.
std::string tick_text(const Axis& axis, double tick);

/// The smallest and the largest of the values that can be drawn.
class Extent {
 public:
  void add(double value);
  bool is_empty() const { return !low_; }
  double low() const { return low_.value_or(0.0); }
  double high() const { return high_.value_or(0.0); }

 private:
  std::optional<double> low_, high_;
};

}  // namespace measkit::html

#endif  // MEASDATA_KIT_WRITE_HTML_AXIS_H
