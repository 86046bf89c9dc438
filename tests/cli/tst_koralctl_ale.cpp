#include "support/KoralctlRunner.h"

#include <QtTest>

using namespace koral;

namespace {

using Outcome = test::KoralctlOutcome;

Outcome koralctl(const QStringList& arguments)
{
    return test::runKoralctl(arguments);
}

using Changes = QList<QPair<QByteArray, QByteArray>>;

const QString kRadio = QStringLiteral(KORAL_EXAMPLES_DIR "/radio.rss");
const QString kProgramme = QStringLiteral(KORAL_EXAMPLES_DIR "/radio.ale");

QByteArray readAll(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class KoralctlAleTest : public QObject
{
    Q_OBJECT
private:
    QTemporaryDir m_dir;
    QString path(const QString& name) const { return m_dir.filePath(name); }
    QString edited(const QString& name, const Changes& changes)
    {
        QByteArray text = readAll(kProgramme);
        for (const auto& [from, to] : changes)
            text.replace(from, to);
        QFile file(path(name));
        file.open(QIODevice::WriteOnly);
        file.write(text);
        return path(name);
    }

private slots:
    void normalizeKeepsTheExampleAsItIs()
    {
        const Outcome outcome = koralctl({"normalize", kProgramme, path("out.ale")});
        QCOMPARE(outcome.exitCode, 0);
        QCOMPARE(readAll(path("out.ale")), readAll(kProgramme));
    }

    void normalizeRepairsAndKeepsTheIdentity()
    {
        const QString in = edited("old.ale", {{"ZOV_Version=2.01", "ZOV_Version=1.00"},
                                              {"Scan_Rate=5 Ch/Sec", "Scan_Rate=3 Ch/Sec"},
                                              {"Address No. 3=PORTA", "Address No. 3=PORT-A"}});
        QCOMPARE(koralctl({"normalize", in, path("new.ale")}).exitCode, 0);
        const QByteArray out = readAll(path("new.ale"));
        QVERIFY(out.contains("ZOV_Version=2.01\r\n"));
        QVERIFY(out.contains("Serial_Number=KR2E004417\r\n"));
        QVERIFY(!out.contains("Scan_Rate=5 Ch/Sec") && !out.contains("Scan_Rate=3"));
        QVERIFY(out.contains("Address No. 3=PORTA\r\n"));
    }

    void normalizeCanLeaveGlobalMembersOut()
    {
        QCOMPARE(
            koralctl({"normalize", kProgramme, path("plain.ale"), "--no-global-members"}).exitCode,
            0);
        const QByteArray out = readAll(path("plain.ale"));
        QVERIFY(!out.contains("Global Member"));
        QVERIFY(out.contains("Member No. 1=NCBASE1"));
    }

    void check_data()
    {
        QTest::addColumn<Changes>("changes");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QStringList>("lines");
        QTest::newRow("example") << Changes{} << 0 << QStringList{};
        QTest::newRow("radio lines before ALE lines")
            << Changes{{"Scanned Channels=20,22", "Scanned Channels=20,22,40"},
                       {"Self Address=NCCOAST", "Self Address=PORTA"}}
            << 1
            << QStringList{"Channel 40 is scanned channel in net no. 3 but not programmed.",
                           "Net no. 2 Self Address ('PORTA') defined in the Directory"};
        QTest::newRow("name equal to a self address")
            << Changes{{"Net Name=EMERG", "Net Name=NCHQ"}} << 1
            << QStringList{"Net no. 5 Self Address ('NCHQ') defined as Net no. 1 Net Name"};
    }
    void check()
    {
        QFETCH(Changes, changes);
        QFETCH(int, exitCode);
        QFETCH(QStringList, lines);
        const Outcome outcome = koralctl({"check", kRadio, edited("check.ale", changes)});
        QCOMPARE(outcome.outLines(), lines);
        QCOMPARE(outcome.exitCode, exitCode);
    }

    void checkRefusesAnotherKindOfProgramme()
    {
        const Outcome outcome = koralctl({"check", kRadio, kRadio});
        QCOMPARE(outcome.exitCode, 2);
        QVERIFY(outcome.err.contains("expected .ale"));
    }
};

QTEST_GUILESS_MAIN(KoralctlAleTest)
#include "tst_koralctl_ale.moc"
