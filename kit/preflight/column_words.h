// The words that people use for the columns of the format.
#ifndef MEASDATA_KIT_PREFLIGHT_COLUMN_WORDS_H
#define MEASDATA_KIT_PREFLIGHT_COLUMN_WORDS_H

#include <array>
#include <string_view>

namespace measkit {

struct ColumnWord {
  std::string_view key, meaning;
};

/// Names that mean one thing whatever stands beside them.
inline constexpr auto kFieldWords = std::to_array<ColumnWord>({
    {"labl", "LAB_L"},
    {"laba", "LAB_A"},
    {"labb", "LAB_B"},
    {"labc", "LAB_C"},
    {"labh", "LAB_H"},
    {"lchl", "LAB_L"},
    {"lchc", "LAB_C"},
    {"lchh", "LAB_H"},
    {"xyzx", "XYZ_X"},
    {"xyzy", "XYZ_Y"},
    {"xyzz", "XYZ_Z"},
    {"xyyx", "XYY_X"},
    {"xyycapy", "XYY_CAPY"},
    {"xyyyy", "XYY_CAPY"},
    {"xyybigy", "XYY_CAPY"},
    {"rgbr", "RGB_R"},
    {"rgbg", "RGB_G"},
    {"rgbb", "RGB_B"},
    {"srgbr", "RGB_R"},
    {"srgbg", "RGB_G"},
    {"srgbb", "RGB_B"},
    {"cmykc", "CMYK_C"},
    {"cmykm", "CMYK_M"},
    {"cmyky", "CMYK_Y"},
    {"cmykk", "CMYK_K"},
    {"cmyc", "CMY_C"},
    {"cmym", "CMY_M"},
    {"cmyy", "CMY_Y"},
    {"gray", "GRAY"},
    {"grey", "GRAY"},
    {"graylevel", "GRAY"},
    {"greylevel", "GRAY"},
    {"dred", "D_RED"},
    {"dgreen", "D_GREEN"},
    {"dblue", "D_BLUE"},
    {"dvis", "D_VIS"},
    {"densityred", "D_RED"},
    {"densitygreen", "D_GREEN"},
    {"densityblue", "D_BLUE"},
    {"densityvis", "D_VIS"},
    {"lstarlab", "LAB_L"},
    {"astarlab", "LAB_A"},
    {"bstarlab", "LAB_B"},
    {"lvalue", "LAB_L"},
    {"avalue", "LAB_A"},
    {"bvalue", "LAB_B"},
    {"samplename", "SAMPLE_NAME"},
    {"sampleid", "SAMPLE_ID"},
    {"sampleloc", "SAMPLE_LOC"},
    {"samplelocation", "SAMPLE_LOC"},
    {"patchname", "SAMPLE_NAME"},
});

/// Words for the letters that groups are made of.
inline constexpr auto kLetterWords = std::to_array<ColumnWord>({
    {"red", "r"},       {"green", "g"},  {"blue", "b"},  {"cyan", "c"},     {"magenta", "m"},
    {"yellow", "y"},    {"black", "k"},  {"key", "k"},   {"orange", "o"},   {"violet", "v"},
    {"lightness", "l"}, {"chroma", "c"}, {"hue", "h"},   {"hueangle", "h"}, {"cab", "c"},
    {"hab", "h"},       {"lstar", "l"},  {"astar", "a"}, {"bstar", "b"},    {"cstar", "c"},
    {"bigy", "Y"},      {"capy", "Y"},
});

/// Words for what identifies a row. A later column with the same meaning is one without.
inline constexpr auto kRowWords = std::to_array<ColumnWord>({
    {"id", "SAMPLE_ID"},           {"index", "SAMPLE_ID"},        {"idx", "SAMPLE_ID"},
    {"no", "SAMPLE_ID"},           {"nr", "SAMPLE_ID"},           {"num", "SAMPLE_ID"},
    {"number", "SAMPLE_ID"},       {"patch", "SAMPLE_ID"},        {"patchid", "SAMPLE_ID"},
    {"patchno", "SAMPLE_ID"},      {"patchnumber", "SAMPLE_ID"},  {"sampleno", "SAMPLE_ID"},
    {"samplenumber", "SAMPLE_ID"}, {"sample", "SAMPLE_ID"},       {"name", "SAMPLE_NAME"},
    {"colorname", "SAMPLE_NAME"},  {"colourname", "SAMPLE_NAME"}, {"color", "SAMPLE_NAME"},
    {"colour", "SAMPLE_NAME"},     {"label", "SAMPLE_NAME"},      {"description", "SAMPLE_NAME"},
    {"location", "SAMPLE_LOC"},    {"loc", "SAMPLE_LOC"},         {"position", "SAMPLE_LOC"},
});

/// Letters of columns that belong together, the longer of two groups that begin alike first. A
/// capital in `letters` stands for a capital alone, and so do x and y beside it for small letters.
struct LetterGroup {
  std::string_view letters;
  std::array<std::string_view, 5> names;
};
inline constexpr auto kLetterGroups = std::to_array<LetterGroup>({
    {"xyY", {"XYY_X", "XYY_Y", "XYY_CAPY"}},
    {"Yxy", {"XYY_CAPY", "XYY_X", "XYY_Y"}},
    {"labch", {"LAB_L", "LAB_A", "LAB_B", "LAB_C", "LAB_H"}},
    {"lab", {"LAB_L", "LAB_A", "LAB_B"}},
    {"lch", {"LAB_L", "LAB_C", "LAB_H"}},
    {"xyz", {"XYZ_X", "XYZ_Y", "XYZ_Z"}},
    {"cmyk", {"CMYK_C", "CMYK_M", "CMYK_Y", "CMYK_K"}},
    {"rgb", {"RGB_R", "RGB_G", "RGB_B"}},
    {"cmy", {"CMY_C", "CMY_M", "CMY_Y"}},
});

}  // namespace measkit

#endif  // MEASDATA_KIT_PREFLIGHT_COLUMN_WORDS_H
