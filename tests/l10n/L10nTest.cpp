#include "l10n/L10n.h"
#include "l10n/Texts.h"

#include <QTest>

class L10nTest : public QObject {
    Q_OBJECT

private slots:
    void theLanguageIsChosen_data()
    {
        QTest::addColumn<QString>("override");
        QTest::addColumn<QStringList>("preferred");
        QTest::addColumn<Lang>("lang");
        QTest::newRow("override beats the system") << "fr" << QStringList{"de-DE"} << Lang::fr;
        QTest::newRow("override is case-sensitive") << "FR" << QStringList{"de-DE"} << Lang::de;
        QTest::newRow("override is not trimmed") << " fr" << QStringList{"it"} << Lang::it;
        QTest::newRow("unknown override") << "ja" << QStringList{"pt-BR"} << Lang::pt;
        QTest::newRow("regions do not matter") << "" << QStringList{"es-419"} << Lang::es;
        QTest::newRow("first one that is spoken") << "" << QStringList{"ja", "x", "DE_AT", "fr"} << Lang::de;
        QTest::newRow("none spoken") << "" << QStringList{"ja", "C"} << Lang::en;
        QTest::newRow("no list") << "" << QStringList{} << Lang::en;
    }

    void theLanguageIsChosen()
    {
        QFETCH(QString, override);
        QFETCH(QStringList, preferred);
        QTEST(L10n::chooseLang(override, preferred), "lang");
    }

    void textsAreLookedUpBySpanishSentence()
    {
        QCOMPARE(L10n::t(u"Copiado ✓", Lang::es), u"Copiado ✓");
        QCOMPARE(L10n::t(u"Copiado ✓", Lang::fr), u"Copié ✓");
        QCOMPARE(L10n::t(u"Ajustes…", Lang::de), u"Einstellungen …");
        QCOMPARE(L10n::t(u"Salir de Vellumora"), u"Quit Vellumora"); // the test runs in English
        QCOMPARE(L10n::t(u"Ninguna fila dice esto", Lang::it), u"Ninguna fila dice esto");
    }

    void everyRowIsCompleteAndKeepsItsGaps()
    {
        QSet<QStringView> keys;
        qsizetype rows = 0;
        for (const auto texts : {shellTexts(), overlayTexts(), updaterTexts()})
            for (const Text &row : texts) {
                keys.insert(row.es);
                ++rows;
                for (const QStringView text : {row.en, row.it, row.fr, row.de, row.pt}) {
                    QVERIFY2(!text.isEmpty(), qPrintable(row.es.toString()));
                    QCOMPARE(text.count(u"%@"), row.es.count(u"%@"));
                    QCOMPARE(text.count(u'\n'), row.es.count(u'\n'));
                }
            }
        QCOMPARE(keys.size(), rows); // none stands twice
    }

    void spanishLivesAtTheRootOfTheSite()
    {
        const QString root = L10n::web(Lang::es).toString();
        QVERIFY(root.endsWith(u'/'));
        QCOMPARE(L10n::web(Lang::de).toString(), root + "de/");
        QCOMPARE(L10n::legal(Lang::es).toString(), root + "aviso-legal");
        QCOMPARE(L10n::legal(Lang::pt).toString(), root + "pt/aviso-legal");
        QCOMPARE(L10n::cafe().toString(), root + "cafe");
    }
};

QTEST_GUILESS_MAIN(L10nTest)
#include "L10nTest.moc"
