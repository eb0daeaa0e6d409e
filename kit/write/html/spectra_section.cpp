#include "kit/write/html/axis.h"
#include "kit/write/html/numbers.h"
#include "kit/write/html/plot.h"
#include "kit/write/html/sections.h"
#include "kit/write/html/svg_path.h"

#include <algorithm>
#include <string>

namespace measkit::html {
namespace {

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

std::string spectra_of(const View& chart, Views charts, const SpectraAxes& axes) {
  if (chart.wavelengths.size() < 2) return "";
  Plot plot({full_width(charts), charts.size() == 1 ? 430.0 : 340.0}, axes.wavelength,
            axes.values_of(chart), "Spectra of " + chart.name);
  const double factor = percent_factor(chart);
  const std::size_t most = std::max<std::size_t>(kMostPoints / chart.wavelengths.size(), 1);
  const std::size_t shown = std::min(most, chart.patches.size());
  plot.draw(std::string("<g class=\"spectra ") + density_class(shown) + "\">\n");
  for (std::size_t i = 0; i < shown; ++i) {
    const PatchView& patch = chart.patches[i];
    SvgPath path;
    for (std::size_t band = 0; band < patch.spectrum.size(); ++band) {
      const double value = patch.spectrum[band] * factor;
      if (is_drawable(value)) {
        path.add(plot.x(chart.wavelengths[band]), plot.y(value));
      } else {
        path.lift();
      }
    }
    const std::string& colour = patch.colour;
    plot.draw("<path d=\"" + path.data() + "\"" +
              (colour.empty() ? "" : " stroke=\"" + colour + "\"") + "><title>" + patch.label +
              "</title></path>\n");
  }
  plot.draw("</g>\n");
  std::string html = std::move(plot).finish();
  if (charts.size() == 1) html = "<div class=\"wide\">\n" + html + "</div>\n";
  if (shown < chart.patches.size()) {
    html += "<p class=\"note\">The spectra of the first " + grouped(shown) + " patches.</p>\n";
  }
  return html;
}

}  // namespace

Section spectra_section(Views charts) {
  const SpectraAxes axes = axes_over(charts);
  return section_of(
      {"spectra", "Spectra", "Each patch in its own colour.", "No spectra in this chart."}, charts,
      [&](const View& chart) { return spectra_of(chart, charts, axes); });
}

}  // namespace measkit::html
