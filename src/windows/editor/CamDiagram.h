// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "controls/CamBar.h"
#include "controls/CamLabel.h"
#include "model/CamProgram.h"

#include <QFrame>
#include <QLabel>
#include <QWidget>

#include <array>

namespace nira {

/// The diagram of the selected size: per cam its number, its description and its bar, over a scale
/// of degrees. It shows what it is given and knows nothing of the program.
class CamDiagram : public QWidget {
  Q_OBJECT

 public:
  explicit CamDiagram(QWidget* parent);

  /// Rows of the cams that exist; the others are hidden.
  void ShowRows(int numCams);

  /// What is drawn for one cam (index from 0).
  void ShowCam(int cam, const std::vector<Run>& runs, bool selected, const QString& text);

  /// Its description alone.
  void ShowDescription(int cam, const QString& text);

  /// Computes the units per degree from the width that is drawn on.
  void SetScale();

  /// Font sizes in pixels: of the rows (smaller where a row is low) and of the scale.
  void Rescale(int rowPixels, int scalePixels);

  CamBar* Barra(int cam) const { return rows_[static_cast<std::size_t>(cam)].bar; }

 Q_SIGNALS:
  void LabCam_Click(int cam);
  void LabCam_DblClick(int cam);
  void LDefC_DblClick(int cam);
  /// A press anywhere else in the diagram.
  void Pressed();
  /// Degree 0..359 under the pointer, -1 when it is beside the bars.
  void DegreeUnderPointer(int degree);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  static constexpr int Quarters = 5;
  static constexpr int FrameLines = 7;

  struct Row {
    CamLabel* number = nullptr;       // LabCam
    CamLabel* description = nullptr;  // LDefC
    CamBar* bar = nullptr;            // Barra
  };

  void BuildRow(int cam);
  void BuildScale();
  void Arrange();
  void ArrangeRows();
  void ArrangeScale();
  void PaintTicks(QPainter& painter) const;
  void TellDegree(int x);

  std::array<Row, CamProgram::MaxCams> rows_;
  std::array<QLabel*, Quarters> marks_{};    // Lab_0 .. Lab_4_4
  std::array<QFrame*, FrameLines> frame_{};  // Line5 .. Line11
  QRect bars_;                               // all bars of the cams that exist
  int numCams_ = CamProgram::MaxCams;
  int rowPixels_ = 12;
  int scalePixels_ = 11;
  double unitsPerDegree_ = 1;
  int degree_ = -1;
};

}  // namespace nira
