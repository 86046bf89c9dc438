#pragma once

#include "aledb/ale_dbase.h"
#include "gui/AleDocument.h"
#include "gui/DocumentPanel.h"

class QTableWidget;

namespace koral {

struct dbase;

// The RSS ALE panel's page: the 20 nets, the directory, the messages and the automatic dials
// of the ALE programme at a glance. The file commands are those every document panel shares;
// the dialogs of the programme edit the panel's document.
class AlePanel : public DocumentPanel
{
    Q_OBJECT
public:
    explicit AlePanel(Notifier& notifier, QWidget* parent = nullptr);

    AleDocument& document() { return m_document; }
    const AleDocument& document() const { return m_document; }
    // Shows `document` in place of the current one (after reading the radio).
    void replaceDocument(const AleDocument& document);
    // The rules in force for the connected radio (global members, highest channel).
    void setSettings(const AleSettings& settings) { m_settings = settings; }
    const AleSettings& settings() const { return m_settings; }
    void refresh();

    QString currentPath() const override;
    bool isModified() const override { return m_document.isModified(); }
    QString printedText() const override;
    QString reportHtml() const override;

    // The configuration check of both databases: `radio` is the RSS panel's.
    QStringList checkLines(const dbase& radio) const;
    void showCheck(const dbase& radio);

    // The dialogs of the programme; each edits a copy that OK takes into the document.
    void editNets(int net = 0);
    void editMembers(int net = 0);
    void editGlobalMembers(int net = 0);
    void editDirectory();
    void editMessages(int message = 0);
    void editAutoDials();

    QTableWidget* netsGrid() const { return m_nets; }
    QTableWidget* directoryGrid() const { return m_directory; }
    QTableWidget* messagesGrid() const { return m_messages; }
    QTableWidget* autoDialsGrid() const { return m_autoDials; }

protected:
    std::string readFile(const std::string& path, bool& foreign) override;
    void adoptReadFile(const std::string& path) override;
    std::string writeFile(const std::string& path) override;
    FileInfo& fileInfo() override { return m_document.info; }

private:
    void programmeEdited(const AleProgramme& programme);

    AleDocument m_document;
    AleDocument m_read; // a file read by readFile, until it is shown
    AleSettings m_settings;
    QTableWidget* m_nets;
    QTableWidget* m_directory;
    QTableWidget* m_messages;
    QTableWidget* m_autoDials;
};

} // namespace koral
