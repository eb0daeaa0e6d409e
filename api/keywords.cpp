// The keywords of the files that a handle was loaded with.
#include "api/keyword_values.h"
#include "api/measdata.h"
#include "api/parser_state.h"

#include <algorithm>
#include <cstddef>

using vantor::Api::keyword_value;
using vantor::Api::state_of;
using vantor::DataSet::Keyword;
using vantor::DataSet::KeywordStore;

const char* vantor::Api::keyword_value(void* handle, int i, const char* name) {
  if (handle == nullptr || name == nullptr || i < 0) return nullptr;
  const Keyword* keyword = state_of(handle)->chart.keywords.find(name, static_cast<std::size_t>(i));
  return keyword == nullptr ? nullptr : keyword->value.data();
}

namespace {

// The entry at a position of the whole store; positions below 0 count as 0.
const Keyword* keyword_at(void* handle, int i) {
  if (handle == nullptr) return nullptr;
  KeywordStore& store = state_of(handle)->chart.keywords;
  const auto position = static_cast<std::size_t>(std::max(i, 0));
  return position < store.size() ? &store.at(position) : nullptr;
}

}  // namespace

int has_keyword(void* handle, const char* name) noexcept {
  return keyword_value(handle, name) == nullptr ? 0 : 1;
}

int num_keyword_values(void* handle, const char* name) noexcept {
  if (handle == nullptr || name == nullptr) return 0;
  return static_cast<int>(state_of(handle)->chart.keywords.count(name));
}

const char* get_value_of_keyword(void* handle, const char* name) noexcept {
  return keyword_value(handle, name);
}

const char* get_ith_value_of_keyword(void* handle, int i, const char* name) noexcept {
  return keyword_value(handle, i, name);
}

int num_keywords(void* handle) noexcept {
  return handle == nullptr ? -1 : static_cast<int>(state_of(handle)->chart.keywords.size());
}

const char* get_keyword(void* handle, int i) noexcept {
  const Keyword* keyword = keyword_at(handle, i);
  return keyword == nullptr ? nullptr : keyword->name.data();
}

const char* get_value(void* handle, int i) noexcept {
  const Keyword* keyword = keyword_at(handle, i);
  return keyword == nullptr ? nullptr : keyword->value.data();
}

const char* copyright(void* handle) noexcept { return keyword_value(handle, "COPYRIGHT"); }
