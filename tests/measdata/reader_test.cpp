// The reader as a whole: what becomes of a text, and what is told about it.
#include "measdata/meas_file_parser.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace {

using vantor::MeasData::MeasFileParser;

constexpr int kLenient = 0;
constexpr int kSilent = 1;
constexpr int kStrict = 3;
constexpr int kPlainTable = 4;

// A file without a fault in any mode; the tests bend it.
std::string sound_file(std::string_view header = "", std::string_view rows = "1 50 0 0\n",
                       std::string_view sets = "1") {
  std::string text = "CGATS.17\nORIGINATOR \"a b\"\nDESCRIPTOR d\nCREATED today\n";
  text += header;
  text += "NUMBER_OF_FIELDS 4\nBEGIN_DATA_FORMAT\nSAMPLE_ID LAB_L LAB_A LAB_B\nEND_DATA_FORMAT\n";
  text += "NUMBER_OF_SETS " + std::string(sets) + "\nBEGIN_DATA\n";
  text += rows;
  text += "END_DATA\n";
  return text;
}

struct Outcome {
  bool is_read;
  std::string messages;
  bool operator==(const Outcome&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Outcome& outcome) {
  return out << (outcome.is_read ? "read: " : "failed: ") << outcome.messages;
}

Outcome read(std::string_view text, int mode = kLenient) {
  MeasFileParser reader(mode);
  const bool is_read = reader.load_memory(text);
  return {is_read, reader.messages()};
}

// name=value;name=value#comment
std::string keywords_of(std::string_view text) {
  MeasFileParser reader(kLenient);
  reader.load_memory(text);
  std::string list;
  for (const auto& entry : reader.keywords()) {
    if (!list.empty()) list += ';';
    list.append(entry.name).append("=").append(entry.value);
    if (!entry.comment.empty()) list.append("#").append(entry.comment);
  }
  return list;
}

TEST(Reader, ASoundFileReadsWithoutAWordInEveryMode) {
  for (const int mode : {kLenient, kSilent, kStrict}) {
    MeasFileParser reader(mode);
    EXPECT_TRUE(reader.load_memory(sound_file()));
    EXPECT_EQ(reader.messages(), "");
    EXPECT_EQ(reader.identifier(), "CGATS.17");
    EXPECT_EQ(reader.field_count(), 4);
    EXPECT_EQ(reader.row_count(), 1);
    EXPECT_EQ(reader.number_of_fields(), 4);
    EXPECT_EQ(reader.number_of_sets(), 1);
  }
}

TEST(Reader, TheSameTablesWhateverEndsTheLines) {
  for (const std::string_view line_break : {"\r\n", "\n\r", "\r"}) {
    std::string text;
    for (const char c : sound_file("", "1 50 0 0\n2 60 1 1\n", "2")) {
      if (c == '\n') {
        text += line_break;
      } else {
        text += c;
      }
    }
    MeasFileParser reader(kStrict);
    EXPECT_TRUE(reader.load_memory(text)) << reader.messages();
    EXPECT_EQ(reader.value(1, 1), "60");
    EXPECT_EQ(reader.value(1, 3), "1");
  }
}

TEST(Reader, CellsAndFieldsOutsideTheTableAreEmpty) {
  MeasFileParser reader(kLenient);
  ASSERT_TRUE(reader.load_memory(sound_file()));
  for (const auto& [row, column] : {std::pair{-1, 0}, {1, 0}, {0, -1}, {0, 4}}) {
    EXPECT_EQ(reader.value(row, column), "");
    EXPECT_EQ(reader.value_as_double(row, column), 0.0);
  }
  EXPECT_EQ(reader.field_name(-1), "");
  EXPECT_EQ(reader.field_name(4), "");
  EXPECT_EQ(reader.field_index("sample_id"), -1);
  EXPECT_TRUE(reader.has_field("LAB_B"));
}

TEST(Reader, WarningsAreWrittenDroppedOrFatalByMode) {
  const std::string text = sound_file("PLAIN 1\n");
  EXPECT_EQ(read(text, kLenient), (Outcome{true, "Undefined keyword 'PLAIN'\n"}));
  EXPECT_EQ(read(text, kSilent), (Outcome{true, ""}));
  EXPECT_EQ(read(text, kStrict), (Outcome{false, "Undefined keyword 'PLAIN'\n"}));
}

TEST(Reader, StrictReadingMissesRequiredKeywordsUnlessItWarnedBefore) {
  const std::string rest =
      "NUMBER_OF_FIELDS 1\nBEGIN_DATA_FORMAT\nSAMPLE_ID\nEND_DATA_FORMAT\n"
      "NUMBER_OF_SETS 1\nBEGIN_DATA\n1\nEND_DATA\n";
  EXPECT_EQ(read("CGATS.17\nORIGINATOR a\n" + rest, kStrict),
            (Outcome{false,
                     "Required keyword 'DESCRIPTOR' missing!\n"
                     "Required keyword 'CREATED' missing!\n"}));
  EXPECT_EQ(read("CGATS.17\nX 1\n" + rest, kStrict), (Outcome{false, "Undefined keyword 'X'\n"}));
}

TEST(Reader, LineOneIsAnIdentifierOrAnOrdinaryLine) {
  const auto behind = [](const std::string& first_line) {
    MeasFileParser reader(kLenient);
    reader.load_memory(first_line + "\nBEGIN_DATA\n1\nEND_DATA\n");
    return std::string(reader.identifier()) + "|" +
           reader.messages().substr(0, reader.messages().find("In DATA"));
  };
  EXPECT_EQ(behind("IT8.7/2"), "IT8.7/2|");
  EXPECT_EQ(behind("ISO28178\t\t"), "ISO28178|");
  EXPECT_EQ(behind("IT8.7"),
            "|ID in line 1 has more than 7 characters\nMissing value for 'IT8.7'!\n");
  EXPECT_EQ(behind("cgats.17"),
            "|ID in line 1 has more than 7 characters\nMissing value for 'cgats.17'!\n");
  EXPECT_EQ(behind("ORIGINATOR me"), "|Missing 7-character-ID in line 1\n");
  EXPECT_EQ(behind("\n"), "|Missing 7-character-ID in line 1\n");
}

TEST(Reader, KeywordLines) {
  const struct {
    std::string header, keywords, messages;
  } cases[] = {
      {"SERIAL \"a b\"\n", "SERIAL=a b", ""},
      {"SERIAL a  b \"c\"\n", "SERIAL=a b c", "Excess items after 'SERIAL'!\n"},
      {"SERIAL\n", "", "Missing value for 'SERIAL'!\n"},
      {"SERIAL # 5\n", "", "Missing value for 'SERIAL'!\n"},
      {"SERIAL x # note  here\n", "SERIAL=x#note here", ""},
      {"SERIAL x #note\n", "SERIAL=x#note ", ""},
      {"SERIAL x #a b \"c d\"\n", "SERIAL=x#a b c d", ""},
      {"# SERIAL x\n\n\t\n", "", ""},
      {"SERIAL 1\nSERIAL 2\n", "SERIAL=2", "Overwriting keyword 'SERIAL'\n"},
      {"OWN 1\n", "OWN=1", "Undefined keyword 'OWN'\n"},
      {"KEYWORD OWN\nOWN 1\n", "OWN=1", ""},
      {"KEYWORD OWN extra\n", "OWN=", "Excess items after 'KEYWORD'!\n"},
      {"KEYWORD\n", "", "Missing value for 'KEYWORD'!\n"},
      {"SERIAL 1\nKEYWORD SERIAL\n", "SERIAL=", "KEYWORD 'SERIAL' already known!\n"},
      {"FILTER none\n", "FILTER=none", ""},
      {"WEIGHTING_FUNCTION \"ILLUMINANT, D50\"\n", "", ""},  // kept in lists of their own
      {"COMPUTATIONAL_PARAMETER x\nPROCESSCOLOR_ID y\nSPOTCOLOR_ID z\n", "", ""},
  };
  const std::string sound = keywords_of(sound_file());
  EXPECT_EQ(sound, "ORIGINATOR=a b;DESCRIPTOR=d;CREATED=today");
  for (const auto& c : cases) {
    const std::string expected = c.keywords.empty() ? sound : sound + ";" + c.keywords;
    EXPECT_EQ(keywords_of(sound_file(c.header)), expected) << c.header;
    EXPECT_EQ(read(sound_file(c.header)), (Outcome{true, c.messages})) << c.header;
  }
}

TEST(Reader, TheOlderFormKnowsFewerNamesAndKeepsEveryKeyword) {
  std::string text = sound_file("FILTER none\nWEIGHTING_FUNCTION w\n");
  text.replace(0, 8, "IT8.7/3");
  EXPECT_EQ(read(text), (Outcome{true,
                                 "Undefined keyword 'FILTER'\n"
                                 "Undefined keyword 'WEIGHTING_FUNCTION'\n"}));
  EXPECT_EQ(keywords_of(text),
            "ORIGINATOR=a b;DESCRIPTOR=d;CREATED=today;FILTER=none;WEIGHTING_FUNCTION=w");
}

TEST(Reader, CountsAreClaimsThatAreChecked) {
  const auto messages = [](const std::string& header, const std::string& sets = "1") {
    return read(sound_file(header, "1 50 0 0\n", sets)).messages;
  };
  EXPECT_EQ(messages("", "2"), "DATA has wrong NUMBER_OF_SETS!\n");
  for (const char* bad : {"x", "-1", "\"\"", "2147483648", "99999999999999999999"}) {
    EXPECT_EQ(messages("", bad), "Bad NUMBER_OF_SETS\nDATA has wrong NUMBER_OF_SETS!\n") << bad;
  }
  EXPECT_EQ(messages("", "\" +1x\""), "");
  EXPECT_EQ(messages("", "1 1"), "Excess items after 'NUMBER_OF_SETS'!\n");
  EXPECT_EQ(messages("NUMBER_OF_SETS 7\n"), "Duplicate 'NUMBER_OF_SETS'!\n");
  EXPECT_EQ(messages("NUMBER_OF_FIELDS\n"), "Missing value for 'NUMBER_OF_FIELDS'!\n");
  // The room that a larger count asked for stays.
  EXPECT_EQ(read(sound_file("NUMBER_OF_FIELDS 2000000000\n")),
            (Outcome{false,
                     "Duplicate 'NUMBER_OF_FIELDS'!\n"
                     "DATA_FORMAT has wrong NUMBER_OF_FIELDS!\n"}));
  EXPECT_EQ(read("CGATS.17\nBEGIN_DATA_FORMAT\nSAMPLE_ID LAB_L\nEND_DATA_FORMAT\n"
                 "NUMBER_OF_FIELDS 3\nBEGIN_DATA\n1 2\nEND_DATA\n"),
            (Outcome{false,
                     "Missing NUMBER_OF_FIELDS before DATA_FORMAT!\n"
                     "NUMBER_OF_FIELDS comes too late!\n"
                     "Wrong NUMBER_OF_FIELDS\n"
                     "DATA has wrong NUMBER_OF_SETS!\n"}));
}

TEST(Reader, WhereTheTextEndsTooEarly) {
  const std::string format = "CGATS.17\nNUMBER_OF_FIELDS 1\nBEGIN_DATA_FORMAT\n";
  const std::string wrong_sets = "DATA has wrong NUMBER_OF_SETS!\n";
  EXPECT_EQ(read("CGATS.17\n"), (Outcome{false, "EOF, but no DATA found!\n" + wrong_sets}));
  EXPECT_EQ(read(format), (Outcome{false, "EOF, but no DATA_FORMAT found!\n" + wrong_sets}));
  EXPECT_EQ(read(format + "SAMPLE_ID\n"),
            (Outcome{false, "EOF, but END_DATA_FORMAT expected!\n" + wrong_sets}));
  const std::string open =
      format + "SAMPLE_ID\nEND_DATA_FORMAT rest\nNUMBER_OF_SETS 1\nBEGIN_DATA\n";
  EXPECT_EQ(read(open + "1\n"), (Outcome{false, "EOF, but END_DATA expected!\n"}));
  EXPECT_EQ(read(open + "END_DATA\nanything\n"),
            (Outcome{true, "Empty DATA block!\n" + wrong_sets}));
}

TEST(Reader, AMissingEndOfTheFormatLosesALineUnlessDataBegin) {
  const std::string start =
      "CGATS.17\nNUMBER_OF_FIELDS 1\nBEGIN_DATA_FORMAT\n# comment\n\nSAMPLE_ID\n";
  const std::string end = "1\nEND_DATA\n";
  EXPECT_EQ(read(start + "BEGIN_DATA\n" + end),
            (Outcome{false, "END_DATA_FORMAT expected!\nDATA has wrong NUMBER_OF_SETS!\n"}));
  EXPECT_EQ(read(start + "NUMBER_OF_SETS 1\nBEGIN_DATA\n" + end),
            (Outcome{false, "END_DATA_FORMAT expected!\nDATA has wrong NUMBER_OF_SETS!\n"}));
}

TEST(Reader, FieldIdentifiers) {
  const auto messages = [](const std::string& fields, const std::string& header = "",
                           const std::string& identifier = "CGATS.17") {
    return read(identifier + "\n" + header + "BEGIN_DATA_FORMAT\n" + fields +
                "\nEND_DATA_FORMAT\nNUMBER_OF_SETS 0\nBEGIN_DATA\nEND_DATA\n")
        .messages;
  };
  const auto unknown = [](const std::string& name) {
    return "Unknown data format identifier '" + name + "'!\n";
  };
  const std::string uncounted = "Missing NUMBER_OF_FIELDS before DATA_FORMAT!\n";
  const std::string empty = "Empty DATA block!\n";
  const std::string spectral = "SPECTRAL_NM_380 SPECTRAL_NM_390";
  EXPECT_EQ(messages("SAMPLE_ID # X"), uncounted + empty);
  EXPECT_EQ(messages("SAMPLE_ID " + spectral), uncounted + unknown("SPECTRAL_NM_380") + empty);
  EXPECT_EQ(messages(spectral + " XYZ_Q R_5"),
            uncounted + unknown("SPECTRAL_NM_380") + unknown("XYZ_Q") + unknown("R_5") + empty);
  EXPECT_EQ(messages("nm380 nm390 OWN", "KEYWORD OWN\n"), uncounted + unknown("nm380") + empty);
  EXPECT_EQ(messages("SAMPLE_ID SAMPLE_ID"),
            uncounted + "Duplicate data format identifier 'SAMPLE_ID'!\n" + empty);
  EXPECT_EQ(messages("SPOT_16 PC_9 PC1_2"), uncounted + empty);
  EXPECT_EQ(messages("SPOT_16", "", "IT8.7/1"), uncounted + unknown("SPOT_16") + empty);
  EXPECT_EQ(messages("OWN", "DATA_FORMAT_IDENTIFIER OWN\n"), uncounted + empty);
  EXPECT_EQ(messages("X", "SERIAL 1\nDATA_FORMAT_IDENTIFIER SERIAL\n"),
            "KEYWORD 'SERIAL' already known!\n" + uncounted + unknown("X") + empty);
}

TEST(Reader, TheSecondFieldListReplacesTheFirstButItsColumnKinds) {
  MeasFileParser reader(kLenient);
  EXPECT_TRUE(
      reader.load_memory("CGATS.17\nKEYWORD SAMPLE_NAME\nNUMBER_OF_FIELDS 2\n"
                         "BEGIN_DATA_FORMAT\nSAMPLE_ID LAB_L\nEND_DATA_FORMAT\n"
                         "BEGIN_DATA_FORMAT\nLAB_A SAMPLE_NAME\nEND_DATA_FORMAT\n"
                         "NUMBER_OF_SETS 1\nBEGIN_DATA\n1,5 2,5\nEND_DATA\n"));
  EXPECT_EQ(reader.messages(), "Multiple DATA_FORMATs! Overriding old one.\n");
  EXPECT_EQ(reader.field_index("SAMPLE_ID"), -1);
  EXPECT_EQ(reader.value(0, 0), "1,5");  // kept as a sample id would be
  EXPECT_EQ(reader.value(0, 1), "2.5");
  EXPECT_EQ(reader.value_as_double(0, 0), 1.0);
}

TEST(Reader, DataCells) {
  MeasFileParser reader(kLenient);
  EXPECT_TRUE(reader.load_memory(
      "CGATS.17\nKEYWORD SAMPLE_NAME\nNUMBER_OF_FIELDS 3\nBEGIN_DATA_FORMAT\nSAMPLE_NAME LAB_L "
      "LAB_A\nEND_DATA_FORMAT\n"
      "NUMBER_OF_SETS 2\nBEGIN_DATA\n\"Patch 1\" 12,5 1,234,5 # x\n\n#\na,b\t-1e1 x\nEND_DATA\n"));
  EXPECT_EQ(reader.messages(), "");
  EXPECT_EQ(reader.value(0, 0), "Patch 1");
  EXPECT_EQ(reader.value(0, 1), "12.5");
  EXPECT_EQ(reader.value(0, 2), "1.234,5");
  EXPECT_EQ(reader.value_as_double(0, 2), 1.234);
  EXPECT_EQ(reader.value(1, 0), "a,b");
  EXPECT_EQ(reader.value_as_double(1, 1), -10.0);
  EXPECT_EQ(reader.value_as_double(1, 2), 0.0);
}

TEST(Reader, EachWrongRowWidthIsToldOnceInARun) {
  const auto error = [](int line, int width) {
    return "In DATA block : line " + std::to_string(line) + " has " + std::to_string(width) +
           " fields, but 4 are required!\n";
  };
  // The first row is line 11 of the file, so its index from 0 is 10.
  EXPECT_EQ(read(sound_file("", "1 2 3\n1 2 3\n1 2 3\n", "3")), (Outcome{false, error(10, 3)}));
  EXPECT_EQ(read(sound_file("", "1 2 3\n1 2 3 4 5\n1 2 3 4\n1 2 3\n", "4")),
            (Outcome{false, error(10, 3) + error(11, 5) + error(13, 3)}));
}

TEST(Reader, APlainTableBeginsWithItsFieldList) {
  MeasFileParser reader(kPlainTable);
  EXPECT_TRUE(reader.load_memory("SAMPLE_ID LAB_L\n1 50\n2 60\n"));
  EXPECT_EQ(reader.messages(), "");
  EXPECT_EQ(reader.row_count(), 2);
  EXPECT_EQ(reader.number_of_fields(), 2);
  EXPECT_EQ(reader.number_of_sets(), 2);
  EXPECT_EQ(reader.value(1, 1), "60");
  EXPECT_EQ(read("A B\n1\n", kPlainTable),
            (Outcome{false,
                     "lines must have same number of fields!\n"
                     "In DATA block : line 1 has 1 fields, but 2 are required!\n"}));
  EXPECT_EQ(read("A\n", kPlainTable), (Outcome{false,
                                               "must have at least two lines!\n"
                                               "lines must have same number of fields!\n"}));
}

TEST(Reader, AnUnknownModeFailsWithoutAMessage) {
  EXPECT_EQ(read(sound_file(), 5), (Outcome{false, ""}));
  EXPECT_EQ(read(sound_file(), -1), (Outcome{false, ""}));
  EXPECT_EQ(read("", 5), (Outcome{false, ""}));
}

TEST(Reader, ASecondLoadForgetsTheFirst) {
  MeasFileParser reader(kLenient);
  ASSERT_TRUE(reader.load_memory(sound_file("OWN 1\n")));
  reader.set_mode(kStrict);
  EXPECT_TRUE(reader.load_memory(sound_file()));
  EXPECT_EQ(reader.messages(), "");
  EXPECT_EQ(reader.keywords().size(), 3U);
  EXPECT_FALSE(reader.load_memory(""));
  EXPECT_EQ(reader.messages(), "File is empty\n");
  EXPECT_EQ(reader.row_count(), 0);
}

TEST(Reader, ASemicolonTable) {
  constexpr int kSemicolonTable = 2;
  MeasFileParser reader(kSemicolonTable);
  EXPECT_TRUE(
      reader.load_memory("ID;L;a;b\r\n1;50,5;10;-3,25\n\n2;40;5\n3;40;5;6;7\n1;;2;3\n% no"));
  EXPECT_EQ(reader.messages(), "");
  EXPECT_EQ(reader.field_name(0), "% no");  // a later comment line names the columns instead
  EXPECT_TRUE(reader.load_memory("ID;L;a;b\r\n1;50,5;10;-3,25\n\n2;40;5\n3;40;5;6;7\n1;;2;3\n"));
  EXPECT_EQ(reader.field_count(), 4);
  ASSERT_EQ(reader.row_count(), 3);
  EXPECT_EQ(reader.value(0, 1), "50.5");
  EXPECT_EQ(reader.value_as_double(0, 3), -3.25);
  EXPECT_EQ(reader.value(1, 3), "6");
  EXPECT_EQ(reader.value(1, 4), "");
  EXPECT_EQ(reader.value(2, 1), "");
  reader.set_mode(kLenient);  // for the next load only
  EXPECT_EQ(reader.value(1, 3), "6");
  reader.set_mode(kSemicolonTable);
  EXPECT_TRUE(reader.load_memory("%A;B\n1;2\n%C;D\n3;4\n"));
  EXPECT_EQ(reader.field_name(0), "%C");
  EXPECT_EQ(reader.row_count(), 2);
  EXPECT_TRUE(reader.load_memory("A;;B"));
  EXPECT_EQ(reader.field_count(), 3);
  EXPECT_EQ(reader.row_count(), 0);
}

}  // namespace
