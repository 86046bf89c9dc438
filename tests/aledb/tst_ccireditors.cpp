#include "aledb/CcirDirectoryEditor.h"
#include "aledb/CcirIdentity.h"
#include "aledb/CcirSelfAddressEditor.h"

#include <QtTest>

using namespace koral;

// Identities typed with their digits counted, the warning that holds OK while a self
// address is not one, and the directory's ADD and DELETE that keep the other slots in place.
class CcirEditorsTest : public QObject
{
    Q_OBJECT
private slots:
    void selfAddress_data()
    {
        QTest::addColumn<QString>("typed4");
        QTest::addColumn<QString>("typed6");
        QTest::addColumn<int>("stored4");
        QTest::addColumn<int>("stored6");
        QTest::addColumn<bool>("ok");
        QTest::newRow("both valid, leading zeros") << "0042"
                                                   << "000123" << 42 << 123 << true;
        QTest::newRow("4 digits too short") << "42"
                                            << "402117" << 4117 << 402117 << false;
        QTest::newRow("6 digits with a letter") << "4117"
                                                << "40211A" << 4117 << 402117 << false;
        QTest::newRow("all zeros") << "0000"
                                   << "402117" << 4117 << 402117 << false;
    }
    void selfAddress()
    {
        QFETCH(QString, typed4);
        QFETCH(QString, typed6);
        QFETCH(int, stored4);
        QFETCH(int, stored6);
        QFETCH(bool, ok);
        ccir_dbase record{};
        record.selfId4.set(4117);
        record.selfId6.set(402117);
        CcirSelfAddressEditor editor(record);
        QCOMPARE(editor.text4(), std::string("4117"));
        editor.setText4(typed4.toStdString());
        editor.setText6(typed6.toStdString());
        QCOMPARE(int(editor.record().selfId4.get()), stored4);
        QCOMPARE(int(editor.record().selfId6.get()), stored6);
        QCOMPARE(editor.okEnabled(), ok);
        QCOMPARE(editor.warning().empty(), ok);
    }

    void directory_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("status");
        QTest::addColumn<bool>("add");
        QTest::addColumn<bool>("remove");
        QTest::newRow("new 6-digit identity") << "402118"
                                              << "" << true << false;
        QTest::newRow("new 4-digit identity") << "0042"
                                              << "" << true << false;
        QTest::newRow("five digits") << "40211"
                                     << "'40211' is an invalid address." << false << false;
        QTest::newRow("known identity") << "1001"
                                        << "1001 is in the Directory." << false << true;
    }
    void directory()
    {
        QFETCH(QString, typed);
        QFETCH(QString, status);
        QFETCH(bool, add);
        QFETCH(bool, remove);
        ccir_dbase record{};
        record.directory[0].set(401000);
        record.directory[2].set(1001);
        CcirDirectoryEditor editor(record);
        editor.setEditText(typed.toStdString());
        QCOMPARE(QString::fromStdString(editor.statusText()), status);
        QCOMPARE(editor.addEnabled(), add);
        QCOMPARE(editor.deleteEnabled(), remove);
        if (add) {
            QVERIFY(editor.add());
            // The first free slot takes it; the others stay where they were.
            QCOMPARE(QString::fromStdString(ccir::identityText(editor.record().directory[1].get())),
                     typed);
            QCOMPARE(editor.record().directory[2].get(), 1001u);
            QCOMPARE(QString::fromStdString(editor.listLines().at(1)), "01  " + typed);
            editor.selectEntry(2);
            QVERIFY(editor.editText() == "1001" && editor.deleteEnabled());
        }
        if (remove) {
            QVERIFY(editor.remove());
            QCOMPARE(editor.record().directory[2].get(), 0u);
            QCOMPARE(editor.record().directory[0].get(), 401000u);
        }
    }

    void fullDirectoryTakesNoMore()
    {
        ccir_dbase record{};
        for (int slot = 0; slot < kCcirDirectorySize; ++slot)
            record.directory[std::size_t(slot)].set(std::uint32_t(100000 + slot));
        CcirDirectoryEditor editor(record);
        editor.setEditText("999999");
        QCOMPARE(editor.statusText(),
                 std::string("The Directory is full; cannot add new address."));
        QVERIFY(!editor.add());
    }
};

QTEST_GUILESS_MAIN(CcirEditorsTest)
#include "tst_ccireditors.moc"
