#include "kit/preflight/conditions.h"

#include "measdata/tokenizer.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace measkit {
namespace {

bool is_letter_or_digit(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0; }

bool equals_ignoring_case(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
    return std::tolower(static_cast<unsigned char>(x)) ==
           std::tolower(static_cast<unsigned char>(y));
  });
}

// The size of the text when the word is not in it.
std::size_t position_ignoring_case(std::string_view text, std::string_view word) {
  const auto found =
      std::search(text.begin(), text.end(), word.begin(), word.end(), [](char x, char y) {
        return std::tolower(static_cast<unsigned char>(x)) ==
               std::tolower(static_cast<unsigned char>(y));
      });
  return static_cast<std::size_t>(found - text.begin());
}

bool contains_ignoring_case(std::string_view text, std::string_view word) {
  return position_ignoring_case(text, word) != text.size();
}

// Words of letters and digits, one after the other; full stops stay within numbers.
class Words {
 public:
  explicit Words(std::string_view text) : text_(text) {}

  bool next(std::string_view& word) {
    while (at_ < text_.size() && !is_letter_or_digit(text_[at_])) ++at_;
    const std::size_t start = at_;
    while (at_ < text_.size() && (is_letter_or_digit(text_[at_]) || is_inner_point())) ++at_;
    word = text_.substr(start, at_ - start);
    return !word.empty();
  }

 private:
  bool is_inner_point() const {
    const auto is_digit = [this](std::size_t i) {
      return i < text_.size() && text_[i] >= '0' && text_[i] <= '9';
    };
    return text_[at_] == '.' && at_ > 0 && is_digit(at_ - 1) && is_digit(at_ + 1);
  }

  std::string_view text_;
  std::size_t at_ = 0;
};

// "M0" to "M3" as a word of its own; empty without one.
std::string_view m_condition_in(std::string_view text) {
  Words words(text);
  for (std::string_view word; words.next(word);) {
    if (word.size() == 2 && word[0] == 'M' && word[1] >= '0' && word[1] <= '3') return word;
  }
  return {};
}

// Texts that are free to say anything else, but tell the M condition where they name one.
bool may_tell_m_condition(std::string_view name) {
  static constexpr std::array<std::string_view, 8> kParts = {
      "COND", "MEAS", "FILTER", "INSTRUMENT", "DESCRIPTOR", "MODE", "ILLUMINATION", "ISO13655"};
  return std::any_of(kParts.begin(), kParts.end(),
                     [name](std::string_view part) { return contains_ignoring_case(name, part); });
}

// What follows `name` and "=" in a text such as "Illumination=D50 ObserverAngle=2".
std::string_view after_name(std::string_view text, std::string_view name) {
  const std::size_t at = text.find(name);
  if (at == std::string_view::npos) return {};
  const std::size_t sign = text.find('=', at);
  if (sign == std::string_view::npos) return {};
  const std::size_t end = text.find_first_of(" \t,;", sign);
  return text.substr(sign + 1, end == std::string_view::npos ? end : end - sign - 1);
}

// The part of a weighting function behind its kind: "D50" of "ILLUMINANT, D50".
std::string_view behind_kind(std::string_view value, std::string_view kind) {
  const std::size_t at = position_ignoring_case(value, kind);
  return at == value.size() ? std::string_view() : value.substr(at + kind.size());
}

// The words before "degree" in a free text: "2" of "D50, 2 degree, 45/0".
std::string_view before_degree(std::string_view text) {
  const std::size_t at = text.find("degree");
  return at == std::string_view::npos ? std::string_view() : text.substr(0, at);
}

class ConditionReader {
 public:
  explicit ConditionReader(const std::vector<HeaderLine>& header) : header_(header) {}

  Conditions read() {
    for (const HeaderLine& line : header_) {
      if (may_tell_m_condition(line.keyword)) take_m(line);
    }
    for (const HeaderLine& line : header_) {
      if (line.keyword != "WEIGHTING_FUNCTION") continue;
      take(result_.illuminant, illuminant_in(behind_kind(line.value, "ILLUMINANT")), line);
      take(result_.observer, observer_in(behind_kind(line.value, "OBSERVER")), line);
    }
    for (const std::string_view keyword : {"ILLUMINANT", "ILLUMINATION_NAME"}) {
      for_each(keyword, [this](const HeaderLine& line) {
        take(result_.illuminant, illuminant_in(line.value), line);
      });
    }
    for (const std::string_view keyword : {"OBSERVER", "OBSERVER_ANGLE"}) {
      for_each(keyword, [this](const HeaderLine& line) {
        take(result_.observer, observer_in(line.value), line);
      });
    }
    for (const std::string_view keyword : {"MEASUREMENT_SOURCE", "INSTRUMENTATION"}) {
      for_each(keyword, [this](const HeaderLine& line) { take_free_text(line); });
    }
    return std::move(result_);
  }

 private:
  template <typename Action>
  void for_each(std::string_view keyword, Action action) {
    for (const HeaderLine& line : header_) {
      if (line.keyword == keyword) action(line);
    }
  }

  static void take(std::optional<Stated>& answer, std::string_view value, const HeaderLine& line) {
    if (!answer && !value.empty()) {
      answer = Stated{std::string(value), std::string(line.keyword),
                      line.own_value.empty() ? line.value : line.own_value, line.line};
    }
  }

  void take_m(const HeaderLine& line) {
    const std::string_view value = m_condition_in(line.value);
    if (result_.m && !value.empty() && result_.m->value != value) {
      take(result_.other_m, value, line);
    }
    take(result_.m, value, line);
  }

  void take_free_text(const HeaderLine& line) {
    const std::string_view text = line.value;
    take(result_.illuminant, illuminant_in(after_name(text, "Illumination")), line);
    take(result_.observer, observer_in(after_name(text, "Observer")), line);
    if (line.keyword != "INSTRUMENTATION") return;
    const std::string_view before = before_degree(text);
    if (before.empty()) return;
    std::string_view last, last_but_one;
    Words words(before);
    for (std::string_view word; words.next(word);) {
      last_but_one = last;
      last = word;
    }
    if (last != "2" && last != "10") return;
    take(result_.observer, last, line);
    take(result_.illuminant, illuminant_in(last_but_one), line);
  }

  const std::vector<HeaderLine>& header_;
  Conditions result_;
};

// What the library takes from a weighting function: the second item.
std::string_view second_item(std::string_view value) {
  std::vector<std::string_view> items;
  vantor::MeasData::split(value, vantor::MeasData::kBlankSeparated, items);
  return items.size() > 1 ? items[1] : std::string_view();
}

void tell_plain_value(Table& table, HeaderLine& line, const std::string& value,
                      std::string_view code) {
  table.findings.add(
      Severity::repaired, code,
      std::string(line.keyword) + " \"" + line.value + "\" is written as \"" + value + "\".",
      line.line);
  table.set_value(line, value);
}

void make_line_plain(Table& table, HeaderLine& line) {
  if (line.keyword == "WEIGHTING_FUNCTION") {
    const std::string_view light = illuminant_in(behind_kind(line.value, "ILLUMINANT"));
    const std::string_view angle = observer_in(behind_kind(line.value, "OBSERVER"));
    if (!light.empty() && !angle.empty()) return;  // a line for each is added
    if (!light.empty() && second_item(line.value) != light) {
      tell_plain_value(table, line, "ILLUMINANT, " + std::string(light), "illuminant-words");
    }
    if (!angle.empty() && second_item(line.value) != angle) {
      tell_plain_value(table, line, "OBSERVER, " + std::string(angle) + " degree",
                       "observer-words");
    }
  } else if (line.keyword == "OBSERVER" || line.keyword == "OBSERVER_ANGLE") {
    const std::string_view angle = observer_in(line.value);
    if (!angle.empty() && line.value != angle) {
      tell_plain_value(table, line, std::string(angle), "observer-words");
    }
  }
}

// What the library answers for this header alone.
class HeaderAnswers {
 public:
  explicit HeaderAnswers(const Table& table) {
    std::string text = table.identifier.empty() ? "CGATS.17" : table.identifier;
    for (const HeaderLine& line : table.header) {
      if (line.keyword == "NUMBER_OF_FIELDS" || line.keyword == "NUMBER_OF_SETS") continue;
      text.append("\n").append(line.raw);
    }
    text += "\nBEGIN_DATA_FORMAT\nSAMPLE_ID\nEND_DATA_FORMAT\nBEGIN_DATA\nEND_DATA\n";
    loaded_ = LoadedText(text, nullptr);
  }
  bool tells(const char* (*ask)(void*), const std::string& value) const {
    const char* const answer = ask(loaded_.handle());
    return answer != nullptr && value == answer;
  }

 private:
  LoadedText loaded_;
};

void add_answer(Table& table, std::string_view keyword, const Stated& stated,
                std::string_view code) {
  table.findings.add(Severity::repaired, code,
                     std::string(keyword) + " " + stated.value + " is added: " + stated.keyword +
                         " says it in other words.",
                     stated.line);
  table.add_keyword(keyword, stated.value);
}

}  // namespace

std::string_view observer_in(std::string_view text) {
  if (text.find("1931") != std::string_view::npos) return "2";
  if (text.find("1964") != std::string_view::npos) return "10";
  // "10degree" and "2deg" are words, too.
  Words words(text);
  for (std::string_view word; words.next(word);) {
    const std::size_t digits = std::min(word.find_first_not_of("0123456789"), word.size());
    const std::string_view number = word.substr(0, digits);
    const std::string_view rest = word.substr(digits);
    const bool is_angle = rest.empty() || rest == ".0" || rest.starts_with("deg");
    if (is_angle && number == "2") return "2";
    if (is_angle && number == "10") return "10";
  }
  return {};
}

std::string_view illuminant_in(std::string_view text) {
  static constexpr std::array<std::string_view, 14> kNames = {
      "A", "C", "D50", "D55", "D65", "D75", "E", "F2", "F7", "F11", "UL30", "UL35", "D93", "F12"};
  Words words(text);
  for (std::string_view word; words.next(word);) {
    if (std::find(kNames.begin(), kNames.end(), word) != kNames.end()) return word;
  }
  return {};
}

bool is_placeholder(std::string_view value) {
  static constexpr std::array<std::string_view, 7> kWords = {
      "unknown", "not specified", "unspecified", "none", "n/a", "not available", "undefined"};
  if (std::none_of(value.begin(), value.end(), is_letter_or_digit)) {
    // Letters beyond ASCII are letters, too.
    return std::all_of(value.begin(), value.end(), [](char c) { return c >= 0; });
  }
  return std::any_of(kWords.begin(), kWords.end(),
                     [value](std::string_view word) { return equals_ignoring_case(value, word); });
}

Conditions conditions_of(const std::vector<HeaderLine>& header) {
  return ConditionReader(header).read();
}

void make_conditions_plain(Table& table) {
  for (HeaderLine& line : table.header) make_line_plain(table, line);
  const Conditions conditions = conditions_of(table.header);
  if (!conditions.illuminant && !conditions.observer) return;
  const HeaderAnswers answers(table);
  if (conditions.illuminant && table.find("ILLUMINANT") == nullptr &&
      !answers.tells(illuminant, conditions.illuminant->value)) {
    add_answer(table, "ILLUMINANT", *conditions.illuminant, "illuminant-words");
  }
  if (conditions.observer && table.find("OBSERVER") == nullptr &&
      !answers.tells(observer, conditions.observer->value)) {
    add_answer(table, "OBSERVER", *conditions.observer, "observer-words");
  }
}

}  // namespace measkit
