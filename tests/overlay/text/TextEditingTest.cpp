#include "overlay/OverlayView.h"

#include "platform/KeyCodes.h"
#include "support/Editor.h"
#include "support/TempHome.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QTest>

// Texts, typed on the real overlay.
class TextEditingTest : public QObject {
    Q_OBJECT

    TempHome home;
    FakeDesktop desktop;
    RecordingSession session;
    std::unique_ptr<OverlayView> view;
    std::optional<Mouse> mouse;

    [[nodiscard]] TextField *field() const
    {
        for (auto *candidate : view->findChildren<TextField *>())
            if (candidate->isVisible())
                return candidate;
        return nullptr;
    }

    [[nodiscard]] const std::vector<AnnotationPtr> &marks() const { return view->state().annotations; }

    void write(const QString &text, QPointF at = {200, 300})
    {
        mouse->drag(at, at);
        QVERIFY(field());
        QTest::keyClicks(field(), text);
    }

    QImage seen() const
    {
        QImage image(view->shot().image.size(), QImage::Format_RGB32);
        image.setDevicePixelRatio(view->shot().scale);
        view->render(&image);
        return image;
    }

private slots:
    void init()
    {
        session = {};
        view = std::make_unique<OverlayView>(patternShot({900, 600}, 2), session, desktop);
        view->show();
        view->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(view.get()));
        view->setFocus();
        mouse.emplace(*view, 600);
        mouse->drag({100, 100}, {800, 500});
        view->toggleTool(Tool::text);
    }

    void everyWayOfLeavingCommits_data()
    {
        QTest::addColumn<bool>("unused");
        for (const char *way : {"return", "escape", "another text", "another tool", "a click outside",
                                "cancel", "rendering", "saving"})
            QTest::newRow(way) << true;
    }

    void everyWayOfLeavingCommits()
    {
        write("Hola");
        const QByteArray way = QTest::currentDataTag();
        if (way == "return")
            QTest::keyClick(field(), Qt::Key_Return);
        else if (way == "escape")
            QTest::keyClick(field(), Qt::Key_Escape);
        else if (way == "another text")
            mouse->drag({400, 200}, {400, 200});
        else if (way == "another tool")
            view->toggleTool(Tool::line);
        else if (way == "a click outside")
            mouse->drag({20, 20}, {20, 20});
        else if (way == "cancel")
            view->cancel();
        else if (way == "rendering")
            QVERIFY(view->renderSelection());
        else
            QTest::keyClick(field(), Qt::Key_S, Qt::MetaModifier);
        QCOMPARE(marks().size(), 1U);
        QCOMPARE(marks().front()->text, "Hola");
        QCOMPARE(marks().front()->points, (QList<QPointF>{{202, 300}, {202, 300}}));
        QCOMPARE(marks().front()->fontSize, 18.0);
        QCOMPARE(field() != nullptr, way == "another text");
        QCOMPARE(session.finished, 0);
    }

    void undoFromTheBarThrowsTheOpenTextAway()
    {
        write("Hola");
        view->undo();
        QVERIFY(!field() && marks().empty());
        QVERIFY(view->hasFocus());
    }

    void anEmptyTextOnlyGoes()
    {
        write("");
        mouse->drag({20, 20}, {20, 20});
        QVERIFY(!field() && marks().empty());
        QCOMPARE(view->state().selection, QRectF(100, 100, 700, 400)); // the click outside threw nothing away
    }

    void theCommittedTextStandsWhereItWasTyped()
    {
        write("");
        field()->insert("Ágil jŷ");
        view->setFocus(); // takes the caret away
        const QImage typed = seen();
        view->cancel();
        QVERIFY(!field());
        QCOMPARE(differing(seen(), typed), 0);
    }

    void theFieldGrowsWithItsTextAndFollowsColourAndWidth()
    {
        write("");
        const int empty = field()->width();
        QTest::keyClicks(field(), "i");
        QCOMPARE(field()->width(), 60);
        QTest::keyClicks(field(), "WWWWWWWWWWWW");
        QVERIFY(field()->width() > empty);
        const int height = field()->height();
        view->setColor(Qt::blue);
        view->setLineWidth(10);
        QVERIFY(field()->height() > height);
        view->cancel();
        QCOMPARE(marks().front()->color, QColor(Qt::blue));
        QCOMPARE(marks().front()->fontSize, 32.0);
        QCOMPARE(marks().front()->width, 10.0);
    }

    void inputMethodsCompose()
    {
        write("e");
        const auto send = [this](const QString &composing, const QString &committed) {
            QInputMethodEvent event(composing, {});
            event.setCommitString(committed);
            QCoreApplication::sendEvent(field(), &event);
        };
        const QImage before = seen();
        send("ni", {});
        QVERIFY(seen() != before); // what is being composed shows
        QCOMPARE(field()->text(), "e");
        send({}, "你");
        view->cancel();
        QCOMPARE(marks().front()->text, "e你");
    }

    // On a keyboard without Latin letters the key's position decides.
    void theFieldsKeysAreTheSameInEveryScript()
    {
        const auto press = [this](int key, quint32 evdev, Qt::KeyboardModifiers modifiers) {
            QKeyEvent event(QEvent::KeyPress, key, modifiers, evdev + KeyCodes::nativeOffset, 0, 0);
            QCoreApplication::sendEvent(field(), &event);
        };
        constexpr int cyrillicYa = 0x042f, cyrillicEf = 0x0424; // where Z and A are
        write("");
        field()->insert("слово");
        press(cyrillicEf, 30, Qt::MetaModifier);
        QCOMPARE(field()->selectedText(), "слово");
        QTest::keyClick(field(), Qt::Key_Backspace);
        press(cyrillicYa, 44, Qt::ControlModifier);
        QVERIFY(field());
        QCOMPARE(field()->text(), "слово");
        QCOMPARE(view->state().selection, QRectF(100, 100, 700, 400));
    }

    void theFieldEditsWithControlAndWithSuper()
    {
        for (const auto &[word, command] :
             {std::pair("word", Qt::ControlModifier), std::pair("more", Qt::MetaModifier)}) {
            write(word);
            QTest::keyClick(field(), Qt::Key_A, command);
            QTest::keyClick(field(), Qt::Key_C, command);
            QCOMPARE(QGuiApplication::clipboard()->text(), word);
            QTest::keyClick(field(), Qt::Key_Backspace);
            QCOMPARE(field()->text(), "");
            QTest::keyClick(field(), Qt::Key_Z, command);
            QCOMPARE(field()->text(), word);
            QTest::keyClick(field(), Qt::Key_End);
            QTest::keyClick(field(), Qt::Key_V, command);
            QCOMPARE(field()->text(), QString(word).repeated(2));
            QCOMPARE(view->state().selection, QRectF(100, 100, 700, 400));
            QVERIFY(marks().empty());
            init();
        }
    }
};

QTEST_MAIN(TextEditingTest)
#include "TextEditingTest.moc"
