#include "AleTestSupport.h"

#include "aledb/AleText.h"
#include "aledb/AutoDialEditor.h"
#include "aledb/MessageEditor.h"

#include <QtTest>

using namespace koral;
using namespace koral::test;

class MessageEditorsTest : public QObject
{
    Q_OBJECT
private slots:
    void messageValidation_data()
    {
        columns<QString, bool>("typed", "valid");
        QTest::newRow("upper case and digits") << "QRV 14 MHZ" << true;
        QTest::newRow("punctuation up to the underscore") << "A!?_@[]^" << true;
        QTest::newRow("empty") << "" << true;
        QTest::newRow("backquote") << "`" << false;
        QTest::newRow("tab") << "A\tB" << false;
    }
    void messageValidation()
    {
        auto [typed, valid] = fetch<QString, bool>("typed", "valid");
        AleProgramme p = emptyProgramme();
        setMessage(p, 2, "OLD");
        MessageEditor editor(p.database);
        editor.setCurrent(2);
        editor.setText(typed.toStdString());
        QCOMPARE(editor.okEnabled(), valid);
        QCOMPARE(editor.spinEnabled(), valid);
        QCOMPARE(editor.warningVisible(), !valid);
        const std::string stored(fieldText(editor.database().messages[2]));
        QCOMPARE(QString::fromStdString(stored), valid ? typed : QString("OLD"));
        QCOMPARE(editor.occupiedCount(), valid && typed.isEmpty() ? 0 : 1);
        editor.setText("FIXED"); // a valid text enables OK again and is stored
        QVERIFY(editor.okEnabled());
        QCOMPARE(std::string(fieldText(editor.database().messages[2])), std::string("FIXED"));
    }

    void spinClampsAndShowsTheMessage()
    {
        AleProgramme p = emptyProgramme();
        setMessage(p, 0, "FIRST");
        setMessage(p, 9, "LAST");
        setMessage(p, 4, "MID");
        MessageEditor editor(p.database);
        QVERIFY(editor.okEnabled()); // a stored message needs no fixing before OK
        QCOMPARE(editor.text(), std::string("FIRST"));
        QCOMPARE(editor.occupiedCount(), 3);
        editor.setCurrent(12);
        QCOMPARE(editor.current(), 9);
        QCOMPARE(editor.text(), std::string("LAST"));
        editor.setCurrent(-3);
        QCOMPARE(editor.text(), std::string("FIRST"));
    }

    void dialSelections_data()
    {
        columns<int, int, int, int>("address", "message", "addressPosition", "messagePosition");
        QTest::newRow("none") << 255 << 255 << 2 << 1;
        QTest::newRow("first entries") << 0 << 1 << 0 << 0;
        QTest::newRow("entry after a gap") << 2 << 1 << 1 << 0;
        QTest::newRow("an empty entry shows as empty") << 1 << 0 << 2 << 1;
    }
    void dialSelections()
    {
        auto [address, message, addressPosition, messagePosition] =
            fetch<int, int, int, int>("address", "message", "addressPosition", "messagePosition");
        AleProgramme p = emptyProgramme();
        setDirectory(p, 0, "ALPHA");
        setDirectory(p, 2, "CHARLIE");
        setMessage(p, 1, "HELLO");
        p.database.autoDials[4] = {std::uint8_t(address), std::uint8_t(message)};
        AutoDialEditor editor(p.database);
        QCOMPARE(editor.addressItems(),
                 (std::vector<std::string>{"ALPHA", "CHARLIE", "*EMPTY ADDRESS*"}));
        QCOMPARE(editor.messageItems(), (std::vector<std::string>{"HELLO", "*EMPTY MESSAGE*"}));
        QCOMPARE(editor.addressSelection(4), addressPosition);
        QCOMPARE(editor.messageSelection(4), messagePosition);
    }

    void dialChoicesStoreTheChosenEntry_data()
    {
        columns<int, int>("position", "stored");
        QTest::newRow("after the gap") << 1 << 2;
        QTest::newRow("empty item") << 2 << 255;
        QTest::newRow("outside the list") << 7 << 255;
    }
    void dialChoicesStoreTheChosenEntry()
    {
        auto [position, stored] = fetch<int, int>("position", "stored");
        AleProgramme p = emptyProgramme();
        setDirectory(p, 0, "ALPHA");
        setDirectory(p, 2, "CHARLIE");
        AutoDialEditor editor(p.database);
        editor.chooseAddress(9, position);
        QCOMPARE(int(editor.database().autoDials[9].address), stored);
        QCOMPARE(editor.addressSelection(9), std::min(position, 2));
        editor.chooseMessage(9, 0); // no message: the only item is the empty one
        QCOMPARE(editor.database().autoDials[9].message, kSlotEmpty);
    }
};

QTEST_GUILESS_MAIN(MessageEditorsTest)
#include "tst_messageeditors.moc"
