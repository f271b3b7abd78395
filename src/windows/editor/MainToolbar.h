// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "files/MessageTable.h"
#include "model/CamProgram.h"

#include <QToolBar>

class QLabel;

namespace nira {

class DeviceBlock;
class SizeStepper;

/// The toolbar of the main window: buttons that do what entries of the menus do, the size stepper
/// with the label of size and cam, and at the right the programmer.
class MainToolbar : public QToolBar {
  Q_OBJECT

 public:
  /// The actions of the entries are found below `menus` by their names.
  MainToolbar(const QWidget& menus, DeviceBlock* device);

  SizeStepper* Picture1() const { return picture1_; }

  /// Takes the tips, with the keys of the entries.
  void ShowTexts(const MessageTable& texts);

  /// Draws the pictures of the buttons in the colours of the palette.
  void ShowPictures();

  void ShowSizeCam(const CamProgram& program, const MessageTable& texts);
  /// "F01 C05".
  QString SizeCam() const;

  /// Pixels of a picture's side and of the label's type; the stepper is three pictures wide.
  void Rescale(int picture, int type);

 private:
  SizeStepper* picture1_;
  QLabel* sizeCam_;
};

}  // namespace nira
