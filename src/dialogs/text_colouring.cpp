#include "dialogs/text_colouring.h"

#include "facade/tm_globals.h"
#include "host/tm_excel.h"

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
