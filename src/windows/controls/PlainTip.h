// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <QTextDocument>

namespace nira {

/// A tooltip that shows `text` as it stands, whatever a script or a file put into it.
inline QString PlainTip(const QString& text) {
  if (!Qt::mightBeRichText(text)) return text;
  return QStringLiteral("<p>") + text.toHtmlEscaped() + QStringLiteral("</p>");
}

}  // namespace nira
