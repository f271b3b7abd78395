// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "controls/ElidedLabel.h"

namespace nira {

class MessageTable;
class NumberBox;

/// Says which typed value was refused and what is allowed. The box keeps the value, marked, until
/// it is changed.
class RangeNote : public ElidedLabel {
  Q_OBJECT

 public:
  explicit RangeNote(const MessageTable& texts);

  /// From now on a change of this box takes its mark away.
  void Watch(NumberBox* box);

  /// What stands in the box is not from `lowest` to `highest`. The box is called by its accessible
  /// name.
  void Refuse(NumberBox* box, int lowest, int highest);
  void Accept(NumberBox* box);

 private:
  const MessageTable& texts_;
  const NumberBox* refused_ = nullptr;  // the one that the words are about
};

}  // namespace nira
