// SPDX-License-Identifier: Apache-2.0
#include "editor/PanelExtras.h"

#include "controls/KeyButton.h"
#include "controls/Shades.h"
#include "editor/PhaseEntry.h"
#include "files/TextNumbers.h"

#include <QAction>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>

namespace nira {

namespace {

constexpr int linesOfList = 60;  // pixels of the list, beyond its least height, that come first

/// Text that nobody has to read.
class QuietText : public QLabel {
 public:
  explicit QuietText(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setPen(SecondaryText(palette()));
    painter.drawText(rect(), Qt::TextWordWrap, text());
  }
};

QString KeyOf(const QAction* entry) {
  return entry->shortcut().toString(QKeySequence::NativeText);
}

}  // namespace

PanelExtras::PanelExtras(PhaseEntry* panel, const Entries& entries)
    : QObject(panel), panel_(panel), entries_(entries) {
  buttons_ = new QWidget(panel);
  newPhase_ = new KeyButton("NewPhaseButton", entries.newPhase, buttons_);
  deletePhase_ = new KeyButton("DelPhaseButton", entries.deletePhase, buttons_);
  undo_ = new KeyButton("UndoButton", entries.undo, panel);
  keys_ = new QuietText(panel);
  keys_->setObjectName(QStringLiteral("KeyHints"));
  auto* row = new QHBoxLayout(buttons_);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(4);
  row->addWidget(newPhase_);
  row->addWidget(deletePhase_);
  panel->AddUnderList(buttons_);
  panel->layout()->addWidget(undo_);
  panel->layout()->addWidget(keys_);
  panel->installEventFilter(this);
}

void PanelExtras::ShowTexts(const MessageTable& texts) {
  newPhase_->ShowTexts(QStringLiteral("+ ") + texts.Text(TextNumber::NewPhase),
                       KeyOf(entries_.newPhase));
  deletePhase_->ShowTexts(QStringLiteral("\u2212 ") + texts.Text(TextNumber::DeletePhase),
                          KeyOf(entries_.deletePhase));
  rowOf_ = texts.Text(TextNumber::UndoRowOf);
  ShowUndoRow(row_);
  keys_->setText(texts.Text(TextNumber::KeyHints));
}

void PanelExtras::ShowUndoRow(const QString& row) {
  row_ = row;
  undo_->ShowTexts(QStringLiteral("Undo"), row.isEmpty() ? QString() : QString(rowOf_ + row));
}

void PanelExtras::Rescale(int pixels) {
  QFont type = panel_->font();
  type.setPixelSize(pixels);
  for (QWidget* extra : {static_cast<QWidget*>(newPhase_), static_cast<QWidget*>(deletePhase_),
                         static_cast<QWidget*>(undo_), static_cast<QWidget*>(keys_)}) {
    extra->setFont(type);
  }
}

bool PanelExtras::eventFilter(QObject*, QEvent* event) {
  if (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest) Fit();
  return false;
}

/// What there is no room for any more is hidden, from the last one on.
void PanelExtras::Fit() {
  int room = panel_->height() - Least();
  const auto fit = [&](QWidget* extra, int height) {
    room -= height + panel_->layout()->spacing();
    extra->setVisible(room >= 0);
  };
  fit(buttons_, newPhase_->sizeHint().height());
  fit(undo_, undo_->sizeHint().height());
  fit(keys_, keys_->heightForWidth(panel_->width()));
}

/// Height of everything else.
int PanelExtras::Least() const {
  const QLayout* layout = panel_->layout();
  int height = linesOfList;
  for (int i = 0; i < layout->count(); ++i) {
    const QLayoutItem* item = layout->itemAt(i);
    const QWidget* widget = const_cast<QLayoutItem*>(item)->widget();
    if (widget == buttons_ || widget == undo_ || widget == keys_) continue;
    height += item->minimumSize().height() + layout->spacing();
  }
  return height;
}

}  // namespace nira
