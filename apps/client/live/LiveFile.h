// SPDX-License-Identifier: MIT
#pragma once
/// @file A file that other programs write, watched.

#include "apps/base/FileCalls.h"

#include <QByteArray>
#include <QFileSystemWatcher>
#include <QObject>
#include <QString>
#include <QTimer>

#include <optional>

namespace client {

/// Tells when a file has grown, and when it was cut, replaced or written anew. The system's own notices are
/// taken up at once; where there are none the file is looked at several times a second. A file that is gone
/// is waited for. GUI thread only.
class LiveFile : public QObject
{
    Q_OBJECT

public:
    /// @param path  any name; see base::nameFromBytes. What stands in the file now is not told of.
    explicit LiveFile(QString path, QObject* parent = nullptr);

Q_SIGNALS:
    void sigGrown();
    /// The file is not the one before with more behind it.
    void sigReplaced();

private:
    /// What tells one state of the file from another.
    struct State
    {
        base::FileState file;
        QByteArray tail; ///< the last bytes
    };

    void look();
    void watch();
    std::optional<State> current() const;
    bool hasGrownFrom(const State& before, const State& now) const;

    QString m_path;
    QFileSystemWatcher m_watcher;
    QTimer m_timer;
    std::optional<State> m_known; ///< empty while there is no file
};

} // namespace client
