// The checks both file loader targets run on the bytes of one file: read in this process (for
// the fuzzer's coverage), sent through the child reader's wire format and back unchanged, then
// made into a workbook of a fresh application, which has it exactly when the load succeeded.
//
// The import library ends the process on some inputs: it reads past the end of a part when an
// attribute value holding an entity runs to the end of it ("<sheet name=\"&amp;&b;"), and a
// character reference that is no number ("&#m;") or lies beyond Unicode throws an exception
// its parser thread does not catch, or fails an assertion. The child process reader contains
// both (tests/platform/fileio/bad_file_test.cpp). Files with such a part go through that
// reader instead, so the fuzzer checks the containment rather than rediscovering the faults.
#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <string>
#include <string_view>

#include "fuzz_support.h"
#include "platform/fileio/child_process_reader.h"
#include "platform/fileio/read_result_wire.h"
#include "platform/fileio/spreadsheet_reader.h"
#include "platform/fileio/workbook_loader.h"
#include "platform/workbook/in_memory_application.h"

namespace kxc::fuzz {

inline bool sameImage(const fileio::WorkbookImage& a, const fileio::WorkbookImage& b) {
  if (a.sheets.size() != b.sheets.size() || a.names.size() != b.names.size()) return false;
  for (std::size_t i = 0; i < a.sheets.size(); ++i) {
    if (a.sheets[i].name != b.sheets[i].name || a.sheets[i].cells != b.sheets[i].cells) {
      return false;
    }
  }
  for (std::size_t i = 0; i < a.names.size(); ++i) {
    if (a.names[i].name != b.names[i].name || a.names[i].reference != b.names[i].reference ||
        a.names[i].baseSheet != b.names[i].baseSheet) {
      return false;
    }
  }
  return a.notes == b.notes;
}

// Whether an attribute value of `part` may still be open at its end, as the library's parser
// reads it: "&" to the next ";" is one entity, even across a quote. Comments and CDATA
// sections are skipped; one that is not closed counts as open.
inline bool valueRunsToEnd(std::string_view part) {
  constexpr std::size_t npos = std::string_view::npos;
  std::size_t at = 0;
  while ((at = part.find('<', at)) != npos) {
    std::string_view rest = part.substr(at);
    std::string_view close = rest.starts_with("<!--")        ? "-->"
                             : rest.starts_with("<![CDATA[") ? "]]>"
                                                             : "";
    if (!close.empty()) {
      at = part.find(close, at + 2);
      if (at == npos) return true;
      continue;
    }
    for (++at; at < part.size() && part[at] != '>' && part[at] != '<'; ++at) {
      const char quote = part[at];
      if (quote != '"' && quote != '\'') continue;
      for (++at; at < part.size() && part[at] != quote; ++at) {
        if (part[at] != '&') continue;
        at = part.find(';', at);
        if (at == npos) return false;  // no ";": the parser stops with an error it reports
      }
      if (at >= part.size()) return true;
    }
  }
  return false;
}

// Whether `part` holds a character reference the library cannot take. Its parser reads from
// "&#" to the first ";" and wants at most 0x10FFFF in decimal or, after "x", in hexadecimal.
inline bool badCharacterReference(std::string_view part) {
  for (std::size_t at = part.find("&#"); at != std::string_view::npos;
       at = part.find("&#", at + 2)) {
    std::size_t end = part.find(';', at);
    if (end == std::string_view::npos) return false;
    std::string_view code = part.substr(at + 2, end - at - 2);
    const bool hex = code.starts_with('x');
    if (hex) code.remove_prefix(1);
    if (code.empty() || code.size() > 7) return true;
    unsigned long value = 0;
    for (char c : code) {
      int digit = c >= '0' && c <= '9' ? c - '0' : -1;
      if (hex && c >= 'a' && c <= 'f') digit = c - 'a' + 10;
      if (hex && c >= 'A' && c <= 'F') digit = c - 'A' + 10;
      if (digit < 0) return true;
      value = value * (hex ? 16 : 10) + static_cast<unsigned long>(digit);
    }
    if (value > 0x10FFFF) return true;
  }
  return false;
}

// Whether the library may end the process on `part` (see above).
inline bool libraryFails(std::string_view part) {
  return valueRunsToEnd(part) || badCharacterReference(part);
}

// The child reader with its standard error on /dev/null: a child the library crashes would
// print the sanitizer's report for every such input.
inline fileio::SpreadsheetReadResult readQuietlyInChild(const std::string& bytes) {
  int saved = ::dup(2);
  int null = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
  ::dup2(null, 2);
  fileio::SpreadsheetReadResult read = fileio::readSpreadsheetInChild(bytes);
  ::dup2(saved, 2);
  ::close(null);
  ::close(saved);
  return read;
}

inline void checkSpreadsheet(const std::string& bytes, const std::string& fileName,
                             bool readInChild) {
  if (readInChild) {
    fileio::SpreadsheetReadResult read = readQuietlyInChild(bytes);
    KXC_FUZZ_CHECK(read.image.has_value() == read.failure.empty());
    auto app = workbook::InMemoryApplication::create();
    fileio::LoadResult loaded = fileio::openReadResult(*app, fileName, std::move(read));
    KXC_FUZZ_CHECK(app->workbookNames().size() == (loaded.ok() ? 1u : 0u));
    return;
  }
  fileio::SpreadsheetReadResult read = fileio::readSpreadsheet(bytes);
  KXC_FUZZ_CHECK(read.image.has_value() == read.failure.empty());

  std::string wire = fileio::encodeReadResult(read);
  std::optional<fileio::SpreadsheetReadResult> back = fileio::decodeReadResult(wire);
  KXC_FUZZ_CHECK(back && back->failure == read.failure &&
                 back->image.has_value() == read.image.has_value());
  KXC_FUZZ_CHECK(!read.image || sameImage(*back->image, *read.image));
  KXC_FUZZ_CHECK(!fileio::decodeReadResult(std::string_view(wire).substr(0, wire.size() - 1)));

  auto app = workbook::InMemoryApplication::create();
  fileio::LoadResult loaded = fileio::openReadResult(*app, fileName, std::move(*back));
  KXC_FUZZ_CHECK(app->workbookNames().size() == (loaded.ok() ? 1u : 0u));
  KXC_FUZZ_CHECK(loaded.ok() || !loaded.problem->reason.empty());
}

}  // namespace kxc::fuzz
