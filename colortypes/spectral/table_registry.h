// The names of the weighting tables with their ids, for diagnostics.
#ifndef MEASDATA_COLORTYPES_SPECTRAL_TABLE_REGISTRY_H
#define MEASDATA_COLORTYPES_SPECTRAL_TABLE_REGISTRY_H

#include <span>
#include <string_view>

namespace vantor::ColorTypes::Spectral {

struct AstmTableName {
  std::string_view name;
  int id;  ///< encodes illuminant, observer and table type
};

/// All names in their fixed order. A name does not promise a table (there is no UL30 Table 5), and
/// one name stands for three ids.
class AstmTableRegistry {
 public:
  static std::span<const AstmTableName> entries();
  /// The id of the first entry of that name, -1 when there is none.
  static int find(std::string_view name);
};

}  // namespace vantor::ColorTypes::Spectral

#endif  // MEASDATA_COLORTYPES_SPECTRAL_TABLE_REGISTRY_H
