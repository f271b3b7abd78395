// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "PagedDocument.h"
#include "controls/Instance.h"

#include <QLabel>
#include <QPrintPreviewWidget>
#include <QPushButton>
#include <QToolButton>
#include <QWidget>

namespace nira {

/// The preview of a document, with what goes on below it: leafing, zooming, printing, writing a
/// PDF. It prints to the run's printer; where there is none, the PDF is left. The preview holds one
/// page at a time, so that a document of many pages is shown as soon as one of few.
class PrintPane : public QWidget {
  Q_OBJECT

 public:
  explicit PrintPane(Instance& instance, QWidget* parent = nullptr);

  /// Shows the first page of the document, which must live until another one is shown.
  void Show(PagedDocument* document);

  /// The name that the dialog proposes for a PDF.
  void ProposeName(const QString& path) { proposal_ = path; }

  void tPRN_Click();
  void tPDF_Click();

 Q_SIGNALS:
  /// The document goes to paper or into a file next: the last moment to show another one.
  void Starting();
  void Closed();

 private:
  QToolButton* AddTool(QLayout* row, const char* name, TextNumber text);
  QPushButton* AddButton(QLayout* row, const char* name, TextNumber text);
  QWidget* BuildTools();
  QLayout* BuildButtons();
  void ShowPage(int page);
  void Note(const QString& text);
  void Tell(TextNumber number, const QString& more, Icon icon);
  QString ChoosePdf();
  bool MayReplace(const QString& path);

  Instance& instance_;
  PagedDocument* document_ = nullptr;
  QString proposal_;
  int shown_ = 1;  // page, from 1
  int pages_ = 1;
  QPrintPreviewWidget* preview_;
  QLabel* page_;
  QToolButton* back_;
  QToolButton* forth_;
  QPushButton* print_;
  QPushButton* pdf_;
  QLabel* note_;
};

/// Lets the operator choose the printer for the rest of the run; says so where there is none.
void SelectPrinter(Instance& instance, QWidget* parent);

}  // namespace nira
