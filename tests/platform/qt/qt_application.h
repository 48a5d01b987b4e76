// Test helpers for the Qt binding: the QApplication every test runs in (made by a global test
// environment) and a recorder of the model tester's complaints.
#pragma once

#include <QString>
#include <QStringList>

namespace kxc::testing {

// Collects the warnings Qt's model tester emits while it lives.
class ModelTesterLog {
 public:
  ModelTesterLog();
  ~ModelTesterLog();
  ModelTesterLog(const ModelTesterLog&) = delete;
  ModelTesterLog& operator=(const ModelTesterLog&) = delete;
  const QStringList& complaints() const;
};

// Lets queued calls and posted events run.
void processEvents();

}  // namespace kxc::testing
