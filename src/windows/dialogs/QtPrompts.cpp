// SPDX-License-Identifier: Apache-2.0
#include "dialogs/QtPrompts.h"

#include "controls/BusyPointer.h"
#include "controls/ThemedIcon.h"
#include "ground/ProgramTitle.h"
#include "ground/Text.h"

#include <QApplication>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

namespace nira {

namespace {

constexpr int longestAnswer = 48;  // characters that a box of entry shows at once

/// What a file or a device sent, as a box can show it.
QString Printable(const QString& text) {
  QString shown = text;
  for (QChar& c : shown) {
    if (c == u'\r') c = u'\n';
    if (c.category() == QChar::Other_Control && c != u'\n') c = QChar::ReplacementCharacter;
  }
  return shown;
}

/// What a box offers, the answer of the return key first.
QList<QMessageBox::StandardButton> Offered(Buttons buttons) {
  using enum QMessageBox::StandardButton;
  switch (buttons) {
    case Buttons::OkCancel:
      return {Ok, Cancel};
    case Buttons::CancelOk:
      return {Cancel, Ok};
    case Buttons::YesNo:
      return {Yes, No};
    case Buttons::NoYes:
      return {No, Yes};
    case Buttons::YesNoCancel:
      return {Yes, No, Cancel};
    case Buttons::CancelYesNo:
      return {Cancel, Yes, No};
    case Buttons::RetryCancel:
      return {Retry, Cancel};
    case Buttons::Ok:
      break;
  }
  return {Ok};
}

QMessageBox::Icon BoxIcon(Icon icon) {
  switch (icon) {
    case Icon::Information:
      return QMessageBox::Information;
    case Icon::Question:
      return QMessageBox::Question;
    case Icon::Exclamation:
      return QMessageBox::Warning;
    case Icon::Critical:
      return QMessageBox::Critical;
    case Icon::None:
      break;
  }
  return QMessageBox::NoIcon;
}

Answer AnswerOf(int button) {
  switch (button) {
    case QMessageBox::Ok:
      return Answer::Ok;
    case QMessageBox::Yes:
      return Answer::Yes;
    case QMessageBox::No:
      return Answer::No;
    case QMessageBox::Retry:
      return Answer::Retry;
    default:
      return Answer::Cancel;
  }
}

/// Every answer takes one key, also where the return key gives the harmless one: Qt leaves "OK"
/// without.
void GiveKey(QPushButton* button) {
  if (button->text() == QStringLiteral("OK")) button->setText(QStringLiteral("&OK"));
}

/// An answer that was refused and comes back is shown with the offending character selected.
void MarkRefused(QLineEdit* text) {
  const auto refused = FirstUntypable(text->text());
  if (!refused) return;
  const auto select = [text, at = static_cast<int>(refused->At),
                       length = static_cast<int>(refused->Length)] {
    text->setSelection(at, length);
  };
  QTimer::singleShot(0, text, select);  // a dialog that opens selects the whole text
}

/// A box may stand alone, before the main window or without it.
QIcon ProgramIcon() {
  return ThemedIcon(QStringLiteral("nira-kpl"), QApplication::palette());
}

QString TitleOr(const QString& title) {
  return title.isEmpty() ? QString::fromLatin1(ProgramTitle) : title;
}

}  // namespace

Answer QtPrompts::MsgBox(const QString& text, Buttons buttons, Icon icon, const QString& title) {
  const PlainPointer pointer;
  QMessageBox box(BoxIcon(icon), TitleOr(title), Printable(text), QMessageBox::NoButton,
                  QApplication::activeWindow());
  box.setWindowIcon(ProgramIcon());
  box.setTextFormat(Qt::PlainText);
  const auto offered = Offered(buttons);
  for (const QMessageBox::StandardButton button : offered) GiveKey(box.addButton(button));
  box.setDefaultButton(offered.constFirst());
  return AnswerOf(box.exec());
}

std::optional<QString> QtPrompts::InputBox(const QString& prompt, const QString& preset,
                                           const QString& title) {
  const PlainPointer pointer;
  QInputDialog box(QApplication::activeWindow());
  box.setWindowTitle(TitleOr(title));
  box.setWindowIcon(ProgramIcon());
  box.setLabelText(Printable(prompt));
  if (auto* label = box.findChild<QLabel*>()) label->setTextFormat(Qt::PlainText);
  box.setTextValue(preset);
  if (auto* text = box.findChild<QLineEdit*>()) {  // room for an answer, and for the title above
    text->setMinimumWidth(box.fontMetrics().averageCharWidth() * longestAnswer);
    MarkRefused(text);
  }
  if (box.exec() != QDialog::Accepted) return std::nullopt;
  return box.textValue();
}

}  // namespace nira
