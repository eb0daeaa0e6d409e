#include "kit/preflight/header_lines.h"

#include "measdata/tokenizer.h"

#include <algorithm>
#include <array>
#include <vector>

namespace measkit {

namespace {

bool is_part_of_frame(std::string_view keyword) {
  static constexpr std::array<std::string_view, 6> kFrame = {
      "BEGIN_DATA",      "BEGIN_DATA_FORMAT", "END_DATA",
      "END_DATA_FORMAT", "NUMBER_OF_FIELDS",  "NUMBER_OF_SETS"};
  return std::ranges::find(kFrame, keyword) != kFrame.end();
}

}  // namespace

bool is_keyword(std::string_view name) {
  return !name.empty() && name.find_first_of(" \t\r\n\"#;") == std::string_view::npos &&
         !is_part_of_frame(name);
}

bool add_header_line(Table& table, std::string_view line, std::size_t number) {
  std::vector<std::string_view> items;
  const std::string_view raw = table.pool.add(line);
  vantor::MeasData::split_items(raw, vantor::MeasData::kBlankSeparated, '#', items);
  if (items.empty()) {
    table.header.push_back({raw, {}, {}, number});
    return true;
  }
  if (is_part_of_frame(items.front())) return false;
  std::string value;
  for (std::size_t i = 1; i < items.size(); ++i) {
    value.append(i == 1 ? "" : " ").append(items[i]);
  }
  table.header.push_back({raw, items.front(), std::move(value), number});
  return true;
}

}  // namespace measkit
