#include "facade/version.h"

namespace kxc {
const char* libraryVersion() { return "0.1.0"; }
}  // namespace kxc
