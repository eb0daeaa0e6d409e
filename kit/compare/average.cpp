#include "kit/compare/average.h"

#include "kit/colour/colour_difference.h"
#include "kit/preflight/decimal_text.h"

#include <algorithm>
#include <cmath>

namespace measkit {
namespace {

// One measurement of a colour.
struct Measurement {
  const Chart* chart;
  std::uint32_t patch;
};
using Measurements = std::vector<Measurement>;

bool is_measured(const Measurement& measurement) {
  const Triple lab = triple_at(measurement.chart->lab, measurement.patch);
  return std::isfinite(lab[0] + lab[1] + lab[2]);
}

// The average of a row of numbers over measurements.
void average_into(const Measurements& measurements, Values Chart::*table, Averaging averaging,
                  std::size_t width, double* out) {
  std::vector<double> column;
  for (std::size_t i = 0; i < width; ++i) {
    column.clear();
    for (const Measurement& one : measurements)
      column.push_back((one.chart->*table).row(one.patch)[i]);
    out[i] = average_of(column, averaging);
  }
}

Lab lab_at(const Measurement& measurement) {
  const Triple lab = triple_at(measurement.chart->lab, measurement.patch);
  return {lab[0], lab[1], lab[2]};
}

// Takes the outliers out of the measurements of a colour.
Measurements take_outliers(Measurements& measurements) {
  constexpr std::size_t kFewest = 4;
  constexpr double kLimit = 3.5, kToStandardDeviation = 1.4826, kLeastDistance = 0.5;
  if (measurements.size() < kFewest) return {};
  Triple median{};
  average_into(measurements, &Chart::lab, Averaging::median, median.size(), median.data());
  const auto distance_of = [&median](const Measurement& one) {
    return delta_e_76({median[0], median[1], median[2]}, lab_at(one));
  };
  std::vector<double> distances;
  for (const Measurement& one : measurements) distances.push_back(distance_of(one));
  const double deviation = kToStandardDeviation * average_of(distances, Averaging::median);
  const double limit = std::max(kLeastDistance, kLimit * deviation);
  const auto outliers =
      std::stable_partition(measurements.begin(), measurements.end(),
                            [&](const Measurement& one) { return distance_of(one) <= limit; });
  Measurements taken(outliers, measurements.end());
  measurements.erase(outliers, measurements.end());
  return taken;
}

bool have_same_spectra(std::span<const Chart* const> charts) {
  return std::ranges::all_of(charts, [&](const Chart* chart) {
    return !chart->spectra.empty() && chart->wavelengths == charts.front()->wavelengths &&
           chart->quantity == charts.front()->quantity;
  });
}

std::string reason_against(std::span<const Chart* const> charts) {
  if (charts.empty()) return "There are no charts.";
  for (const Chart* chart : charts) {
    if (chart->patch_count == 0) return chart->name + " has no patches.";
    if (chart->lab.empty()) return chart->name + " has no Lab. " + chart->lab_sentence;
  }
  return {};
}

std::string named(const Measurement& measurement) {
  return "patch " + patch_label(*measurement.chart, measurement.patch) + " of " +
         measurement.chart->name;
}

struct Colour {
  std::uint32_t patch;  // the first of it in the first chart
  Measurements measurements;
};

class Averager {
 public:
  Averager(std::span<const Chart* const> charts, const AverageOptions& options)
      : charts_(charts), options_(options), has_spectra_(have_same_spectra(charts)) {}

  AveragedChart run() {
    AveragedChart result;
    result.refusal = reason_against(charts_);
    if (result.refusal.empty()) collect(result);
    if (!result.refusal.empty()) return result;
    average(result.chart);
    result.chart.findings = findings_.list();
    result.findings = findings_.list();
    return result;
  }

 private:
  // All measurements of each colour of the first chart.
  void collect(AveragedChart& result) {
    const Chart& first = *charts_.front();
    for (std::size_t i = 0; i < charts_.size(); ++i) {
      const Matching matching = match(first, *charts_[i], options_.match);
      if (matching.pairs.empty()) {
        result.refusal = charts_[i]->name + ": " + matching.sentence;
        return;
      }
      // All charts are grouped like the first one is with itself.
      if (i == 0) by_ = matching.by;
      if (matching.by != by_) {
        result.refusal = charts_[i]->name + " takes another way to match: " + matching.sentence;
        return;
      }
      if (i == 0) name_colours(matching.reference);
      for (const auto& [group, other] : matching.pairs) {
        for (const std::uint32_t patch : matching.sample.patches_of(other)) {
          const Measurement one = {charts_[i], patch};
          if (is_measured(one)) colours_[group].measurements.push_back(one);
        }
      }
      tell_left_out(matching, *charts_[i]);
    }
    std::erase_if(colours_, [](const Colour& colour) { return colour.measurements.empty(); });
    if (colours_.empty()) result.refusal = "No colour was measured.";
  }

  void name_colours(const PatchGroups& groups) {
    for (std::size_t group = 0; group < groups.size(); ++group) {
      colours_.push_back({groups.patches_of(group).front(), {}});
    }
  }

  void tell_left_out(const Matching& matching, const Chart& chart) {
    const auto tell = [&](std::size_t count, const std::string& what) {
      if (count == 0) return;
      findings_.add(
          Severity::doubtful, "unmatched-colours",
          chart.name + what + std::to_string(count) + (count == 1 ? " colour." : " colours."));
    };
    tell(matching.only_in_reference.size(), " does not hold ");
    tell(matching.only_in_sample.size(), " holds more than the first chart; left out: ");
  }

  void average(Chart& chart) {
    const Chart& first = *charts_.front();
    take_description(chart, first);
    const std::size_t bands = has_spectra_ ? first.wavelengths.size() : 0;
    double* lab = chart.lab.reset(3, colours_.size());
    double* spectrum = has_spectra_ ? chart.spectra.reset(bands, colours_.size()) : nullptr;
    double* device = nullptr;
    if (!first.device.empty()) device = chart.device.reset(first.device.width(), colours_.size());
    for (auto& [patch, colour] : colours_) {
      tell_outliers(colour);
      average_into(colour, &Chart::lab, options_.averaging, 3, lab);
      lab += 3;
      if (spectrum != nullptr) {
        average_into(colour, &Chart::spectra, options_.averaging, bands, spectrum);
        spectrum += bands;
      }
      // The first chart names the colour, even where it did not measure it.
      if (device != nullptr) device = std::ranges::copy(first.device.row(patch), device).out;
      add_texts(chart, first, patch);
    }
  }

  void tell_outliers(Measurements& colour) {
    const Measurements outliers = take_outliers(colour);
    for (const Measurement& outlier : outliers) {
      Triple median{};
      average_into(colour, &Chart::lab, Averaging::median, median.size(), median.data());
      const double distance = delta_e_76({median[0], median[1], median[2]}, lab_at(outlier));
      const bool is_out = options_.leaves_out_outliers;
      findings_.add(is_out ? Severity::repaired : Severity::doubtful, "outlier",
                    named(outlier) + " differs from the other measurements by " +
                        rounded(distance) + " Delta E*ab: " + (is_out ? "left out." : "kept."));
    }
    if (!options_.leaves_out_outliers) {
      colour.insert(colour.end(), outliers.begin(), outliers.end());
    }
  }

  void take_description(Chart& chart, const Chart& first) const {
    chart.is_loaded = true;
    chart.patch_count = colours_.size();
    chart.identifier = first.identifier;
    chart.quantity = first.quantity;
    chart.device_set = first.device_set;
    chart.is_rgb = first.is_rgb;
    chart.full_scale = first.full_scale;
    chart.channels = first.channels;
    if (has_spectra_) chart.wavelengths = first.wavelengths;
    for (const Entry& entry : first.keywords) {
      const bool is_shared = std::ranges::all_of(charts_, [&entry](const Chart* other) {
        return std::ranges::any_of(other->keywords, [&entry](const Entry& one) {
          return one.name == entry.name && one.value == entry.value;
        });
      });
      if (is_shared) chart.keywords.push_back(entry);
    }
  }

  static void add_texts(Chart& chart, const Chart& from, std::uint32_t patch) {
    if (!from.ids.empty()) chart.ids.push_back(from.ids[patch]);
    if (!from.names.empty()) chart.names.push_back(from.names[patch]);
    if (!from.locations.empty()) chart.locations.push_back(from.locations[patch]);
  }

  std::span<const Chart* const> charts_;
  const AverageOptions& options_;
  bool has_spectra_;
  MatchBy by_ = MatchBy::order;
  std::vector<Colour> colours_;  // by group of the first chart
  Findings findings_;
};

}  // namespace

AveragedChart average_charts(std::span<const Chart* const> charts, const AverageOptions& options) {
  return Averager(charts, options).run();
}

}  // namespace measkit
