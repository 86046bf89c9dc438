#pragma once

#include "gui/CcirDocument.h"
#include "gui/DocumentPanel.h"
#include "radiodb/ChannelTables.h"

class QTableWidget;

namespace koral {

// The CCIR panel's page: the self identities, the directory of 100 identities, the two
// messages and the three settings of the CCIR database, and the CCIR channel number of each
// radio channel (kept with the radio database, shown here for reference).
class CcirPanel : public DocumentPanel
{
    Q_OBJECT
public:
    explicit CcirPanel(Notifier& notifier, QWidget* parent = nullptr);

    CcirDocument& document() { return m_document; }
    const CcirDocument& document() const { return m_document; }
    void replaceDocument(const CcirDocument& document);
    // The radio database's CCIR channel numbers (the RSS panel's).
    void setChannelNumbers(const CcirChannelNumbers& numbers);
    void refresh();

    QString currentPath() const override;
    bool isModified() const override { return m_document.isModified(); }
    QString printedText() const override;
    QString reportHtml() const override;

    // The dialogs of the database; each edits a copy that OK takes into the document.
    void editDirectory();
    void editSelfAddress();
    void editMessages();

    QTableWidget* identitiesGrid() const { return m_identities; }
    QTableWidget* directoryGrid() const { return m_directory; }
    QTableWidget* messagesGrid() const { return m_messages; }
    QTableWidget* channelsGrid() const { return m_channels; }

protected:
    std::string readFile(const std::string& path, bool& foreign) override;
    void adoptReadFile(const std::string& path) override;
    std::string writeFile(const std::string& path) override;
    FileInfo& fileInfo() override { return m_document.info; }

private:
    void recordEdited(const ccir_dbase& record);

    CcirDocument m_document;
    CcirDocument m_read;
    QTableWidget* m_identities;
    QTableWidget* m_directory;
    QTableWidget* m_messages;
    QTableWidget* m_channels;
};

} // namespace koral
