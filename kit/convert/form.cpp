#include "kit/convert/form.h"

#include <algorithm>
#include <array>

namespace measkit {
namespace {

struct NamedForm {
  Form form;
  std::string_view name, ending;
};

// Of two forms with one ending, a file name means the first.
constexpr std::array<NamedForm, 9> kForms = {{{Form::iso28178, "iso28178", ".txt"},
                                              {Form::cgats, "cgats", ".txt"},
                                              {Form::seven_characters, "sevenchar", ".txt"},
                                              {Form::csv, "csv", ".csv"},
                                              {Form::tsv, "tsv", ".tsv"},
                                              {Form::json, "json", ".json"},
                                              {Form::json_lines, "jsonl", ".jsonl"},
                                              {Form::cxf, "cxf", ".cxf"},
                                              {Form::ti3, "ti3", ".ti3"}}};

bool ends_in(std::string_view path, std::string_view ending) {
  const auto is_same = [](char c, char small) {
    return c == small || (c >= 'A' && c <= 'Z' && c - 'A' + 'a' == small);
  };
  return path.size() >= ending.size() &&
         std::ranges::equal(path.substr(path.size() - ending.size()), ending, is_same);
}

}  // namespace

std::optional<Form> form_named(std::string_view name) {
  const auto found = std::ranges::find(kForms, name, &NamedForm::name);
  return found == kForms.end() ? std::nullopt : std::optional(found->form);
}

std::optional<Form> form_of_ending(std::string_view path) {
  const auto found = std::ranges::find_if(
      kForms, [path](const NamedForm& form) { return ends_in(path, form.ending); });
  return found == kForms.end() ? std::nullopt : std::optional(found->form);
}

std::string_view ending_of(Form form) {
  return std::ranges::find(kForms, form, &NamedForm::form)->ending;
}

std::string form_names() {
  std::string names;
  for (const NamedForm& form : kForms) {
    names.append(names.empty() ? "" : ", ").append(form.name);
  }
  return names;
}

}  // namespace measkit
