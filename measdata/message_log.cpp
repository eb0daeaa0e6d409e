#include "measdata/message_log.h"

namespace vantor::MeasData {

void MessageLog::reset(Warnings warnings) {
  text_.clear();
  warnings_ = warnings;
  no_errors_ = true;
  no_warnings_ = true;
}

void MessageLog::error(Pieces pieces) {
  append(pieces);
  no_errors_ = false;
}

void MessageLog::warning(Pieces pieces) {
  if (warnings_ == Warnings::write) append(pieces);
  no_warnings_ = false;
}

void MessageLog::note(Pieces pieces) { append(pieces); }

void MessageLog::grave(Pieces pieces) {
  append(pieces);
  no_errors_ = false;
  no_warnings_ = false;
}

void MessageLog::append(Pieces pieces) {
  for (const std::string_view piece : pieces) text_ += piece;
}

}  // namespace vantor::MeasData
