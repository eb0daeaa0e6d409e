#include "kit/compare/tolerances.h"

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>

namespace measkit {
namespace {

struct FigurePath {
  std::size_t group, measure;
  double Figures::*figure;
};

template <typename Names>
std::optional<std::size_t> position_in(const Names& names, std::string_view name) {
  const auto found = std::ranges::find(names, name);
  if (found == names.end()) return std::nullopt;
  return static_cast<std::size_t>(found - names.begin());
}

std::optional<FigurePath> path_of(std::string_view text) {
  const std::size_t first = text.find('.');
  const std::size_t second = text.rfind('.');
  if (first == std::string_view::npos || first == second) return std::nullopt;
  const auto group = position_in(kColourGroupNames, text.substr(0, first));
  const auto measure = position_in(kMeasureNames, text.substr(first + 1, second - first - 1));
  const auto figure = std::ranges::find(kFigures, text.substr(second + 1), &NamedFigure::name);
  if (!group || !measure || figure == kFigures.end()) return std::nullopt;
  return FigurePath{*group, *measure, figure->value};
}

}  // namespace

Tolerances read_tolerances(std::string_view text) {
  using Json = nlohmann::ordered_json;
  constexpr bool kMayThrow = false, kIgnoreComments = true;
  Tolerances tolerances;
  const Json json = Json::parse(text, nullptr, kMayThrow, kIgnoreComments);
  if (!json.is_object() || json.empty()) {
    tolerances.error = "not an object of JSON with figures and their limits";
    return tolerances;
  }
  for (const auto& [name, limit] : json.items()) {
    if (!path_of(name)) {
      tolerances.error = '"' + name + R"(" is no figure; figures look like "all.de00.p95")";
    } else if (!limit.is_number() || !(limit.get<double>() >= 0.0)) {
      tolerances.error = "the limit of \"" + name + "\" is not a number from 0";
    }
    if (!tolerances.error.empty()) return tolerances;
    tolerances.list.push_back({name, limit.get<double>()});
  }
  return tolerances;
}

std::optional<double> figure_at(const Comparison& comparison, std::string_view path) {
  const auto found = path_of(path);
  if (!found) return std::nullopt;
  const Figures& figures = comparison.groups[found->group].measures[found->measure];
  if (figures.count == 0) return std::nullopt;
  return figures.*found->figure;
}

std::vector<Verdict> judge(const Comparison& comparison, const std::vector<Tolerance>& tolerances) {
  std::vector<Verdict> verdicts;
  for (const Tolerance& tolerance : tolerances) {
    Verdict verdict = {tolerance.figure, tolerance.limit, figure_at(comparison, tolerance.figure),
                       false};
    verdict.passed = verdict.value && std::abs(*verdict.value) <= tolerance.limit;
    verdicts.push_back(std::move(verdict));
  }
  return verdicts;
}

bool JudgedComparison::has_passed() const {
  return !comparison.is_refused() && std::ranges::all_of(verdicts, &Verdict::passed);
}

}  // namespace measkit
