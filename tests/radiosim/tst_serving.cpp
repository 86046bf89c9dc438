// The virtual radio served the way koral-radio-sim serves it (a pseudo-terminal, a loopback
// TCP port) and the built-in port paced at the baud rate, each driven by the real radio
// library from another thread, as the program drives a radio.

#include "koralapi/KoralApi.h"
#include "radiosim/BuiltInContents.h"
#include "radiosim/BuiltInRadio.h"
#include "radiosim/PtyLine.h"
#include "radiosim/TcpLine.h"
#include "radiosim/VirtualRadio.h"

#include <QElapsedTimer>
#include <QThread>
#include <QtTest>

#include <atomic>

using namespace koral;
using namespace koral::radiosim;

namespace {

// A radio with its line, living in a thread of its own.
class RadioThread
{
public:
    explicit RadioThread(bool tcp)
    {
        m_thread.start();
        m_context.moveToThread(&m_thread);
        QMetaObject::invokeMethod(
            &m_context,
            [this, tcp] {
                if (tcp) {
                    auto* line = new TcpLine;
                    line->listen(0);
                    m_line = line;
                } else {
                    auto* line = new PtyLine;
                    line->open();
                    m_line = line;
                }
                m_radio = new VirtualRadio(m_line);
                m_radio->setBaud(115200, false);
                m_address = m_line->description();
            },
            Qt::BlockingQueuedConnection);
    }
    ~RadioThread()
    {
        QMetaObject::invokeMethod(
            &m_context,
            [this] {
                delete m_radio;
                delete m_line;
            },
            Qt::BlockingQueuedConnection);
        m_thread.quit();
        m_thread.wait();
    }

    QString address() const { return m_address; }
    QString run(const char* line)
    {
        return m_radio->executeFromAnyThread(*parseConsoleLine(line).command);
    }

private:
    QThread m_thread;
    QObject m_context;
    RadioLine* m_line = nullptr;
    VirtualRadio* m_radio = nullptr;
    QString m_address;
};

bool connectEngine(MessageEngine& engine, const QString& address, int baud)
{
    return engine.OpenPortByName(address.toStdString(), baud) && engine.ConnectSocket(baud, 1);
}

CRadioMessage waitFor(MessageEngine& engine, int opcode)
{
    QElapsedTimer clock;
    clock.start();
    CRadioMessage message;
    while (clock.elapsed() < 5000) {
        if (engine.GetMessage(&message, 1) == 1 && message.GetOpcode() == opcode) {
            return message;
        }
    }
    return CRadioMessage{};
}

} // namespace

class ServingTest : public QObject
{
    Q_OBJECT
private slots:
    void servesTheProgram_data()
    {
        QTest::addColumn<bool>("tcp");
        QTest::newRow("pseudo-terminal") << false;
        QTest::newRow("TCP") << true;
    }
    void servesTheProgram()
    {
        QFETCH(bool, tcp);
        RadioThread radio(tcp);
        MessageEngine engine;
        QVERIFY2(connectEngine(engine, radio.address(), 115200), engine.lastError().c_str());

        CRadioMessage query;
        query.prepareRequest();
        ReportRadioSupportMode(&query);
        CRadioMessage answer;
        engine.LockGetMessage();
        QVERIFY(engine.SendRadioMessage(&query));
        QVERIFY(engine.GetMessageWithOpcode(&answer, op::SupportMode));
        QCOMPARE(answer[6], std::uint8_t(1));

        std::vector<std::uint8_t> ale(RadioDatabases::kAleSize);
        QVERIFY(readTarget(&engine, TransferTarget::Ale, ale, 0, {}, {}, 10));
        convertByteOrder(TransferTarget::Ale, ale);
        const auto builtIn = builtInDatabases().ale;
        QVERIFY(std::equal(ale.begin(), ale.end(), builtIn.begin()));

        radio.run("call net NETALPHA \"CHECK IN\"");
        const CRadioMessage call = waitFor(engine, op::IncomingNetCall);
        QCOMPARE(QByteArray(reinterpret_cast<const char*>(call.bytes.data() + 10)),
                 QByteArray("NETALPHA"));
        engine.DisconnectSocket(1);
        engine.CloseComPort();
    }

    // A dropped TCP line closes the connection; the next connection is served again.
    void tcpDropEndsTheConnection()
    {
        RadioThread radio(true);
        MessageEngine engine;
        QVERIFY(connectEngine(engine, radio.address(), 115200));
        radio.run("fault drop-after 600");
        std::vector<std::uint8_t> bytes(RadioDatabases::kRadioSize);
        QVERIFY(!readTarget(&engine, TransferTarget::Radio, bytes, 0, {}, {}, 10));
        engine.CloseComPort();

        MessageEngine again;
        QVERIFY(connectEngine(again, radio.address(), 115200));
        std::array<std::uint8_t, 4> extra{};
        QVERIFY(readTarget(&again, TransferTarget::ExtraOptions, extra, 0, {}, {}, 10));
        QCOMPARE(extra, builtInDatabases().extraOptions);
    }

    // Closing the built-in port unplugs the cable: what was written stays in the radio.
    void builtInRadioKeepsItsMemoryAcrossReopening()
    {
        installBuiltInRadio({false, {}});
        std::array<std::uint8_t, 4> written{0, 7, 1, 1};
        {
            MessageEngine engine;
            QVERIFY(engine.OpenComPort(1, 115200) && engine.ConnectSocket(115200, 1));
            QVERIFY(writeTarget(&engine, TransferTarget::ExtraOptions, written, 0, {}, {}, 10, 4));
            engine.CloseComPort();
        }
        MessageEngine engine;
        QVERIFY(engine.OpenComPort(1, 115200) && engine.ConnectSocket(115200, 1));
        std::array<std::uint8_t, 4> back{};
        QVERIFY(readTarget(&engine, TransferTarget::ExtraOptions, back, 0, {}, {}, 10));
        QCOMPARE(back, written);
        engine.CloseComPort();

        installBuiltInRadio({false, {}}); // a new installation is a new radio
        QVERIFY(engine.OpenComPort(1, 115200) && engine.ConnectSocket(115200, 1));
        QVERIFY(readTarget(&engine, TransferTarget::ExtraOptions, back, 0, {}, {}, 10));
        QCOMPARE(back, builtInDatabases().extraOptions);
        engine.CloseComPort();
    }

    // Programming another baud rate into the radio moves its paced line to that rate.
    void programmedBaudRateTakesEffect()
    {
        std::atomic<VirtualRadio*> radio{nullptr};
        installBuiltInRadio({true, [&radio](VirtualRadio& created) { radio = &created; }});
        MessageEngine engine;
        QVERIFY(engine.OpenComPort(1, 9600) && engine.ConnectSocket(9600, 1));
        std::array<std::uint8_t, 14> options{0, 1, 50, 2, 5, 0, 5, 0, 0, 1, 1, 1, 2, 1};
        QVERIFY(StartRADIOProgramming(&engine));
        QVERIFY(WriteRADIOMemorySection(&engine, options.data(), 4288, int(options.size())));
        QVERIFY(StopRADIOProgramming(&engine));
        const ConsoleCommand status = ShowStatus{};
        QVERIFY(radio.load()->executeFromAnyThread(status).contains("line 4800 baud"));
        engine.CloseComPort();
    }

    // Paced at 9600 baud, reading the radio database takes at least the wire time of its
    // bytes and not much more (the protocol's overhead). Measured, reported, loosely bounded.
    void pacingFollowsTheBaudRate()
    {
        installBuiltInRadio({true, {}});
        MessageEngine engine;
        QVERIFY(engine.OpenComPort(1, 9600) && engine.ConnectSocket(9600, 1));
        std::vector<std::uint8_t> bytes(RadioDatabases::kRadioSize);
        QElapsedTimer clock;
        clock.start();
        QVERIFY(readTarget(&engine, TransferTarget::Radio, bytes, 0, {}, {}, 10));
        const double seconds = clock.nsecsElapsed() / 1e9;
        const double wire = bytes.size() * 10.0 / 9600.0;
        qInfo("radio database at 9600 baud: %.2f s, %.3f x the wire time of its bytes", seconds,
              seconds / wire);
        QVERIFY(seconds >= wire * 0.98);
        QVERIFY(seconds < wire * 2.0);
        engine.CloseComPort();
    }
};

QTEST_GUILESS_MAIN(ServingTest)
#include "tst_serving.moc"
