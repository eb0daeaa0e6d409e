// Prints L* of the wedges of a chart, and its darkest patch. Uses no exceptions.
#include <algorithm>
#include <cstdio>
#include <measdata.hpp>

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  // [errors]
  const auto loaded = measdata::chart::try_load(argv[1]);
  if (!loaded) {
    std::fputs(loaded.messages().data(), stderr);
    return 1;
  }
  const measdata::chart& chart = *loaded;
  // [errors]

  // [ranges]
  for (const measdata::channel& channel : chart.channels()) {
    std::printf("%s:", channel.name().value_or("no name").data());
    for (const measdata::merged_patch& step : channel.wedge()) {
      if (const auto lab = step.lab()) std::printf(" %.0f", (*lab)[0]);
    }
    std::printf("\n");
  }
  const auto patches = chart.patches();
  const auto lightness = [](const measdata::patch& patch) {
    return patch.lab().value_or(measdata::lab_values{100})[0];
  };
  const auto darkest = std::min_element(
      patches.begin(), patches.end(),
      [=](const auto& one, const auto& other) { return lightness(one) < lightness(other); });
  if (!patches.empty()) std::printf("The darkest patch is %s.\n", darkest->id().data());
  // [ranges]
}
