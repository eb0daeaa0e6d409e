#include "dataset/generic_prefix.h"

#include <algorithm>
#include <numeric>

namespace vantor::DataSet {
namespace {

constexpr double kShortestNm = 200.0;
constexpr double kLongestNm = 1900.0;

// Everything up to the last character that is not a digit, when at least three digits follow it;
// names of one or two characters pass with fewer. Empty for a name of digits only.
std::string_view propose(std::string_view name) {
  const std::size_t last = name.find_last_not_of("0123456789");
  if (last == std::string_view::npos) return {};
  const bool has_digits_enough = name.size() < 3 || last < name.size() - 3;
  return has_digits_enough ? name.substr(0, last + 1) : std::string_view();
}

}  // namespace

std::string_view GenericPrefixRule::prefix_from(std::size_t index) {
  const std::string_view prefix = propose(names_[index]);
  if (prefix.empty()) return {};
  const auto judged = judged_.find(prefix);
  const std::ptrdiff_t last_but_one_index =
      judged != judged_.end() ? judged->second
                              : judged_.emplace(prefix, last_but_one(prefix)).first->second;
  return last_but_one_index >= static_cast<std::ptrdiff_t>(index) ? prefix : std::string_view();
}

std::ptrdiff_t GenericPrefixRule::last_but_one(std::string_view prefix) {
  if (by_name_.empty()) {
    by_name_.resize(names_.size());
    std::iota(by_name_.begin(), by_name_.end(), std::size_t{0});
    std::sort(by_name_.begin(), by_name_.end(),
              [this](std::size_t a, std::size_t b) { return names_[a] < names_[b]; });
  }
  // Names that begin with the prefix stand together.
  auto entry = std::lower_bound(
      by_name_.begin(), by_name_.end(), prefix,
      [this](std::size_t index, std::string_view value) { return names_[index] < value; });
  const auto end = std::partition_point(entry, by_name_.end(), [this, prefix](std::size_t index) {
    return names_[index].starts_with(prefix);
  });
  std::ptrdiff_t last = -1;
  std::ptrdiff_t second = -1;
  for (; entry != end; ++entry) {
    if (!has_wavelength(names_[*entry], prefix.size())) continue;
    const auto index = static_cast<std::ptrdiff_t>(*entry);
    second = std::max(second, std::min(last, index));
    last = std::max(last, index);
  }
  return second;
}

bool GenericPrefixRule::has_wavelength(std::string_view name, std::size_t prefix_length) const {
  const std::string_view rest = name.substr(prefix_length);
  // No number of this range begins with anything else; most names are told by this alone.
  constexpr std::string_view kStarts = "0123456789.+ \t\v\f";
  constexpr std::string_view kNumberCharacters = "0123456789.,+- \t\v\fabcdefABCDEFpPxX";
  if (rest.empty() || kStarts.find(rest.front()) == std::string_view::npos) return false;
  // What follows the number may be long.
  const double nm = numbers_.read(rest.substr(0, rest.find_first_not_of(kNumberCharacters)));
  return nm >= kShortestNm && nm <= kLongestNm;
}

}  // namespace vantor::DataSet
