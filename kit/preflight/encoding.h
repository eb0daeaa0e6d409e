// Turns the bytes of a file into UTF-8.
#ifndef MEASDATA_KIT_PREFLIGHT_ENCODING_H
#define MEASDATA_KIT_PREFLIGHT_ENCODING_H

#include "kit/finding.h"

#include <string>
#include <string_view>

namespace measkit {

/// The text of a file: a view of `bytes` where they are UTF-8 already, else of `storage`, which
/// receives the text. Byte order marks are dropped, UTF-16 is decoded, and bytes that are no UTF-8
/// are read as Windows-1252, the superset of Latin-1 that programs write.
std::string_view utf8_text(std::string_view bytes, std::string& storage, Findings& findings);

}  // namespace measkit

#endif  // MEASDATA_KIT_PREFLIGHT_ENCODING_H
