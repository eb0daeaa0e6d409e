// Names with the number of times they were met.
#ifndef MEASDATA_KIT_CXF_COUNTED_NAMES_H
#define MEASDATA_KIT_CXF_COUNTED_NAMES_H

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace measkit::cxf {

/// "1 object" or "2 objects".
inline std::string counted(std::size_t count, std::string_view one) {
  return std::to_string(count).append(" ").append(one).append(count == 1 ? "" : "s");
}

/// The first few names; others are counted together.
class CountedNames {
 public:
  void add(std::string_view name, std::size_t offset) {
    if (total_++ == 0) offset_ = offset;
    const auto found = std::find_if(names_.begin(), names_.end(),
                                    [name](const Counted& one) { return one.name == name; });
    if (found != names_.end()) {
      ++found->count;
    } else if (names_.size() < kMostNames) {
      names_.push_back({std::string(name), 1});
    } else {
      ++others_;
    }
  }
  bool empty() const { return total_ == 0; }
  std::size_t first_offset() const { return offset_; }
  /// Such as "3 ColorHSL, 1 Comment".
  std::string list() const {
    std::string text;
    for (const Counted& one : names_) {
      text.append(text.empty() ? "" : ", ").append(std::to_string(one.count)) += ' ';
      text += one.name;
    }
    if (others_ != 0) text += " and " + std::to_string(others_) + " more";
    return text;
  }

 private:
  static constexpr std::size_t kMostNames = 12;
  struct Counted {
    std::string name;
    std::size_t count;
  };
  std::vector<Counted> names_;
  std::size_t total_ = 0, others_ = 0, offset_ = 0;
};

}  // namespace measkit::cxf

#endif  // MEASDATA_KIT_CXF_COUNTED_NAMES_H
