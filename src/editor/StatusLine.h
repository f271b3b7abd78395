#pragma once

#include "editor/Instance.h"

#include <QLabel>
#include <QStatusBar>

namespace nira {

/// What no other control says: port and speed, the model, the degree under the pointer, and whether
/// the program differs from what was last loaded or saved.
class StatusLine : public QObject {
  Q_OBJECT

 public:
  StatusLine(Instance& instance, QStatusBar* bar);

  /// Writes everything anew.
  void Show();

  /// The program in memory is the one on file, or a new one.
  void TakeAsSaved();

  /// Degree 0..359, -1 for none.
  void ShowDegree(int degree);

 private:
  QLabel* Add(const char* name, bool right);

  Instance& instance_;
  QStatusBar* bar_;
  QLabel* port_;
  QLabel* model_;
  QLabel* degree_;
  QLabel* changed_;
  std::uint64_t savedRevision_ = 0;
};

}  // namespace nira
