#include "platform/wayland/PortalPicture.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>

#include <unistd.h>

namespace {

// Deletes a file at the end. Only one that could have been made for us: the address
// may be garbage.
class Remover {
public:
    explicit Remover(const QFileInfo &file)
        : m_path(file.isFile() && file.ownerId() == geteuid() ? file.absoluteFilePath() : QString())
    {}
    ~Remover()
    {
        if (!m_path.isEmpty())
            QFile::remove(m_path);
    }
    Q_DISABLE_COPY_MOVE(Remover)

private:
    const QString m_path;
};

// Qt refuses large pictures, lest a small file takes all memory; the size of this one
// is known to be right.
class AnySize {
public:
    AnySize() : m_was(QImageReader::allocationLimit()) { QImageReader::setAllocationLimit(0); }
    ~AnySize() { QImageReader::setAllocationLimit(m_was); }
    Q_DISABLE_COPY_MOVE(AnySize)

private:
    const int m_was;
};

} // namespace

namespace PortalPicture {

QImage take(const QUrl &address, const std::function<bool(QSize)> &acceptable)
{
    const QFileInfo file(address.isLocalFile() ? address.toLocalFile() : QString());
    if (!file.isFile())
        return {};
    const Remover remover(file);
    QImageReader reader(file.absoluteFilePath());
    reader.setDecideFormatFromContent(true);
    if (!acceptable(reader.size()))
        return {};
    const AnySize anySize;
    return reader.read().convertToFormat(QImage::Format_RGB32);
}

} // namespace PortalPicture
