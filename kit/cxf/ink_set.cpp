#include "kit/cxf/ink_set.h"

#include <algorithm>
#include <array>
#include <unordered_set>
#include <utility>

namespace measkit::cxf {
namespace {

constexpr std::array<std::string_view, 4> kProcess = {"Cyan", "Magenta", "Yellow", "Black"};
constexpr std::string_view kDigits = "0123456789ABCDEF";

using Fields = std::vector<std::string>;

Fields numbered(std::string_view set, std::size_t count, bool is_hexadecimal) {
  Fields fields;
  for (std::size_t i = 1; i <= count; ++i) {
    std::string number = is_hexadecimal ? std::string(1, kDigits[i]) : std::to_string(i);
    fields.push_back(std::string(set).append("_").append(number));
  }
  return fields;
}

// The fields of a set that is named as measurement files name them; empty for other names.
Fields fields_of_set(std::string_view set, std::size_t count) {
  const std::string decimal = std::to_string(count), hexadecimal(1, kDigits[count]);
  if (set == "CMY" && count == 3) return {"CMY_C", "CMY_M", "CMY_Y"};
  if (set == "GRAY" && count == 1) return {"GRAY"};
  if (set == hexadecimal + "CLR") return numbered(set, count, true);
  const bool is_numbered = set == decimal + "CLR" || set == "PC" + decimal || set == "SPOT";
  return is_numbered ? numbered(set, count, false) : Fields();
}

// The set that all patches with inks name.
std::string_view set_of(const Document& document, const Layer& layer) {
  std::string_view set;
  for (const Patch& patch : layer.patches) {
    if (patch.device == kNoObject || document.objects[patch.device].inks.count == 0) continue;
    const std::string_view own = document.objects[patch.device].ink_set;
    if (own.empty() || (!set.empty() && own != set)) return {};
    set = own;
  }
  return set;
}

}  // namespace

InkSet::InkSet(const Document& document, const Layer& layer) {
  std::vector<std::string_view> met;
  std::unordered_set<std::string_view> seen;
  for (const Patch& patch : layer.patches) {
    if (patch.device == kNoObject) continue;
    const Range range = document.objects[patch.device].inks;
    for (std::size_t i = range.first; i < range.first + range.count; ++i) {
      if (seen.insert(document.inks[i].name).second) met.push_back(document.inks[i].name);
    }
  }
  if (met.size() <= kMost) fields_ = fields_of_set(set_of(document, layer), met.size());
  const bool is_set = !fields_.empty();
  for (const std::string_view ink : kProcess) {
    if (!is_set && seen.contains(ink)) add(ink);
  }
  for (const std::string_view ink : met) add(ink);
  if (!is_set) name_fields();
}

void InkSet::add(std::string_view name) {
  if (positions_.emplace(name, names_.size()).second) names_.push_back(name);
}

bool InkSet::is(std::initializer_list<std::string_view> names) const {
  return std::ranges::equal(names_, names);
}

bool InkSet::needs_names() const {
  return !is({"Cyan", "Magenta", "Yellow", "Black"}) && !is({"Cyan", "Magenta", "Yellow"}) &&
         !is({"Gray"}) && !is({"Grey"});
}

void InkSet::name_fields() {
  if (is({"Cyan", "Magenta", "Yellow", "Black"})) {
    fields_ = {"CMYK_C", "CMYK_M", "CMYK_Y", "CMYK_K"};
  } else if (is({"Cyan", "Magenta", "Yellow"})) {
    fields_ = {"CMY_C", "CMY_M", "CMY_Y"};
  } else if (!needs_names()) {
    fields_ = {"GRAY"};
  } else if (!is_too_large()) {
    fields_ = numbered(std::string(1, kDigits[size()]) + "CLR", size(), true);
  }
}

}  // namespace measkit::cxf
