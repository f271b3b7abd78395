// SPDX-License-Identifier: Apache-2.0
#include "controls/ProgramStyle.h"

#include "controls/CamBar.h"
#include "controls/Shades.h"
#include "controls/ThemedIcon.h"

#include <QApplication>
#include <QPainter>
#include <QStyleOption>
#include <QWidget>

namespace nira {

namespace {

void DrawArrow(const QStyleOption& option, bool left, QPainter& painter) {
  const QPointF middle = QRectF(option.rect).center();
  const double side = std::min(option.rect.width(), option.rect.height()) / 4.0;
  const double tip = left ? -side / 2 : side / 2;
  const QPolygonF arrow(
      {middle + QPointF(tip, 0), middle + QPointF(-tip, -side), middle + QPointF(-tip, side)});
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(option.palette.windowText());
  painter.drawPolygon(arrow);
  painter.restore();
}

}  // namespace

void ProgramStyle::polish(QPalette& palette) {
  QProxyStyle::polish(palette);
  MakeReadable(palette);
}

QIcon ProgramStyle::standardIcon(StandardPixmap picture, const QStyleOption* option,
                                 const QWidget* widget) const {
  if (picture == SP_ToolBarHorizontalExtensionButton) {
    return ThemedIcon(QStringLiteral("more"),
                      widget == nullptr ? QApplication::palette() : widget->palette());
  }
  return QProxyStyle::standardIcon(picture, option, widget);
}

void ProgramStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                 QPainter* painter, const QWidget* widget) const {
  if (element == PE_IndicatorArrowLeft || element == PE_IndicatorArrowRight) {
    return DrawArrow(*option, element == PE_IndicatorArrowLeft, *painter);
  }
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  const bool radio = element == PE_IndicatorRadioButton;
  const bool box = element == PE_IndicatorCheckBox ||
                   (element == PE_FrameLineEdit && !option->state.testFlag(State_HasFocus));
  if (!radio && !box) return;
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(Outline(option->palette));
  painter->setBrush(Qt::NoBrush);
  const QRectF frame = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
  radio ? painter->drawEllipse(frame) : painter->drawRoundedRect(frame, 2, 2);
  painter->restore();
}

int ProgramStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                            QStyleHintReturn* more) const {
  constexpr int tipDelay = 300;  // ms
  const bool bar = hint == SH_ToolTip_WakeUpDelay && qobject_cast<const CamBar*>(widget) != nullptr;
  return bar ? tipDelay : QProxyStyle::styleHint(hint, option, widget, more);
}

}  // namespace nira
