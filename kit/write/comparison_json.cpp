#include "kit/write/comparison_json.h"

#include "kit/write/json_parts.h"

#include <cmath>

namespace measkit {
namespace {

Json triple_json(const Lab& lab) { return {lab.l, lab.a, lab.b}; }

Json verdicts_json(const std::vector<Verdict>& verdicts) {
  Json json = Json::array();
  for (const Verdict& verdict : verdicts) {
    json.push_back({{"figure", verdict.figure},
                    {"limit", verdict.limit},
                    {"value", verdict.value ? Json(*verdict.value) : Json(nullptr)},
                    {"passed", verdict.passed}});
  }
  return json;
}

Json figures_json(const Figures& figures) {
  if (figures.count == 0) return nullptr;
  Json json = Json::object();
  for (const NamedFigure& figure : kFigures) {
    json[std::string(figure.name)] = figures.*figure.value;
  }
  return json;
}

Json group_json(const GroupFigures& group) {
  if (group.colours.empty()) return nullptr;
  Json json = {{"count", group.colours.size()}};
  for (std::size_t measure = 0; measure < kMeasures; ++measure) {
    json[std::string(kMeasureNames[measure])] = figures_json(group.measures[measure]);
  }
  return json;
}

Json labels_json(const Chart& chart, const std::vector<std::uint32_t>& patches) {
  Json json = Json::array();
  for (const std::uint32_t patch : patches) json.push_back(text_json(patch_label(chart, patch)));
  return json;
}

Json tone_json(const ToneValue& tone, double nominal) {
  return {{"tone_value", tone.value ? Json(*tone.value) : Json(nullptr)},
          {"increase", tone.value ? Json(*tone.value - nominal) : Json(nullptr)},
          {"spot_colour_tone_value", tone.spot}};
}

Json wedges_json(const Comparison& comparison) {
  Json json = Json::array();
  for (const WedgeTones& wedge : comparison.wedges) {
    Json steps = Json::array();
    for (const WedgeStepTones& step : wedge.steps) {
      const bool has_value = step.reference.value && step.sample.value;
      steps.push_back({{"nominal", step.nominal},
                       {"reference", tone_json(step.reference, step.nominal)},
                       {"sample", tone_json(step.sample, step.nominal)},
                       {"difference", has_value ? Json(*step.sample.value - *step.reference.value)
                                                : Json(nullptr)},
                       {"spot_difference", step.sample.spot - step.reference.spot}});
    }
    json.push_back({{"ink", text_json(wedge.ink)}, {"steps", std::move(steps)}});
  }
  return json;
}

Json side_json(const Chart& chart, std::uint32_t patch, std::uint32_t count, const Lab& lab) {
  Json json = {{"patch", patch}, {"label", text_json(patch_label(chart, patch))}};
  if (!chart.device.empty()) json["device"] = row_json(chart.device, patch);
  json["measurements"] = count;
  json["lab"] = triple_json(lab);
  return json;
}

Json colour_json(const Comparison& comparison, const ComparedColour& colour) {
  Json json = {{"reference", side_json(*comparison.reference, colour.reference_patch,
                                       colour.reference_count, colour.reference)},
               {"sample", side_json(*comparison.sample, colour.sample_patch, colour.sample_count,
                                    colour.sample)}};
  for (std::size_t measure = 0; measure < kMeasures; ++measure) {
    const double value = colour.measures[measure];
    if (!std::isnan(value)) json[std::string(kMeasureNames[measure])] = value;
  }
  return json;
}

// What stands before the figures.
Json head_json(const JudgedComparison& judged) {
  const Comparison& comparison = judged.comparison;
  Json json = {{"reference", text_json(comparison.reference->name)},
               {"sample", text_json(comparison.sample->name)},
               {"refusal", comparison.is_refused() ? text_json(comparison.refusal) : Json(nullptr)},
               {"findings", findings_json(comparison.findings)}};
  if (comparison.is_refused()) return json;
  json["matched_by"] = word_of(comparison.matched_by);
  json["match"] = comparison.match_sentence;
  json["only_in_reference"] = labels_json(*comparison.reference, comparison.only_in_reference);
  json["only_in_sample"] = labels_json(*comparison.sample, comparison.only_in_sample);
  json["not_measured"] = comparison.not_measured;
  json["formula"] = kMeasureNames[static_cast<std::size_t>(comparison.options.formula)];
  json["cmc"] = {comparison.options.cmc_lightness, comparison.options.cmc_chroma};
  json["common_nm"] = comparison.common_wavelengths;
  json["passed"] = judged.verdicts.empty() ? Json(nullptr) : Json(judged.has_passed());
  json["tolerances"] = verdicts_json(judged.verdicts);
  for (std::size_t group = 0; group < kColourGroups; ++group) {
    json[std::string(kColourGroupNames[group])] = group_json(comparison.groups[group]);
  }
  json["tone_values"] = wedges_json(comparison);
  return json;
}

// Colours are written one by one: a tree of all of them takes many times their memory.
std::string one_json(const JudgedComparison& judged) {
  std::string out = head_json(judged).dump(1);
  const Comparison& comparison = judged.comparison;
  if (comparison.is_refused()) return out;
  out.resize(out.size() - 2);  // "\n}"
  out += ",\n \"colours\": [";
  bool is_first = true;
  for (const ComparedColour& colour : comparison.colours) {
    out.append(is_first ? "\n  " : ",\n  ").append(colour_json(comparison, colour).dump());
    is_first = false;
  }
  return out += "\n ]\n}";
}

}  // namespace

std::string comparison_json_of(std::span<const JudgedComparison> samples) {
  if (samples.size() == 1) return one_json(samples.front()) + "\n";
  std::string out = "{\n\"samples\": [";
  for (std::size_t i = 0; i < samples.size(); ++i) {
    out.append(i == 0 ? "\n" : ",\n").append(one_json(samples[i]));
  }
  return out += "\n]\n}\n";
}

}  // namespace measkit
