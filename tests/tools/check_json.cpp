// Reads JSON from standard input and checks what measinfo --json must hold. Usage: check_json
// FILES, the number of files that the report is about.
#include <iostream>
#include <nlohmann/json.hpp>
#include <string>

int main(int argc, char** argv) {
  const nlohmann::json report = nlohmann::json::parse(std::cin, nullptr, false);
  if (report.is_discarded()) return std::cerr << "not valid JSON in UTF-8\n", 1;
  if (argc != 2 || report.size() != std::stoul(argv[1])) return std::cerr << "wrong count\n", 1;
  const nlohmann::json& chart = report[0];
  const nlohmann::json& paper = chart["merged_patches"][chart["paper_white"].get<std::size_t>()];
  const bool is_right = chart["patches"].size() == 310 && chart["channels"][3]["name"] == "Black" &&
                        chart["patches"][0]["spectrum"].size() == 36 &&
                        paper["repeats"]["count"] == 8 && chart["instrument"]["observer"] == "2" &&
                        report[1]["keywords"][0]["value"] == "2\u00B0 \x1B" &&
                        report[2]["loaded"] == false;
  if (!is_right) std::cerr << "wrong content\n" << chart["instrument"] << report[1]["keywords"];
  return is_right ? 0 : 1;
}
