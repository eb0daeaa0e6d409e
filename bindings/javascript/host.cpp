// What the module asks of the program around it where C++ has no answer of its own.
//
// The module is built without exceptions: browsers that run it need not know them, and Debian's
// libraries for WebAssembly have none. The libraries throw only where memory runs out. The program
// gets to know it through a function that must not return; it throws away the module's instance.
#include <cstddef>
#include <cstdlib>
#include <new>

extern "C"
    [[noreturn]] [[clang::import_module("measdata"), clang::import_name("out_of_memory")]] void
    out_of_memory();

namespace {

// The usual handler of a failed allocation ends the program.
[[maybe_unused]] const std::new_handler replaced = std::set_new_handler([] { out_of_memory(); });

}  // namespace

// Where code throws, a container was asked for more than it can hold.
extern "C" {

void* __cxa_allocate_exception(std::size_t) { out_of_memory(); }
void __cxa_throw(void*, void*, void (*)(void*)) { out_of_memory(); }

[[clang::export_name("allocate")]] void* allocate(std::size_t size) {
  void* const memory = std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr) out_of_memory();
  return memory;
}
[[clang::export_name("release")]] void release(void* memory) { std::free(memory); }
}
