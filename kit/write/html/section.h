// A part of the page: the same question answered for each chart, side by side.
#ifndef MEASDATA_KIT_WRITE_HTML_SECTION_H
#define MEASDATA_KIT_WRITE_HTML_SECTION_H

#include "kit/write/html/view.h"

#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace measkit::html {

using Views = std::span<const View>;

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
Section section_of(const SectionHead& head, Views charts,
                   const std::function<std::string(const View&)>& content_of);

/// What a section shows for one of several things that stand side by side; HTML.
struct Cell {
  std::string heading, content;
  std::string_view missing;  ///< what stands in place of content that is empty
};
Section section_of(const SectionHead& head, std::span<const Cell> cells);

/// A letter for the position, counted from 0, and a name that is safe to stand in HTML.
std::string lettered(std::size_t position, std::string_view name);
/// The letter of a chart and its name; nothing when it is the only one.
std::string chart_heading(Views charts, const View& chart);

/// How wide a plot is that has all the width of its chart, and one that may share it with another.
double full_width(std::size_t columns);
double half_width(std::size_t columns);
inline double full_width(Views charts) { return full_width(charts.size()); }
inline double half_width(Views charts) { return half_width(charts.size()); }

/// A table that scrolls when it is larger than its place. `name` is what a screen reader calls it;
/// `kind` is a further class of CSS and may be empty.
std::string scrolling(std::string_view name, std::string_view table, std::string_view kind = {});

/// The hue angle of Lab in degrees, 0 to 360.
double hue_angle(const Triple& lab);

/// A large number over its name.
std::string key_figure(std::string_view value, std::string_view name);

/// A plot with its caption.
std::string figure_of(std::string_view caption, std::string_view picture);

/// Device values, each with the letter of its channel where it has one.
std::string device_text(const View& chart, std::span<const double> device);

/// A field of a colour, which is safe to stand in HTML and may be empty.
std::string colour_field(std::string_view colour);

}  // namespace measkit::html

#endif  // MEASDATA_KIT_WRITE_HTML_SECTION_H
