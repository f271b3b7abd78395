// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "controls/Instance.h"

#include <QObject>
#include <QWidget>

#include <cstdint>

namespace nira {

/// The Sizes menu: whole sizes and cams, and the descriptions. Each command asks, acts on the
/// current size and cam, and says when the display has to be rebuilt.
class SizeCommands : public QObject {
  Q_OBJECT

 public:
  SizeCommands(Instance& instance, QWidget* window);

  void s_sel_Click();
  void O_Copy_Click();
  /// Leaves the display as it is: the erased phases show until the next refresh.
  void s_Clr_Click();
  void S_Imp_Click();
  void O_CopyC_Click();
  void o_Shc_Click();
  void O_ClC_Click();

  /// Edits the description of the current cam, whichever label was double-clicked.
  void LDefC_DblClick();

 Q_SIGNALS:
  /// The display has to be rebuilt.
  void Shown();
  /// The description of a cam (from 0) changed, and nothing else of the display.
  void Described(int cam);
  /// The program changed behind the display.
  void Hidden();
  /// What was done.
  void Note(const QString& text);

 private:
  std::int64_t AskNumber(const QString& prompt);
  QString AskDescription(const QString& prompt, const QString& before);
  QString SizePrompt(TextNumber number) const;
  void Tell(TextNumber number, Icon icon);
  void Say(TextNumber number, int first, std::int64_t second = 0);
  void Import(const QString& path);

  Instance& instance_;
  QWidget* window_;
};

}  // namespace nira
