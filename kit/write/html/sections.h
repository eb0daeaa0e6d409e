// The sections of a report.
#ifndef MEASDATA_KIT_WRITE_HTML_SECTIONS_H
#define MEASDATA_KIT_WRITE_HTML_SECTIONS_H

#include "kit/write/html/section.h"

namespace measkit::html {

/// What was found in the files, what they are and how they were measured. Never empty.
Section summary_section(Views charts);
/// Paper, solids, overprints, darkest patch, total ink; white, black and primaries of RGB.
Section figures_section(Views charts);
/// Tone value curves of inks.
Section tones_section(Views charts);
/// Patches of three inks beside grey.
Section grey_section(Views charts);
/// a* over b*, C* over L*.
Section colours_section(Views charts);
/// The greys of RGB, and single colorants without a solid.
Section wedges_section(Views charts);
/// The chart as it was printed.
Section chart_section(Views charts);
/// All values of all patches.
Section patch_table_section(Views charts);
Section spectra_section(Views charts);
/// How well repeated measurements agree.
Section repeats_section(Views charts);
/// The device values of each channel.
Section values_section(Views charts);
Section keywords_section(Views charts);

}  // namespace measkit::html

#endif  // MEASDATA_KIT_WRITE_HTML_SECTIONS_H
