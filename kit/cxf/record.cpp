#include "kit/cxf/record.h"

#include <functional>

namespace measkit::cxf {
namespace {

// Names have few characters, spectra some thousand.
constexpr std::size_t kLongestText = std::size_t{1} << 16U;

constexpr bool is_space(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

std::string_view without_space(std::string_view text) {
  while (!text.empty() && is_space(text.front())) text.remove_prefix(1);
  while (!text.empty() && is_space(text.back())) text.remove_suffix(1);
  return text;
}

bool is_inside(std::string_view piece, std::string_view source) {
  const std::less_equal<> before;
  return !piece.empty() && before(source.data(), piece.data()) &&
         before(piece.data() + piece.size(), source.data() + source.size());
}

}  // namespace

void Record::begin(const XmlName& name, bool is_foreign, std::span<const XmlAttribute> attributes,
                   std::size_t offset) {
  text_ = {};
  scattered_.clear();
  open_.push_back(nodes_.size());
  nodes_.push_back({is_foreign ? std::string_view() : known(name.local),
                    {},
                    offset,
                    0,
                    attributes_.size(),
                    attributes.size()});
  for (const XmlAttribute& attribute : attributes) {
    const bool is_own = attribute.uri.empty();
    attributes_.push_back({is_own ? known(attribute.local) : std::string_view(),
                           is_own ? kept(limited(attribute.value)) : std::string_view()});
  }
}

void Record::text(std::string_view piece) {
  const bool is_leaf = open_.back() + 1 == nodes_.size();
  if (!is_leaf || nodes_.back().name.empty()) return;
  if (scattered_.empty() && is_inside(piece, source_)) {
    if (text_.empty()) {
      text_ = piece;
      return;
    }
    if (text_.data() + text_.size() == piece.data()) {
      text_ = {text_.data(), text_.size() + piece.size()};
      return;
    }
  }
  if (scattered_.empty()) scattered_ = text_;
  if (scattered_.size() <= kLongestText) scattered_ += piece;
}

std::string_view Record::kept_text() {
  const std::string_view text = limited(without_space(scattered_.empty() ? text_ : scattered_));
  return scattered_.empty() ? text : pool_.add(text);
}

void Record::end() {
  Node& node = nodes_[open_.back()];
  if (open_.back() + 1 == nodes_.size()) node.text = kept_text();
  node.end = nodes_.size();
  open_.pop_back();
}

void Record::clear() {
  nodes_.clear();
  attributes_.clear();
  open_.clear();
}

std::string_view Record::attribute(const Node& node, std::string_view name) const {
  return without_space(whole_attribute(node, name));
}

std::string_view Record::whole_attribute(const Node& node, std::string_view name) const {
  for (std::size_t i = 0; i < node.attributes; ++i) {
    const Attribute& one = attributes_[node.first_attribute + i];
    if (one.name == name) return one.value;
  }
  return {};
}

const Node* Record::child(const Node& node, std::string_view name) const {
  const Node* found = nullptr;
  for_each_child(node, [&](const Node& one) {
    if (found == nullptr && one.name == name) found = &one;
  });
  return found;
}

std::string_view Record::text_of(const Node& node, std::string_view child_name) const {
  const Node* const found = child(node, child_name);
  return found == nullptr ? std::string_view() : found->text;
}

std::string_view Record::known(std::string_view name) {
  if (is_inside(name, source_)) return name;
  const auto found = names_.find(name);
  if (found != names_.end()) return *found;
  return *names_.insert(pool_.add(name)).first;
}

std::string_view Record::kept(std::string_view text) {
  return is_inside(text, source_) ? text : pool_.add(text);
}

std::string_view Record::limited(std::string_view text) {
  if (text.size() <= kLongestText) return text;
  ++too_long_;
  return {};
}

}  // namespace measkit::cxf
