// SPDX-License-Identifier: Apache-2.0
#include "line/QtSerialControl.h"

#include <sys/ioctl.h>

namespace nira {

bool QtSerialControl::SystemHasInput() const {
  int waiting = 0;
  return ::ioctl(port_.handle(), FIONREAD, &waiting) != 0 || waiting > 0;
}

qint64 QtSerialControl::Queued() const {
  qint64 queued = port_.bytesToWrite();
  int inSystem = 0;
  if (::ioctl(port_.handle(), TIOCOUTQ, &inSystem) == 0) queued += inSystem;
  return queued;
}

}  // namespace nira
