// Finds the fields that hold the device values of a patch.
#ifndef MEASDATA_DATASET_DEVICE_CHANNELS_H
#define MEASDATA_DATASET_DEVICE_CHANNELS_H

#include "measdata/meas_file_parser.h"

#include <cstdint>
#include <vector>

namespace vantor::DataSet {

/// Codes of the device channel sets; n numbered channels, 1 to 15, have the code n + 3.
namespace DeviceSpace {
inline constexpr std::int32_t none = -1;
inline constexpr std::int32_t cmyk = 0;
inline constexpr std::int32_t cmy = 1;
inline constexpr std::int32_t rgb = 2;
inline constexpr std::int32_t gray = 3;
}  // namespace DeviceSpace

/// Sets `device_fields` to the field indices of the channels, in channel order, and returns the
/// code of the channel set. Of a semicolon table that lacks one of its four columns the channels
/// before it stay, followed by a -1.
std::int32_t detect_device_channels(const MeasData::MeasFileParser& reader,
                                    std::vector<std::int32_t>& device_fields);

}  // namespace vantor::DataSet

#endif  // MEASDATA_DATASET_DEVICE_CHANNELS_H
