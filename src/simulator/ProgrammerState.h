// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "FirmwareImage.h"
#include "model/CamProgram.h"
#include "model/FunctionsBlock.h"
#include "model/PhaseList.h"

#include <array>
#include <string>
#include <vector>

namespace nira {

/// What the memory of a programmer holds. Sizes and messages count from 1, cams and degrees from 0;
/// texts are bytes as they stand on the line. What is outside the model reads as empty and is not
/// stored, as a device passes over what it has no place for.
class ProgrammerState {
 public:
  static constexpr std::size_t MaxMessageText = 40;  ///< two rows of the display

  static constexpr int FullCams = 32;  ///< only a model of so many has delays and ratios

  explicit ProgrammerState(int cams = 32, int sizes = 22, int messages = 255);

  int Cams() const { return cams_; }
  int Sizes() const { return sizes_; }
  int Messages() const { return messages_; }

  /// Takes over the functions, sizes and texts of a program, as far as there is room for them.
  void Load(const CamProgram& program);

  /// Switches the cam on from degree `on` to the one before `off`, across the end of the cycle when
  /// `off` is not above `on`; both are 0 to 359, and equal ones switch nothing.
  void SwitchOn(int size, int cam, int on, int off);
  void ClearSize(int size);

  const CamRow& Row(int size, int cam) const;

  /// The runs of a cam as ON degree and first OFF degree, one across the end of the cycle last.
  /// None for a cam that is always on: it has no edge.
  std::vector<Phase> Phases(int size, int cam) const;

  const std::string& CamText(int cam) const;
  void SetCamText(int cam, std::string_view text);

  const std::string& Message(int number) const;
  void SetMessage(int number, std::string_view text);

  FunctionsBlock Functions;
  FirmwareImage Firmware;

 private:
  bool HasCam(int cam) const { return cam >= 0 && cam < cams_; }
  bool HasRow(int size, int cam) const { return size >= 1 && size <= sizes_ && HasCam(cam); }
  bool HasMessage(int number) const { return number >= 1 && number <= messages_; }
  std::size_t RowIndex(int size, int cam) const;

  int cams_;
  int sizes_;
  int messages_;
  std::vector<CamRow> rows_;  // of all cams of size 1, then of size 2, ...
  std::vector<std::string> camTexts_;
  std::vector<std::string> messageTexts_;
};

}  // namespace nira
