// SPDX-License-Identifier: Apache-2.0
#include "functions/ShiftDiagram.h"

#include "functions/ShiftArrow.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace nira {

namespace {

constexpr int lowestBar = 36;  // pixels
constexpr int barLimit = 280;
constexpr int shortTick = 5;
constexpr int quarterTick = 8;

}  // namespace

ShiftDiagram::ShiftDiagram(const QString& programmed, const QString& shifted)
    : captions_{Caption(programmed), Caption(shifted)} {
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    lines_[i] = new QFrame(this);
    lines_[i]->setObjectName(QStringLiteral("Line") + QString::number(i + 1));
    lines_[i]->setAutoFillBackground(true);
    lines_[i]->setPalette(QPalette(QColor::fromRgb(colours::frame)));
  }
  programmed_ = new CamBar(this);  // over the lines: these show between the bars only
  programmed_->setObjectName(QStringLiteral("BarraProg"));
  barra_ = new CamBar(this);
  barra_->setObjectName(QStringLiteral("Barra"));
  arrow_ = new ShiftArrow(this);
  for (std::size_t i = 0; i < marks_.size(); ++i) {
    const auto degree = static_cast<int>(i % Quarters) * 90;
    marks_[i] = new QLabel(QString::number(degree), this);
    marks_[i]->setObjectName(QStringLiteral("Label") + QString::number(i + 1));
    marks_[i]->setAlignment(Qt::AlignCenter);
  }
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QLabel* ShiftDiagram::Caption(const QString& text) {
  auto* caption = new QLabel(this);
  caption->setTextFormat(Qt::PlainText);
  caption->setText(text);
  caption->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  return caption;
}

void ShiftDiagram::Draw(const CamRow& programmed, const CamRow& shifted, int degrees) {
  // The programmed row as any cam of the main window; the shifted one on yellow, all its runs in
  // one blue: the ends of the cycle mean nothing to it.
  const PhaseList own = PhaseList::Of(programmed);
  programmed_->Show({false, own.runs});
  arrow_->Show(own.phases.empty() ? CamProgram::Degrees / 2 : own.phases.front().on, degrees);
  CamBar::Picture picture{true, PhaseList::Of(shifted).runs};
  for (Run& run : picture.runs) run.atEnd = false;
  barra_->Show(picture);
}

int ShiftDiagram::ScaleHeight() const {
  return fontMetrics().height() + quarterTick + 3;
}

QSize ShiftDiagram::minimumSizeHint() const {
  return {560, 2 * ScaleHeight() + 2 * lowestBar + arrow_->sizeHint().height() + 2};
}

int ShiftDiagram::XOf(int degree) const {
  const double unit = static_cast<double>(bars_.width()) / CamProgram::Degrees;
  return bars_.left() + std::min(static_cast<int>(std::lround(degree * unit)), bars_.width() - 1);
}

void ShiftDiagram::resizeEvent(QResizeEvent*) {
  const int text = std::max(captions_[0]->sizeHint().width(), captions_[1]->sizeHint().width());
  const int left = text + 8;
  const int halfMark = fontMetrics().horizontalAdvance(QStringLiteral("360")) / 2 + 2;
  const int between = arrow_->sizeHint().height();
  const int room = this->height() - 2 * ScaleHeight() - between - 2;
  const int height = std::clamp(room / 2, 1, barLimit);
  bars_ = QRect(left, ScaleHeight() + std::max(0, room - 2 * height) / 2,
                std::max(1, width() - left - halfMark), 2 * height + between + 2);
  int top = bars_.top() + 1;
  CamBar* const both[] = {programmed_, barra_};
  for (std::size_t i = 0; i < 2; ++i) {
    both[i]->setGeometry(bars_.left(), top, bars_.width(), height);
    both[i]->SetScale(static_cast<double>(bars_.width()) / CamProgram::Degrees);
    captions_[i]->setGeometry(0, top, text, height);
    top += height + between;
  }
  arrow_->setGeometry(bars_.left(), programmed_->geometry().bottom() + 1, bars_.width(), between);
  ArrangeScale();
}

void ShiftDiagram::ArrangeScale() {
  const int markWidth = fontMetrics().horizontalAdvance(QStringLiteral("0000"));
  const int above = bars_.top() - quarterTick - 2 - fontMetrics().height();
  const int below = bars_.bottom() + quarterTick + 3;
  for (std::size_t i = 0; i < marks_.size(); ++i) {
    const auto quarter = static_cast<int>(i % Quarters);
    marks_[i]->setGeometry(XOf(quarter * 90) - markWidth / 2, i < Quarters ? above : below,
                           markWidth, fontMetrics().height());
  }
  const QRect f = bars_.adjusted(-1, 0, 1, 0);
  lines_[0]->setGeometry(f.left(), f.top(), f.width(), 1);
  lines_[1]->setGeometry(f.left(), f.bottom(), f.width(), 1);
  lines_[2]->setGeometry(f.left(), f.top(), 1, f.height());
  lines_[3]->setGeometry(f.right(), f.top(), 1, f.height());
  for (std::size_t i = 4; i < 7; ++i) {
    lines_[i]->setGeometry(XOf(90 * (static_cast<int>(i) - 3)), f.top(), 1, f.height());
  }
  lines_[7]->setGeometry(f.left(), programmed_->geometry().bottom() + 1, f.width(), 1);
}

void ShiftDiagram::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::WindowText));
  for (int degree = 0; degree <= CamProgram::Degrees; degree += 10) {
    const int length = degree % 90 == 0 ? quarterTick : shortTick;
    const int x = XOf(degree);
    painter.drawLine(x, bars_.top() - 1, x, bars_.top() - length);
    painter.drawLine(x, bars_.bottom() + 1, x, bars_.bottom() + length);
  }
}

}  // namespace nira
