#pragma once

#include <QDialog>

class QButtonGroup;
class QLabel;
class QProgressBar;
class QPushButton;
class QTreeWidget;

namespace koral {

class BiteRunner;
struct dbase;

// "BITE": the window of the built-in test. It shows what the runner says (progress, status,
// results) and hands the buttons to it; the runner talks to the radio.
class BiteDialog : public QDialog
{
    Q_OBJECT
public:
    BiteDialog(BiteRunner& runner, const dbase& radio, QWidget* parent = nullptr);

    QButtonGroup* testTypes() const { return m_types; }
    QPushButton* runButton() const { return m_run; }
    QPushButton* saveButton() const { return m_save; }
    QTreeWidget* results() const { return m_results; }
    QProgressBar* progressBar() const { return m_progress; }
    QLabel* statusLine() const { return m_status; }
    QLabel* hintLine() const { return m_hint; }

    bool saveResults();
    // Close: the runner stops a running test with a radio reset first.
    void reject() override;

private:
    void refresh();

    BiteRunner& m_runner;
    const dbase& m_radio;
    QButtonGroup* m_types;
    QLabel* m_hint;
    QTreeWidget* m_results;
    QProgressBar* m_progress;
    QLabel* m_status;
    QPushButton* m_run;
    QPushButton* m_save;
    QPushButton* m_close;
    bool m_closing = false;
};

} // namespace koral
