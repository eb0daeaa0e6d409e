// Turns cell text into numbers.
#ifndef MEASDATA_MEASDATA_NUMBER_READER_H
#define MEASDATA_MEASDATA_NUMBER_READER_H

#include "measdata/plain_decimal.h"

#include <string_view>

namespace vantor::MeasData {

/// What a comma in a number means.
enum class Comma {
  ends_number,       ///< nothing: the number ends before it, as for the C library
  is_decimal_point,  ///< the first one is read as a full stop
};

/// Reads numbers exactly as the C library's atof does: the longest numeric prefix after leading
/// white space, 0.0 when there is none, hexadecimal, infinite and not-a-number forms included, with
/// the decimal point of the process locale, which must not change while the NumberReader lives.
///
/// Plain decimal numbers, nearly all of a real file, are read where they stand; whatever else goes
/// to the C library through a zero-terminated copy.
class NumberReader {
 public:
  NumberReader();

  double read(std::string_view text, Comma comma = Comma::ends_number) const;

  /// The fast path: true for a plain number in a text whose first byte is at `text_start`. Whatever
  /// it refuses is for read().
  bool read_plain(const char* text_start, std::string_view number, double& value) const {
    return use_fast_path_ && number.data() - text_start >= kBytesBeforeNumber &&
           read_plain_decimal(number, value);
  }

 private:
  bool use_fast_path_;
};

}  // namespace vantor::MeasData

#endif  // MEASDATA_MEASDATA_NUMBER_READER_H
