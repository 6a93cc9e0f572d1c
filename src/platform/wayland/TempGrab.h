#pragma once
#include "platform/ScreenGrabber.h"
#include <QGuiApplication>
#include <QProcess>
class TempGrab final : public ScreenGrabber {
public:
    bool accessGranted() override { return true; }
    void requestAccess() override {}
    bool openAccessSettings() override { return false; }
    QCoro::Task<std::optional<std::vector<ScreenShot>>> grabScreens() override
    {
        std::vector<ScreenShot> shots;
        for (QScreen *s : QGuiApplication::screens()) {
            QProcess p;
            p.start(QStringLiteral("grim"), {QStringLiteral("-t"), QStringLiteral("ppm"), QStringLiteral("-o"), s->name(), QStringLiteral("-")});
            p.waitForFinished();
            QImage i = QImage::fromData(p.readAllStandardOutput(), "PPM").convertToFormat(QImage::Format_RGB32);
            if (i.isNull()) { i = QImage(s->size() * s->devicePixelRatio(), QImage::Format_RGB32); for (int y = 0; y < i.height(); ++y) for (int x = 0; x < i.width(); ++x) i.setPixel(x, y, qRgb(x * 7 & 255, y * 5 & 255, (x * 3 + y * 11) & 255)); }
            shots.push_back({s, i, double(i.width()) / s->geometry().width(), QSizeF(s->geometry().size())});
        }
        co_return shots;
    }
};
