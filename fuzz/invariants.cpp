#include "fuzz/invariants.h"

#include "api/measdata.h"
#include "tests/support/answers.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <random>
#include <sstream>
#include <vector>

namespace fuzz {
namespace {

constexpr int kMostPositions = 200;  // so many of each list are looked at
constexpr int kMostChannels = 15;

class Handle {
 public:
  explicit Handle(const Load& load) : handle_(init_parser()) {
    set_parse_mode(handle_, load.mode);
    result_ = parse_mem(handle_, load.text.size(), load.text.data(), load.name);
  }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  ~Handle() { cleanup_parser(&handle_); }

  void* get() const { return handle_; }
  int result() const { return result_; }
  std::string answers() const { return test::answers(handle_); }

 private:
  void* handle_;
  int result_ = 0;
};

// One for each form of export; one of another form does not compile. `i` is any position.
template <typename Answer>
void ask(Answer (*function)(), void*, int) {
  function();
}
template <typename Answer>
void ask(Answer (*function)(void*), void* handle, int) {
  function(handle);
}
template <typename Answer>
void ask(Answer (*function)(void*, int), void* handle, int i) {
  function(handle, i);
}
template <typename Answer>
void ask(Answer (*function)(void*, int, int), void* handle, int i) {
  function(handle, i % kMostChannels, i);
}
void ask(const char* (*function)(void*, const char*), void* handle, int i) {
  function(handle, get_keyword(handle, i));
}
void ask(int (*function)(void*, const char*), void* handle, int i) {
  if (function != &parse_file) function(handle, get_keyword(handle, i));
}
template <typename Answer>
void ask(Answer (*function)(void*, int, const char*), void* handle, int i) {
  function(handle, i % 3, get_keyword(handle, i));
}
void ask(void (*function)(void*, int, double*), void* handle, int i) {
  std::array<double, kMostChannels> values = {};
  function(handle, i, values.data());
}
void ask(void (*function)(void*, int, DeStats*), void* handle, int i) {
  DeStats stats = {};
  function(handle, i, &stats);
}
void ask(void (*function)(const double*, double*), void*, int i) {
  std::array<double, 3> color = {static_cast<double>(i), 1e300, -1.0};
  function(color.data(), color.data());
}
// What makes, changes and ends a handle.
void ask(void* (*)(), void*, int) {}
void ask(void (*)(void**), void*, int) {}
void ask(void (*)(void*, int), void*, int) {}
void ask(int (*)(void*, std::size_t, const char*, const char*), void*, int) {}

void ask_in_any_order(void* handle, unsigned seed) {
  using Question = void (*)(void*, int);
  std::vector<Question> questions = {
#define MEASDATA_EXPORT(name) [](void* of, int i) { ask(&::name, of, i); },
#include "exports.inc"
#undef MEASDATA_EXPORT
  };
  std::minstd_rand random(seed);
  std::ranges::shuffle(questions, random);
  for (const Question question : questions) question(handle, static_cast<int>(random() % 20) - 2);
}

std::string with_line_ends(std::string_view text, std::string_view line_end) {
  std::string changed;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\n' && text[i] != '\r') {
      changed += text[i];
      continue;
    }
    const char other = text[i] == '\n' ? '\r' : '\n';
    if (i + 1 < text.size() && text[i + 1] == other) ++i;
    changed += line_end;
  }
  return changed;
}

// The answers by question, without those that earlier files or the name take part in.
std::map<std::string, std::string> answers_of_file(const std::string& answers) {
  std::map<std::string, std::string> by_question;
  std::istringstream lines(answers);
  std::string part;
  for (std::string line; std::getline(lines, line);) {
    if (line == "merged patches") part = line;
    const bool is_of_keywords = line.find("keyword") != std::string::npos ||
                                line.starts_with("get_value(") || line.starts_with("device_") ||
                                line.starts_with("sample_") || line.starts_with("density_status") ||
                                line.starts_with("illuminant") || line.starts_with("observer") ||
                                line.starts_with("copyright") ||
                                line.starts_with("get_device_channel_name");
    const std::size_t end = line.find(": ");
    if (!is_of_keywords && end != std::string::npos) {
      by_question.emplace(part + line.substr(0, end), line.substr(end));
    }
  }
  return by_question;
}

void check_succession(const std::string& fresh, const std::string& used) {
  const auto expected = answers_of_file(fresh);
  for (const auto& [question, answer] : answers_of_file(used)) {
    const auto found = expected.find(question);
    promise(found == expected.end() || found->second == answer, question.c_str());
  }
}

void check_keywords(void* handle) {
  const int count = std::min(num_keywords(handle), kMostPositions);
  int of_name = 0;
  for (int i = 0; i < count; ++i) {
    const std::string name = get_keyword(handle, i);
    of_name = i != 0 && name == get_keyword(handle, i - 1) ? of_name + 1 : 0;
    promise(i == 0 || std::string(get_keyword(handle, i - 1)) <= name, "keywords are sorted");
    if (of_name == 0) promise(has_keyword(handle, name.c_str()) == 1, "a keyword exists");
    promise(num_keyword_values(handle, name.c_str()) > of_name, "values are counted");
    promise(get_ith_value_of_keyword(handle, of_name, name.c_str()) == get_value(handle, i),
            "both ways lead to a value");
  }
}

// How many patches have a number in a channel.
int count_numbers(void* handle, int channel) {
  int count = 0;
  for (int patch = 0; patch < num_patches(handle); ++patch) {
    std::array<double, kMostChannels> values = {};
    get_dev_from_patch(handle, patch, values.data());
    count += std::isnan(values[static_cast<std::size_t>(channel)]) ? 0 : 1;
  }
  return count;
}

void check_channel(void* handle, int channel) {
  const int values = num_distinct_dev_values(handle, channel);
  int counted = 0;
  for (int i = 0; i < values; ++i) {
    counted += get_distinct_dev_value_count(handle, channel, i);
    promise(i == 0 || get_distinct_dev_value(handle, channel, i - 1) <
                          get_distinct_dev_value(handle, channel, i),
            "distinct values ascend");
  }
  if (values != 0) promise(counted == count_numbers(handle, channel), "counts add up");
  const int steps = num_wedge_steps(handle, channel);
  for (int step = 0; step < steps; ++step) {
    const int index = get_wedge_index(handle, channel, step);
    promise(index >= 0 && index < num_indices(handle), "a step is an index");
  }
  const int solid = get_solid_index(handle, channel);
  promise(solid == -1 || solid == get_wedge_index(handle, channel, steps - 1),
          "a solid ends its wedge");
}

void check_repeats(void* handle) {
  const int indices = num_indices(handle);
  promise(indices <= num_patches(handle), "merging adds no patches");
  promise(get_paperwhite_index(handle) < indices, "paper is an index");
  long long repeats = 0;
  for (int index = 0; index < indices; ++index) {
    DeStats stats = {0, 0.0, 0.0};
    get_de_stats_from_index(handle, index, &stats);
    repeats += stats.repeat_count;
    promise(!(stats.de_mean > stats.de_max * (1 + 1e-9)) || stats.repeat_count < 2,
            "no mean is above the maximum");
  }
  promise(repeats == 0 || repeats == num_patches(handle), "repeats add up");
}

void check_untouched(void* handle) {
  for (const int position : {INT_MIN, -1, num_patches(handle), INT_MAX}) {
    std::array<double, kMostChannels> values;
    values.fill(test::kUnanswered);
    const auto untouched = values;
    for (const auto fill : {get_dev_from_patch, get_xyz_from_patch, get_lab_from_patch,
                            get_dev_from_index, get_lab_from_index}) {
      fill(handle, position, values.data());
    }
    promise(values == untouched, "arrays stay untouched");
    promise(get_spectrum_from_patch(handle, position) == nullptr, "no spectrum is there");
  }
}

}  // namespace

void promise(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "broken promise: %s\n", what);
  std::abort();
}

void check_load(const Load& load, const char* path, void* handle) {
  const Handle fresh(load);
  const std::string answers = fresh.answers();
  promise(answers == fresh.answers(), "answers stay");
  if (fresh.result() == 1) check_succession(answers, test::answers(handle));

  const Handle again(load);
  ask_in_any_order(again.get(), static_cast<unsigned>(load.text.size()));
  promise(again.answers() == answers, "the order of questions does not matter");
  for (const char* line_end : {"\n", "\r", "\r\n"}) {
    const std::string text = with_line_ends(load.text, line_end);
    const Handle other({text, load.mode, load.name});
    promise(other.result() == fresh.result() && other.answers() == answers,
            "line ends do not matter");
  }
  if (load.text.empty()) return;  // has a message of its own
  void* of_file = init_parser();
  set_parse_mode(of_file, load.mode);
  const int result = parse_file(of_file, path);
  promise(result == fresh.result() && test::answers(of_file) == answers,
          "a file is what its bytes are");
  cleanup_parser(&of_file);
}

void check_answers(void* handle, bool has_zero_bytes) {
  if (!has_zero_bytes) check_keywords(handle);
  const int channels = num_device_channels(handle);
  promise(channels >= 0 && channels <= kMostChannels, "channels are few");
  for (int channel = 0; channel < channels; ++channel) check_channel(handle, channel);
  check_repeats(handle);
  check_untouched(handle);
}

}  // namespace fuzz
