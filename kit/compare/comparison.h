// Two charts side by side: how far apart they are, and where.
#ifndef MEASDATA_KIT_COMPARE_COMPARISON_H
#define MEASDATA_KIT_COMPARE_COMPARISON_H

#include "kit/chart/chart.h"
#include "kit/colour/colour_difference.h"
#include "kit/compare/averaged_side.h"
#include "kit/compare/colour_groups.h"
#include "kit/compare/figures.h"
#include "kit/compare/matching.h"
#include "kit/compare/tone_values.h"
#include "kit/finding.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace measkit {

/// What is told of a pair. Colour differences come first.
enum class Measure { de76, de94, de00, cmc, dl, da, db, dc, dh, rms, de00_a, de00_f11 };
inline constexpr std::size_t kMeasures = 12;
inline constexpr std::array<std::string_view, kMeasures> kMeasureNames = {
    "de76", "de94", "de00", "cmc", "dl", "da", "db", "dc", "dh", "rms", "de00_a", "de00_f11"};

/// A formula for colour differences.
inline constexpr std::array<Measure, 4> kFormulas = {Measure::de76, Measure::de94, Measure::de00,
                                                     Measure::cmc};
/// As people write it, such as "CIEDE2000".
std::string formula_name(Measure formula, double cmc_lightness, double cmc_chroma);

struct ComparisonOptions {
  std::optional<MatchBy> match;
  Averaging averaging = Averaging::mean;  ///< of repeats
  Measure formula = Measure::de00;        ///< of the verdicts and pictures
  double cmc_lightness = 2.0, cmc_chroma = 1.0;
};

/// A colour that both charts hold. Repeats count as one.
struct ComparedColour {
  std::uint32_t reference_patch, sample_patch;  ///< the first of the repeats
  std::uint32_t reference_count, sample_count;  ///< of measurements
  Lab reference, sample;
  std::array<double, kMeasures> measures;  ///< not a number where it cannot be told

  double of(Measure measure) const { return measures[static_cast<std::size_t>(measure)]; }
};

struct GroupFigures {
  std::vector<std::uint32_t> colours;  ///< positions
  std::array<Figures, kMeasures> measures;

  const Figures& of(Measure measure) const { return measures[static_cast<std::size_t>(measure)]; }
};

/// Refers to both charts, which must outlive it.
struct Comparison {
  const Chart* reference = nullptr;
  const Chart* sample = nullptr;
  ComparisonOptions options;
  /// Why there are no figures; empty when there are.
  std::string refusal;
  std::string match_sentence;
  MatchBy matched_by = MatchBy::order;
  std::vector<Finding> findings;  ///< what to know before any figure
  std::vector<ComparedColour> colours;
  std::vector<std::uint32_t> only_in_reference, only_in_sample;  ///< first patches
  std::size_t not_measured = 0;  ///< pairs without Lab on a side, which do not count
  std::vector<double> common_wavelengths;
  std::array<GroupFigures, kColourGroups> groups;
  std::vector<WedgeTones> wedges;  ///< WedgeStepTones::pair is a position in `colours`

  bool is_refused() const { return !refusal.empty(); }
  const GroupFigures& of(ColourGroup group) const {
    return groups[static_cast<std::size_t>(group)];
  }
  /// Positions of colours by falling difference in the chosen formula, at most `most`.
  std::vector<std::uint32_t> worst(std::size_t most) const;
};

Comparison compare(const Chart& reference, const Chart& sample, const ComparisonOptions& options);

/// What a comparison calls a colour: the label of the reference's patch.
std::string label_of(const Comparison& comparison, const ComparedColour& colour);

}  // namespace measkit

#endif  // MEASDATA_KIT_COMPARE_COMPARISON_H
