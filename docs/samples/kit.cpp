// Prints L* of the patches of any file.
#include <measkit.h>

#include <cstdio>
#include <measdata.hpp>

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  // [borrow]
  mk_document* document = mk_open_file(argv[1], MK_REPAIR);
  const auto chart = measdata::chart::borrow(mk_chart_handle(document, 0));
  for (const measdata::patch& patch : chart.patches()) {
    if (const auto lab = patch.lab()) std::printf("%s %.2f\n", patch.id().data(), (*lab)[0]);
  }
  mk_close(&document);  // releases the handle: do not use `chart` after this
  // [borrow]
}
