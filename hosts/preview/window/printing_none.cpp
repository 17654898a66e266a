#include "window/printing.hpp"

namespace preview {

bool CanPrint() {
  return false;
}

PrintJob AskForPrinter(QWidget* /*parent*/, bool /*isWide*/) {
  return {};
}

PrintJob PrintToFile(const QString& /*file*/, bool /*isWide*/) {
  return {};
}

}  // namespace preview
