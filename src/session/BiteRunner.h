#pragma once

#include "koralapi/CRadioMessage.h"
#include "session/BiteResults.h"

#include <QObject>
#include <QTimer>

#include <filesystem>
#include <string>

namespace koral {

class Notifier;
class RadioLink;
struct dbase;

// The built-in test dialog's rules: confirmation, the request, progress from the radio's
// reports, the 10-second watchdog, the results and their summary, and the reset when the
// dialog closes during a test.
class BiteRunner : public QObject
{
    Q_OBJECT
public:
    static constexpr int kWatchdogMilliseconds = 10000;

    BiteRunner(RadioLink& link, Notifier& notifier, QObject* parent = nullptr);

    void setTestType(BiteTestType type) { m_type = type; }
    BiteTestType testType() const { return m_type; }
    // The hint under the test-type buttons.
    std::string_view hint() const { return biteSetupHint(m_type); }

    // "Run": false when the operator cancelled the set-up question.
    bool run();
    // A self-test report (opcode 27, kinds 3 and 4) from the dispatch.
    void onReport(const CRadioMessage& report);
    // "Close": abandons a running test with a radio reset and a short bounded wait, then
    // leaves the runner as new (results, progress and status cleared, controls enabled), so
    // the next window starts afresh. Emits closed(); the watchdog's expiry does the same.
    void close();

    bool isRunning() const { return m_running && !m_finished; }
    bool controlsEnabled() const { return m_controlsEnabled; }
    int progress() const { return m_progress; }
    const std::string& status() const { return m_status; }
    // The status line is yellow while the radio works, grey otherwise.
    bool statusHighlighted() const { return m_statusHighlighted; }
    const BiteSummary& results() const { return m_results; }

    bool saveResults(const std::filesystem::path& file, const dbase& radio,
                     std::string* error = nullptr) const;

    // Shortens the watchdog (tests).
    void setWatchdogMilliseconds(int ms) { m_watchdog.setInterval(ms); }
    bool watchdogActive() const { return m_watchdog.isActive(); }

signals:
    void changed();
    void closed();

private:
    void setStatus(std::string text, bool highlighted);
    void onWatchdog();
    void clear();

    RadioLink& m_link;
    Notifier& m_notifier;
    BiteTestType m_type = BiteTestType::Full;
    bool m_running = false;
    bool m_finished = false;
    bool m_controlsEnabled = true;
    int m_progress = 0;
    std::string m_status;
    bool m_statusHighlighted = false;
    BiteSummary m_results;
    QTimer m_watchdog;
};

} // namespace koral
