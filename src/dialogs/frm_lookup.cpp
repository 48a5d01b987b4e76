#include "dialogs/frm_lookup.h"

#include "dialogs/list_view_rows.h"
#include "dialogs/selection_codec.h"
#include "platform/error_report.h"
#include "platform/services.h"

namespace kxc {

using controls::kAlignLeft;

FrmLookup::FrmLookup(FormTranslator& translator, std::string& lookupSelection)
    : translator_(translator),
      lookupSelection_(lookupSelection),
      lvList_(form_.add<controls::ListView>("lvList")),
      cmdOk_(form_.add<controls::CommandButton>("cmdOk")),
      cmdCancel_(form_.add<controls::CommandButton>("cmdCancel")),
      popMenu_(form_.addMenu("popMenu", "popMenu")),
      copyRow_(form_.addMenu("CopyRow", "Copy Down &Rows", &popMenu_)),
      copyColumn_(form_.addMenu("CopyColumn", "Copy Across &Columns", &popMenu_)),
      separator_(form_.addMenu("popMenuSeparator", "-", &popMenu_)),
      selectAll_(form_.addMenu("SelectAll", "Select &All", &popMenu_)) {
  form_.setCaption("Lookup");
  form_.resize(5295, 5100);
  lvList_.move(120, 120, 4935, 4095);
  cmdOk_.setCaption("&OK");
  cmdOk_.setDefault(true);
  cmdOk_.move(2520, 4320, 1215, 375);
  cmdCancel_.setCaption("&Cancel");
  cmdCancel_.setCancel(true);
  cmdCancel_.move(3840, 4320, 1215, 375);
  popMenu_.setVisible(false);

  form_.onLoad = [this] { load(); };
  form_.onActivate = [this] { ignoringErrors([&] { lvList_.setFocus(); }); };
  cmdOk_.onClick = [this] { confirm(); };
  lvList_.onDblClick = [this] { confirm(); };
  cmdCancel_.onClick = [this] { cancel(); };
  lvList_.onMouseUp = [this](int button, int, double, double) {
    if (button == controls::mouse::kRight) ignoringErrors([&] { form_.popupMenu(popMenu_); });
  };
  copyColumn_.onClick = [this] { RunListCommand("CopyColumn"); };
  copyRow_.onClick = [this] { RunListCommand("CopyRow"); };
  selectAll_.onClick = [this] { RunListCommand("SelectAll"); };
}

void FrmLookup::load() {
  selectedIndex_ = 0;
  singleMode_ = false;
  chosenSelection_ = lookupSelection_;
  ignoringErrors([&] { translator_.translateForm(form_); });
  ignoringErrors([&] { copyColumn_.setCaption(translator_.transMes("@COPY_ACRS_COLS")); });
  ignoringErrors([&] { copyRow_.setCaption(translator_.transMes("@COPY_DWN_ROWS")); });
  ignoringErrors([&] { selectAll_.setCaption(translator_.transMes("@SELECT_ALL&")); });
}

void FrmLookup::confirm() {
  ignoringErrors([&] {
    std::string first, last;
    bool isRange = false;
    chosenSelection_ = MultipleSelectGet(first, last, singleMode_, isRange);
    lookupSelection_ = chosenSelection_;
  });
  ignoringErrors([&] { selectedIndex_ = lvList_.selectedItem().index(); });
  ignoringErrors([&] { form_.hide(); });
}

void FrmLookup::cancel() {
  selectedIndex_ = -1;
  ignoringErrors([&] { form_.hide(); });
}

void FrmLookup::ListVSingleMode(std::string_view text) { singleMode_ = Variant(text).toBool(); }

void FrmLookup::SetLvHeaders(int32_t mode) {
  auto& columns = lvList_.columnHeaders();
  ignoringErrors([&] { columns.clear(); });
  auto add = [&](const char* key, std::string_view textKey, int32_t width) {
    ignoringErrors([&] {
      std::string text = textKey.empty() ? std::string() : translator_.transMes(textKey);
      columns.add(0, key, std::move(text), width, kAlignLeft);
    });
  };
  switch (mode) {
    case 1:
      add("1a", "@NAME", 2000);
      add("2a", "", 3000);
      break;
    case 2:
      add("1a", "@INDEX", 2000);
      add("2a", "@NAME", 3000);
      break;
    case 3:
      add("1a", "@NAME", 2000);
      add("2a", "@DESCRIPTION", 3000);
      break;
    default:
      break;
  }
}

int16_t FrmLookup::MultipleSelectSet(const std::string& text, const Variant&) {
  ListViewRows rows(lvList_);
  return kxc::MultipleSelectSet(rows, text);
}

std::string FrmLookup::MultipleSelectGet(std::string& first, std::string& last, bool& singleMode,
                                         bool& isRange) {
  ListViewRows rows(lvList_);
  return kxc::MultipleSelectGet(rows, first, last, singleMode, isRange);
}

void FrmLookup::RunListCommand(std::string_view command) {
  auto& items = lvList_.listItems();
  // The row counter is 16-bit: the walk overflows past row 32767, and like every error here
  // the overflow is ignored, so later rows are never reached.
  auto forEachRow = [&](int32_t from, auto&& body) {
    ignoringErrors([&] {
      const int32_t n = items.count();
      for (int32_t i = from; i <= n; ++i) {
        if (i > INT16_MAX) throw RuntimeError(err::kOverflow);
        body(i);
      }
    });
  };
  if (command == "CopyColumn" || command == "CopyRow") {
    const std::string_view separator = command == "CopyColumn" ? "\t" : "\r\n";
    ignoringErrors([&] { services().clipboardClear(); });
    std::string joined;
    bool any = false;
    forEachRow(1, [&](int32_t i) {
      if (!items.selected(i)) return;
      if (any) joined += separator;
      joined += items.text(i);
      any = true;
    });
    ignoringErrors([&] { lvList_.setFocus(); });
    ignoringErrors([&] { services().clipboardSetText(joined); });
  } else if (command == "SelectAll") {
    // Row 1 holds "<ALL>" in member lists and is deliberately left out.
    forEachRow(2, [&](int32_t i) { items.setSelected(i, true); });
    ignoringErrors([&] { lvList_.setFocus(); });
  }
}

}  // namespace kxc
