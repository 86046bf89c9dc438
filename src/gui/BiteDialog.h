#pragma once

#include "session/BiteResults.h"

#include <QDialog>
#include <QTimer>

class QButtonGroup;
class QLabel;
class QProgressBar;
class QPushButton;
class QTreeWidget;

namespace koral {

class CRadioMessage;
class Notifier;
class RadioLink;
struct dbase;

// "BITE": runs the radio's built-in test, follows its progress reports and lists the result
// of every test item; the results can be saved with the radio's wide information.
class BiteDialog : public QDialog
{
    Q_OBJECT
public:
    // The radio has this long to report again before the dialog gives up on it.
    static constexpr int kSilenceMilliseconds = 10000;

    BiteDialog(RadioLink& link, Notifier& notifier, const dbase& radio, QWidget* parent = nullptr);

    // A self-test report from the radio (progress or result).
    void onReport(const CRadioMessage& message);
    bool isRunning() const { return m_running; }
    BiteTestType testType() const;
    void setTestType(BiteTestType type);

    QPushButton* runButton() const { return m_run; }
    QPushButton* saveButton() const { return m_save; }
    QTreeWidget* results() const { return m_results; }
    QProgressBar* progressBar() const { return m_progress; }
    QLabel* statusLine() const { return m_status; }
    QLabel* hintLine() const { return m_hint; }

    void run();
    bool saveResults();

    // Close: a running test is stopped with a radio reset first.
    void reject() override;

private:
    void setControlsEnabled(bool enabled);
    void setStatus(const QString& text, bool waiting);
    void radioSilent();

    RadioLink& m_link;
    Notifier& m_notifier;
    const dbase& m_radio;
    QButtonGroup* m_types;
    QLabel* m_hint;
    QTreeWidget* m_results;
    QProgressBar* m_progress;
    QLabel* m_status;
    QPushButton* m_run;
    QPushButton* m_save;
    QPushButton* m_close;
    QTimer m_silence;
    bool m_running = false;
    BiteSummary m_summary;
    BiteTestType m_ranType = BiteTestType::Full;
};

} // namespace koral
