#include "settings/SettingsWindow.h"

#include "hotkey/Prefs.h"
#include "l10n/L10n.h"
#include "platform/freedesktop/AutostartLoginItem.h"
#include "settings/BindByHand.h"
#include "settings/LabelColors.h"
#include "settings/ShortcutRecorder.h"

#include "fakes/FakeDesktop.h"
#include "fakes/FakeKeyboard.h"
#include "support/TempHome.h"

#include <QCheckBox>
#include <QClipboard>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QTest>

namespace {

// Keys as a keyboard sends them, with their position.
struct Key {
    int key;
    quint32 scanCode;
};
constexpr Key escape{Qt::Key_Escape, 9};
constexpr Key tab{Qt::Key_Tab, 23};
constexpr Key enter{Qt::Key_Return, 36};
constexpr Key k{Qt::Key_K, 45};
constexpr Key space{Qt::Key_Space, 65};

void send(QEvent::Type type, Key key, Qt::KeyboardModifiers modifiers = {})
{
    QKeyEvent event(type, key.key, modifiers, key.scanCode, 0, 0);
    QCoreApplication::sendEvent(QApplication::focusWidget(), &event);
}

void tap(Key key, Qt::KeyboardModifiers modifiers = {})
{
    send(QEvent::KeyPress, key, modifiers);
    send(QEvent::KeyRelease, key, modifiers);
}

} // namespace

class SettingsWindowTest : public QObject {
    Q_OBJECT

    TempHome home;
    FakeLayout layout;
    FakeKeyboardGrab keyboard;
    AutostartLoginItem loginItem;
    FakeDesktop desktop;
    std::unique_ptr<SettingsWindow> window;
    ShortcutRecorder *recorder = nullptr;
    QCheckBox *login = nullptr;
    bool accepts = true;
    const Shortcut ctrlK{40, Shortcut::control};

    [[nodiscard]] QString status() const { return recorder->accessibleDescription(); }

    [[nodiscard]] QColor statusColor() const
    {
        for (const QLabel *label : window->findChildren<QLabel *>())
            if (label->accessibleName() == status())
                return label->palette().color(QPalette::WindowText);
        return {};
    }

    void open()
    {
        window->present();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
    }

    void click() { QTest::mouseClick(recorder, Qt::LeftButton); }

    void recordCtrlK()
    {
        click();
        tap(k, Qt::ControlModifier);
        QTRY_VERIFY(!keyboard.holder);
    }

    void checkThatEverythingFits()
    {
        for (int nested = 0; nested < 3; ++nested) // a layout tells the one that it lies in
            QCoreApplication::processEvents();
        for (const QWidget *part : window->findChildren<QWidget *>()) {
            if (part->parentWidget() == window.get() || !part->isVisible())
                continue; // holds all the others, or is not needed on this desktop
            const QRect place(part->mapTo(window.get(), QPoint()), part->size());
            const bool fits = part->size() == part->size().expandedTo(part->sizeHint());
            QVERIFY2(fits && window->rect().adjusted(20, 20, -20, -20).contains(place),
                     qPrintable(QDebug::toString(part) + QDebug::toString(part->sizeHint())
                                + QDebug::toString(window->rect())));
        }
    }

private slots:
    void init()
    {
        Prefs::setShortcut({});
        loginItem.disable();
        accepts = true;
        window = std::make_unique<SettingsWindow>(
            SettingsWindow::Services{layout, keyboard, loginItem, desktop});
        window->onShortcut = [this](const Shortcut &) { return accepts; };
        recorder = window->findChild<ShortcutRecorder *>();
        login = window->findChild<QCheckBox *>();
        open();
    }

    void anAcceptedShortcutIsStored()
    {
        QCOMPARE(status(), "Click and press the keys. Default is Shift+Super+X.");
        QCOMPARE(recorder->text(), "⇧⌘&&");
        click();
        QCOMPARE(recorder->text(), "Press the shortcut…");
        tap(k);
        QVERIFY(recorder->recording());
        send(QEvent::KeyPress, k, Qt::ControlModifier);
        QCOMPARE(Prefs::shortcut(), ctrlK);
        QCOMPARE(status(), "Saved: Ctrl+&");
        QCOMPARE(statusColor(), LabelColors::secondary(window->palette()));
        QVERIFY(!recorder->recording());
        QCOMPARE(keyboard.holder, window.get()); // until the key is up
        send(QEvent::KeyRelease, k);
        QTRY_VERIFY(!keyboard.holder);
    }

    void nothingHoldsTheKeyboardForLongerThanItListens()
    {
        const std::function<void()> ends[]{[this] { click(); }, [this] { login->setFocus(); },
                                           [this] { window->close(); }, [this] { window.reset(); }};
        for (const auto &end : ends) {
            init();
            click();
            QVERIFY(keyboard.holder);
            end();
            QVERIFY(!keyboard.holder);
            QCOMPARE(Prefs::shortcut(), Shortcut{});
        }
    }

    void theSwitchShowsWhatTheDesktopSays()
    {
        login->click();
        QVERIFY(loginItem.enabled() && login->isChecked());
        login->click();
        QVERIFY(!loginItem.enabled() && !login->isChecked());
        loginItem.enable(); // as another program may
        window->present();
        QVERIFY(login->isChecked());
        login->click();
        QVERIFY(QDir(home.path(".config")).rmdir("autostart"));
        QFile obstacle(home.path(".config/autostart"));
        QVERIFY(obstacle.open(QIODevice::WriteOnly));
        login->click();
        QVERIFY(!login->isChecked());
        obstacle.remove();
    }

    void theKeyboardAloneIsEnough()
    {
        for (const Key start : {space, enter}) {
            send(QEvent::KeyPress, start);
            QVERIFY(!recorder->recording());
            send(QEvent::KeyRelease, start);
            for (const Key key : {tab, space, enter})
                tap(key);
            QVERIFY(recorder->recording() && recorder->hasFocus());
            tap(escape);
            QVERIFY(!recorder->recording());
            QTRY_VERIFY(!keyboard.holder);
        }
        tap(tab);
        tap(space);
        QVERIFY(loginItem.enabled());
        tap(tab);
        tap(enter);
        QCOMPARE(desktop.opened, QList{L10n::cafe()});
        send(QEvent::KeyPress, escape);
        QVERIFY(!window->isVisible());
    }

    void everyTextCanBeReadInTheLightAndInTheDark()
    {
        accepts = false;
        recordCtrlK();
        const QPalette light = QApplication::palette();
        for (const QPalette &look : {QPalette(QColor("#353535")), QPalette(Qt::white, Qt::black), light}) {
            QApplication::setPalette(look);
            const QPalette palette = window->palette();
            for (const QColor &color : {LabelColors::secondary(palette), LabelColors::tertiary(palette),
                                        LabelColors::link(palette), LabelColors::refusal(palette)})
                QVERIFY(LabelColors::contrast(color, palette.color(QPalette::Window)) >= 4.5);
            QCOMPARE(statusColor(), LabelColors::refusal(palette));
            QVERIFY(statusColor().red() > statusColor().green() * 3 / 2);
        }
        QVERIFY(std::abs(LabelColors::contrast(QColor("#767676"), Qt::white) - 4.54) < 0.01);
    }

    void noTextIsClipped()
    {
        const QSize size = window->size();
        QCOMPARE(size, size.expandedTo({380, 225}));
        checkThatEverythingFits();
        accepts = false;
        recordCtrlK();
        click();
        checkThatEverythingFits();
        QCOMPARE(window->size(), size);
        window->setBinding(HotKeyService::Binding::nobody, {});
        checkThatEverythingFits();
    }

    void whereNobodyTakesShortcutsThereIsACommandToBind()
    {
        window->setBinding(HotKeyService::Binding::nobody, {});
        QVERIFY(!recorder->isVisible());
        const auto *command = window->findChild<QLineEdit *>();
        QVERIFY(command->isVisible() && command->text().endsWith("SettingsWindowTest --capturar"));
        QTest::mouseClick(window->findChild<BindByHand *>()->findChild<QPushButton *>(), Qt::LeftButton);
        QCOMPARE(QGuiApplication::clipboard()->text(), command->text());
        window->setBinding(HotKeyService::Binding::desktop, "Meta+F9");
        QVERIFY(recorder->isVisible() && !command->isVisible());
        QVERIFY(status().contains("Meta+F9"));
        window->setBinding(HotKeyService::Binding::program, {});
        QVERIFY(recorder->isVisible() && status().startsWith("Click and press the keys."));
    }

    // The language is chosen once, so each needs a process of its own.
    void noTextIsClippedInAnyLanguage()
    {
        for (const char *lang : {"es", "it", "fr", "de", "pt"}) {
            auto environment = QProcessEnvironment::systemEnvironment();
            environment.insert("VELLUMORA_IDIOMA", lang);
            QProcess self;
            self.setProcessEnvironment(environment);
            self.start(QCoreApplication::applicationFilePath(), {"noTextIsClipped"});
            QVERIFY(self.waitForFinished());
            QVERIFY2(self.exitCode() == 0, self.readAllStandardOutput());
        }
    }
};

QTEST_MAIN(SettingsWindowTest)
#include "SettingsWindowTest.moc"
