// Results of the C interface as C++ values.
#ifndef MEASDATA_TOOLS_QUERIES_H
#define MEASDATA_TOOLS_QUERIES_H

#include <array>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tools {

using Triple = std::array<double, 3>;

/// A text of the library, or none.
using Text = std::optional<std::string>;

/// One patch of the file or one merged patch.
struct Patch {
  std::string id, name, location;  ///< empty where the file has none
  std::vector<double> device;
  std::optional<Triple> xyz, lab;
  std::vector<double> spectrum;
};

Patch patch_at(void* handle, int patch);
/// A merged patch; its id, location and XYZ stay empty.
Patch merged_patch_at(void* handle, int index);

/// Repeated measurements of a merged patch.
struct Repeats {
  int count = 0;
  double de_mean = 0.0;
  std::optional<double> de_max;  ///< none for a single measurement
};
std::optional<Repeats> repeats_at(void* handle, int index);

struct DistinctValue {
  double value;
  int count;
};

struct Channel {
  Text name;
  std::vector<DistinctValue> distinct_values;
  std::vector<int> wedge;  ///< indices
  std::optional<int> solid;
};
std::vector<Channel> channels_of(void* handle);

/// "CMYK", "CMY", "RGB" or the number of channels.
std::string device_space_name(void* handle);

/// sRGB as #RRGGBB; none if a component is not a number.
Text hex_colour(const Triple& lab);

/// A question about instrument or sample, and its name.
struct Question {
  const char* name;
  const char* (*ask)(void*);
};
std::span<const Question> instrument_questions();
std::span<const Question> sample_questions();
Text answer_to(const Question& question, void* handle);

}  // namespace tools

#endif  // MEASDATA_TOOLS_QUERIES_H
