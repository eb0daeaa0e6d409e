#include "tools/report/axis.h"
#include "tools/report/numbers.h"
#include "tools/report/plot.h"
#include "tools/report/sections.h"
#include "tools/report/svg_path.h"

#include <algorithm>
#include <string>

namespace tools::report {
namespace {

// More points make a page slow.
constexpr std::size_t kMostPoints = 400'000;

struct SpectraAxes {
  TitledAxis wavelength, reflectance;
};

// Files give reflectance as a factor or in percent. Fluorescent papers exceed a factor of one, but
// only slightly.
double percent_factor(const Chart& chart) {
  Extent values;
  for (const ColouredPatch& patch : chart.patches) {
    for (const double value : patch.values.spectrum) values.add(value);
  }
  constexpr double kLargestFactor = 3.0;
  return values.high() <= kLargestFactor ? 100.0 : 1.0;
}

SpectraAxes axes_over(Charts charts) {
  Extent wavelengths;
  Extent percents;
  percents.add(0.0);
  for (const Chart& chart : charts) {
    if (chart.wavelengths.size() < 2) continue;
    for (const double nm : chart.wavelengths) wavelengths.add(nm);
    const double factor = percent_factor(chart);
    for (const ColouredPatch& patch : chart.patches) {
      for (const double value : patch.values.spectrum) percents.add(value * factor);
    }
  }
  const int steps = static_cast<int>(full_width(charts) / 80.0);
  Axis nm = axis_over(wavelengths.low(), wavelengths.high(), steps);
  nm.first = wavelengths.low();
  nm.last = std::max(wavelengths.high(), nm.first + 1.0);
  return {{nm, "wavelength, nm"},
          {axis_over(percents.low(), percents.high(), 6), "reflectance, %"}};
}

const char* density_class(std::size_t spectra) {
  if (spectra <= 60) return "few";
  return spectra <= 600 ? "some" : "many";
}

std::string spectra_of(const Chart& chart, Charts charts, const SpectraAxes& axes) {
  if (chart.wavelengths.size() < 2) return "";
  Plot plot({full_width(charts), charts.size() == 1 ? 430.0 : 340.0}, axes.wavelength,
            axes.reflectance, "Reflectance spectra of " + chart.name);
  const double factor = percent_factor(chart);
  const std::size_t most = std::max<std::size_t>(kMostPoints / chart.wavelengths.size(), 1);
  const std::size_t shown = std::min(most, chart.patches.size());
  plot.draw(std::string("<g class=\"spectra ") + density_class(shown) + "\">\n");
  for (std::size_t i = 0; i < shown; ++i) {
    const ColouredPatch& patch = chart.patches[i];
    SvgPath path;
    for (std::size_t band = 0; band < patch.values.spectrum.size(); ++band) {
      const double percent = patch.values.spectrum[band] * factor;
      if (is_drawable(percent)) {
        path.add(plot.x(chart.wavelengths[band]), plot.y(percent));
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

Section spectra_section(Charts charts) {
  const SpectraAxes axes = axes_over(charts);
  return section_of(
      {"spectra", "Spectra", "Each patch in its own colour.", "No spectra in this file."}, charts,
      [&](const Chart& chart) { return spectra_of(chart, charts, axes); });
}

}  // namespace tools::report
