// Distinguishes memory of a handle from memory of its caller.
#ifndef MEASDATA_API_OWN_MEMORY_H
#define MEASDATA_API_OWN_MEMORY_H

#include "api/parser_state.h"

namespace vantor::Api {

/// True when the address lies in a text or a table that functions of the handle return and that a
/// load releases.
bool is_own_memory(const ParserState& state, const char* address);

}  // namespace vantor::Api

#endif  // MEASDATA_API_OWN_MEMORY_H
