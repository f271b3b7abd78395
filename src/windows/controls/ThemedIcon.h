// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QIcon>
#include <QPalette>
#include <QString>

namespace nira {

/// A picture of ours (its names: `PaintPicture`) with its lines in the palette's text colour, so
/// that it reads on light and dark themes.
QIcon ThemedIcon(const QString& name, const QPalette& palette);

}  // namespace nira
