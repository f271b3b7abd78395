// SPDX-License-Identifier: Apache-2.0
#include "editor/CamDiagram.h"

#include "editor/HoverLine.h"
#include "editor/PhaseMarks.h"
#include "editor/RunDrag.h"
#include "editor/SwitchingMarks.h"
#include "ground/Text.h"
#include "model/AdvanceCalculator.h"

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <cmath>
#include <utility>

namespace nira {

namespace {

constexpr int highestRow = 36;  // pixels
constexpr int leastRow = 12;
constexpr int rowGap = 1;
constexpr int leastRowText = 11;
constexpr int largestRowText = 18;
constexpr int columnGap = 8;
constexpr int lampColumn = DiagramPlace::LampSide + 2 * columnGap;  // the lamp between two gaps
constexpr int tick = 5;
// Of what is shown before it is arranged: Qt need not ask it how large it would like to be.
constexpr QSize unarranged(64, 16);
constexpr int longTick = DiagramPlace::Tick;

QString Indexed(const char* name, int index) {
  return QString::fromLatin1(name) + u'_' + QString::number(index);
}

}  // namespace

CamDiagram::CamDiagram(Kind kind, QWidget* parent)
    : QWidget(parent),
      kind_(std::move(kind)),
      rows_(static_cast<std::size_t>(kind_.most)),
      phaseMarks_(new PhaseMarks(this)),
      line_(new HoverLine(this)),
      drag_(new RunDrag(this)) {
  connect(drag_, &RunDrag::Dragged, this, &CamDiagram::Dragged);
  connect(drag_, &RunDrag::Dropped, this, &CamDiagram::Dropped);
  connect(drag_, &RunDrag::GivenUp, this, &CamDiagram::DragGivenUp);
  // The flag of the end that is dragged is not covered by the degree of the pointer beside it.
  connect(drag_, &RunDrag::Dragged, phaseMarks_, &QWidget::raise);
  const auto over = [this] { phaseMarks_->stackUnder(line_); };
  connect(drag_, &RunDrag::Dropped, this, over);
  connect(drag_, &RunDrag::GivenUp, this, over);
  setMouseTracking(true);
  setFocusPolicy(Qt::TabFocus);
  BuildScale();
  place_.numCams = kind_.most;
  for (int cam = 0; cam < kind_.most; ++cam) BuildRow(cam);
}

void CamDiagram::BuildRow(int cam) {
  Row& row = rows_[static_cast<std::size_t>(cam)];
  row.number = new CamLabel(this);
  row.number->setObjectName(Indexed(kind_.number, cam));
  row.number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  row.number->setContentsMargins(0, 0, lampColumn, 0);
  ShowNumber(cam, cam + 1);
  row.description = new CamLabel(this);
  row.description->setObjectName(Indexed(kind_.description, cam));
  row.description->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  row.description->setAutoFillBackground(true);
  row.description->setMargin(5);
  row.bar = new CamBar(this);
  row.bar->setObjectName(Indexed(kind_.bar, cam));
  for (QWidget* widget : {static_cast<QWidget*>(row.number), static_cast<QWidget*>(row.description),
                          static_cast<QWidget*>(row.bar)}) {
    widget->installEventFilter(this);
    widget->resize(unarranged);
  }
  connect(row.number, &CamLabel::Click, this, [this, cam] { Q_EMIT LabCam_Click(cam); });
  connect(row.number, &CamLabel::DblClick, this, [this, cam] { Q_EMIT LabCam_DblClick(cam); });
  connect(row.description, &CamLabel::Click, this, [this, cam] { Q_EMIT LabCam_Click(cam); });
  connect(row.description, &CamLabel::DblClick, this, [this, cam] { Q_EMIT LDefC_DblClick(cam); });
}

void CamDiagram::BuildScale() {
  static constexpr std::array<const char*, Quarters> names = {"Lab_0", "Lab_1_4", "Lab_1_2",
                                                              "Lab_3_4", "Lab_4_4"};
  for (int i = 0; i < Quarters; ++i) {
    auto* mark = new QLabel(QString::number(i * 90), this);
    mark->setObjectName(QString::fromLatin1(names[static_cast<std::size_t>(i)]));
    mark->setAlignment(Qt::AlignCenter);
    mark->resize(unarranged);
    marks_[static_cast<std::size_t>(i)] = mark;
  }
  // The four sides of the diagram, then the three quarters between the rows.
  static constexpr std::array<const char*, FrameLines> lines = {"Line5", "Line6",  "Line7", "Line8",
                                                                "Line9", "Line10", "Line11"};
  for (std::size_t i = 0; i < lines.size(); ++i) {
    auto* line = new QFrame(this);
    line->setObjectName(QString::fromLatin1(lines[i]));
    line->setAutoFillBackground(true);
    QPalette colour = line->palette();
    colour.setColor(QPalette::Window, QColor::fromRgb(colours::frame));
    line->setPalette(colour);
    frame_[i] = line;
  }
}

void CamDiagram::ShowRows(int numCams) {
  if (numCams == place_.numCams) return;
  place_.numCams = numCams;
  for (int cam = 0; cam < kind_.most; ++cam) {
    const Row& row = rows_[static_cast<std::size_t>(cam)];
    row.number->setVisible(cam < numCams);
    row.description->setVisible(cam < numCams);
    row.bar->setVisible(cam < numCams);
  }
  Arrange();
  if (line_->Degree() >= 0) Read();
}

void CamDiagram::ShowNumber(int row, int number) {
  CamLabel* label = RowOf(row).number;
  if (label->text() == QString::number(number)) return;
  label->setText(QString::number(number));
  label->setAccessibleName(kind_.letter + QString::number(number));
  NameRow(row);
  if (line_->Degree() >= 0) Read();
}

int CamDiagram::ReadableRows() const {
  constexpr int readable = 16;  // pixels
  return std::clamp((height() - 2 * ScaleHeight()) / readable, 1, kind_.most);
}

void CamDiagram::ShowCam(int cam, const PhaseList& phases, bool selected, const QString& text) {
  Row& row = rows_.at(static_cast<std::size_t>(cam));
  row.bar->Show({selected, phases.runs});
  const bool read = row.phases != phases.phases || row.description->text() != text;
  row.phases = phases.phases;
  QFont numbers = row.number->font();
  if (numbers.bold() != selected) {
    numbers.setBold(selected);
    row.number->setFont(numbers);
  }
  const QColor back = QColor::fromRgb(selected ? colours::selectedBar : colours::bar);
  QPalette palette = row.description->palette();
  const QColor front = QColor::fromRgb(selected ? colours::selectedText : colours::text);
  if (palette.color(QPalette::Window) != back || palette.color(QPalette::WindowText) != front) {
    palette.setColor(QPalette::Window, back);
    palette.setColor(QPalette::WindowText, front);
    row.description->setPalette(palette);
  }
  row.description->setText(text);
  if (outputs_ != nullptr) outputs_->Follow(cam);
  if (read) NameRow(cam);
  if (read && line_->Degree() >= 0) Read();
}

void CamDiagram::ShowDescription(int cam, const QString& text) {
  rows_.at(static_cast<std::size_t>(cam)).description->setText(text);
  NameRow(cam);
}

void CamDiagram::SetWords(const std::array<QString, 4>& words) {
  words_ = words;
  for (int row = 0; row < kind_.most; ++row) NameRow(row);
  if (line_->Degree() >= 0) Read();
}

/// "CAM 11 BLOW OFF DIE 1, 2 phases: 203-224, 247-260".
void CamDiagram::NameRow(int cam) {
  if (words_.front().isEmpty()) return;
  const Row& row = RowOf(cam);
  const auto& [camWord, phase, phases, none] = words_;
  QStringList pairs;
  for (const Phase& drawn : row.phases) {
    pairs.append(QString::number(drawn.on) + u'-' + QString::number(drawn.off));
  }
  const QString title = camWord + u' ' + row.number->text() + u' ' + row.description->text();
  const QString count = QString::number(pairs.size()) + u' ' +
                        (pairs.size() == 1 ? phase : phases) + QStringLiteral(": ") +
                        pairs.join(QStringLiteral(", "));
  row.bar->setAccessibleName(title.trimmed() + QStringLiteral(", ") +
                             (pairs.isEmpty() ? none : count));
}

void CamDiagram::MarkPhase(int cam, const std::optional<Phase>& phase) {
  phaseMarks_->Select(RowOf(cam).bar, phase);
  ClearFlags();
}

/// A number of the scale that a flag would cover half is not shown; the lower scale has it.
void CamDiagram::ClearFlags() {
  if (scalePixels_ == 0) return;
  for (QLabel* mark : marks_) mark->setVisible(!phaseMarks_->Covers(mark->geometry()));
}

void CamDiagram::ShowPreview(int cam, const std::vector<Phase>& goes,
                             const std::vector<Phase>& comes) {
  phaseMarks_->Preview(RowOf(cam).bar, goes, comes);
}

void CamDiagram::PutBack() {
  drag_->PutBack();
}

void CamDiagram::ShowSpeed(int speed, const std::vector<Switching>& rows) {
  speed_ = speed;
  if (outputs_ == nullptr && speed == 0) return;
  if (outputs_ == nullptr) {
    outputs_ = new SwitchingMarks(this);
    outputs_->show();
    SetScale();
  }
  for (std::size_t row = 0; row < rows.size(); ++row) {
    outputs_->Show(static_cast<int>(row), rows_.at(row).bar, rows[row]);
  }
}

void CamDiagram::Rescale(int scalePixels) {
  scalePixels_ = scalePixels;
  setMinimumHeight(2 * ScaleHeight() + CamProgram::MaxCams * leastRow);
  Arrange();
}

void CamDiagram::SetScale() {
  if (scalePixels_ == 0) return;
  place_.unitsPerDegree = place_.bars.width() / 359.0;
  for (const Row& row : rows_) row.bar->SetScale(place_.unitsPerDegree);
  phaseMarks_->Arrange(place_, scalePixels_);
  ClearFlags();
  line_->Arrange(place_, scalePixels_);
  // On top: the outline of the row under the pointer lies in the same gap.
  if (outputs_ != nullptr) outputs_->Arrange(place_, scalePixels_);
  update();
}

void CamDiagram::Arrange() {
  if (scalePixels_ == 0) return;
  const QFontMetrics scaleMetrics(ScaleFont());
  const int scaleHeight = ScaleHeight();
  const int room = std::max(0, height() - 2 * scaleHeight);
  const int rowHeight = std::min(highestRow * place_.numCams, room);
  const QFont rows = RowFont(static_cast<double>(rowHeight) / place_.numCams);
  const QFontMetrics rowMetrics(rows);
  const int numbers = rowMetrics.horizontalAdvance(QStringLiteral("00")) + 6;
  const int halfMark = scaleMetrics.horizontalAdvance(QStringLiteral("360")) / 2 + 2;
  const int descriptions =
      std::clamp(rowMetrics.horizontalAdvance(QString(20, u'A')) + 12, 60, width() / 4);
  const int left = numbers + lampColumn + descriptions + columnGap;
  place_.bars = QRect(left, scaleHeight, std::max(1, width() - left - halfMark), rowHeight);

  ArrangeRows(rows);
  ArrangeScale();
  SetScale();
}

QFont CamDiagram::ScaleFont() const {
  QFont scale = font();
  scale.setPixelSize(scalePixels_);
  return scale;
}

/// What one of the scales takes, above the rows or below.
int CamDiagram::ScaleHeight() const {
  return QFontMetrics(ScaleFont()).height() + longTick + 4;
}

/// The text of a row of this height in pixels.
QFont CamDiagram::RowFont(double height) const {
  QFont rows = font();
  rows.setPixelSize(std::clamp(qRound(height * 0.64), leastRowText, largestRowText));
  return rows;
}

void CamDiagram::ArrangeRows(const QFont& rows) {
  const QRect& bars = place_.bars;
  const int numbers = QFontMetrics(rows).horizontalAdvance(QStringLiteral("00")) + 6;
  place_.lampLeft = numbers + columnGap;
  for (int cam = 0; cam < place_.numCams; ++cam) {
    const Row& row = rows_[static_cast<std::size_t>(cam)];
    const int top = place_.Top(cam);
    const int height = std::max(1, place_.Top(cam + 1) - top - rowGap);
    QFont numberFont = rows;
    numberFont.setBold(row.number->font().bold());
    row.number->setFont(numberFont);
    row.description->setFont(rows);
    row.number->setGeometry(0, top, numbers + lampColumn, height);  // all that is there to hit
    const int left = numbers + lampColumn;
    row.description->setGeometry(left, top, bars.left() - columnGap - left, height);
    row.bar->setGeometry(bars.left(), top, bars.width(), height);
  }
}

void CamDiagram::ArrangeScale() {
  const QFont scale = ScaleFont();
  const QFontMetrics metrics(scale);
  const QRect& bars = place_.bars;
  const int markWidth = metrics.horizontalAdvance(QStringLiteral("000")) + 2;
  for (int i = 0; i < Quarters; ++i) {
    QLabel* mark = marks_[static_cast<std::size_t>(i)];
    mark->setFont(scale);
    const int x = bars.left() + bars.width() * i / (Quarters - 1);
    mark->setGeometry(x - markWidth / 2, bars.top() - longTick - 2 - metrics.height(), markWidth,
                      metrics.height());
  }
  const QRect f = bars.adjusted(-1, -1, 1, 1);
  frame_[0]->setGeometry(f.left(), f.top(), f.width(), 1);
  frame_[1]->setGeometry(f.left(), f.bottom(), f.width(), 1);
  frame_[2]->setGeometry(f.left(), f.top(), 1, f.height());
  frame_[3]->setGeometry(f.right(), f.top(), 1, f.height());
  for (std::size_t i = 4; i < frame_.size(); ++i) {
    const int degree = 90 * (static_cast<int>(i) - 3);
    const int x = bars.left() + static_cast<int>(std::lround(degree * bars.width() / 359.0));
    frame_[i]->setGeometry(x, f.top(), 1, f.height());
  }
}

void CamDiagram::resizeEvent(QResizeEvent*) {
  Arrange();
}

void CamDiagram::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  PaintTicks(painter);
  if (!hasFocus()) return;
  constexpr int ring = 2;
  painter.setPen(QPen(palette().color(QPalette::Highlight), ring));
  painter.drawRect(place_.bars.adjusted(-ring - 1, -ring - 1, ring + 1, ring + 1));
}

/// The keys of a pinned line come before the shortcuts of the window.
bool CamDiagram::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride && line_->Pinned()) {
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool arrow = key->key() == Qt::Key_Left || key->key() == Qt::Key_Right;
    if (arrow && (key->modifiers() & ~Qt::ShiftModifier) == 0) event->accept();
  }
  return QWidget::event(event);
}

void CamDiagram::PaintTicks(QPainter& painter) const {
  painter.setPen(palette().color(QPalette::WindowText));
  painter.setFont(ScaleFont());
  const QFontMetrics metrics = painter.fontMetrics();
  const int above = place_.bars.top() - 2;
  const int below = place_.bars.bottom() + 2;
  for (int degree = 0; degree <= 360; degree += 10) {
    const bool quarter = degree % 90 == 0;
    const int length = quarter ? longTick : tick;
    const int x = place_.X(degree);
    painter.drawLine(x, above, x, above - length + 1);
    painter.drawLine(x, below, x, below + length - 1);
    if (!quarter) continue;
    const QRect place(x - 40, below + longTick + 1, 80, metrics.height());
    painter.drawText(place, Qt::AlignCenter, QString::number(degree));
  }
}

void CamDiagram::mousePressEvent(QMouseEvent* event) {
  Q_EMIT Pressed();
  if (event->button() == Qt::LeftButton) Pin(event->pos());
}

void CamDiagram::mouseMoveEvent(QMouseEvent* event) {
  PointAt(event->pos());
}

void CamDiagram::leaveEvent(QEvent*) {
  PointAt({-1, -1});
}

bool CamDiagram::eventFilter(QObject* watched, QEvent* event) {
  const int cam = CamOf(watched);
  if (event->type() == QEvent::MouseMove) {
    const auto& move = *static_cast<QMouseEvent*>(event);
    const QPoint place = static_cast<QWidget*>(watched)->pos() + move.pos();
    PointAt(place);
    if (!move.buttons().testFlag(Qt::LeftButton)) drag_->PutBack();  // the release went elsewhere
    drag_->Follow(place, place_.unitsPerDegree);
    if (cam >= 0) ShowCursor(cam, place);
  }
  if (cam < 0) return false;
  switch (event->type()) {
    case QEvent::MouseButtonRelease:
      BarReleased(cam, *static_cast<QMouseEvent*>(event));
      return true;
    case QEvent::ToolTip:
      ShowTip(cam, *static_cast<QHelpEvent*>(event));
      return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      return BarPressed(cam, *static_cast<QMouseEvent*>(event));
    default:
      return false;
  }
}

/// A run takes its phase, the empty part of a bar its cam. Other buttons are the diagram's.
bool CamDiagram::BarPressed(int cam, const QMouseEvent& event) {
  if (event.button() != Qt::LeftButton) return false;
  const bool again = event.type() == QEvent::MouseButtonDblClick;
  const QPoint place = RowOf(cam).bar->pos() + event.pos();
  if (phaseMarks_->PartAt(place)) {
    TakeHold(cam, place, again);
  } else if (const Phase* found = PhaseUnder(cam, event.pos().x())) {
    const Phase phase = *found;  // the handlers draw anew
    again ? Q_EMIT Run_DblClick(cam, phase) : Q_EMIT Run_Click(cam, phase);
  } else {
    again ? Q_EMIT Bar_DblClick(cam) : Q_EMIT LabCam_Click(cam);
  }
  return true;
}

void CamDiagram::BarReleased(int cam, const QMouseEvent& event) {
  if (event.button() == Qt::LeftButton) drag_->Release();
  ShowCursor(cam, RowOf(cam).bar->pos() + event.pos());
}

/// A press on the phase that is selected already, or beside its ends. It is a click at first, which
/// may enter what stands in the boxes: only what is selected after it still can be dragged.
void CamDiagram::TakeHold(int cam, const QPoint& place, bool again) {
  const PhasePart part = *phaseMarks_->PartAt(place);
  const Phase phase = *phaseMarks_->Selected();
  if (!again) {
    Q_EMIT Run_Click(cam, phase);
    if (phaseMarks_->Selected() == phase) drag_->Press(phase, part, place);
  } else if (part == PhasePart::Off) {
    Q_EMIT End_DblClick();
  } else {
    Q_EMIT Run_DblClick(cam, phase);
  }
  ShowCursor(cam, place);
}

/// The pointer over a bar tells what would be dragged there, or what is.
void CamDiagram::ShowCursor(int cam, const QPoint& place) {
  if (drag_->Dragging()) return;
  QWidget* bar = RowOf(cam).bar;
  const std::optional<PhasePart> part = phaseMarks_->PartAt(place);
  Qt::CursorShape shape = part ? Qt::SizeHorCursor : Qt::ArrowCursor;
  if (part == PhasePart::Whole) shape = drag_->Held() ? Qt::ClosedHandCursor : Qt::OpenHandCursor;
  if (bar->cursor().shape() != shape) bar->setCursor(shape);
}

void CamDiagram::contextMenuEvent(QContextMenuEvent* event) {
  const bool key = event->reason() == QContextMenuEvent::Keyboard;
  const int cam = key ? SelectedCam() : place_.CamAt(event->pos());
  if (cam < 0) return;
  const QWidget* bar = RowOf(cam).bar;
  Q_EMIT MenuWanted(cam, key ? bar->mapToGlobal(bar->rect().bottomLeft()) : event->globalPos());
}

/// The row that is drawn as the selected one, -1 for none.
int CamDiagram::SelectedCam() const {
  const auto end = rows_.begin() + place_.numCams;
  const auto found =
      std::find_if(rows_.begin(), end, [](const Row& row) { return row.bar->Shown().selected; });
  return found == end ? -1 : static_cast<int>(found - rows_.begin());
}

/// Keys that pin a line and move it; every other one goes on to the window.
void CamDiagram::keyPressEvent(QKeyEvent* event) {
  const int step = event->modifiers().testFlag(Qt::ShiftModifier) ? 10 : 1;
  const bool left = event->key() == Qt::Key_Left;
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (line_->Pinned() && (left || event->key() == Qt::Key_Right)) {
    line_->Step(left ? -step : step);
    Read();
  } else if (event->key() == Qt::Key_Escape && FreeLines()) {
    return;
  } else if (event->key() == Qt::Key_Space || (enter && kind_.enterPins)) {
    PinAtLine();
  } else {
    QWidget::keyPressEvent(event);
  }
}

bool CamDiagram::FreeLines() {
  if (!line_->Pinned()) return false;
  line_->Free();
  Read();
  Q_EMIT Freed();
  return true;
}

void CamDiagram::PointAt(const QPoint& place) {
  const int before = line_->Degree();
  line_->PointAt(place_.DegreeAt(place.x()), place_.CamAt(place));
  if (line_->Degree() != before) Read();
}

/// A press on one of the scales pins the line there; its keys come to the diagram then.
void CamDiagram::Pin(const QPoint& place) {
  const int degree = place_.DegreeAt(place.x());
  const QRect& bars = place_.bars;
  if (degree < 0 || (place.y() >= bars.top() && place.y() <= bars.bottom())) return;
  line_->Pin(degree);
  setFocus(Qt::MouseFocusReason);
  Read();
}

/// Where no line is, it is pinned where the selected phase begins.
void CamDiagram::PinAtLine() {
  const std::optional<Phase>& phase = phaseMarks_->Selected();
  const int degree = line_->Degree();
  line_->Pin(degree >= 0 ? degree : phase ? phase->on : 0);
  Read();
}

/// Lights the lamps from what is drawn at the line, and says what it reads.
void CamDiagram::Read() {
  const int degree = line_->Degree();
  for (int cam = 0; cam < kind_.most; ++cam) {
    line_->Light(cam, degree >= 0 && PhaseAt(RowOf(cam).phases, degree) >= 0);
  }
  Q_EMIT LineRead(degree, line_->Difference(), degree < 0 ? QString() : CamsOn(degree));
}

QString CamDiagram::CamsOn(int degree) const {
  QStringList on;
  for (int cam = 0; cam < place_.numCams; ++cam) {
    const Row& row = RowOf(cam);
    if (PhaseAt(row.phases, degree) < 0) continue;
    const QString text = kind_.described ? row.description->text() : QString();
    on.append(QString(row.number->text() + u' ' + text).trimmed());
  }
  return on.join(QStringLiteral("  "));
}

int CamDiagram::CamOf(const QObject* bar) const {
  const auto found =
      std::find_if(rows_.begin(), rows_.end(), [bar](const Row& row) { return row.bar == bar; });
  return found == rows_.end() ? -1 : static_cast<int>(found - rows_.begin());
}

/// The drawn phase at a place in the bar of a cam, none beside the runs.
const Phase* CamDiagram::PhaseUnder(int cam, int x) const {
  const Row& row = RowOf(cam);
  const std::optional<Run> run = row.bar->RunAt(x);
  const int index = run ? PhaseAt(row.phases, run->on) : -1;
  return index < 0 ? nullptr : &row.phases[static_cast<std::size_t>(index)];
}

void CamDiagram::ShowTip(int cam, const QHelpEvent& event) const {
  const Row& row = RowOf(cam);
  const Phase* phase = PhaseUnder(cam, event.x());
  if (phase == nullptr) return QToolTip::hideText();
  const auto number = phase - row.phases.data() + 1;
  const auto digits = [](std::int64_t value, int width) { return ZeroFilled(value, width); };
  const QString title =
      kind_.letter + digits(row.number->text().toInt(), 2) + u' ' + row.description->text();
  const QString text =
      QStringLiteral("<p style='white-space:pre'><b>%1   F%2</b><br>ON %3  OFF %4   %5°%6</p>")
          .arg(title.toHtmlEscaped(), digits(number, 3), digits(phase->on, 3),
               digits(phase->off, 3), QString::number(phase->Length()), TimesOf(cam, *phase));
  QToolTip::showText(event.globalPos(), text, row.bar, row.bar->BoxOf(*row.bar->RunAt(event.x())));
}

/// What the speed adds to the tip: for how long, and where the output really switches.
QString CamDiagram::TimesOf(int cam, const Phase& phase) const {
  if (speed_ == 0) return {};
  const QString time = QStringLiteral("   ") + AdvanceCalculator::Duration(speed_, phase.Length());
  const Switching& switching = outputs_->Shown(cam);
  if (!switching.moved) return time;
  const Phase real = switching.Applied(phase);
  const QString degrees =
      (switching.earlier < 0 ? u'+' : u'-') + QString::number(std::abs(switching.earlier));
  return time + QStringLiteral("<br>R.P.M. %1:  ON %2  OFF %3   %4°")
                    .arg(QString::number(speed_), ZeroFilled(real.on, 3), ZeroFilled(real.off, 3),
                         degrees);
}

}  // namespace nira
