// Loads several files at the same time, with one handle for each thread.
#include <measdata.h>

#include <cstddef>
#include <cstdio>
#include <thread>
#include <vector>

int main(int argc, char** argv) {
  const std::vector<const char*> paths(argv + 1, argv + argc);
  // [threads]
  std::vector<int> patches(paths.size());
  std::vector<std::thread> threads;
  for (std::size_t i = 0; i < paths.size(); ++i) {
    threads.emplace_back([path = paths[i], &count = patches[i]] {
      void* parser = init_parser();
      if (parse_file(parser, path) == 1) count = num_patches(parser);
      cleanup_parser(&parser);
    });
  }
  for (std::thread& thread : threads) thread.join();
  // [threads]
  for (std::size_t i = 0; i < paths.size(); ++i) std::printf("%s: %d\n", paths[i], patches[i]);
}
