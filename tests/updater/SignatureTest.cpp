#include "updater/Signature.h"

#include "updater/Sha256.h"
#include "updater/UpdateKey.h"

#include "support/KeyPair.h"

#include <QFile>
#include <QTest>

class SignatureTest : public QObject {
    Q_OBJECT

    const KeyPair key;
    const QByteArray bytes = "{\"version\": \"1.2\"}\n";
    const QByteArray text = key.sign(bytes);

    [[nodiscard]] bool valid(const QByteArray &signature) const
    {
        return Signature::isValid(bytes, signature, key.publicPem());
    }

private slots:
    void whatTheKeyHasSignedIsValid()
    {
        QVERIFY(valid(text));
        for (const char *around : {"\n", "\r\n", " \t\n", "\n\n"})
            QVERIFY(valid(around + text + around));
        // Numbers with leading zeros and with a high first bit come by themselves.
        for (int i = 0; i < 40; ++i) {
            const QByteArray other = QByteArray::number(i);
            QVERIFY(Signature::isValid(other, key.sign(other), key.publicPem()));
        }
    }

    void everyChangeOfTheBytesIsSeen()
    {
        QVERIFY(!Signature::isValid(bytes + '\n', text, key.publicPem()));
        QVERIFY(!Signature::isValid(bytes.trimmed(), text, key.publicPem()));
        QVERIFY(!Signature::isValid({}, text, key.publicPem()));
        for (qsizetype i = 0; i < bytes.size(); ++i) {
            QByteArray changed = bytes;
            changed[i] = static_cast<char>(changed[i] ^ 1);
            QVERIFY(!Signature::isValid(changed, text, key.publicPem()));
        }
    }

    void everyChangeOfTheSignatureIsSeen()
    {
        const QByteArray raw = key.raw(bytes);
        for (qsizetype i = 0; i < raw.size(); ++i) {
            QByteArray changed = raw;
            changed[i] = static_cast<char>(changed[i] ^ 0x80);
            QVERIFY(!valid(changed.toBase64()));
        }
        for (const QByteArray &half : {QByteArray(32, '\0'), QByteArray(32, '\xff')})
            QVERIFY(!valid((half + half).toBase64()));
    }

    void onlySixtyFourBytesAreASignature()
    {
        const QByteArray raw = key.raw(bytes);
        for (int length = 0; length <= 200; ++length)
            if (length != raw.size())
                QVERIFY(!valid(raw.leftJustified(length, '\0', true).toBase64()));
        QVERIFY(!valid(key.der(bytes).toBase64()));
        QVERIFY(!valid(key.der(bytes)));
        QVERIFY(!valid(raw));
    }

    void onlyPlainBase64IsRead()
    {
        QByteArray split = text;
        const QByteArray urlForm
            = QByteArray(64, '\xff').toBase64(QByteArray::Base64UrlEncoding); // never valid, never a crash
        QVERIFY(!valid(urlForm));
        QVERIFY(!valid(split.insert(40, '\n')));
        QVERIFY(!valid(text.chopped(2)));
        QVERIFY(!valid(text + "="));
        QVERIFY(!valid(text + "A"));
        QVERIFY(!valid(text + QByteArray(1, '\0')));
        QVERIFY(!valid("\xff" + text));
        QVERIFY(!valid("\xef\xbb\xbf" + text + "\xc3"));
        QVERIFY(!valid("-----BEGIN SIGNATURE-----\n" + text));
    }

    void onlyTheOneKeyCounts()
    {
        QVERIFY(!Signature::isValid(bytes, KeyPair().sign(bytes), key.publicPem()));
        QVERIFY(!Signature::isValid(bytes, text, UpdateKey::pem()));
        QVERIFY(!Signature::isValid(bytes, text, {}));
        QVERIFY(!Signature::isValid(bytes, text, key.publicPem().replace("PUBLIC", "PRIVATE")));
        const KeyPair otherCurve("secp256k1");
        QVERIFY(!Signature::isValid(bytes, otherCurve.sign(bytes), otherCurve.publicPem()));
    }

    void theBuiltInKeyIsOneOfTheRightKind()
    {
        QCOMPARE(UpdateKey::pem().size(), 177);
        QCOMPARE(UpdateKey::pem().first(27), "-----BEGIN PUBLIC KEY-----\n");
    }

    void digestsAreThoseOfTheCommand()
    {
        Sha256 digest;
        for (const char *piece : {"a", "", "bc"})
            digest.add(piece);
        QCOMPARE(digest.hex(), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    }
};

QTEST_GUILESS_MAIN(SignatureTest)
#include "SignatureTest.moc"
