// Writes a table as a CxF3 document.
#ifndef MEASDATA_KIT_CONVERT_CXF_FORM_H
#define MEASDATA_KIT_CONVERT_CXF_FORM_H

#include "kit/chart/chart.h"
#include "kit/preflight/table.h"

#include <string>
#include <vector>

namespace measkit {

struct CxfForm {
  /// Device values and colours in two objects a patch, as some chart programs want them.
  bool in_pairs = false;
  /// ISO 8601, for charts without a CREATED that is an ISO date and time.
  std::string time_of_writing;
};

/// The table as CxF3. `chart` is of the same table. What CxF cannot hold is added to `left_behind`,
/// a sentence each.
///
/// What no element of CxF can hold as it stands becomes a tag: keywords in the file's information,
/// cells in a collection "Fields" of their object. The kit's reader takes both back.
std::string cxf_of(Table& table, const Chart& chart, const CxfForm& form,
                   std::vector<std::string>& left_behind);

}  // namespace measkit

#endif  // MEASDATA_KIT_CONVERT_CXF_FORM_H
