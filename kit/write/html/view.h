// What a report shows of one file, gathered once.
#ifndef MEASDATA_KIT_WRITE_HTML_VIEW_H
#define MEASDATA_KIT_WRITE_HTML_VIEW_H

#include "tools/queries.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace measkit::html {

/// A line of a table; safe to stand in HTML.
struct Entry {
  std::string name, value;
};

/// A patch with its colour as #RRGGBB, empty where the file tells none and Lab is missing then, and
/// what to call it, which is safe to stand in HTML.
struct PatchView {
  Patch values;
  std::string colour, label;
};

struct WedgeStep {
  double device;
  Triple lab;
  std::string colour;
};

struct ChannelView {
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

struct View {
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
  std::vector<PatchView> patches;  ///< as many as a page can show
  std::vector<double> wavelengths;     ///< nm
  std::vector<ChannelView> channels;
  std::vector<PatchView> landmarks;  ///< paper white and solids
  std::vector<RepeatedPatch> repeats;    ///< the worst first
};

View chart_of(const std::string& path);

}  // namespace measkit::html

#endif  // MEASDATA_KIT_WRITE_HTML_VIEW_H
