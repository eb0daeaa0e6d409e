#include "kit/compare/side_by_side.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace measkit {
namespace {

struct Condition {
  std::string_view name;
  std::optional<Stated> MeasuringConditions::*value;
};
constexpr std::array<Condition, 8> kConditions = {
    {{"M condition", &MeasuringConditions::m},
     {"illuminant", &MeasuringConditions::illuminant},
     {"observer", &MeasuringConditions::observer},
     {"backing", &MeasuringConditions::backing},
     {"filter", &MeasuringConditions::filter},
     {"geometry", &MeasuringConditions::geometry},
     {"polarization", &MeasuringConditions::polarization},
     {"density status", &MeasuringConditions::density_status}}};

void add_unknown(Findings& findings, const char* side, const std::string& conditions) {
  if (conditions.empty()) return;
  findings.add(Severity::note, "unknown-condition",
               "Only the " + std::string(side) + " states: " + conditions + ".");
}

void add_conditions(Findings& findings, const Comparison& comparison) {
  std::string of_reference, of_sample;
  for (const Condition& condition : kConditions) {
    const auto& first = comparison.reference->conditions.*condition.value;
    const auto& second = comparison.sample->conditions.*condition.value;
    const std::string name(condition.name);
    if (first && second && first->value != second->value) {
      findings.add(Severity::doubtful, "other-conditions",
                   "The charts differ in " + name + ": the reference states " + first->value +
                       ", the sample " + second->value + ".");
    }
    if (first.has_value() == second.has_value()) continue;
    std::string& list = first ? of_reference : of_sample;
    list.append(list.empty() ? "" : ", ").append(name).append(" ");
    list += (first ? first : second)->value;
  }
  add_unknown(findings, "reference", of_reference);
  add_unknown(findings, "sample", of_sample);
}

std::string_view words_of(LabSource source) {
  switch (source) {
    case LabSource::weighting_table:
    case LabSource::integration:
      return "its spectra";
    case LabSource::display:
      return "XYZ of a display";
    case LabSource::lch:
      return "its own LCh";
    case LabSource::xyz:
      return "its own XYZ";
    default:
      return "its own Lab";
  }
}

void add_sources(Findings& findings, const Chart& reference, const Chart& sample) {
  if (words_of(reference.lab_source) != words_of(sample.lab_source)) {
    findings.add(Severity::note, "other-lab-source",
                 "Lab of the reference come from " + std::string(words_of(reference.lab_source)) +
                     ", those of the sample from " + std::string(words_of(sample.lab_source)) +
                     ".");
  }
  if (reference.quantity != sample.quantity || reference.is_display != sample.is_display) {
    findings.add(Severity::doubtful, "other-quantity",
                 "The charts are not of one kind: reflectances, transmittances and displays are "
                 "not seen alike.");
  }
}

std::string text_of(const Texts& texts, std::size_t patch) {
  return texts.empty() ? std::string() : texts[patch];
}

std::string of_pairs(std::size_t count, const Comparison& comparison) {
  return std::to_string(count) + " of " + std::to_string(comparison.colours.size()) + " pairs";
}

void add_disagreements(Findings& findings, const Comparison& comparison) {
  const Chart& first = *comparison.reference;
  const Chart& second = *comparison.sample;
  const bool have_device =
      first.holds.device && second.holds.device && first.device.width() == second.device.width();
  std::size_t other_device = 0, other_ids = 0;
  for (const ComparedColour& colour : comparison.colours) {
    const auto reference = static_cast<std::size_t>(colour.reference_patch);
    const auto sample = static_cast<std::size_t>(colour.sample_patch);
    if (text_of(first.ids, reference) != text_of(second.ids, sample)) ++other_ids;
    if (have_device && comparison.matched_by != MatchBy::device &&
        !std::ranges::equal(first.device.row(reference), second.device.row(sample))) {
      ++other_device;
    }
  }
  if (other_device != 0) {
    findings.add(Severity::doubtful, "other-device-values",
                 "The device values differ for " + of_pairs(other_device, comparison) +
                     ": these may be different patches.");
  }
  if (other_ids != 0 && !first.ids.empty() && !second.ids.empty() &&
      comparison.matched_by != MatchBy::id) {
    findings.add(Severity::note, "other-ids",
                 "The ids differ for " + of_pairs(other_ids, comparison) + ".");
  }
}

void add_order(Findings& findings, const Comparison& comparison) {
  const bool is_ascending =
      std::ranges::is_sorted(comparison.colours, {}, &ComparedColour::sample_patch);
  if (is_ascending) return;
  findings.add(Severity::note, "other-order", "The patches stand in another order in the sample.");
}

void add_repeats(Findings& findings, const PatchGroups& groups, std::string_view side,
                 const ComparisonOptions& options) {
  if (!groups.has_repeats()) return;
  const std::string word = options.averaging == Averaging::mean ? "mean" : "median";
  findings.add(Severity::note, "repeats-averaged",
               "The " + std::string(side) + " holds " + std::to_string(groups.patch_count()) +
                   " measurements of " + std::to_string(groups.size()) + " colours: the " + word +
                   " of each counts.");
}

void add_left_out(Findings& findings, const Comparison& comparison) {
  const auto add = [&](std::size_t count, const char* side) {
    if (count == 0) return;
    findings.add(Severity::doubtful, "unmatched-colours",
                 std::to_string(count) + (count == 1 ? " colour is" : " colours are") +
                     " only in the " + side + ": left out.");
  };
  add(comparison.only_in_reference.size(), "reference");
  add(comparison.only_in_sample.size(), "sample");
  if (comparison.not_measured != 0) {
    findings.add(Severity::doubtful, "not-measured",
                 std::to_string(comparison.not_measured) +
                     (comparison.not_measured == 1 ? " pair has" : " pairs have") +
                     " no Lab on one side: left out.");
  }
}

}  // namespace

std::vector<Finding> findings_about(const Comparison& comparison, const Matching& matching,
                                    const std::string& spectra_reason) {
  Findings findings;
  add_conditions(findings, comparison);
  add_sources(findings, *comparison.reference, *comparison.sample);
  add_left_out(findings, comparison);
  add_disagreements(findings, comparison);
  add_order(findings, comparison);
  add_repeats(findings, matching.reference, "reference", comparison.options);
  add_repeats(findings, matching.sample, "sample", comparison.options);
  if (!spectra_reason.empty()) findings.add(Severity::note, "no-common-spectra", spectra_reason);
  return findings.list();
}

}  // namespace measkit
