// Device channels: what they are called, and what the library tells about them.
#include "api/measdata.h"
#include "kit/chart/gather.h"
#include "kit/preflight/device_columns.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <string_view>

namespace measkit {
namespace {

constexpr std::string_view kBlanks = " \t";

std::string_view trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// Apostrophes around a name are quotes; those inside belong to it.
std::string_view without_quotes(std::string_view name) {
  name = trimmed(name);
  const bool is_quoted = name.size() > 1 && name.front() == '\'' && name.back() == '\'';
  return is_quoted ? trimmed(name.substr(1, name.size() - 2)) : name;
}

std::string_view value_of(void* handle, const std::string& keyword) {
  const char* const value = get_value_of_keyword(handle, keyword.c_str());
  return value == nullptr ? std::string_view() : value;
}

// "Cyan" of "InkName = 'Cyan' LabFullToneColor = 56.2 -37.4 -44.9".
std::string_view ink_name_in(std::string_view value) {
  constexpr std::string_view kName = "InkName", kColour = "LabFullToneColor";
  const std::size_t sign = value.find('=');
  if (!trimmed(value).starts_with(kName) || sign == std::string_view::npos) return {};
  value.remove_prefix(sign + 1);
  return without_quotes(value.substr(0, value.find(kColour)));
}

// The names of the keywords LGOMCCHANNEL01, LGOMCCHANNEL02 and so on. One that holds no name is
// passed over, and the next names its channel.
std::vector<std::string> listed_names(void* handle) {
  constexpr int kMostChannels = 15;
  std::vector<std::string> names;
  for (int number = 1; number <= kMostChannels; ++number) {
    std::array<char, 32> keyword{};
    std::snprintf(keyword.data(), keyword.size(), "LGOMCCHANNEL%02d", number);
    if (has_keyword(handle, keyword.data()) != 1) break;
    const std::string_view name = ink_name_in(value_of(handle, keyword.data()));
    if (!name.empty()) names.emplace_back(name);
  }
  return names;
}

// "Cyan" of PROCESSCOLOR_ID "6 1 Cyan", which says that channel 1 of 6 is cyan.
std::string process_colour_name(const std::vector<HeaderLine>& header, std::size_t channels,
                                std::size_t channel) {
  const std::string start = std::to_string(channels) + " " + std::to_string(channel + 1) + " ";
  for (const HeaderLine& line : header) {
    if (line.keyword == "PROCESSCOLOR_ID" && line.value.starts_with(start)) {
      const std::string_view value = line.value;
      return std::string{without_quotes(value.substr(start.size()))};
    }
  }
  return {};
}

// The name that the kind of device gives, for channels that the file does not name.
std::string usual_name(const Chart& chart, void* handle, std::size_t channel) {
  constexpr std::array<const char*, 3> kLights = {"Red", "Green", "Blue"};
  if (chart.is_rgb) return kLights[std::min<std::size_t>(channel, 2)];
  if (chart.device_set == "GRAY") return "Gray";
  const char* const name = get_device_channel_name(handle, static_cast<int>(channel));
  if (name != nullptr && *name != '\0') return name;
  const std::string& field = chart.channels[channel].field;
  return field.empty() ? "Channel " + std::to_string(channel + 1) : field;
}

void name_channels(Chart& chart, void* handle, const std::vector<HeaderLine>& header) {
  const std::vector<std::string> listed = listed_names(handle);
  for (std::size_t c = 0; c < chart.channels.size(); ++c) {
    std::string& name = chart.channels[c].name;
    if (c < listed.size()) name = listed[c];
    const std::string keyword = "INK_NAME_" + std::to_string(c + 1);
    if (name.empty()) name = without_quotes(value_of(handle, keyword));
    if (name.empty()) name = process_colour_name(header, chart.channels.size(), c);
    if (name.empty()) name = usual_name(chart, handle, c);
  }
}

bool is_measured(std::span<const double> values) {
  return std::none_of(values.begin(), values.end(), [](double value) { return std::isnan(value); });
}

std::vector<std::size_t> wedge_of(const Chart& chart, void* handle, int channel) {
  const MergedPatches& merged = chart.merged;
  std::vector<std::size_t> wedge;
  for (int step = 0; step < num_wedge_steps(handle, channel); ++step) {
    const auto index = static_cast<std::size_t>(get_wedge_index(handle, channel, step));
    if (index >= merged.count || !is_measured(merged.device.row(index))) continue;
    if (merged.lab.empty() || is_measured(merged.lab.row(index))) wedge.push_back(index);
  }
  return wedge;
}

}  // namespace

void gather_channels(Chart& chart, void* handle, const std::vector<HeaderLine>& header) {
  chart.is_rgb = dev_is_rgb(handle) == 1;
  if (!chart.holds.device) return;
  chart.channels.resize(static_cast<std::size_t>(std::max(0, num_device_channels(handle))));
  double largest = 0.0;
  for (std::size_t c = 0; c < chart.channels.size(); ++c) {
    Channel& channel = chart.channels[c];
    const int number = static_cast<int>(c);
    for (int i = 0; i < num_distinct_dev_values(handle, number); ++i) {
      channel.distinct_values.push_back({get_distinct_dev_value(handle, number, i),
                                         get_distinct_dev_value_count(handle, number, i)});
      largest = std::max(largest, channel.distinct_values.back().value);
    }
    channel.wedge = wedge_of(chart, handle, number);
    const int solid = get_solid_index(handle, number);
    if (solid >= 0) channel.solid = static_cast<std::size_t>(solid);
  }
  if (chart.is_rgb) chart.full_scale = full_scale(largest);
  const int white = get_paperwhite_index(handle);
  if (white >= 0) chart.paper_white = static_cast<std::size_t>(white);
  name_channels(chart, handle, header);
}

}  // namespace measkit
