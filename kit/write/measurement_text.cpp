#include "kit/write/measurement_text.h"

#include "kit/preflight/decimal_text.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace measkit {
namespace {

// Line breaks and quotes of a file's own text would end the cell.
void append_quoted(std::string_view text, std::string& out) {
  out += '"';
  for (const char c : text) {
    const bool is_break = c == '\n' || c == '\r';
    if (c == '"') out += '"';
    out += is_break ? ' ' : c;
  }
  out += '"';
}

bool is_plain_word(std::string_view text) {
  return !text.empty() && text.find_first_of(" \t\r\n\"#;") == std::string_view::npos;
}

void append_cell(std::string_view text, std::string& out) {
  if (is_plain_word(text)) {
    out += text;
  } else {
    append_quoted(text, out);
  }
}

std::string device_field(const Chart& chart, std::size_t channel) {
  const std::string& field = chart.channels[channel].field;
  if (!field.empty()) return field;
  constexpr std::array<std::string_view, 3> kSets = {"CMYK", "CMY", "RGB"};
  for (const std::string_view set : kSets) {
    if (chart.device_set == set) return std::string(set) + "_" + set[channel];
  }
  return std::to_string(chart.channels.size()) + "CLR_" + std::to_string(channel + 1);
}

// A column: its field and the text of a patch.
class Columns {
 public:
  explicit Columns(const Chart& chart) {
    add_texts("SAMPLE_ID", chart.ids);
    add_texts("SAMPLE_NAME", chart.names);
    add_texts("SAMPLE_LOC", chart.locations);
    if (!chart.device.empty()) {
      for (std::size_t c = 0; c < chart.device.width(); ++c)
        fields_.push_back(device_field(chart, c));
      tables_.push_back(&chart.device);
    }
    if (!chart.lab.empty()) {
      for (const char* const field : {"LAB_L", "LAB_A", "LAB_B"}) fields_.emplace_back(field);
      tables_.push_back(&chart.lab);
    }
    if (!chart.spectra.empty()) {
      for (const double nm : chart.wavelengths) fields_.push_back("SPECTRAL_NM" + text_of(nm));
      tables_.push_back(&chart.spectra);
    }
  }

  const std::vector<std::string>& fields() const { return fields_; }

  void append_row(std::size_t patch, std::string& out) const {
    for (const Texts* texts : texts_) {
      append_cell((*texts)[patch], out);
      out += '\t';
    }
    for (const Values* table : tables_) {
      for (const double value : table->row(patch)) out.append(text_of(value)).append("\t");
    }
    if (!out.empty()) out.back() = '\n';
  }

 private:
  void add_texts(const char* field, const Texts& texts) {
    if (texts.empty()) return;
    fields_.emplace_back(field);
    texts_.push_back(&texts);
  }

  std::vector<std::string> fields_;
  std::vector<const Texts*> texts_;
  std::vector<const Values*> tables_;
};

}  // namespace

std::string measurement_text_of(const Chart& chart, std::span<const Entry> further) {
  std::string out = (chart.identifier.empty() ? "CGATS.17" : chart.identifier) + "\n";
  const auto append_keyword = [&out](const Entry& entry) {
    if (!is_plain_word(entry.name) || entry.name.starts_with("NUMBER_OF_")) return;
    out.append(entry.name).append("\t");
    append_quoted(entry.value, out);
    out += '\n';
  };
  const Columns columns(chart);
  std::ranges::for_each(chart.keywords, append_keyword);
  std::ranges::for_each(further, append_keyword);
  out += "NUMBER_OF_FIELDS\t" + std::to_string(columns.fields().size()) + "\nBEGIN_DATA_FORMAT\n";
  for (const std::string& field : columns.fields()) out.append(field).append("\t");
  out.back() = '\n';
  out += "END_DATA_FORMAT\nNUMBER_OF_SETS\t" + std::to_string(chart.patch_count) + "\nBEGIN_DATA\n";
  for (std::size_t patch = 0; patch < chart.patch_count; ++patch) columns.append_row(patch, out);
  return out += "END_DATA\n";
}

}  // namespace measkit
