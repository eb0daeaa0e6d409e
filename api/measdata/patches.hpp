/** @file
 *  @brief Patches, merged patches and channels of measdata.hpp, which includes this file.
 */
#ifndef MEASDATA_PATCHES_HPP
#define MEASDATA_PATCHES_HPP

#include "values.hpp"

namespace measdata {

/** A row of the file. */
class patch {
 public:
  /** The patch at a position of a handle. */
  patch(void* handle, int position) noexcept : handle_(handle), position_(position) {}

  /** The position in the file, from 0. */
  int position() const noexcept { return position_; }
  /** SAMPLE_ID of the file. */
  std::string_view id() const noexcept {
    return detail::text_or_empty(::get_id_from_patch(handle_, position_));
  }
  /** SAMPLE_LOC of the file: the place on the chart. */
  std::string_view location() const noexcept {
    return detail::text_or_empty(::get_loc_from_patch(handle_, position_));
  }
  /** SAMPLE_NAME of the file. */
  std::string_view name() const noexcept {
    return detail::text_or_empty(::get_name_from_patch(handle_, position_));
  }
  /** The value of each channel, in the scale of the file. */
  std::optional<device_values> device() const noexcept {
    return detail::device(handle_, position_, ::get_dev_from_patch);
  }
  /** X, Y and Z in the scale of the file. */
  std::optional<xyz_values> xyz() const noexcept {
    return detail::numbers<3>(handle_, position_, ::get_xyz_from_patch);
  }
  /** L*, a* and b* from the spectrum, or else those of the file; get_lab_from_patch() has the
   *  rules. */
  std::optional<lab_values> lab() const noexcept {
    return detail::numbers<3>(handle_, position_, ::get_lab_from_patch);
  }
  /** One number for each wavelength. */
  std::optional<span<const double>> spectrum() const noexcept {
    return detail::spectrum(handle_, ::get_spectrum_from_patch(handle_, position_));
  }

 private:
  void* handle_;
  int position_;
};

/** All rows with the same device values, merged into one patch. Texts are those of the first row,
 *  Lab and spectra are means. */
class merged_patch {
 public:
  /** The merged patch at an index of a handle. */
  merged_patch(void* handle, int index) noexcept : handle_(handle), index_(index) {}

  /** The position among the merged patches, from 0. */
  int index() const noexcept { return index_; }
  std::string_view id() const noexcept { return unique().id(); }
  std::string_view location() const noexcept { return unique().location(); }
  std::string_view name() const noexcept {
    return detail::text_or_empty(::get_name_from_index(handle_, index_));
  }
  /** The value of each channel, in the scale of the file. */
  std::optional<device_values> device() const noexcept {
    return detail::device(handle_, index_, ::get_dev_from_index);
  }
  /** X, Y and Z, if the file has no rows to merge. They are not averaged. */
  std::optional<xyz_values> xyz() const noexcept { return unique().xyz(); }
  /** L*, a* and b* of the mean spectrum or the mean Lab, by the rules of get_lab_from_patch(). */
  std::optional<lab_values> lab() const noexcept {
    return detail::numbers<3>(handle_, index_, ::get_lab_from_index);
  }
  /** One number for each wavelength. */
  std::optional<span<const double>> spectrum() const noexcept {
    return detail::spectrum(handle_, ::get_spectrum_from_index(handle_, index_));
  }
  /** The colour differences (Delta E*ab) between the rows. The first call compares all pairs of
   *  rows; get_de_stats_from_index() tells the time. */
  std::optional<DeStats> repeat_statistics() const noexcept {
    DeStats statistics = {-1, 0.0, 0.0};
    ::get_de_stats_from_index(handle_, index_, &statistics);
    if (statistics.repeat_count < 0) return std::nullopt;
    return statistics;
  }

 private:
  patch unique() const noexcept { return {::pass_unique_data(handle_), index_}; }

  void* handle_;
  int index_;
};

namespace detail {

struct patch_source {
  void* handle = nullptr;
  patch operator()(int i) const noexcept { return {handle, i}; }
};

struct merged_source {
  void* handle = nullptr;
  merged_patch operator()(int i) const noexcept { return {handle, i}; }
};

struct wedge_source {
  void* handle = nullptr;
  int channel = 0;
  merged_patch operator()(int i) const noexcept {
    const bool exists = i < ::num_wedge_steps(handle, channel);
    return {handle, exists ? ::get_wedge_index(handle, channel, i) : -1};
  }
};

struct distinct_value_source {
  void* handle = nullptr;
  int channel = 0;
  distinct_value operator()(int i) const noexcept {
    return {::get_distinct_dev_value(handle, channel, i),
            ::get_distinct_dev_value_count(handle, channel, i)};
  }
};

inline std::optional<merged_patch> merged(void* handle, int index) noexcept {
  if (index < 0) return std::nullopt;
  return merged_patch(handle, index);
}

}  // namespace detail

/** A device channel: an ink, or red, green or blue. */
class channel {
 public:
  /** The channel at a position of a handle. */
  channel(void* handle, int position) noexcept : handle_(handle), position_(position) {}

  /** The position among the channels, from 0. */
  int position() const noexcept { return position_; }
  /** The name of the ink or colorant. */
  optional_text name() const noexcept {
    return detail::text(::get_device_channel_name(handle_, position_));
  }
  /** The distinct values of the channel over all patches, in ascending order. */
  range<detail::distinct_value_source> distinct_values() const noexcept {
    return {{handle_, position_}, ::num_distinct_dev_values(handle_, position_)};
  }
  /** The merged patches in which only this channel is not 0, in ascending order of its value. */
  range<detail::wedge_source> wedge() const noexcept {
    return {{handle_, position_}, ::num_wedge_steps(handle_, position_)};
  }
  /** The last step of the wedge, if the value there is exactly 100. */
  std::optional<merged_patch> solid() const noexcept {
    return detail::merged(handle_, ::get_solid_index(handle_, position_));
  }

 private:
  void* handle_;
  int position_;
};

namespace detail {

struct channel_source {
  void* handle = nullptr;
  channel operator()(int i) const noexcept { return {handle, i}; }
};

}  // namespace detail

}  // namespace measdata

#endif  // MEASDATA_PATCHES_HPP
