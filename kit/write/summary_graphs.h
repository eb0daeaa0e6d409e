// What the tables of a summary show as lines of blocks.
#ifndef MEASDATA_KIT_WRITE_SUMMARY_GRAPHS_H
#define MEASDATA_KIT_WRITE_SUMMARY_GRAPHS_H

#include "kit/chart/chart.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace measkit {

/// Heights from 0 to 1, one line for each row of a table. A line may be empty.
using Graphs = std::vector<std::vector<double>>;

/// Rows of spectra, on the scale of the largest of all their values.
Graphs spectrum_graphs(const Values& spectra, const std::vector<std::size_t>& rows);

/// The wedges of all channels, one height a step: the tone value of an ink, else L*.
Graphs wedge_graphs(const Chart& chart);

/// Adds graphs at the right of a table with titles, within `width` columns. Returns false and adds
/// nothing when the table leaves too little room.
bool add_graphs(std::vector<std::string>& table, std::string_view title, const Graphs& graphs,
                std::size_t width);

}  // namespace measkit

#endif  // MEASDATA_KIT_WRITE_SUMMARY_GRAPHS_H
