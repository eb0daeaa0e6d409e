/* measdata: reads colour-measurement files and answers questions about them.
 *
 * What holds for every function:
 *
 * 1. Handles. init_parser makes a handle, cleanup_parser releases it. In between it can be loaded
 *    again and again; each load replaces the file before. Before the first load and after a failed
 *    one every count is 0 and every has_... is 0.
 * 2. Null. A null handle never crashes: counts, yes/no answers and numbers are 0, strings are null
 *    or, where said, empty, indices are -1, arrays of the caller stay untouched.
 * 3. Positions. Patches, channels and steps are counted from 0. A position that does not exist,
 *    negative ones included, is answered like data that the file does not hold.
 * 4. Strings and arrays that a function returns belong to the library. They are valid until the
 *    next load of the handle or its release, and must not be freed. Strings are bytes of the file,
 *    in whatever encoding it has, and end with a zero byte.
 * 5. Arrays that a function fills belong to the caller and must have the size that is said.
 * 6. Errors. A load tells success by its result and everything else by parse_messages. No C++
 *    exception leaves the library.
 * 7. Threads. One handle must not be used by two threads at once. Different handles are
 *    independent. The library keeps no global state and starts no threads.
 * 8. Numbers. Lab is CIELAB, L* from 0 to 100; XYZ has Y = 100 for the white where the library
 *    computes it; wavelengths are nanometres; measured values are given as they stand in the file.
 */
#ifndef MEASDATA_H
#define MEASDATA_H

#include <stddef.h>

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

/* ---- Handles and loading ---------------------------------------------------------------- */

/** A new handle; null when there is no memory for it. Release it with cleanup_parser. */
MEASDATA_API void* init_parser(void) MEASDATA_NOEXCEPT;

/** Releases *handle with all that it holds and sets *handle to null. Does nothing when `handle` or
 *  *handle is null. */
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

/** What was noticed during the last load: lines of English text, each ending with a line feed, or
 *  an empty string. Names from the file stand in it as they are. Null for a null handle. */
MEASDATA_API const char* parse_messages(void* handle) MEASDATA_NOEXCEPT;

/** The version of the library, "major.minor.bugfix", and its parts. */
MEASDATA_API const char* parser_version(void) MEASDATA_NOEXCEPT;
MEASDATA_API int parser_version_major(void) MEASDATA_NOEXCEPT;
MEASDATA_API int parser_version_minor(void) MEASDATA_NOEXCEPT;
MEASDATA_API int parser_version_bugfix(void) MEASDATA_NOEXCEPT;

/* ---- What the file holds ---------------------------------------------------------------- */

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

/* ---- The wavelengths of the spectra ----------------------------------------------------- */

/** First and last wavelength, nm; 0.0 without spectra. */
MEASDATA_API double spectral_start(void* handle) MEASDATA_NOEXCEPT;
MEASDATA_API double spectral_end(void* handle) MEASDATA_NOEXCEPT;

/** Distance of the first two wavelengths, nm; 0.0 when there are fewer. */
MEASDATA_API double spectral_step(void* handle) MEASDATA_NOEXCEPT;

/** Number of wavelengths, which is the number of values in a spectrum. */
MEASDATA_API int spectral_size(void* handle) MEASDATA_NOEXCEPT;

/* ---- One patch ---------------------------------------------------------------------------- */

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

/** Writes L*, a*, b* of a patch: 3 numbers. They are computed from the spectrum when the file has
 *  spectra (ASTM E308, D50, 2 degrees); else they are the file's own. Where no weighting table fits
 *  the spectra, the file's own Lab is given, or Lab computed from its XYZ. Writes nothing when
 *  has_color_data is 0 or nothing of this is held. */
MEASDATA_API void get_lab_from_patch(void* handle, int patch, double* out) MEASDATA_NOEXCEPT;

/** The spectrum of a patch, spectral_size numbers as they stand in the file, in the order of the
 *  wavelengths. Null when there is none. */
MEASDATA_API const double* get_spectrum_from_patch(void* handle, int patch) MEASDATA_NOEXCEPT;

/* ---- Conversion --------------------------------------------------------------------------- */

/** Converts L*, a*, b* (D50) to display sRGB: 3 numbers from 0 to 255, not rounded, each clipped to
 *  that range. Does nothing when a pointer is null; both may be the same. */
MEASDATA_API void lab_to_srgb(const double* lab, double* rgb) MEASDATA_NOEXCEPT;

#ifdef __cplusplus
}
#endif

#endif /* MEASDATA_H */
