#include "dataset/build.h"

#include "dataset/channel_names.h"
#include "dataset/merge.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vantor::DataSet {
namespace {

using MeasData::MeasFileParser;
using Names = std::vector<std::string>;

// D50, 2 degrees, Table 5 whatever the file; only the grid is the file's. Where no table fits the
// grid, the file's own Lab goes before the second conversion.
void configure_conversion(Chart& chart) {
  PatchDataSet& patches = chart.all_patches;
  if (!patches.has_spectral) return;
  ColorTypes::Spectral::AstmParameters parameters;
  parameters.startNm = patches.spectral_start_nm;
  parameters.stepNm = patches.spectral_step_nm;
  parameters.sampleCount = patches.spectral_count;
  if (chart.converter.configure(parameters)) {
    patches.lab_conversion = &chart.converter;
    return;
  }
  patches.messages += "Note: no weighting table for this spectral range.\n";
  if (!patches.has_lab &&
      chart.fallback_converter.configure(patches.spectral_start_nm, patches.spectral_step_nm,
                                         patches.spectral_count)) {
    patches.lab_conversion = &chart.fallback_converter;
  }
}

void size_channel_lists(Chart& chart) {
  const std::size_t channels = chart.all_patches.device_fields.size();
  chart.wedges.resize(channels);
  chart.distinct_dev_values.resize(channels);
  chart.channel_names.resize(channels);
}

// By the names of the fields: a semicolon table with four inks is not CMYK in this sense.
DeviceFlags device_flags(const Names& field_names) {
  DeviceFlags flags;
  flags.is_cmy = field_names == Names{"CMY_C", "CMY_M", "CMY_Y"} ? 1 : 0;
  flags.is_rgb = field_names == Names{"RGB_R", "RGB_G", "RGB_B"} ? 1 : 0;
  flags.is_cmyk = field_names == Names{"CMYK_C", "CMYK_M", "CMYK_Y", "CMYK_K"} ? 1 : 0;
  return flags;
}

void analyse_merged_patches(Chart& chart) {
  const ColorTypes::ValueTable& values = chart.unique_patches.device_values;
  const bool is_consistent = has_consistent_device_values(chart.unique_patches);
  const std::vector<std::int32_t> rows =
      is_consistent ? rowsOfOneInk(values) : std::vector<std::int32_t>();
  const std::vector<std::int32_t> white = findPaperWhite(values, rows);
  chart.paper_white_index = white.size() == 1 ? white.front() : -1;
  for (std::size_t channel = 0; channel < chart.wedges.size(); ++channel) {
    chart.wedges[channel] = collectWedge(values, rows, channel, ColorTypes::ZeroSteps::skip);
  }
}

void count_distinct_values(Chart& chart) {
  const ColorTypes::ValueTable& values = chart.all_patches.device_values;
  const bool is_consistent = has_consistent_device_values(chart.all_patches);
  for (std::size_t channel = 0; channel < chart.distinct_dev_values.size(); ++channel) {
    chart.distinct_dev_values[channel] =
        is_consistent ? collectDistinctValues(values, channel) : ColorTypes::DistinctValues();
  }
}

void fill_keyword_store(Chart& chart) {
  const PatchDataSet& patches = chart.all_patches;
  const HeaderKeywords& header = patches.header_keywords;
  const std::vector<std::string>& weightings = patches.weighting_functions;
  const std::vector<std::string>& parameters = patches.computational_parameters;
  chart.keywords.add(header.size() + weightings.size() + parameters.size(), [&](std::size_t i) {
    if (i < header.size()) return Keyword{header.names.at(i), header.values.at(i)};
    i -= header.size();
    if (i < weightings.size()) return Keyword{"WEIGHTING_FUNCTION", weightings[i]};
    // With an S that the keyword of the file lacks: callers look it up under this name.
    return Keyword{"COMPUTATIONAL_PARAMETERS", parameters[i - weightings.size()]};
  });
}

}  // namespace

Names device_field_names(const PatchDataSet& patches, const MeasFileParser& reader) {
  Names names;
  for (const std::int32_t field : patches.device_fields) names.push_back(reader.field_name(field));
  return names;
}

bool build_chart(Chart& chart, const Names& field_names, const char* name) {
  configure_conversion(chart);
  merge_repeats(chart.all_patches, chart.unique_patches);
  size_channel_lists(chart);
  chart.device_flags = device_flags(field_names);
  analyse_merged_patches(chart);
  count_distinct_values(chart);
  ChannelNames names = build_channel_names(field_names, chart.all_patches.header_keywords, name);
  if (!names.failure.empty()) {
    chart.all_patches.messages.append(names.failure).append("\n");
    return false;
  }
  chart.channel_names = std::move(names.channel_names);
  fill_keyword_store(chart);
  return true;
}

}  // namespace vantor::DataSet
