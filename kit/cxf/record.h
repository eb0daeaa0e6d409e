// One part of a document as a tree: an object, a colour specification, the file's information.
#ifndef MEASDATA_KIT_CXF_RECORD_H
#define MEASDATA_KIT_CXF_RECORD_H

#include "kit/cxf/xml_events.h"
#include "kit/preflight/text_pool.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace measkit::cxf {

/// An element. Texts have no white space around them.
struct Node {
  std::string_view name;  ///< empty for elements of other namespaces
  std::string_view text;  ///< of an element without children
  std::size_t offset = 0;
  std::size_t end = 0;  ///< the node behind the last one inside this one
  std::size_t first_attribute = 0, attributes = 0;
};

class Record {
 public:
  Record(std::string_view source, TextPool& pool) : source_(source), pool_(pool) {}

  // Building.
  void begin(const XmlName& name, bool is_foreign, std::span<const XmlAttribute> attributes,
             std::size_t offset);
  void text(std::string_view piece);
  void end();
  bool is_complete() const { return open_.empty(); }
  void clear();
  /// How many texts were longer than any real one; they are left out.
  std::size_t too_long() const { return too_long_; }

  // Asking.
  const Node& root() const { return nodes_.front(); }
  /// The text of an attribute without white space around it; empty without the attribute.
  std::string_view attribute(const Node& node, std::string_view name) const;
  /// The same with the white space.
  std::string_view whole_attribute(const Node& node, std::string_view name) const;
  /// The first child of a name; null without one.
  const Node* child(const Node& node, std::string_view name) const;
  std::string_view text_of(const Node& node, std::string_view child_name) const;
  template <typename Action>
  void for_each_child(const Node& node, Action action) const {
    const auto first = static_cast<std::size_t>(&node - nodes_.data()) + 1;
    for (std::size_t i = first; i < node.end; i = nodes_[i].end) action(nodes_[i]);
  }

 private:
  struct Attribute {
    std::string_view name, value;
  };

  std::string_view known(std::string_view name);
  std::string_view kept(std::string_view text);
  std::string_view limited(std::string_view text);
  std::string_view kept_text();

  std::string_view source_;
  TextPool& pool_;
  std::unordered_set<std::string_view> names_;
  std::vector<Node> nodes_;
  std::vector<Attribute> attributes_;
  std::vector<std::size_t> open_;
  std::string_view text_;  // of the node that was begun last
  std::string scattered_;  // the same, if its pieces do not adjoin in the source
  std::size_t too_long_ = 0;
};

}  // namespace measkit::cxf

#endif  // MEASDATA_KIT_CXF_RECORD_H
