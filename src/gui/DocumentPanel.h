#pragma once

#include "gui/RecentFiles.h"

#include <QWidget>

#include <string>
#include <string_view>

class QMenu;

namespace koral {

class HelpButtonDialog;
class Notifier;
struct FileInfo;

// What every document panel (radio database, ALE programme, CCIR database) does the same
// way: Open with the question before unsaved changes are lost and the check that a file is
// of the panel's kind; Save to the current file and Save As; the recent files and the folder
// the file dialogs start in; printing the file's text or a formatted report, and exporting
// either to PDF. A panel supplies its document through the hooks below.
class DocumentPanel : public QWidget
{
    Q_OBJECT
public:
    struct FileKind
    {
        QString key;    // settings key of the recent files, e.g. "rss"
        QString name;   // as in the captions "Open RSS File", "Save RSS File As"
        QString filter; // file dialog filter
        QString suffix; // added to a file name given without one
        std::string_view unsavedQuestion;
        std::string_view foreignQuestion; // "%s" is the file: it has none of the kind's sections
    };

    DocumentPanel(Notifier& notifier, FileKind kind, QWidget* parent = nullptr);

    const FileKind& fileKind() const { return m_kind; }
    // The file the document was last opened from or saved to; empty when none.
    virtual QString currentPath() const = 0;
    virtual bool isModified() const = 0;

    // The file commands; each reports failures through the notifier and returns whether it
    // went through.
    bool openFile();
    bool openPath(const QString& path);
    bool saveFile(); // to the current file, or as Save As when there is none
    bool saveFileAs();
    bool printFile();
    bool exportPdf();
    bool printReport();
    bool exportReportPdf();
    // Asks Save, Discard or Cancel when there are unsaved changes; false when the user
    // cancelled or the save failed.
    bool maybeSave();

    // The File Information dialog on the comment and user name the file carries.
    void editFileInformation();

    // The Recent Files menu, kept up to date; owned by `parent`.
    QMenu* createRecentFilesMenu(QWidget* parent);

    // The text a print-out of the file shows (empty when it could not be made).
    virtual QString printedText() const = 0;
    // The formatted report: title, date, identity and the document's content as tables.
    virtual QString reportHtml() const = 0;

signals:
    // The frame title's file part changed (after open, save and read).
    void pathChanged(const QString& path);
    // The document's content changed through a dialog or a load.
    void documentChanged();
    // A short result for the status bar.
    void statusMessage(const QString& text);
    void recentFilesChanged();
    // A dialog's Help button: the manual is wanted.
    void helpRequested();

protected:
    // Reads `path` into a document kept aside: empty on success, else the operator's
    // message. `foreign` tells whether the file has none of the sections of the kind.
    virtual std::string readFile(const std::string& path, bool& foreign) = 0;
    // Shows the document readFile kept aside; it came from `path`.
    virtual void adoptReadFile(const std::string& path) = 0;
    // Writes the document to `path`, which becomes its file; empty or the operator's message.
    virtual std::string writeFile(const std::string& path) = 0;

    // The document's file information (comment, user name, when it was written).
    virtual FileInfo& fileInfo() = 0;

    Notifier& notifier() const { return m_notifier; }
    // Runs one of the panel's dialogs, its Help button passed on as helpRequested.
    int execDialog(HelpButtonDialog& dialog);

private:
    bool saveTo(const QString& path);
    // The file's text, or the report when `fileText` is empty.
    bool exportToPdf(const QString& caption, const QString& fileText);
    QString suggestedName(const QString& suffix) const;

    Notifier& m_notifier;
    FileKind m_kind;
    RecentFiles m_recent;
};

} // namespace koral
