// Copies that cost nothing until one of them changes.
#ifndef MEASDATA_BASE_COPY_ON_WRITE_H
#define MEASDATA_BASE_COPY_ON_WRITE_H

#include <memory>

namespace vantor::Base {

/// Holds a value; copies share it until one of them is edited.
template <typename Value>
class CopyOnWrite {
 public:
  const Value& get() const { return shared_ == nullptr ? nothing() : *shared_; }
  Value& edit() {
    if (shared_ == nullptr) {
      shared_ = std::make_shared<Value>();
    } else if (shared_.use_count() != 1) {
      shared_ = std::make_shared<Value>(*shared_);
    }
    return *shared_;
  }

 private:
  static const Value& nothing() {
    static const Value value;
    return value;
  }

  std::shared_ptr<Value> shared_;  // null: an empty value
};

}  // namespace vantor::Base

#endif  // MEASDATA_BASE_COPY_ON_WRITE_H
