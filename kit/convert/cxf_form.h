// Tables as CxF3.
#ifndef MEASDATA_KIT_CONVERT_CXF_FORM_H
#define MEASDATA_KIT_CONVERT_CXF_FORM_H

#include "kit/chart/chart.h"
#include "kit/preflight/table.h"

#include <string>
#include <vector>

namespace measkit {

struct CxfForm {
  bool in_pairs = false;
  std::string time_of_writing;
};

std::string cxf_of(Table& table, const Chart& chart, const CxfForm& form,
                   std::vector<std::string>& left_behind);

}  // namespace measkit

#endif  // MEASDATA_KIT_CONVERT_CXF_FORM_H
