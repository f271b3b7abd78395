// SPDX-License-Identifier: Apache-2.0
#include "line/PortErrors.h"

#include "line/PortHolder.h"

#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#endif

namespace nira {

namespace {

#ifdef Q_OS_UNIX
/// Opens the device once more to learn the system's error number, 0 when it opens.
int OpenErrno(const QString& device) {
  const int file = ::open(QFile::encodeName(device).constData(), O_RDWR | O_NOCTTY | O_NONBLOCK);
  if (file < 0) return errno;
  const bool terminal = ::isatty(file) == 1;
  ::close(file);
  return terminal ? 0 : ENOTTY;
}
#endif

}  // namespace

SerialError PortErrors::Error(int number, TextNumber what, const QString& device,
                              const QString& todo) const {
  return {number, texts_.Text(what) + device + u'\n' + todo};
}

SerialError PortErrors::Missing(const QString& device) const {
  return Error(NoSuchPort, TextNumber::CannotFindPort, device,
               texts_.Text(TextNumber::ConnectAdapter));
}

SerialError PortErrors::Forbidden(const QString& device) const {
  const QString group = QFileInfo(device).group();
  return Error(
      NoPermission, TextNumber::PortForbidden, device,
      texts_.Text(TextNumber::JoinGroup) + (group.isEmpty() ? QStringLiteral("dialout") : group));
}

SerialError PortErrors::Busy(const QString& device) const {
  return Error(InUse, TextNumber::PortInUse, device,
               texts_.Text(TextNumber::CloseOther) + PortHolder(device));
}

SerialError PortErrors::Failed(const QString& device, const QString& reason) const {
  return Error(InputOutput, TextNumber::PortFailed, device,
               texts_.Text(TextNumber::CheckCable) + u'\n' + reason);
}

SerialError PortErrors::NotTaken(const QString& device) const {
  return Error(InputOutput, TextNumber::NotTaken, device, texts_.Text(TextNumber::CheckCable));
}

SerialError PortErrors::Opening(const QString& device, QSerialPort::SerialPortError error,
                                const QString& reason) const {
  if (device.isEmpty()) return Missing(device);
  const bool denied = error == QSerialPort::PermissionError;
#ifdef Q_OS_UNIX
  switch (const int number = OpenErrno(device)) {
    case ENOENT:
    case ENXIO:
    case ENODEV:
    case ENOTDIR:
    case ENOTTY:  // a file or a folder, or a port that the machine does not have
    case EISDIR:
    case EIO:
      return Missing(device);
    case EACCES:
    case EPERM:
      return Forbidden(device);
    case EBUSY:
      return Busy(device);
    case 0:  // it opens: what refused is the lock of another program
      return denied ? Busy(device) : Failed(device, reason);
    default:
      return {number, reason + QStringLiteral(": ") + device};
  }
#else
  if (denied) return Busy(device);
  return error == QSerialPort::DeviceNotFoundError ? Missing(device) : Failed(device, reason);
#endif
}

}  // namespace nira
