// SPDX-License-Identifier: Apache-2.0
#include "dialogs/About.h"

namespace nira {

QStringList About::SystemTools() {
  return {QStringLiteral("kinfocenter"),
          QStringLiteral("hardinfo2"),
          QStringLiteral("hardinfo"),
          QStringLiteral("gnome-system-monitor"),
          QStringLiteral("mate-system-monitor"),
          QStringLiteral("plasma-systemmonitor"),
          QStringLiteral("xfce4-taskmanager")};
}

}  // namespace nira
