#include "window/settings.hpp"

#include <QApplication>
#include <QFileInfo>
#include <QPalette>
#include <QSettings>
#include <QStyle>

#include <algorithm>

namespace preview {
namespace {

constexpr qsizetype kMostRecent = 10;
constexpr char kRecent[] = "recent";
constexpr char kTheme[] = "theme";

// A file on every system, which a user can read.
QSettings Settings() {
  return {QSettings::IniFormat, QSettings::UserScope, "dwg_preview", "dwg_preview"};
}

QPalette LightPalette() {
  QPalette palette(QColor(0xF0, 0xF0, 0xF0));
  palette.setColor(QPalette::Base, Qt::white);
  palette.setColor(QPalette::AlternateBase, QColor(0xF5, 0xF5, 0xF5));
  palette.setColor(QPalette::Highlight, QColor(0x2A, 0x6F, 0xC9));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  return palette;
}

QPalette DarkPalette() {
  const QColor window(0x2B, 0x2D, 0x31);
  const QColor text(0xE6, 0xE6, 0xE6);
  const QColor faint(0x80, 0x80, 0x80);
  QPalette palette(window);
  // Lighter than the window: the style draws the edges of boxes darker than that.
  palette.setColor(QPalette::Base, QColor(0x36, 0x39, 0x3E));
  palette.setColor(QPalette::AlternateBase, QColor(0x3C, 0x3F, 0x45));
  for (const QPalette::ColorRole role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
    palette.setColor(role, text);
    palette.setColor(QPalette::Disabled, role, faint);
  }
  palette.setColor(QPalette::ToolTipBase, window);
  palette.setColor(QPalette::PlaceholderText, faint);
  palette.setColor(QPalette::Highlight, QColor(0x3D, 0x7E, 0xD6));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Link, QColor(0x6C, 0xA8, 0xF0));
  return palette;
}

}  // namespace

QStringList RecentFiles() {
  QStringList files = Settings().value(kRecent).toStringList();
  files.resize(std::min(files.size(), kMostRecent));
  return files;
}

void AddRecentFile(const QString& file) {
  const QString path = QFileInfo(file).absoluteFilePath();
  QStringList files = RecentFiles();
  files.removeAll(path);
  files.prepend(path);
  files.resize(std::min(files.size(), kMostRecent));
  Settings().setValue(kRecent, files);
}

void ForgetRecentFiles() {
  Settings().remove(kRecent);
}

Theme StoredTheme() {
  const QString name = Settings().value(kTheme).toString();
  if (name == "light") {
    return Theme::kLight;
  }
  return name == "dark" ? Theme::kDark : Theme::kSystem;
}

void UseTheme(Theme theme) {
  static const QString systemStyle = QApplication::style()->objectName();
  switch (theme) {
    case Theme::kSystem:
      QApplication::setStyle(systemStyle);
      QApplication::setPalette(QApplication::style()->standardPalette());
      Settings().remove(kTheme);
      return;
    case Theme::kLight:
      QApplication::setStyle("Fusion");
      QApplication::setPalette(LightPalette());
      Settings().setValue(kTheme, "light");
      return;
    case Theme::kDark:
      QApplication::setStyle("Fusion");
      QApplication::setPalette(DarkPalette());
      Settings().setValue(kTheme, "dark");
      return;
  }
}

}  // namespace preview
