// Makes charts for tests and tells what they hold.
#ifndef MEASDATA_TESTS_API_CHARTS_H
#define MEASDATA_TESTS_API_CHARTS_H

#include "tests/support/loaded.h"

#include <sstream>
#include <string>

namespace test {

/// The regular wavelengths of a file.
struct Bands {
  int start, step, count;
};

inline std::string fields_of(const Bands& bands) {
  return numbered("nm", bands.start, bands.step, bands.count);
}

/// " word word ... word"
inline std::string repeated(const std::string& word, int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += " " + word;
  return text;
}

/// One patch whose spectrum has the same value everywhere.
inline std::string flat_spectrum(const Bands& bands, const std::string& value,
                                 const std::string& fields = "", const std::string& values = "") {
  return file_of(fields + " " + fields_of(bands), values + repeated(value, bands.count) + "\n");
}

/// What a data set says it holds, then its wavelengths.
inline std::string contents(void* data_set) {
  const struct {
    int (*holds)(void*);
    const char* name;
  } kinds[] = {{has_device_data, "device "},     {has_xyz_data, "xyz "},
               {has_lab_data, "lab "},           {has_lch_data, "lch "},
               {has_spectral_data, "spectral "}, {has_color_data, "color "},
               {has_sample_id_data, "id "},      {has_sample_loc_data, "loc "},
               {has_sample_name_data, "name "}};
  std::ostringstream text;
  for (const auto& kind : kinds) text << (kind.holds(data_set) == 1 ? kind.name : "");
  text << spectral_start(data_set) << '-' << spectral_end(data_set) << '/'
       << spectral_step(data_set) << " x" << spectral_size(data_set);
  return text.str();
}

/// The answers about CMYK, CMY and RGB.
inline std::string color_model(void* handle) {
  return std::to_string(dev_is_cmyk(handle)) + std::to_string(dev_is_cmy(handle)) +
         std::to_string(dev_is_rgb(handle));
}

/// What is known of a channel: its name, the indices of its wedge, its solid, its values.
inline std::string channel(void* handle, int channel) {
  std::ostringstream text;
  const char* name = get_device_channel_name(handle, channel);
  text << (name == nullptr ? "-" : name) << " wedge";
  for (int step = 0; step < num_wedge_steps(handle, channel); ++step) {
    text << ' ' << get_wedge_index(handle, channel, step);
  }
  text << " solid " << get_solid_index(handle, channel) << " values";
  for (int i = 0; i < num_distinct_dev_values(handle, channel); ++i) {
    text << ' ' << get_distinct_dev_value(handle, channel, i) << 'x'
         << get_distinct_dev_value_count(handle, channel, i);
  }
  return text.str();
}

}  // namespace test

#endif  // MEASDATA_TESTS_API_CHARTS_H
