// SPDX-License-Identifier: Apache-2.0
#include "controls/ProgramStyle.h"

#include "controls/CamBar.h"
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

int ProgramStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                            QStyleHintReturn* more) const {
  constexpr int tipDelay = 300;  // ms
  const bool bar = hint == SH_ToolTip_WakeUpDelay && qobject_cast<const CamBar*>(widget) != nullptr;
  return bar ? tipDelay : QProxyStyle::styleHint(hint, option, widget, more);
}

}  // namespace nira
