#include "kit/compare/comparison.h"

#include "kit/compare/common_spectra.h"
#include "kit/compare/side_by_side.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>
#include <numeric>

namespace measkit {
namespace {

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();

bool is_measured(const Lab& lab) { return std::isfinite(lab.l + lab.a + lab.b); }

double& at(ComparedColour& colour, Measure measure) {
  return colour.measures[static_cast<std::size_t>(measure)];
}

void measure_lab(ComparedColour& colour, const ComparisonOptions& options) {
  const Lab &first = colour.reference, &second = colour.sample;
  at(colour, Measure::de76) = delta_e_76(first, second);
  at(colour, Measure::de94) = delta_e_94(first, second);
  at(colour, Measure::de00) = delta_e_2000(first, second);
  at(colour, Measure::cmc) = delta_e_cmc(first, second, options.cmc_lightness, options.cmc_chroma);
  const ComponentDifferences difference = component_differences(first, second);
  at(colour, Measure::dl) = difference.lightness;
  at(colour, Measure::da) = difference.a;
  at(colour, Measure::db) = difference.b;
  at(colour, Measure::dc) = difference.chroma;
  at(colour, Measure::dh) = difference.hue;
}

void measure_spectra(ComparedColour& colour, CommonSpectra& common,
                     std::span<const double> reference, std::span<const double> sample) {
  at(colour, Measure::rms) = common.rms(reference, sample);
  if (!common.have_lights()) return;
  const CommonSpectra::Metamerism lights = common.under_other_lights(reference, sample);
  at(colour, Measure::de00_a) = lights.a;
  at(colour, Measure::de00_f11) = lights.f11;
}

// Fills the colours, and leaves only the pairs that have both Lab in the matching.
void compare_colours(Comparison& comparison, Matching& matching, const AveragedSide& reference,
                     const AveragedSide& sample, CommonSpectra& common) {
  std::erase_if(matching.pairs, [&](const auto& pair) {
    return !is_measured(reference.lab(pair.first)) || !is_measured(sample.lab(pair.second));
  });
  comparison.colours.reserve(matching.pairs.size());
  for (const auto& [first, second] : matching.pairs) {
    ComparedColour& colour = comparison.colours.emplace_back();
    colour.reference_patch = reference.first_patch(first);
    colour.sample_patch = sample.first_patch(second);
    colour.reference_count = static_cast<std::uint32_t>(reference.patches_of(first).size());
    colour.sample_count = static_cast<std::uint32_t>(sample.patches_of(second).size());
    colour.reference = reference.lab(first);
    colour.sample = sample.lab(second);
    colour.measures.fill(kUnknown);
    measure_lab(colour, comparison.options);
    if (common.exist())
      measure_spectra(colour, common, reference.spectrum(first), sample.spectrum(second));
  }
}

void take_figures(Comparison& comparison) {
  std::vector<double> values;
  for (GroupFigures& group : comparison.groups) {
    for (std::size_t measure = 0; measure < kMeasures; ++measure) {
      values.clear();
      for (const std::uint32_t colour : group.colours)
        values.push_back(comparison.colours[colour].measures[measure]);
      group.measures[measure] = figures_of(values);
    }
  }
}

std::vector<std::uint32_t> first_patches(const AveragedSide& side,
                                         const std::vector<std::uint32_t>& groups) {
  std::vector<std::uint32_t> patches;
  patches.reserve(groups.size());
  for (const std::uint32_t group : groups) patches.push_back(side.first_patch(group));
  return patches;
}

std::string reason_against(const Chart& reference, const Chart& sample) {
  if (reference.patch_count == 0) return "The reference has no patches.";
  if (sample.patch_count == 0) return "The sample has no patches.";
  if (reference.lab.empty()) return "The reference has no Lab. " + reference.lab_sentence;
  if (sample.lab.empty()) return "The sample has no Lab. " + sample.lab_sentence;
  return {};
}

}  // namespace

std::string formula_name(Measure formula, double cmc_lightness, double cmc_chroma) {
  switch (formula) {
    case Measure::de76:
      return "Delta E*ab";
    case Measure::de94:
      return "CIE94";
    case Measure::cmc: {
      std::array<char, 64> text{};
      std::snprintf(text.data(), text.size(), "CMC(%g:%g)", cmc_lightness, cmc_chroma);
      return text.data();
    }
    default:
      return "CIEDE2000";
  }
}

std::string label_of(const Comparison& comparison, const ComparedColour& colour) {
  return patch_label(*comparison.reference, colour.reference_patch);
}

std::vector<std::uint32_t> Comparison::worst(std::size_t most) const {
  std::vector<std::uint32_t> positions(colours.size());
  std::iota(positions.begin(), positions.end(), 0U);
  const auto count = static_cast<std::ptrdiff_t>(std::min(most, positions.size()));
  std::partial_sort(positions.begin(), positions.begin() + count, positions.end(),
                    [this](std::uint32_t a, std::uint32_t b) {
                      // Huge Lab have no difference: they come last.
                      const auto rank = [this](std::uint32_t position) {
                        const double difference = colours[position].of(options.formula);
                        return std::isnan(difference) ? -1.0 : difference;
                      };
                      return rank(a) != rank(b) ? rank(a) > rank(b) : a < b;
                    });
  positions.resize(static_cast<std::size_t>(count));
  return positions;
}

Comparison compare(const Chart& reference, const Chart& sample, const ComparisonOptions& options) {
  Comparison comparison;
  comparison.reference = &reference;
  comparison.sample = &sample;
  comparison.options = options;
  comparison.refusal = reason_against(reference, sample);
  if (comparison.is_refused()) return comparison;
  Matching matching = match(reference, sample, options.match);
  if (matching.pairs.empty()) {
    comparison.refusal = matching.sentence;
    return comparison;
  }
  comparison.match_sentence = matching.sentence;
  comparison.matched_by = matching.by;
  const AveragedSide first(reference, matching.reference, options.averaging);
  const AveragedSide second(sample, matching.sample, options.averaging);
  comparison.only_in_reference = first_patches(first, matching.only_in_reference);
  comparison.only_in_sample = first_patches(second, matching.only_in_sample);
  CommonSpectra common(reference, sample);
  comparison.common_wavelengths = common.wavelengths();
  const std::size_t pairs = matching.pairs.size();
  compare_colours(comparison, matching, first, second, common);
  comparison.not_measured = pairs - comparison.colours.size();
  if (comparison.colours.empty()) {
    comparison.refusal = "No colour that both charts hold was measured in both.";
    return comparison;
  }
  const auto groups = colour_groups(matching, first, second);
  for (std::size_t i = 0; i < groups.size(); ++i) comparison.groups[i].colours = groups[i];
  take_figures(comparison);
  comparison.wedges = wedge_tones(matching, first, second);
  comparison.findings = findings_about(comparison, matching, common.reason());
  return comparison;
}

}  // namespace measkit
