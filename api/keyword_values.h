// What the exports about keywords and about metadata share.
//
// No function of the library calls an export: a program may hold a function of the same name, which
// the system's loader would let answer in the library's place.
#ifndef MEASDATA_API_KEYWORD_VALUES_H
#define MEASDATA_API_KEYWORD_VALUES_H

namespace vantor::Api {

/// The i-th value of a keyword; null when there is none, and for a null handle or name.
const char* keyword_value(void* handle, int i, const char* name);
inline const char* keyword_value(void* handle, const char* name) {
  return keyword_value(handle, 0, name);
}

}  // namespace vantor::Api

#endif  // MEASDATA_API_KEYWORD_VALUES_H
