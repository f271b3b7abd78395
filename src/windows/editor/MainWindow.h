// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "controls/Instance.h"
#include "editor/LanguageCommands.h"
#include "editor/MainMenu.h"
#include "line/PortNames.h"

#include <QMainWindow>

#include <tuple>

class QDialog;

namespace nira {

struct Phase;
class CamDiagram;
class DeviceBlock;
class FileCommands;
class LineCommands;
class MainToolbar;
class PanelExtras;
class PhaseEntry;
class SizeCommands;
class SizeStrip;
class StartPanel;
class StatusLine;

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

  /// What the programmer makes of the cams at the speed that is set.
  void ShowSwitching();

  void LabCam_Click(int cam);
  void LabCam_DblClick(int cam);

  /// A drawn run of a cam: the cam is selected, then the line of the phase, if there still is one.
  void Run_Click(int cam, const Phase& phase);
  void Run_DblClick(int cam, const Phase& phase);

  /// Lets the operator choose another script and takes its texts.
  void SelectLanguage();

 protected:
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildFileMenu();
  void BuildSizesMenu();
  void BuildOtherMenus();
  void BuildToolbar(const PortNames& ports);
  void BuildCentre();
  QAction* Entry(const char* name) const;
  void BuildStart();
  void ConnectAll();
  void ShowPictures();
  void Command(const MainMenu::Handler& handler);
  void FitToScreen();
  void Rescale(double factor);

  void Form_Activate();
  void Form_QueryUnload(bool& cancel);
  void Form_Unload();
  bool KeyDown(int key);
  void Picture1_Step(int step);
  void SelectSize(int size);
  void ShowState();
  void Fu_Set_Click();
  void Al_Msg_Click();
  void o_AllSizes_Click();
  void O_Rot_Click();
  void o_Ant_Click();
  void o_MODC_Click();
  void o_Undo_Click();
  void ShowAbout();
  void ShowManual();
  void ShowRowMenu(int cam, const QPoint& place);
  void Select(QDialog&& window);
  void ProgramReplaced();
  void ExchangeEnded(bool received);
  void OpenRecent(const QString& path);
  bool LoadTexts();
  using TitleParts = std::tuple<QString, int, int, int>;  // what a title is made of
  void ShowTitle(const QString& title);
  QString ActiveTitle() const;
  TitleParts TitleSource() const;

  Instance& instance_;
  LanguageCommands languages_;
  MainMenu* menu_;
  FileCommands* files_;
  SizeCommands* sizes_;
  LineCommands* lines_;
  CamDiagram* diagram_;
  PhaseEntry* entry_;
  PanelExtras* extras_;
  SizeStrip* strip_;
  StatusLine* status_;
  StartPanel* start_;
  DeviceBlock* device_;
  MainToolbar* toolbar_;
  QAction* o_Undo_;
  TitleParts titled_;       // what the title was made of
  bool returning_ = false;  // the next activation is that of a dialog that a command closed
  double factor_ = 0;       // scale of the controls; 0 until it is computed, once a run
};

}  // namespace nira
