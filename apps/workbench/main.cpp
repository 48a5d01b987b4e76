// kestra-workbench: the desktop program, a workbook window with the cache add-in installed.
#include <QApplication>
#include <QProgressDialog>
#include <QTimer>
#include <cstdio>
#include <string>

#include "main_window.h"
#include "platform/error_report.h"
#include "sample_report.h"
#include "screenshot.h"
#include "screenshot_scenes.h"
#include "workbench_options.h"
#include "workbench_session.h"

namespace {

using namespace kxc::workbench;

// Time for the windows to lay themselves out and paint before the picture is taken.
constexpr int kSettleMs = 400;

void prepareCachesShowingProgress(WorkbenchSession& session) {
  QProgressDialog busy(QStringLiteral("Kestra Cache\u2026"), {}, 0, 0);
  busy.setWindowTitle(QString::fromUtf8(kWorkbenchCaption));
  busy.setCancelButton(nullptr);
  busy.setMinimumDuration(0);
  busy.show();
  QApplication::processEvents();
  QApplication::setOverrideCursor(Qt::WaitCursor);
  session.prepareCaches();
  QApplication::restoreOverrideCursor();
}

// Takes the picture, closes the scene's dialogs and ends the program with the outcome.
void takeScreenshot(MainWindow& window, const QString& file) {
  QApplication::processEvents();
  const bool saved = saveScreenshot(window, file);
  if (!saved) std::fprintf(stderr, "kestra-workbench: cannot write %s\n", qPrintable(file));
  closeSceneDialogs();
  QApplication::exit(saved ? 0 : 1);
}

void startScreenshot(MainWindow& window, WorkbenchSession& session, const WorkbenchOptions& o) {
  const QString file = QString::fromStdString(o.screenshot);
  QTimer::singleShot(kSettleMs, &window, [&window, &session, o, file] {
    switch (o.open) {
      case ScreenshotDialog::None:
        break;
      case ScreenshotDialog::Builder:
        openBuilderScene(session);
        break;
      case ScreenshotDialog::Transactions:
        openTransactionsScene(session);
        break;
      case ScreenshotDialog::Manager:
        session.runCommand("CacheManager");
        break;
      case ScreenshotDialog::Lookup: {
        bool saved = false;
        openLookupScene(session, [&window, &saved, file] {
          QApplication::processEvents();
          saved = saveScreenshot(window, file);
          closeSceneDialogs();
        });
        if (!saved) std::fprintf(stderr, "kestra-workbench: no lookup picture\n");
        closeSceneDialogs();
        QApplication::exit(saved ? 0 : 1);
        return;
      }
    }
    QTimer::singleShot(kSettleMs, &window, [&window, file] { takeScreenshot(window, file); });
  });
}

}  // namespace

int main(int argc, char** argv) {
  // Help is printed before Qt starts, so it needs no display.
  for (int i = 1; i < argc; ++i) {
    const std::string arg = argv[i];
    if (arg == "--help" || arg == "-h") {
      std::printf("%s", usageText());
      return 0;
    }
  }
  QApplication qapp(argc, argv);
  QApplication::setApplicationName(QString::fromUtf8(kWorkbenchCaption));
  std::vector<std::string> args;
  const QStringList arguments = QApplication::arguments();
  for (qsizetype i = 1; i < arguments.size(); ++i) args.push_back(arguments[i].toStdString());
  const ParsedOptions parsed = parseOptions(args);
  if (!parsed.error.empty()) {
    std::fprintf(stderr, "kestra-workbench: %s\n%s", parsed.error.c_str(), usageText());
    return 2;
  }
  const WorkbenchOptions& options = parsed.options;

  kxc::engine::EngineOptions engineOptions;
  engineOptions.databasePath = options.databasePath;
  int status = 0;
  {
    WorkbenchSession session(engineOptions);
    if (options.language) session.changeLanguage(*options.language);
    prepareCachesShowingProgress(session);
    // The dialog scenes act on the sample report; a plain screenshot may show a file.
    const bool openFile = !options.file.empty() && options.open == ScreenshotDialog::None;
    if (!openFile) {
      kxc::reportingErrors("Workbench Sample", [&] { addSampleReport(session.app()); });
    }
    MainWindow window(session);
    // Dialogs or the cache manager may still be open: the program ends with its main window.
    QObject::connect(&window, &MainWindow::closed, &qapp, &QCoreApplication::quit,
                     Qt::QueuedConnection);
    if (openFile && !window.openFile(options.file)) {
      kxc::reportingErrors("Workbench Sample", [&] { addSampleReport(session.app()); });
      window.refreshNow();
    }
    window.show();
    if (!options.screenshot.empty()) startScreenshot(window, session, options);
    status = QApplication::exec();
  }
  return status;
}
