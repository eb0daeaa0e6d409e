// Reads cells as numbers and compares each with what the C library makes of the same text.
#include "measdata/meas_file_parser.h"
#include "measdata/number_reader.h"

#include <bit>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

using vantor::MeasData::MeasFileParser;

void expect_same_bits(double number, const std::string& text) {
  const double expected = std::atof(text.c_str());  // NOLINT(cert-err34-c)
  if (std::bit_cast<std::uint64_t>(number) == std::bit_cast<std::uint64_t>(expected)) return;
  std::fprintf(stderr, "\"%s\" read as %.17g, not %.17g\n", text.c_str(), number, expected);
  std::abort();
}

void compare_all_cells(const std::string& file, int mode) {
  MeasFileParser reader(mode);
  reader.load_view(file);
  for (int row = 0; row < reader.row_count(); ++row) {
    for (int column = 0; column < reader.field_count(); ++column) {
      expect_same_bits(reader.value_as_double(row, column), reader.value(row, column));
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string cells(reinterpret_cast<const char*>(data), size);
  expect_same_bits(vantor::MeasData::NumberReader().read(cells), cells);
  compare_all_cells("CGATS.17\nBEGIN_DATA_FORMAT\nSAMPLE_ID GRAY\nEND_DATA_FORMAT\nBEGIN_DATA\n1 " +
                        cells + "\nEND_DATA\n",
                    1);
  compare_all_cells("A;B\n" + cells + "\n", 2);
  return 0;
}
