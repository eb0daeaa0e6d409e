// What a CxF3 document says, before anything is paired or judged.
#ifndef MEASDATA_KIT_CXF_DOCUMENT_H
#define MEASDATA_KIT_CXF_DOCUMENT_H

#include "kit/cxf/counted_names.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

namespace measkit::cxf {

/// Colour values by the fields that they become.
enum class Kind : std::uint8_t {
  reflectance,
  transmittance,
  emission,
  lab,
  lch,
  luv,
  xyz,
  emissive_xyz,
  xyy,
  emissive_xyy,
  density_red,
  density_green,
  density_blue,
  density_visual,
};
inline constexpr std::size_t kKinds = 14;
constexpr bool is_spectrum(Kind kind) { return kind <= Kind::emission; }

struct Measured {
  Kind kind = Kind::lab;
  int specification = 0;                    ///< index into Document::specifications
  std::array<std::string_view, 3> parts{};  ///< of a spectrum: values, start, increment
  std::string_view status{};                ///< of a density
  std::size_t bands = 0;                    ///< of a spectrum
  bool is_by_points = false;                ///< a spectrum of the kind that its specification says
  std::size_t offset = 0;
};

struct Ink {
  std::string_view name, percent;
};

struct Tag {
  std::string_view name, value;
  bool is_cell = false;  ///< of the field with this name
};

/// Part of one of the document's lists.
struct Range {
  std::size_t first = 0, count = 0;
};

struct Object {
  std::string_view type, name;
  std::size_t offset = 0;
  Range colours, inks, tags;
  std::array<std::string_view, 3> rgb{}, srgb{};
  std::string_view rgb_range{}, srgb_range{};  ///< the value of full light; empty for 255
  std::string_view page{}, row{}, column{}, location{}, sample_id{}, sample_name{};
  std::string_view ink_set{};  ///< the name that the inks have as a set
  bool has_cells = false;      ///< says cells of fields, perhaps none

  bool has_colours() const { return colours.count != 0; }
  bool has_rgb() const { return !rgb[0].empty(); }
  bool has_device() const { return has_rgb() || inks.count != 0; }
  bool has_location() const { return !row.empty() && !column.empty(); }
};

/// How values were measured and computed, in the words of the document; empty where it says
/// nothing.
struct Specification {
  std::string_view id{};
  bool is_declared = false;
  std::size_t offset = 0;
  std::string_view illuminant{}, observer{}, method{};
  std::string_view type{}, start{}, increment{}, units{}, calibration{}, aperture{}, backing{};
  std::string_view geometry{};  ///< in the words of measurement files
  std::string_view manufacturer{}, model{}, serial{}, filter{}, illumination{}, polarization{};
  std::string_view target_type{}, substrate{}, finish{};
};

struct Keyword {
  std::string_view name, value;
  std::size_t offset = 0;
  bool is_element = false;  ///< and not a tag
};

struct Document {
  std::vector<Keyword> keywords;  ///< of the file's information
  std::vector<Object> objects;
  std::vector<Measured> colours;
  std::vector<Ink> inks;
  std::vector<Tag> tags;
  std::vector<Specification> specifications;
  /// The first line of the measurement file that the document was made of, whose keywords are the
  /// tags of the file's information.
  std::string_view measurement_file;
  std::string_view created;            ///< of the file, else of its first object
  std::string_view custom_instrument;  ///< as a maker's own part names it
  CountedNames lost;                   ///< colour and device values that no field can hold
  CountedNames passed_over;            ///< other content
  CountedNames repeated_tags;          ///< of patches, with another value than the first
  std::size_t too_long = 0;
};

}  // namespace measkit::cxf

#endif  // MEASDATA_KIT_CXF_DOCUMENT_H
