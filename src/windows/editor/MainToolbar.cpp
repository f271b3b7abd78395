// SPDX-License-Identifier: Apache-2.0
#include "editor/MainToolbar.h"

#include "controls/PlainTip.h"
#include "controls/ThemedIcon.h"
#include "editor/DeviceBar.h"
#include "editor/DeviceBlock.h"
#include "editor/SizeStepper.h"
#include "files/TextNumbers.h"
#include "ground/Text.h"

#include <QAction>
#include <QFontDatabase>
#include <QLabel>
#include <QToolButton>

#include <array>

namespace nira {

namespace {

/// A button, its picture, the menu entry that it shares, and its tip.
struct Button {
  const char* name;
  const char* picture;
  const char* entry;
  TextNumber tip;
};

constexpr std::size_t groupSize = 3;
constexpr std::array<Button, 6> buttons = {{
    {"New_Fil", "new", "f_newp", TextNumber::TipNewFil},
    {"OP_FIL", "open", "f_open", TextNumber::TipOpFil},
    {"Sv_Fil", "save", "f_S", TextNumber::TipSvFil},
    {"Sel_Form", "size", "s_sel", TextNumber::TipSelForm},
    {"Azz_Form", "erase", "s_Clr", TextNumber::TipAzzForm},
    {"GoPrCam", "cam", "o_MODC", TextNumber::TipGoPrCam},
}};

QToolButton* Make(const char* name, const char* picture, QAction* entry) {
  auto* button = new QToolButton;
  button->setObjectName(QString::fromLatin1(name));
  button->setProperty("picture", QString::fromLatin1(picture));
  button->setDefaultAction(entry);
  button->setFocusPolicy(Qt::NoFocus);
  return button;
}

}  // namespace

MainToolbar::MainToolbar(const QWidget& menus, DeviceBlock* device)
    : picture1_(new SizeStepper(this)), sizeCam_(new QLabel(QStringLiteral("F00 C00"))) {
  setObjectName(QStringLiteral("Toolbar"));
  setMovable(false);
  const auto make = [&menus](const char* name, const char* picture, const char* entry) {
    return Make(name, picture, menus.findChild<QAction*>(QString::fromLatin1(entry)));
  };
  for (std::size_t k = 0; k < buttons.size(); ++k) {
    QToolButton* button = make(buttons[k].name, buttons[k].picture, buttons[k].entry);
    button->setAutoRaise(true);
    addWidget(button);
    if ((k + 1) % groupSize == 0) addSeparator();
  }
  picture1_->setObjectName(QStringLiteral("Picture1"));
  addWidget(picture1_);
  sizeCam_->setObjectName(QStringLiteral("SizeCam"));
  sizeCam_->setTextFormat(Qt::PlainText);
  sizeCam_->setContentsMargins(16, 0, 16, 0);
  addWidget(sizeCam_);
  addWidget(new DeviceBar(
      device, {make("Transmit", "transmit", "Tr_Siz"), make("Receive", "receive", "Rc_Siz")}));
}

void MainToolbar::ShowTexts(const MessageTable& texts) {
  for (const Button& each : buttons) {
    auto* button = findChild<QToolButton*>(QString::fromLatin1(each.name));
    const QString& text = texts.Text(each.tip);
    const QString key = button->defaultAction()->shortcut().toString(QKeySequence::NativeText);
    button->defaultAction()->setToolTip(
        PlainTip(key.isEmpty() ? text : text + QStringLiteral(" (") + key + u')'));
    button->setAccessibleName(text);
  }
  picture1_->setAccessibleName(texts.Text(TextNumber::SizeWord));
}

void MainToolbar::ShowPictures() {
  for (QToolButton* button : findChildren<QToolButton*>()) {
    const QString picture = button->property("picture").toString();
    if (!picture.isEmpty()) button->defaultAction()->setIcon(ThemedIcon(picture, palette()));
  }
}

void MainToolbar::ShowSizeCam(const CamProgram& program, const MessageTable& texts) {
  sizeCam_->setText(
      texts.Text(TextNumber::SizeWord).left(1) + ZeroFilled(program.CurrentSize(), 2) + u' ' +
      texts.Text(TextNumber::CamWord).left(1) + ZeroFilled(program.CurrentCam() + 1, 2));
}

QString MainToolbar::SizeCam() const {
  return sizeCam_->text();
}

void MainToolbar::Rescale(int picture, int type) {
  QFont label = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  label.setPixelSize(type);
  sizeCam_->setFont(label);
  setIconSize({picture, picture});
  for (QToolButton* button : findChildren<QToolButton*>()) button->setIconSize(iconSize());
  picture1_->Rescale({3 * picture, picture * 5 / 4});
}

}  // namespace nira
