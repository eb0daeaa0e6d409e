#include "kit/preflight/preflight.h"

#include "kit/cxf/read_cxf.h"
#include "kit/preflight/conditions.h"
#include "kit/preflight/converted_text.h"
#include "kit/preflight/device_columns.h"
#include "kit/preflight/encoding.h"
#include "kit/preflight/frame_reader.h"
#include "kit/preflight/lab_columns.h"
#include "kit/preflight/loaded_numbers.h"
#include "kit/preflight/plain_writer.h"
#include "kit/preflight/spectral_columns.h"
#include "kit/preflight/spectral_grid.h"
#include "kit/preflight/spreadsheet.h"
#include "kit/preflight/structure.h"

#include <algorithm>
#include <utility>

namespace measkit {
namespace {

// Names that readers pass over, as far as they fit into a sentence.
void tell_unused_columns(Table& table) {
  constexpr std::size_t kMostNames = 12;
  const Roles roles = table.roles();
  std::vector<std::string_view> names;
  for (const int field : roles.unused) {
    const std::string_view name = table.fields[static_cast<std::size_t>(field)].name;
    const bool is_told_already =
        emission_wavelength_in(name) != 0.0 || name.starts_with("PLACEHOLDER_");
    if (!is_told_already) names.push_back(name);
  }
  if (names.empty()) return;
  std::string list;
  for (std::size_t i = 0; i < std::min(names.size(), kMostNames); ++i) {
    list.append(i == 0 ? "" : ", ").append(names[i]);
  }
  if (names.size() > kMostNames) {
    list += " and " + std::to_string(names.size() - kMostNames) + " more";
  }
  table.findings.add(Severity::note, "unused-columns", "Columns that no answer uses: " + list + ".",
                     table.data_line);
}

void tell_content(Table& table) {
  if (table.content == Content::correction_matrix) {
    table.findings.add(Severity::note, "correction-matrix",
                       "This table is a correction matrix for an instrument, not a chart.");
  } else if (table.content == Content::calibration_curves) {
    table.findings.add(Severity::note, "calibration-curves",
                       "This table holds calibration curves of a device, not a chart.");
  }
}

void tell_conditions(Table& table) {
  const Conditions conditions = conditions_of(table.header);
  if (!conditions.other_m) return;
  table.findings.add(Severity::doubtful, "contradicting-conditions",
                     conditions.m->keyword + " tells " + conditions.m->value + ", but " +
                         conditions.other_m->keyword + " tells " + conditions.other_m->value + ".",
                     conditions.other_m->line);
}

// Behind spectra that were set aside there may be fields that look like others.
void use_spectra(Table& table) {
  constexpr int kMostPrefixes = 8;
  for (int i = 0; i < kMostPrefixes; ++i) {
    if (use_reflectance_factors(table) && use_regular_grid(table)) return;
  }
}

// The order matters: names before numbers, scales before what is computed from them.
void repair(Table& table, const char* name) {
  use_format_names(table);
  settle_structure(table, name);
  use_format_names(table);
  const std::vector<bool> looked_at = numeric_fields(table, table.roles());
  mark_missing_values(table);
  pair_up_spectra(table);
  recognise_display(table);
  name_quantity(table);
  use_spectra(table);
  use_xyz_of_chromaticities(table);
  const bool is_scale_known = use_scale_of_hundred(table);
  set_placeholders_aside(table);
  // Where some fields were set aside, others may have taken their place.
  if (numeric_fields(table, table.roles()) != looked_at) mark_missing_values(table);
  add_lab(table, is_scale_known);
  make_conditions_plain(table);
  tell_content(table);
  tell_conditions(table);
  tell_unused_columns(table);
}

bool has_other_colour(const Roles& roles) { return roles.has_lab() || roles.has_spectra(); }

// Loads the plain text, without densities where the library then merges and answers more.
void load(PlainTable& plain, bool is_loaded_already, const char* name) {
  Table& table = plain.table;
  const Roles roles = table.roles();
  if (!roles.densities.empty() && has_other_colour(roles)) {
    plain.loaded = LoadedText(plain_text_without(table, roles.densities), name);
    table.findings.add(Severity::note, "densities-apart",
                       "The table holds densities beside other colours: repeats are merged "
                       "without the densities.",
                       table.data_line);
    return;
  }
  if (is_loaded_already) {
    plain.loaded = std::move(table.loaded());
    return;
  }
  plain.loaded = LoadedText(plain.text, name);
}

void make_plain(PlainTable& plain, std::string_view whole_text, bool is_only_table,
                const char* name) {
  Table& table = plain.table;
  repair(table, name);
  if (table.is_as_it_stands && (!table.is_loaded() || table.loaded_shift() != 0)) {
    // The library refuses the text, a cell takes a closer look than a scan, or the first rows
    // looked like percent.
    LoadedText loaded(is_only_table ? whole_text : table.text, name);
    if (loaded.is_loaded()) {
      table.set_loaded(std::move(loaded));
    } else {
      table.is_as_it_stands = false;
      table.findings.add(Severity::repaired, "frame",
                         "The library refuses the frame of the table: rewritten.");
    }
  }
  const bool is_guess_right = !table.is_as_it_stands && table.loaded_shift() != 0 &&
                              is_plain_text_in_advance(table, table.guess.text, table.guess.shifts);
  if (table.is_as_it_stands) {
    plain.text = is_only_table ? whole_text : table.text;
  } else {
    plain.made = is_guess_right ? std::move(table.guess.text) : plain_text(table);
    plain.text = plain.made;
  }
  table.guess = {};
  load(plain, table.is_loaded() && (table.is_as_it_stands || is_guess_right), name);
  if (!plain.loaded.is_loaded()) {
    table.findings.add(
        Severity::lost, "not-loaded",
        std::string("The table cannot be read: ") + parse_messages(plain.loaded.handle()));
  }
}

// Charts that were measured come before everything else.
bool is_main(const Table& table) {
  const Roles roles = table.roles();
  return table.content == Content::measurement &&
         (roles.has_lab() || roles.has_xyz() || roles.has_spectra() || roles.has_lch() ||
          !roles.densities.empty());
}

std::vector<Table> read_tables(std::string_view& text, Preflighted& result) {
  if (auto tables = cxf::read_cxf(text, result.pool, result.findings)) return *std::move(tables);
  if (auto tables = read_json(text, result.findings)) return *std::move(tables);
  std::vector<Table> tables;
  if (auto table = read_marked_csv(text, result.findings)) {
    tables.push_back(*std::move(table));
    return tables;
  }
  if (has_marker_line(text, "BEGIN_DATA")) tables = read_frames(text, result.findings);
  if (!tables.empty()) return tables;
  text = with_cells_on_one_line(text, *result.text, result.findings);
  Findings refusals;
  tables = read_spreadsheet(text, refusals);
  // What encoding the bytes have is no news where they are no text.
  if (refusals.has("not-text")) result.findings = Findings();
  result.findings.append(refusals);
  return tables;
}

}  // namespace

Preflighted preflight(std::string_view bytes, const char* name) {
  Preflighted result;
  std::string_view text = utf8_text(bytes, *result.text, result.findings);
  std::vector<Table> tables = read_tables(text, result);
  const bool is_only_table = tables.size() == 1;
  std::stable_partition(tables.begin(), tables.end(), is_main);
  for (Table& table : tables) {
    if (table.fields.empty()) {
      result.findings.add(Severity::lost, "fields-missing",
                          "A data block has no list of fields, so its columns are unknown. "
                          "A list between BEGIN_DATA_FORMAT and END_DATA_FORMAT would help.",
                          table.data_line);
      continue;
    }
    result.tables.push_back(std::make_unique<PlainTable>());
    result.tables.back()->table = std::move(table);
    make_plain(*result.tables.back(), text, is_only_table, name);
  }
  return result;
}

}  // namespace measkit
