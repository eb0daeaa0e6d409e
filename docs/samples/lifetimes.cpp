// What is to be kept is copied.
#include <measdata.h>

#include <cstdio>
#include <string>
#include <vector>

namespace {

// [text]
// Null, which stands for "the file does not tell", becomes an empty string.
std::string copy_of(const char* text) { return text == nullptr ? "" : text; }
// [text]

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  void* parser = init_parser();
  bool is_loaded = parse_file(parser, argv[1]) == 1;

  // [buffer]
  // Each of these answers overwrites the one before.
  const std::string maker = copy_of(device_manufacturer(parser));
  const std::string model = copy_of(device_model(parser));
  // [buffer]

  // [array]
  is_loaded = is_loaded && parse_file(parser, argv[2]) == 1;
  std::vector<double> kept;
  if (const double* spectrum = get_spectrum_from_patch(parser, 0)) {
    kept.assign(spectrum, spectrum + spectral_size(parser));
  }
  cleanup_parser(&parser);  // `spectrum` would point to nothing now, `kept` stays
  // [array]

  if (!is_loaded) return 1;
  std::printf("%s, %s, %zu values\n", maker.c_str(), model.c_str(), kept.size());
}
