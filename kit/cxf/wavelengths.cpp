#include "kit/cxf/wavelengths.h"

#include "kit/cxf/numbers.h"
#include "kit/preflight/decimal_text.h"

#include <algorithm>
#include <string>
#include <vector>

namespace measkit::cxf {
namespace {

// The grids that programs mean when they say none: 380 to 730 nm and 400 to 700 nm by 10 nm.
constexpr double kUsualStep = 10.0;
double usual_start(std::size_t bands) { return bands == 36 ? 380.0 : bands == 31 ? 400.0 : 0.0; }

bool is_usual(std::size_t bands) { return usual_start(bands) != 0.0; }

bool is_possible(const Grid& grid) {
  constexpr std::size_t kMostBands = 2001;  // 300 to 2300 nm by 1 nm
  constexpr double kShortest = 100.0, kLongest = 3000.0;
  return grid.bands >= 1 && grid.bands <= kMostBands && grid.start >= kShortest &&
         grid.step > 0.0 &&
         grid.start + grid.step * static_cast<double>(grid.bands - 1) <= kLongest;
}

std::string words_of(const Grid& grid) {
  return counted(grid.bands, "value") + " from " + rounded(grid.start) + " nm by " +
         rounded(grid.step) + " nm";
}

std::string spectra(std::size_t count) {
  return std::to_string(count) + (count == 1 ? " spectrum" : " spectra");
}

// What the spectra of a layer say about their wavelengths.
class Survey {
 public:
  Survey(const Document& document, const LineIndex& lines) : document_(document), lines_(lines) {}

  void add(const Measured& spectrum) {
    const Specification& specification =
        document_.specifications[static_cast<std::size_t>(spectrum.specification)];
    const bool has_start = !specification.start.empty() || !spectrum.parts[1].empty();
    const bool has_step = !specification.increment.empty() || !spectrum.parts[2].empty();
    if (!has_start || !has_step) remember(guess_, spectrum);
    const auto own = number_of(spectrum.parts[1]), declared = number_of(specification.start);
    const bool is_complete = !spectrum.parts[2].empty();  // needs no specification
    if (own && declared && *own != *declared && !is_complete) remember(contradiction_, spectrum);
    count(grid_of(spectrum, specification), spectrum);
  }

  std::optional<Grid> tell(Findings& findings) {
    const auto most =
        std::max_element(counts_.begin(), counts_.end(),
                         [](const Counted& a, const Counted& b) { return a.count < b.count; });
    tell_grids(most, findings);
    if (most == counts_.end()) return std::nullopt;
    if (guess_.count != 0) {
      findings.add(Severity::doubtful, "cxf-wavelengths",
                   "The wavelengths of " + spectra(guess_.count) +
                       " are not stated in full: taken as the usual " + words_of(most->grid) + ".",
                   guess_.line);
    }
    if (contradiction_.count != 0) {
      findings.add(Severity::doubtful, "cxf-wavelengths",
                   "The specification says another first wavelength than " +
                       spectra(contradiction_.count) + ", whose own is taken.",
                   contradiction_.line);
    }
    return most->grid;
  }

 private:
  struct Told {
    std::size_t count = 0, line = 0;
  };
  struct Counted {
    Grid grid;
    std::size_t count, line;
  };

  void remember(Told& told, const Measured& spectrum) const {
    if (told.count++ == 0) told.line = lines_.line_at(spectrum.offset);
  }

  // A grid beyond the first few is not that of most spectra.
  void count(const std::optional<Grid>& grid, const Measured& spectrum) {
    constexpr std::size_t kMostGrids = 16;
    if (!grid) {
      remember(unknown_, spectrum);
      return;
    }
    const auto found = std::ranges::find(counts_, *grid, &Counted::grid);
    if (found != counts_.end()) {
      ++found->count;
    } else if (counts_.size() < kMostGrids) {
      counts_.push_back({*grid, 1, lines_.line_at(spectrum.offset)});
    } else {
      remember(other_, spectrum);
    }
  }

  void tell_grids(std::vector<Counted>::const_iterator most, Findings& findings) const {
    if (unknown_.count != 0) {
      findings.add(Severity::lost, "cxf-wavelengths",
                   "Left out: " + spectra(unknown_.count) +
                       " without wavelengths that are known and possible.",
                   unknown_.line);
    }
    Told others = other_;
    std::string words;
    for (auto one = counts_.begin(); one != counts_.end(); ++one) {
      if (one == most) continue;
      others.line = others.count == 0 ? one->line : std::min(others.line, one->line);
      if (words.empty()) words = ", such as " + words_of(one->grid);
      others.count += one->count;
    }
    if (others.count == 0) return;
    findings.add(Severity::lost, "cxf-wavelengths",
                 "Left out: " + spectra(others.count) + " of other wavelengths" + words +
                     ". Most have " + words_of(most->grid) + ".",
                 others.line);
  }

  const Document& document_;
  const LineIndex& lines_;
  std::vector<Counted> counts_;
  Told guess_, contradiction_, unknown_, other_;
};

}  // namespace

std::optional<Grid> grid_of(const Measured& spectrum, const Specification& specification) {
  Grid grid;
  grid.bands = spectrum.bands;
  const auto number_or = [](std::string_view own, std::string_view declared, double usual) {
    const std::string_view text = own.empty() ? declared : own;
    return text.empty() ? usual : number_of(text).value_or(0.0);
  };
  grid.start = number_or(spectrum.parts[1], specification.start, usual_start(grid.bands));
  grid.step = number_or(spectrum.parts[2], specification.increment,
                        is_usual(grid.bands) ? kUsualStep : 0.0);
  return is_possible(grid) ? std::optional(grid) : std::nullopt;
}

std::optional<Grid> common_grid(const Document& document, const Layer& layer,
                                const LineIndex& lines, Findings& findings) {
  if (!layer.has_spectra()) return std::nullopt;
  Survey survey(document, lines);
  for (const std::vector<std::size_t>& values : layer.values) {
    for (const std::size_t value : values) {
      const Measured& measured = document.colours[value];
      if (is_spectrum(measured.kind)) survey.add(measured);
    }
  }
  return survey.tell(findings);
}

}  // namespace measkit::cxf
