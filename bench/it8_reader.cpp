#include "bench/it8_reader.h"

#include <lcms2.h>

namespace bench {

int read_as_it8(std::string_view text) {
  cmsSetLogErrorHandler(nullptr);
  const cmsHANDLE table =
      cmsIT8LoadFromMem(nullptr, text.data(), static_cast<cmsUInt32Number>(text.size()));
  if (table == nullptr) return 0;
  const auto rows = static_cast<int>(cmsIT8GetPropertyDbl(table, "NUMBER_OF_SETS"));
  const auto columns = static_cast<int>(cmsIT8GetPropertyDbl(table, "NUMBER_OF_FIELDS"));
  double sum = 0.0;
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < columns; ++column) {
      sum += cmsIT8GetDataRowColDbl(table, row, column);
    }
  }
  cmsIT8Free(table);
  volatile double keep = sum;  // so that the reading is not optimised away
  static_cast<void>(keep);
  return rows * columns;
}

}  // namespace bench
