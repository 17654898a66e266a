#include <QApplication>

#include "app/headless.hpp"
#include "app/options.hpp"
#include "window/main_window.hpp"

int main(int argc, char** argv) {
  if (preview::AsksForNoWindow(argc, argv) && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
  }
  const QApplication application(argc, argv);
  QApplication::setApplicationName("dwg_preview");
  const preview::Options options = preview::ParseOptions(QApplication::arguments());
  if (options.Headless()) {
    return preview::RunHeadless(options);
  }
  preview::MainWindow window(options.load);
  window.show();
  for (const QString& drawing : options.drawings) {
    window.Open(drawing);
  }
  return QApplication::exec();
}
