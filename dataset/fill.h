// Turns the tables of text of a successful read into a data set.
#ifndef MEASDATA_DATASET_FILL_H
#define MEASDATA_DATASET_FILL_H

#include "dataset/patch_data_set.h"
#include "dataset/spectral_grid.h"
#include "measdata/meas_file_parser.h"

#include <string_view>

namespace vantor::DataSet {

/// Reads a file and fills the data set. On failure the data set holds the messages that tell why.
bool read_file(PatchDataSet& data_set, const char* path, MeasData::MeasFileParser& reader,
               const SpectralRequest& range = {}, const SpectralRequest& grid = {});

/// The same for a text, which must outlive the reader.
bool read_memory(PatchDataSet& data_set, std::string_view text, MeasData::MeasFileParser& reader,
                 const SpectralRequest& range = {}, const SpectralRequest& grid = {});

/// Copies all that the reader holds into a fresh data set: nothing in it points into the reader.
/// False, with a message, only for spectra on a grid that is not supported.
bool fill(PatchDataSet& data_set, const MeasData::MeasFileParser& reader,
          const SpectralRequest& range = {}, const SpectralRequest& grid = {});

}  // namespace vantor::DataSet

#endif  // MEASDATA_DATASET_FILL_H
