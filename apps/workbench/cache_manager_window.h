// CacheManagerWindow: the engine's caches with their sizes, and making a cache from a CSV file.
#pragma once

#include <QDialog>
#include <functional>
#include <string>

#include "engine/contract/csv_import.h"
#include "platform/dispatch.h"

class QPushButton;
class QTableWidget;

namespace kxc::workbench {

// Imports `file` as cache `cacheName`, reporting progress; raises the engine's errors.
using CsvImport = std::function<int32_t(const std::string& file, const std::string& cacheName,
                                        const engine::ImportProgress& progress)>;

// A modeless window listing each cache with its dimension, measure and transaction counts (the
// engine object's CacheCount, CacheName, DimensionCount, MeasureCount, TransactionCount). Import
// asks for a CSV file and a cache name, runs the import under a progress dialog and shows a
// failure as the engine words it ("FILE:LINE: reason"). Texts are in the current language.
// Deletes itself when closed. User-interface thread only.
class CacheManagerWindow : public QDialog {
  Q_OBJECT

 public:
  CacheManagerWindow(ObjectRef engine, CsvImport import, QWidget* parent = nullptr);

  // Reads the list of caches again.
  void refresh();
  // Imports `file` as `cacheName` under a progress dialog; false (after telling the user) when
  // it failed.
  bool importFile(const std::string& file, const std::string& cacheName);
  QTableWidget& table() const { return *table_; }

 private:
  void chooseAndImport();
  void retranslate();

  ObjectRef engine_;
  CsvImport import_;
  QTableWidget* table_;
  QPushButton* importButton_;
  QPushButton* closeButton_;
};

}  // namespace kxc::workbench
