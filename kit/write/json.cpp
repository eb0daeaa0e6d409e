#include "kit/write/json.h"

#include "kit/write/json_parts.h"
#include "kit/write/words.h"

#include <optional>
#include <utility>

namespace measkit {
namespace {

template <typename Value>
Json optional_json(const std::optional<Value>& value) {
  return value ? Json(*value) : Json(nullptr);
}

Json texts_json(const std::vector<std::string>& texts) {
  Json json = Json::array();
  for (const std::string& text : texts) json.push_back(text_json(text));
  return json;
}

Json holds_json(const Chart& chart) {
  const Holdings& holds = chart.holds;
  return {{"device", holds.device},
          {"xyz", holds.xyz},
          {"lab", holds.lab},
          {"lch", holds.lch},
          {"spectra", holds.spectra},
          {"color", holds.colour},
          {"sample_ids", holds.ids},
          {"sample_names", holds.names},
          {"sample_locations", holds.locations},
          {"densities", !chart.densities.empty()},
          {"emission", !chart.emission.empty()}};
}

Json device_space_json(const Chart& chart) {
  if (!chart.holds.device) return nullptr;
  if (!chart.device_set.empty()) return chart.device_set;
  const std::size_t channels = chart.channels.size();
  return std::to_string(channels) + (channels == 1 ? " channel" : " channels");
}

Json wavelengths_json(const std::vector<double>& wavelengths) {
  if (wavelengths.empty()) return nullptr;
  const double step = wavelengths.size() > 1 ? wavelengths[1] - wavelengths[0] : 0.0;
  return {{"start_nm", wavelengths.front()},
          {"end_nm", wavelengths.back()},
          {"step_nm", step},
          {"size", wavelengths.size()}};
}

Json lab_source_json(const Chart& chart) {
  Json json = {{"source", word_of(chart.lab_source)}, {"sentence", text_json(chart.lab_sentence)}};
  json["difference_from_own_lab"] = nullptr;
  if (chart.lab_difference) {
    json["difference_from_own_lab"] = {{"median", chart.lab_difference->median},
                                       {"percentile_95", chart.lab_difference->percentile_95},
                                       {"largest", chart.lab_difference->largest},
                                       {"largest_patch", chart.lab_difference->largest_patch}};
  }
  return json;
}

void add_colour(Json& json, const Values& lab, std::size_t row) {
  json["lab"] = nullptr;
  json["srgb"] = nullptr;
  if (lab.empty()) return;
  json["lab"] = row_json(lab, row);
  const std::string colour = hex_colour(triple_at(lab, row));
  if (!colour.empty()) json["srgb"] = colour;
}

Json landmarks_json(const Chart& chart) {
  Json json = Json::array();
  for (const Landmark& landmark : chart.landmarks) {
    Json one = {{"kind", word_of(landmark.kind)},
                {"name", text_json(landmark.name)},
                {"index", landmark.index},
                {"id", text_json(label_of(chart, landmark.index))},
                {"device", row_json(chart.merged.device, landmark.index)}};
    add_colour(one, chart.merged.lab, landmark.index);
    json.push_back(std::move(one));
  }
  return json;
}

Json stated_json(const std::optional<Stated>& stated) {
  if (!stated) return nullptr;
  return {{"value", text_json(stated->value)},
          {"keyword", text_json(stated->keyword)},
          {"words", text_json(stated->words)},
          {"line", stated->line == 0 ? Json(nullptr) : Json(stated->line)}};
}

Json conditions_json(const MeasuringConditions& conditions) {
  return {{"m", stated_json(conditions.m)},
          {"illuminant", stated_json(conditions.illuminant)},
          {"observer", stated_json(conditions.observer)},
          {"backing", stated_json(conditions.backing)},
          {"filter", stated_json(conditions.filter)},
          {"geometry", stated_json(conditions.geometry)},
          {"polarization", stated_json(conditions.polarization)},
          {"density_status", stated_json(conditions.density_status)}};
}

Json answers_json(const std::vector<Answer>& answers) {
  Json json = Json::object();
  for (const Answer& answer : answers) {
    json[std::string(answer.question)] = answer.text ? text_json(*answer.text) : Json(nullptr);
  }
  return json;
}

Json keywords_json(const std::vector<Entry>& keywords) {
  Json json = Json::array();
  for (const Entry& keyword : keywords) {
    json.push_back({{"name", text_json(keyword.name)}, {"value", text_json(keyword.value)}});
  }
  return json;
}

Json channels_json(const std::vector<Channel>& channels) {
  Json json = Json::array();
  for (const Channel& channel : channels) {
    Json values = Json::array();
    for (const DistinctValue& distinct : channel.distinct_values) {
      values.push_back({{"value", distinct.value}, {"count", distinct.count}});
    }
    json.push_back({{"name", text_json(channel.name)},
                    {"field", text_json(channel.field)},
                    {"distinct_values", std::move(values)},
                    {"wedge", channel.wedge},
                    {"solid", optional_json(channel.solid)}});
  }
  return json;
}

void add_row(Json& json, const char* key, const Values& values, std::size_t row) {
  if (!values.empty()) json[key] = row_json(values, row);
}

Json patch_json(const Chart& chart, std::size_t patch) {
  const auto text = [patch](const Texts& texts) {
    return texts.empty() ? Json("") : text_json(texts[patch]);
  };
  Json json = {
      {"id", text(chart.ids)}, {"name", text(chart.names)}, {"location", text(chart.locations)}};
  json["device"] = Json::array();
  add_row(json, "device", chart.device, patch);
  add_row(json, "xyz", chart.xyz, patch);
  add_colour(json, chart.lab, patch);
  add_row(json, "own_lab", chart.own_lab, patch);
  add_row(json, "lch", chart.lch, patch);
  add_row(json, "densities", chart.densities, patch);
  add_row(json, "spectrum", chart.spectra, patch);
  add_row(json, "emission", chart.emission, patch);
  return json;
}

Json merged_patch_json(const Chart& chart, std::size_t index) {
  const MergedPatches& merged = chart.merged;
  Json json = {{"name", merged.names.empty() ? Json("") : text_json(merged.names[index])},
               {"patches", merged.patches_of(index)}};
  json["device"] = Json::array();
  add_row(json, "device", merged.device, index);
  add_colour(json, merged.lab, index);
  add_row(json, "spectrum", merged.spectra, index);
  if (!merged.repeats.empty()) {
    const Repeats& repeats = merged.repeats[index];
    json["repeats"] = {{"count", repeats.count},
                       {"de_mean", repeats.de_mean},
                       {"de_max", optional_json(repeats.de_max)}};
  }
  return json;
}

// What is told of a chart apart from its patches.
void describe(const Chart& chart, Json& json) {
  json["loaded"] = chart.is_loaded;
  json["messages"] = texts_json(chart.messages);
  json["findings"] = findings_json(chart.findings);
  json["more_findings"] = chart.more_findings;
  json["title"] = text_json(chart.title);
  json["identifier"] = text_json(chart.identifier);
  json["form"] = chart.is_semicolon_table ? "semicolon table" : "measurement file";
  json["content"] = word_of(chart.content);
  json["quantity"] = word_of(chart.quantity);
  json["display"] = chart.is_display;
  json["holds"] = holds_json(chart);
  json["device_space"] = device_space_json(chart);
  json["full_scale"] = chart.full_scale > 0.0 ? Json(chart.full_scale) : Json(nullptr);
  json["spectral"] = wavelengths_json(chart.wavelengths);
  json["emission_nm"] = chart.emission_wavelengths;
  json["density_names"] = texts_json(chart.density_names);
  json["paper_white"] = optional_json(chart.paper_white);
  json["lab_source"] = lab_source_json(chart);
  json["landmarks"] = landmarks_json(chart);
  json["condition"] = conditions_json(chart.conditions);
  json["instrument_line"] = chart.instrument.empty() ? Json(nullptr) : text_json(chart.instrument);
  json["instrument"] = answers_json(chart.instrument_answers);
  json["sample"] = answers_json(chart.sample_answers);
  json["keywords"] = keywords_json(chart.keywords);
  json["empty_keywords"] = chart.empty_keywords;
  json["unused_columns"] = texts_json(chart.unused_columns);
  json["channels"] = channels_json(chart.channels);
}

// Patches are written one by one: a tree of all of them takes many times the memory of the chart.
template <typename JsonOf>
void append_list(std::string& out, const char* key, std::size_t count, JsonOf json_of) {
  out.append(",\n \"").append(key).append("\": [");
  for (std::size_t i = 0; i < count; ++i) {
    out.append(i == 0 ? "\n  " : ",\n  ").append(json_of(i).dump());
  }
  out += count == 0 ? "]" : "\n ]";
}

// The object so far, open for further keys.
std::string open_object(const Json& json) {
  std::string out = json.dump(1);
  out.resize(out.size() - 2);  // "\n}"
  return out;
}

void append_patches(std::string& out, const Chart& chart) {
  append_list(out, "patches", chart.patch_count,
              [&chart](std::size_t patch) { return patch_json(chart, patch); });
  append_list(out, "merged_patches", chart.merged.count,
              [&chart](std::size_t index) { return merged_patch_json(chart, index); });
}

Json tables_json(std::span<const Chart> charts) {
  Json tables = Json::array();
  for (const Chart& chart : charts) {
    tables.push_back({{"title", text_json(chart.title)},
                      {"identifier", text_json(chart.identifier)},
                      {"content", word_of(chart.content)},
                      {"loaded", chart.is_loaded},
                      {"patches", chart.patch_count},
                      {"merged_patches", chart.merged.count}});
  }
  return tables;
}

// Findings about the whole file come before those of its main chart.
void put_first(const Findings& findings, Json& json) {
  Json all = findings_json(findings.list());
  for (Json& finding : json["findings"]) all.push_back(std::move(finding));
  json["findings"] = std::move(all);
  json["more_findings"] = findings.more() + json["more_findings"].get<std::size_t>();
}

}  // namespace

std::string to_json(const Chart& chart) {
  Json json = {{"name", text_json(chart.name)}};
  describe(chart, json);
  std::string out = open_object(json);
  append_patches(out, chart);
  return out += "\n}";
}

std::string to_json(std::string_view file, std::span<const Chart> charts,
                    const Findings& findings) {
  Json json = {{"file", text_json(file)}, {"loaded", false}, {"messages", Json::array()}};
  json["tables"] = tables_json(charts);
  if (charts.empty()) {
    json["findings"] = findings_json(findings.list());
    json["more_findings"] = findings.more();
  } else {
    json["name"] = text_json(charts.front().name);
    describe(charts.front(), json);
    put_first(findings, json);
  }
  std::string out = open_object(json);
  if (!charts.empty()) append_patches(out, charts.front());
  if (charts.size() > 1) {
    out += ",\n \"further_charts\": [";
    for (std::size_t i = 1; i < charts.size(); ++i) {
      out.append(i == 1 ? "\n" : ",\n").append(to_json(charts[i]));
    }
    out += "\n ]";
  }
  return out += "\n}";
}

}  // namespace measkit
