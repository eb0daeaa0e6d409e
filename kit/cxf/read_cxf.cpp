#include "kit/cxf/read_cxf.h"

#include "kit/cxf/document_reader.h"
#include "kit/cxf/layers.h"
#include "kit/cxf/line_index.h"
#include "kit/cxf/pairing.h"
#include "kit/cxf/table_builder.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <unordered_set>
#include <utility>

namespace measkit::cxf {
namespace {

// Profiles hold documents with zero bytes behind the root.
std::string_view without_end(std::string_view text) {
  while (!text.empty() && text.back() == '\0') text.remove_suffix(1);
  return text;
}

void tell_end(const XmlOutcome& outcome, std::size_t objects, const LineIndex& lines,
              Findings& findings) {
  const std::size_t line = lines.line_at(outcome.offset);
  const std::string kept =
      " in line " + std::to_string(line) + ". Before it: " + counted(objects, "object") + ".";
  if (outcome.end == XmlEnd::malformed) {
    findings.add(Severity::lost, "cxf-malformed",
                 "The document is not well-formed XML (" + outcome.words + ")" + kept, line);
  } else if (outcome.end == XmlEnd::too_deep) {
    findings.add(Severity::lost, "cxf-limits", "Elements are nested too deep" + kept, line);
  }
}

void tell_left_out(const Document& document, const LineIndex& lines, Findings& findings) {
  if (!document.lost.empty()) {
    findings.add(Severity::lost, "cxf-values-left-out",
                 "Values that no field can hold are left out: " + document.lost.list() + ".",
                 lines.line_at(document.lost.first_offset()));
  }
  if (!document.passed_over.empty()) {
    findings.add(Severity::note, "cxf-passed-over",
                 "Other content is not read: " + document.passed_over.list() + ".",
                 lines.line_at(document.passed_over.first_offset()));
  }
  if (!document.repeated_tags.empty()) {
    findings.add(Severity::lost, "cxf-repeated-tags",
                 "Tags of objects stand twice with different texts, of which the first is kept: " +
                     document.repeated_tags.list() + ".",
                 lines.line_at(document.repeated_tags.first_offset()));
  }
  if (document.too_long != 0) {
    findings.add(
        Severity::lost, "cxf-limits",
        "Left out: " + counted(document.too_long, "text") + " of more than 65536 characters.");
  }
}

bool is_target(std::string_view type) {
  return type == "Target" || type == "Targets" || type == "target" || type == "targets";
}

// A program of the early years keeps device values among the colours.
void use_srgb_of_targets(Document& document, const LineIndex& lines, Findings& findings) {
  const bool has_device = std::ranges::any_of(document.objects, &Object::has_device);
  std::size_t used = 0, line = 0;
  for (Object& object : document.objects) {
    if (object.srgb[0].empty()) continue;
    if (has_device || !is_target(object.type)) {
      document.lost.add("ColorSRGB", object.offset);
      continue;
    }
    object.rgb = object.srgb;
    object.rgb_range = object.srgb_range;
    if (used++ == 0) line = lines.line_at(object.offset);
  }
  if (used == 0) return;
  findings.add(Severity::repaired, "cxf-srgb",
               "The sRGB colours of " + counted(used, "target") +
                   " are taken as device values: the document has no others.",
               line);
}

// What tells the tables of a document apart: the type of the readings, else the condition, else
// the specification.
std::string name_of(const Document& document, const PatchSet& set, const Layer& layer) {
  if (!layer.m.empty()) return std::string(layer.m);
  if (!set.type.empty()) return std::string(set.type);
  if (layer.specifications.empty()) return {};
  const int first = layer.specifications.front();
  return std::string(document.specifications[static_cast<std::size_t>(first)].id);
}

class TableMaker {
 public:
  TableMaker(const Document& document, const LineIndex& lines, std::size_t most_cells)
      : document_(document), lines_(lines), budget_{most_cells} {}

  std::vector<Table> make(Findings& findings) {
    std::size_t left_out = 0;
    const std::vector<PatchSet> sets = patch_sets_of(document_, kMostTables, left_out);
    for (const PatchSet& set : sets) {
      if (set.patches.empty()) continue;
      if (tables_.size() == kMostTables) {
        left_out += set.patches.size();
        continue;
      }
      auto layers = layers_of(document_, set, kMostTables - tables_.size(), left_out);
      layers.front().is_only = sets.size() == 1 && layers.size() == 1;
      for (const Layer& layer : layers) add(set, layer, findings);
    }
    if (left_out != 0) {
      findings.add(Severity::lost, "too-many-tables",
                   "Left out: " + counted(left_out, "measurement") + ". The kit makes at most " +
                       std::to_string(kMostTables) + " tables of a document.");
    }
    name_tables();
    return std::move(tables_);
  }

 private:
  static constexpr std::size_t kMostTables = 32;

  void add(const PatchSet& set, const Layer& layer, Findings& findings) {
    if (layer.patches.empty()) return;
    std::optional<Table> table = table_of(document_, layer, lines_, budget_);
    if (!table) {
      findings.add(Severity::lost, "cxf-limits",
                   "A table of " + counted(layer.patches.size(), "row") +
                       " is left out: most of its cells would be empty.",
                   lines_.line_at(document_.objects[layer.patches.front().any()].offset));
      return;
    }
    table->findings.append(set.findings);
    tables_.push_back(*std::move(table));
    names_.push_back(name_of(document_, set, layer));
  }

  // Names that are not unique get a number.
  void name_tables() {
    if (tables_.size() < 2) return;
    std::unordered_set<std::string> used;
    for (std::size_t i = 0; i < tables_.size(); ++i) {
      std::string name = names_[i];
      if (name.empty() || !used.insert(name).second) {
        name += (name.empty() ? "table " : ", table ") + std::to_string(i + 1);
      }
      tables_[i].own_name = name;
      if (tables_[i].find("TABLE_NAME") == nullptr) tables_[i].add_keyword("TABLE_NAME", name);
    }
  }

  const Document& document_;
  const LineIndex& lines_;
  CellBudget budget_;
  std::vector<Table> tables_;
  std::vector<std::string> names_;
};

// True when the document cannot be read at all.
bool is_refused(const DocumentReading& reading, const LineIndex& lines, Findings& findings) {
  if (reading.outcome.end == XmlEnd::document_type) {
    findings.add(Severity::lost, "cxf-document-type",
                 "The document has a document type, which can make a small file endless. CxF has "
                 "none: not read.",
                 lines.line_at(reading.outcome.offset));
    return true;
  }
  if (reading.form == Form::older_cxf) {
    findings.add(Severity::lost, "cxf-older",
                 "The file is CxF of an older version, which is not read. Export the measurements "
                 "as CxF3 or as a text table.");
    return true;
  }
  return false;
}

}  // namespace

std::optional<std::vector<Table>> read_cxf(std::string_view text, TextPool& pool,
                                           Findings& findings) {
  const std::size_t start = text.find_first_not_of(" \t\r\n");
  if (start == std::string_view::npos || text[start] != '<') return std::nullopt;
  text = without_end(text);
  // Editors leave lines before the declaration, where XML allows none.
  DocumentReading reading = read_document(text.substr(start), pool);
  if (reading.form == Form::other) return std::nullopt;
  const auto lines_before =
      std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(start), '\n');
  const LineIndex lines(text.substr(start), 1 + static_cast<std::size_t>(lines_before));
  if (is_refused(reading, lines, findings)) return std::vector<Table>();
  Document& document = reading.document;
  tell_end(reading.outcome, document.objects.size(), lines, findings);
  use_srgb_of_targets(document, lines, findings);
  tell_left_out(document, lines, findings);
  std::vector<Table> tables = TableMaker(document, lines, text.size()).make(findings);
  if (tables.empty() && !findings.has("cxf-limits")) {
    findings.add(Severity::lost, "cxf-without-values",
                 "The document is CxF3 without measured or device values. It has " +
                     counted(document.objects.size(), "object") + ".");
  }
  return tables;
}

}  // namespace measkit::cxf
