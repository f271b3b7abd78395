// SPDX-License-Identifier: Apache-2.0
#include "line/QtSerialControl.h"

namespace nira {

bool QtSerialControl::SystemHasInput() const {
  return true;
}

qint64 QtSerialControl::Queued() const {
  return port_.bytesToWrite();
}

}  // namespace nira
