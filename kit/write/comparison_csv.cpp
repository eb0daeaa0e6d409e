#include "kit/preflight/decimal_text.h"
#include "kit/write/comparison_text.h"

#include <cmath>
#include <string_view>

namespace measkit {
namespace {

class CsvLine {
 public:
  explicit CsvLine(std::string& out) : out_(out) {}
  void add(std::string_view text) {
    next();
    if (text.find_first_of(",\"\r\n") == std::string_view::npos) {
      out_ += text;
      return;
    }
    out_ += '"';
    for (const char c : text) out_.append(c == '"' ? 2 : 1, c);
    out_ += '"';
  }
  // Nothing for what is not known.
  void add(double value) { add(std::isnan(value) ? std::string() : text_of(value)); }
  void end() { out_ += '\n'; }

 private:
  void next() {
    if (!is_first_) out_ += ',';
    is_first_ = false;
  }

  std::string& out_;
  bool is_first_ = true;
};

std::string_view text_at(const Texts& texts, std::size_t patch) {
  if (texts.empty()) return {};
  return texts[patch];
}

void add_header(const Comparison& comparison, std::string& out) {
  CsvLine line(out);
  for (const char* const name : {"sample", "id", "name", "location"}) line.add(name);
  for (const Channel& channel : comparison.reference->channels) {
    line.add(channel.field.empty() ? channel.name : channel.field);
  }
  for (const char* const name :
       {"reference_L", "reference_a", "reference_b", "sample_L", "sample_a", "sample_b"}) {
    line.add(name);
  }
  for (const std::string_view name : kMeasureNames) line.add(name);
  line.end();
}

void add_colour(const Comparison& comparison, const ComparedColour& colour, std::string& out) {
  const Chart& chart = *comparison.reference;
  CsvLine line(out);
  line.add(comparison.sample->name);
  for (const Texts* texts : {&chart.ids, &chart.names, &chart.locations}) {
    line.add(text_at(*texts, colour.reference_patch));
  }
  if (!chart.device.empty()) {
    for (const double value : chart.device.row(colour.reference_patch)) line.add(value);
  }
  for (const Lab& lab : {colour.reference, colour.sample}) {
    for (const double value : {lab.l, lab.a, lab.b}) line.add(value);
  }
  for (const double value : colour.measures) line.add(value);
  line.end();
}

}  // namespace

std::string comparison_csv_of(std::span<const JudgedComparison> samples) {
  std::string out;
  for (const JudgedComparison& judged : samples) {
    if (out.empty()) add_header(judged.comparison, out);
    for (const ComparedColour& colour : judged.comparison.colours) {
      add_colour(judged.comparison, colour, out);
    }
  }
  return out;
}

}  // namespace measkit
