// Uses the C++ header in ways that C++17 has, without exceptions.
#include <algorithm>
#include <iterator>
#include <measdata.hpp>
#include <numeric>
#include <type_traits>

static_assert(!std::is_copy_constructible_v<measdata::chart>);
static_assert(std::is_nothrow_move_assignable_v<measdata::chart>);
#ifdef __cpp_lib_span
static_assert(std::is_same_v<measdata::span<const double>, std::span<const double>>);
static_assert(std::random_access_iterator<decltype(measdata::chart().patches().begin())>);
static_assert(std::ranges::borrowed_range<decltype(measdata::chart().keywords())>);
#endif

int main() {
  constexpr std::string_view text =
      "CGATS.17\nSERIAL 7\nBEGIN_DATA_FORMAT\nSAMPLE_ID SPECTRAL_NM400 SPECTRAL_NM410\n"
      "END_DATA_FORMAT\nBEGIN_DATA\n1 0.5 0.25\n2 0.75 1\nEND_DATA\n";
  const auto loaded = measdata::chart::try_load_block(text);
  if (!loaded || measdata::chart::try_load("").has_value()) return 1;
  const auto patches = loaded->patches();
  const auto last = std::find_if(patches.begin(), patches.end(),
                                 [](const measdata::patch& p) { return p.id() == "2"; });
  if (std::distance(patches.begin(), last) != 1 || last->position() != 1) return 2;
  const measdata::span<const double> values =
      last->spectrum().value_or(measdata::span<const double>());
  if (values.size() != 2 || values.empty() || values[1] != values.data()[1]) return 3;
  if (std::accumulate(values.begin(), values.end(), 0.0) != 1.75) return 4;
  const measdata::wavelength_range range = *loaded->wavelengths();
  return range.step == 10.0 && loaded->keyword_value("SERIAL") == "7" ? 0 : 5;
}
