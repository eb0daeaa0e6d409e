// A part of the page: the same question answered for each chart, side by side.
#ifndef MEASDATA_TOOLS_REPORT_SECTION_H
#define MEASDATA_TOOLS_REPORT_SECTION_H

#include "tools/report/chart.h"

#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace tools::report {

using Charts = std::span<const Chart>;

/// A section without HTML has nothing to show for any chart.
struct Section {
  std::string_view id, title;
  std::string html;
};

struct SectionHead {
  std::string_view id, title;
  std::string note;          ///< what the reader must know; HTML
  std::string_view missing;  ///< what stands where a chart has nothing to show
};

/// `content_of` gives the HTML of a chart that was loaded, empty when there is nothing to show.
Section section_of(const SectionHead& head, Charts charts,
                   const std::function<std::string(const Chart&)>& content_of);

/// The letter of a chart and its name; nothing when it is the only one.
std::string chart_heading(Charts charts, const Chart& chart);

/// How wide a plot is that has all the width of its chart, and one that may share it with another.
double full_width(Charts charts);
double half_width(Charts charts);

/// A plot with its caption.
std::string figure_of(std::string_view caption, std::string_view picture);

/// A field of a colour, which is safe to stand in HTML and may be empty.
std::string colour_field(std::string_view colour);

}  // namespace tools::report

#endif  // MEASDATA_TOOLS_REPORT_SECTION_H
