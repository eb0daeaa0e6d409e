// Where a test may write.
#ifndef MEASDATA_TESTS_ROBUSTNESS_TEMPORARY_PATH_H
#define MEASDATA_TESTS_ROBUSTNESS_TEMPORARY_PATH_H

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace test {

/// A path that no other process has: tests run side by side.
inline std::string temporary_path(const std::string& name) {
  static const std::string process = std::to_string(std::random_device()());
  return testing::TempDir() + "/measdata-" + process + "-" + name;
}

}  // namespace test

#endif  // MEASDATA_TESTS_ROBUSTNESS_TEMPORARY_PATH_H
