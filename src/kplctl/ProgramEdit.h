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
  EditRefusal Run(const std::vector<EditOperation>& operations);

  EditRefusal SetPhase(const EditOperation& operation);
  EditRefusal CopySize(const EditOperation& operation);
  EditRefusal EraseSize(const EditOperation& operation);
  EditRefusal ImportSize(const EditOperation& operation);
  EditRefusal CopyCam(const EditOperation& operation);
  EditRefusal ShiftCam(const EditOperation& operation);
  EditRefusal EraseCam(const EditOperation& operation);
  EditRefusal Describe(const EditOperation& operation);
  EditRefusal SetFunction(const EditOperation& operation);

 private:
  EditRefusal RangeFault(const EditOperation& operation) const;
  EditRefusal OutOfRange(const EditParameter& parameter, std::int64_t number) const;

  CamProgram& program_;
  const MessageTable& texts_;
  FunctionEdits functions_;
};

/// What the cam file of the program will not hold, in words for the operator: phases that its
/// reader erases, descriptions of cams without a phase.
QStringList NotKept(const CamProgram& program, const CamProgram& readBack);

}  // namespace nira
