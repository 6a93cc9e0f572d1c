#include "platform/freedesktop/KeymapText.h"

#include <QTest>

#include <xkbcommon/xkbcommon.h>

#include <memory>

class KeymapTextTest : public QObject {
    Q_OBJECT

    std::unique_ptr<xkb_keymap, decltype(&xkb_keymap_unref)> keymap{nullptr, &xkb_keymap_unref};

private slots:
    void initTestCase()
    {
        const std::unique_ptr<xkb_context, decltype(&xkb_context_unref)> context(
            xkb_context_new(XKB_CONTEXT_NO_FLAGS), &xkb_context_unref);
        const xkb_rule_names names{nullptr, nullptr, "us,de,ru", nullptr, nullptr};
        keymap.reset(xkb_keymap_new_from_names(context.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS));
        QVERIFY(keymap);
    }

    void aKeyTypesWhatTheLayoutInUseSays_data()
    {
        QTest::addColumn<uint>("layout");
        QTest::addColumn<uint>("key"); // of evdev
        QTest::addColumn<std::optional<QString>>("text");
        const auto row = [](const char *name, uint layout, uint key, std::optional<QString> text) {
            QTest::newRow(name) << layout << key << text;
        };
        row("the first", 0, 44, "z");
        row("another", 1, 44, "y");
        row("a letter of that alone", 1, 26, QStringLiteral("ü"));
        row("without Latin letters", 2, 44, QStringLiteral("я"));
        row("a key that types nothing", 0, 59, std::nullopt);
        row("a key that nobody has", 0, 700, std::nullopt);
    }

    void aKeyTypesWhatTheLayoutInUseSays()
    {
        QFETCH(uint, layout);
        QFETCH(uint, key);
        QTEST(KeymapText::ofKey(*keymap, layout, key), "text");
    }
};

QTEST_GUILESS_MAIN(KeymapTextTest)
#include "KeymapTextTest.moc"
