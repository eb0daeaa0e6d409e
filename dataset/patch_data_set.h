// One measurement file as its patches: what was measured, and which field of the file holds it.
#ifndef MEASDATA_DATASET_PATCH_DATA_SET_H
#define MEASDATA_DATASET_PATCH_DATA_SET_H

#include "colortypes/pair_distances.h"
#include "colortypes/repeats.h"
#include "colortypes/spectral/spectral_conversion.h"
#include "colortypes/value_table.h"
#include "dataset/text_column.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vantor::DataSet {

/// The header keywords of the file, in order.
struct HeaderKeywords {
  TextColumn names, values;

  std::size_t size() const { return names.size(); }
};

/// Field indices of a group of three; -1 for a field that the file lacks.
using FieldTriple = std::array<std::int32_t, 3>;

/// A fresh data set is an empty one. Per-patch tables and columns have one row a patch, in file
/// order, or none at all when the file does not hold that kind of data. Every `..._field` is a
/// field index of the file, -1 when there is no such field.
struct PatchDataSet {
  std::string file_name;  ///< the path that was read; empty for data from memory
  std::int32_t num_patches = 0;
  std::int32_t device_space = -1;  ///< code of the device channel set, see device_channels.h
  std::vector<std::int32_t> device_fields;  ///< in channel order; its size is the channel count

  TextColumn sample_ids;
  TextColumn sample_locations;
  TextColumn sample_names;
  std::vector<double> scw_indices;
  ColorTypes::ValueTable device_values;
  ColorTypes::ValueTable lab_values;
  ColorTypes::ValueTable lch_values;
  ColorTypes::ValueTable xyz_values;
  ColorTypes::ValueTable density_values;
  ColorTypes::ValueTable spectra;  ///< numbers as in the file, on the grid below

  std::int32_t spectral_start_nm = 380;
  std::int32_t spectral_step_nm = 10;
  std::int32_t spectral_count = 36;
  std::vector<double> wavelengths;  ///< nm, one a spectral value; empty without spectra

  std::int32_t sample_id_field = -1;
  std::int32_t sample_name_field = -1;
  std::int32_t sample_loc_field = -1;
  std::int32_t scw_index_field = -1;
  FieldTriple xyz_fields = {-1, -1, -1};
  FieldTriple lab_fields = {-1, -1, -1};
  FieldTriple lch_fields = {-1, -1, -1};
  std::vector<std::int32_t> density_fields;
  std::vector<std::int32_t> spectral_fields;
  std::string spectral_prefix = "SPECTRAL_";

  std::string file_identifier = "IS12642";
  std::vector<std::string> weighting_functions;
  std::vector<std::string> computational_parameters;
  std::vector<std::string> process_color_ids;
  std::vector<std::string> spot_color_ids;
  std::vector<std::string> density_names;

  bool has_xyz = false;
  bool has_lab = false;
  bool has_lch = false;
  bool has_density = false;
  bool has_spectral = false;

  /// True for a data set whose repeated measurements were merged.
  bool is_merged = false;
  ColorTypes::RepeatGroups repeats;  ///< the patches that were merged into each of these
  /// Delta E*ab within them, as far as somebody asked for it; empty before.
  std::vector<std::optional<ColorTypes::Distances>> repeat_distances;

  std::string messages;  ///< diagnostics of the build
  /// Told in place of the messages: a text of its own could need memory that is not there.
  bool is_out_of_memory = false;
  HeaderKeywords header_keywords;

  /// Turns a spectrum of this data set into Lab; null when nothing at hand fits its grid. Owned by
  /// whoever holds the data set.
  const ColorTypes::Spectral::ISpectralToLabConversion* lab_conversion = nullptr;

  /// Lab or spectra; XYZ alone does not count.
  bool has_color_data() const { return has_lab || !wavelengths.empty(); }

  void reset() { *this = PatchDataSet(); }
};

}  // namespace vantor::DataSet

#endif  // MEASDATA_DATASET_PATCH_DATA_SET_H
