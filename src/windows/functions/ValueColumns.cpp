// SPDX-License-Identifier: Apache-2.0
#include "functions/ValueColumns.h"

#include "controls/CamBar.h"

#include <QFontInfo>
#include <QKeyEvent>
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
constexpr int leastFont = 8;     // pixels
constexpr std::array scaleMarks = {200, 100, 0};
constexpr std::array scaleNames = {"Label10", "Label11", "Label12"};

constexpr QRgb advanceColour = 0xff6f7f96;
constexpr QRgb delayColour = 0xffb87a28;
constexpr QRgb ratioColour = 0xff5a9a6c;
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

void ValueBar::SetColour(QRgb colour) {
  if (colour == colour_) return;
  colour_ = colour;
  update();
}

void ValueBar::paintEvent(QPaintEvent*) {
  QPainter(this).fillRect(rect(), QColor::fromRgb(colour_));
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
  parts.bar->SetColour(ColourOf(column));
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

void ValueColumns::ShowGroups(const std::vector<CamGroup>& groups) {
  if (groups == groups_) return;
  groups_ = groups;
  update();
}

QSize ValueColumns::minimumSizeHint() const {
  const int scale = fontMetrics().horizontalAdvance(QStringLiteral("0000"));
  const int height = leastBars + 2 * frameRoom + 2 * labelPad + 3 * fontMetrics().height();
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
  const int column = std::max(1, (width() - scale) / count);
  const int desktop = QFontInfo(font()).pixelSize();
  QFont bold = font();
  bold.setBold(true);
  const int largest = std::clamp(column * 2 / 5, desktop, 2 * desktop);
  const QFont digits = Fitted(bold, largest, QStringLiteral("000"), column - 4);
  values_ = QFontMetrics(digits).height();
  numbers_ = values_ + 2 * labelPad;
  bars_ = QRect(scale, frameRoom + values_, width() - scale - 1,
                std::max(1, height() - values_ - numbers_ - 2 * frameRoom));
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
  PaintGroups(painter);
  if (!hasFocus()) return;
  painter.setPen(QPen(palette().color(QPalette::Highlight), 1, Qt::DotLine));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(bars_.left() - 3, 0, width() - bars_.left() + 2, height() - 1);
}

void ValueColumns::PaintScale(QPainter& painter) const {
  QColor line = palette().color(QPalette::WindowText);
  for (int mark = 0; mark <= HighestTime; mark += 50) {
    line.setAlpha(mark % 100 == 0 ? 70 : 25);
    const int level = Level(BarFraction(FunctionValue::Advance, mark));
    painter.fillRect(bars_.left(), level, bars_.width(), 1, line);
  }
}

void ValueColumns::PaintGroups(QPainter& painter) const {
  QColor frame = palette().color(QPalette::Highlight);
  painter.setPen(frame);
  frame.setAlpha(28);
  painter.setBrush(frame);
  painter.setRenderHint(QPainter::Antialiasing);
  for (const CamGroup& group : groups_) {
    const int left = Left(group.first);
    const QRectF box(left + 0.5, 0.5, Left(group.last + 1) - left - 2, height() - 1);
    painter.drawRoundedRect(box, 3, 3);
  }
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
