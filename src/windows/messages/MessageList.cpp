// SPDX-License-Identifier: Apache-2.0
#include "messages/MessageList.h"

#include "messages/MessageEdit.h"
#include "messages/MessageTexts.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>

#include <algorithm>

namespace nira {

namespace {

constexpr int typingPause = 1500;  // ms
constexpr int numberDigits = 3;

/// Draws a line where the second row of the programmer's display begins.
class RowMark : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    QStyledItemDelegate::paint(painter, option, index);
    constexpr int before = numberDigits + 1 + MessageDisplay::Columns;  // characters
    const QWidget* list = option.widget;
    const int margin = list->style()->pixelMetric(QStyle::PM_FocusFrameHMargin, &option, list) + 1;
    const int x = option.rect.left() + margin +
                  option.fontMetrics.horizontalAdvance(QString(before, u'M')) - 1;
    painter->setPen(MarkColour(option.palette, option.state.testFlag(QStyle::State_Selected)));
    painter->drawLine(x, option.rect.top(), x, option.rect.bottom());
  }
};

}  // namespace

MessageList::MessageList(const CamProgram& program, QWidget* parent)
    : QListWidget(parent), program_(program) {
  setUniformItemSizes(true);
  setItemDelegate(new RowMark(this));
  setTextElideMode(Qt::ElideRight);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  pause_.setObjectName(QStringLiteral("Pause"));
  pause_.setSingleShot(true);
  connect(&pause_, &QTimer::timeout, this, [this] { digits_ = 0; });
}

void MessageList::ShowAll() {
  const int row = currentRow();
  while (count() > program_.NumMessages()) delete takeItem(count() - 1);
  while (count() < program_.NumMessages()) addItem(QString());
  for (int number = 1; number <= count(); ++number) ShowOne(number);
  setCurrentRow(std::clamp(row, 0, count() - 1));
}

void MessageList::ShowOne(int number) {
  item(number - 1)->setText(ListEntry(number, program_.MessageText(number)));
}

void MessageList::Select(int number) {
  setCurrentRow(number - 1);
  scrollToItem(currentItem(), QAbstractItemView::PositionAtCenter);
}

void MessageList::TypeDigit(int digit) {
  const int number = typed_ * 10 + digit;
  const bool goesOn = digits_ > 0 && digits_ < numberDigits && number <= count();
  typed_ = goesOn ? number : digit;
  digits_ = goesOn ? digits_ + 1 : 1;
  pause_.start(typingPause);
  if (typed_ >= 1) Select(std::min(typed_, count()));
}

void MessageList::keyPressEvent(QKeyEvent* event) {
  const QString text = event->text();
  const QChar key = text.size() == 1 ? text.front() : QChar();
  if (key >= u'0' && key <= u'9') {
    TypeDigit(key.unicode() - u'0');
    return;
  }
  digits_ = 0;
  QListWidget::keyPressEvent(event);
}

}  // namespace nira
