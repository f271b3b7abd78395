// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

namespace nira {

/// The lines of text in which a firmware update shows what it does.
enum class FlashLine {
  File,      ///< the file, with its bytes once it is tested
  Testing,   ///< the line that was tested last
  Program,   ///< the program in the file
  Transmit,  ///< the line that is on its way
  Message,   ///< what the operator has to know: a fault, a remark, the end
};

/// Where a firmware update shows what it does.
class FlashReport {
 public:
  virtual ~FlashReport() = default;

  virtual void Show(FlashLine line, const QString& text) = 0;
  /// Whether the programmer was ready when it was looked at.
  virtual void Ready(bool ready) = 0;
  /// How often the programmer has refused the line that is on its way: 0 with the first line, then
  /// told when it changes.
  virtual void Refused(int times) = 0;
  /// Whole percentage 0..100 of the lines sent; told when it changes.
  virtual void Progress(int percent) = 0;
};

}  // namespace nira
