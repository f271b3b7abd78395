// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "controls/Instance.h"
#include "messages/DisplayRow.h"
#include "messages/MessageFile.h"
#include "messages/MessageList.h"

#include <QAction>
#include <QDialog>
#include <QKeySequence>
#include <QMenu>
#include <QPushButton>

#include <functional>

namespace nira {

/// What moves the alarm messages of the program over the line, and tells what went wrong. The
/// button of one that is not given is disabled.
struct MessageLink {
  std::function<void()> Transmit;  ///< sends them
  std::function<void()> Receive;   ///< puts the programmer's in their place
};

/// The alarm messages: their file, list, search and changing. The programmer's display shows the
/// selected one.
class AlMsg : public QDialog {
  Q_OBJECT

 public:
  AlMsg(Instance& instance, MessageLink link, QWidget* parent);

  /// Closes, in whatever way it was asked to, when the operator agrees to leave what is not saved.
  void reject() override;

  /// Shows what was done, on the line at the bottom.
  void Say(const QString& text) { note_->setText(text); }

 protected:
  void changeEvent(QEvent* event) override;

 private:
  using Handler = void (AlMsg::*)();

  QAction* AddEntry(QMenu* menu, const char* name, TextNumber caption, Handler handler,
                    QKeySequence::StandardKey key = QKeySequence::UnknownKey);
  QPushButton* MakeButton(const char* name, TextNumber caption, Handler handler);
  QMenu* BuildMenu();
  void BuildList();
  QLayout* BuildButtons();
  void BuildLayout();
  void ShowPictures();
  void ShowTitle();
  void ShowLast();
  void ShowFont();
  void ShowSelected();
  void ShowAll();

  bool MayLoseMessages();
  void OpenFile(const QString& path);
  bool ReadMsgFile();
  bool WriteMsgFile(Buttons asking);
  void ShowNote(const MessageFile& file);
  void PrepareDialog(const QString& title, int flags, const QString& preset);

  void f_New_Click();
  void f_Open_Click();
  void f_Last_Click();
  void f_Save_Click();
  void SVA_Click();
  void t_Searc_Click();
  void FindNext();
  void Find(int after);
  void S_num_Click();
  void tMOD_Click();
  void Pr_msg_Click();
  void Pr_SEL_Click();
  void SEL_FNT_Click();
  void tEX_Click();
  void Tr_M_Click();
  void Rc_M_Click();

  Instance& instance_;
  MessageLink link_;
  MessageList* list_ = nullptr;  // LstAlr
  QLabel* number_ = nullptr;
  DisplayFrame* display_ = nullptr;
  QLabel* state_ = nullptr;
  QLabel* note_ = nullptr;
  QString sought_;  // the text searched for last
};

}  // namespace nira
