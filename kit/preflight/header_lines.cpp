#include "kit/preflight/header_lines.h"

#include "measdata/tokenizer.h"

#include <vector>

namespace measkit {

bool is_keyword(std::string_view name) {
  return !name.empty() && name.find_first_of(" \t\r\n\"#;") == std::string_view::npos &&
         !name.starts_with("BEGIN_DATA") && !name.starts_with("END_DATA") &&
         !name.starts_with("NUMBER_OF_");
}

bool add_header_line(Table& table, std::string_view line, std::size_t number) {
  std::vector<std::string_view> items;
  const std::string_view raw = table.pool.add(line);
  vantor::MeasData::split_items(raw, vantor::MeasData::kBlankSeparated, '#', items);
  if (items.empty()) {
    table.header.push_back({raw, {}, {}, number});
    return true;
  }
  if (!is_keyword(items.front())) return false;
  std::string value;
  for (std::size_t i = 1; i < items.size(); ++i) {
    value.append(i == 1 ? "" : " ").append(items[i]);
  }
  table.header.push_back({raw, items.front(), std::move(value), number});
  return true;
}

}  // namespace measkit
