// The library's version, shown by the programs.
#pragma once

namespace kxc {
const char* libraryVersion();
}
