#include "kit/write/html/view.h"

#include "measdata.h"
#include "tools/loaded_file.h"
#include "kit/write/html/html_text.h"
#include "kit/write/html/numbers.h"

#include <algorithm>
#include <span>
#include <sstream>
#include <string_view>

namespace measkit::html {
namespace {

// What a page can show. Files may hold far more.
constexpr int kMostPatches = 10'000;
constexpr int kMostKeywords = 500;
constexpr std::size_t kMostMessages = 20;
constexpr std::size_t kMostWedgeSteps = 300;

// Characters of a text.
constexpr std::size_t kShortName = 12;
constexpr std::size_t kLongName = 60;
constexpr std::size_t kLongValue = 1000;

bool is_drawable_lab(const std::optional<Triple>& lab) {
  return lab && std::ranges::all_of(*lab, is_drawable);
}

std::string colour_of(const std::optional<Triple>& lab) {
  return is_drawable_lab(lab) ? hex_colour(*lab).value_or("") : "";
}

// Identifier and, where there is more to tell, name or location.
std::string label_of(const Patch& patch) {
  std::string label = html_text(patch.id, kLongName);
  for (const std::string& more : {patch.name, patch.location}) {
    if (more.empty() || more == patch.id) continue;
    label += (label.empty() ? "" : " \u00B7 ") + html_text(more, kLongName);
  }
  return label;
}

void gather_messages(View& chart, const std::string& text) {
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    if (chart.messages.size() < kMostMessages) {
      chart.messages.push_back(html_text(line, kLongValue));
    } else {
      ++chart.more_messages;
    }
  }
}

std::string contents_of(void* handle) {
  const struct {
    int (*has)(void*);
    const char* name;
  } kinds[] = {{has_device_data, "device values"},
               {has_xyz_data, "XYZ"},
               {has_lab_data, "Lab"},
               {has_lch_data, "LCh"},
               {has_spectral_data, "spectra"},
               {has_sample_id_data, "identifiers"},
               {has_sample_name_data, "names"},
               {has_sample_loc_data, "locations"}};
  std::string text;
  for (const auto& kind : kinds) {
    if (kind.has(handle) == 1) text += (text.empty() ? "" : ", ") + std::string(kind.name);
  }
  return text.empty() ? "nothing that is known" : text;
}

void gather_facts(View& chart, const LoadedFile& file) {
  void* handle = file.handle();
  const bool is_table = file.form() == LoadedFile::Form::semicolon_table;
  chart.facts.push_back({"form", is_table ? "semicolon table" : "measurement file"});
  chart.facts.push_back({"holds", contents_of(handle)});
  if (has_device_data(handle) == 1) chart.facts.push_back({"device", chart.device_space});
  if (!chart.wavelengths.empty()) {
    chart.facts.push_back({"spectra", shortest(spectral_start(handle)) + " to " +
                                          shortest(spectral_end(handle)) + " nm by " +
                                          shortest(spectral_step(handle)) + " nm"});
  }
}

std::vector<Entry> answers_of(std::span<const Question> questions, void* handle) {
  std::vector<Entry> entries;
  for (const Question& question : questions) {
    const Text answer = answer_to(question, handle);
    if (answer) entries.push_back({question.name, html_text(*answer, kLongValue)});
  }
  return entries;
}

void gather_keywords(View& chart, void* handle) {
  const int shown = std::min(num_keywords(handle), kMostKeywords);
  for (int i = 0; i < shown; ++i) {
    chart.keywords.push_back({html_text(get_keyword(handle, i), kLongValue),
                              html_text(get_value(handle, i), kLongValue)});
  }
  chart.more_keywords = static_cast<std::size_t>(num_keywords(handle) - shown);
}

void gather_patches(View& chart, void* handle) {
  for (int i = 0; i < std::min(num_patches(handle), kMostPatches); ++i) {
    PatchView patch = {patch_at(handle, i), "", ""};
    patch.colour = colour_of(patch.values.lab);
    patch.label = label_of(patch.values);
    if (patch.label.empty()) patch.label = "patch " + std::to_string(i + 1);
    if (patch.colour.empty()) patch.values.lab.reset();
    chart.patches.push_back(std::move(patch));
  }
}

std::string channel_name(const View& chart, const Text& name, std::size_t channel) {
  constexpr std::string_view kRgbNames[] = {"Red", "Green", "Blue"};
  if (name && !name->empty()) return *name;
  if (chart.is_rgb && channel < 3) return std::string(kRgbNames[channel]);
  return "Channel " + std::to_string(channel + 1);
}

// The patch without colorants and the steps of the wedge, evenly thinned when there are too many.
std::vector<WedgeStep> wedge_of(const Channel& channel, std::size_t position, void* handle) {
  std::vector<int> indices = channel.wedge;
  const int white = get_paperwhite_index(handle);
  if (white >= 0 && !indices.empty()) indices.insert(indices.begin(), white);
  const std::size_t stride = 1 + indices.size() / kMostWedgeSteps;
  std::vector<WedgeStep> steps;
  for (std::size_t i = 0; i < indices.size(); i += stride) {
    const Patch patch = merged_patch_at(handle, indices[i]);
    const std::string colour = colour_of(patch.lab);
    if (colour.empty() || !is_drawable(patch.device[position])) continue;
    steps.push_back({patch.device[position], *patch.lab, colour});
  }
  return steps;
}

void add_landmark(View& chart, void* handle, int index, std::string name) {
  PatchView patch = {merged_patch_at(handle, index), "", std::move(name)};
  patch.colour = colour_of(patch.values.lab);
  if (!patch.colour.empty()) chart.landmarks.push_back(std::move(patch));
}

void gather_channels(View& chart, void* handle) {
  const int white = get_paperwhite_index(handle);
  if (white >= 0) add_landmark(chart, handle, white, chart.is_rgb ? "All channels 0" : "Paper");
  const std::vector<Channel> channels = channels_of(handle);
  for (std::size_t c = 0; c < channels.size(); ++c) {
    const bool has_letters = chart.device_space.size() == channels.size();
    const std::string name = channel_name(chart, channels[c].name, c);
    ChannelView channel = {html_text(name, kLongName),
                            html_text(name, kShortName),
                            has_letters ? chart.device_space.substr(c, 1) : "",
                            "",
                            channels[c].distinct_values,
                            wedge_of(channels[c], c, handle)};
    const std::optional<int> solid = channels[c].solid;
    if (solid) add_landmark(chart, handle, *solid, channel.name);
    if (!channel.wedge.empty()) channel.colour = channel.wedge.back().colour;
    chart.channels.push_back(std::move(channel));
  }
}

void gather_repeats(View& chart, void* handle) {
  for (int index = 0; index < num_indices(handle); ++index) {
    const std::optional<Repeats> repeats = repeats_at(handle, index);
    if (!repeats || repeats->count < 2 || !is_drawable(repeats->de_max.value_or(0.0))) continue;
    const Patch patch = merged_patch_at(handle, index);
    std::string label = html_text(patch.name, kLongName);
    for (const double value : patch.device) {
      if (patch.name.empty()) label += (label.empty() ? "" : " ") + shortest(value);
    }
    chart.repeats.push_back({std::move(label), colour_of(patch.lab), repeats->count,
                             repeats->de_mean, repeats->de_max.value_or(0.0)});
  }
  std::ranges::stable_sort(chart.repeats, std::ranges::greater(), &RepeatedPatch::de_max);
}

}  // namespace

View chart_of(const std::string& path) {
  const LoadedFile file(path);
  void* handle = file.handle();
  View chart;
  chart.path = html_text(path, kLongValue);
  chart.name = html_text(path.substr(path.find_last_of("/\\") + 1), kLongValue);
  chart.is_loaded = file.is_loaded();
  gather_messages(chart, file.messages());
  if (!chart.is_loaded) return chart;
  const char* title = get_value_of_keyword(handle, "DESCRIPTOR");
  if (title != nullptr) chart.title = html_text(title, kLongValue);
  chart.patch_count = static_cast<std::size_t>(num_patches(handle));
  chart.merged_count = static_cast<std::size_t>(num_indices(handle));
  chart.is_rgb = dev_is_rgb(handle) == 1;
  if (has_device_data(handle) == 1) chart.device_space = device_space_name(handle);
  for (int band = 0; band < spectral_size(handle); ++band) {
    chart.wavelengths.push_back(spectral_start(handle) + band * spectral_step(handle));
  }
  gather_facts(chart, file);
  chart.instrument = answers_of(instrument_questions(), handle);
  chart.sample = answers_of(sample_questions(), handle);
  gather_keywords(chart, handle);
  gather_patches(chart, handle);
  gather_channels(chart, handle);
  gather_repeats(chart, handle);
  return chart;
}

}  // namespace measkit::html
