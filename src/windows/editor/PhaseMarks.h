// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "controls/CamBar.h"
#include "editor/DiagramLayer.h"
#include "model/PhaseMove.h"

#include <optional>

namespace nira {

/// What is marked over the bar of the selected cam: the phase that is selected in the list, framed,
/// with a handle at either end and its degrees as two flags on the upper scale; and what the pair
/// in the boxes would do, hatched where degrees go, outlined where a phase comes.
class PhaseMarks : public DiagramLayer {
  Q_OBJECT

 public:
  explicit PhaseMarks(QWidget* diagram);

  /// The selected phase, in the bar in which it is drawn; none takes the marks away.
  void Select(const CamBar* bar, const std::optional<Phase>& phase);

  const std::optional<Phase>& Selected() const { return phase_; }

  /// What of the selected phase a drag would move from a place in the diagram: an end within 4
  /// pixels, the whole between them; nothing over another run or beside the phase.
  std::optional<PhasePart> PartAt(const QPoint& place) const;

  /// Whether a flag covers a place in the diagram, or a part of it.
  bool Covers(const QRect& place) const;

  /// Phases that would go from a bar and come to it.
  void Preview(const CamBar* bar, const std::vector<Phase>& goes, const std::vector<Phase>& comes);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Flags {
    QRect on;
    QRect off;
    int onX = 0;  // where the phase begins and ends
    int offX = 0;
  };

  QRegion PreviewPlaces() const;
  void PaintPreview(QPainter& painter) const;
  Flags FlagPlaces() const;
  QRegion Places() const;
  void PaintFrame(QPainter& painter) const;
  void PaintFlags(QPainter& painter) const;

  const CamBar* bar_ = nullptr;
  std::optional<Phase> phase_;
  const CamBar* previewBar_ = nullptr;
  std::vector<Phase> goes_;
  std::vector<Phase> comes_;
};

}  // namespace nira
