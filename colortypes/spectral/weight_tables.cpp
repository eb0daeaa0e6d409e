#include "colortypes/spectral/weight_tables.h"

namespace vantor::ColorTypes::Spectral {

WeightTable findWeightTable(int interval, TableType type, Observer observer,
                            Illuminant illuminant) {
  const bool fine = interval == 10;
  if (!fine && interval != 20) return {};
  const bool two_degrees = observer == Observer::Cie1931_2deg;
  if (type == TableType::Table5) {
    if (fine) return two_degrees ? table5_10nm_2deg(illuminant) : table5_10nm_10deg(illuminant);
    return two_degrees ? table5_20nm_2deg(illuminant) : table5_20nm_10deg(illuminant);
  }
  if (fine) return two_degrees ? table6_10nm_2deg(illuminant) : table6_10nm_10deg(illuminant);
  return two_degrees ? table6_20nm_2deg(illuminant) : table6_20nm_10deg(illuminant);
}

}  // namespace vantor::ColorTypes::Spectral
