#include <math.h>
#include <measdata.h>
#include <stdio.h>

int main(int argc, char** argv) {
  void* chart = init_parser();
  if (!chart || argc < 2) return 2;
  if (argc > 2) set_parse_mode(chart, 1); /* any second argument: read a semicolon table */
  const int is_loaded = parse_file(chart, argv[1]);
  fputs(parse_messages(chart), stderr);
  for (int patch = 0; patch < num_patches(chart); ++patch) {
    double lab[3] = {NAN, NAN, NAN}; /* stays NaN for a file without Lab and spectra */
    get_lab_from_patch(chart, patch, lab);
    printf("%s %.2f %.2f %.2f\n", get_id_from_patch(chart, patch), lab[0], lab[1], lab[2]);
  }
  cleanup_parser(&chart);
  return is_loaded ? 0 : 1;
}
