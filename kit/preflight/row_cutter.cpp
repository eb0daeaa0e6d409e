#include "kit/preflight/row_cutter.h"

#include "kit/preflight/delimited_text.h"
#include "kit/preflight/line_cursor.h"
#include "measdata/cell_cutter.h"
#include "measdata/tokenizer.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace measkit {
namespace {

using vantor::MeasData::CellCutter;
using vantor::MeasData::EmptyTokens;
using vantor::MeasData::kBlankSeparated;
using vantor::MeasData::Quotes;
using vantor::MeasData::TokenRules;

constexpr char kCommentChar = '#';

std::string_view trimmed(std::string_view text) {
  const std::size_t start = text.find_first_not_of(" \t");
  if (start == std::string_view::npos) return {};
  return text.substr(start, text.find_last_not_of(" \t") - start + 1);
}

// Rows of any width, one after the other.
struct RaggedRows {
  std::vector<std::string_view> texts;
  std::vector<std::size_t> ends;   // of each row in `texts`
  std::vector<std::size_t> lines;  // where it stands

  std::size_t size() const { return ends.size(); }
  std::size_t start(std::size_t row) const { return row == 0 ? 0 : ends[row - 1]; }
  std::size_t width(std::size_t row) const { return ends[row] - start(row); }
  /// Makes room for rows of `width` cells, of which a text holds no more than every second byte.
  void reserve_for(std::string_view data, std::size_t width) {
    const auto breaks = static_cast<std::size_t>(std::count(data.begin(), data.end(), '\n'));
    texts.reserve(std::min((breaks + 1) * width, data.size() / 2 + 1));
    ends.reserve(breaks + 1);
    lines.reserve(breaks + 1);
  }
  bool all_have(std::size_t width) const {
    for (std::size_t row = 0; row < size(); ++row) {
      if (ends[row] != (row + 1) * width) return false;
    }
    return true;
  }
};

RaggedRows cut_at_blanks(std::string_view data, std::size_t first_line,
                         char comment_char = kCommentChar) {
  RaggedRows rows;
  CellCutter cutter;
  for (LineCursor lines(data, first_line); lines.next();) {
    const auto cells = cutter.cut(data, lines.line(), kBlankSeparated, comment_char);
    if (cells.empty()) continue;
    if (rows.size() == 0) rows.reserve_for(data, cells.size());
    rows.texts.insert(rows.texts.end(), cells.begin(), cells.end());
    rows.ends.push_back(rows.texts.size());
    rows.lines.push_back(lines.number());
  }
  return rows;
}

// Cells between single separators, without the blanks around them. Empty cells behind the last
// field are dropped.
RaggedRows cut_at(char separator, std::string_view data, std::size_t first_line,
                  std::size_t width) {
  const TokenRules rules = {separator, separator, EmptyTokens::keep, Quotes::honour};
  RaggedRows rows;
  std::vector<std::string_view> cells;
  for (LineCursor lines(data, first_line); lines.next();) {
    const std::string_view content = trimmed(lines.line());
    if (content.empty() || content.front() == kCommentChar) continue;
    vantor::MeasData::split(lines.line(), rules, cells);
    for (std::string_view& cell : cells) {
      cell = trimmed(cell);
      if (cell.size() > 1 && cell.front() == '"' && cell.back() == '"') {
        cell = cell.substr(1, cell.size() - 2);
      }
    }
    // A separator at the end of the line makes no cell, though the last field may be empty.
    if (cells.size() + 1 == width && lines.line().back() == separator) cells.emplace_back();
    while (cells.size() > width && cells.back().empty()) cells.pop_back();
    rows.texts.insert(rows.texts.end(), cells.begin(), cells.end());
    rows.ends.push_back(rows.texts.size());
    rows.lines.push_back(lines.number());
  }
  return rows;
}

Cells cells_of(RaggedRows rows, std::size_t width) {
  return {std::move(rows.texts), width, std::move(rows.lines)};
}

struct Separator {
  char byte;
  std::string_view code, name;
};
constexpr std::array<Separator, 3> kSeparators = {{{'\t', "cells-at-tabs", "tabs"},
                                                   {';', "cells-at-semicolons", "semicolons"},
                                                   {',', "cells-at-commas", "commas"}}};

// Rows that go on over several lines: each row begins on a new line.
std::optional<Cells> join_lines(const RaggedRows& rows, std::size_t width) {
  if (width == 0 || rows.texts.size() % width != 0) return std::nullopt;
  std::vector<std::size_t> starts;
  std::size_t filled = 0;
  for (std::size_t row = 0; row < rows.size(); ++row) {
    if (filled == 0) starts.push_back(rows.lines[row]);
    filled += rows.width(row);
    if (filled > width) return std::nullopt;
    if (filled == width) filled = 0;
  }
  return Cells{rows.texts, width, std::move(starts)};
}

// Rows in which cells begin with the sign of a comment.
std::optional<Cells> cut_without_comments(std::string_view data, std::size_t first_line,
                                          std::size_t width, Findings& findings) {
  if (data.find(kCommentChar) == std::string_view::npos) return std::nullopt;
  RaggedRows rows = cut_at_blanks(data, first_line, '\0');
  if (rows.size() == 0 || !rows.all_have(width)) return std::nullopt;
  findings.add(Severity::repaired, "comment-signs",
               "Cells begin with #, which begins a comment elsewhere: read as cells.", first_line);
  return cells_of(std::move(rows), width);
}

std::vector<std::string> names_at(char separator, std::string_view field_list) {
  const RaggedRows list = cut_at(separator, field_list, 1, 0);
  std::vector<std::string> names(list.texts.begin(), list.texts.end());
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (names[i].empty()) names[i] = "COLUMN_" + std::to_string(i + 1);
  }
  return names;
}

std::string line_count(std::size_t count) {
  return std::to_string(count) + (count == 1 ? " row" : " rows");
}

// Names of several words: what the cells on both sides leave over becomes one cell. Nothing when a
// row is too short, or when the words may be numbers of a column without a name.
std::optional<Cells> join_words(const RaggedRows& rows, std::size_t width, std::size_t name) {
  Cells cells;
  cells.width = width;
  bool has_words = !rows.all_have(rows.width(0));
  for (std::size_t row = 0; row < rows.size(); ++row) {
    if (rows.width(row) < width) return std::nullopt;
    const std::span own = std::span(rows.texts).subspan(rows.start(row), rows.width(row));
    const auto before = own.first(name), behind = own.last(width - name - 1);
    const std::string_view first = own[name], last = own[own.size() - behind.size() - 1];
    const std::string_view joined(
        first.data(), static_cast<std::size_t>(last.data() + last.size() - first.data()));
    const bool is_clear = joined.find('"') == std::string_view::npos &&
                          std::all_of(behind.begin(), behind.end(), is_number_or_missing);
    if (!is_clear) return std::nullopt;
    has_words = has_words || !is_number(last);
    cells.texts.insert(cells.texts.end(), before.begin(), before.end());
    cells.texts.push_back(joined);
    cells.texts.insert(cells.texts.end(), behind.begin(), behind.end());
    cells.lines.push_back(rows.lines[row]);
  }
  return has_words ? std::optional(std::move(cells)) : std::nullopt;
}

// The rows of the right width alone.
Cells leave_out_others(const RaggedRows& rows, std::size_t width, Findings& findings) {
  Cells cells;
  cells.width = width;
  std::size_t left_out = 0, first = 0;
  for (std::size_t row = 0; row < rows.size(); ++row) {
    if (rows.width(row) != width) {
      if (left_out++ == 0) first = row;
      continue;
    }
    const auto start = rows.texts.begin() + static_cast<std::ptrdiff_t>(rows.start(row));
    cells.texts.insert(cells.texts.end(), start, start + static_cast<std::ptrdiff_t>(width));
    cells.lines.push_back(rows.lines[row]);
  }
  if (left_out != 0) {
    findings.add(Severity::lost, "rows-left-out",
                 line_count(left_out) + " of " + std::to_string(rows.size()) +
                     " left out: the first has " + std::to_string(rows.width(first)) +
                     " cells, but the table has " + std::to_string(width) + " fields.",
                 rows.lines[first]);
  }
  return cells;
}

}  // namespace

std::vector<std::string> names_at_separator(std::string_view field_list, std::size_t width,
                                            std::string_view data) {
  for (const Separator& separator : kSeparators) {
    if (field_list.find(separator.byte) == std::string_view::npos) continue;
    std::vector<std::string> names = names_at(separator.byte, field_list);
    const bool has_own_cut = names.size() > 1 && (names.size() != width || separator.byte != '\t');
    if (!has_own_cut || cut_at_blanks(data, 1).all_have(width)) continue;
    const RaggedRows rows = cut_at(separator.byte, data, 1, names.size());
    if (rows.size() != 0 && rows.all_have(names.size())) return names;
  }
  return {};
}

CutRows cut_rows(std::string_view data, std::size_t first_line, std::size_t width,
                 Findings& findings, int name) {
  RaggedRows rows = cut_at_blanks(data, first_line);
  if (rows.all_have(width)) {
    if (rows.size() != 0) return {cells_of(std::move(rows), width), true};
    auto cells = cut_without_comments(data, first_line, width, findings);
    const bool is_plain = !cells;
    return {cells ? *std::move(cells) : cells_of(std::move(rows), width), is_plain};
  }
  for (const Separator& separator : kSeparators) {
    if (data.find(separator.byte) == std::string_view::npos) continue;
    RaggedRows others = cut_at(separator.byte, data, first_line, width);
    if (width > 1 && others.size() != 0 && others.all_have(width)) {
      findings.add(Severity::repaired, separator.code,
                   "The cells of a row are separated by " + std::string(separator.name) +
                       ": cut there, each of the " + line_count(others.size()) + " has " +
                       std::to_string(width) + " cells.",
                   first_line);
      return {cells_of(std::move(others), width), false};
    }
  }
  if (auto cells = cut_without_comments(data, first_line, width, findings)) {
    return {*std::move(cells), false};
  }
  if (std::optional<Cells> joined = join_lines(rows, width)) {
    findings.add(Severity::repaired, "rows-over-lines",
                 "Rows go on over several lines: " + std::to_string(rows.size()) + " lines make " +
                     line_count(joined->rows()) + " of " + std::to_string(width) + " cells.",
                 first_line);
    return {*std::move(joined), false};
  }
  if (name != kNoField && rows.size() != 0) {
    if (auto joined = join_words(rows, width, static_cast<std::size_t>(name))) {
      findings.add(Severity::repaired, "words-joined",
                   "Names of several words have no quotes: the words between the other " +
                       std::to_string(width - 1) + " cells of a row are joined.",
                   first_line);
      return {*std::move(joined), false};
    }
  }
  if (rows.size() != 0 && rows.width(0) != width && rows.all_have(rows.width(0))) {
    const std::size_t other_width = rows.width(0);
    return {cells_of(std::move(rows), other_width), false};
  }
  return {leave_out_others(rows, width, findings), false};
}

}  // namespace measkit
