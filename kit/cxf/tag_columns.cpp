#include "kit/cxf/tag_columns.h"

#include "kit/preflight/roles.h"

#include <algorithm>
#include <cctype>

namespace measkit::cxf {
namespace {

constexpr std::size_t kMostTags = 32, kLongestName = 80;

std::string field_of(std::string_view tag) {
  std::string name(tag.substr(0, kLongestName));
  for (char& c : name) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x80U && std::isalnum(byte) == 0 && c != '.' && c != '-') c = '_';
  }
  return name;
}

}  // namespace

template <typename Action>
void TagColumns::for_each_tag(const Patch& patch, Action action) const {
  std::size_t last = kNoObject;
  for (const std::size_t object : {patch.device, patch.colours}) {
    if (object == kNoObject || object == last) continue;
    last = object;
    const Range range = document_.objects[object].tags;
    for (std::size_t i = range.first; i < range.first + range.count; ++i) {
      action(document_.tags[i], document_.objects[object].offset);
    }
  }
}

TagColumns::TagColumns(const Document& document, const Layer& layer) : document_(document) {
  for (const Patch& patch : layer.patches) {
    for_each_tag(patch, [this](const Tag& tag, std::size_t offset) {
      if (positions_.contains(tag.name)) return;
      if (tags_.size() == kMostTags) {
        left_out_.add(tag.name, offset);
        return;
      }
      positions_.emplace(tag.name, tags_.size());
      tags_.push_back(tag.name);
    });
  }
}

void TagColumns::texts_of(const Patch& patch, std::vector<std::string_view>& texts) const {
  texts.assign(tags_.size(), {});
  for_each_tag(patch, [&](const Tag& tag, std::size_t) {
    const auto found = positions_.find(tag.name);
    if (found != positions_.end() && texts[found->second].empty()) {
      texts[found->second] = tag.value;
    }
  });
}

std::vector<std::string> TagColumns::fields_beside(const std::vector<std::string>& others) const {
  std::vector<std::string> fields;
  for (const std::string_view tag : tags_) fields.push_back(field_of(tag));
  std::vector<std::string_view> names(others.begin(), others.end());
  names.insert(names.end(), fields.begin(), fields.end());
  const std::vector<int> unused = roles_of(names).unused;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const auto position = others.size() + i;
    const bool is_free = std::ranges::count(names, names[position]) == 1;
    const bool is_unused = std::ranges::find(unused, static_cast<int>(position)) != unused.end();
    if (is_free && is_unused) continue;
    fields[i] = "TAG_" + std::to_string(i + 1) + "_" + field_of(tags_[i]) + "_TEXT";
  }
  return fields;
}

}  // namespace measkit::cxf
