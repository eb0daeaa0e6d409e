// Cells as numbers that XML reads as the kit does.
#ifndef MEASDATA_KIT_CONVERT_CXF_NUMBER_H
#define MEASDATA_KIT_CONVERT_CXF_NUMBER_H

#include "kit/preflight/text_pool.h"
#include "measdata/number_reader.h"

#include <string>
#include <string_view>

namespace measkit {

struct CxfNumber {
  double value = 0.0;
  std::string_view text;  ///< a decimal number without an exponent; empty for no number

  bool is_number() const { return !text.empty(); }
};

class CxfNumbers {
 public:
  explicit CxfNumbers(TextPool& pool) : pool_(pool) {}

  CxfNumber read(std::string_view cell) const;

 private:
  TextPool& pool_;
  vantor::MeasData::NumberReader reader_;
};

/// The fewest digits that read back as the same number, without an exponent.
std::string decimal_text(double value);

}  // namespace measkit

#endif  // MEASDATA_KIT_CONVERT_CXF_NUMBER_H
