#include "session/ChannelController.h"

#include "aledb/AlePresence.h"
#include "common/Notifier.h"
#include "common/Texts.h"
#include "koralapi/Builders.h"
#include "koralapi/Opcodes.h"
#include "koralapi/RadioCalls.h"
#include "radiodb/Frequency.h"
#include "session/DatabaseTransfer.h"
#include "session/RadioLink.h"

#include <algorithm>
#include <cstdlib>

namespace koral {

namespace {

// Channel report kinds (46).
constexpr int kChannelSelected = 0;
constexpr int kScanVisits = 1;
constexpr int kScanStopped = 2;

// 1.0 MHz is taken for transmit although it lies below the band: the radio uses it as a
// marker frequency.
constexpr float kMarkerMhz = 1.0f;
constexpr float kMinTxMhz = 1.6f;

void noResponse(Notifier& notifier)
{
    notifier.show(text::byId(text::id::NoResponse), Icon::Warning);
}

// The five settings a list edits, copied between records.
void copySettings(const channel& from, channel& to)
{
    to.power = from.power;
    to.sideband = from.sideband;
    to.bandwidth = from.bandwidth;
    to.agc = from.agc;
    to.modulation = from.modulation;
}

} // namespace

ChannelController::ChannelController(RadioLink& link, ViewState& view, CapabilityFlags& flags,
                                     SessionRecords& records, DatabaseTransfer& transfer,
                                     Notifier& notifier, QObject* parent)
    : QObject(parent), m_link(link), m_view(view), m_flags(flags), m_records(records),
      m_transfer(transfer), m_notifier(notifier)
{}

const std::vector<int>& ChannelController::channels() const
{
    return m_transfer.programmedChannels();
}

int ChannelController::currentChannel() const
{
    const auto& list = channels();
    return m_currentRow >= 0 && m_currentRow < int(list.size()) ? list[std::size_t(m_currentRow)]
                                                                : 0;
}

int ChannelController::rowOf(int number) const
{
    const auto& list = channels();
    const auto found = std::find(list.begin(), list.end(), number);
    return found == list.end() ? -1 : int(found - list.begin());
}

int ChannelController::sendActiveChannel(int number)
{
    CRadioMessage message = RadioLink::newRequest();
    SetActiveChannel(&message, 0, number);
    return m_link.sendToRadio(message);
}

int ChannelController::selectRow(int row)
{
    if (row == m_currentRow || row < 0 || row >= int(channels().size()))
        return 0;
    if (!sendActiveChannel(channels()[std::size_t(row)])) {
        emit changed(); // the list goes back to the row that is still active
        return 0;
    }
    m_currentRow = row;
    return readCurrentChannel();
}

int ChannelController::selectChannelText(std::string_view text)
{
    const int row = rowOf(std::atoi(std::string(text).c_str()));
    return row < 0 ? 0 : selectRow(row);
}

int ChannelController::readCurrentChannel()
{
    if (!ReadCurrentChannel(m_link.engine(), &m_read)) {
        noResponse(m_notifier);
        emit changed();
        return 0;
    }
    load(m_read);
    return 1;
}

void ChannelController::load(const channel& record)
{
    m_working = record;
    m_txText = m_txAccepted = frequencyDisplayText(record.txFrequency.get());
    m_rxText = m_rxAccepted = frequencyDisplayText(record.rxFrequency.get());
    m_lastFocused = mhzOfHertz(record.rxFrequency.get());
    m_duplex = record.txFrequency.get() != record.rxFrequency.get();
    emit changed();
}

void ChannelController::followActiveChannel(int number)
{
    const int row = rowOf(number);
    if (row < 0)
        return;
    m_currentRow = row;
    load(m_records.radio.channelNo(number));
}

void ChannelController::takeRadioState()
{
    m_currentRow = -1;
    const int mode = m_view.operationMode;
    m_scanMode = mode == 2 && m_flags.aleState == 1 ? ScanMode::Ale : ScanMode::Groups;
    // The radio was already scanning when the program started.
    m_scanActive = mode == 1 || mode == 4 || mode == 6;
    if (m_scanActive)
        loadScanList();
    followActiveChannel(m_transfer.activeChannel());
    setEnabled(m_enabled);
}

void ChannelController::onChannelReport(const CRadioMessage& message)
{
    const int number = message[7];
    switch (message[6]) {
    case kChannelSelected:
        if (m_scanState != kScanning)
            followActiveChannel(number);
        break;
    case kScanVisits:
        m_scanChannel = number;
        if (m_scanState == kNotScanning) {
            m_scanState = kScanning;
            m_scanActive = true;
            loadScanList();
        }
        emit changed();
        break;
    case kScanStopped:
        m_scanChannel = 0;
        if (m_scanState == kScanning) {
            m_scanState = kNotScanning;
            m_scanActive = false;
        }
        m_scanMode = reportedScanMode();
        followActiveChannel(number);
        emit changed();
        break;
    default:
        break;
    }
}

ChannelController::ScanMode ChannelController::reportedScanMode() const
{
    return m_flags.aleState == 1 ? ScanMode::Ale : ScanMode::Groups;
}

void ChannelController::followAleState()
{
    if (m_scanState == kScanning || m_scanMode == reportedScanMode())
        return;
    m_scanMode = reportedScanMode();
    emit changed();
}

float ChannelController::mhzOf(const std::string& text)
{
    return isFrequencyText(text) ? std::strtof(text.c_str(), nullptr) : 0.0f;
}

void ChannelController::rejectTail()
{
    m_duplex = true;
    emit changed();
}

bool ChannelController::commitTx()
{
    const float tx = mhzOf(m_txText);
    const float rx = mhzOf(m_rxText);
    const bool typedNonsense = !m_txText.empty() && !isFrequencyText(m_txText);
    if (typedNonsense || (tx != kMarkerMhz && !inRange(tx, FrequencyRange::Transmit))) {
        m_notifier.show(text::byId(text::id::TxOutOfRange));
        return false;
    }
    if (tx == 0 && !m_duplex) {
        m_notifier.show(text::byId(text::id::BothFrequenciesZero));
        rejectTail();
        return false;
    }
    if (tx == 0 && rx == 0) {
        m_notifier.show(text::byId(text::id::BothFrequenciesZero));
        m_txText = m_txAccepted;
        emit changed();
        return false;
    }
    m_txAccepted = m_txText;
    return true;
}

bool ChannelController::commitRx()
{
    const float tx = mhzOf(m_txText);
    const float rx = mhzOf(m_rxText);
    const bool typedNonsense = !m_rxText.empty() && !isFrequencyText(m_rxText);
    if (typedNonsense || !inRange(rx, FrequencyRange::Receive)) {
        m_notifier.show(text::byId(text::id::RxOutOfRange));
        return false;
    }
    if (rx == 0 && tx == 0) {
        m_notifier.show(text::byId(text::id::BothFrequenciesZero));
        m_rxText = m_rxAccepted;
        emit changed();
        return false;
    }
    if (rx == 0 && !m_duplex) {
        m_notifier.show(text::byId(text::id::BothFrequenciesZero));
        rejectTail();
        return false;
    }
    // Simplex transmits on the receive frequency, so it must suit the transmitter too.
    if (!m_duplex && rx < kMinTxMhz && rx != kMarkerMhz) {
        m_notifier.show(text::byId(text::id::TxOutOfRange));
        if (tx < kMinTxMhz)
            m_txText = frequencyDisplayText(double(kMinTxMhz));
        rejectTail();
        return false;
    }
    m_rxAccepted = m_rxText;
    return true;
}

void ChannelController::simplex()
{
    if (m_lastFocused == 0) {
        m_notifier.show(text::byId(text::id::BothFrequenciesZero));
        m_duplex = true;
    } else if (m_lastFocused >= kMinTxMhz) {
        m_duplex = false;
        m_txText = m_rxText = frequencyDisplayText(double(m_lastFocused));
    } else {
        m_notifier.show(text::byId(text::id::TxOutOfRange));
        m_duplex = true;
    }
    emit changed();
}

void ChannelController::duplex()
{
    m_duplex = true;
    emit changed();
}

ValueList ChannelController::entries(List list) const
{
    return ChannelConfigEditor({}).entries(list);
}

int ChannelController::selectedIndex(List list) const
{
    ChannelConfigEditor::Setup setup;
    setup.channels[0] = m_working;
    return ChannelConfigEditor(setup).selectedIndex(list);
}

void ChannelController::select(List list, int row)
{
    // The editor holds the one conversion between list rows and channel bytes.
    ChannelConfigEditor::Setup setup;
    setup.channels[0] = m_working;
    ChannelConfigEditor editor(setup);
    editor.select(list, row);
    if (editor.accept())
        copySettings(editor.channels()[0], m_working);
    emit changed();
}

int ChannelController::programChannel()
{
    const int number = currentChannel();
    if (number == 0)
        return 0;
    m_working.txFrequency.set(hertzFromText(mhzOf(m_txText), m_txText));
    m_working.rxFrequency.set(hertzFromText(mhzOf(m_rxText), m_rxText));
    m_programming = true;
    setEnabled(false);
    emit busyChanged(true);
    const int programmed = ProgramChannelNumberN(m_link.engine(), &m_working, number);
    if (programmed) {
        m_read = m_working;
        m_records.radio.channelNo(number) = m_working;
        m_records.reference.channelNo(number) = m_working;
        emit channelProgrammed(number);
        // The radio stores the channel while it goes on talking: let it settle.
        m_link.waitPumping(kProgramSettleRounds);
        m_view.operationMode = 7;
    } else {
        noResponse(m_notifier);
    }
    // A radio that did not answer leaves the panel usable for the next attempt.
    m_programming = false;
    setEnabled(true);
    emit busyChanged(false);
    return programmed;
}

int ChannelController::priority()
{
    const int number = m_records.radio.radioOptions.priorityChannel.get();
    const int row = rowOf(number);
    if (row >= 0)
        selectRow(row);
    // Sent again whatever the channel change did: the radio must end on its priority channel.
    return sendActiveChannel(number);
}

void ChannelController::setEnabled(bool enabled)
{
    m_enabled = enabled;
    m_scanState = !enabled ? kNoScanControl : m_scanActive ? kScanning : kNotScanning;
    emit changed();
}

int ChannelController::queryOperationMode()
{
    CRadioMessage reply;
    if (!m_link.query(&ReportRadioOperationMode, op::OperationMode, reply))
        return 0;
    m_view.operationMode = reply[6];
    if (!m_link.query(&ReportAleON_OFF, op::AleOnOff, reply))
        return 0;
    m_flags.aleState = reply[6];
    m_scanMode = reportedScanMode();
    if ((m_view.operationMode == 1 || m_view.operationMode == 4) && m_firstQuery == 0)
        m_firstQuery = 1;
    return 1;
}

void ChannelController::loadScanList()
{
    m_scanList.clear();
    if (m_scanMode == ScanMode::Groups) {
        for (int g = 0; g < kGroupCount; ++g)
            if (m_records.radio.groups[std::size_t(g)].isProgrammed())
                m_scanList.push_back(std::string(1, char('A' + g)));
        // A group that has been emptied falls back to the first group that is not.
        if (!m_records.radio.groups[std::size_t(m_group)].isProgrammed() && !m_scanList.empty())
            m_group = m_scanList.front()[0] - 'A';
    } else {
        const AlePresenceFlags present = derivePresenceFlags(m_records.ale);
        for (int n = 0; n < kAleNetCount; ++n)
            if (present[std::size_t(presence::kNets + n)])
                m_scanList.push_back(std::to_string(n + 1));
        if (!present[std::size_t(presence::kNets + m_net)] && !m_scanList.empty())
            m_net = std::atoi(m_scanList.front().c_str()) - 1;
    }
}

std::string_view ChannelController::scanListTitle() const
{
    return m_scanMode == ScanMode::Groups ? text::kScanGroupsTitle : text::kScanAleTitle;
}

int ChannelController::scanListRow() const
{
    const std::string selected = m_scanMode == ScanMode::Groups
                                     ? std::string(1, char('A' + m_group))
                                     : std::to_string(m_net + 1);
    const auto found = std::find(m_scanList.begin(), m_scanList.end(), selected);
    return found == m_scanList.end() ? -1 : int(found - m_scanList.begin());
}

void ChannelController::selectScanRow(int row)
{
    if (row < 0 || row >= int(m_scanList.size()) || row == scanListRow())
        return;
    const std::string& label = m_scanList[std::size_t(row)];
    if (m_scanMode == ScanMode::Ale) {
        m_net = std::atoi(label.c_str()) - 1;
        emit changed();
        return;
    }
    m_group = label[0] - 'A';
    emit changed();
    if (m_scanState == kScanning) {
        CRadioMessage message = RadioLink::newRequest();
        SetRadioScanMode(&message, 1, 1, m_group);
        m_link.sendToRadio(message);
    }
}

int ChannelController::toggleScan()
{
    if (m_scanState == kNoScanControl || !m_link.isPortOpen())
        return 0;
    if (!m_link.testCommunication()) {
        noResponse(m_notifier);
        return 0;
    }
    const bool starting = m_scanState == kNotScanning;
    if (starting && !queryOperationMode())
        return 0;
    CRadioMessage message = RadioLink::newRequest();
    if (starting) {
        loadScanList();
        if (m_scanMode == ScanMode::Groups && m_scanList.empty()) {
            // Nothing to scan: the channel controls stay.
            emit changed();
            return 0;
        }
        if (m_scanMode == ScanMode::Ale)
            SetAleMode(&message, 0, 1);
        else
            SetRadioScanMode(&message, 1, 1, m_group);
    } else if (m_scanMode == ScanMode::Ale) {
        SetAleMode(&message, 0, 0);
    } else {
        SetRadioScanMode(&message, 1, 0, 0);
    }
    // The new state is kept even when the radio does not take the request, so that the next
    // press sends the opposite request.
    m_scanState = starting ? kScanning : kNotScanning;
    m_scanActive = starting;
    m_scanChannel = 0;
    emit changed();
    const int sent = m_link.sendToRadio(message);
    if (sent && !starting && m_firstQuery == 1) {
        CRadioMessage reply;
        if (m_link.query(&ReportActiveChannel, op::ActiveChannel, reply))
            followActiveChannel(reply[7]);
    }
    m_firstQuery = 2;
    return sent;
}

std::string ChannelController::channelStateText() const
{
    const int number = m_scanState == kScanning && m_scanChannel ? m_scanChannel : currentChannel();
    return number ? text::format(text::kStateChannel.data(), number)
                  : std::string(text::kStateNoChannel);
}

std::string ChannelController::scanStateText() const
{
    if (m_scanState != kScanning)
        return std::string(text::kStateNotScanning);
    return m_scanMode == ScanMode::Groups
               ? text::format(text::kStateScanGroup.data(), 'A' + m_group)
               : text::format(text::kStateScanNet.data(), m_net + 1);
}

std::string ChannelController::linkStateText() const
{
    return std::string(m_view.linked ? text::kStateLinked : text::kStateNotLinked);
}

} // namespace koral
