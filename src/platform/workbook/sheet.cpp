#include "platform/workbook/sheet.h"

#include "platform/workbook/book.h"

namespace kxc::workbook {

std::shared_ptr<host::Workbook> Sheet::parent() const { return book_.lock(); }

}  // namespace kxc::workbook
