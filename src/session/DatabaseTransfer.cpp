#include "session/DatabaseTransfer.h"

#include "common/Notifier.h"
#include "common/Texts.h"
#include "koralapi/KoralApi.h"
#include "radiodb/RadioOptionsEditor.h"
#include "radiodb/RadioSanitiser.h"
#include "session/BaudRate.h"
#include "session/ProgressView.h"
#include "session/RadioLink.h"
#include "session/TraceWriter.h"
#include "session/VersionGate.h"
#include "session/ViewCommands.h"

#include <QElapsedTimer>

#include <cstring>
#include <functional>
#include <memory>

namespace koral {

namespace {

// How many seconds the radio may take to start answering a transfer.
constexpr int kPatience = 10;

std::string fieldString(const std::array<char, 16>& field)
{
    return std::string(fieldText(field));
}

std::string joined(const std::vector<std::string>& names)
{
    std::string text;
    for (const std::string& name : names)
        text += (text.empty() ? "" : ", ") + name;
    return text.empty() ? std::string(text::kNothing) : text;
}

} // namespace

DatabaseTransfer::DatabaseTransfer(RadioLink& link, ViewCommands& commands, ViewState& view,
                                   CapabilityFlags& flags, SessionRecords& records,
                                   Notifier& notifier, TraceWriter& trace, QObject* parent)
    : QObject(parent), m_link(link), m_commands(commands), m_view(view), m_flags(flags),
      m_records(records), m_notifier(notifier), m_trace(trace)
{}

PumpCallback DatabaseTransfer::pump()
{
    return [this](int value) { return pumpCallback(value); };
}

ProgressCallback DatabaseTransfer::progress()
{
    return [this](int value) { return progressCallback(value); };
}

int DatabaseTransfer::pumpCallback(int)
{
    m_link.pump();
    return 1;
}

int DatabaseTransfer::progressCallback(int value)
{
    if (m_abort)
        return 0;
    m_steps += value;
    updateCaption();
    return m_abort ? 0 : 1;
}

void DatabaseTransfer::updateCaption()
{
    const int position = progressPosition(m_steps, m_mode, m_flags.ccirMode);
    const ProgressSection section = progressSectionAt(position, m_flags.aleGlobalSupported);
    m_caption = progressCaption(m_mode, section, m_notifier);
    if (m_progressView) {
        m_progressView->setTitle(section.title);
        m_progressView->setCaption(m_caption);
        m_progressView->setPosition(position);
    }
}

int DatabaseTransfer::loadProgressDlg()
{
    if (m_running) {
        m_notifier.show(text::kProgressDialogProblem);
        return 0;
    }
    m_running = true;
    m_abort = false;
    m_steps = 0;
    if (m_progressView)
        m_progressView->open();
    updateCaption();
    const int result = m_mode == TransferMode::Write ? writeWork() : readWork();
    if (m_progressView)
        m_progressView->close();
    m_running = false;
    m_mode = TransferMode::None;
    return result;
}

void DatabaseTransfer::awaitAnswer(const std::atomic<int>& answers, int before)
{
    // The answer comes through the incoming worker; the queries after it depend on what it
    // says, so give it its time (bounded) before going on.
    QElapsedTimer elapsed;
    elapsed.start();
    while (answers.load() == before && elapsed.elapsed() < m_answerWaitMs)
        m_link.waitPumping(1);
}

// Support-mode and CCIR queries and the software-version gate. 1 to go on, 0 to fail, -1 when
// the version is unknown (the dialog then ends with Cancel).
int DatabaseTransfer::capabilityQueries(bool readMode)
{
    const int supportBefore = m_flags.supportAnswers;
    m_flags.extraOptionsSupported = false;
    m_flags.aleGlobalSupported = false;
    // The answer may be settled by the worker before the send returns here, so it is taken
    // as answered while the query is out; a query the radio did not take undoes that.
    m_flags.supportModeAnswered = true;
    m_flags.supportModeAnswered = m_link.sendRequest(&ReportRadioSupportMode);
    if (m_flags.supportModeAnswered)
        awaitAnswer(m_flags.supportAnswers, supportBefore);

    m_flags.ccirMode = false;
    m_flags.ccirFileLoaded = false;
    const int ccirBefore = m_flags.ccirAnswers;
    if (!m_link.sendRequest(&ReportCcirMode)) {
        // A radio that cannot say is taken to be a CCIR radio.
        m_flags.ccirMode = true;
        return 0;
    }
    awaitAnswer(m_flags.ccirAnswers, ccirBefore);

    unsigned char version[9] = {};
    const bool known = ReadSoftwareVersion(m_link.engine(), version) != 0;
    const std::uint8_t softwareClass = softwareClassOf(
        known ? std::optional<std::string_view>(reinterpret_cast<char*>(version)) : std::nullopt);
    if (softwareClass == 0)
        return readMode ? -1 : 0;
    m_flags.softwareClass = softwareClass;
    emit softwareClassChanged(softwareClass);
    return 1;
}

int DatabaseTransfer::readWork()
{
    if (m_progressView)
        m_progressView->setCancelEnabled(true);
    const int gate = capabilityQueries(true);
    if (gate == 0)
        return 0;
    // An unknown version ends the dialog with Cancel, but the databases are read all the same.
    const bool cancelled = gate < 0;
    if (!readDataBases())
        return 0;
    if (!m_link.sendRequest(&ReportIsbMode))
        return 0;
    return cancelled ? 0 : 1;
}

int DatabaseTransfer::writeWork()
{
    if (m_progressView)
        m_progressView->setCancelEnabled(false);
    const bool wasCcir = m_flags.ccirMode;
    const bool wasAleGlobal = m_flags.aleGlobalSupported;
    m_flags.ccirMode = false;
    m_flags.aleGlobalSupported = false;
    m_flags.ccirFileLoaded = false;
    const bool slowLink = m_link.settings().baudRate == 1200;
    if (!slowLink) {
        if (capabilityQueries(false) != 1)
            return 0;
        if (m_flags.ccirMode)
            emit ccirSelectionReset();
    } else {
        // At 1200 baud the queries would take too long: write what the radio was last
        // known to keep.
        m_flags.extraOptionsSupported = false;
    }
    if (!writeDataBases()) {
        m_notifier.show(text::byId(text::id::NoResponse), Icon::Warning);
        return 0;
    }
    if (wasCcir && wasCcir != m_flags.ccirMode)
        m_notifier.show(text::kCcirNotProgrammed);
    if (wasAleGlobal && wasAleGlobal != m_flags.aleGlobalSupported)
        m_notifier.show(text::kAleGlobalNotProgrammed);
    if (!m_notWritten.empty())
        m_notifier.show(text::format(text::kRecordsNotWritten.data(), joined(m_written).c_str(),
                                     joined(m_notWritten).c_str()),
                        Icon::Information);
    if (slowLink) {
        m_flags.ccirMode = wasCcir;
        m_flags.aleGlobalSupported = wasAleGlobal;
    }
    return 1;
}

int DatabaseTransfer::readDataBases()
{
    const bool wasRead = m_view.databaseRead;
    m_view.databaseRead = false;
    if (const int special = m_commands.enableSpecialReport(); !special)
        return special;
    // A read the operator cancels leaves every record as it was.
    const auto before = std::make_unique<SessionRecords>(m_records);
    m_records.radio = dbase{};
    m_records.ale = ale_dbase{};
    m_records.ccir = ccir_dbase{};
    m_records.channelNames = channel_name{};
    m_records.globalMembers = ale_dbase_global_members{};
    if (m_flags.extraOptionsSupported)
        m_records.extraOptions = AleExtraOptions{};
    m_records.known = {};
    if (!m_flags.aleGlobalSupported)
        emit globalMembersCleared();

    MessageEngine* engine = m_link.engine();
    SessionRecords::Known& known = m_records.known;
    m_trace.traceLine("BEFORE ReadRadioDataBase()");
    bool ok = known.radio =
        ReadRadioDataBase(engine, &m_records.radio, 0, pump(), progress(), kPatience);
    if (ok) {
        m_trace.traceLine("BEFORE ReadAleDataBase()");
        ok = known.ale = ReadAleDataBase(engine, &m_records.ale, pump(), progress(), kPatience);
    }
    if (!m_flags.ccirMode) {
        if (m_flags.aleGlobalSupported && ok) {
            m_trace.traceLine("BEFORE ReadGlobalMemberDataBase()");
            ok = known.globalMembers = ReadGlobalMemberDataBase(engine, &m_records.globalMembers,
                                                                pump(), progress(), kPatience);
        }
    } else if (ok) {
        m_trace.traceLine("BEFORE ReadCcirDataBase()");
        ok = known.ccir = ReadCcirDataBase(engine, &m_records.ccir, pump(), progress(), kPatience);
        if (ok) {
            m_trace.traceLine("BEFORE ReadChannelNameDataBase()");
            ok = known.channelNames = ReadChannelNameDataBase(engine, &m_records.channelNames,
                                                              pump(), progress(), kPatience);
        }
    }
    if (ok && m_flags.extraOptionsSupported) {
        m_trace.traceLine("BEFORE ReadExtraOptionDataBase()");
        ok = known.extraOptions =
            ReadExtraOptionDataBase(engine, &m_records.extraOptions, pump(), progress(), kPatience);
    }
    if (!ok && m_abort) {
        m_records = *before;
        m_view.databaseRead = wasRead;
        return 0;
    }
    m_view.serialNumber = fieldString(m_records.radio.serialNumber);
    m_view.radioCode = fieldString(m_records.radio.radioCode);
    if (!ok) {
        if (!m_view.quiet)
            m_notifier.show(text::byId(text::id::NoResponse), Icon::Warning);
        return 0;
    }
    m_view.databaseRead = true;
    m_view.radioBaudIndex = m_records.radio.radioOptions.baudRate;
    return 1;
}

int DatabaseTransfer::writeDataBases()
{
    m_commands.setRadioCommandsEnabled(false);
    sanitise(m_records.radio);
    MessageEngine* engine = m_link.engine();
    const unsigned char ccir = m_flags.ccirMode ? 1 : 0;
    const unsigned char aleGlobal = m_flags.aleGlobalSupported ? 1 : 0;
    const unsigned char extra = m_flags.extraOptionsSupported ? 1 : 0;
    const SessionRecords::Known& known = m_records.known;
    m_written.clear();
    m_notWritten.clear();
    bool ok = true;
    // A record nobody has read or opened is zeros: it is passed over (its progress counted, so
    // the captions of the sections after it stay right) rather than written over the radio's.
    const auto write = [&](bool isKnown, std::string_view name, std::size_t size,
                           const std::function<int()>& call) {
        if (!ok)
            return;
        if (!isKnown) {
            m_notWritten.emplace_back(name);
            progressCallback(int(size));
            return;
        }
        ok = call() != 0;
        if (ok)
            m_written.emplace_back(name);
    };
    write(known.radio, text::kRadioDatabaseName, sizeof(dbase), [&] {
        return WriteRadioDataBase(engine, &m_records.radio, 0, pump(), progress(), kPatience);
    });
    write(known.ale, text::kAleDatabaseName, sizeof(ale_dbase), [&] {
        return WriteAleDataBase(engine, &m_records.ale, pump(), progress(), kPatience, ccir,
                                aleGlobal, extra);
    });
    if (ccir) {
        write(known.ccir, text::kCcirDatabaseName, sizeof(ccir_dbase), [&] {
            return WriteCcirDataBase(engine, &m_records.ccir, pump(), progress(), kPatience);
        });
        write(known.channelNames, text::kCcirChannelNumbersName, sizeof(channel_name), [&] {
            return WriteChannelNameDataBase(engine, &m_records.channelNames, pump(), progress(),
                                            kPatience, extra);
        });
    } else if (aleGlobal) {
        write(known.globalMembers, text::kGlobalMembersName, sizeof(ale_dbase_global_members), [&] {
            return WriteGlobalMemberDataBase(engine, &m_records.globalMembers, pump(), progress(),
                                             kPatience, extra);
        });
    }
    if (extra)
        write(known.extraOptions, text::kExtraOptionsName, sizeof(AleExtraOptions), [&] {
            return WriteExtraOptionDataBase(engine, &m_records.extraOptions, pump(), progress(),
                                            kPatience);
        });
    m_commands.setRadioCommandsEnabled(true);
    if (ok && known.radio)
        m_view.radioBaudIndex = m_records.radio.radioOptions.baudRate;
    return ok ? 1 : 0;
}

int DatabaseTransfer::queryByte(int (*build)(CRadioMessage*), int replyOpcode, int byteIndex,
                                int& value)
{
    CRadioMessage reply;
    if (!m_link.query(build, replyOpcode, reply))
        return 0;
    value = reply[std::size_t(byteIndex)];
    return 1;
}

int DatabaseTransfer::fillChannelList()
{
    m_programmedChannels.clear();
    for (int number = 1; number <= kChannelCount; ++number)
        if (m_records.radio.channelNo(number).isProgrammed())
            m_programmedChannels.push_back(number);
    emit channelListChanged();
    return static_cast<int>(m_programmedChannels.size());
}

int DatabaseTransfer::readDevice()
{
    m_mode = TransferMode::Read;
    if (loadProgressDlg() != 1)
        return 0;
    m_view.radioReady = true;
    m_trace.traceLine("BEFORE PerformReset()");
    if (!m_link.sendRequest(&PerformReset))
        return 0;
    m_records.reference = m_records.radio;

    m_commands.showNotice(ViewCommands::Notice::PleaseWait);
    m_link.waitPumping(1000);
    m_view.databaseRead = true;
    m_commands.enableSpecialReport();

    int mode = 0;
    if (!queryByte(&ReportRadioOperationMode, op::OperationMode, 6, mode))
        return 0;
    m_view.operationMode = mode;
    if (mode == 2) {
        int aleState = 0;
        if (!queryByte(&ReportAleON_OFF, op::AleOnOff, 6, aleState))
            return 0;
        m_flags.aleState = static_cast<std::uint8_t>(aleState);
        m_flags.aleOff = aleState != 1;
    }
    int active = 0;
    if (!queryByte(&ReportActiveChannel, op::ActiveChannel, 7, active) || active < 1 ||
        active > kChannelCount)
        return 0;
    m_activeChannel = active;
    const int programmed = fillChannelList();

    m_trace.traceLine("BEFORE UpdateToolBarAndSliders()");
    if (!m_commands.updateToolBarAndSliders())
        return 0;
    if (m_view.radioReady)
        m_commands.setRadioCommandsEnabled(true);

    const OptionRecord& blanker = m_records.radio.option(OptionSlot::NoiseBlanker);
    if (!RadioOptionsEditor::checkOptionSlot(blanker).empty()) {
        m_notifier.show(text::byId(text::id::NoResponse), Icon::Warning);
        return 0;
    }
    m_view.noiseBlankerOption = blanker.enabled();
    emit panelsRefreshRequested();
    return programmed + 1;
}

bool DatabaseTransfer::readDeviceCommand()
{
    if (m_view.busy)
        return false;
    const bool wasReady = m_view.radioReady;
    m_view.radioReady = false;
    m_commands.setRadioCommandsEnabled(false);
    m_commands.beginBusy();
    const int result = readDevice();
    m_commands.closeNotice(ViewCommands::Notice::PleaseWait);
    if (m_abort) {
        // The operator's choice, not the radio's fault: the radio and the program carry on
        // as they were before the read.
        m_view.radioReady = wasReady;
        m_commands.setRadioCommandsEnabled(wasReady);
        if (m_view.databaseRead)
            m_commands.enableSpecialReport();
        m_commands.endBusy();
        m_commands.setStatusText(std::string(text::kReadCancelled));
        return false;
    }
    m_commands.showNotice(ViewCommands::Notice::Completed);
    m_commands.endBusy();
    // 201 (all 200 channels programmed) counts as a failure, as it always has; the records
    // were read all the same, and the panels show them.
    if (result >= 1 && result <= kChannelCount) {
        m_view.radioReady = true;
        m_commands.setRadioCommandsEnabled(true);
        emit channelRefreshRequested();
        emit panelsRefreshRequested();
    } else {
        m_view.radioReady = false;
    }
    return m_view.databaseRead;
}

bool DatabaseTransfer::writeDeviceCommand()
{
    m_commands.beginBusy();
    emit storeEditsRequested();
    m_mode = TransferMode::Write;
    const bool sameBaud =
        baudRateToIndex(m_link.settings().baudRate, m_notifier) == m_view.radioBaudIndex;
    if (!sameBaud &&
        m_notifier.ask(text::byId(text::id::BaudRateDiffers), Buttons::YesNo) == Answer::No) {
        m_mode = TransferMode::None;
        m_commands.endBusy();
        return false;
    }
    if (loadProgressDlg() != 1) {
        m_commands.endBusy();
        return false;
    }
    const int newBaud = baudRateOfIndex(m_records.radio.radioOptions.baudRate);
    if (!m_link.changeRadioLink(m_link.settings().commPort, newBaud)) {
        m_notifier.show(text::kUpdateSocketFault);
        m_commands.endBusy();
        return true;
    }
    if (sameBaud && m_view.databaseRead) {
        m_commands.showNotice(ViewCommands::Notice::PleaseWait);
        m_link.waitPumping(1000);
        fillChannelList();
        emit panelsRefreshRequested();
    } else {
        m_notifier.show(text::kNoDatabaseRead);
        m_view.radioReady = false;
    }
    m_commands.closeNotice(ViewCommands::Notice::PleaseWait);
    m_commands.showNotice(ViewCommands::Notice::Completed);
    m_commands.endBusy();
    return true;
}

bool DatabaseTransfer::readForComparison()
{
    if (m_view.busy)
        return false;
    m_commands.beginBusy();
    m_mode = TransferMode::Read;
    const bool read = loadProgressDlg() == 1;
    m_commands.endBusy();
    return read && !m_abort;
}

} // namespace koral
