// Fields for what programs say about their patches in words of their own.
#ifndef MEASDATA_KIT_CXF_TAG_COLUMNS_H
#define MEASDATA_KIT_CXF_TAG_COLUMNS_H

#include "kit/cxf/document.h"
#include "kit/cxf/layers.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace measkit::cxf {

class TagColumns {
 public:
  TagColumns(const Document& document, const Layer& layer);

  /// The texts of a patch, one a tag: of its device values, else of its colours.
  void texts_of(const Patch& patch, std::vector<std::string_view>& texts);
  /// Values of tags beyond those that have columns.
  const CountedNames& left_out() const { return left_out_; }
  /// Tags that stand twice with other texts in the patches asked for; the first counts.
  const CountedNames& repeated() const { return repeated_; }

  /// Names for the fields. A tag that is a cell names its field, which may be one of `others`; no
  /// reader takes the fields of other tags for measured values beside those.
  std::vector<std::string> fields_beside(const std::vector<std::string>& others) const;

 private:
  template <typename Action>
  void for_each_tag(const Patch& patch, Action action) const;

  using Positions = std::unordered_map<std::string_view, std::size_t>;
  Positions& positions_of(const Tag& tag) { return tag.is_cell ? cells_ : others_; }

  const Document& document_;
  std::vector<Tag> tags_;  ///< the first of each name
  Positions cells_, others_;
  CountedNames left_out_, repeated_;
};

}  // namespace measkit::cxf

#endif  // MEASDATA_KIT_CXF_TAG_COLUMNS_H
