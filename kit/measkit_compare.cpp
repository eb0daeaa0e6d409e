#include "kit/compare/comparison.h"
#include "kit/compare/tolerances.h"
#include "kit/measkit_document.h"
#include "kit/write/comparison_json.h"
#include "kit/write/html/comparison/comparison_page.h"

#include <algorithm>
#include <array>
#include <climits>

using measkit::guarded;
using measkit::has_chart;
using measkit::JudgedComparison;

struct mk_comparison {
  JudgedComparison judged;
  std::string json = {}, html = {};

  const measkit::Comparison& comparison() const { return judged.comparison; }
};

namespace {

std::optional<measkit::MatchBy> match_of(mk_match match) {
  switch (match) {
    case MK_MATCH_DEVICE:
      return measkit::MatchBy::device;
    case MK_MATCH_ID:
      return measkit::MatchBy::id;
    case MK_MATCH_NAME:
      return measkit::MatchBy::name;
    case MK_MATCH_LOCATION:
      return measkit::MatchBy::location;
    case MK_MATCH_ORDER:
      return measkit::MatchBy::order;
    default:
      return std::nullopt;
  }
}

measkit::Measure formula_of(mk_formula formula) {
  switch (formula) {
    case MK_DE76:
      return measkit::Measure::de76;
    case MK_DE94:
      return measkit::Measure::de94;
    case MK_CMC:
      return measkit::Measure::cmc;
    default:
      return measkit::Measure::de00;
  }
}

measkit::ComparisonOptions options_of(const mk_compare_options* given) {
  measkit::ComparisonOptions options;
  if (given == nullptr) return options;
  options.match = match_of(given->match);
  options.formula = formula_of(given->formula);
  if (given->median == 1) options.averaging = measkit::Averaging::median;
  if (given->cmc_lightness > 0.0) options.cmc_lightness = given->cmc_lightness;
  if (given->cmc_chroma > 0.0) options.cmc_chroma = given->cmc_chroma;
  return options;
}

const measkit::Chart& chart_at(mk_document* document, int chart) {
  return document->document->charts()[static_cast<std::size_t>(chart)];
}

}  // namespace

mk_comparison* mk_compare(mk_document* reference, int reference_chart, mk_document* sample,
                          int sample_chart, const mk_compare_options* options) noexcept {
  if (!has_chart(reference, reference_chart) || !has_chart(sample, sample_chart)) return nullptr;
  return guarded<mk_comparison*>(nullptr, [=] {
    return std::make_unique<mk_comparison>(
               mk_comparison{{measkit::compare(chart_at(reference, reference_chart),
                                               chart_at(sample, sample_chart), options_of(options)),
                              {}}})
        .release();
  });
}

void mk_close_comparison(mk_comparison** comparison) noexcept {
  if (comparison == nullptr) return;
  delete *comparison;
  *comparison = nullptr;
}

const char* mk_comparison_refusal(const mk_comparison* comparison) noexcept {
  if (comparison == nullptr || !comparison->comparison().is_refused()) return nullptr;
  return comparison->comparison().refusal.c_str();
}

int mk_num_compared(const mk_comparison* comparison) noexcept {
  if (comparison == nullptr) return 0;
  return static_cast<int>(
      std::min(comparison->comparison().colours.size(), static_cast<std::size_t>(INT_MAX)));
}

void mk_compared_patches(const mk_comparison* comparison, int* reference_patches,
                         int* sample_patches) noexcept {
  for (int i = 0; i < mk_num_compared(comparison); ++i) {
    const auto& colour = comparison->comparison().colours[static_cast<std::size_t>(i)];
    if (reference_patches != nullptr)
      reference_patches[i] = static_cast<int>(colour.reference_patch);
    if (sample_patches != nullptr) sample_patches[i] = static_cast<int>(colour.sample_patch);
  }
}

int mk_compared_measure(const mk_comparison* comparison, const char* measure,
                        double* values) noexcept {
  if (comparison == nullptr || measure == nullptr || values == nullptr) return 0;
  const auto found = std::ranges::find(measkit::kMeasureNames, std::string_view(measure));
  if (found == measkit::kMeasureNames.end()) return 0;
  const auto position = static_cast<std::size_t>(found - measkit::kMeasureNames.begin());
  for (int i = 0; i < mk_num_compared(comparison); ++i) {
    values[i] = comparison->comparison().colours[static_cast<std::size_t>(i)].measures[position];
  }
  return 1;
}

int mk_figure(const mk_comparison* comparison, const char* name, double* value) noexcept {
  if (comparison == nullptr || name == nullptr || value == nullptr) return 0;
  const std::optional<double> figure = measkit::figure_at(comparison->comparison(), name);
  if (!figure) return 0;
  *value = *figure;
  return 1;
}

const char* mk_comparison_json(mk_comparison* comparison) noexcept {
  if (comparison == nullptr) return nullptr;
  return guarded<const char*>(nullptr, [=] {
    if (comparison->json.empty())
      comparison->json = measkit::comparison_json_of({&comparison->judged, 1});
    return comparison->json.c_str();
  });
}

const char* mk_comparison_html(mk_comparison* comparison) noexcept {
  if (comparison == nullptr) return nullptr;
  return guarded<const char*>(nullptr, [=] {
    if (comparison->html.empty()) {
      const std::span<const JudgedComparison> samples(&comparison->judged, 1);
      comparison->html = measkit::html::comparison_page_of(samples);
    }
    return comparison->html.c_str();
  });
}
