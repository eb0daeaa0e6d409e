// Charts as measurement files.
#ifndef MEASDATA_KIT_WRITE_MEASUREMENT_TEXT_H
#define MEASDATA_KIT_WRITE_MEASUREMENT_TEXT_H

#include "kit/chart/chart.h"

#include <span>
#include <string>

namespace measkit {

/// Keywords of the chart, then those of `further`; then ids, names, locations, device values, Lab
/// and spectra of every patch. Numbers have the fewest digits that read back equal.
std::string measurement_text_of(const Chart& chart, std::span<const Entry> further);

}  // namespace measkit

#endif  // MEASDATA_KIT_WRITE_MEASUREMENT_TEXT_H
