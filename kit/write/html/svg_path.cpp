#include "kit/write/html/svg_path.h"

#include <cmath>

namespace measkit::html {
namespace {

long tenths_of(double value) { return std::lround(value * 10.0); }

void append_tenths(std::string& out, long tenths) {
  if (tenths < 0) out += '-';
  const long size = std::labs(tenths);
  if (size >= 10 || size == 0) out += std::to_string(size / 10);
  if (size % 10 != 0) {
    out += '.';
    out += static_cast<char>('0' + size % 10);
  }
}

}  // namespace

std::string coordinate(double value) {
  std::string text;
  append_tenths(text, tenths_of(value));
  return text;
}

void SvgPath::append(long steps) {
  if (steps_ == Steps::whole) {
    data_ += std::to_string(steps);
  } else {
    append_tenths(data_, steps);
  }
}

void SvgPath::add(double x, double y) {
  const bool is_whole = steps_ == Steps::whole;
  const long new_x = is_whole ? std::lround(x) : tenths_of(x);
  const long new_y = is_whole ? std::lround(y) : tenths_of(y);
  // Coordinates after an m are relative; those of the first m start at 0, 0.
  data_ += is_down_ ? ' ' : 'm';
  append(new_x - x_);
  if (new_y >= y_) data_ += ' ';
  append(new_y - y_);
  x_ = new_x;
  y_ = new_y;
  is_down_ = true;
}

}  // namespace measkit::html
