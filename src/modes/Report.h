#pragma once

#include <QString>
#include <QStringList>

// Collects what a self-test found, one line per service, in words that a user can
// read and send on. Every line is printed at once as well.
class Report {
public:
    // Adds a fact about the machine.
    void note(const QString &name, const QString &fact);
    void works(const QString &service, const QString &detail);
    void missing(const QString &service, const QString &whatToDo);
    void say(const QString &line);

    // Writes the lines to "report.txt" in the folder. Returns false after a
    // sentence on standard error.
    [[nodiscard]] bool write(const QString &folder) const;

private:
    void add(const QString &line);

    QStringList m_lines;
};
