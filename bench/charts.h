// Writes large measurement files with made-up numbers, the same ones on every machine.
#ifndef MEASDATA_BENCH_CHARTS_H
#define MEASDATA_BENCH_CHARTS_H

#include <string>

namespace bench {

/// A CMYK chart: id, CMYK, XYZ, Lab and 36 bands in each of `rows` rows, which is 47 columns and
/// about 350 bytes a row.
std::string spectral_chart(int rows);

}  // namespace bench

#endif  // MEASDATA_BENCH_CHARTS_H
