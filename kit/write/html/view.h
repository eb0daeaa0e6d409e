// What a page shows of a chart: texts safe to stand in HTML, colours, lists short enough for a
// page.
#ifndef MEASDATA_KIT_WRITE_HTML_VIEW_H
#define MEASDATA_KIT_WRITE_HTML_VIEW_H

#include "kit/chart/chart.h"
#include "kit/figures/display_white.h"
#include "kit/figures/neutral_ramp.h"
#include "kit/figures/print_figures.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace measkit::html {

/// A line of a table; safe to stand in HTML.
struct Row {
  std::string name, value;
  std::string source;  ///< the words of the file behind the value; may be empty
};

struct FindingView {
  Severity severity;
  std::string sentence;  ///< safe to stand in HTML
  std::size_t line;      ///< 0 for none
};

/// A patch. The colour is #RRGGBB; it is empty where the chart tells none, and Lab is missing then.
struct PatchView {
  std::string label;  ///< safe to stand in HTML
  std::string colour;
  std::optional<Triple> lab;
  std::span<const double> device, densities, spectrum;
};

/// A measuring condition; its value is empty when the file does not tell it.
struct Badge {
  std::string_view name;
  std::string value;  ///< safe to stand in HTML
};

struct LandmarkView {
  std::string name;  ///< safe to stand in HTML
  std::string colour;
  Triple lab;
};

struct WedgeStep {
  double device;
  Triple lab;
  std::string colour;
};

struct ChannelView {
  std::string name, short_name, letter;  ///< safe to stand in HTML; few have a letter
  std::string colour;                    ///< of the last step of the wedge; may be empty
  std::span<const DistinctValue> distinct_values;
  std::vector<WedgeStep> wedge;  ///< from the patch with all channels 0, where the chart has it
};

/// A merged patch that was measured more than once.
struct RepeatedPatch {
  std::string label, colour;  ///< safe to stand in HTML
  std::span<const double> device;
  int count;
  double de_mean, de_max;
};

/// Refers to the chart's numbers: the chart must outlive it.
struct View {
  std::string name;   ///< safe to stand in HTML
  std::string title;  ///< what the file calls the chart; safe to stand in HTML
  bool is_loaded = false;
  const Chart* chart = nullptr;
  std::vector<FindingView> findings;  ///< the gravest first
  std::size_t more_findings = 0;      ///< that are not listed
  std::vector<std::string> messages;  ///< safe to stand in HTML
  std::size_t more_messages = 0;      ///< that are not listed

  std::size_t patch_count = 0, merged_count = 0;
  std::string device_space;  ///< safe to stand in HTML; empty without device values
  bool is_rgb = false;
  Quantity quantity = Quantity::reflectance;
  std::vector<Badge> badges;
  std::string instrument_line;  ///< of the file as it stands; safe to stand in HTML
  std::vector<Row> facts, colour, conditions, instrument, sample, keywords;
  std::size_t more_keywords = 0, empty_keywords = 0;
  std::vector<PatchView> patches;          ///< as many as a page can show
  std::vector<std::string> density_names;  ///< safe to stand in HTML
  std::span<const double> wavelengths;     ///< nm, of the patches' spectra
  std::vector<ChannelView> channels;
  std::vector<LandmarkView> landmarks;
  std::vector<RepeatedPatch> worst_repeats;  ///< the worst first
  std::vector<double> repeat_differences;    ///< Delta E*ab of all merged patches that repeat

  PrintFigures figures;
  NeutralRamp ramp;
  std::optional<DisplayWhite> display_white;
};

View view_of(const Chart& chart);

}  // namespace measkit::html

#endif  // MEASDATA_KIT_WRITE_HTML_VIEW_H
