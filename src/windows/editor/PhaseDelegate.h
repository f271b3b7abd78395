// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QStyledItemDelegate>

namespace nira {

/// Paints a line of the phase list as it stands, and at its right for how long the phase is ON.
class PhaseDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  /// The role of that length, a text.
  static constexpr int Length = Qt::UserRole;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
};

}  // namespace nira
