#pragma once

#include "session/ProgressView.h"

#include <QDialog>
#include <functional>

class QLabel;
class QProgressBar;
class QPushButton;

namespace koral {

// The window of a database transfer: the database's title, "Reading ..." or "Writing ..."
// with the section, a progress bar over the whole layout and Cancel. The session drives it
// through ProgressView; Cancel calls the function given.
class ProgressDialog : public QDialog, public ProgressView
{
    Q_OBJECT
public:
    ProgressDialog(std::function<void()> cancel, QWidget* parent = nullptr);

    // The position the bar reaches at its end (the radio and ALE layouts, then the largest
    // of the CCIR and global-member databases).
    static constexpr int kLastPosition = 4304 + 4377 + 875;

    void open() override;
    void close() override;
    void setTitle(std::string_view title) override;
    void setCaption(std::string_view caption) override;
    void setPosition(int position) override;
    void setCancelEnabled(bool enabled) override;

    QString caption() const;
    QPushButton* cancelButton() const { return m_cancel; }
    // A line above the caption (the start-up notice while the first read runs); until the
    // dialog closes.
    void setBanner(const QString& text);
    QString banner() const;

signals:
    void captionChanged(const QString& caption);
    void opened();

protected:
    void reject() override;

private:
    std::function<void()> m_cancelFunction;
    QLabel* m_banner;
    QLabel* m_caption;
    QProgressBar* m_bar;
    QPushButton* m_cancel;
};

} // namespace koral
