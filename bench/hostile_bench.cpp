// Measures the time and memory of loading hostile inputs at three sizes. Prints Markdown.
#include "bench/charts.h"
#include "bench/peak_memory.h"
#include "bench/report.h"
#include "kit/preflight/preflight.h"
#include "measdata.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <functional>
#include <limits>
#include <string>
#include <vector>

namespace {

using bench::format;

constexpr std::array<std::size_t, 3> kMegabytes = {1, 4, 16};
constexpr std::size_t kMegabyte = 1000000;
constexpr int kRepeats = 20000;
constexpr const char* kFields = "BEGIN_DATA_FORMAT\nSAMPLE_ID GRAY LAB_L LAB_A LAB_B\n";

// A text of about `size` bytes: parts by number between a head and a tail.
using Part = std::function<std::string(std::size_t)>;
std::string filled(std::size_t size, const std::string& head, const Part& part,
                   const std::string& tail) {
  std::string text = head;
  for (std::size_t i = 0; text.size() + tail.size() < size; ++i) text += part(i);
  text += tail;
  text.shrink_to_fit();
  return text;
}

std::string number(std::size_t value) { return std::to_string(value); }

std::string with_header(std::size_t size, const Part& line) {
  return filled(size, "CGATS.17\n", line,
                std::string(kFields) + "END_DATA_FORMAT\nBEGIN_DATA\n1 50 60 1 2\nEND_DATA\n");
}

std::string with_rows(std::size_t size, const std::string& fields, const Part& row) {
  return filled(size, "CGATS.17\nBEGIN_DATA_FORMAT\n" + fields + "\nEND_DATA_FORMAT\nBEGIN_DATA\n",
                row, "END_DATA\n");
}

std::uint64_t scatter(std::uint64_t value) { return value * 0x9E3779B97F4A7C15U >> 20U; }

// Names and one row of as many cells.
std::string wide(std::size_t size, const Part& name) {
  constexpr std::size_t kCell = 2;
  std::size_t names = 4;
  std::string text = "CGATS.17\nBEGIN_DATA_FORMAT\nGRAY LAB_L LAB_A LAB_B";
  for (std::size_t i = 0; text.size() + kCell * names < size; ++i, ++names) text += name(i);
  text += "\nEND_DATA_FORMAT\nBEGIN_DATA\n";
  for (std::size_t i = 0; i < names; ++i) text += "1 ";  // kCell characters
  return text + "\nEND_DATA\n";
}

struct Kind {
  const char* name;
  std::function<std::string(std::size_t)> make;
  int mode = 0;
};

std::vector<Kind> kinds() {
  // Rows of 15 channels, each the value of its number.
  const auto channels = [](std::size_t size, const Part& value) {
    std::string fields;
    for (int c = 1; c <= 15; ++c) fields += "15CLR_" + std::to_string(c) + " ";
    return with_rows(size, fields, [&value](std::size_t i) {
      std::string row;
      for (std::size_t c = 0; c < 15; ++c) row += value(i * 15 + c) + " ";
      return row + "\n";
    });
  };
  return {
      {"one endless line of tokens",
       [](std::size_t size) {
         return filled(
             size, "", [](std::size_t) { return "12.5 "; }, "");
       }},
      {"one endless number",
       [](std::size_t size) {
         return with_rows(size, "GRAY", [](std::size_t i) { return i == 0 ? "1" : "0"; }) + "\n";
       }},
      {"one open quote",
       [](std::size_t size) {
         return filled(
             size, "\"", [](std::size_t) { return "a\n"; }, "");
       }},
      {"empty lines",
       [](std::size_t size) {
         return filled(
             size, "", [](std::size_t) { return "\n"; }, "");
       }},
      {"different keywords",
       [](std::size_t size) {
         return with_header(size, [](std::size_t i) { return "K" + number(i) + " v\n"; });
       }},
      {"one keyword again and again",
       [](std::size_t size) { return with_header(size, [](std::size_t) { return "KEY v\n"; }); }},
      {"short keywords",
       [](std::size_t size) {
         return with_header(size, [](std::size_t i) {
           std::string name;
           for (; i != 0 || name.empty(); i /= 60) name += static_cast<char>('A' + i % 60);
           return name + " v\n";
         });
       }},
      {"a long INSTRUMENTATION",
       [](std::size_t size) {
         return with_header(size, [size](std::size_t i) {
           std::string line(i == 0 ? "INSTRUMENTATION \"" : "");
           for (int k = 0; k < 1000; ++k) line += "a ";
           return (i + 1) * line.size() + 1000 < size ? line : line + "\"\n";
         });
       }},
      {"DATA_FORMAT_IDENTIFIER lines",
       [](std::size_t size) {
         return with_header(
             size, [](std::size_t i) { return "DATA_FORMAT_IDENTIFIER F" + number(i) + "\n"; });
       }},
      {"WEIGHTING_FUNCTION lines",
       [](std::size_t size) {
         return with_header(size, [](std::size_t) { return "WEIGHTING_FUNCTION x\n"; });
       }},
      {"LGOMCCHANNEL01, 02, ...",
       [](std::size_t size) {
         return with_header(size, [](std::size_t i) {
           return "LGOMCCHANNEL" + std::string(i < 9 ? "0" : "") + number(i + 1) +
                  " \"InkName = A LabFullToneColor = 1 2 3\"\n";
         });
       }},
      {"different fields",
       [](std::size_t size) {
         return wide(size, [](std::size_t i) { return " F" + number(i) + "X"; });
       }},
      {"different fields, at random",
       [](std::size_t size) {
         return wide(size, [](std::size_t i) { return " " + number(scatter(i)) + "X"; });
       }},
      {"fields of one letter",
       [](std::size_t size) {
         return wide(size, [](std::size_t i) {
           return std::string(" ") + static_cast<char>('a' + scatter(i) % 26);
         });
       }},
      {"one field again and again",
       [](std::size_t size) { return wide(size, [](std::size_t) { return " DUP"; }); }},
      {"a spectral run",
       [](std::size_t size) {
         return wide(size, [](std::size_t i) { return " SPECTRAL_NM" + number(380 + i); });
       }},
      {"fields that each propose a prefix",
       [](std::size_t size) {
         return wide(size, [](std::size_t i) { return " p" + number(i) + "_400"; });
       }},
      {"prefixes within prefixes",
       [](std::size_t size) {
         const auto name = [](std::size_t i) {
           std::string nested(" ");
           for (std::size_t k = 0; k <= i % 400; ++k) nested += "a1";
           return nested + "a400";
         };
         return wide(size, name);
       }},
      {"rows of wrong width",
       [](std::size_t size) {
         return with_rows(size, "GRAY LAB_L LAB_A LAB_B", [](std::size_t) { return "1 2\n"; });
       }},
      {"rows of two widths in turn",
       [](std::size_t size) {
         return with_rows(size, "GRAY LAB_L LAB_A LAB_B",
                          [](std::size_t i) { return i % 2 == 0 ? "1 2\n" : "1 2 3\n"; });
       }},
      {"rows with quotes",
       [](std::size_t size) {
         return with_rows(size, "GRAY SAMPLE_NAME",
                          [](std::size_t i) { return number(i) + " \"a b\"\"\"\n"; });
       }},
      {"different patches, at random",
       [](std::size_t size) {
         return with_rows(size, "GRAY", [](std::size_t i) { return number(scatter(i)) + "\n"; });
       }},
      {"different patches, nearly equal",
       [](std::size_t size) {
         return with_rows(size, "GRAY",
                          [](std::size_t i) { return "50.00" + number(1000000 + i) + "\n"; });
       }},
      {"patches without a number",
       [](std::size_t size) {
         return with_rows(size, "GRAY", [](std::size_t) { return "nan\n"; });
       }},
      {"rows of one digit",
       [](std::size_t size) {
         return with_rows(size, "GRAY",
                          [](std::size_t i) { return number(scatter(i) % 10) + "\n"; });
       }},
      {"one patch again and again, without colour",
       [](std::size_t size) {
         return with_rows(size, "GRAY", [](std::size_t) { return "50\n"; });
       }},
      {"one patch again and again, with Lab",
       [](std::size_t size) {
         return with_rows(size, "GRAY LAB_L LAB_A LAB_B", [](std::size_t i) {
           return "50 " + number(scatter(i) % 1000) + " 1 2\n";
         });
       }},
      {"15 channels",
       [channels](std::size_t size) {
         return channels(size, [](std::size_t i) { return number(scatter(i) % 1000); });
       }},
      {"15 channels without a number",
       [channels](std::size_t size) { return channels(size, [](std::size_t) { return "nan"; }); }},
      {"15 channels below 0",
       [channels](std::size_t size) {
         return channels(size, [](std::size_t i) { return "-" + number(scatter(i) % 1000); });
       }},
      {"semicolons alone",
       [](std::size_t size) {
         return filled(
             size, "A;B\n", [](std::size_t) { return ";;;;;;;;\n"; }, "");
       },
       1},
      {"a semicolon table of one line",
       [](std::size_t size) {
         return filled(
             size, "", [](std::size_t) { return "A;"; }, "");
       },
       1},
  };
}

enum class Statistics { leave, ask };

void load_and_ask(const std::string& text, int mode, Statistics statistics = Statistics::leave) {
  void* handle = init_parser();
  set_parse_mode(handle, mode);
  parse_mem(handle, text.size(), text.data(), "bench");
  illuminant(handle);
  observer(handle);
  for (int channel = 0; channel < num_device_channels(handle); ++channel) {
    get_device_channel_name(handle, channel);
  }
  DeStats stats = {};
  if (statistics == Statistics::ask) get_de_stats_from_index(handle, 0, &stats);
  cleanup_parser(&handle);
}

using Work = std::function<void(const std::string& text, int mode)>;

// Processor time.
double milliseconds(const std::string& text, int mode, const Work& work) {
  const std::clock_t start = std::clock();
  work(text, mode);
  return static_cast<double>(std::clock() - start) * 1e3 / CLOCKS_PER_SEC;
}

// The least of five times for each text. The texts take turns, so that what else runs on the
// machine disturbs all of them alike.
std::vector<double> least_milliseconds(const std::vector<std::string>& texts, int mode,
                                       const Work& work) {
  std::vector<double> least(texts.size(), std::numeric_limits<double>::infinity());
  for (int round = 0; round < 5; ++round) {
    for (std::size_t i = 0; i < texts.size(); ++i) {
      least[i] = std::min(least[i], milliseconds(texts[i], mode, work));
    }
  }
  return least;
}

// A line for each kind whose name contains `wanted`.
void print_kinds(const char* title, const std::string& wanted, const Work& work) {
  std::vector<std::vector<std::string>> table = {
      {title, "1 MB", "4 MB", "16 MB", "16 MB / 4 MB", "peak memory, bytes per byte"}};
  for (const Kind& kind : kinds()) {
    if (std::string(kind.name).find(wanted) == std::string::npos) continue;
    const double size = static_cast<double>(kMegabytes.back() * kMegabyte);
    std::vector<std::string> texts(kMegabytes.size());
    texts.back() = kind.make(kMegabytes.back() * kMegabyte);
    const double peak = bench::peak_bytes([&] { work(texts.back(), kind.mode); });
    for (std::size_t i = 0; i + 1 < texts.size(); ++i) {
      texts[i] = kind.make(kMegabytes[i] * kMegabyte);
    }
    const std::vector<double> times = least_milliseconds(texts, kind.mode, work);
    table.push_back({kind.name, format("%.1f ms", times[0]), format("%.1f ms", times[1]),
                     format("%.1f ms", times[2]), format("%.1f", times[2] / times[1]),
                     format("%.1f", peak / size)});
  }
  bench::print_table(table);
}

// Keywords stay from load to load, so later loads find more of them.
void print_loads_of_one_handle() {
  const std::string text = with_header(500, [](std::size_t i) { return "K" + number(i) + " v\n"; });
  std::vector<std::vector<std::string>> table = {{"loads of one handle", "time", "a load"}};
  for (const int loads : {7500, 15000, 30000}) {
    void* handle = init_parser();
    const std::clock_t start = std::clock();
    for (int i = 0; i < loads; ++i) parse_mem(handle, text.size(), text.data(), "bench");
    const double time = static_cast<double>(std::clock() - start) * 1e3 / CLOCKS_PER_SEC;
    cleanup_parser(&handle);
    table.push_back(
        {std::to_string(loads), format("%.0f ms", time), format("%.1f us", time / loads * 1e3)});
  }
  std::printf("\n");
  bench::print_table(table);
}

}  // namespace

// All kinds, or those whose names contain the argument.
int main(int argc, char** argv) {
  const std::string wanted = argc > 1 ? argv[1] : "";
  const Work load = [](const std::string& text, int mode) { load_and_ask(text, mode); };
  print_kinds("load", wanted, load);
  std::printf("\n");
  print_kinds("preflight and load", wanted,
              [](const std::string& text, int) { measkit::preflight(text, "bench"); });
  if (!wanted.empty()) return 0;
  // The statistics compare all pairs: the one question whose time grows with the square.
  constexpr double kPairs = 0.5 * kRepeats * (kRepeats - 1);
  const std::string repeats = bench::single_patch_chart(kRepeats);
  const Work ask = [](const std::string& text, int mode) {
    load_and_ask(text, mode, Statistics::ask);
  };
  const double time =
      least_milliseconds({repeats}, 0, ask)[0] - least_milliseconds({repeats}, 0, load)[0];
  std::printf("\n%d measurements of one patch: %.0f ms, %.0f million pairs per second.\n", kRepeats,
              time, kPairs / time / 1e3);
  print_loads_of_one_handle();
  return 0;
}
