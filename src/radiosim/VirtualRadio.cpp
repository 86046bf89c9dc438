#include "radiosim/VirtualRadio.h"

#include "common/Texts.h"
#include "koralapi/Opcodes.h"
#include "koralapi/RadioRecords.h"
#include "radiosim/BuiltInContents.h"
#include "radiosim/RadioLine.h"
#include "radiosim/SelfTest.h"

#include <QMetaObject>
#include <QThread>

#include <algorithm>

namespace koral::radiosim {

namespace {
QString toQString(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

template <typename... Ts>
struct Overloaded : Ts...
{
    using Ts::operator()...;
};

// The link results the radio reports (opcode 85, byte 6).
namespace result {
constexpr std::uint8_t kNoLink = 0;
constexpr std::uint8_t kLinked = 1;
constexpr std::uint8_t kSilentLink = 4;
} // namespace result

constexpr std::uint8_t kChannelSelected = 0, kScanning = 1, kScanStopped = 2;
} // namespace

VirtualRadio::VirtualRadio(RadioLine* line, QObject* parent)
    : QObject(parent), m_db(builtInDatabases()),
      m_transfers([this](int target, bool write) { return transferMemory(target, write); }),
      m_device(line, m_faults, this)
{
    m_link.attach(&m_device);
    connect(&m_link, &LinkLayer::messageReceived, this, &VirtualRadio::onMessage);
    connect(&m_link, &LinkLayer::sendFinished, this, [this](quint64, bool acknowledged) {
        if (!acknowledged) {
            m_transfers.clear(); // the program is gone: a transfer cannot go on
        }
        feedReadBlocks();
    });
    connect(&m_device, &LineDevice::lineDropped, this, [this] {
        m_link.cancelAll();
        m_transfers.clear();
        emit lineDropped();
    });
    connect(line, &RadioLine::peerChanged, this, [this] {
        // A new program on the line: a dropped line is plugged in again.
        if (m_faults.dropped()) {
            m_faults.clear();
        }
    });
    connect(&m_scanTimer, &QTimer::timeout, this, &VirtualRadio::scanStep);
    powerCycle();
}

VirtualRadio::~VirtualRadio()
{
    if (m_onClose) {
        m_onClose(*this);
    }
    m_link.detach();
}

void VirtualRadio::restore(const RadioMemory& memory)
{
    m_db = memory.databases;
    m_model = memory.model;
    m_state.activeChannel = memory.activeChannel;
    powerCycle();
}

void VirtualRadio::setBaud(unsigned baud, bool paced)
{
    m_baud = baud == 0 ? 9600 : baud;
    m_device.setBaud(paced ? m_baud : 0);
    m_link.setBaudRate(static_cast<int>(m_baud));
    m_link.setPaced(paced);
}

void VirtualRadio::powerCycle()
{
    for (unsigned& generation : m_generation) {
        ++generation;
    }
    m_scanTimer.stop();
    m_transfers.clear();
    m_programmedMemory.reset();
    m_panel.reset();
    m_reportedLines = {};
    const unsigned channel = m_state.activeChannel;
    m_state = RadioState{};
    const unsigned priority = readU16(m_db.radio, layout::kRadioOptions + layout::kOptionPriority);
    m_state.activeChannel = channelProgrammed(m_db, channel)    ? channel
                            : channelProgrammed(m_db, priority) ? priority
                                                                : 1;
    m_state.noiseBlanker = m_db.radio[layout::kRadioOptions + layout::kOptionNoiseBlanker] == 1;
    m_state.aleOn = !m_model.ccirMode;
}

void VirtualRadio::restart()
{
    // What the program asked for stays: remote control, and its display if it shows one.
    const std::uint8_t remoteMode = m_state.remoteMode;
    const bool displayReports = m_state.displayReports;
    powerCycle();
    m_state.remoteMode = remoteMode;
    m_state.displayReports = displayReports;
    refreshDisplay();
}

std::uint8_t VirtualRadio::configuredBaudIndex() const
{
    return m_db.radio[layout::kRadioOptions + layout::kOptionBaudIndex];
}

void VirtualRadio::takeNewMemoryIntoUse(std::uint8_t previousBaudIndex)
{
    restart();
    // The radio's port follows a newly configured baud rate (after the answer has gone out at
    // the old one); the program then reopens its side at that rate.
    constexpr unsigned kRates[] = {1200, 2400, 4800, 9600};
    const std::uint8_t index = configuredBaudIndex();
    if (paced() && index != previousBaudIndex && index < std::size(kRates)) {
        setBaud(kRates[index], true);
    }
}

void VirtualRadio::clearFaults()
{
    m_faults.clear();
    m_device.flush();
}

void VirtualRadio::setSelfTestOutcome(const SelfTestOutcome& outcome)
{
    switch (outcome.result) {
    case SelfTestOutcome::Result::Failed:
        m_selfTestPlan.failed = outcome.items;
        break;
    case SelfTestOutcome::Result::Unable:
        m_selfTestPlan.unable = outcome.items;
        break;
    case SelfTestOutcome::Result::AllPass:
        m_selfTestPlan = SelfTestPlan{};
        break;
    }
}

// --- sending ---------------------------------------------------------------------------------

void VirtualRadio::send(const CRadioMessage& message)
{
    m_link.send(message.wireBytes());
    emit reported(message.GetOpcode());
}

void VirtualRadio::report(int opcode, std::initializer_list<std::uint8_t> payload)
{
    CRadioMessage message;
    message.prepareReport();
    message.setOpcodeAndLength(opcode, payload.size());
    std::copy(payload.begin(), payload.end(), message.payload());
    send(message);
}

void VirtualRadio::reportText(int opcode, std::uint8_t kind, std::string_view text)
{
    CRadioMessage message;
    message.prepareReport();
    message.setOpcodeAndLength(opcode, 1 + text.size() + 1);
    message[6] = kind;
    std::copy(text.begin(), text.end(), message.payload() + 1);
    send(message);
}

void VirtualRadio::reportVersion(int opcode, std::string_view version)
{
    constexpr std::size_t kWidth = 8;
    CRadioMessage message;
    message.prepareReport();
    message.setOpcodeAndLength(opcode, kWidth);
    writeText(std::span(message.bytes), CRadioMessage::kHeaderSize, kWidth, version);
    send(message);
}

void VirtualRadio::reject(int opcode)
{
    report(op::CommandRejected,
           {static_cast<std::uint8_t>(opcode >> 8), static_cast<std::uint8_t>(opcode)});
}

void VirtualRadio::commandResult(int request, int target, std::uint8_t status)
{
    report(op::CommandResult,
           {static_cast<std::uint8_t>(request), static_cast<std::uint8_t>(target), status});
}

void VirtualRadio::schedule(Activity activity, int steps, std::function<void()> action)
{
    const unsigned generation = m_generation[std::size_t(activity)];
    QTimer::singleShot(steps * m_stepMs, this, [this, activity, generation, action] {
        if (m_generation[std::size_t(activity)] == generation) {
            action();
            refreshDisplay();
        }
    });
}

void VirtualRadio::cancel(Activity activity)
{
    ++m_generation[std::size_t(activity)];
}

void VirtualRadio::onMessage(const QByteArray& wire)
{
    CRadioMessage request;
    if (!request.assign(std::span(reinterpret_cast<const std::uint8_t*>(wire.constData()),
                                  static_cast<std::size_t>(wire.size())))) {
        return; // not a message: nothing a radio could act on
    }
    if (!m_faults.acceptRequest()) {
        return;
    }
    const int opcode = request.GetOpcode();
    const Handler handler = routes()[static_cast<std::size_t>(opcode)];
    if (m_faults.rejects(opcode) || handler == nullptr) {
        reject(opcode);
    } else {
        (this->*handler)(request);
    }
    refreshDisplay();
    m_faults.requestAnswered();
    emit requestHandled(opcode);
}

// --- channels and scanning --------------------------------------------------------------------

bool VirtualRadio::selectChannel(unsigned channel)
{
    if (!channelProgrammed(m_db, channel) || channel > m_model.channelCount) {
        return false;
    }
    if (m_state.groupScanning || m_state.aleScanning) {
        stopScan();
    }
    m_state.activeChannel = channel;
    const auto record = channelRecord(m_db, channel);
    m_state.isbMode = record[12] == 3;
    reportChannel(kChannelSelected);
    return true;
}

void VirtualRadio::reportChannel(std::uint8_t kind)
{
    const unsigned c = m_state.activeChannel;
    const std::uint32_t rx = channelRx(m_db, c);
    const std::uint32_t tx = channelTx(m_db, c);
    const std::uint8_t index = m_state.aleScanning ? m_state.scanNet : m_state.scanGroup;
    report(op::ChannelReport,
           {kind, static_cast<std::uint8_t>(c), index, static_cast<std::uint8_t>(rx >> 24),
            static_cast<std::uint8_t>(rx >> 16), static_cast<std::uint8_t>(rx >> 8),
            static_cast<std::uint8_t>(rx), static_cast<std::uint8_t>(tx >> 24),
            static_cast<std::uint8_t>(tx >> 16), static_cast<std::uint8_t>(tx >> 8),
            static_cast<std::uint8_t>(tx)});
}

void VirtualRadio::reportScanList()
{
    const bool scanning = m_state.groupScanning || m_state.aleScanning;
    report(op::ScanListReport,
           {static_cast<std::uint8_t>(scanning), static_cast<std::uint8_t>(!m_state.aleScanning),
            m_state.aleScanning ? m_state.scanNet : m_state.scanGroup});
}

void VirtualRadio::startGroupScan(unsigned group)
{
    m_state.aleScanning = false;
    m_state.groupScanning = true;
    m_state.scanGroup = static_cast<std::uint8_t>(group);
    const unsigned rate =
        std::clamp<unsigned>(m_db.radio[layout::kRadioOptions + layout::kOptionScanRate], 1, 5);
    m_scanTimer.start(1000 / int(rate));
    if (!scanMember(m_state.activeChannel)) {
        moveToNextScanChannel();
    }
    reportChannel(kScanning);
    reportScanList();
}

void VirtualRadio::startAleScan(unsigned net)
{
    m_state.groupScanning = false;
    m_state.aleScanning = true;
    setAleOn(true);
    m_state.scanNet = static_cast<std::uint8_t>(net);
    const unsigned rate = m_db.ale[net * layout::kNetSize + layout::kNetScanRate] == 5 ? 5 : 2;
    m_scanTimer.start(1000 / int(rate));
    if (!scanMember(m_state.activeChannel)) {
        moveToNextScanChannel();
    }
    reportChannel(kScanning);
    reportScanList();
}

void VirtualRadio::setAleOn(bool on)
{
    if (m_state.aleOn == on) {
        return;
    }
    m_state.aleOn = on;
    report(op::AleOnOff, {static_cast<std::uint8_t>(on ? 1 : 0)});
}

void VirtualRadio::stopScan()
{
    m_scanTimer.stop();
    m_state.groupScanning = false;
    m_state.aleScanning = false;
    reportChannel(kScanStopped);
    reportScanList();
}

bool VirtualRadio::scanMember(unsigned channel) const
{
    const bool member = m_state.aleScanning ? netHasChannel(m_db, m_state.scanNet, channel)
                                            : groupHasChannel(m_db, m_state.scanGroup, channel);
    return member && channelProgrammed(m_db, channel);
}

void VirtualRadio::moveToNextScanChannel()
{
    // The next channel of the group or net after the active one, wrapping around.
    for (unsigned i = 1; i <= layout::kChannelCount; ++i) {
        const unsigned c = (m_state.activeChannel + i - 1) % layout::kChannelCount + 1;
        if (scanMember(c)) {
            m_state.activeChannel = c;
            return;
        }
    }
}

void VirtualRadio::scanStep()
{
    moveToNextScanChannel();
    if (m_state.specialReports) {
        reportChannel(kScanning);
    }
    refreshDisplay();
}

void VirtualRadio::setMonitor(bool on)
{
    m_state.monitor = on;
    report(op::MonitorState, {static_cast<std::uint8_t>(on)});
}

// --- front panel ------------------------------------------------------------------------------

void VirtualRadio::pressKey(int key)
{
    const FrontPanel::Request request = m_panel.press(key, {m_state, m_db, m_model});
    const unsigned c = m_state.activeChannel;
    switch (request.action) {
    case FrontPanel::Action::SelectChannel:
        selectChannel(request.value);
        break;
    case FrontPanel::Action::ChannelUp:
    case FrontPanel::Action::ChannelDown:
        for (unsigned i = 1; i < layout::kChannelCount; ++i) {
            const unsigned step =
                request.action == FrontPanel::Action::ChannelUp ? i : layout::kChannelCount - i;
            if (selectChannel((c + step - 1) % layout::kChannelCount + 1)) {
                break;
            }
        }
        break;
    case FrontPanel::Action::ToggleSquelch:
        m_state.squelch = !m_state.squelch;
        break;
    case FrontPanel::Action::ToggleMonitor:
        setMonitor(!m_state.monitor);
        break;
    case FrontPanel::Action::ToggleScan:
        if (m_state.groupScanning || m_state.aleScanning) {
            stopScan();
        } else if (m_state.aleOn && !m_model.ccirMode) {
            startAleScan(m_state.scanNet);
        } else {
            startGroupScan(m_state.scanGroup);
        }
        break;
    case FrontPanel::Action::ToggleAle:
        if (!m_model.ccirMode) {
            // The scan stops before the radio tells its new ALE state.
            if (m_state.aleOn && m_state.aleScanning) {
                stopScan();
            }
            setAleOn(!m_state.aleOn);
        }
        break;
    case FrontPanel::Action::ScanGroup:
        m_state.scanGroup = static_cast<std::uint8_t>(request.value);
        if (m_state.groupScanning) {
            startGroupScan(request.value);
        }
        break;
    case FrontPanel::Action::AleNet:
        m_state.scanNet = static_cast<std::uint8_t>(request.value);
        if (m_state.aleScanning) {
            startAleScan(request.value);
        }
        break;
    case FrontPanel::Action::None:
        break;
    }
    // A key is answered with the whole display; its release only ends the key.
    if (key != FrontPanel::kRelease) {
        reportDisplay(true);
    }
}

void VirtualRadio::reportDisplay(bool whole)
{
    const auto lines = m_panel.display({m_state, m_db, m_model});
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (whole || lines[i] != m_reportedLines[i]) {
            reportText(op::DisplayReport, static_cast<std::uint8_t>(op::display::FirstTextLine + i),
                       lines[i]);
        }
    }
    m_reportedLines = lines;
}

void VirtualRadio::refreshDisplay()
{
    // Only the lines that changed, and only while the program asked for them: a scan would
    // otherwise fill the line with lines nobody shows.
    if (m_state.displayReports) {
        reportDisplay(false);
    }
}

// --- ALE calls, link quality, built-in test ---------------------------------------------------

std::uint8_t VirtualRadio::channelScore(unsigned channel) const
{
    // A steady, plausible link-quality figure per channel (higher on the middle bands).
    const std::uint32_t mhz = channelRx(m_db, channel) / 1000000;
    return static_cast<std::uint8_t>(std::clamp<int>(30 - std::abs(int(mhz) - 12), 5, 30));
}

bool VirtualRadio::knownAddress(std::string_view address) const
{
    for (std::size_t i = 0; i < layout::kDirectorySize; ++i) {
        if (readText(m_db.ale, layout::kDirectory + i * layout::kAddressSize,
                     layout::kAddressSize) == address) {
            return true;
        }
    }
    for (unsigned n = 0; n < layout::kNetCount; ++n) {
        if (netConfigured(m_db, n) && netName(m_db, n) == address) {
            return true;
        }
    }
    return false;
}

std::vector<unsigned> VirtualRadio::callChannels(const CRadioMessage& request) const
{
    const auto first = static_cast<std::int8_t>(request[6]);
    if (first == 0 && channelProgrammed(m_db, request[7])) {
        return {request[7]};
    }
    // An automatic channel: the radio tries the best channels of the net it scans.
    std::vector<unsigned> channels;
    for (unsigned c = 1; c <= layout::kChannelCount && channels.size() < 3; ++c) {
        if (netHasChannel(m_db, m_state.scanNet, c) && channelProgrammed(m_db, c)) {
            channels.push_back(c);
        }
    }
    if (channels.empty()) {
        channels.push_back(m_state.activeChannel);
    }
    std::sort(channels.begin(), channels.end(),
              [this](unsigned a, unsigned b) { return channelScore(a) > channelScore(b); });
    return channels;
}

void VirtualRadio::placeCall(int opcode, const CRadioMessage& request)
{
    cancel(Activity::Call);
    m_state.call = CallPhase::Calling;
    const auto channels = callChannels(request);
    const std::string_view address = readText(std::span(request.bytes), 9, layout::kAddressSize);
    const bool answered = opcode == op::AllCall || knownAddress(address);
    int step = 0;
    for (unsigned c : channels) {
        schedule(Activity::Call, ++step, [this, opcode, c] {
            m_state.activeChannel = c;
            report(opcode, {static_cast<std::uint8_t>(c)});
        });
    }
    const unsigned linkChannel = channels.front();
    schedule(Activity::Call, ++step, [this, answered, linkChannel] {
        if (!answered) {
            linkResult(result::kNoLink);
            return;
        }
        m_state.linkChannel = static_cast<std::uint8_t>(linkChannel);
        m_state.activeChannel = linkChannel;
        report(op::LinkChannelReport, {static_cast<std::uint8_t>(linkChannel)});
        linkResult(result::kLinked);
    });
}

void VirtualRadio::linkResult(std::uint8_t code)
{
    cancel(Activity::Call);
    m_state.call = code == result::kLinked || code == result::kSilentLink ? CallPhase::Linked
                                                                          : CallPhase::Idle;
    report(op::LinkResult, {code});
}

void VirtualRadio::runLinkQuality(bool sounding, unsigned steps, std::vector<unsigned> channels)
{
    cancel(Activity::LinkQuality);
    if (channels.empty()) {
        channels.push_back(m_state.activeChannel);
    }
    m_state.sounding = sounding;
    m_state.call = sounding ? CallPhase::Sounding : CallPhase::LinkQuality;
    if (!sounding) {
        report(op::LinkStatusValue, {4, 0, 0, 0});
    }
    for (unsigned step = 1; step <= steps; ++step) {
        const unsigned c = channels[(step - 1) % channels.size()];
        schedule(Activity::LinkQuality, int(step), [this, sounding, step, c] {
            const auto channel = static_cast<std::uint8_t>(c);
            if (sounding) {
                report(op::SoundingProgress, {channel, 0, 0, static_cast<std::uint8_t>(step)});
                return;
            }
            report(op::BiDirectionalProgress, {channel, 0, 0, channelScore(c)});
            report(op::LinkQualityUpdate, {channel, 0, channelScore(c)});
        });
    }
    // Code 0 ends a bidirectional exchange, code 1 a sounding.
    schedule(Activity::LinkQuality, int(steps) + 1, [this, sounding] {
        m_state.sounding = false;
        m_state.call = CallPhase::Idle;
        report(op::LinkResult, {static_cast<std::uint8_t>(sounding ? 1 : 0)});
    });
}

void VirtualRadio::runSelfTest(SelfTestType type)
{
    cancel(Activity::SelfTest);
    m_state.selfTestRunning = true;
    // The full test takes twice as long per step: it sweeps every band.
    const int pace = type == SelfTestType::Full ? 2 : 1;
    for (unsigned step = 1; step <= kSelfTestProgressSteps; ++step) {
        schedule(Activity::SelfTest, int(step) * pace, [this, step] {
            reportText(op::DisplayReport, op::display::SelfTestProgress,
                       selfTestProgressText(step));
        });
    }
    const auto results = selfTestResults(type, m_selfTestPlan);
    schedule(Activity::SelfTest, int(kSelfTestProgressSteps + 1) * pace, [this, results] {
        m_state.selfTestRunning = false;
        CRadioMessage message;
        message.prepareReport();
        message.setOpcodeAndLength(op::DisplayReport, 1 + results.size());
        message[6] = op::display::SelfTestResult;
        std::copy(results.begin(), results.end(), message.payload() + 1);
        send(message);
    });
}

void VirtualRadio::incomingCall(const IncomingCall& call)
{
    const unsigned channel = call.channel != 0 && channelProgrammed(m_db, call.channel)
                                 ? call.channel
                                 : m_state.activeChannel;
    constexpr int kOpcodes[] = {op::IncomingStationCall, op::IncomingNetCall,
                                op::IncomingPriorityCall};
    CRadioMessage message;
    message.prepareReport();
    const bool withMessage = !call.message.empty();
    message.setOpcodeAndLength(kOpcodes[static_cast<int>(call.kind)],
                               withMessage ? 20 + layout::kMessageSize : 20);
    message[6] = 0;
    message[7] = static_cast<std::uint8_t>(channel);
    message[8] = channelScore(channel);
    message[9] = withMessage ? 1 : 0;
    writeText(std::span(message.bytes), 10, layout::kAddressSize - 1, call.address);
    if (withMessage) {
        writeText(std::span(message.bytes), 26, layout::kMessageSize - 1, call.message);
    }
    m_state.activeChannel = channel;
    m_state.linkChannel = static_cast<std::uint8_t>(channel);
    m_state.call = CallPhase::Linked;
    send(message);
}

// --- events and console -----------------------------------------------------------------------

void VirtualRadio::play(const RadioEvent& event)
{
    std::visit(Overloaded{
                   [this](const IncomingCall& call) { incomingCall(call); },
                   [this](const LinkResult& link) { linkResult(link.code); },
                   [this](const LinkQualityRun& run) {
                       std::vector<unsigned> channels;
                       for (unsigned c = 1; c <= layout::kChannelCount; ++c) {
                           if (netHasChannel(m_db, m_state.scanNet, c)) {
                               channels.push_back(c);
                           }
                       }
                       runLinkQuality(run.sounding, run.steps, channels);
                   },
                   [this](const SelfTestRun& run) { runSelfTest(run.type); },
                   [this](const FrontPanelChannel& channel) { selectChannel(channel.channel); },
                   [this](const FrontPanelScan& scan) {
                       if (!scan.on) {
                           stopScan();
                       } else if (scan.ale) {
                           startAleScan(scan.index);
                       } else {
                           startGroupScan(scan.index);
                       }
                   },
                   [this](const FrontPanelKey& key) { pressKey(key.code); },
                   [this](const RemoteRequest&) { report(op::RemoteRequested, {}); },
               },
               event);
    refreshDisplay();
}

QString VirtualRadio::execute(const ConsoleCommand& command)
{
    return std::visit(Overloaded{
                          [this](const RadioEvent& event) {
                              play(event);
                              return toQString(text::kSimDone);
                          },
                          [this](const FaultCommand& fault) {
                              inject(fault);
                              return toQString(text::kSimFaultSet);
                          },
                          [this](const ClearFaults&) {
                              clearFaults();
                              return toQString(text::kSimFaultsCleared);
                          },
                          [this](const SelfTestOutcome& outcome) {
                              setSelfTestOutcome(outcome);
                              return toQString(text::kSimDone);
                          },
                          [this](const SetBaud& baud) {
                              if (baud.baud == 0) {
                                  setBaud(m_baud, false);
                                  return toQString(text::kSimPacingOff);
                              }
                              setBaud(baud.baud, true);
                              return toQString(text::format(text::kSimPacingAt.data(), baud.baud));
                          },
                          [this](const SetMode& mode) {
                              m_model.ccirMode = mode.ccir;
                              powerCycle();
                              // The radio comes back in its new mode and says so.
                              report(op::CcirMode, {static_cast<std::uint8_t>(mode.ccir ? 1 : 0),
                                                    static_cast<std::uint8_t>(m_state.aleOn)});
                              return toQString(text::format(text::kSimRestarted.data(),
                                                            mode.ccir ? "CCIR" : "ALE"));
                          },
                          [this](const SetVersion& version) {
                              m_model.softwareVersion = version.text;
                              writeText(m_db.radio, layout::kSoftwareVersion, 8, version.text);
                              return toQString(text::format(text::kSimVersionSet.data(),
                                                            version.text.c_str(),
                                                            m_model.softwareClass()));
                          },
                          [this](const SetSupport& support) {
                              m_model.extendedDatabases = support.extended;
                              return toQString(text::kSimDone);
                          },
                          [this](const ShowStatus&) { return statusText(); },
                          [](const ShowHelp&) { return QString::fromStdString(consoleHelp()); },
                          [](const Quit&) { return QString(); },
                      },
                      command);
}

QString VirtualRadio::executeFromAnyThread(const ConsoleCommand& command)
{
    if (thread() == QThread::currentThread()) {
        return execute(command);
    }
    QString answer;
    QMetaObject::invokeMethod(
        this, [this, &command, &answer] { answer = execute(command); },
        Qt::BlockingQueuedConnection);
    return answer;
}

QString VirtualRadio::statusText() const
{
    const char* scan = m_state.groupScanning ? "group scan"
                       : m_state.aleScanning ? "ALE scan"
                                             : "no scan";
    const auto onOff = [](bool on) { return on ? "on" : "off"; };
    return toQString(text::format(text::kSimStatus.data(), m_model.ccirMode ? "CCIR" : "ALE",
                                  m_model.softwareVersion.c_str(), m_state.activeChannel, scan,
                                  onOff(m_state.squelch), onOff(m_state.monitor),
                                  onOff(m_state.aleOn), unsigned{m_state.remoteMode},
                                  m_programmedMemory ? ", programming" : "", m_baud,
                                  paced() ? "" : " (not paced)", m_faults.any() ? "set" : "none"));
}

// --- database transfer ------------------------------------------------------------------------

RadioTransfers::Memory VirtualRadio::transferMemory(int target, bool write)
{
    using Memory = RadioTransfers::Memory;
    const auto keptIf = [](bool kept, auto& record) -> Memory {
        if (kept) {
            return std::span<std::uint8_t>(record);
        }
        return std::uint8_t(op::status::Refused);
    };
    switch (static_cast<TransferTarget>(target)) {
    case TransferTarget::Radio:
        return keptIf(true, m_db.radio);
    case TransferTarget::Ale:
        return keptIf(true, m_db.ale);
    case TransferTarget::GlobalMembers:
        return keptIf(m_model.extendedDatabases, m_db.globalMembers);
    case TransferTarget::ExtraOptions:
        return keptIf(m_model.extendedDatabases, m_db.extraOptions);
    case TransferTarget::Ccir:
        return keptIf(m_model.ccirMode, m_db.ccir);
    case TransferTarget::ChannelName:
        return keptIf(m_model.ccirMode, m_db.channelNames);
    case TransferTarget::RadioMemory:
        // Written only between the start and the end of programming; never read back.
        if (write && m_programmedMemory) {
            return std::span<std::uint8_t>(*m_programmedMemory);
        }
        return std::uint8_t(write ? op::status::NotProgramming : op::status::Refused);
    }
    return std::uint8_t(op::status::Refused);
}

void VirtualRadio::feedReadBlocks()
{
    // Keep the link's window full, and no more, so that an abort stops the read promptly.
    while (m_transfers.reading() && m_link.outstanding() <= LinkLayer::kWindow) {
        send(m_transfers.nextReadBlock());
    }
}

} // namespace koral::radiosim
