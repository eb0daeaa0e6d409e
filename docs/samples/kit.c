/* Tells what was found in any file, and prints Lab of the patches of its main chart. */
#include <measdata.h>
#include <measkit.h>
#include <stdio.h>

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  mk_document* document = mk_open_file(argv[1], MK_REPAIR);
  for (int chart = -1; chart < mk_num_charts(document); ++chart) { /* -1 is the file as a whole */
    for (int i = 0; i < mk_num_findings(document, chart); ++i) {
      printf("%s: %s\n", mk_finding_code(document, chart, i),
             mk_finding_sentence(document, chart, i));
    }
  }
  void* handle = mk_chart_handle(document, 0); /* null if the file has no chart */
  for (int patch = 0; patch < num_patches(handle) && has_color_data(handle); ++patch) {
    double lab[3];
    get_lab_from_patch(handle, patch, lab);
    printf("%s %.2f %.2f %.2f\n", get_id_from_patch(handle, patch), lab[0], lab[1], lab[2]);
  }
  mk_close(&document); /* releases the handle, too */
  return 0;
}
