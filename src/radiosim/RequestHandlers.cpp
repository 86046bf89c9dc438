// The radio's answer to each request of the link protocol: one handler per opcode, found
// through one table.

#include "koralapi/Opcodes.h"
#include "koralapi/RadioRecords.h"
#include "radiosim/VirtualRadio.h"

#include <algorithm>

namespace koral::radiosim {

const std::array<VirtualRadio::Handler, 256>& VirtualRadio::routes()
{
    static constexpr Route kRoutes[] = {
        {op::SelfTest, &VirtualRadio::onSelfTest},
        {op::BiDirectionalStation, &VirtualRadio::onBiDirectional},
        {op::BiDirectionalNet, &VirtualRadio::onBiDirectional},
        {op::StationCall, &VirtualRadio::onCall},
        {op::NetCall, &VirtualRadio::onCall},
        {op::AllCall, &VirtualRadio::onCall},
        {op::Sounding, &VirtualRadio::onSounding},
        {op::EnterNetwork, &VirtualRadio::onAleMode},
        {op::SetActiveChannel, &VirtualRadio::onSetActiveChannel},
        {op::SetSquelch, &VirtualRadio::onSetSquelch},
        {op::SetMonitor, &VirtualRadio::onSetMonitor},
        {op::SetDspParameters, &VirtualRadio::onSetDspParameters},
        {op::SetClarifier, &VirtualRadio::onSetClarifier},
        {op::Reset, &VirtualRadio::onReset},
        {op::EnterRemoteMode, &VirtualRadio::onEnterRemoteMode},
        {op::SpecialReport, &VirtualRadio::onSpecialReport},
        {op::QuerySquelch, &VirtualRadio::onQuerySquelch},
        {op::QueryMonitor, &VirtualRadio::onQueryMonitor},
        {op::QueryDspParameters, &VirtualRadio::onQueryDspParameters},
        {op::QueryClarifier, &VirtualRadio::onQueryClarifier},
        {op::QueryOperationMode, &VirtualRadio::onQueryOperationMode},
        {op::QueryAleOnOff, &VirtualRadio::onQueryAleOnOff},
        {op::QuerySupportMode, &VirtualRadio::onQuerySupportMode},
        {op::QueryCcirMode, &VirtualRadio::onQueryCcirMode},
        {op::QueryIsbMode, &VirtualRadio::onQueryIsbMode},
        {op::QueryActiveChannel, &VirtualRadio::onQueryActiveChannel},
        {op::SetScanMode, &VirtualRadio::onSetScanMode},
        {op::ReplaceLinkChannel, &VirtualRadio::onReplaceLinkChannel},
        {op::AbortLink, &VirtualRadio::onAbortLink},
        {op::AcceptLink, &VirtualRadio::onAcceptLink},
        {op::ControlHeadKey, &VirtualRadio::onControlHeadKey},
        {op::QueryProgramWord, &VirtualRadio::onQueryProgramWord},
        {op::QueryCurrentChannel, &VirtualRadio::onQueryCurrentChannel},
        {op::ProgramChannel, &VirtualRadio::onProgramChannel},
        {op::QuerySoftwareVersion, &VirtualRadio::onQuerySoftwareVersion},
        {op::QueryRadioSoftwareVersion, &VirtualRadio::onQueryRadioSoftwareVersion},
        {op::DatabaseRead, &VirtualRadio::onDatabaseRead},
        {op::DatabaseWrite, &VirtualRadio::onDatabaseWrite},
        {op::TransferAbort, &VirtualRadio::onTransferAbort},
        {op::DataBlock, &VirtualRadio::onDataBlock},
        {op::StartProgramming, &VirtualRadio::onStartProgramming},
        {op::StopProgramming, &VirtualRadio::onStopProgramming},
    };
    static const std::array<Handler, 256> table = [] {
        std::array<Handler, 256> byOpcode{};
        for (const Route& route : kRoutes) {
            byOpcode[static_cast<std::size_t>(route.opcode)] = route.handler;
        }
        return byOpcode;
    }();
    return table;
}

namespace {
std::uint8_t flag(bool on)
{
    return on ? 1 : 0;
}
} // namespace

bool VirtualRadio::refuseInCcirMode(const CRadioMessage& request)
{
    if (m_model.ccirMode) {
        reject(request.GetOpcode()); // a selective-call radio has no ALE
    }
    return m_model.ccirMode;
}

void VirtualRadio::onSelfTest(const CRadioMessage& request)
{
    if (request[6] > static_cast<int>(SelfTestType::LowRf)) {
        reject(request.GetOpcode());
        return;
    }
    runSelfTest(static_cast<SelfTestType>(request[6]));
}

void VirtualRadio::onBiDirectional(const CRadioMessage& request)
{
    if (refuseInCcirMode(request)) {
        return;
    }
    runLinkQuality(false, 3, callChannels(request));
}

void VirtualRadio::onCall(const CRadioMessage& request)
{
    placeCall(request.GetOpcode(), request);
}

void VirtualRadio::onSounding(const CRadioMessage& request)
{
    if (refuseInCcirMode(request)) {
        return;
    }
    if (request[7] == 0) {
        cancel(Activity::LinkQuality);
        m_state.sounding = false;
        m_state.call = CallPhase::Idle;
        return;
    }
    std::vector<unsigned> channels;
    for (unsigned c = 1; c <= layout::kChannelCount; ++c) {
        if (netHasChannel(m_db, m_state.scanNet, c) && channelProgrammed(m_db, c)) {
            channels.push_back(c);
        }
    }
    runLinkQuality(true, static_cast<unsigned>(std::max<std::size_t>(channels.size(), 1)),
                   channels);
}

void VirtualRadio::onAleMode(const CRadioMessage& request)
{
    if (refuseInCcirMode(request)) {
        return;
    }
    if (request[7] != 0) {
        startAleScan(m_state.scanNet);
    } else if (m_state.aleScanning) {
        stopScan();
    }
}

void VirtualRadio::onSetActiveChannel(const CRadioMessage& request)
{
    if (!selectChannel(request[7])) {
        reject(request.GetOpcode());
    }
}

void VirtualRadio::onSetSquelch(const CRadioMessage& request)
{
    m_state.squelch = request[7] != 0;
}

void VirtualRadio::onSetMonitor(const CRadioMessage& request)
{
    setMonitor(request[7] != 0);
}

void VirtualRadio::onSetDspParameters(const CRadioMessage& request)
{
    constexpr std::uint8_t kUnchanged = 255;
    if (request[7] != kUnchanged) {
        m_state.dspLevel = std::min<std::uint8_t>(request[7], 10);
    }
    bool* const switches[] = {&m_state.clipper, &m_state.noiseBlanker, &m_state.attenuator};
    for (std::size_t i = 0; i < std::size(switches); ++i) {
        if (request[8 + i] != kUnchanged) {
            *switches[i] = request[8 + i] != 0;
        }
    }
}

void VirtualRadio::onSetClarifier(const CRadioMessage& request)
{
    const std::uint8_t direction = request[7] <= 2 ? request[7] : 0;
    m_state.clarifierDirection = direction;
    m_state.clarifierMagnitude = direction == 0 ? 0 : request[8];
}

void VirtualRadio::onReset(const CRadioMessage&)
{
    restart();
}

void VirtualRadio::onEnterRemoteMode(const CRadioMessage& request)
{
    m_state.remoteMode = request[6];
}

void VirtualRadio::onSpecialReport(const CRadioMessage& request)
{
    if (request[8] == op::ChannelReport) {
        m_state.specialReports = request[7] != 0;
    } else if (request[8] == op::DisplayReport) {
        // A program showing the head: the display now, then every change of it.
        m_state.displayReports = request[7] != 0;
        if (m_state.displayReports) {
            reportDisplay(true);
        }
    }
}

void VirtualRadio::onQuerySquelch(const CRadioMessage&)
{
    // Bit 1: squelch on; bit 0: a carrier is heard (only with the squelch open on a busy
    // channel, which the virtual band never is).
    report(op::SquelchState, {static_cast<std::uint8_t>(m_state.squelch ? 0x02 : 0x00)});
}

void VirtualRadio::onQueryMonitor(const CRadioMessage&)
{
    report(op::MonitorState, {flag(m_state.monitor)});
}

void VirtualRadio::onQueryDspParameters(const CRadioMessage&)
{
    report(op::DspParameters, {m_state.dspLevel, flag(m_state.clipper), flag(m_state.noiseBlanker),
                               flag(m_state.attenuator)});
}

void VirtualRadio::onQueryClarifier(const CRadioMessage&)
{
    report(op::ClarifierPosition, {m_state.clarifierDirection, m_state.clarifierMagnitude});
}

void VirtualRadio::onQueryOperationMode(const CRadioMessage&)
{
    report(op::OperationMode, {static_cast<std::uint8_t>(m_state.operationMode(m_model.ccirMode))});
}

void VirtualRadio::onQueryAleOnOff(const CRadioMessage&)
{
    report(op::AleOnOff, {flag(m_state.aleOn && !m_model.ccirMode)});
}

void VirtualRadio::onQuerySupportMode(const CRadioMessage&)
{
    report(op::SupportMode, {flag(m_model.extendedDatabases)});
}

void VirtualRadio::onQueryCcirMode(const CRadioMessage&)
{
    report(op::CcirMode, {flag(m_model.ccirMode), flag(m_state.aleOn && !m_model.ccirMode)});
}

void VirtualRadio::onQueryIsbMode(const CRadioMessage&)
{
    report(op::IsbMode, {flag(m_state.isbMode)});
}

void VirtualRadio::onQueryActiveChannel(const CRadioMessage&)
{
    report(op::ActiveChannel, {flag(m_state.groupScanning || m_state.aleScanning),
                               static_cast<std::uint8_t>(m_state.activeChannel)});
}

void VirtualRadio::onSetScanMode(const CRadioMessage& request)
{
    const unsigned group = request[8];
    if (request[7] == 0) {
        if (m_state.groupScanning) {
            stopScan();
        }
    } else if (group < layout::kGroupCount && groupProgrammed(m_db, group)) {
        startGroupScan(group);
    } else {
        reject(request.GetOpcode());
    }
}

void VirtualRadio::onReplaceLinkChannel(const CRadioMessage& request)
{
    if (m_state.call != CallPhase::Linked) {
        linkResult(0);
        return;
    }
    unsigned next = request[8];
    if (request[7] != 0) {
        // The radio moves to the best other channel of the net it scans.
        next = m_state.linkChannel;
        for (unsigned c = 1; c <= layout::kChannelCount; ++c) {
            if (c != m_state.linkChannel && netHasChannel(m_db, m_state.scanNet, c) &&
                channelProgrammed(m_db, c) &&
                (next == m_state.linkChannel || channelScore(c) > channelScore(next))) {
                next = c;
            }
        }
    }
    if (!channelProgrammed(m_db, next)) {
        reject(request.GetOpcode());
        return;
    }
    m_state.linkChannel = static_cast<std::uint8_t>(next);
    m_state.activeChannel = next;
    report(op::LinkChannelReport, {static_cast<std::uint8_t>(next)});
    linkResult(1);
}

void VirtualRadio::onAbortLink(const CRadioMessage&)
{
    cancel(Activity::Call);
    cancel(Activity::LinkQuality);
    m_state.call = CallPhase::Idle;
    m_state.sounding = false;
}

void VirtualRadio::onAcceptLink(const CRadioMessage&)
{
    if (m_state.call == CallPhase::Calling) {
        m_state.call = CallPhase::Linked;
    }
}

void VirtualRadio::onControlHeadKey(const CRadioMessage& request)
{
    pressKey(request[6]);
}

void VirtualRadio::onQueryProgramWord(const CRadioMessage&)
{
    report(op::ProgramWord, {m_model.programWord});
}

void VirtualRadio::onQueryCurrentChannel(const CRadioMessage&)
{
    CRadioMessage message;
    message.prepareReport();
    message.setOpcodeAndLength(op::CurrentChannel, 1 + layout::kChannelSize);
    message[6] = static_cast<std::uint8_t>(m_state.activeChannel);
    const auto record = channelRecord(m_db, m_state.activeChannel);
    std::copy(record.begin(), record.end(), message.payload() + 1);
    send(message);
}

void VirtualRadio::onProgramChannel(const CRadioMessage& request)
{
    const unsigned channel = request[6];
    if (channel < 1 || channel > m_model.channelCount ||
        request.GetLen() < int(1 + layout::kChannelSize)) {
        commandResult(op::ProgramChannel, 0, op::status::BadRange);
        return;
    }
    auto record = channelRecord(m_db, channel);
    std::copy_n(request.payload() + 1, layout::kChannelSize, record.begin());
    commandResult(op::ProgramChannel, 0, op::status::Done);
    if (channel == m_state.activeChannel) {
        reportChannel(0);
    }
}

void VirtualRadio::onQuerySoftwareVersion(const CRadioMessage&)
{
    reportVersion(op::SoftwareVersion, m_model.softwareVersion);
}

void VirtualRadio::onQueryRadioSoftwareVersion(const CRadioMessage&)
{
    reportVersion(op::RadioSoftwareVersion, m_model.radioSoftwareVersion);
}

void VirtualRadio::onDatabaseRead(const CRadioMessage& request)
{
    if (const auto refusal = m_transfers.startRead(request)) {
        commandResult(refusal->request, refusal->target, refusal->status);
        return;
    }
    feedReadBlocks();
}

void VirtualRadio::onDatabaseWrite(const CRadioMessage& request)
{
    if (const auto refusal = m_transfers.startWrite(request)) {
        commandResult(refusal->request, refusal->target, refusal->status);
    }
}

void VirtualRadio::onTransferAbort(const CRadioMessage& request)
{
    m_transfers.abort(request[6]);
}

void VirtualRadio::onDataBlock(const CRadioMessage& request)
{
    const std::uint8_t baudIndex = configuredBaudIndex();
    const auto result = m_transfers.block(request);
    if (!result) {
        return;
    }
    commandResult(result->request, result->target, result->status);
    if (result->status == op::status::Done &&
        result->target == static_cast<int>(TransferTarget::Radio)) {
        takeNewMemoryIntoUse(baudIndex);
    }
}

void VirtualRadio::onStartProgramming(const CRadioMessage&)
{
    m_programmedMemory = m_db.radio;
    commandResult(op::StartProgramming, 0, op::status::Done);
}

void VirtualRadio::onStopProgramming(const CRadioMessage&)
{
    if (!m_programmedMemory) {
        commandResult(op::StopProgramming, 0, op::status::NotProgramming);
        return;
    }
    const std::uint8_t baudIndex = configuredBaudIndex();
    m_db.radio = *m_programmedMemory;
    m_programmedMemory.reset();
    commandResult(op::StopProgramming, 0, op::status::Done);
    takeNewMemoryIntoUse(baudIndex);
}

} // namespace koral::radiosim
