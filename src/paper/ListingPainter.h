// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "PagedDocument.h"

#include <QFont>
#include <QStringList>

#include <vector>

namespace nira {

class Listing;

/// A listing on paper, in black on white: a heading on every page, the functions block in columns,
/// then size by size a table of the cams and the diagram below it. A size that fits on one page is
/// not torn; a longer one goes on under a repeated heading. Letters are never made smaller to fit.
class ListingPainter : public PagedDocument {
 public:
  explicit ListingPainter(const Listing& listing);

  QString Title() const override;
  int LayOut(const QSizeF& paper) override;
  /// Of the last layout.
  int Pages() const { return static_cast<int>(pages_.size()); }
  void Paint(QPainter& painter, int page) const override;

 private:
  /// A part of a page. Of a cam `first` and `count` are lines of phases; of the functions `first`
  /// is a line and `count` the rows of each column; of a diagram `cam` and `count` are its cams.
  struct Block {
    enum class Kind { FunctionsHeading, Functions, Size, Columns, Cam, NoPhases, Diagram };
    Kind kind = Kind::Size;
    int size = 0;  ///< from 1
    int cam = 0;   ///< from 0
    int first = 0;
    int count = 0;
    bool continued = false;
    double top = 0;
    double height = 0;
  };
  using Page = std::vector<Block>;

  double Left() const { return margin_; }
  double Right() const { return paper_.width() - margin_; }
  double Bottom() const;
  double ColumnsHeight() const;  // the names of the columns, with the rule below
  double Room() const { return Bottom() - y_; }
  bool PageIsEmpty() const { return pages_.back().empty(); }

  void NewPage();
  void Put(Block block);
  void LayOutFunctions();
  void LayOutSize(int size);
  void LayOutCams(int size);
  void PutTableHead(int size, bool continued);
  void LayOutDiagram(int size);
  int PhaseLines(int size, int cam) const;
  double TableHeight(int size) const;
  double DiagramHeight(double row, int cams) const;

  void PaintFrame(QPainter& painter, int page) const;
  void PaintBlock(QPainter& painter, const Block& block) const;
  void PaintFunctions(QPainter& painter, const Block& block) const;
  void PaintColumns(QPainter& painter, const Block& block) const;
  void PaintCam(QPainter& painter, const Block& block) const;
  void PaintDiagram(QPainter& painter, const Block& block) const;
  void PaintScale(QPainter& painter, double y, bool above) const;
  void PaintBars(QPainter& painter, const Block& block, double top, double row) const;
  void PaintName(QPainter& painter, int cam, double y, double row) const;
  void Word(QPainter& painter, const QRectF& place, int flags, const QString& text,
            const QFont& font) const;
  void Line(QPainter& painter, double x1, double y1, double x2, double y2, double width) const;
  double DegreeX(int degree) const;

  const Listing& listing_;
  QStringList functionLines_;
  QFont data_;            // fixed width: numbers that stand below each other
  QFont small_;           // of the diagram
  QFont plain_;           // headings of columns and of the page
  QFont heading_;         // of a size
  double character_ = 0;  // width of one in `data_`
  double row_ = 0;        // of a line of text, with room for letters and numbers
  double barRow_ = 0;     // of the diagram at its narrowest: of a line in `small_`
  double barName_ = 0;    // number and description left of the bars
  double barNumber_ = 0;  // the number right of them
  QSizeF paper_;
  double margin_ = 0;
  int phasesPerLine_ = 1;
  int functionColumns_ = 1;
  double y_ = 0;
  std::vector<Page> pages_;
};

}  // namespace nira
