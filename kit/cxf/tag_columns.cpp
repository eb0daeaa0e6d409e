#include "kit/cxf/tag_columns.h"

#include "kit/preflight/roles.h"

#include <algorithm>
#include <cctype>

namespace measkit::cxf {
namespace {

constexpr std::size_t kMostCells = 1000, kMostOthers = 32, kLongestName = 80;

// Whether a list of fields can hold the name as it stands.
bool is_field_name(std::string_view name) {
  const auto is_kept = [](char c) { return static_cast<unsigned char>(c) >= ' ' && c != '"'; };
  return name.size() <= kLongestName && name.front() != '#' && !name.starts_with("BEGIN_DATA") &&
         !name.starts_with("END_DATA") && std::ranges::all_of(name, is_kept);
}

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
      Positions& positions = positions_of(tag);
      if (positions.contains(tag.name)) return;
      if (positions.size() == (tag.is_cell ? kMostCells : kMostOthers)) {
        left_out_.add(tag.name, offset);
        return;
      }
      positions.emplace(tag.name, tags_.size());
      tags_.push_back(tag);
    });
  }
}

void TagColumns::texts_of(const Patch& patch, std::vector<std::string_view>& texts) {
  texts.assign(tags_.size(), {});
  for_each_tag(patch, [&](const Tag& tag, std::size_t offset) {
    const Positions& positions = positions_of(tag);
    const auto found = positions.find(tag.name);
    if (found == positions.end()) return;
    std::string_view& text = texts[found->second];
    if (text.empty()) {
      text = tag.value;
    } else if (text != tag.value) {
      repeated_.add(tag.name, offset);
    }
  });
}

std::vector<std::string> TagColumns::fields_beside(const std::vector<std::string>& others) const {
  std::vector<std::string> fields;
  for (const Tag& tag : tags_) {
    const bool is_own = tag.is_cell && is_field_name(tag.name);
    fields.push_back(is_own ? std::string(tag.name) : field_of(tag.name));
  }
  std::vector<std::string_view> names(others.begin(), others.end());
  names.insert(names.end(), fields.begin(), fields.end());
  const std::vector<int> unused = roles_of(names).unused;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (tags_[i].is_cell && is_field_name(tags_[i].name)) continue;
    const auto position = others.size() + i;
    const bool is_free = std::ranges::count(names, names[position]) == 1;
    const bool is_unused = std::ranges::find(unused, static_cast<int>(position)) != unused.end();
    if (is_free && is_unused && is_field_name(fields[i])) continue;
    fields[i] = "TAG_" + std::to_string(i + 1) + "_" + field_of(tags_[i].name) + "_TEXT";
  }
  return fields;
}

}  // namespace measkit::cxf
