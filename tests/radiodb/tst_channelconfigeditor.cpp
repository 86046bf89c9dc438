#include "common/RecordingNotifier.h"
#include "radiodb/ChannelConfigEditor.h"
#include "radiodb/Frequency.h"
#include "support/Table.h"

#include <QtTest>

using namespace koral;
using namespace koral::test;
using Editor = ChannelConfigEditor;

namespace {

Editor::Setup setupWith(quint32 tx, quint32 rx, int number = 1)
{
    Editor::Setup setup;
    channel& ch = setup.channels[std::size_t(number - 1)];
    ch.power = 5;
    ch.sideband = 1;
    ch.txFrequency.set(tx);
    ch.rxFrequency.set(rx);
    setup.firstChannel = number;
    return setup;
}

QString q(const std::string& text)
{
    return QString::fromStdString(text);
}

// Start tx and rx, the edit typed into (or the type switched to), the text typed, the warning,
// whether OK is enabled, and the tx and rx that OK stores.
struct Change
{
    quint32 tx, rx;
    int edit;
    QString typed, warning;
    bool ok = false;
    quint32 storedTx = 0, storedRx = 0;
};

const QString kBothZero = "Tx Frequency and Rx Frequency can't be both zero at the same time.";
const QString kPairEqual = "Transmit frequency should differ from Receive frequency.";
const QString kTxRange = " is out of range. TX frequency range is 1.6 to 30Mhz.";
const QString kRxRange = " is out of range. RX frequency range is 0.1 to 30Mhz.";

// The warning and OK after a change; a refused OK leaves the channel as it was.
void expectOutcome(Editor& editor, const Change& change)
{
    const auto& [tx, rx, edit, typed, warning, ok, storedTx, storedRx] = change;
    QCOMPARE(q(editor.warning()), warning);
    QCOMPARE(editor.isWarningVisible(), !warning.isEmpty());
    QCOMPARE(editor.isOkEnabled(), ok);
    QCOMPARE(editor.accept(), ok);
    QCOMPARE(editor.channels()[0].txFrequency.get(), ok ? storedTx : tx);
    QCOMPARE(editor.channels()[0].rxFrequency.get(), ok ? storedRx : rx);
}

} // namespace

class ChannelConfigEditorTest : public QObject
{
    Q_OBJECT
private slots:
    void displayForm_data()
    {
        columns<quint32, QString>("hertz", "text");
        QTest::newRow("last hertz digit dropped") << 12'345'678u << QString("12.34567");
        QTest::newRow("trailing zeros cut") << 12'500'000u << QString("12.5");
        QTest::newRow("whole MHz loses the point") << 7'000'000u << QString("7");
        QTest::newRow("zero is empty") << 0u << QString("");
        QTest::newRow("below 10 Hz is zero") << 9u << QString("");
        QTest::newRow("10 Hz steps") << 29'999'990u << QString("29.99999");
    }
    void displayForm()
    {
        auto [hertz, text] = fetch<quint32, QString>("hertz", "text");
        QCOMPARE(q(frequencyDisplayText(hertz)), text);
    }

    // Texts the editor's own table does not type (its rows cover five and six decimals and
    // whole megahertz).
    void exactHertz_data()
    {
        columns<QString, quint32>("text", "hertz");
        QTest::newRow("leading point") << QString(".5") << 500'000u;
        QTest::newRow("trailing point") << QString("30.") << 30'000'000u;
    }
    void exactHertz()
    {
        auto [text, hertz] = fetch<QString, quint32>("text", "hertz");
        const std::string typed = text.toStdString();
        QCOMPARE(hertzFromText(std::strtof(typed.c_str(), nullptr), typed), hertz);
    }

    // Typing into the edit of the channel's own type: the warning, OK, and what OK stores.
    void typing_data()
    {
        QTest::addColumn<Change>("change");
        const int txOnly = int(Editor::Edit::TransmitOnly);
        const int simplex = int(Editor::Edit::Simplex);
        const auto row = [](const char* name, const Change& change) {
            QTest::newRow(name) << change;
        };
        row("tx 29.99999 exact", {5'000'000u, 0u, txOnly, "29.99999", "", true, 29'999'990u, 0u});
        row("tx 1.6 accepted", {5'000'000u, 0u, txOnly, "1.6", "", true, 1'600'000u, 0u});
        row("tx 1.59999 refused", {5'000'000u, 0u, txOnly, "1.59999", "1.59999" + kTxRange, false});
        row("tx 30 accepted", {5'000'000u, 0u, txOnly, "30", "", true, 30'000'000u, 0u});
        row("tx 30.1 refused", {5'000'000u, 0u, txOnly, "30.1", "30.1" + kTxRange, false});
        row("rx 0.1 accepted",
            {0u, 5'000'000u, int(Editor::Edit::ReceiveOnly), "0.1", "", true, 0u, 100'000u});
        row("rx 0.09 refused",
            {0u, 5'000'000u, int(Editor::Edit::ReceiveOnly), "0.09", "0.09" + kRxRange, false});
        row("letter", {5'000'000u, 0u, txOnly, "12a", "12a is an invalid frequency"});
        row("empty counts as zero", {5'000'000u, 0u, txOnly, "", kBothZero, true, 0u, 0u});
        row("simplex checked as transmit",
            {7'000'000u, 7'000'000u, simplex, "0.5", "0.5" + kTxRange, false});
        row("simplex sets both",
            {7'000'000u, 7'000'000u, simplex, "8.12345", "", true, 8'123'450u, 8'123'450u});
        row("pair made equal",
            {7'000'000u, 8'000'000u, int(Editor::Edit::HalfDuplexTx), "8", kPairEqual, false});
        row("pair receive keeps typed digits",
            {7'000'000u, 8'000'000u, int(Editor::Edit::HalfDuplexRx), "9.123456", "", true,
             7'000'000u, 9'123'450u});
    }
    void typing()
    {
        QFETCH(Change, change);
        const auto& [tx, rx, edit, typed, warning, ok, storedTx, storedRx] = change;
        Editor editor(setupWith(tx, rx));
        QVERIFY(editor.isVisible(Editor::Edit(edit)));
        editor.setText(Editor::Edit(edit), typed.toStdString());
        QCOMPARE(q(editor.text(Editor::Edit(edit))), typed);
        expectOutcome(editor, change);
    }

    void switchingType_data()
    {
        QTest::addColumn<Change>("change");
        using Type = Editor::FrequencyType;
        const auto row = [](const char* name, const Change& change) {
            QTest::newRow(name) << change;
        };
        row("empty to half duplex", {0u, 0u, int(Type::HalfDuplex), "", kBothZero, true, 0u, 0u});
        row("simplex to half duplex is an equal pair",
            {7'000'000u, 7'000'000u, int(Type::HalfDuplex), "", kPairEqual, false});
        row("half duplex to transmit only drops receive",
            {2'000'000u, 3'000'000u, int(Type::TransmitOnly), "", "", true, 2'000'000u, 0u});
        row("half duplex to receive only drops transmit",
            {2'000'000u, 3'000'000u, int(Type::ReceiveOnly), "", "", true, 0u, 3'000'000u});
        row("half duplex to simplex takes receive",
            {2'000'000u, 3'000'000u, int(Type::Simplex), "", "", true, 3'000'000u, 3'000'000u});
        row("receive-only 0.5 cannot become simplex",
            {0u, 500'000u, int(Type::Simplex), "", "0.5" + kTxRange, false});
    }
    void switchingType()
    {
        QFETCH(Change, change);
        Editor editor(setupWith(change.tx, change.rx));
        editor.setFrequencyType(Editor::FrequencyType(change.edit));
        expectOutcome(editor, change);
    }

    // The type a loaded channel shows, its edits, and OK storing it to 10 Hz.
    void loadingDerivesTheType_data()
    {
        using Type = Editor::FrequencyType;
        using Edit = Editor::Edit;
        columns<quint32, quint32, int, QList<int>, QString>("tx", "rx", "type", "visible",
                                                            "warning");
        QTest::newRow("empty") << 0u << 0u << int(Type::Simplex) << QList<int>{int(Edit::Simplex)}
                               << kBothZero;
        QTest::newRow("simplex") << 7'000'000u << 7'000'000u << int(Type::Simplex)
                                 << QList<int>{int(Edit::Simplex)} << QString();
        QTest::newRow("equal once the last digit is dropped")
            << 7'000'001u << 7'000'009u << int(Type::Simplex) << QList<int>{int(Edit::Simplex)}
            << QString();
        QTest::newRow("receive only") << 0u << 3'000'000u << int(Type::ReceiveOnly)
                                      << QList<int>{int(Edit::ReceiveOnly)} << QString();
        QTest::newRow("half duplex")
            << 2'000'000u << 3'000'000u << int(Type::HalfDuplex)
            << QList<int>{int(Edit::HalfDuplexTx), int(Edit::HalfDuplexRx)} << QString();
        QTest::newRow("transmit only") << 2'000'000u << 0u << int(Type::TransmitOnly)
                                       << QList<int>{int(Edit::TransmitOnly)} << QString();
    }
    void loadingDerivesTheType()
    {
        auto [tx, rx, type, visible, warning] = fetch<quint32, quint32, int, QList<int>, QString>(
            "tx", "rx", "type", "visible", "warning");
        Editor editor(setupWith(tx, rx));
        QCOMPARE(int(editor.frequencyType()), type);
        QList<int> shown;
        for (int edit = 0; edit < 5; ++edit) {
            if (editor.isVisible(Editor::Edit(edit)))
                shown << edit;
        }
        QCOMPARE(shown, visible);
        QCOMPARE(q(editor.warning()), warning);
        QVERIFY(editor.accept());
        QCOMPARE(editor.channels()[0].txFrequency.get(), tx - tx % 10);
        QCOMPARE(editor.channels()[0].rxFrequency.get(), rx - rx % 10);
    }

    // Moving to another channel stores the one shown, CCIR number included, and shows the next.
    void changingChannelStoresTheCurrentOne()
    {
        Editor::Setup setup = setupWith(5'000'000u, 0u, 3);
        setup.channels[3].txFrequency.set(9'000'000u);
        setup.channels[3].rxFrequency.set(9'000'000u);
        setup.ccirNumbers = CcirChannelNumbers{};
        (*setup.ccirNumbers)[3] = 42;
        Editor editor(setup);
        int notified = 0;
        editor.setOnChanged([&notified] { ++notified; });
        QVERIFY(editor.hasCcirNumbers());
        QCOMPARE(editor.ccirNumber(), 0);
        editor.setCcirNumber(900);
        QCOMPARE(editor.ccirNumber(), 500);
        editor.setText(Editor::Edit::TransmitOnly, "6.5");
        editor.select(Editor::List::Power, 0);  // "Low"
        editor.select(Editor::List::Power, -1); // a list with nothing chosen: nothing changes
        editor.select(Editor::List::Power, 4);
        editor.setChannelNumber(4);
        QCOMPARE(editor.channelNumber(), 4);
        QCOMPARE(q(editor.text(Editor::Edit::Simplex)), QString("9"));
        QCOMPARE(editor.ccirNumber(), 42);
        QCOMPARE(editor.channels()[2].txFrequency.get(), 6'500'000u);
        QCOMPARE(int(editor.channels()[2].power), 2);
        QCOMPARE((*editor.ccirNumbers())[2], std::uint16_t(500));
        QCOMPARE(notified, 4); // the CCIR number, the text, the power, the move
        editor.setChannelNumber(0);
        QCOMPARE(editor.channelNumber(), 1);
        editor.setChannelNumber(999);
        QCOMPARE(editor.channelNumber(), 200);

        Editor without(setupWith(7'000'000u, 7'000'000u));
        without.setCcirNumber(5);
        QVERIFY(!without.hasCcirNumbers());
        QCOMPARE(without.ccirNumber(), 0);
    }

    void modeListOffersIsbOnlyWhenTheRadioDoes()
    {
        for (const bool isb : {true, false}) {
            Editor::Setup setup = setupWith(7'000'000u, 7'000'000u);
            setup.channels[0].modulation = 3;
            setup.isbOffered = isb;
            Editor editor(setup);
            QCOMPARE(int(editor.entries(Editor::List::Mode).size()), isb ? 4 : 3);
            QCOMPARE(editor.selectedIndex(Editor::List::Mode), isb ? 3 : -1);
        }
    }

    void overLongTextShowsItsLength()
    {
        RecordingNotifier notifier;
        Editor::Setup setup = setupWith(5'000'000u, 0u);
        setup.notifier = &notifier;
        Editor editor(setup);
        editor.setText(Editor::Edit::TransmitOnly, "12.3456789");
        QCOMPARE(notifier.texts(), std::vector<std::string>{"iLength = 10"});
        QCOMPARE(q(editor.warning()), QString());
    }
};

QTEST_GUILESS_MAIN(ChannelConfigEditorTest)
#include "tst_channelconfigeditor.moc"
