// From the bytes of any file to plain measurement files and a list of findings.
#ifndef MEASDATA_KIT_PREFLIGHT_PREFLIGHT_H
#define MEASDATA_KIT_PREFLIGHT_PREFLIGHT_H

#include "kit/finding.h"
#include "kit/loaded_text.h"
#include "kit/preflight/table.h"
#include "kit/preflight/text_pool.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace measkit {

/// One table of a file as a measurement file that the library reads and answers rightly.
struct PlainTable {
  Table table;            ///< its header, its fields and its findings
  std::string_view text;  ///< the plain text: the file's own text, or `made`
  std::string made;
  LoadedText loaded;  ///< without densities where the table has other colours
};

struct Preflighted {
  /// The file as UTF-8 where its bytes are something else. Stays in place when the result is moved.
  std::unique_ptr<std::string> text = std::make_unique<std::string>();
  TextPool pool;                                    ///< texts that several tables share
  std::vector<std::unique_ptr<PlainTable>> tables;  ///< the main one first
  Findings findings;                                ///< about the file as a whole
};

/// `bytes` must outlive the result. `name` is the file's name, which names a single channel that
/// has no other name; it may be null.
Preflighted preflight(std::string_view bytes, const char* name);

}  // namespace measkit

#endif  // MEASDATA_KIT_PREFLIGHT_PREFLIGHT_H
