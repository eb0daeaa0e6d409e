#include "tests/support/answers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <climits>
#include <span>

namespace test {
namespace {

template <typename Function>
struct Question {
  const char* name;
  Function ask;
};
using Count = Question<int (*)(void*)>;
using Measure = Question<double (*)(void*)>;
using Text = Question<const char* (*)(void*)>;
using TextAt = Question<const char* (*)(void*, int)>;
using FillAt = Question<void (*)(void*, int, double*)>;
using ValuesAt = Question<const double* (*)(void*, int)>;
using CountAt = Question<int (*)(void*, int)>;

#define MEASDATA_QUESTION(name) \
  { #name, library.name }

class Lines {
 public:
  explicit Lines(std::string& out) : out_(out) {}

  template <typename Value>
  void write(const char* question, Value value) {
    put(question, ": ", value, "\n");
  }
  template <typename Value>
  void write(const char* question, int position, Value value) {
    put(question, "(", position, "): ", value, "\n");
  }
  void write(const char* question, int position, std::span<const double> values) {
    put(question, "(", position, "):");
    for (const double value : values) put(" ", value);
    put("\n");
  }

 private:
  template <typename... Values>
  void put(Values... values) {
    (add(values), ...);
  }
  void add(const char* text) { out_ += text == nullptr ? "(null)" : text; }
  template <typename Number>
  void add(Number number) {
    std::array<char, 40> digits = {};
    const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    out_.append(digits.data(), result.ptr);
  }

  std::string& out_;
};

// The first and the last positions of `count`, and some that do not exist.
class Positions {
 public:
  explicit Positions(int count) {
    for (const int bad : {INT_MIN, -1, count, INT_MAX}) add(bad);
    for (int i = 0; i < std::min(count, kFirst); ++i) add(i);
    for (int i = std::max(count - kLast, kFirst); i < count; ++i) add(i);
  }
  const int* begin() const { return positions_.data(); }
  const int* end() const { return positions_.data() + size_; }

 private:
  static constexpr int kFirst = 12, kLast = 2;

  void add(int position) { positions_[size_++] = position; }

  std::array<int, 4 + kFirst + kLast> positions_ = {};
  std::size_t size_ = 0;
};

// Lies at the end of its memory, so that a sanitizer sees a step beyond.
class Array {
 public:
  explicit Array(int count) : values_(std::span(memory_).last(static_cast<std::size_t>(count))) {}
  double* data() { return values_.data(); }
  std::span<const double> values() const { return values_; }

 private:
  std::array<double, 15> memory_ = {};
  std::span<double> values_;
};

// What both the patches and the merged patches answer.
void write_data_set(const Interface& library, void* data_set, Lines& lines) {
  for (const Count& count : {
           Count MEASDATA_QUESTION(num_patches),
           MEASDATA_QUESTION(num_device_channels),
           MEASDATA_QUESTION(has_device_data),
           MEASDATA_QUESTION(has_xyz_data),
           MEASDATA_QUESTION(has_lab_data),
           MEASDATA_QUESTION(has_lch_data),
           MEASDATA_QUESTION(has_spectral_data),
           MEASDATA_QUESTION(has_color_data),
           MEASDATA_QUESTION(has_sample_id_data),
           MEASDATA_QUESTION(has_sample_loc_data),
           MEASDATA_QUESTION(has_sample_name_data),
           MEASDATA_QUESTION(spectral_size),
       }) {
    lines.write(count.name, count.ask(data_set));
  }
  for (const Measure& measure : {
           Measure MEASDATA_QUESTION(spectral_start),
           MEASDATA_QUESTION(spectral_end),
           MEASDATA_QUESTION(spectral_step),
       }) {
    lines.write(measure.name, measure.ask(data_set));
  }
  const auto bands = static_cast<std::size_t>(library.spectral_size(data_set));
  for (const int patch : Positions(library.num_patches(data_set))) {
    for (const TextAt& text : {
             TextAt MEASDATA_QUESTION(get_id_from_patch),
             MEASDATA_QUESTION(get_loc_from_patch),
             MEASDATA_QUESTION(get_name_from_patch),
         }) {
      lines.write(text.name, patch, text.ask(data_set, patch));
    }
    Array device(library.num_device_channels(data_set));
    library.get_dev_from_patch(data_set, patch, device.data());
    lines.write("get_dev_from_patch", patch, device.values());
    for (const FillAt& fill : {
             FillAt MEASDATA_QUESTION(get_xyz_from_patch),
             MEASDATA_QUESTION(get_lab_from_patch),
         }) {
      Array color(3);
      fill.ask(data_set, patch, color.data());
      lines.write(fill.name, patch, color.values());
      library.lab_to_srgb(color.data(), color.data());
      lines.write("lab_to_srgb", patch, color.values());
    }
    const double* spectrum = library.get_spectrum_from_patch(data_set, patch);
    lines.write("get_spectrum_from_patch", patch,
                std::span(spectrum, spectrum == nullptr ? 0 : bands));
  }
}

void write_merged_patches(const Interface& library, void* handle, Lines& lines) {
  const auto bands = static_cast<std::size_t>(library.spectral_size(handle));
  for (const int index : Positions(library.num_indices(handle))) {
    lines.write("get_name_from_index", index, library.get_name_from_index(handle, index));
    Array device(library.num_device_channels(handle)), lab(3);
    library.get_dev_from_index(handle, index, device.data());
    lines.write("get_dev_from_index", index, device.values());
    library.get_lab_from_index(handle, index, lab.data());
    lines.write("get_lab_from_index", index, lab.values());
    DeStats stats = {};
    library.get_de_stats_from_index(handle, index, &stats);
    lines.write("repeat_count", index, stats.repeat_count);
    lines.write("de_mean", index, stats.de_mean);
    lines.write("de_max", index, stats.de_max);
    const double* spectrum = library.get_spectrum_from_index(handle, index);
    lines.write("get_spectrum_from_index", index,
                std::span(spectrum, spectrum == nullptr ? 0 : bands));
  }
}

void write_channels(const Interface& library, void* handle, Lines& lines) {
  for (const int channel : Positions(library.num_device_channels(handle))) {
    lines.write("get_device_channel_name", channel,
                library.get_device_channel_name(handle, channel));
    for (const CountAt& count : {
             CountAt MEASDATA_QUESTION(num_distinct_dev_values),
             MEASDATA_QUESTION(num_wedge_steps),
             MEASDATA_QUESTION(get_solid_index),
         }) {
      lines.write(count.name, channel, count.ask(handle, channel));
    }
    for (const int i : Positions(library.num_distinct_dev_values(handle, channel))) {
      lines.write("get_distinct_dev_value", i, library.get_distinct_dev_value(handle, channel, i));
      lines.write("get_distinct_dev_value_count", i,
                  library.get_distinct_dev_value_count(handle, channel, i));
    }
    for (const int step : Positions(library.num_wedge_steps(handle, channel))) {
      lines.write("get_wedge_index", step, library.get_wedge_index(handle, channel, step));
    }
  }
}

void write_keyword(const Interface& library, void* handle, const char* name, Lines& lines) {
  lines.write("has_keyword", library.has_keyword(handle, name));
  lines.write("get_value_of_keyword", library.get_value_of_keyword(handle, name));
  for (const int i : Positions(library.num_keyword_values(handle, name))) {
    lines.write("get_ith_value_of_keyword", i, library.get_ith_value_of_keyword(handle, i, name));
  }
}

void write_keywords(const Interface& library, void* handle, Lines& lines) {
  for (const int i : Positions(library.num_keywords(handle))) {
    const char* name = library.get_keyword(handle, i);
    lines.write("get_keyword", i, name);
    lines.write("get_value", i, library.get_value(handle, i));
    write_keyword(library, handle, name, lines);
  }
  for (const char* name : {"", "NO_SUCH_KEYWORD", "WEIGHTING_FUNCTION"}) {
    write_keyword(library, handle, name, lines);
  }
}

}  // namespace

void write_answers(const Interface& library, void* handle, std::string& out) {
  Lines lines(out);
  for (const Text& text : {
           Text MEASDATA_QUESTION(parse_messages),
           MEASDATA_QUESTION(copyright),
           MEASDATA_QUESTION(device_manufacturer),
           MEASDATA_QUESTION(device_model),
           MEASDATA_QUESTION(device_serial_number),
           MEASDATA_QUESTION(device_geometry),
           MEASDATA_QUESTION(device_filter),
           MEASDATA_QUESTION(device_polarization),
           MEASDATA_QUESTION(device_measurement_source),
           MEASDATA_QUESTION(density_status),
           MEASDATA_QUESTION(illuminant),
           MEASDATA_QUESTION(observer),
           MEASDATA_QUESTION(sample_backing),
           MEASDATA_QUESTION(sample_colorant),
           MEASDATA_QUESTION(sample_manufacturer),
           MEASDATA_QUESTION(sample_material),
           MEASDATA_QUESTION(sample_print_conditions),
           MEASDATA_QUESTION(sample_production_date),
           MEASDATA_QUESTION(sample_serial_number),
           MEASDATA_QUESTION(sample_target_type),
       }) {
    lines.write(text.name, text.ask(handle));
  }
  for (const Count& count : {
           Count MEASDATA_QUESTION(dev_is_cmyk),
           MEASDATA_QUESTION(dev_is_cmy),
           MEASDATA_QUESTION(dev_is_rgb),
           MEASDATA_QUESTION(get_parse_mode),
           MEASDATA_QUESTION(num_indices),
           MEASDATA_QUESTION(get_paperwhite_index),
           MEASDATA_QUESTION(num_keywords),
       }) {
    lines.write(count.name, count.ask(handle));
  }
  lines.write("parser_version", library.parser_version());
  write_data_set(library, handle, lines);
  lines.write("merged patches", "");
  write_data_set(library, library.pass_unique_data(handle), lines);
  write_merged_patches(library, handle, lines);
  write_channels(library, handle, lines);
  write_keywords(library, handle, lines);
}

}  // namespace test
