// Reading a spreadsheet file in a child process, so that a file which crashes the import
// library ends the child and not the program.
#pragma once

#include <cstddef>
#include <string_view>

#include "platform/fileio/spreadsheet_reader.h"

namespace kxc::fileio {

// readSpreadsheet run in a forked child, its result sent back through a pipe. When the child
// dies (a crash or an assertion inside the library) or sends back anything incomplete, the
// result is the failure "the file is damaged (...)"; when no child can be started, the
// failure says so. Never throws except std::bad_alloc. Blocks until the child has ended.
//
// The child is a copy of the calling process that runs only the reader and ends with _exit,
// so nothing of the program (open files, buffered output, exit handlers) is touched there; the
// program's handlers of crash signals are reset in it, so a crash ends it without a report.
// Safe to call from a program with other threads as long as they hold no lock the reader
// needs: the reader uses the allocator, which the C library keeps usable after fork.
SpreadsheetReadResult readSpreadsheetInChild(std::string_view bytes,
                                             std::size_t cellLimit = kMaxLoadedCells);

}  // namespace kxc::fileio
