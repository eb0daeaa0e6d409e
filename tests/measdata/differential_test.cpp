// The reader against a plain second one, byte for byte and bit for bit, on generated texts.
#include "measdata/cell_cutter.h"
#include "measdata/meas_file_parser.h"
#include "tests/measdata/reference_reader.h"
#include "tests/support/generated_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace {

using test::ReferenceReader;
using test::TextGenerator;
using vantor::MeasData::CellCutter;
using vantor::MeasData::MeasFileParser;

// Modes that are set one after the other before a load: mode 4 keeps the separators before it.
using Modes = std::vector<int>;
const std::vector<Modes> kAllModes = {{0}, {1}, {2}, {3}, {4}, {2, 4}};

struct Tally {
  std::size_t texts = 0;
  std::size_t loads = 0;
  std::size_t successes = 0;
  std::size_t strict_successes = 0;
  std::size_t cells = 0;
};
Tally tally;

bool has_same_bits(double a, double b) {
  return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

bool is_same_list(const std::vector<std::string_view>& ours,
                  const std::vector<std::string>& theirs) {
  return std::equal(ours.begin(), ours.end(), theirs.begin(), theirs.end());
}

// Each of these gives what differs, or nothing.

std::string difference_of_fields(const MeasFileParser& ours, const ReferenceReader& theirs) {
  if (!is_same_list(ours.field_names(), theirs.fields)) return "fields";
  const int count = static_cast<int>(theirs.fields.size());
  if (ours.field_count() != count || !ours.field_name(count).empty()) return "field_count";
  for (int i = 0; i < count; ++i) {
    const std::string& name = theirs.fields[static_cast<std::size_t>(i)];
    const auto first = std::find(theirs.fields.begin(), theirs.fields.end(), name);
    if (ours.field_name(i) != name) return "field_name";
    if (ours.field_index(name) != first - theirs.fields.begin()) return "field_index";
  }
  const int kinds = static_cast<int>(theirs.column_kinds.size());
  for (int i = -1; i <= kinds; ++i) {
    const bool is_inside = i >= 0 && i < kinds;
    const bool is_numeric = is_inside && theirs.column_kinds[static_cast<std::size_t>(i)] == 2;
    if (ours.is_numeric(i) != is_numeric) return "kind of column " + std::to_string(i);
  }
  return {};
}

std::string difference_of_header(const MeasFileParser& ours, const ReferenceReader& theirs) {
  if (ours.identifier() != theirs.identifier) return "identifier";
  if (ours.number_of_fields() != theirs.number_of_fields) return "number_of_fields";
  if (ours.number_of_sets() != theirs.number_of_sets) return "number_of_sets";
  if (!is_same_list(ours.weighting_functions(), theirs.weighting_functions) ||
      !is_same_list(ours.computational_parameters(), theirs.computational_parameters) ||
      !is_same_list(ours.process_color_ids(), theirs.process_color_ids) ||
      !is_same_list(ours.spot_color_ids(), theirs.spot_color_ids)) {
    return "identifier lists";
  }
  const auto is_same = [](const auto& a, const auto& b) {
    return a.name == b.name && a.value == b.value && a.comment == b.comment;
  };
  const auto& keywords = ours.keywords();
  if (!std::equal(keywords.begin(), keywords.end(), theirs.keywords.begin(), theirs.keywords.end(),
                  is_same)) {
    return "keywords";
  }
  return {};
}

std::string difference_of_row(const MeasFileParser& ours, int row, CellCutter& cutter,
                              const std::vector<std::string>& theirs) {
  const std::span<const std::string_view> cells = ours.cells_of_row(row, cutter);
  const int width = static_cast<int>(theirs.size());
  if (cells.size() != theirs.size()) return "number of cells";
  for (int column = 0; column < width; ++column) {
    const std::string_view cell = cells[static_cast<std::size_t>(column)];
    const std::string& text = theirs[static_cast<std::size_t>(column)];
    const double number = std::atof(text.c_str());
    const std::string where = " of column " + std::to_string(column);
    if (ours.value(row, column) != text) return "value" + where;
    if (ours.text_of(cell, column) != text) return "text_of" + where;
    if (!has_same_bits(ours.value_as_double(row, column), number)) return "value_as_double" + where;
    if (!has_same_bits(ours.number_of(cell, column), number)) return "number_of" + where;
    ++tally.cells;
  }
  if (!ours.value(row, width).empty()) return "value behind the row";
  return {};
}

std::string difference_of_rows(const MeasFileParser& ours, const ReferenceReader& theirs) {
  const int count = static_cast<int>(theirs.rows.size());
  if (ours.row_count() != count) return "row_count";
  CellCutter cutter;
  for (int row = 0; row < count; ++row) {
    const auto& cells = theirs.rows[static_cast<std::size_t>(row)];
    const std::string difference = difference_of_row(ours, row, cutter, cells);
    if (!difference.empty()) return difference + ", row " + std::to_string(row);
  }
  if (!ours.value(count, 0).empty()) return "value behind the last row";
  return {};
}

std::string difference(const std::string& text, const Modes& modes) {
  // Exactly as large as the text, so that the address sanitizer sees each byte read behind it.
  const std::unique_ptr<char[]> bytes(new char[text.size()]);
  std::copy(text.begin(), text.end(), bytes.get());
  MeasFileParser ours(modes.front());
  ReferenceReader theirs(modes.front());
  for (const int mode : modes) {
    ours.set_mode(mode);
    theirs.set_mode(mode);
  }
  const bool is_read = ours.load_view(std::string_view(bytes.get(), text.size()));
  if (is_read != theirs.load(text)) return "result";
  ++tally.loads;
  if (is_read) ++tally.successes;
  if (is_read && modes.back() == 3) ++tally.strict_successes;
  if (ours.messages() != theirs.messages) {
    return "messages:\n" + ours.messages() + "instead of:\n" + theirs.messages;
  }
  for (const auto compare : {difference_of_header, difference_of_fields, difference_of_rows}) {
    const std::string found = compare(ours, theirs);
    if (!found.empty()) return found;
  }
  return {};
}

std::string escaped(std::string_view text) {
  constexpr std::string_view kHex = "0123456789ABCDEF";
  std::string shown;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '\n') {
      shown += "\\n";
    } else if (c == '\r') {
      shown += "\\r";
    } else if (c == '\t') {
      shown += "\\t";
    } else if (c == '"' || c == '\\') {
      shown += {'\\', c};
    } else if (byte < 0x20 || byte > 0x7E) {
      shown += {'\\', 'x', kHex[byte / 16], kHex[byte % 16]};
    } else {
      shown += c;
    }
  }
  return shown;
}

// Leaves out pieces of the text, ever smaller ones, as long as a difference remains.
std::string smallest(std::string text, const Modes& modes) {
  for (std::size_t size = text.size() / 2; size > 0; size /= 2) {
    for (std::size_t at = 0; at + size <= text.size();) {
      std::string shorter = text;
      shorter.erase(at, size);
      if (difference(shorter, modes).empty()) {
        at += size;
      } else {
        text = shorter;
      }
    }
  }
  return text;
}

// False when the readers disagree, which fails the test.
bool is_read_alike(const std::string& text) {
  ++tally.texts;
  for (const Modes& modes : kAllModes) {
    const std::string found = difference(text, modes);
    if (found.empty()) continue;
    const std::string reduced = smallest(text, modes);
    ADD_FAILURE() << "mode " << modes.back() << (modes.size() > 1 ? " after mode 2: " : ": ")
                  << found << "\ntext: \"" << escaped(text) << "\"\nreduced: \"" << escaped(reduced)
                  << "\": " << difference(reduced, modes);
    return false;
  }
  return true;
}

class DifferentialReading : public testing::Test {
 protected:
  void SetUp() override { tally = Tally(); }
  void TearDown() override {
    RecordProperty("texts", std::to_string(tally.texts));
    RecordProperty("loads", std::to_string(tally.loads));
    RecordProperty("successes", std::to_string(tally.successes));
    RecordProperty("strict_successes", std::to_string(tally.strict_successes));
    RecordProperty("cells", std::to_string(tally.cells));
  }
};

TEST_F(DifferentialReading, SoundFilesReadAlike) {
  TextGenerator generator(1);
  for (int i = 0; i < 5000; ++i) {
    if (!is_read_alike(generator.text())) return;
  }
  // What the generator makes must be worth comparing.
  EXPECT_GT(tally.successes, tally.loads / 4);
  EXPECT_GT(tally.strict_successes, 300U);
  EXPECT_GT(tally.cells, 300000U);
}

TEST_F(DifferentialReading, BrokenFilesReadAlike) {
  TextGenerator generator(2);
  for (int i = 0; i < 12000; ++i) {
    if (!is_read_alike(generator.broken(generator.text()))) return;
  }
  EXPECT_GT(tally.successes, tally.loads / 8);
  EXPECT_GT(tally.cells, 500000U);
}

TEST_F(DifferentialReading, BytesOfMeaningCountAtEveryPositionOfABlock) {
  for (const std::string_view shape :
       {"a 1\nb 2\n", "a 1\r\nb 2\r\n", "a 1\rb 2\r", "a 1\n\rb 2\n\r", "a \"1 2\"\nb 2\n",
        "a \"1\"\"2\" 3\n", "a 1  2\t3 \n \nb", "a 1 #b\n#\n", ";;1;;\n;2;\"3;4\"\n",
        "1,5 2,5\n2,5;3,5\n", "a -12.5\nEND_DATA\n"}) {
    for (std::size_t pad = 0; pad <= 130; ++pad) {
      const std::string filler(pad, 'x');
      const std::string rows(shape);
      for (const std::string& body :
           {filler + rows, filler + "\n" + rows, filler + " 1\n" + rows}) {
        if (!is_read_alike("CGATS.17\nBEGIN_DATA_FORMAT\nSAMPLE_ID LAB_L\nEND_DATA_FORMAT\n"
                           "BEGIN_DATA\n" +
                           body)) {
          return;
        }
      }
      if (!is_read_alike("A;B\n" + filler + rows) || !is_read_alike("A B\n" + filler + rows))
        return;
    }
  }
}

TEST_F(DifferentialReading, TextsCutOffAnywhereReadAlike) {
  TextGenerator generator(3);
  for (int i = 0; i < 3; ++i) {
    const std::string text = generator.text();
    for (std::size_t size = 0; size <= text.size(); ++size) {
      if (!is_read_alike(text.substr(0, size))) return;
    }
  }
}

}  // namespace
