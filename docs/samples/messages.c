/* Loads several files and prints the result and the messages of each load. */
#include <measdata.h>
#include <stdio.h>

int main(int argc, char** argv) {
  void* parser = init_parser();
  if (!parser) return 1;
  for (int i = 1; i < argc; ++i) {
    /* [load] */
    const int is_loaded = parse_file(parser, argv[i]);
    printf("%s: %s, %d patches\n%s", argv[i], is_loaded ? "loaded" : "failed", num_patches(parser),
           parse_messages(parser));
    /* [load] */
  }
  cleanup_parser(&parser);
  return 0;
}
