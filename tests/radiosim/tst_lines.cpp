#include "radiosim/PtyLine.h"
#include "radiosim/TcpLine.h"

#include <QSignalSpy>
#include <QTcpSocket>
#include <QtTest>

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

using namespace koral::radiosim;

class LinesTest : public QObject
{
    Q_OBJECT
private slots:
    // The program opens the terminal path like a serial device; bytes cross both ways
    // unchanged (raw mode: no echo, no line editing, no CR/LF translation).
    void ptyCarriesBytesBothWays()
    {
        PtyLine line;
        QVERIFY2(line.open(), qPrintable(line.errorString()));
        QVERIFY(line.path().startsWith("/dev/"));
        const int fd = ::open(line.path().toLocal8Bit().constData(), O_RDWR | O_NOCTTY);
        QVERIFY(fd >= 0);
        termios raw{};
        ::tcgetattr(fd, &raw);
        ::cfmakeraw(&raw);
        ::tcsetattr(fd, TCSANOW, &raw);

        QSignalSpy received(&line, &RadioLine::received);
        const QByteArray toRadio("\x7E\x01\r\n\x03\x00\xFF", 7);
        QCOMPARE(::write(fd, toRadio.constData(), toRadio.size()), ssize_t(toRadio.size()));
        QByteArray got;
        QTRY_VERIFY_WITH_TIMEOUT((got = joined(received)).size() >= toRadio.size(), 5000);
        QCOMPARE(got, toRadio);

        line.write(QByteArray("\x11\r\x13\n", 4));
        ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) | O_NONBLOCK);
        QByteArray back;
        QTRY_COMPARE_WITH_TIMEOUT(back += readSome(fd), QByteArray("\x11\r\x13\n", 4), 5000);
        ::close(fd);

        // The program may close and reopen the device: the line stays.
        const int again = ::open(line.path().toLocal8Bit().constData(), O_RDWR | O_NOCTTY);
        QVERIFY(again >= 0);
        QCOMPARE(::write(again, "x", 1), ssize_t(1));
        QTRY_VERIFY_WITH_TIMEOUT(joined(received).endsWith('x'), 5000);
        ::close(again);
    }

    void tcpServesOneClientAtATime()
    {
        TcpLine line;
        QVERIFY2(line.listen(0), qPrintable(line.errorString()));
        QSignalSpy peers(&line, &RadioLine::peerChanged);
        QSignalSpy received(&line, &RadioLine::received);

        QTcpSocket first;
        first.connectToHost(QHostAddress::LocalHost, line.port());
        QVERIFY(first.waitForConnected(5000));
        QTRY_COMPARE_WITH_TIMEOUT(peers.size(), 1, 5000);

        QTcpSocket second;
        second.connectToHost(QHostAddress::LocalHost, line.port());
        QTRY_VERIFY_WITH_TIMEOUT(second.state() == QAbstractSocket::UnconnectedState, 5000);
        QCOMPARE(peers.size(), 1);

        first.write("ping");
        QTRY_COMPARE_WITH_TIMEOUT(joined(received), QByteArray("ping"), 5000);
        line.write("pong");
        QByteArray answer;
        QTRY_COMPARE_WITH_TIMEOUT(answer += first.readAll(), QByteArray("pong"), 5000);

        // Dropping the line closes the connection; the next program is served.
        line.hangUp();
        QTRY_VERIFY_WITH_TIMEOUT(first.state() == QAbstractSocket::UnconnectedState, 5000);
        QTcpSocket third;
        third.connectToHost(QHostAddress::LocalHost, line.port());
        QVERIFY(third.waitForConnected(5000));
        QTRY_COMPARE_WITH_TIMEOUT(peers.size(), 2, 5000);
    }

private:
    static QByteArray joined(const QSignalSpy& spy)
    {
        QByteArray all;
        for (const auto& args : spy) {
            all += args.at(0).toByteArray();
        }
        return all;
    }

    static QByteArray readSome(int fd)
    {
        char buffer[8];
        const ssize_t n = ::read(fd, buffer, sizeof buffer);
        return n > 0 ? QByteArray(buffer, int(n)) : QByteArray();
    }
};

QTEST_GUILESS_MAIN(LinesTest)
#include "tst_lines.moc"
