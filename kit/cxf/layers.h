// The charts that a set of patches holds: one a measuring condition.
#ifndef MEASDATA_KIT_CXF_LAYERS_H
#define MEASDATA_KIT_CXF_LAYERS_H

#include "kit/cxf/document.h"
#include "kit/cxf/pairing.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace measkit::cxf {

enum class Quantity { unknown, reflectance, transmittance, emission };

/// Values that one table can hold: at most one of each kind a patch, of specifications that agree.
struct Layer {
  std::vector<int> specifications;
  unsigned kinds = 0;  ///< one bit each
  Quantity quantity = Quantity::unknown;
  bool is_only = false;  ///< of the document
  /// M0 to M3, illuminant, observer, backing; empty where nothing says it.
  std::string_view m{}, illuminant{}, observer{}, backing{}, density_status{};
  std::vector<Patch> patches;
  /// Of each patch, the indices of its values in Document::colours.
  std::vector<std::vector<std::size_t>> values;

  bool has(Kind kind) const { return (kinds >> static_cast<unsigned>(kind) & 1U) != 0; }
  bool has_spectra() const;
};

/// Values beyond the last layer that is allowed are counted in `left_out`. Device values without
/// any colours make one layer.
std::vector<Layer> layers_of(const Document& document, const PatchSet& set, std::size_t most_layers,
                             std::size_t& left_out);

}  // namespace measkit::cxf

#endif  // MEASDATA_KIT_CXF_LAYERS_H
