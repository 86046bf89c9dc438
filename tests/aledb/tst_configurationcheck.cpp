#include "AleTestSupport.h"

#include "aledb/ConfigurationCheck.h"
#include "common/RecordingNotifier.h"
#include "radiodb/dbase.h"

#include <QtTest>

using namespace koral;
using namespace koral::test;

namespace {

// Channels 1 and 5 programmed, priority channel 1, no group in use.
dbase radioWithTwoChannels()
{
    dbase radio{};
    radio.radioOptions.priorityChannel.set(1);
    for (auto& group : radio.groups)
        group.guardChannel.set(kNoChannel);
    radio.channelNo(1).txFrequency.set(2'000'000);
    radio.channelNo(5).rxFrequency.set(7'000'000);
    return radio;
}

} // namespace

class ConfigurationCheckTest : public QObject
{
    Q_OBJECT
private slots:
    void radioLinesComeFirst()
    {
        AleProgramme p = emptyProgramme();
        setNet(p, 2, "NETB", "", {5, 7, 9});
        p.database.nets[1].allCallChannel.set(7);
        RecordingNotifier notifier;
        const ConfigurationCheckResult result =
            runConfigurationCheck(radioWithTwoChannels(), &p, {}, notifier);
        QCOMPARE(result.lines(),
                 (std::vector<std::string>{
                     "Channel 7 is All Call channel in net no. 2 but not programmed.",
                     "Channel 9 is scanned channel in net no. 2 but not programmed.",
                     "Net no. 2 does not have Self Address."}));
        QVERIFY(!result.radioConfigurationValid());
        QVERIFY(!result.ale.valid);
        QVERIFY(result.ale.someNetConfigured);
    }

    void withoutAleProgrammeOnlyTheRadioIsChecked()
    {
        dbase radio = radioWithTwoChannels();
        radio.radioOptions.priorityChannel.set(3);
        RecordingNotifier notifier;
        const ConfigurationCheckResult result = runConfigurationCheck(radio, nullptr, {}, notifier);
        QCOMPARE(result.lines(), std::vector<std::string>{"Priority channel 3 is not programmed."});
        QVERIFY(result.ale.valid);
    }
};

QTEST_GUILESS_MAIN(ConfigurationCheckTest)
#include "tst_configurationcheck.moc"
