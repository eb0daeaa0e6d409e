#include "kit/convert/cxf_description.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <optional>
#include <string_view>

namespace measkit {
namespace {

std::string_view value_of(const Table& table, std::string_view keyword) {
  const HeaderLine* const line = table.find(keyword);
  if (line == nullptr) return {};
  return line->value;
}

// Elements of the file's information have texts on one line.
bool fits_element(std::string_view text) {
  const auto is_kept = [](char c) { return static_cast<unsigned char>(c) >= ' ' && c != '"'; };
  return !text.empty() && text.front() != ' ' && text.back() != ' ' &&
         std::ranges::all_of(text, is_kept);
}

// What stands behind '#', outside quotes.
std::string_view comment_in(std::string_view line) {
  bool is_quoted = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] == '"') is_quoted = !is_quoted;
    if (line[i] != '#' || is_quoted) continue;
    line.remove_prefix(i + 1);
    if (line.starts_with(' ')) line.remove_prefix(1);
    return line;
  }
  return {};
}

// The keywords that elements hold, and those that become tags.
class Information {
 public:
  Information(const Table& table, CxfMarkup& out) : table_(table), out_(out) {}

  void write() {
    out_.line(1, "<cc:FileInformation>");
    write_element("Creator", "ORIGINATOR");
    if (is_date_and_time(value_of(table_, "CREATED"))) write_element("CreationDate", "CREATED");
    const std::string_view file = value_of(table_, "FILE_DESCRIPTOR");
    if (table_.find("DESCRIPTOR") != nullptr && value_of(table_, "DESCRIPTOR") != file) {
      write_element("Description", "DESCRIPTOR");
    } else if (fits_element(file)) {
      out_.element(2, "Description", file);
    }
    write_comments();
    // The first line of the measurement file: it tells the kit's reader that the tags are all
    // keywords of one.
    out_.tag(2, "MEASUREMENT_FILE", table_.identifier.empty() ? "CGATS.17" : table_.identifier);
    for (const HeaderLine& line : table_.header) write_tag(line);
    out_.line(1, "</cc:FileInformation>");
  }

 private:
  void write_element(std::string_view element, std::string_view keyword) {
    const HeaderLine* const line = table_.find(keyword);
    if (line == nullptr || !fits_element(line->value)) return;
    out_.element(2, element, line->value);
    written_.push_back(line);
  }

  void write_comments() {
    std::string comments;
    for (const HeaderLine& line : table_.header) {
      const std::string_view comment = comment_in(line.raw);
      if (comment.find_first_not_of(" \t") == std::string_view::npos) continue;
      comments.append(comments.empty() ? "" : "\n").append(comment);
    }
    if (!comments.empty()) out_.element(2, "Comment", comments);
  }

  void write_tag(const HeaderLine& line) {
    const bool is_count = line.keyword == "NUMBER_OF_FIELDS" || line.keyword == "NUMBER_OF_SETS";
    const bool is_written = std::ranges::find(written_, &line) != written_.end();
    if (line.keyword.empty() || is_count || is_written) return;
    out_.tag(2, line.keyword, line.value);
  }

  const Table& table_;
  CxfMarkup& out_;
  std::vector<const HeaderLine*> written_;
};

std::string small_letters(std::string_view text) {
  std::string small(text);
  for (char& c : small) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return small;
}

std::string_view text_of(const std::optional<Stated>& stated) {
  if (!stated) return {};
  return stated->value;
}

std::string_view answer_to(const Chart& chart, std::string_view question) {
  const auto found = std::ranges::find(chart.instrument_answers, question, &Answer::question);
  if (found == chart.instrument_answers.end() || !found->text) return {};
  return *found->text;
}

// The same in the words of CxF; empty where it has none.
std::string_view illuminant_in_cxf(std::string_view illuminant) {
  static constexpr std::array<std::string_view, 13> kNames = {
      "A", "C", "D50", "D55", "D65", "D75", "E", "F2", "F7", "F11", "F12", "UL30", "UL35"};
  if (illuminant == "D93") return "9300";
  const auto found = std::ranges::find(kNames, illuminant);
  return found == kNames.end() ? std::string_view() : *found;
}

std::string_view illumination_in_cxf(std::string_view m) {
  static constexpr std::array<std::string_view, 4> kNames = {"M0_Incandescent", "M1_Daylight",
                                                             "M2_UVExcluded", "M3_Polarized"};
  const auto found = std::ranges::find_if(
      kNames, [m](std::string_view name) { return !m.empty() && name.starts_with(m); });
  return found == kNames.end() ? std::string_view() : *found;
}

class Specification {
 public:
  Specification(const Table& table, const Chart& chart, const CxfColumns& columns, CxfMarkup& out)
      : table_(table), chart_(chart), columns_(columns), out_(out) {}

  void write(std::string_view id) {
    out_.raw("\t\t\t<cc:ColorSpecification Id=\"").raw(id).raw("\">\n");
    write_light();
    out_.line(4, "<cc:MeasurementSpec>");
    out_.element(5, "MeasurementType", measurement_type());
    out_.line(5, "<cc:GeometryChoice>");
    write_geometry(text_of(chart_.conditions.geometry));
    out_.line(5, "</cc:GeometryChoice>");
    if (columns_.spectra.is_on_grid) {
      out_.raw("\t\t\t\t\t<cc:WavelengthRange StartWL=\"");
      out_.raw(std::to_string(columns_.spectra.start)).raw("\" Increment=\"");
      out_.raw(std::to_string(columns_.spectra.step)).raw("\"/>\n");
    }
    write_units();
    out_.element(5, "CalibrationStandard", value_of(table_, "DEVCALSTD"));
    out_.element(5, "Aperture", value_of(table_, "APERTURE"));
    out_.element(5, "Backing", text_of(chart_.conditions.backing));
    write_device();
    out_.line(4, "</cc:MeasurementSpec>");
    write_target_type();
    out_.line(3, "</cc:ColorSpecification>");
  }

 private:
  void write_light() {
    const std::string_view light = illuminant_in_cxf(text_of(chart_.conditions.illuminant));
    const std::string_view angle = text_of(chart_.conditions.observer);
    if (light.empty() || (angle != "2" && angle != "10")) return;
    out_.line(4, "<cc:TristimulusSpec>");
    out_.element(5, "Illuminant", light);
    out_.element(5, "Observer", std::string(angle) + "_Degree");
    out_.element(5, "Method", method());
    out_.line(4, "</cc:TristimulusSpec>");
  }

  std::string_view method() const {
    std::string_view text = value_of(table_, "COMPUTATIONAL_PARAMETER");
    if (text.empty()) text = value_of(table_, "COMPUTATIONAL_PARAMETERS");
    if (text.find("E308") == std::string_view::npos) return "unknown";
    if (text.find("Table 5") != std::string_view::npos) return "E308_Table5";
    return text.find("Table 6") != std::string_view::npos ? "E308_Table6" : "unknown";
  }

  std::string measurement_type() const {
    const std::string what = columns_.spectra.element.empty() ? "Colorimetric" : "Spectrum";
    if (columns_.spectra.element == "EmissiveSpectrum" || chart_.quantity == Quantity::emission) {
      return what + "_Emissive";
    }
    return what + (chart_.quantity == Quantity::transmittance ? "_Transmittance" : "_Reflectance");
  }

  // Two angles have a home in CxF only with the arrangement, which must not be made up.
  void write_geometry(std::string_view geometry) {
    const std::string small = small_letters(geometry);
    const auto has = [&small](std::string_view word) {
      return small.find(word) != std::string::npos;
    };
    const bool is_45_0 = has("45/0") || has("45:0"), is_0_45 = has("0/45") || has("0:45");
    const bool is_annular = has("annular") || has("circumferential");
    if ((is_45_0 || is_0_45) && (is_annular || has("uniplanar"))) {
      out_.line(6, "<cc:SingleAngle>");
      out_.element(7, "SingleAngleConfiguration", is_annular ? "Annular" : "Uniplanar");
      out_.element(7, "IlluminationAngle", is_45_0 ? "45" : "0");
      out_.element(7, "MeasurementAngle", is_45_0 ? "0" : "45");
      out_.line(6, "</cc:SingleAngle>");
    } else if (has("specular included") || has("specular excluded")) {
      out_.element(6, "SphereGeometry",
                   has("included") ? "Specular_Included" : "Specular_Excluded");
    } else {
      out_.element(6, "UnknownGeometry", geometry.empty() ? "not specified" : geometry);
    }
  }

  void write_units() {
    static constexpr std::array<std::string_view, 4> kUnits = {"normalized", "fL", "cd/ft2",
                                                               "cd/m2"};
    const std::string_view units = value_of(table_, "LUMINANCE_UNITS");
    if (std::ranges::find(kUnits, units) != kUnits.end()) {
      out_.element(5, "LuminanceUnitsType", units);
    }
  }

  void write_device() {
    CxfMarkup device;
    device.element(6, "Manufacturer", answer_to(chart_, "manufacturer"));
    device.element(6, "Model", answer_to(chart_, "model"));
    device.element(6, "SerialNumber", answer_to(chart_, "serial number"));
    write_filter(device);
    device.element(6, "DeviceIllumination", illumination_in_cxf(text_of(chart_.conditions.m)));
    const std::string polarization = small_letters(text_of(chart_.conditions.polarization));
    if (polarization == "yes" || polarization == "no") {
      device.element(6, "DevicePolarization", polarization == "yes" ? "true" : "false");
    }
    if (device.view().empty()) return;
    out_.line(5, "<cc:Device>").raw(device.view()).raw("\t\t\t\t\t</cc:Device>\n");
  }

  void write_filter(CxfMarkup& device) const {
    const std::string_view words = text_of(chart_.conditions.filter);
    const std::string filter = small_letters(words);
    if (filter == "none" || filter == "no") {
      device.element(6, "DeviceFilter", "Filter_None");
    } else if (filter.starts_with("uv")) {
      device.element(6, "DeviceFilter", "Filter_UVExcluded");
    } else if (filter == "d65") {
      device.element(6, "DeviceFilter", "Filter_UVD65");
    } else if (!words.empty()) {
      device.raw("\t\t\t\t\t\t<cc:DeviceFilter FilterDescription=\"").escaped(words);
      device.raw("\">Filter_Custom</cc:DeviceFilter>\n");
    }
  }

  void write_target_type() {
    static constexpr std::array<std::string_view, 5> kTypes = {"IT8.7/1", "IT8.7/2", "IT8.7/3",
                                                               "IT8.7/4", "ECI2002"};
    const std::string_view type = value_of(table_, "TARGET_TYPE");
    if (type.empty()) return;
    out_.line(4, "<cc:PhysicalAttributes>");
    if (std::ranges::find(kTypes, type) != kTypes.end()) {
      out_.element(5, "TargetType", type);
    } else {
      out_.raw("\t\t\t\t\t<cc:TargetType OtherType=\"")
          .escaped(type)
          .raw("\">Other</cc:TargetType>\n");
    }
    out_.line(4, "</cc:PhysicalAttributes>");
  }

  const Table& table_;
  const Chart& chart_;
  const CxfColumns& columns_;
  CxfMarkup& out_;
};

// Takes characters that a pattern of digits ('d') and signs asks for off the front of a text.
bool take_pattern(std::string_view& text, std::string_view pattern) {
  if (text.size() < pattern.size()) return false;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    const bool is_digit = text[i] >= '0' && text[i] <= '9';
    if (pattern[i] == 'd' ? !is_digit : text[i] != pattern[i]) return false;
  }
  text.remove_prefix(pattern.size());
  return true;
}

bool is_up_to(std::string_view two_digits, int least, int most) {
  const int value = (two_digits[0] - '0') * 10 + (two_digits[1] - '0');
  return value >= least && value <= most;
}

}  // namespace

bool is_date_and_time(std::string_view text) {
  const std::string_view whole = text;
  if (!take_pattern(text, "dddd-dd-ddTdd:dd:dd")) return false;
  const bool is_possible =
      is_up_to(whole.substr(5, 2), 1, 12) && is_up_to(whole.substr(8, 2), 1, 31) &&
      is_up_to(whole.substr(11, 2), 0, 23) && is_up_to(whole.substr(14, 2), 0, 59) &&
      is_up_to(whole.substr(17, 2), 0, 59);
  if (!is_possible) return false;
  if (take_pattern(text, ".d")) {
    while (take_pattern(text, "d")) {
    }
  }
  const bool has_zone = take_pattern(text, "Z") || take_pattern(text, "+dd:dd") ||
                        take_pattern(text, "-dd:dd") || text.empty();
  return has_zone && text.empty();
}

void write_cxf_information(const Table& table, CxfMarkup& out) { Information(table, out).write(); }

void write_cxf_specifications(const Table& table, const Chart& chart, const CxfColumns& columns,
                              const CxfSpecificationIds& ids, CxfMarkup& out) {
  out.line(2, "<cc:ColorSpecificationCollection>");
  Specification(table, chart, columns, out).write(ids.colours);
  out.raw("\t\t\t<cc:ColorSpecification Id=\"").raw(ids.device).raw("\">\n");
  out.raw(
      "\t\t\t\t<cc:MeasurementSpec>\n"
      "\t\t\t\t\t<cc:MeasurementType>Colorimetric_Reflectance</cc:MeasurementType>\n"
      "\t\t\t\t\t<cc:GeometryChoice>\n"
      "\t\t\t\t\t\t<cc:UnknownGeometry>Target</cc:UnknownGeometry>\n"
      "\t\t\t\t\t</cc:GeometryChoice>\n"
      "\t\t\t\t</cc:MeasurementSpec>\n"
      "\t\t\t</cc:ColorSpecification>\n");
  out.line(2, "</cc:ColorSpecificationCollection>");
}

}  // namespace measkit
