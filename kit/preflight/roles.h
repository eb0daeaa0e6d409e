// Which field of a table holds what.
#ifndef MEASDATA_KIT_PREFLIGHT_ROLES_H
#define MEASDATA_KIT_PREFLIGHT_ROLES_H

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace measkit {

inline constexpr int kNoField = -1;

/// Positions of three fields that belong together.
using FieldTriple = std::array<int, 3>;
constexpr bool is_complete(const FieldTriple& fields) {
  return fields[0] != kNoField && fields[1] != kNoField && fields[2] != kNoField;
}

struct SpectralField {
  int field;
  double nm;
};

/// The roles that the library gives to the fields of a table, by their names.
struct Roles {
  static constexpr FieldTriple kNone = {kNoField, kNoField, kNoField};

  int id = kNoField, name = kNoField, location = kNoField;
  std::vector<int> device;
  std::string device_set;  ///< "CMYK", "CMY", "RGB", "GRAY", "5CLR", "PC6", "SPOT"; else empty
  FieldTriple xyz = kNone, lab = kNone, lch = kNone, xyy = kNone;
  std::vector<int> densities;
  std::vector<SpectralField> spectra;  ///< in the order of the fields
  std::vector<int> unused;             ///< fields without a role

  bool has_device() const { return !device.empty(); }
  bool has_xyz() const { return is_complete(xyz); }
  bool has_lab() const { return is_complete(lab); }
  bool has_lch() const { return is_complete(lch); }
  bool has_xyy() const { return is_complete(xyy); }
  bool has_spectra() const { return !spectra.empty(); }
};

Roles roles_of(const std::vector<std::string_view>& field_names);

/// Emission spectra stand in fields that no reader takes for reflectances.
std::string emission_field_name(double nm);
/// The wavelength in nm of such a field; 0 for other names.
double emission_wavelength_in(std::string_view field_name);

}  // namespace measkit

#endif  // MEASDATA_KIT_PREFLIGHT_ROLES_H
