#include "colortypes/spectral/cmf_conversion.h"

#include "colortypes/conversions.h"
#include "colortypes/spectral/cie_data.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <utility>

namespace vantor::ColorTypes::Spectral {
namespace {

// The value at a position, 0 to count - 1, of the polynomial through the nearest samples, at most
// four: tells share(sample, factor) how much each of them contributes. Outside, the ends are
// repeated.
template <typename Share>
void interpolate(double position, std::int64_t count, Share share) {
  const double inside = std::clamp(position, 0.0, static_cast<double>(count - 1));
  const std::int64_t left = std::min(static_cast<std::int64_t>(inside), count - 2);
  const std::int64_t first = std::max<std::int64_t>(left - 1, 0);
  const std::int64_t last = std::min(left + 2, count - 1);
  for (std::int64_t sample = first; sample <= last; ++sample) {
    double factor = 1.0;  // the Lagrange polynomial that is 1 at this sample
    for (std::int64_t other = first; other <= last; ++other) {
      if (other == sample) continue;
      factor *= (inside - static_cast<double>(other)) / static_cast<double>(sample - other);
    }
    share(sample, factor);
  }
}

struct Grid {
  std::int64_t start, step, count;

  /// The sample nearest before a wavelength, or the nearest end.
  std::int64_t sample_at(std::int64_t nm) const {
    return std::clamp<std::int64_t>((nm - start) / step, 0, count - 1);
  }
};

constexpr std::int64_t kCieEndNm = kCieStartNm + kCieStepNm * (std::int64_t{kCieCount} - 1);

// Room for the samples that can count: those of the CIE data's range and two to each side.
WeightedSums noWeights(const Grid& grid) {
  const auto [low, high] = std::minmax({grid.sample_at(kCieStartNm), grid.sample_at(kCieEndNm)});
  const std::int64_t first = std::max<std::int64_t>(low - 2, 0);
  const std::int64_t last = std::min(high + 2, grid.count - 1);
  return {static_cast<std::size_t>(first), static_cast<std::size_t>(last - first + 1)};
}

// A spectrum coarser than the CIE data is interpolated at each of their wavelengths.
void addCoarse(const Grid& grid, WeightedSums& sums) {
  for (const CieRow& row : cieData()) {
    const double position =
        static_cast<double>(row.nm - grid.start) / static_cast<double>(grid.step);
    interpolate(position, grid.count, [&sums, &row](std::int64_t sample, double factor) {
      const double weight = factor * row.d50;
      sums.add(static_cast<std::size_t>(sample), weight * row.x, weight * row.y, weight * row.z);
    });
  }
}

// Of a finer one each sample counts for the CIE wavelengths around it, by the shares that they have
// in the CIE data interpolated at its own.
void addFine(const Grid& grid, WeightedSums& sums) {
  const std::int64_t step = std::abs(grid.step);
  // The first wavelength of the grid, continued in both directions, that the CIE data cover.
  const std::int64_t first_nm = kCieStartNm + (((grid.start - kCieStartNm) % step) + step) % step;
  for (std::int64_t nm = first_nm; nm <= kCieEndNm; nm += step) {
    const std::int64_t nearest = grid.sample_at(nm);
    const double position = static_cast<double>(nm - kCieStartNm) / kCieStepNm;
    interpolate(position, kCieCount, [&sums, nearest](std::int64_t index, double factor) {
      const CieRow& row = cieData()[static_cast<std::size_t>(index)];
      const double weight = factor * row.d50;
      sums.add(static_cast<std::size_t>(nearest), weight * row.x, weight * row.y, weight * row.z);
    });
  }
}

}  // namespace

bool CmfSpectralConversion::configure(std::int32_t start, std::int32_t step, std::int32_t count) {
  if (step == 0 || count < 2) return false;
  const Grid grid = {start, step, count};
  WeightedSums sums = noWeights(grid);
  if (std::abs(grid.step) < kCieStepNm) {
    addFine(grid, sums);
  } else {
    addCoarse(grid, sums);
  }
  sums.normalise(1.0, kD50White);
  sums_ = std::move(sums);
  return true;
}

void CmfSpectralConversion::spectralToLab(const double* spectrum, double& l, double& a,
                                          double& b) const {
  const Lab lab = xyzToLab(sums_.xyzOf(spectrum), kD50White);
  l = lab.l;
  a = lab.a;
  b = lab.b;
}

}  // namespace vantor::ColorTypes::Spectral
