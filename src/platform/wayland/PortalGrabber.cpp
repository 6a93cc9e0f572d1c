#include "platform/wayland/PortalGrabber.h"

#include "base/Log.h"
#include "platform/freedesktop/SessionBus.h"
#include "platform/wayland/Fading.h"
#include "platform/wayland/Outputs.h"
#include "platform/wayland/PortalCut.h"
#include "platform/wayland/PortalPicture.h"
#include "platform/wayland/PortalRequest.h"
#include "platform/wayland/ScreenScale.h"

#include <algorithm>

namespace {

// The screens and how they lie at this moment.
struct Desk {
    std::vector<QScreen *> screens;
    std::vector<PortalCut::Screen> places;
};

Desk deskOf(Connection &connection)
{
    constexpr int longest = 1000; // milliseconds
    const auto outputs = Outputs::all(connection);
    const auto described = [&] { return std::ranges::all_of(outputs, &Output::described); };
    Desk desk;
    if (!connection.waitFor(described, longest))
        return desk;
    for (const auto &output : outputs) {
        QScreen *screen = output->screen();
        if (!screen)
            continue;
        desk.screens.push_back(screen);
        desk.places.push_back({.place = screen->geometry(),
                               .pixels = output->nativeSize(),
                               .ratio = screen->devicePixelRatio()});
    }
    return desk;
}

QImage cut(const QImage &whole, const PortalCut::Piece &piece, QSize pixels)
{
    const QImage part = whole.copy(piece.area);
    return part.size() == pixels ? part
                                 : part.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

std::vector<ScreenShot> cutAll(const QImage &whole, const Desk &desk)
{
    const auto pieces = PortalCut::pieces(whole.size(), desk.places);
    std::vector<ScreenShot> shots;
    for (size_t i = 0; pieces && i < pieces->size(); ++i) {
        const PortalCut::Piece &piece = (*pieces)[i];
        if (!piece.exact)
            Log::write(QStringLiteral("captura: el portal no da los píxeles propios de %1")
                           .arg(desk.screens[i]->name()));
        shots.push_back(ScreenScale::shot(*desk.screens[i], cut(whole, piece, desk.places[i].pixels)));
    }
    ScreenScale::sort(shots);
    return shots;
}

} // namespace

PortalGrabber::PortalGrabber(std::shared_ptr<Connection> connection, std::chrono::milliseconds patience)
    : m_connection(std::move(connection))
    , m_patience(patience)
{}

QString PortalGrabber::name() const { return QStringLiteral("portal"); }

QCoro::Task<ScreenSource::Result> PortalGrabber::grab()
{
    const auto connection = m_connection; // this may be gone after the wait
    Result result;
    if (!SessionBus::present()) {
        result.problem = QStringLiteral("no hay bus");
        co_return result;
    }
    co_await Fading::over();
    PortalRequest::Call call{.interface = QStringLiteral("Screenshot"),
                             .method = QStringLiteral("Screenshot"),
                             .arguments = {QString()}, // no window that its dialog belongs to
                             .options = {{QStringLiteral("interactive"), false}}};
    const auto answer = co_await PortalRequest::send(QDBusConnection::sessionBus(), call, m_patience);
    result.problem = answer.problem;
    if (!answer.results)
        co_return result;
    const Desk desk = deskOf(*connection);
    const QUrl address(answer.results->value(QStringLiteral("uri")).toString());
    const QImage whole = PortalPicture::take(
        address, [&](QSize size) { return PortalCut::pieces(size, desk.places).has_value(); });
    result.problem = QStringLiteral("imagen inservible");
    if (!whole.isNull())
        result.shots = cutAll(whole, desk);
    co_return result;
}
