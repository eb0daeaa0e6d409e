#include "tools/queries.h"

#include "measdata.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <limits>

namespace tools {
namespace {

constexpr double kUnset = std::numeric_limits<double>::quiet_NaN();

Text text_of(const char* text) { return text == nullptr ? Text() : Text(text); }

// The three numbers that a function of the library writes; none if it leaves the array untouched.
std::optional<Triple> triple_from(void (*get)(void*, int, double*), void* handle, int position) {
  constexpr double kMark = -1.0e300;  // no colour
  Triple values = {kMark, kMark, kMark};
  get(handle, position, values.data());
  if (values == Triple{kMark, kMark, kMark}) return std::nullopt;
  return values;
}

std::vector<double> device_from(void (*get)(void*, int, double*), void* handle, int position) {
  std::vector<double> values(static_cast<std::size_t>(num_device_channels(handle)), kUnset);
  get(handle, position, values.data());
  return values;
}

std::vector<double> spectrum_from(const double* spectrum, void* handle) {
  if (spectrum == nullptr) return {};
  return {spectrum, spectrum + spectral_size(handle)};
}

}  // namespace

Patch patch_at(void* handle, int patch) {
  return {get_id_from_patch(handle, patch),
          get_name_from_patch(handle, patch),
          get_loc_from_patch(handle, patch),
          device_from(get_dev_from_patch, handle, patch),
          triple_from(get_xyz_from_patch, handle, patch),
          triple_from(get_lab_from_patch, handle, patch),
          spectrum_from(get_spectrum_from_patch(handle, patch), handle)};
}

Patch merged_patch_at(void* handle, int index) {
  return {"",
          get_name_from_index(handle, index),
          "",
          device_from(get_dev_from_index, handle, index),
          std::nullopt,
          triple_from(get_lab_from_index, handle, index),
          spectrum_from(get_spectrum_from_index(handle, index), handle)};
}

std::optional<Repeats> repeats_at(void* handle, int index) {
  DeStats stats = {-1, 0.0, 0.0};
  get_de_stats_from_index(handle, index, &stats);
  if (stats.repeat_count < 0) return std::nullopt;
  Repeats repeats = {stats.repeat_count, stats.de_mean, stats.de_max};
  if (stats.de_max == -DBL_MAX) repeats.de_max.reset();
  return repeats;
}

std::vector<Channel> channels_of(void* handle) {
  std::vector<Channel> channels(static_cast<std::size_t>(num_device_channels(handle)));
  for (int c = 0; c < num_device_channels(handle); ++c) {
    Channel& channel = channels[static_cast<std::size_t>(c)];
    channel.name = text_of(get_device_channel_name(handle, c));
    for (int i = 0; i < num_distinct_dev_values(handle, c); ++i) {
      channel.distinct_values.push_back(
          {get_distinct_dev_value(handle, c, i), get_distinct_dev_value_count(handle, c, i)});
    }
    for (int step = 0; step < num_wedge_steps(handle, c); ++step) {
      channel.wedge.push_back(get_wedge_index(handle, c, step));
    }
    const int solid = get_solid_index(handle, c);
    if (solid >= 0) channel.solid = solid;
  }
  return channels;
}

std::string device_space_name(void* handle) {
  if (dev_is_cmyk(handle) == 1) return "CMYK";
  if (dev_is_cmy(handle) == 1) return "CMY";
  if (dev_is_rgb(handle) == 1) return "RGB";
  const int channels = num_device_channels(handle);
  return std::to_string(channels) + (channels == 1 ? " channel" : " channels");
}

Text hex_colour(const Triple& lab) {
  if (std::isnan(lab[0] + lab[1] + lab[2])) return std::nullopt;
  Triple rgb{};
  lab_to_srgb(lab.data(), rgb.data());
  const auto byte = [](double value) {
    return static_cast<unsigned>(std::lround(std::clamp(value, 0.0, 255.0))) & 0xFFU;
  };
  std::array<char, 8> text{};
  std::snprintf(text.data(), text.size(), "#%02X%02X%02X", byte(rgb[0]), byte(rgb[1]),
                byte(rgb[2]));
  return text.data();
}

std::span<const Question> instrument_questions() {
  static constexpr std::array<Question, 11> kQuestions = {{
      {"manufacturer", device_manufacturer},
      {"model", device_model},
      {"serial number", device_serial_number},
      {"geometry", device_geometry},
      {"filter", device_filter},
      {"polarization", device_polarization},
      {"illuminant", illuminant},
      {"observer", observer},
      {"density status", density_status},
      {"backing", sample_backing},
      {"source", device_measurement_source},
  }};
  return kQuestions;
}

std::span<const Question> sample_questions() {
  static constexpr std::array<Question, 7> kQuestions = {{
      {"manufacturer", sample_manufacturer},
      {"material", sample_material},
      {"colorant", sample_colorant},
      {"target type", sample_target_type},
      {"print conditions", sample_print_conditions},
      {"production date", sample_production_date},
      {"serial number", sample_serial_number},
  }};
  return kQuestions;
}

Text answer_to(const Question& question, void* handle) { return text_of(question.ask(handle)); }

}  // namespace tools
