#include "window/file_watch.hpp"

#include <QFileInfo>

namespace preview {
namespace {

// Programs write a drawing in several steps.
constexpr int kPauseMilliseconds = 400;

}  // namespace

FileWatch::FileWatch(QObject* parent) : QObject(parent) {
  pause_.setSingleShot(true);
  pause_.setInterval(kPauseMilliseconds);
  const auto wait = [this] { pause_.start(); };
  connect(&watcher_, &QFileSystemWatcher::fileChanged, this, wait);
  // Many programs write a new file and give it the old one's name, which ends the watch
  // of the old one.
  connect(&watcher_, &QFileSystemWatcher::directoryChanged, this, wait);
  connect(&pause_, &QTimer::timeout, this, &FileWatch::Look);
}

void FileWatch::Watch(const QString& file) {
  file_ = file;
  known_ = StateNow();
  pause_.stop();
  const QStringList before = watcher_.files() + watcher_.directories();
  if (!before.isEmpty()) {
    watcher_.removePaths(before);
  }
  const QFileInfo info(file);
  for (const QString& path : {info.absoluteFilePath(), info.absolutePath()}) {
    if (QFileInfo::exists(path)) {
      watcher_.addPath(path);
    }
  }
}

FileWatch::State FileWatch::StateNow() const {
  const QFileInfo info(file_);
  return info.exists() ? State{info.lastModified(), info.size()} : State{};
}

void FileWatch::Look() {
  const State now = StateNow();
  if (now.size < 0 || now == known_) {
    return;
  }
  Watch(file_);
  emit changed();
}

}  // namespace preview
