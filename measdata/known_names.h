// The keywords and field identifiers that files may use without declaring them.
#ifndef MEASDATA_MEASDATA_KNOWN_NAMES_H
#define MEASDATA_MEASDATA_KNOWN_NAMES_H

#include <string_view>

namespace vantor::MeasData {

/// Files whose first line is "ISO28178" or "CGATS.17" have longer lists than the older form.
enum class FileKind { standard, other };

/// True for a keyword that needs no KEYWORD line. ORIGINATOR, DESCRIPTOR and CREATED are not among
/// them: whether they are optional or required depends on the reading mode.
bool is_known_keyword(FileKind kind, std::string_view name);

/// True for a field identifier of the format itself.
bool is_known_field(FileKind kind, std::string_view name);

}  // namespace vantor::MeasData

#endif  // MEASDATA_MEASDATA_KNOWN_NAMES_H
