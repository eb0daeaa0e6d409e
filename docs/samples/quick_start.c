/* Prints the identifier, the device values and Lab of every patch of a file. */
#include <measdata.h>
#include <stdio.h>

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  void* parser = init_parser();
  if (!parser) return 1; /* no memory */
  if (!parse_file(parser, argv[1])) {
    fputs(parse_messages(parser), stderr);
    cleanup_parser(&parser);
    return 1;
  }
  const int channels = num_device_channels(parser);
  for (int patch = 0; patch < num_patches(parser); ++patch) {
    double device[15] = {0}, lab[3] = {0}; /* no file has more than 15 channels */
    get_dev_from_patch(parser, patch, device);
    get_lab_from_patch(parser, patch, lab);
    printf("%s:", get_id_from_patch(parser, patch));
    for (int i = 0; i < channels; ++i) printf(" %3.0f", device[i]);
    printf("   Lab %5.1f %5.1f %5.1f\n", lab[0], lab[1], lab[2]);
  }
  cleanup_parser(&parser);
  return 0;
}
