// The object behind the handle.
#ifndef MEASDATA_API_PARSER_STATE_H
#define MEASDATA_API_PARSER_STATE_H

#include "dataset/chart.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace vantor::Api {

/// The chart is the first member, and all_patches the first member of the chart, so that a handle
/// is the address of a data set, too. Functions that read no more than a data set take either.
struct ParserState {
  DataSet::Chart chart;
  std::string result_text;  ///< the last answer about instrument and sample
  std::int32_t parse_mode = 0;
};

inline ParserState* state_of(void* handle) { return static_cast<ParserState*>(handle); }

inline const DataSet::PatchDataSet& empty_data_set() {
  static const DataSet::PatchDataSet empty;
  return empty;
}

/// The data set of a handle or, for a pointer to a data set, that data set. An empty one for null.
inline const DataSet::PatchDataSet& data_set_of(const void* handle) {
  return handle == nullptr ? empty_data_set() : *static_cast<const DataSet::PatchDataSet*>(handle);
}

/// True for the position of one of `count` things.
inline bool is_position(int position, std::size_t count) {
  return position >= 0 && static_cast<std::size_t>(position) < count;
}

}  // namespace vantor::Api

#endif  // MEASDATA_API_PARSER_STATE_H
