/* Prints the wavelengths of a file and, for each patch, the ends of its spectrum and Lab. */
#include <measdata.h>
#include <stdio.h>

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  void* parser = init_parser();
  if (!parser) return 1;
  const int is_loaded = parse_file(parser, argv[1]);
  /* [wavelengths] */
  printf("%.0f to %.0f nm by %.0f nm, %d values\n", spectral_start(parser), spectral_end(parser),
         spectral_step(parser), spectral_size(parser));
  for (int patch = 0; patch < num_patches(parser); ++patch) {
    const double* spectrum = get_spectrum_from_patch(parser, patch);
    double lab[3] = {0};
    get_lab_from_patch(parser, patch, lab);
    if (spectrum) printf("R %.2f ... %.2f: ", spectrum[0], spectrum[spectral_size(parser) - 1]);
    printf("L* %.2f, a* %.2f, b* %.2f\n", lab[0], lab[1], lab[2]);
  }
  /* [wavelengths] */
  /* [display] */
  double lab[3] = {0}, rgb[3] = {0};
  get_lab_from_patch(parser, 0, lab);
  lab_to_srgb(lab, rgb);
  printf("patch 0 on a display: %.0f %.0f %.0f\n", rgb[0], rgb[1], rgb[2]);
  /* [display] */
  fputs(parse_messages(parser), stdout);
  cleanup_parser(&parser);
  return is_loaded ? 0 : 1;
}
