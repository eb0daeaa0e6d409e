// What a CxF document says about its file and about how it was measured.
#ifndef MEASDATA_KIT_CONVERT_CXF_DESCRIPTION_H
#define MEASDATA_KIT_CONVERT_CXF_DESCRIPTION_H

#include "kit/chart/chart.h"
#include "kit/convert/cxf_columns.h"
#include "kit/convert/cxf_markup.h"
#include "kit/convert/cxf_objects.h"
#include "kit/preflight/table.h"

#include <string>

namespace measkit {

/// Year, month, day and time, as XML writes them.
bool is_date_and_time(std::string_view text);

void write_cxf_information(const Table& table, CxfMarkup& out);

/// How the colours were measured. What is not known is left out or said to be unknown.
void write_cxf_specifications(const Table& table, const Chart& chart, const CxfColumns& columns,
                              const CxfSpecificationIds& ids, CxfMarkup& out);

}  // namespace measkit

#endif  // MEASDATA_KIT_CONVERT_CXF_DESCRIPTION_H
