// What a page can show. Files may hold far more.
#ifndef MEASDATA_KIT_WRITE_HTML_LIMITS_H
#define MEASDATA_KIT_WRITE_HTML_LIMITS_H

#include <cstddef>

namespace measkit::html {

inline constexpr std::size_t kMostPatches = 10'000;
inline constexpr std::size_t kMostKeywords = 500;
inline constexpr std::size_t kMostMessages = 20;
inline constexpr std::size_t kMostFindings = 100;
inline constexpr std::size_t kMostColumnNames = 40;
inline constexpr std::size_t kMostDensities = 8;
inline constexpr std::size_t kMostWedgeSteps = 300;
inline constexpr std::size_t kMostRepeats = 10;

// Characters of a text.
inline constexpr std::size_t kShortName = 12;
inline constexpr std::size_t kLongName = 60;
inline constexpr std::size_t kSourceWords = 160;
inline constexpr std::size_t kLongValue = 1000;

}  // namespace measkit::html

#endif  // MEASDATA_KIT_WRITE_HTML_LIMITS_H
