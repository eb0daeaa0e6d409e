// From a chart to another form of it, with nothing lost in silence.
#ifndef MEASDATA_KIT_CONVERT_CONVERSION_H
#define MEASDATA_KIT_CONVERT_CONVERSION_H

#include "kit/convert/form.h"
#include "kit/document.h"

#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace measkit {

/// What columns are about.
enum class ColumnGroup {
  names,  ///< ids, names and locations
  device,
  lab,
  lch,
  xyz,
  xyy,
  density,
  spectra,
  unknown,  ///< of no use for any answer
};

/// Wavelengths in nm.
struct WavelengthRange {
  double start, end, step;
};

enum class LabFrom {
  columns,  ///< as they stand; computed by the library when they are asked for and absent
  file,
  xyz,
  spectra,
};

struct ConversionOptions {
  std::vector<ColumnGroup> select;  ///< empty: all
  LabFrom lab_from = LabFrom::columns;
  std::optional<WavelengthRange> grid;
  bool merged = false;
  bool percent = false;
  bool keep_unknown = false;  ///< in the text forms, which leave unknown columns behind
  bool decimal_comma = false;
  bool bare = false;       ///< CSV and TSV begin with the names of the columns
  int digits = 0;          ///< significant ones of computed numbers; 0: as few as read back equal
  bool cxf_pairs = false;  ///< device values and colours of CxF in objects of their own
};

/// Why a conversion is not possible, as a sentence.
class ConversionRefusal : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Groups from a list such as "device,lab,spectra"; a ConversionRefusal for an unknown word.
std::vector<ColumnGroup> column_groups_of(std::string_view list);
/// A range such as "400:700:10"; a ConversionRefusal for anything else.
WavelengthRange wavelength_range_of(std::string_view text);
/// "file", "xyz" or "spectra"; a ConversionRefusal for anything else.
LabFrom lab_from_of(std::string_view word);

struct Conversion {
  std::string text;
  std::vector<std::string> left_behind;  ///< what the text does not hold, a sentence each
};

/// Writes charts of a document, by position. Only JSON takes several. Throws a ConversionRefusal.
Conversion convert(Document& document, std::span<const std::size_t> charts, Form form,
                   const ConversionOptions& options);

}  // namespace measkit

#endif  // MEASDATA_KIT_CONVERT_CONVERSION_H
