#include "kit/preflight/column_names.h"

#include "kit/preflight/column_words.h"
#include "kit/preflight/decimal_text.h"
#include "kit/preflight/roles.h"
#include "kit/preflight/wavelength_names.h"
#include "measdata/known_names.h"

#include <algorithm>
#include <cctype>
#include <unordered_set>
#include <utility>

namespace measkit {
namespace {

constexpr std::size_t kLongestWord = 64;  // longer cells name nothing

bool is_digit(char c) { return c >= '0' && c <= '9'; }
bool is_upper(char c) { return c >= 'A' && c <= 'Z'; }

template <typename Words>
std::string_view meaning_in(const Words& words, std::string_view key) {
  for (const ColumnWord& word : words) {
    if (word.key == key) return word.meaning;
  }
  return {};
}

// The single letter that a cell stands for; 0 for others. Capital X and Y differ from small ones.
char letter_of(std::string_view words, std::string_view key) {
  if (key.size() == 1) {
    const auto last = std::find_if(words.rbegin(), words.rend(), [key](char c) {
      return std::tolower(static_cast<unsigned char>(c)) == key.front();
    });
    const bool is_capital = last != words.rend() && is_upper(*last);
    const bool is_case_of_use = key == "x" || key == "y";
    return is_case_of_use && is_capital ? *last : key.front();
  }
  const std::string_view letter = meaning_in(kLetterWords, key);
  return letter.empty() ? '\0' : letter.front();
}

// Groups of chromaticities tell small letters from capitals.
bool fits_letter(char letter, char wanted, const LetterGroup& group) {
  const bool is_chromaticity = group.letters.find('Y') != std::string_view::npos;
  if (is_chromaticity) return letter == wanted;
  return static_cast<char>(std::tolower(static_cast<unsigned char>(letter))) == wanted;
}

class ColumnNamer {
 public:
  explicit ColumnNamer(const SheetCells& header) : header_(header), columns_(header.size()) {}

  std::vector<Column> columns() {
    take_wavelengths();
    take_field_words();
    take_neighbours();
    take_scattered_groups();
    if (!has_meaning()) return {};
    take_row_words();
    name_others();
    mark_device();
    if (!is_understood()) columns_.clear();
    return std::move(columns_);
  }

 private:
  bool is_free(std::size_t i) const { return columns_[i].name.empty(); }

  bool take(std::size_t i, std::string_view name, Column::Kind kind) {
    if (!is_free(i) || !taken_.emplace(name).second) return false;
    columns_[i] = {std::string(name), kind, 0.0};
    return true;
  }

  void take_wavelengths() {
    for (const auto& [position, nm] : wavelengths_named(header_)) {
      columns_[position] = {"SPECTRAL_NM" + text_of(nm), Column::Kind::wavelength, nm};
    }
  }

  // Names of the format in any letter case, and others that mean one thing.
  void take_field_words() {
    keys_.resize(header_.size());
    letters_.resize(header_.size());
    for (std::size_t i = 0; i < header_.size(); ++i) {
      if (header_[i].size() > kLongestWord) continue;
      keys_[i] = key_of(header_[i]);
      letters_[i] = is_free(i) ? letter_of(header_[i], keys_[i]) : '\0';
      const bool is_big_y = keys_[i] == "xyyy" && header_[i].ends_with('Y');
      const std::string_view name = is_big_y             ? std::string_view("XYY_CAPY")
                                    : keys_[i] == "xyyy" ? std::string_view("XYY_Y")
                                                         : meaning_in(kFieldWords, keys_[i]);
      if (!name.empty()) {
        const bool is_text = name.starts_with("SAMPLE");
        take(i, name, is_text ? Column::Kind::text : Column::Kind::number);
      }
    }
  }

  bool is_letter(std::size_t i, char wanted, const LetterGroup& group) const {
    return i < letters_.size() && letters_[i] != '\0' && is_free(i) &&
           fits_letter(letters_[i], wanted, group);
  }

  void take_group(const std::vector<std::size_t>& positions, const LetterGroup& group) {
    for (std::size_t i = 0; i < positions.size(); ++i) {
      take(positions[i], group.names[i], Column::Kind::number);
    }
  }

  bool is_group_taken(const LetterGroup& group) const {
    return std::any_of(group.names.begin(), group.names.begin() + group.letters.size(),
                       [this](std::string_view name) { return taken_.contains(name); });
  }

  // Letters of a group side by side.
  void take_neighbours() {
    for (std::size_t i = 0; i < header_.size(); ++i) {
      for (const LetterGroup& group : kLetterGroups) {
        std::vector<std::size_t> positions;
        while (positions.size() < group.letters.size() &&
               is_letter(i + positions.size(), group.letters[positions.size()], group)) {
          positions.push_back(i + positions.size());
        }
        if (positions.size() < group.letters.size() || is_group_taken(group)) continue;
        if (group.letters == "cmyk" && take_inks(i)) break;
        take_group(positions, group);
        break;
      }
    }
  }

  // Orange, green and violet behind CMYK make a set of more inks, named by their letters.
  bool take_inks(std::size_t first) {
    std::string letters = "CMYK";
    std::size_t end = first + letters.size();
    for (; end < letters_.size() && is_free(end); ++end) {
      const std::size_t ink = std::string_view("ogv").find(letters_[end]);
      if (letters_[end] == '\0' || ink == std::string_view::npos) break;
      const char capital = "OGV"[ink];
      if (letters.find(capital) != std::string::npos) break;
      letters += capital;
    }
    if (letters.size() == 4) return false;
    for (std::size_t i = 0; i < letters.size(); ++i) {
      columns_[first + i] = {letters + "_" + letters[i], Column::Kind::number, 0.0};
    }
    has_ink_letters_ = true;
    return true;
  }

  // Letters of a group that is complete, wherever they stand.
  void take_scattered_groups() {
    for (const LetterGroup& group : kLetterGroups) {
      if (is_group_taken(group)) continue;
      std::vector<std::size_t> positions;
      for (const char wanted : group.letters) {
        std::size_t i = 0;
        while (i < header_.size() && !is_letter(i, wanted, group)) ++i;
        if (i == header_.size()) break;
        positions.push_back(i);
      }
      if (positions.size() == group.letters.size()) take_group(positions, group);
    }
  }

  // A sample beside an id is a name.
  void take_row_words() {
    for (const bool is_sample : {false, true}) {
      for (std::size_t i = 0; i < header_.size(); ++i) {
        if ((keys_[i] == "sample") != is_sample) continue;
        const std::string_view name = meaning_in(kRowWords, keys_[i]);
        if (name.empty() || take(i, name, Column::Kind::text) || !is_sample) continue;
        take(i, "SAMPLE_NAME", Column::Kind::text);
      }
    }
    if (!header_.empty() && header_[0].empty()) take(0, "SAMPLE_ID", Column::Kind::text);
  }

  // Columns that have no meaning here keep their names.
  void name_others() {
    std::unordered_set<std::string> used;
    for (const Column& column : columns_) used.insert(column.name);
    for (std::size_t i = 0; i < header_.size(); ++i) {
      if (!is_free(i)) continue;
      std::string name = safe_name(header_[i], i);
      if (!used.insert(name).second) {
        name += "_" + std::to_string(i + 1) + "_";
        used.insert(name);
      }
      columns_[i].name = std::move(name);
    }
  }

  // Numbered channels, as 5CLR_1 to 5CLR_5, keep their names.
  void mark_device() {
    std::vector<std::string_view> names;
    for (const Column& column : columns_) names.emplace_back(column.name);
    roles_ = roles_of(names);
    for (const int field : roles_.device) {
      columns_[static_cast<std::size_t>(field)].kind = Column::Kind::number;
    }
  }

  // A quick look, since most lines name nothing.
  bool has_meaning() const {
    return std::any_of(columns_.begin(), columns_.end(),
                       [](const Column& column) { return column.is_measured(); }) ||
           std::any_of(header_.begin(), header_.end(), [](std::string_view cell) {
             return cell.ends_with("CLR_1") || cell == "SPOT_1" ||
                    (cell.starts_with("PC") && cell.ends_with("_1"));
           });
  }

  bool is_understood() const {
    return roles_.has_device() || roles_.has_lab() || roles_.has_xyz() || roles_.has_lch() ||
           roles_.has_xyy() || roles_.has_spectra() || !roles_.densities.empty() ||
           has_ink_letters_;
  }

  const SheetCells& header_;
  std::vector<Column> columns_;
  std::vector<std::string> keys_;
  std::vector<char> letters_;
  std::unordered_set<std::string_view> taken_;
  Roles roles_;
  bool has_ink_letters_ = false;
};

// Names that end in three digits or begin as those of spectral fields would be taken for such.
bool looks_spectral(std::string_view name) {
  for (const std::string_view prefix : {"R_", "SPECTRAL", "SPECTRUM", "SPEC_", "nm", "NM_"}) {
    if (name.starts_with(prefix)) return true;
  }
  return name.size() > 2 && is_digit(name[name.size() - 1]) && is_digit(name[name.size() - 2]) &&
         is_digit(name[name.size() - 3]);
}

}  // namespace

std::vector<Column> columns_named(const SheetCells& header) {
  return ColumnNamer(header).columns();
}

std::string safe_name(std::string_view words, std::size_t position) {
  std::string name;
  // Not cut inside a character.
  std::size_t end = std::min(words.size(), kLongestWord);
  while (end < words.size() && (static_cast<unsigned char>(words[end]) & 0xC0U) == 0x80U) --end;
  for (const char c : words.substr(0, end)) {
    const auto byte = static_cast<unsigned char>(c);
    const bool is_plain = std::isalnum(byte) != 0 || byte >= 0x80U ||
                          std::string_view("._*+-/%").find(c) != std::string_view::npos;
    if (is_plain) {
      name += c;
    } else if (!name.empty() && name.back() != '_') {
      name += '_';
    }
  }
  if (name.find_first_not_of('_') == std::string::npos) {
    return "COLUMN_" + std::to_string(position + 1) + "_";
  }
  if (looks_spectral(name)) return "COLUMN_" + name + "_";
  return name;
}

std::string key_of(std::string_view words) {
  std::string key;
  if (words.size() > kLongestWord) return key;
  int depth = 0;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const char c = words[i];
    const auto byte = static_cast<unsigned char>(c);
    if (c == '(' || c == '[') ++depth;
    if ((c == ')' || c == ']') && depth > 0) --depth;
    if (byte == 0xC2U) {  // signs such as that of degrees
      ++i;
    } else if (depth == 0 && (byte >= 0x80U || std::isalnum(byte) != 0)) {
      key += static_cast<char>(byte < 0x80U ? std::tolower(byte) : byte);
    }
  }
  constexpr std::string_view kCommission = "cie";
  if (key.size() > kCommission.size() && key.starts_with(kCommission)) {
    key.erase(0, kCommission.size());
  }
  return key;
}

bool means_wavelength(std::string_view words) {
  const std::string key = key_of(words);
  if (key.find_first_of("0123456789") != std::string::npos) return false;
  static constexpr std::array<std::string_view, 13> kWords = {
      "wl",   "wls", "wvl",   "wlen",    "wave",     "nm",      "lambda",
      "wlnm", "lam", "wavel", "wvlngth", "\xCE\xBB", "lambdanm"};
  return key.starts_with("wavelen") || key.starts_with("wellenl") ||
         std::find(kWords.begin(), kWords.end(), key) != kWords.end();
}

}  // namespace measkit
