#include "kit/preflight/unreadable_text.h"

#include "kit/preflight/column_names.h"
#include "kit/preflight/decimal_text.h"
#include "kit/preflight/delimited_text.h"
#include "kit/preflight/line_cursor.h"

#include <algorithm>
#include <array>
#include <utility>

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
  std::size_t mixed_lines = 0;  // with words and numbers
  std::string names;            // of the line of words right above the first numbers
  bool names_wavelengths = false;
  Delimiter delimiter = Delimiter::comma;

  std::size_t rows() const { return number_lines + mixed_lines; }
  // A line of numbers alone proves more than one of words and numbers.
  bool is_better_than(const Survey& other) const {
    const std::size_t rank = rows() + number_lines, other_rank = other.rows() + other.number_lines;
    return rank != other_rank ? rank > other_rank : width > other.width;
  }
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

void remember_names(const SheetCells& cells, Survey& survey) {
  constexpr std::size_t kMostNames = 6, kLongestName = 24;
  survey.names.clear();
  survey.names_wavelengths = std::any_of(cells.begin(), cells.end(), means_wavelength);
  if (cells.size() < 2 || survey.delimiter == Delimiter::blanks) return;
  for (std::size_t i = 0; i < std::min(cells.size(), kMostNames); ++i) {
    if (cells[i].size() > kLongestName) {
      survey.names.clear();
      return;
    }
    survey.names.append(i == 0 ? "" : ", ").append(cells[i]);
  }
  if (cells.size() > kMostNames) {
    survey.names += " and " + std::to_string(cells.size() - kMostNames) + " more";
  }
}

Survey survey_of(std::string_view text, Delimiter delimiter) {
  Survey survey;
  survey.delimiter = delimiter;
  SheetCells cells;
  TextPool pool;
  for (LineCursor lines(text); lines.next();) {
    if (without_blanks(lines.line()).empty()) continue;
    ++survey.lines;
    cut_cells(lines.line(), delimiter, pool, cells);
    const auto numbers =
        static_cast<std::size_t>(std::count_if(cells.begin(), cells.end(), is_number));
    if (numbers == 0) {
      if (survey.rows() == 0) remember_names(cells, survey);
    } else if (std::all_of(cells.begin(), cells.end(), is_number_or_missing)) {
      add_numbers(cells, lines.number(), survey);
    } else if (cells.size() > (delimiter == Delimiter::blanks ? 2U : 1U)) {
      ++survey.mixed_lines;
    }
  }
  return survey;
}

std::string counted(std::size_t count, std::string_view one) {
  return std::to_string(count) + " " + std::string(one) + (count == 1 ? "" : "s");
}

bool may_be_micrometres(const Survey& survey) {
  constexpr double kShortest = 0.2, kLongest = 3.0;
  return survey.is_rising && survey.number_lines > 2 && survey.first >= kShortest &&
         survey.last <= kLongest;
}

std::string what_would_help(const Survey& survey) {
  if (may_be_micrometres(survey)) {
    return " The first column rises from " + rounded(survey.first) + " to " + rounded(survey.last) +
           ", as wavelengths in micrometres do: wavelengths in nm would help.";
  }
  if (survey.names_wavelengths) {
    return " One column a sample, or one row a sample and one column a wavelength, would help.";
  }
  return " A first line that names the columns, such as SAMPLE_ID,LAB_L,LAB_A,LAB_B, would help.";
}

std::string what_was_seen(const Survey& survey, bool is_whole) {
  const std::string more = is_whole ? "" : "more than ";
  const std::string lines = more + counted(survey.lines, "line");
  if (survey.lines == 0) return "A long line without a table of numbers.";
  if (survey.rows() == 0) return "A text of " + lines + " without a table of numbers.";
  if (survey.number_lines == survey.lines) {
    const std::string numbers = survey.same_width == survey.lines
                                    ? "of " + counted(survey.width, "number")
                                    : "with different counts of numbers";
    return "A list of " + lines + " " + numbers + " without names: what they mean is not guessed.";
  }
  if (!survey.names.empty()) {
    return "A table of " + more + counted(survey.rows(), "row") + " with the columns " +
           survey.names + ": they do not tell colours, inks or spectra.";
  }
  return "A text of " + lines + ", " + std::to_string(survey.rows()) +
         " of them with numbers, but no line names columns of colours, inks or wavelengths.";
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
  if (content.starts_with("<?xml") ||
      (content.front() == '<' && head.find("</") != std::string_view::npos)) {
    return Refusal{"xml",
                   "The file is XML, which is not read: the same measurements exported as a text "
                   "table would help.",
                   0};
  }
  return std::nullopt;
}

Refusal refusal_without_names(std::string_view whole_text) {
  constexpr std::size_t kLook = std::size_t{1} << 20U;  // bytes that tell enough
  const bool is_whole = whole_text.size() <= kLook;
  std::string_view text = whole_text.substr(0, kLook);
  if (!is_whole) text = text.substr(0, text.find_last_of("\r\n"));
  Survey best = survey_of(text, kDelimiters.front());
  for (const Delimiter delimiter : kDelimiters) {
    Survey survey = survey_of(text, delimiter);
    if (survey.is_better_than(best)) best = std::move(survey);
  }
  return {best.rows() == 0 ? "no-table" : "names-missing",
          what_was_seen(best, is_whole) + what_would_help(best), best.first_number_line};
}

}  // namespace measkit
