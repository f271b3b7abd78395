// SPDX-License-Identifier: Apache-2.0
#include "dialogs/Manual.h"

#include "controls/Shades.h"
#include "files/TextNumbers.h"

#include <QFile>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextTable>
#include <QVBoxLayout>

/// The manual stands in a static library, where nothing else would pull it in.
static void TakeManual() {
  Q_INIT_RESOURCE(manual);
}

namespace nira {

namespace {

constexpr int pictureWidth = 560;  // pixels at most, so that a page needs no scrolling sideways
constexpr int block = Qt::UserRole;

/// Shows the pictures of the manual in the width of its text. Links lead out of it and stay words.
class Page : public QTextBrowser {
 public:
  Page() { setOpenLinks(false); }

  QVariant loadResource(int type, const QUrl& name) override {
    if (type != QTextDocument::ImageResource) return {};
    const QImage picture(QStringLiteral(":/manual/") + name.path());
    if (picture.width() <= pictureWidth) return picture;
    return picture.scaledToWidth(pictureWidth, Qt::SmoothTransformation);
  }
};

}  // namespace

void Manual::Open(QWidget* window, const MessageTable& texts) {
  auto* manual = window->findChild<Manual*>();
  if (manual == nullptr) manual = new Manual(texts, window);
  manual->ShowTexts();
  manual->show();
  manual->raise();
  manual->activateWindow();
}

Manual::Manual(const MessageTable& texts, QWidget* window)
    : QWidget(window, Qt::Window), texts_(texts) {
  TakeManual();
  setObjectName(QStringLiteral("Manual"));
  BuildControls();
  BuildLayout();
  QFile file(QStringLiteral(":/manual/manual.md"));
  if (file.open(QIODevice::ReadOnly)) page_->setMarkdown(QString::fromUtf8(file.readAll()));
  Typeset();
  ListHeadings();
  connect(headings_, &QListWidget::currentRowChanged, this, &Manual::GoTo);
  connect(find_, &QLineEdit::returnPressed, this, &Manual::Find);
  connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, [this] {
    find_->setFocus();
    find_->selectAll();
  });
  connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);
  resize(QSize(1000, 700).boundedTo(screen()->availableSize() * 9 / 10));
}

void Manual::BuildControls() {
  find_ = new QLineEdit;
  find_->setObjectName(QStringLiteral("ManualFind"));
  find_->setClearButtonEnabled(true);
  found_ = new QLabel;
  found_->setObjectName(QStringLiteral("ManualFound"));
  found_->setTextFormat(Qt::PlainText);
  headings_ = new QListWidget;
  headings_->setObjectName(QStringLiteral("ManualHeadings"));
  headings_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  page_ = new Page;
  page_->setObjectName(QStringLiteral("ManualPage"));
  page_->document()->setDocumentMargin(16);
}

void Manual::BuildLayout() {
  auto* search = new QHBoxLayout;
  search->setSpacing(8);
  search->addWidget(find_);
  search->addWidget(found_);
  search->addStretch();
  auto* pages = new QHBoxLayout;
  pages->setSpacing(8);
  pages->addWidget(headings_);
  pages->addWidget(page_, 1);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(12, 12, 12, 12);
  layout->setSpacing(8);
  layout->addLayout(search);
  layout->addLayout(pages);
}

/// Tables with one line between the cells, and lines of code that break like all others.
void Manual::Typeset() {
  for (QTextFrame* frame : page_->document()->rootFrame()->childFrames()) {
    auto* table = qobject_cast<QTextTable*>(frame);
    if (table == nullptr) continue;
    QTextTableFormat format = table->format();
    format.setBorderCollapse(true);
    format.setBorderBrush(SecondaryText(palette()));
    format.setCellPadding(4);
    table->setFormat(format);
  }
  QTextBlockFormat breaking;
  breaking.setNonBreakableLines(false);
  QTextCursor all(page_->document());
  all.select(QTextCursor::Document);
  all.mergeBlockFormat(breaking);
}

void Manual::ListHeadings() {
  for (QTextBlock part = page_->document()->begin(); part.isValid(); part = part.next()) {
    const int level = part.blockFormat().headingLevel();
    if (level == 0) continue;
    auto* item =
        new QListWidgetItem(QString(qsizetype{4} * (level - 1), u' ') + part.text(), headings_);
    item->setData(block, part.blockNumber());
  }
  const int wanted = headings_->sizeHintForColumn(0) + 2 * headings_->frameWidth() +
                     headings_->verticalScrollBar()->sizeHint().width();
  headings_->setFixedWidth(wanted);
  find_->setFixedWidth(wanted);
}

void Manual::ShowTexts() {
  setWindowTitle(texts_.Text(TextNumber::ManualTitle));
  find_->setPlaceholderText(texts_.Text(TextNumber::ManualFind));
  find_->setAccessibleName(texts_.Text(TextNumber::ManualFind));
  headings_->setAccessibleName(texts_.Text(TextNumber::ManualContents));
  page_->setAccessibleName(windowTitle());
}

/// Puts a heading at the top of the page.
void Manual::GoTo(int row) {
  if (row < 0) return;
  const int number = headings_->item(row)->data(block).toInt();
  const QTextCursor heading(page_->document()->findBlockByNumber(number));
  page_->setTextCursor(heading);
  QScrollBar* bar = page_->verticalScrollBar();
  bar->setValue(bar->value() + page_->cursorRect(heading).top());
}

/// The next place of the words, from the end on again from the beginning.
void Manual::Find() {
  const QString words = find_->text();
  bool found = page_->find(words);
  if (!found) {
    page_->moveCursor(QTextCursor::Start);
    found = page_->find(words);
  }
  found_->setText(found || words.isEmpty() ? QString() : texts_.Text(TextNumber::ManualNotFound));
}

}  // namespace nira
