// What the device values of a patch say of its colour.
#ifndef MEASDATA_KIT_CHART_DEVICE_SPACE_H
#define MEASDATA_KIT_CHART_DEVICE_SPACE_H

#include "kit/chart/chart.h"

#include <span>

namespace measkit {

class DeviceSpace {
 public:
  explicit DeviceSpace(const Chart& chart);

  /// The value of a channel at full; 0 when the values do not tell.
  double full() const { return full_; }
  bool is_full(double value) const;

  /// Inks: no ink. RGB: all channels at full.
  bool is_paper(std::span<const double> device) const;
  /// One channel alone is not 0.
  static bool is_wedge(std::span<const double> device);
  /// One channel alone, at full: an ink or a primary.
  bool is_solid(std::span<const double> device) const;
  /// Two or more channels at full, the others at 0: inks over each other or a secondary.
  bool is_overprint(std::span<const double> device) const;
  /// On the surface of the device space. RGB and CMY: a channel at either end. CMYK: no black, and
  /// one of the others at either end. No colour of other devices is.
  bool is_surface(std::span<const double> device) const;

 private:
  bool is_at_end(double value) const { return value == 0.0 || is_full(value); }

  bool is_rgb_, is_cmy_, is_cmyk_;
  double full_;
};

}  // namespace measkit

#endif  // MEASDATA_KIT_CHART_DEVICE_SPACE_H
