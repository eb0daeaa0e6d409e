// The ASTM E308 weighting tables: for each light, observer, interval and table type, the weights by
// which a spectrum's values are multiplied and summed to give X, Y and Z.
#ifndef MEASDATA_COLORTYPES_SPECTRAL_WEIGHT_TABLES_H
#define MEASDATA_COLORTYPES_SPECTRAL_WEIGHT_TABLES_H

#include "colortypes/spectral/illuminants.h"

#include <array>
#include <cstddef>
#include <span>

namespace vantor::ColorTypes::Spectral {

/// The weights of one wavelength.
struct WeightRow {
  int nm;
  double x, y, z;
};

template <std::size_t rows>
using WeightRows = std::array<WeightRow, rows>;

/// One weighting table: rows from 360 to 780 nm, 43 at 10 nm or 22 at 20 nm.
using WeightTable = std::span<const WeightRow>;

/// First wavelength of every table, nm.
inline constexpr int kTableStartNm = 360;

/// True when the wavelength column runs from 360 to 780 nm without a slip.
template <int interval, std::size_t rows>
constexpr bool isGridOf(const WeightRows<rows>& table) {
  for (std::size_t row = 0; row < rows; ++row) {
    if (table[row].nm != kTableStartNm + static_cast<int>(row) * interval) return false;
  }
  return table.back().nm == 780;
}

/// The table for a combination, empty when there is none. `interval` is 10 or 20 (nm).
WeightTable findWeightTable(int interval, TableType type, Observer observer, Illuminant illuminant);

// The tables by type, interval and observer, each in a file of its own.
WeightTable table5_10nm_2deg(Illuminant illuminant);
WeightTable table5_10nm_10deg(Illuminant illuminant);
WeightTable table5_20nm_2deg(Illuminant illuminant);
WeightTable table5_20nm_10deg(Illuminant illuminant);
WeightTable table6_10nm_2deg(Illuminant illuminant);
WeightTable table6_10nm_10deg(Illuminant illuminant);
WeightTable table6_20nm_2deg(Illuminant illuminant);
WeightTable table6_20nm_10deg(Illuminant illuminant);

}  // namespace vantor::ColorTypes::Spectral

#endif  // MEASDATA_COLORTYPES_SPECTRAL_WEIGHT_TABLES_H
