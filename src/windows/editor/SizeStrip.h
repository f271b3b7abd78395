// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "files/MessageTable.h"
#include "model/SizeUse.h"

#include <QWidget>

namespace nira {

/// All sizes of the model in a row, a cell each: which are in use, which one is selected, and under
/// a small triangle the one that the programmer puts in use. Cells stand flush with the bars while
/// there is room for their numbers, otherwise they take all the room that the caption leaves; where
/// that is not enough the numbers stand above.
class SizeStrip : public QWidget {
  Q_OBJECT

 public:
  SizeStrip(const MessageTable& texts, const QWidget* bars, QWidget* parent);

  /// Takes over what it shows, also the texts.
  void ShowSizes(const CamProgram& program);

  /// Sizes with a phase.
  int Used() const { return use_.Used(); }

  /// Pixels of its type.
  void Rescale(int pixels);

  /// Where the cell of a size (from 1) stands.
  QRect Cell(int size) const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 Q_SIGNALS:
  /// A size (from 1), by a click or by Left and Right.
  void Chosen(int size);

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QString Caption() const;
  QString Tip(int size) const;
  int SizeAt(const QPoint& place) const;
  int NumbersWidth() const;
  int Left() const;
  int Room() const;
  bool Numbered() const;
  void PaintCell(QPainter& painter, int size) const;
  void PaintNumbersAbove(QPainter& painter) const;
  void PaintOutput(QPainter& painter) const;

  const MessageTable& texts_;
  const QWidget* bars_;
  SizeUse use_;
  int numSizes_ = 1;
  int numberWidth_ = 0;  // of two digits, pixels
  int current_ = 1;
  int output_ = 0;
};

}  // namespace nira
