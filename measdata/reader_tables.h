// Everything that one read of a measurement file collects.
#ifndef MEASDATA_MEASDATA_READER_TABLES_H
#define MEASDATA_MEASDATA_READER_TABLES_H

#include "measdata/field_list.h"
#include "measdata/keyword_list.h"
#include "measdata/known_names.h"
#include "measdata/message_log.h"
#include "measdata/name_hash.h"
#include "measdata/row_list.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vantor::MeasData {

enum class ColumnKind : std::uint8_t {
  text = 0,     ///< identifiers, names, locations: cells are kept as they stand
  numeric = 2,  ///< the first comma of a cell is a decimal point
};

/// Texts are views into the file's text, or into `joined_texts` where they do not stand there in
/// one piece.
struct ReaderTables {
  FieldList fields;
  /// By column position. A second field list in a file appends to the kinds of the first, so that
  /// those of the first govern the columns.
  std::vector<ColumnKind> column_kinds;
  /// The raw lines of the data block; cells are cut when they are asked for.
  RowList rows;
  bool keeps_rows_of_wrong_width = true;
  KeywordList keywords;
  std::string_view identifier;
  FileKind file_kind = FileKind::other;
  /// Keywords that a strict read misses when they are absent.
  std::vector<std::string_view> required_keywords;
  /// Keywords that are known besides those of is_known_keyword.
  std::vector<std::string_view> optional_keywords;
  /// Field identifiers that DATA_FORMAT_IDENTIFIER lines add to the known ones.
  FieldList declared_fields;
  std::vector<std::string_view> weighting_functions;
  std::vector<std::string_view> computational_parameters;
  std::vector<std::string_view> process_color_ids;
  std::vector<std::string_view> spot_color_ids;
  MessageLog log;
  /// How many fields the field list is expected to hold: the largest count declared or read so far.
  std::size_t expected_fields = 0;
  std::int32_t number_of_fields = -1;  ///< as declared, -1 when not given
  std::int32_t number_of_sets = -1;    ///< as declared, -1 when not given
  std::deque<std::string> joined_texts;

  std::string_view keep(std::string text) { return joined_texts.emplace_back(std::move(text)); }
};

}  // namespace vantor::MeasData

#endif  // MEASDATA_MEASDATA_READER_TABLES_H
