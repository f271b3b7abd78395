// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/CamProgram.h"

#include <QStringList>

namespace nira {

/// What differs between a program that was sent to a programmer and what was read back: limits,
/// functions, descriptions and every degree. What the line does not carry is left out: functions
/// of groups that are off, the ratio of cams 17 to 24, descriptions of cams without a phase in
/// size 1.
class ProgramComparison {
 public:
  static constexpr qsizetype MostTexts = 20;

  ProgramComparison(const CamProgram& sent, const CamProgram& back);

  /// How many runs of degrees, functions and descriptions differ.
  qsizetype Count() const { return count_; }
  /// The first of them in words: "size 3, cam 7, degrees 40 to 59: ON in the file, OFF in the
  /// programmer".
  const QStringList& Texts() const { return texts_; }

 private:
  void Add(const QString& where, const QString& sent, const QString& back);
  void CompareFunctions(const FunctionsBlock& sent, const FunctionsBlock& back, int cams);
  void CompareTexts(const CamProgram& sent, const CamProgram& back);
  void CompareSizes(const CamProgram& sent, const CamProgram& back);
  void CompareRow(const QString& where, const CamRow& sent, const CamRow& back);

  qsizetype count_ = 0;
  QStringList texts_;
};

}  // namespace nira
