#include "kit/chart/device_space.h"

#include "kit/preflight/device_columns.h"

#include <algorithm>
#include <cmath>

namespace measkit {
namespace {

std::ptrdiff_t count_not_zero(std::span<const double> device) {
  return std::ranges::count_if(device, [](double value) { return value != 0.0; });
}

}  // namespace

DeviceSpace::DeviceSpace(const Chart& chart)
    : is_rgb_(chart.is_rgb),
      is_cmy_(chart.device_set == "CMY"),
      is_cmyk_(chart.device_set == "CMYK"),
      full_(chart.full_scale) {
  if (is_rgb_) return;
  double largest = 0.0;
  for (const double value : chart.device.values()) largest = std::max(largest, value);
  full_ = full_scale(largest);
}

bool DeviceSpace::is_full(double value) const {
  constexpr double kTolerance = 1e-6;  // of the scale
  return full_ > 0.0 && std::abs(value - full_) <= kTolerance * full_;
}

bool DeviceSpace::is_paper(std::span<const double> device) const {
  if (is_rgb_) return std::ranges::all_of(device, [this](double value) { return is_full(value); });
  return count_not_zero(device) == 0;
}

bool DeviceSpace::is_wedge(std::span<const double> device) { return count_not_zero(device) == 1; }

bool DeviceSpace::is_solid(std::span<const double> device) const {
  return is_wedge(device) && is_full(*std::ranges::max_element(device));
}

bool DeviceSpace::is_overprint(std::span<const double> device) const {
  return count_not_zero(device) > 1 && !is_paper(device) &&
         std::ranges::all_of(device, [this](double value) { return is_at_end(value); });
}

bool DeviceSpace::is_surface(std::span<const double> device) const {
  const auto has_end = [this](std::span<const double> values) {
    return std::ranges::any_of(values, [this](double value) { return is_at_end(value); });
  };
  if (is_rgb_ || is_cmy_) return has_end(device);
  return is_cmyk_ && device[3] == 0.0 && has_end(device.first(3));
}

}  // namespace measkit
