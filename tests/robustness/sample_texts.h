// A small text of each kind that the library reads, for tests of what must not matter.
#ifndef MEASDATA_TESTS_ROBUSTNESS_SAMPLE_TEXTS_H
#define MEASDATA_TESTS_ROBUSTNESS_SAMPLE_TEXTS_H

#include "tests/support/loaded.h"

#include <ostream>
#include <string>
#include <vector>

namespace test {

struct SampleText {
  std::string kind;
  int result;  ///< of a load
  std::string text;
  int mode = 0;

  friend void PrintTo(const SampleText& sample, std::ostream* out) { *out << sample.kind; }
};

/// All numbers are whole: they read the same wherever a locale puts the decimal point.
inline std::vector<SampleText> sample_texts() {
  const std::string lab = " LAB_L LAB_A LAB_B";
  const std::string dark = numbered("", 1, 0, 36), bright = numbered("", 1, 2, 36);
  return {
      {"CMYK and Lab", 1,
       file_of("SAMPLE_ID SAMPLE_NAME CMYK_C CMYK_M CMYK_Y CMYK_K" + lab,
               "1 \"paper, longer than a short string\" 0 0 0 0 95 0 -2\n"
               "2 cyan 100 0 0 0 55 -37 -50\n3 half 50 0 0 0 70 1 2\n")},
      {"spectra", 1,
       file_of("RGB_R RGB_G RGB_B " + numbered("SPECTRAL_NM", 380, 10, 36),
               "0 0 0 " + dark + "\n255 255 255 " + bright + "\n0 0 0 " + bright + "\n")},
      {"spectra that no weighting table fits", 1,
       file_of("CMY_C CMY_M CMY_Y " + numbered("SPECTRAL_NM", 380, 5, 36),
               "0 0 0 " + dark + "\n100 0 0 " + bright + "\n")},
      {"densities", 1,
       file_of("SAMPLE_LOC GRAY D_VIS D_RED D_GREEN D_BLUE LAB_L LAB_C LAB_H",
               "A1 0 0 0 0 0 95 1 280\nA2 100 2 2 2 2 16 0 260\n", "FILTER_STATUS \"Status T\"\n")},
      {"XYZ only", 1, file_of("SAMPLE_ID XYZ_X XYZ_Y XYZ_Z", "1 96 100 82\n2 20 21 18\n")},
      {"repeats", 1,
       file_of("SAMPLE_ID GRAY" + lab, "1 0 90 0 0\n2 0 92 0 0\n3 100 20 0 0\n4 0 91 3 4\n")},
      {"older form", 1,
       "IT8.7/4\nORIGINATOR \"measdata\"\n" +
           file_of("SampleID RGB_R RGB_G RGB_B XYZ_X XYZ_Y XYZ_Z", "A1 255 255 255 96 100 82\n")
               .substr(9)},
      {"semicolon table", 1,
       "% Cyan;Magenta;Yellow;Black;LAB_L;LAB_A;LAB_B\n0;0;0;0;95;0;-2\n100;0;0;0;55;-37;-50\n", 1},
      {"metadata", 1,
       file_of(
           "2CLR_1 2CLR_2", "0 0\n100 0\n",
           "INSTRUMENTATION \"Maker ModelName, D50, 2 degree, geometry 45/0, no polarisation "
           "filter, white backing, Serial number 1234567890123456, aperture 4 mm\"\n"
           "MEASUREMENT_SOURCE \"Illumination=D50 Observer=2degree Filter=AVeryLongFilterName "
           "DensityStd=Status AVeryLongStatusName\"\nCOPYRIGHT \"nobody\"\nMATERIAL paper\n"
           "PROD_DATE 2026\nSERIAL \"12 34\"\nOWN 1\nINK_NAME_2 \"Reflex Blue in long words\"\n"
           "LGOMCCHANNEL01 \"InkName = 'A long name of an ink' LabFullToneColor = 56 -37 -44\"\n")},
      {"weighting functions", 1,
       file_of("GRAY" + lab, "0 95 0 0\n",
               "WEIGHTING_FUNCTION \"ILLUMINANT, ALightThatHasALongName\"\n"
               "WEIGHTING_FUNCTION \"OBSERVER, AnObserverWithALongName\"\n"
               "ILLUMINANT D65\nOBSERVER 10\n"  // not asked when memory fails
               "COMPUTATIONAL_PARAMETER \"some parameter of some computation\"\n")},
      {"a row too short", 0,
       file_of("SAMPLE_ID" + lab, std::string(1234, '\n') + "1 2 3\n", "SERIAL 1\nSERIAL 2\n")},
      {"an ink whose colour is no number", 0,
       file_of("GRAY" + lab, "0 95 0 0\n",
               "LGOMCCHANNEL01 \"InkName = A LabFullToneColor = x y z\"\n")},
  };
}

}  // namespace test

#endif  // MEASDATA_TESTS_ROBUSTNESS_SAMPLE_TEXTS_H
