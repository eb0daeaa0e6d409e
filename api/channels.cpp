// Names, values, wedges and solids of the device channels.
#include "api/measdata.h"
#include "api/parser_state.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

using vantor::Api::is_position;
using vantor::Api::state_of;
using vantor::ColorTypes::DistinctValues;
using vantor::DataSet::Chart;

namespace {

// The element of `lists` for a device channel of the handle's file, null when there is none.
template <typename List>
const List* list_of(void* handle, int channel, std::vector<List> Chart::*lists) {
  if (handle == nullptr) return nullptr;
  const Chart& chart = state_of(handle)->chart;
  if (!is_position(channel, chart.all_patches.device_fields.size()) ||
      !is_position(channel, (chart.*lists).size())) {
    return nullptr;
  }
  return &(chart.*lists)[static_cast<std::size_t>(channel)];
}

const DistinctValues* distinct_values_with(void* handle, int channel, int i) {
  const DistinctValues* distinct = list_of(handle, channel, &Chart::distinct_dev_values);
  return distinct != nullptr && is_position(i, distinct->values.size()) ? distinct : nullptr;
}

}  // namespace

const char* get_device_channel_name(void* handle, int channel) noexcept {
  const std::string* name = list_of(handle, channel, &Chart::channel_names);
  return name == nullptr || name->empty() ? nullptr : name->c_str();
}

int num_distinct_dev_values(void* handle, int channel) noexcept {
  const DistinctValues* distinct = list_of(handle, channel, &Chart::distinct_dev_values);
  return distinct == nullptr ? 0 : static_cast<int>(distinct->values.size());
}

double get_distinct_dev_value(void* handle, int channel, int i) noexcept {
  const DistinctValues* distinct = distinct_values_with(handle, channel, i);
  return distinct == nullptr ? 0.0 : distinct->values[static_cast<std::size_t>(i)];
}

int get_distinct_dev_value_count(void* handle, int channel, int i) noexcept {
  const DistinctValues* distinct = distinct_values_with(handle, channel, i);
  return distinct == nullptr ? 0 : distinct->counts[static_cast<std::size_t>(i)];
}

int num_wedge_steps(void* handle, int channel) noexcept {
  if (handle == nullptr) return -1;
  const std::vector<std::int32_t>* wedge = list_of(handle, channel, &Chart::wedges);
  return wedge == nullptr ? 0 : static_cast<int>(wedge->size());
}

int get_wedge_index(void* handle, int channel, int step) noexcept {
  if (handle == nullptr) return -1;
  const std::vector<std::int32_t>* wedge = list_of(handle, channel, &Chart::wedges);
  if (wedge == nullptr || !is_position(step, wedge->size())) return 0;
  return (*wedge)[static_cast<std::size_t>(step)];
}

int get_solid_index(void* handle, int channel) noexcept {
  const std::vector<std::int32_t>* wedge = list_of(handle, channel, &Chart::wedges);
  if (wedge == nullptr || wedge->empty()) return -1;
  const auto& device_values = state_of(handle)->chart.unique_patches.device_values;
  const double value =
      device_values.row(static_cast<std::size_t>(wedge->back()))[static_cast<std::size_t>(channel)];
  return value == 100.0 ? wedge->back() : -1;
}
