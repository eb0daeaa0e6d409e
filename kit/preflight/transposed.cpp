#include "kit/preflight/transposed.h"

#include "kit/preflight/column_names.h"
#include "kit/preflight/decimal_text.h"
#include "kit/preflight/number_block.h"
#include "kit/preflight/sheet_rows.h"
#include "kit/preflight/spectral_evidence.h"
#include "kit/preflight/wavelength_names.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string>
#include <utility>
#include <vector>

namespace measkit {
namespace {

constexpr std::string_view kNotTransposed = "no-table";

// The line that names the columns of a block, cut as the block is.
struct BlockHeader {
  SheetCells names;  // as many as the block has columns; empty without a line
  std::size_t line = 0;
  std::string_view text;
  std::size_t wavelength_column = 0;
  bool names_wavelengths = false;
};

// The names in one of the last lines above the numbers: the line that names the wavelengths, else
// the last line of the right width.
BlockHeader header_of(const NumberBlock& block, TextPool& pool) {
  constexpr std::size_t kLinesToLook = 3;
  BlockHeader header;
  for (std::size_t i = 0; i < std::min(block.above.size(), kLinesToLook); ++i) {
    const NumberBlock::Line& line = block.above[block.above.size() - 1 - i];
    const std::string_view content = without_blanks(line.text);
    const bool is_marked = content.front() == '#' || content.front() == '%';
    SheetCells cells;
    cut_cells(content.substr(is_marked ? 1 : 0), block.delimiter, pool, cells);
    cells.resize(std::max(filled_width(cells), std::min(cells.size(), block.width)));
    const auto wavelength = std::find_if(cells.begin(), cells.end(), means_wavelength);
    const bool is_named = wavelength != cells.end() && wavelengths_named(cells).empty();
    if (cells.size() != block.width) {
      header.names_wavelengths =
          header.names_wavelengths || (is_named && wavelength == cells.begin());
      continue;
    }
    if (!header.names.empty() && !is_named) continue;
    header.names = cells;
    header.line = line.number;
    header.text = line.text;
    if (is_named) {
      header.names_wavelengths = true;
      header.wavelength_column = static_cast<std::size_t>(wavelength - cells.begin());
      break;
    }
  }
  return header;
}

std::vector<double> column_numbers(const NumberBlock& block, std::size_t column) {
  std::vector<double> values;
  for (std::size_t row = 0; row < block.rows(); ++row) {
    const std::string_view cell = block.cell(row, column);
    values.push_back(is_number(cell) ? number_in(cell) : 0.0);
  }
  return values;
}

class TransposedReader {
 public:
  TransposedReader(std::string_view text, const NumberBlock& block, BlockHeader header)
      : text_(text), block_(block), header_(std::move(header)) {}

  // True when the block holds wavelengths down its rows.
  bool is_proven(WavelengthProof proof) {
    nm_ = column_numbers(block_, header_.wavelength_column);
    run_ = length_in_one_direction(nm_);
    constexpr std::size_t kLeastRun = 3;
    if (run_ < kLeastRun) return false;
    const std::vector<double> run(nm_.begin(), nm_.begin() + static_cast<std::ptrdiff_t>(run_));
    const bool is_range = may_be_wavelengths(run);
    if (proof == WavelengthProof::named) {
      return header_.names_wavelengths && is_range;
    }
    return are_wavelengths_by_steps(run, tells_spectra(block_));
  }

  // Why the block is no table of samples; nothing when it is one.
  std::optional<Refusal> refusal() {
    if (run_ < nm_.size()) {
      return Refusal{kNotTransposed,
                     "The wavelengths in the rows start again below " + rounded(nm_[run_ - 1]) +
                         " nm: one column a sample, or one row a sample, would help.",
                     block_.first_line};
    }
    constexpr std::size_t kMostWavelengths = 20000;
    if (run_ > kMostWavelengths) {
      return Refusal{kNotTransposed,
                     std::to_string(run_) +
                         " rows rise as wavelengths do, which is more than any "
                         "spectrometer has: steps of 1 nm would help.",
                     block_.first_line};
    }
    choose_samples();
    quantity_ = stated_quantity_of(block_, header_.text);
    const std::string range = rounded(nm_.front()) + " to " + rounded(nm_.back()) + " nm";
    if (samples_.empty()) {
      return Refusal{kNotTransposed, "Wavelengths run down the rows, but no column holds a sample.",
                     block_.first_line};
    }
    if (first_kept() == nm_.size()) {
      return Refusal{kNotTransposed,
                     "The spectra go from " + range +
                         ", where nothing is seen: spectra between "
                         "360 and 830 nm would help.",
                     block_.first_line};
    }
    if (are_matching_functions()) {
      return Refusal{kNotTransposed,
                     "The columns are colour matching functions or sensitivities from " + range +
                         ", not spectra of samples.",
                     header_.line};
    }
    if (quantity_ == StatedQuantity::absorbance) {
      return Refusal{kNotTransposed,
                     "The spectra from " + range +
                         " are absorbances: reflectances or transmittances would help.",
                     block_.first_line};
    }
    return std::nullopt;
  }

  Table table(TextPool pool) {
    Table table;
    table.pool = std::move(pool);
    table.text = text_;
    table.identifier = "CGATS.17";
    table.data = text_.substr(block_.start, block_.end - block_.start);
    table.data_line = block_.first_line;
    table.is_as_it_stands = false;
    name_fields(table);
    fill(table);
    tell(table);
    name_quantity_of(table);
    return table;
  }

 private:
  std::string_view name_of(std::size_t column) const {
    return column < header_.names.size() ? header_.names[column] : std::string_view();
  }

  bool is_wavelength_again(std::size_t column) const {
    for (std::size_t row = 0; row < nm_.size(); ++row) {
      const std::string_view cell = block_.cell(row, column);
      if (!is_number(cell) || number_in(cell) != nm_[row]) return false;
    }
    return true;
  }

  bool is_empty(std::size_t column) const {
    for (std::size_t row = 0; row < nm_.size(); ++row) {
      if (is_number(block_.cell(row, column))) return false;
    }
    return true;
  }

  // Columns that hold samples: neither the wavelengths again nor a deviation.
  void choose_samples() {
    static constexpr std::array<std::string_view, 10> kDeviations = {
        "sd", "std", "stdev", "stddev", "stdv", "se", "stderr", "var", "variance", "sigma"};
    for (std::size_t i = header_.wavelength_column + 1; i < block_.width; ++i) {
      const std::string key = key_of(name_of(i));
      const bool is_deviation =
          std::find(kDeviations.begin(), kDeviations.end(), key) != kDeviations.end();
      if (is_empty(i) || is_wavelength_again(i)) continue;
      if (is_deviation) {
        ++deviations_;
      } else {
        samples_.push_back(i);
      }
    }
  }

  // x, y, z or l, m, s or r, g, b and nothing else, with or without "bar" and the observer's angle.
  bool are_matching_functions() const {
    std::string letters;
    for (const std::size_t sample : samples_) {
      std::string key = key_of(name_of(sample));
      while (!key.empty() && std::isdigit(static_cast<unsigned char>(key.back())) != 0) {
        key.pop_back();
      }
      if (key.ends_with("bar")) key.erase(key.size() - 3);
      if (key.size() != 1) return false;
      letters += key;
    }
    return letters == "xyz" || letters == "lms" || letters == "rgb";
  }

  static bool is_kept(double nm) { return nm >= kShortestWavelength && nm <= kLongestWavelength; }
  std::size_t first_kept() const {
    return static_cast<std::size_t>(std::find_if(nm_.begin(), nm_.end(), is_kept) - nm_.begin());
  }

  // The rows that are kept, in the order of rising wavelengths.
  std::vector<std::size_t> kept_rows() const {
    std::vector<std::size_t> rows;
    for (std::size_t row = 0; row < nm_.size(); ++row) {
      if (is_kept(nm_[row])) rows.push_back(row);
    }
    if (nm_.front() > nm_.back()) std::reverse(rows.begin(), rows.end());
    return rows;
  }

  void name_fields(Table& table) const {
    const auto add = [&table](std::string name) {
      table.fields.push_back({std::move(name), static_cast<int>(table.fields.size())});
    };
    add("SAMPLE_ID");
    if (!header_.names.empty()) add("SAMPLE_NAME");
    for (const std::size_t row : kept_rows()) add("SPECTRAL_NM" + text_of(nm_[row]));
  }

  void fill(Table& table) {
    Cells cells;
    cells.width = table.fields.size();
    cells.texts.reserve(cells.width * samples_.size());
    const std::vector<std::size_t> rows = kept_rows();
    for (const std::size_t sample : samples_) {
      cells.lines.push_back(header_.line != 0 ? header_.line : block_.first_line);
      cells.texts.push_back(table.pool.add(std::to_string(cells.lines.size())));
      if (!header_.names.empty()) cells.texts.push_back(name_of(sample));
      for (const std::size_t row : rows) {
        const std::string_view cell = block_.cell(row, sample);
        missing_ += is_number(cell) ? 0 : 1;
        cells.texts.push_back(plain_number(cell, table.pool));
      }
    }
    table.set_cells(std::move(cells));
  }

  void tell(Table& table) const {
    const auto [low, high] = std::minmax(nm_.front(), nm_.back());
    std::string sentence =
        "Wavelengths run down " + std::to_string(nm_.size()) + " rows from " +
        rounded(nm_.front()) + " to " + rounded(nm_.back()) + " nm, cells at " +
        std::string(plural_of(block_.delimiter)) + ": " +
        (samples_.size() == 1
             ? "the other column is read as a sample."
             : std::to_string(samples_.size()) + " other columns are read as one sample each.");
    table.findings.add(Severity::repaired, "spreadsheet-transposed", std::move(sentence),
                       header_.line != 0 ? header_.line : block_.first_line);
    if (low < kShortestWavelength || high > kLongestWavelength) {
      table.findings.add(Severity::repaired, "wavelengths-cut",
                         std::to_string(nm_.size() - kept_rows().size()) + " of " +
                             std::to_string(nm_.size()) +
                             " wavelengths are outside the visible range of 360 to 830 nm: "
                             "left out.",
                         block_.first_line);
    }
    if (deviations_ != 0) {
      table.findings.add(Severity::lost, "columns-left-out",
                         std::to_string(deviations_) + (deviations_ == 1 ? " column" : " columns") +
                             " of standard deviations left out.",
                         header_.line);
    }
    if (missing_ != 0) {
      table.findings.add(Severity::repaired, "missing-values",
                         std::to_string(missing_) +
                             (missing_ == 1 ? " cell holds" : " cells hold") +
                             " no number: taken as values that were not measured.",
                         block_.first_line);
    }
    if (without_blanks(text_.substr(block_.end)).find_first_not_of("\r\n\t ") !=
        std::string_view::npos) {
      table.findings.add(Severity::note, "lines-behind",
                         "There is text behind the last row of wavelengths, which is not read.");
    }
  }

  // Names and words tell later steps what the numbers are and which scale they have.
  void name_quantity_of(Table& table) {
    if (quantity_ == StatedQuantity::transmittance) table.add_keyword("QUANTITY", "TRANSMITTANCE");
    if (quantity_ == StatedQuantity::emission) table.add_keyword("QUANTITY", "EMISSION");
    if (quantity_ == StatedQuantity::emission) return;
    double sum = 0.0, largest = 0.0;
    std::size_t count = 0;
    for (std::size_t row = 0; row < nm_.size(); ++row) {
      if (nm_[row] < 400.0 || nm_[row] > 700.0) continue;
      for (const std::size_t sample : samples_) {
        const std::string_view cell = block_.cell(row, sample);
        if (!is_number(cell)) continue;
        const double value = number_in(cell);
        sum += value;
        largest = std::max(largest, value);
        ++count;
      }
    }
    constexpr double kMostPercent = 200.0, kMostFluorescence = 1.3;
    const bool is_percent = header_.text.find('%') != std::string_view::npos;
    if (is_percent && largest > kMostFluorescence) table.add_keyword("SPECTRAL_NORM", "100");
    if (count == 0 || sum / static_cast<double>(count) <= kMostPercent) return;
    for (Field& field : table.fields) {
      if (!field.name.starts_with("SPECTRAL_NM")) continue;
      field.name = "OTHER_" + field.name.substr(std::string_view("SPECTRAL_NM").size()) + "_NM";
    }
    table.findings.add(Severity::doubtful, "spectral-scale",
                       "The spectra reach " + rounded(largest) + " and " +
                           rounded(sum / static_cast<double>(count)) +
                           " on average, too much for reflectances in percent: kept without "
                           "colours.",
                       block_.first_line);
  }

  std::string_view text_;
  const NumberBlock& block_;
  BlockHeader header_;
  std::vector<double> nm_;
  std::vector<std::size_t> samples_;
  std::size_t run_ = 0, deviations_ = 0, missing_ = 0;
  StatedQuantity quantity_ = StatedQuantity::unknown;
};

}  // namespace

std::optional<Table> read_transposed(std::string_view text, WavelengthProof proof,
                                     std::optional<Refusal>& refusal) {
  for (const Delimiter delimiter : kDelimiters) {
    TextPool pool;
    NumberBlocks blocks(text, delimiter, pool);
    for (NumberBlock block; blocks.next(block);) {
      TransposedReader reader(text, block, header_of(block, pool));
      if (!reader.is_proven(proof)) continue;
      std::optional<Refusal> reason = reader.refusal();
      if (!reason) return reader.table(std::move(pool));
      if (!refusal) refusal = std::move(reason);
      break;
    }
  }
  return std::nullopt;
}

}  // namespace measkit
