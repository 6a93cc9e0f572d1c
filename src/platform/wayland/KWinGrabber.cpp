#include "platform/wayland/KWinGrabber.h"

#include "platform/freedesktop/SessionBus.h"
#include "platform/wayland/Fading.h"
#include "platform/wayland/KWinPicture.h"
#include "platform/wayland/ScreenScale.h"

#include <QGuiApplication>
#include <QPointer>

namespace {

struct Asked {
    QPointer<QScreen> screen;
    QCoro::Task<KWinPicture::Answer> picture;
};

std::vector<Asked> askForAll()
{
    std::vector<Asked> all;
    for (QScreen *screen : QGuiApplication::screens())
        all.push_back({screen, KWinPicture::take(screen->name())});
    return all;
}

} // namespace

QString KWinGrabber::name() const { return QStringLiteral("KWin"); }

QCoro::Task<ScreenSource::Result> KWinGrabber::grab()
{
    Result result;
    if (!SessionBus::present()) {
        result.problem = QStringLiteral("no hay bus");
        co_return result;
    }
    co_await Fading::over();
    std::vector<Asked> all = askForAll();
    std::vector<ScreenShot> shots;
    for (Asked &asked : all) {
        const KWinPicture::Answer answer = co_await asked.picture;
        if (!answer.problem.isEmpty() && asked.screen)
            result.problem = answer.problem;
        else if (asked.screen)
            shots.push_back(ScreenScale::shot(*asked.screen, answer.image));
    }
    if (result.problem.isEmpty())
        result.shots = std::move(shots);
    co_return result;
}
