#include "kit/preflight/roles.h"

#include "kit/preflight/decimal_text.h"
#include "measdata/known_names.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <unordered_map>

namespace measkit {
namespace {

using Names = std::vector<std::string_view>;

constexpr std::string_view kEmissionPrefix = "EMISSION_";
constexpr std::string_view kEmissionSuffix = "_NM";

// The prefixes that the library knows, the longer of two that begin alike first.
constexpr std::array<std::string_view, 9> kSpectralPrefixes = {
    "R_",        "SPECTRAL_NM_", "SPECTRAL_NM", "SPECTRAL_", "SPECTRUM_NM_",
    "SPECTRUM_", "SPEC_",        "nm",          "NM_"};

// Where each name stands first.
class NameIndex {
 public:
  explicit NameIndex(const Names& names) {
    for (std::size_t i = 0; i < names.size(); ++i) fields_.emplace(names[i], static_cast<int>(i));
  }
  int find(std::string_view name) const {
    const auto found = fields_.find(name);
    return found == fields_.end() ? kNoField : found->second;
  }
  int find_first_of(std::initializer_list<std::string_view> names) const {
    for (const std::string_view name : names) {
      if (const int field = find(name); field != kNoField) return field;
    }
    return kNoField;
  }
  // The fields of all names, or none.
  std::vector<int> find_all(const std::vector<std::string>& names) const {
    std::vector<int> fields;
    for (const std::string& name : names) {
      fields.push_back(find(name));
      if (fields.back() == kNoField) return {};
    }
    return fields;
  }

 private:
  std::unordered_map<std::string_view, int> fields_;
};

std::vector<std::string> numbered(const std::string& prefix, int count, int base) {
  std::vector<std::string> names;
  for (int i = 1; i <= count; ++i) {
    std::array<char, 12> digits{};
    std::snprintf(digits.data(), digits.size(), base == 16 ? "%X" : "%d", static_cast<unsigned>(i));
    names.push_back(prefix + digits.data());
  }
  return names;
}

bool take_device(const NameIndex& index, const std::vector<std::string>& names, std::string set,
                 Roles& roles) {
  roles.device = index.find_all(names);
  if (roles.device.empty()) return false;
  roles.device_set = std::move(set);
  return true;
}

void find_device(const NameIndex& index, Roles& roles) {
  constexpr int kMostChannels = 15;
  if (take_device(index, {"CMYK_C", "CMYK_M", "CMYK_Y", "CMYK_K"}, "CMYK", roles) ||
      take_device(index, {"CMY_C", "CMY_M", "CMY_Y"}, "CMY", roles) ||
      take_device(index, {"RGB_R", "RGB_G", "RGB_B"}, "RGB", roles) ||
      take_device(index, {"GRAY"}, "GRAY", roles)) {
    return;
  }
  for (int n = 1; n <= kMostChannels; ++n) {
    std::array<char, 12> digit{};
    std::snprintf(digit.data(), digit.size(), "%X", static_cast<unsigned>(n));
    const std::string set = std::string(digit.data()) + "CLR";
    if (index.find(set + "_1") != kNoField &&
        take_device(index, numbered(set + "_", n, 16), set, roles))
      return;
  }
  for (int n = 1; n <= kMostChannels; ++n) {
    const std::string set = "PC" + std::to_string(n);
    if (index.find(set + "_1") != kNoField &&
        take_device(index, numbered(set + "_", n, 10), set, roles))
      return;
  }
  const bool has_spots = index.find("SPOT_1") != kNoField;
  for (int n = kMostChannels - 1; has_spots && n >= 1; --n) {
    if (take_device(index, numbered("SPOT_", n, 10), "SPOT", roles)) return;
  }
  for (int n = 10; n <= kMostChannels; ++n) {
    const std::string set = std::to_string(n) + "CLR";
    if (index.find(set + "_1") != kNoField &&
        take_device(index, numbered(set + "_", n, 10), set, roles))
      return;
  }
}

// A number that fills the text.
bool read_whole(std::string_view text, double& value) {
  return !text.empty() && read_decimal(text, value) == text.size();
}

std::string_view spectral_prefix_of(std::string_view name) {
  for (const std::string_view prefix : kSpectralPrefixes) {
    if (name.starts_with(prefix)) return prefix;
  }
  return {};
}

// The name without its last digits, when there are at least three or the name has no more than two
// characters; else empty.
std::string_view word_before_digits(std::string_view name) {
  constexpr std::size_t kLeastDigits = 3, kShortName = 2;
  const std::size_t last = name.find_last_not_of("0123456789");
  if (last == std::string_view::npos) return {};
  const bool has_digits = name.size() - last - 1 >= kLeastDigits || name.size() <= kShortName;
  return has_digits ? name.substr(0, last + 1) : std::string_view();
}

bool has_wavelength_behind(std::string_view word, std::string_view name) {
  double nm = 0.0;
  return read_whole(name.substr(word.size()), nm) && nm >= 200.0 && nm <= 1900.0;
}

// The prefix that the first field with one has: a known one, or a word that more than one field
// from there on has before a wavelength.
std::string_view spectral_prefix_in(const Names& names, const std::vector<bool>& is_taken) {
  using vantor::MeasData::FileKind;
  std::unordered_map<std::string_view, int> counts;  // of the fields to come
  for (const std::string_view name : names) {
    const std::string_view word = word_before_digits(name);
    if (!word.empty() && has_wavelength_behind(word, name)) ++counts[word];
  }
  for (std::size_t i = 0; i < names.size(); ++i) {
    const std::string_view word = word_before_digits(names[i]);
    if (!is_taken[i]) {
      const std::string_view prefix = spectral_prefix_of(names[i]);
      if (!prefix.empty()) return prefix;
      const bool is_known = vantor::MeasData::is_known_field(FileKind::standard, names[i]);
      if (!word.empty() && !is_known && counts[word] > 1) return word;
    }
    if (!word.empty() && has_wavelength_behind(word, names[i])) --counts[word];
  }
  return {};
}

void find_spectra(const Names& names, const std::vector<bool>& is_taken, Roles& roles) {
  const std::string_view prefix = spectral_prefix_in(names, is_taken);
  if (prefix.empty()) return;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (is_taken[i] || !names[i].starts_with(prefix)) continue;
    double nm = 0.0;
    const std::string_view number = names[i].substr(prefix.size());
    read_decimal(number, nm);
    roles.spectra.push_back({static_cast<int>(i), nm});
  }
}

void mark(std::vector<bool>& is_taken, int field) {
  if (field != kNoField) is_taken[static_cast<std::size_t>(field)] = true;
}

}  // namespace

Roles roles_of(const Names& names) {
  Roles roles;
  const NameIndex index(names);
  roles.id = index.find_first_of({"SAMPLE_ID", "SampleID"});
  roles.name = index.find_first_of({"SAMPLE_NAME", "Sample_Name", "SampleName"});
  roles.location = index.find("SAMPLE_LOC");
  find_device(index, roles);
  roles.xyz = {index.find("XYZ_X"), index.find("XYZ_Y"), index.find("XYZ_Z")};
  roles.lab = {index.find_first_of({"LAB_L", "Lab_L"}), index.find_first_of({"LAB_A", "Lab_a"}),
               index.find_first_of({"LAB_B", "Lab_b"})};
  roles.lch = {index.find("LAB_L"), index.find("LAB_C"), index.find("LAB_H")};
  roles.xyy = {index.find("XYY_X"), index.find("XYY_Y"), index.find("XYY_CAPY")};
  std::vector<bool> is_taken(names.size());
  for (const int field : {roles.id, roles.name, roles.location}) mark(is_taken, field);
  for (const int field : roles.device) mark(is_taken, field);
  for (const FieldTriple& group : {roles.xyz, roles.lab, roles.lch, roles.xyy}) {
    if (!is_complete(group)) continue;
    for (const int field : group) mark(is_taken, field);
  }
  for (std::size_t i = 0; i < names.size(); ++i) {
    const std::string_view name = names[i];
    if (name == "D_RED" || name == "D_GREEN" || name == "D_BLUE" || name == "D_VIS") {
      roles.densities.push_back(static_cast<int>(i));
      is_taken[i] = true;
    }
  }
  find_spectra(names, is_taken, roles);
  for (const SpectralField& spectral : roles.spectra) mark(is_taken, spectral.field);
  for (std::size_t i = 0; i < names.size(); ++i) {
    const bool is_index = names[i] == "SCW_INDEX" || names[i] == "SAMPLE_NO";
    if (!is_taken[i] && !is_index) roles.unused.push_back(static_cast<int>(i));
  }
  return roles;
}

std::string emission_field_name(double nm) {
  std::array<char, 32> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), nm).ptr;
  return std::string(kEmissionPrefix)
      .append(digits.data(), static_cast<std::size_t>(end - digits.data()))
      .append(kEmissionSuffix);
}

double emission_wavelength_in(std::string_view name) {
  if (!name.starts_with(kEmissionPrefix) || !name.ends_with(kEmissionSuffix)) return 0.0;
  name.remove_prefix(kEmissionPrefix.size());
  name.remove_suffix(std::min(name.size(), kEmissionSuffix.size()));
  double nm = 0.0;
  return read_whole(name, nm) ? nm : 0.0;
}

}  // namespace measkit
