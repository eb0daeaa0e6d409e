// Finds keywords of a handle by name.
#ifndef MEASDATA_API_KEYWORD_LOOKUP_H
#define MEASDATA_API_KEYWORD_LOOKUP_H

#include "api/parser_state.h"

#include <span>

namespace vantor::Api {

/// All entries of that name, in order; none for a null handle or name.
inline std::span<const DataSet::Keyword> find_keyword(void* handle, const char* name) {
  if (handle == nullptr || name == nullptr) return {};
  return state_of(handle)->chart.keywords.find(name);
}

}  // namespace vantor::Api

#endif  // MEASDATA_API_KEYWORD_LOOKUP_H
