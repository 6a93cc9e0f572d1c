#include "modes/ScriptCapture.h"

#include "capture/DeskPicture.h"
#include "modes/Console.h"
#include "modes/PictureOutput.h"
#include "pictures/ImageFiles.h"
#include "platform/Platform.h"

#include <QCoroTask>
#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <cstdlib>

namespace {

using Screens = QList<QScreen *>;

std::nullopt_t refuse(const QString &reason)
{
    Console::complain(reason);
    return std::nullopt;
}

QString namesOf(const Screens &screens)
{
    QStringList names;
    for (const QScreen *screen : screens)
        names.append(screen->name());
    return names.join(QStringLiteral(", "));
}

std::optional<Screens> named(const QString &name)
{
    const Screens all = QGuiApplication::screens();
    const auto found = std::ranges::find(all, name, &QScreen::name);
    if (found != all.end())
        return Screens{*found};
    return refuse(QStringLiteral("there is no screen \"%1\"; there are: %2").arg(name, namesOf(all)));
}

bool wantsDesk(const ScriptCapture::Order &order)
{
    return order.screen ? *order.screen == u"todas" : order.region.has_value();
}

std::optional<Screens> screensFor(const ScriptCapture::Order &order, const WindowPlacer &windows)
{
    if (wantsDesk(order))
        return QGuiApplication::screens();
    if (order.screen)
        return named(*order.screen);
    QScreen *under = windows.screenUnderPointer();
    return Screens{under ? under : QGuiApplication::primaryScreen()};
}

std::optional<DeskPicture> take(ScreenGrabber &grabber, const Screens &screens)
{
    if (!grabber.accessGranted())
        return refuse(QStringLiteral("this session does not let programs see the screen"));
    auto shots = QCoro::waitFor(grabber.grabScreens());
    if (!shots)
        return refuse(QStringLiteral("the desktop did not hand out a picture of the screen"));
    std::erase_if(*shots, [&](const ScreenShot &shot) { return !screens.contains(shot.screen); });
    const auto failed = [](const ScreenShot &shot) { return shot.image.isNull(); };
    if (shots->empty() || std::ranges::any_of(*shots, failed))
        return refuse(QStringLiteral("the screen could not be read"));
    return DeskPicture(std::move(*shots));
}

// What the picture shows, in device pixels of the desk.
std::optional<QRect> regionOf(const ScriptCapture::Order &order, const DeskPicture &desk)
{
    if (!order.region)
        return desk.area();
    const QPoint zero = wantsDesk(order) ? QPoint() : desk.area().topLeft();
    const QRect region = order.region->translated(zero) & desk.area();
    if (desk.shows(region))
        return region;
    const QRect there = desk.area().translated(-zero);
    return refuse(QStringLiteral("the region is outside; there are the pixels %1,%2,%3x%4")
                      .arg(there.x())
                      .arg(there.y())
                      .arg(there.width())
                      .arg(there.height()));
}

} // namespace

namespace ScriptCapture {

int run(Platform &platform, const Order &order)
{
    const auto screens = screensFor(order, *platform.windows);
    const auto desk = screens ? take(*platform.screens, *screens) : std::nullopt;
    const auto region = desk ? regionOf(order, *desk) : std::nullopt;
    if (!region)
        return EXIT_FAILURE;
    const auto png = ImageFiles::png(desk->cut(*region), desk->scaleOf(*region));
    const auto problem
        = png ? PictureOutput::write(order.output, *png) : QStringLiteral("there is not enough memory");
    if (!problem)
        return EXIT_SUCCESS;
    const QString where = order.output == u"-" ? QStringLiteral("standard output") : order.output;
    Console::complain(QStringLiteral("cannot write the picture to %1: %2").arg(where, *problem));
    return EXIT_FAILURE;
}

} // namespace ScriptCapture
