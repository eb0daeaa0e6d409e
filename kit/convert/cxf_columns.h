// What the columns of a table become in CxF.
#ifndef MEASDATA_KIT_CONVERT_CXF_COLUMNS_H
#define MEASDATA_KIT_CONVERT_CXF_COLUMNS_H

#include "kit/chart/chart.h"
#include "kit/preflight/roles.h"
#include "kit/preflight/table.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace measkit {

/// Three numbers that are one colour.
struct CxfTriple {
  std::string_view element;
  std::array<std::string_view, 3> parts;  ///< elements inside it
  std::array<std::string_view, 3> names;  ///< of tags for numbers that the element cannot hold
  bool (*is_allowed)(const Triple& values);
  FieldTriple fields = Roles::kNone;
};

struct CxfDensity {
  std::string_view filter, name;
  int field;
};

struct CxfSpectra {
  std::string_view element;          ///< empty without spectra
  std::vector<SpectralField> bands;  ///< ascending
  bool is_on_grid = false;           ///< on one that the element can say
  int start = 0, step = 0;           ///< nm, of that grid
};

enum class CxfInks { none, rgb, cmyk, cmyk_and_spots, custom };

struct CxfColumns {
  int id = kNoField, name = kNoField, location = kNoField;
  CxfInks inks = CxfInks::none;
  std::string set;  ///< of the fields, such as "5CLR"
  std::vector<int> device;
  std::vector<std::string> ink_names;  ///< one a field of `device`, all different
  double full_rgb = 255.0;
  std::vector<CxfTriple> triples;
  std::vector<CxfDensity> densities;
  std::string_view density_status;
  CxfSpectra spectra;
  std::vector<int> others;  ///< what becomes tags

  bool has_colours() const {
    return !triples.empty() || !densities.empty() || !spectra.element.empty();
  }
};

CxfColumns cxf_columns_of(const Table& table, const Chart& chart,
                          std::vector<std::string>& left_behind);

}  // namespace measkit

#endif  // MEASDATA_KIT_CONVERT_CXF_COLUMNS_H
