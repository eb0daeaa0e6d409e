// The IT8 reader of lcms2, for comparison.
#ifndef MEASDATA_BENCH_IT8_READER_H
#define MEASDATA_BENCH_IT8_READER_H

#include <string_view>

namespace bench {

/// Loads the text and reads every cell as a double; their number, or 0 when the text is refused.
int read_as_it8(std::string_view text);

}  // namespace bench

#endif  // MEASDATA_BENCH_IT8_READER_H
