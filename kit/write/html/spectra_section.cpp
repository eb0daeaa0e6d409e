#include "kit/write/html/axis.h"
#include "kit/write/html/html_text.h"
#include "kit/write/html/ink_groups.h"
#include "kit/write/html/limits.h"
#include "kit/write/html/line_thinning.h"
#include "kit/write/html/numbers.h"
#include "kit/write/html/plot.h"
#include "kit/write/html/repeat_bands.h"
#include "kit/write/html/sections.h"
#include "kit/write/html/svg_path.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <string>
#include <vector>

namespace measkit::html {
namespace {

constexpr std::size_t kMostLabels = 1000;  // of lines
// More points than that make a page slow.
constexpr std::size_t kMostPoints = 400'000;

struct SpectraAxes {
  TitledAxis wavelength;
  TitledAxis share;     // of the light that a surface reflects or a film lets through
  TitledAxis emission;  // in units that differ from file to file

  const TitledAxis& values_of(const View& chart) const {
    return chart.quantity == Quantity::emission ? emission : share;
  }
};

// Files tell reflectance as a factor or in percent. Fluorescent papers exceed a factor of one, but
// not by far.
double percent_factor(const View& chart) {
  if (chart.quantity == Quantity::emission) return 1.0;
  Extent values;
  for (const PatchView& patch : chart.patches) {
    for (const double value : patch.spectrum) values.add(value);
  }
  constexpr double kLargestFactor = 3.0;
  return values.high() <= kLargestFactor ? 100.0 : 1.0;
}

void add_values(Extent& extent, const View& chart) {
  const double factor = percent_factor(chart);
  for (const PatchView& patch : chart.patches) {
    for (const double value : patch.spectrum) extent.add(value * factor);
  }
}

const char* share_title(Views charts) {
  const auto shows = [&](Quantity quantity) {
    return std::ranges::any_of(charts, [&](const View& chart) {
      return chart.wavelengths.size() > 1 && chart.quantity == quantity;
    });
  };
  if (!shows(Quantity::transmittance)) return "reflectance, %";
  return shows(Quantity::reflectance) ? "reflectance or transmittance, %" : "transmittance, %";
}

SpectraAxes axes_over(Views charts) {
  Extent wavelengths;
  Extent shares;
  Extent emissions;
  shares.add(0.0);
  emissions.add(0.0);
  for (const View& chart : charts) {
    if (chart.wavelengths.size() < 2) continue;
    for (const double nm : chart.wavelengths) wavelengths.add(nm);
    add_values(chart.quantity == Quantity::emission ? emissions : shares, chart);
  }
  const int steps = static_cast<int>(full_width(charts) / 80.0);
  Axis nm = axis_over(wavelengths.low(), wavelengths.high(), steps);
  nm.first = wavelengths.low();
  nm.last = std::max(wavelengths.high(), nm.first + 1.0);
  return {{nm, "wavelength, nm"},
          {axis_over(shares.low(), shares.high(), 6), share_title(charts)},
          {axis_over(emissions.low(), emissions.high(), 6), "emission"}};
}

const char* density_class(std::size_t spectra) {
  if (spectra <= 60) return "few";
  return spectra <= 600 ? "some" : "many";
}

// The coordinates of many spectra: an even grid of wavelengths counts its bands, and heights are
// halves of the picture's units. Both are whole numbers, which take the fewest characters.
class SpectraGrid {
 public:
  SpectraGrid(const Plot& plot, std::span<const double> wavelengths)
      : plot_(plot), wavelengths_(wavelengths) {
    const double step = wavelengths[1] - wavelengths[0];
    is_even_ = step > 0.0;
    for (std::size_t i = 1; i < wavelengths.size(); ++i) {
      is_even_ = is_even_ && wavelengths[i] - wavelengths[i - 1] == step;
    }
    x_unit_ = is_even_ ? plot.x(wavelengths[1]) - plot.x(wavelengths[0]) : 0.5;
  }

  std::string transform() const {
    return "translate(" + coordinate(plot_.left()) + " " + coordinate(plot_.top()) + ") scale(" +
           shortest(x_unit_) + " " + shortest(kYUnit) + ")";
  }

  std::string path_of(std::span<const double> spectrum, double factor) const {
    constexpr double kTolerance = 0.4;  // of the picture's units
    SvgPath path(SvgPath::Steps::whole);
    std::vector<Point> line;
    const auto draw = [&] {
      path.lift();
      for (const Point& point : thinned_line(line, kTolerance)) {
        path.add((point.x - plot_.left()) / x_unit_, (point.y - plot_.top()) / kYUnit);
      }
      line.clear();
    };
    for (std::size_t i = 0; i < std::min(spectrum.size(), wavelengths_.size()); ++i) {
      if (is_drawable(spectrum[i] * factor)) {
        line.push_back({plot_.x(wavelengths_[i]), plot_.y(spectrum[i] * factor)});
      } else {
        draw();
      }
    }
    draw();
    return path.data();
  }

 private:
  static constexpr double kYUnit = 0.5;

  const Plot& plot_;
  std::span<const double> wavelengths_;
  bool is_even_;
  double x_unit_;
};

// Labels of many lines that nobody can point at would only make the page larger.
std::string spectrum_of(const SpectraGrid& grid, const PatchView& patch, double factor,
                        bool has_label) {
  std::string html = "<path d=\"" + grid.path_of(patch.spectrum, factor) + "\"";
  if (!patch.colour.empty()) html += " color=\"" + patch.colour + "\"";
  return html + (has_label ? "><title>" + patch.label + "</title></path>\n" : "/>\n");
}

// One dark line behind all lines of a group.
std::string casing_of(const SpectraGrid& grid, const View& chart, const InkGroup& group,
                      double factor) {
  std::string html = "<path class=\"casing\" d=\"";
  for (const std::size_t patch : group.patches) {
    html += "M0 0" + grid.path_of(chart.patches[patch].spectrum, factor);
  }
  return html + "\"/>\n";
}

// Colours like that of the ground, or too few to tell apart without an outline.
bool needs_outline(const View& chart, std::size_t shown) {
  constexpr std::size_t kFew = 60;
  constexpr double kGreyShare = 0.3, kGreyChroma = 15.0, kDark = 40.0, kLight = 90.0;
  const auto greys =
      std::ranges::count_if(std::span(chart.patches).first(shown), [](const PatchView& patch) {
        return patch.lab && std::hypot((*patch.lab)[1], (*patch.lab)[2]) < kGreyChroma &&
               (*patch.lab)[0] > kDark && (*patch.lab)[0] < kLight;
      });
  return shown <= kFew || static_cast<double>(greys) > kGreyShare * static_cast<double>(shown);
}

// One standard deviation to either side of the mean, where a screen shows it.
std::string bands_of(const Plot& plot, const View& chart, double factor) {
  constexpr std::size_t kMostBands = 40;
  constexpr double kLeastHeight = 1.0;  // of the picture's units
  std::string html;
  for (const RepeatBand& band : repeat_bands(chart, kMostBands)) {
    const double widest = *std::ranges::max_element(band.deviation) * factor;
    if (plot.y(0.0) - plot.y(2.0 * widest) < kLeastHeight) break;
    SvgPath outline;
    const std::size_t bands = std::min(band.mean.size(), chart.wavelengths.size());
    for (std::size_t i = 0; i < bands; ++i) {
      outline.add(plot.x(chart.wavelengths[i]),
                  plot.y((band.mean[i] + band.deviation[i]) * factor));
    }
    for (std::size_t i = bands; i-- > 0;) {
      outline.add(plot.x(chart.wavelengths[i]),
                  plot.y((band.mean[i] - band.deviation[i]) * factor));
    }
    html += "<path d=\"" + outline.data() + "z\"><title>" +
            html_text(label_of(*chart.chart, band.index), kLongName) + ": " +
            grouped(band.readings) + " readings, mean and standard deviation</title></path>\n";
  }
  return html.empty() ? "" : "<g class=\"bands\">\n" + plot.clipped(html) + "</g>\n";
}

std::string selection_of(const std::vector<InkGroup>& groups, const std::string& name) {
  if (groups.size() < 2) return "";
  std::string html = "<fieldset class=\"selection\">\n<legend>Show</legend>\n";
  const auto add = [&](std::size_t number, const std::string& label, bool is_checked) {
    html += "<label><input type=\"radio\" name=\"" + name + "\" class=\"pick-" +
            std::to_string(number) + "\"" + (is_checked ? " checked=\"checked\"" : "") + "/> " +
            label + "</label>\n";
  };
  add(0, "all", true);
  for (std::size_t i = 0; i < groups.size(); ++i) {
    add(i + 1, groups[i].name + " (" + grouped(groups[i].patches.size()) + ")", false);
  }
  return html + "</fieldset>\n";
}

std::string deviation_plot(const View& chart, Views charts, const SpectraAxes& axes,
                           double factor) {
  const std::vector<double> pooled = pooled_deviation(chart);
  const std::vector<RepeatBand> worst = repeat_bands(chart, 1);
  Extent deviations;
  deviations.add(0.0);
  for (const double value : pooled) deviations.add(value * factor);
  if (worst.empty() || deviations.high() == 0.0) return "";
  for (const double value : worst.front().deviation) deviations.add(value * factor);
  Plot plot({full_width(charts), 220.0}, axes.wavelength,
            {axis_over(0.0, deviations.high(), 4),
             "standard deviation of repeats" +
                 std::string(chart.quantity == Quantity::emission ? "" : ", %")},
            "Standard deviation of the repeats of " + chart.name);
  const auto line_of = [&](const std::vector<double>& values, const char* kind,
                           const std::string& label) {
    SvgPath path;
    for (std::size_t i = 0; i < std::min(values.size(), chart.wavelengths.size()); ++i) {
      path.add(plot.x(chart.wavelengths[i]), plot.y(values[i] * factor));
    }
    plot.draw("<path class=\"" + std::string(kind) + "\" d=\"" + path.data() + "\"><title>" +
              label + "</title></path>\n");
  };
  line_of(pooled, "pooled", "all repeats");
  const std::string label = html_text(label_of(*chart.chart, worst.front().index), kLongName);
  line_of(worst.front().deviation, "fit", label);
  return std::move(plot).finish() +
         "<p class=\"note\">Line: all repeats taken together. Dashed: patch " + label +
         ", which scatters most.</p>\n";
}

std::string wide(Views charts, const std::string& picture) {
  return charts.size() == 1 ? "<div class=\"wide\">\n" + picture + "</div>\n" : picture;
}

std::string spectra_of(const View& chart, Views charts, const SpectraAxes& axes) {
  if (chart.wavelengths.size() < 2) return "";
  const auto position = std::to_string(&chart - charts.data());
  Plot plot({full_width(charts), charts.size() == 1 ? 430.0 : 340.0}, axes.wavelength,
            axes.values_of(chart), "Spectra of " + chart.name);
  const double factor = percent_factor(chart);
  const std::size_t most = std::max<std::size_t>(kMostPoints / chart.wavelengths.size(), 1);
  const std::size_t shown = std::min(most, chart.patches.size());
  const std::vector<InkGroup> groups = ink_groups(chart, shown);
  const std::string bands = bands_of(plot, chart, factor);
  plot.draw(bands);
  plot.draw(std::string("<g class=\"spectra ") + density_class(shown) + "\">\n");
  const SpectraGrid grid(plot, chart.wavelengths);
  const bool is_outlined = needs_outline(chart, shown);
  plot.draw("<g transform=\"" + grid.transform() + "\">\n");
  for (std::size_t i = 0; i < groups.size(); ++i) {
    plot.draw("<g class=\"group-" + std::to_string(i + 1) + "\">\n");
    if (is_outlined) plot.draw(casing_of(grid, chart, groups[i], factor));
    for (const std::size_t patch : groups[i].patches) {
      plot.draw(spectrum_of(grid, chart.patches[patch], factor, shown <= kMostLabels));
    }
    plot.draw("</g>\n");
  }
  plot.draw("</g>\n</g>\n");
  std::string html = "<div class=\"pickable\">\n" + selection_of(groups, "inks-" + position) +
                     wide(charts, std::move(plot).finish()) + "</div>\n";
  if (!bands.empty()) {
    html += "<p class=\"note\">A band is one standard deviation of repeats to either side.</p>\n";
  }
  if (shown < chart.patches.size()) {
    html += "<p class=\"note\">The spectra of the first " + grouped(shown) + " patches.</p>\n";
  }
  return html + wide(charts, deviation_plot(chart, charts, axes, factor));
}

}  // namespace

Section spectra_section(Views charts) {
  const SpectraAxes axes = axes_over(charts);
  return section_of(
      {"spectra", "Spectra", "Each patch in its own colour.", "No spectra in this chart."}, charts,
      [&](const View& chart) { return spectra_of(chart, charts, axes); });
}

}  // namespace measkit::html
