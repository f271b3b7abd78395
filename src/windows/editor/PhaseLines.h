// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QListWidget>
#include <QStringList>

namespace nira {

/// The list of phases under mouse and keys.
class PhaseLines : public QListWidget {
  Q_OBJECT

 public:
  explicit PhaseLines(QWidget* parent);

  /// The list is about to be refilled by what a press on it caused: the press means the phase that
  /// is under the pointer now.
  void KeepPressed();

 Q_SIGNALS:
  /// Such a press selected its line, which may be the one that was selected already.
  void Meant();
  void MeantTwice();
  /// Enter, and a digit, which are for the boxes.
  void EnterPressed();
  void DigitTyped(const QString& digit);
  /// The menu of the cam is wanted there on the screen.
  void MenuWanted(const QPoint& place);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  /// The list as it stood under the pointer.
  struct Pressed {
    QStringList lines;
    int top = 0;     ///< of the first line in the viewport, pixels
    int height = 1;  ///< of a line, pixels
  };

  bool TakePress(const QPoint& place);

  Pressed pressed_;
  bool redirected_ = false;  // the last press went to another line
};

}  // namespace nira
