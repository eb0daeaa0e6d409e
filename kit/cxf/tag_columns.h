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

  const std::vector<std::string_view>& tags() const { return tags_; }
  /// The texts of a patch, one a tag: of its device values, else of its colours.
  void texts_of(const Patch& patch, std::vector<std::string_view>& texts) const;
  /// Values of tags beyond those that have columns.
  const CountedNames& left_out() const { return left_out_; }

  /// Names for the fields that no reader takes for measured values beside `others`.
  std::vector<std::string> fields_beside(const std::vector<std::string>& others) const;

 private:
  template <typename Action>
  void for_each_tag(const Patch& patch, Action action) const;

  const Document& document_;
  std::vector<std::string_view> tags_;
  std::unordered_map<std::string_view, std::size_t> positions_;
  CountedNames left_out_;
};

}  // namespace measkit::cxf

#endif  // MEASDATA_KIT_CXF_TAG_COLUMNS_H
