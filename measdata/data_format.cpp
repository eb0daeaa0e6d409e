#include "measdata/data_format.h"

#include "measdata/spectral_prefixes.h"
#include "measdata/tokenizer.h"

#include <algorithm>
#include <array>

namespace vantor::MeasData {
namespace {

constexpr std::array<std::string_view, 8> kTextColumns = {
    "SAMPLE_ID",  "STRING",      "SAMPLE_NO",   "SampleID",
    "SampleName", "Sample_Name", "SAMPLE_NAME", "SAMPLE_LOC"};

ColumnKind kind_of(std::string_view name) {
  const bool is_text =
      std::find(kTextColumns.begin(), kTextColumns.end(), name) != kTextColumns.end();
  return is_text ? ColumnKind::text : ColumnKind::numeric;
}

}  // namespace

void DataFormatReader::read_identifier_line(std::string_view line) {
  // Counted before they are kept: a long line holds many.
  const std::size_t count = count_items(line, kBlankSeparated, comment_char_);
  check_field_count(count);
  if (tables_.fields.size() != 0) {
    tables_.log.note("Multiple DATA_FORMATs! Overriding old one.\n");
  }
  tables_.fields.clear();
  tables_.expected_fields = std::max(tables_.expected_fields, count);
  tables_.fields.reserve(count);

  std::string_view spectral_prefix;
  Tokenizer items(line, kBlankSeparated);
  for (std::string_view name; items.next(name) && !opens_comment(name, comment_char_);) {
    check_identifier(name, spectral_prefix);
    tables_.fields.append(name);
    tables_.column_kinds.push_back(kind_of(name));
  }
}

void DataFormatReader::check_field_count(std::size_t count) {
  if (tables_.expected_fields == 0) {
    tables_.log.warning("Missing NUMBER_OF_FIELDS before DATA_FORMAT!\n");
  } else if (tables_.expected_fields != count) {
    tables_.log.grave("DATA_FORMAT has wrong NUMBER_OF_FIELDS!\n");
  }
}

// The first identifier of a spectral run is unknown; it sets the prefix that excuses the others.
void DataFormatReader::check_identifier(std::string_view name, std::string_view& spectral_prefix) {
  if (!is_accepted(name) && (spectral_prefix.empty() || !name.starts_with(spectral_prefix))) {
    tables_.log.warning("Unknown data format identifier '%'!\n", {name});
    if (spectral_prefix.empty()) spectral_prefix = spectral_prefix_of(name);
  }
  if (tables_.fields.contains(name)) {
    tables_.log.note("Duplicate data format identifier '%'!\n", {name});
  }
}

bool DataFormatReader::is_accepted(std::string_view name) const {
  if (is_known_field(tables_.file_kind, name) || tables_.declared_fields.contains(name) ||
      tables_.keywords.contains(name)) {
    return true;
  }
  return tables_.file_kind == FileKind::standard &&
         (name.starts_with("PC_") || name.starts_with("SPOT_"));
}

void DataFormatReader::read_data_line(std::string_view line, std::size_t line_index) {
  const std::size_t width = count_items(line, kBlankSeparated, comment_char_);
  if (width != 0) append_row(line, width, line_index);
}

void DataFormatReader::append_row(std::string_view line, std::size_t width,
                                  std::size_t line_index) {
  const std::size_t required = tables_.fields.names().size();
  if (width != required && width != last_bad_row_width_) {
    last_bad_row_width_ = width;
    tables_.log.error("In DATA block : line % has % fields, but % are required!\n",
                      {line_index, width, required});
    if (!tables_.keeps_rows_of_wrong_width) tables_.rows.keep_size_alone();
  }
  tables_.rows.push_back(line);
}

}  // namespace vantor::MeasData
