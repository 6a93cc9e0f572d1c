#include "platform/wayland/QtKeys.h"

#include "platform/KeyboardLayout.h"

#include <QMap>
#include <QTest>

namespace {

// Types these at positions of the Q and the 1 key.
class Layout final : public KeyboardLayout {
public:
    Layout(QString q, QString one) : m_q(std::move(q)), m_one(std::move(one)) {}

    std::optional<QString> textOfKey(std::uint32_t position) const override
    {
        return position == 16 ? std::optional(m_q) : position == 2 ? std::optional(m_one) : std::nullopt;
    }

    std::optional<QString> shiftedTextOfKey(std::uint32_t position) const override
    {
        return position == 2 ? std::optional<QString>("!") : std::nullopt;
    }

private:
    QString m_q, m_one;
};

constexpr std::uint32_t qCode = 12, oneCode = 18;

} // namespace

class QtKeysTest : public QObject {
    Q_OBJECT

private slots:
    void aShortcutIsNamedInBothWays_data()
    {
        QTest::addColumn<quint32>("code");
        QTest::addColumn<quint64>("modifiers");
        QTest::addColumn<int>("key");
        QTest::addColumn<QString>("trigger");
        const auto row = [](const char *name, quint32 code, quint64 modifiers, int key, const char *trigger) {
            QTest::newRow(name) << code << modifiers << key << trigger;
        };
        row("as at the start", 7, Shortcut::shift | Shortcut::command, int(Qt::SHIFT) | Qt::META | Qt::Key_X,
            "SHIFT+LOGO+x");
        row("all modifiers", 111, Shortcut::allModifiers,
            int(Qt::CTRL) | Qt::ALT | Qt::SHIFT | Qt::META | Qt::Key_F12, "CTRL+ALT+SHIFT+LOGO+F12");
        row("space", 49, Shortcut::control, int(Qt::CTRL) | Qt::Key_Space, "CTRL+space");
        row("a digit", oneCode, Shortcut::option, int(Qt::ALT) | Qt::Key_1, "ALT+1");
        row("other bits", 7, Shortcut::command | 1, int(Qt::META) | Qt::Key_X, "LOGO+x");
    }

    void aShortcutIsNamedInBothWays()
    {
        QFETCH(quint32, code);
        QFETCH(quint64, modifiers);
        QFETCH(int, key);
        QFETCH(QString, trigger);
        const Shortcut shortcut{code, modifiers};
        QCOMPARE(QtKeys::of(shortcut, nullptr), std::optional(key));
        QCOMPARE(QtKeys::triggerOf(shortcut, nullptr), trigger);
    }

    void whatTheKeyTypesIsBound()
    {
        const Shortcut q{qCode, Shortcut::command};
        const Shortcut one{oneCode, Shortcut::command};
        const Layout french("a", "&");
        QCOMPARE(QtKeys::of(q, &french), std::optional(int(Qt::META) | Qt::Key_A));
        QCOMPARE(QtKeys::triggerOf(q, &french), "LOGO+a");
        QCOMPARE(QtKeys::of(one, &french), std::optional(int(Qt::META) | Qt::Key_Ampersand));
        const Layout russian("й", "1");
        QCOMPARE(QtKeys::of(q, &russian), std::optional(int(Qt::META) | Qt::Key_Q));
    }

    // Or a shortcut would be taken that never comes.
    void whatKdeDoesNotBringIsNotNamed()
    {
        const Shortcut shiftOne{oneCode, Shortcut::shift | Shortcut::command};
        QCOMPARE(QtKeys::of(shiftOne, nullptr), std::nullopt);
        QCOMPARE(QtKeys::triggerOf(shiftOne, nullptr), "SHIFT+LOGO+1");
        const Layout german("q", "1");
        QCOMPARE(QtKeys::of(shiftOne, &german), std::optional(int(Qt::META) | Qt::Key_Exclam));
        constexpr std::uint32_t keypadZero = 82;
        QCOMPARE(QtKeys::of({keypadZero, Shortcut::command}, nullptr), std::nullopt);
    }

    void aPositionOfNoKeyHasNoName()
    {
        QCOMPARE(QtKeys::of({500, Shortcut::command}, nullptr), std::nullopt);
        QCOMPARE(QtKeys::triggerOf({500, Shortcut::command}, nullptr), QString());
    }
};

QTEST_APPLESS_MAIN(QtKeysTest)
#include "QtKeysTest.moc"
