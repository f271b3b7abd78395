// SPDX-License-Identifier: Apache-2.0
#include "files/TextNumbers.h"
#include "line/PortErrors.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace nira {

namespace {

/// Opens the device once more to learn the system's error number, 0 when it opens.
int OpenErrno(const QString& device) {
  const int file = ::open(QFile::encodeName(device).constData(), O_RDWR | O_NOCTTY | O_NONBLOCK);
  if (file < 0) return errno;
  const bool terminal = ::isatty(file) == 1;
  ::close(file);
  return terminal ? 0 : ENOTTY;
}

}  // namespace

SerialError PortErrors::Opening(const QString& device, const QString& sought,
                                QSerialPort::SerialPortError error, const QString& reason) const {
  if (device.isEmpty()) return Missing(sought);
  const bool denied = error == QSerialPort::PermissionError;
  switch (const int number = OpenErrno(device)) {
    case ENOENT:
    case ENXIO:
    case ENODEV:
    case ENOTDIR:
    case ENOTTY:  // a file or a folder, or a port that the machine does not have
    case EISDIR:
    case EIO:
      return Missing(sought);
    case EACCES:
    case EPERM:
      return Forbidden(device);
    case EBUSY:
      return Busy(device);
    case 0:  // it opens: what refused is the lock of another program
      return denied ? Busy(device) : Failed(device, reason);
    default:
      return Error(number, TextNumber::PortFailed, device, reason);
  }
}

}  // namespace nira
