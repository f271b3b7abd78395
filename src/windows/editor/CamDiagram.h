// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "controls/CamBar.h"
#include "controls/CamLabel.h"
#include "editor/DiagramPlace.h"
#include "model/PhaseMove.h"

#include <QFrame>
#include <QLabel>
#include <QWidget>

#include <array>
#include <optional>
#include <vector>

class QHelpEvent;

namespace nira {

class HoverLine;
class PhaseMarks;
class RunDrag;
class SwitchingMarks;
struct Switching;

/// The diagram of the selected size: per cam its number, its description and its bar, over a scale
/// of degrees. It shows what it is given and knows nothing of the program: its rows may as well be
/// the sizes of one cam.
class CamDiagram : public QWidget {
  Q_OBJECT

 public:
  /// What the rows stand for.
  struct Kind {
    int most = CamProgram::MaxCams;  ///< rows that can be shown
    const char* number = "LabCam";   ///< object names of the controls of a row, without its index
    const char* description = "LDefC";
    const char* bar = "Barra";
    QString letter = QStringLiteral("C");  ///< before a number in a tip
    bool described = true;                 ///< what is read names the descriptions, too
    bool enterPins = true;                 ///< Enter pins the line, as Space does
  };

  explicit CamDiagram(QWidget* parent) : CamDiagram(Kind(), parent) {}
  CamDiagram(Kind kind, QWidget* parent);

  /// Rows of the cams that exist; the others are hidden.
  void ShowRows(int numCams);
  /// The number of a row (from 0) when it is not that of its place.
  void ShowNumber(int row, int number);
  /// Rows that can be read at the present height.
  int ReadableRows() const;

  /// What is drawn for one cam (index from 0).
  void ShowCam(int cam, const PhaseList& phases, bool selected, const QString& text);

  /// The words in the names that the rows have for who does not see them: "cam", "phase", "phases"
  /// and "no phase". Until then they have none.
  void SetWords(const std::array<QString, 4>& words);

  /// Its description alone.
  void ShowDescription(int cam, const QString& text);

  /// Marks a phase of a cam as the selected one; none takes the marks away.
  void MarkPhase(int cam, const std::optional<Phase>& phase);

  /// Shows in the bar of a cam which phases would go and come.
  void ShowPreview(int cam, const std::vector<Phase>& goes, const std::vector<Phase>& comes);

  /// The speed in rev/min (0 for none) for which times are told, and what the programmer makes of
  /// each row then.
  void ShowSpeed(int speed, const std::vector<Switching>& rows);

  /// Takes the pinned lines away; false when there is none.
  bool FreeLines();

  /// What is being dragged is put back.
  void PutBack();

  /// Computes the units per degree from the width that is drawn on.
  void SetScale();

  /// Font size of the scale in pixels. That of the rows follows their height.
  void Rescale(int scalePixels);

  CamBar* Barra(int cam) const { return RowOf(cam).bar; }

 Q_SIGNALS:
  void LabCam_Click(int cam);
  void LabCam_DblClick(int cam);
  void LDefC_DblClick(int cam);
  /// A press on a drawn run of a cam, and the second one of a quick pair.
  void Run_Click(int cam, const Phase& phase);
  void Run_DblClick(int cam, const Phase& phase);
  /// The second press of a quick pair on the empty part of a bar.
  void Bar_DblClick(int cam);
  /// The second press of a quick pair on the OFF end of the selected phase.
  void End_DblClick();
  /// The selected phase is being dragged: as it stands in the program, and as it would be.
  void Dragged(const Phase& before, const Phase& after);
  /// It was dropped there.
  void Dropped(const Phase& before, const Phase& after);
  /// It was put back.
  void DragGivenUp();
  /// The menu of the row of a cam is wanted there on the screen.
  void MenuWanted(int cam, const QPoint& place);
  /// A press that selects nothing.
  void Pressed();
  /// What the line reads: its degree 0..359 (-1: there is none), the degrees from the first pin to
  /// the second (-1: there are not two), and the cams whose picture is ON there, "2 FEED  6 LIFT".
  void LineRead(int degree, int difference, const QString& on);
  /// No line is pinned any more.
  void Freed();

 protected:
  bool event(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  static constexpr int Quarters = 5;
  static constexpr int FrameLines = 7;

  struct Row {
    CamLabel* number = nullptr;       // LabCam
    CamLabel* description = nullptr;  // LDefC
    CamBar* bar = nullptr;            // Barra
    std::vector<Phase> phases;        // as the bar shows them
  };

  void BuildRow(int cam);
  void BuildScale();
  void Arrange();
  QFont ScaleFont() const;
  int ScaleHeight() const;
  QFont RowFont(double height) const;
  void ArrangeRows(const QFont& rows);
  void ArrangeScale();
  void ClearFlags();
  void NameRow(int cam);
  int SelectedCam() const;
  void PaintTicks(QPainter& painter) const;
  void PointAt(const QPoint& place);
  void Pin(const QPoint& place);
  void PinAtLine();
  void Read();
  void ShowTip(int cam, const QHelpEvent& event) const;
  QString TimesOf(int cam, const Phase& phase) const;
  int CamOf(const QObject* bar) const;
  const Phase* PhaseUnder(int cam, int x) const;
  bool BarPressed(int cam, const QMouseEvent& event);
  void BarReleased(int cam, const QMouseEvent& event);
  void TakeHold(int cam, const QPoint& place, bool again);
  void ShowCursor(int cam, const QPoint& place);
  QString CamsOn(int degree) const;
  const Row& RowOf(int cam) const { return rows_[static_cast<std::size_t>(cam)]; }

  const Kind kind_;
  std::vector<Row> rows_;
  std::array<QLabel*, Quarters> marks_{};    // Lab_0 .. Lab_4_4
  std::array<QFrame*, FrameLines> frame_{};  // Line5 .. Line11
  std::array<QString, 4> words_;
  DiagramPlace place_;
  PhaseMarks* phaseMarks_;
  HoverLine* line_;
  RunDrag* drag_;
  SwitchingMarks* outputs_ = nullptr;  // made with the first speed
  int speed_ = 0;
  int scalePixels_ = 0;  // until it is known nothing is arranged
};

}  // namespace nira
