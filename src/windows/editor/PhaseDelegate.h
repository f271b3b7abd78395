// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QStyledItemDelegate>

namespace nira {

/// Paints a line of the phase list as it stands, and at its right for how long the phase is ON: in
/// degrees, and in milliseconds when there is a speed.
class PhaseDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  /// The roles of that length, texts.
  static constexpr int Length = Qt::UserRole;
  static constexpr int Time = Qt::UserRole + 1;

  /// The type in which both stand where there is a time.
  void SetSmallFont(const QFont& font) { small_ = font; }

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;

 private:
  QFont small_;
};

}  // namespace nira
