#include "kit/write/text_table.h"

#include "kit/write/printable_text.h"

#include <algorithm>
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

std::vector<std::string> TextTable::lines() const {
  std::vector<std::string> lines;
  lines.reserve(widths_.empty() ? 0 : cells_.size() / widths_.size());
  for (std::size_t i = 0; i < cells_.size(); ++i) {
    const std::size_t column = i % widths_.size();
    if (column == 0) lines.emplace_back();
    std::string& line = lines.back();
    const std::string padding(widths_[column] - display_width(cells_[i]), ' ');
    if (column != 0) line += "  ";
    line += aligns_[column] == Align::left ? cells_[i] + padding : padding + cells_[i];
    if (column + 1 == widths_.size()) line.resize(line.find_last_not_of(' ') + 1);
  }
  return lines;
}

}  // namespace measkit
