// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ListingPainter.h"
#include "listing/Listing.h"
#include "printing/PrintPane.h"

#include <QDialog>
#include <QPageSize>

#include <memory>
#include <vector>

class QCheckBox;
class QComboBox;
class QRadioButton;
class QSpinBox;
class QTimer;

namespace nira {

/// Prints sizes: which ones, whether with functions and diagram, on which paper; with a preview.
class PrnSize : public QDialog {
  Q_OBJECT

 public:
  explicit PrnSize(Instance& instance, QWidget* parent = nullptr);

 protected:
  /// Enter in a size box ends the number and does not print.
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QWidget* BuildSizes();
  QWidget* BuildContents();
  QWidget* BuildPaper();
  QRadioButton* Option(const char* name, TextNumber text);
  QCheckBox* Check(const char* name, TextNumber text);
  QSpinBox* SizeBox(const char* name);
  ListingOptions Chosen() const;
  void ShowPreview();
  void ShowPending();
  void Paper_Changed();

  Instance& instance_;
  QRadioButton* current_;
  QRadioButton* range_;
  QRadioButton* all_;
  QSpinBox* from_;
  QSpinBox* to_;
  QCheckBox* functions_;
  QCheckBox* diagram_;
  QRadioButton* pages_;
  QRadioButton* flowing_;
  QComboBox* paper_;
  std::vector<QPageSize> papers_;  // by the index in the box
  QTimer* pending_;                // runs while a size box was changed that is not shown yet
  PrintPane* pane_;
  std::unique_ptr<Listing> listing_;
  std::unique_ptr<ListingPainter> painter_;
};

}  // namespace nira
