#include "platform/none/NoServices.h"

#include "platform/QtClipboard.h"

#include <QDir>
#include <QGuiApplication>
#include <QLocale>
#include <QWidget>

namespace {

class NoScreens final : public ScreenGrabber {
public:
    bool accessGranted() override { return false; }
    void requestAccess() override {}
    bool openAccessSettings() override { return false; }
    QCoro::Task<std::optional<std::vector<ScreenShot>>> grabScreens() override { co_return std::nullopt; }
};

class PlainWindows final : public WindowPlacer {
public:
    void beginSession() override {}

    void cover(QWidget &window, QScreen &screen) override
    {
        window.setWindowFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
        window.setScreen(&screen);
        window.setGeometry(screen.geometry());
        window.show();
    }

    void giveKeyboard(QWidget &window) override { window.activateWindow(); }
    QScreen *screenUnderPointer() const override { return QGuiApplication::screenAt(QCursor::pos()); }
    void endSession() override {}
};

class NoWindowList final : public WindowList {
public:
    void freeze() override {}
    std::vector<QRect> framesOn(const ScreenShot &) override { return {}; }
    void forget() override {}
};

class NoHotKeys final : public HotKeyService {
public:
    bool registerShortcut(const Shortcut &) override { return false; }
    void unregisterShortcut() override {}
};

class NoLayout final : public KeyboardLayout {
public:
    std::optional<QString> textOfKey(std::uint32_t) const override { return std::nullopt; }
};

class NoKeyboardGrab final : public KeyboardGrab {
public:
    void take(QWidget &) override {}
    void release() override {}
};

class NoStatusItem final : public StatusItem {
public:
    void show(QMenu &) override {}
    bool shows() const override { return false; }
};

class NoLoginItem final : public LoginItem {
public:
    bool enabled() const override { return false; }
    void enable() override {}
    void disable() override {}
    bool canBeEnabled() override { return false; }
};

class NoDesktop final : public Desktop {
public:
    void beep() override {}
    void playPop() override {}
    bool hasSound() override { return false; }
    void hapticTick() override {}
    bool reduceMotion() const override { return false; }
    void openWeb(const QUrl &) override {}
    Clipboard &clipboard() override { return m_clipboard; }
    QStringList preferredLanguages() const override { return QLocale::system().uiLanguages(); }

private:
    QtClipboard m_clipboard;
};

class NoInstaller final : public UpdateInstaller {
public:
    std::optional<QString> bundle() const override { return std::nullopt; }
    bool isManaged() const override { return false; }
    bool canReplace(const QString &) const override { return false; }
    QString temporaryFolder() const override { return QDir::tempPath(); }
    SwapCommands commands(const QString &) const override { return {}; }
    bool claim(const QString &) override { return true; }
    void release() override {}
    QCoro::Task<void> sweep(QString, QStringList) override { co_return; }
    QCoro::Task<Problem> rehearse(QString, qint64) override { co_return notHere(); }
    QCoro::Task<Problem> stage(QString, QString, QString) override { co_return notHere(); }
    QCoro::Task<Problem> tryOut(QString, QString, QString) override { co_return notHere(); }
    Problem start(const QString &, const QByteArray &) override { return notHere(); }
    QByteArray takeBequest() override { return {}; }

private:
    static QString notHere() { return QStringLiteral("UpdateInstaller"); }
};

} // namespace

std::unique_ptr<WindowList> makeNoWindowList() { return std::make_unique<NoWindowList>(); }

Platform makeNoPlatform()
{
    return {.screens = std::make_unique<NoScreens>(),
            .windows = std::make_unique<PlainWindows>(),
            .windowList = makeNoWindowList(),
            .keyboardGrab = std::make_unique<NoKeyboardGrab>(),
            .keyboard = std::make_unique<NoLayout>(),
            .hotKeys = std::make_unique<NoHotKeys>(),
            .statusItem = std::make_unique<NoStatusItem>(),
            .loginItem = std::make_unique<NoLoginItem>(),
            .desktop = std::make_unique<NoDesktop>(),
            .updates = std::make_unique<NoInstaller>()};
}
