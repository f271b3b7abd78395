// SPDX-License-Identifier: Apache-2.0
#include "printing/PrnSize.h"

#include "dialogs/clsCommonDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileInfo>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPrinter>
#include <QRadioButton>
#include <QSpinBox>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <iterator>

namespace nira {

namespace {

constexpr QSize startSize(980, 700);
constexpr int settling = 200;  // ms: a size box that is being turned is not followed step by step

QGroupBox* Frame(const QString& title, std::initializer_list<QWidget*> rows) {
  auto* group = new QGroupBox(title);
  auto* layout = new QVBoxLayout(group);
  layout->setContentsMargins(12, 8, 12, 12);
  layout->setSpacing(8);
  for (QWidget* row : rows) layout->addWidget(row);
  return group;
}

QString PdfNameFor(const QString& camFile) {
  if (camFile.isEmpty()) return {};
  const QFileInfo file(camFile);
  return file.absolutePath() + u'/' + file.completeBaseName() + QStringLiteral(".pdf");
}

}  // namespace

PrnSize::PrnSize(Instance& instance, QWidget* parent)
    : QDialog(parent),
      instance_(instance),
      pending_(new QTimer(this)),
      pane_(new PrintPane(instance)) {
  setObjectName(QStringLiteral("PrnSize"));
  setWindowTitle(instance.Text(TextNumber::PrintWindow));
  auto* left = new QVBoxLayout;
  left->setSpacing(16);
  left->addWidget(BuildSizes());
  left->addWidget(BuildContents());
  left->addWidget(BuildPaper());
  left->addStretch();
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(12, 12, 12, 12);
  layout->setSpacing(16);
  layout->addLayout(left);
  layout->addWidget(pane_, 1);
  pane_->ProposeName(PdfNameFor(instance.Settings.CurrentFile));
  connect(pane_, &PrintPane::Closed, this, &QDialog::close);
  connect(pane_, &PrintPane::Starting, this, &PrnSize::ShowPending);
  pending_->setObjectName(QStringLiteral("Pending"));
  pending_->setSingleShot(true);
  pending_->setInterval(settling);
  connect(pending_, &QTimer::timeout, this, &PrnSize::ShowPreview);
  resize(startSize);
  ShowPreview();
}

QRadioButton* PrnSize::Option(const char* name, TextNumber text) {
  auto* option = new QRadioButton(instance_.Text(text));
  option->setObjectName(QString::fromLatin1(name));
  connect(option, &QRadioButton::clicked, this, &PrnSize::ShowPreview);
  return option;
}

QCheckBox* PrnSize::Check(const char* name, TextNumber text) {
  auto* box = new QCheckBox(instance_.Text(text));
  box->setObjectName(QString::fromLatin1(name));
  box->setChecked(true);
  connect(box, &QCheckBox::clicked, this, &PrnSize::ShowPreview);
  return box;
}

QSpinBox* PrnSize::SizeBox(const char* name) {
  auto* box = new QSpinBox;
  box->setObjectName(QString::fromLatin1(name));
  box->setRange(1, instance_.Program.NumSizes());
  box->setValue(instance_.Program.CurrentSize());
  box->setAlignment(Qt::AlignRight);
  box->setKeyboardTracking(false);
  box->setAccessibleName(instance_.Text(TextNumber::PrintRange));
  connect(box, &QSpinBox::valueChanged, this, [this] {
    range_->setChecked(true);
    pending_->start();
  });
  return box;
}

QWidget* PrnSize::BuildSizes() {
  current_ = Option("OpCor", TextNumber::PrintCurrent);
  range_ = Option("OpInt", TextNumber::PrintRange);
  all_ = Option("OpTut", TextNumber::PrintAll);
  current_->setChecked(true);
  from_ = SizeBox("TDa");
  to_ = SizeBox("TA");
  auto* numbers = new QWidget;
  auto* row = new QHBoxLayout(numbers);
  row->setContentsMargins(24, 0, 0, 0);
  row->setSpacing(8);
  row->addWidget(from_);
  row->addWidget(new QLabel(QStringLiteral("\u2013")));
  row->addWidget(to_);
  row->addStretch();
  return Frame(instance_.Text(TextNumber::PrintSizes), {current_, range_, numbers, all_});
}

QWidget* PrnSize::BuildContents() {
  functions_ = Check("ChkFun", TextNumber::PrintWithFunctions);
  diagram_ = Check("ChkDia", TextNumber::PrintWithDiagram);
  return Frame(instance_.Text(TextNumber::PrintContents), {functions_, diagram_});
}

QWidget* PrnSize::BuildPaper() {
  pages_ = Option("OpPag", TextNumber::PrintPagePerSize);
  flowing_ = Option("OpSeg", TextNumber::PrintFlowing);
  pages_->setChecked(true);
  paper_ = new QComboBox;
  paper_->setObjectName(QStringLiteral("CmbCar"));
  paper_->setAccessibleName(instance_.Text(TextNumber::PrintPaper));
  papers_ = {QPageSize(QPageSize::A4), QPageSize(QPageSize::Letter)};
  for (const QPageSize& paper : papers_) paper_->addItem(paper.key());
  // A printer may be loaded with paper of another size.
  const QPageSize loaded = instance_.Dialog.Printer().pageLayout().pageSize();
  const auto isLoaded = [&loaded](const QPageSize& paper) { return paper.isEquivalentTo(loaded); };
  const auto place = std::find_if(papers_.begin(), papers_.end(), isLoaded) - papers_.begin();
  if (place == std::ssize(papers_)) {
    papers_.push_back(loaded);
    paper_->addItem(loaded.name());
  }
  paper_->setCurrentIndex(static_cast<int>(place));
  connect(paper_, &QComboBox::currentIndexChanged, this, &PrnSize::Paper_Changed);
  return Frame(instance_.Text(TextNumber::PrintPaper), {pages_, flowing_, paper_});
}

void PrnSize::Paper_Changed() {
  const auto place = static_cast<std::size_t>(paper_->currentIndex());
  instance_.Dialog.Printer().setPageSize(papers_.at(place));
  ShowPreview();
}

void PrnSize::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!enter || (!from_->hasFocus() && !to_->hasFocus())) QDialog::keyPressEvent(event);
}

ListingOptions PrnSize::Chosen() const {
  ListingOptions options;
  options.FirstSize = options.LastSize = instance_.Program.CurrentSize();
  if (range_->isChecked()) {
    options.FirstSize = std::min(from_->value(), to_->value());
    options.LastSize = std::max(from_->value(), to_->value());
  } else if (all_->isChecked()) {
    options.FirstSize = 1;
    options.LastSize = instance_.Program.NumSizes();
  }
  options.Functions = functions_->isChecked();
  options.Diagram = diagram_->isChecked();
  options.PagePerSize = pages_->isChecked();
  options.Modified = instance_.Program.Differs();
  return options;
}

void PrnSize::ShowPending() {
  if (pending_->isActive()) ShowPreview();
}

void PrnSize::ShowPreview() {
  pending_->stop();
  auto listing =
      std::make_unique<Listing>(instance_.Program, instance_.Texts, instance_.Settings.CurrentFile,
                                QDateTime::currentDateTime(), Chosen());
  auto painter = std::make_unique<ListingPainter>(*listing);
  pane_->Show(painter.get());
  painter_ = std::move(painter);  // only now does the one shown before go
  listing_ = std::move(listing);
}

}  // namespace nira
