// SPDX-License-Identifier: Apache-2.0
#include "line/PortAccess.h"

namespace nira {

QString PortHolder(const QString& /*device*/, qint64 /*except*/) {
  return {};
}

QString LeftLock(const QString& /*device*/) {
  return {};
}

QString GroupToJoin(const QString& /*device*/) {
  return {};
}

}  // namespace nira
