// SPDX-License-Identifier: Apache-2.0
#include "controls/ProgramStyle.h"

#include "controls/ThemedIcon.h"

#include <QApplication>
#include <QWidget>

namespace nira {

QIcon ProgramStyle::standardIcon(StandardPixmap picture, const QStyleOption* option,
                                 const QWidget* widget) const {
  if (picture == SP_ToolBarHorizontalExtensionButton) {
    return ThemedIcon(QStringLiteral("more"),
                      widget == nullptr ? QApplication::palette() : widget->palette());
  }
  return QProxyStyle::standardIcon(picture, option, widget);
}

}  // namespace nira
