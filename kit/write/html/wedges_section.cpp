#include "kit/write/html/axis.h"
#include "kit/write/html/numbers.h"
#include "kit/write/html/plot.h"
#include "kit/write/html/sections.h"
#include "kit/write/html/svg_path.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace measkit::html {
namespace {

// A wedge that spans less lightness than this is judged by its chroma.
constexpr double kLeastLightnessSpan = 20.0;

using Measure = double (*)(const Triple&);
double lightness_of(const Triple& lab) { return lab[0]; }
double chroma_of(const Triple& lab) { return std::hypot(lab[1], lab[2]); }

enum class Kind { lightness, chroma };

Measure measure_of(Kind kind) { return kind == Kind::lightness ? lightness_of : chroma_of; }

// Inks with a solid have tone values instead.
bool has_curve(const View& chart, const ChannelView& channel) {
  const auto position = static_cast<std::size_t>(&channel - chart.channels.data());
  return std::ranges::any_of(chart.figures.curves, [position](const InkCurve& curve) {
    return curve.channel == position;
  });
}

bool is_shown(const View& chart, const ChannelView& channel, Kind kind) {
  if (channel.wedge.size() < 3 || has_curve(chart, channel)) return false;
  Extent lightness;
  for (const WedgeStep& step : channel.wedge) lightness.add(step.lab[0]);
  const bool tells_lightness = lightness.high() - lightness.low() >= kLeastLightnessSpan;
  return tells_lightness == (kind == Kind::lightness);
}

// Each chart has its own: inks go to 100, RGB goes to 255.
TitledAxis device_axis(const View& chart) {
  Extent devices;
  devices.add(0.0);
  for (const ChannelView& channel : chart.channels) {
    for (const WedgeStep& step : channel.wedge) devices.add(step.device);
  }
  Axis axis = axis_over(devices.low(), devices.high(), 5);
  axis.last = std::max(devices.high(), axis.first + axis.step);
  const bool is_percent = !chart.is_rgb && devices.high() <= 100.0;
  return {axis, is_percent ? "device value, %" : "device value"};
}

TitledAxis measure_axis(Views charts, Kind kind) {
  Extent measures;
  measures.add(0.0);
  if (kind == Kind::lightness) measures.add(100.0);
  for (const View& chart : charts) {
    for (const ChannelView& channel : chart.channels) {
      if (!is_shown(chart, channel, kind)) continue;
      for (const WedgeStep& step : channel.wedge) measures.add(measure_of(kind)(step.lab));
    }
  }
  return {axis_over(measures.low(), measures.high(), 5),
          kind == Kind::lightness ? "L*" : "C*<tspan class=\"sub\" dy=\"3\">ab</tspan>"};
}

struct EndLabel {
  double y;
  const ChannelView* channel;
};

// Moves labels apart that would cover each other, from the top down and back up from the bottom.
void spread(std::vector<EndLabel>& labels, double bottom) {
  constexpr double kLineHeight = 15.0;
  std::ranges::sort(labels, {}, &EndLabel::y);
  for (std::size_t i = 1; i < labels.size(); ++i) {
    labels[i].y = std::max(labels[i].y, labels[i - 1].y + kLineHeight);
  }
  double lowest = bottom;
  for (std::size_t i = labels.size(); i-- > 0;) {
    labels[i].y = std::min(labels[i].y, lowest);
    lowest = labels[i].y - kLineHeight;
  }
}

void draw_wedge(Plot& plot, const ChannelView& channel, Measure measure) {
  SvgPath path;
  for (const WedgeStep& step : channel.wedge)
    path.add(plot.x(step.device), plot.y(measure(step.lab)));
  plot.draw("<path class=\"wedge\" stroke=\"" + channel.colour + "\" d=\"" + path.data() +
            "\"/>\n");
  std::string dots;
  for (const WedgeStep& step : channel.wedge) {
    dots +=
        plot.dot(step.device, measure(step.lab), step.colour,
                 channel.name + " " + shortest(step.device) + ": " + decimal(measure(step.lab), 1));
  }
  plot.draw_dots(4.0, dots);
}

void draw_end_labels(Plot& plot, std::vector<EndLabel> labels) {
  spread(labels, plot.bottom());
  for (const EndLabel& label : labels) {
    const std::string& colour = label.channel->colour;
    plot.draw("<circle class=\"key\" fill=\"" + colour + "\" cx=\"" +
              coordinate(plot.right() + 16.0) + "\" cy=\"" + coordinate(label.y) +
              "\" r=\"5\"/><text x=\"" + coordinate(plot.right() + 26.0) + "\" y=\"" +
              coordinate(label.y + 4.0) + "\">" + label.channel->short_name + "</text>\n");
  }
}

std::string wedge_plot(const View& chart, Views charts, const TitledAxis& measured, Kind kind) {
  if (std::ranges::none_of(chart.channels,
                           [&](const auto& c) { return is_shown(chart, c, kind); })) {
    return "";
  }
  const bool is_wide = charts.size() <= 2;
  const Measure measure = measure_of(kind);
  const std::string name = kind == Kind::lightness ? "Lightness L*" : "Chroma C*";
  Plot plot({half_width(charts), is_wide ? 400.0 : 320.0, is_wide ? 120.0 : 96.0},
            device_axis(chart), measured, name + " of the wedges of " + chart.name);
  std::vector<EndLabel> labels;
  for (const ChannelView& channel : chart.channels) {
    if (!is_shown(chart, channel, kind)) continue;
    draw_wedge(plot, channel, measure);
    labels.push_back({plot.y(measure(channel.wedge.back().lab)), &channel});
  }
  draw_end_labels(plot, std::move(labels));
  return figure_of(name, std::move(plot).finish());
}

double power_of(const View& chart, double device) {
  return std::pow(device, chart.ramp.gamma.value_or(1.0));
}

// Luminance of the greys over their device value, and the power that fits them.
std::string ramp_plot(const View& chart, Views charts) {
  if (chart.ramp.steps.empty()) return "";
  const double full = chart.chart->full_scale;
  Plot plot({half_width(charts), charts.size() <= 2 ? 400.0 : 320.0},
            {{0.0, full, axis_over(0.0, full, 5).step}, "R = G = B"},
            {{0.0, 100.0, 20.0}, "luminance, %"}, "Luminance of the greys of " + chart.name);
  constexpr int kPieces = 40;
  SvgPath curve;
  for (int i = 0; i <= kPieces; ++i) {
    const double device = i / static_cast<double>(kPieces);
    curve.add(plot.x(device * full), plot.y(100.0 * power_of(chart, device)));
  }
  if (chart.ramp.gamma) plot.draw("<path class=\"fit\" d=\"" + curve.data() + "\"/>\n");
  std::string dots;
  for (const RampStep& step : chart.ramp.steps) {
    dots +=
        plot.dot(step.device * full, 100.0 * step.luminance,
                 hex_colour(triple_at(chart.chart->merged.lab, step.index)),
                 shortest(step.device * full) + ": " + decimal(100.0 * step.luminance, 1) + " %");
  }
  plot.draw_dots(4.0, dots);
  const std::string gamma =
      chart.ramp.gamma ? ", and gamma " + decimal(*chart.ramp.gamma, 2) + " (dashed line)" : "";
  return figure_of("Greys: luminance from black to white" + gamma, std::move(plot).finish());
}

}  // namespace

Section wedges_section(Views charts) {
  const TitledAxis lightness = measure_axis(charts, Kind::lightness);
  const TitledAxis chroma = measure_axis(charts, Kind::chroma);
  return section_of({"wedges", "Wedges",
                     "Patches of a single colorant without a solid, or of a single light. "
                     "Lightness is drawn where "
                     "the wedge spans at least " +
                         shortest(kLeastLightnessSpan) + " L*, chroma where it spans less.",
                     "No wedges in this chart, or no colour for them."},
                    charts, [&](const View& chart) {
                      const std::string plots =
                          ramp_plot(chart, charts) +
                          wedge_plot(chart, charts, lightness, Kind::lightness) +
                          wedge_plot(chart, charts, chroma, Kind::chroma);
                      return plots.empty() ? "" : "<div class=\"figures\">\n" + plots + "</div>\n";
                    });
}

}  // namespace measkit::html
