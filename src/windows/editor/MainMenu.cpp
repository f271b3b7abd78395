// SPDX-License-Identifier: Apache-2.0
#include "editor/MainMenu.h"

#include <array>

namespace nira {

namespace {

struct Entry {
  const char* name;  // null: a separator
  const char* caption;
  QKeySequence::StandardKey key = QKeySequence::UnknownKey;
};

constexpr Entry separator{nullptr, nullptr};

constexpr std::array fileEntries = {
    Entry{"f_newp", "&New", QKeySequence::New},
    Entry{"f_open", "&Open", QKeySequence::Open},
    Entry{"f_S", "&Save", QKeySequence::Save},
    Entry{"f_save", "Save &As .."},
    separator,
    Entry{"f_New", "S&el Programmer"},
    separator,
    Entry{"f_SelPr", "Se&lect Printer"},
    Entry{"Pr_size", "&Print", QKeySequence::Print},
    separator,
    Entry{"F_quit", "&Exit", QKeySequence::Quit},
};

constexpr std::array sizesEntries = {
    Entry{"s_sel", "Se&lect Size"},
    Entry{"O_Copy", "Copy &Size"},
    Entry{"s_Clr", "&Erase Size"},
    Entry{"S_Imp", "&Import Size"},
    separator,
    Entry{"O_CopyC", "Cop&y Cam"},
    Entry{"o_Shc", "S&hift Cam"},
    Entry{"O_ClC", "E&rase Cam"},
    Entry{"o_MODC", "&Modify Cam"},
    Entry{"o_Undo", "&Undo"},
    separator,
    Entry{"Fu_Set", "Fu&nctions"},
    Entry{"Al_Msg", "&Messages"},
};

constexpr std::array communicEntries = {
    Entry{"Tr_Siz", "Size &Transmit"},         Entry{"Rc_Siz", "Size &Receive"},
    Entry{"Msg_Trans", "&Alarm Msg Transmit"}, Entry{"Msg_Rec", "Alarm &Msg Receive"},
    Entry{"Upd_Flash", "&Update FLASH"},
};

constexpr std::array optionsEntries = {
    Entry{"setcom", "&Set CommPort"},
    Entry{"o_Setlng", "Set &Language"},
};

constexpr std::array demoEntries = {
    Entry{"O_Rot", "&Rotate Demo"},
    Entry{"o_Ant", "&Advance Demo"},
};

template <typename Entries>
QMenu* Fill(QMenuBar* bar, const char* caption, const Entries& entries) {
  QMenu* menu = bar->addMenu(QString::fromLatin1(caption));
  for (const Entry& entry : entries) {
    if (entry.name == nullptr) {
      menu->addSeparator();
      continue;
    }
    QAction* action = menu->addAction(QString::fromLatin1(entry.caption));
    action->setObjectName(QString::fromLatin1(entry.name));
    if (entry.key != QKeySequence::UnknownKey) action->setShortcut(entry.key);
  }
  return menu;
}

}  // namespace

MainMenu::MainMenu(QMenuBar* bar) : QObject(bar), bar_(bar) {
  file_ = Fill(bar, "&File", fileEntries);
  Fill(bar, "&Sizes", sizesEntries);
  Fill(bar, "&Communic", communicEntries);
  Fill(bar, "&Options", optionsEntries);
  Fill(bar, "&Demo", demoEntries)->menuAction()->setObjectName(QStringLiteral("Demo"));
  QAction* info = bar->addAction(QStringLiteral("&Info"));
  info->setObjectName(QStringLiteral("info"));
  Item(QStringLiteral("o_Undo"))->setEnabled(false);  // until there is something to undo
  connect(info, &QAction::triggered, this, [this] { Q_EMIT Chosen(QStringLiteral("info")); });
  for (QMenu* menu : bar->findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly)) {
    connect(menu, &QMenu::triggered, this, [this](const QAction* action) {
      const QString recent = action->data().toString();
      if (action->data().isValid()) {
        Q_EMIT RecentChosen(recent);
      } else {
        Q_EMIT Chosen(action->objectName());
      }
    });
  }
}

QAction* MainMenu::Item(const QString& name) const {
  return bar_->findChild<QAction*>(name);
}

void MainMenu::ShowRecent(const QStringList& paths) {
  qDeleteAll(recent_);
  recent_.clear();
  if (paths.isEmpty()) return;
  QAction* quit = Item(QStringLiteral("F_quit"));
  int number = 0;
  for (const QString& path : paths) {
    // "&1 path": a "&" of the path itself is no mnemonic.
    QString shown = path;
    shown.replace(u'&', QStringLiteral("&&"));
    auto* action = new QAction(u'&' + QString::number(++number) + u' ' + shown, file_);
    action->setObjectName(QStringLiteral("F_Mnu_oldF_") + QString::number(number));
    action->setData(path);
    file_->insertAction(quit, action);
    recent_.append(action);
  }
  recent_.append(file_->insertSeparator(quit));
}

}  // namespace nira
