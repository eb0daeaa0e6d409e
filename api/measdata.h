/** @file
 *  @brief Reads colour-measurement files and answers questions about them.
 *
 *  These rules hold for every function:
 *
 *  1. **Handles.** init_parser() creates a handle and cleanup_parser() releases it. A handle can
 *     be loaded any number of times; each load replaces the data of the previous file. Before the
 *     first load and after a failed load there are no patches and no channels. One exception is a
 *     load that fails only because of the full-tone colour of an ink (`LGOMCCHANNEL01`, ...): its
 *     patches and channels are available. Another is the list of keywords, which loads never
 *     clear; see @ref keywords.
 *  2. **Null.** A null handle is safe. Yes/no functions, counts and numbers are then 0, strings
 *     are null (identifiers, names and locations are empty), indices are -1, and arrays of the
 *     caller stay untouched. Functions that differ say so. A null keyword name matches nothing,
 *     and a null output pointer is ignored.
 *  3. **Positions.** Patches, indices, channels, steps and values are counted from 0. With a
 *     position that does not exist, strings are null or empty, arrays of the caller stay
 *     untouched, and other results are as each function says. Negative positions are safe.
 *  4. **Ownership.** The library owns the strings and arrays that it returns; never free them.
 *     They stay valid until the next load of the handle, even a failed one, or until its release.
 *     The functions of @ref instrument return strings with a shorter life. Strings are bytes of
 *     the file in its own encoding and end with a zero byte.
 *  5. **Output arrays.** The caller owns the arrays that a function fills. They must have the size
 *     that the function states.
 *  6. **Errors.** The result of a load is 1 or 0, and parse_messages() returns the details. No C++
 *     exception leaves the library.
 *  7. **Threads.** Two threads must not use one handle at the same time, not even for queries.
 *     Different handles are independent. The library has no global state and starts no threads.
 *  8. **Patches and indices.** A patch is a row of the file. Functions named `..._from_patch` take
 *     its position, from 0 to num_patches() - 1. An index is the position of a merged patch: all
 *     rows with the same device values, merged into one. Functions named `..._from_index` take it,
 *     from 0 to num_indices() - 1. Paper white, wedges and solids are indices.
 *  9. **Units.** Wavelengths are in nanometres. Lab is CIELAB with L* from 0 to 100. XYZ, device
 *     values and spectra are the numbers of the file in its own scale.
 */
#ifndef MEASDATA_H
#define MEASDATA_H

#include <stddef.h>
#include <stdint.h>

#if defined(_WIN32)
#if defined(MEASDATA_BUILDING)
#define MEASDATA_API __declspec(dllexport)
#elif defined(MEASDATA_STATIC)
#define MEASDATA_API
#else
#define MEASDATA_API __declspec(dllimport)
#endif
#else
#define MEASDATA_API __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
#define MEASDATA_NOEXCEPT noexcept
extern "C" {
#else
#define MEASDATA_NOEXCEPT
#endif

/** @defgroup loading Loading
 *  Handles, loads, messages and the version.
 *  @{ */

/** Creates a handle. Returns null when memory is exhausted. Release it with cleanup_parser(). */
MEASDATA_API void* init_parser(void) MEASDATA_NOEXCEPT;

/** Releases `*handle` with all its data and sets `*handle` to null. Does nothing when `handle` or
 *  `*handle` is null. */
MEASDATA_API void cleanup_parser(void** handle) MEASDATA_NOEXCEPT;

/** Loads a file. `path` is UTF-8. Returns 1 on success and 0 on failure; parse_messages() then
 *  says why. Only regular files are read, no pipes or devices. A null path counts as an empty
 *  path. */
MEASDATA_API int parse_file(void* handle, const char* path) MEASDATA_NOEXCEPT;

/** Loads the `length` bytes at `block`. The block needs no final zero byte, may contain zero
 *  bytes, and is not used after the function returns. `name` takes the place of the file name,
 *  from which a single channel gets its name; it may be null. Returns 1 on success and 0 on
 *  failure; parse_messages() then says why. */
MEASDATA_API int parse_mem(void* handle, size_t length, const char* block,
                           const char* name) MEASDATA_NOEXCEPT;

/** Sets how the next loads of the handle read: 0 reads measurement files (CGATS.17, ISO 28178 and
 *  the older form with a seven-character identifier), 1 reads semicolon-separated tables. Other
 *  modes are ignored. A new handle has mode 0; a load does not change the mode. */
MEASDATA_API void set_parse_mode(void* handle, int mode) MEASDATA_NOEXCEPT;

/** Returns the mode that set_parse_mode() set: 0 or 1. */
MEASDATA_API int get_parse_mode(void* handle) MEASDATA_NOEXCEPT;

/** Returns the messages of the last load, one English line each, or an empty string. A failed load
 *  reports all that the reader noticed; a successful load reports only what affects the results.
 *  The lines contain names from the file unchanged. Returns null for a null handle. */
MEASDATA_API const char* parse_messages(void* handle) MEASDATA_NOEXCEPT;

/** Returns a pointer to the merged patches of the handle. Some functions accept it in place of a
 *  handle and then answer for the merged patches: num_patches(), num_device_channels(), all
 *  `has_..._data` functions, all `spectral_...` functions and all `..._from_patch` functions.
 *  Never pass it to other functions. It stays valid until the handle is released; do not release
 *  it itself. Returns null for a null handle. */
MEASDATA_API void* pass_unique_data(void* handle) MEASDATA_NOEXCEPT;

/** Returns the version of the library as "major.minor.bugfix". The string is constant. */
MEASDATA_API const char* parser_version(void) MEASDATA_NOEXCEPT;

/** Returns the first part of the version. */
MEASDATA_API int parser_version_major(void) MEASDATA_NOEXCEPT;

/** Returns the second part of the version. */
MEASDATA_API int parser_version_minor(void) MEASDATA_NOEXCEPT;

/** Returns the third part of the version. */
MEASDATA_API int parser_version_bugfix(void) MEASDATA_NOEXCEPT;

/** @} */

/** @defgroup contents Contents
 *  What the last file contains. Before the first load every result is 0.
 *  @{ */

/** Returns the number of patches, one for each row of the file. */
MEASDATA_API int num_patches(void* handle) MEASDATA_NOEXCEPT;

/** Returns the number of device channels: 4 for CMYK, 3 for RGB and CMY, 1 for grey, up to 15 for
 *  other ink sets, 0 without device values. */
MEASDATA_API int num_device_channels(void* handle) MEASDATA_NOEXCEPT;

/** Returns 1 when the patches have device values, else 0. */
MEASDATA_API int has_device_data(void* handle) MEASDATA_NOEXCEPT;

/** Returns 1 when the file has XYZ, else 0. */
MEASDATA_API int has_xyz_data(void* handle) MEASDATA_NOEXCEPT;

/** Returns 1 when the file has Lab, else 0. */
MEASDATA_API int has_lab_data(void* handle) MEASDATA_NOEXCEPT;

/** Returns 1 when the file has LCh, else 0. No function returns the LCh values. */
MEASDATA_API int has_lch_data(void* handle) MEASDATA_NOEXCEPT;

/** Returns 1 when the file has spectra, else 0. */
MEASDATA_API int has_spectral_data(void* handle) MEASDATA_NOEXCEPT;

/** Returns 1 when the file has Lab or spectra, else 0. XYZ or LCh alone does not count. */
MEASDATA_API int has_color_data(void* handle) MEASDATA_NOEXCEPT;

/** Returns 1 when the patches have identifiers, else 0. */
MEASDATA_API int has_sample_id_data(void* handle) MEASDATA_NOEXCEPT;

/** Returns 1 when the patches have locations, else 0. */
MEASDATA_API int has_sample_loc_data(void* handle) MEASDATA_NOEXCEPT;

/** Returns 1 when the patches have names, else 0. */
MEASDATA_API int has_sample_name_data(void* handle) MEASDATA_NOEXCEPT;

/** Returns 1 when the device channels are the fields CMYK_C, CMYK_M, CMYK_Y and CMYK_K, else 0. A
 *  successful load sets the result, and so does a load that fails only because of a full-tone
 *  colour. Any other failed load keeps the previous result. */
MEASDATA_API int dev_is_cmyk(void* handle) MEASDATA_NOEXCEPT;

/** Returns 1 when the device channels are the fields CMY_C, CMY_M and CMY_Y, else 0. Loads change
 *  the result as they change dev_is_cmyk(). */
MEASDATA_API int dev_is_cmy(void* handle) MEASDATA_NOEXCEPT;

/** Returns 1 when the device channels are the fields RGB_R, RGB_G and RGB_B, else 0. Loads change
 *  the result as they change dev_is_cmyk(). */
MEASDATA_API int dev_is_rgb(void* handle) MEASDATA_NOEXCEPT;

/** @} */

/** @defgroup wavelengths Wavelengths
 *  The wavelengths of the spectra.
 *  @{ */

/** Returns the first wavelength in nm, 0.0 without spectra. */
MEASDATA_API double spectral_start(void* handle) MEASDATA_NOEXCEPT;

/** Returns the last wavelength in nm, 0.0 without spectra. */
MEASDATA_API double spectral_end(void* handle) MEASDATA_NOEXCEPT;

/** Returns the second wavelength minus the first, in nm; 0.0 with fewer than two wavelengths. */
MEASDATA_API double spectral_step(void* handle) MEASDATA_NOEXCEPT;

/** Returns the number of wavelengths, which is the number of values in each spectrum. */
MEASDATA_API int spectral_size(void* handle) MEASDATA_NOEXCEPT;

/** @} */

/** @defgroup patch Patches
 *  The values of one row of the file.
 *  @{ */

/** Returns the identifier of a patch: SAMPLE_ID of the file. The result is never null. It is empty
 *  when the file has no identifiers or the patch does not exist. */
MEASDATA_API const char* get_id_from_patch(void* handle, int patch) MEASDATA_NOEXCEPT;

/** Returns the location of a patch on the chart: SAMPLE_LOC of the file. The result is never null.
 *  It is empty when the file has no locations or the patch does not exist. */
MEASDATA_API const char* get_loc_from_patch(void* handle, int patch) MEASDATA_NOEXCEPT;

/** Returns the name of a patch: SAMPLE_NAME of the file. The result is never null. It is empty
 *  when the file has no names or the patch does not exist. */
MEASDATA_API const char* get_name_from_patch(void* handle, int patch) MEASDATA_NOEXCEPT;

/** Writes the device values of a patch: num_device_channels() numbers, never more than 15. They
 *  have the scale of the file, usually 0 to 100 for inks and 0 to 255 for RGB. Leaves `out`
 *  untouched when has_device_data() is 0 or the patch does not exist. */
MEASDATA_API void get_dev_from_patch(void* handle, int patch, double* out) MEASDATA_NOEXCEPT;

/** Writes X, Y and Z of a patch: 3 numbers in the scale of the file. Leaves `out` untouched when
 *  has_xyz_data() is 0 or the patch does not exist. */
MEASDATA_API void get_xyz_from_patch(void* handle, int patch, double* out) MEASDATA_NOEXCEPT;

/** Writes L*, a* and b* of a patch: 3 numbers. The first of these that applies is the source:
 *
 *  1. Spectra, with the weighting tables of ASTM E308 (Table 5, D50, 2 degrees). The tables need a
 *     step of 10 or 20 nm, a first wavelength that is a multiple of the step, and wavelengths from
 *     460 nm or less to 680 nm or more.
 *  2. The Lab of the file.
 *  3. Other spectra of two or more wavelengths, with the CIE 1931 colour-matching functions and
 *     D50.
 *  4. The XYZ of a file whose spectra have only one wavelength.
 *
 *  Leaves `out` untouched when the patch does not exist or none of these applies, for example when
 *  the file has only XYZ.
 */
MEASDATA_API void get_lab_from_patch(void* handle, int patch, double* out) MEASDATA_NOEXCEPT;

/** Returns the spectrum of a patch: spectral_size() numbers of the file, in the order of the
 *  wavelengths. Returns null when has_spectral_data() is 0 or the patch does not exist. */
MEASDATA_API const double* get_spectrum_from_patch(void* handle, int patch) MEASDATA_NOEXCEPT;

/** @} */

/** @defgroup merged Merged patches
 *  Rows with the same device values, merged into one patch, in the order of their first rows.
 *  @{ */

/** Statistics of the repeated measurements of a merged patch. Delta E is Delta E*ab (CIE 1976). */
typedef struct DeStats {
  int32_t repeat_count; /**< rows merged into this patch; 0 when no patch of the file repeats */
  double de_mean;       /**< mean Delta E of all pairs of these rows; 0 without pairs */
  double de_max; /**< largest Delta E of these pairs; -DBL_MAX for a patch without pairs in a file
                      with repeats, 0 when no patch of the file repeats */
} DeStats;

/** Returns the number of merged patches. Without device values nothing is merged, and every patch
 *  is an index. Returns 0 for a file with densities, because the library does not merge
 *  densities. */
MEASDATA_API int num_indices(void* handle) MEASDATA_NOEXCEPT;

/** Returns the name of a merged patch, which is the name of its first row. The result is never
 *  null. It is empty when the file has no names or the index does not exist. */
MEASDATA_API const char* get_name_from_index(void* handle, int index) MEASDATA_NOEXCEPT;

/** Writes the device values of a merged patch: num_device_channels() numbers. Leaves `out`
 *  untouched when has_device_data() is 0 or the index does not exist. */
MEASDATA_API void get_dev_from_index(void* handle, int index, double* out) MEASDATA_NOEXCEPT;

/** Writes L*, a* and b* of a merged patch: 3 numbers. They come from the mean spectrum or the mean
 *  Lab of its rows, by the rules of get_lab_from_patch(). Leaves `out` untouched when no rule
 *  applies or the index does not exist. */
MEASDATA_API void get_lab_from_index(void* handle, int index, double* out) MEASDATA_NOEXCEPT;

/** Returns the spectrum of a merged patch, the mean of its rows: spectral_size() numbers. Returns
 *  null when has_spectral_data() is 0 or the index does not exist. */
MEASDATA_API const double* get_spectrum_from_index(void* handle, int index) MEASDATA_NOEXCEPT;

/** Fills `out` with the statistics of a merged patch. The Lab values of its rows follow the rules
 *  of get_lab_from_patch(). Leaves `out` untouched when has_color_data() or has_device_data() is 0,
 *  the index does not exist or memory is exhausted.
 *
 *  The first call for an index compares all pairs of rows with different Lab values, so its time
 *  grows with the square of their number: 20,000 such rows take about half a second. Later calls
 *  for the same index return the result at once. */
MEASDATA_API void get_de_stats_from_index(void* handle, int index, DeStats* out) MEASDATA_NOEXCEPT;

/** Returns the index of the paper white, which is the merged patch with 0 in every channel.
 *  Returns -1 when there is none. */
MEASDATA_API int get_paperwhite_index(void* handle) MEASDATA_NOEXCEPT;

/** @} */

/** @defgroup channels Device channels
 *  Names, values, wedges and solids of the channels.
 *  @{ */

/** Returns the name of the ink or colorant of a channel. Returns null when the file does not name
 *  it or the channel does not exist. After a load that failed because of a full-tone colour, the
 *  name may be that of an earlier file. */
MEASDATA_API const char* get_device_channel_name(void* handle, int channel) MEASDATA_NOEXCEPT;

/** Returns the number of distinct values of a channel over all patches, or 0 when the channel does
 *  not exist. */
MEASDATA_API int num_distinct_dev_values(void* handle, int channel) MEASDATA_NOEXCEPT;

/** Returns the i-th distinct value of a channel, in ascending order. Returns 0.0 when the channel
 *  or the value does not exist. */
MEASDATA_API double get_distinct_dev_value(void* handle, int channel, int i) MEASDATA_NOEXCEPT;

/** Returns the number of patches that have the i-th distinct value of a channel. Returns 0 when
 *  the channel or the value does not exist. */
MEASDATA_API int get_distinct_dev_value_count(void* handle, int channel, int i) MEASDATA_NOEXCEPT;

/** Returns the number of steps in the wedge of a channel. The steps are the merged patches in
 *  which only this channel is not 0. Returns 0 when the channel does not exist and -1 for a null
 *  handle. */
MEASDATA_API int num_wedge_steps(void* handle, int channel) MEASDATA_NOEXCEPT;

/** Returns the index of a step of a wedge. Steps are in ascending order of the channel's value.
 *  Returns 0 when the channel or the step does not exist and -1 for a null handle. */
MEASDATA_API int get_wedge_index(void* handle, int channel, int step) MEASDATA_NOEXCEPT;

/** Returns the index of the solid of a channel: the last step of its wedge, if the value there is
 *  exactly 100. Returns -1 when there is none or the channel does not exist. */
MEASDATA_API int get_solid_index(void* handle, int channel) MEASDATA_NOEXCEPT;

/** @} */

/** @defgroup keywords Keywords
 *
 *  The keywords of the file header. Names are compared byte for byte. A file may have several
 *  WEIGHTING_FUNCTION lines; each is one value of the keyword WEIGHTING_FUNCTION. A file may also
 *  have several COMPUTATIONAL_PARAMETER lines; they are values of COMPUTATIONAL_PARAMETERS, with a
 *  final S.
 *
 *  Keywords stay when the handle is loaded again. The values of the new file follow the values of
 *  earlier files under the same name. To get the keywords of one file only, use a new handle.
 *  @{ */

/** Returns 1 when the keyword exists, else 0. */
MEASDATA_API int has_keyword(void* handle, const char* name) MEASDATA_NOEXCEPT;

/** Returns the number of values of a keyword, or 0 when it does not exist. */
MEASDATA_API int num_keyword_values(void* handle, const char* name) MEASDATA_NOEXCEPT;

/** Returns the first value of a keyword, or null when it does not exist. */
MEASDATA_API const char* get_value_of_keyword(void* handle, const char* name) MEASDATA_NOEXCEPT;

/** Returns the i-th value of a keyword, or null when there is none. Note the order of the
 *  arguments. */
MEASDATA_API const char* get_ith_value_of_keyword(void* handle, int i,
                                                  const char* name) MEASDATA_NOEXCEPT;

/** Returns the number of entries, each a name with one value. Returns -1 for a null handle. */
MEASDATA_API int num_keywords(void* handle) MEASDATA_NOEXCEPT;

/** Returns the name of the i-th entry. Entries are sorted by the bytes of their names; entries
 *  with the same name are in the order in which they were loaded. A negative `i` counts as 0.
 *  Returns null after the last entry. */
MEASDATA_API const char* get_keyword(void* handle, int i) MEASDATA_NOEXCEPT;

/** Returns the value of the i-th entry, in the order of get_keyword(). A negative `i` counts as 0.
 *  Returns null after the last entry. */
MEASDATA_API const char* get_value(void* handle, int i) MEASDATA_NOEXCEPT;

/** Returns the value of the keyword COPYRIGHT, or null without it. This is the copyright of the
 *  file, not of the library. */
MEASDATA_API const char* copyright(void* handle) MEASDATA_NOEXCEPT;

/** @} */

/** @defgroup instrument Instrument and sample
 *
 *  What the header says about the instrument, the measurement and the sample. All functions return
 *  text in the spelling of the file, or null when the file does not say.
 *
 *  **Lifetime:** treat each string as valid only until the next call of a function of this group
 *  for the same handle, because these functions share a buffer.
 *  @{ */

/** Returns the manufacturer of the instrument, found in the text of INSTRUMENTATION. */
MEASDATA_API const char* device_manufacturer(void* handle) MEASDATA_NOEXCEPT;

/** Returns the model of the instrument, found in the text of INSTRUMENTATION. */
MEASDATA_API const char* device_model(void* handle) MEASDATA_NOEXCEPT;

/** Returns the serial number of the instrument, found in the text of INSTRUMENTATION. */
MEASDATA_API const char* device_serial_number(void* handle) MEASDATA_NOEXCEPT;

/** Returns the measurement geometry, such as "45/0": the value of MEASUREMENT_GEOMETRY, or else
 *  what the text of INSTRUMENTATION says. */
MEASDATA_API const char* device_geometry(void* handle) MEASDATA_NOEXCEPT;

/** Returns the filter, such as "UVcut": the value of FILTER, or else what the text of
 *  MEASUREMENT_SOURCE says. */
MEASDATA_API const char* device_filter(void* handle) MEASDATA_NOEXCEPT;

/** Returns the polarization: the value of POLARIZATION, or "no" when the text of INSTRUMENTATION
 *  says that there was no polarization filter. */
MEASDATA_API const char* device_polarization(void* handle) MEASDATA_NOEXCEPT;

/** Returns the value of MEASUREMENT_SOURCE. */
MEASDATA_API const char* device_measurement_source(void* handle) MEASDATA_NOEXCEPT;

/** Returns the density status, such as "Status T": the value of FILTER_STATUS, or else what the
 *  text of MEASUREMENT_SOURCE says. Returns null for every file with WEIGHTING_FUNCTION. */
MEASDATA_API const char* density_status(void* handle) MEASDATA_NOEXCEPT;

/** Returns the illuminant of the file's colorimetric values, such as "D50". The first of these
 *  keywords that contains it is the source: WEIGHTING_FUNCTION, ILLUMINANT, ILLUMINATION_NAME,
 *  MEASUREMENT_SOURCE, INSTRUMENTATION. */
MEASDATA_API const char* illuminant(void* handle) MEASDATA_NOEXCEPT;

/** Returns the angle of the observer of the file's colorimetric values, such as "2". The first of
 *  these keywords that contains it is the source: WEIGHTING_FUNCTION, OBSERVER, OBSERVER_ANGLE,
 *  MEASUREMENT_SOURCE, INSTRUMENTATION. */
MEASDATA_API const char* observer(void* handle) MEASDATA_NOEXCEPT;

/** Returns the backing of the sample, such as "black": the value of SAMPLE_BACKING, or else what
 *  the text of INSTRUMENTATION says. */
MEASDATA_API const char* sample_backing(void* handle) MEASDATA_NOEXCEPT;

/** Returns the colorant: the value of COLORANT. */
MEASDATA_API const char* sample_colorant(void* handle) MEASDATA_NOEXCEPT;

/** Returns the manufacturer of the sample: the value of MANUFACTURER. */
MEASDATA_API const char* sample_manufacturer(void* handle) MEASDATA_NOEXCEPT;

/** Returns the material of the sample: the value of MATERIAL. */
MEASDATA_API const char* sample_material(void* handle) MEASDATA_NOEXCEPT;

/** Returns the print conditions: the value of PRINT_CONDITIONS. */
MEASDATA_API const char* sample_print_conditions(void* handle) MEASDATA_NOEXCEPT;

/** Returns the production date: the value of PROD_DATE. */
MEASDATA_API const char* sample_production_date(void* handle) MEASDATA_NOEXCEPT;

/** Returns the serial number of the sample: the value of SERIAL. */
MEASDATA_API const char* sample_serial_number(void* handle) MEASDATA_NOEXCEPT;

/** Returns the type of the test chart: the value of TARGET_TYPE. */
MEASDATA_API const char* sample_target_type(void* handle) MEASDATA_NOEXCEPT;

/** @} */

/** @defgroup conversion Conversion
 *  From Lab to the colour of a display.
 *  @{ */

/** Converts L*, a*, b* (D50) to display sRGB: 3 numbers in, 3 numbers out, each clipped to the
 *  range 0 to 255 and not rounded. `lab` and `rgb` may be the same array. Does nothing when either
 *  is null. */
MEASDATA_API void lab_to_srgb(const double* lab, double* rgb) MEASDATA_NOEXCEPT;

/** @} */

#ifdef __cplusplus
}
#endif

#endif /* MEASDATA_H */
