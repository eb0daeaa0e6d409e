#include "kit/write/html/numbers.h"
#include "kit/write/html/sections.h"

#include <algorithm>
#include <string>

namespace measkit::html {
namespace {

constexpr std::size_t kMostValues = 64;

std::string values_of(const ChannelView& channel) {
  const std::size_t total = channel.distinct_values.size();
  std::string html = "<dt>" + (channel.colour.empty() ? "" : colour_field(channel.colour)) +
                     channel.name + " <small>" + grouped(total) +
                     (total == 1 ? " value" : " values") + "</small></dt>\n<dd>";
  for (std::size_t i = 0; i < std::min(total, kMostValues); ++i) {
    const DistinctValue& distinct = channel.distinct_values[i];
    html += "<span>" + shortest(distinct.value) + "<small>\u00D7" +
            grouped(static_cast<std::size_t>(distinct.count)) + "</small></span> ";
  }
  if (total > kMostValues) html += "and " + grouped(total - kMostValues) + " more";
  return html + "</dd>\n";
}

std::string channels_of(const View& chart) {
  if (chart.channels.empty()) return "";
  std::string html = "<dl class=\"values\">\n";
  for (const ChannelView& channel : chart.channels) html += values_of(channel);
  return html + "</dl>\n";
}

}  // namespace

Section values_section(Views charts) {
  return section_of({"values", "Device values",
                     "The values that each channel takes, and how many patches have them.",
                     "No device values in this chart."},
                    charts, channels_of);
}

}  // namespace measkit::html
