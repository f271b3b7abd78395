// SPDX-License-Identifier: Apache-2.0
#include "functions/ValueColumns.h"

#include "controls/CamBar.h"

#include <QFontInfo>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace nira {

namespace {

constexpr int leastColumn = 26;  // pixels
constexpr int leastBars = 120;   // pixels
constexpr int frameRoom = 6;     // pixels that a group's frame stands off above and below
constexpr int labelPad = 6;      // above and below a cam's number: a place to hit with a finger
constexpr int widestBar = 48;    // pixels
constexpr int ratioTick = 6;     // pixels between the columns and the scale of ratios
constexpr int leastFont = 8;     // pixels
constexpr std::array scaleMarks = {200, 100, 0};
constexpr std::array scaleNames = {"Label10", "Label11", "Label12"};

constexpr QRgb advanceColour = 0xff7484a0;
constexpr QRgb delayColour = 0xffb87a28;
constexpr QRgb ratioColour = 0xff4f9264;
constexpr QRgb selectedColour = colours::selectedRun;

QRgb ColourOf(const ValueColumns::Column& column) {
  if (column.selected) return selectedColour;
  if (IsRatio(column.value)) return ratioColour;
  return column.value == FunctionValue::Advance ? advanceColour : delayColour;
}

/// The font as large as the text allows, from `pixels` down.
QFont Fitted(QFont font, int pixels, const QString& text, int width) {
  for (int size = pixels; size >= leastFont; --size) {
    font.setPixelSize(size);
    if (QFontMetrics(font).horizontalAdvance(text) <= width) break;
  }
  return font;
}

QString ColumnName(const char* name, int cam) {
  return QString::fromLatin1(name) + u'_' + QString::number(cam);
}

}  // namespace

void ValueBar::SetColour(QRgb colour, bool framed) {
  if (colour == colour_ && framed == framed_) return;
  colour_ = colour;
  framed_ = framed;
  update();
}

void ValueBar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), QColor::fromRgb(colour_));
  if (!framed_) return;
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

ValueColumns::ValueColumns(int numCams, QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("Columns"));
  setFocusPolicy(Qt::TabFocus);
  columns_.resize(static_cast<std::size_t>(numCams));
  for (int cam = 0; cam < numCams; ++cam) BuildColumn(cam);
  BuildScale();
}

void ValueColumns::BuildColumn(int cam) {
  Parts& parts = columns_[static_cast<std::size_t>(cam)];
  parts.bar = new ValueBar(this);
  parts.bar->setObjectName(ColumnName("Barra", cam));
  parts.value = new QLabel(QStringLiteral("000"), this);
  parts.value->setObjectName(ColumnName("lValAn", cam));
  parts.value->setAlignment(Qt::AlignHCenter | Qt::AlignBottom);
  parts.number = new CamLabel(this);
  parts.number->setObjectName(ColumnName("LabCam", cam));
  parts.number->setAlignment(Qt::AlignCenter);
  parts.number->setText(QString::number(cam + 1));
  parts.number->setAccessibleName(QStringLiteral("C%1").arg(cam + 1));
  parts.number->setEnabled(false);
  parts.bar->hide();
  parts.value->hide();
  connect(parts.number, &CamLabel::Click, this, [this, cam] { Q_EMIT LabCam_Click(cam); });
}

void ValueColumns::BuildScale() {
  for (std::size_t i = 0; i < scale_.size(); ++i) {
    scale_[i] = new QLabel(QString::number(scaleMarks[i]), this);
    scale_[i]->setObjectName(QString::fromLatin1(scaleNames[i]));
    scale_[i]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  }
}

void ValueColumns::Show(int cam, const Column& column) {
  Parts& parts = columns_.at(static_cast<std::size_t>(cam));
  const Column before = std::exchange(parts.shown, column);
  if (before == column) return;
  parts.bar->SetColour(ColourOf(column), column.selected);
  parts.value->setText(ValueText(column.value, column.number));
  parts.number->setEnabled(column.inUse);
  parts.bar->setVisible(column.inUse);
  parts.value->setVisible(column.inUse);
  PaintNumber(parts);
  Place(cam);
}

/// Yellow with blue letters, as in the main window.
void ValueColumns::PaintNumber(Parts& parts) const {
  const bool marked = parts.shown.selected && parts.shown.inUse;
  QPalette marking;
  if (marked) {
    marking.setColor(QPalette::Window, QColor::fromRgb(colours::selectedBar));
    marking.setColor(QPalette::WindowText, QColor::fromRgb(colours::selectedText));
  }
  for (QWidget* widget :
       {static_cast<QWidget*>(parts.number), static_cast<QWidget*>(parts.value)}) {
    QFont font = widget->font();
    if (font.bold() != marked) {
      font.setBold(marked);
      widget->setFont(font);
    }
  }
  parts.number->setAutoFillBackground(marked);
  parts.number->setPalette(marked ? marking : QPalette());
}

void ValueColumns::ShowGroups(const std::vector<Group>& groups) {
  if (groups == groups_) return;
  groups_ = groups;
  update();
}

/// A programmer without groups needs neither their titles nor their scale.
int ValueColumns::TitleHeight() const {
  return HasGroups(static_cast<int>(columns_.size())) ? fontMetrics().height() : 0;
}

int ValueColumns::RatioWidth() const {
  if (!HasGroups(static_cast<int>(columns_.size()))) return 1;
  return ratioTick + fontMetrics().horizontalAdvance(QStringLiteral("00"));
}

QSize ValueColumns::minimumSizeHint() const {
  const int scale = fontMetrics().horizontalAdvance(QStringLiteral("0000")) + RatioWidth();
  const int height =
      leastBars + 2 * frameRoom + 2 * labelPad + 3 * fontMetrics().height() + TitleHeight();
  return {scale + leastColumn * static_cast<int>(columns_.size()), height};
}

QSize ValueColumns::sizeHint() const {
  return minimumSizeHint() + QSize(0, 2 * leastBars);
}

int ValueColumns::Left(int cam) const {
  return bars_.left() + bars_.width() * cam / static_cast<int>(columns_.size());
}

/// The pixel row of a share of the bars' height.
int ValueColumns::Level(double fraction) const {
  return bars_.top() + bars_.height() - static_cast<int>(std::lround(bars_.height() * fraction));
}

void ValueColumns::Arrange() {
  const int count = static_cast<int>(columns_.size());
  const int scale = fontMetrics().horizontalAdvance(QStringLiteral("0000"));
  const int column = std::max(1, (width() - scale - RatioWidth()) / count);
  const int desktop = QFontInfo(font()).pixelSize();
  QFont bold = font();
  bold.setBold(true);
  const int largest = std::clamp(column * 2 / 5, desktop, 2 * desktop);
  const QFont digits = Fitted(bold, largest, QStringLiteral("000"), column - 4);
  values_ = QFontMetrics(digits).height();
  numbers_ = values_ + 2 * labelPad;
  const int above = frameRoom + TitleHeight() + values_;
  bars_ = QRect(scale, above, std::max(1, width() - scale - RatioWidth()),
                std::max(1, height() - above - numbers_ - frameRoom));
  for (int cam = 0; cam < count; ++cam) {
    const Parts& parts = columns_[static_cast<std::size_t>(cam)];
    QFont numbers = digits;
    numbers.setBold(parts.number->font().bold());
    parts.number->setFont(numbers);
    const int left = Left(cam);
    parts.number->setGeometry(left + 2, bars_.bottom() + frameRoom / 2, Left(cam + 1) - left - 4,
                              numbers_);
    Place(cam);
  }
  ArrangeScale();
  update();
}

void ValueColumns::ArrangeScale() {
  for (std::size_t i = 0; i < scale_.size(); ++i) {
    const int height = fontMetrics().height();
    const int level = Level(BarFraction(FunctionValue::Advance, scaleMarks[i]));
    scale_[i]->setGeometry(0, level - height / 2, bars_.left() - 8, height);
  }
}

/// Bar and value of a column, at the height of its value.
void ValueColumns::Place(int cam) {
  const Parts& parts = columns_[static_cast<std::size_t>(cam)];
  const int left = Left(cam);
  const int column = Left(cam + 1) - left;
  const int thick = std::min(widestBar, column * 3 / 5);
  const int top = Level(BarFraction(parts.shown.value, parts.shown.number));
  parts.bar->setGeometry(left + (column - thick) / 2, top, thick,
                         bars_.top() + bars_.height() - top);
  QFont font = parts.number->font();
  font = Fitted(font, font.pixelSize(), parts.value->text(), column - 2);
  if (font != parts.value->font()) parts.value->setFont(font);
  parts.value->setGeometry(left, top - values_ - 1, column, values_);
}

void ValueColumns::resizeEvent(QResizeEvent*) {
  Arrange();
}

/// Where the values stand: no line of the scale goes through a number.
QRegion ValueColumns::Numbers() const {
  QRegion region;
  for (const Parts& parts : columns_) {
    if (parts.value->isHidden()) continue;
    const QRect place = parts.value->geometry();
    const int text = parts.value->fontMetrics().horizontalAdvance(parts.value->text()) + 4;
    const int beside = std::max(0, place.width() - text) / 2;
    region += place.adjusted(beside, 0, -beside, 0);
  }
  return region;
}

void ValueColumns::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  painter.setClipRegion(event->region() - Numbers());
  PaintScale(painter);
  painter.setClipRegion(event->region());
  PaintRatioScale(painter);
  PaintGroups(painter);
  if (!hasFocus()) return;
  painter.setPen(QPen(palette().color(QPalette::Highlight), 1, Qt::DotLine));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(bars_.left() - 3, 0, bars_.width() + 4, height() - 1);
}

void ValueColumns::PaintScale(QPainter& painter) const {
  QColor line = palette().color(QPalette::WindowText);
  for (int mark = 0; mark <= HighestTime; mark += 50) {
    line.setAlpha(mark % 100 == 0 ? 70 : 25);
    const int level = Level(BarFraction(FunctionValue::Advance, mark));
    painter.fillRect(bars_.left(), level, bars_.width(), 1, line);
  }
}

/// The n of 1/n; every other one where the bars are low.
void ValueColumns::PaintRatioScale(QPainter& painter) const {
  const auto isRatio = [](const Group& group) { return group.ratio; };
  if (std::none_of(groups_.begin(), groups_.end(), isRatio)) return;
  const int text = fontMetrics().height();
  const int step = bars_.height() / HighestRatio < text ? 2 : 1;
  const int left = bars_.left() + bars_.width() + 1;
  painter.setPen(palette().color(QPalette::WindowText));
  for (int n = 1; n <= HighestRatio; n += step) {
    const int level = Level(BarFraction(FunctionValue::Ratio25to32, n));
    painter.drawLine(left, level, left + ratioTick / 2, level);
    painter.drawText(QRect(left + ratioTick, level - text / 2, width() - left - ratioTick, text),
                     Qt::AlignLeft | Qt::AlignVCenter, QString::number(n));
  }
}

void ValueColumns::PaintGroups(QPainter& painter) const {
  const QColor frame = palette().color(QPalette::Highlight);
  QColor ground = frame;
  ground.setAlpha(28);
  painter.setBrush(ground);
  painter.setRenderHint(QPainter::Antialiasing);
  for (const Group& group : groups_) {
    const int left = Left(group.cams.first);
    const QRectF box(left + 0.5, 0.5, Left(group.cams.last + 1) - left - 2, height() - 1);
    painter.setPen(frame);
    painter.drawRoundedRect(box, 3, 3);
    const QRectF title = box.adjusted(3, frameRoom / 2.0, -3, 0);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(
        title, Qt::AlignHCenter | Qt::AlignTop,
        fontMetrics().elidedText(group.title, Qt::ElideLeft, static_cast<int>(title.width())));
  }
}

/// Bars and values let a press through to here; it selects, at whatever height.
void ValueColumns::mousePressEvent(QMouseEvent* event) {
  const int x = event->position().toPoint().x() - bars_.left();
  if (event->button() != Qt::LeftButton || x < 0 || x >= bars_.width()) return;
  int cam = static_cast<int>(columns_.size()) - 1;
  while (cam > 0 && Left(cam) > x + bars_.left()) --cam;
  if (IsInUse(cam)) Q_EMIT LabCam_Click(cam);
}

/// The next cam in use from one of index `from` - or from -1 and the count - on; -1 when none is.
int ValueColumns::Next(int from, int step) const {
  const int count = static_cast<int>(columns_.size());
  for (int cam = from + step; cam >= 0 && cam < count; cam += step) {
    if (columns_[static_cast<std::size_t>(cam)].shown.inUse) return cam;
  }
  return -1;
}

void ValueColumns::keyPressEvent(QKeyEvent* event) {
  const int count = static_cast<int>(columns_.size());
  const auto selected = std::find_if(columns_.begin(), columns_.end(),
                                     [](const Parts& parts) { return parts.shown.selected; });
  const int at = static_cast<int>(selected - columns_.begin());
  int to = -1;
  switch (event->key()) {
    case Qt::Key_Left:
      to = Next(at, -1);
      break;
    case Qt::Key_Right:
      to = Next(at, 1);
      break;
    case Qt::Key_Home:
      to = Next(-1, 1);
      break;
    case Qt::Key_End:
      to = Next(count, -1);
      break;
    default:
      QWidget::keyPressEvent(event);
      return;
  }
  if (to >= 0) Q_EMIT LabCam_Click(to);
}

void ValueColumns::focusInEvent(QFocusEvent*) {
  update();
}

void ValueColumns::focusOutEvent(QFocusEvent*) {
  update();
}

}  // namespace nira
