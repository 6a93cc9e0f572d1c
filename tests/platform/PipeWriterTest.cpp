#include "platform/wayland/PipeWriter.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QTest>

#include <fcntl.h>
#include <unistd.h>

#include <array>

class PipeWriterTest : public QObject {
    Q_OBJECT

    QByteArray bytes; // more than any pipe holds

    struct Reader {
        int end;
        QPointer<PipeWriter> writer;
    };

    Reader reader()
    {
        std::array<int, 2> ends{};
        [&] { QCOMPARE(pipe2(ends.data(), O_CLOEXEC), 0); }();
        fcntl(ends[0], F_SETFL, O_NONBLOCK);
        return {ends[0], new PipeWriter(ends[1], bytes, this)};
    }

    // All that is there at the moment, or so much of it.
    static QByteArray take(const Reader &from, qsizetype most)
    {
        QByteArray got(most, 0);
        got.resize(std::max<qsizetype>(read(from.end, got.data(), static_cast<size_t>(most)), 0));
        return got;
    }

private slots:
    void initTestCase()
    {
        for (int i = 0; i < 5'000'000; ++i)
            bytes.append(static_cast<char>(i % 251));
    }

    void aSlowReaderGetsAllAndNobodyWaitsForIt()
    {
        const auto slow = reader(), fast = reader();
        QByteArray got;
        QTRY_VERIFY(!(got += take(slow, 1000)).isEmpty()); // and no more for the moment
        QByteArray all;
        QTRY_COMPARE((all += take(fast, bytes.size())).size(), bytes.size());
        QCOMPARE(all, bytes);
        QTRY_VERIFY(!fast.writer);
        QVERIFY(slow.writer);
        QTRY_COMPARE((got += take(slow, bytes.size())).size(), bytes.size());
        QCOMPARE(got, bytes);
        QTRY_VERIFY(!slow.writer);
        QCOMPARE(read(slow.end, got.data(), 1), 0); // the end of the file
        close(slow.end);
        close(fast.end);
    }

    void aReaderThatGoesEndsNothingButItsWriter()
    {
        const auto partial = reader(), none = reader();
        close(none.end);
        QByteArray got;
        QTRY_VERIFY(!(got += take(partial, 1000)).isEmpty());
        close(partial.end);
        QTRY_VERIFY(!partial.writer && !none.writer);
    }

    void nothingIsAFileThatEndsAtOnce()
    {
        bytes.clear();
        const auto empty = reader();
        QTRY_VERIFY(!empty.writer);
        char any = 0;
        QCOMPARE(read(empty.end, &any, 1), 0);
        close(empty.end);
    }
};

QTEST_GUILESS_MAIN(PipeWriterTest)
#include "PipeWriterTest.moc"
