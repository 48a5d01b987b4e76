#include "facade/facade_hooks.h"

namespace kxc {

FacadeHooks& facadeHooks() {
  static FacadeHooks hooks;
  return hooks;
}

}  // namespace kxc
