// The sections of a page that compares samples with a reference.
#ifndef MEASDATA_KIT_WRITE_HTML_COMPARISON_SECTIONS_H
#define MEASDATA_KIT_WRITE_HTML_COMPARISON_SECTIONS_H

#include "kit/write/html/comparison/sample_view.h"

namespace measkit::html {

/// The verdict, what to know before any figure, the figures. Never empty.
Section verdict_section(SampleViews samples);
/// A line a sample; empty for a single one.
Section overview_section(SampleViews samples);
/// The figures of papers, solids, greys and other groups of colours.
Section groups_section(SampleViews samples);
/// How many colours differ how much.
Section distribution_section(SampleViews samples);
/// The chart in its own layout, each patch with its difference.
Section heat_map_section(SampleViews samples);
/// The colours that differ most, as pairs.
Section worst_section(SampleViews samples);
/// The differences as lines in a*b* and L*C*.
Section vectors_section(SampleViews samples);
/// Tone values of the inks.
Section tones_section(SampleViews samples);
/// The spectra of the colours that differ most.
Section spectra_pairs_section(SampleViews samples);
/// What is known of each chart.
Section charts_section(SampleViews samples);

}  // namespace measkit::html

#endif  // MEASDATA_KIT_WRITE_HTML_COMPARISON_SECTIONS_H
