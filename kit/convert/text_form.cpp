#include "kit/convert/text_form.h"

#include "kit/convert/row_reader.h"
#include "kit/preflight/line_cursor.h"
#include "kit/preflight/plain_writer.h"
#include "kit/write/layout.h"

#include <algorithm>
#include <array>
#include <set>
#include <string_view>
#include <utility>

namespace measkit {
namespace {

// Keywords that every reader knows; the second group in files of the standard alone.
constexpr std::array<std::string_view, 13> kKnownEverywhere = {"ORIGINATOR",
                                                               "DESCRIPTOR",
                                                               "CREATED",
                                                               "MANUFACTURER",
                                                               "PROD_DATE",
                                                               "SERIAL",
                                                               "INSTRUMENTATION",
                                                               "MEASUREMENT_SOURCE",
                                                               "PRINT_CONDITIONS",
                                                               "NUMBER_OF_FIELDS",
                                                               "NUMBER_OF_SETS",
                                                               "KEYWORD",
                                                               "DATA_FORMAT_IDENTIFIER"};
constexpr std::array<std::string_view, 12> kKnownInStandardFiles = {"MEASUREMENT_GEOMETRY",
                                                                    "FILTER",
                                                                    "POLARIZATION",
                                                                    "WEIGHTING_FUNCTION",
                                                                    "COMPUTATIONAL_PARAMETER",
                                                                    "SAMPLE_BACKING",
                                                                    "PROCESSCOLOR_ID",
                                                                    "SPOT_ID",
                                                                    "COPYRIGHT",
                                                                    "TABLE_DESCRIPTOR",
                                                                    "TABLE_NAME",
                                                                    "SPOTCOLOR_ID"};

bool is_known(std::string_view keyword, bool is_standard_file) {
  return std::ranges::find(kKnownEverywhere, keyword) != kKnownEverywhere.end() ||
         (is_standard_file &&
          std::ranges::find(kKnownInStandardFiles, keyword) != kKnownInStandardFiles.end());
}

// An identifier of seven characters that the table has, else that of the charts of its kind.
std::string identifier_of_seven(const Table& table) {
  constexpr std::size_t kLength = 7;
  if (table.identifier.size() == kLength) return table.identifier;
  return table.roles().device_set == "CMYK" ? "IT8.7/3" : "IT8.7/2";
}

// Text columns that are no fields of the standard. Others cannot be declared: readers find spectra
// by fields that are not.
void declare_fields(Table& table) {
  for (const Field& field : table.fields) {
    const bool is_wanted = is_text_field(field.name) && field.name != "SAMPLE_ID" &&
                           field.name != "STRING" && field.name != "SAMPLE_NO";
    const bool is_declared = std::ranges::any_of(table.header, [&field](const HeaderLine& line) {
      return line.value == field.name &&
             (line.keyword == "DATA_FORMAT_IDENTIFIER" || line.keyword == "KEYWORD");
    });
    if (is_wanted && !is_declared) table.add_keyword("DATA_FORMAT_IDENTIFIER", field.name);
  }
}

bool has_comment(std::string_view line) {
  const std::size_t sign = line.find('#');
  if (sign == std::string_view::npos) return false;
  // Inside quotes it is text.
  return std::count(line.begin(), line.begin() + static_cast<std::ptrdiff_t>(sign), '"') % 2 == 0 &&
         (sign == 0 || line[sign - 1] == ' ' || line[sign - 1] == '\t');
}

}  // namespace

void declare_keywords(Table& table, bool is_standard_file) {
  std::set<std::string_view> declared;
  std::vector<HeaderLine> header;
  for (HeaderLine& line : table.header) {
    if (line.keyword == "KEYWORD") declared.insert(line.value);
    const bool is_missing = !line.keyword.empty() && !is_known(line.keyword, is_standard_file) &&
                            declared.insert(line.keyword).second;
    if (is_missing) {
      const std::string_view raw = table.pool.add("KEYWORD \"" + std::string(line.keyword) + "\"");
      header.push_back({raw, "KEYWORD", std::string(line.keyword)});
    }
    header.push_back(std::move(line));
  }
  table.header = std::move(header);
}

std::string measurement_file_of(Table& table, Form form, std::vector<std::string>& left_behind) {
  const bool is_standard_file = form != Form::seven_characters;
  if (is_standard_file) {
    table.identifier = form == Form::cgats ? "CGATS.17" : "ISO28178";
    declare_fields(table);
  } else {
    table.identifier = identifier_of_seven(table);
  }
  declare_keywords(table, is_standard_file);
  std::string text = plain_text(table);
  if (table.is_cut()) tell_comments_in_rows(table, left_behind);
  return text;
}

void tell_comments_in_rows(const Table& table, std::vector<std::string>& left_behind) {
  if (table.data.find('#') == std::string_view::npos) return;
  std::size_t count = 0;
  for (LineCursor lines(table.data); lines.next();) count += has_comment(lines.line()) ? 1 : 0;
  if (count != 0)
    left_behind.push_back("Comments between the rows: " + std::to_string(count) + ".");
}

}  // namespace measkit
