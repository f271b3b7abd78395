// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FunctionsBlock.h"

#include <QString>

#include <array>
#include <cstdint>
#include <stdexcept>
#include <vector>

namespace nira {

/// An index outside the model. Readers of files and of the line turn it into their message.
class IndexError : public std::out_of_range {
 public:
  using std::out_of_range::out_of_range;
};

/// One cam of one size: a cell per degree 0..359, 1 = output ON.
using CamRow = std::array<std::uint8_t, 360>;

/// The cam program: what every window shows and edits. Sizes count from 1, cams and degrees from 0.
/// An index outside the limits raises `IndexError` and changes nothing.
///
/// The map is stored at its largest size, so that a change of the limits alone loses nothing; what
/// lies outside the limits is emptied together with the rest and never comes back.
class CamProgram {
 public:
  static constexpr int MaxSizes = 99;
  static constexpr int MaxCams = FunctionsBlock::MaxCams;
  static constexpr int MaxMessages = 255;
  static constexpr int Degrees = 360;

  CamProgram();

  int NumSizes() const { return numSizes_; }
  int NumCams() const { return numCams_; }
  int NumMessages() const { return numMessages_; }
  /// Sets the limits (1..99, 1..32, 1..255) and keeps the selection inside them. The functions stay
  /// as they are: what a smaller model hides is there again in the larger one.
  void SetLimits(int sizes, int cams, int messages);

  /// Empties the map for the present limits; texts and advances of the cams that exist are kept.
  void DimensionModel();
  void ClearSize(int size);
  void ClearAllSizes();
  void ClearFunctions();
  void ClearCamLabels();
  /// Functions, map and descriptions emptied, size 1 and cam 0 selected.
  void ResetProgram();

  /// Writes the phase ON..OFF-1 and cuts away the runs that touch its ends; OFF below ON is a
  /// phase across 359/0, OFF equal to ON deletes the phase at that degree. Degrees are 0..359.
  void SetPhase(int size, int cam, int on, int off);

  /// The row of a cam in a size.
  const CamRow& CamMap(int size, int cam) const;
  void SetRow(int size, int cam, const CamRow& row);

  /// Copies the row of the current cam aside, and puts it back into the cam that is current then.
  void KeepUndoRow();
  void RestoreUndoRow();
  const CamRow& UndoRow() const { return undoRow_; }

  int CurrentSize() const { return currentSize_; }
  int CurrentCam() const { return currentCam_; }
  void SelectSize(int size);
  void SelectCam(int cam);

  /// Description of a cam, shown beside its bar and carried by the cam file: one line of
  /// Windows-1252 characters, anything else raises `std::invalid_argument`.
  const QString& CamText(int cam) const;
  void SetCamText(int cam, const QString& text);

  /// Alarm message, number 1..255; all 255 are held whatever the programmer has. As a description
  /// it is one line of Windows-1252 characters.
  const QString& MessageText(int number) const;
  void SetMessageText(int number, const QString& text);

  const FunctionsBlock& Functions() const { return functions_; }
  /// `AdvanceLast` as far as there are cams.
  int LastAdvance() const;
  /// Takes a block over; raises `IndexError` when its `AdvanceLast` is no cam of any model.
  void SetFunctions(const FunctionsBlock& functions);

  /// Counts every change of what a cam file keeps: equal numbers, equal content.
  std::uint64_t Revision() const { return revision_; }
  /// The same for the rows of one size.
  std::uint64_t Revision(int size) const;

  /// The program as it is now was loaded, saved, or is a new one.
  void TakeAsSaved() { savedRevision_ = revision_; }
  /// It is no longer what was last loaded, saved or begun.
  bool Differs() const { return revision_ != savedRevision_; }

  /// False while the operator has to be asked before he leaves.
  bool IsSaved = true;

  /// The operator has to be asked before another program replaces this one.
  bool HasUnsavedWork() const { return !IsSaved || Differs(); }

 private:
  CamRow& Row(int size, int cam);
  void CheckSize(int size) const;
  void CheckCam(int cam) const;
  void ClearStore();
  void Empty(CamRow& row);  // counted as a change only when there was something
  void Count(const CamRow& changed);

  int numSizes_ = 22;
  int numCams_ = 32;
  int numMessages_ = 255;
  int currentSize_ = 1;
  int currentCam_ = 1;
  std::vector<CamRow> map_;  // [size - 1][cam]
  CamRow undoRow_{};
  std::array<QString, MaxCams> camText_;
  std::array<QString, MaxMessages> messageText_;
  FunctionsBlock functions_;
  std::uint64_t revision_ = 0;
  std::uint64_t savedRevision_ = 0;
  std::array<std::uint64_t, MaxSizes> sizeRevision_{};
};

}  // namespace nira
