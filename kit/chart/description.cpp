// What the header tells: title, conditions, instrument, sample, keywords.
#include "api/measdata.h"
#include "kit/chart/gather.h"
#include "measdata/tokenizer.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace measkit {
namespace {

std::string_view value_of(void* handle, const char* keyword) {
  const char* const value = get_value_of_keyword(handle, keyword);
  return value == nullptr ? std::string_view() : value;
}

std::string_view first_value_of(void* handle, std::initializer_list<const char*> keywords) {
  for (const char* const keyword : keywords) {
    const std::string_view value = value_of(handle, keyword);
    if (!is_placeholder(value)) return value;
  }
  return {};
}

// Text with nothing but the frame of an answer, such as ", ; SN , M0".
bool tells_nothing(std::string_view text) {
  if (is_placeholder(text)) return true;
  static constexpr std::array<std::string_view, 7> kFrame = {"SN", "S/N", "M0", "M1",
                                                             "M2", "M3",  "0"};
  constexpr std::string_view kSeparators = " \t,;.:";
  while (!text.empty()) {
    const std::size_t start = text.find_first_not_of(kSeparators);
    if (start == std::string_view::npos) break;
    const std::size_t end = std::min(text.find_first_of(kSeparators, start), text.size());
    const std::string_view word = text.substr(start, end - start);
    if (std::find(kFrame.begin(), kFrame.end(), word) == kFrame.end()) return false;
    text.remove_prefix(end);
  }
  return true;
}

// The line about the instrument: of the format's keyword, else of those that programs use instead.
std::string instrument_line(void* handle) {
  constexpr std::string_view kVendorEnd = "_INFO";
  for (const char* const keyword : {"INSTRUMENTATION", "TARGET_INSTRUMENT", "INSTRUMENT"}) {
    const std::string_view value = value_of(handle, keyword);
    if (!tells_nothing(value)) return std::string(value);
  }
  for (int i = 0; i < num_keywords(handle); ++i) {
    const std::string_view value = get_value(handle, i);
    if (std::string_view(get_keyword(handle, i)).ends_with(kVendorEnd) && !tells_nothing(value)) {
      return std::string(value);
    }
  }
  return {};
}

struct Question {
  std::string_view name;
  const char* (*ask)(void*);
};
constexpr std::array<Question, 11> kInstrumentQuestions = {{
    {"manufacturer", device_manufacturer},
    {"model", device_model},
    {"serial number", device_serial_number},
    {"geometry", device_geometry},
    {"filter", device_filter},
    {"polarization", device_polarization},
    {"illuminant", illuminant},
    {"observer", observer},
    {"density status", density_status},
    {"backing", sample_backing},
    {"source", device_measurement_source},
}};
constexpr std::array<Question, 7> kSampleQuestions = {{
    {"manufacturer", sample_manufacturer},
    {"material", sample_material},
    {"colorant", sample_colorant},
    {"target type", sample_target_type},
    {"print conditions", sample_print_conditions},
    {"production date", sample_production_date},
    {"serial number", sample_serial_number},
}};

template <std::size_t Size>
std::vector<Answer> answers_to(const std::array<Question, Size>& questions, void* handle) {
  std::vector<Answer> answers;
  for (const Question& question : questions) {
    const char* const text = question.ask(handle);
    answers.push_back({question.name, std::nullopt});
    if (text != nullptr && !tells_nothing(text)) answers.back().text = text;
  }
  return answers;
}

// The library's answer, with the value of the first keyword that holds it.
std::optional<Stated> stated(void* handle, const std::vector<HeaderLine>& header,
                             const char* (*ask)(void*),
                             std::initializer_list<const char*> keywords) {
  const char* const text = ask(handle);
  if (text == nullptr || is_placeholder(text)) return std::nullopt;
  Stated answer = {text, {}, {}, 0};
  for (const char* const keyword : keywords) {
    const std::string_view value = value_of(handle, keyword);
    if (value.find(answer.value) == std::string_view::npos) continue;
    answer.keyword = keyword;
    answer.words = value;
    const auto line = std::find_if(header.begin(), header.end(), [keyword](const HeaderLine& one) {
      return one.keyword == keyword;
    });
    if (line != header.end()) answer.line = line->line;
    break;
  }
  return answer;
}

bool is_m_condition(std::string_view text) {
  return text.size() == 2 && text[0] == 'M' && text[1] >= '0' && text[1] <= '3';
}

void gather_conditions(Chart& chart, void* handle, const std::vector<HeaderLine>& header) {
  MeasuringConditions& conditions = chart.conditions;
  if (header.empty()) {
    conditions.illuminant = stated(handle, header, illuminant, {});
    conditions.observer = stated(handle, header, observer, {});
  } else {
    // The file's own words, not those that the kit added for the library.
    std::vector<HeaderLine> own_lines;
    std::copy_if(header.begin(), header.end(), std::back_inserter(own_lines),
                 [](const HeaderLine& line) { return line.line != 0; });
    Conditions told = conditions_of(own_lines);
    conditions.m = std::move(told.m);
    conditions.illuminant = std::move(told.illuminant);
    conditions.observer = std::move(told.observer);
  }
  conditions.backing =
      stated(handle, header, sample_backing, {"SAMPLE_BACKING", "INSTRUMENTATION"});
  conditions.filter = stated(handle, header, device_filter, {"FILTER", "MEASUREMENT_SOURCE"});
  // M0 to M3 are conditions, not filters.
  if (conditions.filter && is_m_condition(conditions.filter->value)) conditions.filter.reset();
  conditions.geometry =
      stated(handle, header, device_geometry, {"MEASUREMENT_GEOMETRY", "INSTRUMENTATION"});
  conditions.polarization =
      stated(handle, header, device_polarization, {"POLARIZATION", "INSTRUMENTATION"});
  conditions.density_status =
      stated(handle, header, density_status, {"FILTER_STATUS", "MEASUREMENT_SOURCE"});
}

void gather_keywords(Chart& chart, void* handle) {
  for (int i = 0; i < num_keywords(handle); ++i) {
    const char* const value = get_value(handle, i);
    if (is_placeholder(value)) {
      ++chart.empty_keywords;
    } else {
      chart.keywords.push_back({get_keyword(handle, i), value});
    }
  }
}

}  // namespace

void gather_description(Chart& chart, void* handle, const std::vector<HeaderLine>& header) {
  chart.title =
      first_value_of(handle, {"DESCRIPTOR", "FILE_DESCRIPTOR", "TABLE_NAME", "TARGET_TYPE"});
  gather_conditions(chart, handle, header);
  chart.instrument = instrument_line(handle);
  chart.instrument_answers = answers_to(kInstrumentQuestions, handle);
  chart.sample_answers = answers_to(kSampleQuestions, handle);
  gather_keywords(chart, handle);
}

}  // namespace measkit
