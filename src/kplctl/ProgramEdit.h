// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "EditOperations.h"
#include "FunctionEdits.h"
#include "files/MessageTable.h"
#include "model/CamProgram.h"

namespace nira {

/// Does the operations of `kplctl edit` to a program, each by what the menu does too.
class ProgramEdit {
 public:
  ProgramEdit(CamProgram& program, const MessageTable& texts)
      : program_(program), texts_(texts), functions_(program, texts) {}

  /// Does all operations; stops at the first that is refused, and returns which and why.
  Refusal Run(const std::vector<EditOperation>& operations);

  /// What is to be said of the files that were read.
  QStringList Remarks;

  Refusal SetPhase(const EditOperation& operation);
  Refusal CopySize(const EditOperation& operation);
  Refusal EraseSize(const EditOperation& operation);
  Refusal ImportSize(const EditOperation& operation);
  Refusal CopyCam(const EditOperation& operation);
  Refusal ShiftCam(const EditOperation& operation);
  Refusal EraseCam(const EditOperation& operation);
  Refusal Describe(const EditOperation& operation);
  Refusal SetFunction(const EditOperation& operation);

 private:
  Refusal RangeFault(const EditOperation& operation) const;
  Refusal OutOfRange(const EditParameter& parameter, std::int64_t number) const;

  CamProgram& program_;
  const MessageTable& texts_;
  FunctionEdits functions_;
};

}  // namespace nira
