// The sections of a report.
#ifndef MEASDATA_TOOLS_REPORT_SECTIONS_H
#define MEASDATA_TOOLS_REPORT_SECTIONS_H

#include "tools/report/section.h"

namespace tools::report {

/// Facts about the files, instrument, sample and the messages of the load. Never empty.
Section summary_section(Charts charts);
/// All patches in the order of the chart.
Section patches_section(Charts charts);
Section spectra_section(Charts charts);
/// a* over b*, C* over L*.
Section colours_section(Charts charts);
/// Lightness or chroma of single colorants.
Section wedges_section(Charts charts);
/// The differences of repeated measurements.
Section repeats_section(Charts charts);
/// The device values of each channel.
Section values_section(Charts charts);
Section keywords_section(Charts charts);

}  // namespace tools::report

#endif  // MEASDATA_TOOLS_REPORT_SECTIONS_H
