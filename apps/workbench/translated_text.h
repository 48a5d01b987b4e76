// The workbench's own captions, from the add-in's translation catalogue.
#pragma once

#include <QString>

namespace kxc::workbench {

// The catalogue's text for `key` in the current language; "" when the catalogue fails.
QString textOf(const char* key);

}  // namespace kxc::workbench
