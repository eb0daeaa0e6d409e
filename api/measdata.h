/** @file
 *  measdata: reads colour-measurement files and answers questions about them.
 *
 *  What holds for every function:
 *
 *  1. Handles. init_parser makes a handle, cleanup_parser releases it. In between it can be loaded
 *     again and again; each load replaces the file before. Before the first load and after a failed
 *     one there are no patches and no channels. (Keywords stay, see there. And a load that fails
 *     only for a full-tone colour in the keywords, which is told, leaves the patches.)
 *  2. Null. A null handle never crashes: counts, yes/no answers and numbers are 0, strings are null
 *     or, where said, empty, indices are -1, arrays of the caller stay untouched. A null name finds
 *     nothing.
 *  3. Positions. Patches, channels and steps are counted from 0. A position that does not exist,
 *     negative ones included, is answered like data that the file does not hold.
 *  4. Strings and arrays that a function returns belong to the library. They are valid until the
 *     next load of the handle or its release, or for less time where that is said, and must not be
 *     freed. Strings are bytes of the file, in whatever encoding it has, and end with a zero byte.
 *  5. Arrays that a function fills belong to the caller and must have the size that is said.
 *  6. Errors. A load tells success by its result and everything else by parse_messages. No C++
 *     exception leaves the library.
 *  7. Threads. One handle must not be used by two threads at once. Different handles are
 *     independent. The library keeps no global state and starts no threads.
 *  8. Patches and indices. A "patch" is a row of the file; functions named ..._from_patch take one.
 *     An "index" is a patch with all its repeated measurements merged: rows with the same device
 *     values. Functions named ..._from_index take one; paper white, wedges and solids are indices.
 *  9. Numbers. Lab is CIELAB, L* from 0 to 100; XYZ has Y = 100 for the white where the library
 *     computes it; wavelengths are nanometres; measured values are given as they stand in the file.
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

/** @defgroup loading Handles and loading
 *  @{ */

/** A new handle; null when there is no memory for it. Release it with cleanup_parser. */
MEASDATA_API void* init_parser(void) MEASDATA_NOEXCEPT;

/** Releases `*handle` with all that it holds and sets `*handle` to null. Does nothing when `handle`
 *  or `*handle` is null. */
MEASDATA_API void cleanup_parser(void** handle) MEASDATA_NOEXCEPT;

/** Loads the file named by a UTF-8 path. 1 on success, 0 on failure; parse_messages tells why. Only
 *  regular files are read, not pipes or devices. A null path counts as an empty one. */
MEASDATA_API int parse_file(void* handle, const char* path) MEASDATA_NOEXCEPT;

/** Loads the `length` bytes at `block`, which need not end with a zero byte and may hold some.
 *  `name` stands for the file name; it may be null. 1 on success, 0 on failure. The block is not
 *  needed any longer when the function returns. */
MEASDATA_API int parse_mem(void* handle, size_t length, const char* block,
                           const char* name) MEASDATA_NOEXCEPT;

/** Chooses how the next loads read: 0, the default, measurement files (CGATS.17 / ISO 28178 and
 *  the older form with a seven-character identifier); 1 semicolon-separated tables. Other modes
 *  are ignored. The mode stays until it is set again. */
MEASDATA_API void set_parse_mode(void* handle, int mode) MEASDATA_NOEXCEPT;

/** The mode that set_parse_mode chose. */
MEASDATA_API int get_parse_mode(void* handle) MEASDATA_NOEXCEPT;

/** What is to be told about the last load: lines of English text, or an empty string. After a
 *  failed load it is all that was noticed in the file, names from it spliced in as they are;
 *  after a successful one only what bears on the answers. Null for a null handle. */
MEASDATA_API const char* parse_messages(void* handle) MEASDATA_NOEXCEPT;

/** The merged patches of the handle, for the functions that read no more than one set of
 *  patches: they take this pointer in place of a handle and answer for the merged patches, whose
 *  positions are indices. These are num_patches, num_device_channels, has_device_data and the
 *  other has_..._data, the spectral_... and the ..._from_patch functions. All others need the
 *  handle itself. The pointer is valid as long as the handle and must not be released. */
MEASDATA_API void* pass_unique_data(void* handle) MEASDATA_NOEXCEPT;

/** The version of the library, "major.minor.bugfix", and its parts. */
MEASDATA_API const char* parser_version(void) MEASDATA_NOEXCEPT;
MEASDATA_API int parser_version_major(void) MEASDATA_NOEXCEPT;
MEASDATA_API int parser_version_minor(void) MEASDATA_NOEXCEPT;
MEASDATA_API int parser_version_bugfix(void) MEASDATA_NOEXCEPT;

/** @} */

/** @defgroup contents What the file holds
 *  @{ */

/** The number of patches: one a row of the file. */
MEASDATA_API int num_patches(void* handle) MEASDATA_NOEXCEPT;

/** The number of device channels: 4 for CMYK, 3 for RGB or CMY, 1 to 15 for other ink sets. */
MEASDATA_API int num_device_channels(void* handle) MEASDATA_NOEXCEPT;

/** 1 when patches have device values, XYZ, Lab, LCh, spectra, else 0. */
MEASDATA_API int has_device_data(void* handle) MEASDATA_NOEXCEPT;
MEASDATA_API int has_xyz_data(void* handle) MEASDATA_NOEXCEPT;
MEASDATA_API int has_lab_data(void* handle) MEASDATA_NOEXCEPT;
MEASDATA_API int has_lch_data(void* handle) MEASDATA_NOEXCEPT;
MEASDATA_API int has_spectral_data(void* handle) MEASDATA_NOEXCEPT;

/** 1 when patches have Lab or spectra, else 0. XYZ alone does not count. */
MEASDATA_API int has_color_data(void* handle) MEASDATA_NOEXCEPT;

/** 1 when patches have an identifier, a location, a name, else 0. */
MEASDATA_API int has_sample_id_data(void* handle) MEASDATA_NOEXCEPT;
MEASDATA_API int has_sample_loc_data(void* handle) MEASDATA_NOEXCEPT;
MEASDATA_API int has_sample_name_data(void* handle) MEASDATA_NOEXCEPT;

/** 1 when the device channels are exactly the fields CMYK_C, CMYK_M, CMYK_Y, CMYK_K (CMY_C, CMY_M,
 *  CMY_Y; RGB_R, RGB_G, RGB_B), else 0. Told by the last load that succeeded. */
MEASDATA_API int dev_is_cmyk(void* handle) MEASDATA_NOEXCEPT;
MEASDATA_API int dev_is_cmy(void* handle) MEASDATA_NOEXCEPT;
MEASDATA_API int dev_is_rgb(void* handle) MEASDATA_NOEXCEPT;

/** @} */

/** @defgroup wavelengths The wavelengths of the spectra
 *  @{ */

/** First and last wavelength, nm; 0.0 without spectra. */
MEASDATA_API double spectral_start(void* handle) MEASDATA_NOEXCEPT;
MEASDATA_API double spectral_end(void* handle) MEASDATA_NOEXCEPT;

/** Distance of the first two wavelengths, nm; 0.0 when there are fewer. */
MEASDATA_API double spectral_step(void* handle) MEASDATA_NOEXCEPT;

/** Number of wavelengths, which is the number of values in a spectrum. */
MEASDATA_API int spectral_size(void* handle) MEASDATA_NOEXCEPT;

/** @} */

/** @defgroup patch One patch
 *  @{ */

/** Identifier, location and name of a patch as the file gives them. An empty string, never null,
 *  when there is none. */
MEASDATA_API const char* get_id_from_patch(void* handle, int patch) MEASDATA_NOEXCEPT;
MEASDATA_API const char* get_loc_from_patch(void* handle, int patch) MEASDATA_NOEXCEPT;
MEASDATA_API const char* get_name_from_patch(void* handle, int patch) MEASDATA_NOEXCEPT;

/** Writes the device values of a patch, num_device_channels numbers, in the file's own scale
 *  (mostly 0 to 100 for inks and 0 to 255 for RGB). */
MEASDATA_API void get_dev_from_patch(void* handle, int patch, double* out) MEASDATA_NOEXCEPT;

/** Writes X, Y, Z of a patch as the file gives them: 3 numbers, in the file's own scale. */
MEASDATA_API void get_xyz_from_patch(void* handle, int patch, double* out) MEASDATA_NOEXCEPT;

/** Writes L*, a*, b* of a patch: 3 numbers. They are computed from the spectrum when the file
 *  has spectra (ASTM E308 weighting tables, D50, 2 degrees); else they are the file's own.
 *  Spectra that no weighting table fits (not at 10 or 20 nm, or not from 460 nm or less to 680
 *  nm or more) give way to the file's own Lab or, without it, are integrated with the CIE 1931
 *  colour-matching functions. Writes nothing when has_color_data is 0 or none of this can be
 *  had. */
MEASDATA_API void get_lab_from_patch(void* handle, int patch, double* out) MEASDATA_NOEXCEPT;

/** The spectrum of a patch, spectral_size numbers as they stand in the file, in the order of the
 *  wavelengths. Null when there is none. */
MEASDATA_API const double* get_spectrum_from_patch(void* handle, int patch) MEASDATA_NOEXCEPT;

/** @} */

/** @defgroup merged Merged patches
 *  @{ */

/** How far the repeated measurements of a merged patch lie apart. */
typedef struct DeStats {
  int32_t repeat_count; /**< measurements of this patch; 0 when no patch of the file repeats */
  double de_mean; /**< mean Delta E*ab (CIE 1976) of all pairs of measurements; 0 without pairs */
  double de_max;  /**< largest of them; -DBL_MAX for a single measurement in a file with
                       repeats, 0 when no patch of the file repeats */
} DeStats;

/** The number of merged patches. 0 for a file with densities, which are not merged yet. Without
 *  device values nothing is merged: every patch is an index. */
MEASDATA_API int num_indices(void* handle) MEASDATA_NOEXCEPT;

/** The name of a merged patch: that of its first measurement. Empty, never null, without one. */
MEASDATA_API const char* get_name_from_index(void* handle, int index) MEASDATA_NOEXCEPT;

/** Writes the device values of a merged patch: num_device_channels numbers. */
MEASDATA_API void get_dev_from_index(void* handle, int index, double* out) MEASDATA_NOEXCEPT;

/** Writes L*, a*, b* of a merged patch: 3 numbers, as get_lab_from_patch does, from the mean
 *  spectrum or the mean Lab of its measurements. */
MEASDATA_API void get_lab_from_index(void* handle, int index, double* out) MEASDATA_NOEXCEPT;

/** The spectrum of a merged patch, the mean of its measurements: spectral_size numbers. Null when
 *  there is none. */
MEASDATA_API const double* get_spectrum_from_index(void* handle, int index) MEASDATA_NOEXCEPT;

/** Fills the statistics of a merged patch. Lab of the measurements comes from their spectra or
 *  from the file, as for get_lab_from_patch. Leaves the record untouched when has_color_data is
 *  0 or the file has no device values to merge by. */
MEASDATA_API void get_de_stats_from_index(void* handle, int index, DeStats* out) MEASDATA_NOEXCEPT;

/** The index of the paper white, in which every channel is 0; -1 when there is none. */
MEASDATA_API int get_paperwhite_index(void* handle) MEASDATA_NOEXCEPT;

/** @} */

/** @defgroup channels Device channels
 *  @{ */

/** The name of the ink or colorant of a channel; null when nothing names it. */
MEASDATA_API const char* get_device_channel_name(void* handle, int channel) MEASDATA_NOEXCEPT;

/** How many distinct values a channel takes over all patches, the i-th of them in ascending
 *  order, and how many patches have it. 0 for a bad channel or i. */
MEASDATA_API int num_distinct_dev_values(void* handle, int channel) MEASDATA_NOEXCEPT;
MEASDATA_API double get_distinct_dev_value(void* handle, int channel, int i) MEASDATA_NOEXCEPT;
MEASDATA_API int get_distinct_dev_value_count(void* handle, int channel, int i) MEASDATA_NOEXCEPT;

/** The wedge of a channel: the merged patches in which it alone is printed, by ascending value. The
 *  number of its steps (0 for a bad channel, -1 for a null handle), and the index of one of them (0
 *  for a bad channel or step, -1 for a null handle). */
MEASDATA_API int num_wedge_steps(void* handle, int channel) MEASDATA_NOEXCEPT;
MEASDATA_API int get_wedge_index(void* handle, int channel, int step) MEASDATA_NOEXCEPT;

/** The index of a channel's solid, the last step of its wedge when its value is exactly 100; -1
 *  when there is none. */
MEASDATA_API int get_solid_index(void* handle, int channel) MEASDATA_NOEXCEPT;

/** @} */

/** @defgroup keywords Keywords
 *
 *  The keywords of the file's header. They stay when the handle is loaded again: those of a later
 *  file stand behind equal ones of an earlier file. Load each file into a fresh handle to have its
 *  own alone. Names are compared byte for byte. Several WEIGHTING_FUNCTION lines of a file are
 *  several values of one keyword; COMPUTATIONAL_PARAMETER lines are found under
 *  "COMPUTATIONAL_PARAMETERS".
 *  @{ */

/** 1 when there is such a keyword, else 0. */
MEASDATA_API int has_keyword(void* handle, const char* name) MEASDATA_NOEXCEPT;

/** The number of values of a keyword. */
MEASDATA_API int num_keyword_values(void* handle, const char* name) MEASDATA_NOEXCEPT;

/** The first value of a keyword, or the i-th; null when there is none. Mind the order of the
 *  arguments. */
MEASDATA_API const char* get_value_of_keyword(void* handle, const char* name) MEASDATA_NOEXCEPT;
MEASDATA_API const char* get_ith_value_of_keyword(void* handle, int i,
                                                  const char* name) MEASDATA_NOEXCEPT;

/** The number of all entries, each a name with a value; -1 for a null handle. */
MEASDATA_API int num_keywords(void* handle) MEASDATA_NOEXCEPT;

/** Name and value of the i-th entry: by name, and for equal names in the order of loading. An i
 *  below 0 counts as 0; null beyond the last entry. */
MEASDATA_API const char* get_keyword(void* handle, int i) MEASDATA_NOEXCEPT;
MEASDATA_API const char* get_value(void* handle, int i) MEASDATA_NOEXCEPT;

/** The value of the file's keyword COPYRIGHT, null without it: it is not about the library. */
MEASDATA_API const char* copyright(void* handle) MEASDATA_NOEXCEPT;

/** @} */

/** @defgroup instrument Instrument and sample
 *
 *  Each answer is the value of the keyword that is meant for it or, where the file lacks it, found
 *  in the free text of INSTRUMENTATION (I) or MEASUREMENT_SOURCE (M). Null when the file does not
 *  tell. The text is the file's own spelling. It is valid only until the next call of one of these
 *  functions on the same handle.
 *  @{ */

/** Maker, model and serial number of the instrument (I). */
MEASDATA_API const char* device_manufacturer(void* handle) MEASDATA_NOEXCEPT;
MEASDATA_API const char* device_model(void* handle) MEASDATA_NOEXCEPT;
MEASDATA_API const char* device_serial_number(void* handle) MEASDATA_NOEXCEPT;

/** MEASUREMENT_GEOMETRY (I), such as "45/0". */
MEASDATA_API const char* device_geometry(void* handle) MEASDATA_NOEXCEPT;

/** FILTER (M), such as "UVcut". */
MEASDATA_API const char* device_filter(void* handle) MEASDATA_NOEXCEPT;

/** POLARIZATION (I: "no" is the only answer from there). */
MEASDATA_API const char* device_polarization(void* handle) MEASDATA_NOEXCEPT;

/** MEASUREMENT_SOURCE as it stands. */
MEASDATA_API const char* device_measurement_source(void* handle) MEASDATA_NOEXCEPT;

/** FILTER_STATUS (M), such as "Status T". Null for a file with WEIGHTING_FUNCTION. */
MEASDATA_API const char* density_status(void* handle) MEASDATA_NOEXCEPT;

/** The illuminant, such as "D50", and the angle of the observer, such as "2", of the file's
 *  colorimetric values: from WEIGHTING_FUNCTION, ILLUMINANT or ILLUMINATION_NAME, OBSERVER or
 *  OBSERVER_ANGLE, (M), (I), the first that tells. */
MEASDATA_API const char* illuminant(void* handle) MEASDATA_NOEXCEPT;
MEASDATA_API const char* observer(void* handle) MEASDATA_NOEXCEPT;

/** SAMPLE_BACKING (I), such as "black". */
MEASDATA_API const char* sample_backing(void* handle) MEASDATA_NOEXCEPT;

/** COLORANT, MANUFACTURER, MATERIAL, PRINT_CONDITIONS, PROD_DATE, SERIAL and TARGET_TYPE. */
MEASDATA_API const char* sample_colorant(void* handle) MEASDATA_NOEXCEPT;
MEASDATA_API const char* sample_manufacturer(void* handle) MEASDATA_NOEXCEPT;
MEASDATA_API const char* sample_material(void* handle) MEASDATA_NOEXCEPT;
MEASDATA_API const char* sample_print_conditions(void* handle) MEASDATA_NOEXCEPT;
MEASDATA_API const char* sample_production_date(void* handle) MEASDATA_NOEXCEPT;
MEASDATA_API const char* sample_serial_number(void* handle) MEASDATA_NOEXCEPT;
MEASDATA_API const char* sample_target_type(void* handle) MEASDATA_NOEXCEPT;

/** @} */

/** @defgroup conversion Conversion
 *  @{ */

/** Converts L*, a*, b* (D50) to display sRGB: 3 numbers from 0 to 255, not rounded, each clipped to
 *  that range. Does nothing when a pointer is null; both may be the same. */
MEASDATA_API void lab_to_srgb(const double* lab, double* rgb) MEASDATA_NOEXCEPT;

/** @} */

#ifdef __cplusplus
}
#endif

#endif /* MEASDATA_H */
