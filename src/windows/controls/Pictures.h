// SPDX-License-Identifier: Apache-2.0
#pragma once

class QColor;
class QPainter;
class QRectF;
class QString;

namespace nira {

/// Paints a picture of ours into a square place: "new", "open", "save", "size", "erase", "cam",
/// "transmit", "receive" and "more" in one line weight and the given colour, "nira-kpl" in colours
/// of its own. Nothing for another name.
void PaintPicture(QPainter& painter, const QString& name, const QRectF& place, const QColor& lines);

}  // namespace nira
