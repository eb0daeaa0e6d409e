#include "tests/kit/cxf_rules.h"

#include <expat.h>

#include <cstring>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace cxf_rules {
namespace {

// Children in their order and attributes in the order of the alphabet, each with a blank behind it.
struct Shape {
  const char* children;
  const char* attributes;
};
const std::string kColour =
    "((ReflectanceSpectrum|TransmittanceSpectrum|EmissiveSpectrum|CustomSpectrum|ColorCIELab|"
    "ColorCIELCh|ColorCIEXYZ|ColorCIExyY|ColorDensity) )*";
const std::map<std::string, Shape> kShapes = {
    {"CxF", {"FileInformation (Resources )?", ""}},
    {"FileInformation", {"(Creator )?(CreationDate )?(Description )?(Comment )?(Tag )*", ""}},
    {"Tag", {"", "Name Value "}},
    {"Resources", {"(ObjectCollection )?(ColorSpecificationCollection )?", ""}},
    {"ObjectCollection", {"(Object )+", ""}},
    {"Object",
     {"CreationDate (ColorValues )?(DeviceColorValues )?(TagCollection )*", "Id Name ObjectType "}},
    {"ColorValues", {kColour.c_str(), ""}},
    {"DeviceColorValues", {"((ColorRGB|ColorCMYK|ColorCMYKPlusN|ColorCustom) )*", ""}},
    {"TagCollection", {"(Tag )*", "Name "}},
    {"ReflectanceSpectrum", {"", "ColorSpecification StartWL "}},
    {"TransmittanceSpectrum", {"", "ColorSpecification StartWL "}},
    {"EmissiveSpectrum", {"", "ColorSpecification StartWL "}},
    {"CustomSpectrum", {"(SpectralPoint )+", "ColorSpecification "}},
    {"SpectralPoint", {"", "WL "}},
    {"ColorCIELab", {"L A B ", "ColorSpecification "}},
    {"ColorCIELCh", {"L C H ", "ColorSpecification "}},
    {"ColorCIEXYZ", {"X Y Z ", "ColorSpecification "}},
    {"ColorCIExyY", {"x y Y ", "ColorSpecification "}},
    {"ColorDensity", {"Density Status Filter ", "ColorSpecification "}},
    {"ColorRGB", {"(MaxRange )?R G B ", "ColorSpecification "}},
    {"ColorCMYK", {"Cyan Magenta Yellow Black ", "ColorSpecification "}},
    {"ColorCMYKPlusN", {"Cyan Magenta Yellow Black (SpotColor )*", "ColorSpecification "}},
    {"ColorCustom", {"(SpotColor )+", "ColorSpecification Name "}},
    {"SpotColor", {"Name Percentage ", ""}},
    {"ColorSpecificationCollection", {"(ColorSpecification )+", ""}},
    {"ColorSpecification", {"(TristimulusSpec )?MeasurementSpec (PhysicalAttributes )?", "Id "}},
    {"TristimulusSpec", {"Illuminant Observer Method ", ""}},
    {"MeasurementSpec",
     {"MeasurementType GeometryChoice (WavelengthRange )?(LuminanceUnitsType )?"
      "(CalibrationStandard )?(Aperture )?(Backing )?(Device )?",
      ""}},
    {"GeometryChoice", {"(SingleAngle|SphereGeometry|UnknownGeometry) ", ""}},
    {"SingleAngle", {"SingleAngleConfiguration IlluminationAngle MeasurementAngle ", ""}},
    {"WavelengthRange", {"", "Increment StartWL "}},
    {"Device",
     {"(Manufacturer )?(Model )?(SerialNumber )?(DeviceFilter )?(DeviceIllumination )?"
      "(DevicePolarization )?",
      ""}},
    {"DeviceFilter", {"", "(FilterDescription )?"}},
    {"PhysicalAttributes", {"TargetType ", ""}},
    {"TargetType", {"", "(OtherType )?"}},
};

const std::string kNumber = "[-+]?([0-9]+(\\.[0-9]*)?|\\.[0-9]+)";
const std::string kShare = "\\+?(0*(\\.[0-9]*)?|0*1(\\.0*)?)";
const std::string kPositive = "\\+?([0-9]+(\\.[0-9]*)?|\\.[0-9]+)";
const std::string kPercent = "\\+?(0*[0-9]{1,2}(\\.[0-9]*)?|\\.[0-9]+|0*100(\\.0*)?)";
const std::map<std::string, std::string> kTexts = {
    {"CreationDate",
     "[0-9]{4}-[0-9]{2}-[0-9]{2}T[0-9]{2}:[0-9]{2}:[0-9]{2}(\\.[0-9]+)?"
     "(Z|[-+][0-9]{2}:[0-9]{2})?"},
    {"SpectralPoint", kNumber + "|NaN"},
    {"L", kPositive},
    {"A", kNumber},
    {"B", kNumber},
    {"C", kPositive},
    {"H", kPositive},
    {"X", kPositive},
    {"Y", kPositive},
    {"Z", kPositive},
    {"x", kShare},
    {"y", kShare},
    {"Density", kNumber},
    {"Status", "A|E|I|M|T|SpectralX|Spectral|HiFi|Hex|Txp|Ex|DIN|DIN-NB|PD|APD"},
    {"Filter", "Visual|Cyan|Magenta|Yellow|Black|Red|Green|Blue|A|B"},
    {"MaxRange", "25500"},
    {"R", "[0-9]{1,5}"},
    {"G", "[0-9]{1,5}"},
    {"Cyan", kPercent},
    {"Magenta", kPercent},
    {"Yellow", kPercent},
    {"Black", kPercent},
    {"Percentage", kPercent},
    {"Illuminant", "A|B|C|D50|D55|D60|D65|D75|E|F2|F3|F7|F9|F1[012]|9300|TL8[34]|UL[35]0"},
    {"Observer", "2_Degree|10_Degree"},
    {"Method", "E308_Table5|E308_Table6|E308_1nm|unknown"},
    {"MeasurementType", "(Spectrum|Colorimetric)_(Reflectance|Transmittance|Emissive)"},
    {"UnknownGeometry", ".+"},
    {"DeviceFilter", "Filter_(None|UVExcluded|UVD65|Partial|Custom)"},
    {"DeviceIllumination", "M0_Incandescent|M1_Daylight|M2_UVExcluded|M3_Polarized"},
    {"DevicePolarization", "true|false"},
    {"TargetType", "IT8\\.7/[1-4]|ECI2002|Other"},
};

bool matches(const std::string& text, const std::string& pattern) {
  static std::map<std::string, std::regex> made;  // making one takes long
  const auto found = made.try_emplace(pattern, pattern).first;
  return std::regex_match(text, found->second);
}

bool is_spectrum(const std::string& list, double least, double most) {
  std::istringstream words(list);
  for (std::string word; words >> word;) {
    const double value = std::stod(word);
    const bool is_in = value > least && value < most;
    if (!is_in || !matches(word, kNumber)) return false;
  }
  return !list.empty();
}

struct Checker {
  struct Element {
    std::string name, children, text;
  };
  std::vector<Element> open;
  std::set<std::string> ids, specifications, named;
  std::string fault;

  void expect(bool is_right, const std::string& what) {
    if (!is_right && fault.empty()) fault = what;
  }
  void begin(const char* expat_name, const char** attributes) {
    const std::string_view whole = expat_name, space = "http://colorexchangeformat.com/CxF3-core|";
    expect(whole.starts_with(space), "namespace of " + std::string(whole));
    const std::string name(whole.substr(std::min(space.size(), whole.size())));
    std::map<std::string, std::string> values;
    for (; *attributes != nullptr; attributes += 2) values[attributes[0]] = attributes[1];
    std::string names;
    for (const auto& [attribute, value] : values) names += attribute + " ";
    const auto shape = kShapes.find(name);
    const std::string allowed = shape == kShapes.end() ? "" : shape->second.attributes;
    expect(matches(names, allowed), name + " has attributes " + names);
    if (name == "Object" || name == "ColorSpecification") {
      const std::string& id = values["Id"];
      expect(matches(id, "[A-Za-z_][-A-Za-z0-9_.]*"), "Id " + id);
      expect((name == "Object" ? ids : specifications).insert(id).second, "second " + id);
    }
    if (values.contains("ColorSpecification")) named.insert(values["ColorSpecification"]);
    const std::string& start = values["StartWL"];
    expect(start.empty() || (std::stoi(start) >= 360 && std::stoi(start) <= 400), "start " + start);
    if (name == "WavelengthRange") {
      expect(matches(values["Increment"], "1|2|5|10|20"), "increment");
    }
    if (!open.empty()) open.back().children += name + " ";
    open.push_back({name, "", ""});
  }
  void end() {
    const Element& element = open.back();
    const auto shape = kShapes.find(element.name);
    const std::string allowed = shape == kShapes.end() ? "" : shape->second.children;
    expect(matches(element.children, allowed), element.name + " holds " + element.children);
    const auto text = kTexts.find(element.name);
    const bool is_right = text == kTexts.end() || matches(element.text, text->second);
    expect(is_right, element.name + " is " + element.text);
    if (element.name == "EmissiveSpectrum") {
      expect(is_spectrum(element.text, 0.0, 1e300), element.text);
    } else if (element.name.ends_with("ctanceSpectrum")) {
      expect(is_spectrum(element.text, -0.1, 3.0), element.text);
    }
    open.pop_back();
  }
};

}  // namespace

std::string first_fault(const std::string& document) {
  Checker checker;
  const XML_Parser parser = XML_ParserCreateNS(nullptr, '|');
  XML_SetUserData(parser, &checker);
  XML_SetElementHandler(
      parser,
      [](void* self, const char* name, const char** attributes) {
        static_cast<Checker*>(self)->begin(name, attributes);
      },
      [](void* self, const char*) { static_cast<Checker*>(self)->end(); });
  XML_SetCharacterDataHandler(parser, [](void* self, const char* text, int size) {
    static_cast<Checker*>(self)->open.back().text.append(text, static_cast<std::size_t>(size));
  });
  const int size = static_cast<int>(document.size());
  checker.expect(XML_Parse(parser, document.data(), size, 1) == XML_STATUS_OK, "not well-formed");
  XML_ParserFree(parser);
  for (const std::string& id : checker.named) {
    checker.expect(checker.specifications.contains(id), "no specification " + id);
  }
  return checker.fault;
}

}  // namespace cxf_rules
