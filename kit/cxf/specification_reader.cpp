#include "kit/cxf/specification_reader.h"

#include "kit/preflight/conditions.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace measkit::cxf {
namespace {

struct Member {
  std::string_view element;
  std::string_view Specification::*member;
};
constexpr std::array<Member, 3> kTristimulus = {{
    {"Illuminant", &Specification::illuminant},
    {"Observer", &Specification::observer},
    {"Method", &Specification::method},
}};
constexpr std::array<Member, 5> kMeasurement = {{
    {"MeasurementType", &Specification::type},
    {"LuminanceUnitsType", &Specification::units},
    {"CalibrationStandard", &Specification::calibration},
    {"Aperture", &Specification::aperture},
    {"Backing", &Specification::backing},
}};
constexpr std::array<Member, 6> kDevice = {{
    {"Manufacturer", &Specification::manufacturer},
    {"Model", &Specification::model},
    {"SerialNumber", &Specification::serial},
    {"DeviceFilter", &Specification::filter},
    {"DeviceIllumination", &Specification::illumination},
    {"DevicePolarization", &Specification::polarization},
}};
constexpr std::array<Member, 3> kPhysical = {{
    {"TargetType", &Specification::target_type},
    {"SubstrateType", &Specification::substrate},
    {"FinishType", &Specification::finish},
}};

class SpecificationReader {
 public:
  SpecificationReader(const Record& record, Specification& specification, CountedNames& passed_over,
                      TextPool& pool)
      : record_(record), specification_(specification), passed_over_(passed_over), pool_(pool) {}

  void read() {
    specification_.is_declared = true;
    specification_.offset = record_.root().offset;
    record_.for_each_child(record_.root(), [this](const Node& part) {
      if (part.name == "TristimulusSpec") {
        take_all(part, kTristimulus);
      } else if (part.name == "PhysicalAttributes") {
        take_all(part, kPhysical);
      } else if (part.name == "MeasurementSpec") {
        read_measurement(part);
      } else {
        pass_over(part);
      }
    });
  }

 private:
  static std::string_view or_else(std::string_view text, std::string_view other) {
    return text.empty() ? other : text;
  }

  template <std::size_t Size>
  bool take(const Node& node, const std::array<Member, Size>& members) {
    const auto found = std::ranges::find(members, node.name, &Member::element);
    if (found == members.end()) return false;
    std::string_view text = node.text;
    // What the words of CxF do not say stands in an attribute.
    if (text == "Other") text = or_else(record_.attribute(node, "OtherType"), text);
    if (text == "Filter_Custom") text = or_else(record_.attribute(node, "FilterDescription"), text);
    specification_.*(found->member) = text;
    return true;
  }

  template <std::size_t Size>
  void take_all(const Node& parent, const std::array<Member, Size>& members) {
    record_.for_each_child(parent, [&](const Node& node) {
      if (!take(node, members)) pass_over(node);
    });
  }

  void read_measurement(const Node& measurement) {
    record_.for_each_child(measurement, [this](const Node& part) {
      if (part.name == "WavelengthRange") {
        specification_.start = record_.attribute(part, "StartWL");
        specification_.increment = record_.attribute(part, "Increment");
      } else if (part.name == "Device") {
        take_all(part, kDevice);
      } else if (part.name == "GeometryChoice") {
        record_.for_each_child(part, [this](const Node& geometry) { read_geometry(geometry); });
      } else if (!take(part, kMeasurement)) {
        pass_over(part);
      }
    });
  }

  void read_geometry(const Node& geometry) {
    if (geometry.name == "SingleAngle") {
      const std::string_view light = angle(geometry, "IlluminationAngle");
      const std::string_view eye = angle(geometry, "MeasurementAngle");
      if (light.empty() || eye.empty()) return;
      specification_.geometry = pool_.add(std::string(light) + "/" + std::string(eye));
    } else if (geometry.name == "SphereGeometry") {
      std::string text = "sphere";
      if (geometry.text == "Specular_Included") text += ", specular included";
      if (geometry.text == "Specular_Excluded") text += ", specular excluded";
      specification_.geometry = pool_.add(text);
    } else if (geometry.name == "UnknownGeometry") {
      const bool is_told = geometry.text != "Target" && !is_placeholder(geometry.text);
      if (is_told) specification_.geometry = geometry.text;
    } else if (geometry.name != "EmissiveMode") {
      pass_over(geometry);
    }
  }

  // "0.0" is written as "0".
  std::string_view angle(const Node& geometry, std::string_view name) const {
    std::string_view text = record_.text_of(geometry, name);
    if (text.find('.') == std::string_view::npos) return text;
    text = text.substr(0, text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) text.remove_suffix(1);
    return text;
  }

  void pass_over(const Node& node) {
    passed_over_.add(node.name.empty() ? "elements of other namespaces" : node.name, node.offset);
  }

  const Record& record_;
  Specification& specification_;
  CountedNames& passed_over_;
  TextPool& pool_;
};

constexpr std::array<std::array<std::string_view, 2>, 4> kInformation = {{
    {"Creator", "ORIGINATOR"},
    {"CreationDate", "CREATED"},
    {"Description", "DESCRIPTOR"},
    {"Comment", "COMMENT"},
}};

}  // namespace

void read_file_information(const Record& record, Document& document) {
  record.for_each_child(record.root(), [&](const Node& node) {
    for (const auto& [element, keyword] : kInformation) {
      if (element != node.name) continue;
      document.keywords.push_back({keyword, node.text, node.offset, true});
      if (keyword == "CREATED") document.created = node.text;
      return;
    }
    if (node.name == "Tag") {
      const std::string_view name = record.attribute(node, "Name");
      const std::string_view value = record.attribute(node, "Value");
      if (name == "MEASUREMENT_FILE" && !value.empty()) {
        document.measurement_file = value;
      } else {
        const bool is_whole = !document.measurement_file.empty();
        document.keywords.push_back(
            {name, is_whole ? record.whole_attribute(node, "Value") : value, node.offset});
      }
    } else {
      document.passed_over.add(node.name.empty() ? "elements of other namespaces" : node.name,
                               node.offset);
    }
  });
}

void read_specification(const Record& record, Specification& specification,
                        CountedNames& passed_over, TextPool& pool) {
  SpecificationReader(record, specification, passed_over, pool).read();
}

}  // namespace measkit::cxf
