#include "tests/support/questions.h"

#include "api/measdata.h"

#include <algorithm>
#include <climits>
#include <memory>
#include <string_view>
#include <vector>

namespace test {
namespace {

// The sum of all answers' bytes.
class Answers {
 public:
  void read(const char* text) {
    if (text != nullptr) sum_ += std::string_view(text).size();
  }
  void read(const double* values, int count) {
    for (int i = 0; values != nullptr && i < count; ++i) sum_ += values[i] > 0.0 ? 1 : 0;
  }
  void read(double number) { read(&number, 1); }
  void read(int number) { sum_ += static_cast<std::size_t>(number != 0); }
  std::size_t sum() const { return sum_; }

 private:
  std::size_t sum_ = 0;
};

// The first and the last positions of `count`, and some that do not exist.
std::vector<int> positions(int count) {
  std::vector<int> result = {INT_MIN, -1, count, INT_MAX};
  for (int i = 0; i < std::min(count, 12); ++i) result.push_back(i);
  if (count > 12) result.insert(result.end(), {count - 2, count - 1});
  return result;
}

// An array of the caller of exactly this many numbers.
class Array {
 public:
  explicit Array(int count)
      : count_(count), values_(new double[static_cast<std::size_t>(count)]()) {}
  double* data() { return values_.get(); }
  void read_into(Answers& answers) const { answers.read(values_.get(), count_); }

 private:
  int count_;
  std::unique_ptr<double[]> values_;
};

void ask_about_patches(void* data, Answers& answers) {
  for (const auto question :
       {has_device_data, has_xyz_data, has_lab_data, has_lch_data, has_spectral_data,
        has_color_data, has_sample_id_data, has_sample_loc_data, has_sample_name_data}) {
    answers.read(question(data));
  }
  for (const auto question : {spectral_start, spectral_end, spectral_step}) {
    answers.read(question(data));
  }
  Array device(num_device_channels(data));
  Array color(3);
  for (const int patch : positions(num_patches(data))) {
    answers.read(get_id_from_patch(data, patch));
    answers.read(get_loc_from_patch(data, patch));
    answers.read(get_name_from_patch(data, patch));
    get_dev_from_patch(data, patch, device.data());
    device.read_into(answers);
    get_xyz_from_patch(data, patch, color.data());
    get_lab_from_patch(data, patch, color.data());
    lab_to_srgb(color.data(), color.data());
    color.read_into(answers);
    answers.read(get_spectrum_from_patch(data, patch), spectral_size(data));
  }
}

void ask_about_indices(void* handle, Answers& answers) {
  Array device(num_device_channels(handle));
  Array lab(3);
  DeStats stats = {};
  for (const int index : positions(num_indices(handle))) {
    answers.read(get_name_from_index(handle, index));
    get_dev_from_index(handle, index, device.data());
    device.read_into(answers);
    get_lab_from_index(handle, index, lab.data());
    lab.read_into(answers);
    get_de_stats_from_index(handle, index, &stats);
    answers.read(stats.repeat_count);
    answers.read(stats.de_mean + stats.de_max);
    answers.read(get_spectrum_from_index(handle, index), spectral_size(handle));
  }
  answers.read(get_paperwhite_index(handle));
}

void ask_about_channels(void* handle, Answers& answers) {
  for (const auto question : {dev_is_cmyk, dev_is_cmy, dev_is_rgb}) {
    answers.read(question(handle));
  }
  for (const int channel : positions(num_device_channels(handle))) {
    answers.read(get_device_channel_name(handle, channel));
    answers.read(get_solid_index(handle, channel));
    for (const int i : positions(num_distinct_dev_values(handle, channel))) {
      answers.read(get_distinct_dev_value_count(handle, channel, i));
      answers.read(get_distinct_dev_value(handle, channel, i));
    }
    for (const int step : positions(num_wedge_steps(handle, channel))) {
      answers.read(get_wedge_index(handle, channel, step));
    }
  }
}

void ask_about_keyword(void* handle, const char* name, Answers& answers) {
  answers.read(name);
  answers.read(has_keyword(handle, name));
  answers.read(get_value_of_keyword(handle, name));
  for (const int i : positions(num_keyword_values(handle, name))) {
    answers.read(get_ith_value_of_keyword(handle, i, name));
  }
}

void ask_about_texts(void* handle, Answers& answers) {
  for (const auto question : {device_manufacturer,
                              device_model,
                              device_serial_number,
                              device_geometry,
                              device_filter,
                              device_polarization,
                              device_measurement_source,
                              density_status,
                              illuminant,
                              observer,
                              sample_backing,
                              sample_colorant,
                              sample_manufacturer,
                              sample_material,
                              sample_print_conditions,
                              sample_production_date,
                              sample_serial_number,
                              sample_target_type,
                              copyright,
                              parse_messages}) {
    answers.read(question(handle));
  }
  for (const int i : positions(num_keywords(handle))) {
    ask_about_keyword(handle, get_keyword(handle, i), answers);
    answers.read(get_value(handle, i));
  }
  for (const char* name : {"", "NO_SUCH_KEYWORD", "WEIGHTING_FUNCTION"}) {
    ask_about_keyword(handle, name, answers);
  }
}

}  // namespace

std::size_t ask_everything(void* handle) {
  Answers answers;
  ask_about_patches(handle, answers);
  ask_about_patches(pass_unique_data(handle), answers);
  ask_about_indices(handle, answers);
  ask_about_channels(handle, answers);
  ask_about_texts(handle, answers);
  return answers.sum();
}

}  // namespace test
