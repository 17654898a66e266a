// Sheets on paper, where Qt was built with its support for printers: printing_qt.cpp,
// else printing_none.cpp.
#pragma once

#include <QString>
#include <QWidget>

#include <functional>
#include <memory>

#include "scene/scene.hpp"

namespace preview {

// Paints one sheet, all of it, as large as the paper allows or at the sheet's own scale
// where that fits. Gives an empty text, or a reason.
using PrintJob = std::function<QString(const Scene& scene, const Sheet& sheet)>;

bool CanPrint();

// Asks for a printer; an empty job when there is none, or the user changed his mind.
// `isWide` is what the paper is suggested to be.
PrintJob AskForPrinter(QWidget* parent, bool isWide);

// A job that writes a file, without a question.
PrintJob PrintToFile(const QString& file, bool isWide);

}  // namespace preview
