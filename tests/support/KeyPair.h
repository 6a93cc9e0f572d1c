#pragma once

#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

// Makes and uses a key pair of the test's own with the openssl command.
class KeyPair {
public:
    explicit KeyPair(const QString &curve = "prime256v1")
    {
        openssl({"ecparam", "-name", curve, "-genkey", "-noout", "-out", privateKey()});
        m_public = openssl({"pkey", "-in", privateKey(), "-pubout"});
    }

    [[nodiscard]] QByteArray publicPem() const { return m_public; }

    // Returns a signature in the form that the command writes.
    [[nodiscard]] QByteArray der(const QByteArray &bytes) const
    {
        return openssl({"dgst", "-sha256", "-sign", privateKey()}, bytes);
    }

    // Returns a signature as r and s, each as wide as the curve's numbers.
    [[nodiscard]] QByteArray raw(const QByteArray &bytes, int width = 32) const
    {
        const QByteArray signature = der(bytes);
        const auto number = [&](qsizetype at) { return signature.mid(at + 2, signature.at(at + 1)); };
        const QByteArray r = number(2);
        const QByteArray s = number(4 + r.size());
        return r.rightJustified(width + 1, '\0').last(width) + s.rightJustified(width + 1, '\0').last(width);
    }

    // Returns a self-signed certificate for this machine as a web server.
    [[nodiscard]] QByteArray certificatePem() const
    {
        return openssl({"req", "-x509", "-key", privateKey(), "-subj", "/CN=127.0.0.1", "-addext",
                        "subjectAltName=IP:127.0.0.1"});
    }

    [[nodiscard]] QByteArray privatePem() const { return openssl({"pkey", "-in", privateKey()}); }

    [[nodiscard]] QByteArray sign(const QByteArray &bytes) const { return raw(bytes).toBase64(); }

private:
    [[nodiscard]] QString privateKey() const { return m_folder.filePath("private.pem"); }

    static QByteArray openssl(const QStringList &arguments, const QByteArray &input = {})
    {
        QProcess process;
        process.start("openssl", arguments);
        process.write(input);
        process.closeWriteChannel();
        if (!process.waitForFinished() || process.exitCode() != 0)
            qFatal("openssl: %s", process.readAllStandardError().constData());
        return process.readAllStandardOutput();
    }

    QTemporaryDir m_folder;
    QByteArray m_public;
};
