#include "support/Editor.h"

#include "support/TempHome.h"

#include "toolbar/Bar.h"
#include "toolbar/BarButton.h"
#include "toolbar/ColorPalette.h"
#include "toolbar/RecentColors.h"
#include "toolbar/Theme.h"

// The bar of the real editor, and what its buttons do.
class ToolBarsTest : public QObject {
    Q_OBJECT

    TempHome home;

    static Bar *bar(const Editor &editor) { return editor.view->findChild<Bar *>(); }

    static BarButton *button(const Editor &editor, const QString &name)
    {
        for (auto *candidate : bar(editor)->buttons())
            if (candidate->accessibleName() == name)
                return candidate;
        return nullptr;
    }

    static ColorPalette *palette(const Editor &editor)
    {
        for (auto *candidate : editor.view->findChildren<ColorPalette *>())
            if (candidate->isVisible())
                return candidate;
        return nullptr;
    }

    static void click(QWidget *widget) { QTest::mouseClick(widget, Qt::LeftButton); }

private slots:
    void theBarHoldsItsButtonsInOrder()
    {
        Editor editor;
        QStringList tips;
        for (const BarButton *each : bar(editor)->buttons()) {
            tips.append(each->toolTip());
            QCOMPARE(each->focusPolicy(), Qt::NoFocus); // the keys stay with the editor
        }
        QCOMPARE(tips, (QStringList{"Pencil  P", "Line  L", "Arrow  A", "Rectangle  R", "Ellipse  E",
                                    "Highlighter  M", "Text  T", "Pixelate  X",
                                    "Colour · I: eyedropper · wheel: thickness", "Undo  ⌘Z", "Save  ⌘S",
                                    "Print  ⌘P", "Close  Esc", "Copy  ⌘C · Return"}));
    }

    // Kept as one picture, or the glow beneath would cost several times as much.
    void onlyAChangeRedrawsTheBar()
    {
        struct Counter : QObject {
            bool eventFilter(QObject *, QEvent *event) override
            {
                paints += event->type() == QEvent::Paint;
                return false;
            }
            int paints = 0;
        } counter, frames;
        Editor editor;
        editor.mouse->drag({300, 300}, {900, 600});
        (void)editor.shown();
        bar(editor)->installEventFilter(&counter);
        editor.desktop.stillness = false;
        editor.mouse->drag({500, 400}, {540, 400}); // the bar only moves
        editor.view->installEventFilter(&frames);
        QTRY_VERIFY(frames.paints > 5);
        QCOMPARE(counter.paints, 0);
        editor.desktop.stillness = true;
        const auto changes = [&](const auto &action) {
            const QImage before = editor.shown().copy(bar(editor)->geometry());
            action();
            return QTest::qWaitFor([&] { return editor.shown().copy(bar(editor)->geometry()) != before; });
        };
        QVERIFY(changes([&] { click(button(editor, "Arrow")); }));
        QVERIFY(changes([&] { editor.view->setLineWidth(7); }));
        QVERIFY(changes([&] { QTest::mouseMove(button(editor, "Line")); }));
        QVERIFY(counter.paints > 0);
    }

    void theBarStandsBesideTheSelection()
    {
        Editor editor;
        QVERIFY(bar(editor)->isHidden());
        editor.mouse->drag({400, 400}, {800, 600});
        QVERIFY(!bar(editor)->isHidden());
        QCOMPARE(bar(editor)->geometry().top(), 900 - 400 + 12);
        QVERIFY(qAbs(bar(editor)->geometry().center().x() - 600) <= 1);
        QTest::keyClick(editor.view.get(), Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(bar(editor)->geometry().bottom(), 900 - 12 - 1);
        editor.view->discardSelection();
        QVERIFY(bar(editor)->isHidden());
    }

    void toolsAreChosenByClickAsByLetter()
    {
        Editor editor;
        editor.mouse->drag({400, 400}, {800, 600});
        click(button(editor, "Arrow"));
        QCOMPARE(editor.view->state().tool, Tool::arrow);
        QVERIFY(button(editor, "Arrow")->state().isActive);
        QTest::keyClick(editor.view.get(), Qt::Key_E);
        QVERIFY(!button(editor, "Arrow")->state().isActive && button(editor, "Ellipse")->state().isActive);
        click(button(editor, "Ellipse"));
        QVERIFY(!editor.view->state().tool && !button(editor, "Ellipse")->state().isActive);
    }

    void commandsDoWhatTheirKeysDo()
    {
        Editor editor;
        editor.mouse->drag({400, 400}, {800, 600});
        editor.draw(Tool::line, {450, 450}, {500, 500});
        click(button(editor, "Undo"));
        QVERIFY(editor.view->state().annotations.empty());
        editor.view->toggleTool(Tool::text);
        editor.mouse->drag({500, 500}, {500, 500});
        QTest::keyClicks(editor.view->focusWidget(), "hi");
        click(button(editor, "Close")); // ends the text first
        QCOMPARE(editor.view->state().annotations.size(), 1U);
        QCOMPARE(editor.session.finished, 0);
        click(button(editor, "Close"));
        QCOMPARE(editor.session.finished, 1);
        click(button(editor, "Copy"));
        QCOMPARE(editor.desktop.pops, 1);
    }

    void theColourButtonShowsColourAndWidth()
    {
        Editor editor;
        editor.mouse->drag({400, 400}, {800, 600});
        const BarButtonState &state = button(editor, "Colour")->state();
        QCOMPARE(state.swatch, Theme::drawColors.front());
        QCOMPARE(state.widthLabel, "3 px");
        editor.turnWheel({500, 500}, 120);
        QCOMPARE(state.widthLabel, "4 px");
        editor.view->setColor(Qt::blue);
        QCOMPARE(state.swatch, QColor(Qt::blue));
        QCOMPARE(button(editor, "Pencil")->state().dotColor, QColor(Qt::blue));
    }

    void thePaletteStandsOverTheMiddleOfItsButton()
    {
        Editor editor;
        editor.mouse->drag({400, 400}, {800, 600});
        click(button(editor, "Colour"));
        for (const double width : {3, 12}) {
            editor.view->setLineWidth(width);
            const BarButton *swatch = button(editor, "Colour");
            const double middle = swatch->mapTo(editor.view.get(), QRectF(swatch->rect()).center()).x();
            QCOMPARE(palette(editor)->x(), qRound(middle - palette(editor)->width() / 2.0));
        }
    }

    void thePaletteOpensAndClosesAndGivesItsColour()
    {
        Editor editor;
        editor.mouse->drag({400, 400}, {800, 600});
        click(button(editor, "Colour"));
        QVERIFY(palette(editor));
        QVERIFY(palette(editor)->geometry().top() >= bar(editor)->geometry().bottom() + 8);
        click(button(editor, "Colour"));
        QVERIFY(!palette(editor));
        click(button(editor, "Colour"));
        palette(editor)->onPick(Qt::green);
        QCOMPARE(editor.view->state().color, QColor(Qt::green));
        QVERIFY(!palette(editor));
        click(button(editor, "Colour"));
        editor.mouse->press({600, 500}); // anywhere else
        QVERIFY(!palette(editor));
        editor.mouse->release({600, 500});
        click(button(editor, "Colour"));
        palette(editor)->onEyedropper();
        QVERIFY(!palette(editor));
        QVERIFY(bar(editor)->isHidden()); // the loupe is above everything
        editor.mouse->drag({100, 100}, {100, 100});
        QVERIFY(!bar(editor)->isHidden());
        QCOMPARE(RecentColors::colors().front(), editor.view->state().color);
    }

    void theBarMakesWayWhileDrawingNearIt()
    {
        Editor editor;
        editor.mouse->drag({400, 400}, {800, 600});
        editor.view->toggleTool(Tool::pencil);
        editor.mouse->press({600, 550});
        editor.mouse->move({600, 405});
        QTRY_COMPARE(bar(editor)->alpha(), 0.12);
        editor.mouse->release({600, 405});
        QTRY_COMPARE(bar(editor)->alpha(), 1.0);
    }

    void aNarrowScreenHasNoRoomForWords()
    {
        RecordingSession session;
        FakeDesktop desktop;
        for (const int width : {320, 759, 760}) {
            OverlayView view(patternShot(QSizeF(width, 240), 1), session, desktop);
            Mouse(view, 240).drag({10, 100}, {300, 230});
            const BarButton *copy = view.findChild<Bar *>()->buttons().last();
            QCOMPARE(copy->state().label.has_value(), width >= 760);
            QCOMPARE(copy->preferredWidth() == 32, width < 760);
        }
    }
};

QTEST_MAIN(ToolBarsTest)
#include "ToolBarsTest.moc"
