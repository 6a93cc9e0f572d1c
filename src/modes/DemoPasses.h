#pragma once

#include "l10n/L10n.h"

#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

#include <deque>
#include <memory>
#include <optional>
#include <vector>

// Describes one run through the demonstration. A process cannot change its language
// and scale once it has started, so each pass is a process of its own.
struct DemoPass {
    Lang lang = Lang::en;
    int scale = 1;      // pixels per point
    bool whole = false; // all scenes, not only those with texts

    // Returns the pass that the parent process has assigned to this one; absent
    // when this process was not started for a pass.
    [[nodiscard]] static std::optional<DemoPass> ofThisProcess();
    [[nodiscard]] QString toText() const;
};

// Runs the passes, as many at a time as there are processors.
class DemoPasses {
public:
    // Takes the arguments that every pass is started with.
    explicit DemoPasses(QStringList arguments);

    // Runs all passes and forwards their output. Returns the exit status: 0 when
    // every pass has succeeded, otherwise 1.
    [[nodiscard]] int run();

private:
    void startNext();
    void handOn(QProcess &process);
    void ended(QProcess &process, int status);
    void showProgress(const QString &path);

    const QStringList m_arguments;
    const QTemporaryDir m_home; // so that the user's settings and log stay as they are
    std::deque<DemoPass> m_waiting;
    std::vector<std::unique_ptr<QProcess>> m_processes;
    int m_running = 0;
    int m_pictures = 0;
    int m_worst = 0;
};
