// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "controls/CamLabel.h"
#include "model/FunctionRules.h"

#include <QWidget>

#include <array>
#include <vector>

namespace nira {

/// A bar whose height shows a value; one flat colour that reads on light and dark. The selected one
/// has a frame.
class ValueBar : public QWidget {
  Q_OBJECT

 public:
  explicit ValueBar(QWidget* parent) : QWidget(parent) { setAttribute(Qt::WA_OpaquePaintEvent); }

  void SetColour(QRgb colour, bool framed);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QRgb colour_ = 0;
  bool framed_ = false;
};

/// The columns of the functions window, one a cam side by side: number below, bar, value above it,
/// over one scale of 0, 100 and 200; on the right a scale of 1 to 9 while there are ratios. A click
/// in a column in use is one on its cam. With the keyboard, arrows, Home and End go from one cam in
/// use to another.
class ValueColumns : public QWidget {
  Q_OBJECT

 public:
  ValueColumns(int numCams, QWidget* parent);

  /// What a column shows; one that is out of use keeps its number only.
  struct Column {
    bool inUse = false;
    bool selected = false;
    FunctionValue value = FunctionValue::Advance;
    int number = 0;  ///< milliseconds, or the n of 1/n
    bool operator==(const Column&) const = default;
  };
  void Show(int cam, const Column& column);

  bool IsInUse(int cam) const { return columns_.at(static_cast<std::size_t>(cam)).shown.inUse; }

  /// Cams that work as a group, in a frame under its title.
  struct Group {
    CamGroup cams;
    QString title;
    bool ratio = false;
    bool operator==(const Group&) const = default;
  };
  void ShowGroups(const std::vector<Group>& groups);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 Q_SIGNALS:
  void LabCam_Click(int cam);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  struct Parts {
    CamLabel* number;
    QLabel* value;
    ValueBar* bar;
    Column shown;
  };

  void BuildColumn(int cam);
  void BuildScale();
  void Arrange();
  void ArrangeScale();
  void Place(int cam);
  void PaintScale(QPainter& painter) const;
  void PaintRatioScale(QPainter& painter) const;
  void PaintGroups(QPainter& painter) const;
  QRegion Numbers() const;
  void PaintNumber(Parts& parts) const;
  int TitleHeight() const;
  int RatioWidth() const;
  int Left(int cam) const;
  int Level(double fraction) const;
  int Next(int from, int step) const;

  std::vector<Parts> columns_;  // by the index of the cam
  std::array<QLabel*, 3> scale_{};
  std::vector<Group> groups_;
  QRect bars_;       // from the left end of the first column to the right end of the last
  int numbers_ = 0;  // height of the cams' numbers, pixels
  int values_ = 0;   // height of the values above the bars, pixels
};

}  // namespace nira
