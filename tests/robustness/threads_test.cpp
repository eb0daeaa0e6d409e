// Handles of their own in many threads at once, in a library that comes and goes.
#include "tests/robustness/sample_texts.h"
#include "tests/robustness/temporary_path.h"
#include "tests/support/answers.h"

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <pthread.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

// The lock by which the system's loader guards its own memory is hidden from the thread sanitizer.
extern "C" const char* __tsan_default_suppressions() { return "called_from_lib:ld-linux\n"; }

namespace {

using test::Interface;
using test::SampleText;

// The built library, as long as this lives.
class Library {
 public:
  Library() : module_(dlopen(MEASDATA_LIBRARY, RTLD_NOW | RTLD_LOCAL)) {
    if (module_ == nullptr) return;
#define MEASDATA_EXPORT(name) \
  interface_.name = reinterpret_cast<decltype(interface_.name)>(dlsym(module_, #name));
#include "exports.inc"
#undef MEASDATA_EXPORT
  }
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;
  ~Library() {
    if (module_ != nullptr) dlclose(module_);
  }

  bool is_open() const { return module_ != nullptr; }
  const Interface& functions() const { return interface_; }

 private:
  void* module_;
  Interface interface_ = {};
};

// Not every system lets a library go.
void expect_library_gone() {
#ifdef __GLIBC__
  EXPECT_EQ(dlopen(MEASDATA_LIBRARY, RTLD_NOW | RTLD_NOLOAD), nullptr);
#endif
}

class Threads : public testing::Test {
 protected:
  Threads() {
    for (const SampleText& sample : samples_) {
      const std::string number = std::to_string(paths_.size());
      paths_.push_back(test::temporary_path(number + ".txt"));
      std::ofstream(paths_.back(), std::ios::binary) << sample.text;
    }
  }
  ~Threads() override {
    for (const std::string& path : paths_) std::filesystem::remove(path);
  }

  std::size_t count() const { return samples_.size(); }
  const char* path(std::size_t i) const { return paths_[i].c_str(); }

  // What a fresh handle tells about a sample.
  std::string tell(const Interface& library, std::size_t i, bool from_file) const {
    const SampleText& sample = samples_[i];
    void* handle = library.init_parser();
    library.set_parse_mode(handle, sample.mode);
    const int result = from_file ? library.parse_file(handle, paths_[i].c_str())
                                 : library.parse_mem(handle, sample.text.size(), sample.text.data(),
                                                     paths_[i].c_str());
    std::string told = std::to_string(result) + "\n" + test::answers(library, handle);
    library.cleanup_parser(&handle);
    return told;
  }
  std::vector<std::string> tell_all(const Interface& library) const {
    std::vector<std::string> all;
    for (std::size_t i = 0; i < count(); ++i) all.push_back(tell(library, i, false));
    return all;
  }

 private:
  const std::vector<SampleText> samples_ = test::sample_texts();
  std::vector<std::string> paths_;
};

// Runs `work`, which returns how many answers were wrong, with the number of each thread.
template <typename Work>
void expect_no_fault(std::size_t thread_count, Work work) {
  std::vector<int> faults(thread_count, -1);
  std::vector<std::thread> threads;
  for (std::size_t t = 0; t < thread_count; ++t) {
    threads.emplace_back([&faults, work, t] { faults[t] = work(t); });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(faults, std::vector<int>(thread_count, 0));
}

TEST_F(Threads, HandlesAreIndependent) {
  const Library library;
  ASSERT_TRUE(library.is_open()) << dlerror();
  const Interface& functions = library.functions();
  const std::vector<std::string> expected = tell_all(functions);
  expect_no_fault(8, [&](std::size_t thread) {
    int faults = 0;
    for (std::size_t k = 0; k < 5 * count(); ++k) {
      const std::size_t i = (k + thread) % count();
      faults += tell(functions, i, (k + thread) % 2 == 0) != expected[i];
    }
    return faults;
  });
}

// A load that a thread is cancelled in: it ends as ever, and the thread behind it.
struct CancelledLoad {
  const Interface* library;
  void* handle;
  const char* path;
  int result;

  static void* run(void* load) {
    auto* const self = static_cast<CancelledLoad*>(load);
    pthread_cancel(pthread_self());  // takes effect where the thread next waits for the system
    self->result = self->library->parse_file(self->handle, self->path);
    pthread_testcancel();
    return nullptr;
  }
};

TEST_F(Threads, ACancelledThreadEndsItsLoadFirst) {
  const Library library;
  ASSERT_TRUE(library.is_open()) << dlerror();
  CancelledLoad load = {&library.functions(), library.functions().init_parser(), path(0), -1};
  pthread_t thread = {};
  ASSERT_EQ(pthread_create(&thread, nullptr, &CancelledLoad::run, &load), 0);
  void* ended_with = nullptr;
  ASSERT_EQ(pthread_join(thread, &ended_with), 0);
  EXPECT_EQ(load.result, 1);
  EXPECT_EQ(ended_with, PTHREAD_CANCELED);
  library.functions().cleanup_parser(&load.handle);
}

TEST_F(Threads, TheLibraryComesAndGoes) {
  std::vector<std::string> expected;
  {
    const Library library;
    ASSERT_TRUE(library.is_open()) << dlerror();
    expected = tell_all(library.functions());
  }
  expect_library_gone();
  expect_no_fault(6, [&](std::size_t thread) {
    int faults = 0;
    for (std::size_t k = 0; k < 2 * count(); ++k) {
      const Library library;
      if (!library.is_open()) return 1000;
      const std::size_t i = (k + thread) % count();
      faults += tell(library.functions(), i, k % 2 == 0) != expected[i];
    }
    return faults;
  });
  expect_library_gone();
}

}  // namespace
