// SPDX-License-Identifier: Apache-2.0
#include "editor/CamDiagram.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace nira {

namespace {

constexpr int highestRow = 36;  // pixels
constexpr int rowGap = 1;
constexpr int columnGap = 8;
constexpr int tick = 5;
constexpr int longTick = 8;
constexpr QRgb frameColour = 0xff9a9a9a;

QString Indexed(const char* name, int index) {
  return QString::fromLatin1(name) + u'_' + QString::number(index);
}

}  // namespace

CamDiagram::CamDiagram(QWidget* parent) : QWidget(parent) {
  setMouseTracking(true);
  BuildScale();
  for (int cam = 0; cam < CamProgram::MaxCams; ++cam) BuildRow(cam);
}

void CamDiagram::BuildRow(int cam) {
  Row& row = rows_[static_cast<std::size_t>(cam)];
  row.number = new CamLabel(this);
  row.number->setObjectName(Indexed("LabCam", cam));
  row.number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  row.number->setText(QString::number(cam + 1));
  row.number->setContentsMargins(0, 0, columnGap, 0);
  row.number->setAccessibleName(QStringLiteral("C%1").arg(cam + 1));
  row.description = new CamLabel(this);
  row.description->setObjectName(Indexed("LDefC", cam));
  row.description->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  row.description->setAutoFillBackground(true);
  row.description->setMargin(5);
  row.bar = new CamBar(this);
  row.bar->setObjectName(Indexed("Barra", cam));
  for (QWidget* widget : {static_cast<QWidget*>(row.number), static_cast<QWidget*>(row.description),
                          static_cast<QWidget*>(row.bar)}) {
    widget->installEventFilter(this);
  }
  connect(row.number, &CamLabel::Click, this, [this, cam] { Q_EMIT LabCam_Click(cam); });
  connect(row.number, &CamLabel::DblClick, this, [this, cam] { Q_EMIT LabCam_DblClick(cam); });
  connect(row.description, &CamLabel::Click, this, &CamDiagram::Pressed);
  connect(row.description, &CamLabel::DblClick, this, [this, cam] { Q_EMIT LDefC_DblClick(cam); });
}

void CamDiagram::BuildScale() {
  static constexpr std::array<const char*, Quarters> names = {"Lab_0", "Lab_1_4", "Lab_1_2",
                                                              "Lab_3_4", "Lab_4_4"};
  for (int i = 0; i < Quarters; ++i) {
    auto* mark = new QLabel(QString::number(i * 90), this);
    mark->setObjectName(QString::fromLatin1(names[static_cast<std::size_t>(i)]));
    mark->setAlignment(Qt::AlignCenter);
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
    colour.setColor(QPalette::Window, QColor::fromRgb(frameColour));
    line->setPalette(colour);
    frame_[i] = line;
  }
}

void CamDiagram::ShowRows(int numCams) {
  if (numCams == numCams_) return;
  numCams_ = numCams;
  for (int cam = 0; cam < CamProgram::MaxCams; ++cam) {
    const Row& row = rows_[static_cast<std::size_t>(cam)];
    row.number->setVisible(cam < numCams);
    row.description->setVisible(cam < numCams);
    row.bar->setVisible(cam < numCams);
  }
  Arrange();
}

void CamDiagram::ShowCam(int cam, const std::vector<Run>& runs, bool selected,
                         const QString& text) {
  const Row& row = rows_.at(static_cast<std::size_t>(cam));
  row.bar->Show({selected, runs});
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
  row.description->ShowText(text);
}

void CamDiagram::ShowDescription(int cam, const QString& text) {
  rows_.at(static_cast<std::size_t>(cam)).description->ShowText(text);
}

void CamDiagram::Rescale(int rowPixels, int scalePixels) {
  rowPixels_ = rowPixels;
  scalePixels_ = scalePixels;
  Arrange();
}

void CamDiagram::SetScale() {
  unitsPerDegree_ = bars_.width() / 359.0;
  for (const Row& row : rows_) row.bar->SetScale(unitsPerDegree_);
  update();
}

void CamDiagram::Arrange() {
  QFont scale = font();
  scale.setPixelSize(scalePixels_);
  QFont rows = font();
  rows.setPixelSize(rowPixels_);
  const QFontMetrics scaleMetrics(scale);
  const QFontMetrics rowMetrics(rows);

  const int scaleHeight = scaleMetrics.height() + longTick + 4;
  const int numbers = rowMetrics.horizontalAdvance(QStringLiteral("00")) + 6;
  const int halfMark = scaleMetrics.horizontalAdvance(QStringLiteral("360")) / 2 + 2;
  const int descriptions =
      std::clamp(rowMetrics.horizontalAdvance(QString(20, u'A')) + 12, 60, width() / 4);
  const int left = numbers + columnGap + descriptions + columnGap;
  const int room = std::max(0, height() - 2 * scaleHeight);
  const int rowHeight = std::min(highestRow * numCams_, room);
  bars_ = QRect(left, scaleHeight, std::max(1, width() - left - halfMark), rowHeight);

  ArrangeRows();
  ArrangeScale();
  SetScale();
}

void CamDiagram::ArrangeRows() {
  const auto topOf = [this](int cam) { return bars_.top() + bars_.height() * cam / numCams_; };
  const int lowest = bars_.height() / numCams_;
  QFont rows = font();
  rows.setPixelSize(std::clamp(lowest * 7 / 10, 6, rowPixels_));
  const int numbers = QFontMetrics(rows).horizontalAdvance(QStringLiteral("00")) + 6;
  for (int cam = 0; cam < numCams_; ++cam) {
    const Row& row = rows_[static_cast<std::size_t>(cam)];
    const int top = topOf(cam);
    const int height = std::max(1, topOf(cam + 1) - top - rowGap);
    QFont numberFont = rows;
    numberFont.setBold(row.number->font().bold());
    row.number->setFont(numberFont);
    row.description->setFont(rows);
    row.number->setGeometry(0, top, numbers + columnGap, height);  // all that is there to hit
    const int left = numbers + columnGap;
    row.description->setGeometry(left, top, bars_.left() - columnGap - left, height);
    row.description->ShowText(row.description->text());
    row.bar->setGeometry(bars_.left(), top, bars_.width(), height);
  }
}

void CamDiagram::ArrangeScale() {
  QFont scale = font();
  scale.setPixelSize(scalePixels_);
  const QFontMetrics metrics(scale);
  const int markWidth = metrics.horizontalAdvance(QStringLiteral("0000"));
  for (int i = 0; i < Quarters; ++i) {
    QLabel* mark = marks_[static_cast<std::size_t>(i)];
    mark->setFont(scale);
    const int x = bars_.left() + bars_.width() * i / (Quarters - 1);
    mark->setGeometry(x - markWidth / 2, bars_.top() - longTick - 2 - metrics.height(), markWidth,
                      metrics.height());
  }
  const QRect f = bars_.adjusted(-1, -1, 1, 1);
  frame_[0]->setGeometry(f.left(), f.top(), f.width(), 1);
  frame_[1]->setGeometry(f.left(), f.bottom(), f.width(), 1);
  frame_[2]->setGeometry(f.left(), f.top(), 1, f.height());
  frame_[3]->setGeometry(f.right(), f.top(), 1, f.height());
  for (std::size_t i = 4; i < frame_.size(); ++i) {
    const int degree = 90 * (static_cast<int>(i) - 3);
    const int x = bars_.left() + static_cast<int>(std::lround(degree * bars_.width() / 359.0));
    frame_[i]->setGeometry(x, f.top(), 1, f.height());
  }
}

void CamDiagram::resizeEvent(QResizeEvent*) {
  Arrange();
}

void CamDiagram::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  PaintTicks(painter);
}

void CamDiagram::PaintTicks(QPainter& painter) const {
  painter.setPen(palette().color(QPalette::WindowText));
  QFont scale = font();
  scale.setPixelSize(scalePixels_);
  painter.setFont(scale);
  const QFontMetrics metrics(scale);
  const int above = bars_.top() - 2;
  const int below = bars_.top() + bars_.height() + 1;
  for (int degree = 0; degree <= 360; degree += 10) {
    const bool quarter = degree % 90 == 0;
    const int length = quarter ? longTick : tick;
    const int x = bars_.left() + std::min(static_cast<int>(std::lround(degree * unitsPerDegree_)),
                                          bars_.width() - 1);
    painter.drawLine(x, above, x, above - length + 1);
    painter.drawLine(x, below, x, below + length - 1);
    if (!quarter) continue;
    const QRect place(x - 40, below + longTick + 1, 80, metrics.height());
    painter.drawText(place, Qt::AlignCenter, QString::number(degree));
  }
}

void CamDiagram::mousePressEvent(QMouseEvent*) {
  Q_EMIT Pressed();
}

void CamDiagram::mouseMoveEvent(QMouseEvent* event) {
  TellDegree(event->pos().x());
}

void CamDiagram::leaveEvent(QEvent*) {
  TellDegree(-1);
}

bool CamDiagram::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseMove) {
    const auto* widget = static_cast<QWidget*>(watched);
    TellDegree(widget->x() + static_cast<QMouseEvent*>(event)->pos().x());
  }
  return false;
}

void CamDiagram::TellDegree(int x) {
  int degree = -1;
  if (x >= bars_.left() && x < bars_.left() + bars_.width()) {
    degree =
        std::min(static_cast<int>((x - bars_.left()) / unitsPerDegree_), CamProgram::Degrees - 1);
  }
  if (degree == degree_) return;
  degree_ = degree;
  Q_EMIT DegreeUnderPointer(degree);
}

}  // namespace nira
