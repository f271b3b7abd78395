// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "EditOperations.h"
#include "files/MessageTable.h"
#include "model/CamProgram.h"
#include "model/FunctionFields.h"

#include <initializer_list>
#include <vector>

namespace nira {

/// The values that the set-function operations of one edit give to the functions block. Each is
/// held against its own range at once. What ties fields together, and whether the cam file keeps
/// the values, is looked at when all operations are done: their order makes no difference.
class FunctionEdits {
 public:
  FunctionEdits(CamProgram& program, const MessageTable& texts)
      : program_(program), texts_(texts) {}

  Refusal Set(const EditOperation& operation);

  /// Which of the operations is refused after all, and why.
  Refusal Settle();

 private:
  struct Setting {
    const FunctionField* field;
    int cam;  // from 0
    EditOperation operation;
    Fault Refused(const QString& reason) const;
  };

  void Keep(const Setting& setting);
  const Setting* Find(const char* name) const;
  const Setting* LastOf(std::initializer_list<const char*> names) const;
  Refusal Contradiction() const;
  Refusal Lost() const;
  QString Range(const QString& range) const;

  CamProgram& program_;
  const MessageTable& texts_;
  std::vector<Setting> settings_;  // one a field and cam, the last one that was given
};

}  // namespace nira
