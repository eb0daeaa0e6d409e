#include "kit/write/html/comparison/sections.h"
#include "kit/write/html/html_text.h"
#include "kit/write/html/limits.h"
#include "kit/write/html/numbers.h"
#include "kit/write/html/view_rows.h"

#include <algorithm>
#include <string>
#include <vector>

namespace measkit::html {
namespace {

std::string stated(const std::optional<Stated>& condition) {
  return condition ? html_text(condition->value, kLongName) : "";
}

/// What a row tells of a chart; safe to stand in HTML, and empty when the file does not tell.
struct Question {
  const char* name = nullptr;
  std::string (*answer)(const Chart&) = nullptr;
  bool is_always_shown = false;
};
constexpr Question kQuestions[] = {
    {"title", [](const Chart& chart) { return html_text(chart.title, kLongValue); }},
    {"patches", [](const Chart& chart) { return grouped(chart.patch_count); }},
    {"device values", device_space_of},
    {"Lab", [](const Chart& chart) { return html_text(chart.lab_sentence, kLongValue); }},
    {"M condition", [](const Chart& chart) { return stated(chart.conditions.m); }, true},
    {"illuminant", [](const Chart& chart) { return stated(chart.conditions.illuminant); }, true},
    {"observer", [](const Chart& chart) { return stated(chart.conditions.observer); }, true},
    {"backing", [](const Chart& chart) { return stated(chart.conditions.backing); }},
    {"filter", [](const Chart& chart) { return stated(chart.conditions.filter); }},
    {"geometry", [](const Chart& chart) { return stated(chart.conditions.geometry); }},
    {"polarization", [](const Chart& chart) { return stated(chart.conditions.polarization); }},
    {"instrument", [](const Chart& chart) { return html_text(chart.instrument, kLongValue); }}};

// A value that differs from the reference's stands out, also without its weight.
std::string cell_of(const std::string& answer, const std::string& reference) {
  if (answer.empty()) return "<td>not stated</td>";
  const bool differs = !reference.empty() && answer != reference;
  return "<td>" + (differs ? "<strong>\u2260 " + answer + "</strong>" : answer) + "</td>";
}

// Empty when no file tells an answer that need not be there.
std::string row_of(const Question& question, SampleViews samples) {
  const std::string reference = question.answer(*samples.front().comparison.reference);
  bool is_shown = question.is_always_shown || !reference.empty();
  std::string html = "<tr><th scope=\"row\">" + std::string(question.name) + "</th>" +
                     cell_of(reference, reference);
  for (const SampleView& sample : samples) {
    const std::string answer = question.answer(*sample.comparison.sample);
    is_shown = is_shown || !answer.empty();
    html += cell_of(answer, reference);
  }
  return is_shown ? html + "</tr>\n" : "";
}

}  // namespace

Section charts_section(SampleViews samples) {
  std::string html =
      "<div class=\"scroll\">\n<table class=\"sides\">\n<thead><tr><th "
      "scope=\"col\"></th><th scope=\"col\">Reference: " +
      html_text(samples.front().comparison.reference->name, kLongValue) + "</th>";
  for (std::size_t i = 0; i < samples.size(); ++i) {
    html += "<th scope=\"col\">" +
            (samples.size() == 1 ? "Sample: " + samples[i].name : lettered(i, samples[i].name)) +
            "</th>";
  }
  html += "</tr></thead>\n<tbody>\n";
  for (const Question& question : kQuestions) html += row_of(question, samples);
  return section_of(
      {"charts", "Charts", "An answer that differs from the reference's is marked.", ""},
      html + std::string(kTableEnd));
}

}  // namespace measkit::html
