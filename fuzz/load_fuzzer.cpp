// Loads one to three texts on one handle, asks everything after each, and checks what is promised.
//
// The first byte chooses, one bit each, how: see Choice. '@' sets none of them. The texts that
// follow are divided by the byte 0x1E.
#include "api/measdata.h"
#include "api/parse.h"
#include "fuzz/invariants.h"
#include "measdata/reader_mode.h"
#include "tests/support/answers.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <string>
#include <string_view>

namespace {

enum Choice : unsigned {
  semicolon_table = 1,    // the first text is one
  changing_mode = 2,      // and the texts are by turns in the one mode and in the other
  from_file = 4,          // parse_file instead of parse_mem
  second_reader = 8,      // afterwards build once more from a reader of its own
  own_text = 16,          // afterwards load a text that the handle has given out
  quiet_in_between = 32,  // ask after the last text alone
};

// A file of this process that is gone with it.
class TemporaryFile {
 public:
  TemporaryFile()
      : path_((std::filesystem::temp_directory_path() /
               ("measdata-fuzz-" + std::to_string(std::random_device()())))
                  .string()) {}
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() { std::remove(path_.c_str()); }

  const char* holding(std::string_view text) const {
    std::ofstream(path_, std::ios::binary) << text;
    return path_.c_str();
  }

 private:
  std::string path_;
};

// A copy of exactly that size, so that a step past its end is seen.
std::unique_ptr<char[]> copy_of(std::string_view text) {
  std::unique_ptr<char[]> copy(new char[text.size()]);
  std::copy(text.begin(), text.end(), copy.get());
  return copy;
}

const TemporaryFile& temporary_file() {
  static const TemporaryFile file;
  return file;
}

void load(void* handle, std::string_view text, unsigned choice) {
  const std::unique_ptr<char[]> copy = copy_of(text);
  if ((choice & from_file) != 0) {
    parse_file(handle, temporary_file().holding(text));
  } else {
    parse_mem(handle, text.size(), copy.get(), "name.txt");
  }
  if ((choice & second_reader) != 0) {
    vantor::MeasData::MeasFileParser reader(get_parse_mode(handle) + 1);
    reader.load_view({copy.get(), text.size()});
    parse(handle, &reader, nullptr);
  }
}

void load_own_text(void* handle, const char* text) {
  if (text != nullptr) parse_mem(handle, std::string_view(text).size(), text, text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const unsigned choice = data[0];
  std::string_view texts(reinterpret_cast<const char*>(data) + 1, size - 1);
  void* handle = init_parser();
  int mode = (choice & semicolon_table) != 0 ? 1 : 0;
  for (int loads = 0; loads < 3; ++loads) {
    const std::size_t end = std::min(texts.find('\x1E'), texts.size());
    set_parse_mode(handle, mode);
    load(handle, texts.substr(0, end), choice);
    const bool is_last = end == texts.size() || loads == 2;
    if (is_last || (choice & quiet_in_between) == 0) test::answers(handle);
    if (is_last) {
      const char* path = temporary_file().holding(texts.substr(0, end));
      const std::unique_ptr<char[]> copy = copy_of(texts.substr(0, end));
      fuzz::check_load({{copy.get(), end}, mode, path}, path, handle);
      fuzz::check_answers(handle, std::find(data, data + size, 0) != data + size);
      break;
    }
    if ((choice & changing_mode) != 0) mode = 1 - mode;
    texts.remove_prefix(end + 1);
  }
  if ((choice & own_text) != 0) {
    load_own_text(handle, get_id_from_patch(handle, 0));
    load_own_text(handle, get_value(handle, 0));
    load_own_text(handle, observer(handle));
    test::answers(handle);
  }
  cleanup_parser(&handle);
  if (handle != nullptr) std::abort();
  return 0;
}
