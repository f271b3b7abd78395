// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "PagedDocument.h"
#include "files/MessageTable.h"
#include "model/CamProgram.h"

#include <QDateTime>
#include <QFont>

#include <vector>

namespace nira {

/// The alarm messages on paper: number and text of each, in the operator's font, in as many columns
/// as the longest text leaves room for. A text wider than the paper goes on in the next line.
class MessageListing : public PagedDocument {
 public:
  /// `file` is what the heading names behind "MESSAGES: "; sizes of `font` beyond 9 to 36 points
  /// are brought within.
  MessageListing(const CamProgram& program, const MessageTable& texts, QString file,
                 const QDateTime& printed, const QFont& font);

  QString Title() const override { return QStringLiteral("MESSAGES: ") + file_; }
  int LayOut(const QSizeF& paper) override;
  void Paint(QPainter& painter, int page) const override;

 private:
  /// A message on its page, with the lines of its text that stand there.
  struct Entry {
    int number;
    double x;
    double y;
    QStringList lines;
    int first;  // character of the text with which they begin, from 0
  };

  double Right() const { return paper_.width() - margin_; }
  double Top() const;
  double Bottom() const;
  double WidestText() const;
  QStringList LinesOf(const QString& text, double width) const;
  void PlaceEntries(double textWidth, int columns);
  void Word(QPainter& painter, const QRectF& place, int flags, const QString& text,
            const QFont& font) const;
  void PaintRowMark(QPainter& painter, const Entry& entry) const;
  void PaintFrame(QPainter& painter, int page) const;

  const CamProgram& program_;
  const MessageTable& texts_;
  QString file_;
  QString date_;
  QFont font_;   // of the messages, chosen by the operator
  QFont plain_;  // of what stands above and below them
  double row_ = 0;
  double number_ = 0;  // width of a number with the gap behind it
  QSizeF paper_;
  double margin_ = 0;
  std::vector<std::vector<Entry>> pages_;
};

}  // namespace nira
