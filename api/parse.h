// The only C++ export: the build after a successful read.
#ifndef MEASDATA_API_PARSE_H
#define MEASDATA_API_PARSE_H

#include "api/measdata.h"
#include "measdata/meas_file_parser.h"

/// Builds everything that depends on the whole file. `reader` must have filled all_patches of the
/// handle. `name` is the path or name of the file and may be null. Returns 1 on success and 0 on
/// failure, also when the handle or the reader is null.
MEASDATA_API int parse(void* handle, vantor::MeasData::MeasFileParser* reader,
                       const char* name) noexcept;

#endif  // MEASDATA_API_PARSE_H
