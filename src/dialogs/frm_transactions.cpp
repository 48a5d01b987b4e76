#include "dialogs/frm_transactions.h"

#include <algorithm>

#include "platform/error_report.h"
#include "platform/services.h"
#include "platform/text_rules.h"

namespace kxc {

namespace {
constexpr int32_t kMinSize = 4300;
constexpr int32_t kDesignWidth = 10050;
constexpr int32_t kDesignHeight = 6795;
constexpr int32_t kWidthMargin = 300;
constexpr int32_t kHeightMargin = 700;
}  // namespace

FrmTransactions::FrmTransactions(FormTranslator& translator)
    : translator_(translator),
      vasTrans_(form_.add<controls::Grid>("vasTrans")),
      cmdCancel_(form_.add<controls::CommandButton>("cmdCancel")),
      popMenu_(form_.addMenu("popMenu", "popMenu")),
      copy_(form_.addMenu("Copy", "&Copy", &popMenu_)),
      selectAll_(form_.addMenu("SelectAll", "Select &All", &popMenu_)) {
  form_.setCaption("Transactions");
  form_.resize(kDesignWidth, kDesignHeight);
  vasTrans_.move(120, 120, kDesignWidth - kWidthMargin, kDesignHeight - kHeightMargin);
  // The button is outside the visible area: it is there for the Escape key.
  cmdCancel_.setCaption("&Cancel");
  cmdCancel_.setCancel(true);
  cmdCancel_.move(-2400, 0, 1215, 375);
  popMenu_.setVisible(false);

  form_.onLoad = [this] { load(); };
  form_.onResize = [this] { resized(); };
  vasTrans_.onMouseUp = [this](int button, int, double, double) {
    if (button == controls::mouse::kRight) ignoringErrors([&] { form_.popupMenu(popMenu_); });
  };
  copy_.onClick = [this] { runGridCommand("Copy"); };
  selectAll_.onClick = [this] { runGridCommand("SelectAll"); };
  cmdCancel_.onClick = [this] { ignoringErrors([&] { form_.unload(); }); };
}

ObjectRef FrmTransactions::vasTransObject() {
  return std::static_pointer_cast<controls::Grid>(form_.sharedControl("vasTrans"));
}

void FrmTransactions::load() {
  ignoringErrors([&] { translator_.translateForm(form_); });
  ignoringErrors([&] { form_.setCaption(translator_.transMes("@TRANS_DRILLDWN")); });
  ignoringErrors([&] { copy_.setCaption(translator_.transMes("@&COPY")); });
  ignoringErrors([&] { selectAll_.setCaption(translator_.transMes("@SELECT_ALL&")); });
}

void FrmTransactions::resized() {
  if (form_.minimized()) return;
  ignoringErrors([&] {
    if (form_.width() < kMinSize || form_.height() < kMinSize) {
      // Raises resize again, which then sizes the grid.
      form_.resize(kDesignWidth, kDesignHeight);
    } else {
      vasTrans_.setSize(form_.width() - kWidthMargin, form_.height() - kHeightMargin);
    }
  });
}

void FrmTransactions::runGridCommand(std::string_view command) {
  if (command == "Copy") {
    ignoringErrors([&] { services().clipboardClear(); });
    ignoringErrors([&] { vasTrans_.copyToClipboard(); });
  } else if (command == "SelectAll") {
    // An empty grid has no block from (1, 1) to select.
    ignoringErrors([&] {
      if (vasTrans_.maxCols() >= 1 && vasTrans_.maxRows() >= 1) {
        vasTrans_.setSelection(1, 1, vasTrans_.maxCols(), vasTrans_.maxRows());
      }
    });
  }
}

void FrmTransactions::sizeColumns() {
  for (int32_t col = 1; col <= vasTrans_.maxCols(); ++col) {
    std::size_t longest = charCount(vasTrans_.cellText(col, 0));
    const int32_t lastRow = std::min(vasTrans_.maxRows(), kSizingRows);
    for (int32_t row = 1; row <= lastRow; ++row) {
      longest = std::max(longest, charCount(vasTrans_.cellText(col, row)));
    }
    vasTrans_.setColWidth(col,
                          std::clamp(static_cast<double>(longest) + 2, kMinColWidth, kMaxColWidth));
  }
}

}  // namespace kxc
