// The names of the inks or colorants that the device channels drive.
#ifndef MEASDATA_DATASET_CHANNEL_NAMES_H
#define MEASDATA_DATASET_CHANNEL_NAMES_H

#include "dataset/patch_data_set.h"

#include <string>
#include <string_view>
#include <vector>

namespace vantor::DataSet {

struct ChannelNames {
  std::vector<std::string> channel_names;  ///< one a device channel, empty where nothing names it
  /// Why a full-tone colour of an ink is not a number that a double holds; then there are no names.
  std::string_view failure;
};

/// Names the channels: after the colorant list, else the keywords INK_NAME_1, INK_NAME_2, ..., else
/// by the fields of CMYK and CMY. A single channel that nothing names is named after the file.
/// `field_names` are the names of the channels' fields; `name` may be null.
ChannelNames build_channel_names(const std::vector<std::string>& field_names,
                                 const HeaderKeywords& header_keywords, const char* name);

}  // namespace vantor::DataSet

#endif  // MEASDATA_DATASET_CHANNEL_NAMES_H
