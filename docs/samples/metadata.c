/* Prints what a file says about instrument, measurement and sample. */
#include <measdata.h>
#include <stdio.h>

/* [print] */
static void print(const char* question, const char* answer) {
  if (answer) printf("%-13s %s\n", question, answer);
}
/* [print] */

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  void* parser = init_parser();
  const int is_loaded = parse_file(parser, argv[1]);
  /* [ask] */
  print("maker", device_manufacturer(parser));
  print("model", device_model(parser));
  print("serial number", device_serial_number(parser));
  print("geometry", device_geometry(parser));
  print("filter", device_filter(parser));
  print("polarization", device_polarization(parser));
  print("illuminant", illuminant(parser));
  print("observer", observer(parser));
  print("density", density_status(parser));
  print("backing", sample_backing(parser));
  print("date", sample_production_date(parser));
  /* [ask] */
  cleanup_parser(&parser);
  return is_loaded ? 0 : 1;
}
