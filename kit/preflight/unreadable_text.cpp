#include "kit/preflight/unreadable_text.h"

#include "kit/preflight/decimal_text.h"
#include "kit/preflight/delimited_text.h"
#include "kit/preflight/line_cursor.h"

#include <algorithm>
#include <array>
#include <vector>

namespace measkit {
namespace {

struct Signature {
  std::string_view start, kind;
};
// First bytes, as they come out of Windows-1252 where they are no UTF-8.
constexpr std::array<Signature, 12> kSignatures = {{
    {"%PDF-", "a PDF document"},
    {"%!PS", "a PostScript document"},
    {"PK\x03\x04", "a zip archive, as the files of office programs are"},
    {"\xE2\x80\xB0PNG", "a PNG image"},
    {"\xC3\xBF\xC3\x98\xC3\xBF", "a JPEG image"},
    {"GIF8", "a GIF image"},
    {std::string_view("II*\0", 4), "a TIFF image"},
    {std::string_view("MM\0*", 4), "a TIFF image"},
    {"\x1F\xE2\x80\xB9", "a gzip archive"},
    {"\xC3\x90\xC3\x8F\x11\xC3\xA0", "a workbook of an older office program"},
    {"{\\rtf", "a document in rich text"},
    {"\x7F"
     "ELF",
     "a program"},
}};

bool is_profile(std::string_view text) {
  constexpr std::size_t kHeader = 128;  // bytes; the mark stands at 36, and later as UTF-8
  return text.substr(0, kHeader).find("acsp") != std::string_view::npos &&
         text.substr(0, kHeader).find('\0') != std::string_view::npos;
}

// Bytes that no text holds: more than one in a hundred of the first.
bool is_binary(std::string_view text) {
  constexpr std::size_t kLook = 4096;
  const std::string_view start = text.substr(0, kLook);
  const auto count = static_cast<std::size_t>(std::count_if(start.begin(), start.end(), [](char c) {
    return static_cast<unsigned char>(c) < ' ' &&
           std::string_view("\t\n\v\f\r\x1A").find(c) == std::string_view::npos;
  }));
  return count * 100 > start.size();
}

Refusal not_a_text(std::string_view kind) {
  return {"not-text",
          "The file is " + std::string(kind) +
              ", not a text: a table of measurements saved as text would help.",
          0};
}

// How the lines of a text look when they are cut in one way.
struct Survey {
  std::size_t lines = 0, number_lines = 0, first_number_line = 0;
  std::size_t width = 0, same_width = 0;  // of lines of numbers
  double first = 0.0, last = 0.0;         // in the first column of these
  bool is_rising = true;
  std::size_t mixed_lines = 0;  // of three cells or more, with words and numbers
};

void add_numbers(const SheetCells& cells, std::size_t number, Survey& survey) {
  const double value = is_number(cells.front()) ? number_in(cells.front()) : 0.0;
  if (survey.number_lines == 0) {
    survey.first_number_line = number;
    survey.width = filled_width(cells);
    survey.first = value;
  } else if (value <= survey.last) {
    survey.is_rising = false;
  }
  survey.last = value;
  ++survey.number_lines;
  if (filled_width(cells) == survey.width) ++survey.same_width;
}

Survey survey_of(std::string_view text, Delimiter delimiter) {
  Survey survey;
  SheetCells cells;
  TextPool pool;
  for (LineCursor lines(text); lines.next();) {
    if (without_blanks(lines.line()).empty()) continue;
    ++survey.lines;
    cut_cells(lines.line(), delimiter, pool, cells);
    const auto numbers =
        static_cast<std::size_t>(std::count_if(cells.begin(), cells.end(), is_number));
    if (numbers == 0) continue;
    if (std::all_of(cells.begin(), cells.end(), is_number_or_missing)) {
      add_numbers(cells, lines.number(), survey);
    } else if (cells.size() > 2) {
      ++survey.mixed_lines;
    }
  }
  return survey;
}

std::string counted(std::size_t count, std::string_view one) {
  return std::to_string(count) + " " + std::string(one) + (count == 1 ? "" : "s");
}

constexpr std::string_view kNamesWouldHelp =
    " A first line that names the columns, such as SAMPLE_ID,LAB_L,LAB_A,LAB_B, would help.";

Refusal list_of_numbers(const Survey& survey) {
  const bool is_one_width = survey.same_width == survey.number_lines;
  std::string sentence = survey.number_lines == 1 ? "One line of " + counted(survey.width, "number")
                         : is_one_width ? "A list of " + counted(survey.number_lines, "line") +
                                              " of " + counted(survey.width, "number")
                                        : "A list of " + counted(survey.number_lines, "line") +
                                              " with different counts of numbers";
  sentence += " without names: what they mean is not guessed.";
  constexpr double kShortest = 0.2, kLongest = 3.0;
  const bool may_be_micrometres = survey.is_rising && survey.number_lines > 2 &&
                                  survey.first >= kShortest && survey.last <= kLongest;
  if (may_be_micrometres) {
    sentence += " The first column rises from " + rounded(survey.first) + " to " +
                rounded(survey.last) +
                ", as wavelengths in micrometres do: wavelengths in nm would help.";
  } else {
    sentence += kNamesWouldHelp;
  }
  return {"names-missing", sentence, survey.first_number_line};
}

}  // namespace

std::optional<Refusal> refusal_of_kind(std::string_view text) {
  const std::size_t start = text.find_first_not_of(" \t\r\n\f\v");
  if (start == std::string_view::npos) {
    return Refusal{"empty-file", "The file is empty.", 0};
  }
  for (const Signature& signature : kSignatures) {
    if (text.starts_with(signature.start)) return not_a_text(signature.kind);
  }
  if (is_profile(text)) return not_a_text("an ICC profile");
  if (is_binary(text)) return not_a_text("binary data");
  const std::string_view content = text.substr(start);
  const std::string_view head = content.substr(0, 4096);
  if (content.starts_with("<!DOCTYPE html") || content.starts_with("<!doctype html") ||
      content.starts_with("<html")) {
    return Refusal{"xml", "The file is a web page: its table saved as text would help.", 0};
  }
  if (content.starts_with("<?xml") || (content.front() == '<' && head.find("</") != head.npos)) {
    return Refusal{"xml",
                   "The file is XML, which is not read: the same measurements exported as a text "
                   "table would help.",
                   0};
  }
  return std::nullopt;
}

Refusal refusal_without_names(std::string_view text) {
  Survey best;
  bool is_first = true;
  for (const Delimiter delimiter : kDelimiters) {
    const Survey survey = survey_of(text, delimiter);
    const auto rank = [](const Survey& s) { return 2 * s.number_lines + s.mixed_lines; };
    const bool is_wider = rank(survey) == rank(best) && survey.width > best.width;
    if (is_first || rank(survey) > rank(best) || is_wider) best = survey;
    is_first = false;
  }
  if (best.number_lines == best.lines) return list_of_numbers(best);
  std::string sentence = "A text of " + counted(best.lines, "line");
  if (best.number_lines + best.mixed_lines == 0) {
    sentence += " without a table of numbers.";
  } else {
    sentence += ", " + std::to_string(best.number_lines + best.mixed_lines) +
                " of them with numbers, but no line names columns of colours, inks or wavelengths.";
  }
  return {"no-table", sentence.append(kNamesWouldHelp), 0};
}

}  // namespace measkit
