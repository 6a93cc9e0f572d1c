#include "platform/KeyCodes.h"

#include <QSet>
#include <QTest>

class KeyCodesTest : public QObject {
    Q_OBJECT

private slots:
    void everyKeyGoesThereAndBack()
    {
        QSet<std::uint32_t> positions;
        for (std::uint32_t code = 0; code < 0x80; ++code) {
            const auto position = KeyCodes::toEvdev(code);
            if (!position)
                continue;
            QCOMPARE(KeyCodes::fromEvdev(*position), code);
            QVERIFY(KeyCodes::qtKeyAt(*position));
            positions.insert(*position);
        }
        QVERIFY(positions.size() > 90);
    }
};

QTEST_GUILESS_MAIN(KeyCodesTest)
#include "KeyCodesTest.moc"
