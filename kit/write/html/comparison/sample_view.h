// What a page shows of a sample compared with a reference.
#ifndef MEASDATA_KIT_WRITE_HTML_COMPARISON_SAMPLE_VIEW_H
#define MEASDATA_KIT_WRITE_HTML_COMPARISON_SAMPLE_VIEW_H

#include "kit/write/html/comparison/comparison_page.h"
#include "kit/write/html/section.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace measkit::html {

/// Refers to the comparison, which must outlive it.
struct SampleView {
  const Comparison& comparison;
  std::span<const Verdict> verdicts;
  std::string name;                  ///< safe to stand in HTML
  std::vector<double> differences;   ///< in the chosen formula, as far as a plot can show them
  std::vector<std::uint32_t> worst;  ///< positions of colours that can be shown, the worst first

  bool has_failed() const;
  /// The worst of the colours that differ at all.
  std::span<const std::uint32_t> worst_that_differ(std::size_t most) const;
  Measure formula() const { return comparison.options.formula; }
};
using SampleViews = std::span<const SampleView>;

SampleView view_of(const JudgedComparison& sample);

/// Like section_of() for charts. A refused comparison has nothing to show.
Section section_of(const SectionHead& head, SampleViews samples,
                   const std::function<std::string(const SampleView&)>& content_of);
/// A section with one thing to show for all samples.
Section section_of(const SectionHead& head, std::string_view html);

/// The letter and the name of a sample; nothing when it is the only one.
std::string sample_heading(SampleViews samples, const SampleView& sample);

/// The symbol of a measure, such as "Delta E" with an index: for HTML, and for titles in SVG.
std::string html_symbol(Measure measure, const ComparisonOptions& options);
std::string svg_symbol(Measure measure, const ComparisonOptions& options);

/// A number with so many decimals; a dash for one that is not there.
std::string number_or_dash(double value, int decimals);
/// The same with the decimals that suit the measure.
std::string text_of(Measure measure, double value);

std::string lab_text(const Lab& lab);
/// #RRGGBB; empty when there is no such colour.
std::string hex_of(const Lab& lab);
/// Both colours, the reference at the left, and their labels for a screen reader.
std::string swatch_pair(const ComparedColour& colour);
/// The reference's patch; safe to stand in HTML.
std::string safe_label(const SampleView& sample, const ComparedColour& colour);

/// Where the scales of differences end: the largest of all samples or, when a few are far larger
/// than the rest, three times the largest 95th percentile.
double scale_end(SampleViews samples);
/// Says how many differences a scale does not reach; empty when there are none.
std::string beyond_note(const SampleView& sample, double end);

/// A row of a table: the first cell is its name, the others are numbers.
std::string number_row(std::string_view name, std::span<const std::string> numbers);
struct TableHead {
  std::string_view caption;  ///< may be empty
  std::string_view name;     ///< of what a row is about
  bool first_row_leads = false;
};
/// The beginning of a table of such rows with the titles of its numbers.
std::string number_table_head(const TableHead& head, std::span<const std::string> titles);
inline constexpr std::string_view kTableEnd = "</tbody>\n</table>\n</div>\n";

}  // namespace measkit::html

#endif  // MEASDATA_KIT_WRITE_HTML_COMPARISON_SAMPLE_VIEW_H
