// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/CamProgram.h"

#include <QString>

#include <variant>
#include <vector>

namespace nira {

/// A field of the functions block by its name: what it means and which values an operator may give
/// it. `CamFunc` has a value for each cam (index from 0); the cam counts for no other field.
struct FunctionField {
  enum class Most { Flag, Milliseconds, Ratio, LastCam, LastSize, Shift, Speed };

  const char* name;
  const char* unit;
  const char* meaning;
  std::variant<std::uint8_t FunctionsBlock::*, std::int16_t FunctionsBlock::*,
               std::array<std::uint8_t, FunctionsBlock::MaxCams> FunctionsBlock::*>
      member;
  Most most = Most::Flag;
  bool of32Cams = false;  ///< a delay or a ratio: only a programmer of 32 cams has it

  bool IsPerCam() const { return member.index() == 2; }
  int Value(const FunctionsBlock& block, int cam = 0) const;
  void Store(FunctionsBlock& block, int value, int cam = 0) const;
  /// The largest value in that program; the smallest is 0.
  int Largest(const CamProgram& program) const;
};

/// All fields, in the order of the block.
const std::vector<FunctionField>& FunctionFields();

/// The field of that name; null when there is none.
const FunctionField* FindFunctionField(const QString& name);

}  // namespace nira
