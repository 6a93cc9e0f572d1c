#include "app/AppDelegate.h"

#include "app/AboutPanel.h"
#include "capture/OverlayWindow.h"
#include "hotkey/Prefs.h"
#include "l10n/L10n.h"
#include "overlay/OverlayView.h"
#include "platform/none/NoServices.h"

#include "fakes/FakeDesktop.h"
#include "fakes/FakeHotKeys.h"
#include "fakes/FakeScreens.h"
#include "support/TempHome.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>

namespace {

class RecordingStatusItem final : public StatusItem {
public:
    bool shows() const override { return true; }
    void show(QMenu &shown) override { menu = &shown; }
    QMenu *menu = nullptr;
};

int overlaysShown()
{
    int count = 0;
    for (const QWidget *widget : QApplication::topLevelWidgets())
        count += widget->isVisible() && qobject_cast<const OverlayWindow *>(widget);
    return count;
}

QMessageBox *alert()
{
    for (QWidget *widget : QApplication::topLevelWidgets())
        if (auto *box = qobject_cast<QMessageBox *>(widget); box && box->isVisible())
            return box;
    return nullptr;
}

} // namespace

class AppDelegateTest : public QObject {
    Q_OBJECT

    TempHome home;
    Platform platform;
    FakeHotKeys *keys = nullptr;
    FakeScreens *screens = nullptr;
    FakeDesktop *desktop = nullptr;
    RecordingStatusItem *tray = nullptr;
    std::unique_ptr<AppDelegate> app;

    template <typename Fake, typename Slot>
    static Fake *put(Slot &slot)
    {
        auto fake = std::make_unique<Fake>();
        auto *raw = fake.get();
        slot = std::move(fake);
        return raw;
    }

    void launch(const CommandLine &line = {})
    {
        app = std::make_unique<AppDelegate>(platform, line);
        app->applicationDidFinishLaunching();
    }

    [[nodiscard]] QAction *item(int i) const { return tray->menu->actions().at(i); }

    [[nodiscard]] static const QWidget *settings()
    {
        for (const QWidget *widget : QApplication::topLevelWidgets())
            if (widget->isVisible() && widget->windowTitle() == "Vellumora Settings")
                return widget;
        return nullptr;
    }

    // Opens the settings; their first button.
    QPushButton *recording()
    {
        app->openSettings();
        auto *recorder = settings()->findChild<QPushButton *>();
        QTest::mouseClick(recorder, Qt::LeftButton);
        return recorder;
    }

    void pressEscape()
    {
        for (QWidget *widget : QApplication::topLevelWidgets())
            if (auto *window = qobject_cast<OverlayWindow *>(widget); window && window->isVisible())
                return QTest::keyClick(&window->view(), Qt::Key_Escape);
    }

private slots:
    void init()
    {
        app.reset();
        QFile::remove(home.path("Library/Logs/Vellumora.log"));
        Prefs::setShortcut({});
        platform = makeNoPlatform();
        keys = put<FakeHotKeys>(platform.hotKeys);
        screens = put<FakeScreens>(platform.screens);
        desktop = put<FakeDesktop>(platform.desktop);
        tray = put<RecordingStatusItem>(platform.statusItem);
    }

    void theMenuStandsInOrder()
    {
        launch();
        QStringList titles;
        for (const QAction *action : tray->menu->actions())
            titles.append(action->isSeparator() ? "-" : action->text());
        QCOMPARE(titles, (QStringList{"Capture   ⇧⌘?", "-", "Settings…", "About Vellumora…",
                                      "Vellumora website", "Check for Updates…", "-", "Quit Vellumora"}));
        item(4)->trigger();
        QCOMPARE(desktop->opened, QList{L10n::web()});
    }

    void theCreditsAreCentredParagraphsApart()
    {
        QTextDocument credits;
        credits.setHtml(AboutPanel::credits());
        QCOMPARE(credits.blockCount(), 6); // two lines, a gap, two links, a small gap, a link
        for (auto block = credits.begin(); block != credits.end(); block = block.next()) {
            QCOMPARE(block.blockFormat().bottomMargin(), 4);
            QCOMPARE(block.blockFormat().alignment(), Qt::AlignHCenter);
        }
    }

    void theShortcutsInTheMenuWorkWhileItIsOpen()
    {
        launch();
        tray->menu->popup({10, 10});
        QTest::keyClick(tray->menu, Qt::Key_Comma, Qt::ControlModifier);
        QVERIFY(!tray->menu->isVisible());
        QVERIFY(settings());
    }

    void aModeTakesNoShortcut()
    {
        launch(CommandLine::parse({"--demo"}));
        QVERIFY(!keys->registered);
        QVERIFY(home.log().isEmpty());
    }

    void oneCaptureAtATime()
    {
        launch();
        keys->onPressed();
        QCOMPARE(overlaysShown(), 3);
        keys->onPressed();
        app->capture();
        QCOMPARE(screens->grabs, 1);
        QCOMPARE(home.log().count("atajo pulsado"), 2);
        pressEscape();
        QCOMPARE(overlaysShown(), 0);
        keys->onPressed();
        QCOMPARE(overlaysShown(), 3);
        pressEscape();
    }

    void aRecordedShortcutIsTakenUnlessSomebodyHasIt()
    {
        launch();
        for (const QList<Shortcut> &taken : {QList{Shortcut{96, 0}}, QList<Shortcut>{}}) {
            keys->takenByOthers = taken;
            QKeyEvent press(QEvent::KeyPress, Qt::Key_F5, {}, 71, 0, 0);
            QCoreApplication::sendEvent(recording(), &press);
            QCOMPARE(keys->registered, taken.isEmpty() ? (Shortcut{96, 0}) : Shortcut{});
        }
        QTRY_COMPARE(item(0)->text(), "Capture   F5");
    }

    void aCaptureAndARecordingDoNotMeet()
    {
        launch();
        const QPushButton *recorder = recording();
        QCOMPARE(recorder->text(), "Press the shortcut…");
        keys->onPressed(); // what is recorded
        QCOMPARE(recorder->text(), "⇧⌘?");
        QCOMPARE(screens->grabs, 0);
        recording();
        app->capture();
        QCOMPARE(overlaysShown(), 3);
        QCOMPARE(recorder->text(), "⇧⌘?");
        pressEscape();
    }

    void withoutAccessTheUserIsTold()
    {
        screens->granted = false;
        launch();
        QCOMPARE(screens->requests, 1);
        keys->onPressed();
        QVERIFY(alert());
        QCOMPARE(alert()->text(), "Vellumora needs Screen Recording permission");
        QCOMPARE(screens->grabs, 0);
        QTest::mouseClick(alert()->buttons().first(), Qt::LeftButton);
        QCOMPARE(screens->settingsOpened, 1);
        QTRY_VERIFY(!alert());
    }

    void aFailingCaptureTellsTheUserAndLetsHimTryAgain()
    {
        launch();
        for (bool FakeScreens::*fails : {&FakeScreens::works, &FakeScreens::oneFails}) {
            screens->*fails = !(screens->*fails);
            keys->onPressed();
            QVERIFY(alert());
            QCOMPARE(overlaysShown(), 0);
            QTest::mouseClick(alert()->buttons().last(), Qt::LeftButton);
            screens->*fails = !(screens->*fails);
            keys->onPressed();
            QCOMPARE(overlaysShown(), 3);
            pressEscape();
        }
    }

    void withoutAnyScreenNothingHappens()
    {
        screens->anyMatches = false;
        launch();
        keys->onPressed();
        QVERIFY(!alert());
        QCOMPARE(overlaysShown(), 0);
    }
};

QTEST_MAIN(AppDelegateTest)
#include "AppDelegateTest.moc"
