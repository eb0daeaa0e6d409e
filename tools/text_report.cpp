#include "tools/text_report.h"

#include "tools/printable_text.h"
#include "tools/queries.h"
#include "tools/text_table.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <optional>
#include <ostream>
#include <span>
#include <sstream>
#include <string_view>
#include <vector>

namespace tools {
namespace {

constexpr int kMostMessages = 20;
constexpr std::size_t kMostValues = 24;

std::string number(const char* format, double value) {
  std::array<char, 400> text{};  // the longest double has 309 digits before the point
  const int length = std::snprintf(text.data(), text.size(), format, value);
  return {text.data(), std::min(static_cast<std::size_t>(std::max(length, 0)), text.size() - 1)};
}

void print_line(std::ostream& out, std::string_view label, std::string_view text) {
  constexpr std::size_t kWidth = 18;
  out << "  " << label << std::string(kWidth - std::min(kWidth - 1, label.size()), ' ') << text
      << '\n';
}

std::string contents_of(void* handle) {
  std::string text;
  const auto append = [&text](int is_held, std::string_view name) {
    if (is_held != 1) return;
    if (!text.empty()) text += ", ";
    text += name;
  };
  append(has_device_data(handle), "device values");
  append(has_xyz_data(handle), "XYZ");
  append(has_lab_data(handle), "Lab");
  append(has_lch_data(handle), "LCh");
  append(has_spectral_data(handle), "spectra");
  append(has_sample_id_data(handle), "sample ids");
  append(has_sample_name_data(handle), "sample names");
  append(has_sample_loc_data(handle), "sample locations");
  return text.empty() ? "nothing that is known" : text;
}

std::string spectral_range(void* handle) {
  return number("%g", spectral_start(handle)) + " to " + number("%g", spectral_end(handle)) +
         " nm by " + number("%g", spectral_step(handle)) + " nm, " +
         std::to_string(spectral_size(handle)) + " values";
}

std::string lab_text(const Triple& lab) {
  return "Lab " + number("%.2f", lab[0]) + " " + number("%.2f", lab[1]) + " " +
         number("%.2f", lab[2]);
}

// A merged patch by its index, with its colour.
std::string index_text(void* handle, int index) {
  const std::optional<Triple> lab = merged_patch_at(handle, index).lab;
  return "index " + std::to_string(index) + (lab ? ", " + lab_text(*lab) : "");
}

// How many patches repeat, and how well the worst of them does.
std::string repeats_text(void* handle) {
  int repeated = 0;
  int worst = -1;
  double largest = 0.0;
  for (int index = 0; index < num_indices(handle); ++index) {
    const std::optional<Repeats> repeats = repeats_at(handle, index);
    if (!repeats || repeats->count < 2) continue;
    ++repeated;
    if (worst == -1 || repeats->de_max.value_or(0.0) > largest) {
      worst = index;
      largest = repeats->de_max.value_or(0.0);
    }
  }
  if (repeated == 0) return "none";
  return std::to_string(repeated) + (repeated == 1 ? " patch" : " patches") + "; largest Delta E " +
         number("%.2f", largest) + " at index " + std::to_string(worst);
}

void print_answers(std::ostream& out, void* handle, std::string_view title,
                   std::span<const Question> questions) {
  bool is_first = true;
  for (const Question& question : questions) {
    const Text answer = answer_to(question, handle);
    if (!answer) continue;
    if (is_first) out << '\n' << title << '\n';
    is_first = false;
    print_line(out, question.name, printable(*answer));
  }
}

void print_keywords(std::ostream& out, void* handle) {
  if (num_keywords(handle) == 0) return;
  TextTable table;
  table.add_column("keyword", Align::left);
  table.add_column("value", Align::left);
  for (int i = 0; i < num_keywords(handle); ++i) {
    table.add(printable(get_keyword(handle, i)));
    table.add(printable(get_value(handle, i)));
  }
  out << "\nkeywords\n";
  table.print(out, 2);
}

// The values that a wedge takes in its channel, or the distinct values of all patches.
template <typename Values, typename TextOf>
void print_list(std::ostream& out, std::string_view label, const Values& values, TextOf text_of) {
  if (values.empty()) return;
  std::string text;
  for (std::size_t i = 0; i < std::min(values.size(), kMostValues); ++i) {
    text += (i == 0 ? "" : " ") + text_of(values[i]);
  }
  if (values.size() > kMostValues) {
    text += " ... and " + std::to_string(values.size() - kMostValues) + " more";
  }
  print_line(out, label, text);
}

void print_channels(std::ostream& out, void* handle) {
  const std::vector<Channel> channels = channels_of(handle);
  for (std::size_t c = 0; c < channels.size(); ++c) {
    const Channel& channel = channels[c];
    out << "\nchannel " << c + 1 << ": " << printable(channel.name.value_or("no name")) << '\n';
    print_list(out, "values (patches)", channel.distinct_values, [](const DistinctValue& distinct) {
      return number("%g", distinct.value) + " (" + std::to_string(distinct.count) + ")";
    });
    print_list(out, "wedge steps", channel.wedge, [handle, c](int index) {
      return number("%g", merged_patch_at(handle, index).device[c]);
    });
    print_line(out, "solid", channel.solid ? index_text(handle, *channel.solid) : "none");
  }
}

void add_device_columns(TextTable& table, void* handle) {
  const std::string space = device_space_name(handle);
  for (int c = 0; c < num_device_channels(handle); ++c) {
    const bool has_letters = space.find(' ') == std::string::npos;
    table.add_column(
        has_letters ? space.substr(static_cast<std::size_t>(c), 1) : std::to_string(c + 1),
        Align::right);
  }
}

void add_triple_columns(TextTable& table, const std::array<const char*, 3>& titles) {
  for (const char* title : titles) table.add_column(title, Align::right);
}

void add_triple(TextTable& table, const std::optional<Triple>& values, const char* format) {
  for (std::size_t i = 0; i < 3; ++i) table.add(values ? number(format, (*values)[i]) : "-");
}

void add_colour(TextTable& table, const std::optional<Triple>& lab) {
  add_triple(table, lab, "%.2f");
  table.add(lab ? hex_colour(*lab).value_or("-") : "-");
}

void print_table(std::ostream& out, const TextTable& table, int shown, int count) {
  table.print(out, 2);
  if (shown < count) out << "  ... and " << count - shown << " more\n";
}

void print_patches(std::ostream& out, void* handle, int most_patches) {
  const int count = num_patches(handle);
  const int shown = std::min(count, most_patches);
  if (shown == 0) return;
  const bool has_names = has_sample_name_data(handle) == 1;
  const bool has_lab = has_color_data(handle) == 1;
  const bool has_xyz = has_xyz_data(handle) == 1 && !has_lab;
  TextTable table;
  table.add_column("patch", Align::right);
  table.add_column("id", Align::left);
  if (has_names) table.add_column("name", Align::left);
  add_device_columns(table, handle);
  if (has_xyz) add_triple_columns(table, {"X", "Y", "Z"});
  if (has_lab) add_triple_columns(table, {"L*", "a*", "b*"});
  if (has_lab) table.add_column("sRGB", Align::left);
  for (int i = 0; i < shown; ++i) {
    const Patch patch = patch_at(handle, i);
    table.add(std::to_string(i));
    table.add(printable(patch.id));
    if (has_names) table.add(printable(patch.name));
    for (const double value : patch.device) table.add(number("%g", value));
    if (has_xyz) add_triple(table, patch.xyz, "%.4f");
    if (has_lab) add_colour(table, patch.lab);
  }
  out << "\npatches\n";
  print_table(out, table, shown, count);
}

void print_merged_patches(std::ostream& out, void* handle, int most_patches) {
  const int count = num_indices(handle);
  const int shown = std::min(count, most_patches);
  if (shown == 0 || count == num_patches(handle)) return;
  const bool has_lab = has_color_data(handle) == 1;
  TextTable table;
  table.add_column("index", Align::right);
  table.add_column("name", Align::left);
  add_device_columns(table, handle);
  if (has_lab) add_triple_columns(table, {"L*", "a*", "b*"});
  if (has_lab) table.add_column("sRGB", Align::left);
  if (has_lab) add_triple_columns(table, {"times", "mean dE", "max dE"});
  for (int index = 0; index < shown; ++index) {
    const Patch patch = merged_patch_at(handle, index);
    table.add(std::to_string(index));
    table.add(printable(patch.name));
    for (const double value : patch.device) table.add(number("%g", value));
    if (!has_lab) continue;
    add_colour(table, patch.lab);
    const Repeats repeats = repeats_at(handle, index).value_or(Repeats());
    table.add(std::to_string(repeats.count));
    table.add(repeats.count > 1 ? number("%.3f", repeats.de_mean) : "-");
    table.add(repeats.count > 1 ? number("%.3f", repeats.de_max.value_or(0.0)) : "-");
  }
  out << "\nmerged patches\n";
  print_table(out, table, shown, count);
}

}  // namespace

void print_messages(std::ostream& out, const std::string& messages) {
  if (messages.empty()) return;
  out << "  messages\n";
  std::istringstream lines(messages);
  int count = 0;
  for (std::string line; std::getline(lines, line); ++count) {
    if (count < kMostMessages) out << "    " << printable(line) << '\n';
  }
  if (count > kMostMessages) out << "    ... and " << count - kMostMessages << " more\n";
}

void print_report(std::ostream& out, const LoadedFile& file, int most_patches) {
  void* handle = file.handle();
  out << printable(file.path()) << '\n';
  const bool is_table = file.form() == LoadedFile::Form::semicolon_table;
  print_line(out, "form", is_table ? "semicolon table" : "measurement file (CGATS / ISO 28178)");
  print_line(
      out, "patches",
      std::to_string(num_patches(handle)) + ", merged " + std::to_string(num_indices(handle)));
  print_line(out, "holds", contents_of(handle));
  if (has_spectral_data(handle) == 1) print_line(out, "spectra", spectral_range(handle));
  if (has_device_data(handle) == 1) {
    const int white = get_paperwhite_index(handle);
    print_line(out, "device", device_space_name(handle));
    // In RGB the patch of no light is black.
    print_line(out, dev_is_rgb(handle) == 1 ? "all channels 0" : "paper white",
               white < 0 ? "none" : index_text(handle, white));
    print_line(out, "repeats", repeats_text(handle));
  }
  print_messages(out, file.messages());
  print_answers(out, handle, "instrument and measurement", instrument_questions());
  print_answers(out, handle, "sample", sample_questions());
  print_keywords(out, handle);
  print_channels(out, handle);
  print_patches(out, handle, most_patches);
  print_merged_patches(out, handle, most_patches);
}

}  // namespace tools
