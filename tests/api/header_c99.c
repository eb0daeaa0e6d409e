/* The public header is plain C: this file includes nothing before it. */
#include "measdata.h"

/* Nonzero when a load through C gives what it should. */
int load_from_c(void) {
  static const char text[] =
      "CGATS.17\nBEGIN_DATA_FORMAT\nLAB_L LAB_A LAB_B\nEND_DATA_FORMAT\nBEGIN_DATA\n50 1 "
      "2\nEND_DATA";
  double lab[3] = {0.0, 0.0, 0.0};
  void* handle = init_parser();
  const int is_loaded = parse_mem(handle, sizeof text - 1, text, "from C");
  get_lab_from_patch(handle, 0, lab);
  cleanup_parser(&handle);
  return is_loaded == 1 && handle == 0 && lab[0] == 50.0 && lab[2] == 2.0;
}
