#include "dataset/build.h"

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

namespace vantor::DataSet {
namespace {

using MeasData::MeasFileParser;

// D50, 2 degrees, Table 5 whatever the file; only the grid is the file's.
void configure_conversion(Chart& chart) {
  PatchDataSet& patches = chart.all_patches;
  if (!patches.has_spectral) return;
  ColorTypes::Spectral::AstmParameters parameters;
  parameters.startNm = patches.spectral_start_nm;
  parameters.stepNm = patches.spectral_step_nm;
  parameters.sampleCount = patches.spectral_count;
  if (chart.converter.configure(parameters)) {
    patches.lab_conversion = &chart.converter;
  } else {
    // The converter keeps the weights of an earlier grid, which must not touch these spectra.
    patches.messages += "Note: no weighting table for this spectral range.\n";
  }
}

bool has_channels(const MeasFileParser& reader, const PatchDataSet& patches,
                  std::span<const std::string_view> names) {
  if (patches.device_fields.size() != names.size()) return false;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (reader.field_name(patches.device_fields[i]) != names[i]) return false;
  }
  return true;
}

// By the names of the fields: a semicolon table with four inks is not CMYK in this sense.
void set_device_flags(Chart& chart, const MeasFileParser& reader) {
  static constexpr std::array<std::string_view, 3> kCmy = {"CMY_C", "CMY_M", "CMY_Y"};
  static constexpr std::array<std::string_view, 3> kRgb = {"RGB_R", "RGB_G", "RGB_B"};
  static constexpr std::array<std::string_view, 4> kCmyk = {"CMYK_C", "CMYK_M", "CMYK_Y", "CMYK_K"};
  chart.dev_is_cmy = has_channels(reader, chart.all_patches, kCmy) ? 1 : 0;
  chart.dev_is_rgb = has_channels(reader, chart.all_patches, kRgb) ? 1 : 0;
  chart.dev_is_cmyk = has_channels(reader, chart.all_patches, kCmyk) ? 1 : 0;
}

}  // namespace

void build_chart(Chart& chart, const MeasFileParser& reader) {
  configure_conversion(chart);
  // Here belong, in this order: merging the repeats, paper white, distinct device values.
  set_device_flags(chart, reader);
  // Here belong, in this order: wedges, channel names, the keyword store.
}

}  // namespace vantor::DataSet
