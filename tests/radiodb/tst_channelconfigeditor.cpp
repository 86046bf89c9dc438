#include "common/RecordingNotifier.h"
#include "radiodb/ChannelConfigEditor.h"
#include "radiodb/Frequency.h"

#include <QtTest>

using namespace koral;
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

} // namespace

class ChannelConfigEditorTest : public QObject
{
    Q_OBJECT
private slots:
    void displayForm_data()
    {
        const auto row = [](const char* name, quint32 hertz, const char* text) {
            QTest::newRow(name) << hertz << QString(text);
        };
        QTest::addColumn<quint32>("hertz");
        QTest::addColumn<QString>("text");
        row("last hertz digit dropped", 12'345'678u, "12.34567");
        row("trailing zeros cut", 12'500'000u, "12.5");
        row("whole MHz loses the point", 7'000'000u, "7");
        row("zero is empty", 0u, "");
        row("below 10 Hz is zero", 9u, "");
        row("lowest receive", 100'000u, "0.1");
        row("highest", 30'000'000u, "30");
        row("10 Hz steps", 29'999'990u, "29.99999");
    }
    void displayForm()
    {
        QFETCH(quint32, hertz);
        QFETCH(QString, text);
        QCOMPARE(q(frequencyDisplayText(hertz)), text);
    }

    // Texts the editor's own table does not type (its rows cover five and six decimals and
    // whole megahertz).
    void exactHertz_data()
    {
        const auto row = [](const char* name, const char* text, quint32 hertz) {
            QTest::newRow(name) << QString(text) << hertz;
        };
        QTest::addColumn<QString>("text");
        QTest::addColumn<quint32>("hertz");
        row("leading point", ".5", 500'000u);
        row("trailing point", "30.", 30'000'000u);
        row("empty", "", 0u);
    }
    void exactHertz()
    {
        QFETCH(QString, text);
        QFETCH(quint32, hertz);
        const std::string typed = text.toStdString();
        QCOMPARE(hertzFromText(std::strtof(typed.c_str(), nullptr), typed), hertz);
    }

    // Typing into the edit of the channel's own type: the warning, OK, and what OK stores.
    void typing_data()
    {
        const auto row = [](const char* name, quint32 startTx, quint32 startRx, int edit,
                            const QString& typed, const QString& warning, bool ok, quint32 storedTx,
                            quint32 storedRx) {
            QTest::newRow(name) << startTx << startRx << edit << typed << warning << ok << storedTx
                                << storedRx;
        };
        QTest::addColumn<quint32>("startTx");
        QTest::addColumn<quint32>("startRx");
        QTest::addColumn<int>("edit");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("warning");
        QTest::addColumn<bool>("ok");
        QTest::addColumn<quint32>("storedTx");
        QTest::addColumn<quint32>("storedRx");
        const int txOnly = int(Editor::Edit::TransmitOnly);
        const int rxOnly = int(Editor::Edit::ReceiveOnly);
        const int simplex = int(Editor::Edit::Simplex);
        const int pairTx = int(Editor::Edit::HalfDuplexTx);
        const int pairRx = int(Editor::Edit::HalfDuplexRx);
        const QString txRange = " is out of range. TX frequency range is 1.6 to 30Mhz.";
        const QString rxRange = " is out of range. RX frequency range is 0.1 to 30Mhz.";
        row("tx 29.99999 exact", 5'000'000u, 0u, txOnly, "29.99999", "", true, 29'999'990u, 0u);
        row("tx 1.6 accepted", 5'000'000u, 0u, txOnly, "1.6", "", true, 1'600'000u, 0u);
        row("tx 1.59999 refused", 5'000'000u, 0u, txOnly, "1.59999", "1.59999" + txRange, false, 0u,
            0u);
        row("tx 30 accepted", 5'000'000u, 0u, txOnly, "30", "", true, 30'000'000u, 0u);
        row("tx 30.1 refused", 5'000'000u, 0u, txOnly, "30.1", "30.1" + txRange, false, 0u, 0u);
        row("rx 0.1 accepted", 0u, 5'000'000u, rxOnly, "0.1", "", true, 0u, 100'000u);
        row("rx 0.09 refused", 0u, 5'000'000u, rxOnly, "0.09", "0.09" + rxRange, false, 0u, 0u);
        row("double point", 5'000'000u, 0u, txOnly, "12..5", "12..5 is an invalid frequency", false,
            0u, 0u);
        row("letter", 5'000'000u, 0u, txOnly, "12a", "12a is an invalid frequency", false, 0u, 0u);
        row("empty counts as zero", 5'000'000u, 0u, txOnly, "",
            "Tx Frequency and Rx Frequency can't be both zero at the same time.", true, 0u, 0u);
        row("simplex checked as transmit", 7'000'000u, 7'000'000u, simplex, "0.5", "0.5" + txRange,
            false, 0u, 0u);
        row("simplex sets both", 7'000'000u, 7'000'000u, simplex, "8.12345", "", true, 8'123'450u,
            8'123'450u);
        row("pair made equal", 7'000'000u, 8'000'000u, pairTx, "8",
            "Transmit frequency should differ from Receive "
            "frequency.",
            false, 0u, 0u);
        row("pair receive keeps typed digits", 7'000'000u, 8'000'000u, pairRx, "9.123456", "", true,
            7'000'000u, 9'123'450u);
    }
    void typing()
    {
        QFETCH(quint32, startTx);
        QFETCH(quint32, startRx);
        QFETCH(int, edit);
        QFETCH(QString, typed);
        QFETCH(QString, warning);
        QFETCH(bool, ok);
        QFETCH(quint32, storedTx);
        QFETCH(quint32, storedRx);
        Editor editor(setupWith(startTx, startRx));
        QVERIFY(editor.isVisible(Editor::Edit(edit)));
        editor.setText(Editor::Edit(edit), typed.toStdString());
        QCOMPARE(q(editor.warning()), warning);
        QCOMPARE(editor.isWarningVisible(), !warning.isEmpty());
        QCOMPARE(editor.isOkEnabled(), ok);
        QCOMPARE(q(editor.text(Editor::Edit(edit))), typed);
        QCOMPARE(editor.accept(), ok);
        if (ok) {
            QCOMPARE(editor.channels()[0].txFrequency.get(), storedTx);
            QCOMPARE(editor.channels()[0].rxFrequency.get(), storedRx);
        } else {
            QCOMPARE(editor.channels()[0].txFrequency.get(), startTx);
        }
    }

    void loadingDerivesTheType_data()
    {
        const auto row = [](const char* name, quint32 tx, quint32 rx, Editor::FrequencyType type,
                            const QList<int>& visible, const QString& warning) {
            QTest::newRow(name) << tx << rx << int(type) << visible << warning;
        };
        QTest::addColumn<quint32>("tx");
        QTest::addColumn<quint32>("rx");
        QTest::addColumn<int>("type");
        QTest::addColumn<QList<int>>("visible");
        QTest::addColumn<QString>("warning");
        const QString bothZero =
            "Tx Frequency and Rx Frequency can't be both zero at the same time.";
        row("empty", 0u, 0u, Editor::FrequencyType::Simplex, {int(Editor::Edit::Simplex)},
            bothZero);
        row("simplex", 7'000'000u, 7'000'000u, Editor::FrequencyType::Simplex,
            {int(Editor::Edit::Simplex)}, "");
        row("equal once the last digit is dropped", 7'000'001u, 7'000'009u,
            Editor::FrequencyType::Simplex, {int(Editor::Edit::Simplex)}, "");
        row("receive only", 0u, 3'000'000u, Editor::FrequencyType::ReceiveOnly,
            {int(Editor::Edit::ReceiveOnly)}, "");
        row("half duplex", 2'000'000u, 3'000'000u, Editor::FrequencyType::HalfDuplex,
            {int(Editor::Edit::HalfDuplexTx), int(Editor::Edit::HalfDuplexRx)}, "");
        row("transmit only", 2'000'000u, 0u, Editor::FrequencyType::TransmitOnly,
            {int(Editor::Edit::TransmitOnly)}, "");
    }
    void loadingDerivesTheType()
    {
        QFETCH(quint32, tx);
        QFETCH(quint32, rx);
        QFETCH(int, type);
        QFETCH(QList<int>, visible);
        QFETCH(QString, warning);
        Editor editor(setupWith(tx, rx));
        QCOMPARE(int(editor.frequencyType()), type);
        QList<int> shown;
        for (int edit = 0; edit < 5; ++edit) {
            if (editor.isVisible(Editor::Edit(edit)))
                shown << edit;
        }
        QCOMPARE(shown, visible);
        QCOMPARE(q(editor.warning()), warning);
        QVERIFY(editor.isOkEnabled());
    }

    void lastHertzDigitIsLostOnStore()
    {
        Editor editor(setupWith(12'345'678u, 12'345'678u));
        QCOMPARE(q(editor.text(Editor::Edit::Simplex)), QString("12.34567"));
        QVERIFY(editor.accept());
        QCOMPARE(editor.channels()[0].txFrequency.get(), 12'345'670u);
        QCOMPARE(editor.channels()[0].rxFrequency.get(), 12'345'670u);
    }

    void switchingType_data()
    {
        const auto row = [](const char* name, quint32 tx, quint32 rx, Editor::FrequencyType type,
                            const QString& warning, bool ok, quint32 storedTx, quint32 storedRx) {
            QTest::newRow(name) << tx << rx << int(type) << warning << ok << storedTx << storedRx;
        };
        QTest::addColumn<quint32>("tx");
        QTest::addColumn<quint32>("rx");
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("warning");
        QTest::addColumn<bool>("ok");
        QTest::addColumn<quint32>("storedTx");
        QTest::addColumn<quint32>("storedRx");
        const QString bothZero =
            "Tx Frequency and Rx Frequency can't be both zero at the same time.";
        row("empty to half duplex", 0u, 0u, Editor::FrequencyType::HalfDuplex, bothZero, true, 0u,
            0u);
        row("simplex to half duplex is an equal pair", 7'000'000u, 7'000'000u,
            Editor::FrequencyType::HalfDuplex,
            "Transmit frequency should differ from Receive frequency.", false, 0u, 0u);
        row("half duplex to transmit only drops receive", 2'000'000u, 3'000'000u,
            Editor::FrequencyType::TransmitOnly, "", true, 2'000'000u, 0u);
        row("half duplex to receive only drops transmit", 2'000'000u, 3'000'000u,
            Editor::FrequencyType::ReceiveOnly, "", true, 0u, 3'000'000u);
        row("half duplex to simplex takes receive", 2'000'000u, 3'000'000u,
            Editor::FrequencyType::Simplex, "", true, 3'000'000u, 3'000'000u);
        row("receive-only 0.5 cannot become simplex", 0u, 500'000u, Editor::FrequencyType::Simplex,
            "0.5 is out of range. TX frequency range is 1.6 to 30Mhz.", false, 0u, 0u);
    }
    void switchingType()
    {
        QFETCH(quint32, tx);
        QFETCH(quint32, rx);
        QFETCH(int, type);
        QFETCH(QString, warning);
        QFETCH(bool, ok);
        QFETCH(quint32, storedTx);
        QFETCH(quint32, storedRx);
        Editor editor(setupWith(tx, rx));
        editor.setFrequencyType(Editor::FrequencyType(type));
        QCOMPARE(q(editor.warning()), warning);
        QCOMPARE(editor.isOkEnabled(), ok);
        if (ok) {
            QVERIFY(editor.accept());
            QCOMPARE(editor.channels()[0].txFrequency.get(), storedTx);
            QCOMPARE(editor.channels()[0].rxFrequency.get(), storedRx);
        }
    }

    void changingChannelStoresTheCurrentOne()
    {
        Editor::Setup setup = setupWith(5'000'000u, 0u, 3);
        setup.channels[3].txFrequency.set(9'000'000u);
        setup.channels[3].rxFrequency.set(9'000'000u);
        Editor editor(setup);
        int notified = 0;
        editor.setOnChanged([&notified] { ++notified; });
        editor.setText(Editor::Edit::TransmitOnly, "6.5");
        editor.select(Editor::List::Power, 0); // "Low"
        editor.setChannelNumber(4);
        QCOMPARE(editor.channelNumber(), 4);
        QCOMPARE(q(editor.text(Editor::Edit::Simplex)), QString("9"));
        QCOMPARE(editor.channels()[2].txFrequency.get(), 6'500'000u);
        QCOMPARE(int(editor.channels()[2].power), 2);
        QCOMPARE(notified, 3);
        editor.setChannelNumber(0);
        QCOMPARE(editor.channelNumber(), 1);
        editor.setChannelNumber(999);
        QCOMPARE(editor.channelNumber(), 200);
    }

    void modeListOffersIsbOnlyWhenTheRadioDoes_data()
    {
        const auto row = [](const char* name, bool isb, int entries, int isbIndex) {
            QTest::newRow(name) << isb << entries << isbIndex;
        };
        QTest::addColumn<bool>("isb");
        QTest::addColumn<int>("entries");
        QTest::addColumn<int>("isbIndex");
        row("offered", true, 4, 3);
        row("not offered", false, 3, -1);
    }
    void modeListOffersIsbOnlyWhenTheRadioDoes()
    {
        QFETCH(bool, isb);
        QFETCH(int, entries);
        QFETCH(int, isbIndex);
        Editor::Setup setup = setupWith(7'000'000u, 7'000'000u);
        setup.channels[0].modulation = 3;
        setup.isbOffered = isb;
        Editor editor(setup);
        QCOMPARE(int(editor.entries(Editor::List::Mode).size()), entries);
        QCOMPARE(editor.selectedIndex(Editor::List::Mode), isbIndex);
        QCOMPARE(QString(editor.entries(Editor::List::Agc)[2].text), QString("Off"));
    }

    void ccirNumberFollowsTheChannel()
    {
        Editor::Setup setup = setupWith(7'000'000u, 7'000'000u);
        setup.ccirNumbers = CcirChannelNumbers{};
        (*setup.ccirNumbers)[1] = 42;
        Editor editor(setup);
        QVERIFY(editor.hasCcirNumbers());
        QCOMPARE(editor.ccirNumber(), 0);
        editor.setCcirNumber(900);
        QCOMPARE(editor.ccirNumber(), 500);
        editor.setChannelNumber(2);
        QCOMPARE(editor.ccirNumber(), 42);
        QCOMPARE((*editor.ccirNumbers())[0], std::uint16_t(500));

        Editor without(setupWith(7'000'000u, 7'000'000u));
        without.setCcirNumber(5);
        QVERIFY(!without.hasCcirNumbers());
        QCOMPARE(without.ccirNumber(), 0);
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
