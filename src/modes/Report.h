#pragma once

#include <QString>
#include <QStringList>

// What a self-test found, a line a service, as a user can read it and send it.
class Report {
public:
    // A fact about the machine.
    void note(const QString &name, const QString &fact);
    void works(const QString &service, const QString &detail);
    void missing(const QString &service, const QString &whatToDo);
    void say(const QString &line);

    // As "report.txt"; false after a sentence on standard error.
    [[nodiscard]] bool write(const QString &folder) const;

private:
    void add(const QString &line);

    QStringList m_lines;
};
