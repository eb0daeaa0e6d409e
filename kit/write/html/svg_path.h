// The outline of a line in SVG, short to write: relative steps with few digits.
#ifndef MEASDATA_KIT_WRITE_HTML_SVG_PATH_H
#define MEASDATA_KIT_WRITE_HTML_SVG_PATH_H

#include <string>

namespace measkit::html {

/// A coordinate in tenths of a unit.
std::string coordinate(double value);

class SvgPath {
 public:
  enum class Steps { tenths, whole };  ///< of a unit
  explicit SvgPath(Steps steps = Steps::tenths) : steps_(steps) {}

  /// Draws on to a point.
  void add(double x, double y);
  /// Makes the next point begin a line of its own.
  void lift() { is_down_ = false; }
  /// The value of the attribute d.
  const std::string& data() const { return data_; }

 private:
  void append(long steps);

  Steps steps_;
  std::string data_;
  long x_ = 0, y_ = 0;  // where the pen is, in steps
  bool is_down_ = false;
};

}  // namespace measkit::html

#endif  // MEASDATA_KIT_WRITE_HTML_SVG_PATH_H
