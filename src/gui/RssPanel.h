#pragma once

#include "gui/RssDocument.h"
#include "radiodb/RssCheck.h"

#include <vector>

#include <QWidget>

class QTableView;
class QTableWidget;
class QLabel;

namespace koral {

class ChannelTableModel;
class Notifier;
class RssRadio;

// The RSS panel's page: the channel view of the database and the groups overview. The file
// commands and the dialogs of the panel act on its document.
class RssPanel : public QWidget
{
    Q_OBJECT
public:
    RssPanel(Notifier& notifier, QWidget* parent = nullptr);
    ~RssPanel() override;

    // The radio the dialogs write sections into; null or disconnected hides those buttons.
    void setRadio(RssRadio* radio);
    // The connected radio offers independent sideband (the channel dialog's "ISB" mode).
    void setIsbOffered(bool offered) { m_isbOffered = offered; }
    // The ALE nets' channel references that the configuration check covers too.
    void setAleNets(std::vector<AleNetChannels> nets) { m_aleNets = std::move(nets); }

    RssDocument& document() { return m_document; }
    const RssDocument& document() const { return m_document; }
    // Redraws everything from the document.
    void refresh();
    // Shows `document` in place of the current one (after reading the radio).
    void replaceDocument(const RssDocument& document);

    // The file commands. Each asks before dropping unsaved changes where that applies and
    // reports failures through the notifier; they return whether the command went through.
    bool openFile();
    bool openPath(const QString& path);
    bool saveFile();
    bool printFile();
    // The text a print-out shows (the file as saving writes it, CCIR numbers first).
    QString printedText() const;
    bool exportPdf();
    // Asks whether to save unsaved changes (Save, Discard, Cancel); false when the user
    // cancelled or the save failed.
    bool maybeSave();

    // The dialogs of the panel.
    void editChannels(int channel = 0);
    void editGroups();
    void editRadioOptions();
    void showWideInformation();
    void showSummary();
    void showCheck();
    void editFileInformation();
    // The configuration check's lines for the document.
    QStringList checkLines() const;

    // The selected channel in the channel view (1..200), 0 when none.
    int selectedChannel() const;
    QTableView* channelView() const { return m_channels; }
    QTableWidget* groupsOverview() const { return m_groups; }

signals:
    // The frame title's file part changed (after open and save).
    void pathChanged(const QString& path);
    // The document's content changed through a dialog or a load.
    void documentChanged();
    // A short result for the status bar.
    void statusMessage(const QString& text);

private:
    void fillGroupsOverview();
    void documentEdited();
    void reportWrite(bool written);
    bool saveTo(const QString& path);

    Notifier& m_notifier;
    RssDocument m_document;
    ChannelTableModel* m_model;
    QTableView* m_channels;
    QTableWidget* m_groups;
    RssRadio* m_radio = nullptr;
    bool m_isbOffered = false;
    std::vector<AleNetChannels> m_aleNets;
};

} // namespace koral
