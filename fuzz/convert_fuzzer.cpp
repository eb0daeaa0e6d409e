// Any bytes through the preflight, into every form and back.
#include "kit/convert/conversion.h"
#include "tests/support/answers.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <utility>

namespace {

using measkit::ConversionOptions;
using measkit::Document;
using measkit::Form;

std::unique_ptr<Document> opened(std::string text) {
  return Document::open_block(std::move(text), "fuzz", measkit::Opening::repair);
}

// Answers to the text form, which keeps the text of every cell.
std::string answers_to_text(Document& document, std::size_t chart) {
  ConversionOptions options;
  options.keep_unknown = true;
  const measkit::Conversion text =
      measkit::convert(document, std::span(&chart, 1), Form::seven_characters, options);
  const measkit::LoadedText loaded(text.text, "fuzz");
  return loaded.is_loaded() ? test::answers(loaded.handle()) : "";
}

bool holds_control_bytes(std::string_view text) {
  return std::ranges::any_of(text, [](char c) {
    return static_cast<unsigned char>(c) < 0x20 && c != '\t' && c != '\n' && c != '\r';
  });
}

void check(Document& document, std::size_t chart) {
  const std::span<const std::size_t> one(&chart, 1);
  ConversionOptions merged;
  merged.merged = merged.percent = merged.bare = true;
  merged.grid = measkit::WavelengthRange{400.0, 700.0, 20.0};
  for (const Form form : {Form::csv, Form::json_lines, Form::cxf, Form::ti3}) {
    for (const ConversionOptions& options : {ConversionOptions(), merged}) {
      opened(measkit::convert(document, one, form, options).text);
    }
  }
  const bool has_line_ends_only = !holds_control_bytes(document.plain(chart).text);
  if (!has_line_ends_only) return;
  const std::string expected = answers_to_text(document, chart);
  if (expected.empty()) return;
  const std::unique_ptr<Document> back =
      opened(measkit::convert(document, one, Form::json, {}).text);
  if (back->size() != 1 || answers_to_text(*back, 0) != expected) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::unique_ptr<Document> document =
      opened(std::string(reinterpret_cast<const char*>(data), size));
  if (document->size() != 1 || !document->has_patches()) return 0;
  check(*document, 0);
  return 0;
}
