#include "measdata/known_names.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace vantor::MeasData {
namespace {

template <std::size_t count>
constexpr std::array<std::string_view, count> sorted(std::array<std::string_view, count> names) {
  std::sort(names.begin(), names.end());
  return names;
}

template <std::size_t count>
bool contains(const std::array<std::string_view, count>& sorted_names, std::string_view name) {
  return std::binary_search(sorted_names.begin(), sorted_names.end(), name);
}

// Both kinds of file know the first lists, standard files the second ones besides.
constexpr auto kKeywords = sorted(std::to_array<std::string_view>({
    "MANUFACTURER",
    "PROD_DATE",
    "SERIAL",
    "INSTRUMENTATION",
    "MEASUREMENT_SOURCE",
    "PRINT_CONDITIONS",
}));

constexpr auto kStandardKeywords = sorted(std::to_array<std::string_view>({
    "MEASUREMENT_GEOMETRY",
    "FILTER",
    "POLARIZATION",
    "WEIGHTING_FUNCTION",
    "COMPUTATIONAL_PARAMETER",
    "SAMPLE_BACKING",
    "PROCESSCOLOR_ID",
    "SPOT_ID",
    "COPYRIGHT",
    "TABLE_DESCRIPTOR",
    "TABLE_NAME",
}));

// clang-format off
constexpr auto kFields = sorted(std::to_array<std::string_view>({
    "SAMPLE_ID", "STRING",
    "CMYK_C", "CMYK_M", "CMYK_Y", "CMYK_K",
    "D_RED", "D_GREEN", "D_BLUE", "D_VIS",
    "RGB_R", "RGB_G", "RGB_B",
    "SPECTRAL_NM", "SPECTRAL_PCT",
    "XYZ_X", "XYZ_Y", "XYZ_Z",
    "XYY_X", "XYY_Y",
    "LAB_L", "LAB_A", "LAB_B", "LAB_C", "LAB_H", "LAB_DE",
    "STDEV_X", "STDEV_Y", "STDEV_Z", "STDEV_L", "STDEV_A", "STDEV_B",
}));

// PCi_n stands for channel i of a process with n colours.
constexpr auto kStandardFields = sorted(std::to_array<std::string_view>({
    "SAMPLE_NO",
    "PC1_1",
    "PC1_2", "PC2_2",
    "PC1_3", "PC2_3", "PC3_3",
    "PC1_4", "PC2_4", "PC3_4", "PC4_4",
    "PC1_5", "PC2_5", "PC3_5", "PC4_5", "PC5_5",
    "PC1_6", "PC2_6", "PC3_6", "PC4_6", "PC5_6", "PC6_6",
    "PC1_7", "PC2_7", "PC3_7", "PC4_7", "PC5_7", "PC6_7", "PC7_7",
    "SPOT_1", "SPOT_2", "SPOT_3", "SPOT_4", "SPOT_5", "SPOT_6", "SPOT_7", "SPOT_8",
    "SPOT_9", "SPOT_10", "SPOT_11", "SPOT_12", "SPOT_13", "SPOT_14", "SPOT_15",
    "D_MAJOR_FILTER", "SPECTRAL_DEC",
    "LAB_DE_94", "LAB_DE_CMC", "LAB_DE_2000",
    "MEAN_DE", "CHI_SQD_PAR",
}));
// clang-format on

static_assert(kKeywords.size() == 6 && kStandardKeywords.size() == 11);
static_assert(kFields.size() == 32 && kStandardFields.size() == 51);

}  // namespace

bool is_known_keyword(FileKind kind, std::string_view name) {
  return contains(kKeywords, name) ||
         (kind == FileKind::standard && contains(kStandardKeywords, name));
}

bool is_known_field(FileKind kind, std::string_view name) {
  return contains(kFields, name) || (kind == FileKind::standard && contains(kStandardFields, name));
}

}  // namespace vantor::MeasData
