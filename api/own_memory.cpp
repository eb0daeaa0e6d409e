#include "api/own_memory.h"

#include <algorithm>
#include <functional>
#include <span>
#include <string>

namespace vantor::Api {
namespace {

using DataSet::PatchDataSet;

template <typename Element>
bool is_inside(std::span<const Element> range, const char* address) {
  const auto bytes = std::as_bytes(range);
  const auto* const byte = reinterpret_cast<const std::byte*>(address);
  const std::less<> is_before;
  return !is_before(byte, bytes.data()) && is_before(byte, bytes.data() + bytes.size());
}

bool is_in_texts(const PatchDataSet& patches, const char* address) {
  return is_inside<char>(patches.messages, address) ||
         is_inside(patches.sample_ids.bytes(), address) ||
         is_inside(patches.sample_locations.bytes(), address) ||
         is_inside(patches.sample_names.bytes(), address);
}

}  // namespace

bool is_own_memory(const ParserState& state, const char* address) {
  const DataSet::Chart& chart = state.chart;
  return is_in_texts(chart.all_patches, address) || is_in_texts(chart.unique_patches, address) ||
         is_inside(chart.all_patches.spectra.values(), address) ||
         is_inside(chart.unique_patches.spectra.values(), address) ||
         std::ranges::any_of(chart.channel_names, [address](const std::string& name) {
           return is_inside<char>(name, address);
         });
}

}  // namespace vantor::Api
