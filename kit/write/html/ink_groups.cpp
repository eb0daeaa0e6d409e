#include "kit/write/html/ink_groups.h"

#include <algorithm>
#include <numeric>
#include <span>

namespace measkit::html {
namespace {

// 0 for paper or greys, 1 and on for a channel alone, the last for mixtures.
std::size_t group_of(const View& chart, std::span<const double> device) {
  const std::size_t mixtures = chart.channels.size() + 1;
  const bool is_grey = chart.is_rgb && std::ranges::all_of(device, [&](double value) {
                         return value == device.front();
                       });
  if (is_grey) return 0;
  std::size_t only = 0;
  const std::size_t channels = std::min(device.size(), chart.channels.size());
  for (std::size_t channel = 0; channel < channels; ++channel) {
    if (device[channel] == 0.0) continue;
    if (only != 0) return mixtures;
    only = channel + 1;
  }
  return only;
}

const char* name_of_first(const View& chart) {
  if (chart.is_rgb) return "Greys";
  return chart.quantity == Quantity::transmittance ? "Film" : "Paper";
}

}  // namespace

std::vector<InkGroup> ink_groups(const View& chart, std::size_t patches) {
  if (chart.channels.empty()) {
    InkGroup all;
    all.patches.resize(patches);
    std::iota(all.patches.begin(), all.patches.end(), std::size_t{0});
    return {all};
  }
  std::vector<InkGroup> groups = {{name_of_first(chart), {}}};
  for (const ChannelView& channel : chart.channels) groups.push_back({channel.name, {}});
  groups.push_back({"Mixtures", {}});
  for (std::size_t i = 0; i < patches; ++i) {
    groups[group_of(chart, chart.patches[i].device)].patches.push_back(i);
  }
  std::erase_if(groups, [](const InkGroup& group) { return group.patches.empty(); });
  return groups;
}

}  // namespace measkit::html
