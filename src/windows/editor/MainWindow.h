// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "controls/Instance.h"
#include "editor/CamDiagram.h"
#include "editor/FileCommands.h"
#include "editor/LineCommands.h"
#include "editor/MainMenu.h"
#include "editor/PhaseEntry.h"
#include "editor/SizeCommands.h"
#include "editor/SizeStepper.h"
#include "editor/StatusLine.h"
#include "files/OptionsFile.h"
#include "line/PortNames.h"

#include <QDialog>
#include <QHash>
#include <QMainWindow>
#include <QToolBar>
#include <QToolButton>

#include <functional>

namespace nira {

/// The program's window: menus, toolbar, diagram and phase entry of the selected size and cam.
class MainWindow : public QMainWindow {
  Q_OBJECT

 public:
  MainWindow(Instance& instance, const PortNames& ports);

  /// The start-up sequence: options, script, limits, port, model, and the file of the command line
  /// when there is one. False when the program cannot go on.
  bool Form_Load(const QString& startFile);

  /// Rewrites the size/cam label and draws everything anew from the program.
  void ShowSizeCam();

  /// Draws one cam (index from 0); for the selected one also the phase list and the count.
  void RefreshCam(int cam);

  void LabCam_Click(int cam);
  void LabCam_DblClick(int cam);

  /// Lets the operator choose another script and takes its texts.
  void SelectLanguage();

 protected:
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildToolbar();
  void BuildCentre();
  void BuildHandlers();
  void ConnectAll();
  QToolButton* AddButton(QToolBar* bar, const char* name, const char* picture);
  void ShowPictures();
  void Command(const QString& item);
  void FitToScreen();
  void Rescale(double factor);

  void Form_Activate();
  void Form_QueryUnload(bool& cancel);
  void Form_Unload();
  bool KeyDown(int key);
  void Picture1_Step(int step);
  void Al_Msg_Click();
  void o_MODC_Click();
  void o_Undo_Click();
  void Select(QDialog&& window);
  void ProgramReplaced();
  void ExchangeEnded(bool received);
  void OpenRecent(const QString& path);
  bool LoadTexts();
  void ReportWrite(const QString& name, const QString& reason);
  void ShowTitle(const QString& title);
  QString FileTitle() const;

  Instance& instance_;
  OptionsFile options_;
  MainMenu* menu_;
  FileCommands* files_;
  SizeCommands* sizes_;
  LineCommands* lines_;
  CamDiagram* diagram_;
  PhaseEntry* entry_;
  SizeStepper* picture1_;
  QLabel* sizeCam_;
  StatusLine* status_;
  QToolBar* toolbar_;
  QHash<QString, std::function<void()>> handlers_;  // by the name of the menu item
  double factor_ = 0;  // scale of the controls; 0 until it is computed, once a run
};

}  // namespace nira
