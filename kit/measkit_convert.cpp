#include "kit/convert/conversion.h"
#include "kit/measkit_document.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <optional>
#include <string>
#include <utility>
#include <vector>

using measkit::guarded;
using measkit::has_chart;

struct mk_conversion {
  measkit::Conversion conversion;
};

namespace {

measkit::ConversionOptions options_of(const mk_convert_options& given, std::string& refusal) {
  measkit::ConversionOptions options;
  if (given.select != nullptr) {
    options.select = measkit::column_groups_of(given.select, refusal)
                         .value_or(std::vector<measkit::ColumnGroup>());
  }
  if (given.lab_from != nullptr) {
    options.lab_from =
        measkit::lab_from_of(given.lab_from, refusal).value_or(measkit::LabFrom::columns);
  }
  if (given.grid != nullptr) options.grid = measkit::wavelength_range_of(given.grid, refusal);
  options.merged = given.merged == 1;
  options.percent = given.percent == 1;
  options.keep_unknown = given.keep_unknown == 1;
  options.digits = std::max(given.digits, 0);
  options.decimal_comma = given.decimal_comma == 1;
  options.bare = given.bare == 1;
  options.cxf_pairs = given.cxf_pairs == 1;
  return options;
}

mk_conversion converted(measkit::Document& document, int chart, const char* form,
                        const mk_convert_options* given) {
  std::string refusal;
  const std::string word = form == nullptr ? "" : form;
  const std::optional<measkit::Form> named = measkit::form_named(word);
  if (!named) refusal = "\"" + word + "\" is none of " + measkit::form_names();
  const measkit::ConversionOptions options =
      given == nullptr ? measkit::ConversionOptions() : options_of(*given, refusal);
  if (!refusal.empty()) return {{{}, {}, std::move(refusal)}};
  std::vector<std::size_t> charts(chart == -1 ? document.size() : 1);
  std::iota(charts.begin(), charts.end(), chart == -1 ? 0 : static_cast<std::size_t>(chart));
  return {measkit::convert(document, charts, *named, options)};
}

}  // namespace

mk_conversion* mk_convert(mk_document* document, int chart, const char* form,
                          const mk_convert_options* options) noexcept {
  const bool is_all = document != nullptr && chart == -1;
  if (!is_all && !has_chart(document, chart)) return nullptr;
  return guarded<mk_conversion*>(nullptr, [=] {
    return std::make_unique<mk_conversion>(converted(*document->document, chart, form, options))
        .release();
  });
}

void mk_close_conversion(mk_conversion** conversion) noexcept {
  if (conversion == nullptr) return;
  delete *conversion;
  *conversion = nullptr;
}

const char* mk_conversion_refusal(const mk_conversion* conversion) noexcept {
  const bool is_refused = conversion != nullptr && !conversion->conversion.refusal.empty();
  return is_refused ? conversion->conversion.refusal.c_str() : nullptr;
}

const char* mk_converted_text(const mk_conversion* conversion, std::size_t* length) noexcept {
  if (length != nullptr) *length = conversion == nullptr ? 0 : conversion->conversion.text.size();
  return conversion == nullptr ? nullptr : conversion->conversion.text.c_str();
}

int mk_num_left_behind(const mk_conversion* conversion) noexcept {
  return conversion == nullptr ? 0 : static_cast<int>(conversion->conversion.left_behind.size());
}

const char* mk_left_behind(const mk_conversion* conversion, int position) noexcept {
  const bool exists = position >= 0 && position < mk_num_left_behind(conversion);
  return exists ? conversion->conversion.left_behind[static_cast<std::size_t>(position)].c_str()
                : nullptr;
}
