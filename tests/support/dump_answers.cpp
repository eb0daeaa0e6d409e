// Writes everything that the library answers about some files, so that two builds can be compared.
//
// Call: dump_answers LIST OUTPUT. LIST names a file in UTF-8 on each line.
#include "api/measdata.h"
#include "tests/support/answers.h"

#include <fstream>
#include <string>

namespace {

std::string name_of(const std::string& path) { return path.substr(path.find_last_of('/') + 1); }

// A chart as a measurement file and as a semicolon table, on a handle of its own each.
void write(const std::string& path, std::ostream& output) {
  for (const int mode : {0, 1}) {
    void* handle = init_parser();
    set_parse_mode(handle, mode);
    output << "file " << name_of(path) << " mode " << mode << '\n';
    output << "parse_file: " << parse_file(handle, path.c_str()) << '\n';
    std::string answers;
    test::write_answers(test::linked_library(), handle, answers, test::kAllPositions);
    output << answers;
    cleanup_parser(&handle);
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  std::ifstream list(argv[1], std::ios::binary);
  std::ofstream output(argv[2], std::ios::binary);
  std::string path;
  while (std::getline(list, path)) write(path, output);
  return output.flush() ? 0 : 1;
}
