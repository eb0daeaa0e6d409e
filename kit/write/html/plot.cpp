#include "kit/write/html/plot.h"

#include "kit/write/html/svg_path.h"

namespace measkit::html {
namespace {

double share_of(const Axis& axis, double value) {
  return (value - axis.first) / (axis.last - axis.first);
}

std::string text_at(double x, double y, std::string_view kind, std::string_view text) {
  return "<text class=\"" + std::string(kind) + "\" x=\"" + coordinate(x) + "\" y=\"" +
         coordinate(y) + "\">" + std::string(text) + "</text>";
}

}  // namespace

Plot::Plot(const PlotSize& size, const TitledAxis& x, const TitledAxis& y,
           std::string_view description)
    : size_(size), x_axis_(x.scale), y_axis_(y.scale) {
  svg_ = "<svg class=\"plot\" viewBox=\"0 0 " + coordinate(size.width) + " " +
         coordinate(size.height) + "\" role=\"img\" aria-label=\"" + std::string(description) +
         "\">\n";
  draw_frame(x, y);
}

double Plot::left() const { return size_.left_margin; }
double Plot::right() const { return size_.width - size_.right_margin; }
double Plot::top() const { return size_.top_margin; }
double Plot::bottom() const { return size_.height - size_.bottom_margin; }
double Plot::x(double value) const {
  return left() + share_of(x_axis_, value) * (right() - left());
}
double Plot::y(double value) const {
  return bottom() - share_of(y_axis_, value) * (bottom() - top());
}

void Plot::draw_frame(const TitledAxis& x_title, const TitledAxis& y_title) {
  draw("<rect class=\"ground\" x=\"" + coordinate(left()) + "\" y=\"" + coordinate(top()) +
       "\" width=\"" + coordinate(right() - left()) + "\" height=\"" +
       coordinate(bottom() - top()) + "\"/>\n");
  SvgPath grid;
  std::string labels;
  for (const double tick : ticks_of(x_axis_)) {
    grid.lift();
    grid.add(x(tick), top());
    grid.add(x(tick), bottom());
    labels += text_at(x(tick), bottom() + 18.0, "x", tick_text(x_axis_, tick));
  }
  for (const double tick : ticks_of(y_axis_)) {
    grid.lift();
    grid.add(left(), y(tick));
    grid.add(right(), y(tick));
    labels += text_at(left() - 8.0, y(tick) + 4.0, "y", tick_text(y_axis_, tick));
  }
  draw("<path class=\"grid\" d=\"" + grid.data() + "\"/>\n" + labels + "\n");
  draw(text_at(left(), top() - 12.0, "title", y_title.title));
  draw(text_at(right(), bottom() + 38.0, "x-title", x_title.title) + "\n");
}

std::string Plot::dot(double x_value, double y_value, std::string_view colour,
                      std::string_view label) const {
  std::string html =
      "<circle cx=\"" + coordinate(x(x_value)) + "\" cy=\"" + coordinate(y(y_value)) + "\" fill=\"";
  html += colour;
  if (label.empty()) return html += "\"/>\n";
  html += "\"><title>";
  html += label;
  return html += "</title></circle>\n";
}

void Plot::draw_dots(double radius, std::string_view dots) {
  svg_ += "<g class=\"dots\" style=\"--radius:" + coordinate(radius) + "px\">\n";
  svg_ += dots;
  svg_ += "</g>\n";
}

// An inner picture shows nothing beyond its bounds.
std::string Plot::clipped(std::string_view markup) const {
  const std::string x = coordinate(left()), y = coordinate(top());
  const std::string width = coordinate(right() - left()), height = coordinate(bottom() - top());
  return "<svg x=\"" + x + "\" y=\"" + y + "\" width=\"" + width + "\" height=\"" + height +
         "\" viewBox=\"" + x + " " + y + " " + width + " " + height + "\">\n" +
         std::string(markup) + "</svg>\n";
}

std::string Plot::finish() && { return std::move(svg_ += "</svg>\n"); }

}  // namespace measkit::html
