#pragma once

#include <QDialog>

class QPlainTextEdit;
class QLineEdit;
class QTableView;
class QListWidget;

namespace koral {

struct FileInfo;
struct RssDocument;
struct dbase;

// "Radio Wide Information": the radio's identity, its option slots and the ECN and SP lists,
// read-only.
class WideInformationDialog : public QDialog
{
    Q_OBJECT
public:
    WideInformationDialog(const dbase& record, QWidget* parent = nullptr);
};

// The File Information dialog: the comment and user name kept in the file's header, and when
// the file was last written. OK stores the texts into the file information.
class FileInformationDialog : public QDialog
{
    Q_OBJECT
public:
    FileInformationDialog(FileInfo& info, const QString& path, QWidget* parent = nullptr);
    void accept() override;

    QPlainTextEdit* commentEdit() const { return m_comment; }
    QLineEdit* userNameEdit() const { return m_userName; }

private:
    FileInfo& m_info;
    QPlainTextEdit* m_comment;
    QLineEdit* m_userName;
};

// The configuration summary: all 200 channels with the summary columns.
class SummaryDialog : public QDialog
{
    Q_OBJECT
public:
    SummaryDialog(const RssDocument& document, QWidget* parent = nullptr);
    QTableView* table() const { return m_table; }

private:
    QTableView* m_table;
};

// The configuration check: one line per reference to a channel that is not programmed.
class CheckDialog : public QDialog
{
    Q_OBJECT
public:
    CheckDialog(const QStringList& lines, QWidget* parent = nullptr);
    QListWidget* list() const { return m_list; }

signals:
    // The reader asked to go to the channel a line names (double-click or context menu).
    void channelChosen(int channel);

private:
    QListWidget* m_list;
};

} // namespace koral
