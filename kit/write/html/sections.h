// The sections of a report.
#ifndef MEASDATA_KIT_WRITE_HTML_SECTIONS_H
#define MEASDATA_KIT_WRITE_HTML_SECTIONS_H

#include "kit/write/html/section.h"

namespace measkit::html {

/// What was found in the files, what they are and how they were measured. Never empty.
Section summary_section(Views charts);
/// All patches in the order of the chart.
Section patches_section(Views charts);
Section spectra_section(Views charts);
/// a* over b*, C* over L*.
Section colours_section(Views charts);
/// Lightness or chroma of single colorants.
Section wedges_section(Views charts);
/// How well repeated measurements agree.
Section repeats_section(Views charts);
/// The device values of each channel.
Section values_section(Views charts);
Section keywords_section(Views charts);

}  // namespace measkit::html

#endif  // MEASDATA_KIT_WRITE_HTML_SECTIONS_H
