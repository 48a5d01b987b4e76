// QueuedOnce: an update that runs once from the event loop, however often it is asked for
// before it runs.
#pragma once

#include <QMetaObject>
#include <QObject>
#include <functional>
#include <utility>

namespace kxc::qt {

// `context` owns the queued call: it runs on the context's thread and is dropped when the
// context is deleted first. `work` runs after the pending flag is cleared, so it may ask again.
class QueuedOnce {
 public:
  QueuedOnce(QObject* context, std::function<void()> work)
      : context_(context), work_(std::move(work)) {}

  void request() {
    if (queued_) return;
    queued_ = true;
    QMetaObject::invokeMethod(
        context_,
        [this] {
          queued_ = false;
          work_();
        },
        Qt::QueuedConnection);
  }
  bool pending() const { return queued_; }

 private:
  QObject* context_;
  std::function<void()> work_;
  bool queued_ = false;
};

}  // namespace kxc::qt
