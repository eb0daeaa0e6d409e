/* Prints the merged patches of a chart and the wedge of its first channel. */
#include <measdata.h>
#include <stdio.h>

static void print_merged(void* parser) {
  /* [merged] */
  for (int index = 0; index < num_indices(parser); ++index) {
    double lab[3] = {0};
    DeStats stats = {0};
    get_lab_from_index(parser, index, lab);
    get_de_stats_from_index(parser, index, &stats);
    printf("index %d, %s: L* %.1f", index, get_name_from_index(parser, index), lab[0]);
    if (stats.repeat_count > 1) {
      printf(", measured %d times, largest Delta E %.1f", (int)stats.repeat_count, stats.de_max);
    }
    printf("\n");
  }
  /* [merged] */
}

static void print_wedge(void* parser) {
  /* [wedge] */
  printf("paper white: index %d\n", get_paperwhite_index(parser));
  printf("%s:", get_device_channel_name(parser, 0));
  for (int step = 0; step < num_wedge_steps(parser, 0); ++step) {
    printf(" index %d,", get_wedge_index(parser, 0, step));
  }
  printf(" solid: index %d\n", get_solid_index(parser, 0));
  /* [wedge] */
}

/* [either] */
static void print_identifiers(void* patches) {
  for (int i = 0; i < num_patches(patches); ++i) printf(" %s", get_id_from_patch(patches, i));
  printf("\n");
}
/* [either] */

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  void* parser = init_parser();
  const int is_loaded = parse_file(parser, argv[1]);
  if (is_loaded) {
    print_merged(parser);
    print_wedge(parser);
    /* [both] */
    print_identifiers(parser);
    print_identifiers(pass_unique_data(parser));
    /* [both] */
  }
  cleanup_parser(&parser);
  return is_loaded ? 0 : 1;
}
