// SPDX-License-Identifier: Apache-2.0
#include "editor/PhaseEntry.h"

#include "editor/PhaseDelegate.h"
#include "editor/PhaseLines.h"
#include "editor/PreviewField.h"
#include "editor/SpeedBox.h"
#include "ground/Text.h"
#include "model/AdvanceCalculator.h"

#include <QFontDatabase>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>

namespace nira {

namespace {

constexpr int maxDegree = CamProgram::Degrees - 1;

bool IsDigit(char16_t code) {
  return code >= u'0' && code <= u'9';
}

/// Codes 33 to 36, which step through the cams: "!", a quote, "#" and "$".
bool IsStep(char16_t code) {
  return code >= 33 && code <= 36;
}

/// Zero-filled to the width of the boxes, 359 at most.
QString Normalised(const QString& text) {
  const QString filled =
      QString(QStringLiteral("000") + TrimLeft(text)).right(PhaseList::EntryWidth);
  return NumericValue(filled) > maxDegree ? QString::number(maxDegree) : filled;
}

/// What a box enters as it stands, 0..359: it may be restored from a list that shows 360, or hold a
/// stepping key.
int DegreeOf(const DegreeBox& box) {
  return static_cast<int>(
      std::clamp<std::int64_t>(NumericValue(Normalised(box.text())), 0, maxDegree));
}

void KeepPlaceWhenHidden(QWidget* widget) {
  QSizePolicy policy = widget->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  widget->setSizePolicy(policy);
}

}  // namespace

PhaseEntry::PhaseEntry(Instance& instance, QWidget* parent) : QWidget(parent), instance_(instance) {
  BuildControls();
  BuildLayout();
  // A selection made with mouse or arrow keys is a click; the list's own refilling is not. A click
  // on the line that is selected already loads it once more.
  connect(fase_, &QListWidget::itemSelectionChanged, this, &PhaseEntry::Fase_Click);
  connect(fase_, &QListWidget::itemSelectionChanged, this, &PhaseEntry::TellMarked);
  connect(fase_, &PhaseLines::Meant, this, &PhaseEntry::Fase_Click);
  connect(fase_, &PhaseLines::MeantTwice, this, &PhaseEntry::Fase_DblClick);
  connect(fase_, &PhaseLines::DigitTyped, this, &PhaseEntry::TypeInto);
  connect(fase_, &PhaseLines::EnterPressed, this, [this] { Chosen() ? OpenSelected() : Open(); });
  connect(fase_, &PhaseLines::MenuWanted, this, &PhaseEntry::MenuWanted);
  gradiOn_->installEventFilter(this);
  gradiOff_->installEventFilter(this);
  connect(fase_, &QListWidget::itemClicked, this, &PhaseEntry::Fase_Click);
  connect(fase_, &QListWidget::itemDoubleClicked, this, &PhaseEntry::Fase_DblClick);
  connect(gradiOn_, &DegreeBox::FocusGained, this, [this] { Gained(Box::On); });
  connect(gradiOff_, &DegreeBox::FocusGained, this, [this] { Gained(Box::Off); });
  connect(gradiOn_, &QLineEdit::textEdited, this, [this] {
    OnTyped = true;  // Backspace and Delete are typing too
    edited_ = true;
  });
  connect(gradiOff_, &QLineEdit::textEdited, this, [this] { edited_ = true; });
  for (const DegreeBox* box : {gradiOn_, gradiOff_}) {
    connect(box, &QLineEdit::textChanged, this, &PhaseEntry::Preview);
  }
  connect(speed_, &SpeedBox::SpeedChanged, this, [this] {
    ShowLengths();
    Preview();
  });
  connect(gradiOn_, &DegreeBox::FocusLost, this, &PhaseEntry::Lost);
  connect(gradiOff_, &DegreeBox::FocusLost, this, &PhaseEntry::Lost);
}

void PhaseEntry::BuildControls() {
  const auto named = [](auto* widget, const char* name) {
    widget->setObjectName(QString::fromLatin1(name));
    return widget;
  };
  lfOnOf_ = named(new QLabel(QStringLiteral("Fase  ON  OFF"), this), "LfONOF");
  fase_ = named(new PhaseLines(this), "Fase");
  tFasi_ = named(new QLabel(this), "t_fasi");
  totFasi_ = named(new QLabel(QStringLiteral("000"), this), "Tot_fasi");
  onSum_ = named(new QLabel(this), "OnSum");
  speed_ = named(new SpeedBox(this), "SpeedBox");
  lGrad_ = named(new QLabel(QStringLiteral(" ON    DEGR  OFF"), this), "LGrad");
  constexpr int width = PhaseList::EntryWidth;
  const auto onFilter = [this](char16_t& code) { return GRADION_KeyPress(code); };
  const auto offFilter = [this](char16_t& code) { return GRADIOFF_KeyPress(code); };
  gradiOn_ = named(new DegreeBox(width, onFilter, this), "GRADION");
  gradiOff_ = named(new DegreeBox(width, offFilter, this), "GRADIOFF");
  preview_ = named(new PreviewField(this), "Preview");
  for (DegreeBox* box : {gradiOn_, gradiOff_}) box->setText(QStringLiteral("0000"));

  fase_->setAccessibleName(QStringLiteral("Fase"));
  gradiOn_->setAccessibleName(QStringLiteral("ON"));
  gradiOff_->setAccessibleName(QStringLiteral("OFF"));
  fase_->setItemDelegate(new PhaseDelegate(fase_));
  for (QLabel* label : {tFasi_, totFasi_}) label->setTextFormat(Qt::PlainText);
  lGrad_->setAlignment(Qt::AlignCenter);
  for (QWidget* widget : {static_cast<QWidget*>(lGrad_), static_cast<QWidget*>(gradiOn_),
                          static_cast<QWidget*>(gradiOff_), static_cast<QWidget*>(preview_)}) {
    KeepPlaceWhenHidden(widget);
  }
  setTabOrder(fase_, gradiOn_);
  setTabOrder(gradiOn_, gradiOff_);
}

void PhaseEntry::BuildLayout() {
  auto* count = new QHBoxLayout;
  count->addWidget(tFasi_);
  count->addWidget(totFasi_);
  count->addStretch();
  count->addWidget(onSum_);
  auto* line = new QFrame;
  line->setFrameShape(QFrame::HLine);
  line->setFrameShadow(QFrame::Sunken);
  auto* boxes = new QHBoxLayout;
  boxes->setSpacing(8);
  boxes->addWidget(gradiOn_);
  boxes->addWidget(gradiOff_);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(8);
  layout->addWidget(lfOnOf_);
  layout->addWidget(fase_, 1);
  layout->addLayout(count);
  layout->addWidget(speed_);
  layout->addWidget(line);
  layout->addWidget(lGrad_);
  layout->addLayout(boxes);
  layout->addWidget(preview_);
}

void PhaseEntry::AddUnderList(QWidget* widget) {
  auto* column = static_cast<QVBoxLayout*>(layout());
  column->insertWidget(column->indexOf(fase_) + 1, widget);
}

void PhaseEntry::Rescale(int dataPixels, int textPixels, int entryPixels, int width) {
  QFont digits = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  digits.setPixelSize(dataPixels);
  QFont entry = digits;
  entry.setPixelSize(entryPixels);
  for (QWidget* widget : {static_cast<QWidget*>(lfOnOf_), static_cast<QWidget*>(fase_),
                          static_cast<QWidget*>(totFasi_), static_cast<QWidget*>(lGrad_)}) {
    widget->setFont(digits);
  }
  QFont text = font();
  text.setPixelSize(textPixels);
  tFasi_->setFont(text);
  onSum_->setFont(text);
  for (DegreeBox* box : {gradiOn_, gradiOff_}) {
    box->setFont(entry);
    box->setFixedHeight(QFontMetrics(entry).height() + 12);
  }
  preview_->setFont(text);
  static_cast<PhaseDelegate*>(fase_->itemDelegate())->SetSmallFont(text);
  constexpr int previewHeight = 44;
  preview_->setFixedHeight(std::max(previewHeight, 2 * QFontMetrics(text).height() + 8));
  setFixedWidth(width);
}

void PhaseEntry::ShowPhases(const PhaseList& phases) {
  tFasi_->setText(instance_.Text(TextNumber::PhasesHeading));
  speed_->ShowPurpose(instance_.Text(TextNumber::SpeedPurpose));
  const QSignalBlocker quiet(fase_);
  const bool sameCam = std::exchange(shown_, Selected()) == Selected();
  const Phase selected = sameCam ? Chosen().value_or(Phase{}) : Phase{};
  const int scrolled = sameCam ? fase_->verticalScrollBar()->value() : 0;
  if (!sameCam && entered_ == Box::None) edited_ = false;  // what was typed was for another cam
  fase_->clear();
  fase_->addItems(phases.Lines());
  phases_ = phases.phases;
  const auto same = std::find(phases_.begin(), phases_.end(), selected);
  if (same != phases_.end()) fase_->setCurrentRow(static_cast<int>(same - phases_.begin()));
  if (scrolled > 0) {  // the press that caused a commit goes on to the line under the pointer
    fase_->doItemsLayout();
    fase_->verticalScrollBar()->setValue(scrolled);
  }
  totFasi_->setText(ZeroFilled(static_cast<std::int64_t>(phases.phases.size()), 3));
  ShowLengths();
  TellMarked();
  Preview();
}

/// For how many degrees each phase is ON, and all of them with their part of the cycle; with a
/// speed for how long as well.
void PhaseEntry::ShowLengths() {
  const int speed = speed_->Speed();
  int sum = 0;
  for (int row = 0; row < fase_->count(); ++row) {
    const int length = phases_[static_cast<std::size_t>(row)].Length();
    QListWidgetItem* item = fase_->item(row);
    item->setData(PhaseDelegate::Length, QString(QString::number(length) + u'°'));
    item->setData(PhaseDelegate::Time,
                  speed == 0 ? QString() : AdvanceCalculator::Duration(speed, length));
    sum += length;
  }
  const int percent = qRound(sum * 100.0 / CamProgram::Degrees);
  onSum_->setText(QStringLiteral("ON %1°  %2 %").arg(sum).arg(percent));
}

std::optional<Phase> PhaseEntry::Chosen() const {
  const int row = fase_->selectedItems().isEmpty() ? -1 : fase_->currentRow();
  if (row < 0) return std::nullopt;
  return phases_[static_cast<std::size_t>(row)];
}

void PhaseEntry::TellMarked() {
  Q_EMIT Marked(shown_.second, Chosen());
}

/// What entering the pair would do to the cam that is current, which a stepping key may have moved
/// on already.
void PhaseEntry::Preview() {
  const int cam = Selected().second;
  preview_->setVisible(!gradiOn_->isHidden());
  if (preview_->isHidden()) {
    Q_EMIT Previewed(cam, {}, {});
    return;
  }
  const Phase pair{DegreeOf(*gradiOn_), DegreeOf(*gradiOff_)};
  const CamRow& row = instance_.Program.CamMap(Selected().first, cam);
  const PhasePreview preview = moved_ ? PhasePreview::OfReplacing(row, *moved_, pair)
                                      : PhasePreview::Of(row, pair.on, pair.off);
  const bool listed = std::find(phases_.begin(), phases_.end(), pair) != phases_.end();
  const bool empty = gradiOn_->text().isEmpty() && preview.changes.empty();  // nothing typed yet
  const bool unasked = !edited_ && !listed && !moved_ && !empty;
  preview_->ShowPreview(preview, unasked, instance_.Texts, speed_->Speed());
  Q_EMIT Previewed(cam, preview.goes, preview.comes);
}

/// The phase that was just written is selected, but not loaded: the boxes keep what they hold. A
/// press on the list finds it where it was.
void PhaseEntry::SelectWritten(int on, int off) {
  const int row = on == off ? -1 : PhaseAt(phases_, on);
  if (row < 0 || shown_ != Selected()) return;
  const int scrolled = fase_->verticalScrollBar()->value();
  MarkLine(row);
  if (fase_->hasFocus()) fase_->verticalScrollBar()->setValue(scrolled);
}

/// Selects a line of the list, or none for -1, and loads nothing.
void PhaseEntry::MarkLine(int row) {
  {
    const QSignalBlocker quiet(fase_);
    fase_->setCurrentRow(row);
  }
  TellMarked();
}

void PhaseEntry::ShowBoxes() {
  lGrad_->show();
  gradiOn_->show();
  gradiOff_->show();
  Preview();
}

void PhaseEntry::HideBoxes() {
  lGrad_->hide();
  gradiOn_->hide();
  gradiOff_->hide();
  Preview();
}

std::pair<int, int> PhaseEntry::Selected() const {
  return {instance_.Program.CurrentSize(), instance_.Program.CurrentCam()};
}

void PhaseEntry::LoadFirstLine() {
  const QListWidgetItem* first = fase_->item(0);
  LoadFromLine(first == nullptr ? QString() : first->text());
}

void PhaseEntry::StartAnew() {
  entered_ = Box::None;
  Chosen() ? LoadFromLine(fase_->currentItem()->text()) : LoadFirstLine();
  const QWidget* focused = window()->focusWidget();
  if (focused == gradiOn_ || focused == gradiOff_) fase_->setFocus(Qt::OtherFocusReason);
}

void PhaseEntry::Open() {
  MarkLine(fase_->count() > 0 ? 0 : -1);  // what the boxes hold
  ShowBoxes();
  gradiOff_->setEnabled(true);
  LoadFirstLine();
  FocusOnBox();
}

void PhaseEntry::Select(const Phase& phase) {
  const auto found = std::find(phases_.begin(), phases_.end(), phase);
  if (found == phases_.end()) return;
  fase_->setFocus(Qt::MouseFocusReason);
  fase_->setCurrentRow(static_cast<int>(found - phases_.begin()));
  Fase_Click();  // also when the line was selected already
}

void PhaseEntry::OpenSelected() {
  Fase_DblClick();
  FocusOnBox();
}

void PhaseEntry::OpenSelectedOff() {
  Fase_DblClick();
  gradiOff_->setFocus(Qt::OtherFocusReason);
}

void PhaseEntry::ShowMoved(const Phase& before, const Phase& after) {
  moved_ = before;
  const auto digits = [](int degree) { return ZeroFilled(degree, PhaseList::EntryWidth); };
  Load(digits(after.on), digits(after.off));
  Q_EMIT Marked(shown_.second, after);
}

void PhaseEntry::PutBack() {
  if (!std::exchange(moved_, std::nullopt)) return;
  Load(OnText, OffText);
  TellMarked();
}

void PhaseEntry::Replace(const Phase& before, const std::optional<Phase>& after) {
  moved_.reset();
  if (instance_.Busy || !ReplacePhase(instance_.Program, before, after)) {
    Load(OnText, OffText);
    Q_EMIT SelectionMoved();  // what was to be replaced may be drawn and there no more
    return;
  }
  Q_EMIT Committed();
  if (!after) return;
  SelectWritten(after->on, after->off);
  Fase_Click();
}

void PhaseEntry::FocusOnList() {
  fase_->setFocus(Qt::OtherFocusReason);
}

void PhaseEntry::FocusOnBox() {
  entered_ = Box::None;  // the ON box is entered anew, also when it has the focus already
  if (gradiOn_->hasFocus()) {
    Gained(Box::On);
  } else {
    gradiOn_->setFocus(Qt::OtherFocusReason);
  }
}

/// Keys of the two boxes that are no typing: the pair at once, back to the list, and the undoing of
/// what was typed, which is the program's where nothing was. Arrows are for the text.
bool PhaseEntry::eventFilter(QObject* watched, QEvent* event) {
  const bool override = event->type() == QEvent::ShortcutOverride;
  if (!override && event->type() != QEvent::KeyPress) return false;
  const auto* key = static_cast<QKeyEvent*>(event);
  if (override) {
    const bool arrow = key->key() == Qt::Key_Left || key->key() == Qt::Key_Right;
    const bool undo = key->matches(QKeySequence::Undo);
    event->setAccepted(arrow);
    return arrow || (undo && !static_cast<DegreeBox*>(watched)->isUndoAvailable());
  }
  const bool enter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
  if (enter && key->modifiers().testFlag(Qt::ControlModifier)) {
    EnterPair();
  } else if (key->key() == Qt::Key_Escape) {
    GoBack();
  } else {
    return false;
  }
  return true;
}

/// Enter in the ON box and Enter in the OFF box.
void PhaseEntry::EnterPair() {
  char16_t enter = DegreeBox::Enter;
  if (gradiOn_->hasFocus()) GRADION_KeyPress(enter);
  GRADIOFF_KeyPress(enter);
}

/// What was typed since the boxes were loaded is taken back, and boxes as they were loaded enter
/// nothing.
void PhaseEntry::GoBack() {
  entered_ = Box::None;
  Load(OnText, OffText);
  FocusOnList();
  if (shown_ != Selected()) Q_EMIT SelectionMoved();
}

void PhaseEntry::New() {
  MarkLine(-1);
  ShowBoxes();
  gradiOff_->setEnabled(true);
  LoadFromLine({});
  FocusOnBox();
}

void PhaseEntry::Delete() {
  if (const std::optional<Phase> phase = Chosen()) Replace(*phase, std::nullopt);
}

void PhaseEntry::Move(PhasePart part, int degrees) {
  if (const std::optional<Phase> phase = Chosen()) Replace(*phase, Moved(*phase, part, degrees));
}

/// A digit typed in the list is the first one of the selected phase's ON degree, or of a new one's.
void PhaseEntry::TypeInto(const QString& digit) {
  Chosen() ? OpenSelected() : New();
  gradiOn_->insert(digit);
  OnTyped = true;
  edited_ = true;
  Preview();
}

void PhaseEntry::Fase_Click() {
  const QList<QListWidgetItem*> selected = fase_->selectedItems();
  if (selected.isEmpty()) return;
  ShowBoxes();
  LoadFromLine(selected.constFirst()->text());
}

void PhaseEntry::Fase_DblClick() {
  gradiOff_->setEnabled(true);
  Fase_Click();
}

void PhaseEntry::LoadFromLine(const QString& line) {
  OnText = OnField(line);
  OffText = OffField(line);
  Load(OnText, OffText);
}

void PhaseEntry::Load(const QString& on, const QString& off) {
  edited_ = false;
  gradiOn_->setText(on);
  gradiOff_->setText(off);
}

void PhaseEntry::Gained(Box box) {
  if (entered_ == box) return;  // back from a menu, a message or another program
  Leave();
  entered_ = box;
  if (box == Box::On) {
    GRADION_GotFocus();
  } else {
    GRADIOFF_GotFocus();
  }
}

void PhaseEntry::Lost(Qt::FocusReason reason) {
  switch (reason) {
    case Qt::PopupFocusReason:
    case Qt::MenuBarFocusReason:
    case Qt::ActiveWindowFocusReason:
      return;  // the operator is still at this entry
    default:
      if (reason == Qt::MouseFocusReason && fase_->hasFocus()) fase_->KeepPressed();
      Leave();
  }
}

void PhaseEntry::Leave() {
  const Box left = std::exchange(entered_, Box::None);
  if (left == Box::On) GRADION_LostFocus();
  if (left == Box::Off) GRADIOFF_LostFocus();
}

void PhaseEntry::LeaveForCommand() {
  if (entered_ != Box::Off) return;
  if (!edited_) entered_ = Box::None;
  Leave();
  // A stepping key may have moved on to a cam that is not drawn: no command works on it unseen.
  if (shown_ != Selected()) Q_EMIT SelectionMoved();
  gradiOff_->deselect();
  // Also while another program is active: coming back must not enter the box anew.
  if (window()->focusWidget() == gradiOff_) fase_->setFocus(Qt::OtherFocusReason);
}

void PhaseEntry::GRADION_GotFocus() {
  Load(OnText, OffText);
  gradiOn_->SelectAllText();
  OnTyped = false;
  instance_.Program.IsSaved = false;
}

void PhaseEntry::GRADIOFF_GotFocus() {
  gradiOff_->setText(OffText);
  gradiOff_->SelectAllText();
}

bool PhaseEntry::GRADION_KeyPress(char16_t& code) {
  bool insert = true;
  if (code == DegreeBox::Enter || code == DegreeBox::Tab) {
    gradiOff_->setFocus(Qt::TabFocusReason);
    gradiOn_->deselect();
    insert = false;
  } else if (!IsStep(code) && !IsDigit(code)) {
    code = u'0';
  }
  OnTyped = true;
  return insert;
}

bool PhaseEntry::GRADIOFF_KeyPress(char16_t& code) {
  if (code == DegreeBox::Enter || code == DegreeBox::Tab) {
    gradiOff_->deselect();
    gradiOn_->setFocus(Qt::TabFocusReason);
    return false;
  }
  if (IsStep(code)) {
    StepCam(code);
  } else if (!IsDigit(code)) {
    code = u'0';
  }
  return true;
}

/// The guards of the first two look the wrong way round; operators know them so. Nothing is
/// redrawn: the new cam shows at the next commit.
void PhaseEntry::StepCam(char16_t code) {
  CamProgram& program = instance_.Program;
  const int last = program.NumCams() - 1;
  int cam = program.CurrentCam();
  switch (code) {
    case 33:
      if (cam < last) --cam;
      break;
    case 34:
      if (cam > 0) ++cam;
      break;
    case 35:
      cam = last;
      break;
    case 36:
      cam = 0;
      break;
    default:
      break;
  }
  program.SelectCam(std::clamp(cam, 0, last));
  Preview();  // a full box keeps its text
}

void PhaseEntry::GRADION_LostFocus() {
  gradiOn_->deselect();
  gradiOn_->setText(OnTyped ? Normalised(gradiOn_->text()) : OnText);
}

void PhaseEntry::GRADIOFF_LostFocus() {
  gradiOff_->setText(Normalised(gradiOff_->text()));
  OffText = gradiOff_->text();
  gradiOff_->deselect();
  CamProgram& program = instance_.Program;
  const std::uint64_t before = program.Revision();
  program.KeepUndoRow();
  const int on = DegreeOf(*gradiOn_);
  const int off = DegreeOf(*gradiOff_);
  program.SetPhase(program.CurrentSize(), program.CurrentCam(), on, off);
  // Entering the ON box has said so already, unless a save came between or the OFF box was entered
  // by itself.
  if (program.Revision() != before) program.IsSaved = false;
  edited_ = false;
  Q_EMIT Committed();
  SelectWritten(on, off);
}

}  // namespace nira
