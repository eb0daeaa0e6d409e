#include "kit/write/summary.h"

#include "kit/write/labelled_lines.h"
#include "kit/write/layout.h"
#include "kit/write/printable_text.h"
#include "kit/write/summary_tables.h"
#include "kit/write/words.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace measkit {
namespace {

constexpr std::size_t kScreenLines = 45;

void append(Lines& lines, Lines others) {
  for (std::string& line : others) lines.push_back(std::move(line));
}

Lines finding_lines(const std::vector<Finding>& findings, std::size_t more, Detail detail) {
  constexpr std::size_t kMostLines = 8;
  const bool is_short = detail == Detail::screenful;
  Lines lines;
  std::size_t left_out = more;
  for (const Finding& finding : findings) {
    Lines one;
    std::string text = finding.sentence;
    if (finding.line != 0) text += " (line " + std::to_string(finding.line) + ")";
    add_labelled(one, word_of(finding.severity), text, is_short ? 2 : 20);
    if (is_short && lines.size() + one.size() > kMostLines) {
      ++left_out;
    } else {
      append(lines, std::move(one));
    }
  }
  if (left_out != 0) {
    lines.push_back("... " + counted(left_out, "more finding", "more findings"));
  }
  return lines;
}

// The gravest come first, each kind in its own order.
std::vector<Finding> by_gravity(std::vector<Finding> findings) {
  std::stable_sort(findings.begin(), findings.end(), [](const Finding& a, const Finding& b) {
    return static_cast<int>(a.severity) > static_cast<int>(b.severity);
  });
  return findings;
}

std::string wavelengths_text(std::string_view name, const std::vector<double>& wavelengths) {
  std::string text(name);
  text += " " + formatted("%g", wavelengths.front()) + " to " +
          formatted("%g", wavelengths.back()) + " nm";
  if (wavelengths.size() > 1) {
    const auto steps = static_cast<double>(wavelengths.size() - 1);
    text += " by " + formatted("%.4g", (wavelengths.back() - wavelengths.front()) / steps) + " nm";
  }
  return text;
}

std::string device_text(const Chart& chart) {
  if (chart.device_set.empty()) return counted(chart.channels.size(), "channel", "channels");
  if (!chart.is_rgb) return chart.device_set;
  if (chart.full_scale == 0.0) return "RGB on a scale that the values do not tell";
  return "RGB on a scale of 0 to " + formatted("%g", chart.full_scale);
}

std::string contents_text(const Chart& chart) {
  std::string text;
  const auto add = [&text](bool is_held, std::string_view name) {
    if (is_held) text.append(text.empty() ? "" : ", ").append(name);
  };
  add(chart.holds.device, device_text(chart));
  add(chart.holds.xyz, "XYZ");
  add(chart.holds.lab, "Lab");
  add(!chart.own_lab.empty(), "Lab of its own");
  add(!chart.lch.empty() || chart.holds.lch, "LCh");
  std::string densities = "densities";
  for (const std::string& name : chart.density_names) densities += " " + name;
  add(!chart.densities.empty(), densities);
  if (!chart.spectra.empty()) {
    const bool is_transmittance = chart.quantity == Quantity::transmittance;
    add(true, wavelengths_text(is_transmittance ? "transmittance" : "spectra", chart.wavelengths));
  }
  if (!chart.emission.empty()) {
    add(true, wavelengths_text("emission spectra", chart.emission_wavelengths));
  }
  add(chart.holds.ids, "ids");
  add(chart.holds.names, "names");
  add(chart.holds.locations, "locations");
  return text.empty() ? "nothing that is known" : text;
}

std::string counts_text(const Chart& chart) {
  std::string text = counted(chart.patch_count, "patch", "patches");
  if (chart.patch_count == 0 || !chart.holds.device) return text;
  if (chart.merged.count == 0) return text + ", repeats are not merged";
  std::size_t repeated = 0, worst = 0;
  double largest = -1.0;
  for (std::size_t index = 0; index < chart.merged.repeats.size(); ++index) {
    const Repeats& repeats = chart.merged.repeats[index];
    if (repeats.count < 2) continue;
    ++repeated;
    if (repeats.de_max && *repeats.de_max > largest) {
      largest = *repeats.de_max;
      worst = index;
    }
  }
  if (chart.merged.count == chart.patch_count) return text + ", all different";
  text += " of " + counted(chart.merged.count, "colour", "colours");
  if (largest < 0.0) return text;
  return text + " (" + std::to_string(repeated) + " repeated); repeats within " +
         formatted("%.2f", largest) + " Delta E*ab (index " + std::to_string(worst) + ", patch " +
         label_of(chart, worst) + ")";
}

// Values that the same words tell.
struct Told {
  std::string values;
  const Stated* stated;
};

std::vector<Told> told_conditions(const MeasuringConditions& conditions) {
  std::vector<Told> all;
  const auto add = [&all](const std::optional<Stated>& stated, std::string_view before,
                          std::string_view after) {
    if (!stated) return;
    std::string value(before);
    value += shortened(stated->value, 24).append(after);
    for (Told& told : all) {
      if (told.stated->keyword != stated->keyword || told.stated->words != stated->words) continue;
      told.values += ", " + value;
      return;
    }
    all.push_back({std::move(value), &*stated});
  };
  add(conditions.m, "", "");
  add(conditions.illuminant, "", "");
  add(conditions.observer, "", " degrees");
  add(conditions.geometry, "geometry ", "");
  add(conditions.filter, "filter ", "");
  add(conditions.polarization, "polarization ", "");
  add(conditions.backing, "backing ", "");
  add(conditions.density_status, "", "");
  return all;
}

// The words that tell a value, where the line about the instrument does not show them.
std::string words_of(const Stated& stated, const std::string& instrument) {
  if (stated.keyword.empty()) return {};
  if (stated.words == instrument || stated.words == stated.value) return stated.keyword;
  std::string words = stated.words;
  std::replace(words.begin(), words.end(), '\t', ' ');
  return stated.keyword + " \"" + shortened(words, 60) + "\"";
}

Lines condition_lines(const Chart& chart) {
  constexpr std::size_t kMostLines = 4;
  const std::vector<Told> all = told_conditions(chart.conditions);
  const bool is_short = all.size() <= kMostLines;
  Lines lines;
  std::string joined;
  for (const Told& told : all) {
    const std::string source =
        is_short ? words_of(*told.stated, chart.instrument) : std::string(told.stated->keyword);
    std::string text = told.values;
    if (!source.empty()) text += " (" + source + ")";
    if (is_short) add_labelled(lines, lines.empty() ? "conditions" : "", text, 1);
    joined += (joined.empty() ? "" : "; ") + text;
  }
  if (!is_short) add_labelled(lines, "conditions", joined, kMostLines);
  return lines;
}

std::string answers_text(const std::vector<Answer>& answers) {
  std::string text;
  for (const Answer& answer : answers) {
    if (!answer.text) continue;
    text.append(text.empty() ? "" : "; ").append(answer.question).append(" ");
    text += shortened(*answer.text, 60);
  }
  return text;
}

// Maker, model and serial number, which the conditions do not show.
std::string instrument_text(const Chart& chart) {
  std::string text = chart.instrument;
  std::string answers;
  for (const Answer& answer : chart.instrument_answers) {
    const bool is_shown = answer.question == "manufacturer" || answer.question == "model" ||
                          answer.question == "serial number";
    if (!is_shown || !answer.text) continue;
    answers.append(answers.empty() ? "" : ", ").append(answer.question).append(" ");
    answers += shortened(*answer.text, 40);
  }
  if (answers.empty()) return text;
  return shortened(text, 100) + " (" + answers + ")";
}

std::string kind_text(const Chart& chart) {
  std::string text = chart.is_semicolon_table ? "semicolon table" : std::string(chart.identifier);
  if (chart.content != Content::measurement) {
    text.append(text.empty() ? "" : ", ").append(word_of(chart.content));
  }
  if (chart.is_display) text.append(text.empty() ? "" : ", ").append("display");
  return text;
}

std::string difference_text(const LabDifference& difference) {
  return std::string("Delta E*ab of the file's own ") + (difference.is_of_xyz ? "XYZ" : "Lab") +
         ": median " + formatted("%.2f", difference.median) + ", 95 % " +
         formatted("%.2f", difference.percentile_95) + ", largest " +
         formatted("%.2f", difference.largest);
}

Lines fact_lines(const Chart& chart) {
  Lines lines;
  add_labelled(lines, "patches", counts_text(chart));
  add_labelled(lines, "holds", contents_text(chart));
  add_labelled(lines, "Lab", chart.lab_sentence);
  if (chart.lab_difference) add_labelled(lines, "", difference_text(*chart.lab_difference), 1);
  append(lines, condition_lines(chart));
  const std::string instrument = instrument_text(chart);
  if (!instrument.empty()) add_labelled(lines, "instrument", instrument);
  const std::string sample = answers_text(chart.sample_answers);
  if (!sample.empty()) add_labelled(lines, "sample", sample);
  if (chart.keywords.size() + chart.empty_keywords != 0) {
    std::string keywords = counted(chart.keywords.size(), "keyword", "keywords");
    if (chart.empty_keywords != 0) {
      keywords += ", and " + std::to_string(chart.empty_keywords) + " without a value";
    }
    add_labelled(lines, "header", keywords, 1);
  }
  return lines;
}

Lines keyword_lines(const Chart& chart) {
  constexpr std::size_t kLongName = 30;
  Lines lines;
  for (const Entry& keyword : chart.keywords) {
    lines.push_back(shortened(keyword.name, kLongName) + " " +
                    shortened(keyword.value, kTerminalWidth - kLongName - 4));
  }
  return lines;
}

std::string title_line(std::string_view name, const Chart& chart) {
  std::string line = shortened(name, 60);
  const std::string kind = kind_text(chart);
  if (!kind.empty()) line += " (" + kind + ")";
  if (!chart.title.empty()) line += ": " + chart.title;
  return shortened(line, kTerminalWidth);
}

using Tables = std::vector<TableLines>;

std::string fitted(const std::string& line, std::size_t width, Detail detail) {
  return (detail == Detail::all ? line : shortened(line, width)) + '\n';
}

bool has_colours(const Tables& tables) {
  return std::ranges::any_of(tables, [](const TableLines& table) {
    return std::ranges::any_of(table, [](const TableLine& line) { return !line.colour.empty(); });
  });
}

// All tables of a chart have room for swatches when one has them, so that they line up.
std::string text_of(const Tables& tables, Detail detail, Colours colours) {
  const bool has_swatches = colours != Colours::none && has_colours(tables);
  const std::size_t start = kIndent + (has_swatches ? kSwatchColumns : 0);
  std::string text;
  for (const TableLines& table : tables) {
    if (!table.empty()) text += '\n';
    for (const TableLine& line : table) {
      text.append(kIndent, ' ');
      if (has_swatches) text += swatch(line.colour, colours);
      text += fitted(line.text, kTerminalWidth - start, detail);
    }
  }
  return text;
}

std::string joined(const std::string& title, const Lines& lines, Detail detail) {
  std::string text = title + "\n";
  for (const std::string& line : lines) {
    if (!line.empty()) text.append(kIndent, ' ');
    text += fitted(line, kTerminalWidth - kIndent, detail);
  }
  return text;
}

// Tables share the lines that the rest of a screenful leaves; the patches have theirs for sure.
Tables short_tables(const Chart& chart, std::size_t lines_above, const Screen& screen) {
  constexpr std::size_t kPatchRows = 6;
  constexpr std::size_t kTitle = 2, kGap = 1;  // a blank line and titles; the line of dots
  const std::size_t used = lines_above + kTitle + kPatchRows + kGap + 2 * kTitle;
  const std::size_t rows = kScreenLines - std::min(used, kScreenLines);
  const std::size_t landmarks = chart.landmarks.size(), channels = chart.channels.size();
  const std::size_t rest = rows - std::min(rows, landmarks);
  const std::size_t channel_rows = std::min(channels, std::max(rest, rows / 2));
  const std::size_t landmark_rows = std::min(landmarks, rows - channel_rows);
  const auto is_worth_it = [](std::size_t shown, std::size_t all) {
    return shown == all || shown > 1;  // one row would only count the others
  };
  Tables tables;
  if (is_worth_it(landmark_rows, landmarks))
    tables.push_back(landmark_lines(chart, landmark_rows, screen));
  if (is_worth_it(channel_rows, channels))
    tables.push_back(channel_lines(chart, channel_rows, screen));
  tables.push_back(patch_lines(chart, kPatchRows, screen));
  return tables;
}

TableLines without_colours(Lines lines) {
  TableLines table;
  for (std::string& line : lines) table.push_back({std::move(line), {}});
  return table;
}

Tables all_tables(const Chart& chart, const Screen& screen) {
  return {landmark_lines(chart, kAllRows, screen), channel_lines(chart, kAllRows, screen),
          without_colours(channel_value_lines(chart)), patch_lines(chart, kAllRows, screen),
          merged_patch_lines(chart, kAllRows)};
}

// Findings and facts, and all keywords when asked.
Lines words_about(const Chart& chart, std::vector<Finding> findings, std::size_t more,
                  const Lines& further, Detail detail) {
  Lines lines = finding_lines(by_gravity(std::move(findings)), more, detail);
  for (const std::string& message : chart.messages) {
    if (!chart.is_loaded || detail == Detail::all) add_labelled(lines, "message", message);
  }
  if (!lines.empty()) lines.emplace_back();
  append(lines, fact_lines(chart));
  append(lines, further);
  if (detail == Detail::all && !chart.keywords.empty()) {
    lines.emplace_back();
    append(lines, keyword_lines(chart));
  }
  return lines;
}

std::string text_of(const std::string& title, const Lines& words, const Chart& chart, Detail detail,
                    const Screen& screen) {
  const Tables tables = detail == Detail::all ? all_tables(chart, screen)
                                              : short_tables(chart, 1 + words.size(), screen);
  return joined(title, words, detail) + text_of(tables, detail, screen.colours);
}

Lines further_table_lines(std::span<const Chart> charts) {
  constexpr std::size_t kMost = 3;
  Lines lines;
  for (std::size_t i = 1; i < charts.size(); ++i) {
    if (i > kMost) {
      add_labelled(lines, "", "... and " + std::to_string(charts.size() - i) + " more");
      break;
    }
    std::string text = counted(charts[i].patch_count, "row", "rows");
    if (charts[i].content != Content::measurement) {
      text.append(", ").append(word_of(charts[i].content));
    }
    if (!charts[i].title.empty()) text += ", " + charts[i].title;
    add_labelled(lines, "table " + std::to_string(i + 1), text, 1);
  }
  return lines;
}

}  // namespace

std::string summary_of(const Chart& chart, Detail detail, const Screen& screen) {
  const Lines words = words_about(chart, chart.findings, chart.more_findings, {}, detail);
  return text_of(title_line(chart.name, chart), words, chart, detail, screen);
}

std::string summary_of(std::string_view file, std::span<const Chart> charts,
                       const Findings& findings, Detail detail, const Screen& screen) {
  if (charts.empty()) {
    Lines lines = finding_lines(by_gravity(findings.list()), findings.more(), detail);
    lines.emplace_back("There is no chart in this file.");
    return joined(shortened(file, kTerminalWidth), lines, detail);
  }
  const Chart& main = charts.front();
  std::vector<Finding> all = findings.list();
  all.insert(all.end(), main.findings.begin(), main.findings.end());
  const Lines words = words_about(main, std::move(all), findings.more() + main.more_findings,
                                  further_table_lines(charts), detail);
  std::string text = text_of(title_line(file, main), words, main, detail, screen);
  if (detail == Detail::screenful) return text;
  for (std::size_t i = 1; i < charts.size(); ++i) {
    text += "\ntable " + std::to_string(i + 1) + "\n" + summary_of(charts[i], detail, screen);
  }
  return text;
}

}  // namespace measkit
