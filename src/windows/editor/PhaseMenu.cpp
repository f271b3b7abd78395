// SPDX-License-Identifier: Apache-2.0
#include "editor/PhaseMenu.h"

#include "editor/MainMenu.h"
#include "editor/PhaseEntry.h"

#include <QAction>

namespace nira {

void AddPhaseMenu(MainMenu& menu, PhaseEntry& entry) {
  const auto onSelected = [&entry](QAction* action) {
    action->setEnabled(false);
    QObject::connect(&entry, &PhaseEntry::Marked, action,
                     [action](int, const auto& phase) { action->setEnabled(phase.has_value()); });
  };
  const auto move = [&](const char* name, const char* caption, const QKeySequence& key,
                        PhasePart part, int degrees) {
    const auto handler = [&entry, part, degrees] { entry.Move(part, degrees); };
    QAction* action = menu.Add(name, caption, key, handler);
    action->setAutoRepeat(true);
    onSelected(action);
  };
  menu.AddMenu("Phase", "&Phase", [&] {
    menu.Add("NewPhase", "&New", Qt::Key_Insert, [&entry] { entry.New(); });
    onSelected(menu.Add("DelPhase", "&Delete", Qt::Key_Delete, [&entry] { entry.Delete(); }));
    menu.AddSeparator();
    move("PhaseEarlier", "1° &Earlier", Qt::CTRL | Qt::Key_Left, PhasePart::Whole, -1);
    move("PhaseLater", "1° &Later", Qt::CTRL | Qt::Key_Right, PhasePart::Whole, 1);
    move("OnEarlier", "&ON 1° Earlier", Qt::ALT | Qt::Key_Left, PhasePart::On, -1);
    move("OnLater", "ON &1° Later", Qt::ALT | Qt::Key_Right, PhasePart::On, 1);
    move("OffEarlier", "O&FF 1° Earlier", Qt::SHIFT | Qt::Key_Left, PhasePart::Off, -1);
    move("OffLater", "OFF 1° La&ter", Qt::SHIFT | Qt::Key_Right, PhasePart::Off, 1);
  });
}

}  // namespace nira
