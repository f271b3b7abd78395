// SPDX-License-Identifier: Apache-2.0
#include "functions/FuncSel.h"

#include "controls/Digits.h"
#include "functions/RangeNote.h"
#include "functions/ValueColumns.h"
#include "functions/ValueEditor.h"
#include "functions/ValueScroll.h"
#include "ground/Text.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QFontInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>

namespace nira {

namespace {

constexpr QSize usualSize(1280, 800);
constexpr int timePage = 25;  // large change of the scroll bar over milliseconds
constexpr int ratioPage = 2;  // and over ratios
constexpr int lastBefore17 = 15;
constexpr int lastBefore25 = 23;

QFont Sized(QFont font, double factor) {
  font.setPixelSize(qRound(QFontInfo(font).pixelSize() * factor));
  return font;
}

/// A box holds so few characters that its number fits the field.
template <typename Field>
Field FieldFrom(const NumberBox* box) {
  return static_cast<Field>(NumericValue(box->text()));
}

}  // namespace

FuncSel::FuncSel(Instance& instance, std::function<void()> openCalculator, QWidget* parent)
    : QDialog(parent), instance_(instance), openCalculator_(std::move(openCalculator)) {
  setObjectName(QStringLiteral("FuncSel"));
  setWindowTitle(QStringLiteral("FUNZIONI SELEZIONABILI"));
  Form_Load();
  note_ = new RangeNote(instance.Texts);
  columns_ = new ValueColumns(instance.Program.NumCams(), this);
  BuildValueEditor();
  BuildFrAbil();
  BuildFrConf();
  BuildButtons();
  BuildLayout();
  SetTabOrder();
  ConnectAll();
  Form_Activate();
}

/// A box that still has the focus loses it only after this.
FuncSel::~FuncSel() {
  for (QWidget* control : findChildren<QWidget*>()) control->disconnect(this);
}

/// The window's size from the screen's: as large as the main window, on a very large screen larger,
/// with all its letters, and never larger than the screen.
void FuncSel::Form_Load() {
  constexpr QSize frame(8, 40);  // what borders and title bar take, on the generous side
  const QSize room = screen()->availableGeometry().size() - frame;
  resize((room * 3 / 5).expandedTo(usualSize).boundedTo(room));
  const double larger =
      std::min(1.0 * width() / usualSize.width(), 1.0 * height() / usualSize.height());
  if (larger > 1) setFont(Sized(font(), larger));
}

template <typename Control>
Control* FuncSel::Named(Control* control, const char* name) const {
  control->setObjectName(QString::fromLatin1(name));
  return control;
}

/// A box as long and as wide as its design text.
NumberBox* FuncSel::Box(const char* name, const char* design, const DegreeBox::KeyFilter& filter) {
  const QString text = QString::fromLatin1(design);
  auto* box = Named(new NumberBox(static_cast<int>(text.size()), filter, this), name);
  box->setText(text);
  note_->Watch(box);
  box->setFont(DigitsLike(font(), 1.25));
  box->setFixedWidth(QFontMetrics(box->font()).horizontalAdvance(QStringLiteral("0000")) + 18);
  return box;
}

QCheckBox* FuncSel::Check(const char* name, const char* caption, void (FuncSel::*click)()) {
  auto* box = Named(new QCheckBox(QString::fromLatin1(caption)), name);
  connect(box, &QCheckBox::toggled, this, click);
  return box;
}

void FuncSel::BuildValueEditor() {
  scrVal_ = new ValueScroll("ScrVal");
  scrVal_->SetRange(0, HighestTime, timePage);
  tmsec_ = Box("Tmsec", "000", [this](char16_t& code) { return Tmsec_KeyPress(code); });
  editor_ = new ValueEditor(instance_.Texts, scrVal_, tmsec_, this);
  SpeakOf(instance_.Text(TextNumber::AdvanceOnCam));
}

void FuncSel::BuildFrAbil() {
  frAbil_ = Named(new QGroupBox(QStringLiteral("Abilitazione Funzioni")), "FrAbil");
  chkAnt_ = Check("ChkANT", "Anticipi   N.  ", &FuncSel::ChkANT_Click);
  chkRit_ = Check("ChkRIT", "Ritardi     17-24", &FuncSel::ChkRIT_Click);
  chkRap17_ = Check("ChkRAP17", "Rapporti 17-24", &FuncSel::ChkRAP17_Click);
  chkRap25_ = Check("ChkRAP25", "Rapporti 25-32", &FuncSel::ChkRAP25_Click);
  txAnt_ = Box("TxANT", "00", [this](char16_t& code) { return TxANT_KeyPress(code); });
  txAnt_->setEnabled(false);
  txAnt_->setAccessibleName(chkAnt_->text().simplified());
  auto* layout = new QGridLayout(frAbil_);
  layout->setContentsMargins(12, 12, 12, 12);
  layout->setSpacing(8);
  layout->setColumnStretch(0, 1);
  layout->addWidget(chkAnt_, 0, 0);
  layout->addWidget(txAnt_, 0, 1);
  int row = 0;
  for (QCheckBox* box : {chkRit_, chkRap17_, chkRap25_}) layout->addWidget(box, ++row, 0, 1, 2);
  for (row = 0; row < 4; ++row) layout->setRowMinimumHeight(row, txAnt_->sizeHint().height());
}

void FuncSel::BuildFrConf() {
  frConf_ = Named(new QGroupBox(QStringLiteral("Configurazione")), "FrConf");
  auto* layout = new QGridLayout(frConf_);
  layout->setContentsMargins(12, 12, 12, 12);
  layout->setSpacing(8);
  layout->setColumnStretch(0, 1);
  const auto add = [this, layout](RowIndex index, const char* optionName, const QString& caption,
                                  const char* boxName, const char* design,
                                  const DegreeBox::KeyFilter& filter) {
    Row& row = rows_[index];
    row.option = Named(new QRadioButton(caption), optionName);
    row.option->setAutoExclusive(false);
    row.option->setFocusPolicy(Qt::NoFocus);
    row.box = Box(boxName, design, filter);
    row.box->setAccessibleName(caption.trimmed());
    layout->addWidget(row.option, index, 0);
    layout->addWidget(row.box, index, 1);
  };
  add(OutputSize, "Oforusc", QStringLiteral("Formato in uscita "), "Tforusc", "00",
      [this](char16_t& code) { return Tforusc_KeyPress(code); });
  add(EncoderShift, "Osfas", QStringLiteral("Sfasamento       "), "Tsfas", "000",
      [](char16_t& code) { return code >= u' ' && !QChar::isSurrogate(code); });
  add(RotationSense, "Orotaz", QStringLiteral("Senso Rotazione"), "Trotaz", "0",
      [this](char16_t& code) { return Trotaz_KeyPress(code); });
  add(SpeedLimit, "Olimvel", QStringLiteral("Limite Velocit\u00e0"), "Tlimvel", "0000",
      [](char16_t& code) { return NumberBox::IsDigit(code); });
}

void FuncSel::BuildButtons() {
  tDemo_ = Named(new QPushButton(QStringLiteral("&Demo")), "tDEMO");
  tDemo_->setEnabled(openCalculator_ != nullptr);
  tOk_ = Named(new QPushButton(QStringLiteral("E&XIT")), "tOK");
  for (QPushButton* button : {tDemo_, tOk_}) {
    button->setAutoDefault(false);
    button->setMinimumWidth(88);
  }
  tOk_->setDefault(true);
  // A click on it closes; on the way out no box is left for it, so that none complains.
  tOk_->setFocusPolicy(Qt::TabFocus);
}

void FuncSel::BuildLayout() {
  auto* lower = new QHBoxLayout;
  lower->setSpacing(16);
  lower->addWidget(editor_, 1);
  lower->addWidget(frAbil_);
  lower->addWidget(frConf_);
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(16);
  buttons->addWidget(tDemo_);
  buttons->addWidget(note_, 1);
  buttons->addWidget(tOk_);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(12, 12, 12, 12);
  layout->setSpacing(16);
  layout->addWidget(columns_, 1);
  layout->addLayout(lower);
  layout->addLayout(buttons);
}

void FuncSel::SetTabOrder() {
  QWidget* before = columns_;
  for (QWidget* next : std::initializer_list<QWidget*>{
           scrVal_, tmsec_, chkAnt_, txAnt_, chkRit_, chkRap17_, chkRap25_, rows_[OutputSize].box,
           rows_[EncoderShift].box, rows_[RotationSense].box, rows_[SpeedLimit].box, tDemo_,
           tOk_}) {
    setTabOrder(before, next);
    before = next;
  }
}

void FuncSel::ConnectAll() {
  connect(columns_, &ValueColumns::LabCam_Click, this, &FuncSel::LabCam_Click);
  connect(scrVal_, &QScrollBar::valueChanged, this, &FuncSel::ScrVal_Change);
  connect(txAnt_, &DegreeBox::FocusLost, this, &FuncSel::TxANT_LostFocus);
  for (const Row& row : rows_) {
    connect(row.option, &QRadioButton::clicked, this, [this, &row] { Option_Click(row); });
    connect(row.box, &DegreeBox::FocusGained, this,
            [this, &row](Qt::FocusReason reason) { Configuration_GotFocus(row, reason); });
  }
  connect(tDemo_, &QPushButton::clicked, this, &FuncSel::tDEMO_Click);
  connect(tOk_, &QPushButton::clicked, this, &QDialog::close);
}

void FuncSel::Form_Activate() {
  const int cams = instance_.Program.NumCams();
  const EnabledFunctions opened = EnabledIn(Block(), cams);
  {
    const QSignalBlocker quiet(chkAnt_);
    chkAnt_->setChecked(HasGroups(cams) ? opened.advance : Block().AdvanceLast > 0);
  }
  ChkANT_Click();
  for (QCheckBox* box : {chkRit_, chkRap17_, chkRap25_}) box->setEnabled(HasGroups(cams));
  chkRit_->setChecked(opened.delay);
  chkRap17_->setChecked(opened.ratio17);
  chkRap25_->setChecked(opened.ratio25);
  FillConfiguration();
  DrawValueBars();
  ShowSelectionInUse();
}

/// What is in the box of the advance count counts, as it does when the box is left; but on the way
/// out nothing is reported any more.
void FuncSel::Form_Unload() {
  closed_ = true;
  if (focusWidget() == txAnt_ && txAnt_->isEnabled()) TakeAdvanceCount();
  Change([this](FunctionsBlock& block) {
    block.AdvanceOn = chkAnt_->isChecked();
    block.DelayOn = chkRit_->isChecked();
    block.Ratio17On = chkRap17_->isChecked();
    block.Ratio25On = chkRap25_->isChecked();
    block.SpeedLimit = FieldFrom<std::int16_t>(rows_[SpeedLimit].box);
    block.RotationSense = FieldFrom<std::uint8_t>(rows_[RotationSense].box);
    block.OutputSize = FieldFrom<std::uint8_t>(rows_[OutputSize].box);
    block.EncoderShift = FieldFrom<std::int16_t>(rows_[EncoderShift].box);
  });
}

EnabledFunctions FuncSel::Enabled() const {
  return {chkAnt_->isChecked(), chkRit_->isChecked(), chkRap17_->isChecked(),
          chkRap25_->isChecked()};
}

void FuncSel::Change(const std::function<void(FunctionsBlock&)>& change) {
  FunctionsBlock block = Block();
  change(block);
  instance_.Program.SetFunctions(block);
}

void FuncSel::ShowAdvanceCams() {
  txAnt_->setText(ZeroFilled(AdvanceCount(), 2));
  DrawValueBars();
}

void FuncSel::FillConfiguration() {
  rows_[OutputSize].box->setText(ZeroFilled(Block().OutputSize, 2));
  rows_[EncoderShift].box->setText(ZeroFilled(Block().EncoderShift, 3));
  rows_[RotationSense].box->setText(QString::number(Block().RotationSense));
  rows_[SpeedLimit].box->setText(ZeroFilled(Block().SpeedLimit, 4));
}

void FuncSel::ComputeMaxAdvanceIndex() {
  MaxAdvanceIndex = LastAdvanceAllowed(Enabled(), instance_.Program.NumCams());
}

void FuncSel::DrawValueBars() {
  const EnabledFunctions enabled = Enabled();
  const FunctionsBlock& block = Block();
  std::vector<ValueColumns::Group> groups;
  for (int cam = 0; cam < instance_.Program.NumCams(); ++cam) {
    const FunctionValue value = ShownValue(cam, enabled);
    const bool grouped = value != FunctionValue::Advance;
    const bool inUse = grouped || (enabled.advance && cam <= block.AdvanceLast);
    const bool selected = cam == instance_.Program.CurrentCam();
    columns_->Show(cam, {inUse, selected, value, FieldOf(block, value, cam)});
    const CamGroup group = GroupOf(value, cam);
    if (grouped && group.first == cam) {
      groups.push_back({group, GroupTitle(value, group), IsRatio(value)});
    }
  }
  columns_->ShowGroups(groups);
  ShowEditorInUse();
}

/// "RITARDO 17-20"
QString FuncSel::GroupTitle(FunctionValue value, const CamGroup& cams) const {
  const auto word = IsRatio(value) ? TextNumber::RatioGroup : TextNumber::DelayGroup;
  return instance_.Text(word) + QStringLiteral(" %1-%2").arg(cams.first + 1).arg(cams.last + 1);
}

/// Whose value it is; grey while the selected cam has none.
void FuncSel::ShowEditorInUse() {
  const int cam = instance_.Program.CurrentCam();
  editor_->ShowCam(cam, instance_.Program.CamText(cam));
  editor_->setEnabled(columns_->IsInUse(cam));
}

void FuncSel::ChkANT_Click() {
  const bool on = chkAnt_->isChecked();
  if (!on) Change([](FunctionsBlock& block) { block.AdvanceLast = 0; });
  ShowAdvanceCams();
  if (!on) {
    txAnt_->setText(QStringLiteral("00"));
    EnableGroups();
  }
  txAnt_->setEnabled(on);
  if (on) {
    txAnt_->setFocus(Qt::OtherFocusReason);
    txAnt_->SelectAllText();
  }
  ComputeMaxAdvanceIndex();
}

void FuncSel::ChkRIT_Click() {
  chkRap17_->setEnabled(!chkRit_->isChecked());
  ComputeMaxAdvanceIndex();
  DrawValueBars();
  ShowSelectionInUse();
}

void FuncSel::ChkRAP17_Click() {
  const bool on = chkRap17_->isChecked();
  Change([on](FunctionsBlock& block) { block.Ratio17On = on; });
  chkRit_->setEnabled(!on);
  ComputeMaxAdvanceIndex();
  DrawValueBars();
  ShowSelectionInUse();
}

void FuncSel::ChkRAP25_Click() {
  ComputeMaxAdvanceIndex();
  DrawValueBars();
  ShowSelectionInUse();
}

void FuncSel::LabCam_Click(int cam) {
  instance_.Program.SelectCam(cam);
  const FunctionValue value = ShownValue(cam, Enabled());
  ShowSelection();
  if (value == FunctionValue::Advance && FieldOf(Block(), value, cam) > HighestTime) {
    Change([cam](FunctionsBlock& block) {
      FieldOf(block, FunctionValue::Advance, cam) = HighestTime;
    });
  }
  DrawValueBars();
}

/// A cam without a value of its own leaves the value editor as it is. What the boxes and the count
/// make of the selected cam decides the range that may be entered.
void FuncSel::ShowSelectionInUse() {
  if (columns_->IsInUse(instance_.Program.CurrentCam())) ShowSelection();
}

void FuncSel::SetRange(FunctionValue value) {
  ScrollGuard = true;
  if (value == FunctionValue::Advance) {
    scrVal_->SetRange(0, HighestTime, timePage);
  } else if (IsRatio(value)) {
    scrVal_->SetRange(0, HighestRatio, ratioPage);
  }  // a delay is edited in the range that was set last
}

/// The value editor for the selected cam; nothing is stored.
void FuncSel::ShowSelection() {
  const int cam = instance_.Program.CurrentCam();
  const FunctionValue value = ShownValue(cam, Enabled());
  const int number = FieldOf(Block(), value, cam);
  editor_->Show(value, GroupOf(value, cam));
  SpeakOf(editor_->Title());
  tmsec_->setText(QString::number(number));
  note_->Accept(tmsec_);  // the same number may be within the range of another value
  SetRange(value);
  SetScroll(number);
}

/// What a screen reader calls the controls of the value.
void FuncSel::SpeakOf(const QString& value) {
  for (QWidget* control : std::initializer_list<QWidget*>{columns_, scrVal_, tmsec_}) {
    control->setAccessibleName(value);
  }
}

/// Also when this changes nothing, the operator's next move counts.
void FuncSel::SetScroll(int value) {
  ScrollGuard = true;
  scrVal_->setValue(value);
  ScrollGuard = false;
}

void FuncSel::ScrVal_Change(int value) {
  if (ScrollGuard) {
    ScrollGuard = false;
  } else {
    const int cam = instance_.Program.CurrentCam();
    const FunctionValue edited = EditedValue(cam, Enabled());
    Change([=](FunctionsBlock& block) {
      FieldOf(block, edited, cam) = static_cast<std::uint8_t>(value);
    });
    if (IsRatio(edited)) editor_->ShowUnit(edited);
    tmsec_->setText(QString::number(value));
  }
  DrawValueBars();
}

bool FuncSel::Tmsec_KeyPress(char16_t code) {
  if (code != DegreeBox::Enter) return NumberBox::IsDigit(code);
  const std::int64_t typed = NumericValue(tmsec_->text());
  if (typed <= scrVal_->maximum()) {
    TakeValue(static_cast<int>(typed));
  } else {
    note_->Refuse(tmsec_, scrVal_->minimum(), scrVal_->maximum());
    ReportRange(QString::number(scrVal_->minimum()) + u'-' + QString::number(scrVal_->maximum()));
  }
  tmsec_->SelectAllText();
  return false;
}

/// The scroll bar stores what it is set to. A value above its range leaves it at its end: that end
/// can be typed too.
void FuncSel::TakeValue(int value) {
  const int cam = instance_.Program.CurrentCam();
  const bool shown = FieldOf(Block(), ShownValue(cam, Enabled()), cam) == value;
  ScrollGuard = false;
  if (scrVal_->value() == value && !shown) {
    ScrVal_Change(value);
  } else {
    scrVal_->setValue(value);
  }
}

bool FuncSel::TxANT_KeyPress(char16_t code) {
  if (code != DegreeBox::Enter) return NumberBox::IsDigit(code);
  if (!TakeAdvanceCount()) {
    RefuseAdvanceCount();
    ReportRange(AdvanceRange());
  }
  txAnt_->SelectAllText();
  return false;
}

/// Handled as an Enter. The message waits until the focus and the press that moved it have arrived:
/// a box that opens in between would leave a pressed control behind.
void FuncSel::TxANT_LostFocus(Qt::FocusReason reason) {
  if (closed_ || !NumberBox::IsLeft(reason) || !chkAnt_->isChecked()) return;
  if (TakeAdvanceCount()) return;
  RefuseAdvanceCount();
  QMetaObject::invokeMethod(
      this,
      [this, range = AdvanceRange()] {
        if (!closed_) ReportRange(range);
      },
      Qt::QueuedConnection);
}

void FuncSel::RefuseAdvanceCount() {
  note_->Refuse(txAnt_, 1, MaxAdvanceIndex + 1);
}

/// Makes the number in `TxANT` the advance count; false when it is out of range.
bool FuncSel::TakeAdvanceCount() {
  const std::int64_t count = NumericValue(txAnt_->text());
  if (count < 1 || count > MaxAdvanceIndex + 1) return false;
  ScrollGuard = false;
  if (count != AdvanceCount()) {
    Change([count](FunctionsBlock& block) {
      block.AdvanceLast = static_cast<std::int16_t>(count - 1);
    });
  }
  EnableGroups();
  ShowAdvanceCams();
  ShowSelectionInUse();
  return true;
}

/// A cam with an advance is in no group.
void FuncSel::EnableGroups() {
  const bool free25 = Block().AdvanceLast <= lastBefore25;
  const bool free17 = Block().AdvanceLast <= lastBefore17;
  if (!free25) chkRap25_->setChecked(false);
  if (!free17) {
    chkRit_->setChecked(false);
    chkRap17_->setChecked(false);
  }
  const bool exist = HasGroups(instance_.Program.NumCams());
  chkRap25_->setEnabled(exist && free25);
  chkRit_->setEnabled(exist && free17 && !chkRap17_->isChecked());
  chkRap17_->setEnabled(exist && free17 && !chkRit_->isChecked());
}

/// A size too high puts the highest one into the box of the advance count, of all places; operators
/// know it so.
bool FuncSel::Tforusc_KeyPress(char16_t code) {
  if (code != DegreeBox::Enter) return NumberBox::IsDigit(code);
  const int sizes = instance_.Program.NumSizes();
  if (NumericValue(rows_[OutputSize].box->text()) > sizes) {
    note_->Refuse(rows_[OutputSize].box, 1, sizes);
    ReportRange(QStringLiteral(" 1 ") + QString::number(sizes));
    txAnt_->setText(QString::number(sizes));
  }
  return false;
}

bool FuncSel::Trotaz_KeyPress(char16_t code) {
  if (code != DegreeBox::Enter) return NumberBox::IsDigit(code);
  if (NumericValue(rows_[RotationSense].box->text()) > 1) {
    note_->Refuse(rows_[RotationSense].box, 0, 1);
    ReportRange(QStringLiteral(" 0-1"));
  }
  return false;
}

void FuncSel::Option_Click(const Row& row) {
  row.option->setChecked(true);
  row.box->setFocus(Qt::OtherFocusReason);
}

/// Enter in a configuration box must not close the window, so from here on it has no default
/// button.
void FuncSel::Configuration_GotFocus(const Row& row, Qt::FocusReason reason) {
  if (!NumberBox::IsLeft(reason)) return;
  tOk_->setDefault(false);
  for (const Row& other : rows_) other.option->setChecked(&other == &row);
}

void FuncSel::tDEMO_Click() {
  QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);  // a message that waits comes first
  openCalculator_();
}

/// How many of the programmer's cams have an advance; the block may hold more.
int FuncSel::AdvanceCount() const {
  return instance_.Program.LastAdvance() + 1;
}

QString FuncSel::AdvanceRange() const {
  return QStringLiteral("1-") + QString::number(MaxAdvanceIndex + 1);
}

void FuncSel::ReportRange(const QString& range) {
  instance_.Ask.MsgBox(instance_.Text(TextNumber::OutOfRange) + range, Buttons::Ok,
                       Icon::Exclamation);
}

void FuncSel::closeEvent(QCloseEvent* event) {
  Form_Unload();
  event->accept();
}

void FuncSel::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) return;
  if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
    QDialog::keyPressEvent(event);
    return;
  }
  auto* button = qobject_cast<QPushButton*>(focusWidget());
  if (button == nullptr && tOk_->isDefault()) button = tOk_;
  if (button != nullptr) button->click();
}

}  // namespace nira
