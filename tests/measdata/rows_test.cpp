// Rows and their numbers at every position of the blocks of 64 bytes in which they are searched.
#include "measdata/cell_cutter.h"
#include "measdata/meas_file_parser.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

namespace {

constexpr int kLenient = 0, kSemicolonTable = 2, kPlainTable = 4;

// All rows: a|b/c|d. Each number must be that of the C library.
std::string rows_of(std::string_view text, int mode) {
  // Exactly as large as the text, so that the address sanitizer sees each byte read behind it.
  const std::unique_ptr<char[]> block(new char[text.size()]);
  std::copy(text.begin(), text.end(), block.get());
  vantor::MeasData::MeasFileParser reader(mode);
  reader.load_view({block.get(), text.size()});
  vantor::MeasData::CellCutter cutter;
  std::string rows;
  for (int row = 0; row < reader.row_count(); ++row) {
    int column = 0;
    for (const std::string_view cell : reader.cells_of_row(row, cutter)) {
      const std::string value = reader.text_of(cell, column);
      EXPECT_EQ(reader.number_of(cell, column), std::strtod(value.c_str(), nullptr)) << value;
      rows += (column == 0 ? "" : "|") + value;
      ++column;
    }
    rows += '/';
  }
  return rows;
}

TEST(Rows, ReadTheSameAtEveryOffset) {
  const std::string head = "CGATS.17\nBEGIN_DATA_FORMAT\nSAMPLE_ID LAB_L\nEND_DATA_FORMAT\n";
  const struct {
    std::string text, rows, cells;  // of a data block, and of a semicolon table of two columns
  } cases[] = {
      {"a 1\nb 2\n", "a|1/b|2/", ""},
      {"a 1\r\nb 2\r\n", "a|1/b|2/", ""},
      {"a 1\n\rb 2\r", "a|1/b|2/", ""},
      {"a \"1 2\"\nb 2", "a|1 2/b|2/", ""},
      {"a \"1\"\"2\" 3\n", "a|1\"\"2|3/", ""},
      {"a 1  2\t3 \n \nb", "a|1|2|3/b/", ""},
      {"a 1 #b\n#\nb 2\n", "a|1/b|2/", ""},
      {"a -12.5\nEND_DATA\nb 2", "a|-12.5/", ""},
      {"a 1,25 2\nENDING .5", "a|1.25|2/ENDING|.5/", ""},
      {"a;1\n;2;3\nb\n\nb;4", "a;1/;2;3/b/b;4/", "a|1/|2/b|4/"},
      {"a;\"3;4\"\r\nb;-0,5;", "a;\"3;4\"/b;-0,5;/", "a|3;4/b|-0.5/"},
  };
  for (const auto& c : cases) {
    for (std::size_t size = 0; size <= 130; ++size) {
      const std::string filler(size, 'x'), line = size == 0 ? "" : filler + "/";
      const std::string data = head + "BEGIN_DATA\n";
      EXPECT_EQ(rows_of(data + filler + c.text, kLenient), filler + c.rows);
      EXPECT_EQ(rows_of(data + filler + "\n" + c.text, kLenient), line + c.rows);
      if (c.cells.empty()) {
        EXPECT_EQ(rows_of("A B\n" + filler + " 1\n" + c.text, kPlainTable),
                  (size == 0 ? "1/" : filler + "|1/") + c.rows);
      } else {
        EXPECT_EQ(rows_of("A;B\n" + filler + c.text, kSemicolonTable), filler + c.cells);
        EXPECT_EQ(rows_of("A;B\n" + filler + ";1\n" + c.text, kSemicolonTable),
                  filler + "|1/" + c.cells);
      }
      if (HasFailure()) FAIL() << c.text << " behind " << size << " bytes";
    }
  }
}

TEST(Rows, LongRowsAndManyCells) {
  for (const int count : {63, 64, 65, 200}) {
    std::string row, cells;
    for (int i = 0; i < count; ++i) {
      row += (i % 3 == 0 ? " " : "\t ") + std::to_string(i);
      cells += (i == 0 ? "" : "|") + std::to_string(i);
    }
    EXPECT_EQ(rows_of("A B\n" + row, kPlainTable), cells + "/");
  }
  // About the length from which the list of rows keeps no length.
  for (std::size_t size = (1U << 24U) - 2; size <= 1U << 24U; ++size) {
    const std::string name(size - 2, 'x');
    EXPECT_TRUE(rows_of("A B\n0 1\n" + name + " 1\r\na 2\n", kPlainTable) ==
                "0|1/" + name + "|1/a|2/");
  }
}

}  // namespace
