#include "kit/preflight/delimited_text.h"

#include "kit/preflight/decimal_text.h"

#include <algorithm>
#include <cctype>
#include <string>

namespace measkit {
namespace {

constexpr std::string_view kNoBreakSpace = "\xC2\xA0";

bool is_blank(char c) { return c == ' ' || c == '\t'; }

bool ends_cell(char c, Delimiter delimiter) {
  return delimiter == Delimiter::blanks ? is_blank(c) : c == static_cast<char>(delimiter);
}

// Yields the cells of a line one after the other.
class LineCutter {
 public:
  LineCutter(std::string_view line, Delimiter delimiter, TextPool& pool)
      : line_(line), delimiter_(delimiter), pool_(pool) {}

  bool next(std::string_view& cell) {
    if (at_ > line_.size()) return false;
    skip_blanks();
    if (at_ == line_.size() && delimiter_ == Delimiter::blanks) return false;
    if (at_ < line_.size() && line_[at_] == '"') {
      cell = take_quoted();
    } else {
      const std::size_t start = at_;
      skip_to_delimiter();
      cell = without_blanks(line_.substr(start, at_ - start));
    }
    ++at_;  // the delimiter, or beyond the end
    return true;
  }

 private:
  void skip_blanks() {
    while (at_ < line_.size() &&
           (line_[at_] == ' ' || (line_[at_] == '\t' && delimiter_ != Delimiter::tab))) {
      ++at_;
    }
  }
  void skip_to_delimiter() {
    while (at_ < line_.size() && !ends_cell(line_[at_], delimiter_)) ++at_;
  }
  // What stands between a closing quote and the delimiter is no part of the cell.
  std::string_view take_quoted() {
    const std::size_t start = ++at_;
    bool has_doubled = false;
    while (at_ < line_.size()) {
      if (line_[at_] == '"') {
        if (at_ + 1 == line_.size() || line_[at_ + 1] != '"') break;
        has_doubled = true;
        ++at_;
      }
      ++at_;
    }
    const std::string_view inside = line_.substr(start, std::min(at_, line_.size()) - start);
    skip_to_delimiter();
    return without_blanks(has_doubled ? with_single_quotes(inside) : inside);
  }
  std::string_view with_single_quotes(std::string_view text) {
    char* const out = pool_.room(text.size());
    std::size_t size = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
      out[size++] = text[i];
      if (text[i] == '"' && i + 1 < text.size() && text[i + 1] == '"') ++i;
    }
    return pool_.keep(size);
  }

  std::string_view line_;
  Delimiter delimiter_;
  TextPool& pool_;
  std::size_t at_ = 0;
};

std::size_t digits_at(std::string_view text, std::size_t at) {
  std::size_t end = at;
  while (end < text.size() && text[end] >= '0' && text[end] <= '9') ++end;
  return end - at;
}

bool is_sign(std::string_view text, std::size_t at) {
  return at < text.size() && (text[at] == '-' || text[at] == '+');
}

}  // namespace

std::string_view plural_of(Delimiter delimiter) {
  switch (delimiter) {
    case Delimiter::tab:
      return "tabs";
    case Delimiter::semicolon:
      return "semicolons";
    case Delimiter::comma:
      return "commas";
    case Delimiter::blanks:
      break;
  }
  return "blanks";
}

void cut_cells(std::string_view line, Delimiter delimiter, TextPool& pool, SheetCells& cells) {
  cells.clear();
  LineCutter cutter(line, delimiter, pool);
  for (std::string_view cell; cutter.next(cell);) {
    if (cells.size() == kMostColumns) {
      cells.clear();
      return;
    }
    cells.push_back(cell);
  }
}

std::size_t filled_width(const SheetCells& cells) {
  std::size_t width = cells.size();
  while (width != 0 && cells[width - 1].empty()) --width;
  return width;
}

std::string_view without_blanks(std::string_view text) {
  const auto trim = [&text] {
    while (!text.empty() && is_blank(text.front())) text.remove_prefix(1);
    while (!text.empty() && is_blank(text.back())) text.remove_suffix(1);
  };
  trim();
  constexpr char kLastByteOfMark = '\xA0';
  while (!text.empty() &&
         (text.front() == kNoBreakSpace.front() || text.back() == kLastByteOfMark)) {
    const std::size_t size = text.size();
    if (text.starts_with(kNoBreakSpace)) text.remove_prefix(kNoBreakSpace.size());
    if (text.ends_with(kNoBreakSpace)) text.remove_suffix(kNoBreakSpace.size());
    if (text.size() == size) break;
    trim();
  }
  return text;
}

bool is_number(std::string_view cell) {
  std::size_t at = is_sign(cell, 0) ? 1 : 0;
  const std::size_t whole = digits_at(cell, at);
  at += whole;
  std::size_t fraction = 0;
  if (at < cell.size() && (cell[at] == '.' || cell[at] == ',')) {
    fraction = digits_at(cell, at + 1);
    at += 1 + fraction;
  }
  if (whole + fraction == 0) return false;
  if (at < cell.size() && (cell[at] == 'e' || cell[at] == 'E')) {
    at += is_sign(cell, at + 1) ? 2 : 1;
    const std::size_t exponent = digits_at(cell, at);
    if (exponent == 0) return false;
    at += exponent;
  }
  return at == cell.size();
}

double number_in(std::string_view cell) {
  std::string with_point;
  if (const std::size_t comma = cell.find(','); comma != std::string_view::npos) {
    with_point = cell;
    with_point[comma] = '.';
    cell = with_point;
  }
  if (cell.starts_with('+')) cell.remove_prefix(1);
  double value = 0.0;
  read_decimal(cell, value);
  return value;
}

bool is_number_or_missing(std::string_view cell) {
  if (cell.empty() || is_number(cell)) return true;
  constexpr std::size_t kLongestWord = 8;
  if (cell.size() > kLongestWord) return false;
  if (cell.find_first_not_of("-*<>.") == std::string_view::npos) return true;
  std::array<char, kLongestWord> lower{};
  std::transform(cell.begin(), cell.end(), lower.begin(), [](char c) {
    return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  });
  static constexpr std::array<std::string_view, 8> kWords = {"nan",     "na",   "n/a",  "#n/a",
                                                             "#value!", "null", "none", "inf"};
  return std::find(kWords.begin(), kWords.end(), std::string_view(lower.data(), cell.size())) !=
         kWords.end();
}

}  // namespace measkit
