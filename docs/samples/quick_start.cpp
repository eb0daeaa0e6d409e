// Prints the identifier, the device values and Lab of every patch of a file.
#include <cstdio>
#include <exception>
#include <measdata.hpp>

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  try {
    const auto chart = measdata::chart::load(argv[1]);
    for (const measdata::patch& patch : chart.patches()) {
      std::printf("%s:", patch.id().data());
      if (const auto device = patch.device()) {
        for (const double value : *device) std::printf(" %3.0f", value);
      }
      if (const auto lab = patch.lab()) {
        const auto [l, a, b] = *lab;
        std::printf("   Lab %5.1f %5.1f %5.1f", l, a, b);
      }
      std::printf("\n");
    }
  } catch (const std::exception& failure) {
    std::fputs(failure.what(), stderr);
    return 1;
  }
}
