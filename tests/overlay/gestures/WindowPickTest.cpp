#include "overlay/gestures/WindowPick.h"

#include "support/Editor.h"
#include "support/TempHome.h"

class WindowPickTest : public QObject {
    Q_OBJECT

    TempHome home;

    // Pixels that no number of points divides evenly, and over them a dialog.
    const QRect window{101, 51, 333, 277};
    const QRect dialog{151, 101, 77, 33};

    static QPointF pointIn(const Editor &editor, QPoint pixel)
    {
        const QRectF exact
            = ViewSpace(editor.shot.pointSize, editor.shot.scale).fromPixels({pixel, QSize(1, 1)});
        return exact.center();
    }

    // As the system tells it.
    static void doubleClick(Editor &editor, QPointF at)
    {
        editor.mouse->press(at);
        editor.mouse->release(at);
        editor.mouse->pressAgain(at);
        editor.mouse->release(at);
    }

private slots:
    void aDoubleClickCopiesExactlyTheWindow_data() { scales(); }
    void aDoubleClickCopiesExactlyTheWindow()
    {
        QFETCH(QString, screen);
        for (const QRect &wanted : {window, dialog}) {
            Editor editor(screen);
            editor.session.windows = {dialog, window};
            doubleClick(editor, pointIn(editor, wanted.topLeft()));
            QImage copied = editor.view->renderSelection().value_or(QImage());
            copied.setDevicePixelRatio(1);
            QCOMPARE(copied, editor.shot.image.copy(wanted));
            QCOMPARE(editor.stale(), 0);
        }
    }

    void aDragOfTheSecondPressStaysADrag()
    {
        Editor editor;
        editor.session.windows = {window};
        const QPointF at = pointIn(editor, window.center());
        const auto again = [&](QPointF to) {
            editor.mouse->press(at);
            editor.mouse->release(at);
            editor.mouse->pressAgain(at);
            editor.mouse->move(to);
        };
        again(at + QPointF(40, 30));
        editor.mouse->release(at + QPointF(40, 30));
        QCOMPARE(editor.selection(), QRectF(at, QSizeF(40, 30)));
        editor.view->discardSelection();
        again(at + QPointF(40, 1)); // too flat to be meant
        editor.mouse->release(at + QPointF(40, 1));
        QVERIFY(!editor.selection());
        again(at + QPointF(40, 30)); // and back
        editor.mouse->move(at);
        editor.mouse->release(at);
        QVERIFY(!editor.selection());
        again(at + QPointF(2, 2)); // a trembling hand
        editor.mouse->release(at + QPointF(2, 2));
        QCOMPARE(editor.selection()->size(), QSizeF(window.size()));
    }

    void onlyTwoClicksOnTheEmptyScreenCount()
    {
        Editor editor;
        editor.session.windows = {window};
        const QPointF at = pointIn(editor, window.center());
        const auto nothing = [&](const char *why) { QVERIFY2(!editor.selection(), why); };
        editor.mouse->press(at);
        editor.mouse->release(at);
        editor.mouse->press(at);
        editor.mouse->release(at);
        nothing("two single clicks");
        editor.mouse->drag({500, 40}, {700, 240});
        doubleClick(editor, at);
        nothing("the first click has taken a selection away");
        editor.view->startPicking();
        doubleClick(editor, at);
        nothing("the first click has taken a colour");
        editor.mouse->drag({500, 40}, {700, 240});
        const auto before = editor.selection();
        doubleClick(editor, {600, 140});
        QCOMPARE(editor.selection(), before);
        editor.draw(Tool::line, {550, 90}, {650, 190});
        doubleClick(editor, at);
        QCOMPARE(editor.selection(), before);
        QCOMPARE(editor.view->state().annotations.size(), 1U);
    }
};

QTEST_MAIN(WindowPickTest)
#include "WindowPickTest.moc"
