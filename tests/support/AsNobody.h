#pragma once

#include <QFile>

#include <unistd.h>

// Suspends an administrator's rights for as long as it lives and gives the folder
// to the unprivileged user who remains. For any other user nothing changes.
class AsNobody {
public:
    explicit AsNobody(const QString &folder) : m_was(getuid())
    {
        if (m_was == 0
            && (chown(QFile::encodeName(folder).constData(), nobody, nobody) != 0
                || setresuid(nobody, nobody, 0) != 0))
            qFatal("cannot become nobody");
    }
    ~AsNobody()
    {
        if (setresuid(m_was, m_was, m_was) != 0)
            qFatal("cannot become somebody again");
    }
    Q_DISABLE_COPY_MOVE(AsNobody)

private:
    static constexpr uid_t nobody = 65534;
    const uid_t m_was;
};
