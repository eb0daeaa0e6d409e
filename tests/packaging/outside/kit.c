/* A program of somebody else's: tells what was found in a file, and how many patches it has. */
#include <measdata.h>
#include <measkit.h>
#include <stdio.h>

int main(int argc, char** argv) {
  mk_document* document = mk_open_file(argc == 2 ? argv[1] : NULL, MK_REPAIR);
  for (int i = 0; i < mk_num_findings(document, 0); ++i) puts(mk_finding_code(document, 0, i));
  printf("%d patches\n", num_patches(mk_chart_handle(document, 0)));
  mk_close(&document);
  return 0;
}
