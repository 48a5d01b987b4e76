#include "platform/qt/qt_modal_loop.h"

#include "platform/controls/form.h"
#include "platform/qt/qt_form_view.h"

namespace kxc::qt {

controls::ModalLoop qtModalLoop() {
  return [](controls::Form& form) {
    if (QtFormView* view = QtFormView::of(form)) view->runModal();
  };
}

controls::ModalLoop installQtModalLoop() { return controls::setModalLoop(qtModalLoop()); }

}  // namespace kxc::qt
