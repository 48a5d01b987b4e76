#include "language/used_keys.h"

namespace kxc {

const std::vector<UsedKey>& usedKeys() {
  static const std::vector<UsedKey> keys = {
      // The library's dialogs, menus and messages.
      {"@NAME", 0},
      {"@HELP &H", 0},
      {"@VALUE", 0},
      {"@TRANS_DRILLDWN &D", 0},
      {"@TRANS_DRILLDWN", 0},
      {"@SELECT_ALL&", 0},
      {"@KES_CACHE", 0},
      {"@KES_CACHE &A", 0},
      {"@INDEX", 0},
      {"@FORMULA_VALUE", 0},
      {"@CUBE_MEASURE_X", 0},
      {"@COPY_DWN_ROWS", 0},
      {"@COPY_ACRS_COLS", 0},
      {"@OK&", 0},
      {"@CANCEL&", 0},
      {"@MANAGER% &M", 1},
      {"@FORMULA%", 1},
      {"@FORMULA% &F", 1},
      {"@LANGUAGE &L", 0},
      {"@KXC_CACHE", 0},
      {"@KES_CACHE_MAN &M", 0},
      {"@KCUBE_DIMENS", 0},
      {"@HELP&", 0},
      {"@FILE&", 0},
      {"@EXIT&", 0},
      {"@DIMENSION_NAME", 0},
      {"@DESCRIPTION", 0},
      {"@FILTER", 0},
      {"@&COPY", 0},
      // The programs: the desktop workbench and the manager window.
      {"@WB_OPEN&", 0},
      {"@WB_SAVE_AS&", 0},
      {"@WB_EDIT&", 0},
      {"@WB_UNDO_WRITE_BACK&", 0},
      {"@WB_WRITE_BACK&", 0},
      {"@WB_CHOOSE_LANGUAGE", 0},
      {"@WB_LANGUAGE_PROMPT", 0},
      {"@MGR_MEASURES", 0},
      {"@MGR_TRANSACTIONS", 0},
      {"@MGR_IMPORT&", 0},
      {"@CLOSE&", 0},
      {"@WB_READY", 0},
      {"@WB_OPEN_FAILED", 2},  // %%1 the file, %%2 the reason
      {"@WB_SAVE_FAILED", 2},  // %%1 the file, %%2 the reason
  };
  return keys;
}

std::string keyCode(std::string_view key) {
  if (!key.empty() && key.front() == '@') key.remove_prefix(1);
  return std::string(key.substr(0, key.find(" &")));
}

std::string keyHint(std::string_view key) {
  auto cut = key.find(" &");
  return cut == std::string_view::npos ? "" : std::string(key.substr(cut + 2));
}

}  // namespace kxc
