// One side of a comparison: the repeats of each colour averaged.
#ifndef MEASDATA_KIT_COMPARE_AVERAGED_SIDE_H
#define MEASDATA_KIT_COMPARE_AVERAGED_SIDE_H

#include "colortypes/tristimulus.h"
#include "kit/chart/chart.h"
#include "kit/compare/patch_groups.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace measkit {

using vantor::ColorTypes::Lab;

enum class Averaging { mean, median };

/// What stands for several numbers. Those that were not measured (not-a-number) do not count; not
/// a number when none was. The order of `values` is lost.
double average_of(std::vector<double>& values, Averaging averaging);

/// The average of each column over the rows of some patches.
void average_rows(const Values& values, std::span<const std::uint32_t> patches, Averaging averaging,
                  double* average);

/// Colours by group; refers to the chart and the groups, which must outlive it.
class AveragedSide {
 public:
  AveragedSide(const Chart& chart, const PatchGroups& groups, Averaging averaging);

  const Chart& chart() const { return chart_; }
  std::size_t size() const { return lab_.size(); }
  /// Not a number where nothing was measured.
  const Lab& lab(std::size_t group) const { return lab_[group]; }
  /// Empty when the chart holds no spectra. Valid until the next call.
  std::span<const double> spectrum(std::size_t group) const;
  std::uint32_t first_patch(std::size_t group) const { return groups_.patches_of(group).front(); }
  std::span<const std::uint32_t> patches_of(std::size_t group) const {
    return groups_.patches_of(group);
  }

 private:
  const Chart& chart_;
  const PatchGroups& groups_;
  Averaging averaging_;
  std::vector<Lab> lab_;
  mutable std::vector<double> spectrum_;
};

}  // namespace measkit

#endif  // MEASDATA_KIT_COMPARE_AVERAGED_SIDE_H
