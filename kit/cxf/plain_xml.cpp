#include "kit/cxf/plain_xml.h"

#include "kit/cxf/xml_characters.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <deque>
#include <optional>
#include <string>
#include <vector>

namespace measkit::cxf {
namespace {

enum Class : unsigned char {
  kOther = 0,       // for read_xml(), such as control codes and carriage returns
  kText = 1,        // in texts and values
  kNameStart = 2,   // of names
  kNameInside = 4,  // of names behind their first character
  kBlank = 8,       // tab and line feed; the blank itself is a text, too
};

constexpr std::array<unsigned char, 256> kClasses = [] {
  std::array<unsigned char, 256> classes{};
  for (unsigned c = ' '; c < 0x7FU; ++c) classes[c] = kText;
  for (const char c : {'<', '&', '"', '\'', ']'}) classes[static_cast<unsigned char>(c)] = kOther;
  for (unsigned c = '0'; c <= '9'; ++c) classes[c] |= kNameInside;
  for (const char c : {'-', '.'}) classes[static_cast<unsigned char>(c)] |= kNameInside;
  for (unsigned c = 'a'; c <= 'z'; ++c) classes[c] |= kNameStart | kNameInside;
  for (unsigned c = 'A'; c <= 'Z'; ++c) classes[c] |= kNameStart | kNameInside;
  classes['_'] |= kNameStart | kNameInside;
  classes[' '] |= kBlank;
  classes['\t'] = classes['\n'] = kBlank;
  return classes;
}();

bool is_of(char c, unsigned char classes) {
  return (kClasses[static_cast<unsigned char>(c)] & classes) != 0;
}

struct QualifiedName {
  std::string_view whole, prefix, local;
};

struct Binding {
  std::string_view prefix, uri;
  std::size_t level;
};

class PlainReader {
 public:
  PlainReader(std::string_view text, XmlReceiver& receiver) : text_(text), receiver_(receiver) {}

  bool read() {
    static constexpr std::array<std::string_view, 2> kDeclarations = {
        R"(<?xml version="1.0" encoding="UTF-8"?>)", R"(<?xml version="1.0" encoding="utf-8"?>)"};
    for (const std::string_view declaration : kDeclarations) take(declaration);
    do {
      if (!read_text() || at_ == text_.size() || !read_markup()) return false;
    } while (!has_root_ || !open_.empty());
    while (true) {
      skip_blanks();
      if (at_ == text_.size()) return true;
      if (!take("<!--") || !skip_comment()) return false;
    }
  }

 private:
  bool take(std::string_view words) {
    if (!text_.substr(at_).starts_with(words)) return false;
    at_ += words.size();
    return true;
  }
  bool take(char c) {
    if (at_ == text_.size() || text_[at_] != c) return false;
    ++at_;
    return true;
  }
  void skip(unsigned char classes) {
    std::size_t at = at_;
    while (at < text_.size() && is_of(text_[at], classes)) ++at;
    at_ = at;
  }
  bool skip_blanks() {
    const std::size_t start = at_;
    skip(kBlank);
    return at_ != start;
  }

  // Up to the next markup. Outside the root, before which this is called, there are blanks alone.
  bool read_text() {
    if (open_.empty()) {
      skip_blanks();
      return true;
    }
    std::size_t start = at_;
    while (skip(kText | kBlank), at_ < text_.size() && text_[at_] != '<') {
      if (text_[at_] == '&') {
        if (at_ != start) receiver_.text(text_.substr(start, at_ - start));
        const std::optional<char> character = read_reference();
        if (!character) return false;
        receiver_.text({&*character, 1});
        start = at_;
      } else if (!skip_character()) {
        return false;
      }
    }
    if (at_ != start) receiver_.text(text_.substr(start, at_ - start));
    return true;
  }

  // A character of a text.
  bool skip_character() {
    const char c = text_[at_];
    if (is_of(c, kText | kBlank) || c == '"' || c == '\'') {
      ++at_;
    } else if (c == ']') {
      if (text_.substr(at_).starts_with("]]>")) return false;
      ++at_;
    } else {
      const std::size_t size = size_of_character(text_.substr(at_));
      at_ += size;
      return size != 0;
    }
    return true;
  }

  // A character of ASCII that stands by its name or number.
  std::optional<char> read_reference() {
    struct Named {
      std::string_view name;
      char character;
    };
    static constexpr std::array<Named, 5> kNamed = {
        {{"&lt;", '<'}, {"&gt;", '>'}, {"&amp;", '&'}, {"&quot;", '"'}, {"&apos;", '\''}}};
    for (const Named& one : kNamed) {
      if (take(one.name)) return one.character;
    }
    if (!take("&#")) return std::nullopt;
    int code = 0;
    const char* const first = text_.data() + at_;
    const auto [end, error] = std::from_chars(first, text_.data() + text_.size(), code);
    const bool is_allowed = (code >= ' ' && code < 0x7F) || code == '\t' || code == '\n';
    at_ += static_cast<std::size_t>(end - first);
    if (error != std::errc() || !is_allowed || !take(';')) return std::nullopt;
    return static_cast<char>(code);
  }

  bool read_markup() {
    const std::size_t start = at_++;
    if (text_[start] != '<') return false;
    if (take('/')) return read_end();
    if (take("!--")) return skip_comment();
    return read_start(start);
  }

  bool skip_comment() {
    while (at_ < text_.size() && !take("--")) {
      if (text_[at_] == '<' || text_[at_] == '&') {
        ++at_;
      } else if (!skip_character()) {
        return false;
      }
    }
    return take('>');
  }

  bool read_end() {
    if (open_.empty() || !take(open_.back())) return false;
    skip_blanks();
    return take('>') && end_element();
  }

  bool end_element() {
    while (!bindings_.empty() && bindings_.back().level == open_.size()) bindings_.pop_back();
    open_.pop_back();
    receiver_.end();
    return true;
  }

  bool read_name(QualifiedName& name) {
    const std::size_t start = at_;
    if (!skip_name_part()) return false;
    name.prefix = {};
    name.local = text_.substr(start, at_ - start);
    if (take(':')) {
      const std::size_t local = at_;
      if (!skip_name_part()) return false;
      name.prefix = name.local;
      name.local = text_.substr(local, at_ - local);
    }
    name.whole = text_.substr(start, at_ - start);
    return true;
  }

  bool skip_name_part() {
    if (at_ == text_.size() || !is_of(text_[at_], kNameStart)) return false;
    skip(kNameInside);
    return true;
  }

  bool read_start(std::size_t start) {
    constexpr std::size_t kMostLevels = 256;
    QualifiedName name;
    if (open_.size() == kMostLevels || !read_name(name)) return false;
    open_.push_back(name.whole);
    has_root_ = true;
    own_names_.clear();
    attributes_.clear();
    made_.clear();
    while (skip_blanks() && at_ < text_.size() && is_of(text_[at_], kNameStart)) {
      if (!read_attribute()) return false;
    }
    const bool is_empty = take('/');
    if (!take('>') || !resolve_attributes()) return false;
    const std::optional<std::string_view> uri = uri_of(name.prefix);
    if (!uri || !receiver_.begin({*uri, name.local}, attributes_, start)) return false;
    return !is_empty || end_element();
  }

  bool read_attribute() {
    QualifiedName name;
    if (!read_name(name) || !take('=')) return false;
    const char quote = take('"') ? '"' : take('\'') ? '\'' : '\0';
    const std::size_t made = made_.size();
    std::string_view value;
    if (quote == '\0' || !read_value(quote, value)) return false;
    if (name.whole == "xmlns" || name.prefix == "xmlns") {
      return made_.size() == made && bind(name, value);
    }
    constexpr std::size_t kMost = 32;
    own_names_.push_back(name);
    attributes_.push_back({{}, name.local, value});
    return attributes_.size() <= kMost;
  }

  bool read_value(char quote, std::string_view& value) {
    const std::size_t start = at_;
    skip(kText);
    if (take(quote)) {
      value = text_.substr(start, at_ - 1 - start);
      return true;
    }
    std::string& made = made_.emplace_back(text_.substr(start, at_ - start));
    bool is_made = false;
    while (!take(quote)) {
      if (at_ == text_.size()) return false;
      const char c = text_[at_];
      const std::size_t from = at_;
      // Blanks other than the blank itself would have to become one.
      if (c == '<' || c == '\t' || c == '\n') return false;
      if (c == '&') {
        const std::optional<char> character = read_reference();
        if (!character) return false;
        made += *character;
        is_made = true;
      } else if (c == ']') {
        made += text_[at_++];
      } else {
        if (!skip_character()) return false;
        made += text_.substr(from, at_ - from);
      }
    }
    value = text_.substr(start, at_ - 1 - start);
    if (is_made) value = made;
    return true;
  }

  // Prefixes that begin with xml are reserved; no prefix stands for nothing.
  bool bind(const QualifiedName& name, std::string_view uri) {
    const std::string_view prefix = name.prefix.empty() ? std::string_view() : name.local;
    const bool is_plain = std::ranges::all_of(uri, [](char c) { return c > ' ' && c < '\x7F'; });
    const bool is_reserved = prefix.starts_with("xml") ||
                             uri.find("w3.org/XML/1998") < uri.size() ||
                             uri.find("w3.org/2000/xmlns") < uri.size();
    if (!is_plain || is_reserved || (uri.empty() && !prefix.empty())) return false;
    for (const Binding& one : bindings_) {
      if (one.level == open_.size() && one.prefix == prefix) return false;
    }
    constexpr std::size_t kMost = 32;
    bindings_.push_back({prefix, uri, open_.size()});
    return bindings_.size() <= kMost;
  }

  std::optional<std::string_view> uri_of(std::string_view prefix) const {
    for (std::size_t i = bindings_.size(); i-- > 0;) {
      if (bindings_[i].prefix == prefix) return bindings_[i].uri;
    }
    return prefix.empty() ? std::optional<std::string_view>("") : std::nullopt;
  }

  bool resolve_attributes() {
    for (std::size_t i = 0; i < attributes_.size(); ++i) {
      if (!own_names_[i].prefix.empty()) {
        const std::optional<std::string_view> uri = uri_of(own_names_[i].prefix);
        if (!uri) return false;
        attributes_[i].uri = *uri;
      }
      for (std::size_t other = 0; other < i; ++other) {
        const bool is_same = attributes_[other].local == attributes_[i].local &&
                             attributes_[other].uri == attributes_[i].uri;
        if (is_same) return false;
      }
    }
    return true;
  }

  std::string_view text_;
  XmlReceiver& receiver_;
  std::size_t at_ = 0;
  bool has_root_ = false;
  std::vector<std::string_view> open_;  // whole names
  std::vector<Binding> bindings_;
  std::vector<QualifiedName> own_names_;  // of the attributes
  std::vector<XmlAttribute> attributes_;
  std::deque<std::string> made_;  // values with references
};

}  // namespace

bool read_plain_xml(std::string_view text, XmlReceiver& receiver) {
  return PlainReader(text, receiver).read();
}

}  // namespace measkit::cxf
