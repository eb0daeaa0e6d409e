#include "kit/convert/conversion.h"

#include "kit/convert/columns.h"
#include "kit/convert/computed_columns.h"
#include "kit/convert/cxf_form.h"
#include "kit/convert/delimited_form.h"
#include "kit/convert/json_form.h"
#include "kit/convert/merged_rows.h"
#include "kit/convert/text_form.h"
#include "kit/convert/ti3_form.h"
#include "kit/preflight/delimited_text.h"
#include "kit/preflight/device_columns.h"
#include "kit/preflight/line_cursor.h"
#include "kit/preflight/spectral_columns.h"
#include "kit/write/layout.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <ctime>
#include <utility>

namespace measkit {
namespace {

constexpr std::array<std::pair<std::string_view, ColumnGroup>, 9> kGroups = {
    {{"names", ColumnGroup::names},
     {"device", ColumnGroup::device},
     {"lab", ColumnGroup::lab},
     {"lch", ColumnGroup::lch},
     {"xyz", ColumnGroup::xyz},
     {"xyy", ColumnGroup::xyy},
     {"density", ColumnGroup::density},
     {"spectra", ColumnGroup::spectra},
     {"unknown", ColumnGroup::unknown}}};

// The number at the start of a text, which is shortened by it and by the colon behind it.
std::optional<double> take_number(std::string_view& text) {
  const std::string_view number = text.substr(0, text.find(':'));
  text.remove_prefix(std::min(number.size() + 1, text.size()));
  return is_number(number) ? std::optional(number_in(number)) : std::nullopt;
}

bool is_text_form(Form form) {
  return form == Form::iso28178 || form == Form::cgats || form == Form::seven_characters;
}

// Lines that say nothing about the chart.
bool is_declaration(std::string_view keyword) {
  return keyword.starts_with("NUMBER_OF_") || keyword == "KEYWORD" ||
         keyword == "DATA_FORMAT_IDENTIFIER";
}

// Full channels of RGB; 0 where nothing tells them.
double rgb_scale_of(void* handle) {
  constexpr int kRgb = 3;
  if (num_device_channels(handle) != kRgb) return 0.0;
  double largest = 0.0;
  std::array<double, kRgb> values{};
  for (int patch = 0; patch < num_patches(handle); ++patch) {
    get_dev_from_patch(handle, patch, values.data());
    for (const double value : values) largest = value > largest ? value : largest;
  }
  return full_scale(largest);
}

std::string time_now() {
  const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
  std::array<char, 32> text{};
  std::tm parts{};
#if defined(_WIN32)
  gmtime_s(&parts, &now);
#else
  gmtime_r(&now, &parts);
#endif
  std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", &parts);
  return text.data();
}

// Turns one chart into one form.
class Converter {
 public:
  Converter(Document& document, std::size_t chart, Form form, const ConversionOptions& options,
            Conversion& conversion)
      : document_(document),
        chart_(chart),
        form_(form),
        options_(options),
        left_behind_(conversion.left_behind),
        refusal_(conversion.refusal),
        table_(document.plain(chart).table.view()) {}

  // The chart behind the text of those before it, which JSON has alone.
  std::string text(std::string before) {
    use_options();
    if (!refusal_.empty()) return {};
    tell_text_behind();
    switch (form_) {
      case Form::iso28178:
      case Form::cgats:
      case Form::seven_characters:
        return measurement_file_of(table_, form_, left_behind_);
      case Form::csv:
        return delimited(options_.decimal_comma ? ';' : ',');
      case Form::tsv:
        return delimited('\t');
      case Form::json:
        tell_comments_in_rows(table_, left_behind_);
        return json_of(std::move(before), table_, document_.chart_name(chart_), units());
      case Form::json_lines:
        tell_header();
        tell_comments_in_rows(table_, left_behind_);
        return json_lines_of(table_);
      case Form::cxf:
        tell_comments_in_rows(table_, left_behind_);
        return cxf_of(table_, chart(), {options_.cxf_pairs, time_now()}, left_behind_);
      case Form::ti3:
        break;
    }
    return ti3_of(table_, rgb_scale(), lab(), options_.digits, left_behind_, refusal_);
  }

 private:
  const Chart& chart() { return document_.charts()[chart_]; }
  void* handle() { return document_.plain(chart_).loaded.handle(); }
  // Lab by the library, one row a row of the table.
  const Values& lab() { return options_.merged ? chart().merged.lab : chart().lab; }
  double rgb_scale() { return table_.roles().device_set == "RGB" ? rgb_scale_of(handle()) : 0.0; }
  std::vector<std::string> units() { return units_of(table_, rgb_scale()); }

  void use_options() {
    if (options_.merged) {
      if (chart().merged.count == 0) return refuse("the chart has no patches to merge");
      merge_rows(table_, chart().merged, options_.digits, left_behind_);
    }
    use_lab_option();
    if (options_.grid && refusal_.empty()) {
      refusal_ = use_grid(table_, *options_.grid, options_.digits);
    }
    if (!refusal_.empty()) return;
    const bool keeps_unknown =
        options_.keep_unknown || !(is_text_form(form_) || form_ == Form::ti3);
    choose_columns(table_, options_.select, keeps_unknown, left_behind_);
    if (options_.percent && form_ != Form::ti3) {
      const std::vector<SpectralField> spectra = table_.roles().spectra;
      for (const SpectralField& spectral : spectra) table_.move_point(spectral.field, 2);
    }
  }

  void refuse(std::string_view words) { refusal_ = words; }

  void use_lab_option() {
    switch (options_.lab_from) {
      case LabFrom::columns:
        if (!table_.roles().has_lab() && !lab_is_not_selected()) use_computed_lab();
        break;
      case LabFrom::file:
        check_lab_of_file();
        break;
      case LabFrom::xyz:
        if (is_display(table_)) return refuse("XYZ of a display have no Lab of their own");
        refusal_ = use_lab_of_xyz(table_, options_.digits);
        break;
      case LabFrom::spectra:
        if (!table_.roles().has_spectra()) return refuse("the chart has no spectra");
        use_computed_lab();
        break;
    }
  }

  bool lab_is_not_selected() const {
    return std::ranges::find(options_.select, ColumnGroup::lab) == options_.select.end();
  }

  void use_computed_lab() {
    if (lab().empty()) return refuse("the chart has nothing to compute Lab of");
    use_lab(table_, lab(), options_.digits);
  }

  void check_lab_of_file() {
    const PlainTable& plain = document_.plain(chart_);
    const Roles& roles = plain.table.roles();
    const bool is_of_file =
        roles.has_lab() && std::ranges::all_of(roles.lab, [&](int field) {
          return plain.table.fields[static_cast<std::size_t>(field)].source != kNoField;
        });
    if (!is_of_file) return refuse("the file has no Lab of its own");
  }

  std::string delimited(char delimiter) {
    if (options_.bare) tell_header();
    tell_comments_in_rows(table_, left_behind_);
    return delimited_text_of(table_, {delimiter, options_.decimal_comma, options_.bare}, units());
  }

  void tell_header() {
    std::vector<std::string> keywords;
    std::size_t comments = 0;
    for (const HeaderLine& line : table_.header) {
      if (line.keyword.empty()) {
        ++comments;
      } else if (!is_declaration(line.keyword) &&
                 std::ranges::find(keywords, line.keyword) == keywords.end()) {
        keywords.emplace_back(line.keyword);
      }
    }
    if (!keywords.empty()) left_behind_.push_back("Keywords: " + name_list(keywords) + ".");
    if (comments != 0) left_behind_.push_back("Comments: " + std::to_string(comments) + ".");
  }

  // Readers take nothing behind END_DATA.
  void tell_text_behind() {
    const std::string_view text = table_.text, data = table_.data;
    const bool is_within = !data.empty() && data.data() >= text.data() &&
                           data.data() + data.size() <= text.data() + text.size();
    if (!is_within) return;
    std::string_view rest = text.substr(static_cast<std::size_t>(data.data() - text.data()));
    rest.remove_prefix(data.size());
    std::size_t lines = 0;
    for (LineCursor cursor(rest); cursor.next();) {
      const bool is_blank = cursor.line().find_first_not_of(" \t\0") == std::string_view::npos;
      lines += is_blank ? 0 : 1;
    }
    if (lines > 1) {  // the first is END_DATA
      left_behind_.push_back("Text behind END_DATA: " + counted(lines - 1, "line", "lines") + ".");
    }
  }

  Document& document_;
  std::size_t chart_;
  Form form_;
  const ConversionOptions& options_;
  std::vector<std::string>& left_behind_;
  RefusalWords& refusal_;
  Table table_;
};

}  // namespace

std::optional<std::vector<ColumnGroup>> column_groups_of(std::string_view list,
                                                         RefusalWords& refusal) {
  std::vector<ColumnGroup> groups;
  while (!list.empty()) {
    const std::string_view word = list.substr(0, list.find(','));
    const auto found =
        std::ranges::find(kGroups, word, &std::pair<std::string_view, ColumnGroup>::first);
    if (found == kGroups.end()) {
      refusal = "\"" + std::string(word) + "\" is none of ";
      for (const auto& [name, group] : kGroups) {
        refusal.append(name == kGroups.front().first ? "" : ", ").append(name);
      }
      return std::nullopt;
    }
    groups.push_back(found->second);
    list.remove_prefix(std::min(word.size() + 1, list.size()));
  }
  return groups;
}

std::optional<WavelengthRange> wavelength_range_of(std::string_view text, RefusalWords& refusal) {
  constexpr double kMostBands = 1000.0;
  std::string_view rest = text;
  const std::optional<double> start = take_number(rest), end = take_number(rest),
                              step = take_number(rest);
  const bool is_usable = rest.empty() && start && end && step && *start > 0.0 && *step > 0.0 &&
                         *end > *start && (*end - *start) / *step < kMostBands;
  if (is_usable) return WavelengthRange{*start, *end, *step};
  refusal = "\"" + std::string(text) + "\" is no range such as 400:700:10";
  return std::nullopt;
}

std::optional<LabFrom> lab_from_of(std::string_view word, RefusalWords& refusal) {
  if (word == "file") return LabFrom::file;
  if (word == "xyz") return LabFrom::xyz;
  if (word == "spectra") return LabFrom::spectra;
  refusal = "\"" + std::string(word) + "\" is none of file, xyz, spectra";
  return std::nullopt;
}

namespace {

// Why these charts cannot be in that form, whatever they hold.
RefusalWords refusal_of(const Document& document, std::span<const std::size_t> charts, Form form) {
  if (charts.empty()) return "there is no chart";
  if (document.plain(charts.front()).table.fields.empty()) {
    return "a document that was opened without repairs has no columns to convert";
  }
  if (charts.size() > 1 && form != Form::json) {
    return "the form takes one chart, and there are " + std::to_string(charts.size());
  }
  return {};
}

}  // namespace

Conversion convert(Document& document, std::span<const std::size_t> charts, Form form,
                   const ConversionOptions& options) {
  Conversion conversion;
  conversion.refusal = refusal_of(document, charts, form);
  if (!conversion.refusal.empty()) return conversion;
  std::vector<std::string> left_behind;
  if (form == Form::json) conversion.text = json_start();
  for (const std::size_t chart : charts) {
    if (chart != charts.front()) conversion.text += ',';
    conversion.left_behind.clear();
    conversion.text =
        Converter(document, chart, form, options, conversion).text(std::move(conversion.text));
    if (!conversion.refusal.empty()) return {{}, {}, std::move(conversion.refusal)};
    for (std::string& sentence : conversion.left_behind) {
      if (charts.size() > 1) sentence.insert(0, document.chart_name(chart) + ": ");
      left_behind.push_back(std::move(sentence));
    }
  }
  if (form == Form::json) conversion.text += json_end();
  conversion.left_behind = std::move(left_behind);
  return conversion;
}

}  // namespace measkit
