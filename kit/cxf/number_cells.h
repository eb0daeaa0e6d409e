// Numbers of a document as cells of a table, digit for digit.
#ifndef MEASDATA_KIT_CXF_NUMBER_CELLS_H
#define MEASDATA_KIT_CXF_NUMBER_CELLS_H

#include "kit/cxf/line_index.h"
#include "kit/finding.h"
#include "kit/preflight/text_pool.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace measkit::cxf {

/// Texts that are no numbers become empty cells. They are counted, and the first is told.
class NumberCells {
 public:
  NumberCells(const LineIndex& lines, TextPool& pool) : lines_(lines), pool_(pool) {}

  /// A number that stands behind `offset`.
  std::string_view cell(std::string_view text, std::size_t offset);
  /// The same with the scale of RGB: `range` is the number of full light, 255 when empty.
  std::string_view rgb_cell(std::string_view text, std::string_view range, std::size_t offset);
  void tell(Findings& findings) const;

 private:
  struct Told {
    std::size_t count = 0, line = 0;
    std::string text;
  };
  void remember(Told& told, std::string_view text, std::size_t offset) const;

  const LineIndex& lines_;
  TextPool& pool_;
  Told no_numbers_, commas_;
};

}  // namespace measkit::cxf

#endif  // MEASDATA_KIT_CXF_NUMBER_CELLS_H
