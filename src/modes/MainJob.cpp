#include "modes/MainJob.h"

#include "capture/Capture.h"
#include "capture/CaptureSession.h"
#include "capture/OverlayWindow.h"
#include "modes/Hand.h"
#include "modes/Stage.h"
#include "overlay/OverlayView.h"
#include "platform/Clipboard.h"
#include "platform/Platform.h"

#include <QClipboard>
#include <QCoroTask>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <algorithm>

namespace {

constexpr int settles = 300; // milliseconds until an overlay is painted

QString sizeOf(const QImage &image)
{
    return QStringLiteral("%1 × %2").arg(image.width()).arg(image.height());
}

// The user gets back what was there.
class KeptClipboardText {
public:
    KeptClipboardText() : m_text(QGuiApplication::clipboard()->text()) {}
    ~KeptClipboardText()
    {
        if (!m_text.isEmpty())
            QGuiApplication::clipboard()->setText(m_text);
    }
    Q_DISABLE_COPY_MOVE(KeptClipboardText)

private:
    const QString m_text;
};

bool allExposed(const CaptureSession &session)
{
    return std::ranges::all_of(session.windows(), [](const auto &window) {
        return window->windowHandle() && window->windowHandle()->isExposed();
    });
}

} // namespace

MainJob::MainJob(Platform &platform, Report &report, Album &album)
    : m_platform(platform)
    , m_report(report)
    , m_album(album)
{}

bool MainJob::run() { return capture() && edit(); }

bool MainJob::capture()
{
    const QString service = QStringLiteral("capture");
    if (!m_platform.screens->accessGranted()) {
        m_report.missing(
            service,
            QStringLiteral("this session does not let programs see the screen; log in to an X11 session"));
        return false;
    }
    QElapsedTimer since;
    since.start();
    const auto shots = QCoro::waitFor(
        Capture::captureAllScreens(*m_platform.screens, *m_platform.windows, *m_platform.windowList));
    const qint64 took = since.elapsed();
    if (!shots || shots->empty()) {
        m_report.missing(service, QStringLiteral("the display did not hand out a picture of any screen"));
        return false;
    }
    m_shots = *shots;
    m_report.works(service, QStringLiteral("%1 screens in %2 ms").arg(m_shots.size()).arg(took));
    for (const ScreenShot &shot : m_shots)
        m_album.add(QStringLiteral("01-screen-") + shot.screen->name(), shot.image);
    return true;
}

bool MainJob::edit()
{
    const KeptClipboardText kept;
    bool over = false;
    CaptureSession session(*m_platform.windows, *m_platform.windowList, *m_platform.desktop);
    session.onFinish = [&over] { over = true; };
    session.start(m_shots);
    const QString service = QStringLiteral("overlays");
    if (!Stage::wait([&] { return over || allExposed(session); }) || over) {
        m_report.missing(
            service,
            QStringLiteral("they did not come up above the other windows; try without special window rules"));
        return false;
    }
    Stage::linger(settles);
    m_report.works(service, QStringLiteral("%1 shown").arg(session.windows().size()));
    for (const auto &window : session.windows())
        m_album.add(QStringLiteral("02-overlay-") + window->shotScreen().name(), Stage::pixelsOf(*window));
    OverlayView &view = session.keyWindow()->view();
    const bool works = mark(view) && copy(view);
    (void)Stage::wait([&over] { return over; });
    return works;
}

bool MainJob::mark(OverlayView &view)
{
    const QString service = QStringLiteral("editor");
    const auto at = [&](double x, double y) {
        return QPointF(QPoint(qRound(x * view.width()), qRound(y * view.height())));
    };
    Hand hand(view);
    hand.drag({at(0.25, 0.25), at(0.5, 0.5), at(0.75, 0.75)});
    view.toggleTool(Tool::rectangle);
    hand.drag({at(0.4, 0.4), at(0.5, 0.5), at(0.6, 0.6)});
    Stage::linger(settles);
    m_album.add(QStringLiteral("03-marked"), Stage::pixelsOf(*view.window()));
    const auto picture = view.renderSelection();
    if (!picture || view.state().annotations.size() != 1) {
        m_report.missing(service, QStringLiteral("a selection with a mark did not become a picture"));
        return false;
    }
    m_album.add(QStringLiteral("04-picture"), *picture);
    m_report.works(service, QStringLiteral("selected, marked and rendered %1 pixels").arg(sizeOf(*picture)));
    return true;
}

bool MainJob::copy(OverlayView &view)
{
    const QString service = QStringLiteral("clipboard");
    const auto picture = view.renderSelection();
    view.copyImage(); // which ends the capture too
    const auto formats = m_platform.desktop->clipboard().offered();
    const QImage copied = QImage::fromData(formats.value(QStringLiteral("image/png")), "PNG");
    if (!picture || copied.size() != picture->size()) {
        m_report.missing(
            service,
            QStringLiteral(
                "the picture did not get there; look for a clipboard manager that refuses pictures"));
        return false;
    }
    m_report.works(service, QStringLiteral("took %1 pixels as PNG and TIFF").arg(sizeOf(copied)));
    return true;
}
