// The reader: turns the text of one measurement file into tables of text.
#ifndef MEASDATA_MEASDATA_MEAS_FILE_PARSER_H
#define MEASDATA_MEASDATA_MEAS_FILE_PARSER_H

#include "measdata/cell_cutter.h"
#include "measdata/data_table_interface.h"
#include "measdata/file_text.h"
#include "measdata/number_reader.h"
#include "measdata/reader_mode.h"
#include "measdata/reader_tables.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vantor::MeasData {

/// Holds the text once; all tables are views into it. Construct, load once or again, then ask; each
/// load forgets the one before. Bad input never throws: it becomes a message and a false result,
/// and the tables hold what could be read.
class MeasFileParser final : public DataTableInterface {
 public:
  /// `mode` as in ReaderMode; every load in another mode fails without a message.
  explicit MeasFileParser(int mode);
  /// Lets go of the rows as soon as one has a wrong width, which fails the load: their memory may
  /// be needed for the messages about them.
  void drop_rows_of_wrong_width() { keeps_rows_of_wrong_width_ = false; }
  /// Chooses the mode of the next load. The plain table (4) keeps the separators of the mode
  /// before.
  void set_mode(int mode);

  bool load_file(const char* path) override;
  /// Reads a copy of `text`.
  bool load_memory(std::string_view text);
  /// Reads `text` where it stands: it must outlive the reader or the next load.
  bool load_view(std::string_view text);

  int field_count() const override { return tables_.fields.size(); }
  std::string field_name(int index) const override;
  int field_index(std::string_view name) const override { return tables_.fields.find(name); }
  bool has_field(std::string_view name) const override { return field_index(name) != -1; }
  int row_count() const override { return static_cast<int>(tables_.rows.size()); }
  std::string value(int row, int column) const override;
  /// The number that a cell holds, as the C library's atof reads it; 0.0 when there is no such
  /// cell.
  double value_as_double(int row, int column) const;

  // For reading whole rows without a copy. The cells of a row are views that leave a decimal comma
  // as it stands; number_of and text_of read it as a full stop where the column is numeric.

  /// The cells of a row, valid until `cutter` cuts another.
  std::span<const std::string_view> cells_of_row(int row, CellCutter& cutter) const;
  double number_of(std::string_view cell, int column) const {
    double number = 0.0;
    if (numbers_.read_plain(text_.data(), cell, number)) return number;
    return numbers_.read(cell, is_numeric(column) ? Comma::is_decimal_point : Comma::ends_number);
  }
  std::string text_of(std::string_view cell, int column) const;
  /// Cells beyond the last field are text.
  bool is_numeric(int column) const {
    return column >= 0 && static_cast<std::size_t>(column) < tables_.column_kinds.size() &&
           tables_.column_kinds[static_cast<std::size_t>(column)] == ColumnKind::numeric;
  }

  /// All names, in file order.
  const std::vector<std::string_view>& field_names() const { return tables_.fields.names(); }
  /// True for the standard's field identifiers and those that the file declares.
  bool is_known_field(std::string_view name) const;
  const Base::GrowingList<KeywordEntry>& keywords() const { return tables_.keywords.entries(); }
  std::string_view identifier() const { return tables_.identifier; }
  std::string messages() const { return tables_.log.text(); }
  std::int32_t number_of_fields() const { return tables_.number_of_fields; }
  std::int32_t number_of_sets() const { return tables_.number_of_sets; }
  const std::vector<std::string_view>& weighting_functions() const {
    return tables_.weighting_functions;
  }
  const std::vector<std::string_view>& computational_parameters() const {
    return tables_.computational_parameters;
  }
  const std::vector<std::string_view>& process_color_ids() const {
    return tables_.process_color_ids;
  }
  const std::vector<std::string_view>& spot_color_ids() const { return tables_.spot_color_ids; }
  /// True when the text was read as a semicolon table.
  bool is_semicolon_table() const { return read_with_.mode == ReaderMode::semicolon_table; }

 private:
  bool is_mode_known() const;
  void forget();
  bool fail(const char* format, MessageLog::Arguments arguments);
  bool parse(std::string_view text);

  ReaderSettings settings_;   // of the next load
  ReaderSettings read_with_;  // of the last one, whose rows are cut when they are asked for
  bool keeps_rows_of_wrong_width_ = true;
  FileText file_;
  std::string copy_;
  std::string_view text_;  // all that was read
  NumberReader numbers_;
  ReaderTables tables_;
};

}  // namespace vantor::MeasData

#endif  // MEASDATA_MEASDATA_MEAS_FILE_PARSER_H
