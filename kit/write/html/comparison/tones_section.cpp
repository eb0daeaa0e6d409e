#include "kit/write/html/axis.h"
#include "kit/write/html/comparison/sections.h"
#include "kit/write/html/html_text.h"
#include "kit/write/html/limits.h"
#include "kit/write/html/numbers.h"
#include "kit/write/html/plot.h"
#include "kit/write/html/svg_path.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace measkit::html {
namespace {

constexpr std::size_t kMostInks = 16;
constexpr std::size_t kMostRows = 30;

using Side = ToneValue WedgeStepTones::*;

bool has_values(const WedgeTones& wedge) { return wedge.steps.back().reference.value.has_value(); }

double increase_of(const WedgeStepTones& step, Side side) {
  return (step.*side).usual() - step.nominal;
}

std::span<const WedgeTones> shown_of(const SampleView& sample) {
  const std::span<const WedgeTones> wedges = sample.comparison.wedges;
  return wedges.first(std::min(wedges.size(), kMostInks));
}

// Every n-th step of a long wedge, and the solid.
std::vector<WedgeStepTones> thinned(const WedgeTones& wedge, std::size_t most) {
  const std::size_t stride = 1 + (wedge.steps.size() - 1) / most;
  std::vector<WedgeStepTones> steps;
  for (std::size_t i = (wedge.steps.size() - 1) % stride; i < wedge.steps.size(); i += stride) {
    steps.push_back(wedge.steps[i]);
  }
  return steps;
}

// Steps that are not of one wedge can have any tone value; no press is that far out.
double within_limits(double increase) { return std::clamp(increase, -50.0, 100.0); }

Axis increase_axis(SampleViews samples) {
  Extent increases;
  increases.add(0.0);
  increases.add(10.0);
  for (const SampleView& sample : samples) {
    for (const WedgeTones& wedge : shown_of(sample)) {
      for (const WedgeStepTones& step : wedge.steps) {
        increases.add(within_limits(increase_of(step, &WedgeStepTones::reference)));
        increases.add(within_limits(increase_of(step, &WedgeStepTones::sample)));
      }
    }
  }
  return axis_over(increases.low(), increases.high(), 6);
}

std::string path_of(const Plot& plot, const std::vector<WedgeStepTones>& steps, Side side) {
  SvgPath path;
  path.add(plot.x(0.0), plot.y(0.0));
  for (const WedgeStepTones& step : steps) {
    const double increase = increase_of(step, side);
    if (!is_drawable(increase) || !is_drawable(step.nominal)) continue;
    path.add(plot.x(step.nominal), plot.y(increase));
  }
  return path.data();
}

void draw_curves(Plot& plot, const SampleView& sample, const WedgeTones& wedge,
                 const Axis& increases) {
  const auto& colours = sample.comparison.colours;
  const std::string ink = hex_of(colours[wedge.steps.back().pair].reference);
  const std::string stroke = ink.empty() ? "" : " stroke=\"" + ink + "\"";
  const std::vector<WedgeStepTones> steps = thinned(wedge, kMostWedgeSteps);
  plot.draw(plot.clipped("<path class=\"wedge dashed\"" + stroke + " d=\"" +
                         path_of(plot, steps, &WedgeStepTones::reference) +
                         "\"/>\n<path class=\"wedge\"" + stroke + " d=\"" +
                         path_of(plot, steps, &WedgeStepTones::sample) + "\"/>\n"));
  std::string dots;
  for (const WedgeStepTones& step : steps) {
    const double increase = increase_of(step, &WedgeStepTones::sample);
    const bool is_on_ground = increase >= increases.first && increase <= increases.last;
    if (!is_on_ground || !is_drawable(step.nominal)) continue;
    dots += plot.dot(step.nominal, increase, hex_of(colours[step.pair].sample),
                     shortest(step.nominal) + " %: " + decimal(increase, 1));
  }
  plot.draw_dots(4.0, dots);
}

std::string increase_plot(const SampleView& sample, const WedgeTones& wedge, const Axis& increases,
                          double width) {
  const std::string name = html_text(wedge.ink, kLongName);
  const std::string title =
      has_values(wedge) ? "tone value increase, %" : "spot colour tone value increase, %";
  Plot plot({width, 280.0}, {{0.0, 100.0, 20.0}, "nominal tone value, %"}, {increases, title},
            title + " of " + name + " of " + sample.name);
  draw_curves(plot, sample, wedge, increases);
  return figure_of(name, std::move(plot).finish());
}

std::string header_cell(const char* title, int columns) {
  return "<th scope=\"colgroup\" class=\"number\" colspan=\"" + std::to_string(columns) + "\">" +
         title + "</th>";
}

std::string table_head(bool values) {
  const std::string sides =
      "<th scope=\"col\" class=\"number\">Ref.</th><th scope=\"col\" class=\"number\">Sample</th>";
  const std::string all = sides + "<th scope=\"col\" class=\"number\">Diff.</th>";
  return "<div class=\"scroll\">\n<table class=\"figures-table tones\">\n<thead><tr><th "
         "scope=\"col\" rowspan=\"2\">Nominal, %</th>" +
         (values ? header_cell("Tone value", 3) + header_cell("Increase", 2) : "") +
         header_cell("Spot colour tone value", 3) + "</tr>\n<tr>" + (values ? all + sides : "") +
         all + "</tr></thead>\n<tbody>\n";
}

std::string tone_table(const WedgeTones& wedge) {
  const bool values = has_values(wedge);
  const std::vector<WedgeStepTones> steps = thinned(wedge, kMostRows);
  std::string html = table_head(values);
  for (const WedgeStepTones& step : steps) {
    const ToneValue &first = step.reference, &second = step.sample;
    std::vector<std::string> cells;
    const auto add = [&cells](double value) { cells.push_back(number_or_dash(value, 1)); };
    if (values) {
      for (const double value : {first.usual(), second.usual(), second.usual() - first.usual(),
                                 first.usual() - step.nominal, second.usual() - step.nominal}) {
        add(value);
      }
    }
    for (const double value : {first.spot, second.spot, second.spot - first.spot}) add(value);
    html += number_row(shortest(step.nominal), cells);
  }
  html += kTableEnd;
  if (steps.size() < wedge.steps.size()) {
    html += "<p class=\"note\">" + grouped(steps.size()) + " of " + grouped(wedge.steps.size()) +
            " steps.</p>\n";
  }
  return html;
}

std::string tones_of(const SampleView& sample, const Axis& increases, double width) {
  std::string html;
  for (const WedgeTones& wedge : shown_of(sample)) {
    if (wedge.steps.empty()) continue;
    html += "<div class=\"ink\">\n" + increase_plot(sample, wedge, increases, width) +
            tone_table(wedge) + "</div>\n";
  }
  const std::size_t inks = sample.comparison.wedges.size();
  if (inks > kMostInks) {
    html += "<p class=\"note\">and " + grouped(inks - kMostInks) + " more inks</p>\n";
  }
  return html;
}

}  // namespace

Section tones_section(SampleViews samples) {
  const Axis increases = increase_axis(samples);
  const double width = half_width(samples.size());
  return section_of(
      {"tones", "Tone values",
       "Dashed: reference. Line with dots: sample. Tone values are those of the reflectance in X "
       "for cyan, Y for magenta and black, and Z for yellow. Spot colour tone values follow ISO "
       "20654.",
       "No ink whose paper and solid both charts hold."},
      samples, [&](const SampleView& sample) { return tones_of(sample, increases, width); });
}

}  // namespace measkit::html
