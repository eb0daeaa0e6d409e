#include "kit/cxf/header.h"

#include "kit/cxf/pairing.h"

#include <algorithm>
#include <array>
#include <unordered_set>
#include <utility>

namespace measkit::cxf {
namespace {

// "no"/"yes" of a truth value of XML.
std::string_view yes_or_no(std::string_view truth) {
  if (truth == "true" || truth == "1") return "yes";
  return truth == "false" || truth == "0" ? "no" : std::string_view();
}

std::string_view filter_of(std::string_view filter) {
  if (filter == "Filter_None") return "none";
  if (filter == "Filter_UVExcluded") return "UV";
  constexpr std::string_view kPrefix = "Filter_UV";  // Filter_UVD65
  constexpr std::string_view kOther = "Filter_";
  if (filter.starts_with(kPrefix)) return filter.substr(kPrefix.size());
  return filter.starts_with(kOther) ? filter.substr(kOther.size()) : filter;
}

std::string_view degrees_of(std::string_view observer) {
  if (observer == "2_Degree") return "2";
  return observer == "10_Degree" ? "10" : std::string_view();
}

std::string method_of(std::string_view method) {
  if (method == "E308_Table5") return "ASTM E308 Table 5";
  if (method == "E308_Table6") return "ASTM E308 Table 6";
  if (method == "E308_1nm") return "ASTM E308 1 nm";
  return {};
}

std::string without_commas(std::string_view text) {
  std::string result(text);
  std::erase(result, ',');
  return result;
}

// In the form that the library's questions about the instrument take apart.
std::string instrument_of(const Specification& specification) {
  std::string text = without_commas(specification.manufacturer);
  const std::string model = without_commas(specification.model);
  if (!model.empty()) text += (text.empty() ? "" : " ") + model;
  const std::string_view degrees = degrees_of(specification.observer);
  const bool has_light = !text.empty() && !specification.illuminant.empty() && !degrees.empty();
  if (has_light) {
    text += ", " + std::string(specification.illuminant) + ", " + std::string(degrees) + " degree";
  }
  if (!specification.serial.empty()) {
    text += (has_light      ? ", "
             : text.empty() ? ""
                            : " ; ") +
            std::string("Serial number ") + std::string(specification.serial);
  }
  return text;
}

bool is_of_surface(const Layer& layer) { return layer.quantity != Quantity::emission; }

bool has_tristimulus(const Layer& layer) {
  return layer.has(Kind::lab) || layer.has(Kind::lch) || layer.has(Kind::luv) ||
         layer.has(Kind::xyz) || layer.has(Kind::xyy);
}

class HeaderWriter {
 public:
  HeaderWriter(const Document& document, const Layer& layer, const LineIndex& lines, Table& table)
      : document_(document), layer_(layer), lines_(lines), table_(table) {}

  void write() {
    if (has_own_keywords(document_, layer_)) {
      write_own_keywords();
      return;
    }
    for (const int index : layer_.specifications) {
      const Specification& one = document_.specifications[static_cast<std::size_t>(index)];
      line_ = lines_.line_at(one.offset);
      if (one.is_declared) write_specification(one);
    }
    // Where no specification says the condition, the type of the readings does.
    if (!layer_.m.empty())
      add("MEASUREMENT_SOURCE", "MeasurementCondition=" + std::string(layer_.m));
    write_instrument_of_maker();
    if (!layer_.density_status.empty()) {
      add("FILTER_STATUS", "Status " + std::string(layer_.density_status));
    }
    write_quantity();
    tell_light();
    write_information();
  }

 private:
  // The first specification that says something counts.
  void add(std::string_view keyword, std::string_view value) {
    if (keywords_.insert(keyword).second && !value.empty()) {
      add_keyword_at(table_, keyword, value, line_);
    } else if (value.empty()) {
      keywords_.erase(keyword);
    }
  }

  void write_specification(const Specification& one) {
    add("INSTRUMENTATION", instrument_of(one));
    const bool is_condition = !layer_.m.empty() || one.illumination.empty();
    add("MEASUREMENT_SOURCE",
        is_condition
            ? layer_.m.empty() ? std::string() : "MeasurementCondition=" + std::string(layer_.m)
            : std::string(one.illumination));
    add("FILTER", filter_of(one.filter));
    add("POLARIZATION", layer_.m == "M3" ? std::string_view("yes") : yes_or_no(one.polarization));
    if (is_of_surface(layer_)) add("MEASUREMENT_GEOMETRY", one.geometry);
    add("SAMPLE_BACKING", one.backing);
    add("DEVCALSTD", one.calibration);
    add("APERTURE", one.aperture);
    add("TARGET_TYPE", one.target_type);
    add("MATERIAL", one.substrate);
    add("FINISH", one.finish);
    if (is_of_surface(layer_) && has_tristimulus(layer_)) write_light(one);
    if (!is_of_surface(layer_)) add("LUMINANCE_UNITS", one.units);
  }

  void write_light(const Specification& one) {
    const std::string_view degrees = degrees_of(one.observer);
    if (!one.illuminant.empty() && keywords_.insert("ILLUMINANT").second) {
      add_keyword_at(table_, "WEIGHTING_FUNCTION", "ILLUMINANT, " + std::string(one.illuminant),
                     line_);
    }
    if (!degrees.empty() && keywords_.insert("OBSERVER").second) {
      add_keyword_at(table_, "WEIGHTING_FUNCTION", "OBSERVER, " + std::string(degrees) + " degree",
                     line_);
    }
    add("COMPUTATIONAL_PARAMETER", method_of(one.method));
  }

  // A condition that no specification says, but the type of the readings.
  void write_instrument_of_maker() {
    if (!layer_.m.empty())
      add("MEASUREMENT_SOURCE", "MeasurementCondition=" + std::string(layer_.m));
    if (layer_.kinds == 0 || document_.custom_instrument.empty()) return;
    if (keywords_.contains("INSTRUMENTATION")) return;
    add("INSTRUMENTATION", document_.custom_instrument);
    table_.findings.add(Severity::doubtful, "cxf-instrument",
                        "The instrument is named by a maker's own part of the document only, "
                        "which may be left over from another one.");
  }

  void write_quantity() {
    if (layer_.quantity == Quantity::emission) {
      add("DEVICE_CLASS", "DISPLAY");
      add("QUANTITY", "EMISSION");
    } else if (layer_.quantity == Quantity::transmittance) {
      add("QUANTITY", "TRANSMITTANCE");
    }
  }

  void tell_light() {
    const bool is_unknown = has_tristimulus(layer_) && is_of_surface(layer_) &&
                            (layer_.illuminant.empty() || layer_.observer.empty());
    if (!is_unknown) return;
    table_.findings.add(Severity::note, "cxf-light",
                        "The document does not say for which illuminant and observer its XYZ or "
                        "Lab were computed.");
  }

  void write_information() {
    CountedNames twice;
    for (const Keyword& keyword : document_.keywords) {
      const std::string name = keyword_of(keyword.name);
      if (keyword.value.empty()) continue;
      if (name.empty() || !own_names_.insert(name).second || keywords_.contains(name)) {
        twice.add(keyword.name, keyword.offset);
        continue;
      }
      add_keyword_at(table_, name, keyword.value, lines_.line_at(keyword.offset));
    }
    tell_left_out(twice);
  }

  void tell_left_out(const CountedNames& names) {
    if (names.empty()) return;
    table_.findings.add(
        Severity::lost, "cxf-left-out",
        "No keyword can hold these values, or one holds another value: " + names.list() + ".",
        lines_.line_at(names.first_offset()));
  }

  // In the order of the tags, some of them twice or empty, as in the measurement file.
  void write_own_keywords() {
    if (is_identifier(document_.measurement_file)) {
      table_.identifier = document_.measurement_file;
    }
    const auto tag = [this](std::string_view name) -> const Keyword* {
      const auto found = std::ranges::find_if(document_.keywords, [name](const Keyword& one) {
        return !one.is_element && one.name == name;
      });
      return found == document_.keywords.end() ? nullptr : &*found;
    };
    const Keyword* const file = tag("FILE_DESCRIPTOR");
    CountedNames left_out;
    for (const Keyword& keyword : document_.keywords) {
      const bool is_declaration =
          keyword.name == "KEYWORD" || keyword.name == "DATA_FORMAT_IDENTIFIER";
      const std::string name =
          is_declaration ? std::string(keyword.name) : keyword_of(keyword.name);
      if (name.empty()) {
        left_out.add(keyword.name, keyword.offset);
      } else if (keyword.is_element && name == "COMMENT") {
        write_comments(keyword);
      } else if (!keyword.is_element || name != "DESCRIPTOR" || file == nullptr ||
                 file->value != keyword.value) {  // else the description is a copy of it
        table_.add_keyword(name, one_line(keyword.value));
        table_.header.back().line = lines_.line_at(keyword.offset);
      }
    }
    const bool is_emission = layer_.quantity == Quantity::emission;
    if (is_emission && tag("DEVICE_CLASS") == nullptr && tag("QUANTITY") == nullptr) {
      add("QUANTITY", "EMISSION");
    }
    tell_left_out(left_out);
  }

  void write_comments(const Keyword& comments) {
    std::string_view rest = comments.value;
    while (!rest.empty()) {
      const std::string_view line = rest.substr(0, rest.find('\n'));
      rest.remove_prefix(std::min(line.size() + 1, rest.size()));
      table_.header.push_back({table_.pool.add("# " + one_line(line)), {}, {}, 0});
      table_.header.back().line = lines_.line_at(comments.offset);
    }
  }

  // What the first line of a measurement file may be.
  static bool is_identifier(std::string_view text) {
    constexpr std::size_t kLongest = 20;
    const auto is_kept = [](char c) {
      const bool is_letter = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
      return is_letter || (c >= '0' && c <= '9') || c == '.' || c == '/' || c == '-' || c == '_';
    };
    return text.size() <= kLongest && std::ranges::all_of(text, is_kept) &&
           keyword_of(text) == text;
  }

  // Empty for names that would break the frame of a measurement file.
  static std::string keyword_of(std::string_view name) {
    static constexpr std::array<std::string_view, 8> kFrame = {
        "BEGIN_DATA",       "END_DATA",       "BEGIN_DATA_FORMAT", "END_DATA_FORMAT",
        "NUMBER_OF_FIELDS", "NUMBER_OF_SETS", "KEYWORD",           "DATA_FORMAT_IDENTIFIER"};
    constexpr std::size_t kLongest = 80;
    if (name.size() > kLongest || std::ranges::find(kFrame, name) != kFrame.end()) return {};
    std::string keyword(name);
    for (char& c : keyword) {
      if (static_cast<unsigned char>(c) <= ' ' || c == '"' || c == '#') c = '_';
    }
    return keyword;
  }

  const Document& document_;
  const Layer& layer_;
  const LineIndex& lines_;
  Table& table_;
  std::size_t line_ = 0;
  std::unordered_set<std::string_view> keywords_;  // literals, of which each is written once
  std::unordered_set<std::string> own_names_;
};

}  // namespace

std::string one_line(std::string_view text) {
  std::string result(text);
  for (char& c : result) {
    if (static_cast<unsigned char>(c) < ' ' && c != '\t') c = ' ';
    if (c == '"') c = '\'';
  }
  return result;
}

void add_keyword_at(Table& table, std::string_view keyword, std::string_view value,
                    std::size_t line) {
  if (value.empty()) return;
  table.add_keyword(keyword, one_line(value));
  table.header.back().line = line;
}

bool has_own_keywords(const Document& document, const Layer& layer) {
  constexpr std::size_t kMostSpecifications = 4;
  const bool is_plain = layer.is_only && layer.specifications.size() <= kMostSpecifications;
  if (document.measurement_file.empty() || !is_plain) return false;
  const auto is_told = [&document](std::string_view words) {
    return words.empty() || std::ranges::any_of(document.keywords, [words](const Keyword& keyword) {
             return keyword.value.find(words) != std::string_view::npos;
           });
  };
  return is_told(layer.m) && std::ranges::all_of(layer.specifications, [&](int index) {
           const Specification& one = document.specifications[static_cast<std::size_t>(index)];
           return is_told(one.manufacturer) && is_told(one.model) && is_told(one.serial);
         });
}

void write_header(const Document& document, const Layer& layer, const LineIndex& lines,
                  Table& table) {
  HeaderWriter(document, layer, lines, table).write();
}

}  // namespace measkit::cxf
