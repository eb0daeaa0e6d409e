/** @file
 *  @brief Numbers, texts and ranges of measdata.hpp, which includes this file.
 */
#ifndef MEASDATA_VALUES_HPP
#define MEASDATA_VALUES_HPP

#include "../measdata.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#if __has_include(<version>)
#include <version>
#endif
#ifdef __cpp_lib_span
#include <span>
#endif

// Names such as (std::min) are in brackets because <windows.h> defines macros with these names.
namespace measdata {

#ifdef __cpp_lib_span
/** Numbers that lie one after another in memory: std::span, or a small class before C++20. */
template <class Element>
using span = std::span<Element>;
#else
template <class Element>
class span {
 public:
  using element_type = Element;
  using value_type = std::remove_cv_t<Element>;
  using iterator = Element*;

  constexpr span() noexcept = default;
  constexpr span(Element* data, std::size_t size) noexcept : data_(data), size_(size) {}

  constexpr Element* data() const noexcept { return data_; }
  constexpr std::size_t size() const noexcept { return size_; }
  constexpr bool empty() const noexcept { return size_ == 0; }
  constexpr Element* begin() const noexcept { return data_; }
  constexpr Element* end() const noexcept { return data_ + size_; }
  constexpr Element& operator[](std::size_t i) const noexcept { return data_[i]; }

 private:
  Element* data_ = nullptr;
  std::size_t size_ = 0;
};
#endif

using optional_text = std::optional<std::string_view>; /**< a text that a file may lack */
using lab_values = std::array<double, 3>;              /**< L*, a* and b* */
using xyz_values = std::array<double, 3>;              /**< X, Y and Z in the scale of the file */
using srgb_values = std::array<double, 3>; /**< red, green and blue of a display, 0 to 255 */

/** A text that ends with a zero byte, or null. Only arguments have this type. */
class zstring {
 public:
  zstring(const char* text) noexcept : text_(text) {}                 // NOLINT(*-explicit-*)
  zstring(const std::string& text) noexcept : text_(text.c_str()) {}  // NOLINT(*-explicit-*)
  const char* c_str() const noexcept { return text_; }

 private:
  const char* text_;
};

/** The device values of a patch, one for each channel, in the scale of the file. */
class device_values {
 public:
  static constexpr std::size_t max_size = 15; /**< no file has more channels */

  device_values(const std::array<double, max_size>& values, int size) noexcept
      : values_(values), size_((std::min)(static_cast<std::size_t>(size), max_size)) {}

  const double* data() const noexcept { return values_.data(); }
  std::size_t size() const noexcept { return size_; }
  const double* begin() const noexcept { return data(); }
  const double* end() const noexcept { return data() + size_; }
  double operator[](std::size_t channel) const noexcept { return values_[channel]; }

 private:
  std::array<double, max_size> values_;
  std::size_t size_;
};

/** The wavelengths of the spectra, in nm. */
struct wavelength_range {
  double start;     /**< the first wavelength */
  double end;       /**< the last wavelength */
  double step;      /**< the second wavelength minus the first, 0 for a single one */
  std::size_t size; /**< the number of wavelengths, and of values in each spectrum */
};

/** A value of a channel. */
struct distinct_value {
  double value; /**< in the scale of the file */
  int patches;  /**< the number of patches with this value */
};

/** An entry of the file header. */
struct keyword {
  std::string_view name;
  std::string_view value;
};

namespace detail {

inline optional_text text(const char* answer) noexcept {
  if (answer == nullptr) return std::nullopt;
  return answer;
}

inline std::string_view text_or_empty(const char* answer) noexcept {
  return text(answer).value_or("");
}

inline std::size_t count(int answer) noexcept {
  return answer < 0 ? 0 : static_cast<std::size_t>(answer);
}

/** No position is as large as the largest number. */
inline int position(std::size_t i) noexcept {
  constexpr int largest = (std::numeric_limits<int>::max)();
  return i < static_cast<std::size_t>(largest) ? static_cast<int>(i) : largest;
}

/** The numbers that `get` writes. Without data it leaves the array untouched, so that each of two
 *  different marks is still there. */
template <std::size_t Size, class Get>
std::optional<std::array<double, Size>> numbers(void* data, int position, Get get) noexcept {
  std::array<double, Size> values{};
  for (const double mark : {(std::numeric_limits<double>::max)(), 0.0}) {
    values[0] = mark;
    get(data, position, values.data());
    if (!(values[0] == mark)) return values;
  }
  return std::nullopt;
}

template <class Get>
std::optional<device_values> device(void* data, int position, Get get) noexcept {
  const auto values = numbers<device_values::max_size>(data, position, get);
  if (!values) return std::nullopt;
  return device_values(*values, ::num_device_channels(data));
}

inline std::optional<span<const double>> spectrum(void* data, const double* values) noexcept {
  if (values == nullptr) return std::nullopt;
  return span<const double>(values, count(::spectral_size(data)));
}

}  // namespace detail

/** Elements that are made when they are asked for: `Source` makes the i-th one. Its iterators have
 *  random access, return elements by value and outlive the range. */
template <class Source>
class range {
 public:
  using value_type = decltype(std::declval<const Source&>()(0));

  class iterator {
   public:
    using iterator_category = std::random_access_iterator_tag;
    using value_type = range::value_type;
    using difference_type = std::ptrdiff_t;
    using reference = value_type;
    /** Holds the element that `->` looks into. */
    struct pointer {
      value_type element;
      const value_type* operator->() const noexcept { return &element; }
    };

    iterator() noexcept = default;
    iterator(Source source, std::ptrdiff_t at) noexcept : source_(source), at_(at) {}

    reference operator*() const noexcept { return (*this)[0]; }
    pointer operator->() const noexcept { return {**this}; }
    reference operator[](std::ptrdiff_t i) const noexcept {
      return source_(detail::position(static_cast<std::size_t>(at_ + i)));
    }
    iterator& operator+=(std::ptrdiff_t i) noexcept { return at_ += i, *this; }
    iterator& operator-=(std::ptrdiff_t i) noexcept { return at_ -= i, *this; }
    iterator& operator++() noexcept { return *this += 1; }
    iterator& operator--() noexcept { return *this -= 1; }
    iterator operator++(int) noexcept { return {source_, at_++}; }  // NOLINT(cert-dcl21-cpp)
    iterator operator--(int) noexcept { return {source_, at_--}; }  // NOLINT(cert-dcl21-cpp)

    friend iterator operator+(iterator a, std::ptrdiff_t i) noexcept { return a += i; }
    friend iterator operator+(std::ptrdiff_t i, iterator a) noexcept { return a += i; }
    friend iterator operator-(iterator a, std::ptrdiff_t i) noexcept { return a -= i; }
    friend std::ptrdiff_t operator-(iterator a, iterator b) noexcept { return a.at_ - b.at_; }
    friend bool operator==(iterator a, iterator b) noexcept { return a.at_ == b.at_; }
    friend bool operator!=(iterator a, iterator b) noexcept { return a.at_ != b.at_; }
    friend bool operator<(iterator a, iterator b) noexcept { return a.at_ < b.at_; }
    friend bool operator>(iterator a, iterator b) noexcept { return a.at_ > b.at_; }
    friend bool operator<=(iterator a, iterator b) noexcept { return a.at_ <= b.at_; }
    friend bool operator>=(iterator a, iterator b) noexcept { return a.at_ >= b.at_; }

   private:
    Source source_{};
    std::ptrdiff_t at_ = 0;
  };
  using const_iterator = iterator;

  range(Source source, int size) noexcept : source_(source), size_(detail::count(size)) {}

  iterator begin() const noexcept { return {source_, 0}; }
  iterator end() const noexcept { return {source_, static_cast<std::ptrdiff_t>(size_)}; }
  std::size_t size() const noexcept { return size_; }
  bool empty() const noexcept { return size_ == 0; }
  value_type operator[](std::size_t i) const noexcept { return source_(detail::position(i)); }

 private:
  Source source_;
  std::size_t size_;
};

}  // namespace measdata

#ifdef __cpp_lib_ranges
/** So that algorithms of C++20 can return iterators into a range that no longer exists. */
template <class Source>
inline constexpr bool std::ranges::enable_borrowed_range<measdata::range<Source>> = true;
#endif

#endif  // MEASDATA_VALUES_HPP
