// The merged patches that everybody wants to see first.
#include "kit/chart/gather.h"

#include <array>
#include <cmath>
#include <utility>

namespace measkit {
namespace {

// Which RGB channels are at full, as bits from red up; none when one of them is neither at full nor
// at 0.
std::optional<std::size_t> full_channels(std::span<const double> rgb, double full_scale) {
  constexpr double kTolerance = 1e-6;  // of the scale
  std::size_t bits = 0;
  for (std::size_t channel = 0; channel < rgb.size(); ++channel) {
    if (rgb[channel] == 0.0) continue;
    const bool is_full =
        full_scale > 0.0 && std::abs(rgb[channel] - full_scale) <= kTolerance * full_scale;
    if (!is_full) return std::nullopt;
    bits |= std::size_t{1} << channel;
  }
  return bits;
}

struct Corner {
  std::size_t channels;  ///< at full, as bits from red up
  LandmarkKind kind;
  const char* name;
};
constexpr std::array<Corner, 8> kCorners = {{
    {7, LandmarkKind::white, "White"},
    {0, LandmarkKind::black, "Black"},
    {1, LandmarkKind::primary, "Red"},
    {2, LandmarkKind::primary, "Green"},
    {4, LandmarkKind::primary, "Blue"},
    {6, LandmarkKind::secondary, "Cyan"},
    {5, LandmarkKind::secondary, "Magenta"},
    {3, LandmarkKind::secondary, "Yellow"},
}};

void gather_rgb_landmarks(Chart& chart) {
  std::array<std::optional<std::size_t>, kCorners.size()> found;  // by full channels
  for (std::size_t index = 0; index < chart.merged.count; ++index) {
    const auto channels = full_channels(chart.merged.device.row(index), chart.full_scale);
    if (channels && !found[*channels]) found[*channels] = index;
  }
  for (const Corner& corner : kCorners) {
    if (!found[corner.channels]) continue;
    chart.landmarks.push_back({corner.kind, corner.name, *found[corner.channels]});
  }
  chart.paper_white = found[kCorners.front().channels];
  for (std::size_t channel = 0; channel < chart.channels.size(); ++channel) {
    chart.channels[channel].solid = found[std::size_t{1} << channel];
  }
}

}  // namespace

void gather_landmarks(Chart& chart) {
  if (chart.merged.count == 0 || chart.merged.device.empty()) return;
  if (chart.is_rgb) {
    gather_rgb_landmarks(chart);
    return;
  }
  if (chart.paper_white) {
    const char* const name = chart.quantity == Quantity::transmittance ? "Film" : "Paper";
    chart.landmarks.push_back({LandmarkKind::white, name, *chart.paper_white});
  }
  for (const Channel& channel : chart.channels) {
    if (channel.solid)
      chart.landmarks.push_back({LandmarkKind::solid, channel.name, *channel.solid});
  }
}

}  // namespace measkit
