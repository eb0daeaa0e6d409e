/* Prints every patch of a measurement file: its id, device values, Lab and display colour. */
#include <measdata.h>
#include <stdio.h>

int main(int argc, char** argv) {
  void* parser = init_parser();
  if (argc != 2 || !parse_file(parser, argv[1])) {
    fprintf(stderr, "usage: patches FILE\n%s", argc == 2 ? parse_messages(parser) : "");
    cleanup_parser(&parser);
    return 1;
  }
  const int channels = num_device_channels(parser);
  const int bands = spectral_size(parser);
  for (int patch = 0; patch < num_patches(parser); ++patch) {
    double device[15] = {0}, lab[3] = {0}, rgb[3];
    get_dev_from_patch(parser, patch, device);
    get_lab_from_patch(parser, patch, lab);
    lab_to_srgb(lab, rgb);
    printf("%-6s", get_id_from_patch(parser, patch));
    for (int i = 0; i < channels; ++i) printf(" %5.1f", device[i]);
    printf("   Lab %6.2f %7.2f %7.2f   sRGB %3.0f %3.0f %3.0f", lab[0], lab[1], lab[2], rgb[0],
           rgb[1], rgb[2]);
    const double* spectrum = get_spectrum_from_patch(parser, patch);
    if (spectrum) printf("   R %.3f ... %.3f", spectrum[0], spectrum[bands - 1]);
    printf("\n");
  }
  cleanup_parser(&parser);
  return 0;
}
