#include "kit/compare/matching.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

namespace measkit {
namespace {

using Keys = std::vector<std::string>;

// What the values of a chart are multiplied with so that 100 is full.
double to_percent(const Chart& chart) {
  return chart.is_rgb && chart.full_scale > 0.0 ? 100.0 / chart.full_scale : 1.0;
}

// Device values as bytes: the very numbers, or rounded to hundredths of a percent.
Keys device_keys(const Chart& chart, double factor, bool is_exact) {
  constexpr double kHundredths = 100.0, kLargest = 1e15;
  Keys keys(chart.patch_count);
  for (std::size_t patch = 0; patch < chart.device.rows(); ++patch) {
    std::string& key = keys[patch];
    for (const double value : chart.device.row(patch)) {
      const double percent = value * factor;
      if (!(std::abs(percent) < kLargest)) {  // not a number
        key.clear();
        break;
      }
      const double kept = is_exact ? percent : std::round(percent * kHundredths) / kHundredths;
      std::array<char, sizeof kept> bytes{};
      const double positive = kept == 0.0 ? 0.0 : kept;  // -0 and 0 are the same
      std::memcpy(bytes.data(), &positive, sizeof positive);
      key.append(bytes.data(), bytes.size());
    }
  }
  return keys;
}

Keys order_keys(const Chart& chart) {
  Keys keys;
  for (std::size_t patch = 0; patch < chart.patch_count; ++patch) {
    keys.push_back(std::to_string(patch));
  }
  return keys;
}

const Texts& texts_of(const Chart& chart, MatchBy by) {
  if (by == MatchBy::id) return chart.ids;
  return by == MatchBy::name ? chart.names : chart.locations;
}

// One chart's groups matched with the other's.
Matching paired(MatchBy by, const Keys& reference, const Keys& sample) {
  Matching matching;
  matching.by = by;
  matching.reference = PatchGroups(reference);
  matching.sample = PatchGroups(sample);
  for (std::uint32_t group = 0; group < matching.reference.size(); ++group) {
    const std::uint32_t other = matching.sample.find(matching.reference.key(group));
    if (other == PatchGroups::kNone) {
      matching.only_in_reference.push_back(group);
    } else {
      matching.pairs.emplace_back(group, other);
    }
  }
  for (std::uint32_t group = 0; group < matching.sample.size(); ++group) {
    if (matching.reference.find(matching.sample.key(group)) == PatchGroups::kNone)
      matching.only_in_sample.push_back(group);
  }
  return matching;
}

bool have_same_device_space(const Chart& reference, const Chart& sample) {
  return reference.holds.device && sample.holds.device &&
         reference.device.width() == sample.device.width() && reference.is_rgb == sample.is_rgb &&
         reference.device_set == sample.device_set;
}

// The very numbers, else hundredths of a percent where programs rounded differently: they must not
// merge what the numbers tell apart.
Matching by_device(const Chart& reference, const Chart& sample) {
  const bool are_scaled = reference.full_scale > 0.0 && sample.full_scale > 0.0;
  const double factor1 = are_scaled ? to_percent(reference) : 1.0;
  const double factor2 = are_scaled ? to_percent(sample) : 1.0;
  const auto pair_up = [&](bool is_exact) {
    return paired(MatchBy::device, device_keys(reference, factor1, is_exact),
                  device_keys(sample, factor2, is_exact));
  };
  Matching exact = pair_up(true);
  if (exact.only_in_reference.empty() || exact.only_in_sample.empty()) return exact;
  Matching rounded = pair_up(false);
  const bool merges_nothing = rounded.reference.size() == exact.reference.size() &&
                              rounded.sample.size() == exact.sample.size();
  return merges_nothing && rounded.pairs.size() > exact.pairs.size() ? rounded : exact;
}

bool have_both(const Chart& reference, const Chart& sample, MatchBy by) {
  if (by == MatchBy::order) return reference.patch_count != 0 && sample.patch_count != 0;
  if (by == MatchBy::device) return have_same_device_space(reference, sample);
  return !texts_of(reference, by).empty() && !texts_of(sample, by).empty();
}

Matching matched_by(MatchBy by, const Chart& reference, const Chart& sample) {
  if (by == MatchBy::device) return by_device(reference, sample);
  if (by == MatchBy::order) return paired(by, order_keys(reference), order_keys(sample));
  return paired(by, texts_of(reference, by), texts_of(sample, by));
}

std::string numbers_of(const Matching& matching) {
  return std::to_string(matching.pairs.size()) + " pairs among " +
         std::to_string(matching.reference.size()) + " colours of the reference and " +
         std::to_string(matching.sample.size()) + " of the sample";
}

// Half of the smaller chart.
bool has_enough(const Matching& matching) {
  return !matching.pairs.empty() &&
         2 * matching.pairs.size() >= std::min(matching.reference.size(), matching.sample.size());
}

bool is_unique(const Matching& matching) {
  return !matching.reference.has_repeats() && !matching.sample.has_repeats();
}

Matching refused(std::string sentence) {
  Matching matching;
  matching.sentence = std::move(sentence);
  return matching;
}

std::string device_space_of(const Chart& chart) {
  if (!chart.holds.device) return "no device values";
  if (!chart.device_set.empty()) return chart.device_set;
  return std::to_string(chart.device.width()) + " device channels";
}

Matching as_asked(MatchBy by, const Chart& reference, const Chart& sample) {
  if (!have_both(reference, sample, by)) {
    if (by == MatchBy::device) {
      return refused("The charts cannot be matched by device values: the reference has " +
                     device_space_of(reference) + ", the sample " + device_space_of(sample) + ".");
    }
    return refused("The charts cannot be matched by " + std::string(word_of(by)) +
                   ": they do not both have them.");
  }
  Matching matching = matched_by(by, reference, sample);
  matching.sentence =
      "Matched by " + std::string(word_of(by)) + ", as asked: " + numbers_of(matching) + ".";
  if (matching.pairs.empty()) {
    return refused("The charts have no " + std::string(word_of(by)) + " in common.");
  }
  return matching;
}

}  // namespace

Matching match(const Chart& reference, const Chart& sample, std::optional<MatchBy> wanted) {
  if (wanted) return as_asked(*wanted, reference, sample);
  std::string passed_over;
  // Ids are often running numbers: they prove nothing for charts of different device values.
  const bool have_device = reference.holds.device && sample.holds.device;
  for (const MatchBy by : {MatchBy::device, MatchBy::id, MatchBy::name, MatchBy::location}) {
    if (have_device && by != MatchBy::device) break;
    if (!have_both(reference, sample, by)) continue;
    Matching matching = matched_by(by, reference, sample);
    const std::string word(word_of(by));
    if (by != MatchBy::device && !is_unique(matching)) {
      passed_over += " The " + word + " repeat.";
    } else if (!has_enough(matching)) {
      passed_over += " By " + word + ", there are " + numbers_of(matching) + ".";
    } else {
      matching.sentence = "Matched by " + word + ", which both have: ";
      matching.sentence.append(numbers_of(matching)).append(".").append(passed_over);
      return matching;
    }
  }
  if (!have_device && reference.patch_count == sample.patch_count) {
    Matching matching = matched_by(MatchBy::order, reference, sample);
    matching.sentence = "Matched by order, since nothing else fits: both have " +
                        std::to_string(reference.patch_count) + " patches." + passed_over;
    return matching;
  }
  return refused("The charts do not match: the reference has " +
                 std::to_string(reference.patch_count) + " patches with " +
                 device_space_of(reference) + ", the sample " + std::to_string(sample.patch_count) +
                 " with " + device_space_of(sample) + "." + passed_over +
                 " They can be matched by ids, names, locations or order if asked.");
}

}  // namespace measkit
