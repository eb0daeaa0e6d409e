#include "dataset/generic_prefix.h"

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

constexpr std::string_view kBlanks = " \t\v\f";
constexpr std::string_view kDigits = "0123456789";
constexpr std::string_view kHexDigits = "0123456789abcdefABCDEF";

// No number of the range begins with anything else.
bool may_begin_wavelength(char c) {
  return kDigits.find(c) != std::string_view::npos || kBlanks.find(c) != std::string_view::npos ||
         c == '.' || c == '+';
}

// What a text begins with that may be a number of the C library, in any locale; what follows may be
// long.
std::string_view leading_number(std::string_view text) {
  std::size_t end = 0;
  const auto skip = [&text, &end](std::string_view characters, std::size_t most) {
    for (; most != 0 && end < text.size() && characters.find(text[end]) != std::string_view::npos;
         --most) {
      ++end;
    }
  };
  constexpr std::size_t kAll = std::string_view::npos;
  skip(kBlanks, kAll);
  skip("+", 1);
  const std::string_view rest = text.substr(end);
  const bool is_hex = rest.starts_with("0x") || rest.starts_with("0X");
  if (is_hex) end += 2;
  skip(is_hex ? kHexDigits : kDigits, kAll);
  skip(".,", 1);
  skip(is_hex ? kHexDigits : kDigits, kAll);
  skip(is_hex ? "pP" : "eE", 1);
  skip("+-", 1);
  skip(kDigits, kAll);
  return text.substr(0, end);
}

std::uint64_t extend(std::uint64_t hash, char next) {
  return Base::mix(hash + static_cast<unsigned char>(next) + 1);
}

}  // namespace

std::string_view GenericPrefixRule::prefix_from(std::size_t index) {
  const std::string_view prefix = propose(names_[index]);
  if (prefix.empty()) return {};
  if (!is_judged_) judge_all();
  const Proposal* proposal = find(prefix, hash_of(prefix));
  return proposal->last_but_one >= static_cast<std::ptrdiff_t>(index) ? prefix : std::string_view();
}

// Wherever a wavelength may begin, what stands before may be one of the prefixes.
void GenericPrefixRule::judge_all() {
  is_judged_ = true;
  for (const std::string_view name : names_) {
    const std::string_view prefix = propose(name);
    if (prefix.empty()) continue;
    const auto is_same = [this, prefix](auto i) { return proposals_[i].prefix == prefix; };
    const auto position = positions_.find_or_add(hash_of(prefix), proposals_.size(), is_same);
    if (position == proposals_.size()) proposals_.push_back({prefix});
  }
  for (std::size_t index = 0; index < names_.size(); ++index) {
    const std::string_view name = names_[index];
    std::uint64_t hash = seed_;
    for (std::size_t length = 1; length < name.size(); ++length) {
      hash = extend(hash, name[length - 1]);
      if (!may_begin_wavelength(name[length])) continue;
      Proposal* const proposal = find(name.substr(0, length), hash);
      if (proposal == nullptr || !has_wavelength(name.substr(length))) continue;
      proposal->last_but_one = proposal->last;
      proposal->last = static_cast<std::ptrdiff_t>(index);
    }
  }
}

// Null for what no name proposes.
GenericPrefixRule::Proposal* GenericPrefixRule::find(std::string_view prefix, std::uint64_t hash) {
  const auto position =
      positions_.find(hash, [this, prefix](auto i) { return proposals_[i].prefix == prefix; });
  return position == Base::PositionTable::kNone ? nullptr : &proposals_[position];
}

std::uint64_t GenericPrefixRule::hash_of(std::string_view prefix) const {
  std::uint64_t hash = seed_;
  for (const char c : prefix) hash = extend(hash, c);
  return hash;
}

bool GenericPrefixRule::has_wavelength(std::string_view behind_prefix) const {
  const double nm = numbers_.read(leading_number(behind_prefix));
  return nm >= kShortestNm && nm <= kLongestNm;
}

}  // namespace vantor::DataSet
