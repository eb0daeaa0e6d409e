// Prints the identifier, the device values and Lab of every patch of a file.
#include <measdata.h>

#include <array>
#include <cstdio>
#include <exception>
#include <memory>
#include <stdexcept>
#include <vector>

// [handle]
struct Release {
  void operator()(void* parser) const { cleanup_parser(&parser); }
};
using Parser = std::unique_ptr<void, Release>;

Parser load(const char* path) {
  Parser parser(init_parser());
  if (parse_file(parser.get(), path) == 0) {
    const char* messages = parse_messages(parser.get());
    throw std::runtime_error(messages == nullptr ? "no memory" : messages);
  }
  return parser;
}
// [handle]

// [main]
int main(int argc, char** argv) {
  if (argc != 2) return 2;
  try {
    const Parser parser = load(argv[1]);
    std::vector<double> device(static_cast<std::size_t>(num_device_channels(parser.get())));
    for (int patch = 0; patch < num_patches(parser.get()); ++patch) {
      std::array<double, 3> lab = {};
      get_dev_from_patch(parser.get(), patch, device.data());
      get_lab_from_patch(parser.get(), patch, lab.data());
      std::printf("%s:", get_id_from_patch(parser.get(), patch));
      for (const double value : device) std::printf(" %3.0f", value);
      std::printf("   Lab %5.1f %5.1f %5.1f\n", lab[0], lab[1], lab[2]);
    }
  } catch (const std::exception& failure) {
    std::fputs(failure.what(), stderr);
    return 1;
  }
}
// [main]
