// The reader as a whole: what becomes of a text, and what is told about it. In these texts and
// messages '|' ends a line.
#include "measdata/meas_file_parser.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>

namespace {

using vantor::MeasData::MeasFileParser;

constexpr int kLenient = 0, kSilent = 1, kSemicolonTable = 2, kStrict = 3, kPlainTable = 4;

// A file without a fault in any mode; the tests bend it.
const std::string kHead = "CGATS.17|ORIGINATOR \"a b\"|DESCRIPTOR d|CREATED now|";
const std::string kFormat =
    "NUMBER_OF_FIELDS 4|BEGIN_DATA_FORMAT|SAMPLE_ID LAB_L LAB_A LAB_B|END_DATA_FORMAT|";
const std::string kRows = "NUMBER_OF_SETS 1|BEGIN_DATA|1 50 0 0|END_DATA|";

std::string lines_of(std::string text, char from = '|', char to = '\n') {
  std::replace(text.begin(), text.end(), from, to);
  return text;
}

// "read: " or "failed: ", and the messages.
std::string load(MeasFileParser& reader, const std::string& text) {
  const bool is_read = reader.load_memory(lines_of(text));
  return (is_read ? "read: " : "failed: ") + lines_of(reader.messages(), '\n', '|');
}

std::string told(const std::string& text, int mode = kLenient) {
  MeasFileParser reader(mode);
  return load(reader, text);
}

// identifier; fields; counts; cells of all rows; keywords as name=value
std::string tables_of(const MeasFileParser& reader) {
  std::string text(reader.identifier());
  text += ';';
  for (int i = 0; i < reader.field_count(); ++i) text += " " + reader.field_name(i);
  text += "; " + std::to_string(reader.number_of_fields()) + " " +
          std::to_string(reader.number_of_sets()) + ";";
  for (int row = 0; row < reader.row_count(); ++row) {
    for (int column = 0; column <= reader.field_count(); ++column) {
      const std::string cell = reader.value(row, column);
      text += column < reader.field_count() ? " [" + cell + "]" : cell;
    }
    text += '/';
  }
  text += ';';
  for (std::size_t i = 0; i < reader.keywords().size(); ++i) {
    const auto& entry = reader.keywords()[i];
    text.append(" ").append(entry.name).append("=").append(entry.value);
  }
  return text;
}

std::string tables_of(const std::string& text, int mode = kLenient) {
  MeasFileParser reader(mode);
  load(reader, text);
  return tables_of(reader);
}

TEST(Reader, ASoundFileReadsAlikeInEveryModeWhateverEndsItsLines) {
  const std::string text = kHead + kFormat + kRows;
  for (const int mode : {kLenient, kSilent, kStrict}) {
    for (const std::string_view line_break : {"\n", "\r\n", "\n\r", "\r"}) {
      std::string broken;
      for (const char c : text) broken += c == '|' ? line_break : std::string_view(&c, 1);
      MeasFileParser reader(mode);
      EXPECT_TRUE(reader.load_memory(broken));
      EXPECT_EQ(reader.messages(), "");
      EXPECT_EQ(tables_of(reader),
                "CGATS.17; SAMPLE_ID LAB_L LAB_A LAB_B; 4 1; [1] [50] [0] [0]/; "
                "ORIGINATOR=a b DESCRIPTOR=d CREATED=now");
    }
  }
}

TEST(Reader, WhatIsOutsideTheTableIsEmpty) {
  MeasFileParser reader(kLenient);
  load(reader, kHead + kFormat + kRows);
  for (const auto& [row, column] : {std::pair{-1, 0}, {1, 0}, {0, -1}, {0, 4}}) {
    EXPECT_EQ(reader.value(row, column), "");
    EXPECT_EQ(reader.value_as_double(row, column), 0.0);
  }
  EXPECT_EQ(reader.value_as_double(0, 1), 50.0);
  EXPECT_EQ(reader.field_name(-1) + reader.field_name(4), "");
  EXPECT_EQ(reader.field_index("sample_id"), -1);
  EXPECT_TRUE(reader.has_field("SAMPLE_ID"));
}

TEST(Reader, WarningsAreWrittenDroppedOrFatalByMode) {
  const std::string plain = kHead + "PLAIN 1|" + kFormat + kRows;
  EXPECT_EQ(told(plain, kLenient), "read: Undefined keyword 'PLAIN'|");
  EXPECT_EQ(told(plain, kSilent), "read: ");
  EXPECT_EQ(told(plain, kStrict), "failed: Undefined keyword 'PLAIN'|");
  // Strict reading misses keywords unless it warned before.
  EXPECT_EQ(told("CGATS.17|ORIGINATOR a|" + kFormat + kRows, kStrict),
            "failed: Required keyword 'DESCRIPTOR' missing!|Required keyword 'CREATED' missing!|");
  EXPECT_EQ(told("CGATS.17|X 1|" + kFormat + kRows, kStrict), "failed: Undefined keyword 'X'|");
  for (const int unknown : {-1, 5}) {
    EXPECT_EQ(told(plain, unknown), "failed: ");
    EXPECT_EQ(told("", unknown), "failed: ");
  }
}

TEST(Reader, LineOneIsAnIdentifierOrAnOrdinaryLine) {
  const std::string wrong = "read: ID in line 1 has more than 7 characters|Missing value for ";
  const struct {
    std::string line, identifier, told;
  } cases[] = {
      {"IT8.7/2", "IT8.7/2", "read: "},
      {"ISO28178\t\t", "ISO28178", "read: "},
      {"IT8.7", "", wrong + "'IT8.7'!|"},
      {"cgats.17", "", wrong + "'cgats.17'!|"},
      {"\"CGATS.17\"", "", wrong + "'CGATS.17'!|"},  // quotes count here
      {"SERIAL me", "", "read: Missing 7-character-ID in line 1|"},
      {"|", "", "read: Missing 7-character-ID in line 1|"},
  };
  for (const auto& c : cases) {
    const std::string text = c.line + "|" + kFormat + kRows;
    EXPECT_EQ(told(text), c.told);
    EXPECT_EQ(tables_of(text).substr(0, c.identifier.size() + 1), c.identifier + ";");
  }
}

TEST(Reader, KeywordLines) {
  const struct {
    std::string header, keywords, messages;
  } cases[] = {
      {"SERIAL \"a b\"|", " SERIAL=a b", ""},
      {"SERIAL a  b \"c\"|", " SERIAL=a b c", "Excess items after 'SERIAL'!|"},
      {"SERIAL|", "", "Missing value for 'SERIAL'!|"},
      {"SERIAL # 5|", "", "Missing value for 'SERIAL'!|"},
      {"SERIAL x # note  here|", " SERIAL=x", ""},
      {"# SERIAL x||\t|", "", ""},
      {"SERIAL 1 #c|SERIAL 2|", " SERIAL=2", "Overwriting keyword 'SERIAL'|"},
      {"OWN 1|", " OWN=1", "Undefined keyword 'OWN'|"},
      {"KEYWORD OWN|OWN 1|", " OWN=1", ""},
      {"KEYWORD OWN extra|", " OWN=", "Excess items after 'KEYWORD'!|"},
      {"KEYWORD|", "", "Missing value for 'KEYWORD'!|"},
      {"SERIAL 1 #c|KEYWORD SERIAL|", " SERIAL=", "KEYWORD 'SERIAL' already known!|"},
      {"FILTER none|", " FILTER=none", ""},
      {"WEIGHTING_FUNCTION \"ILLUMINANT, D50\"|", "", ""},  // kept in lists of their own
      {"COMPUTATIONAL_PARAMETER x|PROCESSCOLOR_ID y|SPOTCOLOR_ID z|", "", ""},
  };
  for (const auto& c : cases) {
    const std::string text = kHead + c.header + kFormat + kRows;
    const std::string tables = tables_of(text);
    EXPECT_EQ(tables.substr(tables.rfind(';')),
              "; ORIGINATOR=a b DESCRIPTOR=d CREATED=now" + c.keywords);
    EXPECT_EQ(told(text), "read: " + c.messages) << c.header;
  }
  // The older form knows fewer names and keeps every keyword.
  const std::string older = "IT8.7/3|FILTER x|WEIGHTING_FUNCTION w|" + kFormat + kRows;
  EXPECT_EQ(told(older),
            "read: Undefined keyword 'FILTER'|Undefined keyword 'WEIGHTING_FUNCTION'|");
  EXPECT_NE(tables_of(older).find("; FILTER=x WEIGHTING_FUNCTION=w"), std::string::npos);
}

TEST(Reader, CountsAreClaimsThatAreChecked) {
  const std::string wrong = "DATA has wrong NUMBER_OF_SETS!|";
  const auto with_sets = [](const std::string& sets, const std::string& row = "1 50 0 0|") {
    return told(kHead + kFormat + "NUMBER_OF_SETS " + sets + "|BEGIN_DATA|" + row + "END_DATA|");
  };
  EXPECT_EQ(with_sets("2"), "read: " + wrong);
  for (const char* bad : {"x", "-1", "\"\"", "2147483648", "99999999999999999999"}) {
    EXPECT_EQ(with_sets(bad), "failed: Bad NUMBER_OF_SETS|" + wrong) << bad;
  }
  for (const char* one : {"\" +1x\"", "\f1", "\" \t\v\f 01\"", "1.9"}) {
    EXPECT_EQ(with_sets(one), "read: ") << one;
  }
  EXPECT_EQ(with_sets("2147483647"), "read: " + wrong);
  EXPECT_EQ(with_sets("-0", ""), "read: Empty DATA block!|");
  EXPECT_EQ(with_sets("1 1"), "read: Excess items after 'NUMBER_OF_SETS'!|");
  EXPECT_EQ(with_sets("7|NUMBER_OF_SETS 1"), "read: Duplicate 'NUMBER_OF_SETS'!|");
  EXPECT_EQ(told(kHead + "NUMBER_OF_FIELDS|" + kFormat + kRows),
            "read: Missing value for 'NUMBER_OF_FIELDS'!|");
  // The room that a larger count asked for stays.
  EXPECT_EQ(told(kHead + "NUMBER_OF_FIELDS 2000000000|" + kFormat + kRows),
            "failed: Duplicate 'NUMBER_OF_FIELDS'!|DATA_FORMAT has wrong NUMBER_OF_FIELDS!|");
  EXPECT_EQ(told("CGATS.17|BEGIN_DATA_FORMAT|SAMPLE_ID LAB_L|END_DATA_FORMAT|NUMBER_OF_FIELDS 3|"
                 "BEGIN_DATA|1 2|END_DATA|"),
            "failed: Missing NUMBER_OF_FIELDS before DATA_FORMAT!|"
            "NUMBER_OF_FIELDS comes too late!|Wrong NUMBER_OF_FIELDS|" +
                wrong);
}

TEST(Reader, WhereTheTextEndsTooEarly) {
  const std::string format = "CGATS.17|NUMBER_OF_FIELDS 1|BEGIN_DATA_FORMAT|";
  const std::string wrong = "DATA has wrong NUMBER_OF_SETS!|";
  EXPECT_EQ(told("CGATS.17|"), "failed: EOF, but no DATA found!|" + wrong);
  EXPECT_EQ(told(format), "failed: EOF, but no DATA_FORMAT found!|" + wrong);
  EXPECT_EQ(told(format + "SAMPLE_ID|"), "failed: EOF, but END_DATA_FORMAT expected!|" + wrong);
  const std::string open = format + "SAMPLE_ID|END_DATA_FORMAT rest|NUMBER_OF_SETS 1|BEGIN_DATA|";
  EXPECT_EQ(told(open + "1|"), "failed: EOF, but END_DATA expected!|");
  EXPECT_EQ(told(open + "1|\t END_DATA|"), "read: ");
  EXPECT_EQ(told(open + "END_DATA|anything|"), "read: Empty DATA block!|" + wrong);
  // A line behind the fields is lost unless it begins the data.
  const std::string start = format + "# comment||SAMPLE_ID|";
  for (const std::string line : {"", "NUMBER_OF_SETS 1|"}) {
    EXPECT_EQ(told(start + line + "BEGIN_DATA|1|END_DATA|"),
              "failed: END_DATA_FORMAT expected!|" + wrong);
  }
}

TEST(Reader, FieldIdentifiers) {
  const std::string count = "Missing NUMBER_OF_FIELDS before DATA_FORMAT!|";
  const auto unknown = [](const std::string& name) {
    return "Unknown data format identifier '" + name + "'!|";
  };
  const struct {
    std::string fields, messages, header;
    std::string identifier = "CGATS.17";
  } cases[] = {
      {"SAMPLE_ID # X", count, ""},
      {"SAMPLE_ID SPECTRAL_NM_380 SPECTRAL_NM_390", count + unknown("SPECTRAL_NM_380"), ""},
      {"R_380 XYZ_Q nm5 R_390", count + unknown("R_380") + unknown("XYZ_Q") + unknown("nm5"), ""},
      {"nm380 nm390 OWN", count + unknown("nm380"), "KEYWORD OWN|"},
      {"SAMPLE_ID SAMPLE_ID", count + "Duplicate data format identifier 'SAMPLE_ID'!|", ""},
      {"SPOT_16 PC_9 PC1_2", count, ""},
      {"SPOT_16", count + unknown("SPOT_16"), "", "IT8.7/1"},
      {"OWN", count, "DATA_FORMAT_IDENTIFIER OWN|"},
      {"X", "KEYWORD 'SERIAL' already known!|" + count + unknown("X"),
       "SERIAL 1|DATA_FORMAT_IDENTIFIER SERIAL|"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(told(c.identifier + "|" + c.header + "BEGIN_DATA_FORMAT|" + c.fields +
                   "|END_DATA_FORMAT|NUMBER_OF_SETS 0|BEGIN_DATA|END_DATA|"),
              "read: " + c.messages + "Empty DATA block!|");
  }
}

TEST(Reader, DataCells) {
  MeasFileParser reader(kLenient);
  EXPECT_EQ(load(reader,
                 "CGATS.17|KEYWORD SAMPLE_NAME|NUMBER_OF_FIELDS 3|BEGIN_DATA_FORMAT|"
                 "SAMPLE_NAME LAB_L LAB_A|END_DATA_FORMAT|NUMBER_OF_SETS 2|BEGIN_DATA|"
                 "\"Patch 1\" 12,5 1,234,5 # x||#|a,b\t-1e1 x|END_DATA|"),
            "read: ");
  EXPECT_EQ(tables_of(reader),
            "CGATS.17; SAMPLE_NAME LAB_L LAB_A; 3 2; [Patch 1] [12.5] [1.234,5]/ [a,b] [-1e1] [x]/;"
            " SAMPLE_NAME=");
  EXPECT_EQ(reader.value_as_double(0, 2), 1.234);
  EXPECT_EQ(reader.value_as_double(1, 1), -10.0);
  // Commas stay in columns of text.
  const std::string texts =
      " SAMPLE_ID STRING SAMPLE_NO SampleID SampleName Sample_Name SAMPLE_NAME SAMPLE_LOC X";
  EXPECT_EQ(tables_of("CGATS.17|BEGIN_DATA_FORMAT|" + texts + "|END_DATA_FORMAT|BEGIN_DATA|" +
                      "1, 2, 3, 4, 5, 6, 7, 8, 9,|END_DATA|"),
            "CGATS.17;" + texts + "; -1 -1; [1,] [2,] [3,] [4,] [5,] [6,] [7,] [8,] [9.]/;");
  // The second field list replaces the first, but not the kinds of its columns.
  const std::string two =
      "CGATS.17|KEYWORD SAMPLE_NAME|NUMBER_OF_FIELDS 2|BEGIN_DATA_FORMAT|SAMPLE_ID LAB_L|"
      "END_DATA_FORMAT|BEGIN_DATA_FORMAT|LAB_A SAMPLE_NAME|END_DATA_FORMAT|NUMBER_OF_SETS 1|"
      "BEGIN_DATA|1,5 2,5|END_DATA|";
  EXPECT_EQ(load(reader, two), "read: Multiple DATA_FORMATs! Overriding old one.|");
  EXPECT_EQ(tables_of(reader), "CGATS.17; LAB_A SAMPLE_NAME; 2 1; [1,5] [2.5]/; SAMPLE_NAME=");
  EXPECT_EQ(reader.field_index("SAMPLE_ID"), -1);
  EXPECT_EQ(reader.value_as_double(0, 0), 1.0);
  // Without a count, the first list is what the second must fit.
  EXPECT_EQ(told("CGATS.17|BEGIN_DATA_FORMAT|LAB_L LAB_A|END_DATA_FORMAT|BEGIN_DATA_FORMAT|LAB_B|"
                 "END_DATA_FORMAT|NUMBER_OF_SETS 1|BEGIN_DATA|1|END_DATA|"),
            "failed: Missing NUMBER_OF_FIELDS before DATA_FORMAT!|"
            "DATA_FORMAT has wrong NUMBER_OF_FIELDS!|Multiple DATA_FORMATs! Overriding old one.|");
}

TEST(Reader, EachWrongRowWidthIsToldOnceInARun) {
  const auto error = [](int line, int width) {
    return "In DATA block : line " + std::to_string(line) + " has " + std::to_string(width) +
           " fields, but 4 are required!|";
  };
  // The first row is line 11 of the file, so its index from 0 is 10.
  const std::string start = kHead + kFormat + "NUMBER_OF_SETS 4|BEGIN_DATA|";
  EXPECT_EQ(told(start + "1 2 3|1 2 3|1 2 3|1 2 3|END_DATA|"), "failed: " + error(10, 3));
  EXPECT_EQ(told(start + "1 2 3|\"1\" 2 3 4 5|1 2 3 4|1 2 3|END_DATA|"),
            "failed: " + error(10, 3) + error(11, 5) + error(13, 3));
  EXPECT_EQ(told(start + "1 2 3 4\r||1 2 3|END_DATA|"),
            "failed: " + error(12, 3) + "DATA has wrong NUMBER_OF_SETS!|");
}

TEST(Reader, APlainTableBeginsWithItsFieldList) {
  const std::string table = "SAMPLE_ID LAB_L|1 50|2 60|";
  EXPECT_EQ(told(table, kPlainTable), "read: ");
  EXPECT_EQ(tables_of(table, kPlainTable), "; SAMPLE_ID LAB_L; 2 2; [1] [50]/ [2] [60]/;");
  EXPECT_EQ(told("A B|1|", kPlainTable),
            "failed: lines must have same number of fields!|"
            "In DATA block : line 1 has 1 fields, but 2 are required!|");
  EXPECT_EQ(told("A|", kPlainTable),
            "failed: must have at least two lines!|lines must have same number of fields!|");
  EXPECT_EQ(told("\"A B\" C|1 2|", kPlainTable),
            "failed: lines must have same number of fields!|");  // quotes count here
  MeasFileParser reader(kSemicolonTable);
  reader.set_mode(kPlainTable);  // keeps the separators and the comments of the mode before it
  load(reader, "A;B|%C;D|1;2 3|");
  EXPECT_EQ(tables_of(reader), "; A;B; 2 1; [1;2]3/;");
}

TEST(Reader, ASecondLoadForgetsTheFirst) {
  MeasFileParser reader(kLenient);
  load(reader, kHead + "OWN 1|" + kFormat + kRows);
  reader.set_mode(kStrict);
  EXPECT_EQ(load(reader, kHead + kFormat + kRows), "read: ");
  EXPECT_EQ(load(reader, ""), "failed: File is empty|");
  EXPECT_EQ(tables_of(reader), ";; -1 -1;;");
}

TEST(Reader, ASemicolonTable) {
  const struct {
    std::string text, tables;
  } cases[] = {
      {"ID;L;a;b|1;50,5;10;-3,25||2;40;5|3;40;5;6;7|1;;2;3|",
       " ID L a b; -1 -1; [1] [50.5] [10] [-3.25]/ [3] [40] [5] [6]/ [1] [] [2] [3]/;"},
      {"\"a;b\";c|1,2,3;4", " a;b c; -1 -1; [1.2,3] [4]/;"},
      {"%A;B|1;2|%X|%C;D|3;4|", " %C D; -1 -1; [1] [2]/ [3] [4]/;"},  // the last comment names them
      {"|||1|", "; -1 -1;/;"},
      {"A;;B", " A  B; -1 -1;;"},
  };
  MeasFileParser reader(kSemicolonTable);
  for (const auto& c : cases) {
    EXPECT_EQ(load(reader, c.text), "read: ");
    EXPECT_EQ(tables_of(reader), ";" + c.tables);
    EXPECT_EQ(reader.value_as_double(0, 1), std::strtod(reader.value(0, 1).c_str(), nullptr));
  }
  load(reader, cases[0].text);
  reader.set_mode(kLenient);  // for the next load only
  EXPECT_EQ(tables_of(reader), ";" + cases[0].tables);
}

}  // namespace
