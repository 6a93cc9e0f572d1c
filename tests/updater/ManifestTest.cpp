#include "updater/Manifest.h"

#include <QTest>

namespace {

const QByteArray item = R"({"url": "https://a/b", "sha256": "AB"})";

QByteArray manifest(const QByteArray &changed = {})
{
    return R"({"version": "1.2", "novedades": {"es": "Nuevo", "en": "New"}, "mac": )" + item + changed + '}';
}

} // namespace

class ManifestTest : public QObject {
    Q_OBJECT

private slots:
    void aWholeManifestIsRead()
    {
        const auto read = Manifest::decode(manifest(R"(, "later": [1, {"x": null}])"));
        QVERIFY(read);
        QCOMPARE(read->version, "1.2");
        QCOMPARE(read->item().url, "https://a/b");
        QCOMPARE(read->item().sha256, "AB");
    }

    void thisPlatformsOwnDownloadIsPreferred()
    {
        const auto read = Manifest::decode(manifest(R"(, "linux": {"url": "u", "sha256": "s"})"));
        QVERIFY(read);
        QCOMPARE(read->item().url, "u");
        QCOMPARE(read->mac.url, "https://a/b");
        QCOMPARE(Manifest::decode(manifest(R"(, "linux": null)"))->item().url, "https://a/b");
    }

    void notesFallBackToEnglish()
    {
        auto read = Manifest::decode(manifest());
        QCOMPARE(read->notas(Lang::es), "Nuevo");
        QCOMPARE(read->notas(Lang::de), "New");
        read->novedades.remove("en");
        QVERIFY(!read->notas(Lang::de));
    }

    void anythingElseIsRefused_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("a page") << QByteArray("<html></html>");
        QTest::newRow("a list") << QByteArray("[" + manifest() + "]");
        QTest::newRow("cut off") << manifest().chopped(1);
        QTest::newRow("more than one") << manifest() + manifest();
        QTest::newRow("no version") << manifest().replace("version", "versión");
        QTest::newRow("a number as version") << manifest().replace(R"("1.2")", "1.2");
        QTest::newRow("a huge number") << manifest().replace(R"("1.2")", "1" + QByteArray(5000, '0'));
        QTest::newRow("no notes") << manifest().replace("novedades", "notes");
        QTest::newRow("notes as a text") << manifest().replace(R"({"es": "Nuevo", "en": "New"})", R"("New")");
        QTest::newRow("a note that is no text") << manifest().replace(R"("New")", "true");
        QTest::newRow("no download") << manifest().replace("mac", "win");
        QTest::newRow("a download without digest") << manifest().replace("sha256", "md5");
        QTest::newRow("a download that is null") << manifest().replace(item, "null");
        QTest::newRow("a bad download for this platform")
            << manifest(R"(, "linux": {"url": 1, "sha256": "s"})");
        QTest::newRow("not UTF-8") << manifest().replace("New", "N\xff\xfew");
        QTest::newRow("nested too deeply") << manifest(R"(, "x": )" + QByteArray(200000, '['));
        QTest::newRow("zeros") << QByteArray(1000, '\0');
    }

    void anythingElseIsRefused()
    {
        QFETCH(QByteArray, json);
        QVERIFY(!Manifest::decode(json));
    }
};

QTEST_GUILESS_MAIN(ManifestTest)
#include "ManifestTest.moc"
