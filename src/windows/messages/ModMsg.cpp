// SPDX-License-Identifier: Apache-2.0
#include "messages/ModMsg.h"

#include "controls/OkCancelRow.h"
#include "ground/Text.h"
#include "messages/MessageEdit.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
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
  text1_ = new MessageEdit;
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
  if (TrimLeft(text1_->text()).isEmpty()) {
    text1_->selectAll();  // blanks that nobody sees
  } else {
    text1_->end(false);  // a dialog selects the text of its first box
  }
}

void ModMsg::Text1_Typed() {
  display_->Show(RowsOf(text1_->text()));
}

void ModMsg::kok_Click() {
  const QString text = text1_->text();
  if (const auto refused = FirstUntypable(text)) {
    instance_.Ask.MsgBox(instance_.Text(TextNumber::CharacterNotAllowed) + refused->Shown,
                         Buttons::Ok, Icon::Exclamation);
    text1_->setFocus();
    text1_->setSelection(static_cast<int>(refused->At), static_cast<int>(refused->Length));
    return;
  }
  if (text != instance_.Program.MessageText(number_)) {
    instance_.Program.SetMessageText(number_, text);
    instance_.Settings.MsgSaved = false;
  }
  accept();
}

}  // namespace nira
