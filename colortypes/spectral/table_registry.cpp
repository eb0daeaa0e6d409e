#include "colortypes/spectral/table_registry.h"

#include <algorithm>
#include <array>

namespace vantor::ColorTypes::Spectral {
namespace {

// Ids 59 and 63 bear the name of id 55: callers know them under that name.
constexpr std::array<AstmTableName, 66> kNames = {{
    {"A_2_Table5", 0},
    {"A_10_Table5", 1},
    {"C_2_Table5", 2},
    {"C_10_Table5", 3},
    {"D50_2_Table5", 4},
    {"D50_10_Table5", 5},
    {"D55_2_Table5", 6},
    {"D55_10_Table5", 7},
    {"D65_2_Table5", 8},
    {"D65_10_Table5", 9},
    {"D75_2_Table5", 10},
    {"D75_10_Table5", 11},
    {"F2_2_Table5", 12},
    {"F2_10_Table5", 13},
    {"F7_2_Table5", 14},
    {"F7_10_Table5", 15},
    {"F11_2_Table5", 16},
    {"F11_10_Table5", 17},
    {"UL35_2_Table5", 18},
    {"UL35_10_Table5", 19},
    {"UL30_2_Table5", 40},
    {"UL30_10_Table5", 41},
    {"LEDB1_2_Table5", 44},
    {"LEDB1_10_Table5", 45},
    {"LEDB2_2_Table5", 48},
    {"LEDB2_10_Table5", 49},
    {"LEDB3_2_Table5", 52},
    {"LEDB3_10_Table5", 53},
    {"LEDB4_2_Table5", 56},
    {"LEDB4_10_Table5", 57},
    {"LEDB5_2_Table5", 60},
    {"LEDB5_10_Table5", 61},
    {"A_2_Table6", 20},
    {"A_10_Table6", 21},
    {"C_2_Table6", 22},
    {"C_10_Table6", 23},
    {"D50_2_Table6", 24},
    {"D50_10_Table6", 25},
    {"D55_2_Table6", 26},
    {"D55_10_Table6", 27},
    {"D65_2_Table6", 28},
    {"D65_10_Table6", 29},
    {"D75_2_Table6", 30},
    {"D75_10_Table6", 31},
    {"F2_2_Table6", 32},
    {"F2_10_Table6", 33},
    {"F7_2_Table6", 34},
    {"F7_10_Table6", 35},
    {"F11_2_Table6", 36},
    {"F11_10_Table6", 37},
    {"UL35_2_Table6", 38},
    {"UL35_10_Table6", 39},
    {"UL30_2_Table6", 42},
    {"UL30_10_Table6", 43},
    {"LEDB1_2_Table6", 46},
    {"LEDB1_10_Table6", 47},
    {"LEDB2_2_Table6", 50},
    {"LEDB2_10_Table6", 51},
    {"LEDB3_2_Table6", 54},
    {"LEDB3_10_Table6", 55},
    {"LEDB4_2_Table6", 58},
    {"LEDB3_10_Table6", 59},
    {"LEDB5_2_Table6", 62},
    {"LEDB3_10_Table6", 63},
    {"LEDT8G_Walmart_10_Table6", 64},
    {"LEDU35T_Target_10_Table6", 65},
}};

}  // namespace

std::span<const AstmTableName> AstmTableRegistry::entries() { return kNames; }

int AstmTableRegistry::find(std::string_view name) {
  const auto found = std::find_if(kNames.begin(), kNames.end(), [name](const AstmTableName& entry) {
    return entry.name == name;
  });
  return found == kNames.end() ? -1 : found->id;
}

}  // namespace vantor::ColorTypes::Spectral
