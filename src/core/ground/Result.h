// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

#include <optional>
#include <utility>
#include <variant>

namespace nira {

/// What went wrong with something that comes from outside or goes there: a file, a device, what
/// somebody typed. It is worded in one place for the windows and in one for kplctl.
struct Fault {
  enum class Kind {
    Missing,      ///< there is no such file
    CannotRead,   ///< `Text` is the system's reason, empty when what has this name is no file
    CannotWrite,  ///< the same
    NoMessages,   ///< there is no such message file
    BadLine,      ///< `Text` is the offending line, as far as it can be shown; empty: it cannot
    CutOff,       ///< the file ends before it is complete; `Text` is its last line
    WrongCams,    ///< a program of `Found` cams where `Expected` are
    WrongDevice,  ///< what came is of a programmer of `Text` cams
    OtherSizes,   ///< a program of `Found` sizes where `Expected` are
    InUse,        ///< another exchange works with the file
    TooLarge,     ///< more than the file may hold
    NoSize,       ///< the file has no size of this number
    Refused,      ///< `Text` says why in words
  };

  Kind What = Kind::Refused;
  QString Path = {};  ///< of the file, empty where there is none
  int Line = 0;       ///< from 1; 0 when the fault concerns the whole
  QString Text = {};
  int Found = 0;
  int Expected = 0;
};

/// Why something was not done; none when it was.
using Refusal = std::optional<Fault>;

/// A value, or the fault why there is none.
template <typename Value>
class [[nodiscard]] Result {
 public:
  Result(Value value) : content_(std::move(value)) {}
  Result(Fault fault) : content_(std::move(fault)) {}

  explicit operator bool() const { return content_.index() == 0; }
  Value& operator*() { return std::get<0>(content_); }
  const Value& operator*() const { return std::get<0>(content_); }
  Value* operator->() { return &std::get<0>(content_); }
  const Value* operator->() const { return &std::get<0>(content_); }

  /// Of a result without a value.
  const Fault& Why() const { return std::get<1>(content_); }

 private:
  std::variant<Value, Fault> content_;
};

}  // namespace nira
