#include "radiosim/PtyLine.h"
#include "radiosim/TcpLine.h"

#include <QSignalSpy>
#include <QTcpSocket>
#include <QtTest>

#include <fcntl.h>
#include <unistd.h>

using namespace koral::radiosim;

class LinesTest : public QObject
{
    Q_OBJECT
private slots:
    // The program opens the terminal path like a serial device, and may close and reopen it:
    // the line stays. (That bytes cross unchanged both ways, the link suite shows: it moves
    // whole databases over a pseudo-terminal and TCP.)
    void ptyOutlivesTheProgramClosingIt()
    {
        PtyLine line;
        QVERIFY2(line.open(), qPrintable(line.errorString()));
        QVERIFY(line.path().startsWith("/dev/"));
        QSignalSpy received(&line, &RadioLine::received);
        for (const char* text : {"a", "b"}) {
            const int fd = ::open(line.path().toLocal8Bit().constData(), O_RDWR | O_NOCTTY);
            QVERIFY(fd >= 0);
            QCOMPARE(::write(fd, text, 1), ssize_t(1));
            QTRY_VERIFY_WITH_TIMEOUT(
                !received.isEmpty() && received.last().at(0).toByteArray().endsWith(text), 5000);
            ::close(fd);
        }
    }

    void tcpServesOneClientAtATime()
    {
        TcpLine line;
        QVERIFY2(line.listen(0), qPrintable(line.errorString()));
        QSignalSpy peers(&line, &RadioLine::peerChanged);

        QTcpSocket first;
        first.connectToHost(QHostAddress::LocalHost, line.port());
        QVERIFY(first.waitForConnected(5000));
        QTRY_COMPARE_WITH_TIMEOUT(peers.size(), 1, 5000);

        QTcpSocket second;
        second.connectToHost(QHostAddress::LocalHost, line.port());
        QTRY_VERIFY_WITH_TIMEOUT(second.state() == QAbstractSocket::UnconnectedState, 5000);
        QCOMPARE(peers.size(), 1);

        // Dropping the line closes the connection; the next program is served.
        line.hangUp();
        QTRY_VERIFY_WITH_TIMEOUT(first.state() == QAbstractSocket::UnconnectedState, 5000);
        QTcpSocket third;
        third.connectToHost(QHostAddress::LocalHost, line.port());
        QVERIFY(third.waitForConnected(5000));
        QTRY_COMPARE_WITH_TIMEOUT(peers.size(), 2, 5000);
    }
};

QTEST_GUILESS_MAIN(LinesTest)
#include "tst_lines.moc"
