// What stands behind the pointers of the C interface.
#ifndef MEASDATA_KIT_MEASKIT_DOCUMENT_H
#define MEASDATA_KIT_MEASKIT_DOCUMENT_H

#include "kit/document.h"
#include "kit/measkit.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

struct mk_document {
  std::unique_ptr<measkit::Document> document;
  std::vector<std::string> plain_texts = {};  // of charts whose text has no zero byte behind it
  std::string json = {}, html = {};
};

namespace measkit {

// What `answer` returns, or `fallback` when it throws: only memory runs out here.
template <typename Answer, typename Function>
Answer guarded(Answer fallback, Function answer) noexcept {
  try {
    return answer();
  } catch (...) {
    return fallback;
  }
}

inline bool has_chart(const mk_document* document, int chart) {
  return document != nullptr && chart >= 0 &&
         static_cast<std::size_t>(chart) < document->document->size();
}

}  // namespace measkit

#endif  // MEASDATA_KIT_MEASKIT_DOCUMENT_H
