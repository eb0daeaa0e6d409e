// The steps by which a chart is gathered, in their order.
#ifndef MEASDATA_KIT_CHART_GATHER_H
#define MEASDATA_KIT_CHART_GATHER_H

#include "kit/chart/chart.h"

namespace measkit {

/// Patches and merged patches, as far as the library answers.
void gather_patches(Chart& chart, void* handle, Effort effort);

/// Where Lab comes from. `table` is null for a file as it stands.
void gather_lab_source(Chart& chart, const Table* table, const Roles& roles);

/// What the library reads but has no question for: own Lab beside spectra, LCh, densities, emission
/// spectra.
void gather_cells(Chart& chart, Table& table, const Roles& roles);

/// How far the file's own Lab are from those of its spectra, with a finding when it is far.
void gather_lab_difference(Chart& chart, Findings& findings);

/// Channels with their names. Those that the chart has already may tell their fields. `header` is
/// empty for a file as it stands.
void gather_channels(Chart& chart, void* handle, const std::vector<HeaderLine>& header);

void gather_landmarks(Chart& chart);

/// Title, conditions, instrument, sample and keywords. `header` is empty for a file as it stands.
void gather_description(Chart& chart, void* handle, const std::vector<HeaderLine>& header);

}  // namespace measkit

#endif  // MEASDATA_KIT_CHART_GATHER_H
