#include "kit/preflight/spectral_grid.h"

#include "kit/preflight/decimal_text.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>

namespace measkit {
namespace {

bool is_whole(double value) { return value == std::floor(value); }

// The library's own test of a grid, for wavelengths as the names give them.
bool is_taken_by_library(const std::vector<double>& w) {
  const double first = w.front();
  const double step = w.size() == 1 ? 1.0 : (w.back() - first) / static_cast<double>(w.size() - 1);
  if (!is_whole(first) || !is_whole(step) || step == 0.0) return false;
  double scale = 0.0;
  for (const double nm : w) {
    for (const double candidate : {1.0, 10.0, 100.0}) {
      if (is_whole(nm * candidate)) {
        scale = std::max(scale, candidate);
        break;
      }
    }
  }
  const double tolerance = scale == 0.0 ? 1.0 : 1.5 / scale;
  for (std::size_t i = 0; w.size() >= 3 && i < w.size(); ++i) {
    if (std::abs(w[i] - (first + static_cast<double>(i) * step)) > tolerance) return false;
  }
  return true;
}

double number_of(const Table& table, std::string_view keyword) {
  const HeaderLine* line = table.find(keyword);
  return line == nullptr ? 0.0 : std::strtod(line->value.c_str(), nullptr);
}

// Names may hold rounded wavelengths while keywords give the range and the number of bands.
void use_stated_range(const Table& table, std::vector<double>& wavelengths) {
  const double start = number_of(table, "SPECTRAL_START_NM");
  const double end = number_of(table, "SPECTRAL_END_NM");
  const auto bands = static_cast<double>(wavelengths.size());
  if (number_of(table, "SPECTRAL_BANDS") != bands || bands < 2 || !(start > 0.0) ||
      !(end > start)) {
    return;
  }
  const double step = (end - start) / (bands - 1.0);
  for (std::size_t i = 0; i < wavelengths.size(); ++i) {
    if (std::abs(wavelengths[i] - (start + static_cast<double>(i) * step)) > 1.0) return;
  }
  for (std::size_t i = 0; i < wavelengths.size(); ++i) {
    wavelengths[i] = start + static_cast<double>(i) * step;
  }
}

// Wavelengths in thirds of nanometres, rounded to whole ones or to decimals.
void use_even_steps(std::vector<double>& wavelengths) {
  if (wavelengths.size() < 3) return;
  const double step =
      (wavelengths.back() - wavelengths.front()) / static_cast<double>(wavelengths.size() - 1);
  for (std::size_t i = 0; i < wavelengths.size(); ++i) {
    const double even = wavelengths.front() + static_cast<double>(i) * step;
    if (std::abs(wavelengths[i] - even) > 0.51) return;
  }
  for (std::size_t i = 0; i < wavelengths.size(); ++i) {
    wavelengths[i] = wavelengths.front() + static_cast<double>(i) * step;
  }
}

double largest_gap(const std::vector<double>& wavelengths) {
  double gap = 0.0;
  for (std::size_t i = 1; i < wavelengths.size(); ++i) {
    gap = std::max(gap, wavelengths[i] - wavelengths[i - 1]);
  }
  return gap;
}

std::string range_text(const std::vector<double>& wavelengths) {
  return std::to_string(wavelengths.size()) + " bands from " + rounded(wavelengths.front()) +
         " to " + rounded(wavelengths.back()) + " nm";
}

void set_aside(Table& table, const std::vector<SpectralField>& spectra, const std::string& why) {
  for (const SpectralField& spectral : spectra) {
    table.rename(spectral.field, "OTHER_" + text_of(spectral.nm) + "_NM");
  }
  table.findings.add(Severity::lost, "spectral-grid", why, table.data_line);
}

void average(Table& table, const std::vector<SpectralField>& spectra,
             const std::vector<double>& wavelengths, double step) {
  const GridAverage grid(wavelengths, step);
  std::vector<std::vector<double>> columns;
  columns.reserve(spectra.size());
  for (const SpectralField& spectral : spectra) columns.push_back(table.numbers(spectral.field));
  std::vector<int> fields;
  fields.reserve(spectra.size());
  for (const SpectralField& spectral : spectra) fields.push_back(spectral.field);
  std::vector<std::vector<std::string_view>> texts(grid.size());
  for (std::size_t i = 0; i < grid.size(); ++i) {
    for (std::size_t row = 0; row < table.row_count(); ++row) {
      const double value =
          grid.value(i, [&columns, row](std::size_t band) { return columns[band][row]; });
      texts[i].push_back(text_of(value, table.pool));
    }
  }
  table.remove_fields(std::move(fields));
  for (std::size_t i = 0; i < grid.size(); ++i) {
    table.add_field("SPECTRAL_NM" + text_of(grid.nm(i)), std::move(texts[i]));
  }
  const auto state = [&table](std::string_view keyword, const std::string& value) {
    if (HeaderLine* line = table.find(keyword)) table.set_value(*line, value);
  };
  state("SPECTRAL_BANDS", std::to_string(grid.size()));
  state("SPECTRAL_START_NM", text_of(grid.nm(0)));
  state("SPECTRAL_END_NM", text_of(grid.nm(grid.size() - 1)));
  table.findings.add(Severity::repaired, "spectral-grid",
                     "Spectra of " + range_text(wavelengths) + " are averaged to " +
                         std::to_string(grid.size()) + " bands of " + rounded(step) + " nm.",
                     table.data_line);
}

}  // namespace

GridAverage::GridAverage(const std::vector<double>& wavelengths, double step) {
  constexpr double kRounding = 1e-6;
  const double first = std::ceil(wavelengths.front() / step - kRounding);
  const double last = std::floor(wavelengths.back() / step + kRounding);
  for (int i = 0; first + i <= last; ++i) {
    const double nm = (first + i) * step;
    Row row = {nm, {}};
    double sum = 0.0;
    const auto start = std::lower_bound(wavelengths.begin(), wavelengths.end(), nm - step);
    for (auto w = start; w != wavelengths.end() && *w < nm + step; ++w) {
      const double weight = 1.0 - std::abs(*w - nm) / step;
      if (weight <= 0.0) continue;
      row.weights.emplace_back(static_cast<std::size_t>(w - wavelengths.begin()), weight);
      sum += weight;
    }
    for (auto& [position, weight] : row.weights) weight /= sum;
    if (!row.weights.empty()) rows_.push_back(std::move(row));
  }
}

bool use_regular_grid(Table& table) {
  std::vector<SpectralField> spectra = table.roles().spectra;
  if (spectra.empty()) return true;
  std::vector<double> wavelengths;
  wavelengths.reserve(spectra.size());
  for (const SpectralField& spectral : spectra) wavelengths.push_back(spectral.nm);
  if (is_taken_by_library(wavelengths) && wavelengths.front() <= wavelengths.back()) return true;
  std::stable_sort(spectra.begin(), spectra.end(),
                   [](const auto& a, const auto& b) { return a.nm < b.nm; });
  for (std::size_t i = 0; i < spectra.size(); ++i) wavelengths[i] = spectra[i].nm;
  use_stated_range(table, wavelengths);
  use_even_steps(wavelengths);
  constexpr double kCoarseStep = 10.0, kFineStep = 5.0;
  const bool are_wavelengths = wavelengths.front() >= 200.0 && wavelengths.back() <= 2600.0;
  const double gap = largest_gap(wavelengths);
  const bool is_enough = wavelengths.back() - wavelengths.front() >= kCoarseStep;
  if (!are_wavelengths || !is_enough || gap > kCoarseStep + 0.01) {
    set_aside(table, spectra,
              "The spectra cannot be used: " + range_text(wavelengths) +
                  " do not make an even grid, and are up to " + rounded(gap) + " nm apart.");
    return false;
  }
  const double step =
      (wavelengths.back() - wavelengths.front()) / static_cast<double>(wavelengths.size() - 1);
  const bool is_fine = is_whole(std::round(kFineStep / step * 1000.0) / 1000.0);
  average(table, spectra, wavelengths, is_fine ? kFineStep : kCoarseStep);
  return true;
}

}  // namespace measkit
