#pragma once

#include "l10n/L10n.h"

#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

#include <deque>
#include <memory>
#include <optional>
#include <vector>

// One run through the demonstration. Language and scale of a process are fixed
// from its start, so each pass is a process of its own.
struct DemoPass {
    Lang lang = Lang::en;
    int scale = 1;      // pixels a point
    bool whole = false; // not only what has texts

    // What the process above has told this one.
    [[nodiscard]] static std::optional<DemoPass> ofThisProcess();
    [[nodiscard]] QString toText() const;
};

// Starts the passes, as many at a time as there are processors.
class DemoPasses {
public:
    // What every pass is started with.
    explicit DemoPasses(QStringList arguments);

    // Hands their output on and answers 0 when all of them have succeeded.
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
