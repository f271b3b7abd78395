// SPDX-License-Identifier: Apache-2.0
#include "editor/MainWindow.h"

#include "controls/ThemedIcon.h"
#include "controls/UserSettings.h"
#include "dialogs/About.h"
#include "dialogs/Manual.h"
#include "dialogs/clsCommonDialog.h"
#include "editor/AllSizes.h"
#include "editor/CamDiagram.h"
#include "editor/DeviceBlock.h"
#include "editor/FileCommands.h"
#include "editor/LineCommands.h"
#include "editor/MainToolbar.h"
#include "editor/PanelExtras.h"
#include "editor/PhaseEntry.h"
#include "editor/PhaseMenu.h"
#include "editor/SizeCommands.h"
#include "editor/SizeStepper.h"
#include "editor/SizeStrip.h"
#include "editor/SpeedBox.h"
#include "editor/StartPanel.h"
#include "editor/StatusLine.h"
#include "functions/BNKRTN.h"
#include "functions/CalcAnt.h"
#include "functions/FuncSel.h"
#include "ground/Text.h"
#include "messages/AlMsg.h"
#include "model/Switching.h"
#include "printing/PrnSize.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDialog>
#include <QDropEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QStatusBar>
#include <QVBoxLayout>

namespace nira {

namespace {

/// Width in pixels that the controls were drawn for; a wider window scales them once.
constexpr int designWidth = 646;
constexpr QSize largestStart(1280, 960);
constexpr int leastWidth = 800;  // the least height is that of 32 rows
constexpr int leastText = 12;    // pixels
constexpr auto placeKey = "window/place";
constexpr auto speedKey = "window/speed";  // rev/min

/// Another window has the floor: nothing may happen to this one, and a drop does not ask Qt.
bool Blocked() {
  return QApplication::activeModalWidget() != nullptr;
}

QString FirstLocalFile(const QMimeData* data) {
  const QList<QUrl> urls = data->urls();
  return urls.isEmpty() ? QString() : urls.constFirst().toLocalFile();
}

}  // namespace

MainWindow::MainWindow(Instance& instance, const PortNames& ports)
    : instance_(instance),
      languages_(instance),
      menu_(
          new MainMenu(menuBar(), [this](const MainMenu::Handler& handler) { Command(handler); })),
      files_(new FileCommands(instance, this)),
      sizes_(new SizeCommands(instance, this)),
      lines_(new LineCommands(instance, ports, this)),
      status_(new StatusLine(instance, statusBar())) {
  setObjectName(QStringLiteral("MainWindow"));
  setAcceptDrops(true);
  setContextMenuPolicy(Qt::NoContextMenu);
  BuildCentre();
  BuildFileMenu();
  BuildSizesMenu();
  BuildOtherMenus();
  BuildToolbar(ports);
  extras_ = new PanelExtras(entry_, {findChild<QAction*>(QStringLiteral("NewPhase")),
                                     findChild<QAction*>(QStringLiteral("DelPhase")), o_Undo_});
  BuildStart();
  ConnectAll();
  ShowPictures();
  FitToScreen();
  qApp->installEventFilter(this);  // the keys that select a cam come before every control
}

void MainWindow::BuildToolbar(const PortNames& ports) {
  device_ = new DeviceBlock(instance_, ports);
  toolbar_ = new MainToolbar(*menuBar(), device_);
  addToolBar(toolbar_);
}

void MainWindow::BuildCentre() {
  auto* centre = new QWidget;
  centre->setMinimumWidth(leastWidth);
  entry_ = new PhaseEntry(instance_, centre);  // the first one for Tab
  diagram_ = new CamDiagram(centre);
  diagram_->setObjectName(QStringLiteral("Diagram"));
  strip_ = new SizeStrip(instance_.Texts, diagram_->Barra(0), centre);
  setTabOrder(strip_, diagram_);  // one step back from the first one
  auto* layout = new QHBoxLayout(centre);
  layout->setContentsMargins(12, 8, 12, 8);
  layout->setSpacing(16);
  auto* left = new QVBoxLayout;
  left->setSpacing(2);
  left->addWidget(strip_);
  left->addWidget(diagram_, 1);
  layout->addLayout(left, 1);
  layout->addWidget(entry_);
  setCentralWidget(centre);
}

/// An entry of the menus, by its name.
QAction* MainWindow::Entry(const char* name) const {
  return menuBar()->findChild<QAction*>(QString::fromLatin1(name));
}

void MainWindow::BuildStart() {
  const StartPanel::Entries entries = {Entry("f_open"), Entry("f_newp"), Entry("Rc_Siz"),
                                       Entry("f_New")};
  start_ = new StartPanel(instance_, entries, diagram_->Barra(0), centralWidget());
  connect(start_, &StartPanel::RecentChosen, this, &MainWindow::OpenRecent);
  connect(files_, &FileCommands::RecentChanged, start_, &StartPanel::ShowRecent);
  connect(files_, &FileCommands::Refused, start_, &StartPanel::ShowRefused);
}

void MainWindow::ConnectAll() {
  connect(menu_, &MainMenu::RecentChosen, this, &MainWindow::OpenRecent);
  const SizeStepper* picture1 = toolbar_->Picture1();
  connect(picture1, &SizeStepper::Previous, this, [this] { Picture1_Step(-1); });
  connect(picture1, &SizeStepper::Next, this, [this] { Picture1_Step(1); });
  connect(strip_, &SizeStrip::Chosen, this, &MainWindow::SelectSize);
  connect(diagram_, &CamDiagram::LabCam_Click, this, &MainWindow::LabCam_Click);
  connect(diagram_, &CamDiagram::LabCam_DblClick, this, &MainWindow::LabCam_DblClick);
  connect(diagram_, &CamDiagram::Run_Click, this, &MainWindow::Run_Click);
  connect(diagram_, &CamDiagram::Run_DblClick, this, &MainWindow::Run_DblClick);
  connect(diagram_, &CamDiagram::End_DblClick, entry_, &PhaseEntry::OpenSelectedOff);
  connect(diagram_, &CamDiagram::Dragged, entry_, &PhaseEntry::ShowMoved);
  connect(diagram_, &CamDiagram::Dropped, entry_, &PhaseEntry::Replace);
  connect(diagram_, &CamDiagram::DragGivenUp, entry_, &PhaseEntry::PutBack);
  connect(diagram_, &CamDiagram::MenuWanted, this, &MainWindow::ShowRowMenu);
  connect(diagram_, &CamDiagram::LDefC_DblClick, sizes_, &SizeCommands::LDefC_DblClick);
  connect(sizes_, &SizeCommands::Shown, this, &MainWindow::ShowSizeCam);
  connect(sizes_, &SizeCommands::Described, this, [this](int cam) {
    diagram_->ShowDescription(cam, instance_.Program.CamText(cam));
    ShowState();
  });
  connect(sizes_, &SizeCommands::Hidden, this, &MainWindow::ShowState);
  connect(diagram_, &CamDiagram::Pressed, entry_, &PhaseEntry::LeaveForCommand);
  connect(diagram_, &CamDiagram::LineRead, status_, &StatusLine::ShowLine);
  connect(diagram_, &CamDiagram::Freed, entry_, &PhaseEntry::FocusOnList);
  connect(entry_, &PhaseEntry::Marked, diagram_, &CamDiagram::MarkPhase);
  connect(entry_, &PhaseEntry::Previewed, diagram_, &CamDiagram::ShowPreview);
  connect(entry_, &PhaseEntry::Committed, this, [this] {
    o_Undo_->setEnabled(true);
    ShowSizeCam();
    extras_->ShowUndoRow(toolbar_->SizeCam());
  });
  connect(entry_->Speed(), &SpeedBox::SpeedChanged, this, &MainWindow::ShowSwitching);
  connect(entry_, &PhaseEntry::MenuWanted, this,
          [this](const QPoint& place) { ShowRowMenu(instance_.Program.CurrentCam(), place); });
  connect(entry_, &PhaseEntry::SelectionMoved, this, &MainWindow::ShowSizeCam);
  connect(files_, &FileCommands::ProgramReplaced, this, &MainWindow::ProgramReplaced);
  connect(files_, &FileCommands::Saved, status_, &StatusLine::ShowFile);
  connect(files_, &FileCommands::TitleChanged, this, &MainWindow::ShowTitle);
  connect(files_, &FileCommands::RecentChanged, menu_, &MainMenu::ShowRecent);
  connect(lines_, &LineCommands::Began, device_, &DeviceBlock::WatchPort);
  connect(lines_, &LineCommands::Ended, this, &MainWindow::ExchangeEnded);
  connect(lines_, &LineCommands::Agreed, status_, &StatusLine::TakeExchange);
  connect(lines_, &LineCommands::PortChosen, device_, &DeviceBlock::LookAtPort);
  connect(lines_, &LineCommands::Note, status_, &StatusLine::ShowNote);
  connect(files_, &FileCommands::Note, status_, &StatusLine::ShowNote);
  connect(sizes_, &SizeCommands::Note, status_, &StatusLine::ShowNote);
  connect(status_, &StatusLine::SaveWanted, Entry("f_S"), &QAction::trigger);
}

// The menus: what each entry is called, its caption, and what it does. A button of the toolbar
// shares the action of its entry.

void MainWindow::BuildFileMenu() {
  menu_->Begin("&File");
  menu_->Add("f_newp", "&New", QKeySequence::New, [this] { files_->f_newp_Click(); });
  menu_->Add("f_open", "&Open", QKeySequence::Open, [this] { files_->f_Open(); });
  menu_->Add("f_S", "&Save", QKeySequence::Save, [this] { files_->f_S(); });
  menu_->Add("f_save", "Save &As ..", [this] { files_->f_Save(); });
  menu_->AddSeparator();
  menu_->Add("f_New", "S&el Programmer", [this] { files_->f_newp_Click(); });
  menu_->AddSeparator();
  menu_->Add("f_SelPr", "Se&lect Printer", [this] { SelectPrinter(instance_, this); });
  menu_->Add("Pr_size", "&Print", QKeySequence::Print, [this] { PrnSize(instance_, this).exec(); });
  menu_->AddSeparator();
  menu_->Add("F_quit", "&Exit", QKeySequence::Quit, [this] { close(); });
}

void MainWindow::BuildSizesMenu() {
  menu_->Begin("&Sizes");
  menu_->Add("s_sel", "Se&lect Size", [this] { sizes_->s_sel_Click(); });
  menu_->Add("O_Copy", "Copy &Size", [this] { sizes_->O_Copy_Click(); });
  menu_->Add("s_Clr", "&Erase Size", [this] { sizes_->s_Clr_Click(); });
  menu_->Add("S_Imp", "&Import Size", [this] { sizes_->S_Imp_Click(); });
  menu_->AddSeparator();
  menu_->Add("O_CopyC", "Cop&y Cam", [this] { sizes_->O_CopyC_Click(); });
  menu_->Add("o_Shc", "S&hift Cam", [this] { sizes_->o_Shc_Click(); });
  menu_->Add("O_ClC", "E&rase Cam", [this] { sizes_->O_ClC_Click(); });
  menu_->Add("o_MODC", "&Modify Cam", [this] { o_MODC_Click(); });
  o_Undo_ = menu_->Add("o_Undo", "&Undo", QKeySequence::Undo, [this] { o_Undo_Click(); });
  o_Undo_->setEnabled(false);  // until there is something to undo
  menu_->AddSeparator();
  menu_->Add("Fu_Set", "Fu&nctions", Qt::Key_F7, [this] { Fu_Set_Click(); });
  menu_->Add("Al_Msg", "&Messages", Qt::Key_F8, [this] { Al_Msg_Click(); });
  menu_->Add("o_AllSizes", "Cam on &All Sizes", Qt::Key_F4, [this] { o_AllSizes_Click(); });
  menu_->AddSeparator();
  menu_->Add("PrevSize", "Pre&vious Size", Qt::CTRL | Qt::Key_PageUp,
             [this] { Picture1_Step(-1); });
  menu_->Add("NextSize", "Ne&xt Size", Qt::CTRL | Qt::Key_PageDown, [this] { Picture1_Step(1); });
  menu_->Add("Describe", "&Describe Cam", Qt::Key_F2, [this] { sizes_->LDefC_DblClick(); });
  AddPhaseMenu(*menu_, *entry_);
}

void MainWindow::BuildOtherMenus() {
  menu_->Begin("&Communic");
  menu_->Add("Tr_Siz", "Size &Transmit", Qt::Key_F5, [this] { lines_->Tr_Siz_Click(); });
  menu_->Add("Rc_Siz", "Size &Receive", Qt::Key_F6, [this] { lines_->Rc_Siz_Click(); });
  menu_->Add("Msg_Trans", "&Alarm Msg Transmit", [this] { lines_->Msg_Trans_Click(); });
  menu_->Add("Msg_Rec", "Alarm &Msg Receive", [this] { lines_->Msg_Rec_Click(); });
  menu_->Add("Upd_Flash", "&Update FLASH", [this] { lines_->Upd_Flash_Click(); });
  menu_->Begin("&Options");
  menu_->Add("setcom", "&Set CommPort", [this] { lines_->setcom_Click(); });
  menu_->Add("o_Setlng", "Set &Language", [this] { SelectLanguage(); });
  menu_->Begin("&Demo")->menuAction()->setObjectName(QStringLiteral("Demo"));
  menu_->Add("O_Rot", "&Rotate Demo", Qt::Key_F9, [this] { O_Rot_Click(); });
  menu_->Add("o_Ant", "&Advance Demo", [this] { o_Ant_Click(); });
  menu_->AddToBar("info", "&Info", [this] { ShowAbout(); });
  auto* manual = new QAction(this);  // stands in no menu: the tree is full
  manual->setObjectName(QStringLiteral("OpenManual"));
  manual->setShortcut(QKeySequence(Qt::Key_F1));
  connect(manual, &QAction::triggered, this, [this] { Command([this] { ShowManual(); }); });
  addAction(manual);
}

/// Everything that is chosen runs through here. A command ends an entry that stands in the OFF box,
/// and the note of the command before. The title follows what it changed; but where a dialog's
/// closing makes the window active again is left to the desktop, and is no activation of its own.
void MainWindow::Command(const MainMenu::Handler& handler) {
  if (instance_.Busy) return;
  diagram_->PutBack();
  entry_->LeaveForCommand();
  status_->ShowNote({});
  const bool active = isActiveWindow();
  handler();
  if (titled_ != TitleSource()) ShowTitle(ActiveTitle());
  returning_ = active && !isActiveWindow();
}

/// A recent file, or one that was dropped.
void MainWindow::OpenRecent(const QString& path) {
  Command([this, path] { files_->F_Mnu_oldF_Click(path); });
}

bool MainWindow::Form_Load(const QString& startFile) {
  CamProgram& program = instance_.Program;
  program.SelectSize(1);
  entry_->HideBoxes();
  program.IsSaved = true;
  files_->SetRecent(languages_.ReadOptions());
  if (!LoadTexts()) return false;
  program.SetLimits(22, 32, 255);
  program.SelectCam(1);
  program.SelectSize(1);
  if (!lines_->IdentifyAtStart()) return false;
  device_->LookAtPort();
  program.DimensionModel();
  program.IsSaved = true;
  instance_.Dialog.InitDir = instance_.Folder.Path();
  ProgramReplaced();
  entry_->Speed()->SetSpeed(instance_.User.Number(speedKey, 0));
  status_->ShowNote(languages_.MissingTexts());
  if (!startFile.isEmpty()) files_->OpenAtStart(startFile);
  return true;
}

/// Reads the script and puts its texts where they stay on the screen.
bool MainWindow::LoadTexts() {
  if (!languages_.ReadTexts()) return false;
  toolbar_->ShowTexts(instance_.Texts);
  diagram_->SetWords({instance_.Text(TextNumber::CamWord), instance_.Text(TextNumber::PhaseWord),
                      instance_.Text(TextNumber::PhasesWord), instance_.Text(TextNumber::NoPhase)});
  extras_->ShowTexts(instance_.Texts);
  start_->ShowTexts();
  if (auto* manual = findChild<Manual*>()) manual->ShowTexts();
  device_->ShowPort();
  instance_.Dialog.FolderNotFound = instance_.Text(TextNumber::FolderNotFound);
  return true;
}

void MainWindow::ProgramReplaced() {
  instance_.Program.TakeAsSaved();
  o_Undo_->setEnabled(false);
  ShowSizeCam();
  entry_->StartAnew();
  status_->ShowFile();
}

/// A received program is drawn anew as a loaded one is, but is not in any file.
void MainWindow::ExchangeEnded(bool received) {
  if (received) o_Undo_->setEnabled(false);
  ShowSizeCam();
  if (received) entry_->StartAnew();
  device_->PortAtRest();
}

void MainWindow::ShowSizeCam() {
  const CamProgram& program = instance_.Program;
  toolbar_->ShowSizeCam(program, instance_.Texts);
  diagram_->ShowRows(program.NumCams());
  for (int cam = 0; cam < program.NumCams(); ++cam) RefreshCam(cam);
  ShowSwitching();
  ShowState();
}

/// What is told of the program beside the diagram.
void MainWindow::ShowState() {
  strip_->ShowSizes(instance_.Program);
  status_->Show();
  start_->Follow(strip_->Used() == 0 && !QFileInfo::exists(instance_.Settings.CurrentFile));
}

void MainWindow::ShowSwitching() {
  const int speed = entry_->Speed()->Speed();
  std::vector<Switching> cams(CamProgram::MaxCams);
  for (int cam = 0; speed > 0 && cam < instance_.Program.NumCams(); ++cam) {
    cams[static_cast<std::size_t>(cam)] = Switching::Of(instance_.Program, cam, speed);
  }
  diagram_->ShowSpeed(speed, cams);
}

void MainWindow::RefreshCam(int cam) {
  const CamProgram& program = instance_.Program;
  const PhaseList phases = PhaseList::Of(program.CamMap(program.CurrentSize(), cam));
  const bool selected = cam == program.CurrentCam();
  diagram_->ShowCam(cam, phases, selected, program.CamText(cam));
  if (selected) entry_->ShowPhases(phases);
}

void MainWindow::LabCam_Click(int cam) {
  entry_->LeaveForCommand();
  if (cam < 0 || cam >= instance_.Program.NumCams()) {
    instance_.Ask.MsgBox(instance_.Text(TextNumber::CamNotAvailable), Buttons::Ok, Icon::Critical);
    return;
  }
  instance_.Program.SelectCam(cam);
  ShowSizeCam();
}

void MainWindow::LabCam_DblClick(int cam) {
  entry_->LeaveForCommand();
  if (cam == instance_.Program.CurrentCam()) entry_->Open();
}

void MainWindow::Run_Click(int cam, const Phase& phase) {
  LabCam_Click(cam);
  entry_->Select(phase);
}

void MainWindow::Run_DblClick(int cam, const Phase& phase) {
  Run_Click(cam, phase);
  entry_->OpenSelected();
}

void MainWindow::ShowAbout() {
  About about(instance_.Texts, instance_.Ask, this);
  connect(&about, &About::ManualWanted, this, &MainWindow::ShowManual);
  about.exec();
}

void MainWindow::ShowManual() {
  Manual::Open(this, instance_.Texts);
}

/// The entries of the Sizes menu that act on a cam, for the cam of the row.
void MainWindow::ShowRowMenu(int cam, const QPoint& place) {
  if (instance_.Busy) return;
  LabCam_Click(cam);
  auto* menu = new QMenu(this);
  for (const char* item : {"O_CopyC", "o_Shc", "O_ClC", "o_MODC", "o_Undo", "Describe", "Phase"}) {
    menu->addAction(Entry(item));
  }
  connect(menu, &QMenu::aboutToHide, menu, &QObject::deleteLater);
  menu->popup(place);
}

void MainWindow::Al_Msg_Click() {
  const MessageLink link{[this] { lines_->TransmitMessages(); },
                         [this] { lines_->ReceiveMessages(); }};
  AlMsg messages(instance_, link, this);
  connect(lines_, &LineCommands::Note, &messages, &AlMsg::Say);
  messages.exec();
  const Globals& settings = instance_.Settings;
  status_->ShowNote(!settings.MsgSaved ? instance_.Text(TextNumber::MessagesInMemory)
                    : settings.MsgFile.isEmpty()
                        ? QString()
                        : instance_.Text(TextNumber::MessagesInFile) + settings.MsgFile);
}

void MainWindow::Fu_Set_Click() {
  const FunctionsBlock before = instance_.Program.Functions();
  Select(FuncSel(
      instance_, [this] { o_Ant_Click(); }, this));
  const bool same = instance_.Program.Functions() == before;
  status_->ShowNote(
      instance_.Text(same ? TextNumber::FunctionsUnchanged : TextNumber::FunctionsChanged));
}

void MainWindow::o_AllSizes_Click() {
  AllSizes window(instance_, entry_->Speed()->Speed(), this);
  connect(&window, &AllSizes::SizeSelected, this, &MainWindow::ShowSizeCam);
  window.exec();
}

void MainWindow::O_Rot_Click() {
  Select(BNKRTN(instance_.Program, instance_.Texts, instance_.Time, this));
}

/// Also opened by a button of the functions window.
void MainWindow::o_Ant_Click() {
  QWidget* window = QApplication::activeModalWidget();
  CalcAnt(instance_.Program, instance_.Texts, window != nullptr ? window : this).exec();
}

void MainWindow::o_MODC_Click() {
  LabCam_DblClick(instance_.Program.CurrentCam());
}

void MainWindow::o_Undo_Click() {
  instance_.Program.RestoreUndoRow();
  o_Undo_->setEnabled(false);
  ShowSizeCam();
  status_->ShowNote(Filled(instance_.Text(TextNumber::PhaseUndone),
                           {QString::number(instance_.Program.CurrentCam() + 1)}));
}

/// Shows a window in which the operator may select another size or cam, and then the new selection.
/// Where there is none the diagram stays as it is: an erased size shows with the next refresh.
void MainWindow::Select(QDialog&& window) {
  const CamProgram& program = instance_.Program;
  const auto selection = [&program] {
    return std::pair(program.CurrentSize(), program.CurrentCam());
  };
  const auto before = selection();
  window.exec();
  if (selection() != before) {
    ShowSizeCam();
  } else {
    ShowSwitching();  // the functions may have changed
    ShowState();
  }
}

void MainWindow::Picture1_Step(int step) {
  SelectSize(instance_.Program.CurrentSize() + step);
}

void MainWindow::SelectSize(int size) {
  entry_->LeaveForCommand();
  CamProgram& program = instance_.Program;
  if (size < 1 || size > program.NumSizes() || size == program.CurrentSize()) return;
  program.SelectSize(size);
  ShowSizeCam();
}

bool MainWindow::KeyDown(int key) {
  const int last = instance_.Program.NumCams() - 1;
  const auto select = [this](auto cam) {
    entry_->LeaveForCommand();  // may itself have stepped to another cam
    LabCam_Click(cam(instance_.Program.CurrentCam()));
    return true;
  };
  switch (key) {
    case Qt::Key_PageUp:
      return select([last](int cam) { return cam > 0 ? cam - 1 : last; });
    case Qt::Key_PageDown:
      return select([last](int cam) { return cam < last ? cam + 1 : 0; });
    case Qt::Key_End:
      return select([last](int) { return last; });
    case Qt::Key_Home:
      return select([](int) { return 0; });
    default:
      return false;
  }
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress || !watched->isWidgetType()) return false;
  if (Blocked()) return false;
  if (static_cast<QWidget*>(watched)->window() != this) return false;
  const auto* key = static_cast<QKeyEvent*>(event);
  if ((key->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) return false;
  return KeyDown(key->key());
}

/// Escape where no control has a use for it frees the pinned lines.
void MainWindow::keyPressEvent(QKeyEvent* event) {
  const bool freed = event->key() == Qt::Key_Escape && diagram_->FreeLines();
  if (!freed) QMainWindow::keyPressEvent(event);
}

void MainWindow::SelectLanguage() {
  if (!languages_.ChooseScript(this)) return;
  // When they cannot be written the choice holds for this run.
  if (languages_.WriteOptions()) files_->SetRecent(languages_.ReadOptions());
  if (!LoadTexts()) {
    QCoreApplication::exit(1);
    return;
  }
  ShowSizeCam();
  Form_Activate();
  lines_->TryPort();
  device_->LookAtPort();
}

void MainWindow::Form_Activate() {
  if (factor_ == 0) {
    if (width() > designWidth) factor_ = static_cast<double>(width()) / designWidth;
    Rescale(factor_ > 0 ? factor_ : 1);
  }
  diagram_->SetScale();
  ShowTitle(ActiveTitle());
  diagram_->ShowRows(instance_.Program.NumCams());
}

QString MainWindow::ActiveTitle() const {
  const CamProgram& program = instance_.Program;
  return QStringLiteral("NIRA-KPL ") + instance_.Text(TextNumber::ProgramName) +
         QStringLiteral(" QX") + QString::number(program.NumCams()) + u'-' +
         ZeroFilled(program.NumSizes(), 2) + QStringLiteral("F  ") +
         QString::number(program.NumMessages()) + QStringLiteral("-Msg  ") +
         QFileInfo(instance_.Settings.CurrentFile).fileName();
}

void MainWindow::ShowTitle(const QString& title) {
  QString shown = title;
  shown.replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));  // no placeholder of Qt's
  setWindowTitle(shown);
  titled_ = TitleSource();
}

MainWindow::TitleParts MainWindow::TitleSource() const {
  const CamProgram& program = instance_.Program;
  return {instance_.Settings.CurrentFile, program.NumCams(), program.NumSizes(),
          program.NumMessages()};
}

/// Fonts and fixed sizes for a scale factor, in parts of the desktop's type size. They are drawn
/// for a window of twice the design width, and stay so in a smaller one: nothing gets too small to
/// read.
void MainWindow::Rescale(double factor) {
  const double base = std::max(leastText, QFontInfo(QApplication::font()).pixelSize());
  const double share = std::max(1.0, factor / 2);
  const auto scaled = [share](double design) { return qRound(design * share); };
  // Few sizes: each one more costs the start a font engine.
  const int large = scaled(base * 2.2);
  toolbar_->Rescale(scaled(24), large);
  const int text = scaled(base);
  strip_->Rescale(text);
  diagram_->Rescale(text);
  entry_->Rescale(scaled(base * 1.2), text, large, scaled(212));
  extras_->Rescale(text);
}

/// Where the last run left it; a place on a screen that is gone is moved onto one that is there.
void MainWindow::FitToScreen() {
  if (restoreGeometry(instance_.User.Bytes(placeKey))) return;
  const QScreen* screen = QGuiApplication::primaryScreen();
  const QRect room = screen->availableGeometry();
  constexpr QSize frame(8, 40);  // what borders and title bar take, on the generous side
  resize(largestStart.boundedTo(room.size() - frame));
  const QSize left = room.size() - size() - frame;
  move(room.topLeft() + QPoint(left.width() / 2, left.height() / 2));
}

void MainWindow::ShowPictures() {
  setWindowIcon(ThemedIcon(QStringLiteral("nira-kpl"), palette()));
  toolbar_->ShowPictures();
}

void MainWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
    if (!std::exchange(returning_, false)) Form_Activate();
    device_->LookAtPort();
  }
  if (event->type() == QEvent::PaletteChange) ShowPictures();
}

void MainWindow::showEvent(QShowEvent* event) {
  QMainWindow::showEvent(event);
  Form_Activate();  // before the first picture, so that it comes in its final size
}

void MainWindow::closeEvent(QCloseEvent* event) {
  bool cancel = instance_.Busy;
  if (!cancel) Form_QueryUnload(cancel);
  event->setAccepted(!cancel);
  if (!cancel) Form_Unload();
}

void MainWindow::Form_QueryUnload(bool& cancel) {
  entry_->LeaveForCommand();
  languages_.WriteOptions();
  if (instance_.Program.IsSaved) return;
  // Saving leaves `IsSaved` as it is: then the box says that nothing would be lost.
  QString question =
      instance_.Text(TextNumber::NotSaved) + u'\n' + instance_.Text(TextNumber::QuitAnswers);
  if (files_->IsOnFile()) question += u'\n' + instance_.Text(TextNumber::FileHoldsProgram);
  switch (instance_.Ask.MsgBox(question, Buttons::YesNoCancel, Icon::Exclamation)) {
    case Answer::Yes:
      cancel = !files_->f_S();
      break;
    case Answer::No:
      break;
    default:
      cancel = true;
  }
}

/// The program ends with its last window.
void MainWindow::Form_Unload() {
  instance_.User.Keep(placeKey, saveGeometry());
  instance_.User.Keep(speedKey, entry_->Speed()->Speed());
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window != this) window->close();
  }
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasUrls() && !Blocked()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
  const QString path = FirstLocalFile(event->mimeData());
  if (path.isEmpty() || Blocked()) return;
  event->acceptProposedAction();
  // After the drop: questions must not keep the program waiting from which the file came.
  QMetaObject::invokeMethod(
      this, [this, path] { OpenRecent(path); }, Qt::QueuedConnection);
}

}  // namespace nira
