// What a report shows of one file, gathered once.
#ifndef MEASDATA_TOOLS_REPORT_CHART_H
#define MEASDATA_TOOLS_REPORT_CHART_H

#include "tools/queries.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tools::report {

/// A row of a table. Its texts are escaped HTML.
struct Entry {
  std::string name, value;
};

/// A patch with its colour as #RRGGBB and its label as escaped HTML. Without Lab the colour is
/// empty and `lab` is missing.
struct ColouredPatch {
  Patch values;
  std::string colour, label;
};

struct WedgeStep {
  double device;
  Triple lab;
  std::string colour;
};

struct ChartChannel {
  std::string name, short_name, letter;  ///< safe to stand in HTML
  std::string colour;  ///< of the solid or the last step of the wedge; may be empty
  std::vector<DistinctValue> distinct_values;
  std::vector<WedgeStep> wedge;  ///< from the patch without colorants, where the chart has it
};

/// A merged patch that was measured more than once.
struct RepeatedPatch {
  std::string label, colour;
  int count;
  double de_mean, de_max;
};

struct Chart {
  std::string name, path;  ///< of the file, the first without its folders; safe to stand in HTML
  std::string title;       ///< what the file calls itself; safe to stand in HTML
  bool is_loaded = false;
  std::vector<std::string> messages;  ///< safe to stand in HTML
  std::size_t more_messages = 0;      ///< that are not listed

  std::size_t patch_count = 0, merged_count = 0;
  std::string device_space;  ///< empty without device values
  bool is_rgb = false;
  std::vector<Entry> facts, instrument, sample, keywords;
  std::size_t more_keywords = 0;
  std::vector<ColouredPatch> patches;  ///< as many as a page can show
  std::vector<double> wavelengths;     ///< nm
  std::vector<ChartChannel> channels;
  std::vector<ColouredPatch> landmarks;  ///< paper white and solids
  std::vector<RepeatedPatch> repeats;    ///< the worst first
};

Chart chart_of(const std::string& path);

}  // namespace tools::report

#endif  // MEASDATA_TOOLS_REPORT_CHART_H
