#include "capture/CaptureSession.h"

#include "capture/Capture.h"

#include "capture/OverlayWindow.h"
#include "marks/Annotation.h"
#include "overlay/OverlayView.h"
#include "platform/WindowList.h"
#include "platform/WindowPlacer.h"

#include "fakes/FakeDesktop.h"
#include "fakes/FakeScreens.h"
#include "support/Mouse.h"

#include <QDialog>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

namespace {

class RecordingPlacer final : public WindowPlacer {
public:
    void beginSession() override { calls.append("begin"); }
    void cover(QWidget &window, QScreen &screen) override
    {
        calls.append("cover " + screen.name());
        window.setScreen(&screen);
        window.setGeometry(screen.geometry());
        window.show();
    }
    void giveKeyboard(QWidget &window) override
    {
        calls.append("keyboard " + window.screen()->name());
        window.activateWindow();
    }
    QScreen *screenUnderPointer() const override { return under; }
    void endSession() override { calls.append("end"); }

    QStringList calls;
    QScreen *under = nullptr;
};

class FakeWindows final : public WindowList {
public:
    explicit FakeWindows(QStringList &calls) : m_calls(calls) {}
    void freeze() override
    {
        m_calls.append("freeze");
        m_known = true;
    }
    std::vector<QRect> framesOn(const ScreenShot &shot) override
    {
        return m_known && shot.screen->name() == "B" ? std::vector{QRect(100, 50, 300, 200)}
                                                     : std::vector<QRect>();
    }
    void forget() override { m_known = false; }

private:
    QStringList &m_calls;
    bool m_known = false;
};

} // namespace

class CaptureSessionTest : public QObject {
    Q_OBJECT

    FakeDesktop desktop;
    FakeScreens screens;
    RecordingPlacer placer;
    FakeWindows frozen{placer.calls};
    std::unique_ptr<CaptureSession> session;
    int finished = 0;

    OverlayView &view(size_t i) { return session->windows().at(i)->view(); }

    void select(size_t i) { Mouse(view(i), view(i).shot().pointSize.height()).drag({100, 100}, {200, 200}); }

    void makeSession()
    {
        session = std::make_unique<CaptureSession>(placer, frozen, desktop);
        session->onFinish = [this] { ++finished; };
    }

private slots:
    void init()
    {
        placer = {};
        placer.under = QGuiApplication::screens().at(1);
        finished = 0;
        makeSession();
        session->start(*QCoro::waitFor(Capture::captureAllScreens(screens, placer, frozen)));
    }

    void everyScreenIsCoveredAndTheOneUnderThePointerGetsTheKeys()
    {
        QCOMPARE(placer.calls,
                 (QStringList{"begin", "freeze", "cover A", "cover B", "cover C", "keyboard B"}));
        QCOMPARE(view(0).shot().image.size(), QSize(1920, 1200));
        QCOMPARE(view(0).size(), QSize(960, 600));
        QCOMPARE(Annotation::background, view(1).shot().image); // what is pixelated, on every screen
        QVERIFY(Annotation::background != view(2).shot().image);
    }

    void theFirstScreenThatThePointerEntersTellsWhereItWas()
    {
        placer.under = nullptr;
        makeSession();
        session->start(*QCoro::waitFor(Capture::captureAllScreens(screens, placer, frozen)));
        QCOMPARE(placer.calls.last(), "keyboard A");
        const auto enter = [this](size_t i) {
            QEnterEvent event({10, 10}, {10, 10}, {10, 10});
            QCoreApplication::sendEvent(session->windows().at(i).get(), &event);
        };
        enter(1);
        QCOMPARE(placer.calls.last(), "keyboard B");
        QCOMPARE(Annotation::background, view(1).shot().image);
        enter(2); // the hand only passes
        QCOMPARE(placer.calls.last(), "keyboard B");
        QCOMPARE(session->keyWindow(), session->windows().at(1).get());
    }

    void oneScreenHasASelectionAtATime()
    {
        select(0);
        view(0).toggleTool(Tool::line);
        Mouse(view(0), 600).drag({120, 120}, {150, 150});
        QCOMPARE(view(0).state().annotations.size(), 1U);
        QCOMPARE(placer.calls.last(), "keyboard A");
        select(1);
        QCOMPARE(placer.calls.last(), "keyboard B");
        QVERIFY(!view(0).state().selection && view(0).state().annotations.empty());
        QVERIFY(view(1).state().selection);
    }

    void aDoubleClickSelectsAWindowOfItsScreenAsLongAsTheCaptureLasts()
    {
        const ScreenShot shown = view(1).shot();
        for (const size_t i : {0U, 1U}) {
            Mouse mouse(view(i), view(i).shot().pointSize.height());
            const QPointF at(200, view(i).shot().pointSize.height() - 100);
            mouse.press(at);
            mouse.release(at);
            mouse.pressAgain(at);
            mouse.release(at);
            QCOMPARE(view(i).state().selection.has_value(), i == 1);
        }
        QCOMPARE(view(1).renderSelection()->size(), QSize(300, 200));
        session->finish();
        QVERIFY(frozen.framesOn(shown).empty());
    }

    void keysGoWhereTheyAreMeantToGo()
    {
        select(0);
        QTest::keyClick(&view(2), Qt::Key_A, Qt::ControlModifier); // the system thinks C has the keys
        QCOMPARE(view(0).state().selection, QRectF(0, 0, 960, 600));
        QVERIFY(!view(2).state().selection);
        QTest::keyClick(session->windows().at(2).get(), Qt::Key_Escape);
        QCOMPARE(finished, 1);
    }

    void aWindowThatOpensBelowDoesNotTakeTheKeys()
    {
        QLineEdit settings;
        settings.show();
        QTest::keyClick(&settings, Qt::Key_B);
        QCOMPARE(settings.text(), "");
        QTest::keyClick(&settings, Qt::Key_Escape);
        QCOMPARE(finished, 1);
        QTest::keyClick(&settings, Qt::Key_B);
        QCOMPARE(settings.text(), "b");
    }

    void aDialogOfAnOverlayKeepsItsKeys()
    {
        QDialog question(&view(1));
        QLineEdit answer(&question);
        question.show();
        QTest::keyClick(&answer, Qt::Key_B);
        QCOMPARE(answer.text(), "b");
        QTest::keyClick(&question, Qt::Key_Escape);
        QVERIFY(!question.isVisible());
        QCOMPARE(finished, 0);
    }

    void theKeyboardIsGivenBackBeforeTheWindowsGo()
    {
        const QPointer<OverlayWindow> window(session->windows().front().get());
        QTest::keyClick(&view(1), Qt::Key_Escape); // in the middle of its own event
        QCOMPARE(placer.calls.last(), "end");
        QCOMPARE(finished, 1);
        QVERIFY(session->windows().empty());
        QVERIFY(!window->isVisible());
        QTRY_VERIFY(!window);
        session->finish();
        QCOMPARE(finished, 1);
    }

    void closingAWindowEndsTheCapture()
    {
        session->windows().front()->close();
        QCOMPARE(finished, 1);
    }

    void aScreenThatComesOrGoesEndsTheCapture()
    {
        emit qGuiApp->screenRemoved(QGuiApplication::screens().at(2));
        QCOMPARE(finished, 1);
    }

    void withoutScreensFinishingStillReports()
    {
        makeSession();
        session->start({});
        session->finish();
        QCOMPARE(finished, 1);
    }
};

QTEST_MAIN(CaptureSessionTest)
#include "CaptureSessionTest.moc"
