// Says when a file has changed, once for all changes that follow each other closely.
#pragma once

#include <QDateTime>
#include <QFileSystemWatcher>
#include <QObject>
#include <QString>
#include <QTimer>

namespace preview {

class FileWatch : public QObject {
  Q_OBJECT

 public:
  explicit FileWatch(QObject* parent = nullptr);

  // Watches this file, which counts as known as it is now, instead of another one.
  void Watch(const QString& file);

 signals:
  // The file is there and differs from what it was: never for one that is missing.
  void changed();

 private:
  struct State {
    QDateTime time;
    qint64 size = -1;

    friend bool operator==(const State&, const State&) = default;
  };

  State StateNow() const;
  void Look();

  QString file_;
  State known_;
  QFileSystemWatcher watcher_;
  QTimer pause_;
};

}  // namespace preview
