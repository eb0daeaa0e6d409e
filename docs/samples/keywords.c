/* Prints all keywords of a file, then the values of one. */
#include <measdata.h>
#include <stdio.h>

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  void* parser = init_parser();
  const int is_loaded = parse_file(parser, argv[1]);
  /* [all] */
  for (int i = 0; i < num_keywords(parser); ++i) {
    printf("%s = %s\n", get_keyword(parser, i), get_value(parser, i));
  }
  /* [all] */
  /* [one] */
  const char* name = argv[2];
  for (int i = 0; i < num_keyword_values(parser, name); ++i) {
    printf("%s %d: %s\n", name, i, get_ith_value_of_keyword(parser, i, name));
  }
  /* [one] */
  cleanup_parser(&parser);
  return is_loaded ? 0 : 1;
}
