// What a print shop reads off a chart: tone curves, overprints, grey balance, total ink.
#ifndef MEASDATA_KIT_FIGURES_PRINT_FIGURES_H
#define MEASDATA_KIT_FIGURES_PRINT_FIGURES_H

#include "kit/chart/chart.h"
#include "kit/colour/tone_value.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace measkit {

/// A merged patch with a name.
struct NamedPatch {
  std::string name;  ///< such as "Magenta + Yellow"
  std::size_t index;
};

struct InkStep {
  double nominal;  ///< percent of the solid
  std::size_t index;
  ToneValue tone;

  double increase() const { return tone.usual() - nominal; }
};

/// The wedge of an ink, ascending from the first tint to the solid.
struct InkCurve {
  std::size_t channel;
  std::vector<InkStep> steps;
};

/// A patch of three colours beside the grey of its lightness on this paper.
struct GreyStep {
  std::size_t index;
  Triple grey;          ///< Lab
  double chroma_error;  ///< Delta Ch: the distance of the two in a* and b*
};

/// The figures of charts of inks with Lab. Each is empty where the chart does not allow it.
struct PrintFigures {
  std::vector<NamedPatch> overprints;  ///< of two and three inks at full, without black of CMYK
  std::vector<InkCurve> curves;        ///< of inks with a solid, on charts with a paper white
  std::vector<GreyStep> greys;         ///< from light to dark
  std::vector<NamedPatch> outline;     ///< solids and overprints at the edge of a* and b*, in turn
  std::optional<std::size_t> darkest;  ///< the least L*
  std::optional<std::size_t> most_ink;
  double total_ink = 0.0;  ///< percent, of `most_ink`: the sum of all inks
};

/// For RGB, only `outline` (primaries and secondaries) and `darkest` are filled.
PrintFigures print_figures_of(const Chart& chart);

}  // namespace measkit

#endif  // MEASDATA_KIT_FIGURES_PRINT_FIGURES_H
