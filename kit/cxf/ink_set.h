// The inks of a chart and the fields that hold their percentages.
#ifndef MEASDATA_KIT_CXF_INK_SET_H
#define MEASDATA_KIT_CXF_INK_SET_H

#include "kit/cxf/document.h"
#include "kit/cxf/layers.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace measkit::cxf {

/// Inks are told apart by their names: cyan, magenta, yellow and black first, then as they stand.
/// Where the document names the set as measurement files do, such as PC6, all are as they stand.
class InkSet {
 public:
  static constexpr std::size_t kMost = 15;  // channels that a measurement file can name

  InkSet(const Document& document, const Layer& layer);

  std::size_t size() const { return names_.size(); }
  bool is_too_large() const { return names_.size() > kMost; }
  /// The fields, such as CMYK_C or 6CLR_5.
  const std::vector<std::string>& fields() const { return fields_; }
  /// True when the fields do not name the inks.
  bool needs_names() const;
  const std::vector<std::string_view>& names() const { return names_; }
  std::size_t position_of(std::string_view name) const { return positions_.at(name); }

 private:
  void add(std::string_view name);
  bool is(std::initializer_list<std::string_view> names) const;
  void name_fields();

  std::vector<std::string_view> names_;
  std::vector<std::string> fields_;
  std::unordered_map<std::string_view, std::size_t> positions_;
};

}  // namespace measkit::cxf

#endif  // MEASDATA_KIT_CXF_INK_SET_H
