#include "dataset/device_channels.h"

#include <array>
#include <span>
#include <string>
#include <string_view>

namespace vantor::DataSet {
namespace {

using MeasData::MeasFileParser;

constexpr int kMostChannels = 15;
constexpr int kNumberedSpaceOffset = 3;

constexpr std::array<std::string_view, 4> kCmyk = {"CMYK_C", "CMYK_M", "CMYK_Y", "CMYK_K"};
constexpr std::array<std::string_view, 3> kCmy = {"CMY_C", "CMY_M", "CMY_Y"};
constexpr std::array<std::string_view, 3> kRgb = {"RGB_R", "RGB_G", "RGB_B"};
constexpr std::array<std::string_view, 1> kGray = {"GRAY"};
constexpr std::array<std::string_view, 4> kSemicolonTable = {"% Cyan", "Magenta", "Yellow",
                                                             "Black"};

// True when every name is a field; otherwise `fields` is left empty.
bool find_all(const MeasFileParser& reader, std::span<const std::string_view> names,
              std::vector<std::int32_t>& fields) {
  fields.clear();
  for (const std::string_view name : names) {
    const int field = reader.field_index(name);
    if (field == -1) {
      fields.clear();
      return false;
    }
    fields.push_back(field);
  }
  return true;
}

std::string hexadecimal(int number) { return std::string(1, "0123456789ABCDEF"[number]); }

std::string multi_colour_name(int count, int channel) {
  return hexadecimal(count) + "CLR_" + hexadecimal(channel);
}

std::string process_colour_name(int count, int channel) {
  return "PC" + std::to_string(count) + "_" + std::to_string(channel);
}

std::string decimal_multi_colour_name(int count, int channel) {
  return std::to_string(count) + "CLR_" + std::to_string(channel);
}

// The smallest count from `least` on for which the file has all channels; 0 when there is none.
template <typename NameOfChannel>
int find_family(const MeasFileParser& reader, int least, NameOfChannel name_of_channel,
                std::vector<std::int32_t>& fields) {
  for (int count = least; count <= kMostChannels; ++count) {
    fields.clear();
    for (int channel = 1; channel <= count; ++channel) {
      const int field = reader.field_index(name_of_channel(count, channel));
      if (field == -1) break;
      fields.push_back(field);
    }
    if (fields.size() == static_cast<std::size_t>(count)) return count;
  }
  fields.clear();
  return 0;
}

// The channels SPOT_1, SPOT_2, ... up to the first gap; 0 when there is none. A file with all
// fifteen is not recognised by this rule.
int find_spot_colours(const MeasFileParser& reader, std::vector<std::int32_t>& fields) {
  fields.clear();
  for (int channel = 1; channel <= kMostChannels; ++channel) {
    const int field = reader.field_index("SPOT_" + std::to_string(channel));
    if (field == -1) return channel - 1;
    fields.push_back(field);
  }
  fields.clear();
  return 0;
}

std::int32_t detect_in_semicolon_table(const MeasFileParser& reader,
                                       std::vector<std::int32_t>& fields) {
  fields.clear();
  for (const std::string_view name : kSemicolonTable) {
    fields.push_back(reader.field_index(name));
    if (fields.back() == -1) return DeviceSpace::none;
  }
  return DeviceSpace::cmyk;
}

}  // namespace

std::int32_t detect_device_channels(const MeasFileParser& reader,
                                    std::vector<std::int32_t>& device_fields) {
  if (reader.is_semicolon_table()) return detect_in_semicolon_table(reader, device_fields);
  if (find_all(reader, kCmyk, device_fields)) return DeviceSpace::cmyk;
  if (find_all(reader, kCmy, device_fields)) return DeviceSpace::cmy;
  if (find_all(reader, kRgb, device_fields)) return DeviceSpace::rgb;
  if (find_all(reader, kGray, device_fields)) return DeviceSpace::gray;

  int count = find_family(reader, 1, multi_colour_name, device_fields);
  if (count == 0) count = find_family(reader, 1, process_colour_name, device_fields);
  if (count == 0) count = find_spot_colours(reader, device_fields);
  if (count == 0) count = find_family(reader, 10, decimal_multi_colour_name, device_fields);
  return count == 0 ? DeviceSpace::none : count + kNumberedSpaceOffset;
}

}  // namespace vantor::DataSet
