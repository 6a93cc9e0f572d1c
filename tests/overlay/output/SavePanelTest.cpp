#include "overlay/output/SavePanel.h"

#include "overlay/OverlayView.h"

#include "fakes/FakeDesktop.h"
#include "fakes/RecordingSession.h"
#include "support/Mouse.h"
#include "support/Pictures.h"
#include "support/TempHome.h"
#include "toolbar/BarButton.h"
#include "toolbar/ColorPalette.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QFileSystemModel>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <QTreeView>

#include <sys/stat.h>

// Saving, from the key to the file.
class SavePanelTest : public QObject {
    Q_OBJECT

    TempHome home;
    FakeDesktop desktop;
    RecordingSession session;
    std::unique_ptr<OverlayView> view;

    [[nodiscard]] SavePanel *panel() const { return view->findChild<SavePanel *>(); }
    [[nodiscard]] QLineEdit *name() const { return panel()->findChild<QLineEdit *>("fileNameEdit"); }

    void askToSave()
    {
        QTest::keyClick(view.get(), Qt::Key_S, Qt::ControlModifier);
        QVERIFY(panel() && panel()->isVisible());
    }

    void saveAs(const QString &path)
    {
        askToSave();
        name()->setText(path);
        QTest::keyClick(name(), Qt::Key_Return);
    }

    [[nodiscard]] QAbstractButton *answer(QDialogButtonBox::StandardButton button) const
    {
        for (auto *box : panel()->findChildren<QDialogButtonBox *>())
            if (auto *found = box->button(button))
                return found;
        return nullptr;
    }

private slots:
    void init()
    {
        session = {};
        desktop.beeps = 0;
        view = std::make_unique<OverlayView>(patternShot({900, 700}, 1), session, desktop);
        view->show();
        view->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(view.get()));
        view->setFocus();
        Mouse(*view, 700).drag({100, 100}, {300, 200});
    }

    void theNameIsDatedAndTheFileIsThePicture()
    {
        askToSave();
        const QRegularExpression dated(R"(^Capture \d{4}-\d\d-\d\d \d\d\.\d\d\.\d\d\.png$)");
        QVERIFY2(dated.match(name()->text()).hasMatch(), qPrintable(name()->text()));
        QVERIFY(view->rect().contains(panel()->geometry()));
        QCOMPARE(view->focusWidget(), name());
        name()->setText(home.path("shot"));
        QTest::keyClick(name(), Qt::Key_Return);
        QCOMPARE(session.finished, 1);
        const QImage saved(home.path("shot.png"));
        QCOMPARE(saved.size(), QSize(200, 100));
        QCOMPARE(saved.pixel(0, 0), view->shot().image.pixel(100, 500));
    }

    void whateverTheNameItIsAPng()
    {
        saveAs(home.path("foto v1.2"));
        QVERIFY(QFile::exists(home.path("foto v1.2.png")));
        init();
        saveAs(home.path("FOTO.PNG"));
        QVERIFY(QFile::exists(home.path("FOTO.PNG")));
    }

    // Reading may wait for ever: for another program, or for a server that is gone.
    void listingAFolderOpensNoFile()
    {
        const QString pipe = home.path("pipe");
        QVERIFY(mkfifo(qPrintable(pipe), 0600) == 0);
        QVERIFY(QFile(home.path("notes")).open(QIODevice::WriteOnly));
        askToSave();
        panel()->setDirectory(home.path());
        const auto *files = panel()->findChild<QFileSystemModel *>();
        QTRY_VERIFY(files->index(home.path("notes")).isValid());
        QCOMPARE(files->type(files->index(home.path("notes"))), QString());
        QFile::remove(pipe);
    }

    void theLastFolderIsRemembered()
    {
        QVERIFY(QDir(home.path()).mkpath("shots"));
        saveAs(home.path("shots/one.png"));
        init();
        askToSave();
        QCOMPARE(panel()->directory().path(), home.path("shots"));
    }

    void cancellingKeepsEverything()
    {
        askToSave();
        QTest::keyClick(view->focusWidget(), Qt::Key_Escape);
        QTRY_VERIFY(!panel());
        QCOMPARE(session.finished, 0);
        QCOMPARE(view->state().selection, QRectF(100, 100, 200, 100));
        QVERIFY(view->hasFocus());
    }

    void theOverlayStandsStillUnderThePanel()
    {
        askToSave();
        Mouse(*view, 700).drag({10, 10}, {50, 60});
        QCOMPARE(view->state().selection, QRectF(100, 100, 200, 100));
        QCOMPARE(desktop.beeps, 1);
        for (auto *button : view->findChildren<BarButton *>())
            if (const QString name = button->accessibleName();
                name == "Arrow" || name == "Colour" || name == "Close")
                button->click();
        QVERIFY(!view->state().tool);
        QVERIFY(view->findChildren<ColorPalette *>().isEmpty());
        QCOMPARE(session.finished, 0);
        QCOMPARE(desktop.beeps, 4);
        QTest::keyClick(view.get(), Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(view->findChildren<SavePanel *>().size(), 1);
        QCOMPARE(view->focusWidget(), name());
    }

    void theTitlesOfTheColumnsAreWhole()
    {
        askToSave();
        QFont large = panel()->font();
        large.setPixelSize(22); // makes them as long as some languages do
        panel()->setFont(large);
        const auto *header = panel()->findChild<QTreeView *>("treeView")->header();
        for (int column = 1; column < header->count(); ++column)
            QTRY_VERIFY(header->sectionSize(column) >= header->sectionSizeHint(column));
    }

    void replacingIsAskedInsideThePanel()
    {
        saveAs(home.path("twice.png"));
        const QByteArray first = home.read("twice.png");
        init();
        Mouse(*view, 700).drag({300, 150}, {320, 150}); // makes it a little wider
        saveAs(home.path("twice.png"));
        QVERIFY(answer(QDialogButtonBox::No)->isVisible());
        QTest::mouseClick(answer(QDialogButtonBox::No), Qt::LeftButton);
        QCOMPARE(session.finished, 0);
        QCOMPARE(home.read("twice.png"), first);
        QTest::keyClick(name(), Qt::Key_Return);
        QTest::mouseClick(answer(QDialogButtonBox::Yes), Qt::LeftButton);
        QCOMPARE(session.finished, 1);
        QCOMPARE(QImage(home.path("twice.png")).width(), 220);
    }

    void aFolderThatIsNotThereKeepsThePanelOpen()
    {
        saveAs(home.path("nowhere/shot.png"));
        QVERIFY(panel()->isVisible());
        QVERIFY(!answer(QDialogButtonBox::Yes)->isVisible());
        QCOMPARE(session.finished, 0);
    }

    void aFileThatCannotBeWrittenIsLoggedAndThePictureIsOnTheClipboard()
    {
        QGuiApplication::clipboard()->setText("before");
        saveAs("/proc/shot.png");
        QCOMPARE(session.finished, 1);
        QVERIFY(home.log().contains("guardado /proc/shot.png -> FALLO"));
        QVERIFY(home.log().endsWith("; al portapapeles -> OK\n"));
        const auto png = QGuiApplication::clipboard()->mimeData()->data("image/png");
        QCOMPARE(QImage::fromData(png, "PNG").size(), QSize(200, 100));
        init();
        askToSave();
        QVERIFY(panel()->directory().path() != "/proc"); // where nothing can be saved
    }
};

QTEST_MAIN(SavePanelTest)
#include "SavePanelTest.moc"
