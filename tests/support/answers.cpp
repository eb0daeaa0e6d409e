#include "tests/support/answers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <climits>
#include <initializer_list>
#include <span>
#include <string_view>

namespace test {
namespace {

using Numbers = std::span<const double>;

// Positions that a list has or has not: the first ones, and the end of each list.
class Positions {
 public:
  Positions(const Interface& library, void* handle, int first) {
    int longest = 0;
    for (const auto count : {library.num_patches, library.num_indices, library.num_keywords}) {
      const int size = count(handle);
      longest = std::max(longest, size);
      ends_[used_++] = size - 1;
      ends_[used_++] = size;
    }
    first_ = std::min(first, std::max(longest + 1, kSomePositions));
  }
  template <typename Visit>
  void for_each(Visit visit) const {
    for (const int bad : {INT_MIN, -1, INT_MAX}) visit(bad);
    for (int i = 0; i < first_; ++i) visit(i);
    for (const int end : ends_) {
      if (end >= first_) visit(end);
    }
  }

 private:
  std::array<int, 6> ends_ = {};
  std::size_t used_ = 0;
  int first_ = 0;
};

// Lies at the end of its memory, so that a sanitizer sees a step beyond.
class Array {
 public:
  explicit Array(int count) : values_(std::span(memory_).last(static_cast<std::size_t>(count))) {
    memory_.fill(kUnanswered);
  }
  double* data() { return values_.data(); }
  Numbers values() const { return values_; }

 private:
  std::array<double, 15> memory_ = {};
  std::span<double> values_;
};

bool is_for_data_sets(std::string_view name) {
  return name.ends_with("_from_patch") || name.starts_with("spectral_") ||
         (name.starts_with("has_") && name.ends_with("_data")) || name == "num_patches" ||
         name == "num_device_channels";
}

class Asker {
 public:
  Asker(const Interface& library, void* handle, std::string& out, int first)
      : library_(library),
        positions_(library, handle, first),
        first_(first),
        handle_(handle),
        out_(out) {}

  void ask_all(bool is_data_set) {
#define MEASDATA_EXPORT(name) \
  if (!is_data_set || is_for_data_sets(#name)) ask(#name, library_.name);
#include "exports.inc"
#undef MEASDATA_EXPORT
  }
  void move_to(void* data_set) { handle_ = data_set; }

 private:
  // One for each form of function; a function of another form does not compile.

  template <typename Answer>
  void ask(const char* name, Answer (*function)()) {
    write(name, {}, function());
  }
  template <typename Answer>
  void ask(const char* name, Answer (*function)(void*)) {
    write(name, {}, function(handle_));
  }
  template <typename Answer>
  void ask(const char* name, Answer (*function)(void*, int)) {
    positions_.for_each([&](int i) { write(name, {i}, function(handle_, i)); });
  }
  template <typename Answer>
  void ask(const char* name, Answer (*function)(void*, int, int)) {
    const int channels = library_.num_device_channels(handle_);
    for (int channel = -1; channel <= std::max(channels, 1); ++channel) {
      if (first_ == kSomePositions && channel > 1 && channel < channels - 1) continue;
      positions_.for_each([&](int i) { write(name, {channel, i}, function(handle_, channel, i)); });
    }
  }
  void ask(const char* name, void (*fill)(void*, int, double*)) {
    const bool is_device = std::string_view(name).starts_with("get_dev");
    positions_.for_each([&](int i) {
      Array array(is_device ? std::max(library_.num_device_channels(handle_), 1) : 3);
      fill(handle_, i, nullptr);
      fill(handle_, i, array.data());
      write(name, {i}, array.values());
    });
  }
  void ask(const char* name, void (*fill)(void*, int, DeStats*)) {
    positions_.for_each([&](int i) {
      DeStats stats = {static_cast<int>(kUnanswered), kUnanswered, kUnanswered};
      fill(handle_, i, nullptr);
      fill(handle_, i, &stats);
      const std::array<double, 3> all = {static_cast<double>(stats.repeat_count), stats.de_mean,
                                         stats.de_max};
      write(name, {i}, Numbers(all));
    });
  }
  void ask(const char* name, void (*convert)(const double*, double*)) {
    positions_.for_each([&](int i) {
      Array color(3);
      library_.get_lab_from_patch(handle_, i, color.data());
      convert(nullptr, color.data());
      convert(color.data(), nullptr);
      convert(color.data(), color.data());
      write(name, {i}, color.values());
    });
  }
  template <typename Answer>
  void ask(const char* name, Answer (*function)(void*, const char*)) {
    if (std::string_view(name) == "parse_file") return;
    for_each_keyword(
        [&](const char* keyword) { write(name, {}, function(handle_, keyword), keyword); });
  }
  template <typename Answer>
  void ask(const char* name, Answer (*function)(void*, int, const char*)) {
    for_each_keyword([&](const char* keyword) {
      positions_.for_each([&](int i) { write(name, {i}, function(handle_, i, keyword), keyword); });
    });
  }
  // What makes, changes and ends a handle.
  void ask(const char*, void* (*)()) {}
  void ask(const char*, void* (*)(void*)) {}
  void ask(const char*, void (*)(void**)) {}
  void ask(const char*, void (*)(void*, int)) {}
  void ask(const char*, int (*)(void*, std::size_t, const char*, const char*)) {}

  template <typename Visit>
  void for_each_keyword(Visit visit) {
    for (const char* keyword : {"", "NO_SUCH_KEYWORD", "WEIGHTING_FUNCTION"}) visit(keyword);
    visit(nullptr);
    for (int i = 0; i < std::min(library_.num_keywords(handle_), first_); ++i) {
      visit(library_.get_keyword(handle_, i));
    }
  }

  template <typename Answer>
  void write(const char* name, std::initializer_list<int> positions, Answer answer,
             const char* keyword = nullptr) {
    add(name);
    if (keyword != nullptr) out_.append("[").append(keyword).append("]");
    const char* mark = "(";
    for (const int position : positions) {
      add(mark);
      add(position);
      mark = ",";
    }
    add(positions.size() == 0 ? ": " : "): ");
    add(answer);
    add("\n");
  }
  void add(const char* text) { out_ += text == nullptr ? "(null)" : text; }
  void add(const double* spectrum) {
    const auto bands = static_cast<std::size_t>(library_.spectral_size(handle_));
    spectrum == nullptr ? add("(null)") : add(Numbers(spectrum, bands));
  }
  void add(Numbers numbers) {
    for (const double number : numbers) {
      add(number);
      add(" ");
    }
  }
  template <typename Number>
  void add(Number number) {
    std::array<char, 40> digits = {};
    const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    out_.append(digits.data(), result.ptr);
  }

  const Interface& library_;
  const Positions positions_;
  const int first_;
  void* handle_;
  std::string& out_;
};

}  // namespace

void write_answers(const Interface& library, void* handle, std::string& out, int first) {
  Asker asker(library, handle, out, first);
  asker.ask_all(false);
  out += "merged patches\n";
  asker.move_to(library.pass_unique_data(handle));
  asker.ask_all(true);
}

}  // namespace test
