#include "cache_manager_window.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QInputDialog>
#include <QLocale>
#include <QProgressDialog>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "language/language.h"
#include "platform/error_report.h"
#include "platform/qt/caption_text.h"
#include "platform/qt/qt_text.h"
#include "platform/runtime_error.h"
#include "platform/services.h"
#include "state/tm_globals.h"
#include "translated_text.h"

namespace kxc::workbench {

namespace {

QTableWidgetItem* numberItem(int64_t value) {
  // Grouped the way the user's locale writes counts ("200,000", "200.000").
  auto* item = new QTableWidgetItem(QLocale().toString(static_cast<qlonglong>(value)));
  item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
  return item;
}

}  // namespace

CacheManagerWindow::CacheManagerWindow(ObjectRef engine, CsvImport import, QWidget* parent)
    : QDialog(parent),
      engine_(std::move(engine)),
      import_(std::move(import)),
      table_(new QTableWidget(this)),
      importButton_(new QPushButton(this)),
      closeButton_(new QPushButton(this)) {
  setAttribute(Qt::WA_DeleteOnClose);
  setObjectName("cacheManager");
  table_->setColumnCount(4);
  table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->verticalHeader()->hide();
  table_->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
  importButton_->setObjectName("importButton");
  closeButton_->setObjectName("closeButton");
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(importButton_);
  buttons->addStretch(1);
  buttons->addWidget(closeButton_);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(table_, 1);
  layout->addLayout(buttons);
  connect(importButton_, &QPushButton::clicked, this, &CacheManagerWindow::chooseAndImport);
  connect(closeButton_, &QPushButton::clicked, this, &QDialog::close);
  retranslate();
  resize(560, 300);
  refresh();
}

void CacheManagerWindow::retranslate() {
  setWindowTitle(qt::windowTitleText(qt::plainCaptionText(textOf("@KES_CACHE_MAN"))));
  table_->setHorizontalHeaderLabels({textOf("@NAME"), textOf("@KCUBE_DIMENS"),
                                     textOf("@MGR_MEASURES"), textOf("@MGR_TRANSACTIONS")});
  importButton_->setText(textOf("@MGR_IMPORT&"));
  closeButton_->setText(textOf("@CLOSE&"));
}

void CacheManagerWindow::refresh() {
  table_->setRowCount(0);
  reportingErrors("Cache Manager", [&] {
    invoke(engine_, "Refresh");
    const int32_t count = invoke(engine_, "CacheCount").toInt32();
    table_->setRowCount(count);
    for (int32_t i = 1; i <= count; ++i) {
      const Variant name = invoke(engine_, "CacheName", {Argument::byValue(Variant(i))});
      auto count = [&](const char* member) {
        return invoke(engine_, member, {Argument::byValue(name)}).toDouble();
      };
      table_->setItem(i - 1, 0, new QTableWidgetItem(qt::toQString(name.toText())));
      table_->setItem(i - 1, 1, numberItem(static_cast<int64_t>(count("DimensionCount"))));
      table_->setItem(i - 1, 2, numberItem(static_cast<int64_t>(count("MeasureCount"))));
      table_->setItem(i - 1, 3, numberItem(static_cast<int64_t>(count("TransactionCount"))));
    }
  });
  table_->resizeColumnsToContents();
  table_->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
}

void CacheManagerWindow::chooseAndImport() {
  const QString file = QFileDialog::getOpenFileName(this, textOf("@MGR_IMPORT&").remove('&'), {},
                                                    "CSV (*.csv);;* (*)");
  if (file.isEmpty()) return;
  bool ok = false;
  const QString name =
      QInputDialog::getText(this, textOf("@MGR_IMPORT&").remove('&'), textOf("@NAME"),
                            QLineEdit::Normal, QFileInfo(file).baseName(), &ok);
  if (!ok || name.trimmed().isEmpty()) return;
  importFile(qt::fromQString(file), qt::fromQString(name.trimmed()));
}

bool CacheManagerWindow::importFile(const std::string& file, const std::string& cacheName) {
  QProgressDialog progress(textOf("@MGR_IMPORT&").remove('&'), {}, 0, 1000, this);
  progress.setWindowModality(Qt::WindowModal);
  progress.setMinimumDuration(300);
  progress.setCancelButton(nullptr);
  std::string failure;
  QApplication::setOverrideCursor(Qt::WaitCursor);
  try {
    import_(file, cacheName, [&](uint64_t done, uint64_t total) {
      progress.setValue(total == 0 ? 1000 : static_cast<int>(done * 1000 / total));
      QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    });
  } catch (const RuntimeError& e) {
    failure = e.description();
  } catch (const std::exception& e) {
    failure = e.what();
  }
  QApplication::restoreOverrideCursor();
  progress.setValue(1000);
  refresh();
  if (failure.empty()) return true;
  services().messageBox(failure, mb::kExclamation, qt::fromQString(windowTitle()));
  return false;
}

}  // namespace kxc::workbench
