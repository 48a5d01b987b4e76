#include "dialogs/text_colouring.h"

#include "state/tm_excel.h"
#include "state/tm_globals.h"

namespace kxc {

void recolour(controls::TextBox* box) {
  if (!box) return;
  TmExcel& sink = *gExcelSink;
  if (sink.IsNameRange(box->text())) {
    box->setBackColor(controls::kColorYellow);
    box->setText(sink.GetNameRange(box->text()));
  } else if (sink.IsCellRef(box->text())) {
    box->setBackColor(controls::kColorYellow);
  } else {
    box->setBackColor(controls::kColorWhite);
  }
}

}  // namespace kxc
