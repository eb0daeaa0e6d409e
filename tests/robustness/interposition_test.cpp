// A program that holds and exports functions with the names of all exports of both libraries.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <string>

namespace vantor::MeasData {
class MeasFileParser;
}

// What every one of them answers, whatever it is asked.
static const char* hostile_answer() { return "hostile"; }

#define MEASDATA_EXPORT(name) \
  extern "C" const char* name() { return hostile_answer(); }
#include "exports.inc"
MEASDATA_EXPORT(mk_html_of)
#undef MEASDATA_EXPORT

__attribute__((visibility("default"))) int parse(void*, vantor::MeasData::MeasFileParser*,
                                                 const char*) {
  return 0;
}

namespace {

// A function of a library, called with whatever it takes.
template <typename Result, typename... Arguments>
Result call(void* library, const char* name, Arguments... arguments) {
  void* const function = dlsym(library, name);
  EXPECT_NE(function, nullptr) << name;
  return reinterpret_cast<Result (*)(Arguments...)>(function)(arguments...);
}

TEST(Interposition, TheLibraryCallsItsOwnFunctions) {
  ASSERT_EQ(dlsym(RTLD_DEFAULT, "has_keyword"), reinterpret_cast<void*>(&has_keyword));
  void* const library = dlopen(MEASDATA_LIBRARY, RTLD_NOW | RTLD_LOCAL);
  ASSERT_NE(library, nullptr) << dlerror();
  void* handle = call<void*>(library, "init_parser");
  const std::string text =
      "CGATS.17\nSERIAL 12\nCOPYRIGHT c\nFILTER f\nFILTER_STATUS s\nINSTRUMENTATION \"M N\"\n"
      "ILLUMINATION_NAME D65\nBEGIN_DATA_FORMAT\nGRAY\nEND_DATA_FORMAT\nBEGIN_DATA\n1\nEND_DATA\n";
  ASSERT_EQ(call<int>(library, "parse_mem", handle, text.size(), text.data(), ""), 1);
  EXPECT_EQ(call<int>(library, "num_keywords", handle), 6);
  const struct {
    const char *function, *answer;
  } kAnswers[] = {{"copyright", "c"},
                  {"sample_serial_number", "12"},
                  {"device_filter", "f"},
                  {"device_manufacturer", "M"},
                  {"density_status", "s"},
                  {"illuminant", "D65"},
                  {"device_polarization", nullptr}};
  for (const auto& [function, answer] : kAnswers) {
    EXPECT_STREQ(call<const char*>(library, function, handle), answer) << function;
  }
  EXPECT_STREQ(call<const char*>(library, "get_value_of_keyword", handle, "SERIAL"), "12");
  call<void>(library, "cleanup_parser", &handle);
  EXPECT_EQ(dlclose(library), 0);
}

#ifdef MEASKIT_LIBRARY
TEST(Interposition, TheKitCallsItsOwnFunctions) {
  void* const library = dlopen(MEASKIT_LIBRARY, RTLD_NOW | RTLD_LOCAL);
  ASSERT_NE(library, nullptr) << dlerror();
  EXPECT_EQ(call<const char*>(library, "mk_html", static_cast<void*>(nullptr)), nullptr);
  EXPECT_EQ(dlclose(library), 0);
}
#endif

}  // namespace
