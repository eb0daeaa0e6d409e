#include "tests/support/generated_text.h"

#include <iterator>
#include <utility>

namespace test {
namespace {

constexpr std::string_view kBreaks[] = {"\n", "\r\n", "\r", "\n\r"};
constexpr std::string_view kDigits = "0123456789";

// Those that need no declaration in a standard file come first.
constexpr std::string_view kFields[] = {
    "SAMPLE_ID",  "SAMPLE_NO", "STRING",   "CMYK_C",  "CMYK_M",       "CMYK_Y",
    "CMYK_K",     "RGB_R",     "RGB_G",    "RGB_B",   "LAB_L",        "LAB_A",
    "LAB_B",      "XYZ_X",     "XYZ_Y",    "XYZ_Z",   "D_RED",        "D_VIS",
    "PC1_4",      "PC_9",      "SPOT_3",   "SPOT_16", "MEAN_DE",      "SAMPLE_NAME",
    "SAMPLE_LOC", "SampleID",  "MY_FIELD", "lab_l",   "\"MY FIELD\"", "\"LAB_L\""};
constexpr std::size_t kKnownFields = 23;
constexpr std::string_view kPrefixes[] = {"SPECTRAL_NM_", "SPECTRAL_NM", "SPECTRAL_", "R_",
                                          "SPECTRUM_NM_", "SPEC_",       "nm",        "NM_"};

constexpr std::string_view kIdentifiers[] = {"CGATS.17", "CGATS.17", "CGATS.17",
                                             "ISO28178", "IT8.7/2",  "  ABCDEFG\t",
                                             "IT8.7",    "a b",      "\"CGATS\""};
constexpr std::string_view kKeywords[] = {"ORIGINATOR",
                                          "DESCRIPTOR",
                                          "CREATED",
                                          "MANUFACTURER",
                                          "SERIAL",
                                          "FILTER",
                                          "POLARIZATION",
                                          "SAMPLE_BACKING",
                                          "MY_FIELD",
                                          "KEYWORD",
                                          "KEYWORD",
                                          "DATA_FORMAT_IDENTIFIER",
                                          "PROCESSCOLOR_ID",
                                          "SPOTCOLOR_ID",
                                          "WEIGHTING_FUNCTION",
                                          "COMPUTATIONAL_PARAMETER",
                                          "PRINT_CONDITIONS"};
constexpr std::string_view kValues[] = {"x",       "\"a value\"", "MY_FIELD", "R_380", "\"\"",
                                        "a \"b\"", "ILLUMINANT",  "MYOWN",    "\"#\"", "a;b"};
constexpr std::string_view kComments[] = {"#", "# a note", "#note", "#  a \"b c\"  d #", "\"#\" e"};

constexpr std::string_view kStrangeLines[] = {"NUMBER_OF_FIELDS 4",
                                              "NUMBER_OF_FIELDS",
                                              "NUMBER_OF_FIELDS 3x",
                                              "NUMBER_OF_FIELDS -1",
                                              "NUMBER_OF_SETS 3",
                                              "NUMBER_OF_SETS 99999999999999999999",
                                              "NUMBER_OF_SETS x",
                                              "NUMBER_OF_SETS 1 2",
                                              "BEGIN_DATA_FORMAT",
                                              "BEGIN_DATA_FORMAT 1",
                                              "BEGIN_DATA",
                                              "BEGIN_DATA now",
                                              "END_DATA_FORMAT",
                                              "END_DATA",
                                              "\"END_DATA\"",
                                              "END_DATA;",
                                              " \tEND_DATA x",
                                              "END_DATA_ 1 2",
                                              "KEYWORD",
                                              "#",
                                              "%A;B",
                                              "\"",
                                              "",
                                              " \t "};

}  // namespace

std::string TextGenerator::some_of(std::string_view bytes, std::size_t most) {
  std::string text;
  for (std::size_t n = 1 + below(most); n > 0; --n) text += one_of(bytes);
  return text;
}

std::string TextGenerator::text() {
  line_break_ = one_in(3) ? "" : std::string(one_of(kBreaks));
  std::string text = one_in(16) ? std::string(one_of(kBreaks)) : "";
  switch (below(5)) {
    case 0:
      text += semicolon_table();
      break;
    case 1:
      text += plain_table();
      break;
    default:
      text += file_with_header();
  }
  if (one_in(4)) {
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) text.pop_back();
  }
  return text;
}

void TextGenerator::end_line(std::string& text) {
  text += line_break_.empty() ? one_of(kBreaks) : std::string_view(line_break_);
}

std::string TextGenerator::file_with_header() {
  std::string text(one_in(6) ? one_of(kIdentifiers) : kIdentifiers[0]);
  end_line(text);
  if (!one_in(4)) {
    for (const char* line : {"ORIGINATOR \"a b\"", "DESCRIPTOR x", "CREATED today"}) {
      text += line;
      end_line(text);
    }
  }
  const std::size_t choice = one_in(2) ? kKnownFields : std::size(kFields);
  for (std::size_t n = choice == kKnownFields ? 0 : below(6); n > 0; --n) {
    text += header_line();
    end_line(text);
  }
  const std::vector<std::string> names = field_names(1 + below(one_in(8) ? 40 : 8), choice);
  const std::size_t row_count = below(8);
  const std::string field_count = std::to_string(names.size() + (one_in(16) ? 1 : 0));
  std::string fields;
  for (const std::string& name : names) fields += (fields.empty() ? "" : gap()) + name;
  for (const std::string& line :
       {"NUMBER_OF_FIELDS " + field_count, std::string("BEGIN_DATA_FORMAT"), fields,
        std::string("END_DATA_FORMAT"), "NUMBER_OF_SETS " + std::to_string(row_count)}) {
    if (!line.empty() && one_in(40)) continue;
    text += line;
    end_line(text);
  }
  if (one_in(2)) {
    text += "#" + padding();
    end_line(text);
  }
  text += "BEGIN_DATA";
  end_line(text);
  for (std::size_t i = 0; i < row_count; ++i) {
    text += row(names.size());
    end_line(text);
  }
  text += "END_DATA";
  end_line(text);
  if (one_in(8)) text += header_line();
  return text;
}

std::string TextGenerator::semicolon_table() {
  const std::size_t width = 1 + below(one_in(6) ? 40 : 8);
  std::string text;
  if (one_in(3)) {
    text = padding() + ";" + quoted();
    end_line(text);
    text += "%";
  }
  for (std::size_t i = 0; i < width; ++i) {
    text += (i == 0 ? "" : ";") + std::string(one_in(12) ? "" : one_of(kFields));
  }
  end_line(text);
  for (std::size_t n = below(10); n > 0; --n) {
    text += semicolon_row(width);
    end_line(text);
  }
  return text;
}

std::string TextGenerator::plain_table() {
  const std::vector<std::string> names = field_names(1 + below(10), std::size(kFields));
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "" : gap()) + name;
  end_line(text);
  for (std::size_t n = below(10); n > 0; --n) {
    text += row(names.size());
    end_line(text);
  }
  return text;
}

std::vector<std::string> TextGenerator::field_names(std::size_t count, std::size_t choice) {
  std::vector<std::string> names;
  const bool is_spectral = choice == std::size(kFields) && one_in(3);
  const std::string prefix(one_of(kPrefixes));
  for (std::size_t i = 0; i < count; ++i) {
    if (is_spectral && i > count / 4) {
      names.push_back((one_in(12) ? std::string(one_of(kPrefixes)) : prefix) +
                      std::to_string(380 + 10 * i));
    } else {
      names.emplace_back(i == 0 && !one_in(3) ? kFields[0] : kFields[below(choice)]);
    }
  }
  return names;
}

std::string TextGenerator::header_line() {
  if (one_in(8)) return std::string(one_of(kStrangeLines));
  std::string line = std::string(one_of(kKeywords)) + gap() + std::string(one_of(kValues));
  if (one_in(6)) line += gap() + std::string(one_of(kValues));
  if (one_in(4)) line += gap() + std::string(one_of(kComments));
  return line;
}

std::string TextGenerator::row(std::size_t width) {
  std::string text = one_in(8) ? gap() : "";
  for (std::size_t i = 0; i < width; ++i) {
    if (i > 0) text += gap();
    text += i == 0 ? name_cell() : one_in(16) ? quoted() : number();
  }
  if (one_in(24)) text += gap() + number();
  if (one_in(8)) text += gap();
  if (one_in(12)) text += gap() + std::string(one_of(kComments));
  return text;
}

std::string TextGenerator::semicolon_row(std::size_t width) {
  std::string text = one_in(20) ? "%" : "";
  const std::size_t cells = width + (one_in(8) ? below(3) : 0) - (one_in(8) ? 1 : 0);
  for (std::size_t i = 0; i < cells; ++i) {
    if (i > 0) text += ";";
    if (one_in(6)) continue;
    text += i == 0 ? name_cell() : one_in(12) ? quoted() : number();
  }
  if (one_in(3)) text += some_of(";", 2);
  return text;
}

std::string TextGenerator::gap() {
  switch (below(4)) {
    case 0:
      return "\t";
    case 1:
      return some_of(" \t", 4);
    default:
      return " ";
  }
}

std::string TextGenerator::number() {
  constexpr std::string_view kRare[] = {
      "inf",   "-inf",     "nan",      "-nan", "INFINITY",  "nan(7)",    ".",
      "-",     "-.",       "+",        ",",    "-,",        "--1",       "1..2",
      "1,2,3", "0x1F",     "-0x1.8p3", "0x",   "1e",        "1e+",       "1e999",
      "-0",    "00000000", "1:2",      "1/2",  "12345678.", ".12345678", "9007199254740993"};
  if (one_in(10)) return std::string(one_of(kRare));
  constexpr std::string_view kSigns[] = {"", "", "", "-", "-", "+"};
  std::string text(one_of(kSigns));
  std::string digits = some_of(kDigits, one_in(3) ? 20 : 6);
  if (!one_in(4)) digits.insert(below(digits.size() + 1), one_in(4) ? "," : ".");
  text += digits;
  if (one_in(12)) text += std::string(one_in(2) ? "e" : "E-") + some_of(kDigits, 3);
  if (one_in(24)) text[below(text.size())] = one_of(std::string_view("/:.,-+ex\"%#\xB0"));
  return text;
}

std::string TextGenerator::name_cell() {
  switch (below(6)) {
    case 0:
      return quoted();
    case 1:
      return padding() + "a,b";
    case 2:
      return "E" + number();
    default:
      return number();
  }
}

std::string TextGenerator::quoted() {
  constexpr std::string_view kPieces[] = {"a", " ", ";", "\"\"", "#", "%", "1,5", "\t", "12.25"};
  std::string text = "\"";
  for (std::size_t n = below(6); n > 0; --n) text += one_of(kPieces);
  text += "\"";
  if (one_in(12)) text += "b\"c";
  return text;
}

// Moves what follows to any position in a block.
std::string TextGenerator::padding() { return std::string(below(one_in(3) ? 200 : 66), 'x'); }

std::string TextGenerator::broken(std::string text) {
  for (std::size_t n = 1 + below(4); n > 0; --n) break_once(text);
  return text;
}

std::string TextGenerator::strange_bytes() {
  switch (below(4)) {
    case 0:
      return std::string(1 + below(2), '\0');
    case 1:
      return std::string(1, static_cast<char>(below(256)));
    default:
      return some_of("\"\" \t\n\r;,.#%-E", 3);
  }
}

void TextGenerator::break_once(std::string& text) {
  if (text.empty()) {
    text = strange_bytes();
    return;
  }
  const std::size_t at = below(text.size());
  switch (below(9)) {
    case 0:
      text.erase(at, 1 + below(one_in(4) ? 70 : 3));
      break;
    case 1:
      text.insert(at, strange_bytes());
      break;
    case 2:
      text.insert(at, 1, text[at]);
      break;
    case 3:
      std::swap(text[at], text[below(text.size())]);
      break;
    case 4:
      if (at + 1 < text.size()) std::swap(text[at], text[at + 1]);
      break;
    case 5:
      text.replace(at, 1, strange_bytes());
      break;
    case 6:
      if (one_in(4)) {
        text.resize(at);
      } else {
        text.resize(text.size() - below(at % 16 + 1));
      }
      break;
    default:
      break_lines(text);
  }
}

// Repeats, exchanges, drops or adds whole lines.
void TextGenerator::break_lines(std::string& text) {
  std::vector<std::string> lines(1);
  for (const char c : text) {
    lines.back() += c;
    if (c == '\n' || (c == '\r' && line_break_ == "\r")) lines.emplace_back();
  }
  const std::size_t at = below(lines.size());
  const auto position = lines.begin() + static_cast<std::ptrdiff_t>(at);
  std::string line;
  switch (below(5)) {
    case 0:
      line = lines[at];
      lines.insert(position, line);
      break;
    case 1:
      std::swap(lines[at], lines[below(lines.size())]);
      break;
    case 2:
      lines.erase(position);
      break;
    default:
      line = one_of(kStrangeLines);
      end_line(line);
      lines.insert(position, line);
  }
  text.clear();
  for (const std::string& each : lines) text += each;
}

}  // namespace test
