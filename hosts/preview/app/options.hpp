// The command line.
#pragma once

#include <QColor>
#include <QString>
#include <QStringList>

#include "app/loader.hpp"
#include "paint/export.hpp"

namespace preview {

struct Options {
  // Several are for a window only.
  QStringList drawings;
  LoadOptions load;
  ExportOptions exporting;
  // Empty for model space.
  QString layout;
  // Files to write; without any the window opens.
  QString png;
  QString svg;
  QString pdf;
  QString html;
  bool list = false;
  // How many frames to time, 0 for none.
  int frames = 0;

  bool Headless() const;
};

// Whether the arguments ask for no window, which has to be known before the
// application object exists.
bool AsksForNoWindow(int argc, char** argv);

// Ends the program with a message when the arguments are wrong or ask for help.
Options ParseOptions(const QStringList& arguments);

}  // namespace preview
