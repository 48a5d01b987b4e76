// FormViews: the Qt windows of the add-in's dialogs, made before the add-in first shows them.
#pragma once

#include <map>
#include <memory>

#include "platform/controls/form.h"
#include "platform/qt/qt_form_view.h"

namespace kxc::workbench {

// Owns one QtFormView per form. attachDialogs() gives the builder, the lookup and the
// transactions form their views (creating those forms); the installed modal loop also gives
// any other form shown modally a view before running Qt's modal loop. Destroy this before the
// forms are released and before the QApplication. User-interface thread only.
class FormViews {
 public:
  FormViews();
  ~FormViews();
  FormViews(const FormViews&) = delete;
  FormViews& operator=(const FormViews&) = delete;

  // The form's view, made now when it has none.
  qt::QtFormView& ensure(controls::Form& form);
  void attachDialogs();
  // Installs the modal loop described above; the destructor puts back the previous one.
  void installModalLoop();

 private:
  std::map<controls::Form*, std::unique_ptr<qt::QtFormView>> views_;
  bool loopInstalled_ = false;
  controls::ModalLoop previousLoop_;
};

}  // namespace kxc::workbench
