#include "kit/write/html/numbers.h"
#include "kit/write/html/sections.h"

#include <algorithm>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace measkit::html {
namespace {

constexpr std::size_t kMostValues = 24;

std::string span_of(const DistinctValue& distinct) {
  return "<span>" + shortest(distinct.value) + "<small>\u00D7" +
         grouped(static_cast<std::size_t>(distinct.count)) + "</small></span> ";
}

// Every value, or the range and the values that most patches have.
std::string list_of(std::span<const DistinctValue> values) {
  if (values.size() <= kMostValues) {
    std::string html;
    for (const DistinctValue& value : values) html += span_of(value);
    return html;
  }
  constexpr std::size_t kMostFrequent = 8;
  std::vector<DistinctValue> frequent(values.begin(), values.end());
  std::ranges::stable_sort(frequent, std::ranges::greater(), &DistinctValue::count);
  std::string html =
      "from " + shortest(values.front().value) + " to " + shortest(values.back().value);
  if (frequent.front().count == 1) return html + ", each once";
  html += ", most often ";
  for (const DistinctValue& value : std::span(frequent).first(kMostFrequent)) {
    if (value.count > 1) html += span_of(value);
  }
  return html;
}

std::string values_of(const ChannelView& channel) {
  const std::size_t total = channel.distinct_values.size();
  return "<dt>" + (channel.colour.empty() ? "" : colour_field(channel.colour)) + channel.name +
         " <small>" + grouped(total) + (total == 1 ? " value" : " values") + "</small></dt>\n<dd>" +
         list_of(channel.distinct_values) + "</dd>\n";
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
