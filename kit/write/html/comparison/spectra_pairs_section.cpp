#include "kit/write/html/axis.h"
#include "kit/write/html/comparison/sections.h"
#include "kit/write/html/numbers.h"
#include "kit/write/html/plot.h"
#include "kit/write/html/svg_path.h"

#include <algorithm>
#include <string>
#include <vector>

namespace measkit::html {
namespace {

constexpr std::size_t kMostSpectra = 6;
constexpr double kPercent = 100.0;  // spectra are factors

// The average of a colour's repeats, as far as they are known.
std::vector<double> spectrum_of(const SampleView& sample, const Chart& chart, std::uint32_t patch,
                                std::uint32_t count) {
  std::vector<double> spectrum(chart.spectra.width());
  std::span<const std::uint32_t> patches(&patch, 1);
  const bool is_by_device = sample.comparison.matched_by == MatchBy::device;
  for (std::size_t i = 0; count > 1 && is_by_device && i < chart.merged.count; ++i) {
    const auto repeats = chart.merged.patches_of(i);
    if (repeats.front() == patch && repeats.size() == count) patches = repeats;
  }
  average_rows(chart.spectra, patches, sample.comparison.options.averaging, spectrum.data());
  return spectrum;
}

struct SpectrumPair {
  std::vector<double> reference, sample;
};

SpectrumPair pair_of(const SampleView& sample, const ComparedColour& colour) {
  const Comparison& comparison = sample.comparison;
  return {
      spectrum_of(sample, *comparison.reference, colour.reference_patch, colour.reference_count),
      spectrum_of(sample, *comparison.sample, colour.sample_patch, colour.sample_count)};
}

bool has_spectra(const SampleView& sample) {
  return !sample.comparison.is_refused() && sample.comparison.common_wavelengths.size() > 1;
}

Axis wavelength_axis(SampleViews samples) {
  Extent wavelengths;
  for (const SampleView& sample : samples) {
    if (!has_spectra(sample)) continue;
    for (const double nm : sample.comparison.common_wavelengths) wavelengths.add(nm);
  }
  Axis axis = axis_over(wavelengths.low(), wavelengths.high(), 5);
  axis.first = wavelengths.low();
  axis.last = std::max(wavelengths.high(), axis.first + 1.0);
  return axis;
}

// Each pair has its own: dark colours differ by little.
Axis share_axis(const SpectrumPair& pair) {
  Extent shares;
  shares.add(0.0);
  for (const double value : pair.reference) shares.add(kPercent * value);
  for (const double value : pair.sample) shares.add(kPercent * value);
  return axis_over(shares.low(), shares.high(), 5);
}

// Within the common wavelengths.
std::string path_of(const Plot& plot, const Axis& nm, const std::vector<double>& wavelengths,
                    const std::vector<double>& spectrum) {
  SvgPath path;
  for (std::size_t band = 0; band < spectrum.size(); ++band) {
    if (wavelengths[band] < nm.first || wavelengths[band] > nm.last) continue;
    const double value = kPercent * spectrum[band];
    if (is_drawable(value)) {
      path.add(plot.x(wavelengths[band]), plot.y(value));
    } else {
      path.lift();
    }
  }
  return path.data();
}

std::string figures_of(const SampleView& sample, const ComparedColour& colour) {
  std::string text;
  for (const Measure measure :
       {sample.formula(), Measure::de00_a, Measure::de00_f11, Measure::rms}) {
    if (!is_drawable(colour.of(measure))) continue;
    text += (text.empty() ? "" : ", ") + html_symbol(measure, sample.comparison.options) + " " +
            text_of(measure, colour.of(measure));
  }
  return "<br/><small>" + text + "</small>";
}

std::string spectra_plot(const SampleView& sample, const ComparedColour& colour, const Axis& nm) {
  const std::string label = safe_label(sample, colour);
  const Chart& reference = *sample.comparison.reference;
  const SpectrumPair pair = pair_of(sample, colour);
  const bool is_film = reference.quantity == Quantity::transmittance;
  Plot plot({360.0, 240.0}, {nm, "wavelength, nm"},
            {share_axis(pair), is_film ? "transmittance, %" : "reflectance, %"},
            "Spectra of " + label + " in the reference and in " + sample.name);
  plot.draw("<path class=\"spectrum dashed\" d=\"" +
            path_of(plot, nm, reference.wavelengths, pair.reference) +
            "\"/>\n<path class=\"spectrum\" d=\"" +
            path_of(plot, nm, sample.comparison.sample->wavelengths, pair.sample) + "\"/>\n");
  return figure_of(swatch_pair(colour) + label + figures_of(sample, colour),
                   std::move(plot).finish());
}

std::string spectra_of(const SampleView& sample, const Axis& nm) {
  const auto worst = sample.worst_that_differ(kMostSpectra);
  if (!has_spectra(sample) || worst.empty()) return "";
  std::string html = "<div class=\"figures small-figures\">\n";
  for (const std::uint32_t position : worst) {
    html += spectra_plot(sample, sample.comparison.colours[position], nm);
  }
  return html + "</div>\n";
}

}  // namespace

Section spectra_pairs_section(SampleViews samples) {
  const Axis nm = wavelength_axis(samples);
  return section_of(
      {"spectra", "Spectra", "The colours that differ most. Dashed: reference. Line: sample.",
       "No spectra with common wavelengths, or no colour differs."},
      samples, [&](const SampleView& sample) { return spectra_of(sample, nm); });
}

}  // namespace measkit::html
