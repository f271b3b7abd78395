// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "files/LineReader.h"
#include "ground/Result.h"
#include "model/CamProgram.h"

#include <QStringList>

#include <string_view>

namespace nira {

/// Takes a received program over into the cam program: functions, descriptions and sizes, all of it
/// or nothing.
class SizeImport {
 public:
  explicit SizeImport(CamProgram& program) : program_(program) {}

  /// `received` is what came, line by line. Without a fault the program is the received one, size 1
  /// and cam 1 selected, unsaved. Otherwise it is as it was: the fault is `WrongCams`, with the
  /// characters that should be the number in `Text`, or `BadLine`.
  Refusal Import(std::string_view received);

  /// What of the program that was taken over the operator should look at, as `OutOfRange` puts it.
  const QStringList& Remarks() const { return remarks_; }

 private:
  Refusal CheckHeader(LineReader& lines) const;
  Refusal ReadInto(CamProgram& program, LineReader& lines);

  CamProgram& program_;
  QStringList remarks_;
};

}  // namespace nira
