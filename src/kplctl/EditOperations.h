// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "files/TextNumbers.h"
#include "ground/Result.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>
#include <vector>

namespace nira {

class ProgramEdit;
struct EditOperation;

/// An argument of an operation. Numbers are whole; sizes and cams count from 1.
struct EditParameter {
  enum class Kind { Size, Cam, Degree, Number, Text, File, Field };
  const char* name;
  Kind kind;
  TextNumber refusal = TextNumber::OutOfRange;  ///< when the number is out of range
  int least = 1;                                ///< of a size

  bool IsNumber() const { return kind <= Kind::Number; }
};

/// What `kplctl edit` can do.
struct EditOperationKind {
  const char* name;
  std::vector<EditParameter> parameters;
  const char* help;
  Refusal (ProgramEdit::*run)(const EditOperation& operation);
};

/// One operation as it stands on the command line.
struct EditOperation {
  const EditOperationKind* kind = nullptr;
  qsizetype number = 0;   ///< its place among the operations, from 1
  QStringList arguments;  ///< as many as its kind has parameters

  /// An argument as a number; beyond 32 bits it stays outside every range.
  std::int64_t Wide(qsizetype argument) const;
  /// The same for a number that was found within its range.
  int Number(qsizetype argument) const { return static_cast<int>(Wide(argument)); }

  /// "operation 2, copy-size 1 23"
  QString Named() const;
};

/// The operations of a command line, or why it has a wrong one.
struct EditOperations {
  std::vector<EditOperation> operations;
  QString fault;

  static EditOperations Of(const QStringList& words);

  /// How many arguments the operation at line[at] takes; 0 when there is no such operation.
  static qsizetype ArgumentsAt(const QStringList& line, qsizetype at);

  /// A line for each operation and what is to be known about them.
  static QString Usage();
};

}  // namespace nira
