// Copies results that it needs for longer than the library keeps them.
#include <cstdio>
#include <measdata.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace {

// [text]
// A text that the file does not have becomes an empty string.
std::string copy_of(std::optional<std::string_view> text) { return std::string(text.value_or("")); }
// [text]

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  auto chart = measdata::chart::create();
  bool is_loaded = chart.read(argv[1]);

  // [buffer]
  // Each call overwrites the result of the previous call.
  const std::string maker = copy_of(chart.device_manufacturer());
  const std::string model = copy_of(chart.device_model());
  // [buffer]

  // [array]
  is_loaded = is_loaded && chart.read(argv[2]);
  std::vector<double> kept;
  if (const auto spectrum = chart.patches()[0].spectrum()) {
    kept.assign(spectrum->begin(), spectrum->end());
  }
  chart = measdata::chart();  // releases the handle: only `kept` stays valid
  // [array]

  if (!is_loaded) return 1;
  std::printf("%s, %s, %zu values\n", maker.c_str(), model.c_str(), kept.size());
}
