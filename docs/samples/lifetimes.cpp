// Copies results that it needs for longer than the library keeps them.
#include <measdata.h>

#include <cstdio>
#include <string>
#include <vector>

namespace {

// [text]
// Null means that the file has no such data. It becomes an empty string.
std::string copy_of(const char* text) { return text == nullptr ? "" : text; }
// [text]

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  void* parser = init_parser();
  bool is_loaded = parse_file(parser, argv[1]) == 1;

  // [buffer]
  // Each call overwrites the result of the previous call.
  const std::string maker = copy_of(device_manufacturer(parser));
  const std::string model = copy_of(device_model(parser));
  // [buffer]

  // [array]
  is_loaded = is_loaded && parse_file(parser, argv[2]) == 1;
  std::vector<double> kept;
  if (const double* spectrum = get_spectrum_from_patch(parser, 0)) {
    kept.assign(spectrum, spectrum + spectral_size(parser));
  }
  cleanup_parser(&parser);  // invalidates `spectrum`, but not `kept`
  // [array]

  if (!is_loaded) return 1;
  std::printf("%s, %s, %zu values\n", maker.c_str(), model.c_str(), kept.size());
}
