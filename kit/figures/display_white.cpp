#include "kit/figures/display_white.h"

#include "colortypes/spectral/cie_data.h"

#include <algorithm>
#include <cmath>
#include <sstream>

namespace measkit {
namespace {

using vantor::ColorTypes::Tristimulus;

struct Uv {
  double u, v;
};

Uv uv_of(const Tristimulus& xyz) {
  const double sum = xyz.x + 15.0 * xyz.y + 3.0 * xyz.z;
  return {4.0 * xyz.x / sum, 6.0 * xyz.y / sum};
}

// Planck's law without the factors that all wavelengths share.
Tristimulus black_body(double kelvin) {
  constexpr double kSecondRadiationConstant = 1.438776877e7;  // nm K
  Tristimulus xyz{};
  for (const auto& row : vantor::ColorTypes::Spectral::cieData()) {
    const double nm = row.nm;
    const double power =
        std::pow(nm / 560.0, -5.0) / std::expm1(kSecondRadiationConstant / (nm * kelvin));
    xyz.x += row.x * power;
    xyz.y += row.y * power;
    xyz.z += row.z * power;
  }
  return xyz;
}

double distance_to_black_body(const Uv& uv, double mired) {
  const Uv body = uv_of(black_body(1e6 / mired));
  return std::hypot(uv.u - body.u, uv.v - body.v);
}

// The second number of a keyword like LUMINANCE_XYZ_CDM2 "95.1 100.2 108.7".
std::optional<double> luminance_in(const Chart& chart) {
  const auto entry = std::ranges::find(chart.keywords, "LUMINANCE_XYZ_CDM2", &Entry::name);
  if (entry == chart.keywords.end()) return std::nullopt;
  std::istringstream words(entry->value);
  words.imbue(std::locale::classic());
  double x = 0.0, y = 0.0;
  return words >> x >> y && std::isfinite(y) && y > 0.0 ? std::optional(y) : std::nullopt;
}

}  // namespace

// Equal steps of mired (a million over kelvin) are about equal steps of colour, and the distance
// has one least value along the curve for all colours near it.
std::optional<double> correlated_colour_temperature(const Tristimulus& xyz) {
  constexpr double kFarthest = 0.05, kLeastMired = 40.0, kMostMired = 1000.0;
  const Uv uv = uv_of(xyz);
  if (!std::isfinite(uv.u + uv.v)) return std::nullopt;
  double nearest = kLeastMired;
  constexpr double kStep = 20.0;
  constexpr int kSteps = static_cast<int>((kMostMired - kLeastMired) / kStep);
  for (int i = 1; i <= kSteps; ++i) {
    const double mired = kLeastMired + i * kStep;
    if (distance_to_black_body(uv, mired) < distance_to_black_body(uv, nearest)) nearest = mired;
  }
  double low = std::max(nearest - kStep, kLeastMired), high = std::min(nearest + kStep, kMostMired);
  constexpr double kPrecision = 1e-4;  // mired
  while (high - low > kPrecision) {
    const double first = low + (high - low) / 3.0, second = high - (high - low) / 3.0;
    const bool is_left = distance_to_black_body(uv, first) < distance_to_black_body(uv, second);
    (is_left ? high : low) = is_left ? second : first;
  }
  if (distance_to_black_body(uv, low) > kFarthest) return std::nullopt;
  return 1e6 / low;
}

std::optional<DisplayWhite> display_white_of(const Chart& chart) {
  if (!chart.is_display || chart.xyz.empty() || !chart.paper_white) return std::nullopt;
  const std::size_t patch = chart.merged.patches_of(*chart.paper_white).front();
  const Triple xyz = triple_at(chart.xyz, patch);
  DisplayWhite white = {{xyz[0], xyz[1], xyz[2]}, {}, luminance_in(chart)};
  white.kelvin = correlated_colour_temperature(white.xyz);
  return white;
}

}  // namespace measkit
