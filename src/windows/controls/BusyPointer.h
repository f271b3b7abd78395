// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QApplication>

namespace nira {

/// The busy pointer for as long as this stands, whichever way out.
class BusyPointer {
 public:
  BusyPointer() { QApplication::setOverrideCursor(Qt::WaitCursor); }
  ~BusyPointer() { QApplication::restoreOverrideCursor(); }
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;
};

/// The plain pointer where the busy one is shown, for as long as this stands: while a box is open.
class PlainPointer {
 public:
  PlainPointer() : shown_(QApplication::overrideCursor() != nullptr) {
    if (shown_) QApplication::setOverrideCursor(Qt::ArrowCursor);
  }
  ~PlainPointer() {
    if (shown_) QApplication::restoreOverrideCursor();
  }
  PlainPointer(const PlainPointer&) = delete;
  PlainPointer& operator=(const PlainPointer&) = delete;

 private:
  bool shown_;
};

}  // namespace nira
