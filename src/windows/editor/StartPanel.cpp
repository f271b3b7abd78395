// SPDX-License-Identifier: Apache-2.0
#include "editor/StartPanel.h"

#include "controls/PlainTip.h"
#include "files/OptionsFile.h"
#include "ground/Text.h"

#include <QAction>
#include <QApplication>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

namespace nira {

namespace {

constexpr int panelWidth = 400;

/// As wide as the panel, its words at the left.
QToolButton* Way(const QString& name, const QIcon& icon, const QString& text) {
  auto* button = new QToolButton;
  button->setObjectName(name);
  button->setIcon(icon);
  button->setText(QString(text).replace(u'&', QStringLiteral("&&")));
  button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  button->setAutoRaise(true);
  button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  return button;
}

QLabel* Line(const QString& text) {
  auto* label = new QLabel(text);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  return label;
}

}  // namespace

StartPanel::StartPanel(const Instance& instance, const Entries& entries, const QWidget* bars,
                       QWidget* parent)
    : QFrame(parent), instance_(instance), entries_(entries), bars_(bars) {
  setObjectName(QStringLiteral("StartPanel"));
  setFrameStyle(StyledPanel | Raised);
  setAutoFillBackground(true);
  hide();
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(16, 16, 16, 16);
  // These come after what the entry does: a new program was asked for, and is there.
  connect(entries.begin, &QAction::triggered, this, &StartPanel::Dismiss);
  connect(entries.model, &QAction::triggered, this, [this] {
    misfit_ = false;
    refused_.isEmpty() ? Dismiss() : Open();
  });
}

void StartPanel::ShowRecent(const QStringList& paths) {
  recent_ = paths;
  ShowTexts();
}

void StartPanel::ShowTexts() {
  if (isVisible()) Build();
}

void StartPanel::ShowRefused(const QString& path, const CamFileCounts& counts) {
  refused_ = path;
  counts_ = counts;
  misfit_ = true;
  wanted_ = true;
  isVisible() ? Build() : Follow(true);
}

/// It comes after the next picture of the window, which it must not keep waiting at the start; a
/// file that is being opened may have made it superfluous by then.
void StartPanel::Follow(bool empty) {
  if (!empty) {
    refused_.clear();
    misfit_ = false;
    Dismiss();
  } else if (wanted_ && !isVisible()) {
    parentWidget()->installEventFilter(this);
    parentWidget()->update();
  }
}

void StartPanel::Dismiss() {
  wanted_ = false;
  parentWidget()->removeEventFilter(this);
  qApp->removeEventFilter(this);
  hide();
}

void StartPanel::Open() {
  if (!wanted_ || !parentWidget()->isVisible()) return;
  Build();
  raise();
  show();
  parentWidget()->removeEventFilter(this);
  qApp->installEventFilter(this);  // once, however often
}

void StartPanel::Build() {
  if (body_ != nullptr) {
    body_->setParent(nullptr);
    body_->deleteLater();  // one of its buttons may have been clicked just now
  }
  body_ = new QWidget;
  auto* rows = new QVBoxLayout(body_);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(2);
  if (misfit_) BuildRefused(*rows);
  AddButton(*rows, TextNumber::StartOpen, entries_.open);
  AddButton(*rows, TextNumber::StartNew, entries_.begin);
  AddButton(*rows, TextNumber::StartReceive, entries_.receive);
  BuildRecent(*rows);
  layout()->addWidget(body_);
  body_->show();
  Place();
}

/// What the file is for and what the program is set to, and the way to change that.
void StartPanel::BuildRefused(QVBoxLayout& layout) {
  const CamProgram& program = instance_.Program;
  const auto line = [&](TextNumber text, const QStringList& values) {
    layout.addWidget(Line(Filled(instance_.Text(text), values)));
  };
  line(TextNumber::StartFileModel, {QString::number(counts_.cams), QString::number(counts_.sizes),
                                    QFileInfo(refused_).fileName()});
  line(TextNumber::StartOwnModel,
       {QString::number(program.NumCams()), QString::number(program.NumSizes())});
  auto* button = new QPushButton(entries_.model->text());
  button->setObjectName(QStringLiteral("StartModel"));
  connect(button, &QPushButton::clicked, entries_.model, &QAction::trigger);
  layout.addWidget(button);
  layout.addSpacing(8);
}

void StartPanel::AddButton(QVBoxLayout& layout, TextNumber caption, QAction* entry) {
  const QString key = entry->shortcut().toString(QKeySequence::NativeText);
  const QString shown =
      instance_.Text(caption) + (key.isEmpty() ? QString() : QStringLiteral("  (") + key + u')');
  auto* button = Way(QStringLiteral("Start_") + entry->objectName(), entry->icon(), shown);
  connect(button, &QToolButton::clicked, entry, &QAction::trigger);
  layout.addWidget(button);
}

/// A refused file stands first: it is what was wanted.
void StartPanel::BuildRecent(QVBoxLayout& layout) {
  QStringList paths = recent_;
  if (!refused_.isEmpty()) {
    paths.removeAll(refused_);
    paths.prepend(refused_);
  }
  if (paths.isEmpty()) return;
  layout.addSpacing(8);
  layout.addWidget(Line(instance_.Text(TextNumber::StartRecent)));
  for (qsizetype k = 0; k < std::min<qsizetype>(paths.size(), MaxRecent); ++k) {
    const QString& path = paths.at(k);
    const QString shown = fontMetrics().elidedText(path, Qt::ElideMiddle, panelWidth - 80);
    auto* button =
        Way(QStringLiteral("StartRecent_") + QString::number(k + 1), entries_.open->icon(), shown);
    button->setToolTip(PlainTip(path));
    button->setAccessibleName(path);
    connect(button, &QToolButton::clicked, this, [this, path] { Q_EMIT RecentChosen(path); });
    layout.addWidget(button);
  }
}

/// In the middle of the bars.
void StartPanel::Place() {
  setFixedWidth(panelWidth);
  adjustSize();
  const QPoint middle = bars_->parentWidget()->rect().center();
  const QPoint place(bars_->geometry().center().x() - width() / 2, middle.y() - height() / 2);
  move(bars_->parentWidget()->mapTo(parentWidget(), place));
}

/// While it is shown it sees what goes to the window before anybody else.
bool StartPanel::eventFilter(QObject* watched, QEvent* event) {
  if (!isVisible()) {
    if (event->type() == QEvent::Paint) QTimer::singleShot(0, this, &StartPanel::Open);
    return false;
  }
  if (event->type() == QEvent::Resize && watched == parentWidget()) {
    QTimer::singleShot(0, this, &StartPanel::Place);  // when the bars have their places
  }
  if (!watched->isWidgetType()) return false;
  auto* widget = static_cast<QWidget*>(watched);
  if (widget->window() != window()) return false;
  if (event->type() == QEvent::MouseButtonPress && widget != this && !isAncestorOf(widget)) {
    Dismiss();
  }
  if (event->type() != QEvent::KeyPress) return false;
  if (static_cast<QKeyEvent*>(event)->key() != Qt::Key_Escape) return false;
  Dismiss();
  return true;
}

}  // namespace nira
