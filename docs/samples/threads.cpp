// Loads several files at the same time, with one handle for each thread.
#include <cstddef>
#include <cstdio>
#include <measdata.hpp>
#include <thread>
#include <vector>

int main(int argc, char** argv) {
  const std::vector<const char*> paths(argv + 1, argv + argc);
  // [threads]
  std::vector<std::size_t> patches(paths.size());
  std::vector<std::thread> threads;
  for (std::size_t i = 0; i < paths.size(); ++i) {
    threads.emplace_back([path = paths[i], &count = patches[i]] {
      if (const auto chart = measdata::chart::try_load(path)) count = chart->patches().size();
    });
  }
  for (std::thread& thread : threads) thread.join();
  // [threads]
  for (std::size_t i = 0; i < paths.size(); ++i) std::printf("%s: %zu\n", paths[i], patches[i]);
}
