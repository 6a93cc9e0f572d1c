#include "modes/DemoMode.h"

#include "l10n/L10n.h"
#include "modes/Album.h"
#include "modes/Console.h"
#include "modes/DemoPasses.h"
#include "modes/DemoScript.h"
#include "modes/Inputs.h"

#include <algorithm>

namespace {

constexpr int smallestSide = 400; // pixels; on less the marks would be in the way of each other

QString chosenSample() { return qEnvironmentVariable("VELLUMORA_DEMO_MUESTRA"); }

bool sampleExists()
{
    if (chosenSample().isEmpty() || DemoScript::names().contains(chosenSample()))
        return true;
    Console::complain(QStringLiteral("there is no sample \"%1\"; there are: %2")
                          .arg(chosenSample(), DemoScript::names().join(u' ')));
    return false;
}

bool largeEnough(const QImage &screen)
{
    if (std::min(screen.width(), screen.height()) >= smallestSide)
        return true;
    Console::complain(QStringLiteral("the picture is too small: it has %1 × %2 pixels and needs %3 × %3")
                          .arg(screen.width())
                          .arg(screen.height())
                          .arg(smallestSide));
    return false;
}

// Such as "07-rectangle-en@2x".
QString fileName(std::size_t index, const QString &scene, int scale)
{
    return QStringLiteral("%1-%2-%3%4")
        .arg(index + 1, 2, 10, QChar(u'0'))
        .arg(scene, L10n::code(L10n::lang()), scale > 1 ? QStringLiteral("@%1x").arg(scale) : QString());
}

int play(const QImage &screen, const QString &folder, const DemoPass &pass)
{
    Album album(folder);
    bool came = true;
    const auto &scenes = DemoScript::scenes();
    for (std::size_t i = 0; i < scenes.size(); ++i) {
        const DemoScript::Scene &scene = scenes[i];
        const bool chosen = chosenSample().isEmpty() || scene.name == chosenSample();
        if (!chosen || !(scene.texts || pass.whole))
            continue;
        const auto camera = [&](const QImage &seen) { album.add(fileName(i, scene.name, pass.scale), seen); };
        if (scene.play(screen, pass.scale, camera))
            continue;
        Console::complain(QStringLiteral("the sample %1 did not come about").arg(scene.name));
        came = false;
    }
    return came && album.complete() ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

namespace DemoMode {

int scaleOfPass()
{
    const auto pass = DemoPass::ofThisProcess();
    return pass ? pass->scale : 1;
}

int run(const QString &picture, const QString &folder)
{
    const auto screen = Inputs::screenFrom(picture);
    if (!screen)
        return EXIT_FAILURE;
    if (const auto pass = DemoPass::ofThisProcess())
        return play(*screen, folder, *pass);
    if (!largeEnough(*screen) || !sampleExists() || !Inputs::folderReady(folder))
        return EXIT_FAILURE;
    return DemoPasses({QStringLiteral("--demo"), picture, folder}).run();
}

} // namespace DemoMode
