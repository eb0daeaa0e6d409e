// Writes measurement files with made-up numbers, the same ones on every machine.
#ifndef MEASDATA_BENCH_CHARTS_H
#define MEASDATA_BENCH_CHARTS_H

#include <string>

namespace bench {

/// A CMYK chart in 48 columns: id, name, CMYK, XYZ, Lab and 36 bands, about 380 bytes a row. The
/// rows repeat the device values of the first `distinct_rows` over and over.
std::string spectral_chart(int rows, int distinct_rows);

/// Id, CMYK and 36 bands of reflectance in percent: what the kit rewrites most.
std::string percent_chart(int rows);

/// Id, CMYK and Lab: 8 columns. Rows repeat as in spectral_chart.
std::string narrow_chart(int rows, int distinct_rows);

/// A semicolon table of 12 columns: id, name, CMYK, XYZ, Lab.
std::string semicolon_table(int rows);

/// `rows` measurements of one gray patch: id, gray and 36 bands.
std::string single_patch_chart(int rows);

/// A CxF3 document of the spectra of spectral_chart, about 850 bytes a patch.
std::string cxf_document(int patches);

/// A small chart behind `count` keywords of different names.
std::string keyword_file(int count);

/// A chart of one row under `count` fields of different names.
std::string wide_file(int count);

}  // namespace bench

#endif  // MEASDATA_BENCH_CHARTS_H
