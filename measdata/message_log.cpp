#include "measdata/message_log.h"

#include <algorithm>
#include <functional>

namespace vantor::MeasData {
namespace {

// What a record holds of an argument, in the lowest bits of its first number.
enum Kind : unsigned {
  number = 0,      // the rest is the number
  text_in_source,  // the rest is the length; the position follows
  text_in_record,  // the rest is the length; the bytes follow
};
constexpr unsigned kKindBits = 2;
constexpr unsigned kKindMask = (1U << kKindBits) - 1;

constexpr char kPlaceholder = '%';

// Bytes.
constexpr std::size_t kFullBlock = 1U << 16U;
constexpr std::size_t kUsualRecord = 64;

bool is_inside(std::string_view source, std::string_view text) {
  const std::less<> is_before;
  return !text.empty() && !is_before(text.data(), source.data()) &&
         is_before(text.data(), source.data() + source.size());
}

// Seven bits a byte, the lowest first; the top bit says that more follow.
std::uint64_t take_number(const unsigned char*& next) {
  std::uint64_t value = 0;
  for (unsigned shift = 0;; shift += 7) {
    const unsigned char byte = *next++;
    value |= static_cast<std::uint64_t>(byte & 0x7FU) << shift;
    if (byte < 0x80U) return value;
  }
}

}  // namespace

void MessageLog::reset(Warnings warnings, std::string_view source) {
  *this = MessageLog();
  warnings_ = warnings;
  source_ = source;
}

void MessageLog::error(const char* format, Arguments arguments) {
  append(format, arguments);
  no_errors_ = false;
}

void MessageLog::warning(const char* format, Arguments arguments) {
  if (warnings_ == Warnings::write) append(format, arguments);
  no_warnings_ = false;
}

void MessageLog::note(const char* format, Arguments arguments) { append(format, arguments); }

void MessageLog::grave(const char* format, Arguments arguments) {
  append(format, arguments);
  no_errors_ = false;
  no_warnings_ = false;
}

void MessageLog::append(const char* format, Arguments arguments) {
  if (blocks_.empty() || blocks_.back().size() >= kFullBlock) {
    const bool is_first = blocks_.empty();  // most logs are short
    blocks_.emplace_back().reserve(is_first ? 0 : kFullBlock + kUsualRecord);
  }
  const auto known = std::ranges::find(formats_, format);
  append_number(static_cast<std::uint64_t>(known - formats_.begin()));
  if (known == formats_.end()) formats_.push_back(format);
  for (const Argument& argument : arguments) append_argument(argument);
}

void MessageLog::append_argument(const Argument& argument) {
  const std::string_view text = argument.text;
  const std::uint64_t length = std::uint64_t{text.size()} << kKindBits;
  if (argument.is_number) {
    append_number(std::uint64_t{argument.number} << kKindBits | Kind::number);
  } else if (is_inside(source_, text)) {
    append_number(length | Kind::text_in_source);
    append_number(static_cast<std::uint64_t>(text.data() - source_.data()));
  } else {
    append_number(length | Kind::text_in_record);
    blocks_.back().insert(blocks_.back().end(), text.begin(), text.end());
  }
}

void MessageLog::append_number(std::uint64_t number) {
  std::vector<unsigned char>& record = blocks_.back();
  for (; number >= 0x80U; number >>= 7U) {
    record.push_back(static_cast<unsigned char>(number | 0x80U));
  }
  record.push_back(static_cast<unsigned char>(number));
}

// Calls `take` with the pieces of the text, in order.
template <typename Take>
void MessageLog::for_each_piece(Take take) const {
  for (const std::vector<unsigned char>& block : blocks_) for_each_piece_of(block, take);
}

template <typename Take>
void MessageLog::for_each_piece_of(std::span<const unsigned char> block, Take& take) const {
  const unsigned char* next = block.data();
  const unsigned char* const end = next + block.size();
  while (next != end) {
    std::string_view rest = formats_[static_cast<std::size_t>(take_number(next))];
    for (std::size_t at = rest.find(kPlaceholder); at != std::string_view::npos;
         at = rest.find(kPlaceholder)) {
      take(rest.substr(0, at));
      rest.remove_prefix(at + 1);
      const std::uint64_t first = take_number(next);
      const auto value = static_cast<std::size_t>(first >> kKindBits);
      switch (first & kKindMask) {
        case Kind::number:
          take(std::to_string(value));
          break;
        case Kind::text_in_source:
          take(source_.substr(static_cast<std::size_t>(take_number(next)), value));
          break;
        default:
          take(std::string_view(reinterpret_cast<const char*>(next), value));
          next += value;
      }
    }
    take(rest);
  }
}

std::string MessageLog::text() const {
  std::size_t size = 0;
  for_each_piece([&size](std::string_view piece) { size += piece.size(); });
  std::string text;
  text.reserve(size);
  for_each_piece([&text](std::string_view piece) { text += piece; });
  return text;
}

}  // namespace vantor::MeasData
