// The modal loop for Qt: what a modal Form::show runs while the form is shown.
#pragma once

#include "platform/controls/modal_loop.h"

namespace kxc::qt {

// Runs QtFormView::runModal of the form's view: the window is shown application-modal and a
// nested event loop runs until the form is hidden or unloaded. A form without a QtFormView
// returns at once.
controls::ModalLoop qtModalLoop();

// Installs qtModalLoop() as the process-wide loop (controls::setModalLoop); returns the one
// it replaces.
controls::ModalLoop installQtModalLoop();

}  // namespace kxc::qt
