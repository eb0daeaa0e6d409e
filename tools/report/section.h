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

/// A section with empty HTML is omitted.
struct Section {
  std::string_view id, title;
  std::string html;
};

struct SectionHead {
  std::string_view id, title;
  std::string note;          ///< what the reader must know; HTML
  std::string_view missing;  ///< what stands where a chart has nothing to show
};

/// `content_of` returns the HTML for a loaded chart, empty without data.
Section section_of(const SectionHead& head, Charts charts,
                   const std::function<std::string(const Chart&)>& content_of);

/// The letter of a chart and its name; nothing when it is the only one.
std::string chart_heading(Charts charts, const Chart& chart);

/// The widths of a plot that fills its chart, and of one next to another plot.
double full_width(Charts charts);
double half_width(Charts charts);

/// A plot with its caption.
std::string figure_of(std::string_view caption, std::string_view picture);

/// A field with a colour. The colour must be escaped and may be empty.
std::string colour_field(std::string_view colour);

}  // namespace tools::report

#endif  // MEASDATA_TOOLS_REPORT_SECTION_H
