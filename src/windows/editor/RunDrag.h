// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/PhaseMove.h"

#include <QObject>
#include <QPoint>

#include <optional>

class QWidget;

namespace nira {

/// The selected phase under the pointer's button, from the press to the release: it follows the
/// pointer by whole degrees. Escape puts it back, and so does whatever takes the focus or the
/// window away; other keys wait until it is over.
class RunDrag : public QObject {
  Q_OBJECT

 public:
  explicit RunDrag(QWidget* diagram);

  /// A press on a part of a phase, at a place in the diagram.
  void Press(const Phase& phase, PhasePart part, const QPoint& place);

  /// The pointer has moved. From 4 pixels on it drags: sideways without end, and above or below the
  /// diagram the phase stays where it was left.
  void Follow(const QPoint& place, double unitsPerDegree);

  /// The button is released.
  void Release();

  /// Nothing of it is to be.
  void PutBack();

  bool Held() const { return grip_.has_value(); }
  bool Dragging() const { return dragging_; }

 Q_SIGNALS:
  /// While it goes on: the phase as it stands in the program, and as it would be.
  void Dragged(const Phase& before, const Phase& after);
  void Dropped(const Phase& before, const Phase& after);
  void GivenUp();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Grip {
    Phase phase;
    PhasePart part = PhasePart::Whole;
    QPoint place;
  };

  bool End();

  QWidget* diagram_;
  std::optional<Grip> grip_;
  Phase now_;
  bool dragging_ = false;
};

}  // namespace nira
