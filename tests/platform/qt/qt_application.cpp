#include "qt_application.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCoreApplication>
#include <memory>

namespace kxc::testing {

namespace {

class QtApplicationEnvironment : public ::testing::Environment {
 public:
  void SetUp() override {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    app_ = std::make_unique<QApplication>(argc_, argv_);
  }
  void TearDown() override { app_.reset(); }

 private:
  int argc_ = 1;
  char name_[16] = "kxc_qt_tests";
  char* argv_[2] = {name_, nullptr};
  std::unique_ptr<QApplication> app_;
};

[[maybe_unused]] ::testing::Environment* const kEnvironment =
    ::testing::AddGlobalTestEnvironment(new QtApplicationEnvironment);

QStringList& recorded() {
  static QStringList list;
  return list;
}
QtMessageHandler previousHandler = nullptr;

void recordComplaint(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  if (context.category && QLatin1String(context.category) == QLatin1String("qt.modeltest")) {
    if (type == QtWarningMsg || type == QtCriticalMsg) recorded().append(text);
    return;
  }
  if (previousHandler) previousHandler(type, context, text);
}

}  // namespace

ModelTesterLog::ModelTesterLog() {
  recorded().clear();
  previousHandler = qInstallMessageHandler(recordComplaint);
}

ModelTesterLog::~ModelTesterLog() { qInstallMessageHandler(previousHandler); }

const QStringList& ModelTesterLog::complaints() const { return recorded(); }

void processEvents() {
  for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();
}

}  // namespace kxc::testing
