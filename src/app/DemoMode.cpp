#include "app/DemoMode.h"

#include "overlay/OverlaySession.h"
#include "overlay/OverlayView.h"

#include <QBackingStore>
#include <QCoreApplication>
#include <QDir>
#include <QImageReader>
#include <QMouseEvent>

#include <cstdio>

namespace {

void say(FILE *stream, const QString &text) { std::fputs((text + u'\n').toLocal8Bit().constData(), stream); }

class DemoSession final : public OverlaySession {
public:
    void selectionStarted(OverlayView &) override {}
    void finish() override {}
};

// Moves the mouse over the editor; positions as parts of its width and height
// from the top left corner.
class Hand {
public:
    explicit Hand(OverlayView &view) : m_view(view) {}

    void drag(QPointF from, QPointF to)
    {
        send(QEvent::MouseButtonPress, at(from), Qt::LeftButton);
        constexpr int steps = 8;
        for (int i = 1; i <= steps; ++i)
            send(QEvent::MouseMove, at(from + (to - from) * i / steps), Qt::LeftButton);
        send(QEvent::MouseButtonRelease, at(to), Qt::NoButton);
    }

private:
    [[nodiscard]] QPointF at(QPointF part) const
    {
        return QPointF(QPoint(qRound(part.x() * m_view.width()), qRound(part.y() * m_view.height())));
    }

    void send(QEvent::Type type, QPointF at, Qt::MouseButtons buttons)
    {
        const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, at, at, at, button, buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(&m_view, &event);
    }

    OverlayView &m_view;
};

// Numbers the files and remembers whether all could be written.
class Album {
public:
    explicit Album(const QString &folder) : m_folder(folder) {}

    void add(const QString &name, const QImage &picture)
    {
        const QString file = QStringLiteral("%1-%2.png").arg(++m_count, 2, 10, QChar(u'0')).arg(name);
        const QString path = m_folder.absoluteFilePath(file);
        if (picture.save(path, "PNG"))
            return say(stdout, path);
        say(stderr, QStringLiteral("vellumora: cannot write %1").arg(path));
        m_complete = false;
    }

    void add(const QString &name, OverlayView &view)
    {
        // As it is on the screen: the toolkit's own way of painting a window into a
        // picture leaves out what has a shadow.
        view.update();
        QCoreApplication::processEvents();
        const auto *screen = dynamic_cast<QImage *>(view.backingStore()->paintDevice());
        add(name, screen ? *screen : QImage());
    }

    [[nodiscard]] bool complete() const { return m_complete; }

private:
    QDir m_folder;
    int m_count = 0;
    bool m_complete = true;
};

bool play(const QImage &screen, const QString &folder, Desktop &desktop)
{
    DemoSession session;
    OverlayView view({nullptr, screen, 1, QSizeF(screen.size())}, session, desktop);
    view.show();
    Album album(folder);
    Hand hand(view);
    album.add(QStringLiteral("hint"), view);
    hand.drag({0.25, 0.2}, {0.6, 0.6});
    album.add(QStringLiteral("selection"), view);
    hand.drag({0.4, 0.4}, {0.45, 0.45});
    hand.drag({0.65, 0.65}, {0.8, 0.75});
    album.add(QStringLiteral("adjusted"), view);
    if (const auto copied = view.renderSelection())
        album.add(QStringLiteral("copied"), *copied);
    return album.complete();
}

} // namespace

namespace DemoMode {

int run(const QString &picture, const QString &folder, Desktop &desktop)
{
    QImageReader reader(picture);
    const QImage screen = reader.read().convertToFormat(QImage::Format_RGB32);
    if (screen.isNull()) {
        say(stderr,
            QStringLiteral("vellumora: cannot read the picture %1: %2").arg(picture, reader.errorString()));
        return EXIT_FAILURE;
    }
    if (!QDir().mkpath(folder)) {
        say(stderr, QStringLiteral("vellumora: cannot make the folder %1").arg(folder));
        return EXIT_FAILURE;
    }
    return play(screen, folder, desktop) ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace DemoMode
