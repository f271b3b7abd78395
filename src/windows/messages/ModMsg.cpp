// SPDX-License-Identifier: Apache-2.0
#include "messages/ModMsg.h"

#include "controls/OkCancelRow.h"
#include "ground/Text.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QVBoxLayout>

namespace nira {

ModMsg::ModMsg(Instance& instance, int number, QWidget* parent)
    : QDialog(parent), instance_(instance), number_(number) {
  setObjectName(QStringLiteral("ModMsg"));
  setWindowTitle(instance.Text(TextNumber::AlarmMessages));
  BuildLayout();
  text1_->setText(instance.Program.MessageText(number).left(MessageDisplay::Longest));
  display_->Show(RowsOnOpening(text1_->text()));
  connect(text1_, &QLineEdit::textEdited, this, &ModMsg::Text1_Typed);
}

void ModMsg::BuildLayout() {
  const int base = QFontInfo(QApplication::font()).pixelSize();
  QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  fixed.setPixelSize(base * 13 / 10);
  auto* ltx = new QLabel(ZeroFilled(number_, 3));
  ltx->setObjectName(QStringLiteral("ltx"));
  ltx->setFont(fixed);
  text1_ = new QLineEdit;
  text1_->setObjectName(QStringLiteral("Text1"));
  text1_->setAccessibleName(QStringLiteral("N. ") + ltx->text());
  text1_->setMaxLength(MessageDisplay::Longest);
  text1_->setFont(fixed);
  const int room = text1_->fontMetrics().horizontalAdvance(QString(MessageDisplay::Longest, u'M'));
  text1_->setMinimumWidth(room + base * 2);
  const int cells = base * 7 / 4;
  display_ = new DisplayFrame(new DisplayRow("row1", cells), new DisplayRow("row2", cells));

  auto* line = new QHBoxLayout;
  line->setSpacing(8);
  line->addWidget(ltx);
  line->addWidget(text1_, 1);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(12, 12, 12, 12);
  layout->setSpacing(16);
  layout->addLayout(line);
  layout->addWidget(display_, 0, Qt::AlignHCenter);
  layout->addStretch();
  layout->addLayout(BuildButtons());
}

QLayout* ModMsg::BuildButtons() {
  const OkCancelRow row(this, "kok", "kcl", instance_.Text(TextNumber::CancelCaption));
  connect(row.Ok, &QPushButton::clicked, this, &ModMsg::kok_Click);
  return row.Layout;
}

void ModMsg::setVisible(bool visible) {
  QDialog::setVisible(visible);
  text1_->end(false);  // a dialog selects the text of its first box
}

/// A line end or a tab that was pasted becomes a blank: a message is one line, and a cell of the
/// display shows no tab.
void ModMsg::Text1_Typed() {
  static const QRegularExpression gaps(QStringLiteral("[\\t\\r\\n\u2028\u2029]"));
  if (text1_->text().contains(gaps)) {
    const int cursor = text1_->cursorPosition();
    text1_->setText(text1_->text().replace(gaps, QStringLiteral(" ")));
    text1_->setCursorPosition(cursor);
  }
  display_->Show(RowsOf(text1_->text()));
}

void ModMsg::kok_Click() {
  const QString text = text1_->text();
  if (const QString foreign = ForeignCharacter(text); !foreign.isEmpty()) {
    instance_.Ask.MsgBox(instance_.Text(TextNumber::CharacterNotAllowed) + foreign, Buttons::Ok,
                         Icon::Exclamation);
    return;
  }
  if (text != instance_.Program.MessageText(number_)) {
    instance_.Program.SetMessageText(number_, text);
    instance_.Settings.MsgSaved = false;
  }
  accept();
}

}  // namespace nira
