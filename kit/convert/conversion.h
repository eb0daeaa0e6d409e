// From a chart to another form of it, with nothing lost in silence.
#ifndef MEASDATA_KIT_CONVERT_CONVERSION_H
#define MEASDATA_KIT_CONVERT_CONVERSION_H

#include "kit/convert/form.h"
#include "kit/document.h"

#include <optional>
#include <span>
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

/// Why something is not possible, in a few words; empty when it is.
using RefusalWords = std::string;

/// Groups from a list such as "device,lab,spectra"; none for an unknown word, with the reason.
std::optional<std::vector<ColumnGroup>> column_groups_of(std::string_view list,
                                                         RefusalWords& refusal);
/// A range such as "400:700:10"; none for anything else.
std::optional<WavelengthRange> wavelength_range_of(std::string_view text, RefusalWords& refusal);
/// "file", "xyz" or "spectra"; none for anything else.
std::optional<LabFrom> lab_from_of(std::string_view word, RefusalWords& refusal);

struct Conversion {
  std::string text;
  std::vector<std::string> left_behind;  ///< what the text does not hold, a sentence each
  RefusalWords refusal;                  ///< there is no text then
};

/// Writes charts of a document, by position. Only JSON takes several.
Conversion convert(Document& document, std::span<const std::size_t> charts, Form form,
                   const ConversionOptions& options);

}  // namespace measkit

#endif  // MEASDATA_KIT_CONVERT_CONVERSION_H
