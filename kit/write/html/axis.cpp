#include "kit/write/html/axis.h"

#include "kit/write/html/numbers.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace measkit::html {
namespace {

// Rounding errors of a quotient must not add a step.
constexpr double kTolerance = 1.0e-9;

double steps_below(double value, double step) { return std::floor(value / step + kTolerance); }
double steps_above(double value, double step) { return std::ceil(value / step - kTolerance); }

}  // namespace

Axis axis_over(double low, double high, int most_steps) {
  if (!(high > low)) high = low + 1.0;
  auto exponent = static_cast<int>(std::floor(std::log10((high - low) / most_steps)));
  for (;; ++exponent) {
    for (const double digit : {1.0, 2.0, 5.0}) {
      const double step = digit * std::pow(10.0, exponent);
      const double first = steps_below(low, step);
      const double last = steps_above(high, step);
      if (last - first <= most_steps) return {first * step, last * step, step};
    }
  }
}

std::vector<double> ticks_of(const Axis& axis) {
  std::vector<double> ticks;
  const auto first = static_cast<std::int64_t>(steps_above(axis.first, axis.step));
  const auto last = static_cast<std::int64_t>(steps_below(axis.last, axis.step));
  for (std::int64_t i = first; i <= last; ++i) ticks.push_back(static_cast<double>(i) * axis.step);
  return ticks;
}

std::string tick_text(const Axis& axis, double tick) {
  const double decimals = std::ceil(-std::log10(axis.step) - kTolerance);
  return decimal(tick, static_cast<int>(std::max(decimals, 0.0)));
}

void Extent::add(double value) {
  if (!is_drawable(value)) return;
  low_ = std::min(low_.value_or(value), value);
  high_ = std::max(high_.value_or(value), value);
}

}  // namespace measkit::html
