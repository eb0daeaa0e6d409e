// Any bytes through the preflight. Beyond not breaking, these must hold: a file that passes through
// is answered as without the kit, and a plain text is plain.
#include "api/measdata.h"
#include "kit/chart/chart.h"
#include "kit/preflight/preflight.h"
#include "tests/support/answers.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

bool has_codes(const measkit::Findings& findings) { return findings.has_other_than_notes(); }

// The library's own answers to a text.
std::string answers_to(std::string_view text) {
  const measkit::LoadedText loaded(text, "fuzz");
  return test::answers(loaded.handle());
}

void check(measkit::PlainTable& plain, std::string_view bytes, bool is_only_table) {
  if (!plain.loaded.is_loaded()) return;
  test::answers(plain.loaded.handle());
  measkit::chart_of(plain, "fuzz");
  const bool is_untouched = is_only_table && plain.text.data() == bytes.data();
  const bool is_apart = plain.table.findings.has("densities-apart");
  if (is_untouched && !is_apart && test::answers(plain.loaded.handle()) != answers_to(bytes)) {
    std::abort();
  }
  const measkit::Preflighted again = measkit::preflight(plain.text, "fuzz");
  if (again.tables.size() != 1 || has_codes(again.findings)) std::abort();
  for (const measkit::Finding& finding : again.tables[0]->table.findings.list()) {
    if (finding.severity == measkit::Severity::repaired) std::abort();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  measkit::Preflighted file = measkit::preflight(bytes, "fuzz");
  for (const auto& plain : file.tables) check(*plain, bytes, file.tables.size() == 1);
  return 0;
}
