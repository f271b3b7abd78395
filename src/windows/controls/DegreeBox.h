// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLineEdit>

#include <functional>

namespace nira {

/// A text box whose characters pass a filter one by one, however they come: typed, pasted with the
/// keys, the menu or the middle button, or composed. Editing keys work as in every text box.
class DegreeBox : public QLineEdit {
  Q_OBJECT

 public:
  static constexpr char16_t Tab = 9;
  static constexpr char16_t Enter = 13;

  /// May replace the character; false when it is consumed and not to be inserted.
  using KeyFilter = std::function<bool(char16_t& code)>;

  DegreeBox(int length, KeyFilter filter, QWidget* parent);

  void SelectAllText() { setSelection(0, static_cast<int>(text().size())); }

 Q_SIGNALS:
  void FocusGained(Qt::FocusReason reason);
  void FocusLost(Qt::FocusReason reason);

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void Type(const QString& text);
  void Key(char16_t code);

  KeyFilter filter_;
  bool focusedByMouse_ = false;  // the press that gave the focus leaves the text selected
};

}  // namespace nira
