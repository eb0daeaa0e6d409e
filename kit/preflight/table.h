// One table of a measurement file, with its cells as text.
#ifndef MEASDATA_KIT_PREFLIGHT_TABLE_H
#define MEASDATA_KIT_PREFLIGHT_TABLE_H

#include "kit/finding.h"
#include "kit/loaded_text.h"
#include "kit/preflight/roles.h"
#include "kit/preflight/text_pool.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace measkit {

/// A line of the header. Views lie in the file's text or in the table's pool.
struct HeaderLine {
  std::string_view raw;        ///< as it stands, without its line break
  std::string_view keyword;    ///< empty for comments and blank lines
  std::string value;           ///< the items behind the keyword, joined by blanks
  std::size_t line = 0;        ///< counted from 1; 0 when the kit made it
  std::string own_value = {};  ///< of the file, when the kit wrote another one
};

struct Field {
  std::string name;
  int source = kNoField;                     ///< column of the file's cells
  std::vector<std::string_view> texts = {};  ///< one a row, in place of the file's cells
  int shift = 0;                             ///< places by which the decimal point moves right
};

/// A copy of the names of fields in two blocks of memory, since there may be millions.
class FieldNames {
 public:
  FieldNames() = default;
  explicit FieldNames(const std::vector<Field>& fields);
  /// False when there are none, too.
  bool are_those_of(const std::vector<Field>& fields) const;

 private:
  std::string letters_;
  std::vector<std::size_t> ends_;
};

/// What a table is about, as its identifier says.
enum class Content { measurement, correction_matrix, calibration_curves, emission_spectra };

/// The cells of a data block.
struct Cells {
  std::vector<std::string_view> texts;  ///< row by row
  std::size_t width = 0;
  std::vector<std::size_t> lines;  ///< where each row stands in the file

  std::size_t rows() const { return lines.size(); }
};

/// Cutting a data block into cells costs more than loading it. So a table that the library reads as
/// it stands is judged by the library's numbers, and its cells are cut only when a repair, or a
/// question that the library has no answer to, asks for them.
class Table {
 public:
  std::string_view text;   ///< from the table's first line to the end of its last
  std::string identifier;  ///< of the first line; empty without one
  std::string own_name;    ///< among the tables of its file; empty where a number names it
  std::vector<HeaderLine> header;
  std::vector<Field> fields;
  std::string_view field_list;  ///< the line that names the fields; empty when several lines do
  std::string_view data;        ///< the rows, without BEGIN_DATA and END_DATA
  std::size_t data_line = 0;    ///< where `data` begins
  /// Cells of a row before the first that matters as a number.
  std::size_t text_cells = 0;
  /// A plain text made in advance, with the points of its fields moved by `shifts`.
  struct Guess {
    std::string text;
    std::vector<int> shifts;
  } guess;
  Content content = Content::measurement;
  Findings findings;
  TextPool pool;

  /// True when the names of the fields say that reflectances are in percent.
  bool is_in_percent = false;
  /// True while the file's own text can stand for the table.
  bool is_as_it_stands = true;

  /// Numbers of the table as the library reads it, those of spectra multiplied by ten to the power
  /// of `spectral_shift`.
  void set_loaded(LoadedText loaded, int spectral_shift = 0);
  int loaded_shift() const { return loaded_shift_; }
  bool is_loaded() const { return loaded_.is_loaded(); }
  LoadedText& loaded() { return loaded_; }

  void set_cells(Cells cells) {
    cells_ = std::move(cells);
    is_cut_ = true;
  }
  bool is_cut() const { return is_cut_; }

  std::size_t row_count() const;
  /// The line of the file where a row stands.
  std::size_t line_of(std::size_t row);
  std::string_view cell(std::size_t row, int field);
  /// What the file has in a cell of a table that is cut; empty for a field without a column.
  std::string_view own_cell(std::size_t row, const Field& field) const {
    if (field.source == kNoField) return {};
    return cells_.texts[row * cells_.width + static_cast<std::size_t>(field.source)];
  }
  /// The numbers of a field, one a row.
  std::vector<double> numbers(int field);
  /// The roles of the fields as they are now. Valid until the next call.
  const Roles& roles() const;
  std::vector<std::string_view> field_names() const;

  /// A table of the same rows, to be changed apart from this one, which must outlive it. It has no
  /// findings and no handle.
  Table view() const;

  // Changes. Each makes the table differ from the file's text.
  void rename(int field, std::string name);
  /// Appends a field.
  int add_field(std::string name, std::vector<std::string_view> texts);
  /// Replaces the cells of a field.
  void set_texts(int field, std::vector<std::string_view> texts);
  /// Multiplies the numbers of the field at `position` by ten to the power of `places`, digit for
  /// digit.
  void move_point(int position, int places);
  void remove_fields(std::vector<int> positions);
  /// Replaces a header line's value, which is then quoted.
  void set_value(HeaderLine& line, std::string value);
  void add_keyword(std::string_view keyword, std::string value);

  /// The value of the first header line with this keyword; null without one.
  const HeaderLine* find(std::string_view keyword) const;
  HeaderLine* find(std::string_view keyword);

 private:
  void cut();

  Cells cells_;
  bool is_cut_ = false;
  std::size_t loaded_rows_ = 0;
  int loaded_shift_ = 0;
  LoadedText loaded_;
  Roles loaded_roles_;
  // What roles() answered last, and the names that it answered for.
  mutable Roles roles_;
  mutable FieldNames names_of_roles_;
};

/// The spectra of a table, row by row, from wherever they are at hand.
class SpectralRows {
 public:
  SpectralRows(Table& table, const Roles& roles);
  std::size_t size() const { return size_; }
  /// Valid until the next call.
  std::span<const double> row(std::size_t row);

 private:
  void* handle_ = nullptr;
  std::size_t size_;
  double factor_ = 1.0;  ///< by which the loaded numbers differ from those of the table
  std::vector<std::vector<double>> columns_;
  std::vector<double> values_;
};

}  // namespace measkit

#endif  // MEASDATA_KIT_PREFLIGHT_TABLE_H
