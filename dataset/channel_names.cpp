#include "dataset/channel_names.h"

#include "base/position_table.h"
#include "measdata/name_hash.h"
#include "measdata/tokenizer.h"

#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <optional>

namespace vantor::DataSet {
namespace {

using Tokens = std::vector<std::string_view>;

// The inks that the keywords LGOMCCHANNEL01, LGOMCCHANNEL02, ... declare.
struct ColorantList {
  std::vector<std::string> colorant_names;
  std::string_view failure;  // why a full-tone colour is no number; empty when all are
};

constexpr std::string_view kColorant = "LGOMCCHANNEL";
constexpr std::string_view kInkName = "INK_NAME_";
constexpr std::size_t kNameToken = 2;
constexpr std::size_t kFirstToneToken = 5;
constexpr std::size_t kToneComponents = 3;

// Finds the keywords that may name a channel.
class ChannelKeywords {
  auto is_named(std::string_view name) const {
    return [this, name](auto position) { return keywords_.names.at(position) == name; };
  }

 public:
  explicit ChannelKeywords(const HeaderKeywords& keywords) : keywords_(keywords) {
    for (std::size_t i = 0; i < keywords.size(); ++i) {
      const std::string_view name = keywords.names.at(i);
      if (name.starts_with(kColorant) || name.starts_with(kInkName)) {
        positions_.find_or_add(hash_(name), i, is_named(name));
      }
    }
  }

  /// The first value of a keyword.
  std::optional<std::string_view> find(std::string_view name) const {
    const auto position = positions_.find(hash_(name), is_named(name));
    if (position == Base::PositionTable::kNone) return std::nullopt;
    return keywords_.values.at(position);
  }

 private:
  const HeaderKeywords& keywords_;
  MeasData::NameHash hash_;
  Base::PositionTable positions_;
};

// A name in apostrophes may run over several tokens; it keeps the apostrophes.
std::string name_from(const Tokens& tokens) {
  std::string name(tokens[kNameToken]);
  if (!name.starts_with('\'')) return name;
  for (std::size_t i = kNameToken; !tokens[i].ends_with('\'') && i + 1 < tokens.size();) {
    ++i;
    name += ' ';
    name += tokens[i];
  }
  return name;
}

// A number, which may stand in apostrophes. Returns what is wrong with it, empty when nothing is.
std::string_view check_component(std::string_view token) {
  if (token.starts_with('\'')) token.remove_prefix(1);
  if (token.ends_with('\'')) token.remove_suffix(1);
  const std::string text(token);
  char* end = nullptr;
  const int saved_errno = errno;
  errno = 0;
  static_cast<void>(std::strtod(text.c_str(), &end));
  const bool is_out_of_range = errno == ERANGE;
  errno = saved_errno;
  if (end == text.c_str()) return "invalid stod argument";
  return is_out_of_range ? "stod argument out of range" : std::string_view();
}

// The full tone, L*, a* and b*, stands behind a name of one token only: its place is fixed. It is
// not kept, but it must be made of numbers.
std::string_view check_full_tone(const Tokens& tokens) {
  if (tokens.size() < kFirstToneToken + kToneComponents || tokens[3] != "LabFullToneColor" ||
      tokens[4] != "=") {
    return {};
  }
  for (std::size_t i = 0; i < kToneComponents; ++i) {
    const std::string_view failure = check_component(tokens[kFirstToneToken + i]);
    if (!failure.empty()) return failure;
  }
  return {};
}

std::string colorant_key(std::size_t number) {
  return std::string(kColorant) + (number < 10 ? "0" : "") + std::to_string(number);
}

// All colorants are checked, and as many names kept as there are channels.
ColorantList read_colorants(const ChannelKeywords& keywords, std::size_t channels) {
  ColorantList list;
  Tokens tokens;
  for (std::size_t number = 1;; ++number) {
    const auto value = keywords.find(colorant_key(number));
    if (!value) return list;
    MeasData::split(*value, MeasData::kBlankSeparated, tokens);
    if (tokens.size() < 3 || tokens[0] != "InkName" || tokens[1] != "=") continue;
    list.failure = check_full_tone(tokens);
    if (!list.failure.empty()) return list;
    if (list.colorant_names.size() < channels) list.colorant_names.push_back(name_from(tokens));
  }
}

// The file's name without directory and extension.
std::string_view base_name(std::string_view path) {
  path.remove_prefix(path.find_last_of("\\/") + 1);  // npos + 1 is 0
  return path.substr(0, path.find_last_of('.'));
}

std::string_view default_name(std::string_view field_name, std::size_t channels) {
  if (channels == 4) {
    if (field_name == "CMYK_C") return "Cyan";
    if (field_name == "CMYK_M") return "Magenta";
    if (field_name == "CMYK_Y") return "Yellow";
    if (field_name == "CMYK_K") return "Black";
  } else if (channels == 3) {
    if (field_name == "CMY_C") return "Cyan";
    if (field_name == "CMY_M") return "Magenta";
    if (field_name == "CMY_Y") return "Yellow";
  }
  return {};
}

// Drops an apostrophe in front, then everything from the last apostrophe on, wherever it stands.
std::string_view without_apostrophes(std::string_view name) {
  if (name.starts_with('\'')) name.remove_prefix(1);
  return name.substr(0, name.find_last_of('\''));
}

}  // namespace

ChannelNames build_channel_names(const std::vector<std::string>& field_names,
                                 const HeaderKeywords& header_keywords, const char* name) {
  const std::size_t channels = field_names.size();
  const ChannelKeywords keywords(header_keywords);
  const ColorantList colorants = read_colorants(keywords, channels);
  ChannelNames result;
  result.failure = colorants.failure;
  if (!result.failure.empty()) return result;
  for (std::size_t channel = 0; channel < channels; ++channel) {
    std::string_view channel_name;
    if (channels == 1 && name != nullptr) channel_name = base_name(name);
    const auto ink_name = keywords.find(std::string(kInkName) + std::to_string(channel + 1));
    if (channel < colorants.colorant_names.size()) {
      channel_name = colorants.colorant_names[channel];
    } else if (ink_name) {
      channel_name = *ink_name;
    } else if (const std::string_view known = default_name(field_names[channel], channels);
               !known.empty()) {
      channel_name = known;
    }
    result.channel_names.emplace_back(without_apostrophes(channel_name));
  }
  return result;
}

}  // namespace vantor::DataSet
