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

std::span<const std::uint32_t> shown_of(const SampleView& sample) {
  return std::span(sample.worst).first(std::min(sample.worst.size(), kMostSpectra));
}

struct SpectraScales {
  TitledAxis wavelength, share;
};

SpectraScales scales_over(SampleViews samples) {
  Extent wavelengths;
  Extent shares;
  shares.add(0.0);
  bool is_transmittance = false;
  for (const SampleView& sample : samples) {
    if (!has_spectra(sample)) continue;
    is_transmittance = sample.comparison.reference->quantity == Quantity::transmittance;
    for (const double nm : sample.comparison.common_wavelengths) wavelengths.add(nm);
    for (const std::uint32_t position : shown_of(sample)) {
      const SpectrumPair pair = pair_of(sample, sample.comparison.colours[position]);
      for (const double value : pair.reference) shares.add(kPercent * value);
      for (const double value : pair.sample) shares.add(kPercent * value);
    }
  }
  Axis nm = axis_over(wavelengths.low(), wavelengths.high(), 4);
  nm.first = wavelengths.low();
  nm.last = std::max(wavelengths.high(), nm.first + 1.0);
  return {{nm, "wavelength, nm"},
          {axis_over(shares.low(), shares.high(), 5),
           is_transmittance ? "transmittance, %" : "reflectance, %"}};
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
       {sample.formula(), Measure::rms, Measure::de00_a, Measure::de00_f11}) {
    if (!is_drawable(colour.of(measure))) continue;
    text += ", " + html_symbol(measure, sample.comparison.options) + " " +
            text_of(measure, colour.of(measure));
  }
  return text;
}

std::string spectra_plot(const SampleView& sample, const ComparedColour& colour,
                         const SpectraScales& scales) {
  const std::string label = safe_label(sample, colour);
  Plot plot({360.0, 240.0}, scales.wavelength, scales.share,
            "Spectra of " + label + " in the reference and in " + sample.name);
  const SpectrumPair pair = pair_of(sample, colour);
  const Axis& nm = scales.wavelength.scale;
  plot.draw("<path class=\"spectrum dashed\" d=\"" +
            path_of(plot, nm, sample.comparison.reference->wavelengths, pair.reference) +
            "\"/>\n<path class=\"spectrum\" d=\"" +
            path_of(plot, nm, sample.comparison.sample->wavelengths, pair.sample) + "\"/>\n");
  return figure_of(swatch_pair(colour) + label + figures_of(sample, colour),
                   std::move(plot).finish());
}

std::string spectra_of(const SampleView& sample, const SpectraScales& scales) {
  if (!has_spectra(sample) || sample.worst.empty()) return "";
  std::string html = "<div class=\"figures small-figures\">\n";
  for (const std::uint32_t position : shown_of(sample)) {
    html += spectra_plot(sample, sample.comparison.colours[position], scales);
  }
  return html + "</div>\n";
}

}  // namespace

Section spectra_pairs_section(SampleViews samples) {
  const SpectraScales scales = scales_over(samples);
  return section_of(
      {"spectra", "Spectra", "The colours that differ most. Dashed: reference. Line: sample.",
       "These charts have no spectra with common wavelengths."},
      samples, [&](const SampleView& sample) { return spectra_of(sample, scales); });
}

}  // namespace measkit::html
