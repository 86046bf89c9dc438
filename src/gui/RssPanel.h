#pragma once

#include "gui/DocumentPanel.h"
#include "gui/RssDocument.h"
#include "radiodb/RssCheck.h"

#include <functional>
#include <optional>
#include <vector>

class QTableView;
class QTableWidget;

namespace koral {

class ChannelTableModel;
class RssRadio;

// The RSS panel's page: the channel view of the radio database and the groups overview. The
// file commands (shared by every document panel) and the dialogs of the panel act on its
// document.
class RssPanel : public DocumentPanel
{
    Q_OBJECT
public:
    explicit RssPanel(Notifier& notifier, QWidget* parent = nullptr);
    ~RssPanel() override;

    // The radio the dialogs write sections into; null or disconnected hides those buttons.
    void setRadio(RssRadio* radio);
    // The connected radio offers independent sideband (the channel dialog's "ISB" mode).
    void setIsbOffered(bool offered) { m_isbOffered = offered; }
    // Where the configuration check finds the ALE nets' channel references it covers too:
    // the ALE programme the window shows, asked at each check. None when not set.
    using AleNetsSource = std::function<std::vector<AleNetChannels>()>;
    void setAleNetsSource(AleNetsSource source) { m_aleNets = std::move(source); }

    RssDocument& document() { return m_document; }
    const RssDocument& document() const { return m_document; }
    // Redraws everything from the document.
    void refresh();
    // Shows `document` in place of the current one (after reading the radio).
    void replaceDocument(const RssDocument& document);

    QString currentPath() const override;
    bool isModified() const override { return m_document.isModified(); }
    // The text a print-out shows (the file as saving writes it, CCIR numbers first).
    QString printedText() const override;
    QString reportHtml() const override;

    // The dialogs of the panel.
    void editChannels(int channel = 0);
    void editGroups();
    void editRadioOptions();
    void showWideInformation();
    void showSummary();
    void showCheck();
    // The configuration check's lines for the document.
    QStringList checkLines() const;

    // The channel plan to and from a CSV file the operator picks (ChannelCsv.h); an import
    // with a bad row shows every bad row and changes nothing.
    bool exportChannelsCsv();
    bool importChannelsCsv();

    // The channel commands of the channel view's context menu, on the selected channel.
    void clearChannel();
    void copyChannel();
    void pasteChannel();

    // The selected channel in the channel view (1..200), 0 when none.
    int selectedChannel() const;
    void selectChannel(int channel);
    QTableView* channelView() const { return m_channels; }
    QTableWidget* groupsOverview() const { return m_groups; }

protected:
    std::string readFile(const std::string& path, bool& foreign) override;
    void adoptReadFile(const std::string& path) override;
    std::string writeFile(const std::string& path) override;
    FileInfo& fileInfo() override { return m_document.info; }

private:
    void createChannelActions();
    void fillGroupsOverview();
    void documentEdited();
    void reportWrite(bool written);

    RssDocument m_document;
    RssDocument m_read; // a file read by readFile, until it is shown
    struct CopiedChannel
    {
        channel record;
        std::uint16_t ccirNumber;
    };
    std::optional<CopiedChannel> m_copied;
    ChannelTableModel* m_model;
    QTableView* m_channels;
    QTableWidget* m_groups;
    RssRadio* m_radio = nullptr;
    bool m_isbOffered = false;
    AleNetsSource m_aleNets;
};

} // namespace koral
