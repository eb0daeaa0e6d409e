#include "tools/text_report.h"

#include "tools/printable_text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <limits>
#include <ostream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace tools {
namespace {

constexpr int kMostMessages = 20;

std::string number(const char* format, double value) {
  std::array<char, 64> text{};
  const int length = std::snprintf(text.data(), text.size(), format, value);
  return {text.data(), std::min(static_cast<std::size_t>(std::max(length, 0)), text.size() - 1)};
}

// Columns as wide as their widest cell.
class Table {
 public:
  enum class Align { left, right };

  void add_column(std::string title, Align align) {
    widths_.push_back(display_width(title));
    aligns_.push_back(align);
    cells_.push_back(std::move(title));
  }
  void add(std::string cell) {
    std::size_t& width = widths_[cells_.size() % widths_.size()];
    width = std::max(width, display_width(cell));
    cells_.push_back(std::move(cell));
  }
  void print(std::ostream& out) const {
    for (std::size_t i = 0; i < cells_.size(); ++i) {
      const std::size_t column = i % widths_.size();
      const bool is_last = column + 1 == widths_.size();
      const std::string padding(widths_[column] - display_width(cells_[i]), ' ');
      const bool is_left = aligns_[column] == Align::left;
      out << "  " << (is_left ? "" : padding) << cells_[i] << (is_left && !is_last ? padding : "");
      if (is_last) out << '\n';
    }
  }

 private:
  std::vector<std::size_t> widths_;
  std::vector<Align> aligns_;
  std::vector<std::string> cells_;
};

void print_line(std::ostream& out, std::string_view label, std::string_view text) {
  out << "  " << label << std::string(14 - label.size(), ' ') << text << '\n';
}

std::string device_space_name(void* handle) {
  if (dev_is_cmyk(handle) == 1) return "CMYK";
  if (dev_is_cmy(handle) == 1) return "CMY";
  if (dev_is_rgb(handle) == 1) return "RGB";
  const int channels = num_device_channels(handle);
  return std::to_string(channels) + (channels == 1 ? " channel" : " channels");
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

std::vector<std::string> channel_titles(void* handle) {
  if (dev_is_cmyk(handle) == 1) return {"C", "M", "Y", "K"};
  if (dev_is_cmy(handle) == 1) return {"C", "M", "Y"};
  if (dev_is_rgb(handle) == 1) return {"R", "G", "B"};
  std::vector<std::string> titles;
  for (int channel = 1; channel <= num_device_channels(handle); ++channel) {
    titles.push_back(std::to_string(channel));
  }
  return titles;
}

std::string hex_colour(const std::array<double, 3>& lab) {
  std::array<double, 3> rgb{};
  lab_to_srgb(lab.data(), rgb.data());
  std::array<char, 8> text{};
  const auto byte = [](double value) {
    return static_cast<unsigned>(std::lround(std::clamp(value, 0.0, 255.0))) & 0xFFU;
  };
  if (std::isnan(rgb[0] + rgb[1] + rgb[2])) return "-";
  std::snprintf(text.data(), text.size(), "#%02X%02X%02X", byte(rgb[0]), byte(rgb[1]),
                byte(rgb[2]));
  return text.data();
}

// Lab of a patch; not-a-number where the library gives none.
std::array<double, 3> lab_of(void* handle, int patch) {
  constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
  std::array<double, 3> lab = {kNone, kNone, kNone};
  get_lab_from_patch(handle, patch, lab.data());
  return lab;
}

void print_patches(std::ostream& out, void* handle, int most_patches) {
  const int count = std::min(num_patches(handle), most_patches);
  if (count == 0) return;
  const bool has_names = has_sample_name_data(handle) == 1;
  const bool has_lab = has_color_data(handle) == 1;
  const bool has_xyz = has_xyz_data(handle) == 1;
  std::vector<double> device(static_cast<std::size_t>(num_device_channels(handle)));
  Table table;
  table.add_column("patch", Table::Align::right);
  table.add_column("id", Table::Align::left);
  if (has_names) table.add_column("name", Table::Align::left);
  for (const std::string& title : channel_titles(handle)) {
    table.add_column(title, Table::Align::right);
  }
  if (has_lab) {
    for (const char* title : {"L*", "a*", "b*"}) table.add_column(title, Table::Align::right);
    table.add_column("sRGB", Table::Align::left);
  } else if (has_xyz) {
    for (const char* title : {"X", "Y", "Z"}) table.add_column(title, Table::Align::right);
  }
  for (int patch = 0; patch < count; ++patch) {
    table.add(std::to_string(patch));
    table.add(printable(get_id_from_patch(handle, patch)));
    if (has_names) table.add(printable(get_name_from_patch(handle, patch)));
    get_dev_from_patch(handle, patch, device.data());
    for (const double value : device) table.add(number("%g", value));
    if (has_lab) {
      const std::array<double, 3> lab = lab_of(handle, patch);
      for (const double value : lab) table.add(number("%.2f", value));
      table.add(hex_colour(lab));
    } else if (has_xyz) {
      std::array<double, 3> xyz{};
      get_xyz_from_patch(handle, patch, xyz.data());
      for (const double value : xyz) table.add(number("%.4f", value));
    }
  }
  out << '\n';
  table.print(out);
  if (count < num_patches(handle)) {
    out << "  ... and " << num_patches(handle) - count << " more patches\n";
  }
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
  print_line(out, "patches", std::to_string(num_patches(handle)));
  print_line(out, "holds", contents_of(handle));
  if (has_device_data(handle) == 1) print_line(out, "device", device_space_name(handle));
  if (has_spectral_data(handle) == 1) print_line(out, "spectra", spectral_range(handle));
  print_messages(out, file.messages());
  print_patches(out, handle, most_patches);
}

}  // namespace tools
