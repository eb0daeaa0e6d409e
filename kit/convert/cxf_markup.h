// The text of an XML document while it is written.
#ifndef MEASDATA_KIT_CONVERT_CXF_MARKUP_H
#define MEASDATA_KIT_CONVERT_CXF_MARKUP_H

#include <cstddef>
#include <string>
#include <string_view>

namespace measkit {

class CxfMarkup {
 public:
  /// Markup as it stands.
  CxfMarkup& raw(std::string_view markup) {
    text_ += markup;
    return *this;
  }
  /// A text with markup characters escaped. Characters that XML forbids are left out and counted.
  CxfMarkup& escaped(std::string_view text);
  /// Markup on a line of its own behind `depth` tabs.
  CxfMarkup& line(std::size_t depth, std::string_view markup);
  /// <cc:name>text</cc:name> on a line; nothing for an empty text.
  void element(std::size_t depth, std::string_view name, std::string_view text);
  void tag(std::size_t depth, std::string_view name, std::string_view value);

  void reserve(std::size_t size) { text_.reserve(size); }
  void clear() { text_.clear(); }
  std::string_view view() const { return text_; }
  std::string take() { return std::move(text_); }
  std::size_t forbidden_characters() const { return forbidden_; }

 private:
  std::size_t append_special(std::string_view text);

  std::string text_;
  std::size_t forbidden_ = 0;
};

}  // namespace measkit

#endif  // MEASDATA_KIT_CONVERT_CXF_MARKUP_H
