// A measured chart as one value: everything that the outputs show, gathered once.
#ifndef MEASDATA_KIT_CHART_CHART_H
#define MEASDATA_KIT_CHART_CHART_H

#include "colortypes/value_table.h"
#include "kit/finding.h"
#include "kit/preflight/conditions.h"
#include "kit/preflight/preflight.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace measkit {

/// Numbers: one row a patch, or no rows when the chart does not hold them. A number that was not
/// measured is not-a-number. Copies share the numbers.
using Values = vantor::ColorTypes::ValueTable;
/// Texts: one a patch, or none when the chart does not hold them.
using Texts = std::vector<std::string>;
using Triple = std::array<double, 3>;

enum class Quantity { reflectance, transmittance, emission };

/// Where Lab comes from.
enum class LabSource {
  none,
  weighting_table,  ///< spectra, by a weighting table of ASTM E308
  integration,      ///< spectra, with the CIE colour-matching functions
  file,             ///< the file's own Lab
  xyz,              ///< the file's XYZ or xyY
  lch,              ///< the file's LCh
  display,          ///< XYZ of a display, adapted to D50
};

/// What the file's own Lab, or the Lab of its own XYZ, are beside those of its spectra: Delta E*ab
/// (CIE 1976) over all patches that have both.
struct LabDifference {
  bool is_of_xyz = false;
  double median = 0.0, percentile_95 = 0.0, largest = 0.0;
  std::size_t largest_patch = 0;
};

struct DistinctValue {
  double value;
  int count;  ///< of patches
};

/// A device channel. Indices are positions of merged patches.
struct Channel {
  std::string name;                            ///< of the ink or the light; never empty
  std::string field;                           ///< such as "CMYK_C"
  std::vector<DistinctValue> distinct_values;  ///< ascending
  std::vector<std::size_t> wedge;              ///< where it alone is not 0, by ascending value
  std::optional<std::size_t> solid;
};

/// A name with a value, as the file spells it.
struct Entry {
  std::string name, value;
};

/// Answers about the instrument or the sample; none where the file does not tell or tells only a
/// word like "Unknown".
struct Answer {
  std::string_view question;  ///< such as "serial number"
  std::optional<std::string> text;
};

/// How the measurements were made, each with the words of the file that tell it. A value that the
/// file does not tell is absent.
struct MeasuringConditions {
  std::optional<Stated> m;           ///< "M0" to "M3" of ISO 13655
  std::optional<Stated> illuminant;  ///< of the file's own XYZ and Lab, such as "D50"
  std::optional<Stated> observer;    ///< of the same: "2" or "10" degrees
  std::optional<Stated> backing, filter, geometry, polarization, density_status;
};

struct Repeats {
  int count = 0;                 ///< of measurements; 0 when no patch of the chart repeats
  double de_mean = 0.0;          ///< Delta E*ab of all pairs; not a number when not compared
  std::optional<double> de_max;  ///< none for a single measurement and when not compared
};

/// Merged patches: patches with the same device values are measurements of one colour. Everything
/// has one row a merged patch, in the order of their first patches.
struct MergedPatches {
  std::size_t count = 0;
  Texts names;  ///< of the first patches
  Values device;
  Values lab;
  Values spectra;                ///< means of the patches
  std::vector<Repeats> repeats;  ///< empty when the chart has no colours or no device values

  std::vector<std::uint32_t> members;  ///< all patches, sorted by their merged patch
  std::vector<std::uint32_t> starts;   ///< of each merged patch in `members`, and the end

  /// The patches behind a merged patch, in the order of the chart: at least one.
  std::span<const std::uint32_t> patches_of(std::size_t index) const {
    return std::span(members).subspan(starts[index], starts[index + 1] - starts[index]);
  }
};

enum class LandmarkKind { white, black, primary, secondary, solid };

/// A merged patch that everybody wants to see first. Inks: the paper and the solids. RGB: white,
/// black, primaries and secondaries.
struct Landmark {
  LandmarkKind kind;
  std::string name;  ///< such as "Paper", "White", "Cyan"
  std::size_t index;
};

/// What the library found in the text.
struct Holdings {
  bool device = false, xyz = false, lab = false, lch = false, spectra = false, colour = false;
  bool ids = false, names = false, locations = false;
};

struct Chart {
  std::string name;        ///< of the chart or its file, as the caller gives it
  std::string title;       ///< what the file calls it; empty when it does not
  std::string identifier;  ///< of the file's first line, such as "CGATS.17"
  Content content = Content::measurement;
  Quantity quantity = Quantity::reflectance;
  bool is_display = false;
  bool is_loaded = false;             ///< false when the library refuses the table
  bool is_semicolon_table = false;    ///< as the library reads those
  std::vector<std::string> messages;  ///< of the library
  Holdings holds;
  std::vector<Finding> findings;  ///< about this table and its chart
  std::size_t more_findings = 0;  ///< that are not listed

  // Patches: every row of the table.
  std::size_t patch_count = 0;
  Texts ids, names, locations;
  Values device;
  Values xyz;      ///< as they stand in the plain text
  Values lab;      ///< what the library answers
  Values own_lab;  ///< the file's own, where Lab come from spectra
  Values lch;      ///< the file's own
  Values densities;
  std::vector<std::string> density_names;  ///< one a column of `densities`, such as "D_RED"
  Values spectra;
  std::vector<double> wavelengths;  ///< nm, one a column of `spectra`
  Values emission;
  std::vector<double> emission_wavelengths;
  MergedPatches merged;

  std::string device_set;  ///< "CMYK", "RGB", "GRAY", "5CLR", "PC6", "SPOT"; else empty
  bool is_rgb = false;
  double full_scale = 0.0;  ///< 1, 100 or 255 for RGB; 0 when the values tell none
  std::vector<Channel> channels;
  std::optional<std::size_t> paper_white;  ///< no ink; RGB: all channels at full
  std::vector<Landmark> landmarks;

  LabSource lab_source = LabSource::none;
  std::string lab_sentence;  ///< says where Lab comes from
  std::optional<LabDifference> lab_difference;

  MeasuringConditions conditions;
  std::string instrument;  ///< the file's line about it as it stands; empty without one
  std::vector<Answer> instrument_answers, sample_answers;
  std::vector<Entry> keywords;
  std::size_t empty_keywords = 0;           ///< left out: without a value or a telling one
  std::vector<std::string> unused_columns;  ///< names of fields that nothing here uses
};

/// How much is asked of the library for a chart.
enum class Effort {
  usual,  ///< repeats of patches with more than 20,000 measurements are not compared, since the
          ///< time grows with the square of their number; a finding tells it
  all
};

/// The chart of a plain table. The table's cells are cut only when something is asked of them that
/// the library has no question for.
Chart chart_of(PlainTable& plain, std::string name, Effort effort = Effort::usual);

/// The chart of a loaded handle alone, as the library reads the file: the paper white of RGB is the
/// patch with all channels 0, and there is nothing that the library has no question for.
Chart chart_as_it_stands(void* handle, std::string name, Effort effort = Effort::usual);

/// A row of a table of triples.
inline Triple triple_at(const Values& values, std::size_t row) {
  const std::span<const double> numbers = values.row(row);
  return {numbers[0], numbers[1], numbers[2]};
}

/// What to call a patch: its id, else its name, else its location, else its position as "#12".
std::string patch_label(const Chart& chart, std::size_t patch);
/// What to call a merged patch: its first patch.
std::string label_of(const Chart& chart, std::size_t index);

/// sRGB of Lab as #RRGGBB; empty when a component is not a number.
std::string hex_colour(const Triple& lab);

}  // namespace measkit

#endif  // MEASDATA_KIT_CHART_CHART_H
