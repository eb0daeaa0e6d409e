// Stands for the reader of files on systems without files, such as WebAssembly in a browser.
#include "measdata/file_text.h"

namespace vantor::MeasData {

// A member, as elsewhere.
// NOLINTNEXTLINE(readability-convert-member-functions-to-static)
FileStatus FileText::read(const char*) { return FileStatus::not_opened; }

}  // namespace vantor::MeasData
