// What all pages have around their sections: head, style, navigation, foot.
#ifndef MEASDATA_KIT_WRITE_HTML_PAGE_FRAME_H
#define MEASDATA_KIT_WRITE_HTML_PAGE_FRAME_H

#include "kit/write/html/section.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace measkit::html {

/// How all pages look: CSS that holds no character with a meaning in HTML.
extern const std::string_view kStyle;

struct PageHead {
  std::string title;       ///< of the window; safe to stand in HTML
  std::size_t columns;     ///< that stand side by side
  std::string header;      ///< HTML
  std::string_view style;  ///< what the page needs beyond kStyle
  std::string_view script = {};
};

std::string framed_page(const PageHead& head, std::span<const Section> sections);

}  // namespace measkit::html

#endif  // MEASDATA_KIT_WRITE_HTML_PAGE_FRAME_H
