#include "translated_text.h"

#include <string>

#include "language/language.h"
#include "platform/error_report.h"
#include "platform/qt/qt_text.h"
#include "state/tm_globals.h"

namespace kxc::workbench {

QString textOf(const char* key) {
  std::string text;
  ignoringErrors([&] { text = gLanguage->TransMes(key); });
  return qt::toQString(text);
}

}  // namespace kxc::workbench
