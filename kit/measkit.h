/** @file
 *  measkit: opens colour-measurement files as they really are.
 *
 *  Real files deviate from the format: counts are wrong, spectra are in percent, Lab is missing,
 * a spreadsheet removed the frame. measkit turns each table of a file into a plain measurement
 * file. Its findings report the deviations and the repairs. Each table gets a handle for the
 * functions of measdata.h. A file that needs no repair is not changed.
 *
 *  These rules hold for every function:
 *
 *  1. A document is opened by mk_open_file or mk_open_block and released by mk_close. It holds one
 *     chart for each table of the file, the main one first. Charts and findings count from 0.
 *  2. A null document holds no charts: counts are 0, strings and handles are null.
 *  3. A chart or finding that does not exist answers like one of a null document.
 *  4. Strings and handles belong to the document. They are valid until mk_close. Strings end with a
 *     zero byte; they are UTF-8.
 *  5. No C++ exception leaves the library. A function that runs out of memory returns null or 0.
 *  6. Two threads must not use one document at the same time. Different documents are independent.
 */
#ifndef MEASKIT_H
#define MEASKIT_H

#include <stddef.h>

#if defined(_WIN32)
#if defined(MEASKIT_BUILDING)
#define MEASKIT_API __declspec(dllexport)
#elif defined(MEASKIT_STATIC)
#define MEASKIT_API
#else
#define MEASKIT_API __declspec(dllimport)
#endif
#else
#define MEASKIT_API __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
#define MEASKIT_NOEXCEPT noexcept
extern "C" {
#else
#define MEASKIT_NOEXCEPT
#endif

/** @defgroup documents Documents
 *  @{ */

/** A file with its charts and findings. */
typedef struct mk_document mk_document;

/** How a file is opened. */
typedef enum mk_options {
  MK_REPAIR = 0, /**< repair what deviates, and say so in findings */
  MK_AS_IS = 1   /**< one chart, as measdata.h reads the file, without findings of repairs */
} mk_options;

/** Opens the file named by a UTF-8 path. Returns null only without memory: a file that cannot be
 *  read gives a document without charts whose finding says why. A null path counts as an empty one.
 *  Only regular files are read. */
MEASKIT_API mk_document* mk_open_file(const char* path, mk_options options) MEASKIT_NOEXCEPT;

/** Opens the `length` bytes at `block`, which may hold zero bytes. `name` stands for the file name;
 *  it may be null. The block is copied. Returns null only without memory. */
MEASKIT_API mk_document* mk_open_block(size_t length, const char* block, const char* name,
                                       mk_options options) MEASKIT_NOEXCEPT;

/** Releases `*document` with all that belongs to it and sets `*document` to null. Does nothing when
 *  `document` or `*document` is null. */
MEASKIT_API void mk_close(mk_document** document) MEASKIT_NOEXCEPT;

/** The version of the library, "major.minor.bugfix". */
MEASKIT_API const char* mk_version(void) MEASKIT_NOEXCEPT;

/** @} */

/** @defgroup charts Charts
 *  @{ */

/** The number of charts: one for each table of the file. */
MEASKIT_API int mk_num_charts(const mk_document* document) MEASKIT_NOEXCEPT;

/** The name of a chart: that of the document and, for a further table, its number from 1. */
MEASKIT_API const char* mk_chart_name(const mk_document* document, int chart) MEASKIT_NOEXCEPT;

/** The chart's handle for all functions of measdata.h. It has the chart's plain text loaded. Do not
 *  release it with cleanup_parser. Loading something else into it changes the answers of mk_json
 * and mk_html.
 *
 *  The library does not merge repeats of a file with densities. For a chart with densities and
 * other colours the handle therefore has the plain text without densities; mk_plain_text keeps
 * them. */
MEASKIT_API void* mk_chart_handle(const mk_document* document, int chart) MEASKIT_NOEXCEPT;

/** The chart as a plain measurement file. Writes its size in bytes to `*length`, unless that is
 * null. A file that needs no repair is returned byte for byte. */
MEASKIT_API const char* mk_plain_text(mk_document* document, int chart,
                                      size_t* length) MEASKIT_NOEXCEPT;

/** @} */

/** @defgroup findings Findings
 *
 *  Each finding is about a chart or, with the chart -1, about the file as a whole. A list holds at
 *  most 100; further ones are counted.
 *  @{ */

/** What a finding means for the reader. */
typedef enum mk_severity {
  MK_NOTE = 0,     /**< worth knowing; nothing was changed and nothing is wrong */
  MK_REPAIRED = 1, /**< the plain text differs from the file here */
  MK_DOUBTFUL = 2, /**< two readings are possible; nothing was changed */
  MK_LOST = 3      /**< something of the file cannot be kept */
} mk_severity;

/** The number of findings in the list of a chart. */
MEASKIT_API int mk_num_findings(const mk_document* document, int chart) MEASKIT_NOEXCEPT;

/** The number of further findings of a chart, which its list does not hold. */
MEASKIT_API int mk_num_more_findings(const mk_document* document, int chart) MEASKIT_NOEXCEPT;

/** The code of a finding for programs, such as "spectra-in-percent". */
MEASKIT_API const char* mk_finding_code(const mk_document* document, int chart,
                                        int finding) MEASKIT_NOEXCEPT;

/** A sentence about a finding for people, with the figures that led to it. */
MEASKIT_API const char* mk_finding_sentence(const mk_document* document, int chart,
                                            int finding) MEASKIT_NOEXCEPT;

/** The severity of a finding; MK_NOTE when there is no such finding. */
MEASKIT_API mk_severity mk_finding_severity(const mk_document* document, int chart,
                                            int finding) MEASKIT_NOEXCEPT;

/** The line of the file that a finding is about, counted from 1; 0 if it is not about one line. */
MEASKIT_API int mk_finding_line(const mk_document* document, int chart,
                                int finding) MEASKIT_NOEXCEPT;

/** @} */

/** @defgroup answers Answers
 *  @{ */

/** Everything that is known of the document as a JSON object. The text is made at the first call.
 */
MEASKIT_API const char* mk_json(mk_document* document) MEASKIT_NOEXCEPT;

/** The document's charts as a page of HTML without scripts, side by side. The text is made at the
 *  first call. */
MEASKIT_API const char* mk_html(mk_document* document) MEASKIT_NOEXCEPT;

/** The charts of `count` documents as one page of HTML. The text belongs to the first document and
 *  replaces what mk_html and this function returned for it before. */
MEASKIT_API const char* mk_html_of(mk_document* const* documents, int count) MEASKIT_NOEXCEPT;

/** @} */

/** @defgroup comparison Comparison
 *
 *  Two charts compared colour by colour. Repeats of a colour are averaged first. A comparison uses
 *  the documents of its charts: close them after it.
 *  @{ */

/** The answer of mk_compare. */
typedef struct mk_comparison mk_comparison;

/** What tells which patches of two charts belong together. */
typedef enum mk_match {
  MK_MATCH_BEST = 0, /**< device values when both charts hold some, else ids, names, locations or
                          the order, whichever both hold and fits */
  MK_MATCH_DEVICE = 1,
  MK_MATCH_ID = 2,
  MK_MATCH_NAME = 3,
  MK_MATCH_LOCATION = 4,
  MK_MATCH_ORDER = 5
} mk_match;

/** A formula for colour differences. */
typedef enum mk_formula {
  MK_DE00 = 0, /**< CIEDE2000 */
  MK_DE76 = 1, /**< Delta E*ab, CIE 1976 */
  MK_DE94 = 2, /**< CIE94 with the weights of graphic arts; the chroma is the reference's */
  MK_CMC = 3   /**< CMC(l:c); the weights are the reference's */
} mk_formula;

/** How charts are compared. Zeros are the defaults. */
typedef struct mk_compare_options {
  mk_match match;       /**< what tells which patches belong together */
  mk_formula formula;   /**< of the verdicts and pictures of the page; all are computed */
  int median;           /**< 1: repeats are averaged by the median, 0: by the mean */
  double cmc_lightness; /**< l of CMC(l:c); 2 for values that are not above 0 */
  double cmc_chroma;    /**< c of CMC(l:c); 1 for values that are not above 0 */
} mk_compare_options;

/** Compares a chart of one document with a chart of another or the same. Null options are the
 *  defaults. Returns null without memory or when a chart does not exist. Release the answer with
 *  mk_close_comparison. */
MEASKIT_API mk_comparison* mk_compare(mk_document* reference, int reference_chart,
                                      mk_document* sample, int sample_chart,
                                      const mk_compare_options* options) MEASKIT_NOEXCEPT;

/** Releases `*comparison` and sets it to null. Does nothing for null. */
MEASKIT_API void mk_close_comparison(mk_comparison** comparison) MEASKIT_NOEXCEPT;

/** Why the charts cannot be compared, in a sentence; null when they can. A refused comparison has
 *  no colours and no figures. */
MEASKIT_API const char* mk_comparison_refusal(const mk_comparison* comparison) MEASKIT_NOEXCEPT;

/** The number of colours that both charts hold with Lab. */
MEASKIT_API int mk_num_compared(const mk_comparison* comparison) MEASKIT_NOEXCEPT;

/** Writes the first patch of every compared colour: its position in the reference to
 *  `reference_patches` and in the sample to `sample_patches`, mk_num_compared() numbers each.
 * Either may be null. */
MEASKIT_API void mk_compared_patches(const mk_comparison* comparison, int* reference_patches,
                                     int* sample_patches) MEASKIT_NOEXCEPT;

/** Writes one measure of every compared colour, mk_num_compared() numbers: "de76", "de94", "de00",
 *  "cmc"; "dl", "da", "db", "dc", "dh", the sample minus the reference; "rms", the spectral
 *  difference; "de00_a", "de00_f11", CIEDE2000 of the spectra under illuminants A and F11. What
 *  cannot be told is not-a-number. Returns 1, or 0 for an unknown measure, and writes nothing. */
MEASKIT_API int mk_compared_measure(const mk_comparison* comparison, const char* measure,
                                    double* values) MEASKIT_NOEXCEPT;

/** Writes a figure to `*value`. It is named by group, measure and figure, such as "all.de00.p95".
 *  Groups: "all", "paper", "solids", "wedges", "overprints", "greys", "surface". Figures: "mean",
 *  "median", "p90", "p95", "max", "std", "best90". Returns 1, or 0 for an unknown name or a group
 *  without colours, and writes nothing. */
MEASKIT_API int mk_figure(const mk_comparison* comparison, const char* name,
                          double* value) MEASKIT_NOEXCEPT;

/** Everything that is known of the comparison as a JSON object. The string belongs to the
 *  comparison; it is made at the first call. */
MEASKIT_API const char* mk_comparison_json(mk_comparison* comparison) MEASKIT_NOEXCEPT;

/** The comparison as a page of HTML without scripts. The string belongs to the comparison; it is
 *  made at the first call. */
MEASKIT_API const char* mk_comparison_html(mk_comparison* comparison) MEASKIT_NOEXCEPT;

/** @} */

/** @defgroup conversion Conversion
 *
 *  A chart in another form. What the form cannot hold is named, so that nothing is lost in silence.
 *  @{ */

/** The answer of mk_convert. */
typedef struct mk_conversion mk_conversion;

/** How a chart is converted. Zeros are the defaults: all columns, as they stand. */
typedef struct mk_convert_options {
  const char* select; /**< columns to write, such as "device,lab,spectra"; null: all. The words are
                           names, device, lab, lch, xyz, xyy, density, spectra, unknown */
  const char* lab_from; /**< "file", "xyz" or "spectra": where Lab come from; null: as they stand */
  const char* grid;     /**< wavelengths in nm, such as "400:700:10"; null: those of the chart */
  int merged;           /**< 1: one row a colour, the mean of its repeats */
  int percent;          /**< 1: spectra in percent */
  int keep_unknown;     /**< 1: text and ti3 keep columns that no answer uses */
  int digits;           /**< significant ones of computed numbers; 0: as few as read back equal */
  int decimal_comma; /**< 1: numbers of CSV and TSV have a comma, cells of CSV end at semicolons */
  int bare;          /**< 1: CSV and TSV begin with the names of the columns */
  int cxf_pairs;     /**< 1: device values and colours of CxF are objects of their own */
} mk_convert_options;

/** Converts a chart of a document; -1 takes all charts, which only JSON can hold. `form` is
 *  "iso28178", "cgats", "sevenchar", "csv", "tsv", "json", "jsonl", "cxf" or "ti3". Null options
 * are the defaults. Returns null without memory or when the chart does not exist. Release the
 * answer with mk_close_conversion; it does not need the document. */
MEASKIT_API mk_conversion* mk_convert(mk_document* document, int chart, const char* form,
                                      const mk_convert_options* options) MEASKIT_NOEXCEPT;

/** Releases `*conversion` and sets it to null. Does nothing for null. */
MEASKIT_API void mk_close_conversion(mk_conversion** conversion) MEASKIT_NOEXCEPT;

/** Why the chart cannot be converted, in a few words; null when it can. */
MEASKIT_API const char* mk_conversion_refusal(const mk_conversion* conversion) MEASKIT_NOEXCEPT;

/** The converted text, which is empty for a refused conversion. Writes its size in bytes to
 *  `*length`, unless that is null. The text belongs to the conversion. */
MEASKIT_API const char* mk_converted_text(const mk_conversion* conversion,
                                          size_t* length) MEASKIT_NOEXCEPT;

/** The number of sentences about what the text does not hold. */
MEASKIT_API int mk_num_left_behind(const mk_conversion* conversion) MEASKIT_NOEXCEPT;

/** A sentence about something of the chart that the text does not hold; null when there is no such
 *  sentence. It belongs to the conversion. */
MEASKIT_API const char* mk_left_behind(const mk_conversion* conversion,
                                       int position) MEASKIT_NOEXCEPT;

/** @} */

#ifdef __cplusplus
}
#endif

#endif /* MEASKIT_H */
