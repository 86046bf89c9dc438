#include "radiodb/RadioOptionsEditor.h"
#include "radiodb/WideInformationView.h"
#include "support/Table.h"

#include <QtTest>

using namespace koral;
using namespace koral::test;

namespace {

dbase recordWith(void (*change)(dbase&))
{
    dbase record{};
    record.radioOptions.priorityChannel.set(1);
    record.radioOptions.cwPttHold = 50;
    record.radioOptions.scanRate = 2;
    record.radioOptions.dataPowerLevel = 5;
    record.radioOptions.alternateDisplayTime = 5;
    record.radioOptions.frequencyDisplay = 1;
    record.radioOptions.baudRate = 3;
    change(record);
    return record;
}

using Acc = RadioOptionsEditor::Accessory;

} // namespace

class RadioOptionsEditorTest : public QObject
{
    Q_OBJECT
private slots:
    // Stored byte -> the list index the dialog shows (-1: no selection) -> the byte OK stores
    // when the list was left alone.
    void storedValuesShowAsIndices_data()
    {
        columns<int, int, int, int>("field", "stored", "index", "applied");
        // field: 0 CW PTT hold, 1 alternate display, 2 data power, 3 alert tone, 4 scan rate
        QTest::newRow("cw 150 ms") << 0 << 15 << 0 << 15;
        QTest::newRow("cw 20 unknown") << 0 << 20 << -1 << 20;
        QTest::newRow("display 1 s") << 1 << 1 << 0 << 1;
        QTest::newRow("display 10 s") << 1 << 10 << 9 << 10;
        QTest::newRow("display 11 s") << 1 << 11 << -1 << 5;
        QTest::newRow("display 0") << 1 << 0 << -1 << 5;
        QTest::newRow("power Low") << 2 << 2 << 0 << 2;
        QTest::newRow("power Max") << 2 << 5 << 3 << 5;
        QTest::newRow("power 1") << 2 << 1 << -1 << 2;
        QTest::newRow("alert High") << 3 << 1 << 1 << 1;
        QTest::newRow("alert 2") << 3 << 2 << -1 << 2;
        QTest::newRow("scan 5/s") << 4 << 5 << 4 << 5;
    }
    void storedValuesShowAsIndices()
    {
        auto [field, stored, index] = fetch<int, int, int>("field", "stored", "index");
        dbase record{};
        std::uint8_t* bytes[] = {&record.radioOptions.cwPttHold,
                                 &record.radioOptions.alternateDisplayTime,
                                 &record.radioOptions.dataPowerLevel,
                                 &record.radioOptions.alertTone, &record.radioOptions.scanRate};
        *bytes[field] = static_cast<std::uint8_t>(stored);
        RadioOptionsEditor editor(record, false);
        const int shown[] = {editor.cwPttHoldIndex(), editor.alternateDisplayIndex(),
                             editor.dataPowerIndex(), editor.alertToneIndex(),
                             editor.scanRateIndex()};
        QCOMPARE(shown[field], index);

        QFETCH(int, applied);
        bool isb = false;
        editor.apply(record, isb);
        QCOMPARE(int(*bytes[field]), applied);
    }

    void chosenIndicesStoreValues()
    {
        dbase record = recordWith([](dbase&) {});
        RadioOptionsEditor editor(record, false);
        editor.setCwPttHoldIndex(0);
        editor.setAlternateDisplayIndex(-1);
        editor.setDataPowerIndex(-1);
        editor.setScanRateIndex(4);
        editor.setBaudRateIndex(1);
        editor.setLanguageIndex(3);
        editor.setHideFrequency(true);
        editor.setIsb(true);
        QVERIFY(!editor.priorityChanged());
        editor.setPriorityIndex(11);
        QVERIFY(editor.priorityChanged());

        bool isb = false;
        editor.apply(record, isb);
        const RadioOptions& o = record.radioOptions;
        QCOMPARE((QList<int>{o.cwPttHold, o.alternateDisplayTime, o.dataPowerLevel, o.scanRate,
                             o.baudRate, o.frequencyDisplay, o.priorityChannel.get(),
                             record.language, isb}),
                 (QList<int>{15, 5, 2, 5, 1, 0, 12, 3, 1}));
    }

    // Each step checks or unchecks one box; the result is the boxes then shown and the byte OK
    // stores, which shows as the same boxes when the dialog opens again (Accessory1 and 2 as
    // none).
    void accessoriesAndTuner_data()
    {
        const auto row = [](const char* name, int stored, const char* steps, const char* shown) {
            QTest::newRow(name) << stored << QString(steps) << QString(shown);
        };
        // shown: amplifier, acc1, acc2, tuner as 0/1, then the byte
        columns<int, QString, QString>("stored", "steps", "shown");
        row("stored amplifier shows checked", 1, "", "1000 1");
        row("stored Accessory1 shows none", 2, "", "0000 0");
        row("accessory 2 replaces amplifier", 1, "+3", "0010 3");
        row("unchecking the checked one clears", 0, "+2 -2", "0000 0");
        row("unchecking another leaves it", 0, "+2 -1", "0100 2");
        row("tuner clears the accessory", 1, "+T", "0001 0");
        row("amplifier clears the tuner", 0, "+T +1", "1000 1");
        row("accessory 1 keeps the tuner", 0, "+T +2", "0101 2");
    }
    void accessoriesAndTuner()
    {
        auto [stored, steps, shown] = fetch<int, QString, QString>("stored", "steps", "shown");
        dbase record{};
        record.accessoryInstalled = static_cast<std::uint8_t>(stored);
        RadioOptionsEditor editor(record, false);
        for (const QString& step : steps.split(' ', Qt::SkipEmptyParts)) {
            const bool on = step[0] == '+';
            if (step[1] == 'T')
                editor.setTuner(on);
            else
                editor.setAccessory(Acc(step.mid(1).toInt()), on);
        }
        const QString got = QStringLiteral("%1%2%3%4 %5")
                                .arg(int(editor.accessory(Acc::Amplifier)))
                                .arg(int(editor.accessory(Acc::Accessory1)))
                                .arg(int(editor.accessory(Acc::Accessory2)))
                                .arg(int(editor.tuner()))
                                .arg(editor.accessoryInstalled());
        QCOMPARE(got, shown);
        bool isb = false;
        editor.apply(record, isb);
        QCOMPARE(record.accessoryInstalled, editor.accessoryInstalled());
        const int reopened = RadioOptionsEditor(record, false).accessoryInstalled();
        QCOMPARE(reopened, record.accessoryInstalled == 1 ? 1 : 0);
    }

    void optionSlotCheck_data()
    {
        columns<QByteArray, QByteArray, int, QString>("software", "hardware", "status",
                                                      "complaint");
        QTest::newRow("valid") << QByteArray("01.00") << QByteArray("1.2") << 1 << QString();
        QTest::newRow("software") << QByteArray("01a") << QByteArray("1") << 0
                                  << QString("Invalid software version for option");
        QTest::newRow("hardware") << QByteArray("01") << QByteArray("x") << 0
                                  << QString("Invalid hardware version for option");
        QTest::newRow("last failing wins") << QByteArray("a") << QByteArray("b") << 2
                                           << QString("Invalid 'status' member of option");
    }
    void optionSlotCheck()
    {
        auto [software, hardware, status, complaint] = fetch<QByteArray, QByteArray, int, QString>(
            "software", "hardware", "status", "complaint");
        OptionRecord slot{};
        setFieldText(slot.softwareVersion, software.toStdString());
        setFieldText(slot.hardwareVersion, hardware.toStdString());
        slot.status = static_cast<std::uint8_t>(status);
        QCOMPARE(QString::fromStdString(RadioOptionsEditor::checkOptionSlot(slot)), complaint);
    }

    void wideInformationRows()
    {
        dbase record{};
        setFieldText(record.serialNumber, "SN0123456789ABCD"); // full width, no NUL
        setFieldText(record.ecn[0], "NET ONE");
        setFieldText(record.ecn[7], "X");
        setFieldText(record.sp[5], "SP6");
        setFieldText(record.options[10].softwareVersion, "02.10");
        record.options[10].status = 1;
        record.options[0].status = 2;
        const auto view = WideInformationView::of(record);
        const auto& global = view.options[10];
        QCOMPARE(view.serialNumber + "|" + global.name + "|" + global.status + "|" +
                     global.softwareVersion + "|" + view.options[0].status,
                 std::string("SN0123456789ABCD|Global ALE|Enabled|02.10|Disabled"));
        QCOMPARE(view.ecn, (std::vector<std::string>{"NET ONE", "X"}));
        QCOMPARE(view.sp, std::vector<std::string>{"SP6"});
    }
};

QTEST_GUILESS_MAIN(RadioOptionsEditorTest)
#include "tst_radiooptionseditor.moc"
