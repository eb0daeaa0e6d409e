#include "tools/json_report.h"

#include "tools/loaded_file.h"
#include "tools/printable_text.h"
#include "tools/queries.h"

#include <nlohmann/json.hpp>
#include <optional>
#include <span>
#include <sstream>

namespace tools {
namespace {

using Json = nlohmann::ordered_json;

Json text_json(const std::string& text) { return utf8_of(text); }

template <typename Value>
Json optional_json(const std::optional<Value>& value) {
  return value ? Json(*value) : Json(nullptr);
}

Json optional_text_json(const Text& text) { return text ? text_json(*text) : Json(nullptr); }

Json lines_json(const std::string& text) {
  Json lines = Json::array();
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(text_json(line));
  return lines;
}

Json holds_json(void* handle) {
  return {{"device", has_device_data(handle) == 1},
          {"xyz", has_xyz_data(handle) == 1},
          {"lab", has_lab_data(handle) == 1},
          {"lch", has_lch_data(handle) == 1},
          {"spectra", has_spectral_data(handle) == 1},
          {"color", has_color_data(handle) == 1},
          {"sample_ids", has_sample_id_data(handle) == 1},
          {"sample_names", has_sample_name_data(handle) == 1},
          {"sample_locations", has_sample_loc_data(handle) == 1}};
}

Json spectral_json(void* handle) {
  if (has_spectral_data(handle) != 1) return nullptr;
  return {{"start_nm", spectral_start(handle)},
          {"end_nm", spectral_end(handle)},
          {"step_nm", spectral_step(handle)},
          {"size", spectral_size(handle)}};
}

Json channels_json(void* handle) {
  Json channels = Json::array();
  for (const Channel& channel : channels_of(handle)) {
    Json values = Json::array();
    for (const DistinctValue& distinct : channel.distinct_values) {
      values.push_back({{"value", distinct.value}, {"count", distinct.count}});
    }
    channels.push_back({{"name", optional_text_json(channel.name)},
                        {"distinct_values", values},
                        {"wedge", channel.wedge},
                        {"solid", optional_json(channel.solid)}});
  }
  return channels;
}

Json keywords_json(void* handle) {
  Json keywords = Json::array();
  for (int i = 0; i < num_keywords(handle); ++i) {
    keywords.push_back(
        {{"name", text_json(get_keyword(handle, i))}, {"value", text_json(get_value(handle, i))}});
  }
  return keywords;
}

Json answers_json(void* handle, std::span<const Question> questions) {
  Json answers = Json::object();
  for (const Question& question : questions) {
    answers[question.name] = optional_text_json(answer_to(question, handle));
  }
  return answers;
}

Json colour_json(const Patch& patch) {
  Json colour = {{"device", patch.device}};
  if (patch.xyz) colour["xyz"] = *patch.xyz;
  colour["lab"] = optional_json(patch.lab);
  colour["srgb"] = patch.lab ? optional_text_json(hex_colour(*patch.lab)) : Json(nullptr);
  if (!patch.spectrum.empty()) colour["spectrum"] = patch.spectrum;
  return colour;
}

Json patches_json(void* handle) {
  Json patches = Json::array();
  for (int i = 0; i < num_patches(handle); ++i) {
    const Patch patch = patch_at(handle, i);
    Json json = {{"id", text_json(patch.id)},
                 {"name", text_json(patch.name)},
                 {"location", text_json(patch.location)}};
    json.update(colour_json(patch));
    patches.push_back(std::move(json));
  }
  return patches;
}

Json merged_patches_json(void* handle) {
  Json patches = Json::array();
  for (int index = 0; index < num_indices(handle); ++index) {
    const Patch patch = merged_patch_at(handle, index);
    Json json = {{"name", text_json(patch.name)}};
    json.update(colour_json(patch));
    if (const std::optional<Repeats> repeats = repeats_at(handle, index)) {
      json["repeats"] = {{"count", repeats->count},
                         {"de_mean", repeats->de_mean},
                         {"de_max", optional_json(repeats->de_max)}};
    }
    patches.push_back(std::move(json));
  }
  return patches;
}

Json file_json(const LoadedFile& file) {
  void* handle = file.handle();
  Json json = {{"file", text_json(file.path())},
               {"loaded", file.is_loaded()},
               {"messages", lines_json(file.messages())}};
  if (!file.is_loaded()) return json;
  const bool is_table = file.form() == LoadedFile::Form::semicolon_table;
  const int white = get_paperwhite_index(handle);
  json["form"] = is_table ? "semicolon table" : "measurement file";
  json["holds"] = holds_json(handle);
  json["device_space"] =
      has_device_data(handle) == 1 ? Json(device_space_name(handle)) : Json(nullptr);
  json["spectral"] = spectral_json(handle);
  json["paper_white"] = white < 0 ? Json(nullptr) : Json(white);
  json["instrument"] = answers_json(handle, instrument_questions());
  json["sample"] = answers_json(handle, sample_questions());
  json["keywords"] = keywords_json(handle);
  json["channels"] = channels_json(handle);
  json["patches"] = patches_json(handle);
  json["merged_patches"] = merged_patches_json(handle);
  return json;
}

}  // namespace

std::string json_report(const std::vector<std::string>& paths, int& failures) {
  Json report = Json::array();
  failures = 0;
  for (const std::string& path : paths) {
    const LoadedFile file(path);
    if (!file.is_loaded()) ++failures;
    report.push_back(file_json(file));
  }
  return report.dump(1);
}

}  // namespace tools
