#include "tests/measdata/reference_text.h"

#include <cstddef>

namespace test {
namespace {

bool is_break(char c) { return c == '\r' || c == '\n'; }

std::size_t behind_break(const std::string& text, std::size_t position) {
  if (position == text.size() || !is_break(text[position])) return position;
  const char first = text[position];
  ++position;
  if (position < text.size() && is_break(text[position]) && text[position] != first) ++position;
  return position;
}

}  // namespace

std::vector<std::string> lines_of(const std::string& text) {
  std::vector<std::string> lines;
  std::size_t position = behind_break(text, 0);
  while (position < text.size()) {
    std::string line;
    while (position < text.size() && !is_break(text[position])) {
      line += text[position];
      ++position;
    }
    lines.push_back(line);
    position = behind_break(text, position);
  }
  return lines;
}

std::vector<std::string> tokens_of(const std::string& line, const std::string& separators,
                                   Quotes quotes, Empty empty) {
  const auto is_separator = [&separators](char c) {
    return separators.find(c) != std::string::npos;
  };
  std::vector<std::string> tokens;
  std::size_t i = 0;
  while (i < line.size()) {
    std::string token;
    if (quotes == Quotes::honoured && line[i] == '"') {
      ++i;
      while (i < line.size()) {
        if (line[i] == '"') {
          if (i + 1 == line.size() || line[i + 1] != '"') break;
          token += line[i];
          ++i;
        }
        token += line[i];
        ++i;
      }
      tokens.push_back(token);
      if (i < line.size()) ++i;  // the closing quote
      if (i < line.size() && is_separator(line[i])) ++i;
    } else {
      while (i < line.size() && !is_separator(line[i])) {
        token += line[i];
        ++i;
      }
      if (i < line.size()) ++i;
      if (!token.empty() || empty == Empty::kept) tokens.push_back(token);
    }
  }
  return tokens;
}

bool is_comment(const std::string& token, char comment_char) {
  return !token.empty() && token[0] == comment_char;
}

std::vector<std::string> items_before_comment(const std::vector<std::string>& tokens,
                                              char comment_char) {
  std::vector<std::string> items;
  for (const std::string& token : tokens) {
    if (is_comment(token, comment_char)) break;
    items.push_back(token);
  }
  return items;
}

std::string joined(const std::vector<std::string>& tokens, std::size_t first) {
  std::string text;
  for (std::size_t i = first; i < tokens.size(); ++i) {
    if (i > first) text += " ";
    text += tokens[i];
  }
  return text;
}

}  // namespace test
