// What the window remembers from one run to the next.
#pragma once

#include <QString>
#include <QStringList>

namespace preview {

// Latest first, ten at most.
QStringList RecentFiles();
void AddRecentFile(const QString& file);
void ForgetRecentFiles();

enum class Theme { kSystem, kLight, kDark };

Theme StoredTheme();
// Colours all windows, and remembers it.
void UseTheme(Theme theme);

}  // namespace preview
