#include "kit/write/text_table.h"

#include "kit/write/printable_text.h"

#include <algorithm>
#include <ostream>
#include <utility>

namespace measkit {

void TextTable::add_column(std::string title, Align align) {
  widths_.push_back(display_width(title));
  aligns_.push_back(align);
  cells_.push_back(std::move(title));
}

void TextTable::add(std::string cell) {
  std::size_t& width = widths_[cells_.size() % widths_.size()];
  width = std::max(width, display_width(cell));
  cells_.push_back(std::move(cell));
}

void TextTable::print(std::ostream& out, std::size_t indent) const {
  for (std::size_t i = 0; i < cells_.size(); ++i) {
    const std::size_t column = i % widths_.size();
    const bool is_last = column + 1 == widths_.size();
    const bool is_left = aligns_[column] == Align::left;
    const std::string padding(widths_[column] - display_width(cells_[i]), ' ');
    out << std::string(column == 0 ? indent : 2, ' ') << (is_left ? "" : padding) << cells_[i];
    if (is_left && !is_last) out << padding;
    if (is_last) out << '\n';
  }
}

}  // namespace measkit
