#include "dataset/channel_names.h"

#include "measdata/name_hash.h"
#include "measdata/tokenizer.h"

#include <cerrno>
#include <cstddef>
#include <cstdlib>

namespace vantor::DataSet {
namespace {

using KeywordValues = MeasData::NameMap<std::string_view>;
using Tokens = std::vector<std::string_view>;

constexpr std::string_view kColorant = "LGOMCCHANNEL";
constexpr std::string_view kInkName = "INK_NAME_";
constexpr std::size_t kNameToken = 2;
constexpr std::size_t kFirstToneToken = 5;

// The first value of each keyword that may name a channel.
KeywordValues index_of(const HeaderKeywords& keywords) {
  KeywordValues values;
  for (std::size_t i = 0; i < keywords.size(); ++i) {
    const std::string_view name = keywords.names.at(i);
    if (name.starts_with(kColorant) || name.starts_with(kInkName)) {
      values.emplace(name, keywords.values.at(i));
    }
  }
  return values;
}

Tokens split_value(std::string_view value) {
  Tokens tokens;
  MeasData::split(value, MeasData::kBlankSeparated, tokens);
  if (tokens.size() == 1) {  // the whole value stood in quotes
    const std::string_view inner = tokens.front();
    MeasData::split(inner, MeasData::kBlankSeparated, tokens);
  }
  return tokens;
}

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
std::string_view read_component(std::string_view token, double& component) {
  if (token.starts_with('\'')) token.remove_prefix(1);
  if (token.ends_with('\'')) token.remove_suffix(1);
  const std::string text(token);
  char* end = nullptr;
  const int saved_errno = errno;
  errno = 0;
  component = std::strtod(text.c_str(), &end);
  const bool is_out_of_range = errno == ERANGE;
  errno = saved_errno;
  if (end == text.c_str()) return "invalid stod argument";
  return is_out_of_range ? "stod argument out of range" : std::string_view();
}

// The colour stands behind a name of one token only: its place is fixed.
std::string_view read_full_tone(const Tokens& tokens, std::array<double, 3>& tone) {
  tone = {0.0, 0.0, 0.0};
  if (tokens.size() < kFirstToneToken + tone.size() || tokens[3] != "LabFullToneColor" ||
      tokens[4] != "=") {
    return {};
  }
  for (std::size_t i = 0; i < tone.size(); ++i) {
    const std::string_view failure = read_component(tokens[kFirstToneToken + i], tone[i]);
    if (!failure.empty()) return failure;
  }
  return {};
}

std::string colorant_key(std::size_t number) {
  return std::string(kColorant) + (number < 10 ? "0" : "") + std::to_string(number);
}

ColorantList read_colorants(const KeywordValues& keywords) {
  ColorantList list;
  for (std::size_t number = 1;; ++number) {
    const auto keyword = keywords.find(colorant_key(number));
    if (keyword == keywords.end()) return list;
    const Tokens tokens = split_value(keyword->second);
    if (tokens.size() < 3 || tokens[0] != "InkName" || tokens[1] != "=") continue;
    std::array<double, 3> tone{};
    list.failure = read_full_tone(tokens, tone);
    if (!list.failure.empty()) return list;
    list.colorant_names.push_back(name_from(tokens));
    list.colorant_full_tones.push_back(tone);
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

ColorantList read_colorant_list(const HeaderKeywords& header_keywords) {
  return read_colorants(index_of(header_keywords));
}

ChannelNames build_channel_names(const std::vector<std::string>& field_names,
                                 const HeaderKeywords& header_keywords, const char* name) {
  const KeywordValues keywords = index_of(header_keywords);
  const ColorantList colorants = read_colorants(keywords);
  ChannelNames result;
  result.failure = colorants.failure;
  if (!result.failure.empty()) return result;
  const std::size_t channels = field_names.size();
  for (std::size_t channel = 0; channel < channels; ++channel) {
    std::string_view channel_name;
    if (channels == 1 && name != nullptr) channel_name = base_name(name);
    const auto keyword = keywords.find(std::string(kInkName) + std::to_string(channel + 1));
    if (channel < colorants.colorant_names.size()) {
      channel_name = colorants.colorant_names[channel];
    } else if (keyword != keywords.end()) {
      channel_name = keyword->second;
    } else if (const std::string_view known = default_name(field_names[channel], channels);
               !known.empty()) {
      channel_name = known;
    }
    result.channel_names.emplace_back(without_apostrophes(channel_name));
  }
  return result;
}

}  // namespace vantor::DataSet
