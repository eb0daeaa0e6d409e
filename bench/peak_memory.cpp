#include "bench/peak_memory.h"

#ifdef __GLIBC__
#include <malloc.h>
#endif
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

namespace bench {

// The child begins with the memory of this process, without what is free in it.
double peak_bytes(const std::function<void()>& work) {
#ifdef __GLIBC__
  malloc_trim(0);
#endif
  const pid_t child = fork();
  if (child == 0) {
    work();
    _exit(0);
  }
  int status = 0;
  rusage usage = {};
  if (child < 0 || wait4(child, &status, 0, &usage) != child || status != 0) {
    std::fprintf(stderr, "the child process failed\n");
    std::exit(1);
  }
  return static_cast<double>(usage.ru_maxrss) * 1024.0;
}

}  // namespace bench
