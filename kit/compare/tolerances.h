// Limits that users set for the figures of a comparison.
#ifndef MEASDATA_KIT_COMPARE_TOLERANCES_H
#define MEASDATA_KIT_COMPARE_TOLERANCES_H

#include "kit/compare/comparison.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace measkit {

struct Tolerance {
  std::string figure;  ///< its path in the JSON answer: group, measure, figure; "all.de00.p95"
  double limit;        ///< that the figure may reach; of signed figures, their magnitude
};

struct Tolerances {
  std::vector<Tolerance> list;
  std::string error;  ///< why the text holds none; empty when it does
};

/// Reads an object of JSON, figures with their limits. Comments as in C++ are allowed. A name that
/// is no figure is an error.
Tolerances read_tolerances(std::string_view text);

/// A figure by its path; none for other names and for groups without colours.
std::optional<double> figure_at(const Comparison& comparison, std::string_view path);

struct Verdict {
  std::string figure;
  double limit;
  std::optional<double> value;  ///< none when the charts hold no such colours
  bool passed;
};

/// One for each tolerance. A figure without a value has not passed.
std::vector<Verdict> judge(const Comparison& comparison, const std::vector<Tolerance>& tolerances);

/// A comparison with what its tolerances say, if there are any.
struct JudgedComparison {
  Comparison comparison;
  std::vector<Verdict> verdicts;

  /// True when there are figures and no tolerance is exceeded.
  bool has_passed() const;
};

}  // namespace measkit

#endif  // MEASDATA_KIT_COMPARE_TOLERANCES_H
