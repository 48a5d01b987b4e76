// WriteBackObject: what the facade needs of the write-back object it switches on and off.
#pragma once

#include "platform/host/application.h"

namespace kxc {

// Implemented by CacheWriteBack. While an instance lives and is initialised it receives the
// host's selection and change events; releasing the last reference stops them.
class WriteBackObject {
 public:
  virtual ~WriteBackObject() = default;
  // Hooks the application's events. Reports its own errors; never raises.
  virtual void Initialise(host::ApplicationRef& pExcel) = 0;
};

}  // namespace kxc
