#include "aledb/CcirDirectoryEditor.h"
#include "aledb/CcirIdentity.h"
#include "aledb/CcirMessagesEditor.h"
#include "aledb/CcirSelfAddressEditor.h"

#include "ProfileTestFiles.h"

#include <QtTest>

#include <cstring>

using namespace koral;
using namespace koral::test;

// Identities typed with their digits counted, the warning that holds OK while a self
// address is not one, the directory's ADD and DELETE that keep the other slots in place, and
// the messages and settings held to what the radio can send.
class CcirEditorsTest : public QObject
{
    Q_OBJECT
private slots:
    void selfAddress_data()
    {
        test::columns<QString, QString, int, int, bool>("typed4", "typed6", "stored4", "stored6",
                                                        "ok");
        const auto row = [](const char* name, const char* typed4, const char* typed6, int stored4,
                            int stored6, bool ok) {
            QTest::newRow(name) << QString(typed4) << QString(typed6) << stored4 << stored6 << ok;
        };
        row("both valid, leading zeros", "0042", "000123", 42, 123, true);
        row("4 digits too short", "42", "402117", 4117, 402117, false);
        row("6 digits with a letter", "4117", "40211A", 4117, 402117, false);
        row("all zeros", "0000", "402117", 4117, 402117, false);
    }
    void selfAddress()
    {
        auto [typed4, typed6, stored4, stored6, ok] = test::fetch<QString, QString, int, int, bool>(
            "typed4", "typed6", "stored4", "stored6", "ok");
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
        test::columns<QString, QString, bool, bool, bool>("typed", "status", "add", "remove",
                                                          "full");
        const auto row = [](const char* name, const char* typed, const char* status, bool add,
                            bool remove, bool full = false) {
            QTest::newRow(name) << QString(typed) << QString(status) << add << remove << full;
        };
        row("new 6-digit identity", "402118", "", true, false);
        row("new 4-digit identity", "0042", "", true, false);
        row("five digits", "40211", "'40211' is an invalid address.", false, false);
        row("known identity", "1001", "1001 is in the Directory.", false, true);
        row("full directory", "999999", "The Directory is full; cannot add new address.", false,
            false, true);
    }
    void directory()
    {
        auto [typed, status, add, remove, full] = test::fetch<QString, QString, bool, bool, bool>(
            "typed", "status", "add", "remove", "full");
        ccir_dbase record{};
        for (int slot = 0; full && slot < kCcirDirectorySize; ++slot)
            record.directory[std::size_t(slot)].set(std::uint32_t(100000 + slot));
        record.directory[0].set(401000);
        record.directory[2].set(1001);
        CcirDirectoryEditor editor(record);
        editor.setEditText(typed.toStdString());
        QCOMPARE(QString::fromStdString(editor.statusText()), status);
        QCOMPARE(editor.addEnabled(), add);
        QCOMPARE(editor.deleteEnabled(), remove);
        QCOMPARE(editor.add(), add);
        if (add) {
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

    void messagesAndSettings_data()
    {
        // field: 1 and 2 are the messages, 3 to 5 preamble, beacon and alarm.
        test::columns<int, QString, QString, QString>("field", "typed", "stored", "warning");
        const auto row = [](const char* name, int field, const QString& typed,
                            const QString& stored, const QString& warning) {
            QTest::newRow(name) << field << typed << stored << warning;
        };
        const QString full(32, 'Z');
        const QString useCapitals = ", which the radio cannot send: use capitals, digits, the "
                                    "blank and punctuation.";
        row("message of 32 capitals, digits, punctuation", 1, "QRU 1800, ALL _?",
            "QRU 1800, ALL _?", "");
        row("message of 32", 2, full, full, "");
        row("message of 33", 1, full + "Z", "QRU NIL",
            "Message 1 has 33 characters: at most 32 fit.");
        row("lower case", 2, "Returning", "RETURNING TO PORT", "Message 2 holds 'e'" + useCapitals);
        row("tab", 1, "QRU\tNIL", "QRU NIL", "Message 1 holds character code 9" + useCapitals);
        row("empty message", 2, "", "", "");
        row("preamble 0", 3, "0", "0", "");
        row("preamble 99", 3, "99", "99", "");
        row("preamble 100", 3, "100", "6", "Preamble must be a number from 0 to 99, not '100'.");
        row("preamble empty", 3, "", "6", "Preamble must be a number from 0 to 99, not ''.");
        row("beacon 2", 4, "2", "0", "Beacon must be a number from 0 to 1, not '2'.");
        row("alarm off", 5, "0", "0", "");
        row("alarm negative", 5, "-1", "1", "Alarm must be a number from 0 to 1, not '-1'.");
    }
    void messagesAndSettings()
    {
        auto [field, typed, stored, warning] =
            test::fetch<int, QString, QString, QString>("field", "typed", "stored", "warning");
        ccir_dbase record{};
        std::memcpy(record.message1.data(), "QRU NIL", 7);
        std::memcpy(record.message2.data(), "RETURNING TO PORT", 17);
        record.preamble = 6;
        record.alarm = 1;
        CcirMessagesEditor editor(record);
        QVERIFY(editor.okEnabled());
        using Setting = CcirMessagesEditor::Setting;
        const auto setting = Setting(field - 3);
        if (field <= 2)
            editor.setMessage(field, typed.toStdString());
        else
            editor.setSettingText(setting, typed.toStdString());
        QCOMPARE(QString::fromStdString(editor.warning()), warning);
        QCOMPARE(editor.okEnabled(), warning.isEmpty());
        const ccir_dbase& after = editor.record();
        const std::uint8_t settings[] = {after.preamble, after.beacon, after.alarm};
        QCOMPARE(field == 1   ? QString(after.message1.data())
                 : field == 2 ? QString(after.message2.data())
                              : QString::number(settings[field - 3]),
                 stored);
        // The other message stays as it was, byte for byte.
        QCOMPARE(field == 1 ? after.message2 : after.message1,
                 field == 1 ? record.message2 : record.message1);
    }

    void messageTheRadioCannotSendIsShownAtOnce()
    {
        ccir_dbase record{};
        std::memcpy(record.message1.data(), "qru", 3);
        record.preamble = 120;
        CcirMessagesEditor editor(record);
        QVERIFY(!editor.okEnabled());
        QCOMPARE(editor.message(1), std::string("qru"));
        QCOMPARE(editor.settingText(CcirMessagesEditor::Setting::Preamble), std::string("120"));
        editor.setMessage(1, "QRU");
        QCOMPARE(editor.warning(),
                 std::string("Preamble must be a number from 0 to 99, not '120'."));
    }
};

QTEST_GUILESS_MAIN(CcirEditorsTest)
#include "tst_ccireditors.moc"
