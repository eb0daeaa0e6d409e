#include "kit/cxf/ink_set.h"

#include <algorithm>
#include <array>
#include <unordered_set>

namespace measkit::cxf {
namespace {

constexpr std::array<std::string_view, 4> kProcess = {"Cyan", "Magenta", "Yellow", "Black"};
constexpr std::string_view kDigits = "0123456789ABCDEF";

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
  for (const std::string_view ink : kProcess) {
    if (seen.contains(ink)) add(ink);
  }
  for (const std::string_view ink : met) add(ink);
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

std::vector<std::string> InkSet::fields() const {
  if (is({"Cyan", "Magenta", "Yellow", "Black"})) return {"CMYK_C", "CMYK_M", "CMYK_Y", "CMYK_K"};
  if (is({"Cyan", "Magenta", "Yellow"})) return {"CMY_C", "CMY_M", "CMY_Y"};
  if (!needs_names()) return {"GRAY"};
  std::vector<std::string> fields;
  for (std::size_t i = 1; i <= names_.size(); ++i) {
    fields.push_back(std::string(1, kDigits[names_.size()]) + "CLR_" + kDigits[i]);
  }
  return fields;
}

}  // namespace measkit::cxf
