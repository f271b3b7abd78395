// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "messages/MessageTexts.h"

#include <QFrame>
#include <QLabel>

namespace nira {

/// One row of the programmer's display: 20 cells of one character each, light on dark in every
/// theme. Its text is the row's text.
class DisplayRow : public QLabel {
  Q_OBJECT

 public:
  /// `pixels` is the height of the characters.
  DisplayRow(const char* name, int pixels, QWidget* parent = nullptr);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QSize Cell() const;
};

/// Two rows in the frame of the display.
class DisplayFrame : public QFrame {
  Q_OBJECT

 public:
  DisplayFrame(DisplayRow* upper, DisplayRow* lower);

  void Show(const MessageDisplay& rows);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  DisplayRow* upper_;
  DisplayRow* lower_;
};

}  // namespace nira
