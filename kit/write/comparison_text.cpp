#include "kit/write/comparison_text.h"

#include "kit/write/labelled_lines.h"
#include "kit/write/layout.h"
#include "kit/write/text_table.h"
#include "kit/write/words.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace measkit {
namespace {

constexpr std::size_t kLabelColumns = 20;

std::string decimals(double value, const char* format = "%.2f") {
  return std::isnan(value) ? "" : formatted(format, value);
}

void append(Lines& lines, const Lines& others, std::string_view title) {
  if (others.empty()) return;
  lines.emplace_back();
  lines.emplace_back(title);
  for (const std::string& line : others) lines.push_back(std::string(kIndent, ' ') + line);
}

// The first labels of patches.
std::string labels_text(const Chart& chart, const std::vector<std::uint32_t>& patches) {
  constexpr std::size_t kMost = 12, kWidth = 16;
  std::string text;
  for (std::size_t i = 0; i < std::min(patches.size(), kMost); ++i) {
    text += (i == 0 ? "" : ", ") + shortened(patch_label(chart, patches[i]), kWidth);
  }
  if (patches.size() > kMost) text += ", " + std::to_string(patches.size() - kMost) + " more";
  return text;
}

Lines head_lines(const Comparison& comparison) {
  Lines lines;
  add_labelled(lines, "reference", comparison.reference->name);
  add_labelled(lines, "sample", comparison.sample->name);
  if (comparison.is_refused()) {
    add_labelled(lines, "refused", comparison.refusal, 4);
    return lines;
  }
  add_labelled(lines, "match", comparison.match_sentence, 4);
  for (const Finding& finding : comparison.findings) {
    add_labelled(lines, word_of(finding.severity), finding.sentence, 3);
  }
  const auto add_labels = [&lines](const char* side, const Chart& chart,
                                   const std::vector<std::uint32_t>& patches) {
    if (!patches.empty()) add_labelled(lines, side, labels_text(chart, patches), 2);
  };
  add_labels("ref. only", *comparison.reference, comparison.only_in_reference);
  add_labels("sample only", *comparison.sample, comparison.only_in_sample);
  return lines;
}

Lines verdict_lines(const std::vector<Verdict>& verdicts) {
  if (verdicts.empty()) return {};
  TextTable table;
  table.add_column("", Align::left);
  table.add_column("figure", Align::left);
  table.add_column("measured", Align::right);
  table.add_column("limit", Align::right);
  for (const Verdict& verdict : verdicts) {
    table.add(verdict.passed ? "passed" : "FAILED");
    table.add(shortened(verdict.figure, 40));
    table.add(verdict.value ? decimals(*verdict.value) : "no colours");
    table.add(decimals(verdict.limit));
  }
  return table.lines();
}

Lines figure_lines(const Comparison& comparison) {
  TextTable table;
  table.add_column("", Align::left);
  table.add_column("colours", Align::right);
  for (const NamedFigure& figure : kFigures)
    table.add_column(std::string(figure.name), Align::right);
  for (std::size_t group = 0; group < kColourGroups; ++group) {
    const GroupFigures& figures = comparison.groups[group];
    if (figures.colours.empty()) continue;
    table.add(std::string(kColourGroupNames[group]));
    table.add(std::to_string(figures.colours.size()));
    for (const NamedFigure& figure : kFigures) {
      table.add(decimals(figures.of(comparison.options.formula).*figure.value));
    }
  }
  return table.lines();
}

// All colours in the other measures.
Lines measure_lines(const Comparison& comparison) {
  const GroupFigures& all = comparison.of(ColourGroup::all);
  const ComparisonOptions& options = comparison.options;
  std::string formulas, components, spectra;
  for (const Measure formula : kFormulas) {
    formulas += (formulas.empty() ? "" : ", ") +
                formula_name(formula, options.cmc_lightness, options.cmc_chroma) + " " +
                decimals(all.of(formula).mean);
  }
  constexpr std::array<std::pair<Measure, const char*>, 5> kComponents = {{{Measure::dl, "dL*"},
                                                                           {Measure::da, "da*"},
                                                                           {Measure::db, "db*"},
                                                                           {Measure::dc, "dC*"},
                                                                           {Measure::dh, "dH*"}}};
  for (const auto& [measure, name] : kComponents) {
    components += std::string(components.empty() ? "" : ", ") + name + " " +
                  decimals(all.of(measure).mean, "%+.2f");
  }
  Lines lines = {formulas, components};
  if (all.of(Measure::rms).count != 0) {
    spectra = "spectral RMS " + decimals(all.of(Measure::rms).mean, "%.4f");
    if (all.of(Measure::de00_a).count != 0) {
      spectra += ", CIEDE2000 under A " + decimals(all.of(Measure::de00_a).mean) + ", under F11 " +
                 decimals(all.of(Measure::de00_f11).mean);
    }
    lines.push_back(spectra);
  }
  return lines;
}

std::string lab_text(const Lab& lab) {
  return formatted("%.1f", lab.l) + formatted(" %6.1f", lab.a) + formatted(" %6.1f", lab.b);
}

Lines worst_lines(const Comparison& comparison) {
  constexpr std::size_t kMost = 8;
  constexpr std::array<Measure, 5> kShown = {Measure::dl, Measure::da, Measure::db, Measure::dc,
                                             Measure::dh};
  TextTable table;
  table.add_column("patch", Align::left);
  table.add_column("reference Lab", Align::right);
  table.add_column("sample Lab", Align::right);
  for (const char* const name : {"dL*", "da*", "db*", "dC*", "dH*", "Delta E"})
    table.add_column(name, Align::right);
  for (const std::uint32_t position : comparison.worst(kMost)) {
    const ComparedColour& colour = comparison.colours[position];
    table.add(shortened(label_of(comparison, colour), kLabelColumns));
    table.add(lab_text(colour.reference));
    table.add(lab_text(colour.sample));
    for (const Measure measure : kShown) table.add(decimals(colour.of(measure), "%+.2f"));
    table.add(decimals(colour.of(comparison.options.formula)));
  }
  return table.lines();
}

// The step next to 50 %.
const WedgeStepTones* middle_of(const WedgeTones& wedge) {
  const auto found = std::ranges::min_element(
      wedge.steps, {}, [](const WedgeStepTones& step) { return std::abs(step.nominal - 50.0); });
  return found == wedge.steps.end() ? nullptr : &*found;
}

Lines tone_lines(const Comparison& comparison) {
  if (comparison.wedges.empty()) return {};
  TextTable table;
  table.add_column("ink", Align::left);
  for (const char* const name : {"nominal", "reference", "sample", "difference", "spot: reference",
                                 "sample", "difference"}) {
    table.add_column(name, Align::right);
  }
  for (const WedgeTones& wedge : comparison.wedges) {
    const WedgeStepTones* const step = middle_of(wedge);
    if (step == nullptr) continue;
    const bool has_value = step->reference.value && step->sample.value;
    table.add(shortened(wedge.ink, kLabelColumns));
    table.add(decimals(step->nominal, "%.1f"));
    table.add(has_value ? decimals(*step->reference.value, "%.1f") : "");
    table.add(has_value ? decimals(*step->sample.value, "%.1f") : "");
    table.add(has_value ? decimals(*step->sample.value - *step->reference.value, "%+.1f") : "");
    table.add(decimals(step->reference.spot, "%.1f"));
    table.add(decimals(step->sample.spot, "%.1f"));
    table.add(decimals(step->sample.spot - step->reference.spot, "%+.1f"));
  }
  return table.lines();
}

std::string joined(const Lines& lines) {
  std::string text;
  for (const std::string& line : lines) text.append(line).append("\n");
  return text;
}

std::string name_of_formula(const ComparisonOptions& options) {
  return formula_name(options.formula, options.cmc_lightness, options.cmc_chroma);
}

}  // namespace

std::string comparison_text_of(const JudgedComparison& judged) {
  const Comparison& comparison = judged.comparison;
  Lines lines = head_lines(comparison);
  if (comparison.is_refused()) return joined(lines);
  append(lines, verdict_lines(judged.verdicts),
         judged.has_passed() ? "Within the tolerances" : "Beyond the tolerances");
  append(lines, figure_lines(comparison), name_of_formula(comparison.options));
  append(lines, measure_lines(comparison), "Means of all colours");
  append(lines, worst_lines(comparison), "Largest differences");
  append(lines, tone_lines(comparison), "Tone values next to 50 %, by X, Y or Z and by ISO 20654");
  return joined(lines);
}

std::string comparison_overview_of(std::span<const JudgedComparison> samples) {
  const ComparisonOptions& options = samples.front().comparison.options;
  TextTable table;
  table.add_column("sample", Align::left);
  for (const char* const name : {"colours", "mean", "p95", "max", "verdict"})
    table.add_column(name, Align::right);
  std::vector<double> differences;
  for (const JudgedComparison& judged : samples) {
    const Comparison& comparison = judged.comparison;
    for (const ComparedColour& colour : comparison.colours)
      differences.push_back(colour.of(options.formula));
    table.add(shortened(comparison.sample->name, 50));
    const Figures& figures = comparison.of(ColourGroup::all).of(options.formula);
    table.add(std::to_string(figures.count));
    const bool has_figures = !comparison.is_refused();
    table.add(has_figures ? decimals(figures.mean) : "");
    table.add(has_figures ? decimals(figures.p95) : "");
    table.add(has_figures ? decimals(figures.max) : "");
    const bool is_judged = has_figures && !judged.verdicts.empty();
    const std::string verdict = judged.has_passed() ? "passed" : "FAILED";
    table.add(!has_figures ? "refused" : is_judged ? verdict : "");
  }
  const Figures together = figures_of(std::move(differences));
  table.add("together");
  table.add(std::to_string(together.count));
  for (const double figure : {together.mean, together.p95, together.max})
    table.add(decimals(figure));
  table.add("");
  Lines lines;
  append(lines, table.lines(), "All samples, " + name_of_formula(options));
  return joined(lines);
}

}  // namespace measkit
