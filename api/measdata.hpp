/** @file
 *  @brief measdata.h for C++17 and later: ownership, ranges, optional answers.
 *
 *  The header only calls the functions of measdata.h, so the rules there hold here as well, and a
 *  function without a comment is described there under the same name:
 *
 *  1. **Ownership.** A measdata::chart owns a handle or borrows one. What it returns is a view of
 *     it: patches, channels, ranges, texts and spectra. Patches, channels and ranges stay valid
 *     until the handle is released, also when the chart is moved, and answer about the file that
 *     was loaded last. Texts and spectra stay valid until the next load or the release, but the
 *     texts of "Instrument and sample" only until the next call of a function of that group. Texts
 *     end with a zero byte.
 *  2. **Memory.** No function allocates memory outside the library, except when it throws.
 *  3. **Missing data.** What a file may lack is a std::optional. Names, locations and identifiers
 *     are empty instead. A patch, index or channel that does not exist answers that way, too, and
 *     so does a chart without a handle.
 *  4. **Errors.** chart::load() throws measdata::load_error, chart::try_load() returns a
 *     measdata::result. Nothing else throws. Without exceptions (-fno-exceptions) the throwing
 *     functions are left out.
 *  5. **Threads.** Two threads must not use one handle at the same time, not even for queries.
 */
#ifndef MEASDATA_HPP
#define MEASDATA_HPP

#include "measdata.h"
#include "measdata/patches.hpp"
#include "measdata/values.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#ifdef __cpp_exceptions
#include <stdexcept>
#endif

namespace measdata {

/** How files are read. */
enum class parse_mode {
  measurement_file = 0, /**< CGATS.17, ISO 28178 and the form with a seven-character identifier */
  semicolon_table = 1   /**< semicolon-separated tables */
};

#ifdef __cpp_exceptions
/** A failed load; what() returns the messages. */
class load_error : public std::runtime_error {
 public:
  explicit load_error(std::string_view messages) : std::runtime_error(std::string(messages)) {}
};
#endif

/** The answer of a load that does not throw. After a failure it holds the chart, too, but without
 *  patches and channels, except when the load failed only because of a full-tone colour. */
template <class Value>
class result {
 public:
  result(Value value, bool has_value) noexcept : value_(std::move(value)), has_value_(has_value) {}

  /** Whether the load succeeded. */
  bool has_value() const noexcept { return has_value_; }
  explicit operator bool() const noexcept { return has_value_; }
  /** The chart as the load left it. */
  Value& value() & noexcept { return value_; }
  const Value& value() const& noexcept { return value_; }
  Value&& value() && noexcept { return std::move(value_); }
  Value& operator*() noexcept { return value_; }
  const Value& operator*() const noexcept { return value_; }
  Value* operator->() noexcept { return &value_; }
  const Value* operator->() const noexcept { return &value_; }
  /** The messages of the load, one line each. Without memory for a handle: "Out of memory". */
  std::string_view messages() const noexcept {
    return value_ ? value_.messages() : std::string_view("Out of memory\n");
  }

 private:
  Value value_;
  bool has_value_;
};

namespace detail {

struct keyword_source {
  void* handle = nullptr;
  keyword operator()(int i) const noexcept {
    return {text_or_empty(::get_keyword(handle, i)), text_or_empty(::get_value(handle, i))};
  }
};

struct keyword_value_source {
  void* handle = nullptr;
  const char* name = nullptr;
  std::string_view operator()(int i) const noexcept {
    return text_or_empty(::get_ith_value_of_keyword(handle, i, name));
  }
};

}  // namespace detail

/** A handle with the contents of the file that was loaded last. It can be moved, not copied. */
class chart {
 public:
  /** A chart without a handle. */
  chart() noexcept = default;
  chart(chart&& other) noexcept { swap(other); }
  chart& operator=(chart&& other) noexcept {
    chart(std::move(other)).swap(*this);
    return *this;
  }
  chart(const chart&) = delete;
  chart& operator=(const chart&) = delete;
  ~chart() {
    if (is_owner_) ::cleanup_parser(&handle_);
  }
  void swap(chart& other) noexcept {
    std::swap(handle_, other.handle_);
    std::swap(is_owner_, other.is_owner_);
  }

  /** @name Handles
   *  @{ */

  /** Creates a handle and owns it. The chart has no handle when memory is exhausted. */
  static chart create() noexcept { return own(::init_parser()); }
  /** Owns a handle of init_parser() and releases it at the end. */
  static chart own(void* handle) noexcept { return {handle, true}; }
  /** Uses a handle that something else releases later, such as that of mk_chart_handle(). */
  static chart borrow(void* handle) noexcept { return {handle, false}; }

  /** The handle for functions of measdata.h, or null. */
  void* handle() const noexcept { return handle_; }
  /** Whether the chart releases its handle. */
  bool is_owner() const noexcept { return is_owner_; }
  /** Whether there is a handle. */
  explicit operator bool() const noexcept { return handle_ != nullptr; }
  /** Returns the handle without releasing it. The chart has none any more. */
  void* release() noexcept {
    is_owner_ = false;
    return std::exchange(handle_, nullptr);
  }

  /** @} */

  /** @name Loading
   *  `path` is UTF-8. A block may contain zero bytes and is not used after the function returns;
   *  `name` takes the place of the file name, from which a single channel gets its name.
   *  @{ */

#ifdef __cpp_exceptions
  /** Loads a file into a new chart. Throws load_error. */
  static chart load(zstring path, parse_mode mode = parse_mode::measurement_file) {
    return value_of(try_load(path, mode));
  }
  /** Loads a block of memory into a new chart. Throws load_error. */
  static chart load_block(std::string_view block, zstring name = nullptr,
                          parse_mode mode = parse_mode::measurement_file) {
    return value_of(try_load_block(block, name, mode));
  }
#endif
  /** Loads a file into a new chart. */
  static result<chart> try_load(zstring path,
                                parse_mode mode = parse_mode::measurement_file) noexcept {
    chart loaded = create();
    loaded.set_mode(mode);
    const bool is_loaded = loaded.read(path);
    return {std::move(loaded), is_loaded};
  }
  /** Loads a block of memory into a new chart. */
  static result<chart> try_load_block(std::string_view block, zstring name = nullptr,
                                      parse_mode mode = parse_mode::measurement_file) noexcept {
    chart loaded = create();
    loaded.set_mode(mode);
    const bool is_loaded = loaded.read_block(block, name);
    return {std::move(loaded), is_loaded};
  }

  /** Loads a file into this chart, in place of the previous one. Keywords stay. Returns whether the
   *  load succeeded. */
  bool read(zstring path) noexcept { return ::parse_file(handle_, path.c_str()) == 1; }
  /** Loads a block of memory into this chart, in place of the previous file. Keywords stay. Returns
   *  whether the load succeeded. */
  bool read_block(std::string_view block, zstring name = nullptr) noexcept {
    return ::parse_mem(handle_, block.size(), block.data(), name.c_str()) == 1;
  }
  /** Sets how the next loads read. */
  void set_mode(parse_mode mode) noexcept { ::set_parse_mode(handle_, static_cast<int>(mode)); }
  parse_mode mode() const noexcept { return static_cast<parse_mode>(::get_parse_mode(handle_)); }
  /** The messages of the last load, one line each, or an empty text. */
  std::string_view messages() const noexcept {
    return detail::text_or_empty(::parse_messages(handle_));
  }

  /** @} */

  /** @name Contents
   *  @{ */

  /** The rows of the file. */
  range<detail::patch_source> patches() const noexcept {
    return {{handle_}, ::num_patches(handle_)};
  }
  /** The merged patches, in the order of their first rows. Empty for a file with densities. */
  range<detail::merged_source> merged_patches() const noexcept {
    return {{handle_}, ::num_indices(handle_)};
  }
  /** The device channels. */
  range<detail::channel_source> channels() const noexcept {
    return {{handle_}, ::num_device_channels(handle_)};
  }
  /** The merged patch with 0 in every channel. */
  std::optional<merged_patch> paper_white() const noexcept {
    return detail::merged(handle_, ::get_paperwhite_index(handle_));
  }
  /** The wavelengths of the spectra. */
  std::optional<wavelength_range> wavelengths() const noexcept {
    if (!has_spectral_data()) return std::nullopt;
    return wavelength_range{::spectral_start(handle_), ::spectral_end(handle_),
                            ::spectral_step(handle_), detail::count(::spectral_size(handle_))};
  }

  bool has_device_data() const noexcept { return ::has_device_data(handle_) == 1; }
  bool has_xyz_data() const noexcept { return ::has_xyz_data(handle_) == 1; }
  bool has_lab_data() const noexcept { return ::has_lab_data(handle_) == 1; }
  /** Whether the file has LCh, which no function returns. */
  bool has_lch_data() const noexcept { return ::has_lch_data(handle_) == 1; }
  bool has_spectral_data() const noexcept { return ::has_spectral_data(handle_) == 1; }
  /** Whether the file has Lab or spectra. XYZ or LCh alone does not count. */
  bool has_color_data() const noexcept { return ::has_color_data(handle_) == 1; }
  bool has_sample_id_data() const noexcept { return ::has_sample_id_data(handle_) == 1; }
  bool has_sample_loc_data() const noexcept { return ::has_sample_loc_data(handle_) == 1; }
  bool has_sample_name_data() const noexcept { return ::has_sample_name_data(handle_) == 1; }
  /** Whether the channels are CMYK_C, CMYK_M, CMYK_Y and CMYK_K. */
  bool is_cmyk() const noexcept { return ::dev_is_cmyk(handle_) == 1; }
  /** Whether the channels are CMY_C, CMY_M and CMY_Y. */
  bool is_cmy() const noexcept { return ::dev_is_cmy(handle_) == 1; }
  /** Whether the channels are RGB_R, RGB_G and RGB_B. */
  bool is_rgb() const noexcept { return ::dev_is_rgb(handle_) == 1; }

  /** @} */

  /** @name Keywords
   *  The keywords of the header, of all files that were loaded into the handle.
   *  @{ */

  /** The entries, sorted by the bytes of their names. */
  range<detail::keyword_source> keywords() const noexcept {
    return {{handle_}, ::num_keywords(handle_)};
  }
  bool has_keyword(zstring name) const noexcept {
    return ::has_keyword(handle_, name.c_str()) == 1;
  }
  /** The first value of a keyword. */
  optional_text keyword_value(zstring name) const noexcept {
    return detail::text(::get_value_of_keyword(handle_, name.c_str()));
  }
  /** All values of a keyword. The range uses `name`, which must stay valid. */
  range<detail::keyword_value_source> keyword_values(zstring name) const noexcept {
    return {{handle_, name.c_str()}, ::num_keyword_values(handle_, name.c_str())};
  }
  /** The value of COPYRIGHT. */
  optional_text copyright() const noexcept { return answer(::copyright); }

  /** @} */

  /** @name Instrument and sample
   *  Texts in the spelling of the file. measdata.h says which keywords they come from.
   *
   *  **Lifetime:** each text is valid only until the next call of a function of this group for the
   *  same handle.
   *  @{ */

  optional_text device_manufacturer() const noexcept { return answer(::device_manufacturer); }
  optional_text device_model() const noexcept { return answer(::device_model); }
  optional_text device_serial_number() const noexcept { return answer(::device_serial_number); }
  /** The measurement geometry, such as "45/0". */
  optional_text device_geometry() const noexcept { return answer(::device_geometry); }
  /** The filter, such as "UVcut". */
  optional_text device_filter() const noexcept { return answer(::device_filter); }
  optional_text device_polarization() const noexcept { return answer(::device_polarization); }
  optional_text device_measurement_source() const noexcept {
    return answer(::device_measurement_source);
  }
  /** The density status, such as "Status T". */
  optional_text density_status() const noexcept { return answer(::density_status); }
  /** The illuminant of the colorimetric values, such as "D50". */
  optional_text illuminant() const noexcept { return answer(::illuminant); }
  /** The angle of the observer in degrees, such as "2". */
  optional_text observer() const noexcept { return answer(::observer); }
  /** The backing of the sample, such as "black". */
  optional_text sample_backing() const noexcept { return answer(::sample_backing); }
  optional_text sample_colorant() const noexcept { return answer(::sample_colorant); }
  optional_text sample_manufacturer() const noexcept { return answer(::sample_manufacturer); }
  optional_text sample_material() const noexcept { return answer(::sample_material); }
  optional_text sample_print_conditions() const noexcept {
    return answer(::sample_print_conditions);
  }
  optional_text sample_production_date() const noexcept { return answer(::sample_production_date); }
  optional_text sample_serial_number() const noexcept { return answer(::sample_serial_number); }
  /** The type of the test chart. */
  optional_text sample_target_type() const noexcept { return answer(::sample_target_type); }

  /** @} */

 private:
  chart(void* handle, bool is_owner) noexcept
      : handle_(handle), is_owner_(is_owner && handle != nullptr) {}

  template <class Function>
  optional_text answer(Function function) const noexcept {
    return detail::text(function(handle_));
  }
#ifdef __cpp_exceptions
  static chart value_of(result<chart> loaded) {
    if (!loaded) throw load_error(loaded.messages());
    return std::move(loaded).value();
  }
#endif

  void* handle_ = nullptr;
  bool is_owner_ = false;
};

/** The version of the library, "major.minor.bugfix". The text is constant. */
inline std::string_view version() noexcept { return ::parser_version(); }
inline int version_major() noexcept { return ::parser_version_major(); }
inline int version_minor() noexcept { return ::parser_version_minor(); }
inline int version_bugfix() noexcept { return ::parser_version_bugfix(); }

/** The display sRGB of a Lab (D50), each clipped to the range 0 to 255 and not rounded. */
inline srgb_values lab_to_srgb(const lab_values& lab) noexcept {
  srgb_values rgb{};
  ::lab_to_srgb(lab.data(), rgb.data());
  return rgb;
}

}  // namespace measdata

#endif  // MEASDATA_HPP
