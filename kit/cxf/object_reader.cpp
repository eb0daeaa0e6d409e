#include "kit/cxf/object_reader.h"

#include "kit/cxf/custom_spectrum.h"
#include "kit/cxf/numbers.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>

namespace measkit::cxf {
namespace {

struct Triple {
  std::string_view element;
  Kind kind;
  std::array<std::string_view, 3> parts;
};
constexpr std::array<Triple, 7> kTriples = {{
    {"ColorCIELab", Kind::lab, {"L", "A", "B"}},
    {"ColorCIEXYZ", Kind::xyz, {"X", "Y", "Z"}},
    {"ColorCIELCh", Kind::lch, {"L", "C", "H"}},
    {"ColorCIELuv", Kind::luv, {"L", "U", "V"}},
    {"ColorCIExyY", Kind::xyy, {"x", "y", "Y"}},
    {"ColorEmissiveCIEXYZ", Kind::emissive_xyz, {"X", "Y", "Z"}},
    {"ColorEmissiveCIExyY", Kind::emissive_xyy, {"x", "y", "Y"}},
}};

struct Spectrum {
  std::string_view element;
  Kind kind;
};
constexpr std::array<Spectrum, 3> kSpectra = {{
    {"ReflectanceSpectrum", Kind::reflectance},
    {"TransmittanceSpectrum", Kind::transmittance},
    {"EmissiveSpectrum", Kind::emission},
}};

// A density of an ink is measured behind the filter of the other colour.
struct Filter {
  std::string_view name;
  Kind kind;
};
constexpr std::array<Filter, 8> kFilters = {{
    {"Cyan", Kind::density_red},
    {"Red", Kind::density_red},
    {"Magenta", Kind::density_green},
    {"Green", Kind::density_green},
    {"Yellow", Kind::density_blue},
    {"Blue", Kind::density_blue},
    {"Black", Kind::density_visual},
    {"Visual", Kind::density_visual},
}};

constexpr std::array<std::string_view, 6> kProcessInks = {"Cyan",  "Magenta", "Yellow",
                                                          "Black", "Orange",  "Green"};

struct PatchTag {
  std::string_view name;
  std::string_view Object::*member;
};
constexpr std::array<PatchTag, 6> kPatchTags = {{
    {"Page", &Object::page},
    {"Row", &Object::row},
    {"Column", &Object::column},
    {"SampleID", &Object::sample_id},
    {"SampleName", &Object::sample_name},
    {"SAMPLE_LOC", &Object::location},
}};

class ObjectReader {
 public:
  ObjectReader(const Record& record, const SpecificationOf& specification_of, TextPool& pool,
               Document& document)
      : record_(record), specification_of_(specification_of), pool_(pool), document_(document) {}

  void read() {
    const Node& root = record_.root();
    object_.type = record_.attribute(root, "ObjectType");
    object_.name = text_of(root, "Name", false);
    object_.offset = root.offset;
    if (!record_.attribute(root, "GUID").empty()) document_.passed_over.add("GUID", root.offset);
    object_.colours.first = document_.colours.size();
    object_.inks.first = document_.inks.size();
    object_.tags.first = document_.tags.size();
    record_.for_each_child(root, [this](const Node& part) { read_part(part); });
    object_.colours.count = document_.colours.size() - object_.colours.first;
    object_.inks.count = document_.inks.size() - object_.inks.first;
    object_.tags.count = document_.tags.size() - object_.tags.first;
    document_.objects.push_back(object_);
  }

 private:
  void read_part(const Node& part) {
    if (part.name == "ColorValues") {
      record_.for_each_child(part, [this](const Node& value) { read_colour(value); });
    } else if (part.name == "DeviceColorValues") {
      record_.for_each_child(part, [this](const Node& value) { read_device(value); });
    } else if (part.name == "TagCollection") {
      const bool are_cells = record_.attribute(part, "Name") == "Fields";
      object_.has_cells = object_.has_cells || are_cells;
      record_.for_each_child(part, [&](const Node& tag) { read_tag(tag, are_cells); });
    } else if (part.name == "PhysicalAttributes") {
      record_.for_each_child(part, [this](const Node& one) { read_attribute(one); });
    } else if (part.name == "Comment") {
      add_tag("COMMENT", part.text);
    } else if (part.name == "ColorDifferenceValues") {
      lose(part);
    } else if (part.name == "CreationDate") {
      read_date(part);
    } else {
      pass_over(part);
    }
  }

  // Texts of measurement files have blanks around them only where someone put them into quotes.
  std::string_view text_of(const Node& node, std::string_view attribute, bool is_cell) const {
    const bool is_whole = is_cell || !document_.measurement_file.empty();
    return is_whole ? record_.whole_attribute(node, attribute) : record_.attribute(node, attribute);
  }

  void read_date(const Node& date) {
    if (!document_.measurement_file.empty()) return;
    if (document_.created.empty()) {
      document_.created = date.text;
      document_.keywords.push_back({"CREATED", date.text, date.offset});
    } else if (document_.created != date.text) {
      document_.passed_over.add("CreationDate of objects", date.offset);
    }
  }

  void read_colour(const Node& value) {
    for (const Spectrum& spectrum : kSpectra) {
      if (spectrum.element != value.name) continue;
      std::string_view increment = record_.attribute(value, "Increment");
      if (increment.empty()) increment = record_.attribute(value, "Interval");
      add(value, spectrum.kind, {value.text, record_.attribute(value, "StartWL"), increment});
      return;
    }
    for (const Triple& triple : kTriples) {
      if (triple.element == value.name) {
        add(value, triple.kind, parts_of(value, triple.parts));
        return;
      }
    }
    if (value.name == "ColorDensity") {
      read_density(value);
    } else if (value.name == "CustomSpectrum") {
      read_custom_spectrum(value);
    } else if (value.name == "ColorSRGB") {
      object_.srgb = parts_of(value, {"R", "G", "B"});
      object_.srgb_range = record_.text_of(value, "MaxRange");
    } else {
      lose(value);
    }
  }

  std::array<std::string_view, 3> parts_of(const Node& value,
                                           const std::array<std::string_view, 3>& names) const {
    return {record_.text_of(value, names[0]), record_.text_of(value, names[1]),
            record_.text_of(value, names[2])};
  }

  // Values without their first number are not written as the format has them.
  void add(const Node& value, Kind kind, const std::array<std::string_view, 3>& parts,
           std::string_view status = {}) {
    if (parts[0].empty()) {
      lose(value);
      return;
    }
    const int specification = specification_of_(record_.attribute(value, "ColorSpecification"));
    const std::size_t bands = is_spectrum(kind) ? count_words(parts[0]) : 0;
    document_.colours.push_back({kind, specification, parts, status, bands, false, value.offset});
  }

  void read_density(const Node& value) {
    const std::string_view filter = record_.text_of(value, "Filter");
    const auto found = std::ranges::find(kFilters, filter, &Filter::name);
    if (found == kFilters.end()) {
      lose(value);
      return;
    }
    if (const Node* base = record_.child(value, "BaseOffset")) pass_over(*base);
    add(value, found->kind, {record_.text_of(value, "Density"), {}, {}},
        record_.text_of(value, "Status"));
  }

  void read_custom_spectrum(const Node& value) {
    std::vector<SpectralPoint> points;
    record_.for_each_child(value, [&](const Node& point) {
      if (point.name == "SpectralPoint") {
        points.push_back({record_.attribute(point, "WL"), point.text});
      }
    });
    const std::optional<std::array<std::string_view, 3>> parts = even_spectrum(points, pool_);
    if (parts) {
      add(value, Kind::reflectance, *parts);
      document_.colours.back().is_by_points = true;
    } else {
      document_.lost.add("CustomSpectrum with uneven wavelengths", value.offset);
    }
  }

  void read_device(const Node& value) {
    if (value.name == "ColorRGB") {
      object_.rgb = parts_of(value, {"R", "G", "B"});
      object_.rgb_range = record_.text_of(value, "MaxRange");
      if (!object_.has_rgb()) lose(value);
    } else if (value.name == "ColorCMYK" || value.name == "ColorCMYKPlusN" ||
               value.name == "ColorPantoneHexachrome" || value.name == "ColorCustom") {
      read_inks(value);
    } else {
      lose(value);
    }
  }

  void read_inks(const Node& value) {
    const std::size_t inks = document_.inks.size();
    if (value.name == "ColorCustom") object_.ink_set = record_.attribute(value, "Name");
    record_.for_each_child(value, [&](const Node& ink) {
      if (ink.name == "SpotColor") {
        document_.inks.push_back(
            {record_.text_of(ink, "Name"), record_.text_of(ink, "Percentage")});
      } else if (std::ranges::find(kProcessInks, ink.name) != kProcessInks.end()) {
        document_.inks.push_back({ink.name, ink.text});
      } else {
        pass_over(ink);
      }
    });
    if (document_.inks.size() == inks) lose(value);
  }

  void read_tag(const Node& tag, bool is_cell) {
    const std::string_view name = record_.attribute(tag, "Name");
    const std::string_view value = text_of(tag, "Value", is_cell);
    if (tag.name != "Tag") {
      pass_over(tag);
      return;
    }
    const auto known = std::ranges::find(kPatchTags, name, &PatchTag::name);
    if (is_cell || known == kPatchTags.end()) {
      add_tag(name, value, is_cell);
      return;
    }
    std::string_view& kept = object_.*(known->member);
    if (kept.empty()) {
      kept = value;
    } else if (kept != value) {
      document_.repeated_tags.add(name, tag.offset);
    }
  }

  // The tint of a spot colour stands in a quantity, with its unit.
  void read_attribute(const Node& attribute) {
    if (attribute.name != "Quantity") {
      pass_over(attribute);
      return;
    }
    const std::string_view units = record_.attribute(attribute, "Units");
    add_tag(units.empty() ? "QUANTITY" : units, attribute.text);
  }

  // An empty cell still tells of its field.
  void add_tag(std::string_view name, std::string_view value, bool is_cell = false) {
    if (!name.empty() && (is_cell || !value.empty())) {
      document_.tags.push_back({name, value, is_cell});
    }
  }

  void lose(const Node& node) { document_.lost.add(name_of(node), node.offset); }
  void pass_over(const Node& node) { document_.passed_over.add(name_of(node), node.offset); }
  static std::string_view name_of(const Node& node) {
    return node.name.empty() ? "elements of other namespaces" : node.name;
  }

  const Record& record_;
  const SpecificationOf& specification_of_;
  TextPool& pool_;
  Document& document_;
  Object object_;
};

}  // namespace

void read_object(const Record& record, const SpecificationOf& specification_of, TextPool& pool,
                 Document& document) {
  ObjectReader(record, specification_of, pool, document).read();
}

}  // namespace measkit::cxf
