// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "files/MessageTable.h"

#include <QWidget>

class QLabel;
class QLineEdit;
class QListWidget;
class QTextBrowser;

namespace nira {

/// The operator's manual beside the work: its headings at the left, and a box that finds words.
class Manual : public QWidget {
  Q_OBJECT

 public:
  /// Opens the manual of a window, which is made the first time, or brings it to the front.
  static void Open(QWidget* window, const MessageTable& texts);

  /// Also after another language was chosen.
  void ShowTexts();

 private:
  Manual(const MessageTable& texts, QWidget* window);

  void BuildControls();
  void BuildLayout();
  void Typeset();
  void ListHeadings();
  void GoTo(int row);
  void Find();

  const MessageTable& texts_;
  QLineEdit* find_;
  QLabel* found_;
  QListWidget* headings_;
  QTextBrowser* page_;
};

}  // namespace nira
