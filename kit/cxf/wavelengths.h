// The wavelengths of the spectra of a chart.
#ifndef MEASDATA_KIT_CXF_WAVELENGTHS_H
#define MEASDATA_KIT_CXF_WAVELENGTHS_H

#include "kit/cxf/document.h"
#include "kit/cxf/layers.h"
#include "kit/cxf/line_index.h"
#include "kit/finding.h"

#include <cstddef>
#include <optional>

namespace measkit::cxf {

/// Wavelengths in even steps, in nm.
struct Grid {
  double start = 0.0, step = 0.0;
  std::size_t bands = 0;

  bool operator==(const Grid&) const = default;
};

/// The wavelengths of a spectrum by what its element and its specification say; none when they say
/// too little.
std::optional<Grid> grid_of(const Measured& spectrum, const Specification& specification);

/// The wavelengths of most spectra of a layer. Spectra with others are told as lost.
std::optional<Grid> common_grid(const Document& document, const Layer& layer,
                                const LineIndex& lines, Findings& findings);

}  // namespace measkit::cxf

#endif  // MEASDATA_KIT_CXF_WAVELENGTHS_H
