/* Loads a semicolon table that the program has in memory. */
#include <measdata.h>
#include <stdio.h>

int main(void) {
  /* [memory] */
  static const char table[] =
      "% Cyan;Magenta;Yellow;Black;LAB_L;LAB_A;LAB_B\n"
      "100;0;0;0;55,5;-36,8;-50,2\n";
  double lab[3] = {0};
  void* parser = init_parser();
  set_parse_mode(parser, 1); /* from now on, read semicolon tables */
  const int is_loaded = parse_mem(parser, sizeof table - 1, table, "clipboard");
  get_lab_from_patch(parser, 0, lab);
  printf("%d patch, L* %.1f, a* %.1f, b* %.1f\n", num_patches(parser), lab[0], lab[1], lab[2]);
  /* [memory] */
  cleanup_parser(&parser);
  return is_loaded ? 0 : 1;
}
