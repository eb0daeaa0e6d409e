// Files with spectra, for tests.
#ifndef MEASDATA_TESTS_API_SPECTRA_H
#define MEASDATA_TESTS_API_SPECTRA_H

#include "tests/support/loaded.h"

#include <string>

namespace test {

/// The regular wavelengths of a file.
struct Bands {
  int start, step, count;
};

inline std::string fields_of(const Bands& bands) {
  return numbered("nm", bands.start, bands.step, bands.count);
}

/// " word word ... word"
inline std::string repeated(const std::string& word, int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += " " + word;
  return text;
}

/// One patch whose spectrum has the same value everywhere.
inline std::string flat_spectrum(const Bands& bands, const std::string& value,
                                 const std::string& fields = "", const std::string& values = "") {
  return file_of(fields + " " + fields_of(bands), values + repeated(value, bands.count) + "\n");
}

}  // namespace test

#endif  // MEASDATA_TESTS_API_SPECTRA_H
