// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "controls/DegreeBox.h"
#include "controls/Instance.h"
#include "model/PhaseMove.h"

#include <QWidget>

#include <optional>
#include <utility>
#include <vector>

class QLabel;

namespace nira {

class PhaseLines;
class PreviewField;
class SpeedBox;

/// The panel beside the diagram: the phases of the selected cam, their count, and the two boxes in
/// which a phase is typed, with what they would do. A phase goes into the program when the OFF box
/// loses the focus.
class PhaseEntry : public QWidget {
  Q_OBJECT

 public:
  PhaseEntry(Instance& instance, QWidget* parent);

  /// Fills list and count; the list's heading text is read anew.
  void ShowPhases(const PhaseList& phases);

  /// Opens phase entry with the first phase of the list: boxes shown, ON box focused.
  void Open();
  void HideBoxes();

  /// Puts something between the list and the count.
  void AddUnderList(QWidget* widget);

  /// Selects the line of a phase, as a click on it does; nothing when the list has no such line.
  void Select(const Phase& phase);
  /// The phase of the selected line, none without one.
  std::optional<Phase> Chosen() const;
  /// Opens phase entry with the selected phase.
  void OpenSelected();

  /// The same, and goes to the OFF box.
  void OpenSelectedOff();

  /// Boxes, preview and marks show a phase as it would be in the place of one of the list.
  void ShowMoved(const Phase& before, const Phase& after);
  /// They show the selected phase again.
  void PutBack();
  /// Opens phase entry with an empty pair; no phase is selected.
  void New();
  /// Deletes the selected phase, or moves it or one of its ends; nothing without one.
  void Delete();
  void Move(PhasePart part, int degrees);
  /// Puts a phase in the place of one of the list, or deletes it, as one step for Undo. What was
  /// written is selected and loaded.
  void Replace(const Phase& before, const std::optional<Phase>& after);

  /// Another program is in memory and shown: no pair of the old one may be entered into it.
  void StartAnew();

  /// Takes the focus from the OFF box before a command. What was typed is committed to the cam it
  /// was typed for; boxes left as they were loaded commit nothing.
  void LeaveForCommand();

  /// Sizes for a scale factor of the window: pixels of the list, of other text and of the entry
  /// boxes, and the fixed width.
  void Rescale(int dataPixels, int textPixels, int entryPixels, int width);

  void FocusOnList();
  SpeedBox* Speed() const { return speed_; }

  void Fase_Click();
  void Fase_DblClick();

 Q_SIGNALS:
  /// A phase was committed; the row as it was before is in the program's undo row.
  void Committed();
  /// The phase of the selected line of the list, none without one, and its cam.
  void Marked(int cam, const std::optional<Phase>& phase);
  /// What the pair in the boxes would take from the row of a cam and bring to it.
  void Previewed(int cam, const std::vector<Phase>& goes, const std::vector<Phase>& comes);
  /// The menu of the selected cam is wanted there on the screen.
  void MenuWanted(const QPoint& place);
  /// The selected cam is not the one that is drawn.
  void SelectionMoved();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  enum class Box { None, On, Off };

  void BuildControls();
  void BuildLayout();
  void ShowBoxes();
  void FocusOnBox();
  void LoadFirstLine();
  void LoadFromLine(const QString& line);
  std::pair<int, int> Selected() const;
  void Load(const QString& on, const QString& off);
  void Gained(Box box);
  void Lost(Qt::FocusReason reason);
  void Leave();

  void GRADION_GotFocus();
  void GRADIOFF_GotFocus();
  bool GRADION_KeyPress(char16_t& code);
  bool GRADIOFF_KeyPress(char16_t& code);
  void GRADION_LostFocus();
  void GRADIOFF_LostFocus();
  void StepCam(char16_t code);
  void ShowLengths();
  void SelectWritten(int on, int off);
  void MarkLine(int row);
  void TellMarked();
  void Preview();
  void EnterPair();
  void GoBack();
  void TypeInto(const QString& digit);

  Instance& instance_;
  QLabel* lfOnOf_;
  PhaseLines* fase_;
  QLabel* tFasi_;
  QLabel* totFasi_;
  QLabel* onSum_;
  SpeedBox* speed_;
  QLabel* lGrad_;
  DegreeBox* gradiOn_;
  DegreeBox* gradiOff_;
  PreviewField* preview_;

  QString OnText;
  QString OffText;
  bool OnTyped = false;

  Box entered_ = Box::None;     // the box that has the focus, menus and other programs aside
  std::vector<Phase> phases_;   // of the list, line by line
  std::pair<int, int> shown_;   // size and cam of the list
  std::optional<Phase> moved_;  // of the list, which the pair in the boxes would replace
  bool edited_ = false;         // the operator changed a box since the program loaded them
};

}  // namespace nira
