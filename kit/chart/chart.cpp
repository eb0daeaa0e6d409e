#include "kit/chart/chart.h"

#include "api/measdata.h"
#include "kit/chart/gather.h"
#include "kit/preflight/spectral_columns.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <utility>

namespace measkit {
namespace {

void gather_messages(Chart& chart, void* handle) {
  const char* const text = parse_messages(handle);
  std::string_view rest = text == nullptr ? "Out of memory\n" : text;
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find('\n'), rest.size());
    chart.messages.emplace_back(rest.substr(0, end));
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
}

bool has_finding(const Findings& findings, std::string_view code) {
  return std::any_of(findings.list().begin(), findings.list().end(),
                     [code](const Finding& finding) { return finding.code == code; });
}

Quantity quantity_of(const Chart& chart, const Table& table, const Roles& roles) {
  if (has_finding(table.findings, "transmittance")) return Quantity::transmittance;
  const bool has_emission = std::any_of(roles.unused.begin(), roles.unused.end(), [&](int field) {
    return emission_wavelength_in(table.fields[static_cast<std::size_t>(field)].name) != 0.0;
  });
  const bool is_light = chart.is_display || chart.content == Content::emission_spectra;
  return has_emission || is_light ? Quantity::emission : Quantity::reflectance;
}

void take_table(Chart& chart, const Table& table, const Roles& roles) {
  chart.identifier = table.identifier;
  chart.content = table.content;
  chart.is_display = is_display(table);
  chart.quantity = quantity_of(chart, table, roles);
  chart.device_set = roles.device_set;
  for (const int field : roles.device) {
    chart.channels.emplace_back().field = table.fields[static_cast<std::size_t>(field)].name;
  }
}

std::string device_set_of(void* handle) {
  if (dev_is_cmyk(handle) == 1) return "CMYK";
  if (dev_is_cmy(handle) == 1) return "CMY";
  return dev_is_rgb(handle) == 1 ? "RGB" : "";
}

void tell_uncompared(const Chart& chart, Findings& findings) {
  for (const Repeats& repeats : chart.merged.repeats) {
    if (!std::isnan(repeats.de_mean) || repeats.de_max) continue;
    findings.add(Severity::note, "repeats-not-compared",
                 "A patch has " + std::to_string(repeats.count) +
                     " measurements: their differences are computed only on demand.");
  }
}

std::string text_at(const Chart& chart, std::size_t patch, const Texts& texts) {
  return texts.empty() || patch >= chart.patch_count ? std::string() : texts[patch];
}

}  // namespace

Chart chart_of(PlainTable& plain, std::string name, Effort effort) {
  Table& table = plain.table;
  void* const handle = plain.loaded.handle();
  const Roles roles = table.roles();
  Chart chart;
  chart.name = std::move(name);
  chart.is_loaded = plain.loaded.is_loaded();
  gather_messages(chart, handle);
  take_table(chart, table, roles);
  if (chart.is_loaded) {
    gather_patches(chart, handle, effort);
    gather_channels(chart, handle, table.header);
    gather_landmarks(chart);
    gather_description(chart, handle, table.header);
    gather_lab_source(chart, &table, roles);
    gather_cells(chart, table, roles);
  }
  Findings findings = table.findings;
  gather_lab_difference(chart, findings);
  tell_uncompared(chart, findings);
  chart.findings = findings.list();
  chart.more_findings = findings.more();
  return chart;
}

Chart chart_as_it_stands(void* handle, std::string name, Effort effort) {
  Chart chart;
  chart.name = std::move(name);
  chart.is_loaded = true;
  chart.is_semicolon_table = get_parse_mode(handle) == 1;
  gather_messages(chart, handle);
  gather_patches(chart, handle, effort);
  chart.device_set = device_set_of(handle);
  gather_channels(chart, handle, {});
  const std::optional<std::size_t> paper_white = chart.paper_white;
  gather_landmarks(chart);
  chart.paper_white = paper_white;
  gather_description(chart, handle, {});
  gather_lab_source(chart, nullptr, {});
  Findings findings;
  tell_uncompared(chart, findings);
  chart.findings = findings.list();
  chart.more_findings = findings.more();
  return chart;
}

std::string patch_label(const Chart& chart, std::size_t patch) {
  for (const Texts* texts : {&chart.ids, &chart.names, &chart.locations}) {
    std::string label = text_at(chart, patch, *texts);
    if (!label.empty()) return label;
  }
  return "#" + std::to_string(patch);
}

std::string label_of(const Chart& chart, std::size_t index) {
  return patch_label(chart, chart.merged.patches_of(index).front());
}

std::string hex_colour(const Triple& lab) {
  if (std::isnan(lab[0] + lab[1] + lab[2])) return {};
  Triple rgb{};
  lab_to_srgb(lab.data(), rgb.data());
  const auto byte = [](double value) {
    return static_cast<unsigned>(std::lround(std::clamp(value, 0.0, 255.0))) & 0xFFU;
  };
  std::array<char, 8> text{};
  std::snprintf(text.data(), text.size(), "#%02X%02X%02X", byte(rgb[0]), byte(rgb[1]),
                byte(rgb[2]));
  return text.data();
}

}  // namespace measkit
