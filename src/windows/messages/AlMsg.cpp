// SPDX-License-Identifier: Apache-2.0
#include "messages/AlMsg.h"

#include "controls/ElidedLabel.h"
#include "controls/PlainTip.h"
#include "controls/ThemedIcon.h"
#include "dialogs/clsCommonDialog.h"
#include "ground/Text.h"
#include "line/FaultText.h"
#include "line/MessageTransfer.h"
#include "messages/LastMessageFile.h"
#include "messages/ModMsg.h"
#include "messages/PrnMsg.h"
#include "printing/PrintPane.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QGridLayout>
#include <QMenuBar>
#include <QShortcut>
#include <QToolBar>
#include <QVBoxLayout>

#include <utility>

namespace nira {

namespace {

constexpr qsizetype longestShown = 60;  // characters of an answer that a box repeats
constexpr QSize windowSize(960, 640);

int BasePixels() {
  return QFontInfo(QApplication::font()).pixelSize();
}

}  // namespace

AlMsg::AlMsg(Instance& instance, MessageLink link, QWidget* parent)
    : QDialog(parent), instance_(instance), link_(std::move(link)) {
  setObjectName(QStringLiteral("AlMsg"));
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  BuildList();
  BuildLayout();
  connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this,
          &AlMsg::t_Searc_Click);
  connect(new QShortcut(QKeySequence::FindNext, this), &QShortcut::activated, this,
          &AlMsg::FindNext);
  ShowPictures();
  ShowTitle();
  ShowFont();
  ShowAll();
  resize(windowSize);
  list_->setFocus();
}

QAction* AlMsg::AddEntry(QMenu* menu, const char* name, TextNumber caption, Handler handler,
                         QKeySequence::StandardKey key) {
  QAction* entry = menu->addAction(instance_.Text(caption));
  entry->setObjectName(QString::fromLatin1(name));
  entry->setIconVisibleInMenu(false);
  if (key != QKeySequence::UnknownKey) entry->setShortcut(key);
  connect(entry, &QAction::triggered, this, handler);
  return entry;
}

QPushButton* AlMsg::MakeButton(const char* name, TextNumber caption, Handler handler) {
  auto* button = new QPushButton(instance_.Text(caption));
  button->setObjectName(QString::fromLatin1(name));
  button->setFocusPolicy(Qt::TabFocus);  // after a click the keys still go to the list
  connect(button, &QPushButton::clicked, this, handler);
  return button;
}

QMenu* AlMsg::BuildMenu() {
  auto* menu = new QMenu(instance_.Text(TextNumber::MsgFileMenu), this);
  AddEntry(menu, "f_New", TextNumber::MsgNew, &AlMsg::f_New_Click, QKeySequence::New);
  AddEntry(menu, "f_Open", TextNumber::MsgOpen, &AlMsg::f_Open_Click, QKeySequence::Open);
  QAction* last = menu->addAction(QString());
  last->setObjectName(QStringLiteral("f_Last"));
  connect(last, &QAction::triggered, this, &AlMsg::f_Last_Click);
  AddEntry(menu, "f_Save", TextNumber::MsgSave, &AlMsg::f_Save_Click, QKeySequence::Save);
  AddEntry(menu, "SVA", TextNumber::MsgSaveAs, &AlMsg::SVA_Click);
  menu->addSeparator();
  AddEntry(menu, "Pr_SEL", TextNumber::MsgSelectPrinter, &AlMsg::Pr_SEL_Click);
  AddEntry(menu, "SEL_FNT", TextNumber::MsgSelectFont, &AlMsg::SEL_FNT_Click);
  AddEntry(menu, "Pr_msg", TextNumber::MsgPrint, &AlMsg::Pr_msg_Click, QKeySequence::Print);
  menu->addSeparator();
  AddEntry(menu, "F_EX", TextNumber::MsgExit, &AlMsg::tEX_Click);
  return menu;
}

void AlMsg::BuildList() {
  const int base = BasePixels();
  list_ = new MessageList(instance_.Program);
  list_->setObjectName(QStringLiteral("LstAlr"));
  list_->setAccessibleName(instance_.Text(TextNumber::AlarmMessages));
  QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  fixed.setPixelSize(base * 11 / 10);
  list_->setFont(fixed);
  list_->setSpacing(1);
  constexpr int entry = 4 + MessageDisplay::Longest + 4;  // characters, and room for the scroll bar
  list_->setMinimumWidth(list_->fontMetrics().horizontalAdvance(QString(entry, u'M')));
  connect(list_, &QListWidget::currentRowChanged, this, &AlMsg::ShowSelected);
  connect(list_, &QListWidget::itemDoubleClicked, this, &AlMsg::tMOD_Click);
  number_ = new QLabel;
  number_->setObjectName(QStringLiteral("Number"));
  fixed.setPixelSize(base * 2);
  number_->setFont(fixed);
  const int cells = base * 7 / 5;
  display_ = new DisplayFrame(new DisplayRow("Upper", cells), new DisplayRow("Lower", cells));
  state_ = new QLabel;
  state_->setObjectName(QStringLiteral("State"));
  state_->setTextFormat(Qt::PlainText);
  note_ = new ElidedLabel;
  note_->setObjectName(QStringLiteral("Note"));
}

/// What goes over the line stands well apart from what only looks.
QLayout* AlMsg::BuildButtons() {
  auto* modify = MakeButton("tMOD", TextNumber::MsgModify, &AlMsg::tMOD_Click);
  modify->setDefault(true);
  auto* search = MakeButton("t_Searc", TextNumber::MsgSearchText, &AlMsg::t_Searc_Click);
  search->setToolTip(PlainTip(instance_.Text(TextNumber::FindNextTip)));
  auto* transmit = MakeButton("Tr_M", TextNumber::MsgTransmit, &AlMsg::Tr_M_Click);
  transmit->setEnabled(link_.Transmit != nullptr);
  auto* receive = MakeButton("Rc_M", TextNumber::MsgReceive, &AlMsg::Rc_M_Click);
  receive->setEnabled(link_.Receive != nullptr);
  auto* grid = new QGridLayout;
  grid->setSpacing(8);
  grid->addWidget(modify, 0, 0, 1, 2);
  grid->addWidget(search, 1, 0);
  grid->addWidget(MakeButton("S_num", TextNumber::MsgSearchNumber, &AlMsg::S_num_Click), 1, 1);
  grid->setRowMinimumHeight(2, 32);
  grid->setRowStretch(2, 1);
  grid->addWidget(transmit, 3, 0);
  grid->addWidget(receive, 3, 1);
  grid->setRowMinimumHeight(4, 16);
  grid->addWidget(state_, 5, 0);
  grid->addWidget(MakeButton("tEX", TextNumber::MsgExit, &AlMsg::tEX_Click), 5, 1);
  return grid;
}

void AlMsg::BuildLayout() {
  QMenu* menu = BuildMenu();
  auto* bar = new QMenuBar;
  bar->addMenu(menu);
  auto* toolbar = new QToolBar;
  for (const char* name : {"f_New", "f_Open", "f_Save"}) {
    toolbar->addAction(menu->findChild<QAction*>(QString::fromLatin1(name)));
  }
  auto* side = new QVBoxLayout;
  side->setSpacing(8);
  side->addWidget(number_);
  side->addWidget(display_);
  side->addSpacing(8);
  side->addLayout(BuildButtons(), 1);
  auto* centre = new QHBoxLayout;
  centre->setContentsMargins(12, 8, 12, 8);
  centre->setSpacing(16);
  centre->addWidget(list_, 1);
  centre->addLayout(side);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->setMenuBar(bar);
  layout->addWidget(toolbar);
  layout->addLayout(centre, 1);
  auto* notes = new QHBoxLayout;
  notes->setContentsMargins(12, 0, 12, 8);
  notes->addWidget(note_);
  layout->addLayout(notes);
}

void AlMsg::ShowPictures() {
  for (const auto& [name, picture] :
       {std::pair("f_New", "new"), {"f_Open", "open"}, {"f_Save", "save"}}) {
    findChild<QAction*>(QString::fromLatin1(name))
        ->setIcon(ThemedIcon(QString::fromLatin1(picture), palette()));
  }
}

void AlMsg::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) ShowPictures();
}

void AlMsg::ShowTitle() {
  const QString& path = instance_.Settings.MsgFile;
  QString title = QStringLiteral("NIRA-KPL -  PROGRAMMATORE DI CAMME QX32 -  ") + path;
  if (path.isEmpty())
    title = QStringLiteral("NIRA-KPL -  ") + instance_.Text(TextNumber::AlarmMessages);
  title.replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));  // no placeholder of Qt's
  setWindowTitle(title);
  ShowLast();
}

/// The entry that opens the file used last names it.
void AlMsg::ShowLast() {
  QString path = LastMessageFile(instance_.User);
  auto* entry = findChild<QAction*>(QStringLiteral("f_Last"));
  entry->setVisible(!path.isEmpty());
  entry->setText(QStringLiteral("&1 ") + path.replace(u'&', QStringLiteral("&&")));
}

/// The entry that chooses the font names the chosen one.
void AlMsg::ShowFont() {
  QFont font;
  font.fromString(instance_.Settings.MsgFont);
  QString family = font.family();
  family.replace(u'&', QStringLiteral("&&"));
  findChild<QAction*>(QStringLiteral("SEL_FNT"))
      ->setText(instance_.Text(TextNumber::MsgSelectFont) + QStringLiteral(" (") + family + u')');
}

void AlMsg::ShowSelected() {
  number_->setText(QStringLiteral("N. ") + ZeroFilled(list_->Selected(), 3));
  display_->Show(RowsOf(instance_.Program.MessageText(list_->Selected())));
  const bool saved = instance_.Settings.MsgSaved;
  state_->setText(instance_.Text(saved ? TextNumber::StatusSaved : TextNumber::StatusChanged));
}

void AlMsg::ShowAll() {
  list_->ShowAll();
  ShowSelected();
}

/// Messages that are in no file are not thrown away by a slip.
bool AlMsg::MayLoseMessages() {
  return instance_.Settings.MsgSaved || !HoldsMessages(instance_.Program) ||
         instance_.Ask.MsgBox(instance_.Text(TextNumber::MessagesNotSaved), Buttons::CancelOk,
                              Icon::Exclamation) == Answer::Ok;
}

void AlMsg::f_New_Click() {
  if (!MayLoseMessages()) return;
  ClearMessages(instance_.Program);
  instance_.Settings.MsgSaved = false;
  note_->clear();
  ShowAll();
}

void AlMsg::PrepareDialog(const QString& title, int flags, const QString& preset) {
  clsCommonDialog& dialog = instance_.Dialog;
  dialog.DialogTitle = title;
  dialog.Filter = instance_.Text(TextNumber::MessageFiles) + QStringLiteral("(*.Msg)|*.msg|") +
                  instance_.Text(TextNumber::AllFiles) + QStringLiteral("(*.*)|*.*");
  dialog.Flags = flags;
  dialog.FileName = preset;
}

void AlMsg::f_Open_Click() {
  if (!MayLoseMessages()) return;
  PrepareDialog(QStringLiteral("APRI File Messaggi"), clsCommonDialog::FileMustExist,
                LastMessageFile(instance_.User));
  if (!instance_.Dialog.ShowOpen(this) || instance_.Dialog.FileName.isEmpty()) return;
  OpenFile(instance_.Dialog.FileName);
}

void AlMsg::f_Last_Click() {
  if (MayLoseMessages()) OpenFile(LastMessageFile(instance_.User));
}

void AlMsg::OpenFile(const QString& path) {
  QString& current = instance_.Settings.MsgFile;
  const QString before = std::exchange(current, path);
  if (!ReadMsgFile()) {
    current = before;
    return;
  }
  KeepMessageFile(instance_.User, current);
  instance_.Settings.MsgSaved = true;
  ShowTitle();
  ShowAll();
  list_->Select(1);
}

void AlMsg::f_Save_Click() {
  if (!QFileInfo::exists(instance_.Settings.MsgFile)) {
    instance_.Ask.MsgBox(QStringLiteral("FILE NON SELEZIONATO"), Buttons::Ok, Icon::Critical);
    return;
  }
  WriteMsgFile(Buttons::YesNo);
  ShowSelected();
}

void AlMsg::SVA_Click() {
  QString& current = instance_.Settings.MsgFile;
  PrepareDialog(QStringLiteral("SALVA File con Nome "),
                clsCommonDialog::OverwritePrompt + clsCommonDialog::PathMustExist, current);
  if (!instance_.Dialog.ShowSave(this) || instance_.Dialog.FileName.isEmpty()) return;
  const QString before = std::exchange(
      current, MessageFileName(QFileInfo(instance_.Dialog.FileName).absoluteFilePath()));
  if (!WriteMsgFile(Buttons::NoYes)) current = before;
  ShowTitle();
  ShowSelected();
}

/// Fills the messages from `MsgFile`; false, with nothing changed, when it cannot be read.
bool AlMsg::ReadMsgFile() {
  const QString path = instance_.Folder.Find(instance_.Settings.MsgFile);
  const auto file = nira::ReadMsgFile(path, instance_.Program.NumMessages());
  if (!file) {
    TellFault(instance_, file.Why());
    return false;
  }
  ReplaceMessages(instance_.Program, *file);
  ShowNote(*file);
  return true;
}

/// What of the file that was opened is not as its name promises.
void AlMsg::ShowNote(const MessageFile& file) {
  const int most = instance_.Program.NumMessages();
  note_->clear();
  if (!file.HasMessages()) note_->setText(instance_.Text(TextNumber::NoMessageFile));
  if (file.Last <= most) return;
  note_->setText(instance_.Text(TextNumber::MessagesLeftOut) + QString::number(most + 1) + u'-' +
                 QString::number(file.Last));
}

/// Writes the messages to `MsgFile`, asking first, with these buttons, when it would replace a
/// file. True when it was written: `MsgSaved` is true then, otherwise as it was.
bool AlMsg::WriteMsgFile(Buttons asking) {
  const QString path = instance_.Folder.Find(instance_.Settings.MsgFile);
  if (QFileInfo::exists(path)) {
    if (IsOpenCamFile(instance_, path)) return false;
    const QString question = QStringLiteral("SOVRASCRIVERE FILE ");
    if (instance_.Ask.MsgBox(question + instance_.Settings.MsgFileTitle(), asking,
                             Icon::Exclamation) != Answer::Yes) {
      return false;
    }
  }
  const Refusal refusal =
      nira::WriteMsgFile(instance_.Program, path, instance_.Writer, FileWriter::Backup::Yes);
  if (refusal) TellFault(instance_, *refusal);
  if (refusal) return false;
  instance_.Settings.MsgSaved = true;
  KeepMessageFile(instance_.User, path);
  Say(instance_.Text(TextNumber::FileSaved) + path);
  return true;
}

void AlMsg::t_Searc_Click() {
  const auto text = instance_.Ask.InputBox(QStringLiteral("TESTO DA RICERCARE"), sought_,
                                           QStringLiteral("MESSAGGI ALLARME"));
  if (!text || text->isEmpty()) return;
  sought_ = *text;
  Find(0);
}

void AlMsg::FindNext() {
  if (sought_.isEmpty()) return t_Searc_Click();
  Find(list_->Selected());
}

/// Selects the next message with the text, behind this number or, when there is none, from the
/// first on.
void AlMsg::Find(int after) {
  note_->clear();
  const auto found = FindMessage(instance_.Program, sought_, after);
  if (!found) {
    instance_.Ask.MsgBox(QStringLiteral("TESTO NON TROVATO"), Buttons::Ok, Icon::None);
    return;
  }
  list_->Select(*found);
  if (*found <= after) Say(instance_.Text(TextNumber::SearchFromTop));
}

void AlMsg::S_num_Click() {
  const QString prompt =
      QStringLiteral("NUMERO ALLARME 1 - ") + QString::number(instance_.Program.NumMessages());
  const auto answer = instance_.Ask.InputBox(prompt, {}, QStringLiteral("SEARCH"));
  if (!answer) return;
  if (const auto number = NumberToSelect(instance_.Program, *answer)) {
    list_->Select(*number);
  } else {
    instance_.Ask.MsgBox(answer->left(longestShown) + QStringLiteral(" = NUMERO NON VALIDO"),
                         Buttons::Ok, Icon::None);
  }
}

void AlMsg::tMOD_Click() {
  const int number = list_->Selected();
  if (ModMsg(instance_, number, this).exec() != QDialog::Accepted) return;
  list_->ShowOne(number);
  ShowSelected();
}

void AlMsg::Pr_msg_Click() {
  PrnMsg(instance_, this).exec();
}

void AlMsg::Pr_SEL_Click() {
  SelectPrinter(instance_, this);
}

void AlMsg::SEL_FNT_Click() {
  clsCommonDialog& dialog = instance_.Dialog;
  dialog.DialogTitle.clear();
  dialog.Font.fromString(instance_.Settings.MsgFont);
  if (dialog.ShowFont(this)) instance_.Settings.MsgFont = dialog.Font.toString();
  ShowFont();
}

void AlMsg::Tr_M_Click() {
  note_->clear();
  link_.Transmit();
  ShowAll();  // the programmer may have another number of messages
}

void AlMsg::Rc_M_Click() {
  if (!MayLoseMessages()) return;
  note_->clear();
  link_.Receive();
  ShowAll();
}

void AlMsg::tEX_Click() {
  close();
}

void AlMsg::reject() {
  if (!instance_.Settings.MsgSaved &&
      instance_.Ask.MsgBox(QStringLiteral("IL FILE NON E' STATO SALVATO\rVUOI USCIRE ?"),
                           Buttons::CancelYesNo, Icon::Exclamation) != Answer::Yes) {
    return;
  }
  QDialog::reject();
}

}  // namespace nira
