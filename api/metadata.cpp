// What the file tells about instrument, measurement and sample: from the keyword that is meant for
// it or, where that is absent, from the free text of others.
#include "api/instrument_text.h"
#include "api/keyword_values.h"
#include "api/measdata.h"
#include "api/parser_state.h"

#include <exception>
#include <string>
#include <string_view>
#include <utility>

using vantor::Api::Answer;
using vantor::Api::keyword_value;
using vantor::Api::state_of;

namespace {

constexpr const char* kInstrumentation = "INSTRUMENTATION";
constexpr const char* kMeasurementSource = "MEASUREMENT_SOURCE";
constexpr const char* kWeightingFunction = "WEIGHTING_FUNCTION";

// Stores an answer in the handle and returns it; null when there is none.
const char* give(void* handle, Answer answer) {
  if (!answer) return nullptr;
  std::string& result_text = state_of(handle)->result_text;
  result_text = std::move(*answer);
  return result_text.c_str();
}

// Returns the result of `tell`, or null when memory is exhausted.
template <typename Tell>
const char* answer(Tell tell) noexcept {
  try {
    return tell();
  } catch (const std::exception&) {
    return nullptr;
  }
}

// What `find` makes of the first value of a keyword; null when the file lacks it. It reads the
// value up to its first zero byte, as every caller of the C interface does.
template <typename Find>
const char* found_in(void* handle, const char* keyword, Find find) {
  const char* text = keyword_value(handle, keyword);
  return text == nullptr ? nullptr : give(handle, find(text));
}

template <typename Find>
const char* answer_from(void* handle, const char* keyword, Find find) noexcept {
  return answer([=] { return found_in(handle, keyword, find); });
}

// The first value of a keyword or, when the file lacks it, what `find` makes of another.
template <typename Find>
const char* value_or_answer(void* handle, const char* keyword, const char* text_keyword,
                            Find find) noexcept {
  const char* value = keyword_value(handle, keyword);
  return value != nullptr ? value : answer_from(handle, text_keyword, find);
}

const char* found_in_weighting(void* handle, std::string_view key) {
  if (handle == nullptr) return nullptr;
  Answer found;
  state_of(handle)->chart.keywords.find_value(kWeightingFunction, [&](std::string_view value) {
    found = vantor::Api::find_weighting(value.data(), key);
    return found.has_value();
  });
  return give(handle, std::move(found));
}

// Removes a degree sign at the end, in Latin-1 or in an old code page.
std::string without_degree_sign(std::string text) {
  constexpr char kLatin1 = '\xB0';
  constexpr char kCodePage = '\xA1';
  if (text.ends_with(kLatin1) || text.ends_with(kCodePage)) text.pop_back();
  return text;
}

Answer find_observer_setting(std::string_view text) {
  constexpr std::string_view kDegree = "degree";
  Answer angle = vantor::Api::find_setting(text, "Observer=");
  if (!angle) return angle;
  if (angle->ends_with(kDegree)) angle->resize(angle->size() - kDegree.size());
  return without_degree_sign(std::move(*angle));
}

const char* tell_illuminant(void* handle) {
  if (const char* text = found_in_weighting(handle, "ILLUMINANT")) return text;
  if (const char* text = keyword_value(handle, "ILLUMINANT")) return text;
  if (const char* text = keyword_value(handle, "ILLUMINATION_NAME")) return text;
  const char* setting = found_in(handle, kMeasurementSource, [](std::string_view text) {
    return vantor::Api::find_setting(text, "Illumination=");
  });
  if (setting != nullptr) return setting;
  return found_in(handle, kInstrumentation, vantor::Api::find_illuminant);
}

const char* tell_observer(void* handle) {
  if (const char* text = found_in_weighting(handle, "OBSERVER")) return text;
  for (const char* keyword : {"OBSERVER", "OBSERVER_ANGLE"}) {
    const char* angle = found_in(handle, keyword, [](std::string_view value) {
      return Answer(without_degree_sign(std::string(value)));
    });
    if (angle != nullptr) return angle;
  }
  const char* setting = found_in(handle, kMeasurementSource, find_observer_setting);
  if (setting != nullptr) return setting;
  return found_in(handle, kInstrumentation, vantor::Api::find_observer);
}

}  // namespace

const char* device_manufacturer(void* handle) noexcept {
  return answer_from(handle, kInstrumentation, vantor::Api::find_manufacturer);
}

const char* device_model(void* handle) noexcept {
  return answer_from(handle, kInstrumentation, vantor::Api::find_model);
}

const char* device_serial_number(void* handle) noexcept {
  return answer_from(handle, kInstrumentation, vantor::Api::find_serial_number);
}

const char* device_geometry(void* handle) noexcept {
  return value_or_answer(handle, "MEASUREMENT_GEOMETRY", kInstrumentation,
                         vantor::Api::find_geometry);
}

const char* device_filter(void* handle) noexcept {
  return value_or_answer(handle, "FILTER", kMeasurementSource, [](std::string_view text) {
    return vantor::Api::find_setting(text, "Filter=");
  });
}

const char* device_polarization(void* handle) noexcept {
  const char* value = keyword_value(handle, "POLARIZATION");
  if (value != nullptr) return value;
  const char* text = keyword_value(handle, kInstrumentation);
  return text != nullptr && vantor::Api::denies_polarization(text) ? "no" : nullptr;
}

const char* device_measurement_source(void* handle) noexcept {
  return keyword_value(handle, kMeasurementSource);
}

// A file with weighting functions is colorimetric, whatever else it says.
const char* density_status(void* handle) noexcept {
  if (keyword_value(handle, kWeightingFunction) != nullptr) return nullptr;
  return value_or_answer(handle, "FILTER_STATUS", kMeasurementSource,
                         vantor::Api::find_density_standard);
}

const char* illuminant(void* handle) noexcept {
  return answer([=] { return tell_illuminant(handle); });
}

const char* observer(void* handle) noexcept {
  return answer([=] { return tell_observer(handle); });
}

const char* sample_backing(void* handle) noexcept {
  return value_or_answer(handle, "SAMPLE_BACKING", kInstrumentation, vantor::Api::find_backing);
}

const char* sample_colorant(void* handle) noexcept { return keyword_value(handle, "COLORANT"); }

const char* sample_manufacturer(void* handle) noexcept {
  return keyword_value(handle, "MANUFACTURER");
}

const char* sample_material(void* handle) noexcept { return keyword_value(handle, "MATERIAL"); }

const char* sample_print_conditions(void* handle) noexcept {
  return keyword_value(handle, "PRINT_CONDITIONS");
}

const char* sample_production_date(void* handle) noexcept {
  return keyword_value(handle, "PROD_DATE");
}

const char* sample_serial_number(void* handle) noexcept { return keyword_value(handle, "SERIAL"); }

const char* sample_target_type(void* handle) noexcept {
  return keyword_value(handle, "TARGET_TYPE");
}
