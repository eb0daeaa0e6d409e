/* A program of somebody else's: tells how many patches a file has. */
#include <measdata.h>
#include <stdio.h>

int main(int argc, char** argv) {
  void* parser = init_parser();
  const int is_loaded = argc == 2 && parse_file(parser, argv[1]);
  printf("%d patches, read by %s\n", is_loaded ? num_patches(parser) : -1, parser_version());
  cleanup_parser(&parser);
  return is_loaded ? 0 : 1;
}
