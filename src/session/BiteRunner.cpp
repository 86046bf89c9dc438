#include "session/BiteRunner.h"

#include "common/Notifier.h"
#include "common/Texts.h"
#include "koralapi/Builders.h"
#include "koralapi/Opcodes.h"
#include "session/BiteFile.h"
#include "session/RadioLink.h"

#include <algorithm>

namespace koral {

BiteRunner::BiteRunner(RadioLink& link, Notifier& notifier, QObject* parent)
    : QObject(parent), m_link(link), m_notifier(notifier)
{
    m_watchdog.setSingleShot(true);
    m_watchdog.setInterval(kWatchdogMilliseconds);
    connect(&m_watchdog, &QTimer::timeout, this, &BiteRunner::onWatchdog);
}

void BiteRunner::setStatus(std::string text, bool highlighted)
{
    m_status = std::move(text);
    m_statusHighlighted = highlighted;
}

bool BiteRunner::run()
{
    const std::string_view question = biteSetupHint(m_type);
    if (!question.empty() &&
        m_notifier.ask(question, Buttons::OkCancel, Icon::Warning) == Answer::Cancel)
        return false;
    m_controlsEnabled = false;
    m_results = {};
    m_progress = 0;
    setStatus({}, false);
    CRadioMessage request;
    request.prepareRequest();
    PerformSelfTest(&request, static_cast<int>(m_type));
    if (!m_link.sendToRadio(request)) {
        m_controlsEnabled = true;
        m_progress = 0;
    } else {
        setStatus(std::string(text::byId(text::id::CommandInProgress)), true);
    }
    // Even a request that never left ends in the watchdog's message.
    m_running = true;
    m_finished = false;
    m_watchdog.start();
    emit changed();
    return true;
}

void BiteRunner::onReport(const CRadioMessage& report)
{
    // Reports of a run that was closed or timed out (the radio may still be finishing it)
    // belong to nobody: they must neither revive the watchdog nor fill the next window.
    if (!isRunning())
        return;
    if (report[6] == op::display::SelfTestProgress) {
        const auto* text = reinterpret_cast<const char*>(report.bytes.data() + 7);
        const std::size_t length = std::find(text, text + (CRadioMessage::kSize - 7), '\0') - text;
        const int position = biteProgressFromText(std::string_view(text, length));
        if (position >= 0)
            m_progress = position;
        m_watchdog.start();
    } else if (report[6] == op::display::SelfTestResult) {
        m_finished = true;
        m_watchdog.stop();
        m_results = summarizeBite(report.bytes);
        m_controlsEnabled = true;
        m_progress = kBiteProgressMaximum;
        setStatus(biteSummaryText(m_results), false);
    } else {
        return;
    }
    emit changed();
}

void BiteRunner::onWatchdog()
{
    clear();
    m_notifier.show(text::byId(text::id::NoResponse), Icon::Warning);
    emit closed();
}

void BiteRunner::close()
{
    if (isRunning()) {
        // Abandon the run before the reset goes out, so that nothing arriving during the wait
        // (nor a second Close) acts on it.
        m_running = false;
        m_watchdog.stop();
        m_link.sendRequest(&PerformReset);
        setStatus(std::string(text::kWaitForReset), true);
        emit changed();
        m_link.waitPumping(20); // about 200 ms
    }
    clear();
    emit closed();
}

void BiteRunner::clear()
{
    m_watchdog.stop();
    m_running = false;
    m_finished = false;
    m_controlsEnabled = true;
    m_progress = 0;
    m_results = {};
    setStatus({}, false);
}

bool BiteRunner::saveResults(const std::filesystem::path& file, const dbase& radio,
                             std::string* error) const
{
    return saveBiteFile(file, m_type, radio, m_results, error);
}

} // namespace koral
