#include "support/Editor.h"

#include <algorithm>

class OverlayOpacityTest : public QObject {
    Q_OBJECT

private slots:
    // Some windows are not, and the screen beneath would show through wherever the
    // picture of it has nothing where its opacity would be.
    void theWindowIsOpaque_data() { scales(); }
    void theWindowIsOpaque()
    {
        QFETCH(QString, screen);
        Editor editor(screen);
        const auto translucent = [&] {
            QImage window(editor.screen->size() * editor.shot.scale, QImage::Format_ARGB32_Premultiplied);
            window.setDevicePixelRatio(editor.shot.scale);
            window.fill(Qt::transparent);
            editor.view->render(&window, {}, {}, {});
            qsizetype count = 0;
            for (int y = 0; y < window.height(); ++y) {
                const auto *row = reinterpret_cast<const QRgb *>(window.constScanLine(y));
                count += std::count_if(row, row + window.width(), [](QRgb at) { return qAlpha(at) != 255; });
            }
            return count;
        };
        QCOMPARE(translucent(), 0);
        editor.mouse->drag({100, 100}, {500, 400});
        for (const Tool tool : {Tool::pixelate, Tool::marker, Tool::ellipse})
            editor.draw(tool, {150, 150}, {300, 250});
        QCOMPARE(translucent(), 0);
        editor.view->toggleTool(Tool::pixelate); // in hand
        editor.mouse->press({200, 200});
        editor.mouse->move({400, 300});
        QCOMPARE(translucent(), 0);
        editor.mouse->release({400, 300});
        QTest::keyClick(editor.view.get(), Qt::Key_I); // the loupe
        QCOMPARE(translucent(), 0);
    }
};

QTEST_MAIN(OverlayOpacityTest)
#include "OverlayOpacityTest.moc"
